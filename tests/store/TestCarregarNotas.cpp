#include "RegistroSql.h"
#include "DialogosTeste.h"
#include "Money.h"
#include "TClientDataSet.h"
#include "TClientManager.h"
#include "ProgressoTeste.h"
#include "TRepD.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>


namespace {

// A null type is stored as NULL; a type text, when not null, instead of the code.
struct Nota
{
    int empr = 1, compra = 1;
    std::optional<int> tipo = TipoDoc::Entrada;
    QString tipoTexto = QString();
    int fornec = 1;
    QDate dtDoc = QDate(2026, 11, 10);
    int ndoc = 100;
    bool cancelado = false, baixado = false;
    int destin = 0;
    QString xml = QString();
    Money tot = Money::fromInt(10);
};

TFiltroNotas Todas(const std::function<void(TFiltroNotas &)> &ajuste = [](TFiltroNotas &) {})
{
    TFiltroNotas f;
    f.considerarDatas = false;
    f.canceladosIndice = f.origemIndice = 0;
    ajuste(f);
    return f;
}

class CarregarNotas : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(db.ok()) << db.erro().toStdString(); }

    void Inserir(const Nota &n)
    {
        const QString tipo = !n.tipoTexto.isNull() ? QuotedStr(n.tipoTexto)
                             : n.tipo ? TipoDoc::SqlDoCodigo(*n.tipo) : QStringLiteral("NULL");
        const QString sql =
            QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, dt_doc, ndoc, serie, "
                           "cancelado, baixado, destin_empr_cod, arq_xml, tot) values (%1, 1, %2, %3, %4, %5, %6, '1', %7, %8, %9, %10, %11)")
                .arg(n.empr).arg(n.compra).arg(tipo).arg(n.fornec).arg(DataSQLFirebird(n.dtDoc)).arg(n.ndoc)
                .arg(n.cancelado ? "'S'" : "'N'", n.baixado ? "'S'" : "'N'").arg(n.destin)
                .arg(n.xml.isNull() ? QStringLiteral("NULL") : QuotedStr(n.xml), FloatToStrPonto(n.tot));
        ASSERT_EQ(db.exec(sql), QString()) << sql.toStdString();
    }

    bool Carregar(const TFiltroNotas &filtro)
    {
        RegistroSql::Limpar();
        return repD.CarregarNotas(filtro);
    }

    // The shown text of the named fields of a note's row, joined by blanks.
    QString Linha(int compra, std::initializer_list<const char *> campos)
    {
        if (!repD.Notas().Locate(QStringLiteral("compra_COD"), compra))
            return QStringLiteral("<no row>");
        QStringList l;
        for (const char *c : campos)
            l << repD.Notas().FieldByName(QLatin1String(c)).DisplayText();
        return l.join(QLatin1Char(' '));
    }
    QList<int> Codigos(bool ordenados = false)
    {
        QList<int> codigos;
        for (int r = 0; r < repD.Notas().RecordCount(); ++r)
            codigos << repD.Notas().ValueAt(r, repD.Notas().FieldByName(QStringLiteral("compra_COD")).Index()).toInt();
        if (ordenados)
            std::sort(codigos.begin(), codigos.end());
        return codigos;
    }

    TestDatabase db{TestDatabase::Conteudo::FixtureBase};
    RegistroSql registro;
    DialogosTeste dialogos;
    TRepD repD{db.conexao()};
    QAbstractItemModelTester tester{&repD.ClientManager1(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(CarregarNotas, EachFilterBuildsTheStatementThatIsSentAndChoosesTheRows)
{
    Inserir({.compra = 1});
    Inserir({.compra = 2, .fornec = 2, .ndoc = 345, .xml = QStringLiteral("<nfeProc versao=\"4.00\"/>")});
    Inserir({.compra = 3, .dtDoc = QDate(2026, 9, 15), .cancelado = true});
    Inserir({.compra = 4, .dtDoc = QDate(2025, 12, 1)});
    const QDate de(2026, 10, 1), ate(2026, 11, 22);
    const struct { const char *nome; TFiltroNotas filtro; QString condicao; QList<int> codigos; } casos[] = {
        {"no filter: no where", Todas(), QString(), {1, 2, 3, 4}},
        {"only the supplier: two blanks after where", Todas([](TFiltroNotas &f) { f.fornecCod = 2; }), " where  compra.fornec_cod=2", {2}},
        {"NAO CANCELADAS", Todas([](TFiltroNotas &f) { f.canceladosIndice = 1; }), " where  cancelado='N'", {1, 2, 4}},
        {"CANCELADAS", Todas([](TFiltroNotas &f) { f.canceladosIndice = 2; }), " where  cancelado='S'", {3}},
        {"only XML", Todas([](TFiltroNotas &f) { f.origemIndice = 2; }), QString(), {2}},
        {"only manual", Todas([](TFiltroNotas &f) { f.origemIndice = 1; }), QString(), {1, 3, 4}},
        {"dates", Todas([&](TFiltroNotas &f) { f.considerarDatas = true; f.de = de; f.ate = ate; }),
         " where  compra.dt_doc>='2026-10-01' and compra.dt_doc<='2026-11-22'", {1, 2}},
        {"dates out of order: empty, no error", Todas([&](TFiltroNotas &f) { f.considerarDatas = true; f.de = ate; f.ate = de; }),
         " where  compra.dt_doc>='2026-11-22' and compra.dt_doc<='2026-10-01'", {}},
        {"document number", Todas([](TFiltroNotas &f) { f.ndoc = 345; }), " where  compra.ndoc=345", {2}},
        {"every filter, joined by and",
         Todas([&](TFiltroNotas &f) { f.considerarDatas = true; f.de = de; f.ate = ate; f.fornecCod = 2; f.canceladosIndice = 1; f.ndoc = 345; }),
         " where  compra.dt_doc>='2026-10-01' and compra.dt_doc<='2026-11-22' and  compra.fornec_cod=2 and  cancelado='N' and  compra.ndoc=345", {2}},
        {"the screen's initial filter: last month's first day, manual notes",  TFiltroNotas::Inicial(QDate(2026, 1, 15)),
         " where  compra.dt_doc>='2025-12-01' and compra.dt_doc<='2026-01-15' and  cancelado='N'", {4}},
        {"dates unchecked are ignored", Todas([&](TFiltroNotas &f) { f.de = de; f.ate = ate; }), QString(), {1, 2, 3, 4}},
    };
    const QString base = QStringLiteral("select compra.*,fornec.nome_red as fornec_nome_red from compra "
                                        "left join fornec on fornec.fornec_cod=compra.fornec_cod");
    for (const auto &caso : casos) {
        SCOPED_TRACE(caso.nome);
        const QString sql = TRepD::SqlNotas(caso.filtro);
        EXPECT_EQ(sql, base + caso.condicao);
        EXPECT_TRUE(Carregar(caso.filtro));
        EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().value(0).texto.toStdString();
        EXPECT_EQ(RegistroSql::Sql().value(0), sql);
        EXPECT_EQ(Codigos(true), caso.codigos);
    }
    EXPECT_EQ(Linha(2, {"DOC_ORIG_STR"}) + Linha(1, {"DOC_ORIG_STR"}), QStringLiteral("XMLMANUAL"));
}

TEST_F(CarregarNotas, RowsCarryTheNoteAndItsDerivedColumns)
{
    Inserir({.empr = 1, .compra = 345, .fornec = 1, .ndoc = 777, .baixado = true, .destin = 2, .tot = Money::fromRaw(12345000)});
    Inserir({.empr = 2, .compra = 7, .tipo = std::nullopt, .fornec = 2, .cancelado = true});
    Inserir({.compra = 8, .tipoTexto = QString(""), .destin = 99});
    Inserir({.compra = 9, .tipoTexto = QStringLiteral("Z")});
    ASSERT_TRUE(Carregar(Todas()));
    // A null or empty type is a purchase entry; no destination, no company name.
    const auto campos = {"DOC_STR", "TIPO_cod", "TIPO_DOC_STR", "FORNEC_COD", "FORNEC_NOME_RED", "NDOC", "DT_DOC", "TOT",
                         "BAIXADO", "BAIXADO_STR", "CANCELADO", "CANCELADO_STR", "DOC_ORIG_STR", "EMPR_COD", "compra_COD",
                         "ESTACAO_COD", "DESTIN_EMPR_RAZ"};
    EXPECT_EQ(Linha(345, campos), QStringLiteral("001-0000345 34 ENTRADA 1 FORNEC SP 777 10/11/26 1234,50 Sim SIM Não NÃO MANUAL 001 "
                                                 "000345 1 Filial Norte Comércio Ltda"));
    EXPECT_EQ(Linha(7, {"DOC_STR", "TIPO_cod", "TIPO_DOC_STR", "CANCELADO_STR", "DESTIN_EMPR_RAZ"}) + " / " + Linha(8, {"TIPO_cod", "DESTIN_EMPR_RAZ"})
                  + " / " + Linha(9, {"TIPO_cod", "TIPO_DOC_STR"}),
              QStringLiteral("002-0000007 34 ENTRADA SIM  / 34 <NÃO ENCONTRADO> / 90 [90]"));
    EXPECT_EQ(RegistroSql::Sql().size(), 2) << "the company names are read once for the whole list:\n"
                                            << RegistroSql::Sql().join('\n').toStdString();
}

TEST_F(CarregarNotas, AReloadKeepsTheSortColumnAndStartsOnTheFirstRow)
{
    Inserir({.compra = 1, .ndoc = 20});
    Inserir({.compra = 2, .ndoc = 30});
    Inserir({.compra = 3, .ndoc = 10});
    ASSERT_TRUE(Carregar(Todas()));
    const int coluna = repD.ClientManager1().ColumnOfField(QStringLiteral("NDOC"));
    ASSERT_GE(coluna, 0);
    repD.ClientManager1().sort(coluna, Qt::DescendingOrder);
    ASSERT_EQ(Codigos(), (QList<int>{2, 1, 3}));
    Inserir({.compra = 4, .ndoc = 25});
    ASSERT_TRUE(Carregar(Todas()));
    EXPECT_EQ(Codigos(), (QList<int>{2, 4, 1, 3}));
    EXPECT_EQ(repD.Notas().RecNo(), 1);
    EXPECT_FALSE(repD.Notas().ControlsDisabled());
}

TEST(CarregarNotasFalha, ADatabaseFailureShowsOneMessageAndLeavesAnEmptyList)
{
    // A statement that breaks the database under the list, and the driver's word for what is missing.
    const struct { const char *nome; const char *quebra, *naMensagem; } casos[] = {
        {"the list statement fails", "alter table fornec drop nome_red", "NOME_RED"},
        {"the company names cannot be read", "alter table empr drop raz", "RAZ"},
        {"a missing database names itself", nullptr, "/nonexistent/pavrel.fdb"},
    };
    for (const auto &caso : casos) {
        SCOPED_TRACE(caso.nome);
        TestDatabase quebrado(TestDatabase::Conteudo::FixtureBase);
        ASSERT_TRUE(quebrado.ok()) << quebrado.erro().toStdString();
        TConexaoSQL semBanco(TDadosBanco{QStringLiteral("/nonexistent/pavrel.fdb")});
        TRepD outro(caso.quebra ? quebrado.conexao() : semBanco);
        DialogosTeste mensagens;
        ProgressoTeste progresso;
        if (caso.quebra) {
            ASSERT_EQ(quebrado.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, destin_empr_cod) "
                                                   "values (1, 1, 1, 2)")), QString());
            ASSERT_TRUE(outro.CarregarNotas(Todas()));
            ASSERT_EQ(outro.Notas().RecordCount(), 1);
            ASSERT_EQ(quebrado.exec(QString::fromLatin1(caso.quebra)), QString());
        }
        EXPECT_FALSE(outro.CarregarNotas(Todas()));
        const QString texto = mensagens.UnicaMensagem(TipoMensagem::Erro);
        EXPECT_TRUE(texto.contains(QLatin1String(caso.naMensagem), Qt::CaseInsensitive)) << texto.toStdString();
        EXPECT_EQ(outro.Notas().RecordCount(), 0);
        EXPECT_FALSE(outro.Notas().ControlsDisabled());
        EXPECT_TRUE(progresso.Fechado());
    }
}

TEST_F(CarregarNotas, EveryTypeSurvivesTheRoundTripAndTheTraceAtLevel64ShowsTheFirstThreeRows)
{
    Inserir({.compra = 99, .tipo = TipoDoc::Producao});
    for (const TipoDoc::TTipoDoc &t : TipoDoc::Tabela())
        Inserir({.compra = 100 + t.indice, .tipo = t.codigo});
    Contexto::Atual().modoDebug = 64;
    ASSERT_TRUE(Carregar(Todas()));
    for (const TipoDoc::TTipoDoc &t : TipoDoc::Tabela())
        EXPECT_EQ(Linha(100 + t.indice, {"TIPO_cod", "TIPO_DOC_STR"}), QStringLiteral("%1 %2").arg(t.codigo).arg(QString::fromUtf8(t.texto)));
    EXPECT_EQ(RegistroSql::Sql().size(), 1) << "no destination: no company look-up";
    const QStringList linhas = dialogos.UnicaMensagem(TipoMensagem::Simples).split(QStringLiteral("\r\n"));
    ASSERT_EQ(linhas.size(), 9) << linhas.join('|').toStdString();
    EXPECT_TRUE(linhas[0].startsWith(QStringLiteral("q.FieldByName('TIPO_cod').AsString=[%"))) << linhas[0].toStdString();
    EXPECT_EQ(linhas.mid(1, 2), (QStringList{"ord(s[1])=[37]", "TIPO_DOC_STR=PRODUCAO"}));
}

} // namespace
