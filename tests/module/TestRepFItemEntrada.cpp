// Item entry driven on the real screen: finding products, typing items, altering and deleting
// them, and what reaches the database.
#include "ItemEntradaTeste.h"

#include <QFrame>
#include <QPushButton>

namespace {

TEST_F(ItemEntrada, APurchaseTypedItemByItemIsStoredAsTyped)
{
    abrir();
    novaNota(0, QStringLiteral("102"));

    // Item 1 by product code, reached from an empty supplier's code.
    p->ProdCodDelesLabeledEdit()->setFocus();
    QTest::keyClick(p->ProdCodDelesLabeledEdit(), Qt::Key_Return);
    ASSERT_EQ(foco(), QStringLiteral("BuscaLabeledEdit"));
    buscar(QStringLiteral("1"));
    EXPECT_EQ(p->ProdDescrLabeledEdit()->text(), QStringLiteral("PRODUTO UM"));
    EXPECT_EQ(foco(), QStringLiteral("CFOPItemNumEditBR"));
    QTest::keyClicks(p->CFOPItemNumEditBR(), QStringLiteral("1102"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("2"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("20"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1) << dialogos.Mensagens().size();
    EXPECT_EQ(foco(), QStringLiteral("ProdCodDelesLabeledEdit"));
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 0.0);
    EXPECT_EQ(p->CustoTotItemNumEditBR()->Value(), 0.0);

    // Item 2 by bar code, item 3 by GTIN with a margin and one price typed over.
    buscar(QStringLiteral("17890000000021"));
    ASSERT_EQ(p->ProdDescrLabeledEdit()->text(), QStringLiteral("PRODUTO DOIS"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("3"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("54"));
    completar();
    // A supplier's code nobody registered leads on to the search and stays with the item.
    digitar(p->ProdCodDelesLabeledEdit(), QStringLiteral("XYZ-9"));
    QTest::keyClick(p->ProdCodDelesLabeledEdit(), Qt::Key_Return);
    ASSERT_EQ(foco(), QStringLiteral("BuscaLabeledEdit"));
    buscar(QStringLiteral("7890000000031"));
    ASSERT_EQ(p->ProdCodNumEditBR()->Value(), 3.0);
    QTest::keyClicks(p->CFOPItemNumEditBR(), QStringLiteral("1403"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("30"));
    digitar(p->MargemNumEditBR(), QStringLiteral("60"));
    EXPECT_EQ(p->PrecoNumEditBR()->text(), QStringLiteral("48,00"));
    digitar(preco(3), QStringLiteral("44"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 3);
    EXPECT_EQ(db.valor(QStringLiteral("select margem from prod_compl where prod_cod=3 and empr_cod=1")), QStringLiteral("60"));

    // Item 2 opened with a double click; the cursor then moves to another row before Enter.
    duploClique(linhaDoProduto(2));
    ASSERT_EQ(tela->ItemState(), TDataSetState::Edit);
    EXPECT_EQ(p->ProdDescrLabeledEdit()->text(), QStringLiteral("PRODUTO DOIS"));
    EXPECT_EQ(p->QtdEmbsNumEditBR()->text(), QStringLiteral("3,000"));
    EXPECT_EQ(foco(), QStringLiteral("BuscaLabeledEdit"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("4"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("72"));
    itens().SetRecNo(linhaDoProduto(3) + 1);
    completar();
    EXPECT_EQ(tela->ItemState(), TDataSetState::Insert);
    ASSERT_EQ(itens().RecordCount(), 3);

    // Item 1 deleted.
    itens().SetRecNo(linhaDoProduto(1) + 1);
    dialogos.Responder(true);
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    ASSERT_EQ(itens().RecordCount(), 2);
    EXPECT_EQ(linhaDoProduto(1), -1);

    QTest::mouseClick(h->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().first().texto.toStdString();
    // ordem, product, supplier's code, package quantity and count, cost, CFOP, NCM, unit, tax
    // situation, price table, price.
    EXPECT_EQ(staged().toStdString(), std::string("2|2||12|4|72||22021000|2|3|1|1.95\n"
                                                  "2|2||12|4|72||22021000|2|3|2|2.14\n"
                                                  "2|2||12|4|72||22021000|2|3|3|1.86\n"
                                                  "3|3|XYZ-9|1|1|30|1403|19059090|1|1|1|48\n"
                                                  "3|3|XYZ-9|1|1|30|1403|19059090|1|1|2|52.8\n"
                                                  "3|3|XYZ-9|1|1|30|1403|19059090|1|1|3|44"));

    // Opened again, the screen lists the same two items.
    tester.reset();
    tela.reset();
    abrir();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("NDOC"), 4587));
    EXPECT_EQ(itens().RecordCount(), 2);
    EXPECT_EQ(itens().FieldByName(QStringLiteral("prod_DESCR")).AsString().isEmpty(), false);
}


TEST_F(ItemEntrada, ThePriceFollowsTheCostAsItIsTyped)
{
    abrir();
    novaNota();
    buscar(QStringLiteral("1"));
    ASSERT_EQ(p->MargemNumEditBR()->text(), QStringLiteral("30,00"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("3"));
    p->CustoTotItemNumEditBR()->setFocus();
    p->CustoTotItemNumEditBR()->selectAll();
    QStringList vistos;
    for (const char *tecla : {"1", "0", "0"}) {
        QTest::keyClicks(p->CustoTotItemNumEditBR(), QLatin1String(tecla));
        vistos << p->PrecoNumEditBR()->text();
    }
    // 1 / 3 x 1,3; 10 / 3 x 1,3; 100 / 3 x 1,3, each cut to the cent.
    EXPECT_EQ(vistos, (QStringList{QStringLiteral("0,43"), QStringLiteral("4,33"), QStringLiteral("43,33")}));
    EXPECT_EQ(p->CustoNumEditBR()->text(), QStringLiteral("33,3333"));
    // The first table is the new price; the others add their percentage of it (+10%, -5%).
    EXPECT_EQ(preco(1)->text(), QStringLiteral("43,33"));
    EXPECT_EQ(preco(2)->text(), QStringLiteral("47,66"));
    EXPECT_EQ(preco(3)->text(), QStringLiteral("41,17"));
    EXPECT_EQ(p->CustoTotItemNumEditBR()->text(), QStringLiteral("100"));
}

TEST_F(ItemEntrada, TheBoughtQuantityIsCutAtFourDecimalsNotRounded)
{
    abrir();
    novaNota();
    buscar(QStringLiteral("1"));
    digitar(p->EmbQtdNumEditBR(), QStringLiteral("1,111"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("1,115"));
    EXPECT_EQ(p->QtdCompradaNumEditBR()->text(), QStringLiteral("1,2387"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1);
    EXPECT_EQ(itens().FieldByName(QStringLiteral("QTD_COMPRADA")).AsFloat(), 1.2387);
    // 10 / 1,2387 at four decimals.
    EXPECT_EQ(itens().FieldByName(QStringLiteral("CUSTO_unit")).AsMoney().toString(), QStringLiteral("8.073"));
}

TEST_F(ItemEntrada, TheProductListDropsDownWhileADescriptionIsTyped)
{
    abrir();
    novaNota();
    QFrame *lista = p->ProdPanel();
    digitar(p->BuscaLabeledEdit(), QStringLiteral("dois"));
    ASSERT_TRUE(lista->isVisible());
    QAbstractItemModel *modelo = p->ProdDBGrid()->model();
    ASSERT_EQ(modelo->rowCount(), 1);
    EXPECT_EQ(modelo->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Código"));
    EXPECT_EQ(modelo->index(0, 2).data().toString(), QStringLiteral("00002"));
    QTest::keyClick(p->BuscaLabeledEdit(), Qt::Key_Down);
    ASSERT_EQ(foco(), QStringLiteral("ProdDBGrid"));
    QTest::keyClick(p->ProdDBGrid(), Qt::Key_Return);
    EXPECT_FALSE(lista->isVisible());
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 2.0);
    EXPECT_EQ(foco(), QStringLiteral("CFOPItemNumEditBR"));

    // Digits are a code being typed; leaving the field closes the list a moment later.
    digitar(p->BuscaLabeledEdit(), QStringLiteral("789"));
    EXPECT_FALSE(lista->isVisible());
    digitar(p->BuscaLabeledEdit(), QStringLiteral("produto"));
    ASSERT_EQ(modelo->rowCount(), 3);
    p->CFOPItemNumEditBR()->setFocus();
    EXPECT_TRUE(lista->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!lista->isVisible(), 2000);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(ItemEntrada, TheSuppliersOwnCodeFindsItsProduct)
{
    abrir();
    novaNota();
    digitar(p->ProdCodDelesLabeledEdit(), QStringLiteral("ABC-001"));
    QTest::keyClick(p->ProdCodDelesLabeledEdit(), Qt::Key_Return);
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 1.0);
    EXPECT_EQ(p->BuscaLabeledEdit()->text(), QStringLiteral("1"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1);
    EXPECT_EQ(itens().FieldByName(QStringLiteral("PROD_COD_DELES")).AsString(), QStringLiteral("ABC-001"));
}

TEST_F(ItemEntrada, EscapeAbandonsTheItemBeingTypedAndKeepsTheNote)
{
    abrir();
    novaNota();
    buscar(QStringLiteral("2"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10"));
    ASSERT_EQ(p->ProdCodNumEditBR()->Value(), 2.0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 0.0);
    EXPECT_TRUE(p->BuscaLabeledEdit()->text().isEmpty());
    EXPECT_EQ(p->CustoTotItemNumEditBR()->Value(), 0.0);
    EXPECT_EQ(tela->CabecState(), TDataSetState::Insert);
    EXPECT_EQ(h->NDocNumEditBR()->Value(), 4587.0);
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());
    EXPECT_EQ(itens().RecordCount(), 0);
}

TEST_F(ItemEntrada, AProductionItemIsCompletedByItsPackagesWhenNoCostIsRequired)
{
    ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('REP_PRODUC_CUSTO_EXIGE', 'N')")), QString());
    abrir();
    novaNota(3);
    buscar(QStringLiteral("3"));
    ASSERT_EQ(foco(), QStringLiteral("QtdEmbsNumEditBR"));
    QTest::keyClicks(p->QtdEmbsNumEditBR(), QStringLiteral("5"));
    QTest::keyClick(p->QtdEmbsNumEditBR(), Qt::Key_Return);
    ASSERT_EQ(itens().RecordCount(), 1) << (dialogos.Mensagens().isEmpty() ? "" : dialogos.Mensagens().first().texto.toStdString());
    EXPECT_EQ(itens().FieldByName(QStringLiteral("QTD_EMBS")).AsFloat(), 5.0);
    EXPECT_EQ(itens().FieldByName(QStringLiteral("CUSTO_TOT")).AsMoney(), Money());
    EXPECT_EQ(foco(), QStringLiteral("BuscaLabeledEdit"));
}

TEST_F(ItemEntrada, AComplementaryNoteTakesAnItemWithoutQuantities)
{
    abrir();
    novaNota(6);
    buscar(QStringLiteral("1"));
    EXPECT_EQ(foco(), QStringLiteral("NCMMaskEdit"));
    digitar(p->EmbQtdNumEditBR(), QStringLiteral("0"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("0"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("15"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().first().texto.toStdString();
    EXPECT_EQ(itens().FieldByName(QStringLiteral("EMB_QTD")).AsFloat(), 0.0);
    EXPECT_EQ(itens().FieldByName(QStringLiteral("QTD_EMBS")).AsFloat(), 0.0);
    // No bought quantity: no unit cost either, and no division by zero.
    EXPECT_TRUE(itens().FieldByName(QStringLiteral("CUSTO_unit")).IsNull());
}

TEST_F(ItemEntrada, WhereThePricesAreNotTypedEnterOnTheLastFieldCompletesTheItem)
{
    abrir();
    novaNota(1);
    buscar(QStringLiteral("1"));
    ASSERT_TRUE(tela->ItemNota().PrecoUltimoEdit()->ReadOnlyLook());
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10"));
    digitar(p->TribIcmsvICMSSTRet_NumEditBR(), QStringLiteral("1"));
    QTest::keyClick(p->TribIcmsvICMSSTRet_NumEditBR(), Qt::Key_Return);
    ASSERT_EQ(itens().RecordCount(), 1);
    EXPECT_EQ(itens().FieldByName(QStringLiteral("TRIB_ICMS_VICMSSTRET")).AsMoney(), Money::fromInt(1));
    EXPECT_EQ(foco(), QStringLiteral("ProdCodDelesLabeledEdit"));
}

TEST_F(ItemEntrada, AProductWithAGradeOffersItsVariantsOnly)
{
    ASSERT_EQ(db.execScript(QStringLiteral(
                  "INSERT INTO grade_tit (grade_tit_cod, descr) VALUES (1, 'COR');\n"
                  "INSERT INTO grade_tit (grade_tit_cod, descr) VALUES (2, 'TAMANHO');\n"
                  "INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 0, NULL);\n"
                  "INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 1, 'VERDE');\n"
                  "INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 2, 'AZUL');\n"
                  "INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (2, 1, 'P');\n"
                  "INSERT INTO prod_grade (prod_cod, grade_tit_cod) VALUES (2, 1);\n")),
              QString());
    abrir();
    ASSERT_EQ(tela->GradeCombos().size(), 2);
    QComboBox *cor = tela->GradeCombos().at(0);
    QComboBox *tamanho = tela->GradeCombos().at(1);
    novaNota();
    buscar(QStringLiteral("2"));
    ASSERT_TRUE(cor->isEnabled());
    QStringList itensCor;
    for (int i = 0; i < cor->count(); ++i)
        itensCor << cor->itemText(i);
    EXPECT_EQ(itensCor, (QStringList{QStringLiteral("UNICO"), QStringLiteral("AZUL"), QStringLiteral("VERDE")}));
    EXPECT_FALSE(tamanho->isEnabled());
    EXPECT_EQ(tamanho->count(), 0);
    buscar(QStringLiteral("1"));
    EXPECT_FALSE(cor->isEnabled());
    EXPECT_EQ(cor->count(), 0);
}

} // namespace
