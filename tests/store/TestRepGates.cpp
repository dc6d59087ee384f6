#include "RegistroSql.h"
#include "Contexto.h"
#include "DialogosTeste.h"
#include "Money.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TRepGates.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <gtest/gtest.h>

#include <QLoggingCategory>

namespace {

const QString SemItens = QStringLiteral("Esta nota não possui itens cadastrados. Não pode ser baixada");
const QString Zerada = QStringLiteral("O valor desta nota está zerado. Não pode ser baixada");
const QString ErroAjuste =
    QStringLiteral("Erro acessando o servidor ao ajustar os totais da nota. Não pode ser baixada");
const QString TotalProdutos =
    QStringLiteral("O total de produtos deve ser igual ao total dos itens. A nota não pode ser baixada");
const QString EmbsZerada =
    QStringLiteral("Não foi possível baixar a nota pois um dos itens tem a quantidade de embalagens zerada");
const QString EmbQtdZerada =
    QStringLiteral("Não foi possível baixar a nota pois um dos itens tem a quantidade na embalagem zerada");

// The note header is kept under the station it was created on (3); its items under 10.
constexpr TChaveNota Chave{.emprCod = 1, .estacaoCod = 3, .compraCod = 7};

class RepGates : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().estacao = 3;
    }

    void Nota(int tipo, const char *totProds)
    {
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, "
                                         "tot_prods, tot) values (1, 3, 7, %1, %2, %2)")
                              .arg(TipoDoc::SqlDoCodigo(tipo), QLatin1String(totProds))),
                  QString());
    }
    void Item(int cod, const char *custoTot, const char *frete = "0", const char *embQtd = "1",
              const char *qtdEmbs = "1")
    {
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, "
                                         "compra_item_tmp_cod, custo_tot, frete, emb_qtd, qtd_embs) "
                                         "values (1, 10, 7, %1, %2, %3, %4, %5)")
                              .arg(cod)
                              .arg(QLatin1String(custoTot), QLatin1String(frete), QLatin1String(embQtd),
                                   QLatin1String(qtdEmbs))),
                  QString());
    }
    bool TotItens(int tipo, bool somarIPI = true)
    {
        RegistroSql::Limpar();
        return gates.TotItensAceito(Chave, tipo, somarIPI);
    }
    QString Cabecalho() { return db.valor(QStringLiteral("select tot_prods || '|' || tot from compra where compra_cod=7")); }

    TestDatabase db{TestDatabase::Conteudo::FixtureBase};
    RegistroSql registro;
    DialogosTeste dialogos;
    TRepGates gates{db.conexao()};
};

TEST_F(RepGates, AnAgreeingNoteSendsTheDocumentedStatementsAndPasses)
{
    Nota(TipoDoc::Entrada, "150.004");
    Item(1, "100");
    Item(2, "50");
    ASSERT_TRUE(TotItens(TipoDoc::Entrada));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(RegistroSql::Sql(),
              (QStringList{
                  QStringLiteral("select count(*) from compra_item_tmp where empr_cod=1 and compra_cod=7 and estacao_cod=10"),
                  QStringLiteral("select *\r\nfrom compra_item_tmp where empr_cod=1 and compra_cod=7 and estacao_cod=10"),
                  QStringLiteral("select tot_prods as custo_tot, \r\nipi, outras, icms, desconto, tot\r\nfrom compra "
                                 "where empr_cod=1 and compra_cod=7 and estacao_cod=3"),
              }));
}

TEST_F(RepGates, EachRefusalShowsItsOneMessageAndWritesNothing)
{
    struct Caso
    {
        const char *nome;
        int tipo;
        const char *totProds;
        QList<const char *> custos;   // one item per cost
        TipoMensagem tipoMensagem;
        QString texto;
    } casos[] = {
        {"no items", TipoDoc::Entrada, "10", {}, TipoMensagem::Info, SemItens},
        {"no items, even a complementary note", TipoDoc::NotaComplementar, "10", {}, TipoMensagem::Info, SemItens},
        {"items worth nothing", TipoDoc::Entrada, "0", {"0", "0"}, TipoMensagem::Info, Zerada},
        {"a return worth nothing", TipoDoc::Devolucao, "0", {"0"}, TipoMensagem::Info, Zerada},
        {"header one cent over the items", TipoDoc::Entrada, "100.01", {"60", "40"}, TipoMensagem::Erro, TotalProdutos},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nome);
        ASSERT_EQ(db.exec(QStringLiteral("delete from compra")), QString());
        ASSERT_EQ(db.exec(QStringLiteral("delete from compra_item_tmp")), QString());
        Nota(c.tipo, c.totProds);
        int cod = 0;
        for (const char *custo : c.custos)
            Item(++cod, custo);
        const QString antes = Cabecalho();
        dialogos.Limpar();

        EXPECT_FALSE(TotItens(c.tipo));
        EXPECT_EQ(dialogos.UnicaMensagem(c.tipoMensagem), c.texto);
        EXPECT_EQ(Cabecalho(), antes);
        for (const QString &sql : RegistroSql::Sql())
            EXPECT_TRUE(sql.startsWith(QStringLiteral("select"))) << sql.toStdString();
    }
}

TEST_F(RepGates, AComplementaryNoteIsAcceptedOnceItHasItems)
{
    Nota(TipoDoc::NotaComplementar, "999");
    Item(1, "0");
    ASSERT_TRUE(TotItens(TipoDoc::NotaComplementar));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(RegistroSql::Sql().size(), 1) << "only the count: nothing else is checked";
}

TEST_F(RepGates, AProductionNoteTakesTheItemsTotalIntoItsHeader)
{
    Nota(TipoDoc::Producao, "0");
    Item(1, "120.5");
    Item(2, "30");
    ASSERT_TRUE(TotItens(TipoDoc::Producao));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_TRUE(RegistroSql::Sql().contains(QStringLiteral(
        "update compra set tot_prods=150.5, tot=150.5 where empr_cod=1 and estacao_cod=3 and compra_cod=7")))
        << RegistroSql::Sql().join('\n').toStdString();
    EXPECT_EQ(Cabecalho(), QStringLiteral("150.5000|150.5000"));
}

TEST_F(RepGates, AProductionNoteWorthNothingIsNotRefusedForItsValue)
{
    Nota(TipoDoc::Producao, "80");
    Item(1, "0");
    ASSERT_TRUE(TotItens(TipoDoc::Producao));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(Cabecalho(), QStringLiteral("0.0000|0.0000"));
}

TEST_F(RepGates, AProductionTotalIsWrittenEvenWhenTheProductTotalThenDisagrees)
{
    // Freight makes the note's total differ from its products: the header gets the total, and
    // the product comparison that follows refuses.
    Nota(TipoDoc::Producao, "0");
    Item(1, "100", "5");
    EXPECT_FALSE(TotItens(TipoDoc::Producao));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), TotalProdutos);
    EXPECT_EQ(Cabecalho(), QStringLiteral("105.0000|105.0000"));
}

TEST_F(RepGates, AnUnreachableServerStopsTheProductionTotalBeforeAnyWrite)
{
    Nota(TipoDoc::Producao, "0");
    Item(1, "100");
    Contexto::Atual().banco.database = QStringLiteral("/nonexistent/pavrel.fdb");
    EXPECT_FALSE(TotItens(TipoDoc::Producao));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), ErroAjuste);
    for (const QString &sql : RegistroSql::Sql())
        EXPECT_FALSE(sql.startsWith(QStringLiteral("update"))) << sql.toStdString();
    EXPECT_EQ(Cabecalho(), QStringLiteral("0.0000|0.0000"));
}

TEST_F(RepGates, EveryItemNeedsPackagesAndUnitsInThemUnlessTheTypeNeedsNeither)
{
    struct Caso
    {
        const char *nome;
        int tipo;
        const char *embQtd;
        const char *qtdEmbs;
        QString texto;   // empty: accepted
    } casos[] = {
        {"both set", TipoDoc::Entrada, "12", "0.001", QString()},
        {"no packages", TipoDoc::Entrada, "12", "0", EmbsZerada},
        {"no units in the package", TipoDoc::Producao, "0", "3", EmbQtdZerada},
        {"neither: packages are looked at first", TipoDoc::Devolucao, "0", "0", EmbsZerada},
        {"complementary note with neither", TipoDoc::NotaComplementar, "0", "0", QString()},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nome);
        ASSERT_EQ(db.exec(QStringLiteral("delete from compra_item_tmp")), QString());
        Item(1, "10");
        Item(2, "10", "0", c.embQtd, c.qtdEmbs);
        Item(3, "10");
        dialogos.Limpar();
        RegistroSql::Limpar();

        EXPECT_EQ(gates.TotDosItensAceito(Chave, c.tipo), c.texto.isEmpty());
        if (c.texto.isEmpty())
            EXPECT_TRUE(dialogos.Mensagens().isEmpty());
        else
            EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), c.texto);
        EXPECT_EQ(RegistroSql::Sql().size(), c.tipo == TipoDoc::NotaComplementar ? 0 : 1);
    }
}

} // namespace
