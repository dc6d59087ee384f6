#pragma once

#include "TnfeProc.h"

#include <QDialog>

#include <memory>

class QLabel;
class QPushButton;
class QTableView;
class QTableWidget;
class TClientDataSet;
class TClientManager;
class TConexaoSQL;
class TImportItensDados;

// "Importar itens dos XMLs": the user picks, per item of the supplier's documents, the quantity
// that becomes an item of the note; OK hands the destination rows to the caller.
class TRepF_ImportItensF final : public QDialog
{
    Q_OBJECT

public:
    TRepF_ImportItensF(TConexaoSQL &conexao, int fornecCod, QWidget *parent = nullptr);
    ~TRepF_ImportItensF() override;

    // The note's document type (the type list's position), as the caller selected it.
    void SetTipoDoc(int tipoDoc) { m_tipoDoc = tipoDoc; }
    int TipoDoc() const { return m_tipoDoc; }

    TnfeProcList &Documentos();
    void AdicionarDocumento(std::unique_ptr<TnfeProc> documento);
    // Fills the notes grid and the origin items from the documents added.
    void PreencherItensOrigem();
    void PreencherItensDestino();

    // The status line under the grids.
    void SetStatus(const QString &texto);
    QString Status() const;

    TImportItensDados &Dados() { return *m_dados; }
    TClientDataSet &OrigemDataSet();
    TClientDataSet &DestinoDataSet();

    // Double click or space on the origin grid: the "Qtd.Dev" question for the current row.
    void QtdDevEdit();
    // "Limpar Quantidades" and "Devolver Tudo".
    void ZerarQtds();
    void QtdsMax();
    // OK: refused while no quantity was given.
    void OkActExecute();
    // The origin grid's rows, as the clipboard gets them: captions, then one line per row.
    void Copiar();

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void MontarTela();
    void PreencherNotas();
    void ExecutarBotao(QPushButton *botao, void (TImportItensDados::*acao)());

    std::unique_ptr<TImportItensDados> m_dados;
    int m_tipoDoc = 0;
    TClientManager *m_origemModelo = nullptr;
    TClientManager *m_destinoModelo = nullptr;
    QTableWidget *m_notasGrid = nullptr;
    QTableView *m_origemGrid = nullptr;
    QTableView *m_destinoGrid = nullptr;
    QPushButton *m_zerarButton = nullptr;
    QPushButton *m_maxButton = nullptr;
    QLabel *m_statusLabel = nullptr;
};
