#include "TelaTeste.h"
#include "DialogosTeste.h"
#include "TClientDataSet.h"
#include "TRepF.h"
#include "TestDatabase.h"

#include <QAction>
#include <QApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// A purchase entry of company 1 with one staged item of product 1 that agrees with its header.
class RepFAcoes : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        ASSERT_EQ(db.execScript(QStringLiteral(
                      "insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, serie, fornec_cod, "
                      "tot_prods, tot) values (1, 10, 345, '\"', '2026-11-10', 77, '1', 1, 20, 20);"
                      "insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod, "
                      "unid_cod, trib_cod, ordem, emb_qtd, qtd_embs, custo_tot) values (1, 10, 345, 1, 1, 1, 1, 1, 1, 2, 20);"
                      "insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, "
                      "preco) values (1, 10, 1, 1, 15);")),
                  QString());
        tela = AbrirTela();
        ASSERT_EQ(tela->RepD().Notas().RecordCount(), 1);
    }

    void acionar(const char *acao)
    {
        QAction *a = tela->Acao(QLatin1String(acao));
        ASSERT_TRUE(a->isEnabled()) << acao;
        a->trigger();
    }
    QString banco(const char *sql) { return db.valor(QLatin1String(sql)); }

    TestDatabase db;
    DialogosTeste dialogos;
    std::unique_ptr<TRepF> tela;
};

TEST_F(RepFAcoes, PostUnpostAndPostAgain)
{
    acionar("BaixarAct");
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().first().texto.toStdString();
    EXPECT_EQ(banco("select baixado from compra"), QStringLiteral("S"));
    EXPECT_TRUE(tela->NotaAtualBaixada());
    const QString movimentos = banco("select count(*) from compra_est_mov");
    EXPECT_EQ(movimentos, QStringLiteral("1"));

    acionar("BaixarAct");
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QStringLiteral("Esta nota já foi baixada"));
    dialogos.Limpar();

    dialogos.Responder(true);
    acionar("DesbaixarAct");
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas().first().texto, QStringLiteral("Deseja desbaixar o documento 001-0000345"));
    EXPECT_EQ(banco("select baixado from compra"), QStringLiteral("N"));
    EXPECT_EQ(banco("select count(*) from compra_est_mov"), QStringLiteral("0"));

    acionar("BaixarAct");
    EXPECT_EQ(banco("select baixado from compra"), QStringLiteral("S"));
    EXPECT_EQ(banco("select count(*) from compra_est_mov"), movimentos);
    EXPECT_TRUE(tela->Acao(QStringLiteral("BaixarAct"))->isEnabled());
}

TEST_F(RepFAcoes, CancellingAsksOnceAndOnlyOnce)
{
    dialogos.Responder(true);
    acionar("CancAct");
    EXPECT_EQ(banco("select cancelado from compra"), QStringLiteral("S"));
    EXPECT_EQ(dialogos.Perguntas().size(), 1);
    dialogos.Limpar();
    acionar("CancAct");
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Nota já foi cancelada"));
    EXPECT_TRUE(dialogos.Perguntas().isEmpty());
}


} // namespace
