#include "CertificadoServidor.h"

#include "OpenSSLNFe.h"
#include "TCertificadoA1.h"

#include <QDateTime>
#include <QDir>
#include <QSaveFile>

#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

using namespace OpenSSLNFe;

namespace {

bool Erro(QString *erro, const QString &oQue)
{
    if (erro)
        *erro = QStringLiteral("Não foi possível gerar o certificado do servidor: %1 (%2)").arg(oQue, UltimoErro());
    return false;
}

bool Extensao(::X509 *cert, X509V3_CTX *ctx, int nid, const char *valor)
{
    X509_EXTENSION *ext = X509V3_EXT_conf_nid(nullptr, ctx, nid, valor);
    const bool ok = ext && X509_add_ext(cert, ext, -1);
    X509_EXTENSION_free(ext);
    return ok;
}

QByteArray Pem(int (*escrever)(BIO *, void *), void *objeto)
{
    TBio bio(BIO_new(BIO_s_mem()));
    escrever(bio.get(), objeto);
    return BytesDoBio(bio.get());
}

bool Gravar(const QString &arquivo, const QByteArray &bytes, QString *erro)
{
    QSaveFile f(arquivo);
    if (f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size() && f.commit())
        return true;
    if (erro)
        *erro = QStringLiteral("Não foi possível gravar %1: %2").arg(arquivo, f.errorString());
    return false;
}

} // namespace

bool GerarCertificadoServidor(const QByteArray &caPem, const QByteArray &caChavePem, TCertificadoServidor *servidor,
                              QString *erro)
{
    CarregarProvedores();
    TX509 ca(PEM_read_bio_X509(BioDeBytes(caPem).get(), nullptr, nullptr, nullptr));
    TChave chaveCa(PEM_read_bio_PrivateKey(BioDeBytes(caChavePem).get(), nullptr, nullptr, nullptr));
    if (!ca || !chaveCa)
        return Erro(erro, QStringLiteral("autoridade ilegível"));
    TChave chave(EVP_RSA_gen(2048));
    TX509 cert(X509_new());
    if (!chave || !cert)
        return Erro(erro, QStringLiteral("chave RSA"));

    unsigned char serie[8];
    RAND_bytes(serie, sizeof serie);
    serie[0] &= 0x7f;
    ASN1_INTEGER *numero = X509_get_serialNumber(cert.get());
    ASN1_STRING_set(numero, serie, sizeof serie);
    X509_NAME *titular = X509_get_subject_name(cert.get());
    const time_t agora = time_t(QDateTime::currentSecsSinceEpoch());
    bool ok = X509_set_version(cert.get(), 2) && ASN1_TIME_set(X509_getm_notBefore(cert.get()), agora - 86400)
              && ASN1_TIME_set(X509_getm_notAfter(cert.get()), agora + 2 * 365 * 86400)
              && X509_NAME_add_entry_by_txt(titular, "CN", MBSTRING_ASC,
                                            reinterpret_cast<const unsigned char *>("localhost"), -1, -1, 0)
              && X509_set_issuer_name(cert.get(), X509_get_subject_name(ca.get()))
              && X509_set_pubkey(cert.get(), chave.get());
    X509V3_CTX ctx;
    X509V3_set_ctx(&ctx, ca.get(), cert.get(), nullptr, nullptr, 0);
    ok = ok && Extensao(cert.get(), &ctx, NID_basic_constraints, "critical,CA:FALSE")
         && Extensao(cert.get(), &ctx, NID_key_usage, "critical,digitalSignature,keyEncipherment")
         && Extensao(cert.get(), &ctx, NID_ext_key_usage, "serverAuth")
         && Extensao(cert.get(), &ctx, NID_subject_alt_name, "IP:127.0.0.1,DNS:localhost")
         && Extensao(cert.get(), &ctx, NID_authority_key_identifier, "keyid")
         && X509_sign(cert.get(), chaveCa.get(), EVP_sha256()) > 0;
    if (!ok)
        return Erro(erro, QStringLiteral("certificado X.509"));
    servidor->certificadoPem = Pem([](BIO *b, void *x) { return PEM_write_bio_X509(b, static_cast<::X509 *>(x)); },
                                   cert.get());
    servidor->chavePem = Pem(
        [](BIO *b, void *k) {
            return PEM_write_bio_PrivateKey(b, static_cast<EVP_PKEY *>(k), nullptr, nullptr, 0, nullptr, nullptr);
        },
        chave.get());
    return true;
}

bool GerarPastaTeste(const QString &pasta, const QString &cnpj, const QString &senha, QString *erro)
{
    QByteArray caPem, caChave;
    TCertificadoServidor servidor;
    TPedidoCertificadoTeste pedido;
    pedido.cnpj = cnpj;
    pedido.senha = senha;
    if (!QDir().mkpath(pasta)) {
        if (erro)
            *erro = QStringLiteral("Não foi possível criar a pasta %1").arg(pasta);
        return false;
    }
    if (!GerarAutoridadeTeste(QStringLiteral("AC SEFAZ SIMULADA PAVREL"), &caPem, &caChave, erro)
        || !GerarCertificadoServidor(caPem, caChave, &servidor, erro))
        return false;
    pedido.caCertificadoPem = caPem;
    pedido.caChavePem = caChave;
    const QByteArray pfx = GerarCertificadoTeste(pedido, erro);
    const QDir d(pasta);
    return !pfx.isEmpty() && Gravar(d.filePath(QStringLiteral("ca.pem")), caPem, erro)
           && Gravar(d.filePath(QStringLiteral("ca.key")), caChave, erro)
           && Gravar(d.filePath(QStringLiteral("servidor.pem")), servidor.certificadoPem, erro)
           && Gravar(d.filePath(QStringLiteral("servidor.key")), servidor.chavePem, erro)
           && Gravar(d.filePath(QStringLiteral("empresa.pfx")), pfx, erro);
}
