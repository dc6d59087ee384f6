// Two workstations posting notes of 1,000 items at once on one Firebird server (loopback),
// beside one workstation posting alone. Every station is the real executable; the notes share
// their products, so the two postings contend for the same costs and prices.
#include "BancoTeste.h"
#include "Medicao.h"
#include "ServidorTeste.h"
#include "TConexaoSQL.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

int g_itens = 1000;

// Products 1..n; notes 1 and 2 with one item of each product, prices in two tables.
QStringList Dados()
{
    return Medicao::CadastrosDaLoja() << QStringLiteral(
            "execute block as\n"
            "declare i integer = 1;\n"
            "declare n integer = 1;\n"
            "begin\n"
            "  while (i <= %1) do\n"
            "  begin\n"
            "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod) values (:i, 'PRODUTO ' || :i, 1, 1, 1);\n"
            "    insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (1, :i, 0, 5);\n"
            "    i = i + 1;\n"
            "  end\n"
            "  while (n <= 2) do\n"
            "  begin\n"
            "    insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, ndoc, serie, baixado, cancelado)\n"
            "      values (1, :n, :n, '\"', 1, :n, '1', 'N', 'N');\n"
            "    i = 1;\n"
            "    while (i <= %1) do\n"
            "    begin\n"
            "      insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod,\n"
            "        emb_qtd, qtd_embs, custo_tot, outras, desconto, vipi, trib_icms_vicms, trib_icms_cst, cfop, ordem)\n"
            "        values (1, 10, :n, :n * 100000 + :i, :i, 1, 2, 100 + :i, 0, 0, 0, 12, 0, '1102', :i);\n"
            "      insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco)\n"
            "        values (1, 10, :n * 100000 + :i, 1, 9.9);\n"
            "      insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco)\n"
            "        values (1, 10, :n * 100000 + :i, 2, 9.5);\n"
            "      i = i + 1;\n"
            "    end\n"
            "    update compra set tot_prods = (select sum(custo_tot) from compra_item_tmp where compra_cod = :n),\n"
            "      tot = (select sum(custo_tot) from compra_item_tmp where compra_cod = :n) where compra_cod = :n;\n"
            "    n = n + 1;\n"
            "  end\n"
            "end")
            .arg(g_itens);
}

// Runs one station per note at once; the wall-clock milliseconds until the last one ended, or a
// negative value when any of them failed.
double Postar(const TDadosBanco &banco, const QStringList &notas)
{
    std::vector<std::unique_ptr<QProcess>> estacoes;
    const double ms = Medicao::Ms([&] {
        for (const QString &nota : notas) {
            auto p = std::make_unique<QProcess>();
            p->setProcessChannelMode(QProcess::MergedChannels);
            p->start(QStringLiteral(PAVREL_EXE), {QStringLiteral("--database"), banco.database, QStringLiteral("post"), nota});
            estacoes.push_back(std::move(p));
        }
        for (auto &p : estacoes)
            p->waitForFinished(-1);
    });
    bool ok = true;
    for (auto &p : estacoes) {
        if (p->exitCode() != 0) {
            QTextStream(stderr) << "station failed: " << p->readAll() << Qt::endl;
            ok = false;
        }
    }
    return ok ? ms : -1;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    // bench_estacoes [items]
    if (argc > 1)
        g_itens = std::max(1, QString::fromLocal8Bit(argv[1]).toInt());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTextStream out(stdout);
    ServidorTeste servidor;
    if (!servidor.ok()) {
        QTextStream(stderr) << servidor.erro() << Qt::endl;
        return 1;
    }
    QTemporaryDir pasta;
    TDadosBanco modelo;
    modelo.database = pasta.filePath(QStringLiteral("modelo.fdb"));
    QString erro;
    if (!BancoTeste::Criar(modelo, Dados(), true, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    TConexaoSQL::FecharOciosas();

    const double sozinha = Postar(servidor.Publicar(modelo.database, QStringLiteral("sozinha.fdb")), {QStringLiteral("1-1")});
    const double juntas = Postar(servidor.Publicar(modelo.database, QStringLiteral("juntas.fdb")),
                                 {QStringLiteral("1-1"), QStringLiteral("1-2")});
    if (sozinha < 0 || juntas < 0)
        return 1;
    out << QString::asprintf("one station, one note of %d items     %8.1f s  %6.2f ms per item\n", g_itens, sozinha / 1000, sozinha / g_itens);
    out << QString::asprintf("two stations at once, a note each     %8.1f s  %6.2f ms per item posted\n", juntas / 1000, juntas / (2 * g_itens));
    return 0;
}
