#include "TItemNotaDBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

QString TItemNotaDBI::SqlGravarProd(int prodCod, double embQtd, int tribCod, Money ipi, const QString &ncm)
{
    QString sql = QLatin1String("update prod set emb_qtd=") + FloatToStrPonto(embQtd)
                  + QLatin1String(", trib_cod=") + QString::number(tribCod)
                  + QLatin1String(", ipi=") + FloatToStrPonto(ipi);
    if (!ncm.isEmpty())
        sql += QLatin1String(", ncm=") + QuotedStr(ncm);
    return sql + QLatin1String(" where prod_cod=") + QString::number(prodCod);
}

QString TItemNotaDBI::SqlGravarMargem(int prodCod, int emprCod, Money margem)
{
    return QLatin1String("update prod_compl set margem=") + FloatToStrPonto(margem) + QLatin1String(" where prod_cod=")
           + QString::number(prodCod) + QLatin1String(" and empr_cod=") + QString::number(emprCod);
}

QString TItemNotaDBI::SqlGravarNCM(int prodCod, const QString &ncm)
{
    return QLatin1String("update prod set ncm=") + QuotedStr(ncm) + QLatin1String(" where prod_cod=")
           + QString::number(prodCod);
}

QStringList TItemNotaDBI::SqlExcluirItem(int emprCod, int compraItemTmpCod, int estacaoCod)
{
    const QString condicoes = QString::number(emprCod) + QLatin1String(" and compra_item_tmp_cod=")
                              + QString::number(compraItemTmpCod) + QLatin1String(" and estacao_cod=")
                              + QString::number(estacaoCod);
    return {QLatin1String("delete from compra_item_tmp where empr_cod=") + condicoes,
            QLatin1String("delete from compra_item_tmp_precos where empr_cod=") + condicoes};
}

QString TItemNotaDBI::SqlGradesDoProd(int prodCod)
{
    return QLatin1String("select grade_tit_cod from prod_grade where prod_cod=") + QString::number(prodCod);
}

std::optional<QSet<int>> TItemNotaDBI::GradesDoProd(TConexaoSQL &conexao, int prodCod)
{
    const auto q = conexao.Ab(SqlGradesDoProd(prodCod));
    if (!q)
        return std::nullopt;
    QSet<int> titulos;
    for (q->First(); !q->Eof(); q->Next())
        titulos.insert(q->Fields(0).AsInteger());
    return titulos;
}
