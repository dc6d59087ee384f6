#include "Servidor.h"

#include "Sefaz.h"

#include <QFile>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>

#include <cstdio>

namespace {

QByteArray LerArquivo(const QString &arquivo, QString *erro)
{
    QFile f(arquivo);
    if (!f.open(QIODevice::ReadOnly)) {
        *erro = QStringLiteral("Não foi possível ler %1: %2").arg(arquivo, f.errorString());
        return {};
    }
    return f.readAll();
}

void Registrar(const QString &linha)
{
    std::fprintf(stderr, "%s\n", qPrintable(linha));
    std::fflush(stderr);
}

} // namespace

TServidor::TServidor(TSefaz &sefaz) : m_sefaz(sefaz)
{
    connect(&m_servidor, &QSslServer::pendingConnectionAvailable, this, [this] {
        while (auto *socket = qobject_cast<QSslSocket *>(m_servidor.nextPendingConnection())) {
            connect(socket, &QSslSocket::readyRead, this, [this, socket] { Ler(socket); });
            connect(socket, &QSslSocket::disconnected, this, [this, socket] {
                m_recebido.remove(socket);
                m_continuados.remove(socket);
                socket->deleteLater();
            });
        }
    });
    // A refused handshake (no certificate, or one from another authority) is worth a line.
    connect(&m_servidor, &QSslServer::errorOccurred, this, [](QSslSocket *s, QAbstractSocket::SocketError e) {
        if (e == QAbstractSocket::SslHandshakeFailedError)
            Registrar(QStringLiteral("TLS recusado: %1").arg(s->errorString()));
    });
}

bool TServidor::Escutar(quint16 porta, const QString &certificado, const QString &chave, const QString &caClientes,
                        QString *erro)
{
    const QByteArray cert = LerArquivo(certificado, erro), key = LerArquivo(chave, erro), ca = LerArquivo(caClientes, erro);
    if (cert.isEmpty() || key.isEmpty() || ca.isEmpty())
        return false;
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setLocalCertificate(QSslCertificate(cert));
    tls.setPrivateKey(QSslKey(key, QSsl::Rsa));
    // The clients' authority is the only one trusted: any other client certificate fails.
    tls.setCaCertificates(QSslCertificate::fromData(ca));
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    tls.setProtocol(QSsl::TlsV1_2OrLater);
    if (tls.localCertificate().isNull() || tls.privateKey().isNull() || tls.caCertificates().isEmpty()) {
        *erro = QStringLiteral("Certificado, chave ou autoridade ilegível (%1, %2, %3)").arg(certificado, chave, caClientes);
        return false;
    }
    m_servidor.setSslConfiguration(tls);
    m_servidor.setHandshakeTimeout(10000);
    if (!m_servidor.listen(QHostAddress::LocalHost, porta)) {
        *erro = QStringLiteral("Não foi possível escutar em 127.0.0.1:%1: %2").arg(porta).arg(m_servidor.errorString());
        return false;
    }
    return true;
}

void TServidor::Ler(QSslSocket *socket)
{
    QByteArray &buffer = m_recebido[socket];
    buffer += socket->readAll();
    // Several requests may wait in one buffer on a kept-alive connection.
    while (socket->state() == QAbstractSocket::ConnectedState) {
        const qsizetype fimCabecalho = buffer.indexOf("\r\n\r\n");
        if (fimCabecalho < 0)
            return;
        const QList<QByteArray> linhas = buffer.left(fimCabecalho).split('\n');
        const QList<QByteArray> pedido = linhas.value(0).trimmed().split(' ');
        qsizetype tamanho = 0;
        bool fechar = linhas.value(0).trimmed().endsWith("HTTP/1.0");
        for (const QByteArray &l : linhas.mid(1)) {
            const qsizetype d = l.indexOf(':');
            const QByteArray nome = l.left(d).trimmed().toLower(), valor = l.mid(d + 1).trimmed();
            if (nome == "content-length")
                tamanho = valor.toLongLong();
            else if (nome == "connection")
                fechar = valor.toLower() == "close";
            else if (nome == "expect" && valor.toLower() == "100-continue" && !m_continuados.contains(socket)) {
                m_continuados.insert(socket);   // curl waits for this before a larger body
                socket->write("HTTP/1.1 100 Continue\r\n\r\n");
            }
        }
        if (buffer.size() < fimCabecalho + 4 + tamanho)
            return;
        m_continuados.remove(socket);
        const QByteArray corpo = buffer.mid(fimCabecalho + 4, tamanho);
        buffer.remove(0, fimCabecalho + 4 + tamanho);
        if (pedido.value(0) != "POST") {
            socket->write("HTTP/1.1 405 Method Not Allowed\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
            socket->disconnectFromHost();
            return;
        }
        Responder(socket, pedido.value(1), corpo, fechar);
    }
}

void TServidor::Responder(QSslSocket *socket, const QByteArray &caminho, const QByteArray &corpo, bool fechar)
{
    TSefaz::TResposta r = m_sefaz.Atender(QString::fromUtf8(caminho), corpo);
    Registrar(r.resumo);
    if (r.modo == TSefaz::TResposta::TModo::Descartar) {
        socket->abort();
        return;
    }
    // Cut in the middle of the XML, the HTTP length matching what is sent.
    if (r.modo == TSefaz::TResposta::TModo::Truncar)
        r.corpo.truncate(r.corpo.size() / 2);
    const QByteArray status = r.http == 200 ? "200 OK" : QByteArray::number(r.http) + " Internal Server Error";
    socket->write("HTTP/1.1 " + status + "\r\nContent-Type: " + r.tipo + "\r\nContent-Length: "
                  + QByteArray::number(r.corpo.size()) + "\r\nConnection: " + (fechar ? "close" : "keep-alive")
                  + "\r\n\r\n" + r.corpo);
    if (fechar)
        socket->disconnectFromHost();
}
