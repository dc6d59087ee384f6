// The item panel's controller: the panel into the item list and back, insert, update, edit and
// delete of items, and clearing the panel.
#include "TItemNota.h"
#include "TItemNotaDBI.h"

#include "Dialogos.h"
#include "TBuscaProd.h"
#include "TClientManager2_CreateFields.h"
#include "TCompraItemTmpDBI.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TItemNotaTela.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TProdLista.h"
#include "TRepF_CalculePreco.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

enum class TipoCampo { Valor, Codigo, Quantidade };

struct CampoItem
{
    TNumEditBR *(TItemPanel::*edit)() const;
    const char *coluna;     // field of the item list
    TipoCampo tipo;
};

// The numeric fields of the panel and the item-list fields they fill.
const CampoItem CamposItem[] = {
    {&TItemPanel::ProdCodNumEditBR, "PROD_COD", TipoCampo::Codigo},
    {&TItemPanel::pIPINumEditBR, "pipi", TipoCampo::Valor},
    {&TItemPanel::vIPINumEditBR, "vipi", TipoCampo::Valor},
    {&TItemPanel::OutrasItemNumEditBR, "outras", TipoCampo::Valor},
    {&TItemPanel::FreteItemNumEditBR, "frete", TipoCampo::Valor},
    {&TItemPanel::SeguroItemNumEditBR, "seguro", TipoCampo::Valor},
    {&TItemPanel::EmbQtdNumEditBR, "EMB_QTD", TipoCampo::Quantidade},
    {&TItemPanel::QtdEmbsNumEditBR, "QTD_EMBS", TipoCampo::Quantidade},
    {&TItemPanel::QtdCompradaNumEditBR, "QTD_COMPRADA", TipoCampo::Quantidade},
    {&TItemPanel::CustoAtualNumEditBR, "CUSTO_atual", TipoCampo::Valor},
    {&TItemPanel::CustoTotItemNumEditBR, "CUSTO_TOT", TipoCampo::Valor},
    {&TItemPanel::DescontoItemNumEditBR, "DESCONTO", TipoCampo::Valor},
    {&TItemPanel::PrecoAtualNumEditBR, "PRECO_ATUAL", TipoCampo::Valor},
    {&TItemPanel::PrecoPromoNumEditBR, "PRECO_promo", TipoCampo::Valor},
    {&TItemPanel::MargemNumEditBR, "margem", TipoCampo::Valor},
    {&TItemPanel::CSTNumEditBR, "cst", TipoCampo::Codigo},
    {&TItemPanel::OrigMercNumEditBR, "origem_merc", TipoCampo::Codigo},
    {&TItemPanel::modBCNumEditBR, "icms_bc_mod", TipoCampo::Codigo},
    {&TItemPanel::vBCNumEditBR, "icms_bc_val", TipoCampo::Valor},
    {&TItemPanel::pICMSNumEditBR, "icms_perc", TipoCampo::Valor},
    {&TItemPanel::vICMSNumEditBR, "ICMS_VAL", TipoCampo::Valor},
    {&TItemPanel::pRedBCNumEditBR, "icms_perc_red", TipoCampo::Valor},
    {&TItemPanel::modBCSTNumEditBR, "icms_st_bc_mod", TipoCampo::Codigo},
    {&TItemPanel::pMVASTNumEditBR, "icms_st_perc_ad", TipoCampo::Valor},
    {&TItemPanel::pRedBCSTNumEditBR, "icms_st_perc_red", TipoCampo::Valor},
    {&TItemPanel::vBCSTNumEditBR, "icms_st_bc_val", TipoCampo::Valor},
    {&TItemPanel::pICMSSTNumEditBR, "icms_st_perc", TipoCampo::Valor},
    {&TItemPanel::vICMSSTNumEditBR, "ICMS_st_VAL", TipoCampo::Valor},
    {&TItemPanel::vBCFCPNumEditBR, "icms_vBCFCP", TipoCampo::Valor},
    {&TItemPanel::pFCPNumEditBR, "icms_pFCP", TipoCampo::Valor},
    {&TItemPanel::vFCPNumEditBR, "TRIB_icms_vFCP", TipoCampo::Valor},
    {&TItemPanel::vBCFCPSTNumEditBR, "icms_vBCFCPST", TipoCampo::Valor},
    {&TItemPanel::pFCPSTNumEditBR, "icms_pFCPST", TipoCampo::Valor},
    {&TItemPanel::vFCPSTNumEditBR, "TRIB_icms_vFCPST", TipoCampo::Valor},
    {&TItemPanel::TribIcmsvBCSTRet_NumEditBR, "TRIB_ICMS_VBCSTRET", TipoCampo::Valor},
    {&TItemPanel::TribIcmspST_NumEditBR, "TRIB_ICMS_PST", TipoCampo::Valor},
    {&TItemPanel::TribIcmsvICMSSubstituto_NumEditBR, "TRIB_ICMS_VICMSSUBSTITUTO", TipoCampo::Valor},
    {&TItemPanel::TribIcmsvICMSSTRet_NumEditBR, "TRIB_ICMS_VICMSSTRET", TipoCampo::Valor},
    {&TItemPanel::CstPisNumEditBR, "CST_PIS", TipoCampo::Codigo},
    {&TItemPanel::pPisNumEditBR, "PPIS", TipoCampo::Valor},
    {&TItemPanel::vPisNumEditBR, "VPIS", TipoCampo::Valor},
    {&TItemPanel::CstCofinsNumEditBR, "CST_COFINS", TipoCampo::Codigo},
    {&TItemPanel::pCofinsNumEditBR, "PCOFINS", TipoCampo::Valor},
    {&TItemPanel::vCofinsNumEditBR, "VCOFINS", TipoCampo::Valor},
};

// The tax fields, cleared with every item.
constexpr TNumEditBR *(TItemPanel::*ControlesImposto[])() const = {
    &TItemPanel::CFOPItemNumEditBR, &TItemPanel::CSTNumEditBR, &TItemPanel::OrigMercNumEditBR,
    &TItemPanel::modBCNumEditBR, &TItemPanel::vBCNumEditBR, &TItemPanel::pICMSNumEditBR,
    &TItemPanel::vICMSNumEditBR, &TItemPanel::pRedBCNumEditBR, &TItemPanel::modBCSTNumEditBR,
    &TItemPanel::pMVASTNumEditBR, &TItemPanel::pRedBCSTNumEditBR, &TItemPanel::vBCSTNumEditBR,
    &TItemPanel::pICMSSTNumEditBR, &TItemPanel::vICMSSTNumEditBR, &TItemPanel::vBCFCPNumEditBR,
    &TItemPanel::pFCPNumEditBR, &TItemPanel::vFCPNumEditBR, &TItemPanel::vBCFCPSTNumEditBR,
    &TItemPanel::pFCPSTNumEditBR, &TItemPanel::vFCPSTNumEditBR, &TItemPanel::TribIcmsvBCSTRet_NumEditBR,
    &TItemPanel::TribIcmspST_NumEditBR, &TItemPanel::TribIcmsvICMSSubstituto_NumEditBR,
    &TItemPanel::TribIcmsvICMSSTRet_NumEditBR, &TItemPanel::CstPisNumEditBR, &TItemPanel::pPisNumEditBR,
    &TItemPanel::vPisNumEditBR, &TItemPanel::CstCofinsNumEditBR, &TItemPanel::pCofinsNumEditBR,
    &TItemPanel::vCofinsNumEditBR,
};

QString Digitos(const QString &texto)
{
    QString d;
    for (const QChar c : texto)
        if (c >= u'0' && c <= u'9')
            d.append(c);
    return d;
}

void SelecionarCodigo(QComboBox *combo, const TField &campo)
{
    combo->setCurrentIndex(campo.IsNull() ? -1 : combo->findData(campo.AsInteger()));
}

void GravarCombo(const QComboBox *combo, TField &codigo, TField &texto)
{
    if (combo->currentIndex() < 0) {
        codigo.Clear();
        texto.Clear();
        return;
    }
    codigo.SetAsInteger(combo->currentData().toInt());
    texto.SetAsString(combo->currentText());
}

} // namespace

void TItemNota::ControlesParaCamposNotaItem()
{
    TItemPanel &p = m_panel;
    TClientDataSet &ds = m_tela.ItensNota();
    for (const CampoItem &c : CamposItem) {
        TField *campo = ds.FindField(QLatin1String(c.coluna));
        if (!campo)
            continue;
        const TNumEditBR *edit = (p.*c.edit)();
        switch (c.tipo) {
        case TipoCampo::Valor: campo->SetAsMoney(edit->AsMoney()); break;
        case TipoCampo::Codigo: campo->SetAsInteger(int(edit->Value())); break;
        case TipoCampo::Quantidade: campo->SetAsFloat(edit->Value()); break;
        }
    }
    ds.FieldByName(QStringLiteral("PROD_COD_DELES")).SetAsString(p.ProdCodDelesLabeledEdit()->text().trimmed());
    ds.FieldByName(QStringLiteral("prod_DESCR")).SetAsString(p.ProdDescrLabeledEdit()->text().trimmed());
    ds.FieldByName(QStringLiteral("ncm")).SetAsString(Digitos(p.NCMMaskEdit()->text()));
    TField &cfop = ds.FieldByName(QStringLiteral("cfop"));
    if (p.CFOPItemNumEditBR()->Value() > 0)
        cfop.SetAsString(QString::number(int(p.CFOPItemNumEditBR()->Value())));
    else
        cfop.Clear();
    GravarCombo(p.UnidComboBox(), ds.FieldByName(QStringLiteral("unid_cod")), ds.FieldByName(QStringLiteral("unid_sigla")));
    GravarCombo(p.TribComboBox(), ds.FieldByName(QStringLiteral("trib_cod")), ds.FieldByName(QStringLiteral("trib_str")));
    for (const TNumEditBR *preco : m_tela.PrecoEdits())
        if (TField *campo = ds.FindField(TClientManager2_CreateFields::CampoPreco(preco->property("tab_preco_cod").toInt())))
            campo->SetAsMoney(preco->AsMoney());

    const TCustoItem custo = TRepF_CalculePreco::CalculeCusto(p.CustoTotItemNumEditBR()->AsMoney(),
                                                              p.DescontoItemNumEditBR()->AsMoney(),
                                                              p.QtdCompradaNumEditBR()->Value());
    ds.FieldByName(QStringLiteral("CUSTO")).SetAsMoney(custo.custo);
    if (custo.custoUnit)
        ds.FieldByName(QStringLiteral("CUSTO_unit")).SetAsMoney(*custo.custoUnit);
}

void TItemNota::CamposParaControlesNotaItem()
{
    TItemPanel &p = m_panel;
    TClientDataSet &ds = m_tela.ItensNota();
    {
        const QScopedValueRollback carregando(m_carregando, true);
        // The product's master data first; the item's own values then take their place.
        const int prodCod = ds.FieldByName(QStringLiteral("PROD_COD")).AsInteger();
        if (prodCod > 0) {
            TBuscaProd busca(m_conexao, emprCod());
            if (const auto dados = busca.PreencherProd(prodCod))
                preencherDoMestre(*dados);
            else if (!busca.Erro().isEmpty())
                MensagemErro(QStringLiteral("Erro lendo o produto: ") + busca.Erro());
        }
        for (const CampoItem &c : CamposItem) {
            const TField *campo = ds.FindField(QLatin1String(c.coluna));
            if (!campo)
                continue;
            TNumEditBR *edit = (p.*c.edit)();
            if (c.tipo == TipoCampo::Valor)
                edit->SetMoney(campo->AsMoney());
            else
                edit->SetValue(campo->AsFloat());
        }
        p.ProdCodDelesLabeledEdit()->setText(ds.FieldByName(QStringLiteral("PROD_COD_DELES")).AsString());
        p.ProdDescrLabeledEdit()->setText(ds.FieldByName(QStringLiteral("prod_DESCR")).AsString());
        p.NCMMaskEdit()->setText(ds.FieldByName(QStringLiteral("ncm")).AsString().trimmed());
        p.CFOPItemNumEditBR()->SetValue(StrToIntStr(ds.FieldByName(QStringLiteral("cfop")).AsString()).toInt());
        SelecionarCodigo(p.UnidComboBox(), ds.FieldByName(QStringLiteral("unid_cod")));
        SelecionarCodigo(p.TribComboBox(), ds.FieldByName(QStringLiteral("trib_cod")));
        for (TNumEditBR *preco : m_tela.PrecoEdits())
            if (const TField *campo = ds.FindField(TClientManager2_CreateFields::CampoPreco(preco->property("tab_preco_cod").toInt())))
                preco->SetMoney(campo->AsMoney());
        if (!m_tela.PrecoEdits().isEmpty())
            p.PrecoNumEditBR()->SetMoney(m_tela.PrecoEdits().first()->AsMoney());
        p.BuscaLabeledEdit()->clear();
    }
    Calcule(true);
}

void TItemNota::PrecoUltimoEditBRKeyDown()
{
    TItemPanel &p = m_panel;
    if (m_tela.ItemState() == TDataSetState::Browse || !NCMAceito())
        return;
    if (tipo() != TipoDoc::NotaComplementar && m_tela.ProducCustoExige()
        && p.CustoTotItemNumEditBR()->AsMoney() < Money::fromRaw(100)) {
        recusar(p.CustoTotItemNumEditBR(), MensagemInfo, QStringLiteral("O custo total do item é obrigatório"));
        return;
    }
    if (!QtdEmbsAceito() || !EmbQtdAceito() || !m_tela.TotProdAceito())
        return;
    const bool feito = m_tela.ItemState() == TDataSetState::Insert ? Inserir() : AtualizarItem();
    if (!feito)
        return;
    ZerarItem();
    ZerarProd();
    focarInicioItem(true);
}

bool TItemNota::Inserir()
{
    if (!ProdAceito() || !m_tela.CabecParaItemAceito())
        return false;
    const int codigo = TCompraItemTmpDBI::ProximoGenerator();
    if (codigo <= 0) {
        MensagemErro(QStringLiteral("Erro obtendo o código do item: ") + TConexD::Conexao().UltimoErro());
        return false;
    }
    TClientDataSet &ds = m_tela.ItensNota();
    const int campoOrdem = ds.FieldByName(QStringLiteral("ordem")).Index();
    int ordem = 0;
    for (int linha = 0; linha < ds.RecordCount(); ++linha)
        ordem = std::max(ordem, ds.ValueAt(linha, campoOrdem).toInt());
    ds.Append();
    ds.FieldByName(QStringLiteral("COMPRA_ITEM_TMP_COD")).SetAsInteger(codigo);
    ds.FieldByName(QStringLiteral("ordem")).SetAsInteger(ordem + 1);
    ControlesParaCamposNotaItem();
    // Posting sums the note's totals again (the screen listens to the list).
    ds.Post();
    GravarProd();
    ZerarItem();
    ZerarProd();
    return true;
}

bool TItemNota::AtualizarItem()
{
    TClientDataSet &ds = m_tela.ItensNota();
    // The grid's cursor may have moved since the item was opened: the row altered is that one.
    if (m_itemEditado.IsNull() || !ds.GotoBookmark(m_itemEditado)) {
        m_tela.SetItemState(TDataSetState::Insert);
        return Inserir();
    }
    GravarProd();
    ds.Edit();
    ControlesParaCamposNotaItem();
    ds.Post();
    m_itemEditado = TBookmark();
    m_tela.SetItemState(TDataSetState::Insert);
    focarInicioItem(false);
    return true;
}

void TItemNota::EditarItem()
{
    if (m_tela.CabecState() == TDataSetState::Browse)
        return;
    // A note being inserted is not the list's current note, posted or not.
    if (m_tela.NotaAtualBaixada() && m_tela.CabecState() != TDataSetState::Insert) {
        MensagemErro(QStringLiteral("A nota já foi baixada"));
        return;
    }
    TClientDataSet &ds = m_tela.ItensNota();
    if (ds.IsEmpty())
        return;
    m_prodLista->Esconder();
    CamposParaControlesNotaItem();
    m_itemEditado = ds.GetBookmark();
    focar(m_panel.BuscaLabeledEdit());
    m_tela.SetItemState(TDataSetState::Edit);
}

void TItemNota::ExcluirItem()
{
    const TDataSetState cabec = m_tela.CabecState();
    if (cabec == TDataSetState::Browse)
        return;
    if (m_tela.NotaAtualBaixada() && cabec != TDataSetState::Insert) {
        MensagemInfo(QStringLiteral("A nota já foi baixada. O item não pode ser excluido"));
        return;
    }
    focarInicioItem(false);
    TClientDataSet &ds = m_tela.ItensNota();
    if (ds.IsEmpty()) {
        MensagemInfo(QStringLiteral("Não há item visível a excluir"));
        return;
    }
    if (!PerguntaDeletar())
        return;
    // A new note's items live only on the screen; a stored note's go from the database at once.
    if (cabec == TDataSetState::Edit) {
        const QStringList sql = TItemNotaDBI::SqlExcluirItem(m_tela.NotaEmprCod(),
                                               ds.FieldByName(QStringLiteral("COMPRA_ITEM_TMP_COD")).AsInteger(),
                                               m_tela.NotaEstacaoCod());
        if (!TConexD::Executar(sql.at(0))) {
            MensagemErro(QStringLiteral("Erro excluindo o item: ") + TConexD::Conexao().UltimoErro());
            return;
        }
        // The item itself is gone; its price rows failing to go is reported and the row goes.
        if (!TConexD::Executar(sql.at(1)))
            MensagemErro(QStringLiteral("Erro excluindo os preços do item: ") + TConexD::Conexao().UltimoErro());
    }
    const bool eraOEditado = !m_itemEditado.IsNull() && ds.GetBookmark() == m_itemEditado;
    ds.Delete();
    if (eraOEditado) {
        ZerarItem();
        ZerarProd();
    }
}

void TItemNota::focarInicioItem(bool locacaoTambem)
{
    const int indice = indiceTipo();
    const bool pelaBusca = indice == TipoDoc::PorCodigo(TipoDoc::Producao)->indice
                           || (locacaoTambem && indice == TipoDoc::PorCodigo(TipoDoc::RetornoLocacao)->indice);
    focar(pelaBusca ? static_cast<QWidget *>(m_panel.BuscaLabeledEdit()) : m_panel.ProdCodDelesLabeledEdit());
}

void TItemNota::Zerar()
{
    m_panel.ProdCodDelesLabeledEdit()->clear();
    m_panel.BuscaLabeledEdit()->clear();
    m_prodLista->Esconder();
}

void TItemNota::ZerarProd()
{
    TItemPanel &p = m_panel;
    const QScopedValueRollback carregando(m_carregando, true);
    p.ProdCodNumEditBR()->SetValue(0);
    p.ProdDescrLabeledEdit()->clear();
    p.UnidComboBox()->setCurrentIndex(-1);
    p.TribComboBox()->setCurrentIndex(-1);
    p.EmbQtdNumEditBR()->SetValue(1.0);
    for (TNumEditBR *campo : {p.pIPINumEditBR(), p.CustoAtualNumEditBR(), p.CustoNumEditBR(), p.PrecoAtualNumEditBR(),
                              p.PrecoPromoNumEditBR(), p.MargemNumEditBR(), p.PrecoNumEditBR()})
        campo->SetValue(0);
    for (TNumEditBR *preco : m_tela.PrecoEdits())
        preco->SetValue(0);
    p.NCMMaskEdit()->clear();
    m_ncmLido.clear();
    ZerarCombos();
    CalculeQtd();
}

void TItemNota::ZerarItem()
{
    TItemPanel &p = m_panel;
    {
        const QScopedValueRollback carregando(m_carregando, true);
        for (auto controle : ControlesImposto)
            (p.*controle)()->SetValue(0);
        p.ProdCodDelesLabeledEdit()->clear();
        p.BuscaLabeledEdit()->clear();
        for (TNumEditBR *campo : {p.CustoTotItemNumEditBR(), p.DescontoItemNumEditBR(), p.vIPINumEditBR(),
                                  p.OutrasItemNumEditBR(), p.FreteItemNumEditBR(), p.SeguroItemNumEditBR()})
            campo->SetValue(0);
        p.QtdEmbsNumEditBR()->SetValue(1.0);
        p.NCMMaskEdit()->clear();
        p.ProdDescrLabeledEdit()->clear();
        ZerarCombos();
        CalculeQtd();
    }
    // An item being altered is left: the next one is a new item.
    m_itemEditado = TBookmark();
    if (m_tela.ItemState() == TDataSetState::Edit)
        m_tela.SetItemState(TDataSetState::Insert);
    if (!m_escape)
        focarInicioItem(true);
    m_escape = false;
}

// Empties the panel without moving the focus.
void TItemNota::limpar()
{
    const bool escape = m_escape;
    m_escape = true;
    Zerar();
    ZerarProd();
    ZerarItem();
    m_escape = escape;
}
