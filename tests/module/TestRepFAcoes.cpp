#include "TelaTeste.h"

#include <QAction>

namespace {

// A purchase entry of company 1 with one staged item of product 1 that agrees with its header.
class RepFAcoes : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        sql(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, serie, fornec_cod, "
                           "tot_prods, tot) values (1, 10, 345, '\"', '2026-11-10', 77, '1', 1, 20, 20);"
                           "insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod, "
                           "unid_cod, trib_cod, ordem, emb_qtd, qtd_embs, custo_tot) values (1, 10, 345, 1, 1, 1, 1, 1, 1, 2, 20);"
                           "insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, "
                           "preco) values (1, 10, 1, 1, 15);"));
        tela = AbrirTela();
        ASSERT_EQ(tela->RepD().Notas().RecordCount(), 1);
    }

    void acionar(const char *acao)
    {
        dialogos.Limpar();
        QAction *a = tela->Acao(QLatin1String(acao));
        ASSERT_TRUE(a->isEnabled()) << acao;
        a->trigger();
    }
    // "posted cancelled stock moves" as stored.
    QString banco() { return db.valor(QStringLiteral("select baixado || cancelado || ' ' || (select count(*) from compra_est_mov) from compra")); }

    std::unique_ptr<TRepF> tela;
};

TEST_F(RepFAcoes, PostUnpostAndCancelThroughTheirActions)
{
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
