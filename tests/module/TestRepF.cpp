#include "TelaTeste.h"
#include "ComandosHeadless.h"

#include <QLabel>
#include <QTextStream>

namespace {

using RepF = TelaTeste;

// Flags are on unless N; one captioned price edit per price table, one combo per grade title.
TEST_F(RepF, ConfigurationFlagsPriceTablesAndGrades)
{
    sql(QStringLiteral("insert into grade_tit (grade_tit_cod, descr) values (1, 'TAMANHO'); insert into grade_tit (grade_tit_cod, descr) values (2, 'COR');"
                       "insert into prod_grade (prod_cod, grade_tit_cod) values (1, 1);"));
    for (const char *valor : {"", "S", " N "}) {
        SCOPED_TRACE(valor);
        sql(QStringLiteral("delete from config where chave in ('REP_PRODUC_CUSTO_EXIGE', 'REP_IPI_SOMAR');"
                           "insert into config (chave, valor) values ('REP_PRODUC_CUSTO_EXIGE', '%1');"
                           "insert into config (chave, valor) values ('REP_IPI_SOMAR', '%1');").arg(QLatin1String(valor)));
        TRepF tela;
        EXPECT_EQ(QString::number(tela.ProducCustoExige()) + QString::number(tela.IPISomar()), *valor == ' ' ? "00" : "11");
        QStringList rotulos;
        for (QLabel *rotulo : tela.findChildren<QLabel *>())
            if (tela.PrecoEdits().contains(rotulo->buddy()))
                rotulos << rotulo->buddy()->objectName() + '=' + rotulo->text();
        rotulos.sort();
        EXPECT_EQ(rotulos, (QStringList{"PrecoNumEditBR1=VAREJO", "PrecoNumEditBR2=ATACADO", "PrecoNumEditBR3=PROMOCAO"}));
        ASSERT_EQ(tela.GradeCombos().size(), 2);
        EXPECT_EQ(tela.GradeCombos().first()->objectName(), "GradeCombo1");
    }
}

TEST_F(RepF, AnEmptyDatabaseAndNoFiscalPrinterStillOpenAndCloseWithoutAsking)
{
    sql(QStringLiteral("delete from tab_preco; delete from fornec;"));
    qputenv("PAVREL_ECF_LIBRARY", "/nonexistent/libecf.so");
    auto tela = AbrirTela();
    qunsetenv("PAVREL_ECF_LIBRARY");
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).contains("/nonexistent/libecf.so")) << primeiraMensagem().toStdString();
    EXPECT_TRUE(tela->PrecoEdits().isEmpty());
    EXPECT_TRUE(tela->GradeCombos().isEmpty());
    EXPECT_EQ(tela->RepD().Notas().RecordCount(), 0);
    EXPECT_TRUE(tela->close()) << "and without asking: an unscripted question fails";
}

TEST_F(RepF, BrowsingTypingAHeaderAndClosing)
{
    for (const int compra : {1, 2})
        ASSERT_EQ(InserirNota(db, {.compra = compra, .baixado = compra == 1, .itens = {}}), QString());
    auto tela = AbrirTela();
    TClientDataSet &notas = tela->RepD().Notas();
    QTableView *lista = tela->findChild<QTableView *>(QStringLiteral("NotasDBGrid"));
    TEdNotaPanel *h = tela->EdNotaPanel();

    secao("showing loads the list and starts browsing");
    EXPECT_EQ(QString::number(notas.RecordCount()) + '|' + tela->windowTitle() + '|' + tela->ItemPanel()->title(), "2|Pavrel - Consultando|Item - Consultando");
    EXPECT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_FALSE(h->isVisible());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    secao("the headless listing prints what the grid shows");
    QString saida, erros;
    QTextStream out(&saida), err(&erros);
    ASSERT_EQ(ComandosHeadless::Executar({QStringLiteral("notes")}, out, err), 0) << erros.toStdString();
    QStringList grade;
    for (int linha = 0; linha < lista->model()->rowCount(); ++linha) {
        QStringList celulas;
        for (int coluna = 0; coluna < lista->model()->columnCount(); ++coluna)
            celulas << lista->model()->index(linha, coluna).data().toString();
        grade << celulas.join(QLatin1Char('\t'));
    }
    EXPECT_EQ(saida.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(1), grade);
    EXPECT_TRUE(saida.contains(QStringLiteral("001-0000001")));
    EXPECT_EQ(ComandosHeadless::Executar({QStringLiteral("notes"), QStringLiteral("--cancelled"), QStringLiteral("talvez")}, out, err), 2);

    secao("the task menu opens under the pointer, stays open, and closes over the list");
    QWidget *menu = tela->findChild<QWidget *>(QStringLiteral("MenuPanel"));
    QTest::mouseMove(tela->findChild<QWidget *>(QStringLiteral("TarefasButton")));
    QCoreApplication::processEvents();
    EXPECT_TRUE(menu->isVisible());
    const QPoint longeDoMenu(4, lista->viewport()->height() - 4);
    ASSERT_FALSE(menu->geometry().contains(lista->viewport()->mapTo(menu->parentWidget(), longeDoMenu)));
    QTest::mouseMove(lista->viewport(), longeDoMenu);
    QCoreApplication::processEvents();
    EXPECT_FALSE(menu->isVisible());

    secao("enter moves the focus like tab");
    QWidget *busca = tela->findChild<QWidget *>(QStringLiteral("NDocPosNumEditBR"));
    busca->setFocus();
    ASSERT_TRUE(busca->hasFocus());
    QTest::keyClick(busca, Qt::Key_Return);
    EXPECT_FALSE(busca->hasFocus());

    secao("F6 does nothing on a posted note while browsing; a posted note keeps its type");
    ASSERT_TRUE(notas.Locate(QStringLiteral("compra_COD"), 1));
    ASSERT_TRUE(tela->NotaAtualBaixada());
    const int antes = tela->TipoDocComboBox()->currentIndex();
    QTest::keyClick(lista, Qt::Key_F6);
    EXPECT_EQ(tela->TipoDocComboBox()->currentIndex(), antes);
    tela->SetCabecState(TDataSetState::Edit);
    h->show();
    tela->TipoDocComboBox()->setCurrentIndex(0);
    tela->TipoDocComboBox()->setCurrentIndex(2);
    EXPECT_EQ(tela->TipoDocComboBox()->currentIndex(), 0);

    secao("other types take their number from the NF-e");
    ASSERT_TRUE(notas.Locate(QStringLiteral("compra_COD"), 2));
    h->NDocNumEditBR()->SetValue(123);
    tela->TipoDocComboBox()->setCurrentIndex(1);
    // number, read-only, series
    EXPECT_EQ(QStringLiteral("%1 %2 %3").arg(h->NDocNumEditBR()->Value()).arg(h->NDocNumEditBR()->isReadOnly()).arg(h->SerieNumEditBR()->Value()), "0 1 1");
    tela->TipoDocComboBox()->setCurrentIndex(0);
    EXPECT_FALSE(h->NDocNumEditBR()->isReadOnly());

    secao("F6 cycles and wraps while inserting");
    tela->SetCabecState(TDataSetState::Insert);
    tela->TipoDocComboBox()->setCurrentIndex(5);
    QStringList vistos;
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(lista, Qt::Key_F6);
        vistos << QString::number(tela->TipoDocComboBox()->currentIndex()) + ' ' + tela->TipoDocLabel()->text();
    }
    EXPECT_EQ(vistos, (QStringList{"6 NOTA COMPLEMENTAR", "0 ENTRADA"}));

    secao("escape with the note panel open asks once, and cancels on yes only");
    h->NDocNumEditBR()->setFocus();
    ASSERT_EQ(Foco(), "NDocNumEditBR");
    for (const bool sim : {false, true}) {
        dialogos.Responder(sim);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(dialogos.Perguntas().size(), sim ? 2 : 1);
        EXPECT_EQ(h->isVisible(), !sim);
    }
    EXPECT_EQ(dialogos.Perguntas().first().texto, "Existem alterações ainda não gravadas. Deseja cancelar estas alterações?");
    EXPECT_EQ(tela->CabecState(), TDataSetState::Browse);
    dialogos.Limpar();

    secao("closing with unsaved work asks and stays on no");
    // A price written for a product still being typed: discarding removes it.
    sql(QStringLiteral("insert into prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco) values (1, 1, 1, 0, 5)"));
    tela->SetCabecState(TDataSetState::Insert);
    dialogos.Responder(false);
    EXPECT_FALSE(tela->close());
    EXPECT_TRUE(tela->isVisible());
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().first().texto, "Existem informações não gravadas. Deseja descartar estas alterações?");
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from prod_preco")), QStringLiteral("1"));
    dialogos.Responder(true);
    EXPECT_TRUE(tela->close());
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from prod_preco")), QStringLiteral("0"));
}

} // namespace
