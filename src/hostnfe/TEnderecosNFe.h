#pragma once

#include <QString>
#include <QUrl>

// One of the authority's services as the address tables give it.
struct TServicoNFe
{
    QString autorizador;   // "SVRS", "SP", "AN", "SVCAN", ...
    QString operacao;      // "NFeAutorizacao4", "NFeStatusServico4", ...
    QString metodo;        // "nfeAutorizacaoLote", ...
    QString versao;        // the message version, "4.00" / "1.00" / "1.01"
    QUrl url;              // already redirected to PAVREL_NFE_ENDPOINT when that is set
};

// The authority's addresses per state and environment, read from the editable tables shipped
// with the program (nfe-authorizers.tsv, nfe-webservices.tsv).
namespace TEnderecosNFe {

// The authorizer that serves a state ("PR" -> "PR", "SC" -> "SVRS"); empty for no state.
QString Autorizador(const QString &uf);
// The contingency authorizer of a state: "SVCAN" or "SVCRS".
QString Contingencia(const QString &uf);
// The address of an operation of an authorizer in an environment (tpAmb 1 production, 2
// homologation). False with erro naming what the tables lack.
bool Servico(const QString &autorizador, int tpAmb, const QString &operacao, TServicoNFe *servico, QString *erro);

} // namespace TEnderecosNFe
