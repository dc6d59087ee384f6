// Item entry driven on the real screen: finding products, typing items, altering and deleting
// them, and what reaches the database.
#include "ItemEntradaTeste.h"

#include <QFrame>

namespace {

// Per price: ordem, product, supplier's code, package quantity and count, cost, CFOP, NCM, unit, tax
// situation, price table and price.
QString Staged(TestDatabase &db)
{
    return db.valor(QStringLiteral(
        "select list(l, ' ') from (select i.ordem || '|' || i.prod_cod || '|' || coalesce(i.prod_cod_deles, '') || '|' || i.emb_qtd || '|' || "
        "i.qtd_embs || '|' || i.custo_tot || '|' || coalesce(i.cfop, '') || '|' || i.ncm || '|' || i.unid_cod || '|' || i.trib_cod || '|' || "
        "p.tab_preco_cod || '|' || p.preco l from compra_item_tmp i join compra_item_tmp_precos p "
        "on p.compra_item_tmp_cod=i.compra_item_tmp_cod order by i.ordem, p.tab_preco_cod)"));
}

TEST_F(ItemEntrada, WhatThePanelWorksOutAndAPurchaseStoredAsTyped)
{
    abrir();
    novaNota(0, QStringLiteral("102"));

    secao("the price follows the cost key by key");
    buscar(QStringLiteral("1"));
    ASSERT_EQ(p->MargemNumEditBR()->text(), QStringLiteral("30,00"));
    Digitar(p->QtdEmbsNumEditBR(), QStringLiteral("3"));
    Digitar(p->CustoTotItemNumEditBR(), QString());
    QStringList vistos;
    for (const char *tecla : {"1", "0", "0"}) {
        QTest::keyClicks(p->CustoTotItemNumEditBR(), QLatin1String(tecla));
        vistos << p->PrecoNumEditBR()->text();
    }
    // 1, 10 and 100 / 3 x 1,3 cut to the cent; the other tables add +10% and -5% of the first.
    EXPECT_EQ(vistos, (QStringList{"0,43", "4,33", "43,33"}));
    EXPECT_EQ((QStringList{p->CustoNumEditBR()->text(), preco(1)->text(), preco(2)->text(), preco(3)->text(), p->CustoTotItemNumEditBR()->text()}),
              (QStringList{"33,3333", "43,33", "47,66", "41,17", "100"}));
    // "Novo Preço" and the first table are one price: either one typed key by key keeps its cents.
    for (TNumEditBR *digitado : {p->PrecoNumEditBR(), preco(1)}) {
        Digitar(digitado, QStringLiteral("9,99"));
        EXPECT_EQ(p->PrecoNumEditBR()->text() + ' ' + preco(1)->text(), "9,99 9,99") << digitado->objectName().toStdString();
    }

    secao("escape abandons the item and keeps the note");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    // product, search, cost; the note's number and items
    EXPECT_EQ(QStringLiteral("%1 '%2' %3; %4 %5").arg(p->ProdCodNumEditBR()->Value()).arg(p->BuscaLabeledEdit()->text())
                  .arg(p->CustoTotItemNumEditBR()->Value()).arg(h->NDocNumEditBR()->Value()).arg(itens().RecordCount()), "0 '' 0; 4587 0");
    EXPECT_EQ(tela->CabecState(), TDataSetState::Insert);
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());

    secao("the product list drops down while a description is typed");
    QFrame *lista = p->ProdPanel();
    QAbstractItemModel *modelo = p->ProdDBGrid()->model();
    Digitar(p->BuscaLabeledEdit(), QStringLiteral("dois"));
    ASSERT_TRUE(lista->isVisible());
    ASSERT_EQ(modelo->rowCount(), 1);
    EXPECT_EQ(modelo->index(0, 2).data().toString(), "00002");
    QTest::keyClick(p->BuscaLabeledEdit(), Qt::Key_Down);
    ASSERT_EQ(Foco(), QStringLiteral("ProdDBGrid"));
    QTest::keyClick(p->ProdDBGrid(), Qt::Key_Return);
    EXPECT_FALSE(lista->isVisible());
    EXPECT_EQ(p->ProdCodNumEditBR()->text() + ' ' + Foco(), "2 CFOPItemNumEditBR");
    // Digits are a code being typed; leaving the field closes the list a moment later.
    Digitar(p->BuscaLabeledEdit(), QStringLiteral("789"));
    EXPECT_FALSE(lista->isVisible());
    Digitar(p->BuscaLabeledEdit(), QStringLiteral("produto"));
    ASSERT_EQ(modelo->rowCount(), 3);
    p->CFOPItemNumEditBR()->setFocus();
    EXPECT_TRUE(lista->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!lista->isVisible(), 2000);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    secao("the bought quantity is cut at four decimals, not rounded");
    buscar(QStringLiteral("1"));
    Digitar(p->EmbQtdNumEditBR(), QStringLiteral("1,111"));
    Digitar(p->QtdEmbsNumEditBR(), QStringLiteral("1,115"));
    EXPECT_EQ(p->QtdCompradaNumEditBR()->text(), QStringLiteral("1,2387"));
    QTest::keyClick(p->QtdEmbsNumEditBR(), Qt::Key_Escape);

    secao("items typed, altered and deleted");
    // Item 1 by the supplier's own code.
    Digitar(p->ProdCodDelesLabeledEdit(), QStringLiteral("ABC-001"));
    QTest::keyClick(p->ProdCodDelesLabeledEdit(), Qt::Key_Return);
    EXPECT_EQ(p->ProdCodNumEditBR()->text() + ' ' + p->BuscaLabeledEdit()->text(), "1 1");
    Digitar(p->CustoTotItemNumEditBR(), QStringLiteral("20"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1) << primeiraMensagem().toStdString();
    EXPECT_EQ(campo("PROD_COD_DELES") + ' ' + Foco(), "ABC-001 ProdCodDelesLabeledEdit");
    EXPECT_EQ(p->ProdCodNumEditBR()->Value() + p->CustoTotItemNumEditBR()->Value(), 0.0);

    // Item 2 by bar code, reached from an empty supplier's code.
    QTest::keyClick(p->ProdCodDelesLabeledEdit(), Qt::Key_Return);
    ASSERT_EQ(Foco(), QStringLiteral("BuscaLabeledEdit"));
    buscar(QStringLiteral("17890000000021"));
    ASSERT_EQ(p->ProdDescrLabeledEdit()->text(), QStringLiteral("PRODUTO DOIS"));
    Digitar(p->QtdEmbsNumEditBR(), QStringLiteral("3"));
    Digitar(p->CustoTotItemNumEditBR(), QStringLiteral("54"));
    completar();
    // Item 3: a supplier's code nobody registered leads on to the search and stays with the item.
    Digitar(p->ProdCodDelesLabeledEdit(), QStringLiteral("XYZ-9"));
    QTest::keyClick(p->ProdCodDelesLabeledEdit(), Qt::Key_Return);
    ASSERT_EQ(Foco(), QStringLiteral("BuscaLabeledEdit"));
    buscar(QStringLiteral("7890000000031"));
    ASSERT_EQ(p->ProdCodNumEditBR()->Value(), 3.0);
    QTest::keyClicks(p->CFOPItemNumEditBR(), QStringLiteral("1403"));
    Digitar(p->CustoTotItemNumEditBR(), QStringLiteral("30"));
    Digitar(p->MargemNumEditBR(), QStringLiteral("60"));
    EXPECT_EQ(p->PrecoNumEditBR()->text(), QStringLiteral("48,00"));
    Digitar(preco(3), QStringLiteral("44"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 3);
    EXPECT_EQ(db.valor(QStringLiteral("select margem from prod_compl where prod_cod=3 and empr_cod=1")), QStringLiteral("60"));

    // Item 2 opened with a double click; the cursor then moves to another row before Enter.
    ASSERT_TRUE(itens().Locate(QStringLiteral("PROD_COD"), 2));
    duploClique(itens().RecNo() - 1);
    ASSERT_EQ(tela->ItemState(), TDataSetState::Edit);
    EXPECT_EQ(p->ProdDescrLabeledEdit()->text() + ' ' + p->QtdEmbsNumEditBR()->text(), "PRODUTO DOIS 3,000");
    EXPECT_EQ(Foco(), QStringLiteral("BuscaLabeledEdit"));
    Digitar(p->QtdEmbsNumEditBR(), QStringLiteral("4"));
    Digitar(p->CustoTotItemNumEditBR(), QStringLiteral("72"));
    itens().Locate(QStringLiteral("PROD_COD"), 3);
    completar();
    EXPECT_EQ(tela->ItemState(), TDataSetState::Insert);
    ASSERT_EQ(itens().RecordCount(), 3);

    itens().Locate(QStringLiteral("PROD_COD"), 1);
    dialogos.Responder(true);
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    ASSERT_EQ(itens().RecordCount(), 2);
    EXPECT_FALSE(itens().Locate(QStringLiteral("PROD_COD"), 1));

    QTest::mouseClick(h->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(Staged(db).toStdString(),
              "2|2||12.0000|4.0000|72.0000||22021000|2|3|1|1.9500 2|2||12.0000|4.0000|72.0000||22021000|2|3|2|2.1400 "
              "2|2||12.0000|4.0000|72.0000||22021000|2|3|3|1.8600 3|3|XYZ-9|1.0000|1.0000|30.0000|1403|19059090|1|1|1|48.0000 "
              "3|3|XYZ-9|1.0000|1.0000|30.0000|1403|19059090|1|1|2|52.8000 3|3|XYZ-9|1.0000|1.0000|30.0000|1403|19059090|1|1|3|44.0000");
}

// Types that ask less of an item: fields typed, then Enter on `enter` (the last price when none).
TEST_F(ItemEntrada, OtherTypesCompleteAnItemWithLess)
{
    sql(QStringLiteral("insert into config (chave, valor) values ('REP_PRODUC_CUSTO_EXIGE', 'N')"));
    const struct { const char *nome; int tipo; const char *busca, *foco; QList<QPair<const char *, const char *>> digitar; const char *enter, *campos, *esperado; } casos[] = {
        {"production_without_demanded_cost", 3, "3", "QtdEmbsNumEditBR", {{"QtdEmbsNumEditBR", "5"}}, "QtdEmbsNumEditBR", "QTD_EMBS CUSTO_TOT", "5 0 BuscaLabeledEdit"},
        {"return_where_prices_are_not_typed", 1, "1", "NCMMaskEdit", {{"CustoTotItemNumEditBR", "10"}, {"TribIcmsvICMSSTRet_NumEditBR", "1"}},
         "TribIcmsvICMSSTRet_NumEditBR", "TRIB_ICMS_VICMSSTRET", "1 ProdCodDelesLabeledEdit"},
        // Last, as it leaves product 1 with no package quantity. No bought quantity: no unit cost either,
        // and no division by zero.
        {"complementary_without_quantities", 6, "1", "NCMMaskEdit", {{"EmbQtdNumEditBR", "0"}, {"QtdEmbsNumEditBR", "0"}, {"CustoTotItemNumEditBR", "15"}},
         nullptr, "EMB_QTD QTD_EMBS CUSTO_unit", "0 0  ProdCodDelesLabeledEdit"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        abrir();
        novaNota(c.tipo);
        buscar(QLatin1String(c.busca));
        EXPECT_EQ(Foco(), QLatin1String(c.foco));
        EXPECT_EQ(tela->ItemNota().PrecoUltimoEdit()->ReadOnlyLook(), c.tipo != 3);
        for (const auto &[nome, texto] : c.digitar)
            Digitar(p->findChild<QLineEdit *>(QLatin1String(nome)), QLatin1String(texto));
        if (c.enter)
            QTest::keyClick(p->findChild<QWidget *>(QLatin1String(c.enter)), Qt::Key_Return);
        else
            completar();
        ASSERT_EQ(itens().RecordCount(), 1) << primeiraMensagem().toStdString();
        QStringList valores;
        for (const QString &nome : QString::fromLatin1(c.campos).split(' '))
            valores << itens().FieldByName(nome).AsString();
        EXPECT_EQ((valores.join(' ') + ' ' + Foco()).toStdString(), c.esperado);
    }
}


} // namespace
