#include "ComandosHeadless.h"
#include "TelaTeste.h"
#include "TProgresso.h"
#include "TestDatabase.h"
#include "UCompraExport.h"
#include "UCompraImport.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// The progress window as the clerk sees it: each text with its maximum, and the closing.
class ProgressoVisto final : public TProgresso
{
public:
    void Exibir(const QString &texto, int maximo) override { vistos << QStringLiteral("%1 %2").arg(texto).arg(maximo); }
    void PegarAtual(int, const QString &) override {}
    void Fechar() override { vistos << QStringLiteral("fechado"); }
    QStringList vistos;
};

// Three notes: an entry with two movements, an XML with line breaks and a tab, and accents (one
// character the code page lacks); a return without movements, dates or XML; a production note
// with one movement on another company. Notes with movements sit on station 10, where the import links them back.
const QString Notas = QStringLiteral(
    "insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, fornec_cod, tot_prods, tot, serie, "
    "arq_xml, nat_op_str, cfop, dth_cri) values (1, 10, 5, '\"', '2026-11-10', 123, 1, 1234.5, 1234.56, '1', '<nfe>' || ascii_char(13) || ascii_char(10) || "
    "'<a>x' || ascii_char(9) || 'y</a></nfe>', 'COMPRA AÇÃO € ✓', '1102', '2026-11-10 08:30:05');\n"
    "insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, ndoc, fornec_cod, tot, nat_op_str, dth_cri) "
    "values (1, 2, 7, '#', 8, 1, -0.5, 'DEVOLUÇÃO', '2026-11-11 09:00:00');\n"
    "insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, fornec_cod, dth_cri) "
    "values (2, 10, 9, '%', '2026-11-12', 9, 0, '2026-11-12 10:00:00');\n"
    "update compra set ind_pag_avista=1, tipo_nf_cod=0, nfe_dv=0;\n"
    "insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, qtd, custo, dth_cri, dth_atu, cfop) "
    "values (1, 10, 41, 'E', 1, 2.5, 10.1234, '2026-11-10 08:31:00', '2026-11-10 08:32:00', '1102');\n"
    "insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, qtd, dth_cri) values (1, 10, 42, 'E', 2, 1, '2026-11-10 08:31:00');\n"
    "insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, qtd, dth_cri) values (2, 10, 43, 'P', 1, 3, '2026-11-12 10:00:00');\n"
    "update est_mov set tipo_jan=1, trat_icms=0, origem_merc=0, icms_bc_mod=3, icms_st_bc_mod=4, trib_cod=1, "
    "icms_mot_deso=0, icms_csosn=0, import_status=0;\n"
    "insert into compra_est_mov values (1, 10, 5, 1, 10, 41);\n"
    "insert into compra_est_mov values (1, 10, 5, 1, 10, 42);\n"
    "insert into compra_est_mov values (2, 10, 9, 2, 10, 43);\n");

class ExpImp : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        sql(Notas);
        ASSERT_TRUE(pasta.isValid());
    }

    QString Arquivo(const QString &nome) const { return pasta.filePath(nome); }
    static QByteArray Ler(const QString &arquivo)
    {
        QFile f(arquivo);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    static void Gravar(const QString &arquivo, const QByteArray &bytes)
    {
        QFile f(arquivo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    }
    // The lines of an export of `banco`, as written.
    QList<QByteArray> Exportado(TConexaoSQL &banco, const QString &nome = QStringLiteral("exp.txt"))
    {
        ProgressoVisto progresso;
        const auto contagem = ExportarPara(banco, Arquivo(nome), progresso);
        EXPECT_TRUE(contagem.has_value()) << primeiraMensagem().toStdString();
        return Ler(Arquivo(nome)).split('\n');
    }
    // Every row of the three tables, so that a refusal can be shown to have touched none.
    QString Linhas() { return db.valor(QStringLiteral(
        "select (select list(compra_cod) from (select compra_cod from compra order by 1)) || '/' || "
        "(select list(est_mov_cod) from (select est_mov_cod from est_mov order by 1)) || '/' || "
        "(select count(*) from compra_est_mov) from rdb$database")); }

    QTemporaryDir pasta;
};

// The key column of every line blanked: the only thing an import changes.
QStringList SemChaves(const QList<QByteArray> &linhas)
{
    QStringList r;
    for (const QByteArray &linha : linhas) {
        QStringList colunas = QString::fromLatin1(linha).split(QLatin1Char('\t'));
        if (colunas.size() > 3)
            colunas[3] = QStringLiteral("#");
        r << colunas.join(QLatin1Char('\t'));
    }
    return r;
}

TEST_F(ExpImp, ExportImportExportGivesTheSameFileWithNewKeys)
{
    const QList<QByteArray> ida = Exportado(db.conexao());
    ASSERT_EQ(ida.size(), 7);   // 3 notes, 3 movements, nothing after the last CR LF
    EXPECT_TRUE(ida.last().isEmpty());
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(ida[i].endsWith('\r')) << i;
    EXPECT_TRUE(ida[0].startsWith("C\t1\t10\t5\t\"\tN\tN\t10/11/2026\t123\t1\t1234,5\t"));
    EXPECT_TRUE(ida[0].contains("\t1234,56\t1\t<nfe> <a>x y</a></nfe>\tCOMPRA A\xC7\xC3O \x80 ?\t")) << ida[0].toStdString();
    EXPECT_TRUE(ida[0].contains("\t10/11/2026 08:30:05\t0\t"));
    EXPECT_TRUE(ida[1].startsWith("CE\t1\t10\t41\tE\t1\t\t2,5\t0\t10,1234\t"));
    EXPECT_TRUE(ida[3].startsWith("C\t1\t2\t7\t#\tN\tN\t30/12/1899\t8\t")) << "a NULL date";
    EXPECT_TRUE(ida[3].contains("\t-0,5\t\t\tDEVOLU\xC7\xC3O\t")) << "a NULL XML is empty";
    EXPECT_TRUE(ida[5].contains("\t30/12/1899\t30/12/1899\t0\t")) << "NULL date-times";

    TestDatabase outro;
    ASSERT_TRUE(outro.ok());
    ProgressoVisto progresso;
    const auto contagem = ImportarDe(outro.conexao(), Arquivo(QStringLiteral("exp.txt")), progresso);
    ASSERT_TRUE(contagem.has_value()) << primeiraMensagem().toStdString();
    EXPECT_EQ(contagem->notas, 3);
    EXPECT_EQ(contagem->movimentos, 3);
    EXPECT_EQ(outro.valor(QStringLiteral("select list(empr_cod || '-' || estacao_cod || '-' || compra_cod, ' ') from "
                                         "(select * from compra order by compra_cod)")),
              QStringLiteral("1-10-1 1-2-2 2-10-3"));
    EXPECT_EQ(outro.valor(QStringLiteral("select count(*) from compra_est_mov where estacao_cod=10 and est_mov_estacao_cod=10 "
                                         "and compra_cod in (1, 3)")), QStringLiteral("3"));
    EXPECT_EQ(outro.valor(QStringLiteral("select coalesce(arq_xml, 'NULL') || dt_doc from compra where compra_cod=2")),
              QStringLiteral("1899-12-30"));
    EXPECT_EQ(SemChaves(Exportado(outro.conexao(), QStringLiteral("volta.txt"))), SemChaves(ida));
}

TEST_F(ExpImp, ImportDeletesEveryLinkedMovementAndShowsItsProgress)
{
    sql(QStringLiteral("insert into est_mov (empr_cod, estacao_cod, est_mov_cod, tipo) values (1, 1, 99, 'S');"));
    Exportado(db.conexao());
    ProgressoVisto progresso;
    ASSERT_TRUE(ImportarDe(db.conexao(), Arquivo(QStringLiteral("exp.txt")), progresso).has_value());
    EXPECT_EQ(progresso.vistos, QStringList({QStringLiteral("Contando registros... 0"), QStringLiteral("Excluindo itens... 6"),
                                             QStringLiteral("Importando... 6"), QStringLiteral("fechado")}));
    // The linked movements went and came back under new keys; the unlinked one stayed.
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) || '/' || sum(iif(est_mov_cod in (41, 42, 43), 1, 0)) || '/' || "
                                      "sum(iif(est_mov_cod=99, 1, 0)) || '/' || (select count(*) from est_mov e join "
                                      "compra_est_mov l on l.est_mov_cod=e.est_mov_cod) from est_mov")),
              QStringLiteral("4/0/1/3"));
}

TEST_F(ExpImp, FilesThatAreNotExportsAreRefusedBeforeAnythingIsDeleted)
{
    const QList<QByteArray> linhas = Exportado(db.conexao());
    const QByteArray nota = linhas[0], mov = linhas[1];
    QByteArray dataRuim = nota;
    dataRuim.replace("10/11/2026\t", "31/02/2026\t");
    QByteArray inteiroRuim = mov;
    inteiroRuim.replace("CE\t1\t10\t41\tE\t1\t", "CE\t1\t10\t41\tE\t1a\t");
    QByteArray comTab = nota;
    comTab.replace("COMPRA A", "COMPRA\tA");
    struct Caso { const char *nome; QByteArray conteudo; QStringList dizeres; };
    const Caso casos[] = {
        {"a tab inside a text", nota + "\n" + comTab + "\n", {"linha 2 tem 36 colunas", "deveria ter 35"}},
        {"a date that does not parse", mov + "\n" + dataRuim + "\n", {"linha 2, coluna 7 (DT_DOC)", "31/02/2026"}},
        {"an integer with a letter", nota + "\n" + inteiroRuim + "\n", {"linha 2, coluna 5 (PROD_COD)", "\"1a\""}},
        {"a short movement", "CE\t1\t2\r\n", {"linha 1 tem 2 colunas", "deveria ter 57"}},
        {"no C or CE line", "Nome\tValor\r\nx\t1\r\n", {"nenhuma linha \"C\" nem \"CE\""}},
        {"NUL bytes", nota + "\n" + QByteArray("C\0\0\0", 4), {"linha 2 tem caracteres nulos"}},
        {"a missing file", {}, {"Não foi possível ler o arquivo", "falta.txt"}},
    };
    const QString antes = Linhas();
    ASSERT_EQ(antes, QStringLiteral("5,7,9/41,42,43/3"));
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.nome);
        const QString arquivo = Arquivo(caso.conteudo.isEmpty() ? QStringLiteral("falta.txt") : QStringLiteral("ruim.txt"));
        if (!caso.conteudo.isEmpty())
            Gravar(arquivo, caso.conteudo);
        ProgressoVisto progresso;
        dialogos.Limpar();
        EXPECT_FALSE(ImportarDe(db.conexao(), arquivo, progresso).has_value());
        const QString mensagem = dialogos.UnicaMensagem(TipoMensagem::Erro);
        for (const QString &dizer : caso.dizeres)
            EXPECT_TRUE(mensagem.contains(dizer)) << mensagem.toStdString();
        EXPECT_TRUE(progresso.vistos.isEmpty());
        EXPECT_EQ(Linhas(), antes);
    }
}

TEST_F(ExpImp, AcceptedFilesReadTheSameWhateverTheirEncodingAndLayout)
{
    const QList<QByteArray> linhas = Exportado(db.conexao());
    const QByteArray nota = linhas[0] + "\n", mov = linhas[1] + "\n";
    const QByteArray utf8 = QString::fromLatin1(nota).replace(QChar(0x80), QChar(0x20AC)).toUtf8();
    ASSERT_NE(utf8, nota);
    struct Caso { const char *nome; QByteArray conteudo; QString depois; };
    const Caso casos[] = {
        {"Windows-1252", nota + mov, QStringLiteral("1/1-10-1-10")},
        {"UTF-8", utf8 + mov, QStringLiteral("1/1-10-1-10")},
        {"UTF-8 with a BOM and an empty last line", "\xEF\xBB\xBF" + utf8 + mov + "\r\n", QStringLiteral("1/1-10-1-10")},
        {"LF only and an empty line between", nota.trimmed() + "\n\n" + mov.trimmed() + "\n", QStringLiteral("1/1-10-1-10")},
        {"a movement before any note", mov + nota, QStringLiteral("1/0-10-0-10")},
        {"an empty file", {}, QStringLiteral("/")},
    };
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.nome);
        Gravar(Arquivo(QStringLiteral("in.txt")), caso.conteudo);
        ProgressoVisto progresso;
        ASSERT_TRUE(ImportarDe(db.conexao(), Arquivo(QStringLiteral("in.txt")), progresso).has_value())
            << primeiraMensagem().toStdString();
        EXPECT_EQ(db.valor(QStringLiteral("select coalesce((select list(compra_cod) from compra), '') || '/' || "
                                          "coalesce((select list(empr_cod || '-' || estacao_cod || '-' || compra_cod || '-' || "
                                          "est_mov_estacao_cod) from compra_est_mov), '') from rdb$database")),
                  caso.depois);
        if (caso.depois.startsWith(QLatin1Char('1'))) {
            EXPECT_EQ(db.valor(QStringLiteral("select nat_op_str from compra")), QStringLiteral("COMPRA AÇÃO € ?"));
        }
    }
}

TEST_F(ExpImp, AFileThatCannotBeWrittenIsNamedAndNothingIsLeft)
{
    Gravar(Arquivo(QStringLiteral("comum")), "x");
    const QString arquivo = Arquivo(QStringLiteral("comum/exp.txt"));
    ProgressoVisto progresso;
    EXPECT_FALSE(ExportarPara(db.conexao(), arquivo, progresso).has_value());
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).startsWith(QStringLiteral("Não foi possível gravar o arquivo ") + arquivo));
    EXPECT_EQ(QDir(pasta.path()).entryList(QDir::Files), QStringList{QStringLiteral("comum")});
}

TEST_F(ExpImp, TheScreenAsksAndReloadsTheList)
{
    const auto tela = AbrirTela();
    const QString arquivo = Arquivo(QStringLiteral("tela.txt"));
    dialogos.ResponderArquivo(arquivo);
    tela->Acao(QStringLiteral("ExportarComprasAct"))->trigger();
    ASSERT_EQ(dialogos.EscolhasArquivo().size(), 1);
    EXPECT_EQ(dialogos.EscolhasArquivo()[0].titulo, QStringLiteral("Exportar compras para arquivo..."));
    EXPECT_EQ(dialogos.EscolhasArquivo()[0].filtro, QStringLiteral("*.txt|*.txt|*.*|*.*"));
    ASSERT_TRUE(QFile::exists(arquivo));

    dialogos.Responder(false);
    tela->Acao(QStringLiteral("ImportarComprasAct"))->trigger();
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_EQ(dialogos.Perguntas()[0].texto, PerguntaImportar);
    EXPECT_EQ(dialogos.EscolhasArquivo().size(), 1) << "no file asked for after a no";
    EXPECT_EQ(Linhas(), QStringLiteral("5,7,9/41,42,43/3"));

    dialogos.Responder(true);
    dialogos.ResponderArquivo(arquivo);
    tela->Acao(QStringLiteral("ImportarComprasAct"))->trigger();
    EXPECT_EQ(dialogos.EscolhasArquivo().last().titulo, QStringLiteral("Importar compras de arquivo..."));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_TRUE(Linhas().startsWith(QStringLiteral("1,2,3/")));
    EXPECT_TRUE(tela->Acao(QStringLiteral("ImportarComprasAct"))->isEnabled());
}

TEST_F(ExpImp, HeadlessCommands)
{
    const QString arquivo = Arquivo(QStringLiteral("cmd.txt"));
    struct Caso { QStringList linha; int codigo; QString saida; QString linhas; };
    const Caso casos[] = {
        {{QStringLiteral("export")}, 2, QStringLiteral("uso: pavrel export ARQUIVO"), QStringLiteral("5,7,9/41,42,43/3")},
        {{QStringLiteral("export"), arquivo}, 0, QStringLiteral("3 notas e 3 movimentos exportados para ") + arquivo,
         QStringLiteral("5,7,9/41,42,43/3")},
        {{QStringLiteral("import"), arquivo}, 1, PerguntaImportar, QStringLiteral("5,7,9/41,42,43/3")},
        {{QStringLiteral("import"), arquivo, QStringLiteral("--yes")}, 0,
         QStringLiteral("3 notas e 3 movimentos importados de ") + arquivo, QStringLiteral("1,2,3/")},
    };
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.linha.join(QLatin1Char(' ')).toStdString());
        QString texto;
        QTextStream saida(&texto);
        EXPECT_EQ(ComandosHeadless::Executar(caso.linha, saida, saida), caso.codigo);
        EXPECT_TRUE(texto.contains(caso.saida)) << texto.toStdString();
        EXPECT_TRUE(Linhas().startsWith(caso.linhas)) << Linhas().toStdString();
    }
}

} // namespace
