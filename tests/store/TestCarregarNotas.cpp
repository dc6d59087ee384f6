#include "RegistroSql.h"
#include "Contexto.h"
#include "DialogosTeste.h"
#include "Money.h"
#include "TClientDataSet.h"
#include "TClientManager.h"
#include "TConexaoSQL.h"
#include "ProgressoTeste.h"
#include "TRepD.h"
#include "TestDatabase.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include <optional>

namespace {

const QString Base = QStringLiteral("select compra.*,fornec.nome_red as fornec_nome_red from compra "
                                    "left join fornec on fornec.fornec_cod=compra.fornec_cod");

struct Nota
{
    int empr = 1;
    int compra = 1;
    std::optional<int> tipo = TipoDoc::Entrada;     // nullopt: NULL
    QString tipoTexto = QString();                  // stored instead of the code when not null
    int fornec = 1;
    QDate dtDoc = QDate(2026, 11, 10);
    int ndoc = 100;
    bool cancelado = false;
    bool baixado = false;
    int destin = 0;
    QString xml = QString();
    Money tot = Money::fromInt(10);
};

TFiltroNotas Todas()
{
    TFiltroNotas f;
    f.considerarDatas = false;
    f.canceladosIndice = 0;
    f.origemIndice = 0;
    return f;
}

class CarregarNotas : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        ASSERT_EQ(repD.Notas().RecordCount(), 0);
    }

    void Inserir(const Nota &n)
    {
        const QString tipo = !n.tipoTexto.isNull() ? QuotedStr(n.tipoTexto)
                             : n.tipo ? TipoDoc::SqlDoCodigo(*n.tipo) : QStringLiteral("NULL");
        const QString sql =
            QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, "
                           "dt_doc, ndoc, serie, cancelado, baixado, destin_empr_cod, arq_xml, tot) values "
                           "(%1, 1, %2, %3, %4, %5, %6, '1', %7, %8, %9, %10, %11)")
                .arg(n.empr).arg(n.compra)
                .arg(tipo)
                .arg(n.fornec)
                .arg(DataSQLFirebird(n.dtDoc))
                .arg(n.ndoc)
                .arg(QuotedStr(n.cancelado ? QStringLiteral("S") : QStringLiteral("N")),
                     QuotedStr(n.baixado ? QStringLiteral("S") : QStringLiteral("N")))
                .arg(n.destin)
                .arg(n.xml.isNull() ? QStringLiteral("NULL") : QuotedStr(n.xml), FloatToStrPonto(n.tot));
        ASSERT_EQ(db.exec(sql), QString()) << sql.toStdString();
    }

    bool Carregar(const TFiltroNotas &filtro)
    {
        RegistroSql::Limpar();
        return repD.CarregarNotas(filtro);
    }

    // The list row of a note, by its code; the cursor stays there.
    bool Ir(int compra) { return repD.Notas().Locate(QStringLiteral("compra_COD"), compra); }
    QString Texto(const char *campo) { return repD.Notas().FieldByName(QLatin1String(campo)).DisplayText(); }
    QList<int> Codigos()
    {
        QList<int> codigos;
        TClientDataSet &ds = repD.Notas();
        for (int r = 0; r < ds.RecordCount(); ++r)
            codigos << ds.ValueAt(r, ds.FieldByName(QStringLiteral("compra_COD")).Index()).toInt();
        return codigos;
    }

    TestDatabase db{TestDatabase::Conteudo::FixtureBase};
    RegistroSql registro;
    DialogosTeste dialogos;
    TRepD repD{db.conexao()};
    QAbstractItemModelTester tester{&repD.ClientManager1(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

struct CasoFiltro
{
    const char *nome;
    TFiltroNotas filtro;
    QString condicao;   // what follows the base statement
};

TFiltroNotas Com(auto ajuste)
{
    TFiltroNotas f = Todas();
    ajuste(f);
    return f;
}

TEST_F(CarregarNotas, EachFilterBuildsTheStatementThatIsSentAndRuns)
{
    const QDate de(2026, 10, 1), ate(2026, 11, 22);
    const CasoFiltro casos[] = {
        {"no filter: no where", Todas(), QString()},
        {"only the supplier: two blanks after where", Com([](TFiltroNotas &f) { f.fornecCod = 12; }),
         QStringLiteral(" where  compra.fornec_cod=12")},
        {"cancelled TODAS adds nothing", Com([](TFiltroNotas &f) { f.canceladosIndice = 0; }), QString()},
        {"NAO CANCELADAS", Com([](TFiltroNotas &f) { f.canceladosIndice = 1; }),
         QStringLiteral(" where  cancelado='N'")},
        {"CANCELADAS", Com([](TFiltroNotas &f) { f.canceladosIndice = 2; }),
         QStringLiteral(" where  cancelado='S'")},
        {"dates", Com([&](TFiltroNotas &f) { f.considerarDatas = true; f.de = de; f.ate = ate; }),
         QStringLiteral(" where  compra.dt_doc>='2026-10-01' and compra.dt_doc<='2026-11-22'")},
        {"dates unchecked are ignored", Com([&](TFiltroNotas &f) { f.de = de; f.ate = ate; }), QString()},
        {"document number", Com([](TFiltroNotas &f) { f.ndoc = 345; }), QStringLiteral(" where  compra.ndoc=345")},
        {"every filter, joined by and",
         Com([&](TFiltroNotas &f) {
             f.considerarDatas = true; f.de = de; f.ate = ate;
             f.fornecCod = 12; f.canceladosIndice = 1; f.ndoc = 345;
         }),
         QStringLiteral(" where  compra.dt_doc>='2026-10-01' and compra.dt_doc<='2026-11-22' and  "
                        "compra.fornec_cod=12 and  cancelado='N' and  compra.ndoc=345")},
        {"the screen's initial filter", TFiltroNotas::Inicial(QDate(2026, 1, 15)),
         QStringLiteral(" where  compra.dt_doc>='2025-12-01' and compra.dt_doc<='2026-01-15' and  cancelado='N'")},
    };
    Inserir({});
    for (const CasoFiltro &caso : casos) {
        SCOPED_TRACE(caso.nome);
        const QString sql = TRepD::SqlNotas(caso.filtro);
        EXPECT_EQ(sql, Base + caso.condicao);
        EXPECT_TRUE(Carregar(caso.filtro));
        EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().value(0).texto.toStdString();
        ASSERT_FALSE(RegistroSql::Sql().isEmpty());
        EXPECT_EQ(RegistroSql::Sql().first(), sql);
    }
}

TEST_F(CarregarNotas, RowsCarryTheNoteAndItsDerivedColumns)
{
    Inserir({.empr = 1, .compra = 345, .fornec = 1, .ndoc = 777, .baixado = true, .destin = 2,
             .tot = Money::fromRaw(12345000)});
    Inserir({.empr = 2, .compra = 7, .tipo = std::nullopt, .fornec = 2, .cancelado = true});
    Inserir({.compra = 8, .tipoTexto = QString(""), .destin = 99});
    Inserir({.compra = 9, .tipoTexto = QStringLiteral("Z")});
    ASSERT_TRUE(Carregar(Todas()));
    ASSERT_EQ(repD.Notas().RecordCount(), 4);

    ASSERT_TRUE(Ir(345));
    EXPECT_EQ(Texto("DOC_STR"), "001-0000345");
    EXPECT_EQ(Texto("TIPO_DOC_STR"), "ENTRADA");
    EXPECT_EQ(repD.Notas().FieldByName("TIPO_cod").AsInteger(), TipoDoc::Entrada);
    EXPECT_EQ(Texto("FORNEC_NOME_RED"), "FORNEC SP");
    EXPECT_EQ(repD.Notas().FieldByName("FORNEC_COD").AsInteger(), 1);
    EXPECT_EQ(Texto("NDOC"), "777");
    EXPECT_EQ(Texto("DT_DOC"), "10/11/26");
    EXPECT_EQ(repD.Notas().FieldByName("TOT").AsMoney(), Money::fromRaw(12345000));
    EXPECT_EQ(Texto("TOT"), "1234,50");
    EXPECT_TRUE(repD.Notas().FieldByName("BAIXADO").AsBoolean());
    EXPECT_EQ(Texto("BAIXADO_STR"), RepBaixadoStr(true));
    EXPECT_FALSE(repD.Notas().FieldByName("CANCELADO").AsBoolean());
    EXPECT_EQ(Texto("CANCELADO_STR"), RepCanceladoStr(false));
    EXPECT_EQ(Texto("DOC_ORIG_STR"), "MANUAL");
    EXPECT_EQ(Texto("DESTIN_EMPR_RAZ"), "Filial Norte Comércio Ltda");
    EXPECT_EQ(Texto("EMPR_COD"), "001");
    EXPECT_EQ(Texto("compra_COD"), "000345");
    EXPECT_EQ(Texto("ESTACAO_COD"), "1");

    ASSERT_TRUE(Ir(7));
    EXPECT_EQ(Texto("DOC_STR"), "002-0000007");
    EXPECT_EQ(Texto("TIPO_DOC_STR"), "ENTRADA") << "a null type is a purchase entry";
    EXPECT_EQ(repD.Notas().FieldByName("TIPO_cod").AsInteger(), TipoDoc::Entrada);
    EXPECT_TRUE(repD.Notas().FieldByName("CANCELADO").AsBoolean());
    EXPECT_EQ(Texto("CANCELADO_STR"), RepCanceladoStr(true));
    EXPECT_EQ(Texto("DESTIN_EMPR_RAZ"), "") << "no destination company";

    ASSERT_TRUE(Ir(8));
    EXPECT_EQ(repD.Notas().FieldByName("TIPO_cod").AsInteger(), TipoDoc::Entrada) << "an empty type";
    EXPECT_EQ(Texto("DESTIN_EMPR_RAZ"), "<NÃO ENCONTRADO>");

    ASSERT_TRUE(Ir(9));
    EXPECT_EQ(repD.Notas().FieldByName("TIPO_cod").AsInteger(), int('Z'));
    EXPECT_EQ(Texto("TIPO_DOC_STR"), "[90]");

    EXPECT_EQ(RegistroSql::Sql().size(), 2) << "the company names are read once for the whole list:\n"
                                         << RegistroSql::Sql().join('\n').toStdString();
}

TEST_F(CarregarNotas, EveryTypeSurvivesTheRoundTripThroughTheDatabase)
{
    for (const TipoDoc::TTipoDoc &t : TipoDoc::Tabela())
        Inserir({.compra = 100 + t.indice, .tipo = t.codigo});
    ASSERT_TRUE(Carregar(Todas()));
    ASSERT_EQ(repD.Notas().RecordCount(), TipoDoc::Tabela().size());
    for (const TipoDoc::TTipoDoc &t : TipoDoc::Tabela()) {
        SCOPED_TRACE(t.texto);
        ASSERT_TRUE(Ir(100 + t.indice));
        EXPECT_EQ(repD.Notas().FieldByName("TIPO_cod").AsInteger(), t.codigo);
        EXPECT_EQ(Texto("TIPO_DOC_STR"), QString::fromUtf8(t.texto));
    }
    EXPECT_EQ(RegistroSql::Sql().size(), 1) << "no destination: no company look-up";
}

TEST_F(CarregarNotas, OriginAndCancelledFiltersChooseTheRows)
{
    Inserir({.compra = 1});
    Inserir({.compra = 2, .xml = QStringLiteral("<nfeProc versao=\"4.00\"/>")});
    Inserir({.compra = 3, .cancelado = true});
    struct Caso
    {
        const char *nome;
        int origem;
        int cancelados;
        QList<int> codigos;
    } casos[] = {
        {"initial: manual, not cancelled", 1, 1, {1}},
        {"every origin", 0, 1, {1, 2}},
        {"only XML", 2, 0, {2}},
        {"every note", 0, 0, {1, 2, 3}},
        {"cancelled", 0, 2, {3}},
    };
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.nome);
        TFiltroNotas f = Todas();
        f.origemIndice = caso.origem;
        f.canceladosIndice = caso.cancelados;
        ASSERT_TRUE(Carregar(f));
        QList<int> codigos = Codigos();
        std::sort(codigos.begin(), codigos.end());
        EXPECT_EQ(codigos, caso.codigos);
    }
    ASSERT_TRUE(Carregar(Todas()));
    ASSERT_TRUE(Ir(2));
    EXPECT_EQ(Texto("DOC_ORIG_STR"), "XML");
    ASSERT_TRUE(Ir(1));
    EXPECT_EQ(Texto("DOC_ORIG_STR"), "MANUAL");
}

TEST_F(CarregarNotas, DatesOutOfOrderGiveAnEmptyListWithoutError)
{
    Inserir({.dtDoc = QDate(2026, 11, 10)});
    TFiltroNotas f = Todas();
    f.considerarDatas = true;
    f.de = QDate(2026, 11, 30);
    f.ate = QDate(2026, 11, 1);
    EXPECT_TRUE(Carregar(f));
    EXPECT_EQ(repD.Notas().RecordCount(), 0);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    std::swap(f.de, f.ate);
    EXPECT_TRUE(Carregar(f));
    EXPECT_EQ(repD.Notas().RecordCount(), 1);
}

TEST_F(CarregarNotas, AReloadKeepsTheSortColumnAndStartsOnTheFirstRow)
{
    Inserir({.compra = 1, .ndoc = 20});
    Inserir({.compra = 2, .ndoc = 30});
    Inserir({.compra = 3, .ndoc = 10});
    ASSERT_TRUE(Carregar(Todas()));
    TClientManager &grade = repD.ClientManager1();
    const int coluna = grade.ColumnOfField(QStringLiteral("NDOC"));
    ASSERT_GE(coluna, 0);
    grade.sort(coluna, Qt::DescendingOrder);
    ASSERT_EQ(Codigos(), (QList<int>{2, 1, 3}));

    Inserir({.compra = 4, .ndoc = 25});
    ASSERT_TRUE(Carregar(Todas()));
    EXPECT_EQ(Codigos(), (QList<int>{2, 4, 1, 3}));
    EXPECT_EQ(repD.Notas().RecNo(), 1);
    EXPECT_FALSE(repD.Notas().ControlsDisabled());
}

TEST(CarregarNotasFalha, ADatabaseFailureShowsOneMessageAndLeavesAnEmptyList)
{
    struct Caso
    {
        const char *nome;
        QString quebra;     // a statement that breaks the database under the list
        QString naMensagem; // the driver's word for what is missing
    } casos[] = {
        {"the list statement fails", QStringLiteral("alter table fornec drop nome_red"), QStringLiteral("NOME_RED")},
        {"the company names cannot be read", QStringLiteral("alter table empr drop raz"), QStringLiteral("RAZ")},
    };
    for (const Caso &caso : casos) {
        SCOPED_TRACE(caso.nome);
        TestDatabase quebrado(TestDatabase::Conteudo::FixtureBase);
        ASSERT_TRUE(quebrado.ok()) << quebrado.erro().toStdString();
        TRepD outro(quebrado.conexao());
        DialogosTeste mensagens;
        ProgressoTeste progresso;
        ASSERT_EQ(quebrado.exec(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, "
                                               "destin_empr_cod) values (1, 1, 1, 2)")), QString());
        ASSERT_TRUE(outro.CarregarNotas(Todas()));
        ASSERT_EQ(outro.Notas().RecordCount(), 1);

        ASSERT_EQ(quebrado.exec(caso.quebra), QString());
        EXPECT_FALSE(outro.CarregarNotas(Todas()));
        const QString texto = mensagens.UnicaMensagem(TipoMensagem::Erro);
        EXPECT_TRUE(texto.contains(caso.naMensagem, Qt::CaseInsensitive)) << texto.toStdString();
        EXPECT_EQ(outro.Notas().RecordCount(), 0);
        EXPECT_FALSE(outro.Notas().ControlsDisabled());
        EXPECT_TRUE(progresso.Fechado());
    }
}

TEST(CarregarNotasSemBanco, AMissingDatabaseNamesItself)
{
    DialogosTeste dialogos;
    ProgressoTeste progresso;
    TConexaoSQL conexao(TDadosBanco{QStringLiteral("/nonexistent/pavrel.fdb")});
    TRepD repD(conexao);
    EXPECT_FALSE(repD.CarregarNotas(TFiltroNotas::Inicial(QDate(2026, 11, 22))));
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).contains(QStringLiteral("/nonexistent/pavrel.fdb")));
    EXPECT_FALSE(repD.Notas().ControlsDisabled());
    EXPECT_TRUE(progresso.Fechado());
}

TEST_F(CarregarNotas, TheTypeTraceShowsTheFirstThreeRowsAtLevel64Only)
{
    for (int c = 1; c <= 4; ++c)
        Inserir({.compra = c, .tipo = TipoDoc::Producao});
    Contexto::Atual().modoDebug = 72;
    ASSERT_TRUE(Carregar(Todas()));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    Contexto::Atual().modoDebug = 64;
    ASSERT_TRUE(Carregar(Todas()));
    const QStringList linhas = dialogos.UnicaMensagem(TipoMensagem::Simples).split(QStringLiteral("\r\n"));
    ASSERT_EQ(linhas.size(), 9) << linhas.join('|').toStdString();
    EXPECT_TRUE(linhas[0].startsWith(QStringLiteral("q.FieldByName('TIPO_cod').AsString=[%"))) << linhas[0].toStdString();
    EXPECT_EQ(linhas[1], "ord(s[1])=[37]");
    EXPECT_EQ(linhas[2], "TIPO_DOC_STR=PRODUCAO");
}

} // namespace
