#pragma once

#include "TCertificadoA1.h"

#include <QByteArray>
#include <QString>

// A test certificate authority and an A1 certificate it signed for one CNPJ, made with OpenSSL
// once per process and CNPJ (making RSA keys is slow).
struct TCertificadosTeste
{
    QByteArray caPem, caChavePem;    // the authority
    QByteArray pfx;                  // the A1, PKCS#12 with the authority in its chain
    QString senha;
};
const TCertificadosTeste &CertificadosTeste(const QString &cnpj = QStringLiteral("12345678000195"));
// The A1 of CertificadosTeste(cnpj), opened.
std::unique_ptr<TCertificadoA1> AbrirCertificadoTeste(const QString &cnpj = QStringLiteral("12345678000195"));
