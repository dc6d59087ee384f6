#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QSslServer>

class QSslSocket;
class TSefaz;

// HTTPS on 127.0.0.1 for the simulated services: TLS 1.2 or later, a client certificate from the
// clients' authority required, HTTP/1.1 with kept-alive connections.
class TServidor final : public QObject
{
public:
    explicit TServidor(TSefaz &sefaz);
    // Listens on `porta` (0: any free one); false with erro.
    bool Escutar(quint16 porta, const QString &certificado, const QString &chave, const QString &caClientes,
                 QString *erro);
    quint16 Porta() const { return m_servidor.serverPort(); }

private:
    void Ler(QSslSocket *socket);
    void Responder(QSslSocket *socket, const QByteArray &caminho, const QByteArray &corpo, bool fechar);

    TSefaz &m_sefaz;
    QSslServer m_servidor;
    QHash<QSslSocket *, QByteArray> m_recebido;
    QSet<QSslSocket *> m_continuados;   // sent "100 Continue" for the request being read
};
