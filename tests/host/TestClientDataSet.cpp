#include "Money.h"
#include "TClientDataSet.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include <array>

namespace {

class ClientDataSetTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ds.AddField("COD", TFieldType::Integer, "Código"); ds.AddField("NOME", TFieldType::String, "Pessoa");
        ds.AddField("TOT", TFieldType::Money, "Total", "######0.00"); ds.AddField("QTD", TFieldType::Float);
        ds.AddField("DT", TFieldType::Date, "Data", "dd/mm/yy"); ds.AddField("DTH", TFieldType::DateTime, "Criado em", "dd/mm/yy hh:nn");
        ds.AddField("BAIXADO", TFieldType::Boolean); ds.AddField("EMPR", TFieldType::Integer, "Empresa", "000");
        ds.Open();
    }

    // A posted row with its code and one more value.
    void AddRow(int cod, const QVariant &valor = {}, const char *campo = "NOME")
    {
        ds.Append(); ds.FieldByName("COD").SetAsInteger(cod); ds.FieldByName(campo).SetValue(valor); ds.Post();
    }
    QList<int> Codes() { QList<int> codes; for (ds.First(); !ds.Eof(); ds.Next()) codes << Cod(); return codes; }
    int Cod() const { return ds.FieldByName("COD").AsInteger(); }
    QString Nome() const { return ds.FieldByName("NOME").AsString(); }
    void SetNome(const char *nome) { ds.FieldByName("NOME").SetAsString(nome); }

    TClientDataSet ds;
};

TEST_F(ClientDataSetTest, StatesMisuseConversionsAndDisplayFormats)
{
    QSignalSpy states(&ds, &TClientDataSet::StateChanged);
    ds.Append(); SetNome("ACME"); ds.Post();
    ds.Edit(); SetNome("OUTRO"); ds.Cancel();
    EXPECT_EQ(Nome(), "ACME") << "Cancel restores the edited values";
    ds.Delete();
    EXPECT_TRUE(ds.IsEmpty() && ds.RecNo() == 0);
    QList<TDataSetState> seen;
    for (const QList<QVariant> &signal : states) seen << signal[0].value<TDataSetState>();
    using enum TDataSetState;
    EXPECT_EQ(seen, (QList<TDataSetState>{Insert, Browse, Edit, Browse}));
    ds.Edit();
    EXPECT_EQ(ds.State(), Insert) << "Edit on an empty dataset appends";
    ds.Cancel();

    for (int cod : {1, 2, 3}) AddRow(cod, "A");
    ds.SetRecNo(2); ds.Insert();
    EXPECT_EQ(ds.RecNo(), 2) << "Insert puts the new row at the cursor";
    ds.Cancel(); ds.SetRecNo(1); ds.Append(); ds.Cancel();
    EXPECT_EQ(Cod(), 1) << "cursor back on the row it left";
    ds.Append(); ds.Delete();   // Delete of a pending insert is a cancel
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3}));

    QSignalSpy posts(&ds, &TClientDataSet::AfterPost);
    ds.First(); ds.Edit(); SetNome("Z"); ds.Next();
    EXPECT_EQ(ds.State(), Browse);
    ds.Append(); ds.FieldByName("COD").SetAsInteger(4); ds.Append();
    EXPECT_EQ(posts.count(), 2) << "scrolling and appending post what is pending";
    ds.Cancel();
    // Delphi loops: Next past the last row leaves the cursor on it, Eof and Bof as they expect.
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3, 4}));
    EXPECT_EQ(Cod(), 4);
    QList<int> backwards;
    for (ds.Last(); !ds.Bof(); ds.Prior()) backwards << Cod();
    EXPECT_EQ(backwards, (QList<int>{4, 3, 2, 1}));
    EXPECT_EQ(Nome(), "Z");
    const int forward = ds.MoveBy(10);
    const bool eof = ds.Eof();
    const int back = ds.MoveBy(-2);
    EXPECT_EQ(std::tuple(forward, eof, back, ds.RecNo()), std::tuple(3, true, -2, 2));

    ds.EmptyDataSet();
    EXPECT_TRUE(ds.Eof() && ds.Bof());
    EXPECT_EQ(ds.FindField("Tot"), &ds.FieldByName("TOT"));
    EXPECT_EQ(ds.FindField("TOTAL"), nullptr);
    try {
        ds.FieldByName("NAO_EXISTE");
        ADD_FAILURE() << "FieldByName of an unknown name must throw";
    } catch (const std::invalid_argument &e) {
        EXPECT_NE(std::string(e.what()).find("NAO_EXISTE"), std::string::npos) << e.what();
    }
    EXPECT_THROW(ds.Delete(), std::logic_error) << "nothing to delete";
    AddRow(1, "A");
    EXPECT_THROW(SetNome("x"), std::logic_error) << "not in Edit";
    EXPECT_THROW(ds.AddField("NOVO", TFieldType::String), std::logic_error) << "fields fixed once open";
    ds.Close();
    EXPECT_TRUE(ds.RecordCount() == 0 && ds.FieldByName("NOME").IsNull());

    // Conversions are forgiving and the display text uses the display format.
    ds.Open();
    const struct { const char *field; QVariant stored; QString text; int asInt; double asFloat; bool asBool; } rows[] = {
        {"NOME", QString("junk"), "junk", 0, 0.0, false}, {"NOME", QString("S"), "S", 0, 0.0, true},
        {"NOME", QString("1234.5"), "1234.5", 1234, 1234.5, true},     // SQL-style text
        {"NOME", QString("1.234,5"), "1.234,5", 1234, 1234.5, true},   // Brazilian text
        {"QTD", 2.5, "2.5", 2, 2.5, true},                             // '.' whatever the locale; half to even
        {"TOT", QString("0,1"), "0.1", 0, 0.1, true},
        // 19 significant digits: a double on the way would lose the last ones
        {"TOT", QString("922337203685477.5807"), "922337203685477.5807", std::numeric_limits<int>::max(), 922337203685477.5807, true},
        {"COD", QString(" 42 "), "42", 42, 42.0, true}, {"COD", QString("4x"), "0", 0, 0.0, false},
        {"BAIXADO", true, "S", 1, 1.0, true}, {"BAIXADO", QString("N"), "N", 0, 0.0, false},
    };
    ds.Append();
    for (const auto &row : rows) {
        TField &f = ds.FieldByName(row.field);
        f.SetValue(row.stored);
        SCOPED_TRACE(QString("%1 <- %2").arg(row.field, row.stored.toString()).toStdString());
        EXPECT_EQ(QString("%1|%2|%3").arg(f.AsString()).arg(f.AsInteger()).arg(f.AsBoolean()),
                  QString("%1|%2|%3").arg(row.text).arg(row.asInt).arg(row.asBool));
        EXPECT_DOUBLE_EQ(f.AsFloat(), row.asFloat);
    }
    ds.FieldByName("TOT").SetAsString("922337203685477.5807");
    EXPECT_EQ(ds.FieldByName("TOT").AsMoney().raw(), std::numeric_limits<qint64>::max());
    for (const char *name : {"COD", "TOT", "QTD", "DT", "BAIXADO"}) {
        TField &f = ds.FieldByName(name);
        f.SetAsString("1"); f.SetAsString("  ");
        EXPECT_TRUE(f.IsNull() && f.DisplayText().isEmpty()) << name << ": blank text clears a non-text field";
    }
    ds.FieldByName("DT").SetAsString("31/02/2026");
    EXPECT_TRUE(ds.FieldByName("DT").IsNull()) << "an impossible date is no date";

    const struct { const char *field; QVariant value; QString shown; } shown[] = {
        {"TOT", QVariant::fromValue(Money::fromRaw(12345000)), "1234,50"},
        {"DTH", QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9)), "22/11/26 14:05"},
        {"DT", QDate(2026, 1, 2), "02/01/26"}, {"EMPR", 7, "007"}, {"QTD", 1234.5, "1234,5"},
        {"COD", 1234567, "1234567"}, {"BAIXADO", true, "Sim"}, {"BAIXADO", false, "Não"}, {"NOME", QVariant(), ""},
    };
    for (const auto &row : shown) {
        ds.FieldByName(row.field).SetValue(row.value);
        EXPECT_EQ(ds.FieldByName(row.field).DisplayText(), row.shown) << row.field;
    }
    ds.FieldByName("BAIXADO").SetDisplayFormat("Baixado;Aberto");
    EXPECT_EQ(ds.FieldByName("BAIXADO").DisplayText(), "Aberto");
}

// Short lists hide an unstable sort, which often orders small ranges by insertion; hence the 50 rows.
TEST_F(ClientDataSetTest, SortLocateBookmarksAndScrolling)
{
    const QVariant names[] = {"beta", "Alfa", QVariant(), "alfa", "Édson", "Zeca", "BETA", "Dora"};
    for (int i = 0; i < 8; ++i) AddRow(i + 1, names[i]);
    ds.SetRecNo(4); ds.SortBy("NOME", Qt::AscendingOrder);   // on "alfa"
    EXPECT_EQ(Cod(), 4) << "cursor stays on its row";
    // equal keys (ignoring case) keep their order; É sorts with E, not after Z
    EXPECT_EQ(Codes(), (QList<int>{3, 2, 4, 1, 7, 8, 5, 6}));
    ds.SortBy("NOME", Qt::DescendingOrder);
    EXPECT_EQ(Codes(), (QList<int>{6, 5, 8, 1, 7, 2, 4, 3}));
    ds.SortBy("cod", Qt::DescendingOrder);
    EXPECT_TRUE(Codes() == (QList<int>{8, 7, 6, 5, 4, 3, 2, 1}) && ds.SortField() == "COD") << "by name, any case";

    ds.EmptyDataSet();
    for (int i = 0; i < 50; ++i) AddRow(i, i % 3, "EMPR");
    for (Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        QList<int> expected;
        for (int key : order == Qt::AscendingOrder ? std::array{0, 1, 2} : std::array{2, 1, 0})
            for (int i = key; i < 50; i += 3) expected << i;
        ds.SortBy("EMPR", order);
        EXPECT_EQ(Codes(), expected) << "sort order " << order;
    }
    ds.EmptyDataSet();
    int cod = 0;
    for (qint64 raw : {100000, 20000, -30000, 20000}) AddRow(++cod, QVariant::fromValue(Money::fromRaw(raw)), "TOT");
    ds.SortBy("TOT");
    EXPECT_EQ(Codes(), (QList<int>{3, 2, 4, 1}));

    // AfterScroll only when the row changes, and once after disabled controls.
    ds.EmptyDataSet();
    AddRow(1, "A"); AddRow(2, "B");
    QSignalSpy scrolls(&ds, &TClientDataSet::AfterScroll);
    ds.Last();
    const int onTheRow = scrolls.count();
    ds.First(); ds.Next(); ds.Next();
    EXPECT_EQ(std::pair(onTheRow, int(scrolls.count())), std::pair(0, 2)) << "Last on the last row, then two moves";

    scrolls.clear();
    QSignalSpy inserted(&ds, &TClientDataSet::RowInserted), changed(&ds, &TClientDataSet::RowChanged);
    QSignalSpy resets(&ds, &TClientDataSet::DataReset), layouts(&ds, &TClientDataSet::LayoutChanged);
    ds.DisableControls(); ds.DisableControls(); ds.EmptyDataSet();
    for (int i = 0; i < 3; ++i) AddRow(i, "x");
    ds.SortBy("COD"); ds.First(); ds.EnableControls();
    EXPECT_EQ(resets.count(), 0) << "still disabled once";
    ds.EnableControls();
    EXPECT_EQ(std::tuple(inserted.count() + changed.count() + layouts.count(), resets.count(), scrolls.count()),
              std::tuple(0, 1, 1));
    ds.EnableControls();   // unbalanced: ignored
    EXPECT_EQ(resets.count(), 1);

    // Locate matches by several fields, ignoring case or by prefix; bookmarks survive sorting and other rows going.
    ds.EmptyDataSet();
    AddRow(1, "Casa Alfa"); AddRow(2, "casa beta"); AddRow(3, "Casa Beta");
    using enum TLocateOption;
    const struct { const char *fields; QVariant values; TLocateOptions options; int found; } rows[] = {
        {"NOME", "Casa Beta", {}, 3}, {"nome", "CASA BETA", CaseInsensitive, 2}, {"NOME", "Casa", PartialKey, 1},
        {"NOME;COD", QVariantList{"casa b", "3"}, CaseInsensitive | PartialKey, 3},
        {"NOME", "casa", {}, 0}, {"NOME;COD", QVariantList{"Casa Alfa", 2}, {}, 0},   // a miss leaves the cursor
    };
    for (const auto &row : rows) {
        EXPECT_EQ(ds.Locate(row.fields, row.values, row.options), row.found != 0) << row.fields;
        EXPECT_EQ(Cod(), row.found ? row.found : 3) << row.fields;
    }

    ds.EmptyDataSet();
    for (int i = 1; i <= 5; ++i) AddRow(i, QString("n%1").arg(6 - i));
    ds.SetRecNo(2); const TBookmark two = ds.GetBookmark();
    ds.SetRecNo(4); const TBookmark four = ds.GetBookmark();
    ds.SortBy("NOME"); ds.First(); ds.Delete(); ds.Insert(); ds.Post();   // sorted, cod 5 gone, one more
    ASSERT_TRUE(ds.GotoBookmark(two));
    EXPECT_EQ(Cod(), 2);
    ASSERT_TRUE(ds.GotoBookmark(four));
    ds.Delete(); ds.First();
    EXPECT_FALSE(ds.BookmarkValid(four) || ds.GotoBookmark(four));
    EXPECT_EQ(ds.RecNo(), 1) << "a dead bookmark does not move the cursor";
    EXPECT_TRUE(ds.GotoBookmark(two));
}

} // namespace
