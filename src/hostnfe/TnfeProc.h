#pragma once

#include "Money.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <deque>
#include <memory>
#include <vector>

// One NF-e (layout 4.00) as the host's NF-e library holds it: what the reader fills from a
// supplier's file and what the builder writes for our own notes. Keys, CNPJs, CPFs, codes and
// registrations are text: the alphanumeric CNPJ puts letters in them and leading zeros matter.
// Money values are exact (Money); quantities, unit values and rates are double. A value absent
// from the document stays 0 or empty.

struct TNFeEndereco
{
    QString xLgr, nro, xCpl, xBairro, cMun, xMun, UF, CEP, cPais, xPais, fone;
};

// The issuer (emitente).
struct TPess_Emit
{
    QString CNPJ, CPF, xNome, xFant, IE, IEST, IM, CNAE;
    int CRT = 0;                     // 1 Simples Nacional, 2 excess, 3 normal regime, 4 MEI
    TNFeEndereco ender;
};

// The recipient (destinatário).
struct TPess_Dest
{
    QString CNPJ, CPF, idEstrangeiro, xNome, IE, ISUF, IM, email;
    int indIEDest = 0;
    TNFeEndereco ender;
};

struct TNFeIde
{
    QString cUF, cNF, natOp, cMunFG, verProc;
    QString indIntermed;             // "0": no intermediary; empty where the presence needs none
    int mod = 55, serie = 0, tpNF = 0, idDest = 0, tpImp = 0, tpEmis = 0, cDV = 0, tpAmb = 0;
    int finNFe = 0, indFinal = 0, indPres = 0, procEmi = 0;
    qint64 nNF = 0;
    QDateTime dhEmi, dhSaiEnt;       // with the document's own offset
    QDateTime dhCont;                // contingency (tpEmis 6, 7): when it began and why
    QString xJust;
    QStringList refNFe;              // the referenced keys (NFref/refNFe), in document order
};

// The ICMS group of an item, whichever of ICMS00..ICMS90, ICMSPart, ICMSST or ICMSSN101..900.
struct TNFeICMS
{
    QString grupo;                   // the element's name: "ICMS00", "ICMSSN202", ...
    int orig = 0;
    QString CST, CSOSN;              // text: "00", "060", "101"...
    int modBC = 0;
    Money vBC, vICMS, vICMSOp, vICMSDif, vICMSDeson, vCredICMSSN;
    double pRedBC = 0, pICMS = 0, pDif = 0, pCredSN = 0, pBCOp = 0;
    int motDesICMS = 0, indDeduzDeson = 0;
    QString cBenefRBC;
    Money vBCFCP, vFCP, vFCPDif, vFCPEfet;
    double pFCP = 0, pFCPDif = 0;
    int modBCST = 0;
    double pMVAST = 0, pRedBCST = 0, pICMSST = 0;
    Money vBCST, vICMSST;
    Money vBCFCPST, vFCPST;
    double pFCPST = 0;
    QString UFST;
    Money vICMSSTDeson;
    int motDesICMSST = 0;
    Money vBCSTDest, vICMSSTDest;    // ICMSST: due to the destination state
    // Retained earlier by substitution.
    Money vBCSTRet, vICMSSubstituto, vICMSSTRet, vBCFCPSTRet, vFCPSTRet;
    double pST = 0, pFCPSTRet = 0;
    double pRedBCEfet = 0, pICMSEfet = 0;
    Money vBCEfet, vICMSEfet;
};

struct TNFeIPI
{
    bool presente = false;
    QString cEnq, CNPJProd, CST;
    Money vBC, vIPI;
    double pIPI = 0, qUnid = 0, vUnid = 0;
};

// PIS or COFINS of an item.
struct TNFeContrib
{
    QString CST;
    Money vBC, valor;                // vPIS / vCOFINS
    double aliquota = 0;             // pPIS / pCOFINS
    double qBCProd = 0, vAliqProd = 0;
};

struct TNFeICMSUFDest
{
    bool presente = false;
    Money vBCUFDest, vBCFCPUFDest, vFCPUFDest, vICMSUFDest, vICMSUFRemet;
    double pFCPUFDest = 0, pICMSUFDest = 0, pICMSInter = 0, pICMSInterPart = 0;
};

// The 2026 tax-reform group of an item (IBSCBS).
struct TNFeIBSCBS
{
    bool presente = false;
    QString CST, cClassTrib;
    Money vBC, vIBSUF, vIBSMun, vIBS, vCBS;
    double pIBSUF = 0, pIBSMun = 0, pCBS = 0;
};

struct TItem
{
    int nItem = 0;
    // prod
    QString cProd, cEAN, xProd, NCM, CEST, CFOP, uCom, cEANTrib, uTrib, xPed, nItemPed;
    double qCom = 0, vUnCom = 0, qTrib = 0, vUnTrib = 0;
    Money vProd, vFrete, vSeg, vDesc, vOutro;
    int indTot = 1;
    // imposto
    Money vTotTrib;
    TNFeICMS ICMS;
    TNFeIPI IPI;
    TNFeContrib PIS, COFINS;
    TNFeICMSUFDest ICMSUFDest;
    TNFeIBSCBS IBSCBS;
    Money vIPIDevol;                 // impostoDevol
    double pDevol = 0;
    QString infAdProd;
};

// The items of a document, in document order.
class TItemList
{
public:
    int Count() const { return int(m_itens.size()); }
    const TItem &GetItem(int i) const { return m_itens.at(std::size_t(i)); }
    TItem &GetItem(int i) { return m_itens.at(std::size_t(i)); }
    TItem &Add() { return m_itens.emplace_back(); }
    void Clear() { m_itens.clear(); }

private:
    // Items are large and a document may hold thousands: a deque never moves them as it grows,
    // and a reference from Add stays valid.
    std::deque<TItem> m_itens;
};

struct TNFeICMSTot
{
    Money vBC, vICMS, vICMSDeson, vFCPUFDest, vICMSUFDest, vICMSUFRemet, vFCP, vBCST, vST, vFCPST,
        vFCPSTRet, vProd, vFrete, vSeg, vDesc, vII, vIPI, vIPIDevol, vPIS, vCOFINS, vOutro, vNF, vTotTrib;
};

struct TNFeIBSCBSTot
{
    bool presente = false;
    Money vBCIBSCBS, vIBSUF, vIBSMun, vIBS, vCredPres, vCBS;
};

struct TNFeReboque
{
    QString placa, UF, RNTC;
};

struct TNFeTransp
{
    int modFrete = 9;
    QString CNPJ, CPF, xNome, IE, xEnder, xMun, UF;
    QString placa, UFVeic;
    double qVol = 0, pesoL = 0, pesoB = 0;
    QString esp, marca, nVol;
    QString RNTC;                    // of the vehicle
    QList<TNFeReboque> reboque;      // trailers, at most 5
};

// The authority's answer attached to an authorised document (protNFe/infProt).
struct TNFeProt
{
    bool presente = false;
    int tpAmb = 0, cStat = 0;
    QString verAplic, chNFe, nProt, digVal, xMotivo;
    QDateTime dhRecbto;
};

class TnfeProc
{
public:
    QString versao;                  // of infNFe, "4.00"
    QString chave;                   // the 44 characters of infNFe's Id, without "NFe"
    TNFeIde ide;
    TPess_Emit emitente;             // emit ("emit" is a Qt keyword)
    TPess_Dest destinatario;
    TItemList itens;
    TNFeICMSTot ICMSTot;
    TNFeIBSCBSTot IBSCBSTot;
    TNFeTransp transp;
    QString infAdFisco, infCpl;
    bool assinado = false;           // carries a Signature
    TNFeProt prot;

    TItemList &ItemList() { return itens; }
    const TItemList &ItemList() const { return itens; }
};

// Documents read together (the import of a note's reference keys), owned.
using TnfeProcList = std::vector<std::unique_ptr<TnfeProc>>;
