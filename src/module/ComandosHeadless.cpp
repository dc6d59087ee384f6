#include "ComandosHeadless.h"

#include "Contexto.h"
#include "DialogosConsole.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TRepD.h"

#include <QCommandLineParser>
#include <QTextStream>

namespace ComandosHeadless {

namespace {

std::optional<QDate> lerData(const QString &texto)
{
    for (const QString &formato : {QStringLiteral("dd/MM/yyyy"), QStringLiteral("yyyy-MM-dd"), QStringLiteral("dd/MM/yy")}) {
        QDate data = QDate::fromString(texto, formato);
        if (formato == QLatin1String("dd/MM/yy") && data.isValid())
            data = data.addYears(100);
        if (data.isValid())
            return data;
    }
    return std::nullopt;
}

int indiceDe(const QString &valor, const QStringList &opcoes)
{
    return int(opcoes.indexOf(valor.trimmed().toLower()));
}

// The list as the grid shows it: the captions of the visible columns, then one line per note.
void imprimir(TClientDataSet &notas, QTextStream &saida)
{
    QList<int> visiveis;
    QStringList titulos;
    for (int i = 0; i < notas.FieldCount(); ++i) {
        if (notas.Fields(i).Visible()) {
            visiveis << i;
            titulos << notas.Fields(i).DisplayLabel();
        }
    }
    saida << titulos.join(QLatin1Char('\t')) << '\n';
    for (int linha = 0; linha < notas.RecordCount(); ++linha) {
        QStringList valores;
        for (int campo : visiveis)
            valores << notas.DisplayTextAt(linha, campo);
        saida << valores.join(QLatin1Char('\t')) << '\n';
    }
    saida.flush();
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
    if (!parser.parse(QStringList{QStringLiteral("notes")} + argumentos)) {
        erros << "pavrel notes: " << parser.errorText() << Qt::endl;
        return 2;
    }
    TFiltroNotas filtro = TFiltroNotas::Inicial(Contexto::Atual().Hoje());
    const auto falha = [&erros](const QString &texto) {
        erros << "pavrel notes: " << texto << Qt::endl;
        return 2;
    };
    if (parser.isSet(QStringLiteral("from"))) {
        const auto data = lerData(parser.value(QStringLiteral("from")));
        if (!data)
            return falha(QStringLiteral("data inválida em --from: ") + parser.value(QStringLiteral("from")));
        filtro.de = *data;
    }
    if (parser.isSet(QStringLiteral("to"))) {
        const auto data = lerData(parser.value(QStringLiteral("to")));
        if (!data)
            return falha(QStringLiteral("data inválida em --to: ") + parser.value(QStringLiteral("to")));
        filtro.ate = *data;
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
    imprimir(repD.Notas(), saida);
    return 0;
}

} // namespace

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
    else
        erros << "pavrel: comando desconhecido: " << comando << Qt::endl;
    TDialogos::Definir(anteriores);
    return resultado;
}

} // namespace ComandosHeadless
