// What item entry refuses, and what deleting an item sends to the database.
#include "ItemEntradaTeste.h"

namespace {

// busca: the product searched first, empty for none; without `defeito`, `texto` is typed in `campo`
// and left; `campo` is where the focus is left.
struct Recusa { const char *nome; int tipoIndice; const char *busca; std::function<void(TItemPanel *, TEdNotaPanel *)> defeito;
                TipoMensagem tipo; const char *mensagem, *campo, *texto = nullptr; };

const auto E = TipoMensagem::Erro;
const auto I = TipoMensagem::Info;

// One thing wrong: one message, the focus on the field, no item and the product kept.
TEST_F(ItemEntrada, EachRefusalShowsItsMessageOnceAndAddsNothing)
{
    const Recusa recusas[] = {
        {"package_quantity_zero", 0, "1", [](TItemPanel *ip, TEdNotaPanel *) { ip->EmbQtdNumEditBR()->SetValue(0); }, E, "Quantidade na embalagem é obrigatória", "EmbQtdNumEditBR"},
        {"package_count_below_a_thousandth", 0, "1", [](TItemPanel *ip, TEdNotaPanel *) { ip->QtdEmbsNumEditBR()->setText(QStringLiteral("0,0009")); }, E, "Quantidade de embalagens é obrigatória", "QtdEmbsNumEditBR"},
        {"no_total_cost", 0, "1", [](TItemPanel *ip, TEdNotaPanel *) { ip->CustoTotItemNumEditBR()->SetValue(0); }, I, "O custo total do item é obrigatório", "CustoTotItemNumEditBR"},
        {"return_without_ncm", 1, "1", [](TItemPanel *ip, TEdNotaPanel *) { ip->NCMMaskEdit()->clear(); }, I, "O NCM é obrigatório", "NCMMaskEdit"},
        {"no_product", 0, "", [](TItemPanel *, TEdNotaPanel *) {}, E, "O produto é obrigatório", "BuscaLabeledEdit"},
        {"header_without_products_total", 0, "1", [](TItemPanel *, TEdNotaPanel *np) { np->TotProdNumEditBR()->SetValue(0); }, E, "O total de produtos é obrigatório", "TotProdNumEditBR"},
        {"header_dated_tomorrow", 0, "1", [](TItemPanel *, TEdNotaPanel *np) { np->DtDocDtFr()->setDate(QDate(2026, 11, 23)); }, E, "A data do documento deve ser igual a de hoje ou anterior", "DtDocDtFr"},
        {"leaving_package_quantity_zero", 0, "1", nullptr, E, "Quantidade na embalagem é obrigatória", "EmbQtdNumEditBR", "0"},
        {"leaving_package_count_zero", 0, "1", nullptr, E, "Quantidade de embalagens é obrigatória", "QtdEmbsNumEditBR", "0"},
        {"leaving_total_cost_zero", 0, "1", nullptr, E, "O custo total das embalagens é obrigatório", "CustoTotItemNumEditBR", "0"},
        {"leaving_search_without_product", 0, "", nullptr, E, "O produto é obrigatório", "BuscaLabeledEdit", ""}};
    for (const Recusa &r : recusas) {
        SCOPED_TRACE(r.nome);
        dialogos.Limpar();
        abrir();
        novaNota(r.tipoIndice);
        if (*r.busca) {
            buscar(QLatin1String(r.busca));
            ASSERT_GE(p->ProdCodNumEditBR()->Value(), 1.0);
        }
        p->CustoTotItemNumEditBR()->SetValue(10);
        if (r.defeito)
            r.defeito(p, h);
        else
            Digitar(p->findChild<QLineEdit *>(QLatin1String(r.campo)), QLatin1String(r.texto));
        ASSERT_TRUE(dialogos.Mensagens().isEmpty());
        const double prodCod = p->ProdCodNumEditBR()->Value();
        if (r.defeito)
            completar();
        else
            p->DescontoItemNumEditBR()->setFocus();
        EXPECT_EQ(dialogos.UnicaMensagem(r.tipo), QString::fromUtf8(r.mensagem));
        EXPECT_EQ(Foco(), QLatin1String(r.campo));
        // no item, the product kept
        EXPECT_EQ(QStringLiteral("%1 %2").arg(itens().RecordCount()).arg(p->ProdCodNumEditBR()->Value()), QStringLiteral("0 %1").arg(prodCod));
        EXPECT_EQ(tela->ItemState(), TDataSetState::Insert);
    }
}

TEST_F(ItemEntrada, SearchesHeadersDeletionsAndGrades)
{
    // Product 2 has a colour grade; no product has the size one.
    sql(QStringLiteral("insert into grade_tit (grade_tit_cod, descr) values (1, 'COR'); insert into grade_tit (grade_tit_cod, descr) values (2, 'TAMANHO');"
                       "insert into grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) values (1, 0, null);"
                       "insert into grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) values (1, 1, 'VERDE');"
                       "insert into grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) values (1, 2, 'AZUL');"
                       "insert into grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) values (2, 1, 'P'); insert into prod_grade (prod_cod, grade_tit_cod) values (2, 1);"));
    abrir();
    QTest::keyClick(tela.get(), Qt::Key_F3);
    Digitar(h->NDocNumEditBR(), QStringLiteral("77"));
    p->BuscaLabeledEdit()->setFocus();
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("O fornecedor é obrigatório"));
    EXPECT_EQ(Foco(), QStringLiteral("FornecComboBox"));

    novaNota();
    // Deleting from an empty list, an item never stored, and after a refused leaving check; a
    // question asked without a scripted answer, or an answer left unasked, fails the test.
    dialogos.Limpar();
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QStringLiteral("Não há item visível a excluir"));
    dialogos.Limpar();
    const auto umItem = [this] { buscar(QStringLiteral("1")); Digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10")); completar(); };

    // An item never stored leaves without a statement.
    umItem();
    ASSERT_EQ(itens().RecordCount(), 1);
    RegistroSql registro;
    dialogos.Responder(true);
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(itens().RecordCount(), 0);
    EXPECT_TRUE(RegistroSql::Sql().isEmpty()) << RegistroSql::Sql().join(QLatin1Char('\n')).toStdString();
    dialogos.Limpar();

    // The click first leaves a field whose check refuses: nothing is deleted.
    umItem();
    ASSERT_EQ(itens().RecordCount(), 1);
    buscar(QStringLiteral("2"));
    Digitar(p->QtdEmbsNumEditBR(), QStringLiteral("0"));
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Quantidade de embalagens é obrigatória"));
    EXPECT_EQ(QString::number(itens().RecordCount()) + ' ' + p->ProdCodNumEditBR()->text(), "1 2");

    // The item abandoned, a product nobody has is looked for.
    Digitar(p->QtdEmbsNumEditBR(), QStringLiteral("1"));
    QTest::keyClick(p->QtdEmbsNumEditBR(), Qt::Key_Escape);
    // A quote in the text must reach the search as text.
    for (const char *texto : {"999999", "78'90"}) {
        SCOPED_TRACE(texto);
        dialogos.Limpar();
        buscar(QLatin1String(texto));
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), "Produto não encontrado");
        // focus, product, the text selected
        EXPECT_EQ(QStringLiteral("%1 %2 %3").arg(Foco()).arg(p->ProdCodNumEditBR()->Value()).arg(p->BuscaLabeledEdit()->selectedText()),
                  QStringLiteral("BuscaLabeledEdit 0 ") + QLatin1String(texto));
    }

    // A product with a grade offers its variants only: "enabled:items" of each combo.
    ASSERT_EQ(tela->GradeCombos().size(), 2);
    const auto combos = [this] {
        QStringList r;
        for (QComboBox *c : tela->GradeCombos()) {
            r << QString::number(c->isEnabled()) + ':';
            for (int i = 0; i < c->count(); ++i)
                r.last() += c->itemText(i) + ',';
        }
        return r.join(' ');
    };
    buscar(QStringLiteral("2"));
    EXPECT_EQ(combos(), "1:UNICO,AZUL,VERDE, 0:");
    buscar(QStringLiteral("1"));
    EXPECT_EQ(combos(), "0: 0:");
}

// Stored notes 7 (posted) and 8, each with items of products 1 and 2, opened for altering.
TEST_F(ItemEntrada, AStoredNotesItemIsDeletedAtOnceUnlessTheNoteIsPosted)
{
    for (int compra : {7, 8}) {
        const NotaTeste n{.compra = compra, .baixado = compra == 7,
                          .itens = {Item(compra * 100 + 1, 1, "1", "10"), Item(compra * 100 + 2, 2, "1", "10")}};
        ASSERT_EQ(InserirNota(db, n), QString());
    }
    // Items are listed with their unit.
    sql(QStringLiteral("update compra_item_tmp set unid_cod=1, trib_cod=1"));
    const auto alterar = [this](int compra) {
        abrir();
        EXPECT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), compra));
        tela->AltActExecute();
        return itens().RecordCount();
    };

    secao("posted");
    ASSERT_EQ(alterar(7), 2);
    duploClique(0);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), "A nota já foi baixada");
    EXPECT_EQ(tela->ItemState(), TDataSetState::Insert);
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 0.0);
    dialogos.Limpar();
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), "A nota já foi baixada. O item não pode ser excluido");
    EXPECT_EQ(itens().RecordCount(), 2);

    secao("not posted");
    ASSERT_EQ(alterar(8), 2);
    ASSERT_TRUE(itens().Locate(QStringLiteral("COMPRA_ITEM_TMP_COD"), 801));
    RegistroSql registro;
    dialogos.Responder(true);
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(RegistroSql::ComInicio(QStringLiteral("delete")),
              (QStringList{"delete from compra_item_tmp where empr_cod=1 and compra_item_tmp_cod=801 and estacao_cod=1",
                           "delete from compra_item_tmp_precos where empr_cod=1 and compra_item_tmp_cod=801 and estacao_cod=1"}));
    EXPECT_EQ(itens().RecordCount(), 1);
    QTest::mouseClick(h->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_EQ(db.valor(QStringLiteral("select list(compra_item_tmp_cod) from compra_item_tmp where compra_cod=8")), "802");
}

} // namespace
