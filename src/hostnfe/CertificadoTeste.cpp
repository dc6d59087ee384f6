// Test certificates shaped like ICP-Brasil A1 ones, made with OpenSSL.
#include "TCertificadoA1.h"

#include "OpenSSLNFe.h"

#include <openssl/bn.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/rsa.h>
#include <openssl/x509v3.h>

using namespace OpenSSLNFe;

namespace {

bool Falhar(QString *erro, const QString &oQue)
{
    if (erro)
        *erro = QStringLiteral("Não foi possível gerar o certificado de teste: %1 (%2)").arg(oQue, UltimoErro());
    return false;
}

bool AcrescentarExtensao(::X509 *cert, X509V3_CTX *ctx, int nid, const char *valor)
{
    X509_EXTENSION *ext = X509V3_EXT_conf_nid(nullptr, ctx, nid, valor);
    const bool ok = ext && X509_add_ext(cert, ext, -1);
    X509_EXTENSION_free(ext);
    return ok;
}

bool AcrescentarNome(X509_NAME *nome, const char *campo, const QString &valor)
{
    const QByteArray v = valor.toUtf8();
    return X509_NAME_add_entry_by_txt(nome, campo, MBSTRING_UTF8, reinterpret_cast<const unsigned char *>(v.constData()),
                                      int(v.size()), -1, 0);
}

struct TEmissor
{
    ::X509 *certificado = nullptr;   // null: self-signed
    EVP_PKEY *chave = nullptr;
};

// A certificate for `chave` with the subject C=BR, O=<test marker>, CN=<cn>, signed by the
// issuer (or by itself) with SHA-256; the extensions are given as OpenSSL configuration text.
TX509 Emitir(EVP_PKEY *chave, const QString &cn, const QDateTime &de, const QDateTime &ate, const TEmissor &emissor,
             const std::initializer_list<std::pair<int, QByteArray>> &extensoes, QString *erro)
{
    TX509 cert(X509_new());
    std::unique_ptr<BIGNUM, TLiberador<BN_free>> serie(BN_new());
    X509_NAME *titular = X509_get_subject_name(cert.get());
    bool ok = cert && serie && X509_set_version(cert.get(), 2) && BN_rand(serie.get(), 63, BN_RAND_TOP_ANY, BN_RAND_BOTTOM_ANY)
              && BN_to_ASN1_INTEGER(serie.get(), X509_get_serialNumber(cert.get()))
              && ASN1_TIME_set(X509_getm_notBefore(cert.get()), time_t(de.toSecsSinceEpoch()))
              && ASN1_TIME_set(X509_getm_notAfter(cert.get()), time_t(ate.toSecsSinceEpoch()))
              && AcrescentarNome(titular, "C", QStringLiteral("BR"))
              && AcrescentarNome(titular, "O", OrganizacaoCertificadoTeste) && AcrescentarNome(titular, "CN", cn)
              && X509_set_issuer_name(cert.get(), emissor.certificado ? X509_get_subject_name(emissor.certificado) : titular)
              && X509_set_pubkey(cert.get(), chave);
    X509V3_CTX ctx;
    X509V3_set_ctx(&ctx, emissor.certificado ? emissor.certificado : cert.get(), cert.get(), nullptr, nullptr, 0);
    for (const auto &[nid, valor] : extensoes)
        ok = ok && AcrescentarExtensao(cert.get(), &ctx, nid, valor.constData());
    ok = ok && X509_sign(cert.get(), emissor.chave ? emissor.chave : chave, EVP_sha256()) > 0;
    if (!ok) {
        Falhar(erro, QStringLiteral("certificado X.509"));
        return nullptr;
    }
    return cert;
}

QDateTime PadraoSeVazio(const QDateTime &t, qint64 diasDeHoje)
{
    return t.isValid() ? t : QDateTime::currentDateTimeUtc().addDays(diasDeHoje);
}

} // namespace

QByteArray GerarCertificadoTeste(const TPedidoCertificadoTeste &pedido, QString *erro)
{
    CarregarProvedores();
    TChave chave(EVP_RSA_gen(2048));
    if (!chave) {
        Falhar(erro, QStringLiteral("chave RSA"));
        return {};
    }
    TEmissor emissor;
    TX509 ca;
    TChave chaveCa;
    if (!pedido.caCertificadoPem.isEmpty()) {
        ca.reset(PEM_read_bio_X509(BioDeBytes(pedido.caCertificadoPem).get(), nullptr, nullptr, nullptr));
        chaveCa.reset(PEM_read_bio_PrivateKey(BioDeBytes(pedido.caChavePem).get(), nullptr, nullptr, nullptr));
        if (!ca || !chaveCa) {
            Falhar(erro, QStringLiteral("autoridade certificadora ilegível"));
            return {};
        }
        emissor = {ca.get(), chaveCa.get()};
    }
    const QDateTime de = PadraoSeVazio(pedido.validoDe, -1);
    const QDateTime ate = pedido.validoAte.isValid() ? pedido.validoAte : de.addYears(1);
    const QByteArray cnpj = pedido.cnpj.toLatin1();
    TX509 cert = Emitir(chave.get(), pedido.nome + QLatin1Char(':') + pedido.cnpj, de, ate, emissor,
                        {{NID_basic_constraints, "critical,CA:FALSE"},
                         {NID_key_usage, "critical,digitalSignature,nonRepudiation,keyEncipherment"},
                         {NID_ext_key_usage, "clientAuth,emailProtection"},
                         {NID_subject_key_identifier, "hash"},
                         {NID_authority_key_identifier, "keyid"},
                         {NID_subject_alt_name, "otherName:2.16.76.1.3.3;OCTETSTRING:" + cnpj}},
                        erro);
    if (!cert)
        return {};

    // The chain travels with the certificate, as in the files the certifying authorities deliver.
    STACK_OF(X509) *cadeia = sk_X509_new_null();
    if (ca)
        sk_X509_push(cadeia, ca.get());
    const QByteArray senha = pedido.senha.toUtf8();
    const int cifraChave = pedido.legado ? NID_pbe_WithSHA1And3_Key_TripleDES_CBC : 0;
    const int cifraCertificados = pedido.legado ? NID_pbe_WithSHA1And40BitRC2_CBC : 0;
    // The old files also carry a SHA-1 MAC.
    TPkcs12 p12(PKCS12_create(senha.constData(), pedido.nome.toUtf8().constData(), chave.get(), cert.get(),
                              cadeia, cifraChave, cifraCertificados, 0, pedido.legado ? -1 : 0, 0));
    sk_X509_free(cadeia);
    if (p12 && pedido.legado
        && !PKCS12_set_mac(p12.get(), senha.constData(), -1, nullptr, 0, PKCS12_DEFAULT_ITER, EVP_sha1()))
        p12.reset();
    if (!p12) {
        Falhar(erro, QStringLiteral("arquivo PKCS#12"));
        return {};
    }
    TBio saida(BIO_new(BIO_s_mem()));
    i2d_PKCS12_bio(saida.get(), p12.get());
    return BytesDoBio(saida.get());
}

bool GerarAutoridadeTeste(const QString &nome, QByteArray *certificadoPem, QByteArray *chavePem, QString *erro)
{
    CarregarProvedores();
    TChave chave(EVP_RSA_gen(2048));
    if (!chave)
        return Falhar(erro, QStringLiteral("chave RSA"));
    const QDateTime de = QDateTime::currentDateTimeUtc().addDays(-2);
    TX509 cert = Emitir(chave.get(), nome, de, de.addYears(10), {},
                        {{NID_basic_constraints, "critical,CA:TRUE"},
                         {NID_key_usage, "critical,keyCertSign,cRLSign"},
                         {NID_subject_key_identifier, "hash"}},
                        erro);
    if (!cert)
        return false;
    TBio c(BIO_new(BIO_s_mem())), k(BIO_new(BIO_s_mem()));
    PEM_write_bio_X509(c.get(), cert.get());
    PEM_write_bio_PrivateKey(k.get(), chave.get(), nullptr, nullptr, 0, nullptr, nullptr);
    *certificadoPem = BytesDoBio(c.get());
    *chavePem = BytesDoBio(k.get());
    return true;
}
