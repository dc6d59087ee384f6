#include "RegistroSql.h"
#include "Contexto.h"
#include "DialogosTeste.h"
#include "TRepGates.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"

#include <gtest/gtest.h>

namespace {

const QString TotalProdutos =
    QStringLiteral("O total de produtos deve ser igual ao total dos itens. A nota não pode ser baixada");

// The note header is kept under the station it was created on (3); its items under 10.
constexpr TChaveNota Chave{.emprCod = 1, .estacaoCod = 3, .compraCod = 7};

// The statements themselves are compared in TestDeclaracoesAcoes; here what each gate decides,
// shows and writes.
class RepGates : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().estacao = 3;
    }

    // A note of `tipo` with the header's product total and one item per "cost[/freight[/units in a package/packages]]".
    void Nota(int tipo, const char *totProds, const QStringList &itens)
    {
        ASSERT_EQ(db.exec(QStringLiteral("delete from compra")) + db.exec(QStringLiteral("delete from compra_item_tmp")), QString());
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, tot_prods, tot) "
                                         "values (1, 3, 7, %1, %2, %2)").arg(TipoDoc::SqlDoCodigo(tipo), QLatin1String(totProds))), QString());
        for (int i = 0; i < itens.size(); ++i) {
            const QStringList v = (itens[i] + QStringLiteral("/0/1/1")).split('/');
            ASSERT_EQ(db.exec(QStringLiteral("insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, "
                                             "custo_tot, frete, emb_qtd, qtd_embs) values (1, 10, 7, %1, %2, %3, %4, %5)")
                                  .arg(i + 1).arg(v[0], v[1], v[2], v[3])), QString());
        }
        antes = Cabecalho(); dialogos.Limpar(); RegistroSql::Limpar();
    }
    QString Cabecalho() { return db.valor(QStringLiteral("select tot_prods || '|' || tot from compra where compra_cod=7")); }
    // The messages shown, each as its kind and text.
    static QStringList Msg(TipoMensagem tipo, const QString &texto) { return {QString::number(int(tipo)) + ' ' + texto}; }
    QStringList Mensagens() { QStringList l; for (const auto &m : dialogos.Mensagens()) l << Msg(m.tipo, m.texto); return l; }

    TestDatabase db{TestDatabase::Conteudo::FixtureBase};
    QString antes;   // the header before the gate
    RegistroSql registro;
    DialogosTeste dialogos;
    TRepGates gates{db.conexao()};
};

TEST_F(RepGates, EachGateRefusesWithOneMessageAndWritesOnlyAProductionTotal)
{
    const QStringList semItens = Msg(TipoMensagem::Info, "Esta nota não possui itens cadastrados. Não pode ser baixada");
    const QStringList zerada = Msg(TipoMensagem::Info, "O valor desta nota está zerado. Não pode ser baixada");
    const struct { const char *nome; int tipo; const char *totProds; QStringList itens; bool aceita; QStringList mensagens;
                   const char *cabecalho; } casos[] = {   // cabecalho null: left as it was
        {"header half a cent over the items", TipoDoc::Entrada, "150.004", {"100", "50"}, true, {}, nullptr},
        {"no items", TipoDoc::Entrada, "10", {}, false, semItens, nullptr},
        {"no items, even a complementary note", TipoDoc::NotaComplementar, "10", {}, false, semItens, nullptr},
        {"items worth nothing", TipoDoc::Entrada, "0", {"0", "0"}, false, zerada, nullptr},
        {"header one cent over the items", TipoDoc::Entrada, "100.01", {"60", "40"}, false, Msg(TipoMensagem::Erro, TotalProdutos), nullptr},
        {"complementary with items: nothing else looked at", TipoDoc::NotaComplementar, "999", {"0"}, true, {}, nullptr},
        {"production takes the items' total", TipoDoc::Producao, "0", {"120.5", "30"}, true, {}, "150.5000|150.5000"},
        {"production worth nothing is no refusal", TipoDoc::Producao, "80", {"0"}, true, {}, "0.0000|0.0000"},
        // Freight makes the total differ from the products: the header gets the total, then the comparison refuses.
        {"production total written before the product comparison", TipoDoc::Producao, "0", {"100/5"}, false,
         Msg(TipoMensagem::Erro, TotalProdutos), "105.0000|105.0000"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        Nota(c.tipo, c.totProds, c.itens);
        EXPECT_EQ(gates.TotItensAceito(Chave, c.tipo, true), c.aceita);
        EXPECT_EQ(Mensagens(), c.mensagens);
        for (const QString &sql : RegistroSql::Sql())
            EXPECT_TRUE(c.cabecalho || sql.startsWith(QStringLiteral("select"))) << sql.toStdString();
        EXPECT_TRUE(c.tipo != TipoDoc::NotaComplementar || RegistroSql::Sql().size() == 1) << "only the count";
        EXPECT_EQ(Cabecalho(), c.cabecalho ? QString::fromLatin1(c.cabecalho) : antes);
    }

    // An unreachable server stops the production total before any write.
    Nota(TipoDoc::Producao, "0", {"100"});
    const auto banco = Contexto::Atual().banco;
    Contexto::Atual().banco.database = QStringLiteral("/nonexistent/pavrel.fdb");
    EXPECT_FALSE(gates.TotItensAceito(Chave, TipoDoc::Producao, true));
    EXPECT_EQ(Mensagens(), Msg(TipoMensagem::Info, "Erro acessando o servidor ao ajustar os totais da nota. Não pode ser baixada"));
    for (const QString &sql : RegistroSql::Sql())
        EXPECT_FALSE(sql.startsWith(QStringLiteral("update"))) << sql.toStdString();
    EXPECT_EQ(Cabecalho(), QStringLiteral("0.0000|0.0000"));

    // Every item needs packages and units in them unless the type needs neither.
    Contexto::Atual().banco = banco;
    const QString embs = "Não foi possível baixar a nota pois um dos itens tem a quantidade de embalagens zerada";
    const QString embQtd = "Não foi possível baixar a nota pois um dos itens tem a quantidade na embalagem zerada";
    const struct { const char *nome; int tipo; const char *item; QStringList mensagens; } itens[] = {
        {"both set", TipoDoc::Entrada, "10/0/12/0.001", {}},
        {"no packages", TipoDoc::Entrada, "10/0/12/0", Msg(TipoMensagem::Erro, embs)},
        {"no units in the package", TipoDoc::Producao, "10/0/0/3", Msg(TipoMensagem::Erro, embQtd)},
        {"neither: packages are looked at first", TipoDoc::Devolucao, "10/0/0/0", Msg(TipoMensagem::Erro, embs)},
        {"complementary note with neither", TipoDoc::NotaComplementar, "10/0/0/0", {}},
    };
    for (const auto &i : itens) {
        SCOPED_TRACE(i.nome);
        Nota(TipoDoc::Entrada, "30", {"10", QLatin1String(i.item), "10"});
        EXPECT_EQ(gates.TotDosItensAceito(Chave, i.tipo), i.mensagens.isEmpty());
        EXPECT_EQ(Mensagens(), i.mensagens);
        EXPECT_EQ(RegistroSql::Sql().size(), i.tipo == TipoDoc::NotaComplementar ? 0 : 1);
    }
}

} // namespace
