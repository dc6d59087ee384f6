#include "Firebird.h"
#include "SincPorArq.h"
#include "TConexD.h"
#include "TestDatabase.h"
#include "Valores.h"

#include <QElapsedTimer>
#include <QTcpServer>

#include <gtest/gtest.h>

#include <thread>

namespace {

class ConexaoSQL : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }
    TestDatabase db{TestDatabase::Conteudo::SoEsquema};
};

TEST_F(ConexaoSQL, NestedCallsShareAnAttachmentTextsTakeEffectAsTheyRunAndColumnsArriveExactly)
{
    TConexaoSQL a(db.banco()), b(db.banco());
    ASSERT_TRUE(a.Conectar() && a.Conectar()) << a.UltimoErro().toStdString();
    a.Desconectar();
    EXPECT_TRUE(a.Conectado()) << "one of two nested calls ended";
    ASSERT_TRUE(b.Conectar());
    EXPECT_NE(a.NomeConexao(), b.NomeConexao()) << "two holders get two attachments";
    a.Desconectar(); b.Desconectar();
    EXPECT_FALSE(a.Conectado());

    const int antes = TConexaoSQL::AnexacoesAbertas();
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(a.Conectar());
        a.Desconectar();
        ASSERT_EQ(TConexaoSQL(db.banco()).ValorInt(QStringLiteral("select 1 from RDB$DATABASE")), 1);
    }
    EXPECT_EQ(TConexaoSQL::AnexacoesAbertas(), antes);

    // Written on one connection and read on another: each statement commits as it runs, and quoted
    // texts arrive intact.
    TConexaoSQL escreve(db.banco()), le(db.banco());
    ASSERT_TRUE(escreve.Conectar() && le.Conectar());
    const QStringList textos = {QStringLiteral("D'Ávila & Cia; Ltda"), QStringLiteral("''"),
                                QStringLiteral("x'); delete from config; --"), QStringLiteral("ÇÃO ção ü")};
    for (const QString &texto : textos) {
        const QString chave = QuotedStr(QString::number(textos.indexOf(texto)));
        ASSERT_TRUE(escreve.Exec(QStringLiteral("insert into config (chave, valor) values (%1, %2)").arg(chave, QuotedStr(texto))))
            << escreve.UltimoErro().toStdString();
        EXPECT_EQ(le.ValorStr(QStringLiteral("select valor from config where chave=") + chave), texto);
    }
    EXPECT_EQ(le.ValorInt(QStringLiteral("select count(*) from config")), textos.size());

    // The smallest amounts, a negative one below one: exact, and printed without an exponent.
    TConexaoSQL conexao(db.banco());
    const auto q = conexao.Ab(QStringLiteral("select cast('0.0005' as numeric(18,4)) as c0, cast('-0.0001' as numeric(18,4)) as c1 from RDB$DATABASE"));
    ASSERT_TRUE(q && !q->Eof()) << conexao.UltimoErro().toStdString();
    EXPECT_EQ(q->Fields(0).AsString() + ' ' + q->Fields(1).AsString(), QStringLiteral("0.0005 -0.0001"));
    EXPECT_EQ(std::pair(q->FieldByName(QStringLiteral("c0")).AsMoney(), q->FieldByName(QStringLiteral("c1")).AsMoney()),
              std::pair(Money::fromRaw(5), Money::fromRaw(-1)));
    EXPECT_THROW(q->FieldByName(QStringLiteral("nao_existe")), std::invalid_argument);
}

TEST_F(ConexaoSQL, FailuresReturnTheDriverTextGeneratorsTheirStepAndServersWhetherTheyAnswer)
{
    TConexaoSQL conexao(db.banco());
    EXPECT_FALSE(conexao.Exec(QStringLiteral("insert into tabela_inexistente values (1)")));
    EXPECT_TRUE(conexao.UltimoErro().contains(QStringLiteral("TABELA_INEXISTENTE"), Qt::CaseInsensitive))
        << conexao.UltimoErro().toStdString();
    EXPECT_TRUE(conexao.Ab(QStringLiteral("select x from y")) == nullptr && !conexao.Conectado());
    EXPECT_EQ(conexao.ValorInt(QStringLiteral("select x from y"), -5), -5);

    TConexaoSQL semBanco(TDadosBanco{QStringLiteral("/nonexistent/pavrel.fdb")});
    EXPECT_FALSE(semBanco.Conectar() || semBanco.Exec(QStringLiteral("select 1 from RDB$DATABASE")));
    EXPECT_TRUE(semBanco.UltimoErro().contains(QStringLiteral("/nonexistent/pavrel.fdb"))) << semBanco.UltimoErro().toStdString();

    // Generators advance by their step.
    const qint64 primeiro = conexao.ProximoGenerator(QStringLiteral("compra_g"));
    const qint64 segundo = conexao.ProximoGenerator(QStringLiteral("compra_g"));
    EXPECT_EQ(std::pair(segundo, conexao.ProximoGenerator(QStringLiteral("compra_g"), 10)), std::pair(primeiro + 1, primeiro + 11));

    // A server answers whether it is a file or a port.
    EXPECT_TRUE(TTerminalModoOper::ConectouServidor(db.caminho())
                && !TTerminalModoOper::ConectouServidor(QStringLiteral("/nonexistent/x.fdb")));
    QTcpServer servidor;
    ASSERT_TRUE(servidor.listen(QHostAddress::LocalHost));
    const QString endereco = QStringLiteral("127.0.0.1/%1:/dados/x.fdb").arg(servidor.serverPort());
    EXPECT_TRUE(TTerminalModoOper::ConectouServidor(endereco));
    servidor.close();
    EXPECT_FALSE(TTerminalModoOper::ConectouServidor(endereco));
}

TEST_F(ConexaoSQL, EveryColumnTypeArrivesExactlyAndAnAmountBeyondTheMoneyColumnsIsRefused)
{
    TConexaoSQL conexao(db.banco());
    const auto q = conexao.Ab(QStringLiteral(
        "select cast('99999999999999.9999' as numeric(18,4)) as maior, cast('-99999999999999.9999' as numeric(18,4)), "
        "cast(12.50 as numeric(9,2)), cast(-3.5 as numeric(4,1)), cast(7 as bigint), cast(-5 as smallint), "
        "cast(0.1 as double precision), cast('São ' as char(6)), cast('x ' as varchar(5)), cast(null as integer), "
        "cast('2026-11-20' as date), cast('23:59:58.5' as time), cast('2026-11-20 10:30:15.25' as timestamp) "
        "from RDB$DATABASE"));
    ASSERT_TRUE(q && q->RecordCount() == 1) << conexao.UltimoErro().toStdString();
    QStringList textos;
    for (int i = 0; i < q->FieldCount(); ++i)
        textos << q->Fields(i).AsString();
    EXPECT_EQ(textos, (QStringList{"99999999999999.9999", "-99999999999999.9999", "12.5", "-3.5", "7", "-5", "0.1",
                                   "São", "x ", "", "2026-11-20", "23:59:58.500", "2026-11-20 10:30:15"}));
    EXPECT_EQ(q->FieldByName(QStringLiteral("MAIOR")).AsMoney().raw(), Money::MaxColunaRaw);
    EXPECT_EQ(q->Fields(1).AsMoney().raw(), -Money::MaxColunaRaw);
    EXPECT_TRUE(q->Fields(9).IsNull() && q->Fields(12).AsDateTime().time().msec() == 250);

    for (const char *grande : {"100000000000000", "-922337203685477.5807"}) {
        EXPECT_EQ(conexao.Ab(QStringLiteral("select cast('%1' as numeric(18,4)) as grande from RDB$DATABASE").arg(grande)), nullptr);
        EXPECT_TRUE(conexao.UltimoErro().contains(QLatin1String("GRANDE")) && conexao.UltimoErro().contains(QLatin1String(grande)))
            << conexao.UltimoErro().toStdString();
    }
    const auto d = conexao.Ab(QStringLiteral("select cast(1e15 as double precision) from RDB$DATABASE"));
    ASSERT_TRUE(d);
    EXPECT_EQ(d->Fields(0).AsMoney(), Money());

    // A text blob longer than one segment, read whole (one literal holds at most 16383 characters).
    const QString pedaco(8000, QChar(0x00E7));
    ASSERT_EQ(db.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, arq_xml) values "
                                     "(1, 1, 1, '\"', cast('<nfe>' as blob sub_type text) || '%1' || '%1' || '%1' || '</nfe>')")
                          .arg(pedaco)), QString());
    const QString xml = QStringLiteral("<nfe>") + pedaco + pedaco + pedaco + QStringLiteral("</nfe>");
    EXPECT_EQ(conexao.ValorStr(QStringLiteral("select arq_xml from compra")), xml);
}

// Another station's transaction holding a row, through the client layer itself.
struct Retentor
{
    explicit Retentor(const TDadosBanco &banco, const QString &sql)
    {
        ok = anexacao.Anexar(banco, &falha) && anexacao.Iniciar({}, &falha) && anexacao.Executar(sql, nullptr, &falha);
    }
    Firebird::TAnexacao anexacao;
    Firebird::Falha falha;
    bool ok = false;
};

TEST_F(ConexaoSQL, ARowHeldElsewhereIsWaitedForBoundedNamedByTableAndAConflictIsTriedAgain)
{
    ASSERT_EQ(db.exec(QStringLiteral("insert into config (chave, valor) values ('K', 'a')")), QString());
    TConexaoSQL::DefinirEsperaTrava(1);
    const auto restaurar = qScopeGuard([] { TConexaoSQL::DefinirEsperaTrava(10); });
    TConexaoSQL conexao(db.banco());
    {
        Retentor outra(db.banco(), QStringLiteral("update config set valor='b' where chave='K'"));
        ASSERT_TRUE(outra.ok) << outra.falha.texto.toStdString();
        for (const char *sql : {"update config set valor='c' where chave='K'", "DELETE FROM Config where chave='K'",
                                "execute block as begin update or insert into config (chave, valor) values ('K', 'd') matching (chave); end"}) {
            QElapsedTimer tempo;
            tempo.start();
            EXPECT_FALSE(conexao.Exec(QLatin1String(sql)));
            EXPECT_LT(tempo.elapsed(), 5000);
            EXPECT_EQ(conexao.UltimoErro(),
                      QStringLiteral("O registro de CONFIG está em uso em outra estação. Tente novamente em alguns instantes."));
        }
    }
    // The other station commits while this one waits: the update conflicts and goes through again.
    TConexaoSQL::DefinirEsperaTrava(3);
    Retentor outra(db.banco(), QStringLiteral("update config set valor='e' where chave='K'"));
    ASSERT_TRUE(outra.ok);
    std::thread confirma([&outra] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        outra.anexacao.Confirmar(&outra.falha);
    });
    EXPECT_TRUE(conexao.Exec(QStringLiteral("update config set valor=valor || 'f' where chave='K'"))) << conexao.UltimoErro().toStdString();
    confirma.join();
    EXPECT_EQ(conexao.ValorStr(QStringLiteral("select valor from config where chave='K'")), QStringLiteral("ef"));
}

TEST_F(ConexaoSQL, AnAttachmentKilledOnTheServerIsReplacedOnItsNextStatement)
{
    TConexaoSQL vitima(db.banco()), outra(db.banco());
    ASSERT_TRUE(vitima.Conectar() && outra.Conectar());
    const QString sqlId = QStringLiteral("select current_connection from RDB$DATABASE");
    for (const char *proximo : {"select current_connection from RDB$DATABASE", "insert into config (chave) values ('Z')"}) {
        const int id = vitima.ValorInt(sqlId);
        const int abertas = TConexaoSQL::AnexacoesAbertas();
        ASSERT_TRUE(outra.Exec(QStringLiteral("delete from mon$attachments where mon$attachment_id=%1").arg(id))) << outra.UltimoErro().toStdString();
        EXPECT_TRUE(vitima.Exec(QLatin1String(proximo))) << vitima.UltimoErro().toStdString();
        EXPECT_EQ(TConexaoSQL::AnexacoesAbertas(), abertas + 1);
        EXPECT_NE(vitima.ValorInt(sqlId), id);
    }

    // Killed while running: the select is run again, the write is not (it may have been recorded).
    const auto matarEm = [&](int id) {
        return std::thread([id, banco = db.banco()] {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            TConexaoSQL(banco).Exec(QStringLiteral("delete from mon$attachments where mon$attachment_id=%1").arg(id));
        });
    };
    const QString demorada = QStringLiteral("select count(*) from rdb$types a, rdb$types b, (select first 60 1 as x from rdb$types) c");
    std::thread matar = matarEm(vitima.ValorInt(sqlId));
    EXPECT_GT(vitima.ValorInt(demorada), 0) << vitima.UltimoErro().toStdString();
    matar.join();
    matar = matarEm(vitima.ValorInt(sqlId));
    EXPECT_FALSE(vitima.Exec(QStringLiteral("execute block as declare i integer = 0; begin while (i < 100000000) do i = i + 1; "
                                            "insert into config (chave) values ('L'); end")));
    matar.join();
    EXPECT_TRUE(vitima.UltimoErro().startsWith(QStringLiteral("A conexão com o banco de dados %1 caiu durante a gravação; "
                                                              "confira se a alteração foi gravada: execute block as").arg(db.caminho())))
        << vitima.UltimoErro().toStdString();
    EXPECT_EQ(vitima.ValorInt(QStringLiteral("select count(*) from config where chave='L'")), 0);
    vitima.Desconectar();
    outra.Desconectar();
}

TEST_F(ConexaoSQL, ANamedLockWaitsItsSecondsAndIsFreedByReleaseOrDestruction)
{
    auto primeira = SincPorArq_Create(QStringLiteral("Retag Compra Baixa 1"), QStringLiteral("baixa"), QStringLiteral("TRepF"), 1, false);
    auto segunda = SincPorArq_Create(QStringLiteral("Retag Compra Baixa 1"), QStringLiteral("baixa"), QStringLiteral("TRepF"), 1, false);
    auto outroNome = SincPorArq_Create(QStringLiteral("Retag Compra Baixa 2"), QString(), QString(), 1, false);
    ASSERT_TRUE(primeira->Adquirir()) << primeira->UltimoErro().toStdString();
    EXPECT_TRUE(outroNome->Adquirir()) << outroNome->UltimoErro().toStdString();
    QElapsedTimer tempo;
    tempo.start();
    EXPECT_FALSE(segunda->Adquirir());
    EXPECT_TRUE(tempo.elapsed() >= 950 && tempo.elapsed() < 1500) << tempo.elapsed();
    EXPECT_TRUE(segunda->UltimoErro().contains(QLatin1String("Retag Compra Baixa 1"))) << segunda->UltimoErro().toStdString();
    primeira->Liberar();
    EXPECT_TRUE(segunda->Adquirir()) << segunda->UltimoErro().toStdString();
    segunda.reset();
    EXPECT_TRUE(primeira->Adquirir()) << primeira->UltimoErro().toStdString();
}

} // namespace
