#include "GeradorNFe.h"
#include "TValidadorNFe.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using TValidadorNFe::TEsquema;

namespace {

QByteArray NFeSemAssinatura()
{
    OpcoesGeracao opcoes;
    opcoes.comProtocolo = false;
    opcoes.assinatura = false;
    return GerarXmlNFe(NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000110"), 7, 3), opcoes);
}

// The document with the first match of `de` (a regular expression) replaced.
QByteArray Trocar(QByteArray xml, const char *de, const char *para)
{
    QString texto = QString::fromUtf8(xml);
    const QRegularExpressionMatch m = QRegularExpression(QString::fromUtf8(de)).match(texto);
    EXPECT_TRUE(m.hasMatch()) << de;
    texto.replace(m.capturedStart(), m.capturedLength(), QString::fromUtf8(para));
    return texto.toUtf8();
}

} // namespace

TEST(ValidadorNFe, DocumentoValidoPassaEQuebradosDizemOElementoEARegra)
{
    const QByteArray valido = NFeSemAssinatura();
    QString erro;
    ASSERT_TRUE(TValidadorNFe::Validar(valido, TEsquema::NFe, &erro)) << erro.toStdString();

    const QByteArray longo = "<xProd>" + QByteArray(121, 'x') + "</xProd>";
    const QByteArray longoErro = "Elemento 'xProd' (item 1): o valor '" + QByteArray(60, 'x') + "...' deve ter no máximo 120 caracteres";
    const struct { const char *caso, *de, *para, *esperado; } casos[] = {
        {"padrão", "<NCM>[^<]*</NCM>", "<NCM>1234</NCM>",
         "Elemento 'NCM' (item 1): o valor '1234' não segue o formato exigido ([0-9]{2}|[0-9]{8})"},
        {"enumeração", "<tpNF>[01]</tpNF>", "<tpNF>7</tpNF>",
         "Elemento 'tpNF': o valor '7' não é um dos valores aceitos (0, 1)"},
        {"tamanho", "<xNome>[^<]*</xNome>", "<xNome>A</xNome>",
         "Elemento 'xNome': o valor 'A' deve ter ao menos 2 caracteres"},
        {"texto longo", "<xProd>[^<]*</xProd>", longo.constData(), longoErro.constData()},
        {"falta", "<modFrete>9</modFrete>", "", "Em 'transp': falta o elemento 'modFrete'"},
        {"inesperado", "</cProd>", "</cProd><cProdX>1</cProdX>",
         "Em 'prod' (item 1): o elemento 'cProdX' não é esperado aqui; esperado: 'cEAN'"},
        {"atributo", " versao=\"4.00\"", " versao=\"3.10\"",
         "Atributo 'versao' do elemento 'infNFe': o valor '3.10' não segue o formato exigido (4\\.00)"},
        {"não é XML", "</NFe>", "</NFE>", "O documento não é um XML válido (erro na linha "},
    };
    for (const auto &c : casos) {
        erro.clear();
        EXPECT_FALSE(TValidadorNFe::Validar(Trocar(valido, c.de, c.para), TEsquema::NFe, &erro)) << c.caso;
        EXPECT_TRUE(erro.startsWith(QString::fromUtf8(c.esperado))) << c.caso << ": " << erro.toStdString();
    }
    // Every schema set loads from the program's own copy and refuses a stranger.
    for (TEsquema e : {TEsquema::ProcNFe, TEsquema::EventoCanc, TEsquema::EventoCCe}) {
        EXPECT_FALSE(TValidadorNFe::Validar(valido, e, &erro));
        EXPECT_EQ(erro, QStringLiteral("O documento não é do tipo esperado (elemento raiz 'NFe')"));
    }
}
