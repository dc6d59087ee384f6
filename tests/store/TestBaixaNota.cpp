#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "TAcoesNota.h"
#include "TBaixaNota.h"
#include "TClientDataSet.h"
#include "ProgressoTeste.h"
#include "RegistroSql.h"
#include "TRepD.h"
#include "UTipoDoc.h"

#include <gtest/gtest.h>

namespace {

class BaixaNota : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 20), QTime(10, 30)); });
    }

    // Writes the note and loads it as the list's current row.
    void Preparar(const NotaTeste &n)
    {
        ASSERT_EQ(InserirNota(db, n), QString());
        ASSERT_TRUE(repD.CarregarNota(n.empr, n.estacao, n.compra));
        ASSERT_EQ(repD.Notas().RecordCount(), 1);
    }

    bool Baixar(bool somarIPI = true) { return TBaixaNota(db.conexao()).BaixarNota(*repD.NotaAtual(), somarIPI); }

    int Conta(const char *tabela) { return db.valor(QStringLiteral("select count(*) from ") + QLatin1String(tabela)).toInt(); }
    // "prod:qtd:custo:preco_atual" of the note's movements, in item order.
    QString Movimentos(int compra = 1)
    {
        return db.valor(QStringLiteral("select list(prod_cod || ':' || qtd || ':' || custo || ':' || preco_atual, ' ') from (select "
                                       "m.* from est_mov m join compra_est_mov l on l.est_mov_cod=m.est_mov_cod where "
                                       "l.compra_cod=%1 order by m.est_mov_cod)").arg(compra));
    }

    TestDatabase db;
    DialogosTeste dialogos;
    ProgressoTeste progresso;
    TRepD repD{db.conexao()};
};

TEST_F(BaixaNota, QuantidadeECustoDeCadaItem)
{
    const struct { const char *nome, *embQtd, *qtdEmbs, *custoTot, *outras, *desconto, *vipi; bool somarIPI; const char *qtdCusto; } casos[] = {
        {"fatores arredondados antes do produto", "3", "2.0004", "60", "0", "0", "0", true, "6.0000:10.0000"},
        {"quantidade zero: so o IPI", "1", "0", "50", "0", "0", "2.5", true, "0.0000:2.5000"},
        {"quantidade zero sem IPI", "1", "0", "50", "0", "0", "2.5", false, "0.0000:0.0000"},
        {"IPI somado inteiro", "1", "10", "100", "0", "0", "5", true, "10.0000:15.0000"},
        {"IPI de fora", "1", "10", "100", "0", "0", "5", false, "10.0000:10.0000"},
        {"outras e desconto, 4 casas", "1", "3", "100", "7", "4", "0", true, "3.0000:34.3333"},
        {"meio arredonda para o par", "8", "1", "0.0004", "0", "0", "0", true, "8.0000:0.0000"},
    };
    int compra = 0;
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        ++compra;
        Preparar({.compra = compra, .itens = {{.cod = compra, .embQtd = c.embQtd, .qtdEmbs = c.qtdEmbs, .custoTot = c.custoTot,
                                               .outras = c.outras, .desconto = c.desconto, .vipi = c.vipi, .infoAdic = {}, .precos = {}}}});
        ASSERT_TRUE(Baixar(c.somarIPI));
        EXPECT_EQ(Movimentos(compra), QStringLiteral("1:%1:0.0000").arg(QLatin1String(c.qtdCusto)));
    }
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

// Stored texts may hold any character (a supplier's XML, a paste): posting carries them to the
// movement whole, only the NUL left out, and never sends a statement cut short.
TEST_F(BaixaNota, TextosComControlesEDoTamanhoDaColunaChegamAoMovimento)
{
    const QString longo = QString::fromUtf8("\xF0\x9F\x93\xA6").repeated(1000) + QString::fromUtf8("ção' ").repeated(200);
    Preparar({.compra = 1, .itens = {Item(1, 1, "1", "10"), Item(2, 2, "1", "10")}});
    ASSERT_EQ(db.exec(QStringLiteral("update compra_item_tmp set info_adic='a' || ascii_char(0) || 'b' || ascii_char(9) "
                                     "|| 'c' || ascii_char(13) || ascii_char(10) || 'd''e' where compra_item_tmp_cod=1")), QString());
    ASSERT_EQ(db.exec(QStringLiteral("update compra_item_tmp set info_adic=") + QuotedStr(longo)
                      + QStringLiteral(" where compra_item_tmp_cod=2")), QString());
    ASSERT_TRUE(Baixar());
    const auto q = db.conexao().Ab(QStringLiteral("select info_adic from est_mov order by est_mov_cod"));
    ASSERT_TRUE(q && q->RecordCount() == 2);
    EXPECT_EQ(q->Fields(0).AsString(), QStringLiteral("ab\tc\r\nd'e"));
    q->Next();
    EXPECT_EQ(q->Fields(0).AsString(), longo);
}

TEST_F(BaixaNota, CustoQueNaoCabeNaColunaERecusadoAntesDeTudo)
{
    Preparar({.compra = 1, .itens = {Item(1, 1, "1", "0"), Item(2, 2, "0.001", "99999999999999.9999")}});
    EXPECT_FALSE(Baixar());
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro),
              QStringLiteral("A baixa da nota 001-0000001 parou no item 2 (produto 2).\nO custo unitário "
                             "922337203685477.5807 não cabe no banco de dados.\nNada foi lançado no estoque; a nota continua não baixada."));
    EXPECT_EQ(Conta("est_mov"), 0);
}

TEST_F(BaixaNota, CompraCriaUmCustoETresPrecosEmOrdemDeTabelaSoDaEstacaoDosPrecos)
{
    // Staged out of order at the prices' station: the movement takes the lowest table's price,
    // prices go in table order.
    Preparar({.estacao = 10, .fornec = 2, .itens = {Item(1, 2, "4", "18", {{3, "5.5"}, {1, "6.5"}, {2, "6"}})}});
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Movimentos(), QLatin1String("2:4.0000:4.5000:6.5000"));
    // prod_custo "empr:prod:custo:fornec:compra", prod_preco, the current price, the costs passed on, the flag.
    EXPECT_EQ(db.valor(QStringLiteral(
                  "select (select list(empr_cod || ':' || prod_cod || ':' || custo || ':' || fornec_cod || ':' || compra_cod, ' ') "
                  "from prod_custo) || ' | ' || (select list(tab_preco_cod || ':' || preco, ' ') from (select * from prod_preco "
                  "order by prod_preco_cod)) || ' | ' || (select preco from prod_preco_atual where empr_cod=1 and tab_preco_cod=1 "
                  "and prod_cod=2) || ' | ' || (select list(prod_cod || ':' || custo) from prod_custo_env) || ' | ' || "
                  "(select baixado from compra where compra_cod=1) from rdb$database")),
              QLatin1String("1:2:4.5000:2:1 | 1:6.5000 2:6.0000 3:5.5000 | 6.5000 | 2:4.5000 | S"));
    // The list row shows it once read again.
    ASSERT_TRUE(repD.RecarregarLinha(repD.NotaAtual()->chave));
    EXPECT_EQ(repD.Notas().FieldByName(QStringLiteral("BAIXADO_STR")).AsString(), RepBaixadoStr(true));
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("4"));

    SCOPED_TRACE("no price row, or one under another station than the note's (1), gives no price");
    Preparar({.compra = 2, .itens = {Item(2, 1, "1", "10"), Item(3, 2, "1", "10", {{1, "12"}})}});
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Movimentos(2), QLatin1String("1:1.0000:10.0000:0.0000 2:1.0000:10.0000:0.0000"));
    EXPECT_EQ(Conta("prod_preco"), 3);
}

TEST_F(BaixaNota, CustosEPrecosSoParaCompraEProducaoConfigurada)
{
    // config nullptr: no row; the flag's other values are the reader's own test.
    const struct { int tipo; const char *config; bool criaCustos; const char *saldo; } casos[] = {
        {TipoDoc::Entrada, nullptr, true, "2"}, {TipoDoc::Producao, nullptr, false, "2"}, {TipoDoc::Producao, " S ", true, "2"},
        {TipoDoc::Devolucao, " S ", false, "-2"}, {TipoDoc::SimplesRemessa, nullptr, false, "-2"},
        {TipoDoc::RetornoLocacao, nullptr, false, "2"}, {TipoDoc::NotaComplementar, nullptr, false, "0"},
    };
    // Movements of notes, inputs, costs and prices.
    const auto contar = [&] { return QList<int>{Conta("compra_est_mov"), Conta("est_mov_compo"), Conta("prod_custo"), Conta("prod_preco")}; };
    int compra = 0;
    for (const auto &c : casos) {
        SCOPED_TRACE(QStringLiteral("tipo %1 config %2").arg(c.tipo).arg(QLatin1String(c.config ? c.config : "-")).toStdString());
        ASSERT_EQ(db.execScript(QStringLiteral("delete from config;\n") + (c.config ? QStringLiteral(
                      "insert into config (chave, valor) values ('REP_PRODUC_CUSTO_CRIA', '%1');").arg(QLatin1String(c.config)) : QString())),
                  QString());
        const QList<int> antes = contar();
        ++compra;
        Preparar({.estacao = 10, .compra = compra, .tipo = c.tipo, .itens = {Item(compra, 3, "2", "40", {{1, "30"}})}});
        ASSERT_TRUE(Baixar());
        // Inputs whatever the type: 2 units of product 3 consume 4 of product 1.
        const int cria = c.criaCustos ? 1 : 0;
        EXPECT_EQ(contar(), (QList<int>{antes[0] + 1, antes[1] + 1, antes[2] + cria, antes[3] + cria}));
        // Each case's balance on its own: the previous movements are taken away first.
        EXPECT_EQ(Saldo(db, 1, 3), QLatin1String(c.saldo));
        ASSERT_EQ(db.exec(QStringLiteral("update est_mov set cancelado='S'")), QString());
    }
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(BaixaNota, InsumosPelaEmpresaDoHostComQuantidadeAbsoluta)
{
    Contexto::Atual().empresa = 2;
    Preparar({.tipo = TipoDoc::Producao, .itens = {Item(1, 3, "5", "50"), Item(2, 1, "5", "50"), Item(3, 3, "-1.5", "-15")}});
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(db.valor(QStringLiteral("select list(c.empr_cod || ':' || m.prod_cod || ':' || c.prod_cod_filho || ':' || c.qtd, ' ') "
                                      "from (select * from est_mov_compo order by est_mov_compo_cod) c join est_mov m on "
                                      "m.est_mov_cod=c.est_mov_cod")),
              QLatin1String("2:3:1:10.0000 2:3:1:3.0000"));
}

TEST_F(BaixaNota, ProgressoACadaDezItensSemNovasConexoes)
{
    NotaTeste n{.estacao = 10, .itens = {}};   // the count that sizes the progress uses the note's station
    for (int i = 1; i <= 25; ++i)
        n.itens << Item(i, 1 + i % 3, "1", "10", {{1, "12"}, {2, "11"}, {3, "10"}});
    Preparar(n);
    const int anexacoes = TConexaoSQL::AnexacoesAbertas();
    RegistroSql registro;
    ASSERT_TRUE(Baixar());
    // 6 statements for the note, one composition per distinct product (3), 9 per item (its prices,
    // movement code, movement with link, text, taxes, cost, three prices) and 2 more per item
    // with inputs (their codes, one input).
    EXPECT_EQ(RegistroSql::Sql().size(), 6 + 3 + 25 * 9 + 8 * 2) << RegistroSql::Sql().join('\n').toStdString();
    // One attachment may be opened for the host's connection beside the module's, none per item.
    EXPECT_LE(TConexaoSQL::AnexacoesAbertas() - anexacoes, 2);
    EXPECT_EQ(progresso.Posicao(), 20);
    EXPECT_TRUE(progresso.Fechado());
    // Inputs only for the items of product 3; changed costs are passed on once per product.
    EXPECT_EQ((QList<int>{Conta("compra_est_mov"), Conta("prod_preco"), Conta("est_mov_compo"), Conta("prod_custo_env")}),
              (QList<int>{25, 75, 8, 3}));
}

TEST_F(BaixaNota, BaixaInterrompidaSoSeDesfazPorDesbaixarESemBancoParaAntesDeTudo)
{
    ASSERT_EQ(db.exec(QStringLiteral("create exception e_teste 'produto bloqueado para teste'")), QString());
    ASSERT_EQ(db.exec(QStringLiteral("create trigger est_mov_teste for est_mov before insert as begin "
                                     "if (new.prod_cod = 2) then exception e_teste; end")),
              QString());
    // Stopped at the first item: nothing to take back.
    Preparar({.compra = 5, .itens = {Item(9, 2, "1", "10")}});
    EXPECT_FALSE(Baixar());
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro)
                    .endsWith(QStringLiteral("Nada foi lançado no estoque; a nota continua não baixada.")));
    dialogos.Limpar();

    Preparar({.compra = 4, .tipo = TipoDoc::Producao, .itens = {Item(1, 3, "2", "40"), Item(2, 2, "3", "30"), Item(3, 1, "1", "10")}});
    EXPECT_FALSE(Baixar());
    const QString mensagem = dialogos.UnicaMensagem(TipoMensagem::Erro);
    EXPECT_TRUE(mensagem.startsWith(TBaixaNota::AvisoBaixaInterrompida
                                    + QStringLiteral("\nA baixa da nota 001-0000004 parou no item 2 (produto 2)."))
                && mensagem.contains(QLatin1String("produto bloqueado para teste")))
        << mensagem.toStdString();
    const QString primeiro = QStringLiteral("3:2.0000:20.0000:0.0000");
    EXPECT_EQ(Movimentos(4), primeiro);
    EXPECT_EQ(db.valor(QStringLiteral("select baixado from compra where compra_cod=4")), QLatin1String("N"));
    EXPECT_FALSE(repD.Notas().FieldByName(QStringLiteral("BAIXADO")).AsBoolean());
    EXPECT_TRUE(progresso.Fechado());

    // Posting again would count the first item twice: refused with the same advice.
    ASSERT_EQ(db.exec(QStringLiteral("drop trigger est_mov_teste")), QString());
    dialogos.Limpar();
    EXPECT_FALSE(Baixar());
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), TBaixaNota::AvisoBaixaInterrompida);
    EXPECT_EQ(Movimentos(4), primeiro);

    // Unposting takes the part back; posting then writes each item once.
    dialogos.Limpar();
    dialogos.Responder(true);
    ASSERT_TRUE(TAcoesNota(db.conexao()).DesbaixarActExecute(repD.NotaAtual(), TDataSetState::Browse, TDataSetState::Browse));
    EXPECT_EQ(Saldo(db, 1, 3) + ' ' + QString::number(Conta("est_mov_compo")) + ' ' + Movimentos(4), QLatin1String("0 0 "));
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Movimentos(4), primeiro + QStringLiteral(" 2:3.0000:10.0000:0.0000 1:1.0000:10.0000:0.0000"));
    EXPECT_EQ(Saldo(db, 1, 3) + ' ' + Saldo(db, 1, 2) + ' ' + QString::number(Conta("est_mov_compo")), QLatin1String("2 3 1"));
    // And a whole posting goes back and comes again the same.
    ASSERT_TRUE(repD.RecarregarLinha(repD.NotaAtual()->chave));
    dialogos.Responder(true);
    ASSERT_TRUE(TAcoesNota(db.conexao()).DesbaixarActExecute(repD.NotaAtual(), TDataSetState::Browse, TDataSetState::Browse));
    ASSERT_TRUE(Baixar());
    EXPECT_EQ(Conta("compra_est_mov") + Conta("est_mov") + Conta("est_mov_compo"), 3 + 3 + 1);

    SCOPED_TRACE("sem banco avisa e para antes de tudo");
    dialogos.Limpar();
    TDadosBanco perdido = db.banco();
    perdido.database += QStringLiteral(".perdido");
    TConexaoSQL semBanco(perdido);
    EXPECT_FALSE(TBaixaNota(semBanco).BaixarNota(*repD.NotaAtual(), true));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Erro acessando os itens. Processo interrompido."));
    EXPECT_EQ(Conta("est_mov"), 3);
}

TEST_F(BaixaNota, RastroNivel72)
{
    Contexto::Atual().modoDebug = 72;
    Preparar({.estacao = 10, .itens = {Item(1, 1, "1", "10", {{1, "13"}})}});
    ASSERT_TRUE(Baixar());
    // The "vai ..." lines go to the hook; the rest is shown once, under its header.
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Simples),
              QStringLiteral("modo_debug=72\r\nTRepD.BaixarNota;\r\n\r\n"
                             "leu das config, ProducCriaCustos=N\r\nera compra ou produc\r\nprod_cod=1\r\ncusto=10\r\n"
                             "fornec_cod=1\r\ninseriu custo\r\nprod_cod=1\r\ntab_preco_cod=1\r\npreco=13"));
}

} // namespace
