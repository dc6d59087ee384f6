#include "ServidorTeste.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

const QString Binario = QStringLiteral("/usr/sbin/firebird");
const QString Isql = QStringLiteral("/usr/bin/isql-fb");
const QString Instalacao = QStringLiteral("/usr/lib/x86_64-linux-gnu/firebird/3.0");
const QString Seguranca = QStringLiteral("/var/lib/firebird/3.0/system/security3.fdb");

sockaddr_in enderecoLocal(int porta)
{
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(quint16(porta));
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return a;
}

// A port the kernel just handed out and took back: free unless someone races for it.
int portaLivre()
{
    const int s = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a = enderecoLocal(0);
    socklen_t tamanho = sizeof a;
    int porta = 0;
    if (::bind(s, reinterpret_cast<sockaddr *>(&a), sizeof a) == 0
        && ::getsockname(s, reinterpret_cast<sockaddr *>(&a), &tamanho) == 0)
        porta = ntohs(a.sin_port);
    ::close(s);
    return porta;
}

bool gravar(const QString &caminho, const QByteArray &conteudo)
{
    QFile f(caminho);
    return f.open(QIODevice::WriteOnly) && f.write(conteudo) == conteudo.size();
}

} // namespace

ServidorTeste::ServidorTeste()
{
    if (preparar())
        Iniciar();
}

ServidorTeste::~ServidorTeste()
{
    Parar();
}

bool ServidorTeste::preparar()
{
    if (!QFile::exists(Binario) || !QFile::exists(Seguranca)) {
        m_erro = QStringLiteral("servidor Firebird 3 não instalado (%1)").arg(Binario);
        return false;
    }
    m_porta = portaLivre();
    const QDir d(m_pasta.path());
    const QByteArray conf = QStringLiteral("RemoteServicePort = %1\nRemoteBindAddress = 127.0.0.1\n"
                                           "SecurityDatabase = %2\nAuthServer = Srp\nUserManager = Srp\n")
                                .arg(m_porta).arg(d.filePath(QStringLiteral("sec.fdb"))).toUtf8();
    bool ok = gravar(d.filePath(QStringLiteral("firebird.conf")), conf)
              && QFile::copy(Instalacao + QStringLiteral("/plugins.conf"), d.filePath(QStringLiteral("plugins.conf")))
              && QFile::copy(Seguranca, d.filePath(QStringLiteral("sec.fdb")));
    for (const char *item : {"firebird.msg", "intl", "plugins"})
        ok = ok && QFile::link(Instalacao + '/' + QLatin1String(item), d.filePath(QLatin1String(item)));
    QFile::setPermissions(d.filePath(QStringLiteral("sec.fdb")), QFile::ReadOwner | QFile::WriteOwner);
    if (!ok) {
        m_erro = QStringLiteral("não foi possível preparar a pasta do servidor em %1").arg(d.path());
        return false;
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("FIREBIRD"), d.path());
    env.insert(QStringLiteral("FIREBIRD_LOCK"), d.filePath(QStringLiteral("lock")));
    m_processo.setProcessEnvironment(env);
    m_processo.setProcessChannelMode(QProcess::MergedChannels);

    QProcess isql;
    isql.setProcessEnvironment(env);
    isql.setProcessChannelMode(QProcess::MergedChannels);
    isql.start(Isql, {QStringLiteral("-q"), QStringLiteral("-user"), QStringLiteral("SYSDBA"), d.filePath(QStringLiteral("sec.fdb"))});
    isql.write("create or alter user SYSDBA password 'masterkey' using plugin Srp;\ncommit;\n");
    isql.closeWriteChannel();
    if (!isql.waitForFinished(30000) || isql.exitCode() != 0) {
        m_erro = QStringLiteral("não foi possível criar o usuário do servidor: %1").arg(QString::fromUtf8(isql.readAll()));
        return false;
    }
    return true;
}

bool ServidorTeste::Iniciar()
{
    m_processo.start(Binario, {QStringLiteral("-p"), QString::number(m_porta)});
    if (!m_processo.waitForStarted(10000) || !aceitaConexoes(15000)) {
        m_erro = QStringLiteral("o servidor Firebird não atendeu na porta %1: %2")
                     .arg(m_porta).arg(QString::fromUtf8(m_processo.readAll()));
        m_processo.kill();
        m_processo.waitForFinished(5000);
        return false;
    }
    return true;
}

bool ServidorTeste::Parar()
{
    if (m_processo.state() == QProcess::NotRunning)
        return true;
    m_processo.terminate();
    if (!m_processo.waitForFinished(15000)) {
        m_processo.kill();
        m_processo.waitForFinished(5000);
    }
    return m_processo.state() == QProcess::NotRunning;
}

bool ServidorTeste::aceitaConexoes(int msLimite) const
{
    QElapsedTimer relogio;
    relogio.start();
    while (relogio.elapsed() < msLimite) {
        const int s = ::socket(AF_INET, SOCK_STREAM, 0);
        const sockaddr_in a = enderecoLocal(m_porta);
        const bool conectou = ::connect(s, reinterpret_cast<const sockaddr *>(&a), sizeof a) == 0;
        ::close(s);
        if (conectou)
            return true;
        if (m_processo.state() == QProcess::NotRunning)
            return false;
        QThread::msleep(50);
    }
    return false;
}

TDadosBanco ServidorTeste::Publicar(const QString &arquivo, const QString &nome)
{
    const QString destino = QDir(m_pasta.path()).filePath(nome);
    QFile::remove(destino);
    if (!QFile::copy(arquivo, destino))
        m_erro = QStringLiteral("não foi possível copiar %1 para %2").arg(arquivo, destino);
    TDadosBanco banco;
    banco.database = QStringLiteral("127.0.0.1/%1:%2").arg(m_porta).arg(destino);
    return banco;
}
