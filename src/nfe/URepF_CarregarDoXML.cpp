#include "URepF_CarregarDoXML.h"

#include "Dialogos.h"
#include "TNFe_XMLI.h"
#include "TProgresso.h"
#include "UDigitadorItens.h"

#include <QHash>

namespace {

QString Num(double valor)
{
    return QString::number(valor, 'f', 4);
}

QString Num(Money valor)
{
    return valor.toString();
}

// The item's values under the columns the typing asks for.
QHash<QString, QString> ValoresDoItem(const TItem &item)
{
    const TNFeICMS &icms = item.ICMS;
    return {
        {QStringLiteral("PROD_COD"), item.cProd},
        {QStringLiteral("NCM"), item.NCM},
        {QStringLiteral("CFOP"), item.CFOP},
        {QStringLiteral("PIPI"), Num(item.IPI.pIPI)},
        {QStringLiteral("VIPI"), Num(item.IPI.vIPI)},
        {QStringLiteral("CST"), icms.CST.isEmpty() ? icms.CSOSN : icms.CST},
        {QStringLiteral("ORIGEM_MERC"), QString::number(icms.orig)},
        {QStringLiteral("QTD"), Num(item.qCom)},
        {QStringLiteral("CUSTO_TOT"), Num(item.vProd)},
        {QStringLiteral("DESCONTO"), Num(item.vDesc)},
        {QStringLiteral("OUTRAS"), Num(item.vOutro)},
        {QStringLiteral("FRETE"), Num(item.vFrete)},
        {QStringLiteral("SEGURO"), Num(item.vSeg)},
        {QStringLiteral("ICMS_BC_MOD"), QString::number(icms.modBC)},
        {QStringLiteral("ICMS_BC_VAL"), Num(icms.vBC)},
        {QStringLiteral("ICMS_PERC"), Num(icms.pICMS)},
        {QStringLiteral("ICMS_VAL"), Num(icms.vICMS)},
        {QStringLiteral("ICMS_ST_BC_MOD"), QString::number(icms.modBCST)},
        {QStringLiteral("ICMS_ST_PERC_AD"), Num(icms.pMVAST)},
        {QStringLiteral("ICMS_ST_PERC_RED"), Num(icms.pRedBCST)},
        {QStringLiteral("ICMS_ST_BC_VAL"), Num(icms.vBCST)},
        {QStringLiteral("ICMS_ST_PERC"), Num(icms.pICMSST)},
        {QStringLiteral("ICMS_ST_VAL"), Num(icms.vICMSST)},
        {QStringLiteral("ICMS_VBCFCP"), Num(icms.vBCFCP)},
        {QStringLiteral("ICMS_PFCP"), Num(icms.pFCP)},
        {QStringLiteral("TRIB_ICMS_VFCP"), Num(icms.vFCP)},
        {QStringLiteral("ICMS_VBCFCPST"), Num(icms.vBCFCPST)},
        {QStringLiteral("ICMS_PFCPST"), Num(icms.pFCPST)},
        {QStringLiteral("TRIB_ICMS_VFCPST"), Num(icms.vFCPST)},
    };
}

} // namespace

bool CarregarDoXML(const TTelaNota &Form, const QString &FileName, TProgresso &andamento)
{
    TnfeProc nfe;
    TNFe_XMLI leitor(nfe);
    if (!leitor.ImportarDoArq(FileName)) {
        MensagemErro(leitor.Erro());
        return false;
    }
    const TItemList &itens = nfe.ItemList();
    andamento.Exibir(QStringLiteral("Inserindo itens..."), itens.Count());
    TDigitadorItens digitador(Form);
    for (int i = 0; i < itens.Count(); ++i) {
        const QHash<QString, QString> valores = ValoresDoItem(itens.GetItem(i));
        digitador.DigitarLinha([&valores](const QString &coluna) { return valores.value(coluna); });
        andamento.PegarAtual(i + 1);
    }
    andamento.Fechar();
    return true;
}
