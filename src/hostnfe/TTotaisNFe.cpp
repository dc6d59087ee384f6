#include "TTotaisNFe.h"

#include "TnfeProc.h"

namespace TTotaisNFe {

namespace {
// Groups whose vBC and vICMS are the item's own ICMS.
bool IcmsProprio(const QString &grupo)
{
    static const QStringList proprios{"ICMS00", "ICMS10", "ICMS20", "ICMS51", "ICMS70", "ICMS90", "ICMSPart", "ICMSSN900"};
    return proprios.contains(grupo);
}
} // namespace

void Totalizar(TnfeProc &nfe)
{
    TNFeICMSTot t;
    TNFeIBSCBSTot r;
    for (int i = 0; i < nfe.itens.Count(); ++i) {
        const TItem &it = nfe.itens.GetItem(i);
        if (IcmsProprio(it.ICMS.grupo)) {
            t.vBC += it.ICMS.vBC;
            t.vICMS += it.ICMS.vICMS;
        }
        t.vFCP += it.ICMS.vFCP;
        t.vBCST += it.ICMS.vBCST;
        t.vST += it.ICMS.vICMSST;
        t.vFCPST += it.ICMS.vFCPST;
        t.vFCPSTRet += it.ICMS.vFCPSTRet;
        t.vProd += it.vProd;
        t.vFrete += it.vFrete;
        t.vSeg += it.vSeg;
        t.vDesc += it.vDesc;
        t.vOutro += it.vOutro;
        t.vIPI += it.IPI.presente ? it.IPI.vIPI : Money();
        t.vIPIDevol += it.vIPIDevol;
        t.vPIS += it.PIS.valor;
        t.vCOFINS += it.COFINS.valor;
        t.vTotTrib += it.vTotTrib;
        if (it.IBSCBS.presente) {
            r.presente = true;
            r.vBCIBSCBS += it.IBSCBS.vBC;
            r.vIBSUF += it.IBSCBS.vIBSUF;
            r.vIBSMun += it.IBSCBS.vIBSMun;
            r.vIBS += it.IBSCBS.vIBS;
            r.vCBS += it.IBSCBS.vCBS;
        }
    }
    t.vNF = t.vProd - t.vDesc + t.vST + t.vFCPST + t.vFrete + t.vSeg + t.vOutro + t.vII + t.vIPI + t.vIPIDevol;
    nfe.ICMSTot = t;
    nfe.IBSCBSTot = r;
}

Money TotalDaNota(const TNFeICMSTot &t, bool somarIPI)
{
    const Money soma = t.vProd - t.vDesc + t.vST + t.vOutro + t.vFrete + t.vSeg + t.vFCP + t.vFCPST;
    return (somarIPI ? soma + t.vIPI + t.vIPIDevol : soma).roundTo(2);
}

} // namespace TTotaisNFe
