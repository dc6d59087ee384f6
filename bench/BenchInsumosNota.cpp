// "Insumos da nota" of a production note of 990 items, each product made of five inputs (drawn
// from 200 input products), against the bare fetch of the same statement: opened and read to the
// end on the same attachment, with nothing of the module in between. Best of several rounds.
#include "BancoTeste.h"
#include "Medicao.h"
#include "TConexaoSQL.h"
#include "TStringGrid.h"
#include "UProdCompoList.h"
#include "UProdCompoList_UI.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTextStream>

#include <vector>

namespace {

int g_itens = 990;
int g_rodadas = 10;
constexpr int Insumos = 200;

// Products 1..n are compositions, n+1..n+200 their inputs; product i takes the inputs
// (i + 40 j) mod 200 for j = 0..4. Note 1 (production) has one item of each composition.
QString SqlDados()
{
    return QStringLiteral(
               "execute block as\n"
               "declare i integer = 1;\n"
               "declare j integer;\n"
               "begin\n"
               "  while (i <= %1 + %2) do\n"
               "  begin\n"
               "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, prod_tipo_cod)\n"
               "      values (:i, iif(:i <= %1, 'PRODUTO ', 'INSUMO ') || :i, 1, 1, 1, iif(:i <= %1, '%', null));\n"
               "    j = 0;\n"
               "    while (i <= %1 and j < 5) do\n"
               "    begin\n"
               "      insert into prod_compo (prod_cod_pai, prod_cod_filho, qtd)\n"
               "        values (:i, %1 + 1 + mod(:i + 40 * :j, %2), 0.1255 + :j * 0.5);\n"
               "      j = j + 1;\n"
               "    end\n"
               "    i = i + 1;\n"
               "  end\n"
               "  insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, baixado, cancelado)\n"
               "    values (1, 10, 1, '%', 1, 'N', 'N');\n"
               "  i = 1;\n"
               "  while (i <= %1) do\n"
               "  begin\n"
               "    insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod,\n"
               "      emb_qtd, qtd_embs, custo_tot, ordem)\n"
               "      values (1, 10, 1, :i, :i, 1, 1.5 + mod(:i, 7), 10, :i);\n"
               "    i = i + 1;\n"
               "  end\n"
               "end")
        .arg(g_itens)
        .arg(Insumos);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    Medicao::LerTamanho(argc, argv, g_itens, g_rodadas);
    BancoTeste::FixarRelogio();

    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("insumos.fdb"));
    QString erro;
    if (!BancoTeste::Criar(banco, Medicao::CadastrosDaLoja() << SqlDados(), false, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    TConexaoSQL conexao(banco);
    if (!conexao.Conectar()) {
        QTextStream(stderr) << conexao.UltimoErro() << Qt::endl;
        return 1;
    }
    const QString sql = TProdCompoList_DBI::SqlDeNota(1, 1);
    std::vector<double> tela, busca;
    int linhas = 0, insumos = 0;
    bool ok = true;
    for (int r = 0; r < g_rodadas && ok; ++r) {
        busca.push_back(Medicao::Ms([&] {
            const auto q = conexao.Ab(sql);
            ok = q != nullptr;
            for (linhas = 0; ok && !q->Eof(); q->Next())
                ++linhas;
        }));
        tela.push_back(Medicao::Ms([&] {
            TProdCompoList lista;
            ok = ok && TProdCompoList_DBI::PreencherDeNota(lista, conexao, 1, 1);
            TStringGrid grade;
            TProdCompoList_UI::PreencherStringGridNota(grade, lista);
            insumos = grade.RowCount() - 1;
        }));
    }
    conexao.Desconectar();
    TConexaoSQL::FecharOciosas();
    if (!ok) {
        QTextStream(stderr) << "the inputs query failed: " << conexao.UltimoErro() << Qt::endl;
        return 1;
    }
    const double t = Medicao::Melhor(tela), b = Medicao::Melhor(busca);
    QTextStream out(stdout);
    out << QString::asprintf("note of %d items, %d rows, %d inputs listed\n", g_itens, linhas, insumos);
    out << QString::asprintf("Insumos da nota (fill + grid)      %9.2f ms\n", t);
    out << QString::asprintf("the same statement, bare fetch     %9.2f ms\n", b);
    out << QString::asprintf("ratio                              %9.2f      (limit 1.30, best of %d rounds)\n", t / b,
                             g_rodadas);
    return t / b <= 1.3 ? 0 : 2;
}
