#pragma once

#include "TChaveNota.h"
#include "TTabPrecoList.h"

#include <QDate>
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class TClientDataSet;
class TClientManager;
class TConexaoSQL;
class TProgresso;
class TRastroDebug;

// What the filter controls of the main screen select.
struct TFiltroNotas
{
    bool considerarDatas = true;
    QDate de;
    QDate ate;
    int fornecCod = 0;              // 0: every party
    int canceladosIndice = 1;       // 0 TODAS, 1 NAO CANCELADAS, 2 CANCELADAS
    int ndoc = 0;                   // 0: any number
    int origemIndice = 1;           // 0 TODAS, 1 MANUAL, 2 XML

    // The screen's initial filter: from the first day of last month to today.
    static TFiltroNotas Inicial(const QDate &hoje);
};

// The data module of the main screen: the note list and the items of the note being edited.
class TRepD final : public QObject
{
    Q_OBJECT
public:
    explicit TRepD(TConexaoSQL &conexao, QObject *parent = nullptr);
    ~TRepD() override;

    TClientDataSet &Notas() { return *m_notas; }
    TClientManager &ClientManager1() { return *m_clientManager1; }
    // The items of the open note, staged in compra_item_tmp; see TClientManager2_CreateFields.
    TClientDataSet &Itens() { return *m_itens; }
    TClientManager &ClientManager2() { return *m_clientManager2; }

    // The price tables whose sale prices each item carries (the columns "preco<code>"), before
    // items are loaded: the item list is emptied. Tables already known keep their column.
    void SetTabPrecos(const TTabPrecoList &tabelas);
    const TTabPrecoList &TabPrecos() const { return m_tabPrecos; }

    // When on, loading the items ends with a message of the seconds spent.
    void SetMedirTempos(bool ligado) { m_medirTempos = ligado; }
    bool MedirTempos() const { return m_medirTempos; }

    // The list statement for a filter: no order by, conditions joined by " and ".
    static QString SqlNotas(const TFiltroNotas &filtro);
    // The digits of the NF-e key in the file's content (its Id attribute); empty when none.
    static QString NomeXMLToNFEChave(const QString &FileName);
    // Fills the list; false (with the driver's message shown) when the database fails.
    // The rows come sorted by the grid's current sort column, the cursor on the first one.
    bool CarregarNotas(const TFiltroNotas &filtro);
    // The list statement for one note; a station below 0 takes the note of any station.
    static QString SqlNota(int emprCod, int estacaoCod, int compraCod);
    // Fills the list with that one note (one per station when the station is not given).
    bool CarregarNota(int emprCod, int estacaoCod, int compraCod);
    // The note of the current row; nothing when the list is empty.
    std::optional<TNotaLinha> NotaAtual() const;
    // Reads the note of the current row again after an action changed it. False, with the
    // driver's message, when the database fails; false too when the current row is another note.
    bool RecarregarLinha(const TChaveNota &chave);
    // The current row right after cancelling: flagged, and its caption the literal "S".
    void MarcarLinhaCancelada();

    // The NF-e of the current row (TRepD_NFe.cpp): refuses a cancelled note and one that already
    // has a protocol, asks before sending with an exit date more than a day away, sends through
    // the host's NF-e library and shows on the row what was authorised. True when authorised.
    bool EnviarNFE();
    // Moves the current note's exit date to d, in the database and then on the row.
    bool AjustarDtHSai(const QDateTime &d);

    // Fills the item list from the staged rows of a note (station 10) and their prices, sorted
    // by the grid's current sort column. On a database failure the list is left empty, so that
    // a partial list can never be saved over the note's items, and false comes back after the
    // driver's message. `progresso` may be null.
    bool CarregarItens(const TChaveNota &nota, TProgresso *progresso = nullptr);
    // Replaces the note's staged rows (station 10) with the item list, in list order, each with
    // one price row per price table. A value the table cannot hold (an amount beyond
    // NUMERIC(18,4), a text longer than its column) is found before anything is deleted: one
    // message, nothing changed, false. No transaction: on a database failure the rows written so
    // far stay, the failure is shown once with the driver's message, and false comes back.
    bool GravarItens(const TChaveNota &nota);

private:
    bool Carregar(const QString &sql, int origemIndice);
    // Appends the rows of the statement; the error text when the database fails.
    QString PreencherNotas(const QString &sql, int origemIndice, TRastroDebug &rastro);
    // Appends the items of a note; the error text when the database fails.
    QString PreencherItens(int emprCod, int compraCod, TProgresso *progresso, double *segAbrir);
    // The statements that write one item of the list, in the order they run.
    struct TItemGravar
    {
        QString ordem, item;   // how messages name the item
        QString inserir, infoAdic, apagarPrecos;
        QStringList precos;
    };
    // Writes the item list; the error text when a value does not fit or the database fails.
    QString EscreverItens(int emprCod, int compraCod);
    // Builds the statements of every item; the error text of the first value that does not fit.
    QString MontarItens(int emprCod, int compraCod, std::vector<TItemGravar> &gravar);

    TConexaoSQL &m_conexao;
    TClientDataSet *m_notas;
    TClientManager *m_clientManager1;
    TClientDataSet *m_itens;
    TClientManager *m_clientManager2;
    TTabPrecoList m_tabPrecos;
    bool m_medirTempos = false;
};
