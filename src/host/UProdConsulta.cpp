#include "UProdConsulta.h"

#include "TConexaoSQL.h"
#include "Valores.h"

#include <algorithm>

namespace {

bool SoDigitos(const QString &texto)
{
    return !texto.isEmpty()
           && std::all_of(texto.begin(), texto.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// Supplier codes typed with or without leading zeros mean the same code. Digits beyond the
// integer range would come back from StrToIntStr as "0" and match another product's code, so
// those only lose their leading zeros.
QString NormalizarCodDeles(const QString &codigo)
{
    const QString texto = codigo.trimmed();
    if (!SoDigitos(texto))
        return texto;
    const QString inteiro = StrToIntStr(texto);
    if (inteiro != QLatin1String("0"))
        return inteiro;
    qsizetype primeiro = 0;
    while (primeiro < texto.size() - 1 && texto.at(primeiro) == u'0')
        ++primeiro;
    return texto.mid(primeiro);
}

Money PrimeiroMoney(TConexaoSQL &conexao, const QString &sql)
{
    const auto q = conexao.Ab(sql);
    if (!q || q->IsEmpty())
        return Money();
    return q->Fields(0).AsMoney();
}

} // namespace

int FornecProdCod(TConexaoSQL &conexao, int fornecCod, const QString &prodCodDeles)
{
    const QString codigo = NormalizarCodDeles(prodCodDeles);
    if (codigo.isEmpty())
        return 0;
    // Descending supplier code puts the supplier's own row before the one for every supplier.
    return conexao.ValorInt(QLatin1String("select first(1) prod_cod from prod_norig where norig=") + QuotedStr(codigo)
                            + QLatin1String(" and (fornec_cod=") + QString::number(fornecCod)
                            + QLatin1String(" or fornec_cod=0) order by fornec_cod desc"));
}

double ProdCodToEmbQtd(TConexaoSQL &conexao, int prodCod)
{
    const auto q = conexao.Ab(QLatin1String("select emb_qtd from prod where prod_cod=") + QString::number(prodCod));
    if (!q || q->IsEmpty())
        return 0.0;
    return q->Fields(0).AsFloat();
}

Money PrecoProd(TConexaoSQL &conexao, int prodCod, int emprCod)
{
    return PrimeiroMoney(conexao, QLatin1String("select preco from prod_preco_atual where empr_cod=") + QString::number(emprCod)
                                      + QLatin1String(" and tab_preco_cod=1 and prod_cod=") + QString::number(prodCod));
}

Money TProdPromo_PrecoPromoDBI::GetPrecoPromo(TConexaoSQL &conexao, int prodCod, int emprCod, const QDate &dia)
{
    const QString data = DataSQLFirebird(dia);
    return PrimeiroMoney(conexao, QLatin1String("select first(1) preco_promo from prod_promo where empr_cod=") + QString::number(emprCod)
                                      + QLatin1String(" and prod_cod=") + QString::number(prodCod)
                                      + QLatin1String(" and dt_ini<=") + data
                                      + QLatin1String(" and (dt_fim is null or dt_fim>=") + data
                                      + QLatin1String(") order by dt_ini desc"));
}
