#include "ComandosInsumos.h"

#include "ComandosHeadless.h"
#include "Dialogos.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TRepD.h"
#include "TextoDataSet.h"
#include "UEstoInsuItemF.h"
#include "UEstoInsuNotaF.h"
#include "UProdConsulta.h"

#include <QCommandLineParser>
#include <QTextStream>

namespace ComandosInsumos {

namespace {

// What "Insumos do Item" shows for the item whose code the item grid shows as "Cód.Item"; the
// screen's refusals, once each, otherwise.
std::optional<TGradeImpr> DoItem(TRepD &repD, const TNotaLinha &nota, const QDate &dtDoc, int itemCod,
                                 QTextStream &erros)
{
    if (!repD.CarregarItens(nota.chave))
        return std::nullopt;
    TClientDataSet &itens = repD.Itens();
    if (itens.IsEmpty()) {
        MensagemInfo(QStringLiteral("Não há itens na nota"));
        return std::nullopt;
    }
    if (!itens.Locate(QStringLiteral("COMPRA_ITEM_TMP_COD"), itemCod)) {
        erros << "pavrel inputs: a nota " << nota.chave.DocStr() << " não tem o item " << itemCod << Qt::endl;
        return std::nullopt;
    }
    TConexaoSQL &conexao = TConexD::Conexao();
    const int prodCod = itens.FieldByName(QStringLiteral("prod_cod")).AsInteger();
    if (ProdCodToTipo(conexao, prodCod) != ProdTipoComposicao) {
        MensagemInfo(QStringLiteral("O item não é do tipo Composição"));
        return std::nullopt;
    }
    return TEstoInsuItemF::Conteudo(nota.chave.emprCod, nota.chave.compraCod, dtDoc, prodCod,
                                    itens.FieldByName(QStringLiteral("prod_DESCR")).AsString().trimmed(),
                                    itens.FieldByName(QStringLiteral("QTD_COMPRADA")).AsFloat(), conexao);
}

} // namespace

int Inputs(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("inputs");
    const char *uso = "EEE-CCCCCCC [--item N] [--pdf ARQUIVO.pdf]   (N: o Cód.Item da grade de itens)";
    QCommandLineParser parser;
    parser.addOptions({
        {QStringLiteral("item"), QStringLiteral("the item's code"), QStringLiteral("N")},
        {QStringLiteral("pdf"), QStringLiteral("also print into this PDF"), QStringLiteral("FILE")},
    });
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const auto pedida = ComandosHeadless::NotaPedida(parser, comando, uso, erros);
    if (!pedida)
        return 2;
    bool itemValido = true;
    const int itemCod = parser.isSet(QStringLiteral("item")) ? parser.value(QStringLiteral("item")).toInt(&itemValido) : 0;
    if (!itemValido || itemCod < 0)
        return ComandosHeadless::Recusar(erros, comando, QStringLiteral("item inválido: ") + parser.value(QStringLiteral("item")), uso);

    TRepD repD(TConexD::Conexao());
    const std::optional<TNotaLinha> nota =
        ComandosHeadless::LerDoBanco(repD, *pedida, parser.positionalArguments().first().trimmed(), comando, erros);
    if (!nota)
        return 1;
    const QDate dtDoc = repD.Notas().FieldByName(QStringLiteral("DT_DOC")).AsDate();
    const std::optional<TGradeImpr> conteudo =
        parser.isSet(QStringLiteral("item"))
            ? DoItem(repD, *nota, dtDoc, itemCod, erros)
            : std::optional(TEstoInsuNotaF::Conteudo(nota->chave.emprCod, nota->chave.compraCod, dtDoc, TConexD::Conexao()));
    if (!conteudo)
        return 1;
    saida << TextoTabulado(conteudo->grade);
    QString erro;
    if (parser.isSet(QStringLiteral("pdf")) && !GravarPdfGradeImpr(*conteudo, parser.value(QStringLiteral("pdf")), &erro)) {
        erros << "pavrel inputs: " << erro << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace ComandosInsumos
