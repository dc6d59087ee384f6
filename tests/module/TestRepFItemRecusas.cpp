// What item entry refuses, and what deleting an item sends to the database.
#include "ItemEntradaTeste.h"
#include "NotasTeste.h"

#include <QDateEdit>
#include <QPushButton>

#include <functional>

namespace {

struct Recusa
{
    const char *nome;
    int tipoIndice;
    const char *busca;      // the product searched first; empty for none
    std::function<void(TItemPanel *, TEdNotaPanel *)> defeito;
    TipoMensagem tipo;
    const char *mensagem;
    const char *campo;      // where the focus is left
};

std::ostream &operator<<(std::ostream &os, const Recusa &r) { return os << r.nome; }

class CompletarRecusa : public ItemEntrada, public ::testing::WithParamInterface<Recusa>
{
};

// Enter on the last price with one thing wrong: one message, the focus on the field, no item.
TEST_P(CompletarRecusa, ShowsItsMessageOnceAndAddsNothing)
{
    const Recusa r = GetParam();
    abrir();
    novaNota(r.tipoIndice);
    if (*r.busca) {
        buscar(QLatin1String(r.busca));
        ASSERT_GE(p->ProdCodNumEditBR()->Value(), 1.0);
    }
    p->CustoTotItemNumEditBR()->SetValue(10);
    r.defeito(p, h);
    ASSERT_TRUE(dialogos.Mensagens().isEmpty());
    const double prodCod = p->ProdCodNumEditBR()->Value();
    completar();
    EXPECT_EQ(dialogos.UnicaMensagem(r.tipo), QString::fromUtf8(r.mensagem));
    EXPECT_EQ(foco(), QLatin1String(r.campo));
    EXPECT_EQ(itens().RecordCount(), 0);
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), prodCod);
    EXPECT_EQ(tela->ItemState(), TDataSetState::Insert);
}

INSTANTIATE_TEST_SUITE_P(, CompletarRecusa, ::testing::Values(
    Recusa{"package_quantity_zero", 0, "1", [](TItemPanel *p, TEdNotaPanel *) { p->EmbQtdNumEditBR()->SetValue(0); },
           TipoMensagem::Erro, "Quantidade na embalagem é obrigatória", "EmbQtdNumEditBR"},
    Recusa{"package_count_below_a_thousandth", 0, "1",
           [](TItemPanel *p, TEdNotaPanel *) { p->QtdEmbsNumEditBR()->setText(QStringLiteral("0,0009")); },
           TipoMensagem::Erro, "Quantidade de embalagens é obrigatória", "QtdEmbsNumEditBR"},
    Recusa{"no_total_cost", 0, "1", [](TItemPanel *p, TEdNotaPanel *) { p->CustoTotItemNumEditBR()->SetValue(0); },
           TipoMensagem::Info, "O custo total do item é obrigatório", "CustoTotItemNumEditBR"},
    Recusa{"return_without_ncm", 1, "1", [](TItemPanel *p, TEdNotaPanel *) { p->NCMMaskEdit()->clear(); },
           TipoMensagem::Info, "O NCM é obrigatório", "NCMMaskEdit"},
    Recusa{"no_product", 0, "", [](TItemPanel *, TEdNotaPanel *) {}, TipoMensagem::Erro, "O produto é obrigatório",
           "BuscaLabeledEdit"},
    Recusa{"header_without_products_total", 0, "1", [](TItemPanel *, TEdNotaPanel *h) { h->TotProdNumEditBR()->SetValue(0); },
           TipoMensagem::Erro, "O total de produtos é obrigatório", "TotProdNumEditBR"},
    Recusa{"header_dated_tomorrow", 0, "1",
           [](TItemPanel *, TEdNotaPanel *h) { h->DtDocDtFr()->setDate(QDate(2026, 11, 23)); }, TipoMensagem::Erro,
           "A data do documento deve ser igual a de hoje ou anterior", "DtDocDtFr"}),
    [](const ::testing::TestParamInfo<Recusa> &i) { return std::string(i.param.nome); });

struct Saida
{
    const char *nome;
    const char *campo;
    const char *texto;
    TipoMensagem tipo;
    const char *mensagem;
};

std::ostream &operator<<(std::ostream &os, const Saida &s) { return os << s.nome; }

class SaidaRecusa : public ItemEntrada, public ::testing::WithParamInterface<Saida>
{
};

// Leaving a field with a wrong value: one message and the focus back on the field.
TEST_P(SaidaRecusa, BringsTheFocusBackWithOneMessage)
{
    const Saida s = GetParam();
    abrir();
    novaNota();
    if (QLatin1String(s.campo) != QLatin1String("BuscaLabeledEdit"))
        buscar(QStringLiteral("1"));
    auto *campo = p->findChild<QLineEdit *>(QLatin1String(s.campo));
    ASSERT_TRUE(campo);
    digitar(campo, QLatin1String(s.texto));
    ASSERT_TRUE(dialogos.Mensagens().isEmpty());
    p->DescontoItemNumEditBR()->setFocus();
    EXPECT_EQ(dialogos.UnicaMensagem(s.tipo), QString::fromUtf8(s.mensagem));
    EXPECT_EQ(foco(), QLatin1String(s.campo));
}

INSTANTIATE_TEST_SUITE_P(, SaidaRecusa, ::testing::Values(
    Saida{"package_quantity", "EmbQtdNumEditBR", "0", TipoMensagem::Erro, "Quantidade na embalagem é obrigatória"},
    Saida{"package_count", "QtdEmbsNumEditBR", "0", TipoMensagem::Erro, "Quantidade de embalagens é obrigatória"},
    Saida{"total_cost", "CustoTotItemNumEditBR", "0", TipoMensagem::Erro, "O custo total das embalagens é obrigatório"},
    Saida{"search_without_product", "BuscaLabeledEdit", "", TipoMensagem::Erro, "O produto é obrigatório"}),
    [](const ::testing::TestParamInfo<Saida> &i) { return std::string(i.param.nome); });

TEST_F(ItemEntrada, ATextNoProductHasIsRefusedAndAQuoteBreaksNothing)
{
    abrir();
    novaNota();
    for (const char *texto : {"999999", "78'90"}) {
        dialogos.Limpar();
        RegistroSql sql;
        buscar(QLatin1String(texto));
        EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Produto não encontrado")) << texto;
        EXPECT_EQ(foco(), QStringLiteral("BuscaLabeledEdit"));
        EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 0.0);
        EXPECT_EQ(p->BuscaLabeledEdit()->selectedText(), QLatin1String(texto));
    }
    EXPECT_TRUE(std::any_of(RegistroSql::Sql().cbegin(), RegistroSql::Sql().cend(),
                            [](const QString &s) { return s.contains(QStringLiteral("gtin='78''90'")); }))
        << RegistroSql::Sql().join(QLatin1Char('\n')).toStdString();
}

// A stored note: items 501 (product 1) and 502 (product 2), created on station 1.
class ItemNotaGravada : public ItemEntrada
{
protected:
    QString gravarNota(bool baixada)
    {
        const QString erro = InserirNota(db, NotaGravada(baixada));
        // Items are listed with their unit.
        return erro.isEmpty() ? db.exec(QStringLiteral("update compra_item_tmp set unid_cod=1, trib_cod=1")) : erro;
    }
    static NotaTeste NotaGravada(bool baixada);
};

NotaTeste ItemNotaGravada::NotaGravada(bool baixada)
{
    NotaTeste n;
    n.compra = 7;
    n.baixado = baixada;
    ItemTeste um;
    um.cod = 501;
    um.prod = 1;
    ItemTeste dois;
    dois.cod = 502;
    dois.prod = 2;
    n.itens = {um, dois};
    return n;
}

TEST_F(ItemEntrada, DeletingAnItemOfANewNoteSendsNoStatement)
{
    abrir();
    novaNota();
    buscar(QStringLiteral("1"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1);
    RegistroSql sql;
    dialogos.Responder(true);
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(itens().RecordCount(), 0);
    EXPECT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_TRUE(RegistroSql::Sql().isEmpty()) << RegistroSql::Sql().join(QLatin1Char('\n')).toStdString();
}

TEST_F(ItemNotaGravada, DeletingAnItemDeletesItsRowsAtOnce)
{
    ASSERT_EQ(gravarNota(false), QString());
    abrir();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 7));
    tela->AltActExecute();
    ASSERT_EQ(itens().RecordCount(), 2);
    ASSERT_TRUE(itens().Locate(QStringLiteral("COMPRA_ITEM_TMP_COD"), 501));
    RegistroSql sql;
    dialogos.Responder(true);
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(RegistroSql::ComInicio(QStringLiteral("delete")),
              (QStringList{QStringLiteral("delete from compra_item_tmp where empr_cod=1 and compra_item_tmp_cod=501 and estacao_cod=1"),
                           QStringLiteral("delete from compra_item_tmp_precos where empr_cod=1 and compra_item_tmp_cod=501 and estacao_cod=1")}));
    EXPECT_EQ(itens().RecordCount(), 1);
    QTest::mouseClick(h->NotaOkButton(), Qt::LeftButton);
    ASSERT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_EQ(db.valor(QStringLiteral("select list(compra_item_tmp_cod) from compra_item_tmp")), QStringLiteral("502"));
}

TEST_F(ItemEntrada, ItemsWaitForAnAcceptableHeader)
{
    abrir();
    QTest::keyClick(tela.get(), Qt::Key_F3);
    digitar(h->NDocNumEditBR(), QStringLiteral("77"));
    p->BuscaLabeledEdit()->setFocus();
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("O fornecedor é obrigatório"));
    EXPECT_EQ(foco(), QStringLiteral("FornecComboBox"));
}

TEST_F(ItemEntrada, AClickOnDeleteThatALeavingCheckRefusedDeletesNothing)
{
    abrir();
    novaNota();
    buscar(QStringLiteral("1"));
    digitar(p->CustoTotItemNumEditBR(), QStringLiteral("10"));
    completar();
    ASSERT_EQ(itens().RecordCount(), 1);
    buscar(QStringLiteral("2"));
    digitar(p->QtdEmbsNumEditBR(), QStringLiteral("0"));
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Quantidade de embalagens é obrigatória"));
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());
    EXPECT_EQ(itens().RecordCount(), 1);
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 2.0);
}

TEST_F(ItemEntrada, DeletingFromAnEmptyListOnlyTellsSo)
{
    abrir();
    novaNota();
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QStringLiteral("Não há item visível a excluir"));
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());
}

TEST_F(ItemNotaGravada, APostedNotesItemsCanBeNeitherAlteredNorDeleted)
{
    ASSERT_EQ(gravarNota(true), QString());
    abrir();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 7));
    tela->AltActExecute();
    ASSERT_EQ(itens().RecordCount(), 2);
    duploClique(0);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("A nota já foi baixada"));
    EXPECT_EQ(tela->ItemState(), TDataSetState::Insert);
    EXPECT_EQ(p->ProdCodNumEditBR()->Value(), 0.0);
    dialogos.Limpar();
    QTest::mouseClick(p->ExcluirItemButton(), Qt::LeftButton);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QStringLiteral("A nota já foi baixada. O item não pode ser excluido"));
    EXPECT_EQ(itens().RecordCount(), 2);
}

} // namespace
