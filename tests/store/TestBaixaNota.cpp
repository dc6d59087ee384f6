#include "Contexto.h"
#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "TAcoesNota.h"
#include "TBaixaNota.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "ProgressoTeste.h"
#include "TRepD.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"

#include <gtest/gtest.h>

namespace {

TFiltroNotas Todas()
{
    TFiltroNotas f;
    f.considerarDatas = false;
    f.canceladosIndice = 0;
    f.origemIndice = 0;
    return f;
}

ItemTeste Item(int cod, int prod, const char *qtdEmbs, const char *custoTot,
               QList<QPair<int, QString>> precos = {})
{
    ItemTeste i;
    i.cod = cod;
    i.prod = prod;
    i.qtdEmbs = QLatin1String(qtdEmbs);
    i.custoTot = QLatin1String(custoTot);
    i.precos = std::move(precos);
    return i;
}

class BaixaNota : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 20), QTime(10, 30)); });
    }

    // Writes the note, loads the list and puts the cursor on it.
    void Preparar(const NotaTeste &n)
    {
        ASSERT_EQ(InserirNota(db, n), QString());
        ASSERT_TRUE(repD.CarregarNotas(Todas()));
        ASSERT_TRUE(repD.Notas().Locate(QStringLiteral("compra_COD"), n.compra));
    }

    bool Baixar(bool somarIPI = true) { return TBaixaNota(db.conexao()).BaixarNota(*repD.NotaAtual(), somarIPI); }

    QString Valor(const QString &sql) { return db.valor(sql); }
    int Conta(const QString &sql) { return Valor(QStringLiteral("select count(*) from ") + sql).toInt(); }
    // "prod:qtd:custo:preco_unit" of the note's movements, in item order.
    QString Movimentos(int compra = 1)
    {
        return Valor(QStringLiteral(
                         "select list(prod_cod || ':' || qtd || ':' || custo || ':' || preco_unit, ' ') from (select "
                         "m.* from est_mov m join compra_est_mov l on l.est_mov_cod=m.est_mov_cod where "
                         "l.compra_cod=%1 order by m.est_mov_cod)")
                         .arg(compra));
    }

    TestDatabase db;
    DialogosTeste dialogos;
    ProgressoTeste progresso;
    TRepD repD{db.conexao()};
};

TEST_F(BaixaNota, QuantidadeECustoDeCadaItem)
{
    struct Caso
    {
        const char *nome;
        const char *embQtd, *qtdEmbs, *custoTot, *outras, *desconto, *vipi;
        bool somarIPI;
        const char *qtd, *custo;
    };
    const Caso casos[] = {
        {"fatores arredondados antes do produto", "3", "2.0004", "60", "0", "0", "0", true, "6", "10"},
        {"quantidade zero: so o IPI", "1", "0", "50", "0", "0", "2.5", true, "0", "2.5"},
        {"quantidade zero sem IPI", "1", "0", "50", "0", "0", "2.5", false, "0", "0"},
        {"IPI somado inteiro", "1", "10", "100", "0", "0", "5", true, "10", "15"},
        {"IPI de fora", "1", "10", "100", "0", "0", "5", false, "10", "10"},
        {"outras e desconto, 4 casas", "1", "3", "100", "7", "4", "0", true, "3", "34.3333"},
        {"meio arredonda para o par", "8", "1", "0.0004", "0", "0", "0", true, "8", "0"},
    };
    int compra = 0;
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nome);
        NotaTeste n;
        n.compra = ++compra;
        ItemTeste i = Item(1, 1, c.qtdEmbs, c.custoTot);
        i.cod = compra;
        i.embQtd = QLatin1String(c.embQtd);
        i.outras = QLatin1String(c.outras);
        i.desconto = QLatin1String(c.desconto);
        i.vipi = QLatin1String(c.vipi);
        n.itens = {i};
        Preparar(n);
        ASSERT_TRUE(Baixar(c.somarIPI));
        const auto q = db.conexao().Ab(
            QStringLiteral("select m.qtd, m.custo from est_mov m join compra_est_mov l on l.est_mov_cod=m.est_mov_cod "
                           "where l.compra_cod=%1").arg(compra));
        ASSERT_TRUE(q && q->RecordCount() == 1);
        EXPECT_EQ(q->Fields(0).AsMoney().toString(), QLatin1String(c.qtd));
        EXPECT_EQ(q->Fields(1).AsMoney().toString(), QLatin1String(c.custo));
    }
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(BaixaNota, CompraCriaUmCustoETresPrecosEmOrdemDeTabela)
{
    NotaTeste n;
    n.estacao = 10;   // where the prices were staged, so that posting finds them
    n.fornec = 2;
    // Staged out of order: the movement takes the lowest table's price, prices go in table order.
    n.itens = {Item(1, 2, "4", "18", {{3, "5.5"}, {1, "6.5"}, {2, "6"}})};
    Preparar(n);
    ASSERT_TRUE(Baixar());

    EXPECT_EQ(Movimentos(), QLatin1String("2:4.0000:4.5000:6.5000"));
    EXPECT_EQ(Valor(QStringLiteral("select list(empr_cod || ':' || prod_cod || ':' || custo || ':' || fornec_cod || "
                                   "':' || compra_cod, ' ') from prod_custo")),
              QLatin1String("1:2:4.5000:2:1"));
    EXPECT_EQ(Valor(QStringLiteral("select list(tab_preco_cod || ':' || preco, ' ') from (select * from prod_preco "
                                   "order by prod_preco_cod)")),
              QLatin1String("1:6.5000 2:6.0000 3:5.5000"));
    EXPECT_EQ(Valor(QStringLiteral("select '' || preco from prod_preco_atual where empr_cod=1 and tab_preco_cod=1 and prod_cod=2")),
              QLatin1String("6.5000"));
    EXPECT_EQ(Valor(QStringLiteral("select list(prod_cod || ':' || custo) from prod_custo_env")), QLatin1String("2:4.5000"));
    EXPECT_EQ(Valor(QStringLiteral("select baixado from compra where compra_cod=1")), QLatin1String("S"));
    // The list row shows it once read again.
    ASSERT_TRUE(repD.RecarregarLinha(repD.NotaAtual()->chave));
    EXPECT_EQ(repD.Notas().FieldByName(QStringLiteral("BAIXADO_STR")).AsString(), RepBaixadoStr(true));
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("4"));
}

TEST_F(BaixaNota, CustosEPrecosSoParaCompraEProducaoConfigurada)
{
    struct Caso
    {
        int tipo;
        const char *config;     // nullptr: no row
        bool criaCustos;
        const char *saldo;
    };
    const Caso casos[] = {
        {TipoDoc::Entrada, nullptr, true, "2"},
        {TipoDoc::Producao, nullptr, false, "2"},
        {TipoDoc::Producao, "N", false, "2"},
        {TipoDoc::Producao, "s", false, "2"},
        {TipoDoc::Producao, " S ", true, "2"},
        {TipoDoc::Devolucao, " S ", false, "-2"},
        {TipoDoc::SimplesRemessa, nullptr, false, "-2"},
        {TipoDoc::RetornoLocacao, nullptr, false, "2"},
        {TipoDoc::RetornoComodato, nullptr, false, "2"},
        {TipoDoc::NotaComplementar, nullptr, false, "0"},
    };
    int compra = 0;
    for (const Caso &c : casos) {
        SCOPED_TRACE(QStringLiteral("tipo %1 config %2").arg(c.tipo).arg(QLatin1String(c.config ? c.config : "-")).toStdString());
        ASSERT_EQ(db.exec(QStringLiteral("delete from config")), QString());
        if (c.config) {
            ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('REP_PRODUC_CUSTO_CRIA', '%1')")
                                  .arg(QLatin1String(c.config))),
                      QString());
        }
        const int custos = Conta(QStringLiteral("prod_custo"));
        const int precos = Conta(QStringLiteral("prod_preco"));
        const int insumos = Conta(QStringLiteral("est_mov_compo"));
        NotaTeste n;
        n.estacao = 10;
        n.compra = ++compra;
        n.tipo = c.tipo;
        n.itens = {Item(compra, 3, "2", "40", {{1, "30"}})};
        Preparar(n);
        ASSERT_TRUE(Baixar());

        EXPECT_EQ(Conta(QStringLiteral("compra_est_mov where compra_cod=%1").arg(compra)), 1);
        // Inputs whatever the type: 2 units of product 3 consume 4 of product 1.
        EXPECT_EQ(Conta(QStringLiteral("est_mov_compo")), insumos + 1);
        EXPECT_EQ(Conta(QStringLiteral("prod_custo")), custos + (c.criaCustos ? 1 : 0));
        EXPECT_EQ(Conta(QStringLiteral("prod_preco")), precos + (c.criaCustos ? 1 : 0));
        // Each case's balance on its own: the previous movements are taken away first.
        EXPECT_EQ(Saldo(db, 1, 3), QLatin1String(c.saldo));
        ASSERT_EQ(db.exec(QStringLiteral("update est_mov set cancelado='S'")), QString());
    }
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(BaixaNota, SemLinhaDePrecoOuEmOutraEstacaoNaoHaPreco)
{
    NotaTeste n;
    n.itens = {Item(1, 1, "1", "10"), Item(2, 2, "1", "10", {{1, "12"}})};
    Preparar(n);
    ASSERT_TRUE(Baixar());
    // The first item has no price row; the note's station (1) is not the prices' (10) either.
    EXPECT_EQ(Movimentos(), QLatin1String("1:1.0000:10.0000:0.0000 2:1.0000:10.0000:0.0000"));
    EXPECT_EQ(Conta(QStringLiteral("prod_preco")), 0);
    EXPECT_EQ(Conta(QStringLiteral("prod_custo")), 2);

    NotaTeste n10;
    n10.estacao = 10;
    n10.compra = 2;
    n10.itens = {Item(3, 2, "1", "10", {{1, "12"}})};
    Preparar(n10);
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Movimentos(2), QLatin1String("2:1.0000:10.0000:12.0000"));
    EXPECT_EQ(Conta(QStringLiteral("prod_preco")), 1);
}

TEST_F(BaixaNota, InsumosPelaEmpresaDoHostComQuantidadeAbsoluta)
{
    Contexto::Atual().empresa = 2;
    NotaTeste n;
    n.tipo = TipoDoc::Producao;
    n.itens = {Item(1, 3, "5", "50"), Item(2, 1, "5", "50"), Item(3, 3, "-1.5", "-15")};
    Preparar(n);
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Valor(QStringLiteral("select list(c.empr_cod || ':' || m.prod_cod || ':' || c.prod_cod_filho || ':' || "
                                   "c.qtd, ' ') from (select * from est_mov_compo order by est_mov_compo_cod) c join "
                                   "est_mov m on m.est_mov_cod=c.est_mov_cod")),
              QLatin1String("2:3:1:10.0000 2:3:1:3.0000"));
}

TEST_F(BaixaNota, ProgressoACadaDezItensSemNovasConexoes)
{
    NotaTeste n;
    n.estacao = 10;   // the count that sizes the progress uses the note's station
    for (int i = 1; i <= 25; ++i)
        n.itens << Item(i, 1 + i % 3, "1", "10", {{1, "12"}, {2, "11"}, {3, "10"}});
    Preparar(n);
    const int anexacoes = TConexaoSQL::AnexacoesAbertas();
    ASSERT_TRUE(Baixar());
    // One attachment may be opened for the host's connection beside the module's, none per item.
    EXPECT_LE(TConexaoSQL::AnexacoesAbertas() - anexacoes, 2);
    EXPECT_EQ(progresso.Posicao(), 20);
    EXPECT_TRUE(progresso.Fechado());
    EXPECT_EQ(Conta(QStringLiteral("compra_est_mov")), 25);
    EXPECT_EQ(Conta(QStringLiteral("prod_preco")), 75);
    EXPECT_EQ(Conta(QStringLiteral("est_mov_compo")), 8);   // the items of product 3
    // Changed costs are passed on once per product.
    EXPECT_EQ(Conta(QStringLiteral("prod_custo_env")), 3);
}

TEST_F(BaixaNota, FalhaNoMeioMantemOsAnterioresENaoMarcaBaixada)
{
    ASSERT_EQ(db.exec(QStringLiteral("create exception e_teste 'produto bloqueado para teste'")), QString());
    ASSERT_EQ(db.exec(QStringLiteral("create trigger est_mov_teste for est_mov before insert as begin "
                                     "if (new.prod_cod = 2) then exception e_teste; end")),
              QString());
    NotaTeste n;
    n.compra = 4;
    n.itens = {Item(1, 1, "1", "10"), Item(2, 2, "1", "10"), Item(3, 1, "1", "10")};
    Preparar(n);
    EXPECT_FALSE(Baixar());

    const QString mensagem = dialogos.UnicaMensagem(TipoMensagem::Erro);
    EXPECT_TRUE(mensagem.startsWith(QStringLiteral("A baixa da nota 001-0000004 parou no item 2 (produto 2).")))
        << mensagem.toStdString();
    EXPECT_TRUE(mensagem.contains(QLatin1String("produto bloqueado para teste"))) << mensagem.toStdString();
    EXPECT_EQ(Movimentos(4), QLatin1String("1:1.0000:10.0000:0.0000"));
    EXPECT_EQ(Conta(QStringLiteral("prod_custo")), 1);
    EXPECT_EQ(Valor(QStringLiteral("select baixado from compra where compra_cod=4")), QLatin1String("N"));
    EXPECT_FALSE(repD.Notas().FieldByName(QStringLiteral("BAIXADO")).AsBoolean());
    EXPECT_TRUE(progresso.Fechado());
}

TEST_F(BaixaNota, SemBancoAvisaEParaAntesDeTudo)
{
    NotaTeste n;
    n.itens = {Item(1, 1, "1", "10")};
    Preparar(n);
    TDadosBanco perdido = db.banco();
    perdido.database += QStringLiteral(".perdido");
    TConexaoSQL semBanco(perdido);
    EXPECT_FALSE(TBaixaNota(semBanco).BaixarNota(*repD.NotaAtual(), true));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Erro acessando os itens. Processo interrompido."));
    EXPECT_EQ(Conta(QStringLiteral("est_mov")), 0);
}

TEST_F(BaixaNota, RastroNivel72)
{
    Contexto::Atual().modoDebug = 72;
    NotaTeste n;
    n.estacao = 10;
    n.itens = {Item(1, 1, "1", "10", {{1, "13"}})};
    Preparar(n);
    ASSERT_TRUE(Baixar());
    // The "vai ..." lines go to the hook; the rest is shown once, under its header.
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Simples),
              QStringLiteral("modo_debug=72\r\nTRepD.BaixarNota;\r\n\r\n"
                             "leu das config, ProducCriaCustos=N\r\nera compra ou produc\r\nprod_cod=1\r\ncusto=10\r\n"
                             "fornec_cod=1\r\ninseriu custo\r\nprod_cod=1\r\ntab_preco_cod=1\r\npreco=13"));
}

TEST_F(BaixaNota, BaixarDesbaixarEBaixarDeNovoDaOsMesmosMovimentos)
{
    NotaTeste n;
    n.tipo = TipoDoc::Producao;
    n.itens = {Item(1, 3, "2", "40"), Item(2, 2, "3", "30")};
    Preparar(n);
    ASSERT_TRUE(Baixar());
    const QString antes = Movimentos();
    ASSERT_EQ(Saldo(db, 1, 3), QLatin1String("2"));

    ASSERT_TRUE(repD.RecarregarLinha(repD.NotaAtual()->chave));
    TAcoesNota acoes(db.conexao());
    dialogos.Responder(true);
    ASSERT_TRUE(acoes.DesbaixarActExecute(repD.NotaAtual(), TDataSetState::Browse, TDataSetState::Browse));
    EXPECT_EQ(Saldo(db, 1, 3), QLatin1String("0"));
    EXPECT_EQ(Conta(QStringLiteral("est_mov_compo")), 0);

    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Movimentos(), antes);
    EXPECT_EQ(Saldo(db, 1, 3), QLatin1String("2"));
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("3"));
    EXPECT_EQ(Conta(QStringLiteral("est_mov_compo")), 1);
}

} // namespace
