#pragma once

#include "TnfeProc.h"

#include <QDialog>

#include <functional>

class QAction;
class QLabel;
class QPushButton;
class QTableWidget;
class TConexaoSQL;

// What NfeChavesRefListaExec hands the list dialog, in its argument order.
struct TArgsChavesRef
{
    int emprCod = 0;
    int estacaoCod = 0;
    int compraCod = 0;
    int emprCodSelecionada = 0;         // the company of the emitter in the title
    TConexaoSQL *conexao = nullptr;
    QString uf;                          // passed through to the key-download dialog, as the rest
    QString textoContexto1;
    const QMetaObject *classeTela = nullptr;
    QString textoContexto2;
    int valorContexto = 0;
};

// The reference keys of a note, one per row of a one-column grid whose row 0 is the title row
// "Chaves": rows 1 to 5 hold the keys, and an empty list shows one blank row.
class TNfeChavesRefListaF final : public QDialog
{
    Q_OBJECT
public:
    TNfeChavesRefListaF(const TArgsChavesRef &args, QWidget *parent = nullptr);

    // Blank lines are left out; none left gives one blank row.
    void PreencherLista(const QStringList &chaves);
    // The keys of the rows that are not empty, in row order.
    QStringList Chaves() const;

    bool TemChave(const QString &s) const;
    // The one way a key gets in: refused when a row holds it already or the list is full.
    void InserirStr(const QString &s);
    // Reads the content of the file, whatever its name says.
    QString NomeXMLToNFEChave(const QString &FileName) const;

    void InsActExecute();
    void AltActExecute();
    void ExclActExecute();
    void ColarActExecute();
    void ImportXmlActExecute();
    // The emitter's name and masked CNPJ of the selected company in the title label.
    void CarregarTitulo();

    QTableWidget *Grid() const { return m_grid; }
    QLabel *TituloLabel() const { return m_tituloLabel; }
    QAction *InsAct() const { return m_insAct; }
    QAction *AltAct() const { return m_altAct; }
    QAction *ExclAct() const { return m_exclAct; }
    QAction *ColarAct() const { return m_colarAct; }
    QAction *ImportXmlAct() const { return m_importXmlAct; }

protected:
    void showEvent(QShowEvent *event) override;

private:
    bool cheia() const;
    int linhaAtual() const;
    void colocar(int linha, const QString &texto);
    QAction *criarAcao(const char *nome, const QString &texto, void (TNfeChavesRefListaF::*executar)());

    TArgsChavesRef m_args;
    TPess_Emit m_emitente;
    bool m_tituloAgendado = false;

    QTableWidget *m_grid = nullptr;
    QLabel *m_tituloLabel = nullptr;
    QPushButton *m_imprimirButton = nullptr;
    QAction *m_insAct = nullptr;
    QAction *m_altAct = nullptr;
    QAction *m_exclAct = nullptr;
    QAction *m_colarAct = nullptr;
    QAction *m_importXmlAct = nullptr;
};
