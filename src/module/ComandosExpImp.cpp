#include "ComandosExpImp.h"

#include "ComandosHeadless.h"
#include "Dialogos.h"
#include "DialogosConsole.h"
#include "TConexD.h"
#include "TProgresso.h"
#include "UCompraExport.h"
#include "UCompraImport.h"

#include <QCommandLineParser>
#include <QScopeGuard>
#include <QTextStream>

namespace ComandosExpImp {

namespace {

// The one positional FILE; the parser also knows the options of `opcoes`.
std::optional<QString> arquivoPedido(const QString &comando, const QStringList &argumentos, const char *uso,
                                     const QList<QCommandLineOption> &opcoes, QCommandLineParser &parser,
                                     QTextStream &erros)
{
    parser.addOptions(opcoes);
    if (!parser.parse(QStringList{comando} + argumentos)) {
        ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
        return std::nullopt;
    }
    const QStringList posicionais = parser.positionalArguments();
    if (posicionais.size() != 1 || posicionais.first().trimmed().isEmpty()) {
        ComandosHeadless::Recusar(erros, comando, QString(), uso);
        return std::nullopt;
    }
    return posicionais.first();
}

void escrever(QTextStream &saida, const char *verbo, const TContagemArq &contagem, const QString &arquivo)
{
    saida << contagem.notas << " notas e " << contagem.movimentos << " movimentos " << verbo << ' ' << arquivo
          << Qt::endl;
}

} // namespace

int Export(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    QCommandLineParser parser;
    const auto arquivo = arquivoPedido(QStringLiteral("export"), argumentos, "ARQUIVO", {}, parser, erros);
    if (!arquivo)
        return 2;
    const auto contagem = ExportarPara(TConexD::Conexao(), *arquivo, TProgresso::Janela());
    if (!contagem)
        return 1;
    escrever(saida, "exportados para", *contagem, *arquivo);
    return 0;
}

int Import(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    QCommandLineParser parser;
    const QCommandLineOption sim(QStringLiteral("yes"), QStringLiteral("answer yes to the question"));
    const auto arquivo = arquivoPedido(QStringLiteral("import"), argumentos, "ARQUIVO --yes", {sim}, parser, erros);
    if (!arquivo)
        return 2;
    TDialogos *anteriores = TDialogos::Definido();
    TDialogosConsole dialogos(parser.isSet(sim), erros);
    TDialogos::Definir(&dialogos);
    const auto restaurar = qScopeGuard([anteriores] { TDialogos::Definir(anteriores); });
    if (!Pergunta(PerguntaImportar))
        return 1;
    const auto contagem = ImportarDe(TConexD::Conexao(), *arquivo, TProgresso::Janela());
    if (!contagem)
        return 1;
    escrever(saida, "importados de", *contagem, *arquivo);
    return 0;
}

} // namespace ComandosExpImp
