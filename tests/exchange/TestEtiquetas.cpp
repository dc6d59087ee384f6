#include "ComandosHeadless.h"
#include "ExecutarModal.h"
#include "TelaTeste.h"
#include "UEtiquetasF.h"

#include <QLabel>
#include <QProcess>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// Note 60: 2 x 12 of product 1 (a valid EAN-13); product 2 (EAN-13) on two lines, 1 + 1.5 x 2 = 4;
// product 30, 2.5 (its GTIN has a wrong check digit, its second bar code is good; priced only
// in table 2); product 31, 0.5 (no usable code: Code 128 of "31"; priced only by company 2);
// product 32, 1 (a UPC-A).
// Per unit that is 24 + 4 + 1 + 1 + 1 = 31 labels. Note 61 has no items.
class Etiquetas : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        sql(QStringLiteral(
            "insert into prod (prod_cod, descr, emb_qtd, gtin) values (30, 'QUEIJO MINAS FRESCAL', 1, '7890000000018');\n"
            "insert into prod (prod_cod, descr, emb_qtd, gtin) values (31, 'FITA', 1, NULL);\n"
            "insert into prod (prod_cod, descr, emb_qtd, gtin) values (32, 'ARTIGO IMPORTADO COM UMA DESCRICAO "
            "LONGA DEMAIS PARA CABER EM DUAS LINHAS DA ETIQUETA DE PRECO', 1, '036000291452');\n"
            "insert into prod_barras (bar_cod, prod_cod) values ('12345', 30);\n"
            "insert into prod_barras (bar_cod, prod_cod) values ('7890000000031', 30);\n"
            "insert into prod_barras (bar_cod, prod_cod) values ('ABC', 31);\n"
            "insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) values (1, 2, 30, 50);\n"
            "insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) values (1, 1, 32, 1234.5);\n"
            "insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) values (2, 1, 31, 9);\n"));
        ItemTeste um = Item(1, 1, "2", "10");
        um.embQtd = QStringLiteral("12");
        ItemTeste doisB = Item(3, 2, "1.5", "10");
        doisB.embQtd = QStringLiteral("2");
        ASSERT_EQ(InserirNota(db, {.compra = 60, .itens = {um, Item(2, 2, "1", "10"), doisB, Item(4, 30, "2.5", "10"),
                                                           Item(5, 31, "0.5", "10"), Item(6, 32, "1", "10")}}),
                  QString());
        ASSERT_EQ(InserirNota(db, {.compra = 61}), QString());
    }

    int Rodar(const QString &linha)
    {
        saida.clear();
        QTextStream s(&saida);
        return ComandosHeadless::Executar(linha.split(QLatin1Char(' ')), s, s);
    }

    // pdfinfo's page count and size, then pdftotext's text, on one line.
    static QString Pdf(const QString &arquivo)
    {
        QProcess p;
        p.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("pdfinfo \"$0\" | grep '^Page'; pdftotext \"$0\" -"), arquivo});
        EXPECT_TRUE(p.waitForFinished(10000));
        return QString::fromUtf8(p.readAllStandardOutput()).simplified();
    }

    QTemporaryDir pasta;
    QString saida;
};

TEST_F(Etiquetas, UmaPorProdutoOuPorUnidadeComOCodigoDeBarrasEOPrecoDaPrimeiraTabela)
{
    const auto itens = TEtiquetas::LerItens(db.conexao(), {1, 1, 60});
    ASSERT_TRUE(itens);
    const QList<TEtiqueta> porUnidade = TEtiquetas::Montar(*itens, true);
    QStringList visto;
    for (const TEtiqueta &e : TEtiquetas::Montar(*itens, false))
        visto << QStringLiteral("%1 %2 %3 %4 x%5").arg(e.prodCod).arg(e.codigoBarras, e.ean13 ? "EAN-13" : "Code128")
                     .arg(e.preco ? FloatToStrPonto(*e.preco) : QStringLiteral("-")).arg(porUnidade.count(e));
    EXPECT_EQ(visto, (QStringList{"1 7890000000017 EAN-13 13 x24", "2 7890000000024 EAN-13 5.85 x4",
                                  "30 7890000000031 EAN-13 - x1", "31 31 Code128 - x1", "32 0036000291452 EAN-13 1234.5 x1"}));
    EXPECT_EQ(porUnidade.size(), 31);
}

TEST_F(Etiquetas, TelaImprimeEmPdfNaFolhaOuNoRoloERecusaNotaSemItens)
{
    auto tela = AbrirTela();
    QAction *acao = tela->Acao(QStringLiteral("EtiqAct"));
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 61));
    TRoteiroModal roteiro;
    acao->trigger();
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Proib), QStringLiteral("Não há itens na nota"));
    EXPECT_EQ(roteiro.SemResposta(), 0);

    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 60));
    const struct { bool porUnidade, rolo; const char *resumo, *paginas; } casos[] = {
        {true, false, "31 etiquetas em 2 páginas", "Pages: 2 Page size: 595 x 842 pts (A4) "},
        {false, true, "5 etiquetas em 5 páginas", "Pages: 5 Page size: 198 x 84 pts "},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.resumo);
        dialogos.Limpar();
        const QString pdf = pasta.filePath(QStringLiteral("%1.pdf").arg(c.rolo));
        roteiro.Responder([&](QDialog &d) {
            auto &f = dynamic_cast<TEtiquetasF &>(d);
            EXPECT_FALSE(acao->isEnabled());
            EXPECT_EQ(f.ResumoLabel()->text(), QStringLiteral("5 etiquetas em 1 página"));
            (c.porUnidade ? f.PorUnidadeRadioButton() : f.PorProdutoRadioButton())->click();
            (c.rolo ? f.RoloRadioButton() : f.FolhaA4RadioButton())->click();
            EXPECT_EQ(f.ResumoLabel()->text(), QString::fromUtf8(c.resumo));
            f.OkButton()->click();
            return f.result();
        });
        dialogos.ResponderArquivo(pdf);
        acao->trigger();
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info),
                  QStringLiteral("Etiquetas gravadas em %1 (%2)").arg(pdf, QString::fromUtf8(c.resumo)));
        const QString lido = Pdf(pdf);
        EXPECT_TRUE(lido.startsWith(QLatin1String(c.paginas))) << lido.toStdString();
        for (const char *parte : {"PRODUTO UM", "Cód. 1", "7890000000017", "13,00", "1.234,50", "0036000291452",
                                  "ARTIGO IMPORTADO COM UMA DESCRICAO LONGA", "…"})
            EXPECT_TRUE(lido.contains(QString::fromUtf8(parte))) << parte;
        EXPECT_TRUE(acao->isEnabled());
    }
}

TEST_F(Etiquetas, Comando)
{
    const QString pdf = pasta.filePath(QStringLiteral("etiquetas.pdf"));
    const struct { QString linha; int codigo; QString saida; } casos[] = {
        {QStringLiteral("labels 1-60 --per-unit --pdf ") + pdf, 0, QStringLiteral("31 etiquetas em 2 páginas: ") + pdf},
        {QStringLiteral("labels 1-60 --roll --pdf ") + pdf, 0, QStringLiteral("5 etiquetas em 5 páginas: ") + pdf},
        {QStringLiteral("labels 1-61 --pdf ") + pdf, 1, QStringLiteral("proibido: Não há itens na nota")},
        {QStringLiteral("labels 1-60"), 2, QStringLiteral("pavrel labels: falta --pdf ARQUIVO.pdf")},
        {QStringLiteral("labels 60 --pdf ") + pdf, 2, QStringLiteral("uso: pavrel labels")},
    };
    for (const auto &c : casos) {
        EXPECT_EQ(Rodar(c.linha), c.codigo) << c.linha.toStdString();
        EXPECT_TRUE(saida.startsWith(c.saida)) << c.linha.toStdString() << '\n' << saida.toStdString();
    }
    EXPECT_TRUE(Pdf(pdf).startsWith(QStringLiteral("Pages: 5 ")));
}

} // namespace
