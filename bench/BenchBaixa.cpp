// Posting a note of 1,000 items (three price tables, every product made of two inputs) against
// the bare cost of the same statements: the ones posting sent, replayed one after the other on
// a copy of the database as it was before posting, with nothing of the module in between.
// The cost of as many trivial autocommitted inserts is printed too, as the engine's floor.
// Each round starts from a copy of the same database; the best round of each is compared, since
// the disk is shared with whatever else the machine is doing.
#include "BancoTeste.h"
#include "Medicao.h"
#include "TBaixaNota.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TRepD.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMap>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

int g_itens = 1000;
int g_rodadas = 3;

// Products 1..n, each made of products n+1 and n+2; one purchase note of n items, every item
// with a price in each of the three tables, staged under station 10 as the note itself.
QString SqlDados()
{
    return QStringLiteral(
               "execute block as\n"
               "declare i integer = 1;\n"
               "begin\n"
               "  while (i <= %1 + 2) do\n"
               "  begin\n"
               "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, prod_tipo_cod)\n"
               "      values (:i, 'PRODUTO ' || :i, 1, 1, 1, iif(:i <= %1, '%', null));\n"
               "    insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (1, :i, 0, 5);\n"
               "    if (i <= %1) then\n"
               "    begin\n"
               "      insert into prod_compo (prod_cod_pai, prod_cod_filho, qtd) values (:i, %1 + 1, 0.25);\n"
               "      insert into prod_compo (prod_cod_pai, prod_cod_filho, qtd) values (:i, %1 + 2, 1.5);\n"
               "    end\n"
               "    i = i + 1;\n"
               "  end\n"
               "  insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, baixado, cancelado)\n"
               "    values (1, 10, 1, '\"', 1, 'N', 'N');\n"
               "  i = 1;\n"
               "  while (i <= %1) do\n"
               "  begin\n"
               "    insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod,\n"
               "      emb_qtd, qtd_embs, custo_tot, outras, desconto, vipi, trib_icms_vicms, trib_icms_cst, cfop,\n"
               "      info_adic, ordem)\n"
               "      values (1, 10, 1, :i, :i, 12, 2 + mod(:i, 5), 100 + :i, 1.5, 0.5, 2.25,\n"
               "      12.6, 0, '1102', iif(mod(:i, 10) = 0, 'lote ' || :i, null), :i);\n"
               "    insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco)\n"
               "      values (1, 10, :i, 1, 9.9);\n"
               "    insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco)\n"
               "      values (1, 10, :i, 2, 9.5);\n"
               "    insert into compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco)\n"
               "      values (1, 10, :i, 3, 8.9);\n"
               "    i = i + 1;\n"
               "  end\n"
               "end")
        .arg(g_itens);
}

QStringList Dados()
{
    return Medicao::CadastrosDaLoja() << SqlDados();
}

// Posts the note as the screen does (module connection and the host's both open); the
// milliseconds it took, or a negative value on failure.
double Baixar(const TDadosBanco &banco)
{
    TConexaoSQL conexao(banco);
    conexao.Conectar();
    TConexD::Conexao().Conectar();
    TRepD repD(conexao);
    double ms = -1;
    if (repD.CarregarNota(1, 10, 1) && repD.NotaAtual()) {
        bool ok = false;
        ms = Medicao::Ms([&] { ok = TBaixaNota(conexao).BaixarNota(*repD.NotaAtual(), true); });
        if (!ok)
            ms = -1;
    }
    TConexD::Conexao().Desconectar();
    conexao.Desconectar();
    return ms;
}

double Repetir(const TDadosBanco &banco, const QStringList &comandos)
{
    TConexaoSQL conexao(banco);
    conexao.Conectar();
    bool ok = false;
    const double ms = Medicao::Ms([&] { ok = Medicao::Repetir(conexao, comandos); });
    conexao.Desconectar();
    return ok ? ms : -1;
}

// A statement's kind, for the count per item: its first words, or for a block the first words of
// its first statement.
QString Tipo(const QString &sql)
{
    const QStringList palavras = sql.simplified().split(QLatin1Char(' '));
    const bool bloco = palavras.value(0).compare(QLatin1String("execute"), Qt::CaseInsensitive) == 0;
    const QString tipo = palavras.mid(bloco ? 4 : 0, 3).join(QLatin1Char(' ')).section(QLatin1Char('('), 0, 0);
    return ((bloco ? QLatin1String("block: ") : QLatin1String("")) + tipo.toLower()).left(40);
}

double Triviais(const TDadosBanco &banco, int quantos)
{
    TConexaoSQL conexao(banco);
    conexao.Conectar();
    const double ms = Medicao::Ms([&] {
        for (int i = 0; i < quantos; ++i)
            conexao.Exec(QStringLiteral("insert into config (chave, valor) values ('B%1', 'S')").arg(i));
    });
    conexao.Desconectar();
    return ms;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    // bench_baixa [items [rounds]]: a smaller note while investigating.
    if (argc > 1)
        g_itens = std::max(1, QString::fromLocal8Bit(argv[1]).toInt());
    if (argc > 2)
        g_rodadas = std::max(1, QString::fromLocal8Bit(argv[2]).toInt());
    // The same clock for every round, so that every round sends the same statements.
    BancoTeste::FixarRelogio();

    QTemporaryDir pasta;
    TDadosBanco modelo;
    modelo.database = pasta.filePath(QStringLiteral("modelo.fdb"));
    TDadosBanco copia;
    copia.database = pasta.filePath(QStringLiteral("copia.fdb"));
    QTextStream out(stdout);
    QString erro;
    QElapsedTimer t;
    t.start();
    if (!BancoTeste::Criar(modelo, Dados(), true, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    out << QString::asprintf("database with a note of %d items built in %.1f s\n", g_itens, t.elapsed() / 1000.0);

    // A first posting, logged, gives the statements.
    if (!BancoTeste::Copiar(modelo.database, copia, &erro))
        return 1;
    double registrada = -1;
    const QStringList comandos = Medicao::Declaracoes([&] { registrada = Baixar(copia); });
    if (registrada < 0) {
        QTextStream(stderr) << "BaixarNota failed" << Qt::endl;
        return 1;
    }
    const int n = int(comandos.size());

    std::vector<double> baixa, repeticao, triviais;
    for (int r = 0; r < g_rodadas; ++r) {
        if (!BancoTeste::Copiar(modelo.database, copia, &erro))
            return 1;
        baixa.push_back(Baixar(copia));
        if (!BancoTeste::Copiar(modelo.database, copia, &erro))
            return 1;
        repeticao.push_back(Repetir(copia, comandos));
        triviais.push_back(Triviais(copia, n));
        if (baixa.back() < 0 || repeticao.back() < 0)
            return 1;
    }
    TConexaoSQL::FecharOciosas();

    const double b = Medicao::Melhor(baixa), p = Medicao::Melhor(repeticao), v = Medicao::Melhor(triviais);
    out << QString::asprintf("statements sent                    %9d      %6.1f per item\n", n, double(n) / g_itens);
    QMap<QString, int> porTipo;
    for (const QString &sql : comandos)
        ++porTipo[Tipo(sql)];
    for (auto it = porTipo.cbegin(); it != porTipo.cend(); ++it)
        out << QString::asprintf("  %-40s %6.2f per item\n", qPrintable(it.key()), double(it.value()) / g_itens);
    out << QString::asprintf("BaixarNota                         %9.1f ms  %6.2f ms per item\n", b, b / g_itens);
    out << QString::asprintf("the same statements, bare          %9.1f ms  %6.3f ms each\n", p, p / n);
    out << QString::asprintf("as many trivial inserts            %9.1f ms  %6.3f ms each\n", v, v / n);
    out << QString::asprintf("ratio to the same statements       %9.2f      (limit 1.30)\n", b / p);
    out << QString::asprintf("ratio to trivial inserts           %9.2f      (best of %d rounds each)\n", b / v, g_rodadas);
    return b / p <= 1.3 ? 0 : 2;
}
