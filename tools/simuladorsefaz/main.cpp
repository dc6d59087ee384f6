// pavrel-sefaz: a simulator of the tax authority's NF-e services on loopback.
#include "CertificadoServidor.h"
#include "Sefaz.h"
#include "Servidor.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QMetaObject>

#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

namespace {

const QString SenhaEmpresa = QStringLiteral("pavrel");

int Gerar(const QString &pasta, const QString &cnpj)
{
    QString erro;
    if (!GerarPastaTeste(pasta, cnpj, SenhaEmpresa, &erro)) {
        std::fprintf(stderr, "%s\n", qPrintable(erro));
        return 1;
    }
    const QString d = QDir(pasta).absolutePath();
    std::printf("Arquivos em %s (empresa.pfx, CNPJ %s, senha %s).\n"
                "Simulador:\n  pavrel-sefaz --porta 4433 --certificado %s/servidor.pem --chave %s/servidor.key "
                "--ca-clientes %s/ca.pem\n"
                "Produto:\n  pavrel --nfe-endpoint https://127.0.0.1:4433 --nfe-ca %s/ca.pem --certificate %s/empresa.pfx "
                "--certificate-password %s\n",
                qPrintable(d), qPrintable(cnpj), qPrintable(SenhaEmpresa), qPrintable(d), qPrintable(d), qPrintable(d),
                qPrintable(d), qPrintable(d), qPrintable(SenhaEmpresa));
    return 0;
}

// The control language on stdin, one line in and one line out. The end of a pipe ends the
// simulator, so a test that dies takes it along; a terminal or /dev/null leaves it running.
void LerComandos(TSefaz &sefaz)
{
    struct stat entrada {};
    const bool cano = fstat(STDIN_FILENO, &entrada) == 0 && S_ISFIFO(entrada.st_mode);
    std::string linha;
    while (std::getline(std::cin, linha)) {
        QString resposta;
        QMetaObject::invokeMethod(
            qApp, [&] { resposta = sefaz.Comando(QString::fromStdString(linha)); }, Qt::BlockingQueuedConnection);
        std::printf("%s\n", qPrintable(resposta));
        std::fflush(stdout);
        if (resposta == u"ok sair")
            break;
    }
    if (cano || std::cin.good())
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pavrel-sefaz"));
    QCommandLineParser opcoes;
    opcoes.setApplicationDescription(QStringLiteral(
        "Simulador dos serviços da NF-e da SEFAZ (HTTPS em 127.0.0.1, certificado de cliente obrigatório).\n"
        "Comandos na entrada padrão, uma linha cada: status 107|108|109, descartar OP, html OP, truncar OP,\n"
        "outra-chave OP, rejeitar OP CSTAT, documentos N, contar OP, sair. OP: NFeStatusServico4,\n"
        "NFeAutorizacao4, NFeConsultaProtocolo4, NFeRecepcaoEvento4, NFeDistribuicaoDFe."));
    opcoes.addHelpOption();
    opcoes.addOptions({
        {QStringLiteral("porta"), QStringLiteral("Porta em 127.0.0.1 (0: uma livre)."), QStringLiteral("N"), QStringLiteral("0")},
        {QStringLiteral("certificado"), QStringLiteral("Certificado do servidor (PEM)."), QStringLiteral("ARQUIVO")},
        {QStringLiteral("chave"), QStringLiteral("Chave do servidor (PEM)."), QStringLiteral("ARQUIVO")},
        {QStringLiteral("ca-clientes"), QStringLiteral("Autoridade dos certificados de cliente (PEM)."), QStringLiteral("ARQUIVO")},
        {QStringLiteral("documentos"), QStringLiteral("Documentos a distribuir desde o início."), QStringLiteral("N"), QStringLiteral("0")},
        {QStringLiteral("gerar"), QStringLiteral("Gera uma autoridade de teste e os certificados na pasta."), QStringLiteral("PASTA")},
        {QStringLiteral("cnpj"), QStringLiteral("CNPJ do certificado da empresa (--gerar)."), QStringLiteral("CNPJ"),
         QStringLiteral("24587136000108")},
    });
    opcoes.process(app);
    if (opcoes.isSet(QStringLiteral("gerar")))
        return Gerar(opcoes.value(QStringLiteral("gerar")), opcoes.value(QStringLiteral("cnpj")));
    for (const char *obrigatoria : {"certificado", "chave", "ca-clientes"})
        if (!opcoes.isSet(QLatin1String(obrigatoria))) {
            std::fprintf(stderr, "Falta --%s (ou use --gerar PASTA)\n", obrigatoria);
            return 2;
        }

    // Started in the background of a terminal: reading stdin then fails instead of stopping it.
    std::signal(SIGTTIN, SIG_IGN);
    TSefaz sefaz;
    sefaz.AcrescentarDocumentos(opcoes.value(QStringLiteral("documentos")).toInt());
    TServidor servidor(sefaz);
    QString erro;
    if (!servidor.Escutar(quint16(opcoes.value(QStringLiteral("porta")).toUInt()), opcoes.value(QStringLiteral("certificado")),
                          opcoes.value(QStringLiteral("chave")), opcoes.value(QStringLiteral("ca-clientes")), &erro)) {
        std::fprintf(stderr, "%s\n", qPrintable(erro));
        return 1;
    }
    std::printf("porta %u\n", unsigned(servidor.Porta()));
    std::fflush(stdout);
    std::thread comandos(LerComandos, std::ref(sefaz));
    comandos.detach();
    return app.exec();
}
