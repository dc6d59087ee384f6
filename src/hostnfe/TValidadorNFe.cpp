#include "TValidadorNFe.h"

#include "ErroEsquema.h"

#include <QFile>

#include <libxml/parser.h>
#include <libxml/xmlIO.h>
#include <libxml/xmlschemas.h>

#include <array>
#include <cstring>
#include <memory>
#include <mutex>

namespace {

// The schema folders are Qt resources under ":/esquemas"; libxml2 reaches them, and the files
// they include, through the URI scheme "qrc:", so nothing has to be installed beside the binary.
constexpr char kEsquema[] = "qrc:";

int EhEsquemaEmbutido(const char *uri)
{
    return uri && std::strncmp(uri, kEsquema, sizeof kEsquema - 1) == 0;
}

void *AbrirEsquemaEmbutido(const char *uri)
{
    QString caminho = QString::fromUtf8(uri + sizeof kEsquema - 1);
    while (caminho.startsWith(QLatin1Char('/')))
        caminho.remove(0, 1);
    auto arquivo = std::make_unique<QFile>(QStringLiteral(":/") + caminho);
    if (!arquivo->open(QIODevice::ReadOnly))
        return nullptr;
    return arquivo.release();
}

int LerEsquemaEmbutido(void *contexto, char *buffer, int tamanho)
{
    return int(static_cast<QFile *>(contexto)->read(buffer, tamanho));
}

int FecharEsquemaEmbutido(void *contexto)
{
    delete static_cast<QFile *>(contexto);
    return 0;
}

void RegistrarLeitorEsquemas()
{
    static std::once_flag registrado;
    std::call_once(registrado, [] {
        xmlInitParser();
        xmlRegisterInputCallbacks(EhEsquemaEmbutido, AbrirEsquemaEmbutido, LerEsquemaEmbutido,
                                  FecharEsquemaEmbutido);
    });
}

const char *ArquivoDoEsquema(TValidadorNFe::TEsquema esquema)
{
    using TValidadorNFe::TEsquema;
    switch (esquema) {
    case TEsquema::NFe: return "qrc:/esquemas/nfe-4.00/nfe_v4.00.xsd";
    case TEsquema::ProcNFe: return "qrc:/esquemas/nfe-4.00/procNFe_v4.00.xsd";
    case TEsquema::EventoCanc: return "qrc:/esquemas/evento-cancelamento-1.00/eventoCancNFe_v1.00.xsd";
    case TEsquema::EventoCCe: return "qrc:/esquemas/evento-cce-1.00/CCe_v1.00.xsd";
    case TEsquema::EventoManif: return "qrc:/esquemas/evento-manifestacao-1.00/confRecebto_v1.00.xsd";
    case TEsquema::ConsStatServ: return "qrc:/esquemas/nfe-4.00/consStatServ_v4.00.xsd";
    case TEsquema::EnviNFe: return "qrc:/esquemas/nfe-4.00/enviNFe_v4.00.xsd";
    case TEsquema::ConsSitNFe: return "qrc:/esquemas/nfe-4.00/consSitNFe_v4.00.xsd";
    case TEsquema::EnvEventoCanc: return "qrc:/esquemas/evento-cancelamento-1.00/envEventoCancNFe_v1.00.xsd";
    case TEsquema::EnvEventoCCe: return "qrc:/esquemas/evento-cce-1.00/envCCe_v1.00.xsd";
    case TEsquema::EnvEventoManif: return "qrc:/esquemas/evento-manifestacao-1.00/envConfRecebto_v1.00.xsd";
    case TEsquema::DistDFeInt: return "qrc:/esquemas/distribuicao-dfe-1.01/distDFeInt_v1.01.xsd";
    }
    return "";
}

void IgnorarErro(void *, xmlErrorPtr) {}

struct TEsquemaCarregado
{
    std::once_flag carregado;
    xmlSchemaPtr esquema = nullptr;   // kept for the whole process; read-only once parsed
};

// Parsed on first use; a schema set that does not parse gives null (the copy is broken).
xmlSchemaPtr Esquema(TValidadorNFe::TEsquema qual)
{
    static std::array<TEsquemaCarregado, size_t(TValidadorNFe::TEsquema::DistDFeInt) + 1> esquemas;
    TEsquemaCarregado &e = esquemas.at(size_t(qual));
    std::call_once(e.carregado, [&] {
        RegistrarLeitorEsquemas();
        xmlSchemaParserCtxtPtr ctx = xmlSchemaNewParserCtxt(ArquivoDoEsquema(qual));
        if (!ctx)
            return;
        xmlSchemaSetParserStructuredErrors(ctx, IgnorarErro, nullptr);
        e.esquema = xmlSchemaParse(ctx);
        xmlSchemaFreeParserCtxt(ctx);
    });
    return e.esquema;
}

struct TErrosValidacao
{
    bool aceitaSemAssinatura = false;   // an NFe is checked before it is signed
    bool semAssinatura = false;
    QString primeiro;
};

void GuardarPrimeiroErro(void *dados, xmlErrorPtr erro)
{
    auto *erros = static_cast<TErrosValidacao *>(dados);
    if (!erro || erro->level < XML_ERR_ERROR || !erros->primeiro.isEmpty())
        return;
    if (erros->aceitaSemAssinatura && ErroEsquema::FaltaSoAssinatura(*erro))
        erros->semAssinatura = true;
    else
        erros->primeiro = ErroEsquema::Descrever(*erro);
}

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

} // namespace

bool TValidadorNFe::Validar(const QByteArray &xml, TEsquema esquema, QString *erro)
{
    xmlSchemaPtr xsd = Esquema(esquema);
    if (!xsd)
        return Falhar(erro, QStringLiteral("Não foi possível carregar os esquemas da NF-e (%1)")
                                .arg(QString::fromLatin1(ArquivoDoEsquema(esquema)).mid(int(sizeof kEsquema) - 1)));

    std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> parser(xmlNewParserCtxt(), xmlFreeParserCtxt);
    if (!parser)
        return Falhar(erro, QStringLiteral("Memória insuficiente para validar a NF-e"));
    std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> doc(
        xmlCtxtReadMemory(parser.get(), xml.constData(), int(xml.size()), "nfe.xml", nullptr,
                          XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    if (!doc || !parser->wellFormed) {
        xmlErrorPtr e = xmlCtxtGetLastError(parser.get());
        return Falhar(erro, ErroEsquema::DocumentoMalFormado(e ? e->line : 0));
    }

    std::unique_ptr<xmlSchemaValidCtxt, decltype(&xmlSchemaFreeValidCtxt)> validador(
        xmlSchemaNewValidCtxt(xsd), xmlSchemaFreeValidCtxt);
    if (!validador)
        return Falhar(erro, QStringLiteral("Memória insuficiente para validar a NF-e"));
    TErrosValidacao erros;
    erros.aceitaSemAssinatura = esquema == TEsquema::NFe;
    xmlSchemaSetValidStructuredErrors(validador.get(), GuardarPrimeiroErro, &erros);
    const int resultado = xmlSchemaValidateDoc(validador.get(), doc.get());
    if (resultado == 0 || (resultado > 0 && erros.primeiro.isEmpty() && erros.semAssinatura))
        return true;
    return Falhar(erro, erros.primeiro.isEmpty() ? QStringLiteral("A NF-e não segue o esquema oficial")
                                                 : erros.primeiro);
}
