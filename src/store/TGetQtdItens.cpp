#include "TGetQtdItens.h"

#include "TConexaoSQL.h"

QString TGetQtdItens::Sql(int emprCod, int compraCod)
{
    return QLatin1String("select count(*) from COMPRA_ITEM_TMP where COMPRA_ITEM_TMP.empr_cod=")
           + QString::number(emprCod) + QLatin1String(" and COMPRA_ITEM_TMP.COMPRA_COD=")
           + QString::number(compraCod);
}

int TGetQtdItens::GetQtdItens(TConexaoSQL &conexao, int emprCod, int compraCod)
{
    return conexao.ValorInt(Sql(emprCod, compraCod), -1);
}
