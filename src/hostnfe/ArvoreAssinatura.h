#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <libxml/tree.h>

#include <memory>

// The tree work around an XML signature: finding the signed element and the signatures,
// cleaning what xmlsec writes, and locating the signed element's end in the original bytes.
namespace ArvoreAssinatura {

struct TLiberaDoc { void operator()(xmlDoc *d) const { xmlFreeDoc(d); } };
using TDocumento = std::unique_ptr<xmlDoc, TLiberaDoc>;

// Null when the bytes are not well-formed XML. No network, no messages on the console.
TDocumento LerDocumento(const QByteArray &xml);
// The element whose attribute Id is `id`; every Id is registered as an XML ID, so "#id" reaches it.
xmlNodePtr ElementoDoId(xmlDocPtr doc, const QByteArray &id);
// Every Id attribute registered as an XML ID (the schema that would declare them is not loaded).
void RegistrarIds(xmlDocPtr doc);
xmlNodePtr ProximoElemento(xmlNodePtr no);
bool EhAssinatura(xmlNodePtr no);
QList<xmlNodePtr> Assinaturas(xmlDocPtr doc);
QString UriDaReferencia(xmlNodePtr assinatura);

// The offset just past the closing tag of `elemento` (which carries Id="id") in the original
// bytes, or -1. The signed elements (infNFe, infEvento, infInut) never nest one of their own name.
qsizetype FimDoElemento(const QByteArray &xml, xmlNodePtr elemento, const QByteArray &id);

// Whitespace-only text between the tags under `no` removed.
void RemoverEspacosEntreTags(xmlNodePtr no);
// SignatureValue and X509Certificate on one line (they are outside what is signed).
void JuntarBase64(xmlNodePtr assinatura);
QByteArray Serializar(xmlDocPtr doc, xmlNodePtr no);

} // namespace ArvoreAssinatura
