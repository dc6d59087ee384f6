#include "Mensagens.h"

#include "ErroEsquema.h"

#include <QHash>
#include <QXmlStreamReader>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <memory>

namespace {

const QString SoapNs = QStringLiteral("http://www.w3.org/2003/05/soap-envelope");
const QString WsdlNs = QStringLiteral("http://www.portalfiscal.inf.br/nfe/wsdl/");

// Found by a stream reader: the position after the start tag and before the end tag.
struct TTrecho
{
    qint64 inicio = -1, fim = -1;
};

void GuardarErro(void *dados, xmlErrorPtr erro)
{
    auto *texto = static_cast<QString *>(dados);
    if (erro && erro->level >= XML_ERR_ERROR && texto->isEmpty())
        *texto = ErroEsquema::Descrever(*erro);
}

// Parsed once and kept: the simulator validates every request.
xmlSchemaPtr Esquema(const QString &arquivo)
{
    static QHash<QString, xmlSchemaPtr> carregados;
    auto it = carregados.constFind(arquivo);
    if (it != carregados.constEnd())
        return *it;
    const QByteArray caminho = (QStringLiteral(PAVREL_ESQUEMAS "/") + arquivo).toUtf8();
    xmlSchemaParserCtxtPtr ctx = xmlSchemaNewParserCtxt(caminho.constData());
    xmlSchemaPtr esquema = ctx ? xmlSchemaParse(ctx) : nullptr;
    if (ctx)
        xmlSchemaFreeParserCtxt(ctx);
    carregados.insert(arquivo, esquema);
    return esquema;
}

} // namespace

bool Mensagens::AbrirEnvelope(const QByteArray &corpo, QString *operacao, QByteArray *mensagem, QString *erro)
{
    // Offsets count characters of the decoded text, so the message is cut from that text.
    const QString texto = QString::fromUtf8(corpo);
    QXmlStreamReader r(texto);
    bool envelope = false;
    int nivel = 0, nivelMsg = -1;
    TTrecho trecho;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement()) {
            ++nivel;
            if (nivel == 1)
                envelope = r.name() == u"Envelope" && r.namespaceUri() == SoapNs;
            else if (nivelMsg < 0 && r.name() == u"nfeDadosMsg" && r.namespaceUri().startsWith(WsdlNs)) {
                *operacao = r.namespaceUri().mid(WsdlNs.size()).toString();
                nivelMsg = nivel;
                trecho.inicio = r.characterOffset();
            }
        } else if (r.isEndElement()) {
            if (nivel == nivelMsg)
                trecho.fim = r.characterOffset() - r.qualifiedName().size() - 3;
            --nivel;
        }
    }
    const auto falhar = [erro](const QString &t) {
        *erro = t;
        return false;
    };
    if (r.hasError())
        return falhar(QStringLiteral("envelope SOAP mal formado: %1").arg(r.errorString()));
    if (!envelope)
        return falhar(QStringLiteral("o corpo não é um envelope SOAP 1.2"));
    if (trecho.inicio < 0 || trecho.fim < trecho.inicio)
        return falhar(QStringLiteral("falta nfeDadosMsg no namespace %1OPERACAO").arg(WsdlNs));
    *mensagem = texto.mid(trecho.inicio, trecho.fim - trecho.inicio).trimmed().toUtf8();
    return true;
}

QString Mensagens::Valor(const QByteArray &xml, const QString &nome)
{
    QXmlStreamReader r(xml);
    while (!r.atEnd())
        if (r.readNext() == QXmlStreamReader::StartElement && r.name() == nome)
            return r.readElementText(QXmlStreamReader::IncludeChildElements);
    return {};
}

QString Mensagens::Atributo(const QByteArray &xml, const QString &nome, const QString &atributo)
{
    QXmlStreamReader r(xml);
    while (!r.atEnd())
        if (r.readNext() == QXmlStreamReader::StartElement && r.name() == nome)
            return r.attributes().value(atributo).toString();
    return {};
}

QList<QByteArray> Mensagens::Elementos(const QByteArray &xml, const QByteArray &nome)
{
    QList<QByteArray> achados;
    const QByteArray abre = '<' + nome, fecha = "</" + nome + '>';
    for (qint64 i = xml.indexOf(abre); i >= 0; i = xml.indexOf(abre, i + 1)) {
        const char depois = i + abre.size() < xml.size() ? xml.at(i + abre.size()) : '\0';
        if (depois != ' ' && depois != '>')
            continue;
        const qint64 fim = xml.indexOf(fecha, i);
        if (fim < 0)
            break;
        achados.append(xml.mid(i, fim + fecha.size() - i));
        i = fim;
    }
    return achados;
}

bool Mensagens::Valida(const QByteArray &xml, const QString &esquema, QString *erro)
{
    xmlSchemaPtr xsd = Esquema(esquema);
    if (!xsd) {
        *erro = QStringLiteral("esquema %1 ilegível").arg(esquema);
        return false;
    }
    std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> doc(
        xmlReadMemory(xml.constData(), int(xml.size()), "mensagem.xml", nullptr,
                      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    if (!doc) {
        *erro = QStringLiteral("mensagem mal formada");
        return false;
    }
    std::unique_ptr<xmlSchemaValidCtxt, decltype(&xmlSchemaFreeValidCtxt)> ctx(xmlSchemaNewValidCtxt(xsd),
                                                                               xmlSchemaFreeValidCtxt);
    erro->clear();
    xmlSchemaSetValidStructuredErrors(ctx.get(), GuardarErro, erro);
    const bool ok = xmlSchemaValidateDoc(ctx.get(), doc.get()) == 0;
    if (!ok && erro->isEmpty())
        *erro = QStringLiteral("mensagem fora do esquema %1").arg(esquema);
    return ok;
}
