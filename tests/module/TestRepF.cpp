#include "TelaTeste.h"
#include "RegistroSql.h"
#include "ComandosHeadless.h"
#include "DialogosTeste.h"
#include "TClientDataSet.h"
#include "TEdNotaPanel.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TRepF.h"
#include "TestDatabase.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLoggingCategory>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTextStream>

#include <gtest/gtest.h>

namespace {

class RepF : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }

    // A note of company 1, station 1, dated this month.
    void nota(int codigo, const char *tipo, bool baixado = false, const QString &extra = QString())
    {
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, "
                                         "ndoc, serie, fornec_cod, tot, baixado, cancelado%1) values (1, 1, %2, '%3', "
                                         "'2026-11-10', %2, '1', 1, 10, '%4', 'N'%5)")
                              .arg(extra.isEmpty() ? QString() : QStringLiteral(", arq_xml"))
                              .arg(codigo)
                              .arg(QString::fromLatin1(tipo))
                              .arg(baixado ? QLatin1Char('S') : QLatin1Char('N'))
                              .arg(extra.isEmpty() ? QString() : QStringLiteral(", '") + extra + QLatin1Char('\''))),
                  QString());
    }

    // The real screen, shown offscreen, with its note list loaded.
    std::unique_ptr<TRepF> abrir() { return AbrirTela(); }

    TestDatabase db;
    DialogosTeste dialogos;
};

struct FlagCase
{
    const char *nome;
    const char *valor;
    bool ligado;
};

class RepFFlags : public RepF, public ::testing::WithParamInterface<FlagCase>
{
};

TEST_P(RepFFlags, ConfigurationFlagsAreOnUnlessExactlyN)
{
    const FlagCase c = GetParam();
    if (c.valor) {
        for (const char *chave : {"REP_PRODUC_CUSTO_EXIGE", "REP_IPI_SOMAR"})
            ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('%1', '%2')")
                                  .arg(QLatin1String(chave), QLatin1String(c.valor))), QString());
    }
    TRepF tela;
    EXPECT_EQ(tela.ProducCustoExige(), c.ligado);
    EXPECT_EQ(tela.IPISomar(), c.ligado);
}

INSTANTIATE_TEST_SUITE_P(, RepFFlags, ::testing::Values(
    FlagCase{"absent", nullptr, true}, FlagCase{"empty", "", true}, FlagCase{"S", "S", true},
    FlagCase{"N", "N", false}, FlagCase{"N_with_blanks", " N ", false}),
    [](const auto &caso) { return std::string(caso.param.nome); });

TEST_F(RepF, OnePriceEditPerPriceTableCaptionedWithItsName)
{
    TRepF tela;
    ASSERT_EQ(tela.PrecoEdits().size(), 3);
    const QStringList nomes = {QStringLiteral("VAREJO"), QStringLiteral("ATACADO"), QStringLiteral("PROMOCAO")};
    for (int i = 0; i < 3; ++i) {
        TNumEditBR *edit = tela.findChild<TNumEditBR *>(QStringLiteral("PrecoNumEditBR%1").arg(i + 1));
        ASSERT_NE(edit, nullptr) << i;
        bool achouRotulo = false;
        for (QLabel *rotulo : tela.findChildren<QLabel *>())
            achouRotulo |= rotulo->buddy() == edit && rotulo->text() == nomes[i];
        EXPECT_TRUE(achouRotulo) << nomes[i].toStdString();
    }
}

TEST_F(RepF, NoPriceEditsNoGradesAndAnEmptyDatabaseStillOpens)
{
    ASSERT_EQ(db.exec(QStringLiteral("delete from tab_preco")), QString());
    ASSERT_EQ(db.exec(QStringLiteral("delete from fornec")), QString());
    RegistroSql sql;
    auto tela = abrir();
    EXPECT_TRUE(tela->PrecoEdits().isEmpty());
    EXPECT_TRUE(tela->GradeCombos().isEmpty());
    EXPECT_TRUE(RegistroSql::Enviou(QStringLiteral("select count(*) from prod_grade")));
    EXPECT_FALSE(RegistroSql::Enviou(QStringLiteral("grade_tit")));
    EXPECT_EQ(tela->RepD().Notas().RecordCount(), 0);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(RepF, OneGradeComboPerGradeTitleWhenProductsHaveGrades)
{
    ASSERT_EQ(db.execScript(QStringLiteral(
                  "insert into grade_tit (grade_tit_cod, descr) values (1, 'TAMANHO');"
                  "insert into grade_tit (grade_tit_cod, descr) values (2, 'COR');"
                  "insert into prod_grade (prod_cod, grade_tit_cod) values (1, 1);")), QString());
    TRepF tela;
    ASSERT_EQ(tela.GradeCombos().size(), 2);
    EXPECT_EQ(tela.GradeCombos().first()->objectName(), QStringLiteral("GradeCombo1"));
}

TEST_F(RepF, ShowLoadsTheListAndStartsBrowsing)
{
    nota(345, "\"");
    nota(346, "#");
    auto tela = abrir();
    EXPECT_EQ(tela->RepD().Notas().RecordCount(), 2);
    EXPECT_EQ(tela->windowTitle(), QStringLiteral("Pavrel - Consultando"));
    EXPECT_EQ(tela->ItemPanel()->title(), QStringLiteral("Item - Consultando"));
    EXPECT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_FALSE(tela->EdNotaPanel()->isVisible());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(RepF, F6DoesNothingOnAPostedNoteWhileBrowsing)
{
    nota(1, "\"", true);
    auto tela = abrir();
    ASSERT_TRUE(tela->NotaAtualBaixada());
    const int antes = tela->TipoDocComboBox()->currentIndex();
    QTest::keyClick(tela->findChild<QWidget *>(QStringLiteral("NotasDBGrid")), Qt::Key_F6);
    EXPECT_EQ(tela->TipoDocComboBox()->currentIndex(), antes);
}

TEST_F(RepF, F6CyclesAndWrapsWhileInserting)
{
    nota(1, "\"", true);
    auto tela = abrir();
    tela->SetCabecState(TDataSetState::Insert);
    tela->EdNotaPanel()->show();
    tela->TipoDocComboBox()->setCurrentIndex(5);
    QTest::keyClick(tela->findChild<QWidget *>(QStringLiteral("NotasDBGrid")), Qt::Key_F6);
    EXPECT_EQ(tela->TipoDocComboBox()->currentIndex(), 6);
    EXPECT_EQ(tela->TipoDocLabel()->text(), QStringLiteral("NOTA COMPLEMENTAR"));
    QTest::keyClick(tela->findChild<QWidget *>(QStringLiteral("NotasDBGrid")), Qt::Key_F6);
    EXPECT_EQ(tela->TipoDocComboBox()->currentIndex(), 0);
    EXPECT_EQ(tela->TipoDocLabel()->text(), QStringLiteral("ENTRADA"));
}

TEST_F(RepF, TypeChangeOnAPostedNoteIsRefusedAndOtherTypesTakeTheirNumberFromTheNFe)
{
    nota(1, "\"", true);
    nota(2, "\"", false);
    auto tela = abrir();
    TClientDataSet &notas = tela->RepD().Notas();
    ASSERT_TRUE(notas.Locate(QStringLiteral("compra_COD"), 1));
    tela->SetCabecState(TDataSetState::Edit);
    tela->EdNotaPanel()->show();
    tela->TipoDocComboBox()->setCurrentIndex(0);
    tela->TipoDocComboBox()->setCurrentIndex(2);
    EXPECT_EQ(tela->TipoDocComboBox()->currentIndex(), 0);

    ASSERT_TRUE(notas.Locate(QStringLiteral("compra_COD"), 2));
    tela->EdNotaPanel()->NDocNumEditBR()->SetValue(123);
    tela->TipoDocComboBox()->setCurrentIndex(1);
    EXPECT_EQ(tela->EdNotaPanel()->NDocNumEditBR()->Value(), 0.0);
    EXPECT_TRUE(tela->EdNotaPanel()->NDocNumEditBR()->isReadOnly());
    EXPECT_EQ(tela->EdNotaPanel()->SerieNumEditBR()->Value(), 1.0);
    tela->TipoDocComboBox()->setCurrentIndex(0);
    EXPECT_FALSE(tela->EdNotaPanel()->NDocNumEditBR()->isReadOnly());
}

TEST_F(RepF, ClosingWithUnsavedWorkAsksAndStaysOnNo)
{
    ASSERT_EQ(db.exec(QStringLiteral("insert into prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco) "
                                     "values (1, 1, 1, 0, 5)")), QString());
    auto tela = abrir();
    tela->SetCabecState(TDataSetState::Insert);
    dialogos.Responder(false);
    EXPECT_FALSE(tela->close());
    EXPECT_TRUE(tela->isVisible());
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().first().texto,
              QStringLiteral("Existem informações não gravadas. Deseja descartar estas alterações?"));
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from prod_preco")), QStringLiteral("1"));

    dialogos.Responder(true);
    EXPECT_TRUE(tela->close());
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from prod_preco")), QStringLiteral("0"));
}

TEST_F(RepF, ClosingWhileBrowsingAsksNothing)
{
    auto tela = abrir();
    EXPECT_TRUE(tela->close());
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());
}

TEST_F(RepF, EscapeWithTheNotePanelOpenAsksBeforeCancelling)
{
    auto tela = abrir();
    tela->SetCabecState(TDataSetState::Insert);
    tela->EdNotaPanel()->show();
    dialogos.Responder(true);
    QTest::keyClick(tela->EdNotaPanel()->NDocNumEditBR(), Qt::Key_Escape);
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().first().texto,
              QStringLiteral("Existem alterações ainda não gravadas. Deseja cancelar estas alterações?"));
    EXPECT_FALSE(tela->EdNotaPanel()->isVisible());
    EXPECT_EQ(tela->CabecState(), TDataSetState::Browse);
}

TEST_F(RepF, EnterMovesTheFocusLikeTab)
{
    auto tela = abrir();
    QWidget *busca = tela->findChild<QWidget *>(QStringLiteral("NDocPosNumEditBR"));
    busca->setFocus();
    ASSERT_TRUE(busca->hasFocus());
    QTest::keyClick(busca, Qt::Key_Return);
    EXPECT_FALSE(busca->hasFocus());
}

TEST_F(RepF, FiscalPrinterFailureIsShownAndTheScreenStillOpens)
{
    qputenv("PAVREL_ECF_LIBRARY", "/nonexistent/libecf.so");
    auto tela = std::make_unique<TRepF>();
    qunsetenv("PAVREL_ECF_LIBRARY");
    const QString mensagem = dialogos.UnicaMensagem(TipoMensagem::Erro);
    EXPECT_TRUE(mensagem.contains(QStringLiteral("/nonexistent/libecf.so"))) << mensagem.toStdString();
    EXPECT_EQ(tela->PrecoEdits().size(), 3);
}

TEST_F(RepF, TaskMenuShowsOverItsButtonAndHidesOverTheList)
{
    auto tela = abrir();
    QWidget *menu = tela->findChild<QWidget *>(QStringLiteral("MenuPanel"));
    ASSERT_NE(menu, nullptr);
    QEvent entrar(QEvent::Enter);
    QCoreApplication::sendEvent(tela->findChild<QWidget *>(QStringLiteral("TarefasButton")), &entrar);
    EXPECT_TRUE(menu->isVisible());
    QCoreApplication::sendEvent(tela->findChild<QTableView *>(QStringLiteral("NotasDBGrid"))->viewport(), &entrar);
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(RepF, HeadlessListingPrintsWhatTheGridShows)
{
    nota(345, "\"");
    nota(346, "%");
    auto tela = abrir();
    QString saida;
    QString erros;
    QTextStream out(&saida);
    QTextStream err(&erros);
    ASSERT_EQ(ComandosHeadless::Executar({QStringLiteral("notes")}, out, err), 0) << erros.toStdString();
    const QStringList linhas = saida.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    auto *modelo = tela->findChild<QTableView *>(QStringLiteral("NotasDBGrid"))->model();
    ASSERT_EQ(linhas.size(), modelo->rowCount() + 1);
    for (int linha = 0; linha < modelo->rowCount(); ++linha) {
        QStringList celulas;
        for (int coluna = 0; coluna < modelo->columnCount(); ++coluna)
            celulas << modelo->index(linha, coluna).data().toString();
        EXPECT_EQ(linhas[linha + 1], celulas.join(QLatin1Char('\t')));
    }
    EXPECT_TRUE(saida.contains(QStringLiteral("001-0000345")));

    EXPECT_EQ(ComandosHeadless::Executar({QStringLiteral("notes"), QStringLiteral("--cancelled"), QStringLiteral("talvez")}, out, err), 2);
}

} // namespace
