#pragma once

#include <QByteArray>
#include <QString>

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pkcs12.h>
#include <openssl/x509.h>

#include <memory>

// Small owners and helpers around OpenSSL for the certificate pieces of the NF-e library.
namespace OpenSSLNFe {

// The "default" and, when installed, the "legacy" provider (RC2-40 PKCS#12 files), once.
void CarregarProvedores();

template <auto Liberar>
struct TLiberador
{
    template <typename T> void operator()(T *p) const { Liberar(p); }
};
using TBio = std::unique_ptr<BIO, TLiberador<BIO_free_all>>;
using TX509 = std::unique_ptr<X509, TLiberador<X509_free>>;
using TChave = std::unique_ptr<EVP_PKEY, TLiberador<EVP_PKEY_free>>;
using TPkcs12 = std::unique_ptr<PKCS12, TLiberador<PKCS12_free>>;

TBio BioDeBytes(const QByteArray &bytes);
QByteArray BytesDoBio(BIO *bio);
// The reason of the last OpenSSL error (and the queue emptied), for the technical part of a message.
QString UltimoErro();

} // namespace OpenSSLNFe
