// The floors later benchmarks compare against: what a Conectar/Desconectar pair and an
// autocommitted statement cost on the embedded engine.
#include "BancoTeste.h"
#include "Firebird.h"
#include "TConexaoSQL.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

constexpr int Vezes = 1000;

void relatar(const char *oque, qint64 nanos, int vezes)
{
    QTextStream(stdout) << QString::asprintf("%-48s %9.1f ms  %8.3f ms each\n", oque, nanos / 1e6,
                                             nanos / 1e6 / vezes);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("bench.fdb"));
    QString erro;
    if (!BancoTeste::Criar(banco, {}, true, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }

    TConexaoSQL conexao(banco);
    conexao.Conectar();   // the attachment that stays open, as the screen keeps its own
    TConexaoSQL outra(banco);
    QElapsedTimer t;
    t.start();
    for (int i = 0; i < Vezes; ++i) {
        outra.Conectar();
        outra.Desconectar();
    }
    relatar("Conectar/Desconectar pairs (pooled)", t.nsecsElapsed(), Vezes);

    t.restart();
    for (int i = 0; i < 20; ++i) {
        Firebird::TAnexacao fisica;
        Firebird::Falha falha;
        fisica.Anexar(banco, &falha);
    }
    relatar("physical attach/detach (for comparison)", t.nsecsElapsed(), 20);

    t.restart();
    for (int i = 0; i < Vezes; ++i) {
        conexao.Exec(QStringLiteral("insert into config (chave, valor) values ('B%1', 'S')").arg(i));
    }
    relatar("autocommitted inserts", t.nsecsElapsed(), Vezes);
    QTextStream(stdout) << "rows: " << conexao.ValorInt(QStringLiteral("select count(*) from config")) << Qt::endl;
    conexao.Desconectar();
    TConexaoSQL::FecharOciosas();
    return 0;
}
