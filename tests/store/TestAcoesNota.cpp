#include "Contexto.h"
#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "TAcoesNota.h"
#include "TClientDataSet.h"
#include "TRepD.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"

#include <gtest/gtest.h>

namespace {

constexpr auto B = TDataSetState::Browse;

class AcoesNota : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }

    void Preparar(NotaTeste n)
    {
        if (n.itens.isEmpty()) {
            ItemTeste i;
            i.cod = n.compra;
            i.prod = 2;
            i.qtdEmbs = QStringLiteral("5");
            i.custoTot = QStringLiteral("25");
            n.itens << i;
        }
        ASSERT_EQ(InserirNota(db, n), QString());
        Recarregar(n.compra);
    }
    void Recarregar(int compra)
    {
        TFiltroNotas todas;
        todas.considerarDatas = false;
        todas.canceladosIndice = 0;
        todas.origemIndice = 0;
        ASSERT_TRUE(repD.CarregarNotas(todas));
        ASSERT_TRUE(repD.Notas().Locate(QStringLiteral("compra_COD"), compra));
    }
    QString Campo(const char *nome) { return repD.Notas().FieldByName(QLatin1String(nome)).AsString(); }
    QString Valor(const QString &sql) { return db.valor(sql); }
    int Movimentos() { return Valor(QStringLiteral("select count(*) from est_mov")).toInt(); }

    TestDatabase db;
    DialogosTeste dialogos;
    TRepD repD{db.conexao()};
    TAcoesNota acoes{db.conexao()};
};

TEST_F(AcoesNota, BaixarPassaPelasConferenciasAntesDeGravar)
{
    NotaTeste baixada;
    baixada.baixado = true;
    Preparar(baixada);
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), true));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    NotaTeste n;
    n.compra = 2;
    Preparar(n);
    bool perguntou = false;
    acoes.SetDocAceito([&perguntou] {
        perguntou = true;
        return false;
    });
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_TRUE(perguntou);

    // The totals gate: the header's product total no longer matches the items'.
    acoes.SetDocAceito([] { return true; });
    ASSERT_EQ(db.exec(QStringLiteral("update compra set tot_prods=26 where compra_cod=2")), QString());
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro),
              QStringLiteral("O total de produtos deve ser igual ao total dos itens. A nota não pode ser baixada"));
    EXPECT_EQ(Movimentos(), 0);
    dialogos.Limpar();

    ASSERT_EQ(db.exec(QStringLiteral("update compra set tot_prods=25 where compra_cod=2")), QString());
    EXPECT_TRUE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(Valor(QStringLiteral("select baixado from compra where compra_cod=2")), QLatin1String("S"));
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("5"));
}

TEST_F(AcoesNota, CancelarPerguntaAntesEMarcaALinha)
{
    NotaTeste n;
    n.estacao = 3;
    n.compra = 9;
    n.baixado = true;
    Preparar(n);

    dialogos.Responder(false);
    EXPECT_FALSE(acoes.CancelarNota(repD.NotaAtual()));
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().first().tipo, TipoPergunta::Deletar);
    EXPECT_EQ(Valor(QStringLiteral("select cancelado from compra")), QLatin1String("N"));

    dialogos.Responder(true);
    EXPECT_TRUE(acoes.CancelarNota(repD.NotaAtual()));
    repD.MarcarLinhaCancelada();
    EXPECT_EQ(Campo("CANCELADO_STR"), QLatin1String("S"));
    EXPECT_EQ(Valor(QStringLiteral("select cancelado || baixado from compra")), QLatin1String("SS"));
}

TEST_F(AcoesNota, RecusasDeDesbaixarEEnviar)
{
    struct Caso
    {
        const char *nome;
        bool desbaixar;
        TDataSetState cabec, item;
        NotaTeste nota;
        bool listaVazia;
        TipoMensagem tipo;
        const char *mensagem;   // nullptr: nothing visible
    };
    const auto nota = [](bool baixado, bool cancelado, int empr = 1, int destin = 2) {
        NotaTeste n;
        n.empr = empr;
        n.baixado = baixado;
        n.cancelado = cancelado;
        n.destin = destin;
        return n;
    };
    const Caso casos[] = {
        {"cabecalho em edicao", true, TDataSetState::Edit, B, nota(true, false), false, TipoMensagem::Erro, nullptr},
        {"item em insercao", true, B, TDataSetState::Insert, nota(true, false), false, TipoMensagem::Erro, nullptr},
        {"lista vazia", true, B, B, nota(true, false), true, TipoMensagem::Erro, "Nenhuma nota sendo exibida"},
        {"empresa zero", true, B, B, nota(true, false, 0), false, TipoMensagem::Erro, nullptr},
        {"nao baixada", true, B, B, nota(false, false), false, TipoMensagem::Erro,
         "A nota não foi baixada. Não precisa ser desbaixada"},
        {"cancelada", true, B, B, nota(true, true), false, TipoMensagem::Info,
         "Esta nota já foi cancelada. Não pode ser desbaixada"},
        {"enviar com item em edicao", false, B, TDataSetState::Edit, nota(true, false), false, TipoMensagem::Erro, nullptr},
        {"enviar sem destino", false, B, B, nota(true, false, 1, 0), false, TipoMensagem::Erro, nullptr},
        {"enviar nao baixada", false, B, B, nota(false, false), false, TipoMensagem::Erro,
         "A nota não foi baixada. Não pode ser exportada"},
        {"enviar cancelada", false, B, B, nota(true, true), false, TipoMensagem::Info,
         "Esta nota já foi cancelada. Não pode ser exportada"},
    };
    int compra = 0;
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nome);
        NotaTeste n = c.nota;
        n.compra = ++compra;
        Preparar(n);
        if (c.listaVazia)
            repD.Notas().EmptyDataSet();
        ASSERT_EQ(db.exec(QStringLiteral("insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, qtd) "
                                         "values (%1, 10, %2, 'E', 2, 5)").arg(n.empr).arg(compra)),
                  QString());
        ASSERT_EQ(db.exec(QStringLiteral("insert into compra_est_mov values (%1, 1, %2, %1, 10, %2)").arg(n.empr).arg(compra)),
                  QString());
        dialogos.Limpar();
        RegistroSql registro;
        const bool fez = c.desbaixar ? acoes.DesbaixarActExecute(repD.NotaAtual(), c.cabec, c.item) : acoes.NotaExportActExecute(repD.NotaAtual(), c.cabec, c.item);
        EXPECT_FALSE(fez);
        EXPECT_TRUE(dialogos.Perguntas().isEmpty());
        if (c.mensagem)
            EXPECT_EQ(dialogos.UnicaMensagem(c.tipo), QString::fromUtf8(c.mensagem));
        else
            EXPECT_TRUE(dialogos.Mensagens().isEmpty());
        EXPECT_TRUE(RegistroSql::Sql().isEmpty()) << RegistroSql::Sql().join('\n').toStdString();
    }
}

TEST_F(AcoesNota, RastroNivel80)
{
    Contexto::Atual().modoDebug = 80;
    NotaTeste n;
    n.baixado = true;
    Preparar(n);
    EXPECT_FALSE(acoes.DesbaixarActExecute(repD.NotaAtual(), B, TDataSetState::Edit));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Simples),
              QStringLiteral("modo debug 80;DesbaixarAct;inicio\r\nItemState<>dsBrowse"));
    dialogos.Limpar();
    EXPECT_FALSE(acoes.NotaExportActExecute(repD.NotaAtual(), B, B));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Simples),
              QStringLiteral("modo debug 80;NotaExportAct;inicio\r\nDESTIN_EMPR_COD<1"));
}

} // namespace
