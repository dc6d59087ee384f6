#pragma once

#include "TnfeProc.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

// Writes a TnfeProc as the NF-e of layout 4.00: UTF-8, no blanks between elements, the layout's
// element order, every text cleaned and escaped by TextoXML.
class TNFe_XMLW final
{
public:
    // prefixo: a namespace prefix for every element ("nfe"), or none (the default namespace).
    explicit TNFe_XMLW(QString prefixo = {}) : m_prefixo(std::move(prefixo)) {}

    // The XML declaration, then the NFe element (unsigned).
    QByteArray Documento(const TnfeProc &nfe) const;
    // The NFe element alone, carrying its namespace declaration; `assinatura` (a whole Signature
    // element) goes after infNFe when given.
    QByteArray ElementoNFe(const TnfeProc &nfe, const QByteArray &assinatura = {}) const;
    // The protNFe element of an authorised document (its own namespace declaration).
    QByteArray ElementoProtNFe(const TNFeProt &prot) const;

private:
    QString m_prefixo;
};

// A text as the layout takes it: control characters removed, blanks trimmed and runs of blanks
// collapsed, characters beyond Latin-1 replaced by their nearest ASCII or dropped, then &, <, >
// and both quotes escaped.
QString TextoXML(QStringView texto);
// The same without the escaping: what a reader gets back.
QString TextoLimpo(QStringView texto);
