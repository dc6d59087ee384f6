// Headless posting of a 10-item note on a store of 100 notes and on one of 100,000: the time
// spent before posting sends its first statement (finding and reading the note) should not grow
// with the store.
#include "BancoTeste.h"
#include "ComandosHeadless.h"
#include "Medicao.h"
#include "TConexaoSQL.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

#include <vector>

namespace {

constexpr int Rodadas = 5;
constexpr int Itens = 10;

QStringList Comandos(int notas)
{
    return {
        QStringLiteral("insert into empr (empr_cod, raz, nome_red) values (1, 'Loja Matriz Ltda', 'MATRIZ')"),
        QStringLiteral("insert into fornec (fornec_cod, nome_red) values (1, 'FORNECEDOR')"),
        QStringLiteral("insert into unid (unid_cod, sigla, descr) values (1, 'UN', 'UNIDADE')"),
        QStringLiteral("insert into trib (trib_cod, descr, perc) values (1, 'TRIBUTADO', 12)"),
        QStringLiteral("execute block as\n"
                       "declare i integer = 1;\n"
                       "begin\n"
                       "  while (i <= %1) do\n"
                       "  begin\n"
                       "    insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, baixado,\n"
                       "      cancelado, dt_doc, ndoc, serie, tot_prods, tot)\n"
                       "      values (1, 1, :i, '\"', 1, 'N', 'N', dateadd(mod(:i, 730) day to date '2025-01-01'),\n"
                       "      :i, '1', %2, %2);\n"
                       "    i = i + 1;\n"
                       "  end\n"
                       "  i = 1;\n"
                       "  while (i <= %3) do\n"
                       "  begin\n"
                       "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod) values (:i, 'PRODUTO ' || :i, 1, 1, 1);\n"
                       "    insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod,\n"
                       "      emb_qtd, qtd_embs, custo_tot, cfop, ordem) values (1, 10, %4, :i, :i, 1, 1, 10, '1102', :i);\n"
                       "    i = i + 1;\n"
                       "  end\n"
                       "end")
            .arg(notas)
            .arg(Itens * 10)
            .arg(Itens)
            .arg(notas / 2),
    };
}

struct TMedida
{
    double antes = -1;   // ms until the first statement of the posting gates
    double total = -1;
};

// One headless post of the middle note; the first gate statement marks where posting begins.
TMedida Postar(int notas)
{
    RegistroSql registro;
    QString saida, erros;
    QTextStream s(&saida), e(&erros);
    const QString codigo = QStringLiteral("1-1-%1").arg(notas / 2);
    TMedida m;
    QElapsedTimer relogio;
    relogio.start();
    RegistroSql::AoRegistrar([&](const QString &sql) {
        if (qEnvironmentVariableIsSet("PAVREL_BENCH_TRACO"))
            QTextStream(stderr) << QString::asprintf("%8.1f ", double(relogio.nsecsElapsed()) / 1e6) << sql.left(110).simplified() << Qt::endl;
        if (m.antes < 0 && sql.startsWith(QLatin1String("select count(*) from compra_item_tmp")))
            m.antes = double(relogio.nsecsElapsed()) / 1e6;
    });
    const int r = ComandosHeadless::Executar({QStringLiteral("post"), codigo, QStringLiteral("--yes")}, s, e);
    m.total = double(relogio.nsecsElapsed()) / 1e6;
    RegistroSql::AoRegistrar({});
    if (r != 0) {
        QTextStream(stderr) << erros;
        m.antes = -1;
    }
    return m;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    BancoTeste::FixarRelogio();
    QTemporaryDir pasta;
    QTextStream out(stdout);
    const int tamanhos[] = {100, 100000};
    TDadosBanco copia;
    copia.database = pasta.filePath(QStringLiteral("copia.fdb"));
    QString modelos[2];
    std::vector<TMedida> medidas[2];
    QString erro;
    for (int t = 0; t < 2; ++t) {
        TDadosBanco modelo;
        modelo.database = modelos[t] = pasta.filePath(QStringLiteral("modelo%1.fdb").arg(tamanhos[t]));
        if (!BancoTeste::Criar(modelo, Comandos(tamanhos[t]), true, &erro)) {
            QTextStream(stderr) << erro << Qt::endl;
            return 1;
        }
    }
    // The first round only warms up (driver, caches); then the two stores take turns, so that
    // whatever else the machine does falls on both.
    for (int r = 0; r <= Rodadas; ++r) {
        for (int t = 0; t < 2; ++t) {
            if (!BancoTeste::Copiar(modelos[t], copia, &erro)) {
                QTextStream(stderr) << erro << Qt::endl;
                return 1;
            }
            const TMedida m = Postar(tamanhos[t]);
            TConexaoSQL::FecharOciosas();
            if (m.antes < 0)
                return 1;
            if (r > 0)
                medidas[t].push_back(m);
        }
    }
    double melhores[2];
    for (int t = 0; t < 2; ++t) {
        std::vector<double> antes, total;
        for (const TMedida &m : medidas[t]) {
            antes.push_back(m.antes);
            total.push_back(m.total);
        }
        melhores[t] = Medicao::Melhor(antes);
        out << QString::asprintf("post of a %d-item note among %7d notes: %7.1f ms before posting, %7.1f ms in all\n",
                                 Itens, tamanhos[t], melhores[t], Medicao::Melhor(total));
    }
    out << QString::asprintf("ratio of the time before posting, 100,000 to 100 notes: %.2f (best of %d)\n",
                             melhores[1] / melhores[0], Rodadas);
    return 0;
}
