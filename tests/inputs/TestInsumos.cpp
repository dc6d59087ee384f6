#include "ComandosHeadless.h"
#include "ExecutarModal.h"
#include "TGradeImprF.h"
#include "TStringGrid.h"
#include "TelaTeste.h"
#include "TextoDataSet.h"
#include "UProdCompoList.h"
#include "UProdCompoList_UI.h"

#include <QAction>
#include <QLabel>
#include <QProcess>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// Product 20 ("BOLO", a composition) takes product 1 twice (0.5 each) and 0.3335 of product 2,
// which rounds to 0.334 before it multiplies. Note 50 (production): item 501 of 1.0005 x 3 units
// of product 20 (3 once each factor is rounded; 3.0015 otherwise), item 502 of 2 more, item 503
// of product 2, which has no composition. Note 51 has no items.
class Insumos : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        sql(QStringLiteral("insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, prod_fabr_cod, cfop, prod_tipo_cod) "
                           "values (20, 'BOLO ', 1, 1, 2, 0, '19059090', 1, '5101', '%');\n"
                           "insert into prod_compl (prod_cod, empr_cod, margem, ativo) values (20, 1, 30, 'S');\n"
                           "insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (1, 20, 0, 5);\n"
                           "insert into prod_compo (prod_cod_pai, prod_cod_filho, qtd) values (20, 1, 0.5);\n"
                           "insert into prod_compo (prod_cod_pai, prod_cod_filho, qtd) values (20, 2, 0.3335);\n"
                           "insert into prod_compo (prod_cod_pai, prod_cod_filho, qtd) values (20, 1, 0.5);\n"));
        ItemTeste bolo{.cod = 501, .prod = 20, .embQtd = QStringLiteral("1.0005"), .qtdEmbs = QStringLiteral("3"),
                       .infoAdic = {}, .precos = {}};
        ASSERT_EQ(InserirNota(db, {.compra = 50, .tipo = '%', .itens = {bolo, Item(502, 20, "2", "10"), Item(503, 2, "4", "10")}}),
                  QString());
        ASSERT_EQ(InserirNota(db, {.compra = 51, .tipo = '%', .itens = {}}), QString());
        sql(QStringLiteral("update compra_item_tmp set unid_cod=1, trib_cod=1;"));   // as the item grid joins them
    }

    int Rodar(const QString &linha)
    {
        saida.clear();
        QTextStream s(&saida);
        QTextStream e(&saida);
        return ComandosHeadless::Executar(linha.split(QLatin1Char(' ')), s, e);
    }

    // What a screen showed: caption, label, header, and its grid as lines of tab-separated cells.
    static QStringList Retrato(const TGradeImprF &tela)
    {
        const QTableWidget *grade = tela.Grade();
        QString celulas;
        for (int l = -1; l < grade->rowCount(); ++l)
            for (int c = 0; c < grade->columnCount(); ++c)
                celulas += (l < 0 ? grade->horizontalHeaderItem(c) : grade->item(l, c))->text()
                           + QLatin1Char(c + 1 < grade->columnCount() ? '\t' : '\n');
        return {tela.windowTitle(), tela.ExplicacaoLabel()->text(), tela.CabecalhoLabel()->text(), celulas};
    }

    QString saida;
    const QString notaTab = QStringLiteral("Código\tDescrição\tQtd\n2\tPRODUTO DOIS\t1,67CX\n1\tPRODUTO UM\t5UN\n");
    const QString itemTab = QStringLiteral("Código\tDescrição\tQtd.Unit\tQtd.Tot\n2\tPRODUTO DOIS\t0,334CX\t0,668CX\n"
                                           "1\tPRODUTO UM\t0,5UN\t1UN\n1\tPRODUTO UM\t0,5UN\t1UN\n");
};

TEST_F(Insumos, NotaSomaPorInsumoArredondandoCadaFatorEItemRepeteOInsumo)
{
    // 501: 1.002 of 2 (1.001 when the factors are not rounded first), 1.5 + 1.5 of 1; 502: 0.668
    // of 2, 1 + 1 of 1; 503 nothing.
    TProdCompoList nota;
    ASSERT_TRUE(TProdCompoList_DBI::PreencherDeNota(nota, db.conexao(), 1, 50));
    TStringGrid grade;
    TProdCompoList_UI::PreencherStringGridNota(grade, nota);
    EXPECT_EQ(TextoTabulado(grade), notaTab);

    TProdCompoList item;
    ASSERT_TRUE(TProdCompoList_DBI::PreencherDeItem(item, db.conexao(), 20));
    TProdCompoList_UI::PreencherStringGridItem(grade, item, 2);
    EXPECT_EQ(TextoTabulado(grade), itemTab);
    EXPECT_EQ(item.ProdCodFilhoToProdCompo(1), &item.GetProdCompo(1));   // the first of the repeated lines

    // Another company's note, a product without composition and an unreadable database give nothing.
    TProdCompoList vazia;
    EXPECT_TRUE(TProdCompoList_DBI::PreencherDeNota(vazia, db.conexao(), 2, 50));
    EXPECT_TRUE(TProdCompoList_DBI::PreencherDeItem(vazia, db.conexao(), 2));
    TDadosBanco perdido = db.banco();
    perdido.database += QStringLiteral(".perdido");
    TConexaoSQL semBanco(perdido);
    EXPECT_FALSE(TProdCompoList_DBI::PreencherDeNota(vazia, semBanco, 1, 50));
    EXPECT_EQ(vazia.Count(), 0);
}

TEST_F(Insumos, TelasMostramOsInsumosEImprimemEmPdf)
{
    QTemporaryDir pasta;
    const QString pdf = pasta.filePath(QStringLiteral("insumos.pdf"));
    auto tela = AbrirTela();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 50));
    ASSERT_TRUE(tela->ItensNota().Locate(QStringLiteral("COMPRA_ITEM_TMP_COD"), 502));

    QStringList visto;
    TRoteiroModal roteiro;
    const auto mostrar = [&](QDialog &d) {
        auto &grade = dynamic_cast<TGradeImprF &>(d);
        visto = Retrato(grade);
        QTest::mouseClick(grade.ImprimirButton(), Qt::LeftButton);
        return int(QDialog::Rejected);
    };
    roteiro.Responder(mostrar);
    dialogos.ResponderArquivo(pdf);
    tela->Acao(QStringLiteral("EstoInsumosItemAct"))->trigger();
    const QString cabecItem = QStringLiteral("Nota: 001-000050   Data: 10/11/26\n20 - BOLO  Qtd.Item:2");
    EXPECT_EQ(visto, (QStringList{QStringLiteral("Insumos do Item"),
                                  QStringLiteral("Produtos que serão consumidos por este item conforme a lista de "
                                                 "componentes em Estoque, Produtos"),
                                  cabecItem, itemTab}));
    QProcess texto;
    texto.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    ASSERT_TRUE(texto.waitForFinished(10000));
    const QString lido = QString::fromUtf8(texto.readAllStandardOutput());
    for (const char *parte : {"Insumos do Item", "Nota: 001-000050", "20 - BOLO", "Qtd.Item:2", "Qtd.Unit", "0,668CX", "Página 1 de 1"})
        EXPECT_TRUE(lido.contains(QString::fromUtf8(parte))) << parte << "\n" << lido.toStdString();

    // An item typed but not saved is not counted in the note's list.
    TClientDataSet &itens = tela->ItensNota();
    itens.Append();
    itens.FieldByName(QStringLiteral("prod_cod")).SetAsInteger(20);
    itens.FieldByName(QStringLiteral("QTD_COMPRADA")).SetAsFloat(7);
    itens.Post();
    roteiro.Responder([&](QDialog &d) { visto = Retrato(dynamic_cast<TGradeImprF &>(d)); return int(QDialog::Rejected); });
    tela->Acao(QStringLiteral("EstoInsumosNotaAct"))->trigger();
    EXPECT_EQ(visto, (QStringList{QStringLiteral("Insumos da nota"),
                                  QStringLiteral("Produtos que serão consumidos conforme a lista de componentes em "
                                                 "Estoque, Produtos"),
                                  QStringLiteral("Nota: 001-000050   Data: 10/11/26"), notaTab}));
    EXPECT_EQ(roteiro.Pendentes() + roteiro.SemResposta(), 0);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
}

TEST_F(Insumos, RecusasDaTelaEDoComando)
{
    auto tela = AbrirTela();
    QAction *acao = tela->Acao(QStringLiteral("EstoInsumosItemAct"));
    const struct { int compra, item; const char *mensagem; } casos[] = {
        {51, 0, "Não há itens na nota"}, {50, 503, "O item não é do tipo Composição"}};
    TRoteiroModal roteiro;
    for (const auto &c : casos) {
        SCOPED_TRACE(c.mensagem);
        dialogos.Limpar();
        ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), c.compra));
        if (c.item) {
            ASSERT_TRUE(tela->ItensNota().Locate(QStringLiteral("COMPRA_ITEM_TMP_COD"), c.item));
        }
        acao->trigger();
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QString::fromUtf8(c.mensagem));
        EXPECT_TRUE(acao->isEnabled());
        EXPECT_EQ(Rodar(QStringLiteral("inputs 1-%1 --item %2").arg(c.compra).arg(c.item)), 1);
        EXPECT_EQ(saida, QStringLiteral("informação: ") + QString::fromUtf8(c.mensagem) + QLatin1Char('\n'));
    }
    EXPECT_EQ(roteiro.SemResposta(), 0);
}

TEST_F(Insumos, ComandoImprimeAsLinhasDasTelasEABaixaGravaOsMesmosInsumos)
{
    QTemporaryDir pasta;
    const QString pdf = pasta.filePath(QStringLiteral("nota.pdf"));
    const struct { QString linha; int codigo; QString esperado; } casos[] = {
        {QStringLiteral("inputs 1-50"), 0, notaTab},
        {QStringLiteral("inputs 1-50 --item 502 --pdf ") + pdf, 0, itemTab},
        {QStringLiteral("inputs 1-50 --item 9"), 1, QStringLiteral("pavrel inputs: a nota 001-0000050 não tem o item 9\n")},
        {QStringLiteral("inputs 1-50 --item x"), 2, QStringLiteral("pavrel inputs: item inválido: x\n")},
    };
    for (const auto &c : casos) {
        EXPECT_EQ(Rodar(c.linha), c.codigo) << c.linha.toStdString();
        EXPECT_TRUE(saida.startsWith(c.esperado)) << c.linha.toStdString() << '\n' << saida.toStdString();
    }
    EXPECT_TRUE(QFileInfo(pdf).size() > 0);

    // Posting: |quantity| x each input per unit, with the same 3-decimal rounding, line by line.
    ASSERT_EQ(Rodar(QStringLiteral("post 1-50 --yes")), 0) << saida.toStdString();
    EXPECT_EQ(db.valor(QStringLiteral("select list(m.prod_cod || ':' || c.prod_cod_filho || ':' || c.qtd, ' ') from "
                                      "(select * from est_mov_compo order by est_mov_compo_cod) c join est_mov m on "
                                      "m.est_mov_cod=c.est_mov_cod")),
              QStringLiteral("20:2:1.0020 20:1:1.5000 20:1:1.5000 20:2:0.6680 20:1:1.0000 20:1:1.0000"));
}

} // namespace

TEST(GradeImpr, PaginasRepetemOsTitulosENumeram)
{
    TGradeImpr longa{.titulo = QStringLiteral("Insumos da nota"), .explicacao = QStringLiteral("Explicação"),
                     .cabecalho = QStringLiteral("Linha 1\r\nLinha 2"), .grade = {}, .colunasADireita = {0}};
    longa.grade.SetTitulos({QStringLiteral("Código"), QStringLiteral("Descrição")});
    for (int i = 1; i <= 150; ++i)
        longa.grade.AdicionarLinha({QString::number(i), QStringLiteral("INSUMO %1").arg(i)});
    QTemporaryDir pasta;
    const QString pdf = pasta.filePath(QStringLiteral("longa.pdf"));
    QString erro;
    ASSERT_TRUE(GravarPdfGradeImpr(longa, pdf, &erro)) << erro.toStdString();
    QProcess texto;
    texto.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    ASSERT_TRUE(texto.waitForFinished(10000));
    const QStringList paginas = QString::fromUtf8(texto.readAllStandardOutput()).split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    ASSERT_GE(paginas.size(), 3);
    for (int p = 0; p < paginas.size(); ++p) {
        EXPECT_TRUE(paginas[p].contains(QStringLiteral("Descrição"))) << p;
        EXPECT_TRUE(paginas[p].contains(QStringLiteral("Página %1 de %2").arg(p + 1).arg(paginas.size()))) << p;
        EXPECT_EQ(paginas[p].contains(QStringLiteral("Linha 2")), p == 0) << p;
    }
    EXPECT_TRUE(paginas.last().contains(QStringLiteral("INSUMO 150")));
    EXPECT_FALSE(GravarPdfGradeImpr(longa, pasta.filePath(QStringLiteral("nao/existe.pdf")), &erro));
    EXPECT_TRUE(erro.startsWith(QStringLiteral("Não foi possível gravar o PDF "))) << erro.toStdString();
}
