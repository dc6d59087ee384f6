#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// The authority's simulator (pavrel-sefaz) started for a test on a free loopback port, with a
// test authority of its own, the server's certificate and the company's client certificate.
class TSimuladorSefaz
{
public:
    TSimuladorSefaz();
    ~TSimuladorSefaz();

    // Makes the certificates (the client one for `cnpj`) and starts the simulator; false with erro.
    bool Iniciar(const QString &cnpj, QString *erro);
    // Points the product at it: PAVREL_NFE_ENDPOINT, PAVREL_NFE_CA, PAVREL_CERTIFICADO(_SENHA).
    void Apontar() const;

    QString Endpoint() const;            // https://127.0.0.1:PORT
    QString CaServidor() const;          // PEM the product trusts for the server
    QString CertificadoCliente() const;  // the company's .pfx
    QString SenhaCliente() const;
    QString Pasta() const;               // the certificates' folder

    // One line of the simulator's control language ("status 108", "descartar NFeAutorizacao4",
    // "documentos 3", "contar NFeAutorizacao4"); its one-line answer, or empty with erro.
    QString Comando(const QString &linha, QString *erro = nullptr);
    // How many requests of an operation it has answered or dropped.
    int Pedidos(const QString &operacao);

private:
    QString LerLinha(int esperaMs);   // one line of its stdout, empty after the wait

    QTemporaryDir m_pasta;
    QProcess m_processo;
    int m_porta = 0;
};
