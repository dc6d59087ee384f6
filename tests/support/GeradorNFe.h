#pragma once

#include "TnfeProc.h"

#include <QByteArray>
#include <QString>

// NF-e documents written by the tests and benchmarks themselves, in the forms suppliers send.
struct OpcoesGeracao
{
    bool comProtocolo = true;        // nfeProc with protNFe; false gives the bare NFe
    QString prefixo;                 // namespace prefix for every element ("nfe"), or none
    bool bom = false;                // UTF-8 byte-order mark first
    bool assinatura = true;          // a Signature element (not a valid one) after infNFe
};

// The document's XML, every group of the model that carries a value.
QByteArray GerarXmlNFe(const TnfeProc &nfe, const OpcoesGeracao &opcoes = {});
bool GravarXmlNFe(const QString &caminho, const TnfeProc &nfe, const OpcoesGeracao &opcoes = {});

// A plausible document: issuer and recipient by CNPJ, a key with a right check digit, number n,
// nItens items with codes "F001", "F002"... (supplier codes), GTINs empty, totals that add up.
TnfeProc NFeExemplo(const QString &cnpjEmit, const QString &cnpjDest, qint64 numero, int nItens);
