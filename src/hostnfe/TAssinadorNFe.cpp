#include "TAssinadorNFe.h"

#include "ArvoreAssinatura.h"
#include "OpenSSLNFe.h"
#include "TCertificadoA1.h"

#include <xmlsec/base64.h>
#include <xmlsec/crypto.h>
#include <xmlsec/errors.h>
#include <xmlsec/keysmngr.h>
#include <xmlsec/openssl/app.h>
#include <xmlsec/openssl/crypto.h>
#include <xmlsec/openssl/evp.h>
#include <xmlsec/templates.h>
#include <xmlsec/xmldsig.h>
#include <xmlsec/xmlsec.h>

#include <mutex>

using namespace ArvoreAssinatura;

namespace {

void IgnorarErroXmlSec(const char *, int, const char *, const char *, const char *, int, const char *) {}

// xmlsec and its OpenSSL side, once per process. Base64 values are written on one line, as
// the authority wants them.
bool IniciarXmlSec(QString *erro)
{
    static std::once_flag iniciado;
    static bool ok = false;
    std::call_once(iniciado, [] {
        OpenSSLNFe::CarregarProvedores();
        xmlInitParser();
        ok = xmlSecInit() >= 0 && xmlSecCheckVersion() == 1 && xmlSecOpenSSLAppInit(nullptr) >= 0
             && xmlSecOpenSSLInit() >= 0;
        xmlSecErrorsSetCallback(IgnorarErroXmlSec);
        // Zero is refused; a line longer than any value means no line breaks inside them.
        xmlSecBase64SetDefaultLineSize(1 << 20);
    });
    if (!ok && erro)
        *erro = QStringLiteral("Não foi possível iniciar a biblioteca de assinatura digital (xmlsec1 com OpenSSL)");
    return ok;
}

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

struct TLiberaChave { void operator()(xmlSecKey *k) const { xmlSecKeyDestroy(k); } };
struct TLiberaDSig { void operator()(xmlSecDSigCtx *c) const { xmlSecDSigCtxDestroy(c); } };
struct TLiberaGerente { void operator()(xmlSecKeysMngr *m) const { xmlSecKeysMngrDestroy(m); } };
using TChaveXmlSec = std::unique_ptr<xmlSecKey, TLiberaChave>;
using TContextoDSig = std::unique_ptr<xmlSecDSigCtx, TLiberaDSig>;

// Made once per thread and kept: its X.509 store reads the system's trusted roots, which costs
// far more than a check; checking adds nothing to it.
xmlSecKeysMngr *GerenteDeVerificacao()
{
    thread_local const std::unique_ptr<xmlSecKeysMngr, TLiberaGerente> gerente = [] {
        std::unique_ptr<xmlSecKeysMngr, TLiberaGerente> g(xmlSecKeysMngrCreate());
        if (g && xmlSecOpenSSLAppDefaultKeysMngrInit(g.get()) < 0)
            g.reset();
        return g;
    }();
    return gerente.get();
}

// The certificate's private key with only its own X.509 certificate beside it, so X509Data
// carries that one certificate and not the chain.
TChaveXmlSec ChaveDe(const TCertificadoA1 &certificado)
{
    auto *evp = static_cast<EVP_PKEY *>(certificado.ChavePrivada());
    TChaveXmlSec chave(xmlSecKeyCreate());
    if (!chave || !evp || EVP_PKEY_up_ref(evp) != 1)
        return nullptr;
    xmlSecKeyDataPtr valor = xmlSecOpenSSLEvpKeyAdopt(evp);
    if (!valor) {
        EVP_PKEY_free(evp);
        return nullptr;
    }
    const QByteArray der = certificado.CertificadoDer();
    if (xmlSecKeySetValue(chave.get(), valor) < 0) {
        xmlSecKeyDataDestroy(valor);
        return nullptr;
    }
    if (xmlSecOpenSSLAppKeyCertLoadMemory(chave.get(), reinterpret_cast<const xmlSecByte *>(der.constData()),
                                          static_cast<xmlSecSize>(der.size()), xmlSecKeyDataFormatDer) < 0)
        return nullptr;
    return chave;
}

// <Signature xmlns="http://www.w3.org/2000/09/xmldsig#"> with C14N 1.0, RSA-SHA1, one
// reference "#id" (enveloped, then C14N 1.0) with SHA-1, and an empty X509Certificate.
xmlNodePtr ModeloAssinatura(xmlDocPtr doc, const QByteArray &uri)
{
    xmlNodePtr assinatura = xmlSecTmplSignatureCreate(doc, xmlSecTransformInclC14NId, xmlSecTransformRsaSha1Id, nullptr);
    xmlNodePtr referencia = assinatura
        ? xmlSecTmplSignatureAddReference(assinatura, xmlSecTransformSha1Id, nullptr,
                                          reinterpret_cast<const xmlChar *>(uri.constData()), nullptr)
        : nullptr;
    xmlNodePtr keyInfo = referencia ? xmlSecTmplSignatureEnsureKeyInfo(assinatura, nullptr) : nullptr;
    xmlNodePtr x509 = keyInfo ? xmlSecTmplKeyInfoAddX509Data(keyInfo) : nullptr;
    if (!x509 || !xmlSecTmplReferenceAddTransform(referencia, xmlSecTransformEnvelopedId)
        || !xmlSecTmplReferenceAddTransform(referencia, xmlSecTransformInclC14NId)
        || !xmlSecTmplX509DataAddCertificate(x509)) {
        xmlFreeNode(assinatura);
        return nullptr;
    }
    return assinatura;
}

// What a document may ask of the verifier: references inside the document, the
// canonicalisations and digests of the NF-e profile (and their SHA-256 successors), nothing that
// reaches out of the document or runs code (XSLT, XPath).
bool PermitirSoOPerfilDaNFe(xmlSecDSigCtxPtr ctx)
{
    ctx->enabledReferenceUris = xmlSecTransformUriTypeSameDocument;
    bool ok = true;
    for (xmlSecTransformId id : {xmlSecTransformEnvelopedId, xmlSecTransformInclC14NId, xmlSecTransformInclC14NWithCommentsId,
                                 xmlSecTransformExclC14NId, xmlSecTransformSha1Id, xmlSecTransformSha256Id})
        ok = ok && xmlSecDSigCtxEnableReferenceTransform(ctx, id) >= 0;
    for (xmlSecTransformId id : {xmlSecTransformInclC14NId, xmlSecTransformInclC14NWithCommentsId, xmlSecTransformExclC14NId,
                                 xmlSecTransformRsaSha1Id, xmlSecTransformRsaSha256Id})
        ok = ok && xmlSecDSigCtxEnableSignatureTransform(ctx, id) >= 0;
    return ok;
}

} // namespace

bool TAssinadorNFe::Assinar(const QByteArray &xml, const QString &id, const TCertificadoA1 &certificado,
                            QByteArray *assinado, QString *erro)
{
    if (!IniciarXmlSec(erro))
        return false;
    TDocumento doc = LerDocumento(xml);
    if (!doc)
        return Falhar(erro, QStringLiteral("O documento a assinar não é um XML válido"));
    xmlNodePtr alvo = ElementoDoId(doc.get(), id.toUtf8());
    if (!alvo)
        return Falhar(erro, QStringLiteral("O documento não tem o elemento de Id '%1' a assinar").arg(id));
    if (EhAssinatura(ProximoElemento(alvo)))
        return Falhar(erro, QStringLiteral("O documento já está assinado (Id '%1')").arg(id));
    const qsizetype fim = FimDoElemento(xml, alvo, id.toUtf8());
    if (fim < 0)
        return Falhar(erro, QStringLiteral("Não foi possível localizar o fim do elemento de Id '%1'").arg(id));

    auto *evp = static_cast<const EVP_PKEY *>(certificado.ChavePrivada());
    if (!evp || EVP_PKEY_get_base_id(evp) != EVP_PKEY_RSA)
        return Falhar(erro, QStringLiteral("A chave do certificado digital não é RSA, a que a NF-e exige"));
    TChaveXmlSec chave = ChaveDe(certificado);
    if (!chave)
        return Falhar(erro, QStringLiteral("A chave privada do certificado não pôde ser usada para assinar"));
    xmlNodePtr assinatura = ModeloAssinatura(doc.get(), QByteArray("#") + id.toUtf8());
    if (!assinatura || !xmlAddNextSibling(alvo, assinatura)) {
        xmlFreeNode(assinatura);
        return Falhar(erro, QStringLiteral("Não foi possível montar a assinatura digital"));
    }
    // No line breaks between the tags of what is signed: the authority refuses them.
    RemoverEspacosEntreTags(assinatura);
    TContextoDSig ctx(xmlSecDSigCtxCreate(nullptr));
    if (!ctx)
        return Falhar(erro, QStringLiteral("Memória insuficiente para assinar"));
    ctx->signKey = chave.release();
    if (xmlSecDSigCtxSign(ctx.get(), assinatura) < 0 || ctx->status != xmlSecDSigStatusSucceeded)
        return Falhar(erro, QStringLiteral("A assinatura digital falhou (xmlsec1)"));
    RemoverEspacosEntreTags(assinatura);
    JuntarBase64(assinatura);

    // Signed once: the original bytes stay as they were, with the Signature put after the element.
    *assinado = xml.left(fim) + Serializar(doc.get(), assinatura) + xml.mid(fim);
    return true;
}

bool TAssinadorNFe::Verificar(const QByteArray &xml, QString *erro)
{
    if (!IniciarXmlSec(erro))
        return false;
    TDocumento doc = LerDocumento(xml);
    if (!doc)
        return Falhar(erro, QStringLiteral("O documento assinado não é um XML válido"));
    RegistrarIds(doc.get());
    const QList<xmlNodePtr> assinaturas = Assinaturas(doc.get());
    if (assinaturas.isEmpty())
        return Falhar(erro, QStringLiteral("O documento não está assinado"));
    for (xmlNodePtr assinatura : assinaturas) {
        xmlSecKeysMngr *gerente = GerenteDeVerificacao();
        if (!gerente)
            return Falhar(erro, QStringLiteral("Memória insuficiente para verificar a assinatura"));
        TContextoDSig ctx(xmlSecDSigCtxCreate(gerente));
        if (!ctx)
            return Falhar(erro, QStringLiteral("Memória insuficiente para verificar a assinatura"));
        // The signer's own certificate is the key; its chain is not this check's business.
        ctx->keyInfoReadCtx.flags |= XMLSEC_KEYINFO_FLAGS_X509DATA_DONT_VERIFY_CERTS;
        if (!PermitirSoOPerfilDaNFe(ctx.get()))
            return Falhar(erro, QStringLiteral("Memória insuficiente para verificar a assinatura"));
        const QString uri = UriDaReferencia(assinatura);
        if (xmlSecDSigCtxVerify(ctx.get(), assinatura) < 0)
            return Falhar(erro, QStringLiteral("Não foi possível verificar a assinatura de '%1': falta o certificado "
                                               "ou o elemento assinado, ou a assinatura tem uma forma não aceita").arg(uri));
        if (ctx->status == xmlSecDSigStatusSucceeded)
            continue;
        for (xmlSecSize i = 0; i < xmlSecPtrListGetSize(&ctx->signedInfoReferences); ++i) {
            auto *ref = static_cast<xmlSecDSigReferenceCtxPtr>(xmlSecPtrListGetItem(&ctx->signedInfoReferences, i));
            if (ref && ref->status != xmlSecDSigStatusSucceeded)
                return Falhar(erro, QStringLiteral("O conteúdo assinado foi alterado depois da assinatura: o resumo "
                                                   "(DigestValue) de '%1' não confere").arg(uri));
        }
        return Falhar(erro, QStringLiteral("A assinatura não confere com o certificado que a acompanha ('%1')").arg(uri));
    }
    return true;
}
