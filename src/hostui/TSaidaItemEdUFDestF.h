#pragma once

#include <QDialog>
#include <QStringList>

#include <functional>

class QPushButton;
class QTableView;
class TClientDataSet;
class TClientManager;

// The host's editing dialog for the destination-state ICMS of a note's movements: one grid row per
// movement, item, product, description, maker and net value read-only, the five figures the user
// edits typed the Brazilian way, and the three resulting values read-only, recomputed by the
// caller's rule as a figure changes. Enter and Tab walk the editable cells and then reach OK; Esc
// cancels. The rows live in the dialog's own dataset, filled by the caller before it is shown.
class TSaidaItemEdUFDestF final : public QDialog
{
    Q_OBJECT

public:
    explicit TSaidaItemEdUFDestF(QWidget *parent = nullptr);
    ~TSaidaItemEdUFDestF() override;

    TClientDataSet &Cds() { return *m_cds; }
    QTableView *Grade() const { return m_grade; }
    QPushButton *OkButton() const { return m_ok; }

    // The figures the user edits, in the grid's order, and the values computed from them.
    static const QStringList &CamposEditaveis();
    static const QStringList &CamposCalculados();
    // Sets the computed values of the dataset's current row (in Edit state) from its figures.
    using TCalculo = std::function<void(TClientDataSet &)>;
    void DefinirCalculo(TCalculo calculo);
    // The dialog's fields on any dataset (the headless command fills one without a dialog).
    static void CriarCampos(TClientDataSet &cds);

    void accept() override;

protected:
    // The first editable cell is current, its editor open, when the dialog appears.
    void showEvent(QShowEvent *evento) override;

private:
    class Modelo;
    class Delegado;

    TClientDataSet *m_cds = nullptr;
    TClientManager *m_manager = nullptr;
    Modelo *m_modelo = nullptr;
    Delegado *m_delegado = nullptr;
    QTableView *m_grade = nullptr;
    QPushButton *m_ok = nullptr;
    TCalculo m_calculo;
};
