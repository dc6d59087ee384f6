#pragma once

#include <QDate>
#include <QObject>
#include <QString>

class TClientDataSet;
class TClientManager;
class TConexaoSQL;
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

// The data module of the main screen: the note list (and, later, the items of the current note).
class TRepD final : public QObject
{
    Q_OBJECT
public:
    explicit TRepD(TConexaoSQL &conexao, QObject *parent = nullptr);
    ~TRepD() override;

    TClientDataSet &Notas() { return *m_notas; }
    TClientManager &ClientManager1() { return *m_clientManager1; }

    // The list statement for a filter: no order by, conditions joined by " and ".
    static QString SqlNotas(const TFiltroNotas &filtro);
    // Fills the list; false (with the driver's message shown) when the database fails.
    // The rows come sorted by the grid's current sort column, the cursor on the first one.
    bool CarregarNotas(const TFiltroNotas &filtro);

private:
    // Appends the rows of the statement; the error text when the database fails.
    QString PreencherNotas(const TFiltroNotas &filtro, TRastroDebug &rastro);

    TConexaoSQL &m_conexao;
    TClientDataSet *m_notas;
    TClientManager *m_clientManager1;
};
