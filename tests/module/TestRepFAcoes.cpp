#include "TelaTeste.h"

#include <QAction>

namespace {

using RepFAcoes = TelaTeste;

// A purchase entry of station 10 with one staged item that agrees with its header.
TEST_F(RepFAcoes, PostUnpostAndCancelThroughTheirActions)
{
    NotaTeste n;
    n.estacao = 10;
    n.compra = 345;
    n.itens = {ItemTeste()};
    n.itens[0].qtdEmbs = QStringLiteral("2");
    n.itens[0].custoTot = QStringLiteral("20");
    n.itens[0].precos = {{1, QStringLiteral("15")}};
    ASSERT_EQ(InserirNota(db, n), QString());
    sql(QStringLiteral("update compra_item_tmp set unid_cod=1, trib_cod=1"));
    auto tela = AbrirTela();
    ASSERT_EQ(tela->RepD().Notas().RecordCount(), 1);
    const auto acionar = [&](const char *acao) {
        dialogos.Limpar();
        QAction *a = tela->Acao(QLatin1String(acao));
        EXPECT_TRUE(a->isEnabled()) << acao;
        a->trigger();
    };
    // "posted cancelled stock moves" as stored.
    const auto banco = [&] { return db.valor(QStringLiteral("select baixado || cancelado || ' ' || (select count(*) from compra_est_mov) from compra")); };

    acionar("BaixarAct");
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(banco(), "SN 1");
    EXPECT_TRUE(tela->NotaAtualBaixada());
    acionar("BaixarAct");
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), "Esta nota já foi baixada");

    dialogos.Responder(true);
    acionar("DesbaixarAct");
    EXPECT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().value(0).texto, "Deseja desbaixar o documento 001-0000345");
    EXPECT_EQ(banco(), "NN 0");

    dialogos.Responder(true);
    acionar("CancAct");
    EXPECT_EQ(dialogos.Perguntas().size(), 1);
    acionar("CancAct");
    EXPECT_EQ(banco(), "NS 0");
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), "Nota já foi cancelada");
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());
}

} // namespace
