#include "SimuladorSefaz.h"

#include <QDeadlineTimer>
#include <QDir>

namespace {

// The password `pavrel-sefaz --gerar` gives the company's certificate.
const QString SenhaGerada = QStringLiteral("pavrel");

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

} // namespace

TSimuladorSefaz::TSimuladorSefaz() = default;

TSimuladorSefaz::~TSimuladorSefaz()
{
    if (m_processo.state() == QProcess::NotRunning)
        return;
    m_processo.write("sair\n");
    m_processo.closeWriteChannel();
    if (!m_processo.waitForFinished(2000)) {
        m_processo.kill();
        m_processo.waitForFinished(2000);
    }
}

bool TSimuladorSefaz::Iniciar(const QString &cnpj, QString *erro)
{
    if (!m_pasta.isValid())
        return Falhar(erro, QStringLiteral("Não foi possível criar a pasta temporária do simulador"));
    // The simulator makes its authority, its server certificate and the company's .pfx itself.
    QProcess gerar;
    gerar.start(QStringLiteral(PAVREL_SEFAZ_EXE), {QStringLiteral("--gerar"), Pasta(), QStringLiteral("--cnpj"), cnpj});
    if (!gerar.waitForFinished(60000) || gerar.exitCode() != 0)
        return Falhar(erro, QStringLiteral("pavrel-sefaz --gerar falhou: %1 %2")
                                .arg(gerar.errorString(), QString::fromUtf8(gerar.readAllStandardError())));

    const QDir d(Pasta());
    m_processo.start(QStringLiteral(PAVREL_SEFAZ_EXE),
                     {QStringLiteral("--porta"), QStringLiteral("0"), QStringLiteral("--certificado"),
                      d.filePath(QStringLiteral("servidor.pem")), QStringLiteral("--chave"),
                      d.filePath(QStringLiteral("servidor.key")), QStringLiteral("--ca-clientes"), CaServidor()});
    const QString linha = LerLinha(10000);
    if (!linha.startsWith(QLatin1String("porta "))) {
        m_processo.kill();
        m_processo.waitForFinished(2000);
        return Falhar(erro, QStringLiteral("pavrel-sefaz não começou a escutar em 10 s: %1 %2")
                                .arg(linha, QString::fromUtf8(m_processo.readAllStandardError())));
    }
    m_porta = linha.mid(6).toInt();
    return true;
}

QString TSimuladorSefaz::LerLinha(int esperaMs)
{
    const QDeadlineTimer prazo(esperaMs);
    while (!m_processo.canReadLine() && m_processo.state() != QProcess::NotRunning && !prazo.hasExpired())
        m_processo.waitForReadyRead(int(qMax<qint64>(1, prazo.remainingTime())));
    return m_processo.canReadLine() ? QString::fromUtf8(m_processo.readLine()).trimmed() : QString();
}

void TSimuladorSefaz::Apontar() const
{
    qputenv("PAVREL_NFE_ENDPOINT", Endpoint().toUtf8());
    qputenv("PAVREL_NFE_CA", CaServidor().toUtf8());
    qputenv("PAVREL_CERTIFICADO", CertificadoCliente().toUtf8());
    qputenv("PAVREL_CERTIFICADO_SENHA", SenhaCliente().toUtf8());
}

QString TSimuladorSefaz::Endpoint() const { return QStringLiteral("https://127.0.0.1:%1").arg(m_porta); }
// One authority signs both the server's and the clients' certificates.
QString TSimuladorSefaz::CaServidor() const { return QDir(Pasta()).filePath(QStringLiteral("ca.pem")); }
QString TSimuladorSefaz::CertificadoCliente() const { return QDir(Pasta()).filePath(QStringLiteral("empresa.pfx")); }
QString TSimuladorSefaz::SenhaCliente() const { return SenhaGerada; }
QString TSimuladorSefaz::Pasta() const { return m_pasta.path(); }

QString TSimuladorSefaz::Comando(const QString &linha, QString *erro)
{
    if (m_processo.state() != QProcess::Running) {
        Falhar(erro, QStringLiteral("o simulador não está rodando"));
        return {};
    }
    m_processo.write(linha.toUtf8() + '\n');
    const QString resposta = LerLinha(10000);
    if (resposta.startsWith(QLatin1String("ok")))
        return resposta;
    Falhar(erro, resposta.isEmpty() ? QStringLiteral("o simulador não respondeu a '%1': %2")
                                          .arg(linha, QString::fromUtf8(m_processo.readAllStandardError()))
                                    : resposta);
    return {};
}

int TSimuladorSefaz::Pedidos(const QString &operacao)
{
    const QString r = Comando(QStringLiteral("contar ") + operacao);
    return r.startsWith(QLatin1String("ok ")) ? r.mid(3).toInt() : -1;
}
