// Saving and loading the items of a large note against the bare cost of the same statements:
// the item list's own work (reading each row, building each statement, filling each list row)
// next to sending exactly those statements, one after another, on one attachment.
#include "BancoTeste.h"
#include "Contexto.h"
#include "Database.h"
#include "Medicao.h"
#include "Money.h"
#include "TClientDataSet.h"
#include "TCompraItemTmpDBI.h"
#include "TConexaoSQL.h"
#include "TRepD.h"
#include "TTabPrecoList.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTextStream>

#include <vector>

namespace {

constexpr int Itens = 990;
constexpr int Produtos = 50;
constexpr int Empr = 1;
constexpr int Compra = 1;
constexpr int Rodadas = 3;

QStringList Dados()
{
    QStringList dados = Database::SplitScript(QStringLiteral(
        "insert into empr (empr_cod, raz, nome_red) values (1, 'Loja Matriz Ltda', 'MATRIZ');\n"
        "insert into unid (unid_cod, sigla, descr) values (1, 'UN', 'UNIDADE');\n"
        "insert into trib (trib_cod, descr, perc) values (1, 'ISENTO', 0);\n"
        "insert into trib (trib_cod, descr, perc) values (2, 'TRIBUTADO 12', 12);\n"
        "insert into trib (trib_cod, descr, perc) values (3, 'TRIBUTADO 17,5', 17.5);\n"
        "insert into tab_preco (tab_preco_cod, nome, perc) values (1, 'VAREJO', 0);\n"
        "insert into tab_preco (tab_preco_cod, nome, perc) values (2, 'ATACADO', 10);\n"
        "insert into tab_preco (tab_preco_cod, nome, perc) values (3, 'PROMOCAO', -5);\n"));
    const QString produtos = QStringLiteral(
        "execute block as\n"
        "declare i integer = 1;\n"
        "begin\n"
        "  while (i <= %1) do\n"
        "  begin\n"
        "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm)\n"
        "      values (:i, 'PRODUTO ' || :i, 1, 1, 1 + mod(:i, 3), 0, '22021000');\n"
        "    insert into prod_compl (prod_cod, empr_cod, margem, ativo) values (:i, 1, 30, 'S');\n"
        "    insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (1, :i, 0, 10 + :i);\n"
        "    insert into prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco) values (1, 1, :i, 13 + :i);\n"
        "    i = i + 1;\n"
        "  end\n"
        "end").arg(Produtos);
    return dados << produtos;
}

// A note as the item screen leaves it: every staging column set, and three prices per item.
void PreencherLista(TRepD &repD)
{
    TClientDataSet &ds = repD.Itens();
    ds.DisableControls();
    for (int i = 0; i < Itens; ++i) {
        ds.Append();
        int k = 0;
        for (const TColunaItemTmp &c : ColunasItemTmp()) {
            TField &f = ds.FieldByName(QLatin1String(c.campo));
            ++k;
            switch (c.tipo) {
            case TTipoColunaItem::Codigo: f.SetAsInteger(k); break;
            case TTipoColunaItem::Valor: f.SetAsMoney(Money::fromRaw(i * 10000 + k * 37)); break;
            case TTipoColunaItem::Quantidade: f.SetAsFloat(1 + i % 12); break;
            case TTipoColunaItem::Texto: f.SetAsString(QStringLiteral("t%1").arg(k)); break;
            }
        }
        ds.FieldByName(QStringLiteral("COMPRA_ITEM_TMP_COD")).SetAsInteger(i + 1);
        ds.FieldByName(QStringLiteral("ordem")).SetAsInteger(i + 1);
        ds.FieldByName(QStringLiteral("PROD_COD")).SetAsInteger(1 + i % Produtos);
        ds.FieldByName(QStringLiteral("unid_cod")).SetAsInteger(1);
        ds.FieldByName(QStringLiteral("trib_cod")).SetAsInteger(1 + i % 3);
        ds.FieldByName(QStringLiteral("info_adic")).SetAsString(QStringLiteral("lote d'água %1").arg(i));
        for (int t = 1; t <= 3; ++t)
            ds.FieldByName(QStringLiteral("preco%1").arg(t)).SetAsMoney(Money::fromRaw(130000 + i * 100 + t));
        ds.Post();
    }
    ds.EnableControls();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("bench.fdb"));
    Contexto::Atual().banco = banco;   // the host connection deletes the staged rows
    QString erro;
    // A flush per commit makes every statement wait for the disk, and the disk's mood then
    // decides the ratio; "--forced-writes" keeps it for the figure a user's machine would see.
    if (!BancoTeste::Criar(banco, Dados(), QCoreApplication::arguments().contains(QStringLiteral("--forced-writes")),
                           &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    QTextStream out(stdout);

    TConexaoSQL conexao(banco);
    conexao.Conectar();   // the attachment the screen keeps open
    TTabPrecoList tabelas;
    if (!tabelas.CarregarDoDB(conexao, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    TRepD repD(conexao);
    repD.SetTabPrecos(tabelas);
    PreencherLista(repD);

    bool ok = true;
    const QStringList sqlGravar = Medicao::Declaracoes([&] { ok = repD.GravarItens({Empr, 10, Compra}); });
    const QStringList sqlCarregar = Medicao::Declaracoes([&] { ok = ok && repD.CarregarItens({Empr, 10, Compra}); });
    if (!ok || repD.Itens().RecordCount() != Itens) {
        QTextStream(stderr) << "the first save or load failed (" << repD.Itens().RecordCount() << " items)" << Qt::endl;
        return 1;
    }

    std::vector<double> gravar, gravarPuro, carregar, carregarPuro;
    for (int r = 0; r < Rodadas && ok; ++r) {
        gravar.push_back(Medicao::Ms([&] { ok = repD.GravarItens({Empr, 10, Compra}); }));
        gravarPuro.push_back(Medicao::Ms([&] { ok = ok && Medicao::Repetir(conexao, sqlGravar); }));
        carregar.push_back(Medicao::Ms([&] { ok = ok && repD.CarregarItens({Empr, 10, Compra}); }));
        carregarPuro.push_back(Medicao::Ms([&] { ok = ok && Medicao::Repetir(conexao, sqlCarregar); }));
    }
    if (!ok) {
        QTextStream(stderr) << "a round failed: " << conexao.UltimoErro() << Qt::endl;
        return 1;
    }

    using Medicao::Melhor;
    const double g = Melhor(gravar), gp = Melhor(gravarPuro), c = Melhor(carregar), cp = Melhor(carregarPuro);
    out << QString::asprintf("note of %d items, %d price tables; best of %d rounds; forced writes %s\n", Itens,
                             tabelas.Count(), Rodadas,
                             QCoreApplication::arguments().contains(QStringLiteral("--forced-writes")) ? "on" : "off");
    out << QString::asprintf("GravarItens              %9.1f ms  %5lld statements  %6.3f ms/statement\n", g,
                             qlonglong(sqlGravar.size()), g / sqlGravar.size());
    out << QString::asprintf("  same statements, bare  %9.1f ms  ratio %5.2f\n", gp, g / gp);
    out << QString::asprintf("CarregarItens            %9.1f ms  %5lld statements  %6.3f ms/statement\n", c,
                             qlonglong(sqlCarregar.size()), c / sqlCarregar.size());
    out << QString::asprintf("  same statements, bare  %9.1f ms  ratio %5.2f\n", cp, c / cp);
    conexao.Desconectar();
    TConexaoSQL::FecharOciosas();
    return 0;
}
