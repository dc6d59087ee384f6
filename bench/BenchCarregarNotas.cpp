// Loading the note list against the bare cost of the same statement: the list's own work (one
// list row per note, its derived columns, the origin filter, the sort) next to fetching the rows.
#include "BancoTeste.h"
#include "Medicao.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TRepD.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>

#include <vector>

namespace {

constexpr int Notas = 100000;
constexpr int Rodadas = 5;

// One statement that writes every note inside the engine: a script of 100,000 inserts would
// spend longer parsing than the benchmark spends measuring.
QString SqlGerarNotas()
{
    return QStringLiteral(
               "execute block as\n"
               "declare i integer = 0;\n"
               "begin\n"
               "  while (i < %1) do\n"
               "  begin\n"
               "    insert into compra (empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod,\n"
               "      cancelado, baixado, dt_doc, dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods,\n"
               "      ipi, frete, outras, icms, fcp, fcpst, desconto, tot, cfop, nat_op_str,\n"
               "      frete_modalidade, nfe_chave_ref, arq_xml, nfe_num, nfe_chave, nfe_protocolo,\n"
               "      nfe_dth_emiss)\n"
               "    values (1 + mod(:i, 2), 1, :i + 1, iif(mod(:i, 10) = 0, 2 + mod(:i, 3), 0),\n"
               "      ascii_char(34 + mod(:i, 6)), iif(mod(:i, 20) = 0, 'S', 'N'),\n"
               "      iif(mod(:i, 3) = 0, 'S', 'N'), dateadd(mod(:i, 730) day to date '2025-01-01'),\n"
               "      dateadd(mod(:i, 730) day to timestamp '2025-01-01 10:30:00'),\n"
               "      dateadd(mod(:i, 730) day to timestamp '2025-01-01 09:15:00'),\n"
               "      100000 + :i, '1', 1 + mod(:i, 5), 1234.5 + mod(:i, 1000), 12.34, 5, 0, 81.2, 0, 0,\n"
               "      1.5, 1252.34 + mod(:i, 1000), '1102', 'COMPRA PARA COMERCIALIZACAO', 0,\n"
               "      iif(mod(:i, 4) = 0, lpad(:i, 44, '3'), null),\n"
               "      iif(mod(:i, 20) = 7, rpad('<nfeProc versao=\"4.00\">', 2000, 'x'), null),\n"
               "      iif(mod(:i, 4) = 1, :i, null), iif(mod(:i, 4) = 1, lpad(:i, 44, '5'), null),\n"
               "      iif(mod(:i, 4) = 1, '135250000012345', null),\n"
               "      iif(mod(:i, 4) = 1, timestamp '2025-06-01 12:00:00', null));\n"
               "    i = i + 1;\n"
               "  end\n"
               "end")
        .arg(Notas);
}

QStringList Dados()
{
    QStringList dados = {
        QStringLiteral("insert into empr (empr_cod, raz, nome_red) values (1, 'Loja Matriz Ltda', 'MATRIZ')"),
        QStringLiteral("insert into empr (empr_cod, raz, nome_red) values (2, 'Filial Norte Ltda', 'NORTE')"),
        QStringLiteral("insert into empr (empr_cod, raz, nome_red) values (3, 'Filial Sul Ltda', 'SUL')"),
    };
    for (int f = 1; f <= 5; ++f)
        dados << QStringLiteral("insert into fornec (fornec_cod, nome_red) values (%1, 'FORNECEDOR %1')").arg(f);
    return dados << SqlGerarNotas();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("bench.fdb"));
    QString erro;
    QElapsedTimer t;
    t.start();
    if (!BancoTeste::Criar(banco, Dados(), true, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    QTextStream out(stdout);
    out << QString::asprintf("database with %d notes built in %.1f s\n", Notas, t.elapsed() / 1000.0);

    TConexaoSQL conexao(banco);
    conexao.Conectar();   // the attachment the screen keeps open
    TFiltroNotas filtro;
    filtro.considerarDatas = false;
    filtro.canceladosIndice = 0;
    filtro.origemIndice = 0;
    const QString sql = TRepD::SqlNotas(filtro);
    TRepD repD(conexao);

    // A first pass warms the engine's page cache for both.
    conexao.Ab(sql);

    std::vector<double> puro, carregar;
    int linhas = 0, notas = 0;
    for (int r = 0; r < Rodadas; ++r) {
        t.restart();
        {
            const auto q = conexao.Ab(sql);
            linhas = 0;
            for (q->First(); !q->Eof(); q->Next())
                ++linhas;
        }
        puro.push_back(t.nsecsElapsed() / 1e6);

        t.restart();
        if (!repD.CarregarNotas(filtro)) {
            QTextStream(stderr) << "CarregarNotas failed" << Qt::endl;
            return 1;
        }
        carregar.push_back(t.nsecsElapsed() / 1e6);
        notas = repD.Notas().RecordCount();
    }

    const double p = Medicao::Melhor(puro), c = Medicao::Melhor(carregar);
    out << QString::asprintf("bare fetch (Ab + rows)   %9.1f ms  %7d rows  %8.0f rows/s\n", p, linhas, linhas / p * 1000);
    out << QString::asprintf("CarregarNotas            %9.1f ms  %7d rows  %8.0f rows/s\n", c, notas, notas / c * 1000);
    out << QString::asprintf("ratio                    %9.2f (best of %d rounds each)\n", c / p, Rodadas);
    conexao.Desconectar();
    TConexaoSQL::FecharOciosas();
    return 0;
}
