#include "TImportItensDados.h"

#include "TConexaoSQL.h"
#include "TNfeChaveUsoDBI.h"
#include "UProdConsulta.h"
#include "Valores.h"

#include <QScopeGuard>

#include <algorithm>

namespace {

const QString FmtQtd = QStringLiteral("######0.###");
const QString FmtDinheiro = QStringLiteral("#######0.00");
const QString FmtTaxa = QStringLiteral("#0.00");

using T = TFieldType;

// The tax columns, the same in both lists: the origin's field, the destination's field.
// Money is taken in proportion to the quantity returned; rates, modes and codes are copied.
struct ColunaTributo
{
    const char *origem;
    const char *destino;
    T tipo;
    const char *titulo;
};

const ColunaTributo Tributos[] = {
    {"outras", "OUTRAS", T::Money, "Outras"},
    {"frete", "FRETE", T::Money, "Frete R$"},
    {"seguro", "SEGURO", T::Money, "Seguro R$"},
    {"cst", "CST", T::Integer, "CST"},
    {"cfop", "CFOP", T::Integer, "CFOP"},
    {"ncm", "NCM", T::String, "NCM"},
    {"pipi", "PIPI", T::Float, "IPI%"},
    {"vipi", "VIPI", T::Money, "IPI R$"},
    {"icms_perc", "ICMS_PERC", T::Float, "ICMS%"},
    {"ICMS_VAL", "ICMS_VAL", T::Money, "ICMS R$"},
    {"icms_st_perc", "ICMS_ST_PERC", T::Float, "ICMS ST%"},
    {"ICMS_st_VAL", "ICMS_ST_VAL", T::Money, "ICMS ST R$"},
    {"icms_st_perc_ad", "ICMS_ST_PERC_AD", T::Float, "ICMS ST% Ad"},
    {"icms_st_perc_red", "ICMS_ST_PERC_RED", T::Float, "ICMS %BC ST Red"},
    {"icms_perc_red", "ICMS_PERC_RED", T::Float, "ICMS %BC Red"},
    {"ICMS_bc_VAL", "ICMS_BC_VAL", T::Money, "BC ICMS R$"},
    {"ICMS_st_bc_VAL", "ICMS_ST_BC_VAL", T::Money, "BC ICMS ST R$"},
    {"icms_bc_mod", "ICMS_BC_MOD", T::Integer, "Mod.BC ICMS"},
    {"icms_st_bc_mod", "ICMS_ST_BC_MOD", T::Integer, "Mod.BC ICMS ST"},
    {"origem_merc", "ORIGEM_MERC", T::Integer, "Origem Merc"},
    {"icms_vBCFCP", "ICMS_VBCFCP", T::Money, "BC FCP R$"},
    {"icms_pFCP", "ICMS_PFCP", T::Float, "FCP %"},
    {"TRIB_icms_vFCP", "TRIB_ICMS_VFCP", T::Money, "FCP R$"},
    {"icms_vBCFCPST", "ICMS_VBCFCPST", T::Money, "BC ST FCP R$"},
    {"icms_pFCPST", "ICMS_PFCPST", T::Float, "FCP ST %"},
    {"TRIB_icms_vFCPST", "TRIB_ICMS_VFCPST", T::Money, "FCP ST R$"},
};

QString FormatoDe(T tipo)
{
    switch (tipo) {
    case T::Money: return FmtDinheiro;
    case T::Float: return FmtTaxa;
    case T::Integer: return QString();
    default: break;
    }
    return QString();
}

void AdicionarTributos(TClientDataSet &ds, bool destino)
{
    for (const ColunaTributo &c : Tributos) {
        const QString formato = QLatin1String(c.origem) == QLatin1String("cst") ? QStringLiteral("0000") : FormatoDe(c.tipo);
        ds.AddField(QLatin1String(destino ? c.destino : c.origem), c.tipo, QString::fromUtf8(c.titulo), formato);
    }
}

// The item's tax values, in the order of Tributos.
QList<QVariant> ValoresTributos(const TItem &item)
{
    const TNFeICMS &icms = item.ICMS;
    const auto m = [](Money v) { return QVariant::fromValue(v); };
    // A Simples Nacional item has a CSOSN in place of the CST.
    const int cst = (icms.CSOSN.isEmpty() ? icms.CST : icms.CSOSN).toInt();
    return {m(item.vOutro), m(item.vFrete), m(item.vSeg), cst, item.CFOP.toInt(), item.NCM,
            item.IPI.pIPI, m(item.IPI.vIPI), icms.pICMS, m(icms.vICMS), icms.pICMSST, m(icms.vICMSST),
            icms.pMVAST, icms.pRedBCST, icms.pRedBC, m(icms.vBC), m(icms.vBCST), icms.modBC, icms.modBCST,
            icms.orig, m(icms.vBCFCP), icms.pFCP, m(icms.vFCP), m(icms.vBCFCPST), icms.pFCPST, m(icms.vFCPST)};
}

// A GTIN is digits; "SEM GTIN" stands for none, and then the taxable unit's code may have one.
QString CodigoBarras(const TItem &item)
{
    const QString ean = item.cEAN.trimmed();
    if (!ean.isEmpty() && ean.compare(QLatin1String("SEM GTIN"), Qt::CaseInsensitive) != 0)
        return ean;
    const QString trib = item.cEANTrib.trimmed();
    return trib.compare(QLatin1String("SEM GTIN"), Qt::CaseInsensitive) == 0 ? QString() : trib;
}

// `valor` taken for the returned part; the whole quantity keeps the origin's value exactly.
Money Proporcional(Money valor, double qtdDev, double qtdOrig)
{
    if (qtdDev == qtdOrig || qtdOrig == 0)
        return valor;
    return Money::fromDouble(RoundTo(valor.toDouble() * qtdDev / qtdOrig, 2));
}

} // namespace

QHash<QString, QVariant> TributosDoItem(const TItem &item)
{
    const QList<QVariant> valores = ValoresTributos(item);
    QHash<QString, QVariant> porColuna;
    for (qsizetype i = 0; i < valores.size(); ++i)
        porColuna.insert(QLatin1String(Tributos[i].destino), valores[i]);
    return porColuna;
}

TImportItensDados::TImportItensDados(TConexaoSQL &conexao, int fornecCod)
    : m_conexao(conexao), m_fornecCod(fornecCod)
{
    m_origem.setObjectName(QStringLiteral("ItensOrigem"));
    m_destino.setObjectName(QStringLiteral("ItensDestino"));
    CriarCamposOrigem();
    CriarCamposDestino();
}

TImportItensDados::~TImportItensDados() = default;

void TImportItensDados::CriarCamposOrigem()
{
    TClientDataSet &o = m_origem;
    o.AddField(QStringLiteral("doc_num"), T::Integer, QStringLiteral("Nota"));
    o.AddField(QStringLiteral("nitem"), T::Integer, QStringLiteral("Item"));
    o.AddField(QStringLiteral("prod_cod_deles"), T::String, QStringLiteral("Cód.Fornec"));
    o.AddField(QStringLiteral("descr_deles"), T::String, QStringLiteral("Descr.Fornec"), {}, true, 30);
    o.AddField(QStringLiteral("qtd_orig"), T::Float, QStringLiteral("Qtd"), FmtQtd);
    o.AddField(QStringLiteral("qtd_dev"), T::Float, QStringLiteral("Qtd.Dev"), FmtQtd);
    o.AddField(QStringLiteral("bar_cod"), T::String, QStringLiteral("Cód.Barras"));
    o.AddField(QStringLiteral("prod_cod"), T::Integer, QStringLiteral("Cód.Prod"));
    o.AddField(QStringLiteral("prod_descr"), T::String, QStringLiteral("Descrição"), {}, true, 30);
    o.AddField(QStringLiteral("PROD_FABR_COD"), T::Integer, {}, {}, false);
    o.AddField(QStringLiteral("prod_fabr_nome"), T::String, QStringLiteral("Fabricante"));
    o.AddField(QStringLiteral("UNID_COD"), T::Integer, {}, {}, false);
    o.AddField(QStringLiteral("UNID_SIGLA"), T::String, QStringLiteral("Unid"));
    o.AddField(QStringLiteral("custo_unit"), T::Float, QStringLiteral("Custo Unit"), QStringLiteral("######0.####"));
    o.AddField(QStringLiteral("desconto"), T::Money, QStringLiteral("Desconto"), FmtDinheiro);
    o.AddField(QStringLiteral("custo_tot"), T::Money, QStringLiteral("Custo Tot (CT)"), FmtDinheiro);
    AdicionarTributos(o, false);
    o.Open();
}

void TImportItensDados::CriarCamposDestino()
{
    TClientDataSet &d = m_destino;
    const QString total = QStringLiteral("#,###,##0.00");
    d.AddField(QStringLiteral("ORDEM"), T::Integer, QStringLiteral("Ordem"));
    // Supplier codes may hold letters, so the field stays text and the pattern shows only on digits.
    d.AddField(QStringLiteral("PROD_COD_DELES"), T::String, QStringLiteral("Cód.no Fornec"), QStringLiteral("0000000"));
    d.AddField(QStringLiteral("PROD_COD"), T::Integer, QStringLiteral("Código"));
    d.AddField(QStringLiteral("PROD_DESCR"), T::String, QStringLiteral("Descrição"), {}, true, 30);
    d.AddField(QStringLiteral("PROD_FABR_COD"), T::Integer, {}, {}, false);
    d.AddField(QStringLiteral("PROD_FABR_NOME"), T::String, QStringLiteral("Fabricante"));
    d.AddField(QStringLiteral("QTD"), T::Float, QStringLiteral("QTD (Q)"), FmtQtd);
    d.AddField(QStringLiteral("CUSTO_TOT"), T::Money, QStringLiteral("Custo Tot (CT)"), total);
    d.AddField(QStringLiteral("DESCONTO"), T::Money, QStringLiteral("Desconto (D)"), total);
    d.AddField(QStringLiteral("CUSTO"), T::Money, QStringLiteral("Custo do Item (C = CT - D)"), total);
    d.AddField(QStringLiteral("CUSTO_UNIT"), T::Money, QStringLiteral("Custo Unit. (C ÷ Q)"), QStringLiteral("#,###,##0.0000"));
    AdicionarTributos(d, true);
    d.Open();
}

void TImportItensDados::AdicionarDocumento(std::unique_ptr<TnfeProc> documento)
{
    if (documento)
        m_documentos.push_back(std::move(documento));
}

bool TImportItensDados::PreencherItensOrigem()
{
    m_erro.clear();
    m_notas.clear();
    m_origem.DisableControls();
    m_origem.EmptyDataSet();
    // One attachment for every look-up of the fill.
    const bool conectou = m_conexao.Conectar();
    const auto fim = qScopeGuard([&] {
        if (conectou)
            m_conexao.Desconectar();
        m_origem.EnableControls();
        m_origem.First();
        PreencherItensDestino();
    });
    if (!conectou) {
        m_erro = m_conexao.UltimoErro();
        return false;
    }
    TNfeChaveUsoDBI dbi(m_conexao);
    for (const auto &doc : m_documentos) {
        m_notas.push_back({doc->ide.nNF, doc->ide.dhEmi.date(), doc->ICMSTot.vNF, doc->chave});
        int fornec = m_fornecCod;
        if (m_fornecPeloEmitente) {
            fornec = dbi.FornecDoDocumento(doc->emitente.CNPJ.isEmpty() ? doc->emitente.CPF : doc->emitente.CNPJ);
            if (!dbi.Erro().isEmpty()) {
                m_erro = dbi.Erro();
                return false;
            }
        }
        AdicionarItens(*doc, fornec);
        if (!m_erro.isEmpty())
            return false;
    }
    return true;
}

void TImportItensDados::AdicionarItens(const TnfeProc &documento, int fornecCod)
{
    const TItemList &itens = documento.ItemList();
    for (int i = 0; i < itens.Count(); ++i) {
        const TItem &item = itens.GetItem(i);
        const QString barras = CodigoBarras(item);
        std::optional<TProdDescr> prod = FornecCToProdDescr(m_conexao, fornecCod, item.cProd);
        if (prod && prod->prodCod == 0)
            prod = BarCodToProdDescr(m_conexao, barras);
        if (!prod) {
            m_erro = QStringLiteral("Não foi possível procurar o produto do item %1 da NF-e %2: %3")
                         .arg(item.nItem).arg(documento.ide.nNF).arg(m_conexao.UltimoErro());
            return;
        }
        if (prod->prodCod == 0)
            prod->descr = NaoLocalizado;

        m_origem.Append();
        const QList<QVariant> cabeca = {QVariant::fromValue(documento.ide.nNF), item.nItem, item.cProd, item.xProd,
                                        item.qCom, 0.0, barras, prod->prodCod, prod->descr, prod->fabrCod,
                                        prod->fabrNome, prod->unidCod, prod->unidSigla, item.vUnCom,
                                        QVariant::fromValue(item.vDesc), QVariant::fromValue(item.vProd)};
        const QList<QVariant> valores = cabeca + ValoresTributos(item);
        for (int f = 0; f < valores.size(); ++f)
            m_origem.Fields(f).SetValue(valores[f]);
        m_origem.Post();
    }
}

void TImportItensDados::PreencherItensDestino()
{
    m_destino.DisableControls();
    m_destino.EmptyDataSet();
    int ordem = 0;
    for (int linha = 0; linha < m_origem.RecordCount(); ++linha) {
        const auto valor = [&](const char *campo) { return m_origem.ValueAt(linha, m_origem.FieldByName(QLatin1String(campo)).Index()); };
        const double qtdDev = valor("qtd_dev").toDouble();
        const double qtdOrig = valor("qtd_orig").toDouble();
        if (qtdDev <= 0)
            continue;
        const auto parte = [&](const char *campo) { return Proporcional(valor(campo).value<Money>(), qtdDev, qtdOrig); };
        m_destino.Append();
        const auto campo = [&](const char *nome) -> TField & { return m_destino.FieldByName(QLatin1String(nome)); };
        campo("ORDEM").SetAsInteger(++ordem);
        campo("PROD_COD_DELES").SetValue(valor("prod_cod_deles"));
        campo("PROD_COD").SetValue(valor("prod_cod"));
        campo("PROD_DESCR").SetValue(valor("prod_descr"));
        campo("PROD_FABR_COD").SetValue(valor("PROD_FABR_COD"));
        campo("PROD_FABR_NOME").SetValue(valor("prod_fabr_nome"));
        campo("QTD").SetAsFloat(qtdDev);
        const Money custoTot = parte("custo_tot");
        const Money desconto = parte("desconto");
        const Money custo = custoTot - desconto;
        campo("CUSTO_TOT").SetAsMoney(custoTot);
        campo("DESCONTO").SetAsMoney(desconto);
        campo("CUSTO").SetAsMoney(custo);
        campo("CUSTO_UNIT").SetAsMoney(Money::fromDouble(RoundTo(custo.toDouble() / qtdDev, 4)));
        for (const ColunaTributo &c : Tributos)
            campo(c.destino).SetValue(c.tipo == T::Money ? QVariant::fromValue(parte(c.origem)) : valor(c.origem));
        m_destino.Post();
    }
    m_destino.EnableControls();
    m_destino.First();
}

bool TImportItensDados::TemProduto(int linha) const
{
    return m_origem.ValueAt(linha, m_origem.FieldByName(QStringLiteral("prod_cod")).Index()).toInt() > 0;
}

bool TImportItensDados::SetQtdDev(int linha, double qtd)
{
    if (linha < 0 || linha >= m_origem.RecordCount() || !TemProduto(linha))
        return false;
    m_origem.SetRecNo(linha + 1);
    m_origem.Edit();
    const double maximo = m_origem.FieldByName(QStringLiteral("qtd_orig")).AsFloat();
    m_origem.FieldByName(QStringLiteral("qtd_dev")).SetAsFloat(std::clamp(qtd, 0.0, std::max(maximo, 0.0)));
    m_origem.Post();
    PreencherItensDestino();
    return true;
}

void TImportItensDados::DefinirQtdsDev(bool maximo)
{
    const TBookmark onde = m_origem.GetBookmark();
    m_origem.DisableControls();
    for (m_origem.First(); !m_origem.Eof(); m_origem.Next()) {
        const bool temProduto = m_origem.FieldByName(QStringLiteral("prod_cod")).AsInteger() > 0;
        // Clearing reaches every row; the whole quantity only rows tied to a product.
        if (maximo && !temProduto)
            continue;
        m_origem.Edit();
        m_origem.FieldByName(QStringLiteral("qtd_dev")).SetAsFloat(maximo ? m_origem.FieldByName(QStringLiteral("qtd_orig")).AsFloat() : 0.0);
        m_origem.Post();
    }
    m_origem.GotoBookmark(onde);
    m_origem.EnableControls();
    PreencherItensDestino();
}

void TImportItensDados::ZerarQtds() { DefinirQtdsDev(false); }
void TImportItensDados::QtdsMax() { DefinirQtdsDev(true); }
