#include "TRepD.h"

#include "ChaveNFe.h"
#include "Debug.h"
#include "Dialogos.h"
#include "TClientDataSet.h"
#include "TClientManager.h"
#include "TClientManager1_CreateFields.h"
#include "TClientManager1_PrepGrid.h"
#include "TClientManager2_CreateFields.h"
#include "TChaveNota.h"
#include "TCompraItemTmpDBI.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TGetQtdItens.h"
#include "TGetSqlItens.h"
#include "TLeitorNotas.h"
#include "TPreencheTribSL.h"
#include "TProgresso.h"
#include "TQueryToClient.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>
#include <QScopeGuard>

#include <optional>
#include <vector>

namespace {

enum Origem { OrigemTodas = 0, OrigemManual = 1, OrigemXml = 2 };

constexpr int NivelRastro = 64;
// Rows between two repaints of the progress window.
constexpr int PassoProgresso = 4096;
// Items between two chances for the screen to repaint while they load.
constexpr int PassoRepintura = 32;

} // namespace

TFiltroNotas TFiltroNotas::Inicial(const QDate &hoje)
{
    TFiltroNotas filtro;
    filtro.de = PrimeiroDateMes(hoje.addMonths(-1));
    filtro.ate = hoje;
    return filtro;
}

TRepD::TRepD(TConexaoSQL &conexao, QObject *parent)
    : QObject(parent), m_conexao(conexao), m_notas(new TClientDataSet(this))
{
    m_notas->setObjectName(QStringLiteral("Notas"));
    TClientManager1_CreateFields::Executar(*m_notas);
    m_notas->Open();
    m_clientManager1 = new TClientManager(m_notas, this);
    m_clientManager1->setObjectName(QStringLiteral("ClientManager1"));
    TClientManager1_PrepGrid::Executar(*m_clientManager1);

    m_itens = new TClientDataSet(this);
    m_itens->setObjectName(QStringLiteral("Itens"));
    TClientManager2_CreateFields::Executar(*m_itens);
    m_itens->Open();
    m_clientManager2 = new TClientManager(m_itens, this);
    m_clientManager2->setObjectName(QStringLiteral("ClientManager2"));
}

void TRepD::SetTabPrecos(const TTabPrecoList &tabelas)
{
    m_tabPrecos = tabelas;
    // Fields are declared while the dataset is closed; the grid model follows the new columns.
    m_itens->Close();
    TClientManager2_CreateFields::AdicionarPrecos(*m_itens, m_tabPrecos);
    m_itens->Open();
}

TRepD::~TRepD() = default;

QString TRepD::SqlNotas(const TFiltroNotas &filtro)
{
    QString condicao;
    auto juntar = [&condicao](const QString &c) {
        if (!condicao.isEmpty())
            condicao += QLatin1String(" and ");
        condicao += c;
    };
    if (filtro.considerarDatas)
        juntar(QLatin1String(" compra.dt_doc>=") + DataSQLFirebird(filtro.de)
               + QLatin1String(" and compra.dt_doc<=") + DataSQLFirebird(filtro.ate));
    if (filtro.fornecCod > 0)
        juntar(QLatin1String(" compra.fornec_cod=") + QString::number(filtro.fornecCod));
    if (filtro.canceladosIndice == 1)
        juntar(QStringLiteral(" cancelado='N'"));
    else if (filtro.canceladosIndice == 2)
        juntar(QStringLiteral(" cancelado='S'"));
    if (filtro.ndoc > 0)
        juntar(QLatin1String(" compra.ndoc=") + QString::number(filtro.ndoc));

    QString sql = QStringLiteral("select compra.*,fornec.nome_red as fornec_nome_red from compra "
                                 "left join fornec on fornec.fornec_cod=compra.fornec_cod");
    if (!condicao.isEmpty())
        sql += QLatin1String(" where ") + condicao;
    return sql;
}

namespace {

const QString FalhaLista = QStringLiteral("Não foi possível carregar a lista de notas.\n%1");

} // namespace

QString TRepD::SqlNota(int emprCod, int estacaoCod, int compraCod)
{
    TFiltroNotas todas;
    todas.considerarDatas = false;
    todas.canceladosIndice = 0;
    QString sql = SqlNotas(todas) + QLatin1String(" where compra.empr_cod=") + QString::number(emprCod)
                  + QLatin1String(" and compra.compra_cod=") + QString::number(compraCod);
    if (estacaoCod >= 0)
        sql += QLatin1String(" and compra.estacao_cod=") + QString::number(estacaoCod);
    return sql;
}

std::optional<TNotaLinha> TRepD::NotaAtual() const
{
    if (m_notas->IsEmpty())
        return std::nullopt;
    return TNotaLinha::DaLinhaAtual(*m_notas);
}

bool TRepD::CarregarNotas(const TFiltroNotas &filtro)
{
    return Carregar(SqlNotas(filtro), filtro.origemIndice);
}

bool TRepD::CarregarNota(int emprCod, int estacaoCod, int compraCod)
{
    return Carregar(SqlNota(emprCod, estacaoCod, compraCod), OrigemTodas);
}

bool TRepD::Carregar(const QString &sql, int origemIndice)
{
    TProgresso::Janela().Exibir(QStringLiteral("Trazendo notas..."), 0);
    TClientDataSet &notas = *m_notas;
    TRastroDebug rastro(NivelRastro);
    QString erro;
    {
        // The grid comes back and the progress window goes away whatever happens below.
        const auto restaurar = qScopeGuard([&] {
            m_clientManager1->OrdenarPelaColunm();
            notas.First();
            notas.EnableControls();
            TProgresso::Janela().Fechar();
        });
        notas.DisableControls();
        notas.EmptyDataSet();
        erro = PreencherNotas(sql, origemIndice, rastro);
        if (!erro.isEmpty())
            notas.EmptyDataSet();
    }
    if (!erro.isEmpty()) {
        MensagemErro(erro);
        return false;
    }
    rastro.Exibir(QString());
    return true;
}

QString TRepD::PreencherNotas(const QString &sql, int origemIndice, TRastroDebug &rastro)
{
    TClientDataSet &notas = *m_notas;
    if (!m_conexao.Conectar())
        return FalhaLista.arg(m_conexao.UltimoErro());
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });
    const std::unique_ptr<TQ> q = m_conexao.Ab(sql);
    if (!q)
        return FalhaLista.arg(m_conexao.UltimoErro());

    TLeitorNotas leitor(*q, notas, m_conexao);
    TProgresso::Janela().Exibir(QStringLiteral("Trazendo notas..."), q->RecordCount());
    int linha = 0;
    for (q->First(); !q->Eof(); q->Next(), ++linha) {
        if (linha % PassoProgresso == 0 && linha > 0)
            TProgresso::Janela().PegarAtual(linha);
        if (linha < 3 && rastro.Ativo()) {
            const int tipoCod = TipoDoc::CodigoDoChar(leitor.TipoLido());
            rastro.Add(QStringLiteral("q.FieldByName('TIPO_cod').AsString=[%1]").arg(leitor.TipoLido()));
            rastro.Add(QStringLiteral("ord(s[1])=[%1]").arg(tipoCod));
            rastro.Add(QStringLiteral("TIPO_DOC_STR=") + TipoDoc::RepTipoDocToStr(tipoCod));
        }
        const bool xml = leitor.Xml();
        if ((origemIndice == OrigemManual && xml) || (origemIndice == OrigemXml && !xml))
            continue;
        notas.Append();
        if (QString erro = leitor.Preencher(); !erro.isEmpty()) {
            notas.Cancel();
            return erro;
        }
        notas.Post();
    }
    return {};
}

bool TRepD::RecarregarLinha(const TChaveNota &chave)
{
    TClientDataSet &notas = *m_notas;
    const auto linhaDaNota = [&] {
        return !notas.IsEmpty() && TNotaLinha::DaLinhaAtual(notas).chave == chave;
    };
    if (!linhaDaNota())
        return false;
    QString erro;
    if (!m_conexao.Conectar()) {
        erro = FalhaLista.arg(m_conexao.UltimoErro());
    } else {
        const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });
        const std::unique_ptr<TQ> q = m_conexao.Ab(SqlNota(chave.emprCod, chave.estacaoCod, chave.compraCod));
        if (!q) {
            erro = FalhaLista.arg(m_conexao.UltimoErro());
        } else if (!q->IsEmpty()) {
            TLeitorNotas leitor(*q, notas, m_conexao);
            q->First();
            notas.Edit();
            erro = leitor.Preencher();
            if (erro.isEmpty())
                notas.Post();
            else
                notas.Cancel();
        }
    }
    if (!erro.isEmpty()) {
        MensagemErro(erro);
        return false;
    }
    return true;
}

void TRepD::MarcarLinhaCancelada()
{
    TClientDataSet &notas = *m_notas;
    if (notas.IsEmpty())
        return;
    notas.Edit();
    notas.FieldByName(QStringLiteral("CANCELADO")).SetAsBoolean(true);
    // The list load captions a cancelled note otherwise; right after cancelling it reads "S".
    notas.FieldByName(QStringLiteral("CANCELADO_STR")).SetAsString(QStringLiteral("S"));
    notas.Post();
}

// --- Items ----------------------------------------------------------------------------------------

bool TRepD::CarregarItens(const TChaveNota &nota, TProgresso *progresso)
{
    TClientDataSet &itens = *m_itens;
    QElapsedTimer relogio;
    relogio.start();
    double segAbrir = 0, segCarregar = 0, segTotalizar = 0;
    QString erro;
    itens.DisableControls();
    {
        const auto restaurar = qScopeGuard([&] {
            const qint64 antes = relogio.nsecsElapsed();
            m_clientManager2->OrdenarPelaColunm();
            itens.First();
            itens.EnableControls();
            if (progresso)
                progresso->Fechar();
            segTotalizar = double(relogio.nsecsElapsed() - antes) / 1e9;
        });
        if (itens.State() != TDataSetState::Browse)
            itens.Cancel();
        itens.EmptyDataSet();
        erro = PreencherItens(nota.emprCod, nota.compraCod, progresso, &segAbrir);
        if (!erro.isEmpty()) {
            if (itens.State() != TDataSetState::Browse)
                itens.Cancel();
            itens.EmptyDataSet();
        }
        segCarregar = double(relogio.nsecsElapsed()) / 1e9 - segAbrir;
    }
    if (!erro.isEmpty()) {
        MensagemErro(erro);
        return false;
    }
    if (m_medirTempos) {
        const QString seg = QStringLiteral("###0.0");
        ExibirMens(QStringLiteral("abr ") + FormatFloat(seg, segAbrir) + QStringLiteral(" segundos ")
                   + QStringLiteral("\r\n") + QStringLiteral("carreg ") + FormatFloat(seg, segCarregar)
                   + QStringLiteral(" segundos ") + QStringLiteral("\r\n") + QStringLiteral("totaliz ")
                   + FormatFloat(seg, segTotalizar) + QStringLiteral(" segundos "));
    }
    return true;
}

QString TRepD::PreencherItens(int emprCod, int compraCod, TProgresso *progresso, double *segAbrir)
{
    QElapsedTimer relogio;
    relogio.start();
    const QString falha = QStringLiteral("Não foi possível carregar os itens da nota.\n");
    if (!m_conexao.Conectar())
        return falha + m_conexao.UltimoErro();
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    const int qtd = TGetQtdItens::GetQtdItens(m_conexao, emprCod, compraCod);
    if (qtd < 0)
        return falha + m_conexao.UltimoErro();
    if (progresso)
        progresso->Exibir(QStringLiteral("Aguardando o banco de dados..."), 0);
    const std::unique_ptr<TQ> q = m_conexao.Ab(TGetSqlItens::GetSqlItens(emprCod, compraCod));
    if (!q)
        return falha + m_conexao.UltimoErro();
    *segAbrir = double(relogio.nsecsElapsed()) / 1e9;
    if (progresso)
        progresso->Exibir(QStringLiteral("Carregando itens"), qtd);
    if (q->IsEmpty())
        return {};

    // The tax situations are read once per load, and only for a note that has items.
    const QStringList tribSL = TPreencheTribSL::Preencher(m_conexao);
    TClientDataSet &itens = *m_itens;
    TQueryToClient copia(*q, itens, tribSL);
    const TField &fItem = itens.FieldByName(QStringLiteral("COMPRA_ITEM_TMP_COD"));
    const TField &fEstacao = itens.FieldByName(QStringLiteral("estacao_cod"));
    QHash<int, TField *> precos;   // by price table
    for (const TTabPreco &tabela : m_tabPrecos.Tabelas())
        if (TField *campo = itens.FindField(TClientManager2_CreateFields::CampoPreco(tabela.codigo)))
            precos.insert(tabela.codigo, campo);

    const QString empr = QString::number(emprCod);
    int linha = 0;
    for (q->First(); !q->Eof(); q->Next()) {
        copia.QueryToClient();
        const QString sqlPrecos =
            QLatin1String("select TAB_PRECO_COD, PRECO from COMPRA_ITEM_TMP_PRECOS where "
                          "COMPRA_ITEM_TMP_PRECOS.empr_cod=")
            + empr + QLatin1String("\r\n") + QLatin1String(" and compra_item_tmp_precos.estacao_cod=")
            + QString::number(fEstacao.AsInteger()) + QLatin1String("\r\n")
            + QLatin1String(" and compra_item_tmp_cod=") + QString::number(fItem.AsInteger());
        const std::unique_ptr<TQ> p = m_conexao.Ab(sqlPrecos);
        if (!p)
            return QStringLiteral("Não foi possível carregar os preços do item %1 da nota.\n%2")
                .arg(fItem.AsInteger()).arg(m_conexao.UltimoErro());
        for (p->First(); !p->Eof(); p->Next()) {
            // A price of a table the list has no column for has nowhere to go.
            if (TField *campo = precos.value(p->Fields(0).AsInteger()))
                campo->SetValue(p->Fields(1).Value());
        }
        itens.Post();
        ++linha;
        if (progresso) {
            progresso->PegarAtual(linha);
            if (linha % PassoRepintura == 0)
                QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }
    return {};
}

bool TRepD::GravarItens(const TChaveNota &nota)
{
    TClientDataSet &itens = *m_itens;
    if (itens.State() != TDataSetState::Browse)
        itens.Post();
    QString erro;
    itens.DisableControls();
    {
        const TBookmark marca = itens.GetBookmark();
        const auto restaurar = qScopeGuard([&] {
            if (!marca.IsNull())
                itens.GotoBookmark(marca);
            itens.EnableControls();
        });
        erro = EscreverItens(nota.emprCod, nota.compraCod);
    }
    if (!erro.isEmpty()) {
        MensagemErro(erro);
        return false;
    }
    return true;
}

QString TRepD::EscreverItens(int emprCod, int compraCod)
{
    // Every statement is built before the staged rows are deleted: a value the table cannot
    // hold must leave the note's items as they were, not cut the save half-way.
    std::vector<TItemGravar> gravar;
    const QString naoCabe = MontarItens(emprCod, compraCod, gravar);
    if (!naoCabe.isEmpty())
        return naoCabe;
    if (!m_conexao.Conectar())
        return QStringLiteral("Não foi possível gravar os itens da nota.\n") + m_conexao.UltimoErro();
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    if (!TConexD::Executar(QLatin1String("delete from COMPRA_ITEM_TMP where EMPR_COD=") + QString::number(emprCod)
                           + QLatin1String(" and estacao_cod=10") + QLatin1String(" and compra_cod=")
                           + QString::number(compraCod)))
        return QStringLiteral("Não foi possível apagar os itens gravados da nota.\n")
               + TConexD::Conexao().UltimoErro();

    for (const TItemGravar &g : gravar) {
        auto falha = [&](const QString &oQue) {
            return QStringLiteral("Não foi possível gravar %1 do item %2 (código %3) da nota.\n%4")
                .arg(oQue, g.ordem, g.item, m_conexao.UltimoErro());
        };
        if (!m_conexao.Exec(g.inserir))
            return falha(QStringLiteral("a linha"));
        if (!m_conexao.Exec(g.infoAdic))
            return falha(QStringLiteral("as informações adicionais"));
        if (!m_conexao.Exec(g.apagarPrecos))
            return falha(QStringLiteral("os preços"));
        for (const QString &preco : g.precos)
            if (!m_conexao.Exec(preco))
                return falha(QStringLiteral("os preços"));
    }
    return {};
}

QString TRepD::MontarItens(int emprCod, int compraCod, std::vector<TItemGravar> &gravar)
{
    TClientDataSet &itens = *m_itens;
    const QString empr = QString::number(emprCod);
    struct Preco
    {
        QString codigo;
        const TField *campo;   // null: the list has no column for the table
    };
    QList<Preco> precos;
    for (const TTabPreco &tabela : m_tabPrecos.Tabelas())
        precos << Preco{QString::number(tabela.codigo),
                        itens.FindField(TClientManager2_CreateFields::CampoPreco(tabela.codigo))};
    const TField &fOrdem = itens.FieldByName(QStringLiteral("ordem"));

    TCompraItemTmpDBI linha;
    gravar.reserve(size_t(itens.RecordCount()));
    for (itens.First(); !itens.Eof(); itens.Next()) {
        linha.LerDoDataSet(itens);
        linha.SetNota(emprCod, compraCod);
        TItemGravar g{fOrdem.AsString(), QString::number(linha.CompraItemTmpCod()), {}, {}, {}, {}};
        QString coluna = linha.Campos().ColunaQueNaoCabe();
        g.inserir = linha.SqlInserir();
        g.infoAdic = QLatin1String("update compra_item_tmp set  info_adic=") + QuotedStr(linha.InfoAdic())
                     + QLatin1String(" where compra_item_tmp_cod=") + g.item;
        g.apagarPrecos = QLatin1String("delete from COMPRA_ITEM_TMP_PRECOS where EMPR_COD=") + empr
                         + QLatin1String(" and estacao_cod=10") + QLatin1String(" and compra_item_tmp_cod=") + g.item;
        for (const Preco &p : precos) {
            const Money preco = p.campo ? p.campo->AsMoney() : Money();
            if (!preco.CabeNaColuna() && coluna.isEmpty())
                coluna = p.campo->FieldName();
            g.precos << QLatin1String("INSERT INTO COMPRA_ITEM_TMP_PRECOS (EMPR_COD, estacao_cod, "
                                      "compra_item_tmp_cod, TAB_PRECO_COD, PRECO) VALUES (")
                            + empr + QLatin1String(", 10, ") + g.item + QLatin1String(", ") + p.codigo
                            + QLatin1String(", ") + FloatToStrPonto(preco) + QLatin1String(");");
        }
        if (!coluna.isEmpty())
            return QStringLiteral("Os itens da nota não foram gravados: o valor de %1 do item %2 (código %3) "
                                  "não cabe no banco de dados.")
                .arg(coluna, g.ordem, g.item);
        gravar.push_back(std::move(g));
    }
    return {};
}

QString TRepD::NomeXMLToNFEChave(const QString &FileName)
{
    return ::NomeXMLToNFEChave(FileName);
}
