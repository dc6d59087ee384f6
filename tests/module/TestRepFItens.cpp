#include "TelaTeste.h"
#include "TTotaisBar.h"

#include <QAction>
#include <QLabel>

namespace {

// Notes 10 (items 101 and 102, worth 30 as its header says) and 11 (item 103 worth 12, header 13).
class RepFItens : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        for (const auto &[compra, totProds] : {std::pair{10, 30}, std::pair{11, 13}})
            sql(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, serie, fornec_cod, "
                               "tot_prods, tot) values (1, 1, %1, '\"', '2026-11-10', %1, '1', 1, %2, %2)").arg(compra).arg(totProds));
        // note, item, product, packages, total cost
        const int itens[][5] = {{10, 101, 1, 2, 20}, {10, 102, 2, 2, 10}, {11, 103, 3, 1, 12}};
        for (const auto &i : itens) {
            sql(QStringLiteral("insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod, unid_cod, trib_cod, "
                               "ordem, emb_qtd, qtd_embs, custo_tot, info_adic) values (1, 10, %1, %2, %3, 1, 1, %2, 1, %4, %5, 'obs d''item')")
                    .arg(i[0]).arg(i[1]).arg(i[2]).arg(i[3]).arg(i[4]));
            for (int tabela = 1; tabela <= 3; ++tabela)
                sql(QStringLiteral("insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) "
                                   "values (1, 10, %1, %2, %3)").arg(i[1]).arg(tabela).arg(tabela * 1.25));
        }
    }

    // Every column of every staged item and price.
    QString retrato()
    {
        QStringList linhas;
        const auto q = db.conexao().Ab(QStringLiteral("select i.*, p.tab_preco_cod, p.preco from compra_item_tmp i join compra_item_tmp_precos p "
                                                      "on p.compra_item_tmp_cod=i.compra_item_tmp_cod order by i.compra_item_tmp_cod, p.tab_preco_cod"));
        for (q->First(); !q->Eof(); q->Next())
            for (int c = 0; c < q->FieldCount(); ++c)
                linhas << q->Fields(c).AsString();
        return linhas.join(QLatin1Char('|'));
    }
};

TEST_F(RepFItens, EachNoteShowsItsItemsComesBackUnchangedFromAnAlterationAndIsPosted)
{
    const QString antes = retrato();
    ASSERT_FALSE(antes.isEmpty());
    auto tela = AbrirTela();
    TTotaisBar *barra = tela->findChild<TTotaisBar *>(QStringLiteral("TotaisBar"));
    const auto mostra = [&](int compra) {
        EXPECT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), compra));
        return QStringLiteral("%1 %2 %3").arg(tela->RepD().Itens().RecordCount())
            .arg(tela->findChild<QTableView *>(QStringLiteral("ItensDBGrid"))->model()->rowCount()).arg(barra->TotProdItensLabel()->text());
    };
    EXPECT_EQ(mostra(10), QStringLiteral("2 2 R$ 30,00"));
    EXPECT_EQ(barra->Estado(), TTotaisBar::Concordancia::Concorda);
    EXPECT_EQ(mostra(11), QStringLiteral("1 1 R$ 12,00"));
    EXPECT_EQ(barra->Estado(), TTotaisBar::Concordancia::Discorda);

    mostra(10);
    tela->AltActExecute();
    ASSERT_TRUE(tela->EdNotaPanel()->isVisible());
    QTest::mouseClick(tela->EdNotaPanel()->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse) << primeiraMensagem().toStdString();
    EXPECT_EQ(retrato(), antes) << "a screen opened again shows what the first one showed";

    secao("posted, unposted and cancelled through the screen's actions");
    const auto acionar = [&](const char *acao) {
        dialogos.Limpar();
        QAction *a = tela->Acao(QLatin1String(acao));
        EXPECT_TRUE(a->isEnabled()) << acao;
        a->trigger();
    };
    // "posted cancelled stock moves" as stored.
    const auto banco = [&] { return db.valor(QStringLiteral("select baixado || cancelado || ' ' || (select count(*) from compra_est_mov) from compra where compra_cod=10")); };
    // The row follows each action: posted and cancelled as the grid shows them.
    const auto linha = [&] { const TClientDataSet &n = tela->RepD().Notas(); return n.FieldByName("BAIXADO_STR").AsString() + '/' + n.FieldByName("CANCELADO_STR").AsString(); };
    acionar("BaixarAct");
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(banco(), "SN 2");
    EXPECT_EQ(linha(), "SIM/NÃO");
    // Each question answered once: the helper fails on an unused answer.
    dialogos.Responder(true);
    acionar("DesbaixarAct");
    EXPECT_EQ(banco(), "NN 0");
    EXPECT_EQ(linha(), "NÃO/NÃO");
    dialogos.Responder(true);
    acionar("CancAct");
    EXPECT_EQ(linha(), "NÃO/S");
    EXPECT_EQ(banco(), "NS 0");
    dialogos.Limpar();

    secao("a new note starts without items");
    QTest::keyClick(tela.get(), Qt::Key_F3);
    EXPECT_EQ(tela->RepD().Itens().RecordCount(), 0);
    EXPECT_EQ(barra->Estado(), TTotaisBar::Concordancia::Neutra);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

} // namespace
