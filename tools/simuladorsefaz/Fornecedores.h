#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// Fictitious suppliers' notes addressed to the company that asks the distribution service:
// authorised, signed with the supplier's own test certificate.
struct TNotaFornecedor
{
    QString chave, cnpjEmit, xNome, ie, cnpjDest, digVal, nProt;
    QDateTime dhEmi, dhRecbto;
    double vNF = 0;
    QByteArray procNFe;   // nfeProc: the signed NFe and its protocol
};

// The `numero`-th note (suppliers take turns) to `cnpjDest`; false with erro.
bool GerarNotaFornecedor(const QString &cnpjDest, qint64 numero, const QString &nProt, TNotaFornecedor *nota,
                         QString *erro);
// The summary (resNFe 1.01) the distribution gives before the recipient manifests.
QByteArray ResNFe(const TNotaFornecedor &nota);
// The summary of an event on a note (resEvento 1.01).
QByteArray ResEvento(const QString &chave, const QString &cnpjAutor, int tpEvento, int nSeqEvento,
                     const QString &xEvento, const QString &nProt, const QDateTime &dhEvento);
