#include "ComandosTax.h"

#include "ComandosHeadless.h"
#include "DialogosConsole.h"
#include "TClientDataSet.h"
#include "TConexD.h"
#include "TRepD.h"
#include "TSaidaItemEdUFDestF.h"
#include "TextoDataSet.h"
#include "URepF_ItensICMSUFDest.h"
#include "Valores.h"

#include <QCommandLineParser>
#include <QLocale>
#include <QScopeGuard>
#include <QTextStream>

#include <array>
#include <cmath>
#include <optional>

namespace ComandosTax {

namespace {

// A rate in percent, typed "18", "2,5" or "2.5".
std::optional<double> lerTaxa(const QString &texto)
{
    const QString t = texto.trimmed();
    std::optional<double> valor;
    if (t.contains(QLatin1Char(','))) {
        valor = LerNumeroBR(t);
    } else {
        bool ok = false;
        const double v = QLocale::c().toDouble(t, &ok);
        if (ok)
            valor = v;
    }
    if (!valor || !std::isfinite(*valor) || *valor < 0 || *valor > 100)
        return std::nullopt;
    return valor;
}

// U,F,I,P: the destination's internal rate, its FCP rate, the interstate rate, the share.
std::optional<std::array<double, 4>> lerTaxas(const QString &texto)
{
    // With a decimal comma ("2,5") the rates are separated by ';'.
    QStringList partes = texto.split(QLatin1Char(texto.contains(QLatin1Char(';')) ? ';' : ','));
    if (partes.size() != 4)
        return std::nullopt;
    std::array<double, 4> taxas{};
    for (int i = 0; i < 4; ++i) {
        const auto taxa = lerTaxa(partes.at(i));
        if (!taxa)
            return std::nullopt;
        taxas[size_t(i)] = *taxa;
    }
    return taxas;
}

} // namespace

int Difal(const QStringList &argumentos, QTextStream &saida, QTextStream &erros)
{
    const QString comando = QStringLiteral("difal");
    const char *uso = "NOTA [--set U,F,I,P [--yes]]   (NOTA: EEE-CCCCCCC, ou E-S-C; taxas em %, de 0 a 100, "
                      "\"2.5\"; com vírgula decimal separe por ';': 18;2,5;12;100)";
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("set"), QStringLiteral("U,F,I,P on every movement"), QStringLiteral("U,F,I,P")});
    parser.addOption({QStringLiteral("yes"), QStringLiteral("answer yes to the question")});
    if (!parser.parse(QStringList{comando} + argumentos))
        return ComandosHeadless::Recusar(erros, comando, parser.errorText(), uso);
    const auto pedida = ComandosHeadless::NotaPedida(parser, comando, uso, erros);
    if (!pedida)
        return 2;
    std::optional<std::array<double, 4>> taxas;
    if (parser.isSet(QStringLiteral("set"))) {
        taxas = lerTaxas(parser.value(QStringLiteral("set")));
        if (!taxas)
            return ComandosHeadless::Recusar(erros, comando, QStringLiteral("taxas inválidas em --set: ")
                                             + parser.value(QStringLiteral("set")), uso);
    }

    TDialogos *anteriores = TDialogos::Definido();
    TDialogosConsole dialogos(parser.isSet(QStringLiteral("yes")), erros);
    TDialogos::Definir(&dialogos);
    const auto restaurar = qScopeGuard([anteriores] { TDialogos::Definir(anteriores); });

    TConexaoSQL &conexao = TConexD::Conexao();
    TRepD repD(conexao);
    const auto nota = ComandosHeadless::LerDoBanco(repD, *pedida, parser.positionalArguments().first().trimmed(), comando, erros);
    if (!nota)
        return 1;
    const TChaveNota &k = nota->chave;
    const QString recusa = TRepF_ItensICMSUFDest::Recusa(conexao, k.emprCod, k.estacaoCod, k.compraCod, nota->tipoCod);
    if (!recusa.isEmpty()) {
        MensagemErro(recusa);
        return 1;
    }
    TClientDataSet cds;
    TSaidaItemEdUFDestF::CriarCampos(cds);
    if (!TRepF_ItensICMSUFDest::Carregar(conexao, k.emprCod, k.estacaoCod, k.compraCod, cds))
        return 1;
    if (!taxas) {
        saida << TextoTabulado(cds);
        saida.flush();
        return 0;
    }
    if (cds.IsEmpty()) {
        erros << "pavrel difal: a nota " << k.DocStr() << " não tem movimentos" << Qt::endl;
        return 1;
    }
    const QStringList &campos = TSaidaItemEdUFDestF::CamposEditaveis();
    const QStringList definidos{campos[2], campos[1], campos[3], campos[4]};
    for (cds.First(); !cds.Eof(); cds.Next()) {
        cds.Edit();
        for (size_t i = 0; i < taxas->size(); ++i)
            cds.FieldByName(definidos[qsizetype(i)]).SetAsFloat((*taxas)[i]);
        TRepF_ItensICMSUFDest::CalcularLinha(cds);
        cds.Post();
    }
    saida << TextoTabulado(cds);
    saida.flush();
    if (!Pergunta(QStringLiteral("Gravar o ICMS da UF de destino dos %1 movimentos da nota %2?").arg(cds.RecordCount()).arg(k.DocStr())))
        return 1;
    if (TRepF_ItensICMSUFDest::Gravar(conexao, cds) > 0)
        return 1;
    saida << "ICMS da UF de destino gravado em " << cds.RecordCount() << " movimentos da nota " << k.DocStr() << Qt::endl;
    return 0;
}

} // namespace ComandosTax
