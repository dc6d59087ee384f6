#include "NotasTeste.h"
#include "ServidorTeste.h"
#include "TConexaoSQL.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>

namespace {

constexpr int ItensPorNota = 12;

// The notes of a round share their products, so that two stations collide on the same costs.
NotaTeste notaDaRodada(int compra)
{
    NotaTeste n;
    n.compra = compra;
    for (int i = 0; i < ItensPorNota; ++i) {
        ItemTeste item;
        item.cod = compra * 100 + i;
        item.prod = 1 + i % 2;
        item.qtdEmbs = QString::number(1 + i);
        item.custoTot = QString::number(10 * (1 + i));
        item.precos = {{1, QStringLiteral("9.99")}};
        n.itens << item;
    }
    return n;
}

class Servidor : public ::testing::Test
{
protected:
    // Notes 1..quantas written on the embedded engine, then served by the test's own server.
    void Publicar(int quantas)
    {
        ASSERT_TRUE(servidor.ok()) << servidor.erro().toStdString();
        TestDatabase db;
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        for (int c = 1; c <= quantas; ++c)
            ASSERT_EQ(InserirNota(db, notaDaRodada(c)), QString());
        TConexaoSQL::FecharOciosas(db.caminho());
        banco = servidor.Publicar(db.caminho(), QStringLiteral("estacoes.fdb"));
        ASSERT_TRUE(servidor.ok()) << servidor.erro().toStdString();
        conexao = std::make_unique<TConexaoSQL>(banco);
    }

    // Another workstation: the real executable on the same database.
    std::unique_ptr<QProcess> Estacao(const QStringList &argumentos)
    {
        auto p = std::make_unique<QProcess>();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        p->setProcessEnvironment(env);
        p->setProcessChannelMode(QProcess::MergedChannels);
        p->start(QStringLiteral(PAVREL_EXE), QStringList{QStringLiteral("--database"), banco.database} + argumentos);
        return p;
    }

    // Exit code and output of stations started together.
    QStringList Juntas(const QList<QStringList> &comandos)
    {
        std::vector<std::unique_ptr<QProcess>> estacoes;
        for (const QStringList &c : comandos)
            estacoes.push_back(Estacao(c));
        QStringList saidas;
        for (auto &p : estacoes) {
            p->waitForFinished(120000);
            saidas << QString::number(p->exitCode()) + '|' + QString::fromUtf8(p->readAll()).trimmed();
        }
        return saidas;
    }

    QString Valor(const QString &sql) { return conexao->ValorStr(sql); }
    QString MovimentosDa(int compra)
    {
        return Valor(QStringLiteral("select count(*) from compra_est_mov where compra_cod=%1").arg(compra));
    }

    ServidorTeste servidor;
    TDadosBanco banco;
    std::unique_ptr<TConexaoSQL> conexao;
};

TEST_F(Servidor, DuasEstacoesBaixandoNotasDosMesmosProdutos)
{
    constexpr int Rodadas = 10;
    Publicar(2 * Rodadas);
    for (int r = 0; r < Rodadas; ++r) {
        const QString a = QStringLiteral("1-%1").arg(2 * r + 1), b = QStringLiteral("1-%1").arg(2 * r + 2);
        for (const QString &saida : Juntas({{QStringLiteral("post"), a}, {QStringLiteral("post"), b}}))
            EXPECT_TRUE(saida.startsWith(QLatin1String("0|"))) << "rodada " << r << ": " << saida.toStdString();
    }
    for (int c = 1; c <= 2 * Rodadas; ++c) {
        EXPECT_EQ(MovimentosDa(c), QString::number(ItensPorNota)) << "nota " << c;
        EXPECT_EQ(Valor(QStringLiteral("select baixado from compra where compra_cod=%1").arg(c)), "S") << c;
    }
    // Odd quantities went to product 1 and even ones to product 2, in every note.
    EXPECT_EQ(Valor(QStringLiteral("select list(cast(qtd as integer)) from (select qtd from est_saldo where empr_cod=1 order by prod_cod)")),
              QStringLiteral("%1,%2").arg(36 * 2 * Rodadas).arg(42 * 2 * Rodadas));
}

TEST_F(Servidor, AMesmaNotaPorDuasEstacoesEBaixadaUmaVez)
{
    Publicar(3);
    for (int c = 1; c <= 3; ++c) {
        const QStringList comando{QStringLiteral("post"), QStringLiteral("1-%1").arg(c)};
        const QStringList saidas = Juntas({comando, comando});
        EXPECT_EQ(saidas.filter(QRegularExpression(QStringLiteral("^0\\|"))).size(), 1) << saidas.join('\n').toStdString();
        EXPECT_EQ(MovimentosDa(c), QString::number(ItensPorNota)) << "nota " << c;
    }
}

TEST_F(Servidor, ReiniciadoSobConexaoAbertaOProximoComandoFunciona)
{
    Publicar(1);
    ASSERT_TRUE(conexao->Conectar()) << conexao->UltimoErro().toStdString();
    EXPECT_EQ(Valor(QStringLiteral("select count(*) from compra")), "1");
    ASSERT_TRUE(servidor.Parar());
    ASSERT_TRUE(servidor.Iniciar()) << servidor.erro().toStdString();
    EXPECT_EQ(Valor(QStringLiteral("select count(*) from compra")), "1") << conexao->UltimoErro().toStdString();
    EXPECT_TRUE(conexao->Exec(QStringLiteral("update compra set inf_adic_fisco='depois' where compra_cod=1"))) << conexao->UltimoErro().toStdString();
    conexao->Desconectar();
}

} // namespace
