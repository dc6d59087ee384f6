#include "CamposNFe.h"

#include <QHash>

namespace CamposNFe {

namespace {
using L = QLatin1String;
constexpr int Taxa = 4;              // rates: the layout takes 2 to 4 decimals
constexpr int Qtd = 4;
constexpr int Unit = 10;
} // namespace

TCamposNFe<TNFeIde> Ide()
{
    using S = TNFeIde;
    static const TCampoNFe<S> t[] = {
        {L("cUF"), &S::cUF}, {L("cNF"), &S::cNF}, {L("natOp"), &S::natOp}, {L("mod"), &S::mod},
        {L("serie"), &S::serie}, {L("nNF"), &S::nNF}, {L("dhEmi"), &S::dhEmi}, {L("dhSaiEnt"), &S::dhSaiEnt},
        {L("dEmi"), &S::dhEmi, 0, {}, true}, {L("dSaiEnt"), &S::dhSaiEnt, 0, {}, true},
        {L("tpNF"), &S::tpNF}, {L("idDest"), &S::idDest},
        {L("cMunFG"), &S::cMunFG}, {L("tpImp"), &S::tpImp}, {L("tpEmis"), &S::tpEmis}, {L("cDV"), &S::cDV},
        {L("tpAmb"), &S::tpAmb}, {L("finNFe"), &S::finNFe}, {L("indFinal"), &S::indFinal},
        {L("indPres"), &S::indPres}, {L("indIntermed"), &S::indIntermed}, {L("procEmi"), &S::procEmi}, {L("verProc"), &S::verProc},
        {L("dhCont"), &S::dhCont}, {L("xJust"), &S::xJust},
    };
    return t;
}

TCamposNFe<TPess_Emit> Emit()
{
    using S = TPess_Emit;
    static const TCampoNFe<S> t[] = {
        {L("CNPJ"), &S::CNPJ}, {L("CPF"), &S::CPF}, {L("xNome"), &S::xNome}, {L("xFant"), &S::xFant},
        {L("IE"), &S::IE},     {L("IEST"), &S::IEST}, {L("IM"), &S::IM},      {L("CNAE"), &S::CNAE},
        {L("CRT"), &S::CRT},
    };
    return t;
}

TCamposNFe<TPess_Dest> Dest()
{
    using S = TPess_Dest;
    static const TCampoNFe<S> t[] = {
        {L("CNPJ"), &S::CNPJ}, {L("CPF"), &S::CPF}, {L("idEstrangeiro"), &S::idEstrangeiro},
        {L("xNome"), &S::xNome}, {L("indIEDest"), &S::indIEDest}, {L("IE"), &S::IE},
        {L("ISUF"), &S::ISUF}, {L("IM"), &S::IM}, {L("email"), &S::email},
    };
    return t;
}

TCamposNFe<TNFeEndereco> Endereco()
{
    using S = TNFeEndereco;
    static const TCampoNFe<S> t[] = {
        {L("xLgr"), &S::xLgr}, {L("nro"), &S::nro}, {L("xCpl"), &S::xCpl}, {L("xBairro"), &S::xBairro},
        {L("cMun"), &S::cMun}, {L("xMun"), &S::xMun}, {L("UF"), &S::UF},   {L("CEP"), &S::CEP},
        {L("cPais"), &S::cPais}, {L("xPais"), &S::xPais}, {L("fone"), &S::fone},
    };
    return t;
}

TCamposNFe<TItem> Prod()
{
    using S = TItem;
    static const TCampoNFe<S> t[] = {
        {L("cProd"), &S::cProd},   {L("cEAN"), &S::cEAN},     {L("xProd"), &S::xProd},
        {L("NCM"), &S::NCM},       {L("CEST"), &S::CEST},     {L("CFOP"), &S::CFOP},
        {L("uCom"), &S::uCom},     {L("qCom"), &S::qCom, Qtd}, {L("vUnCom"), &S::vUnCom, Unit},
        {L("vProd"), &S::vProd},   {L("cEANTrib"), &S::cEANTrib}, {L("uTrib"), &S::uTrib},
        {L("qTrib"), &S::qTrib, Qtd}, {L("vUnTrib"), &S::vUnTrib, Unit}, {L("vFrete"), &S::vFrete},
        {L("vSeg"), &S::vSeg},     {L("vDesc"), &S::vDesc},   {L("vOutro"), &S::vOutro},
        {L("indTot"), &S::indTot}, {L("xPed"), &S::xPed},     {L("nItemPed"), &S::nItemPed},
        {L("vTotTrib"), &S::vTotTrib, 2, L("imposto")},
        {L("pDevol"), &S::pDevol, 2, L("impostoDevol")},
        {L("vIPIDevol"), &S::vIPIDevol, 2, L("IPI")},
        {L("infAdProd"), &S::infAdProd, 0, L("det")},
    };
    return t;
}

TCamposNFe<TNFeICMS> ICMS()
{
    using S = TNFeICMS;
    static const TCampoNFe<S> t[] = {
        {L("orig"), &S::orig},
        {L("CST"), &S::CST},
        {L("CSOSN"), &S::CSOSN},
        {L("modBC"), &S::modBC},
        {L("pRedBC"), &S::pRedBC, Taxa},
        {L("cBenefRBC"), &S::cBenefRBC},
        {L("vBC"), &S::vBC},
        {L("pICMS"), &S::pICMS, Taxa},
        {L("vICMSOp"), &S::vICMSOp},
        {L("pDif"), &S::pDif, Taxa},
        {L("vICMSDif"), &S::vICMSDif},
        {L("vICMS"), &S::vICMS},
        {L("vBCFCP"), &S::vBCFCP},
        {L("pFCP"), &S::pFCP, Taxa},
        {L("vFCP"), &S::vFCP},
        {L("pFCPDif"), &S::pFCPDif, Taxa},
        {L("vFCPDif"), &S::vFCPDif},
        {L("vFCPEfet"), &S::vFCPEfet},
        {L("modBCST"), &S::modBCST},
        {L("pMVAST"), &S::pMVAST, Taxa},
        {L("pRedBCST"), &S::pRedBCST, Taxa},
        {L("vBCST"), &S::vBCST},
        {L("pICMSST"), &S::pICMSST, Taxa},
        {L("vICMSST"), &S::vICMSST},
        {L("vBCFCPST"), &S::vBCFCPST},
        {L("pFCPST"), &S::pFCPST, Taxa},
        {L("vFCPST"), &S::vFCPST},
        {L("pBCOp"), &S::pBCOp, Taxa},
        {L("UFST"), &S::UFST},
        {L("vBCSTRet"), &S::vBCSTRet},
        {L("pST"), &S::pST, Taxa},
        {L("vICMSSubstituto"), &S::vICMSSubstituto},
        {L("vICMSSTRet"), &S::vICMSSTRet},
        {L("vBCFCPSTRet"), &S::vBCFCPSTRet},
        {L("pFCPSTRet"), &S::pFCPSTRet, Taxa},
        {L("vFCPSTRet"), &S::vFCPSTRet},
        {L("vBCSTDest"), &S::vBCSTDest},
        {L("vICMSSTDest"), &S::vICMSSTDest},
        {L("pRedBCEfet"), &S::pRedBCEfet, Taxa},
        {L("vBCEfet"), &S::vBCEfet},
        {L("pICMSEfet"), &S::pICMSEfet, Taxa},
        {L("vICMSEfet"), &S::vICMSEfet},
        {L("vICMSDeson"), &S::vICMSDeson},
        {L("motDesICMS"), &S::motDesICMS},
        {L("indDeduzDeson"), &S::indDeduzDeson},
        {L("vICMSSTDeson"), &S::vICMSSTDeson},
        {L("motDesICMSST"), &S::motDesICMSST},
        {L("pCredSN"), &S::pCredSN, Taxa},
        {L("vCredICMSSN"), &S::vCredICMSSN},
    };
    return t;
}

TCamposNFe<TNFeIPI> IPI()
{
    using S = TNFeIPI;
    static const TCampoNFe<S> t[] = {
        {L("CNPJProd"), &S::CNPJProd}, {L("cEnq"), &S::cEnq},   {L("CST"), &S::CST},
        {L("vBC"), &S::vBC},           {L("pIPI"), &S::pIPI, Taxa}, {L("qUnid"), &S::qUnid, Qtd},
        {L("vUnid"), &S::vUnid, Qtd},  {L("vIPI"), &S::vIPI},
    };
    return t;
}

TCamposNFe<TNFeContrib> PIS()
{
    using S = TNFeContrib;
    static const TCampoNFe<S> t[] = {
        {L("CST"), &S::CST}, {L("vBC"), &S::vBC}, {L("pPIS"), &S::aliquota, Taxa},
        {L("qBCProd"), &S::qBCProd, Qtd}, {L("vAliqProd"), &S::vAliqProd, Qtd}, {L("vPIS"), &S::valor},
    };
    return t;
}

TCamposNFe<TNFeContrib> COFINS()
{
    using S = TNFeContrib;
    static const TCampoNFe<S> t[] = {
        {L("CST"), &S::CST}, {L("vBC"), &S::vBC}, {L("pCOFINS"), &S::aliquota, Taxa},
        {L("qBCProd"), &S::qBCProd, Qtd}, {L("vAliqProd"), &S::vAliqProd, Qtd}, {L("vCOFINS"), &S::valor},
    };
    return t;
}

TCamposNFe<TNFeICMSUFDest> ICMSUFDest()
{
    using S = TNFeICMSUFDest;
    static const TCampoNFe<S> t[] = {
        {L("vBCUFDest"), &S::vBCUFDest},       {L("vBCFCPUFDest"), &S::vBCFCPUFDest},
        {L("pFCPUFDest"), &S::pFCPUFDest, Taxa}, {L("pICMSUFDest"), &S::pICMSUFDest, Taxa},
        {L("pICMSInter"), &S::pICMSInter},     {L("pICMSInterPart"), &S::pICMSInterPart, Taxa},
        {L("vFCPUFDest"), &S::vFCPUFDest},     {L("vICMSUFDest"), &S::vICMSUFDest},
        {L("vICMSUFRemet"), &S::vICMSUFRemet},
    };
    return t;
}

TCamposNFe<TNFeIBSCBS> IBSCBS()
{
    using S = TNFeIBSCBS;
    static const TCampoNFe<S> t[] = {
        {L("CST"), &S::CST, 2, L("IBSCBS")},
        {L("cClassTrib"), &S::cClassTrib, 2, L("IBSCBS")},
        {L("vBC"), &S::vBC, 2, L("gIBSCBS")},
        {L("pIBSUF"), &S::pIBSUF, Taxa, L("gIBSUF")},
        {L("vIBSUF"), &S::vIBSUF, 2, L("gIBSUF")},
        {L("pIBSMun"), &S::pIBSMun, Taxa, L("gIBSMun")},
        {L("vIBSMun"), &S::vIBSMun, 2, L("gIBSMun")},
        {L("vIBS"), &S::vIBS, 2, L("gIBSCBS")},
        {L("pCBS"), &S::pCBS, Taxa, L("gCBS")},
        {L("vCBS"), &S::vCBS, 2, L("gCBS")},
    };
    return t;
}

TCamposNFe<TNFeICMSTot> ICMSTot()
{
    using S = TNFeICMSTot;
    static const TCampoNFe<S> t[] = {
        {L("vBC"), &S::vBC},     {L("vICMS"), &S::vICMS},   {L("vICMSDeson"), &S::vICMSDeson},
        {L("vFCPUFDest"), &S::vFCPUFDest}, {L("vICMSUFDest"), &S::vICMSUFDest},
        {L("vICMSUFRemet"), &S::vICMSUFRemet}, {L("vFCP"), &S::vFCP}, {L("vBCST"), &S::vBCST},
        {L("vST"), &S::vST},     {L("vFCPST"), &S::vFCPST}, {L("vFCPSTRet"), &S::vFCPSTRet},
        {L("vProd"), &S::vProd}, {L("vFrete"), &S::vFrete}, {L("vSeg"), &S::vSeg},
        {L("vDesc"), &S::vDesc}, {L("vII"), &S::vII},       {L("vIPI"), &S::vIPI},
        {L("vIPIDevol"), &S::vIPIDevol}, {L("vPIS"), &S::vPIS}, {L("vCOFINS"), &S::vCOFINS},
        {L("vOutro"), &S::vOutro}, {L("vNF"), &S::vNF},     {L("vTotTrib"), &S::vTotTrib},
    };
    return t;
}

TCamposNFe<TNFeIBSCBSTot> IBSCBSTot()
{
    using S = TNFeIBSCBSTot;
    static const TCampoNFe<S> t[] = {
        {L("vBCIBSCBS"), &S::vBCIBSCBS, 2, L("IBSCBSTot")},
        {L("vIBSUF"), &S::vIBSUF, 2, L("gIBSUF")},
        {L("vIBSMun"), &S::vIBSMun, 2, L("gIBSMun")},
        {L("vIBS"), &S::vIBS, 2, L("gIBS")},
        {L("vCredPres"), &S::vCredPres, 2, L("gIBS")},
        {L("vCBS"), &S::vCBS, 2, L("gCBS")},
    };
    return t;
}

TCamposNFe<TNFeTransp> Transp()
{
    using S = TNFeTransp;
    static const TCampoNFe<S> t[] = {
        {L("modFrete"), &S::modFrete, 0, L("transp")},
        {L("CNPJ"), &S::CNPJ, 0, L("transporta")},
        {L("CPF"), &S::CPF, 0, L("transporta")},
        {L("xNome"), &S::xNome, 0, L("transporta")},
        {L("IE"), &S::IE, 0, L("transporta")},
        {L("xEnder"), &S::xEnder, 0, L("transporta")},
        {L("xMun"), &S::xMun, 0, L("transporta")},
        {L("UF"), &S::UF, 0, L("transporta")},
        {L("placa"), &S::placa, 0, L("veicTransp")},
        {L("UF"), &S::UFVeic, 0, L("veicTransp")},
        {L("qVol"), &S::qVol, 0, L("vol")},
        {L("esp"), &S::esp, 0, L("vol")},
        {L("marca"), &S::marca, 0, L("vol")},
        {L("nVol"), &S::nVol, 0, L("vol")},
        {L("pesoL"), &S::pesoL, 3, L("vol")},
        {L("pesoB"), &S::pesoB, 3, L("vol")},
    };
    return t;
}

TCamposNFe<TNFeProt> Prot()
{
    using S = TNFeProt;
    static const TCampoNFe<S> t[] = {
        {L("tpAmb"), &S::tpAmb}, {L("verAplic"), &S::verAplic}, {L("chNFe"), &S::chNFe},
        {L("dhRecbto"), &S::dhRecbto}, {L("nProt"), &S::nProt}, {L("digVal"), &S::digVal},     {L("cStat"), &S::cStat},
        {L("xMotivo"), &S::xMotivo},
    };
    return t;
}

TCamposNFe<TnfeProc> InfAdic()
{
    using S = TnfeProc;
    static const TCampoNFe<S> t[] = {{L("infAdFisco"), &S::infAdFisco}, {L("infCpl"), &S::infCpl}};
    return t;
}

QStringList CamposDoGrupoICMS(QStringView grupo)
{
    // A trailing '?' marks an element the layout lets a writer leave out.
    static const QHash<QString, QString> grupos = [] {
        const QString st = QStringLiteral("modBCST pMVAST? pRedBCST? vBCST pICMSST vICMSST vBCFCPST? pFCPST? vFCPST?");
        const QString ret = QStringLiteral("vBCSTRet? pST? vICMSSubstituto? vICMSSTRet? vBCFCPSTRet? pFCPSTRet? vFCPSTRet?");
        const QString efet = QStringLiteral("pRedBCEfet? vBCEfet? pICMSEfet? vICMSEfet?");
        const QString deson = QStringLiteral("vICMSDeson? motDesICMS? indDeduzDeson?");
        const QString fcp = QStringLiteral("vBCFCP? pFCP? vFCP?");
        const QString stDeson = QStringLiteral("vICMSSTDeson? motDesICMSST?");
        const QString simples = QStringLiteral("orig CST");
        return QHash<QString, QString>{
            {QStringLiteral("ICMS00"), QStringLiteral("orig CST modBC vBC pICMS vICMS pFCP? vFCP?")},
            {QStringLiteral("ICMS02"), simples},
            {QStringLiteral("ICMS10"), QStringLiteral("orig CST modBC vBC pICMS vICMS %1 %2 %3").arg(fcp, st, stDeson)},
            {QStringLiteral("ICMS15"), simples},
            {QStringLiteral("ICMS20"), QStringLiteral("orig CST modBC pRedBC vBC pICMS vICMS %1 %2").arg(fcp, deson)},
            {QStringLiteral("ICMS30"), QStringLiteral("orig CST %1 %2").arg(st, deson)},
            {QStringLiteral("ICMS40"), QStringLiteral("orig CST %1").arg(deson)},
            {QStringLiteral("ICMS51"), QStringLiteral("orig CST modBC? pRedBC? cBenefRBC? vBC? pICMS? vICMSOp? pDif? "
                                                      "vICMSDif? vICMS? %1 pFCPDif? vFCPDif? vFCPEfet?").arg(fcp)},
            {QStringLiteral("ICMS53"), simples},
            {QStringLiteral("ICMS60"), QStringLiteral("orig CST %1 %2").arg(ret, efet)},
            {QStringLiteral("ICMS61"), simples},
            {QStringLiteral("ICMS70"),
             QStringLiteral("orig CST modBC pRedBC vBC pICMS vICMS %1 %2 %3 %4").arg(fcp, st, deson, stDeson)},
            {QStringLiteral("ICMS90"),
             QStringLiteral("orig CST modBC vBC pRedBC? pICMS vICMS %1 %2 %3 %4").arg(fcp, st, deson, stDeson)},
            {QStringLiteral("ICMSPart"), QStringLiteral("orig CST modBC vBC pRedBC? pICMS vICMS %1 pBCOp UFST").arg(st)},
            {QStringLiteral("ICMSST"), QStringLiteral("orig CST %1 vBCSTDest vICMSSTDest %2").arg(ret, efet)},
            {QStringLiteral("ICMSSN101"), QStringLiteral("orig CSOSN pCredSN vCredICMSSN")},
            {QStringLiteral("ICMSSN102"), QStringLiteral("orig CSOSN")},
            {QStringLiteral("ICMSSN201"), QStringLiteral("orig CSOSN %1 pCredSN vCredICMSSN").arg(st)},
            {QStringLiteral("ICMSSN202"), QStringLiteral("orig CSOSN %1").arg(st)},
            {QStringLiteral("ICMSSN500"), QStringLiteral("orig CSOSN %1 %2").arg(ret, efet)},
            {QStringLiteral("ICMSSN900"),
             QStringLiteral("orig CSOSN modBC vBC pRedBC? pICMS vICMS %1 pCredSN? vCredICMSSN?").arg(st)},
        };
    }();
    return grupos.value(grupo.toString()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace CamposNFe
