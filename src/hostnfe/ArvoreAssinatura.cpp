#include "ArvoreAssinatura.h"

#include <libxml/parser.h>
#include <libxml/valid.h>

#include <functional>

namespace {

constexpr char kXmlDsig[] = "http://www.w3.org/2000/09/xmldsig#";

bool Nome(xmlNodePtr no, const char *nome)
{
    return no && no->type == XML_ELEMENT_NODE && xmlStrEqual(no->name, BAD_CAST nome);
}

void Percorrer(xmlNodePtr no, const std::function<void(xmlNodePtr)> &visitar)
{
    for (xmlNodePtr n = no; n; n = n->next) {
        if (n->type != XML_ELEMENT_NODE)
            continue;
        visitar(n);
        Percorrer(n->children, visitar);
    }
}

} // namespace

ArvoreAssinatura::TDocumento ArvoreAssinatura::LerDocumento(const QByteArray &xml)
{
    return TDocumento(xmlReadMemory(xml.constData(), int(xml.size()), nullptr, nullptr,
                                    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
}

xmlNodePtr ArvoreAssinatura::ElementoDoId(xmlDocPtr doc, const QByteArray &id)
{
    RegistrarIds(doc);
    xmlAttrPtr attr = xmlGetID(doc, reinterpret_cast<const xmlChar *>(id.constData()));
    return attr ? attr->parent : nullptr;
}

void ArvoreAssinatura::RegistrarIds(xmlDocPtr doc)
{
    Percorrer(xmlDocGetRootElement(doc), [&](xmlNodePtr n) {
        xmlAttrPtr attr = xmlHasProp(n, BAD_CAST "Id");
        xmlChar *valor = attr ? xmlNodeGetContent(reinterpret_cast<xmlNodePtr>(attr)) : nullptr;
        if (valor && !xmlGetID(doc, valor))
            xmlAddID(nullptr, doc, valor, attr);
        xmlFree(valor);
    });
}

xmlNodePtr ArvoreAssinatura::ProximoElemento(xmlNodePtr no)
{
    for (xmlNodePtr n = no ? no->next : nullptr; n; n = n->next)
        if (n->type == XML_ELEMENT_NODE)
            return n;
    return nullptr;
}

bool ArvoreAssinatura::EhAssinatura(xmlNodePtr no)
{
    return Nome(no, "Signature") && no->ns && xmlStrEqual(no->ns->href, BAD_CAST kXmlDsig);
}

QList<xmlNodePtr> ArvoreAssinatura::Assinaturas(xmlDocPtr doc)
{
    QList<xmlNodePtr> lista;
    Percorrer(xmlDocGetRootElement(doc), [&](xmlNodePtr n) {
        if (EhAssinatura(n))
            lista << n;
    });
    return lista;
}

QString ArvoreAssinatura::UriDaReferencia(xmlNodePtr assinatura)
{
    QString uri;
    Percorrer(assinatura->children, [&](xmlNodePtr n) {
        xmlChar *valor = uri.isEmpty() && Nome(n, "Reference") ? xmlGetProp(n, BAD_CAST "URI") : nullptr;
        if (valor)
            uri = QString::fromUtf8(reinterpret_cast<const char *>(valor));
        xmlFree(valor);
    });
    return uri;
}

qsizetype ArvoreAssinatura::FimDoElemento(const QByteArray &xml, xmlNodePtr elemento, const QByteArray &id)
{
    qsizetype inicio = xml.indexOf("Id=\"" + id + '"');
    if (inicio < 0)
        inicio = xml.indexOf("Id='" + id + '\'');
    if (inicio < 0)
        return -1;
    QByteArray fecha = "</";
    if (elemento->ns && elemento->ns->prefix)
        fecha += QByteArray(reinterpret_cast<const char *>(elemento->ns->prefix)) + ':';
    fecha += reinterpret_cast<const char *>(elemento->name);
    for (qsizetype p = xml.indexOf(fecha, inicio); p >= 0; p = xml.indexOf(fecha, p + 1)) {
        qsizetype q = p + fecha.size();
        while (q < xml.size() && (xml[q] == ' ' || xml[q] == '\t' || xml[q] == '\r' || xml[q] == '\n'))
            ++q;
        if (q < xml.size() && xml[q] == '>')
            return q + 1;
    }
    return -1;
}

void ArvoreAssinatura::RemoverEspacosEntreTags(xmlNodePtr no)
{
    for (xmlNodePtr n = no->children; n;) {
        xmlNodePtr seguinte = n->next;
        if (n->type == XML_TEXT_NODE && xmlIsBlankNode(n)) {
            xmlUnlinkNode(n);
            xmlFreeNode(n);
        } else if (n->type == XML_ELEMENT_NODE) {
            RemoverEspacosEntreTags(n);
        }
        n = seguinte;
    }
}

void ArvoreAssinatura::JuntarBase64(xmlNodePtr assinatura)
{
    Percorrer(assinatura->children, [](xmlNodePtr n) {
        if (!Nome(n, "SignatureValue") && !Nome(n, "X509Certificate"))
            return;
        xmlChar *valor = xmlNodeGetContent(n);
        QByteArray limpo(reinterpret_cast<const char *>(valor));
        xmlFree(valor);
        limpo.replace('\n', QByteArray()).replace('\r', QByteArray()).replace(' ', QByteArray());
        xmlNodeSetContent(n, reinterpret_cast<const xmlChar *>(limpo.constData()));
    });
}

QByteArray ArvoreAssinatura::Serializar(xmlDocPtr doc, xmlNodePtr no)
{
    xmlBufferPtr buffer = xmlBufferCreate();
    xmlNodeDump(buffer, doc, no, 0, 0);
    QByteArray bytes(reinterpret_cast<const char *>(xmlBufferContent(buffer)), xmlBufferLength(buffer));
    xmlBufferFree(buffer);
    return bytes;
}
