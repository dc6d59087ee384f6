#include "TGetSqlItens.h"

#include "TCompraItemTmpDBI.h"

#include <QStringList>

QString TGetSqlItens::GetSqlItens(int emprCod, int compraCod)
{
    QStringList colunas;
    for (const TColunaItemTmp &c : ColunasItemTmp())
        colunas << QLatin1String("COMPRA_ITEM_TMP.") + QLatin1String(c.coluna);
    colunas << QStringLiteral("prod.descr as prod_descr") << QStringLiteral("Unid.sigla as unid_sigla")
            << QStringLiteral("prod_compl.margem") << QStringLiteral("prod.trib_cod")
            << QStringLiteral("prod_custo_atual.custo as custo_atual")
            << QStringLiteral("prod_preco_atual.preco as preco_atual");
    return QLatin1String("select ") + colunas.join(QLatin1String(", "))
           + QLatin1String(
               " from COMPRA_ITEM_TMP"
               " join prod on prod.prod_cod=COMPRA_ITEM_TMP.prod_cod"
               " join unid on unid.unid_cod=COMPRA_ITEM_TMP.unid_cod"
               " join prod_compl on prod_compl.prod_cod=COMPRA_ITEM_TMP.prod_cod"
               " and prod_compl.empr_cod=COMPRA_ITEM_TMP.empr_cod"
               " join prod_custo_atual on prod_custo_atual.empr_cod=COMPRA_ITEM_TMP.empr_cod"
               " and prod_custo_atual.prod_cod=COMPRA_ITEM_TMP.prod_cod"
               " and (prod_custo_atual.fornec_cod is null or prod_custo_atual.fornec_cod=0)"
               " left join prod_preco_atual on prod_preco_atual.empr_cod=COMPRA_ITEM_TMP.empr_cod"
               " and prod_preco_atual.tab_preco_cod=1"
               " and prod_preco_atual.prod_cod=COMPRA_ITEM_TMP.prod_cod")
           + QLatin1String(" where COMPRA_ITEM_TMP.empr_cod=") + QString::number(emprCod)
           + QLatin1String(" and compra_item_tmp.estacao_cod=10")
           + QLatin1String(" and COMPRA_ITEM_TMP.COMPRA_COD=") + QString::number(compraCod)
           + QLatin1String(" order by COMPRA_ITEM_TMP_cod");
}
