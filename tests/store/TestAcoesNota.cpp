#include "Contexto.h"
#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "SincPorArq.h"
#include "TAcoesNota.h"
#include "TRepD.h"

#include <gtest/gtest.h>

namespace {

constexpr auto B = TDataSetState::Browse;

class AcoesNota : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }

    // Writes the note, by default with one item of 5 packages of product 2 costing 25, and shows it current.
    void Preparar(NotaTeste n)
    {
        if (n.itens.isEmpty()) n.itens << Item(n.compra, 2, "5", "25");
        ASSERT_EQ(InserirNota(db, n), QString());
        TFiltroNotas todas; todas.considerarDatas = false; todas.canceladosIndice = 0; todas.origemIndice = 0;
        ASSERT_TRUE(repD.CarregarNotas(todas));
        ASSERT_TRUE(repD.Notas().Locate(QStringLiteral("compra_COD"), n.compra));
    }
    QString Valor(const char *sql) { return db.valor(QLatin1String(sql)); }

    TestDatabase db;
    DialogosTeste dialogos;
    TRepD repD{db.conexao()};
    TAcoesNota acoes{db.conexao()};
};

TEST_F(AcoesNota, RastroNivel80BaixarPassaPelasConferenciasEAsRecusasDeDesbaixarEEnviar)
{
    Contexto::Atual().modoDebug = 80;
    Preparar({.compra = 99, .baixado = true, .itens = {}});
    EXPECT_FALSE(acoes.DesbaixarActExecute(repD.NotaAtual(), B, TDataSetState::Edit));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Simples),
              QStringLiteral("modo debug 80;DesbaixarAct;inicio\r\nItemState<>dsBrowse"));
    dialogos.Limpar();
    EXPECT_FALSE(acoes.NotaExportActExecute(repD.NotaAtual(), B, B));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Simples),
              QStringLiteral("modo debug 80;NotaExportAct;inicio\r\nDESTIN_EMPR_COD<1"));

    Contexto::Atual().modoDebug = 0;
    dialogos.Limpar();
    Preparar({.compra = 21, .baixado = true, .itens = {}});
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), true));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    Preparar({.compra = 22, .itens = {}});
    bool perguntou = false;
    acoes.SetDocAceito([&perguntou] { perguntou = true; return false; });
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_TRUE(perguntou);

    // The totals gate: the header's product total no longer matches the items'.
    acoes.SetDocAceito([] { return true; });
    ASSERT_EQ(db.exec(QStringLiteral("update compra set tot_prods=26 where compra_cod=22")), QString());
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro),
              QStringLiteral("O total de produtos deve ser igual ao total dos itens. A nota não pode ser baixada"));
    EXPECT_EQ(Valor("select count(*) from est_mov"), QLatin1String("0"));
    dialogos.Limpar();

    ASSERT_EQ(db.exec(QStringLiteral("update compra set tot_prods=25 where compra_cod=22")), QString());
    EXPECT_TRUE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_EQ(Valor("select baixado from compra where compra_cod=22") + Saldo(db, 1, 2), QLatin1String("S5"));

    // Each refusal asks nothing, writes nothing, and shows its message or, for a state the screen
    // never offers, nothing at all.
    using enum TDataSetState;
    using enum TipoMensagem;
    const auto nota = [](bool baixado, bool cancelado, int empr = 1, int destin = 2) {
        return NotaTeste{.empr = empr, .destin = destin, .baixado = baixado, .cancelado = cancelado, .itens = {}};
    };
    const struct { const char *nome; bool desbaixar; TDataSetState cabec, item; NotaTeste nota; bool listaVazia;
                   TipoMensagem tipo; const char *mensagem; } casos[] = {
        {"cabecalho em edicao", true, Edit, B, nota(true, false), false, Erro, nullptr},
        {"item em insercao", true, B, Insert, nota(true, false), false, Erro, nullptr},
        {"lista vazia", true, B, B, nota(true, false), true, Erro, "Nenhuma nota sendo exibida"},
        {"empresa zero", true, B, B, nota(true, false, 0), false, Erro, nullptr},
        {"nao baixada", true, B, B, nota(false, false), false, Erro, "A nota não foi baixada. Não precisa ser desbaixada"},
        {"cancelada", true, B, B, nota(true, true), false, Info, "Esta nota já foi cancelada. Não pode ser desbaixada"},
        {"enviar com item em edicao", false, B, Edit, nota(true, false), false, Erro, nullptr},
        {"enviar sem destino", false, B, B, nota(true, false, 1, 0), false, Erro, nullptr},
        {"enviar nao baixada", false, B, B, nota(false, false), false, Erro, "A nota não foi baixada. Não pode ser exportada"},
        {"enviar cancelada", false, B, B, nota(true, true), false, Info, "Esta nota já foi cancelada. Não pode ser exportada"},
    };
    int compra = 0;
    for (const auto &c : casos) {
        SCOPED_TRACE(c.nome);
        NotaTeste n = c.nota;
        n.compra = ++compra;
        Preparar(n);
        if (c.listaVazia)
            repD.Notas().EmptyDataSet();
        dialogos.Limpar();
        RegistroSql registro;
        EXPECT_FALSE(c.desbaixar ? acoes.DesbaixarActExecute(repD.NotaAtual(), c.cabec, c.item)
                                 : acoes.NotaExportActExecute(repD.NotaAtual(), c.cabec, c.item));
        if (c.mensagem)
            EXPECT_EQ(dialogos.UnicaMensagem(c.tipo), QString::fromUtf8(c.mensagem));
        else
            EXPECT_TRUE(dialogos.Mensagens().isEmpty());
        EXPECT_EQ(RegistroSql::ComInicio(QStringLiteral("select")), RegistroSql::Sql());
    }
}

// Another workstation holds the note, or posted it after this one read the list: nothing is written.
TEST_F(AcoesNota, NotaEmOutraEstacao)
{
    Preparar({.compra = 31, .itens = {}});
    const auto outra = SincPorArq_Create(QStringLiteral("Retag Compra Baixa 1-1-31"), QStringLiteral("outra"),
                                         QStringLiteral("teste"), 0, false);
    ASSERT_TRUE(outra->Adquirir()) << outra->UltimoErro().toStdString();
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro),
              QStringLiteral("A nota 001-0000031 está sendo baixada ou desbaixada em outra estação. "
                             "Nada foi feito; tente de novo em alguns instantes."));
    outra->Liberar();
    ASSERT_EQ(db.exec(QStringLiteral("update compra set baixado='S' where compra_cod=31")), QString());
    dialogos.Limpar();
    EXPECT_FALSE(acoes.BaixouNota(repD.NotaAtual(), false));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QStringLiteral("Esta nota já foi baixada"));
    EXPECT_EQ(Valor("select count(*) from est_mov"), QLatin1String("0"));
}

} // namespace
