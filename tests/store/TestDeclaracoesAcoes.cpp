#include "Contexto.h"
#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "TAcoesNota.h"
#include "TClientDataSet.h"
#include "TRepD.h"
#include "TestDatabase.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

// The statements of posting, cancelling, unposting and sending, character by character, against
// a recorded run: any change to what these actions send must be deliberate. To record anew, run
// with PAVREL_GRAVAR_DECLARACOES=1 and review the file's diff.
const QString Arquivo = QStringLiteral(PAVREL_TESTS_DIR "/store/AcoesNota.sql");

TEST(DeclaracoesAcoes, MesmosTextosNaMesmaOrdem)
{
    TestDatabase db;
    ASSERT_TRUE(db.ok()) << db.erro().toStdString();
    Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 20), QTime(10, 30)); });
    DialogosTeste dialogos;

    NotaTeste entrada{.estacao = 10, .itens = {Item(1, 1, "2", "20", {{1, "15"}, {2, "14"}}), Item(2, 3, "1", "30.5")}};
    entrada.itens[0].infoAdic = QStringLiteral("lote d'água");
    entrada.itens[1].vipi = QStringLiteral("1.2");
    const NotaTeste producao{.compra = 2, .tipo = 37, .itens = {Item(3, 2, "3", "9")}};
    const NotaTeste remessa{.compra = 3, .tipo = 36, .destin = 2, .baixado = true, .itens = {Item(4, 1, "1", "10")}};
    for (const NotaTeste &n : {entrada, producao, remessa})
        ASSERT_EQ(InserirNota(db, n), QString());
    // A production note takes the items' total as its own.
    ASSERT_EQ(db.exec(QStringLiteral("update compra set tot_prods=1, tot=1 where compra_cod=2")), QString());

    TRepD repD(db.conexao());
    TFiltroNotas todas;
    todas.considerarDatas = false;
    todas.canceladosIndice = todas.origemIndice = 0;
    TAcoesNota acoes(db.conexao());

    QStringList enviadas;
    const auto agir = [&](const char *nome, int compra, const std::function<bool()> &acao) {
        ASSERT_TRUE(repD.CarregarNotas(todas));
        ASSERT_TRUE(repD.Notas().Locate(QStringLiteral("compra_COD"), compra));
        RegistroSql registro;
        EXPECT_TRUE(acao()) << nome;
        enviadas << QStringLiteral("-- ") + QLatin1String(nome) << RegistroSql::Sql();
    };
    agir("post", 1, [&] { return acoes.BaixouNota(repD.NotaAtual(), false); });
    agir("post", 2, [&] { return acoes.BaixouNota(repD.NotaAtual(), false); });
    dialogos.Responder(true);
    agir("unpost", 1, [&] { return acoes.DesbaixarActExecute(repD.NotaAtual(), TDataSetState::Browse, TDataSetState::Browse); });
    agir("send", 3, [&] { return acoes.NotaExportActExecute(repD.NotaAtual(), TDataSetState::Browse, TDataSetState::Browse); });
    dialogos.Responder(true);
    agir("cancel", 1, [&] { return acoes.CancelarNota(repD.NotaAtual()); });

    const QString obtido = enviadas.join(QLatin1String("\n;\n")) + QLatin1Char('\n');
    if (qEnvironmentVariableIsSet("PAVREL_GRAVAR_DECLARACOES")) {
        QFile f(Arquivo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(obtido.toUtf8());
    }
    QFile gravado(Arquivo);
    const QStringList esperado = (gravado.open(QIODevice::ReadOnly) ? QString::fromUtf8(gravado.readAll()) : QString()).split(QLatin1String("\n;\n"));
    const QStringList atual = obtido.split(QLatin1String("\n;\n"));
    ASSERT_GT(esperado.size(), 20) << "no recorded run in " << Arquivo.toStdString();
    for (qsizetype i = 0; i < std::min(esperado.size(), atual.size()); ++i)
        ASSERT_EQ(atual[i], esperado[i]) << "statement " << i;
    EXPECT_EQ(atual.size(), esperado.size());
}

} // namespace
