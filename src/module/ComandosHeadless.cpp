#include "ComandosHeadless.h"

#include "ComandosEtiquetas.h"
#include "ComandosExpImp.h"
#include "ComandosInsumos.h"
#include "ComandosInteresse.h"
#include "ComandosNFe.h"
#include "ComandosNFeServicos.h"
#include "ComandosRomaneio.h"
#include "ComandosTax.h"
#include "ComandosXml.h"
#include "Config.h"
#include "Contexto.h"
#include "DialogosConsole.h"
#include "TAcoesNota.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TRepD.h"
#include "TextoDataSet.h"

#include <QCommandLineParser>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTextStream>

#include <utility>

namespace ComandosHeadless {

namespace {

// A document date the database can hold: years 1 to 9999.
std::optional<QDate> lerData(const QString &texto)
{
    for (const QString &formato : {QStringLiteral("dd/MM/yyyy"), QStringLiteral("yyyy-MM-dd"), QStringLiteral("dd/MM/yy")}) {
        QDate data = QDate::fromString(texto, formato);
        if (formato == QLatin1String("dd/MM/yy") && data.isValid())
            data = data.addYears(100);
        if (data.isValid())
            return data.year() >= 1 && data.year() <= 9999 ? std::optional(data) : std::nullopt;
    }
    return std::nullopt;
}

int indiceDe(const QString &valor, const QStringList &opcoes)
{
    return int(opcoes.indexOf(valor.trimmed().toLower()));
}

int notes(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("from"), QStringLiteral("first document date"), QStringLiteral("DATE")},
        {QStringLiteral("to"), QStringLiteral("last document date"), QStringLiteral("DATE")},
        {QStringLiteral("all-dates"), QStringLiteral("any document date")},
        {QStringLiteral("supplier"), QStringLiteral("supplier code"), QStringLiteral("N")},
        {QStringLiteral("cancelled"), QStringLiteral("todas|nao|sim"), QStringLiteral("WHICH")},
        {QStringLiteral("ndoc"), QStringLiteral("document number"), QStringLiteral("N")},
        {QStringLiteral("origin"), QStringLiteral("todas|manual|xml"), QStringLiteral("WHICH")},
    });
    const char *uso = "[--from DATA] [--to DATA] [--all-dates] [--supplier N] [--cancelled todas|nao|sim] "
                      "[--ndoc N] [--origin todas|manual|xml]";
    const auto falha = [&erros, uso](const QString &texto) { return Recusar(erros, QStringLiteral("notes"), texto, uso); };
    if (!parser.parse(QStringList{QStringLiteral("notes")} + argumentos))
        return falha(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return falha(QStringLiteral("argumento inesperado: ") + parser.positionalArguments().first());
    TFiltroNotas filtro = TFiltroNotas::Inicial(Contexto::Atual().Hoje());
    for (const auto &[opcao, data] : {std::pair{QStringLiteral("from"), &filtro.de}, std::pair{QStringLiteral("to"), &filtro.ate}}) {
        if (!parser.isSet(opcao))
            continue;
        const auto lida = lerData(parser.value(opcao));
        if (!lida)
            return falha(QStringLiteral("data inválida em --") + opcao + QStringLiteral(": ") + parser.value(opcao));
        *data = *lida;
    }
    filtro.considerarDatas = !parser.isSet(QStringLiteral("all-dates"));
    bool ok = true;
    if (parser.isSet(QStringLiteral("supplier")))
        filtro.fornecCod = parser.value(QStringLiteral("supplier")).toInt(&ok);
    if (!ok || filtro.fornecCod < 0)
        return falha(QStringLiteral("fornecedor inválido em --supplier: ") + parser.value(QStringLiteral("supplier")));
    if (parser.isSet(QStringLiteral("ndoc")))
        filtro.ndoc = parser.value(QStringLiteral("ndoc")).toInt(&ok);
    if (!ok || filtro.ndoc < 0)
        return falha(QStringLiteral("número inválido em --ndoc: ") + parser.value(QStringLiteral("ndoc")));
    if (parser.isSet(QStringLiteral("cancelled"))) {
        filtro.canceladosIndice = indiceDe(parser.value(QStringLiteral("cancelled")),
                                           {QStringLiteral("todas"), QStringLiteral("nao"), QStringLiteral("sim")});
        if (filtro.canceladosIndice < 0)
            return falha(QStringLiteral("use --cancelled todas, nao ou sim"));
    }
    if (parser.isSet(QStringLiteral("origin"))) {
        filtro.origemIndice = indiceDe(parser.value(QStringLiteral("origin")),
                                       {QStringLiteral("todas"), QStringLiteral("manual"), QStringLiteral("xml")});
        if (filtro.origemIndice < 0)
            return falha(QStringLiteral("use --origin todas, manual ou xml"));
    }

    TRepD repD(TConexD::Conexao());
    if (!repD.CarregarNotas(filtro))
        return 1;
    // The list as the grid shows it.
    saida << TextoTabulado(repD.Notas());
    saida.flush();
    return 0;
}

// post, cancel, unpost and send: the screen's actions on one note, with the console's dialogs.
int acaoNota(const QString &comando, const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("yes"), QStringLiteral("answer yes to the questions")});
    parser.addPositionalArgument(QStringLiteral("note"), QStringLiteral("EEE-CCCCCCC, or E-S-C"));
    const char *uso = "EEE-CCCCCCC [--yes]   (ou E-S-C, empresa-estação-código)";
    if (!parser.parse(QStringList{comando} + argumentos))
        return Recusar(erros, comando, parser.errorText(), uso);
    const auto pedida = NotaPedida(parser, comando, uso, erros);
    if (!pedida)
        return 2;
    const QString texto = parser.positionalArguments().first().trimmed();

    TDialogos *anteriores = TDialogos::Definido();
    TDialogosContados dialogos(parser.isSet(QStringLiteral("yes")), erros);
    TDialogos::Definir(&dialogos);
    const auto restaurar = qScopeGuard([anteriores] { TDialogos::Definir(anteriores); });

    TConexaoSQL &conexao = TConexD::Conexao();
    TRepD repD(conexao);
    const std::optional<TNotaLinha> nota = LerDoBanco(repD, *pedida, texto, comando, erros);
    if (!nota)
        return 1;
    const QString doc = nota->chave.DocStr();

    TAcoesNota acoes(conexao);
    acoes.SetSomarIPI(Config::LigadoSalvoN(conexao, QStringLiteral("REP_IPI_SOMAR")));
    bool feito = false;
    QString resultado;
    if (comando == QLatin1String("post")) {
        feito = acoes.BaixouNota(nota, false);
        resultado = QStringLiteral("baixada");
    } else if (comando == QLatin1String("cancel")) {
        feito = acoes.CancelarNota(nota);
        resultado = QStringLiteral("cancelada");
    } else if (comando == QLatin1String("unpost")) {
        feito = acoes.DesbaixarActExecute(nota, TDataSetState::Browse, TDataSetState::Browse);
        resultado = QStringLiteral("desbaixada");
    } else {
        feito = acoes.NotaExportActExecute(nota, TDataSetState::Browse, TDataSetState::Browse);
        resultado = QStringLiteral("enviada à empresa de destino");
    }
    if (!feito) {
        if (dialogos.Mostrados() == 0) {
            const bool semDestino = comando == QLatin1String("send") && nota->destinEmprCod < 1;
            erros << "pavrel " << comando << ": nota " << doc
                  << (semDestino ? " sem empresa de destino" : ": nada foi feito") << Qt::endl;
        }
        return 1;
    }
    saida << "Nota " << doc << ' ' << resultado << Qt::endl;
    return 0;
}

} // namespace

int Recusar(QTextStream &erros, const QString &comando, const QString &motivo, const char *uso)
{
    if (!motivo.isEmpty())
        erros << "pavrel " << comando << ": " << motivo << Qt::endl;
    erros << "uso: pavrel " << comando << ' ' << uso << Qt::endl;
    return 2;
}

std::optional<TChaveNota> NotaPedida(const QCommandLineParser &parser, const QString &comando, const char *uso,
                                     QTextStream &erros)
{
    const QStringList posicionais = parser.positionalArguments();
    const auto pedida = posicionais.size() == 1 ? LerNota(posicionais.first()) : std::nullopt;
    if (!pedida)
        Recusar(erros, comando, QString(), uso);
    return pedida;
}

std::optional<TChaveNota> LerNota(const QString &texto)
{
    static const QRegularExpression formato(QStringLiteral("^(\\d{1,9})-(?:(\\d{1,9})-)?(\\d{1,9})$"));
    const QRegularExpressionMatch m = formato.match(texto.trimmed());
    if (!m.hasMatch())
        return std::nullopt;
    return TChaveNota{m.captured(1).toInt(), m.hasCaptured(2) ? m.captured(2).toInt() : -1, m.captured(3).toInt()};
}

std::optional<TNotaLinha> LerDoBanco(TRepD &repD, const TChaveNota &pedida, const QString &texto,
                                     const QString &comando, QTextStream &erros)
{
    if (!repD.CarregarNota(pedida.emprCod, pedida.estacaoCod, pedida.compraCod))
        return std::nullopt;
    TClientDataSet &notas = repD.Notas();
    if (notas.IsEmpty()) {
        erros << "pavrel " << comando << ": nota " << texto << " não encontrada" << Qt::endl;
        return std::nullopt;
    }
    if (notas.RecordCount() > 1) {
        QStringList opcoes;
        for (notas.First(); !notas.Eof(); notas.Next())
            opcoes << QStringLiteral("%1-%2-%3").arg(pedida.emprCod).arg(TNotaLinha::DaLinhaAtual(notas).chave.estacaoCod)
                          .arg(pedida.compraCod);
        erros << "pavrel " << comando << ": há notas " << texto << " de várias estações; indique uma: "
              << opcoes.join(QStringLiteral(", ")) << Qt::endl;
        return std::nullopt;
    }
    return repD.NotaAtual();
}

int Executar(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    if (argumentos.isEmpty()) {
        erros << "pavrel: nenhum comando" << Qt::endl;
        return 2;
    }
    TDialogos *anteriores = TDialogos::Definido();
    TDialogosConsole dialogos(false, erros);
    TDialogos::Definir(&dialogos);
    int resultado = 2;
    const QString comando = argumentos.first();
    if (comando == QLatin1String("notes"))
        resultado = notes(argumentos.mid(1), saida, erros);
    else if (QStringList{QStringLiteral("post"), QStringLiteral("cancel"), QStringLiteral("unpost"), QStringLiteral("send")}
                 .contains(comando))
        resultado = acaoNota(comando, argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("xml-items"))
        resultado = ComandosXml::XmlItems(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("xml-key"))
        resultado = ComandosXml::XmlKey(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-xml"))
        resultado = ComandosNFe::NfeXml(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("danfe"))
        resultado = ComandosNFe::Danfe(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-status"))
        resultado = ComandosNFeServicos::NfeStatus(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-send"))
        resultado = ComandosNFeServicos::NfeSend(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-cancel"))
        resultado = ComandosNFeServicos::NfeCancel(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-print"))
        resultado = ComandosNFeServicos::NfePrint(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-cce"))
        resultado = ComandosNFeServicos::NfeCce(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("nfe-interesse"))
        resultado = ComandosInteresse::NfeInteresse(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("inputs"))
        resultado = ComandosInsumos::Inputs(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("difal"))
        resultado = ComandosTax::Difal(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("export"))
        resultado = ComandosExpImp::Export(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("import"))
        resultado = ComandosExpImp::Import(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("romaneio"))
        resultado = ComandosRomaneio::Romaneio(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("labels"))
        resultado = ComandosEtiquetas::Labels(argumentos.mid(1), saida, erros);
    else if (comando == QLatin1String("test-certificate"))
        resultado = ComandosNFe::TestCertificate(argumentos.mid(1), saida, erros);
    else
        erros << "pavrel: comando desconhecido: " << comando << Qt::endl;
    TDialogos::Definir(anteriores);
    return resultado;
}

} // namespace ComandosHeadless
