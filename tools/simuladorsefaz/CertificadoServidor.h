#pragma once

#include <QByteArray>
#include <QString>

// The simulator's TLS server certificate: signed by a test authority, valid for 127.0.0.1 and
// localhost, for server authentication (what GerarCertificadoTeste's client certificates lack).
struct TCertificadoServidor
{
    QByteArray certificadoPem, chavePem;
};
bool GerarCertificadoServidor(const QByteArray &caPem, const QByteArray &caChavePem, TCertificadoServidor *servidor,
                              QString *erro);

// The files --gerar writes into `pasta` for trying the product by hand: ca.pem, ca.key,
// servidor.pem, servidor.key and empresa.pfx (the company's A1 for `cnpj`, with `senha`).
bool GerarPastaTeste(const QString &pasta, const QString &cnpj, const QString &senha, QString *erro);
