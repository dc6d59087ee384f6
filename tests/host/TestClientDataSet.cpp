#include "Money.h"
#include "TClientDataSet.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QDateTime>
#include <QSignalSpy>

#include <algorithm>
#include <climits>
#include <limits>
#include <numeric>
#include <stdexcept>

namespace {

class ClientDataSetTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ds.AddField("COD", TFieldType::Integer, "Código");
        ds.AddField("NOME", TFieldType::String, "Pessoa");
        ds.AddField("TOT", TFieldType::Money, "Total", "######0.00");
        ds.AddField("QTD", TFieldType::Float);
        ds.AddField("DT", TFieldType::Date, "Data", "dd/mm/yy");
        ds.AddField("DTH", TFieldType::DateTime, "Criado em", "dd/mm/yy hh:nn");
        ds.AddField("BAIXADO", TFieldType::Boolean);
        ds.AddField("EMPR", TFieldType::Integer, "Empresa", "000");
        ds.Open();
    }

    // A posted row with its code and one more value.
    void AddRow(int cod, const QVariant &valor = {}, const char *campo = "NOME")
    {
        ds.Append();
        ds.FieldByName("COD").SetAsInteger(cod);
        ds.FieldByName(campo).SetValue(valor);
        ds.Post();
    }

    QList<int> Codes()
    {
        QList<int> codes;
        for (ds.First(); !ds.Eof(); ds.Next())
            codes << Cod();
        return codes;
    }

    int Cod() const { return ds.FieldByName("COD").AsInteger(); }

    TClientDataSet ds;
};

TEST_F(ClientDataSetTest, AppendPostEditCancelDeleteMoveThroughTheStates)
{
    QSignalSpy states(&ds, &TClientDataSet::StateChanged);
    ds.Append();
    ds.FieldByName("NOME").SetAsString("ACME");
    ds.Post();
    ds.Edit();
    ds.FieldByName("NOME").SetAsString("OUTRO");
    ds.Cancel();
    EXPECT_EQ(ds.FieldByName("NOME").AsString(), "ACME") << "Cancel restores the edited values";
    ds.Delete();
    EXPECT_TRUE(ds.IsEmpty());
    EXPECT_EQ(ds.RecNo(), 0);
    QList<TDataSetState> seen;
    for (const QList<QVariant> &signal : states)
        seen << signal[0].value<TDataSetState>();
    using enum TDataSetState;
    EXPECT_EQ(seen, (QList<TDataSetState>{Insert, Browse, Edit, Browse}));
    ds.Edit();
    EXPECT_EQ(ds.State(), Insert) << "Edit on an empty dataset appends";
    EXPECT_EQ(ds.RecordCount(), 1);
}

TEST_F(ClientDataSetTest, CancelDropsAPendingInsertAndMovingAwayPostsAnEdit)
{
    for (int cod : {1, 2, 3})
        AddRow(cod, "A");
    ds.SetRecNo(2);
    ds.Insert();
    EXPECT_EQ(ds.RecNo(), 2) << "Insert puts the new row at the cursor";
    ds.Cancel();
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3}));
    ds.SetRecNo(1);
    ds.Append();
    ds.Cancel();
    EXPECT_EQ(Cod(), 1) << "cursor back on the row it left";
    ds.Append();
    ds.Delete();   // Delete of a pending insert is a cancel
    EXPECT_EQ(ds.RecordCount(), 3);

    QSignalSpy posts(&ds, &TClientDataSet::AfterPost);
    ds.First();
    ds.Edit();
    ds.FieldByName("NOME").SetAsString("Z");
    ds.Next();
    EXPECT_EQ(ds.State(), TDataSetState::Browse);
    ds.Append();
    ds.FieldByName("COD").SetAsInteger(4);
    ds.Append();
    EXPECT_EQ(posts.count(), 2) << "scrolling and appending post what is pending";
    ds.Cancel();
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3, 4}));
    ds.First();
    EXPECT_EQ(ds.FieldByName("NOME").AsString(), "Z");
}

TEST_F(ClientDataSetTest, FieldsAreFoundIgnoringCaseAndMisuseThrows)
{
    EXPECT_EQ(ds.FindField("Tot"), &ds.FieldByName("TOT"));
    EXPECT_EQ(ds.FindField("TOTAL"), nullptr);
    try {
        ds.FieldByName("NAO_EXISTE");
        ADD_FAILURE() << "FieldByName of an unknown name must throw";
    } catch (const std::invalid_argument &e) {
        EXPECT_NE(std::string(e.what()).find("NAO_EXISTE"), std::string::npos) << e.what();
    }

    AddRow(1, "A");
    EXPECT_THROW(ds.FieldByName("NOME").SetAsString("x"), std::logic_error) << "not in Edit";
    EXPECT_THROW(ds.Post(), std::logic_error);
    EXPECT_THROW(ds.AddField("NOVO", TFieldType::String), std::logic_error) << "fields fixed once open";
    ds.Close();
    EXPECT_EQ(ds.RecordCount(), 0);
    EXPECT_TRUE(ds.FieldByName("NOME").IsNull());
    ds.AddField("EXTRA", TFieldType::String);
    ds.Open();
    EXPECT_EQ(ds.FieldCount(), 9);
    EXPECT_THROW(ds.Delete(), std::logic_error) << "nothing to delete";
}

TEST_F(ClientDataSetTest, EofAndBofFollowDelphiLoops)
{
    EXPECT_TRUE(ds.Eof() && ds.Bof());
    for (int i = 1; i <= 4; ++i)
        AddRow(i);
    Codes();
    EXPECT_EQ(Cod(), 4) << "Next past the last row leaves the cursor on it";
    QList<int> backwards;
    for (ds.Last(); !ds.Bof(); ds.Prior())
        backwards << Cod();
    EXPECT_EQ(backwards, (QList<int>{4, 3, 2, 1}));
    ds.First();
    EXPECT_EQ(ds.MoveBy(10), 3);
    EXPECT_TRUE(ds.Eof());
    EXPECT_EQ(ds.MoveBy(-2), -2);
    EXPECT_EQ(ds.RecNo(), 2);
}

TEST_F(ClientDataSetTest, ConversionsAreForgiving)
{
    const struct { const char *field; QVariant stored; QString text; int asInt; double asFloat; bool asBool; } rows[] = {
        {"NOME", QString("junk"), "junk", 0, 0.0, false}, {"NOME", QString("S"), "S", 0, 0.0, true},
        {"NOME", QString("1234.5"), "1234.5", 1234, 1234.5, true},     // SQL-style text
        {"NOME", QString("1.234,5"), "1.234,5", 1234, 1234.5, true},   // Brazilian text
        {"QTD", 2.5, "2.5", 2, 2.5, true},                             // '.' whatever the locale; half to even
        {"TOT", QString("0,1"), "0.1", 0, 0.1, true},
        // 19 significant digits: a double on the way would lose the last ones
        {"TOT", QString("922337203685477.5807"), "922337203685477.5807", INT_MAX, 922337203685477.5807, true},
        {"COD", QString(" 42 "), "42", 42, 42.0, true}, {"COD", QString("4x"), "0", 0, 0.0, false},
        {"BAIXADO", true, "S", 1, 1.0, true}, {"BAIXADO", QString("N"), "N", 0, 0.0, false},
    };
    ds.Append();
    for (const auto &row : rows) {
        TField &f = ds.FieldByName(row.field);
        f.SetValue(row.stored);
        SCOPED_TRACE(QString("%1 <- %2").arg(row.field, row.stored.toString()).toStdString());
        EXPECT_EQ(f.AsString(), row.text);
        EXPECT_EQ(f.AsInteger(), row.asInt);
        EXPECT_DOUBLE_EQ(f.AsFloat(), row.asFloat);
        EXPECT_EQ(f.AsBoolean(), row.asBool);
    }
    for (const char *name : {"COD", "TOT", "QTD", "DT", "BAIXADO"}) {
        ds.FieldByName(name).SetAsString("1");
        ds.FieldByName(name).SetAsString("  ");
        EXPECT_TRUE(ds.FieldByName(name).IsNull()) << name << ": blank text clears a non-text field";
        EXPECT_EQ(ds.FieldByName(name).DisplayText(), "") << name;
    }
    ds.FieldByName("DT").SetAsString("31/02/2026");
    EXPECT_TRUE(ds.FieldByName("DT").IsNull()) << "an impossible date is no date";
    ds.FieldByName("TOT").SetAsString("922337203685477.5807");
    EXPECT_EQ(ds.FieldByName("TOT").AsMoney().raw(), std::numeric_limits<qint64>::max());
}

TEST_F(ClientDataSetTest, DisplayTextUsesTheDisplayFormat)
{
    const struct { const char *field; QVariant value; QString shown; } rows[] = {
        {"TOT", QVariant::fromValue(Money::fromRaw(12345000)), "1234,50"},
        {"DTH", QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9)), "22/11/26 14:05"},
        {"DT", QDate(2026, 1, 2), "02/01/26"}, {"EMPR", 7, "007"}, {"QTD", 1234.5, "1234,5"},
        {"COD", 1234567, "1234567"}, {"BAIXADO", true, "Sim"}, {"BAIXADO", false, "Não"},
        {"NOME", QVariant(), ""},
    };
    ds.Append();
    for (const auto &row : rows) {
        ds.FieldByName(row.field).SetValue(row.value);
        EXPECT_EQ(ds.FieldByName(row.field).DisplayText(), row.shown) << row.field;
    }
    ds.FieldByName("BAIXADO").SetDisplayFormat("Baixado;Aberto");
    EXPECT_EQ(ds.FieldByName("BAIXADO").DisplayText(), "Aberto");
}

TEST_F(ClientDataSetTest, LocateMatchesBySeveralFieldsIgnoringCaseOrByPrefix)
{
    AddRow(1, "Casa Alfa");
    AddRow(2, "casa beta");
    AddRow(3, "Casa Beta");
    ds.First();
    EXPECT_TRUE(ds.Locate("NOME", "Casa Beta"));
    EXPECT_EQ(Cod(), 3);
    EXPECT_TRUE(ds.Locate("nome", "CASA BETA", TLocateOption::CaseInsensitive));
    EXPECT_EQ(Cod(), 2);
    EXPECT_TRUE(ds.Locate("NOME", "Casa", TLocateOption::PartialKey));
    EXPECT_EQ(Cod(), 1);
    EXPECT_TRUE(ds.Locate("NOME;COD", QVariantList{"casa b", "3"},
                          TLocateOption::CaseInsensitive | TLocateOption::PartialKey));
    EXPECT_EQ(Cod(), 3);
    EXPECT_FALSE(ds.Locate("NOME", "casa"));
    EXPECT_FALSE(ds.Locate("NOME;COD", QVariantList{"Casa Alfa", 2}));
    EXPECT_EQ(Cod(), 3) << "a failed search leaves the cursor";
}

TEST_F(ClientDataSetTest, BookmarksSurviveSortingAndOtherRowsGoing)
{
    for (int i = 1; i <= 5; ++i)
        AddRow(i, QString("n%1").arg(6 - i));
    ds.SetRecNo(2);
    const TBookmark two = ds.GetBookmark();
    ds.SetRecNo(4);
    const TBookmark four = ds.GetBookmark();
    ds.SortBy("NOME");
    ds.First();
    ds.Delete();   // removes another row (cod 5)
    ds.Insert();
    ds.Post();
    ASSERT_TRUE(ds.GotoBookmark(two));
    EXPECT_EQ(Cod(), 2);
    ASSERT_TRUE(ds.GotoBookmark(four));
    ds.Delete();
    EXPECT_FALSE(ds.BookmarkValid(four));
    ds.First();
    EXPECT_FALSE(ds.GotoBookmark(four));
    EXPECT_EQ(ds.RecNo(), 1) << "a dead bookmark does not move the cursor";
    EXPECT_TRUE(ds.GotoBookmark(two));
}

TEST_F(ClientDataSetTest, SortIsStableKeepsTheCursorAndPutsNullsFirst)
{
    const QVariant names[] = {"beta", "Alfa", QVariant(), "alfa", "Édson", "Zeca", "BETA", "Dora"};
    for (int i = 0; i < 8; ++i)
        AddRow(i + 1, names[i]);
    ds.SetRecNo(4);   // "alfa"
    ds.SortBy("NOME", Qt::AscendingOrder);
    EXPECT_EQ(Cod(), 4) << "cursor stays on its row";
    // equal keys (ignoring case) keep their order; É sorts with E, not after Z
    EXPECT_EQ(Codes(), (QList<int>{3, 2, 4, 1, 7, 8, 5, 6}));
    ds.SortBy("NOME", Qt::DescendingOrder);
    EXPECT_EQ(Codes(), (QList<int>{6, 5, 8, 1, 7, 2, 4, 3}));
    ds.SortBy("cod", Qt::DescendingOrder);
    EXPECT_EQ(Codes(), (QList<int>{8, 7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(ds.SortField(), "COD");
}

// Short lists hide an unstable sort, which often orders small ranges by insertion.
TEST_F(ClientDataSetTest, SortStaysStableInLongListsAndComparesMoneyByValue)
{
    for (int i = 0; i < 50; ++i)
        AddRow(i, i % 3, "EMPR");
    for (Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        QList<int> expected(50);
        std::iota(expected.begin(), expected.end(), 0);
        std::stable_sort(expected.begin(), expected.end(),
                         [order](int a, int b) { return order == Qt::AscendingOrder ? a % 3 < b % 3 : a % 3 > b % 3; });
        ds.SortBy("EMPR", order);
        EXPECT_EQ(Codes(), expected) << "sort order " << order;
    }
    ds.EmptyDataSet();
    int cod = 0;
    for (qint64 raw : {100000, 20000, -30000, 20000})
        AddRow(++cod, QVariant::fromValue(Money::fromRaw(raw)), "TOT");
    ds.SortBy("TOT");
    EXPECT_EQ(Codes(), (QList<int>{3, 2, 4, 1}));
}

TEST_F(ClientDataSetTest, AfterScrollOnlyWhenTheRowChangesAndOnceAfterDisabledControls)
{
    AddRow(1, "A");
    AddRow(2, "B");
    QSignalSpy scrolls(&ds, &TClientDataSet::AfterScroll);
    ds.Last();
    EXPECT_EQ(scrolls.count(), 0);
    ds.First();
    ds.Next();
    ds.Next();
    EXPECT_EQ(scrolls.count(), 2);

    scrolls.clear();
    QSignalSpy inserted(&ds, &TClientDataSet::RowInserted);
    QSignalSpy changed(&ds, &TClientDataSet::RowChanged);
    QSignalSpy resets(&ds, &TClientDataSet::DataReset);
    QSignalSpy layouts(&ds, &TClientDataSet::LayoutChanged);
    ds.DisableControls();
    ds.DisableControls();
    ds.EmptyDataSet();
    for (int i = 0; i < 3; ++i)
        AddRow(i, "x");
    ds.SortBy("COD");
    ds.First();
    ds.EnableControls();
    EXPECT_EQ(resets.count(), 0) << "still disabled once";
    ds.EnableControls();
    EXPECT_EQ(inserted.count() + changed.count() + layouts.count(), 0);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(scrolls.count(), 1);
    ds.EnableControls();   // unbalanced: ignored
    EXPECT_EQ(resets.count(), 1);
}

} // namespace
