// Exporting every note with its movements against the bare fetch of the same selects (rows walked,
// no text made), and importing the file into an empty database against the bare replay of the
// statements the import sent, into another empty database. PAVREL_BENCH_NOTAS notes (100,000 by
// default), five movements each; the databases run without forced writes.
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
#include <QTemporaryDir>
#include <QTextStream>

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

// Every statement sent while it lives goes to a file, each ended by a record separator line.
class GravadorSql final
{
public:
    explicit GravadorSql(const QString &arquivo) : m_arquivo(arquivo)
    {
        s_atual = this;
        m_ok = m_arquivo.open(QIODevice::WriteOnly);
        QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=true"));
        m_anterior = qInstallMessageHandler(&Gravar);
    }
    ~GravadorSql()
    {
        qInstallMessageHandler(m_anterior);
        QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=false"));
        s_atual = nullptr;
    }
    bool Ok() const { return m_ok; }
    qint64 Quantos() const { return m_quantos; }

private:
    static void Gravar(QtMsgType tipo, const QMessageLogContext &ctx, const QString &msg)
    {
        if (tipo == QtDebugMsg && qstrcmp(ctx.category, "pavrel.sql") == 0) {
            s_atual->m_ok = s_atual->m_arquivo.write(msg.toUtf8() + "\n\x1E\n") > 0 && s_atual->m_ok;
            ++s_atual->m_quantos;
        } else if (s_atual->m_anterior) {
            s_atual->m_anterior(tipo, ctx, msg);
        }
    }
    static inline GravadorSql *s_atual = nullptr;
    QFile m_arquivo;
    QtMessageHandler m_anterior = nullptr;
    bool m_ok = false;
    qint64 m_quantos = 0;
};

// The recorded statements sent again one by one, selects read to the end.
bool Repetir(TConexaoSQL &conexao, const QString &arquivo)
{
    QFile f(arquivo);
    if (!f.open(QIODevice::ReadOnly))
        return false;
    QByteArray sql;
    while (!f.atEnd()) {
        const QByteArray linha = f.readLine();
        if (linha != "\x1E\n") {
            sql += linha;
            continue;
        }
        sql.chop(1);
        if (!Medicao::Repetir(conexao, {QString::fromUtf8(sql)}))
            return false;
        sql.clear();
    }
    return true;
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
    const QString registro = pasta.filePath(QStringLiteral("sql.log"));
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
    qint64 enviados = 0;
    const double importacao = Medicao::Ms([&] {
        GravadorSql gravador(registro);
        importado = ImportarDe(conexaoDestino, arquivo, TProgresso::Janela());
        ok = gravador.Ok();
        enviados = gravador.Quantos();
    });
    const double repeticao = ok ? Medicao::Ms([&] { ok = Repetir(conexaoNu, registro); }) : 0;
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
    return exportacao / busca <= 1.5 && importacao / repeticao <= 1.3 ? 0 : 2;
}
