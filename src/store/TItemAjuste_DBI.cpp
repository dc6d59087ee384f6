#include "TItemAjuste_DBI.h"

#include "ErroBanco.h"
#include "TConexaoSQL.h"
#include "Valores.h"

namespace {

const QString CRLF = QStringLiteral("\r\n");

QString CfopQuoted(const TItemAjuste &item)
{
    return QuotedStr(QString::number(item.cfop));
}

} // namespace

void TItemAjuste_DBI::GravarItemTmp(const TItemAjuste &item)
{
    ExecOuErro(m_conexao,
               QLatin1String("update compra_item_tmp set cfop=") + CfopQuoted(item) + QLatin1String(", ncm=") + QuotedStr(item.ncm)
                   + QLatin1String(", trib_icms_cst=") + QString::number(item.cst)
                   + QLatin1String(", TRIB_ICMS_PREDBCST=") + FloatToStrPonto(item.pRedBCST)
                   + QLatin1String(", TRIB_ICMS_PREDBC=") + FloatToStrPonto(item.pRedBC)
                   + QLatin1String(", info_adic=") + QuotedStr(item.infoAdic)
                   + QLatin1String(" where compra_item_tmp_cod=") + QString::number(item.compraItemTmpCod),
               QStringLiteral("gravar o ajuste do item %1 da nota").arg(item.compraItemTmpCod));
}

void TItemAjuste_DBI::GravarProd(const TItemAjuste &item)
{
    ExecOuErro(m_conexao,
               QLatin1String("update prod set ncm=") + QuotedStr(item.ncm) + QLatin1String(", cfop=") + CfopQuoted(item)
                   + QLatin1String(" where prod_cod=") + QString::number(item.prodCod),
               QStringLiteral("gravar o NCM e o CFOP do produto %1").arg(item.prodCod));
}

void TItemAjuste_DBI::GravarEstMov(const TItemAjuste &item, int emprCod, int compraCod)
{
    const auto movs = AbOuErro(m_conexao,
                               QLatin1String("select est_mov.est_mov_cod") + CRLF + QLatin1String("from compra_est_mov") + CRLF
                                   + QLatin1String("join est_mov on") + CRLF
                                   + QLatin1String("compra_est_mov.empr_cod=est_mov.empr_cod") + CRLF
                                   + QLatin1String("and est_mov.estacao_cod=10") + CRLF
                                   + QLatin1String("and compra_est_mov.est_mov_cod=est_mov.est_mov_cod") + CRLF
                                   + QLatin1String("where compra_cod=") + QString::number(compraCod)
                                   + QLatin1String(" and est_mov.prod_cod=") + QString::number(item.prodCod) + CRLF,
                               QStringLiteral("ler os movimentos de estoque do produto %1 na nota").arg(item.prodCod));
    for (movs->First(); !movs->Eof(); movs->Next()) {
        const int estMovCod = movs->Fields(0).AsInteger();
        ExecOuErro(m_conexao,
                   QLatin1String("update est_mov set cfop=") + CfopQuoted(item) + QLatin1String(", trib_icms_cst=") + QString::number(item.cst)
                       + QLatin1String(", trat_icms=") + QString::number(item.cst)
                       + QLatin1String(", TRIB_ICMS_PREDBCST=") + FloatToStrPonto(item.pRedBCST)
                       + QLatin1String(", TRIB_ICMS_PREDBC=") + FloatToStrPonto(item.pRedBC)
                       + QLatin1String(", info_adic=") + QuotedStr(item.infoAdic) + CRLF
                       + QLatin1String("where empr_cod=") + QString::number(emprCod) + CRLF
                       + QLatin1String("and est_mov.estacao_cod=10") + CRLF
                       + QLatin1String("and est_mov.est_mov_cod=") + QString::number(estMovCod),
                   QStringLiteral("gravar o ajuste do movimento de estoque %1").arg(estMovCod));
    }
}
