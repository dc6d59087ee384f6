// pavrel: a small host that loads the manual-notes module and shows it.
#include "PavrelExports.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QLibrary>
#include <QMainWindow>
#include <QTextStream>

#include <memory>

namespace {

void erro(const QString &texto)
{
    QTextStream(stderr) << "pavrel: " << texto << Qt::endl;
}

// Commands that never open a window must not need a display.
bool precisaDeTela(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray arg(argv[i]);
        if (arg == "--create-database" || arg.startsWith("--create-database=") || arg == "--help"
            || arg == "-h" || arg == "--version" || arg == "-v")
            return false;
    }
    return true;
}

template <typename Fn>
Fn resolver(QLibrary &biblioteca, const char *nome)
{
    auto fn = reinterpret_cast<Fn>(biblioteca.resolve(nome));
    if (!fn)
        erro(QStringLiteral("%1 não encontrada em %2").arg(QString::fromLatin1(nome), biblioteca.fileName()));
    return fn;
}

int inteiro(const QCommandLineParser &parser, const QString &opcao, bool *ok)
{
    if (!parser.isSet(opcao))
        return 0;
    bool valido = false;
    const int valor = parser.value(opcao).toInt(&valido);
    if (!valido || valor < 0) {
        erro(QStringLiteral("valor inválido para --%1: %2").arg(opcao, parser.value(opcao)));
        *ok = false;
    }
    return valor;
}

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<QCoreApplication> app(precisaDeTela(argc, argv) ? new QApplication(argc, argv)
                                                                    : new QCoreApplication(argc, argv));
    QCoreApplication::setOrganizationName(QStringLiteral("Pavrel"));
    QCoreApplication::setApplicationName(QStringLiteral("pavrel"));

    QLibrary biblioteca(QCoreApplication::applicationDirPath() + QStringLiteral("/libpavrel.so"));
    if (!biblioteca.load()) {
        erro(biblioteca.errorString());
        return 3;
    }
    const auto versao = resolver<PavrelVersaoFn>(biblioteca, "PavrelVersao");
    const auto iniciar = resolver<PavrelIniciarFn>(biblioteca, "PavrelIniciar");
    const auto criarBanco = resolver<PavrelCriarBancoFn>(biblioteca, "PavrelCriarBanco");
    if (!versao || !iniciar || !criarBanco)
        return 3;
    QCoreApplication::setApplicationVersion(QString::fromUtf8(versao()));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Notas manuais: entrada, conferência, baixa e cancelamento de notas fiscais.\n"
        "Sem --database, usa o arquivo padrão (criado com dados de demonstração no primeiro uso),\n"
        "ou a variável PAVREL_DATABASE. Um servidor Firebird é indicado como servidor:/caminho/arquivo.fdb."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {QStringLiteral("database"), QStringLiteral("Banco de dados: arquivo ou servidor:caminho."), QStringLiteral("PATH")},
        {QStringLiteral("company"), QStringLiteral("Código da empresa (padrão 1)."), QStringLiteral("N")},
        {QStringLiteral("station"), QStringLiteral("Código da estação de trabalho (padrão 1)."), QStringLiteral("N")},
        {QStringLiteral("debug"), QStringLiteral("Nível de depuração (modo_debug)."), QStringLiteral("N")},
        {QStringLiteral("create-database"), QStringLiteral("Cria o banco de dados em PATH e sai."), QStringLiteral("PATH")},
        {QStringLiteral("empty"), QStringLiteral("Com --create-database: sem dados de demonstração.")},
    });
    parser.process(*app);

    QString mensagem;
    if (parser.isSet(QStringLiteral("create-database"))) {
        const QString caminho = parser.value(QStringLiteral("create-database"));
        if (!criarBanco(caminho.toUtf8().constData(), !parser.isSet(QStringLiteral("empty")), &mensagem)) {
            erro(mensagem);
            return 1;
        }
        QTextStream(stdout) << "Banco de dados criado: " << caminho << Qt::endl;
        return 0;
    }

    bool ok = true;
    const int empresa = inteiro(parser, QStringLiteral("company"), &ok);
    const int estacao = inteiro(parser, QStringLiteral("station"), &ok);
    const int debug = inteiro(parser, QStringLiteral("debug"), &ok);
    if (!ok)
        return 2;
    const QByteArray database = parser.value(QStringLiteral("database")).toUtf8();
    if (!iniciar(database.constData(), empresa, estacao, debug, &mensagem)) {
        erro(mensagem);
        return 1;
    }

    QMainWindow janela;
    janela.setWindowTitle(QStringLiteral("Pavrel"));
    auto *vazio = new QLabel(QStringLiteral("Pavrel"), &janela);
    vazio->setAlignment(Qt::AlignCenter);
    janela.setCentralWidget(vazio);
    janela.resize(1200, 760);
    janela.show();
    return app->exec();
}
