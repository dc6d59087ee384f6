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

const QLatin1String SelectProdDescr(
    "select first(1) p.prod_cod, p.descr, p.prod_fabr_cod, f.nome, p.unid_cod, u.sigla from ");
const QLatin1String JuntarFabrUnid(
    " left join prod_fabr f on f.prod_fabr_cod=p.prod_fabr_cod left join unid u on u.unid_cod=p.unid_cod");

std::optional<TProdDescr> LerProdDescr(TConexaoSQL &conexao, const QString &sql)
{
    const auto q = conexao.Ab(sql);
    if (!q)
        return std::nullopt;
    if (q->IsEmpty())
        return TProdDescr();
    return TProdDescr{q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed(), q->Fields(2).AsInteger(),
            q->Fields(3).AsString().trimmed(), q->Fields(4).AsInteger(), q->Fields(5).AsString().trimmed()};
}

} // namespace

std::optional<TProdDescr> FornecCToProdDescr(TConexaoSQL &conexao, int fornecCod, const QString &prodCodDeles)
{
    const QString codigo = NormalizarCodDeles(prodCodDeles);
    if (codigo.isEmpty())
        return TProdDescr();
    return LerProdDescr(conexao, SelectProdDescr + QLatin1String("prod_norig n join prod p on p.prod_cod=n.prod_cod")
                                     + JuntarFabrUnid + QLatin1String(" where n.norig=") + QuotedStr(codigo)
                                     + QLatin1String(" and (n.fornec_cod=") + QString::number(fornecCod)
                                     + QLatin1String(" or n.fornec_cod=0) order by n.fornec_cod desc"));
}

std::optional<TProdDescr> BarCodToProdDescr(TConexaoSQL &conexao, const QString &barCod)
{
    const QString codigo = barCod.trimmed();
    if (!SoDigitos(codigo))
        return TProdDescr();
    const QString texto = QuotedStr(codigo);
    // A registered bar code decides; the GTIN only when there is none.
    return LerProdDescr(conexao, SelectProdDescr + QLatin1String("prod p") + JuntarFabrUnid
                                     + QLatin1String(" where p.prod_cod=coalesce((select first(1) prod_cod from prod_barras where bar_cod=")
                                     + texto + QLatin1String("), (select first(1) prod_cod from prod where gtin=") + texto
                                     + QLatin1String(" order by prod_cod))"));
}

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

int ProdCodToTipo(TConexaoSQL &conexao, int prodCod)
{
    const auto q = conexao.Ab(QLatin1String("select prod_tipo_cod from prod where prod_cod=") + QString::number(prodCod));
    if (!q || q->IsEmpty())
        return 0;
    const QString tipo = q->Fields(0).AsString();
    return tipo.isEmpty() ? 0 : tipo.at(0).unicode();
}
