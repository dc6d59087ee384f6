#include "ComandosEtiquetas.h"

#include "ComandosHeadless.h"
#include "TConexD.h"
#include "TRepD.h"
#include "UEtiquetas.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

namespace ComandosEtiquetas {

int Labels(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("labels");
    const char *uso = "EEE-CCCCCCC --pdf ARQUIVO.pdf [--per-unit] [--roll]";
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("pdf"), QStringLiteral("the PDF to write"), QStringLiteral("FILE")},
        {QStringLiteral("per-unit"), QStringLiteral("one label per unit received")},
        {QStringLiteral("roll"), QStringLiteral("one label a page, for a roll")},
    });
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const auto pedida = ComandosHeadless::NotaPedida(parser, comando, uso, erros);
    if (!pedida)
        return 2;
    const QString pdf = parser.value(QStringLiteral("pdf"));
    if (pdf.isEmpty())
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("falta --pdf ARQUIVO.pdf"), uso);

    TRepD repD(TConexD::Conexao());
    const std::optional<TNotaLinha> nota =
        ComandosHeadless::LerDoBanco(repD, *pedida, parser.positionalArguments().first().trimmed(), comando, erros);
    if (!nota)
        return 1;
    const auto itens = TEtiquetas::LerItens(TConexD::Conexao(), nota->chave);
    if (!itens)
        return 1;
    const TFormatoEtiquetas formato = parser.isSet(QStringLiteral("roll")) ? TFormatoEtiquetas::Rolo : TFormatoEtiquetas::FolhaA4;
    const QList<TEtiqueta> etiquetas = TEtiquetas::Montar(*itens, parser.isSet(QStringLiteral("per-unit")));
    QString erro;
    if (!TEtiquetas::GravarPdf(etiquetas, formato, pdf, &erro)) {
        erros << "pavrel labels: " << erro << Qt::endl;
        return 1;
    }
    saida << TEtiquetas::Resumo(int(etiquetas.size()), formato) << ": " << QFileInfo(pdf).absoluteFilePath() << Qt::endl;
    return 0;
}

} // namespace ComandosEtiquetas
