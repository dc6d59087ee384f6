// Exporting every note with its movements against the bare fetch of the same selects (rows walked,
// no text made), and importing the file into an empty database against the bare replay of the
// statements the import sent, into another empty database. PAVREL_BENCH_NOTAS notes (100,000 by
// default), five movements each; the databases run without forced writes. The statements are
// recorded during the timed import and again during the replay, so both pay for keeping them.
#include "BancoTeste.h"
#include "Medicao.h"
#include "TCompraExpImp_DBI.h"
#include "TConexaoSQL.h"
#include "TProgresso.h"
#include "UCompraExport.h"
#include "UCompraImport.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

constexpr int MovsPorNota = 5;

// Notes of three types on station 10, each with five linked movements of every value kind.
QString SqlDados(int notas)
{
    return QStringLiteral(
               "execute block as\n"
               "declare n integer = 1;\n"
               "declare m integer;\n"
               "begin\n"
               "  while (n <= %1) do\n"
               "  begin\n"
               "    insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, cancelado, baixado, dt_doc, ndoc,\n"
               "      fornec_cod, tot_prods, tot, serie, nat_op_str, ind_pag_avista, tipo_nf_cod, nfe_dv, cfop, dth_cri)\n"
               "      values (1, 10, :n, ascii_char(34 + mod(:n, 3)), 'N', 'S', dateadd(mod(:n, 365) day to date '2025-01-01'),\n"
               "      :n, 1, 123.45 + :n, 130.5 + :n, '1', 'COMPRA PARA REVENDA', 1, 0, mod(:n, 10), '1102',\n"
               "      timestamp '2025-01-01 08:30:00');\n"
               "    m = 1;\n"
               "    while (m <= %2) do\n"
               "    begin\n"
               "      insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, qtd, custo_tot, custo,\n"
               "        dth_cri, tipo_jan, trat_icms, origem_merc, icms_bc_mod, icms_st_bc_mod, trib_cod, icms_mot_deso,\n"
               "        icms_csosn, import_status, icms_bc_val, icms_val, cfop)\n"
               "        values (1, 10, (:n - 1) * %2 + :m, 'E', :m, 2.5, 25.75, 10.3, timestamp '2025-01-01 08:31:00',\n"
               "        1, 0, 0, 3, 4, 1, 0, 0, 0, 25.75, 3.09, '1102');\n"
               "      insert into compra_est_mov values (1, 10, :n, 1, 10, (:n - 1) * %2 + :m);\n"
               "      m = m + 1;\n"
               "    end\n"
               "    n = n + 1;\n"
               "  end\n"
               "end")
        .arg(notas)
        .arg(MovsPorNota);
}

// The selects an export sends, rows walked and nothing made of them.
bool BuscaNua(TConexaoSQL &conexao)
{
    namespace DBI = TCompraExpImp_DBI;
    const auto notas = conexao.Ab(DBI::SqlNotas());
    if (!notas)
        return false;
    for (; !notas->Eof(); notas->Next()) {
        const auto movs = conexao.Ab(DBI::SqlMovsDaNota(notas->Fields(0).AsInteger(), notas->Fields(1).AsInteger(),
                                                        notas->Fields(DBI::ColunaChave).AsInteger()));
        if (!movs)
            return false;
        for (; !movs->Eof(); movs->Next()) {
        }
    }
    return true;
}

// Every statement sent while it lives, kept in memory as UTF-8 so that neither side waits on a disk.
class GravadorSql final
{
public:
    GravadorSql()
    {
        s_atual = this;
        QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=true"));
        m_anterior = qInstallMessageHandler(&Gravar);
    }
    ~GravadorSql()
    {
        qInstallMessageHandler(m_anterior);
        QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=false"));
        s_atual = nullptr;
    }
    std::vector<QByteArray> sqls;

private:
    static void Gravar(QtMsgType tipo, const QMessageLogContext &ctx, const QString &msg)
    {
        if (tipo == QtDebugMsg && qstrcmp(ctx.category, "pavrel.sql") == 0)
            s_atual->sqls.push_back(msg.toUtf8());
        else if (s_atual->m_anterior)
            s_atual->m_anterior(tipo, ctx, msg);
    }
    static inline GravadorSql *s_atual = nullptr;
    QtMessageHandler m_anterior = nullptr;
};

// The recorded statements sent again one by one, selects read to the end.
bool Repetir(TConexaoSQL &conexao, const std::vector<QByteArray> &sqls)
{
    return std::all_of(sqls.begin(), sqls.end(),
                       [&](const QByteArray &sql) { return Medicao::Repetir(conexao, {QString::fromUtf8(sql)}); });
}

bool Vazio(const TDadosBanco &banco, QString *erro)
{
    return BancoTeste::Criar(banco, Medicao::CadastrosDaLoja(), false, erro);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int pedidas = qEnvironmentVariableIntValue("PAVREL_BENCH_NOTAS");
    const int notas = pedidas > 0 ? pedidas : 100000;
    QTemporaryDir pasta;
    const auto banco = [&](const char *nome) {
        TDadosBanco b;
        b.database = pasta.filePath(QString::fromLatin1(nome));
        return b;
    };
    const TDadosBanco origem = banco("origem.fdb"), destino = banco("destino.fdb"), nu = banco("nu.fdb");
    const QString arquivo = pasta.filePath(QStringLiteral("compras.txt"));
    QTextStream out(stdout);
    QString erro;
    QElapsedTimer t;
    t.start();
    if (!BancoTeste::Criar(origem, Medicao::CadastrosDaLoja() << SqlDados(notas)
                                                   << QStringLiteral("set generator est_mov_g to %1").arg(notas * MovsPorNota), false, &erro) || !Vazio(destino, &erro)
        || !Vazio(nu, &erro)) {
        QTextStream(stderr) << erro << Qt::endl;
        return 1;
    }
    out << QString::asprintf("%d notes with %d movements built in %.1f s (databases without forced writes)\n", notas,
                             notas * MovsPorNota, t.elapsed() / 1000.0)
        << Qt::flush;

    TConexaoSQL conexaoOrigem(origem);
    conexaoOrigem.Conectar();
    bool ok = true;
    const double busca = Medicao::Ms([&] { ok = BuscaNua(conexaoOrigem); });
    std::optional<TContagemArq> exportado;
    const double exportacao = Medicao::Ms([&] { exportado = ExportarPara(conexaoOrigem, arquivo, TProgresso::Janela()); });
    conexaoOrigem.Desconectar();
    if (!ok || !exportado || exportado->movimentos != notas * MovsPorNota) {
        QTextStream(stderr) << "export failed" << Qt::endl;
        return 1;
    }

    TConexaoSQL conexaoDestino(destino), conexaoNu(nu);
    conexaoDestino.Conectar();
    conexaoNu.Conectar();
    std::optional<TContagemArq> importado;
    std::vector<QByteArray> sqls;
    const double importacao = Medicao::Ms([&] {
        GravadorSql gravador;
        importado = ImportarDe(conexaoDestino, arquivo, TProgresso::Janela());
        sqls = std::move(gravador.sqls);
    });
    const auto enviados = qint64(sqls.size());
    // The replay is recorded too, so that both sides pay the same for the connection's log.
    const double repeticao = Medicao::Ms([&] {
        GravadorSql eco;
        ok = Repetir(conexaoNu, sqls);
    });
    conexaoDestino.Desconectar();
    conexaoNu.Desconectar();
    if (!ok || !importado || importado->movimentos != notas * MovsPorNota) {
        QTextStream(stderr) << "import or replay failed" << Qt::endl;
        return 1;
    }
    TConexaoSQL::FecharOciosas();

    const double file = double(QFile(arquivo).size()) / 1e6;
    out << QString::asprintf("export                      %10.1f ms  %6.3f ms per note  (%.1f MB)\n", exportacao,
                             exportacao / notas, file);
    out << QString::asprintf("the same selects, bare      %10.1f ms  ratio %.2f (limit 1.50)\n", busca, exportacao / busca);
    out << QString::asprintf("import                      %10.1f ms  %6.3f ms per note  (%lld statements)\n", importacao,
                             importacao / notas, enviados);
    out << QString::asprintf("the same statements, bare   %10.1f ms  ratio %.2f (limit 1.30)\n", repeticao,
                             importacao / repeticao);
    return 0;
}
