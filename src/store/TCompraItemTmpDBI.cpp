#include "TCompraItemTmpDBI.h"

#include "Money.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "Valores.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace {

using T = TTipoColunaItem;

constexpr TColunaItemTmp Colunas[] = {
    {"empr_cod", "empr_cod", T::Codigo},
    {"estacao_cod", "estacao_cod", T::Codigo},
    {"compra_cod", "compra_cod", T::Codigo},
    {"compra_item_tmp_cod", "COMPRA_ITEM_TMP_COD", T::Codigo},
    {"prod_cod_deles", "PROD_COD_DELES", T::Texto, 60},
    {"prod_cod", "PROD_COD", T::Codigo},
    {"unid_cod", "unid_cod", T::Codigo},
    {"trib_cod", "trib_cod", T::Codigo},
    {"ipi", "ipi", T::Valor},
    {"ipi_val", "ipi_val", T::Valor},
    {"outras", "outras", T::Valor},
    {"emb_qtd", "EMB_QTD", T::Quantidade},
    {"qtd_embs", "QTD_EMBS", T::Quantidade},
    {"custo_tot", "CUSTO_TOT", T::Valor},
    {"desconto", "DESCONTO", T::Valor},
    {"ordem", "ordem", T::Codigo},
    {"prod_descr_fornec", "prod_descr_fornec", T::Texto, 120},
    {"pipi", "pipi", T::Valor},
    {"vipi", "vipi", T::Valor},
    {"frete", "frete", T::Valor},
    {"prod_margem", "prod_margem", T::Valor},
    {"preco_novo", "preco_novo", T::Valor},
    {"bar_cod_fornec", "bar_cod_fornec", T::Texto, 30},
    {"ncm", "ncm", T::Texto, 10},
    {"tot_entra", "tot_entra", T::Valor},
    {"cfop", "cfop", T::Texto, 10},
    {"trib_icms_cst", "cst", T::Codigo},
    {"trib_orig", "origem_merc", T::Codigo},
    {"trib_icms_modbc", "icms_bc_mod", T::Codigo},
    {"trib_icms_picms", "icms_perc", T::Valor},
    {"trib_icms_vicms", "ICMS_VAL", T::Valor},
    {"trib_icms_vbc", "icms_bc_val", T::Valor},
    {"trib_icms_modbcst", "icms_st_bc_mod", T::Codigo},
    {"trib_icms_pmvast", "icms_st_perc_ad", T::Valor},
    {"trib_icms_predbcst", "icms_st_perc_red", T::Valor},
    {"trib_icms_picmsst", "icms_st_perc", T::Valor},
    {"trib_icms_vbcst", "icms_st_bc_val", T::Valor},
    {"trib_icms_vicmsst", "ICMS_st_VAL", T::Valor},
    {"seguro", "seguro", T::Valor},
    {"icms_perc_red", "icms_perc_red", T::Valor},
    {"trib_icms_predbc", "trib_icms_predbc", T::Valor},
    {"info_adic", "info_adic", T::Texto, 2000},
    {"trib_icms_vbcfcp", "icms_vBCFCP", T::Valor},
    {"trib_icms_pfcp", "icms_pFCP", T::Valor},
    {"trib_icms_vfcp", "TRIB_icms_vFCP", T::Valor},
    {"trib_icms_vbcfcpst", "icms_vBCFCPST", T::Valor},
    {"trib_icms_pfcpst", "icms_pFCPST", T::Valor},
    {"trib_icms_vfcpst", "TRIB_icms_vFCPST", T::Valor},
    {"trib_icms_vbcstret", "TRIB_ICMS_VBCSTRET", T::Valor},
    {"trib_icms_pst", "TRIB_ICMS_PST", T::Valor},
    {"trib_icms_vicmssubstituto", "TRIB_ICMS_VICMSSUBSTITUTO", T::Valor},
    {"trib_icms_vicmsstret", "TRIB_ICMS_VICMSSTRET", T::Valor},
    {"icms_sn_cred_perc", "icms_sn_cred_perc", T::Valor},
    {"icms_sn_cred_val", "icms_sn_cred_val", T::Valor},
    {"cst_pis", "CST_PIS", T::Codigo},
    {"ppis", "PPIS", T::Valor},
    {"vpis", "VPIS", T::Valor},
    {"cst_cofins", "CST_COFINS", T::Codigo},
    {"pcofins", "PCOFINS", T::Valor},
    {"vcofins", "VCOFINS", T::Valor},
};
static_assert(std::size(Colunas) == NumColunasItemTmp);

constexpr int Estacao = 10;   // staged rows always live under station 10
constexpr int Indice(std::string_view coluna)
{
    for (int i = 0; i < NumColunasItemTmp; ++i)
        if (coluna == Colunas[i].coluna)
            return i;
    return -1;
}
constexpr int IndiceEmpr = Indice("empr_cod");
constexpr int IndiceEstacao = Indice("estacao_cod");
constexpr int IndiceCompra = Indice("compra_cod");
constexpr int IndiceItem = Indice("compra_item_tmp_cod");
constexpr int IndiceInfoAdic = Indice("info_adic");
static_assert(IndiceEmpr >= 0 && IndiceEstacao >= 0 && IndiceCompra >= 0 && IndiceItem >= 0 && IndiceInfoAdic >= 0);

QString Sql(TTipoColunaItem tipo, const QVariant &v)
{
    switch (tipo) {
    case T::Codigo:
        return v.isNull() ? QStringLiteral("NULL") : QString::number(v.toInt());
    case T::Valor:
        return FloatToStrPonto(v.isNull() ? Money() : v.value<Money>());
    case T::Quantidade:
        return FloatToStrPonto(v.isNull() ? 0.0 : v.toDouble());
    case T::Texto:
        return v.isNull() ? QStringLiteral("NULL") : QuotedStr(v.toString());
    }
    return QStringLiteral("NULL");
}

// Whether the column can hold the value: amounts and quantities within NUMERIC(18,4), texts
// within the column's characters once QuotedStr has dropped their NULs.
bool Cabe(const TColunaItemTmp &c, const QVariant &v)
{
    if (v.isNull())
        return true;
    switch (c.tipo) {
    case T::Codigo:
        return true;
    case T::Valor:
        return v.value<Money>().CabeNaColuna();
    case T::Quantidade:
        return Money::fromDouble(v.toDouble()).CabeNaColuna();
    case T::Texto: {
        const QString t = v.toString();
        const qsizetype caracteres = t.size() - t.count(QChar(u'\0'))
            - std::count_if(t.begin(), t.end(), [](QChar ch) { return ch.isLowSurrogate(); });
        return caracteres <= c.tamanho;
    }
    }
    return true;
}

QVariant Ler(const TField &f, TTipoColunaItem tipo)
{
    if (f.IsNull())
        return {};
    switch (tipo) {
    case T::Codigo: return f.AsInteger();
    case T::Valor: return QVariant::fromValue(f.AsMoney());
    case T::Quantidade: return f.AsFloat();
    case T::Texto: return f.AsString();
    }
    return {};
}

} // namespace

std::span<const TColunaItemTmp> ColunasItemTmp()
{
    return Colunas;
}

// --- TCompraItemTmpCampos -------------------------------------------------------------------------

TCompraItemTmpCampos::TCompraItemTmpCampos() = default;

int TCompraItemTmpCampos::IndiceColuna(const QString &coluna)
{
    for (int i = 0; i < NumColunasItemTmp; ++i)
        if (coluna.compare(QLatin1String(Colunas[i].coluna), Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QVariant TCompraItemTmpCampos::Valor(const QString &coluna) const
{
    const int i = IndiceColuna(coluna);
    if (i < 0)
        throw std::invalid_argument("compra_item_tmp has no column " + coluna.toStdString());
    return m_valores[size_t(i)];
}

void TCompraItemTmpCampos::SetValor(const QString &coluna, const QVariant &valor)
{
    const int i = IndiceColuna(coluna);
    if (i < 0)
        throw std::invalid_argument("compra_item_tmp has no column " + coluna.toStdString());
    m_valores[size_t(i)] = valor;
}

QString TCompraItemTmpCampos::ColunaQueNaoCabe() const
{
    for (int i = 0; i < NumColunasItemTmp; ++i)
        if (!Cabe(Colunas[i], m_valores[size_t(i)]))
            return QLatin1String(Colunas[i].coluna);
    return {};
}

QStringList TCompraItemTmpCampos::ValoresSQL() const
{
    QStringList valores;
    valores.reserve(NumColunasItemTmp);
    for (int i = 0; i < NumColunasItemTmp; ++i)
        valores << Sql(Colunas[i].tipo, m_valores[size_t(i)]);
    return valores;
}

// --- TCompraItemTmpDBI ----------------------------------------------------------------------------

int TCompraItemTmpDBI::ProximoGenerator()
{
    return ProximoGenerator(TConexD::Conexao());
}

int TCompraItemTmpDBI::ProximoGenerator(TConexaoSQL &conexao)
{
    return int(conexao.ProximoGenerator(QStringLiteral("compra_item_tmp_g"), 1));
}

void TCompraItemTmpDBI::LerDoDataSet(const TClientDataSet &ds)
{
    bool valido = m_dsIndices == &ds && m_dsCampos == ds.FieldCount();
    for (int i = 0; valido && i < NumColunasItemTmp; ++i)
        valido = m_indices[size_t(i)] < 0
                 || ds.Fields(m_indices[size_t(i)]).FieldName().compare(QLatin1String(Colunas[i].campo),
                                                                         Qt::CaseInsensitive) == 0;
    if (!valido) {
        m_indices.assign(NumColunasItemTmp, -1);
        for (int i = 0; i < NumColunasItemTmp; ++i)
            if (const TField *f = ds.FindField(QLatin1String(Colunas[i].campo)))
                m_indices[size_t(i)] = f->Index();
        m_dsIndices = &ds;
        m_dsCampos = ds.FieldCount();
    }
    for (int i = 0; i < NumColunasItemTmp; ++i) {
        const int f = m_indices[size_t(i)];
        m_campos.SetValor(i, f < 0 ? QVariant() : Ler(ds.Fields(f), Colunas[i].tipo));
    }
    m_campos.SetValor(IndiceEstacao, Estacao);
}

void TCompraItemTmpDBI::SetNota(int emprCod, int compraCod)
{
    m_campos.SetValor(IndiceEmpr, emprCod);
    m_campos.SetValor(IndiceCompra, compraCod);
}

QString TCompraItemTmpDBI::SqlInserir() const
{
    QStringList colunas;
    colunas.reserve(NumColunasItemTmp);
    for (const TColunaItemTmp &c : Colunas)
        colunas << QLatin1String(c.coluna);
    QStringList valores = m_campos.ValoresSQL();
    valores[IndiceEstacao] = QString::number(Estacao);
    return QLatin1String("insert into compra_item_tmp (") + colunas.join(QLatin1String(", "))
           + QLatin1String(") values (") + valores.join(QLatin1String(", ")) + QLatin1Char(')');
}

bool TCompraItemTmpDBI::InserirNoBD(TConexaoSQL &conexao) const
{
    return conexao.Exec(SqlInserir());
}

int TCompraItemTmpDBI::CompraItemTmpCod() const
{
    return m_campos.Valor(IndiceItem).toInt();
}

QString TCompraItemTmpDBI::InfoAdic() const
{
    return m_campos.Valor(IndiceInfoAdic).toString();
}
