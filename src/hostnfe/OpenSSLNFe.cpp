#include "OpenSSLNFe.h"

#include <openssl/err.h>
#include <openssl/provider.h>

#include <mutex>

void OpenSSLNFe::CarregarProvedores()
{
    static std::once_flag carregados;
    std::call_once(carregados, [] {
        // Loading one provider by hand turns off the implicit default one, so both are loaded.
        OSSL_PROVIDER_load(nullptr, "default");
        OSSL_PROVIDER_load(nullptr, "legacy");
        ERR_clear_error();
    });
}

OpenSSLNFe::TBio OpenSSLNFe::BioDeBytes(const QByteArray &bytes)
{
    return TBio(BIO_new_mem_buf(bytes.constData(), int(bytes.size())));
}

QByteArray OpenSSLNFe::BytesDoBio(BIO *bio)
{
    char *dados = nullptr;
    const long tamanho = BIO_get_mem_data(bio, &dados);
    return QByteArray(dados, int(tamanho));
}

QString OpenSSLNFe::UltimoErro()
{
    const unsigned long codigo = ERR_peek_last_error();
    ERR_clear_error();
    const char *razao = codigo ? ERR_reason_error_string(codigo) : nullptr;
    return razao ? QString::fromUtf8(razao) : QStringLiteral("erro desconhecido");
}
