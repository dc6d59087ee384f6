#include "ComandosRomaneio.h"

#include "ComandosHeadless.h"
#include "Contexto.h"
#include "TConexD.h"
#include "TImpressora.h"
#include "TRepD.h"
#include "TSelecaoImpressora.h"
#include "UPavrel_Romaneio_Impr.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace ComandosRomaneio {

int Romaneio(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("romaneio");
    const char *uso = "EEE-CCCCCCC [--pdf ARQUIVO.pdf | --text] [--copies N]";
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("pdf"), QStringLiteral("write into this PDF"), QStringLiteral("FILE")},
        {QStringLiteral("text"), QStringLiteral("the lines the printer receives")},
        {QStringLiteral("copies"), QStringLiteral("copies, each a document of its own"), QStringLiteral("N")},
    });
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const auto pedida = ComandosHeadless::NotaPedida(parser, comando, uso, erros);
    if (!pedida)
        return 2;
    const bool texto = parser.isSet(QStringLiteral("text"));
    const bool pdf = parser.isSet(QStringLiteral("pdf"));
    if (texto && pdf)
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("--pdf e --text não podem ir juntos"), uso);
    bool copiasValidas = true;
    const int copias = parser.isSet(QStringLiteral("copies")) ? parser.value(QStringLiteral("copies")).toInt(&copiasValidas) : 1;
    if (!copiasValidas || copias < 1 || copias > 99)
        return ComandosHeadless::Recusar(erros, comando,
                                         QStringLiteral("número de cópias inválido: ") + parser.value(QStringLiteral("copies")), uso);

    TConexaoSQL &conexao = TConexD::Conexao();
    TRepD repD(conexao);
    const std::optional<TNotaLinha> nota =
        ComandosHeadless::LerDoBanco(repD, *pedida, parser.positionalArguments().first().trimmed(), comando, erros);
    if (!nota)
        return 1;
    const TDadosBanco &banco = conexao.Dados();
    TPavrel_Romaneio_Impr romaneio(nota->chave.emprCod, nota->chave.compraCod, banco.database,
                                   Contexto::Atual().estacao, banco.usuario, banco.senha);
    if (!romaneio.Ler())
        return 1;
    TImpressora impressora;
    romaneio.Montar(impressora, copias);
    if (texto) {
        saida << impressora.Texto();
        return 0;
    }
    QString erro;
    if (!pdf && TSelecaoImpressora::TemImpressoraPadrao()) {
        if (!TSelecaoImpressora::ImprimirNaPadrao(impressora, &erro)) {
            erros << "pavrel romaneio: " << erro << Qt::endl;
            return 1;
        }
        saida << romaneio.Titulo() << " enviado à impressora padrão" << Qt::endl;
        return 0;
    }
    const QString arquivo = pdf ? parser.value(QStringLiteral("pdf")) : QDir::current().filePath(romaneio.Titulo() + QStringLiteral(".pdf"));
    if (!TSelecaoImpressora::GravarPdf(impressora, arquivo, &erro)) {
        erros << "pavrel romaneio: " << erro << Qt::endl;
        return 1;
    }
    saida << "PDF gravado em " << QDir::toNativeSeparators(QFileInfo(arquivo).absoluteFilePath()) << Qt::endl;
    return 0;
}

} // namespace ComandosRomaneio
