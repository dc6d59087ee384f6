#include "TRepD.h"

#include "Debug.h"
#include "Dialogos.h"
#include "TClientDataSet.h"
#include "TClientManager.h"
#include "TClientManager1_CreateFields.h"
#include "TClientManager1_PrepGrid.h"
#include "TConexaoSQL.h"
#include "TProgressForm.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QHash>
#include <QScopeGuard>

#include <optional>
#include <vector>

namespace {

enum Origem { OrigemTodas = 0, OrigemManual = 1, OrigemXml = 2 };

constexpr int NivelRastro = 64;
// Rows between two repaints of the progress window.
constexpr int PassoProgresso = 4096;

// A text or BLOB column: empty when null or without a single character.
bool Vazio(const QVariant &v)
{
    if (v.isNull())
        return true;
    if (v.typeId() == QMetaType::QByteArray)
        return v.toByteArray().isEmpty();
    return v.toString().isEmpty();
}

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

bool TRepD::CarregarNotas(const TFiltroNotas &filtro)
{
    TProgressForm::Exibir(QStringLiteral("Trazendo notas..."));
    TClientDataSet &notas = *m_notas;
    TRastroDebug rastro(NivelRastro);
    QString erro;
    {
        // The grid comes back and the progress window goes away whatever happens below.
        const auto restaurar = qScopeGuard([&] {
            m_clientManager1->OrdenarPelaColunm();
            notas.First();
            notas.EnableControls();
            TProgressForm::Fechar();
        });
        notas.DisableControls();
        notas.EmptyDataSet();
        erro = PreencherNotas(filtro, rastro);
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

QString TRepD::PreencherNotas(const TFiltroNotas &filtro, TRastroDebug &rastro)
{
    TClientDataSet &notas = *m_notas;
    if (!m_conexao.Conectar())
        return QStringLiteral("Não foi possível carregar a lista de notas.\n%1").arg(m_conexao.UltimoErro());
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    const std::unique_ptr<TQ> q = m_conexao.Ab(SqlNotas(filtro));
    if (!q)
        return QStringLiteral("Não foi possível carregar a lista de notas.\n%1").arg(m_conexao.UltimoErro());

    auto coluna = [&q](const char *nome) { return q->FieldIndex(QLatin1String(nome)); };
    const int cTipo = coluna("TIPO_COD");
    const int cEmpr = coluna("EMPR_COD");
    const int cCompra = coluna("COMPRA_COD");
    const int cBaixado = coluna("BAIXADO");
    const int cCancelado = coluna("CANCELADO");
    const int cXml = coluna("ARQ_XML");
    const int cDestin = coluna("DESTIN_EMPR_COD");

    // Columns copied as they come (money arrives as decimal text, which the field parses
    // exactly): every list field named after a column of the statement, except the ones derived
    // below from a column of the same name. Looked up once, not per row.
    struct Copia
    {
        int coluna;
        TField *campo;
    };
    std::vector<Copia> copias;
    TField &fTipoCod = notas.FieldByName(QStringLiteral("TIPO_cod"));
    TField &fBaixado = notas.FieldByName(QStringLiteral("BAIXADO"));
    TField &fCancelado = notas.FieldByName(QStringLiteral("CANCELADO"));
    for (int f = 0; f < notas.FieldCount(); ++f) {
        TField &campo = notas.Fields(f);
        if (&campo == &fTipoCod || &campo == &fBaixado || &campo == &fCancelado)
            continue;
        const int c = q->FieldIndex(campo.FieldName());
        if (c >= 0)
            copias.push_back({c, &campo});
    }
    TField &fTipoDocStr = notas.FieldByName(QStringLiteral("TIPO_DOC_STR"));
    TField &fDocStr = notas.FieldByName(QStringLiteral("DOC_STR"));
    TField &fBaixadoStr = notas.FieldByName(QStringLiteral("BAIXADO_STR"));
    TField &fCanceladoStr = notas.FieldByName(QStringLiteral("CANCELADO_STR"));
    TField &fDocOrigStr = notas.FieldByName(QStringLiteral("DOC_ORIG_STR"));
    TField &fDestinEmprRaz = notas.FieldByName(QStringLiteral("DESTIN_EMPR_RAZ"));

    // Company names are read once, and only when some note has a destination.
    std::optional<QHash<int, QString>> empresas;
    const QString naoEncontrado = QStringLiteral("<NÃO ENCONTRADO>");
    const QString textoXml = QStringLiteral("XML");
    const QString textoManual = QStringLiteral("MANUAL");
    const QChar zero = QLatin1Char('0');

    TProgressForm::Exibir(QStringLiteral("Trazendo notas..."), q->RecordCount());
    int linha = 0;
    for (q->First(); !q->Eof(); q->Next(), ++linha) {
        if (linha % PassoProgresso == 0 && linha > 0)
            TProgressForm::Avancar(linha);

        const QString tipoLido = q->Fields(cTipo).AsString();
        const int tipoCod = TipoDoc::CodigoDoChar(tipoLido);
        const QString tipoDocStr = TipoDoc::RepTipoDocToStr(tipoCod);
        if (linha < 3 && rastro.Ativo()) {
            rastro.Add(QStringLiteral("q.FieldByName('TIPO_cod').AsString=[%1]").arg(tipoLido));
            rastro.Add(QStringLiteral("ord(s[1])=[%1]").arg(tipoCod));
            rastro.Add(QStringLiteral("TIPO_DOC_STR=") + tipoDocStr);
        }

        const bool xml = !Vazio(q->valueAt(cXml));
        if ((filtro.origemIndice == OrigemManual && xml) || (filtro.origemIndice == OrigemXml && !xml))
            continue;

        notas.Append();
        for (const Copia &c : copias)
            c.campo->SetValue(q->valueAt(c.coluna));
        fTipoCod.SetAsInteger(tipoCod);
        fTipoDocStr.SetAsString(tipoDocStr);
        fDocStr.SetAsString(QStringLiteral("%1-%2")
                                .arg(q->Fields(cEmpr).AsInteger(), 3, 10, zero)
                                .arg(q->Fields(cCompra).AsInteger(), 7, 10, zero));
        const bool baixado = q->Fields(cBaixado).AsBoolean();
        fBaixado.SetAsBoolean(baixado);
        fBaixadoStr.SetAsString(RepBaixadoStr(baixado));
        const bool cancelado = q->Fields(cCancelado).AsBoolean();
        fCancelado.SetAsBoolean(cancelado);
        fCanceladoStr.SetAsString(RepCanceladoStr(cancelado));
        fDocOrigStr.SetAsString(xml ? textoXml : textoManual);

        if (const int destin = q->Fields(cDestin).AsInteger(); destin != 0) {
            if (!empresas) {
                const std::unique_ptr<TQ> e = m_conexao.Ab(QStringLiteral("select empr_cod, raz from empr"));
                if (!e) {
                    notas.Cancel();
                    return QStringLiteral("Não foi possível ler os nomes das empresas de destino das notas.\n%1")
                        .arg(m_conexao.UltimoErro());
                }
                empresas.emplace();
                for (e->First(); !e->Eof(); e->Next())
                    empresas->insert(e->Fields(0).AsInteger(), e->Fields(1).AsString());
            }
            const auto it = empresas->constFind(destin);
            fDestinEmprRaz.SetAsString(it != empresas->cend() ? *it : naoEncontrado);
        }
        notas.Post();
    }
    return {};
}
