#include "TelaTeste.h"
#include "DialogosTeste.h"
#include "TClientDataSet.h"
#include "TEdNotaPanel.h"
#include "TRepF.h"
#include "TTotaisBar.h"
#include "TestDatabase.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class RepFItens : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        nota(10, 30);
        nota(11, 13);
        item(10, 101, 1, 10, 2, 1);     // 20,00
        item(10, 102, 2, 5, 2, 1);      // 10,00
        item(11, 103, 3, 12, 1, 1);     // 12,00
    }

    void nota(int compra, int totProds)
    {
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, "
                                         "serie, fornec_cod, tot_prods, tot) values (1, 1, %1, '\"', '2026-11-10', %1, "
                                         "'1', 1, %2, %2)").arg(compra).arg(totProds)),
                  QString());
    }

    void item(int compra, int codigo, int prod, int custoUnit, int embs, int embQtd)
    {
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, "
                                         "compra_item_tmp_cod, prod_cod, unid_cod, trib_cod, ordem, emb_qtd, qtd_embs, "
                                         "custo_tot, info_adic) values (1, 10, %1, %2, %3, 1, 1, %2, %4, %5, %6, 'obs d''item')")
                              .arg(compra).arg(codigo).arg(prod).arg(embQtd).arg(embs).arg(custoUnit * embs)),
                  QString());
        for (int tabela = 1; tabela <= 3; ++tabela)
            ASSERT_EQ(db.exec(QStringLiteral("insert into compra_item_tmp_precos (empr_cod, estacao_cod, "
                                             "compra_item_tmp_cod, tab_preco_cod, preco) values (1, 10, %1, %2, %3)")
                                  .arg(codigo).arg(tabela).arg(tabela * 1.25)),
                      QString());
    }

    std::unique_ptr<TRepF> abrir() { return AbrirTela(); }

    QString retrato()
    {
        QStringList linhas;
        const auto q = db.conexao().Ab(QStringLiteral("select i.*, p.tab_preco_cod, p.preco from compra_item_tmp i "
                                                      "join compra_item_tmp_precos p on p.compra_item_tmp_cod=i.compra_item_tmp_cod "
                                                      "order by i.compra_item_tmp_cod, p.tab_preco_cod"));
        for (q->First(); !q->Eof(); q->Next()) {
            QStringList campos;
            for (int c = 0; c < q->FieldCount(); ++c)
                campos << q->Fields(c).AsString();
            linhas << campos.join(QLatin1Char('|'));
        }
        return linhas.join(QLatin1Char('\n'));
    }

    TestDatabase db;
    DialogosTeste dialogos;
};

TEST_F(RepFItens, TheCurrentNoteShowsItsItemsAndWhetherTheyAgree)
{
    auto tela = abrir();
    TClientDataSet &notas = tela->RepD().Notas();
    TTotaisBar *barra = tela->findChild<TTotaisBar *>(QStringLiteral("TotaisBar"));
    ASSERT_TRUE(notas.Locate(QStringLiteral("compra_COD"), 10));
    EXPECT_EQ(tela->RepD().Itens().RecordCount(), 2);
    EXPECT_EQ(barra->TotProdItensLabel()->text(), QStringLiteral("R$ 30,00"));
    EXPECT_EQ(barra->Estado(), TTotaisBar::Concordancia::Concorda);

    ASSERT_TRUE(notas.Locate(QStringLiteral("compra_COD"), 11));
    EXPECT_EQ(tela->RepD().Itens().RecordCount(), 1);
    EXPECT_EQ(barra->TotProdItensLabel()->text(), QStringLiteral("R$ 12,00"));
    EXPECT_EQ(barra->Estado(), TTotaisBar::Concordancia::Discorda);
    EXPECT_EQ(tela->findChild<QTableView *>(QStringLiteral("ItensDBGrid"))->model()->rowCount(), 1);
}

TEST_F(RepFItens, ConfirmingAnAlterationStoresTheItemsAsTheyWere)
{
    const QString antes = retrato();
    ASSERT_FALSE(antes.isEmpty());
    auto tela = abrir();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 10));
    tela->AltActExecute();
    ASSERT_TRUE(tela->EdNotaPanel()->isVisible());
    QTest::mouseClick(tela->EdNotaPanel()->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse) << dialogos.Mensagens().size();
    EXPECT_EQ(retrato(), antes);

    // Closed and opened again, the screen shows the same items.
    tela.reset();
    auto outra = abrir();
    ASSERT_TRUE(outra->RepD().Notas().Locate(QStringLiteral("compra_COD"), 10));
    EXPECT_EQ(outra->RepD().Itens().RecordCount(), 2);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(RepFItens, ANewNoteStartsWithoutItems)
{
    auto tela = abrir();
    ASSERT_GT(tela->RepD().Itens().RecordCount(), 0);
    QTest::keyClick(tela.get(), Qt::Key_F3);
    EXPECT_EQ(tela->RepD().Itens().RecordCount(), 0);
    TTotaisBar *barra = tela->findChild<TTotaisBar *>(QStringLiteral("TotaisBar"));
    EXPECT_EQ(barra->Estado(), TTotaisBar::Concordancia::Neutra);
}

} // namespace
