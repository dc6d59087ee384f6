#include "ComandosHeadless.h"
#include "NotasTeste.h"
#include "RegistroSql.h"
#include "TestDatabase.h"

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
        NotaTeste n;
        n.compra = 4;
        n.destin = 2;
        ItemTeste i;
        i.prod = 2;
        i.qtdEmbs = QStringLiteral("3");
        i.custoTot = QStringLiteral("15");
        n.itens = {i};
        ASSERT_EQ(InserirNota(db, n), QString());
    }

    int Rodar(const QStringList &argumentos)
    {
        saida.clear();
        erros.clear();
        QTextStream s(&saida);
        QTextStream e(&erros);
        return ComandosHeadless::Executar(argumentos, s, e);
    }
    QString Valor(const QString &sql) { return db.valor(sql); }

    TestDatabase db;
    QString saida;
    QString erros;
};

TEST_F(ComandosNota, BaixarEnviarDesbaixar)
{
    EXPECT_EQ(Rodar({QStringLiteral("post"), QStringLiteral("001-0000004")}), 0) << erros.toStdString();
    EXPECT_EQ(saida, QStringLiteral("Nota 001-0000004 baixada\n"));
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("3"));

    EXPECT_EQ(Rodar({QStringLiteral("post"), QStringLiteral("1-4")}), 1);
    EXPECT_EQ(erros, QStringLiteral("informação: Esta nota já foi baixada\n"));

    EXPECT_EQ(Rodar({QStringLiteral("send"), QStringLiteral("1-4")}), 0) << erros.toStdString();
    EXPECT_EQ(erros, QStringLiteral("informação: Comando executado\n"));
    EXPECT_EQ(Saldo(db, 2, 2), QLatin1String("3"));

    // A question is answered yes only when asked to.
    EXPECT_EQ(Rodar({QStringLiteral("unpost"), QStringLiteral("1-4")}), 1);
    EXPECT_TRUE(erros.startsWith(QStringLiteral("pergunta: Deseja desbaixar o documento 001-0000004 -> não")))
        << erros.toStdString();
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("3"));
    EXPECT_EQ(Rodar({QStringLiteral("unpost"), QStringLiteral("1-4"), QStringLiteral("--yes")}), 0) << erros.toStdString();
    EXPECT_EQ(Saldo(db, 1, 2), QLatin1String("0"));
    EXPECT_EQ(Saldo(db, 2, 2), QLatin1String("0"));
}

TEST_F(ComandosNota, CancelarPedeConfirmacao)
{
    EXPECT_EQ(Rodar({QStringLiteral("cancel"), QStringLiteral("001-0000004")}), 1);
    EXPECT_EQ(Valor(QStringLiteral("select cancelado from compra")), QLatin1String("N"));
    EXPECT_EQ(Rodar({QStringLiteral("cancel"), QStringLiteral("--yes"), QStringLiteral("001-0000004")}), 0);
    EXPECT_EQ(Valor(QStringLiteral("select cancelado from compra")), QLatin1String("S"));
    EXPECT_EQ(Rodar({QStringLiteral("cancel"), QStringLiteral("001-0000004"), QStringLiteral("--yes")}), 1);
    EXPECT_EQ(erros, QStringLiteral("erro: Nota já foi cancelada\n"));
}

TEST_F(ComandosNota, NotaInexistenteOuAmbigua)
{
    EXPECT_EQ(Rodar({QStringLiteral("post"), QStringLiteral("001-0000099")}), 1);
    EXPECT_EQ(erros, QStringLiteral("pavrel post: nota 001-0000099 não encontrada\n"));

    NotaTeste outra;
    outra.estacao = 2;
    outra.compra = 4;
    ASSERT_EQ(InserirNota(db, outra), QString());
    EXPECT_EQ(Rodar({QStringLiteral("cancel"), QStringLiteral("1-4"), QStringLiteral("--yes")}), 1);
    EXPECT_TRUE(erros.contains(QLatin1String("1-1-4, 1-2-4"))) << erros.toStdString();
    EXPECT_EQ(Rodar({QStringLiteral("cancel"), QStringLiteral("1-2-4"), QStringLiteral("--yes")}), 0) << erros.toStdString();
    EXPECT_EQ(Valor(QStringLiteral("select list(estacao_cod || cancelado) from (select * from compra order by estacao_cod)")),
              QLatin1String("1N,2S"));
    // What the screen leaves silent still gets a line here.
    EXPECT_EQ(Rodar({QStringLiteral("send"), QStringLiteral("1-2-4")}), 1);
    EXPECT_EQ(erros, QStringLiteral("pavrel send: nota 001-0000004 sem empresa de destino\n"));
}

TEST_F(ComandosNota, UsoErradoSai2)
{
    const QList<QStringList> usos = {
        {QStringLiteral("post")},
        {QStringLiteral("post"), QStringLiteral("abc")},
        {QStringLiteral("unpost"), QStringLiteral("1-4"), QStringLiteral("1-5")},
        {QStringLiteral("send"), QStringLiteral("1-4"), QStringLiteral("--force")},
        {QStringLiteral("cancel"), QStringLiteral("1-")},
    };
    for (const QStringList &uso : usos) {
        SCOPED_TRACE(uso.join(' ').toStdString());
        EXPECT_EQ(Rodar(uso), 2);
        EXPECT_FALSE(erros.isEmpty());
    }
    EXPECT_EQ(Valor(QStringLiteral("select count(*) from est_mov")), QLatin1String("0"));
}

TEST_F(ComandosNota, LeSoANotaPedidaPelaChave)
{
    // Many other notes: the command must not read them to find its own.
    for (int compra = 10; compra < 13; ++compra) {
        NotaTeste outra;
        outra.compra = compra;
        ASSERT_EQ(InserirNota(db, outra), QString());
    }
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
