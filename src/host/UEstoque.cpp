#include "UEstoque.h"

#include "Contexto.h"
#include "ErroBanco.h"
#include "TConexaoSQL.h"
#include "Valores.h"

#include <QPair>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace {

QString Int(qint64 v) { return QString::number(v); }

// The same database as the context's, reached under the given name.
TDadosBanco BancoDe(const QString &database)
{
    TDadosBanco banco = Contexto::Atual().banco;
    banco.database = database;
    return banco;
}

// The columns a destination entry copies from the movement it comes from: everything but the
// key, the direction, the quantity, the flags and the dates of the copy itself.
const QString &ColunasCopiadas()
{
    static const QString colunas = [] {
        QStringList c = {
            "prod_cod", "prod_tipo_cod", "nitem", "custo_tot", "custo", "preco_unit", "desconto", "tipo_jan",
            "qtd_pecas", "altura", "largura", "comprimento", "qtd_visivel", "altura_visivel", "largura_visivel",
            "comprimento_visivel", "trat_icms", "origem_merc", "icms_bc_mod", "icms_st_bc_mod", "icms_st_perc_ad",
            "icms_st_perc_red", "trib_st_perc", "icms_bc_perc_red", "icms_bc_perc_op_prop", "icms_bc_val",
            "icms_val", "icms_st_bc_val", "icms_st_val", "icms_st_val_ret", "icms_st_bc_val_dest",
            "icms_st_val_dest", "icms_sn_cred_val", "trib_cod", "trib_perc", "icms_mot_deso", "icms_partilha",
            "icms_csosn", "icms_sn_cred_perc", "icms_st_uf", "participa", "preco_unit_orig", "benef_tem",
            "benef_perc", "preco_unit_dif_benef", "preco_atual", "preco_promo", "cfop", "info_adic"};
        for (const auto &col : TEstMovTrib::ColunasInt())
            c << QLatin1String(col.coluna);
        for (const auto &col : TEstMovTrib::ColunasMoney())
            c << QLatin1String(col.coluna);
        return c.join(QLatin1String(", "));
    }();
    return colunas;
}

// The host's own tax columns of a movement and the NF-e column each is taken from; the ICMS
// value and the product's tax situation are given apart.
struct TColunaHost
{
    const char *host;
    const char *nfe;
};
constexpr TColunaHost ColunasHost[] = {
    {"trat_icms", "trib_icms_cst"},           {"origem_merc", "trib_orig"},
    {"icms_bc_mod", "trib_icms_modbc"},       {"icms_st_bc_mod", "trib_icms_modbcst"},
    {"trib_perc", "trib_icms_picms"},         {"icms_bc_perc_red", "trib_icms_predbc"},
    {"icms_bc_val", "trib_icms_vbc"},         {"icms_st_perc_ad", "trib_icms_pmvast"},
    {"icms_st_perc_red", "trib_icms_predbcst"}, {"trib_st_perc", "trib_icms_picmsst"},
    {"icms_st_bc_val", "trib_icms_vbcst"},    {"icms_st_val", "trib_icms_vicmsst"},
    {"icms_st_val_ret", "trib_icms_vicmsstret"},
};

QString TribCodDoProduto(const QString &prodCod)
{
    return QLatin1String("(select trib_cod from prod where prod.prod_cod=") + prodCod + QLatin1Char(')');
}

// Removes the destination entries of a note that an earlier sending made.
void RemoverEnvios(TConexaoSQL &conexao, int emprCod, int compraCod)
{
    const QString nota =
        QLatin1String(" where empr_cod=") + Int(emprCod) + QLatin1String(" and compra_cod=") + Int(compraCod);
    const auto envios = AbOuErro(
        conexao,
        QLatin1String("select est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod from compra_est_mov_env") + nota,
        QStringLiteral("ler as entradas já enviadas da nota"));
    for (envios->First(); !envios->Eof(); envios->Next()) {
        ExecOuErro(conexao,
                   QLatin1String("delete from est_mov where empr_cod=") + Int(envios->Fields(0).AsInteger())
                       + QLatin1String(" and estacao_cod=") + Int(envios->Fields(1).AsInteger())
                       + QLatin1String(" and est_mov_cod=") + Int(envios->Fields(2).AsInteger()),
                   QStringLiteral("excluir a entrada enviada %1").arg(envios->Fields(2).AsInteger()));
    }
    if (!envios->IsEmpty())
        ExecOuErro(conexao, QLatin1String("delete from compra_est_mov_env") + nota,
                   QStringLiteral("excluir as ligações das entradas enviadas"));
}

} // namespace

QChar Estoque::DirecaoDoTipoDoc(int tipoCod)
{
    switch (tipoCod) {
    case 35:
    case 36:
        return Saida;
    case 39:
        return SemMercadoria;
    default:
        return Entrada;
    }
}

const QList<TEstMovTrib::ColunaInt> &TEstMovTrib::ColunasInt()
{
    static const QList<ColunaInt> colunas = {
        {"trib_icms_cst", &TEstMovTrib::icmsCst},
        {"trib_orig", &TEstMovTrib::orig},
        {"trib_icms_modbc", &TEstMovTrib::modBC},
        {"trib_icms_modbcst", &TEstMovTrib::modBCST},
        {"cst_pis", &TEstMovTrib::cstPis},
        {"cst_cofins", &TEstMovTrib::cstCofins},
    };
    return colunas;
}

const QList<TEstMovTrib::ColunaMoney> &TEstMovTrib::ColunasMoney()
{
    static const QList<ColunaMoney> colunas = {
        {"trib_icms_picms", &TEstMovTrib::pICMS},
        {"trib_icms_vicms", &TEstMovTrib::vICMS},
        {"trib_icms_vbc", &TEstMovTrib::vBC},
        {"trib_icms_pmvast", &TEstMovTrib::pMVAST},
        {"trib_icms_predbcst", &TEstMovTrib::pRedBCST},
        {"trib_icms_predbc", &TEstMovTrib::pRedBC},
        {"trib_icms_picmsst", &TEstMovTrib::pICMSST},
        {"trib_icms_vbcst", &TEstMovTrib::vBCST},
        {"trib_icms_vicmsst", &TEstMovTrib::vICMSST},
        {"pipi", &TEstMovTrib::pIPI},
        {"vipi", &TEstMovTrib::vIPI},
        {"outras", &TEstMovTrib::outras},
        {"frete", &TEstMovTrib::frete},
        {"seguro", &TEstMovTrib::seguro},
        {"trib_icms_vbcfcp", &TEstMovTrib::vBCFCP},
        {"trib_icms_pfcp", &TEstMovTrib::pFCP},
        {"trib_icms_vfcp", &TEstMovTrib::vFCP},
        {"trib_icms_vbcfcpst", &TEstMovTrib::vBCFCPST},
        {"trib_icms_pfcpst", &TEstMovTrib::pFCPST},
        {"trib_icms_vfcpst", &TEstMovTrib::vFCPST},
        {"trib_icms_vbcstret", &TEstMovTrib::vBCSTRet},
        {"trib_icms_pst", &TEstMovTrib::pST},
        {"trib_icms_vicmssubstituto", &TEstMovTrib::vICMSSubstituto},
        {"trib_icms_vicmsstret", &TEstMovTrib::vICMSSTRet},
        {"ppis", &TEstMovTrib::pPis},
        {"vpis", &TEstMovTrib::vPis},
        {"pcofins", &TEstMovTrib::pCofins},
        {"vcofins", &TEstMovTrib::vCofins},
    };
    return colunas;
}

int CompraEstMovInsNovo(TConexaoSQL &conexao, const TNotaEstMov &nota, int prodCod, double qtd, Money custo,
                        Money custoTot, Money preco, Money desconto, QChar direcao, const QString &cfop,
                        const TEstMovTrib &trib)
{
    if (direcao != Estoque::Entrada && direcao != Estoque::Saida)
        direcao = Estoque::DirecaoDoTipoDoc(nota.tipoCod);
    const int estMovCod =
        int(GeneratorOuErro(conexao, QStringLiteral("est_mov_g"), QStringLiteral("numerar o movimento de estoque")));

    // The movement keeps the document's line: its number in the note, its unit price (the total
    // over the quantity, before the discount kept beside it), and the sale price of the day.
    const Money precoUnit = qtd != 0 ? Money::fromDouble(custoTot.toDouble() / std::fabs(qtd)) : Money();
    const QString nitem = QLatin1String("(select count(*) + 1 from compra_est_mov where empr_cod=") + Int(nota.emprCod)
                          + QLatin1String(" and estacao_cod=") + Int(nota.estacaoCod)
                          + QLatin1String(" and compra_cod=") + Int(nota.compraCod) + QLatin1Char(')');
    QString colunas = QStringLiteral(
        "empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, prod_tipo_cod, nitem, qtd, custo, custo_tot, preco_unit, "
        "preco_atual, desconto, cancelado, dth_cri, cfop");
    QString valores;
    valores.reserve(1024);
    valores += Int(nota.emprCod) + QLatin1String(", ") + Int(Estoque::EstacaoMov) + QLatin1String(", ") + Int(estMovCod)
               + QLatin1String(", ") + QuotedStr(QString(direcao)) + QLatin1String(", ") + Int(prodCod)
               + QLatin1String(", (select prod_tipo_cod from prod where prod_cod=") + Int(prodCod) + QLatin1String("), ") + nitem
               + QLatin1String(", ") + FloatToStrPonto(direcao == Estoque::Saida ? -qtd : qtd) + QLatin1String(", ")
               + FloatToStrPonto(custo) + QLatin1String(", ") + FloatToStrPonto(custoTot) + QLatin1String(", ")
               + FloatToStrPonto(precoUnit) + QLatin1String(", ") + FloatToStrPonto(preco) + QLatin1String(", ")
               + FloatToStrPonto(desconto) + QLatin1String(", 'N', ")
               + DataHoraSQLFirebird(Contexto::Atual().Agora()) + QLatin1String(", ") + QuotedStr(cfop);
    // The NF-e group under its own names, then the host's columns taken from it.
    QList<QPair<QLatin1String, QString>> nfe;
    for (const auto &c : TEstMovTrib::ColunasInt())
        nfe.append({QLatin1String(c.coluna), Int(trib.*(c.campo))});
    for (const auto &c : TEstMovTrib::ColunasMoney())
        nfe.append({QLatin1String(c.coluna), FloatToStrPonto(trib.*(c.campo))});
    for (const auto &[coluna, valor] : nfe) {
        colunas += QLatin1String(", ") + coluna;
        valores += QLatin1String(", ") + valor;
    }
    // The host's own tax columns as EstMovAjusteTrib would set them, so that it has nothing to
    // rewrite for a movement written here.
    for (const TColunaHost &c : ColunasHost) {
        const auto fonte =
            std::find_if(nfe.cbegin(), nfe.cend(), [&c](const auto &p) { return p.first == QLatin1String(c.nfe); });
        colunas += QLatin1String(", ") + QLatin1String(c.host);
        valores += QLatin1String(", ") + fonte->second;
    }
    colunas += QLatin1String(", icms_val, trib_cod");
    valores += QLatin1String(", ") + FloatToStrPonto(trib.vICMS) + QLatin1String(", ") + TribCodDoProduto(Int(prodCod));

    // One statement for both rows: the engine undoes the movement when its link cannot be
    // written. (A block that returned the code would report its failures only when fetched.)
    ExecOuErro(conexao,
               QLatin1String("execute block as\nbegin\n  insert into est_mov (") + colunas
                   + QLatin1String(") values (") + valores
                   + QLatin1String(");\n  insert into compra_est_mov (empr_cod, estacao_cod, compra_cod, "
                                   "est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) values (")
                   + Int(nota.emprCod) + QLatin1String(", ") + Int(nota.estacaoCod) + QLatin1String(", ")
                   + Int(nota.compraCod) + QLatin1String(", ") + Int(nota.emprCod) + QLatin1String(", ")
                   + Int(Estoque::EstacaoMov) + QLatin1String(", ") + Int(estMovCod) + QLatin1String(");\nend"),
               QStringLiteral("gravar o movimento de estoque do produto %1 da nota %2")
                   .arg(prodCod)
                   .arg(QStringLiteral("%1-%2")
                            .arg(nota.emprCod, 3, 10, QLatin1Char('0'))
                            .arg(nota.compraCod, 7, 10, QLatin1Char('0'))));
    return estMovCod;
}

void EstMovAjusteTrib(TConexaoSQL &conexao, int emprCod, int estacaoCod, int estMovCod, Money vICMS)
{
    // Only a movement whose columns differ is rewritten: an update that changes nothing still
    // writes a new record version.
    const QString icms = FloatToStrPonto(vICMS);
    const QString tribCod = TribCodDoProduto(QStringLiteral("est_mov.prod_cod"));
    QString atribuicoes = QLatin1String("icms_val=") + icms + QLatin1String(", trib_cod=") + tribCod;
    QString diferencas =
        QLatin1String("icms_val is distinct from ") + icms + QLatin1String(" or trib_cod is distinct from ") + tribCod;
    for (const TColunaHost &c : ColunasHost) {
        atribuicoes += QLatin1String(", ") + QLatin1String(c.host) + QLatin1Char('=') + QLatin1String(c.nfe);
        diferencas += QLatin1String(" or ") + QLatin1String(c.host) + QLatin1String(" is distinct from ")
                      + QLatin1String(c.nfe);
    }
    ExecOuErro(conexao,
               QLatin1String("update est_mov set ") + atribuicoes + QLatin1String(" where empr_cod=") + Int(emprCod)
                   + QLatin1String(" and estacao_cod=") + Int(Estoque::EstacaoMov) + QLatin1String(" and est_mov_cod=")
                   + Int(estMovCod) + QLatin1String(" and (") + diferencas + QLatin1Char(')'),
               QStringLiteral("ajustar os impostos do movimento de estoque %1").arg(estMovCod));
}

void DesbaixarCompra(int emprCod, int compraCod, const QString &database)
{
    TConexaoSQL conexao(BancoDe(database));
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco %1 para desbaixar a nota").arg(database));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    const QString nota =
        QLatin1String(" where empr_cod=") + Int(emprCod) + QLatin1String(" and compra_cod=") + Int(compraCod);
    const auto movs = AbOuErro(
        conexao, QLatin1String("select est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod from compra_est_mov") + nota,
        QStringLiteral("ler os movimentos de estoque da nota"));
    for (movs->First(); !movs->Eof(); movs->Next()) {
        const int mov = movs->Fields(2).AsInteger();
        // Input rows carry the company that posted, not the note's; the movement code is unique.
        ExecOuErro(conexao, QLatin1String("delete from est_mov_compo where est_mov_cod=") + Int(mov),
                   QStringLiteral("excluir os insumos do movimento de estoque %1").arg(mov));
        ExecOuErro(conexao,
                   QLatin1String("delete from est_mov where empr_cod=") + Int(movs->Fields(0).AsInteger())
                       + QLatin1String(" and estacao_cod=") + Int(movs->Fields(1).AsInteger())
                       + QLatin1String(" and est_mov_cod=") + Int(mov),
                   QStringLiteral("excluir o movimento de estoque %1").arg(mov));
    }
    if (!movs->IsEmpty())
        ExecOuErro(conexao, QLatin1String("delete from compra_est_mov") + nota,
                   QStringLiteral("excluir as ligações da nota com os movimentos de estoque"));
    RemoverEnvios(conexao, emprCod, compraCod);
    ExecOuErro(conexao, QLatin1String("update compra set baixado='N'") + nota,
               QStringLiteral("marcar a nota como não baixada"));
}

int Quenor_EstMov_EnvCompra(int emprCod, int compraCod, int destinEmprCod, const QString &database)
{
    TConexaoSQL conexao(BancoDe(database));
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco %1 para enviar a nota").arg(database));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    const auto movs = AbOuErro(
        conexao,
        QLatin1String("select m.empr_cod, m.estacao_cod, m.est_mov_cod, l.estacao_cod from compra_est_mov l"
                      " join est_mov m on m.empr_cod=l.est_mov_empr_cod and m.estacao_cod=l.est_mov_estacao_cod"
                      " and m.est_mov_cod=l.est_mov_cod where l.empr_cod=")
            + Int(emprCod) + QLatin1String(" and l.compra_cod=") + Int(compraCod)
            + QLatin1String(" and m.tipo<>'C' and coalesce(m.cancelado, 'N')<>'S' order by m.est_mov_cod"),
        QStringLiteral("ler os movimentos de estoque da nota"));
    RemoverEnvios(conexao, emprCod, compraCod);

    const QString agora = DataHoraSQLFirebird(Contexto::Atual().Agora());
    for (movs->First(); !movs->Eof(); movs->Next()) {
        const int origem = movs->Fields(2).AsInteger();
        const int novo = int(GeneratorOuErro(conexao, QStringLiteral("est_mov_g"),
                                             QStringLiteral("numerar a entrada na empresa de destino")));
        ExecOuErro(conexao,
                   QLatin1String("insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, qtd, cancelado, dth_cri, ")
                       + ColunasCopiadas() + QLatin1String(") select ") + Int(destinEmprCod) + QLatin1String(", ")
                       + Int(Estoque::EstacaoMov) + QLatin1String(", ") + Int(novo) + QLatin1String(", ")
                       + QuotedStr(QString(Estoque::Entrada)) + QLatin1String(", abs(qtd), 'N', ") + agora
                       + QLatin1String(", ") + ColunasCopiadas() + QLatin1String(" from est_mov where empr_cod=")
                       + Int(movs->Fields(0).AsInteger()) + QLatin1String(" and estacao_cod=")
                       + Int(movs->Fields(1).AsInteger()) + QLatin1String(" and est_mov_cod=") + Int(origem),
                   QStringLiteral("gravar a entrada do movimento %1 na empresa %2").arg(origem).arg(destinEmprCod));
        ExecOuErro(conexao,
                   QLatin1String("insert into compra_est_mov_env (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, "
                                 "est_mov_estacao_cod, est_mov_cod, orig_est_mov_cod) values (")
                       + Int(emprCod) + QLatin1String(", ") + Int(movs->Fields(3).AsInteger()) + QLatin1String(", ")
                       + Int(compraCod) + QLatin1String(", ") + Int(destinEmprCod) + QLatin1String(", ")
                       + Int(Estoque::EstacaoMov) + QLatin1String(", ") + Int(novo) + QLatin1String(", ")
                       + Int(origem) + QLatin1Char(')'),
                   QStringLiteral("ligar a entrada %1 à nota").arg(novo));
    }
    return movs->RecordCount();
}
