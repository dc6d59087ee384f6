#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>

// What the emitter says when the company has no certificate configured.
inline const QString MensagemSemCertificado =
    QStringLiteral("Indique o certificado digital da empresa (arquivo .pfx e senha)");
// The organisation of every certificate made by GerarCertificadoTeste; Teste() looks for it.
inline const QString OrganizacaoCertificadoTeste = QStringLiteral("PAVREL - CERTIFICADO DE TESTE");

// The company's A1 certificate: a PKCS#12 file (older RC2-40 files too) with its private key.
// Opaque OpenSSL objects stay inside; the signer and the TLS transport reach them through the
// accessors.
class TCertificadoA1
{
public:
    ~TCertificadoA1();
    TCertificadoA1(const TCertificadoA1 &) = delete;
    TCertificadoA1 &operator=(const TCertificadoA1 &) = delete;

    // Null, with erro saying why in Portuguese ("Senha do certificado incorreta: FILE", "Não foi
    // possível ler o certificado FILE: ..."), when the file cannot be opened. `nome` names the
    // bytes' origin in those messages.
    static std::unique_ptr<TCertificadoA1> Abrir(const QString &arquivo, const QString &senha, QString *erro);
    static std::unique_ptr<TCertificadoA1> AbrirDeBytes(const QByteArray &pkcs12, const QString &senha, QString *erro,
                                                        const QString &nome = QString());

    // The CNPJ the certificate was issued to (ICP-Brasil otherName 2.16.76.1.3.3, else the
    // subject's CN "NAME:CNPJ"); empty when it carries none.
    QString Cnpj() const;
    QString Titular() const;         // subject CN
    QDateTime ValidoDe() const;
    QDateTime ValidoAte() const;
    bool Teste() const;              // made by test-certificate: never accepted in production

    // One clear refusal each: expired or not yet valid, CNPJ not the company's, a test
    // certificate in production (tpAmb 1). The CNPJs are compared as text, without punctuation,
    // by their base (the first 8 characters), as the authority does: a branch signs with the
    // head office's certificate.
    bool Aceitar(const QString &cnpjEmpresa, const QDateTime &agora, int tpAmb, QString *erro) const;

    QByteArray CertificadoDer() const;   // the X.509 certificate, DER
    QByteArray CertificadoPem() const;
    QByteArray ChavePrivadaPem() const;  // unencrypted PEM, for the signer and TLS only
    void *X509() const;                  // X509*
    void *ChavePrivada() const;          // EVP_PKEY*

private:
    TCertificadoA1();
    struct Dados;
    std::unique_ptr<Dados> d;
};

// Where the company's certificate comes from: PAVREL_CERTIFICADO and PAVREL_CERTIFICADO_SENHA
// (the app sets them from --certificate and --certificate-password), else the host's
// configuration store ("NFE_CERTIFICADO_<empresa>" and "NFE_CERTIFICADO_SENHA_<empresa>").
struct TOrigemCertificado
{
    QString arquivo, senha;
};
TOrigemCertificado OrigemCertificado(int empresa);

// A self-signed (or CA-signed) A1-like certificate for trying the product and for the tests.
struct TPedidoCertificadoTeste
{
    QString cnpj;                    // put in the subject CN ("NAME:CNPJ") and in otherName 2.16.76.1.3.3
    QString nome = QStringLiteral("CERTIFICADO DE TESTE PAVREL");
    QDateTime validoDe, validoAte;   // default: from yesterday for one year
    QString senha;
    bool legado = false;             // RC2-40 / 3DES PKCS#12, as older tools write them
    // When set, signed by this CA (PEM) instead of self-signed.
    QByteArray caCertificadoPem, caChavePem;
};
// The PKCS#12 bytes; empty with erro on failure.
QByteArray GerarCertificadoTeste(const TPedidoCertificadoTeste &pedido, QString *erro);
// A CA certificate and key (PEM), for tests that need a chain.
bool GerarAutoridadeTeste(const QString &nome, QByteArray *certificadoPem, QByteArray *chavePem, QString *erro);
