#include "TClientManager2_CreateFields.h"

#include "TClientDataSet.h"
#include "TCompraItemTmpDBI.h"
#include "TTabPrecoList.h"

namespace {

const QString FmtDinheiro = QStringLiteral("#,###,##0.00");
const QString FmtCusto = QStringLiteral("#,###,##0.0000");
const QString FmtQtd = QStringLiteral("#,###,##0.000");

} // namespace

void TClientManager2_CreateFields::Executar(TClientDataSet &itens)
{
    using T = TFieldType;
    auto visivel = [&](const char *nome, T tipo, const QString &titulo, const QString &formato = {},
                       int largura = 0) {
        itens.AddField(QLatin1String(nome), tipo, titulo, formato, true, largura);
    };
    auto oculto = [&](const char *nome, T tipo) {
        itens.AddField(QLatin1String(nome), tipo, {}, {}, false);
    };

    visivel("ordem", T::Integer, QStringLiteral("Ordem"));
    visivel("PROD_COD_DELES", T::String, QStringLiteral("Cód.Fornec"), {}, 14);
    visivel("PROD_COD", T::Integer, QStringLiteral("Código"));
    visivel("COMPRA_ITEM_TMP_COD", T::Integer, QStringLiteral("Cód.Item"));
    visivel("prod_DESCR", T::String, QStringLiteral("Descrição"), {}, 40);
    oculto("unid_cod", T::Integer);                  // shown by its abbreviation
    visivel("unid_sigla", T::String, QStringLiteral("Unid"));
    oculto("trib_cod", T::Integer);                  // shown by its text
    visivel("trib_str", T::String, QStringLiteral("Tributação"), {}, 24);
    visivel("pipi", T::Money, QStringLiteral("IPI %"), FmtDinheiro);
    visivel("vipi", T::Money, QStringLiteral("IPI R$"), FmtCusto);
    visivel("icms_perc", T::Money, QStringLiteral("ICMS %"), FmtDinheiro);
    visivel("ICMS_VAL", T::Money, QStringLiteral("ICMS R$"), FmtDinheiro);
    visivel("icms_st_perc", T::Money, QStringLiteral("ICMS ST %"), FmtDinheiro);
    visivel("ICMS_st_VAL", T::Money, QStringLiteral("ICMS ST R$"), FmtDinheiro);
    visivel("EMB_QTD", T::Float, QStringLiteral("Qtd na Emb"), FmtQtd);
    visivel("QTD_EMBS", T::Float, QStringLiteral("Qtd Embs"), FmtQtd);
    visivel("QTD_COMPRADA", T::Float, QStringLiteral("Qtd"), FmtQtd);
    visivel("DESCONTO", T::Money, QStringLiteral("Desconto R$"), FmtDinheiro);
    visivel("margem", T::Money, QStringLiteral("Margem %"), FmtDinheiro);
    visivel("CUSTO_atual", T::Money, QStringLiteral("Últim.Custo Un."), FmtCusto);
    visivel("CUSTO_TOT", T::Money, QStringLiteral("Custo Tot. R$"), FmtCusto);
    visivel("CUSTO", T::Money, QStringLiteral("Custo do Item R$"), FmtCusto);
    visivel("CUSTO_unit", T::Money, QStringLiteral("Custo Unit."), FmtCusto);
    visivel("PRECO_ATUAL", T::Money, QStringLiteral("Último Preço"), FmtDinheiro);
    visivel("PRECO_promo", T::Money, QStringLiteral("Preço Promo."), FmtDinheiro);
    visivel("cfop", T::String, QStringLiteral("CFOP"));
    visivel("ncm", T::String, QStringLiteral("NCM"), {}, 10);
    visivel("cst", T::Integer, QStringLiteral("CST"));
    visivel("outras", T::Money, QStringLiteral("Outras D.R$"), FmtDinheiro);
    visivel("frete", T::Money, QStringLiteral("Frete R$"), FmtDinheiro);
    visivel("seguro", T::Money, QStringLiteral("Seguro R$"), FmtDinheiro);
    visivel("info_adic", T::String, QStringLiteral("Inf.Adicionais"), {}, 30);
    visivel("icms_bc_mod", T::Integer, QStringLiteral("Mod.BC ICMS"));
    visivel("icms_bc_val", T::Money, QStringLiteral("BC ICMS R$"), FmtDinheiro);
    visivel("icms_st_bc_mod", T::Integer, QStringLiteral("Mod.BC ICMS ST"));
    visivel("icms_st_bc_val", T::Money, QStringLiteral("BC ICMS ST R$"), FmtDinheiro);
    visivel("icms_st_perc_ad", T::Money, QStringLiteral("ICMS ST% Ad"), FmtDinheiro);
    visivel("icms_st_perc_red", T::Money, QStringLiteral("ICMS %BC ST Red"), FmtDinheiro);
    visivel("icms_perc_red", T::Money, QStringLiteral("ICMS %BC Red"), FmtDinheiro);
    visivel("icms_vBCFCP", T::Money, QStringLiteral("BC FCP R$"), FmtDinheiro);
    visivel("icms_pFCP", T::Money, QStringLiteral("FCP %"), FmtDinheiro);
    visivel("TRIB_icms_vFCP", T::Money, QStringLiteral("FCP R$"), FmtDinheiro);
    visivel("icms_vBCFCPST", T::Money, QStringLiteral("BC ST FCP R$"), FmtDinheiro);
    visivel("icms_pFCPST", T::Money, QStringLiteral("FCP ST %"), FmtDinheiro);
    visivel("TRIB_icms_vFCPST", T::Money, QStringLiteral("FCP ST R$"), FmtDinheiro);
    visivel("TRIB_ICMS_VBCSTRET", T::Money, QStringLiteral("BC ST Retido R$"), FmtDinheiro);
    visivel("TRIB_ICMS_PST", T::Money, QStringLiteral("ST Retido %"), FmtDinheiro);
    visivel("TRIB_ICMS_VICMSSUBSTITUTO", T::Money, QStringLiteral("ICMS Substituto R$"), FmtDinheiro);
    visivel("TRIB_ICMS_VICMSSTRET", T::Money, QStringLiteral("ICMS ST Retido R$"), FmtDinheiro);
    visivel("CST_PIS", T::Integer, QStringLiteral("CST PIS"));
    visivel("PPIS", T::Money, QStringLiteral("PIS %"), FmtDinheiro);
    visivel("VPIS", T::Money, QStringLiteral("PIS R$"), FmtDinheiro);
    visivel("CST_COFINS", T::Integer, QStringLiteral("CST COFINS"));
    visivel("PCOFINS", T::Money, QStringLiteral("COFINS %"), FmtDinheiro);
    visivel("VCOFINS", T::Money, QStringLiteral("COFINS R$"), FmtDinheiro);

    // The staging columns not declared above keep their own name and stay out of the grid.
    for (const TColunaItemTmp &c : ColunasItemTmp()) {
        if (itens.FindField(QLatin1String(c.campo)))
            continue;
        switch (c.tipo) {
        case TTipoColunaItem::Codigo: oculto(c.campo, T::Integer); break;
        case TTipoColunaItem::Valor: oculto(c.campo, T::Money); break;
        case TTipoColunaItem::Quantidade: oculto(c.campo, T::Float); break;
        case TTipoColunaItem::Texto: oculto(c.campo, T::String); break;
        }
    }
}

void TClientManager2_CreateFields::AdicionarPrecos(TClientDataSet &itens, const TTabPrecoList &tabelas)
{
    for (const TTabPreco &tabela : tabelas.Tabelas()) {
        const QString nome = CampoPreco(tabela.codigo);
        if (itens.FindField(nome))
            continue;
        const QString titulo = tabela.nome.isEmpty() ? QStringLiteral("Preço %1").arg(tabela.codigo)
                                                     : QStringLiteral("Preço ") + tabela.nome;
        itens.AddField(nome, TFieldType::Money, titulo, FmtDinheiro);
    }
}
