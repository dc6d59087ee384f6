#include "UProduto.h"

#include "Contexto.h"
#include "ErroBanco.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "Valores.h"

#include <QScopeGuard>
#include <QSet>

namespace {

QString Int(qint64 v) { return QString::number(v); }

// Firebird refuses IN lists of more than 1,500 values.
constexpr int CodigosPorComando = 1000;

// The statements as one, so that a history row never stands without the current value it sets.
QString Bloco(const QStringList &comandos)
{
    return QLatin1String("execute block as\nbegin\n  ") + comandos.join(QLatin1String(";\n  "))
           + QLatin1String(";\nend");
}

// The current costs, general (fornec_cod 0, stored as 0 or empty) and, for a supplier, its own:
// one statement for both rows.
QString SqlCustosAtuais(int emprCod, int prodCod, int fornecCod, const QString &custo, const QString &dt,
                        const QString &agora)
{
    QString fontes = QStringLiteral("select 0 as fornec_cod from rdb$database");
    if (fornecCod > 0)
        fontes += QLatin1String(" union all select ") + Int(fornecCod) + QLatin1String(" from rdb$database");
    return QLatin1String("merge into prod_custo_atual a using (") + fontes + QLatin1String(") f on a.empr_cod=")
           + Int(emprCod) + QLatin1String(" and a.prod_cod=") + Int(prodCod)
           + QLatin1String(" and coalesce(a.fornec_cod, 0)=f.fornec_cod when matched then update set custo=")
           + custo + QLatin1String(", dt=") + dt + QLatin1String(", dth_atu=") + agora
           + QLatin1String(" when not matched then insert (empr_cod, prod_cod, fornec_cod, custo, dt, dth_atu)"
                           " values (")
           + Int(emprCod) + QLatin1String(", ") + Int(prodCod) + QLatin1String(", f.fornec_cod, ") + custo
           + QLatin1String(", ") + dt + QLatin1String(", ") + agora + QLatin1Char(')');
}

} // namespace

void ProdInserirCusto(int emprCod, int prodCod, Money custo, int fornecCod, int compraCod, int estMovCod)
{
    TConexaoSQL &conexao = TConexD::Conexao();
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco para gravar o custo do produto %1").arg(prodCod));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    const QString valor = FloatToStrPonto(custo);
    const QString dt = DataSQLFirebird(Contexto::Atual().Hoje());
    const QString agora = DataHoraSQLFirebird(Contexto::Atual().Agora());
    const QString historico =
        QLatin1String("insert into prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, "
                      "compra_cod, est_mov_cod, dth_cri) values (gen_id(prod_custo_g, 1), ")
        + Int(emprCod) + QLatin1String(", ") + Int(prodCod) + QLatin1String(", ") + Int(fornecCod)
        + QLatin1String(", ") + valor + QLatin1String(", ") + dt + QLatin1String(", ") + Int(compraCod)
        + QLatin1String(", ") + Int(estMovCod) + QLatin1String(", ") + agora + QLatin1Char(')');
    ExecOuErro(conexao, Bloco({historico, SqlCustosAtuais(emprCod, prodCod, fornecCod, valor, dt, agora)}),
               QStringLiteral("gravar o custo do produto %1").arg(prodCod));
}

void ProdInserirPreco(int emprCod, int tabPrecoCod, int prodCod, Money preco, Money precoPromo, const QDate &dt,
                      QChar enviado)
{
    TConexaoSQL &conexao = TConexD::Conexao();
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco para gravar o preço do produto %1").arg(prodCod));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    const QString valor = FloatToStrPonto(preco);
    const QString data = DataSQLFirebird(dt);
    const QString agora = DataHoraSQLFirebird(Contexto::Atual().Agora());
    const QString historico =
        QLatin1String("insert into prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, "
                      "preco_promo, dt, enviado, dth_cri) values (gen_id(prod_preco_g, 1), ")
        + Int(emprCod) + QLatin1String(", ") + Int(tabPrecoCod) + QLatin1String(", ") + Int(prodCod)
        + QLatin1String(", ") + valor + QLatin1String(", ") + FloatToStrPonto(precoPromo)
        + QLatin1String(", ") + data + QLatin1String(", ") + QuotedStr(QString(enviado))
        + QLatin1String(", ") + agora + QLatin1Char(')');
    const QString atual =
        QLatin1String("update or insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt, "
                      "dth_atu) values (")
        + Int(emprCod) + QLatin1String(", ") + Int(tabPrecoCod) + QLatin1String(", ") + Int(prodCod)
        + QLatin1String(", ") + valor + QLatin1String(", ") + data + QLatin1String(", ") + agora
        + QLatin1String(") matching (empr_cod, tab_preco_cod, prod_cod)");
    ExecOuErro(conexao, Bloco({historico, atual}),
               QStringLiteral("gravar o preço do produto %1 na tabela %2").arg(prodCod).arg(tabPrecoCod));
}

void CustoEnviarSL(const QStringList &prodCods, const QString &database, const QString &sessao)
{
    QStringList codigos;
    QSet<QString> vistos;
    for (const QString &texto : prodCods) {
        const QString codigo = StrToIntStr(texto);
        if (!vistos.contains(codigo)) {
            vistos.insert(codigo);
            codigos << codigo;
        }
    }
    if (codigos.isEmpty())
        return;

    TDadosBanco banco = Contexto::Atual().banco;
    banco.database = database;
    TConexaoSQL conexao(banco);
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco %1 para enviar os custos").arg(database));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    const QString agora = DataHoraSQLFirebird(Contexto::Atual().Agora());
    for (qsizetype i = 0; i < codigos.size(); i += CodigosPorComando) {
        ExecOuErro(conexao,
                   QLatin1String("insert into prod_custo_env (prod_custo_env_cod, empr_cod, prod_cod, custo, sessao, "
                                 "dth_cri) select gen_id(prod_custo_env_g, 1), empr_cod, prod_cod, custo, ")
                       + QuotedStr(sessao) + QLatin1String(", ") + agora
                       + QLatin1String(" from prod_custo_atual where coalesce(fornec_cod, 0)=0 and prod_cod in (")
                       + codigos.mid(i, CodigosPorComando).join(QLatin1String(", ")) + QLatin1Char(')'),
                   QStringLiteral("enviar os custos alterados"));
    }
}

QString SessaoHost()
{
    const Contexto &c = Contexto::Atual();
    return QStringLiteral("%1 estação %2").arg(c.usuario).arg(c.estacao);
}
