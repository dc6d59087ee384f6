#pragma once

#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QToolButton;
class TNumEditBR;

// The fiscal coding of one item: NCM, CFOP, CST, the two base reductions and the additional
// information, which never holds an accented letter. Enter moves to the next field, Esc cancels.
class TRepItemAJusteF final : public QDialog
{
    Q_OBJECT
public:
    static constexpr int MaxInfoAdic = 500;

    explicit TRepItemAJusteF(QWidget *parent = nullptr);

    QLabel *ProdLabel() const { return m_prodLabel; }
    QLineEdit *NCMMaskEdit() const { return m_ncm; }
    TNumEditBR *CfopNumEditBR() const { return m_cfop; }
    TNumEditBR *TratICMSNumEditBR() const { return m_cst; }
    TNumEditBR *pRedBCNumEditBR() const { return m_pRedBC; }
    TNumEditBR *pRedBCSTNumEditBR() const { return m_pRedBCST; }
    QPlainTextEdit *InfoAdicMemo() const { return m_infoAdic; }
    QToolButton *ICMSUFToolButton() const { return m_icmsUF; }

    // The NCM typed, digits only.
    QString NCM() const;
    void SetNCM(const QString &ncm);

    // Values the caller passes along; kept, nothing here reads them.
    void GuardarValores(int valor1, int valor2, int valor3) { m_valoresGuardados = {valor1, valor2, valor3}; }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLabel *m_prodLabel;
    QLineEdit *m_ncm;
    TNumEditBR *m_cfop;
    TNumEditBR *m_cst;
    TNumEditBR *m_pRedBC;
    TNumEditBR *m_pRedBCST;
    QPlainTextEdit *m_infoAdic;
    QToolButton *m_icmsUF;
    std::array<int, 3> m_valoresGuardados{};
};

// Asks for the item's coding, starting from the values given; on OK they take the answers (the
// additional information with its runs of spaces collapsed) and the result is true. Outside a
// complementary note (type 39) a note without a supplier is refused before the dialog opens.
bool Perg(const QString &Titulo, int &CFOP, int &CST, double &pRedBCST, double &pRedBC, QString &InfoAdic,
          QString &NCM, int FornecCod, int Valor1, int Valor2, int Valor3, int TipoDocCod, QWidget *parent = nullptr);
