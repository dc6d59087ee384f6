// pavrel: a small host that loads the manual-notes module and shows it.
#include "PavrelExports.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCommandLineParser>
#include <QLibrary>
#include <QMainWindow>
#include <QPointer>
#include <QTextStream>
#include <QTimer>

#include <memory>

namespace {

void erro(const QString &texto)
{
    QTextStream(stderr) << "pavrel: " << texto << Qt::endl;
}

const QStringList OpcoesComValor = {"--database", "--company", "--station", "--debug", "--fiscal-folder",
                                   "--create-database", "--screenshot", "--certificate", "--certificate-password",
                                   "--nfe-endpoint", "--nfe-ca"};

// What the command line asks for decides whether a display is needed at all. A command that
// draws (the DANFE) needs the GUI's fonts and painting, never a display.
enum class Modo { Tela, Foto, SemTela, Desenho };

Modo modoDe(int argc, char **argv)
{
    Modo modo = Modo::Tela;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (OpcoesComValor.contains(arg)) {
            if (arg == QLatin1String("--create-database"))
                return Modo::SemTela;
            if (arg == QLatin1String("--screenshot"))
                modo = Modo::Foto;
            ++i;
            continue;
        }
        // Commands that draw pages need fonts, hence a GUI application, though no display.
        if (QStringList{QStringLiteral("danfe"), QStringLiteral("inputs"), QStringLiteral("romaneio"), QStringLiteral("labels"),
                     QStringLiteral("nfe-print"), QStringLiteral("nfe-cce")}.contains(arg))
            return Modo::Desenho;
        if (arg.startsWith(QLatin1String("--create-database=")) || arg == QLatin1String("--help")
            || arg == QLatin1String("-h") || arg == QLatin1String("--version") || arg == QLatin1String("-v")
            || !arg.startsWith(QLatin1Char('-')))
            return Modo::SemTela;
        if (arg.startsWith(QLatin1String("--screenshot=")))
            modo = Modo::Foto;
    }
    return modo;
}

// The host's main window: the module's screen is its centre, and closing asks the screen first.
class JanelaPrincipal final : public QMainWindow
{
public:
    explicit JanelaPrincipal(QWidget *tela)
        : m_tela(tela)
    {
        setCentralWidget(tela);
        setWindowTitle(tela->windowTitle());
        connect(tela, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
        resize(1366, 768);
    }

protected:
    void closeEvent(QCloseEvent *event) override
    {
        if (m_tela && !m_tela->close())
            event->ignore();
        else
            event->accept();
    }

private:
    QPointer<QWidget> m_tela;
};

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

int fotografar(QWidget &janela, QObject *tela, const QString &arquivo)
{
    int resultado = 1;
    const auto tirar = [&] {
        if (janela.grab().save(arquivo))
            resultado = 0;
        else
            erro(QStringLiteral("não foi possível gravar %1").arg(arquivo));
        QCoreApplication::quit();
    };
    // The screen says when its note list and the current note's items are on it. Either signal
    // starts a zero timer, so both are checked after the events those loads posted (layout,
    // painting) have run.
    auto *conferir = new QTimer(&janela);
    conferir->setSingleShot(true);
    conferir->setInterval(0);
    QObject::connect(conferir, &QTimer::timeout, &janela, [&] {
        if (tela->property("listaCarregada").toBool() && tela->property("itensCarregados").toBool())
            tirar();
    });
    if (!QObject::connect(tela, SIGNAL(ListaCarregada()), conferir, SLOT(start()))
        || !QObject::connect(tela, SIGNAL(ItensCarregados()), conferir, SLOT(start()))) {
        erro(QStringLiteral("a tela não avisa quando está pronta"));
        return 1;
    }
    QTimer::singleShot(60000, &janela, [&] {
        erro(QStringLiteral("a lista de notas não carregou a tempo"));
        QCoreApplication::quit();
    });
    janela.show();
    QCoreApplication::exec();
    return resultado;
}

// The options and the help text, the headless commands among them.
void prepararOpcoes(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Notas manuais: entrada, conferência, baixa e cancelamento de notas fiscais.\n"
        "Sem --database, usa o arquivo padrão (criado com dados de demonstração no primeiro uso),\n"
        "ou a variável PAVREL_DATABASE. Um servidor Firebird é indicado como servidor:/caminho/arquivo.fdb.\n\n"
        "Comandos sem tela:\n"
        "  notes [--from DATA] [--to DATA] [--all-dates] [--supplier N] [--cancelled todas|nao|sim]\n"
        "        [--ndoc N] [--origin todas|manual|xml]   lista as notas como a tela mostra\n"
        "  post NOTA [--yes]     baixa a nota no estoque (NOTA: EEE-CCCCCCC, ou E-S-C)\n"
        "  cancel NOTA [--yes]   cancela a nota (--yes confirma a pergunta)\n"
        "  unpost NOTA [--yes]   desbaixa a nota, retirando seus movimentos do estoque\n"
        "  send NOTA [--yes]     envia a nota baixada ao estoque da empresa de destino\n"
        "  xml-items ARQUIVO... [--supplier N]   lista os itens dos XMLs de NF-e como a importação mostra\n"
        "                        (produtos do fornecedor N, ou do fornecedor com o CNPJ do emitente)\n"
        "  xml-key ARQUIVO       mostra a chave de acesso lida do XML (linha vazia quando não há)\n"
        "  nfe-xml NOTA [--out ARQUIVO]   emite a NF-e da nota (valida e assina) e mostra o arquivo guardado\n"
        "                        na pasta fiscal (NFe_Said/aaaa/mm), ou o copia para ARQUIVO\n"
        "  danfe NOTA|ARQUIVO.xml --pdf SAIDA.pdf   grava o DANFE da NF-e da nota, ou de qualquer XML de NF-e\n"
        "  inputs NOTA [--item N] [--pdf ARQUIVO]   os insumos que a nota (ou o item de Cód.Item N) consome,\n"
        "                        como as telas mostram; com --pdf, também os imprime no arquivo\n"
        "  difal NOTA [--set U,F,I,P --yes]   os movimentos como o ajuste do ICMS da UF de destino abre;\n"
        "                        com --set, grava essas quatro alíquotas em todos eles (--yes confirma)\n"
        "  export ARQUIVO        grava todas as notas, com seus movimentos de estoque, no arquivo de troca\n"
        "  import ARQUIVO --yes  EXCLUI todas as notas e seus movimentos e os recria a partir do arquivo\n"
        "  romaneio NOTA [--pdf ARQUIVO | --text] [--copies N]   imprime o romaneio da nota (na impressora\n"
        "                        padrão; --pdf grava em PDF; --text mostra as linhas que a impressora recebe)\n"
        "  labels NOTA --pdf ARQUIVO [--per-unit] [--roll]   etiquetas de preço dos produtos da nota (uma por\n"
        "                        produto, ou uma por unidade recebida; folha A4 3 x 10, ou rolo)\n"
        "  nfe-status            a situação do serviço de NF-e do autorizador da empresa (código e motivo)\n"
        "  nfe-send NOTA [--yes] emite e envia a NF-e da nota à SEFAZ (--yes responde sim às perguntas)\n"
        "  nfe-cancel NOTA --justificativa TEXTO   envia o cancelamento da NF-e da nota (já cancelada no sistema)\n"
        "  nfe-print NOTA [--pdf ARQUIVO]   imprime o DANFE da NF-e autorizada da nota (ou grava em PDF)\n"
        "  nfe-cce NOTA --texto TEXTO [--pdf ARQUIVO]   envia uma carta de correção da NF-e da nota\n"
        "  nfe-interesse [--manifestar ciencia|confirmacao|desconhecimento|nao-realizada --chave CHAVE]\n"
        "                        baixa e lista as NF-e emitidas para a empresa; ou manifesta o destinatário\n"
        "                        (nao-realizada pede --justificativa TEXTO, de 15 a 255 caracteres)\n"
        "  test-certificate --cnpj N --out ARQUIVO.pfx --password SENHA [--legacy]\n"
        "                        cria um certificado A1 de TESTE para experimentar em homologação\n"
        "                        (nunca aceito em produção; --legacy: PKCS#12 antigo, RC2-40)"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {QStringLiteral("database"), QStringLiteral("Banco de dados: arquivo ou servidor:caminho."), QStringLiteral("PATH")},
        {QStringLiteral("company"), QStringLiteral("Código da empresa (padrão 1)."), QStringLiteral("N")},
        {QStringLiteral("station"), QStringLiteral("Código da estação de trabalho (padrão 1)."), QStringLiteral("N")},
        {QStringLiteral("debug"), QStringLiteral("Nível de depuração (modo_debug)."), QStringLiteral("N")},
        {QStringLiteral("fiscal-folder"), QStringLiteral("Pasta fiscal, onde ficam os XML das NF-e (padrão: PAVREL_FISCAL_FOLDER, "
                                                         "a configuração PASTA_FISCAL, senão \"fiscal\" na pasta de dados do usuário)."),
         QStringLiteral("PATH")},
        {QStringLiteral("certificate"), QStringLiteral("Certificado A1 (.pfx) da empresa, em lugar do configurado "
                                                       "(ou PAVREL_CERTIFICADO)."),
         QStringLiteral("FILE")},
        {QStringLiteral("certificate-password"), QStringLiteral("Senha do certificado (ou PAVREL_CERTIFICADO_SENHA)."),
         QStringLiteral("TEXT")},
        {QStringLiteral("nfe-endpoint"), QStringLiteral("Envia à SEFAZ neste endereço (https://servidor:porta), em lugar "
                                                        "dos endereços oficiais (ou PAVREL_NFE_ENDPOINT): o simulador."),
         QStringLiteral("URL")},
        {QStringLiteral("nfe-ca"), QStringLiteral("Raízes confiáveis (PEM) para o certificado da SEFAZ (ou PAVREL_NFE_CA)."),
         QStringLiteral("FILE")},
        {QStringLiteral("create-database"), QStringLiteral("Cria o banco de dados em PATH e sai."), QStringLiteral("PATH")},
        {QStringLiteral("empty"), QStringLiteral("Com --create-database: sem dados de demonstração.")},
        {QStringLiteral("screenshot"), QStringLiteral("Grava a tela, com a lista de notas carregada, em FILE.png e sai."), QStringLiteral("FILE")},
    });
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("Comando sem tela, com suas opções."), QStringLiteral("[command ...]"));
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
}

} // namespace

int main(int argc, char **argv)
{
    const Modo modo = modoDe(argc, argv);
    const bool semDisplay = qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if ((modo == Modo::Foto && semDisplay) || (modo == Modo::Desenho && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::unique_ptr<QCoreApplication> app(modo == Modo::SemTela   ? new QCoreApplication(argc, argv)
                                          : modo == Modo::Desenho ? new QGuiApplication(argc, argv)
                                                                  : new QApplication(argc, argv));
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
    const auto executar = resolver<PavrelExecutarFn>(biblioteca, "PavrelExecutar");
    const auto abrirRep = resolver<AbrirRepFn>(biblioteca, "AbrirRep");
    if (!versao || !iniciar || !criarBanco || !executar || !abrirRep)
        return 3;
    QCoreApplication::setApplicationVersion(QString::fromUtf8(versao()));

    QCommandLineParser parser;
    prepararOpcoes(parser);
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
    // The option outranks the environment, so it simply takes the environment's place.
    if (parser.isSet(QStringLiteral("fiscal-folder")))
        qputenv("PAVREL_FISCAL_FOLDER", parser.value(QStringLiteral("fiscal-folder")).toLocal8Bit());
    if (parser.isSet(QStringLiteral("certificate")))
        qputenv("PAVREL_CERTIFICADO", parser.value(QStringLiteral("certificate")).toLocal8Bit());
    if (parser.isSet(QStringLiteral("certificate-password")))
        qputenv("PAVREL_CERTIFICADO_SENHA", parser.value(QStringLiteral("certificate-password")).toLocal8Bit());
    if (parser.isSet(QStringLiteral("nfe-endpoint")))
        qputenv("PAVREL_NFE_ENDPOINT", parser.value(QStringLiteral("nfe-endpoint")).toLocal8Bit());
    if (parser.isSet(QStringLiteral("nfe-ca")))
        qputenv("PAVREL_NFE_CA", parser.value(QStringLiteral("nfe-ca")).toLocal8Bit());
    if (!iniciar(database.constData(), empresa, estacao, debug, &mensagem)) {
        erro(mensagem);
        return 1;
    }

    const QStringList comando = parser.positionalArguments();
    if (!comando.isEmpty())
        return executar(&comando);

    QWidget *tela = abrirRep().value<QWidget *>();
    if (!tela)
        return 1;
    JanelaPrincipal janela(tela);
    if (modo == Modo::Foto)
        return fotografar(janela, tela, parser.value(QStringLiteral("screenshot")));
    janela.show();
    return QCoreApplication::exec();
}
