#include "ComandosHeadless.h"
#include "NotasTeste.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTextStream>

namespace {

class ComandosNota : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        ASSERT_EQ(InserirNota(db, {.compra = 4, .destin = 2, .itens = {Item(1, 2, "3", "15")}}), QString());
    }

    int Rodar(const QStringList &argumentos)
    {
        saida.clear();
        erros.clear();
        QTextStream s(&saida);
        QTextStream e(&erros);
        return ComandosHeadless::Executar(argumentos, s, e);
    }
    // "exit code|what it printed" of the command line, split at blanks.
    QString Rodou(const char *linha) { return QString::number(Rodar(QString::fromUtf8(linha).split(' '))) + '|' + saida + erros; }

    TestDatabase db;
    QString saida;
    QString erros;
};

TEST_F(ComandosNota, UsoErradoBaixarEnviarDesbaixar)
{
    // Wrong usage exits with 2 and moves nothing.
    for (const char *uso : {"post", "post abc", "unpost 1-4 1-5", "send 1-4 --force", "cancel 1-"}) {
        EXPECT_TRUE(Rodou(uso).startsWith("2|")) << uso;
        EXPECT_FALSE(erros.isEmpty()) << uso;
    }
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from est_mov")), "0");
    EXPECT_EQ(Rodou("post 001-0000004"), "0|Nota 001-0000004 baixada\n");
    EXPECT_EQ(Rodou("post 1-4"), "1|informação: Esta nota já foi baixada\n");
    EXPECT_EQ(Rodou("send 1-4"), "0|Nota 001-0000004 enviada à empresa de destino\ninformação: Comando executado\n");
    EXPECT_EQ(Saldo(db, 1, 2) + Saldo(db, 2, 2), "33");
    // A question is answered yes only when asked to.
    EXPECT_TRUE(Rodou("unpost 1-4").startsWith("1|pergunta: Deseja desbaixar o documento 001-0000004 -> não")) << erros.toStdString();
    EXPECT_EQ(Saldo(db, 1, 2), "3");
    EXPECT_TRUE(Rodou("unpost 1-4 --yes").startsWith("0|")) << erros.toStdString();
    EXPECT_EQ(Saldo(db, 1, 2) + Saldo(db, 2, 2), "00");
}

TEST_F(ComandosNota, CancelarNotaInexistenteOuAmbigua)
{
    EXPECT_EQ(Rodou("post 001-0000099"), "1|pavrel post: nota 001-0000099 não encontrada\n");
    ASSERT_EQ(InserirNota(db, {.estacao = 2, .compra = 4, .itens = {}}), QString());
    EXPECT_TRUE(Rodou("cancel 1-4 --yes").startsWith("1|")) << erros.toStdString();
    EXPECT_TRUE(erros.contains(QLatin1String("1-1-4, 1-2-4"))) << erros.toStdString();
    EXPECT_TRUE(Rodou("cancel 1-2-4").startsWith("1|"));
    EXPECT_TRUE(Rodou("cancel --yes 1-2-4").startsWith("0|")) << erros.toStdString();
    EXPECT_EQ(Rodou("cancel 1-2-4 --yes"), "1|erro: Nota já foi cancelada\n");
    EXPECT_EQ(db.valor(QStringLiteral("select list(estacao_cod || cancelado) from (select * from compra order by estacao_cod)")), "1N,2S");
    // What the screen leaves silent still gets a line here.
    EXPECT_EQ(Rodou("send 1-2-4"), "1|pavrel send: nota 001-0000004 sem empresa de destino\n");
}

TEST_F(ComandosNota, NotesMostraUmaLinhaPorNotaERecusaDatasEArgumentosSemSentido)
{
    // Control characters in stored texts: tab, line breaks, an escape sequence, DEL, C1, NUL.
    ASSERT_EQ(db.exec(QStringLiteral("update compra set nfe_justificativa=")
                      + QuotedStr(QString("a\tb\r\nc\x1b[2Jd\x7f") + QChar(0x85) + QChar(0x2028))
                      + QStringLiteral(" || ascii_char(0) || 'e', serie=ascii_char(10) where compra_cod=4")), QString());
    ASSERT_EQ(Rodou("notes --from 0001-01-01 --to 9999-12-31").left(2), "0|") << erros.toStdString();
    const QStringList linhas = saida.split(QLatin1Char('\n'));
    ASSERT_EQ(linhas.size(), 3) << saida.toStdString();
    EXPECT_EQ(linhas[1].count(QLatin1Char('\t')), linhas[0].count(QLatin1Char('\t')));
    EXPECT_TRUE(linhas[1].contains(QStringLiteral("\ta b  c [2Jd    e\t"))) << linhas[1].toStdString();

    // Refused with the reason and the usage line, nothing listed.
    for (const char *linha : {"notes --from -2026-01-01", "notes --from 01/01/-2026", "notes --to 10000-01-01",
                              "notes --to 31/02/2026", "notes 2026", "notes --all-dates extra", "notes --bogus", "notes --to"})
        EXPECT_TRUE(Rodou(linha).startsWith("2|pavrel notes: ") && erros.endsWith("\nuso: pavrel notes [--from DATA] [--to DATA] "
                    "[--all-dates] [--supplier N] [--cancelled todas|nao|sim] [--ndoc N] [--origin todas|manual|xml]\n"))
            << linha << ": " << erros.toStdString();
}

TEST_F(ComandosNota, LeSoANotaPedidaPelaChave)
{
    // Many other notes: the command must not read them to find its own.
    for (int compra = 10; compra < 13; ++compra)
        ASSERT_EQ(InserirNota(db, {.compra = compra, .itens = {}}), QString());
    RegistroSql registro;
    ASSERT_EQ(Rodar({QStringLiteral("post"), QStringLiteral("001-0000004")}), 0) << erros.toStdString();
    const QRegularExpression chave(QStringLiteral("compra_cod=4\\b"), QRegularExpression::CaseInsensitiveOption);
    const QRegularExpression leCompra(QStringLiteral("^select.*\\bfrom compra\\b"),
                                      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    int leituras = 0;
    for (const QString &sql : RegistroSql::Sql()) {
        if (!leCompra.match(sql).hasMatch())
            continue;
        ++leituras;
        EXPECT_TRUE(chave.match(sql).hasMatch()) << sql.toStdString();
    }
    EXPECT_GT(leituras, 0);
}

} // namespace
