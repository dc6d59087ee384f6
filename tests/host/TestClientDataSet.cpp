#include "Money.h"
#include "TClientDataSet.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QDateTime>
#include <QSignalSpy>

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

    void AddRow(int cod, const QVariant &nome)
    {
        ds.Append();
        ds.FieldByName("COD").SetAsInteger(cod);
        ds.FieldByName("NOME").SetValue(nome);
        ds.Post();
    }

    QList<int> Codes()
    {
        QList<int> codes;
        for (ds.First(); !ds.Eof(); ds.Next())
            codes << ds.FieldByName("COD").AsInteger();
        return codes;
    }

    int Cod() const { return ds.FieldByName("COD").AsInteger(); }

    TClientDataSet ds;
};

TEST_F(ClientDataSetTest, AppendPostEditCancelDeleteMoveThroughTheStates)
{
    QSignalSpy states(&ds, &TClientDataSet::StateChanged);
    EXPECT_EQ(ds.State(), TDataSetState::Browse);
    EXPECT_EQ(ds.RecNo(), 0);

    ds.Append();
    EXPECT_EQ(ds.State(), TDataSetState::Insert);
    EXPECT_EQ(ds.RecordCount(), 1);
    ds.FieldByName("NOME").SetAsString("ACME");
    ds.Post();
    EXPECT_EQ(ds.State(), TDataSetState::Browse);

    ds.Edit();
    ds.FieldByName("NOME").SetAsString("OUTRO");
    EXPECT_EQ(ds.FieldByName("NOME").AsString(), "OUTRO");
    ds.Cancel();
    EXPECT_EQ(ds.FieldByName("NOME").AsString(), "ACME") << "Cancel restores the edited values";

    ds.Delete();
    EXPECT_TRUE(ds.IsEmpty());
    EXPECT_EQ(ds.RecNo(), 0);
    ASSERT_EQ(states.count(), 4);   // Insert, Browse, Edit, Browse
    EXPECT_EQ(states[2][0].value<TDataSetState>(), TDataSetState::Edit);
}

TEST_F(ClientDataSetTest, CancelOfAnInsertRemovesTheRowAndReturnsToThePreviousOne)
{
    AddRow(1, "A");
    AddRow(2, "B");
    AddRow(3, "C");
    ds.SetRecNo(2);

    ds.Insert();
    EXPECT_EQ(ds.RecNo(), 2) << "Insert puts the new row at the cursor";
    ds.FieldByName("COD").SetAsInteger(99);
    ds.Cancel();
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3}));

    ds.SetRecNo(1);
    ds.Append();
    ds.Cancel();
    EXPECT_EQ(ds.RecordCount(), 3);
    EXPECT_EQ(Cod(), 1) << "cursor back on the row it left";

    ds.Append();
    ds.Delete();   // Delete of a pending insert is a cancel
    EXPECT_EQ(ds.RecordCount(), 3);
}

TEST_F(ClientDataSetTest, ScrollingOrAppendingPostsThePendingEdit)
{
    AddRow(1, "A");
    AddRow(2, "B");
    QSignalSpy posts(&ds, &TClientDataSet::AfterPost);

    ds.First();
    ds.Edit();
    ds.FieldByName("NOME").SetAsString("Z");
    ds.Next();
    EXPECT_EQ(ds.State(), TDataSetState::Browse);
    EXPECT_EQ(posts.count(), 1);

    ds.Append();
    ds.FieldByName("COD").SetAsInteger(3);
    ds.Append();
    EXPECT_EQ(posts.count(), 2);
    ds.Cancel();
    ds.First();
    EXPECT_EQ(ds.FieldByName("NOME").AsString(), "Z");
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3}));
}

TEST_F(ClientDataSetTest, ProgrammingErrorsThrow)
{
    AddRow(1, "A");
    EXPECT_THROW(ds.FieldByName("NOME").SetAsString("x"), std::logic_error) << "not in Edit";
    EXPECT_THROW(ds.Post(), std::logic_error);
    EXPECT_THROW(ds.AddField("NOVO", TFieldType::String), std::logic_error) << "fields fixed once open";
    try {
        ds.FieldByName("NAO_EXISTE");
        FAIL() << "FieldByName of an unknown name must throw";
    } catch (const std::invalid_argument &e) {
        EXPECT_NE(std::string(e.what()).find("NAO_EXISTE"), std::string::npos) << e.what();
    }
    ds.EmptyDataSet();
    EXPECT_THROW(ds.Delete(), std::logic_error);
}

TEST_F(ClientDataSetTest, FieldLookupIgnoresCase)
{
    EXPECT_EQ(&ds.FieldByName("nome"), &ds.FieldByName("NOME"));
    EXPECT_EQ(ds.FindField("Tot"), &ds.FieldByName("TOT"));
    EXPECT_EQ(ds.FindField("TOTAL"), nullptr);
    EXPECT_EQ(ds.FieldByName("qtd").DisplayLabel(), "QTD") << "no caption shows the name";
}

TEST_F(ClientDataSetTest, EofAndBofFollowDelphiLoops)
{
    EXPECT_TRUE(ds.Eof());
    EXPECT_TRUE(ds.Bof());
    for (int i = 1; i <= 4; ++i)
        AddRow(i, "x");
    EXPECT_EQ(Codes(), (QList<int>{1, 2, 3, 4}));
    EXPECT_EQ(Cod(), 4) << "Next past the last row leaves the cursor on it";

    ds.Last();
    QList<int> backwards;
    for (; !ds.Bof(); ds.Prior())
        backwards << Cod();
    EXPECT_EQ(backwards, (QList<int>{4, 3, 2, 1}));

    ds.First();
    EXPECT_EQ(ds.MoveBy(10), 3);
    EXPECT_TRUE(ds.Eof());
    EXPECT_EQ(ds.MoveBy(-2), -2);
    EXPECT_EQ(ds.RecNo(), 2);
}

TEST_F(ClientDataSetTest, EditOnAnEmptyDataSetAppends)
{
    ds.Edit();
    EXPECT_EQ(ds.State(), TDataSetState::Insert);
    EXPECT_EQ(ds.RecordCount(), 1);
}

TEST_F(ClientDataSetTest, ConversionsAreForgiving)
{
    struct Case { const char *field; QVariant stored; QString asString; int asInteger; double asFloat; bool asBoolean; };
    const Case cases[] = {
        {"NOME", QString("12"), "12", 12, 12.0, true},
        {"NOME", QString("junk"), "junk", 0, 0.0, false},
        {"NOME", QString("1234.5"), "1234.5", 1234, 1234.5, true},   // SQL-style text
        {"NOME", QString("1.234,5"), "1.234,5", 1234, 1234.5, true}, // Brazilian text
        {"NOME", QString("S"), "S", 0, 0.0, true},
        {"QTD", 1234.5, "1234.5", 1234, 1234.5, true},               // '.' whatever the locale
        {"QTD", 2.5, "2.5", 2, 2.5, true},                           // half to even
        {"TOT", QString("0,1"), "0.1", 0, 0.1, true},
        {"COD", QString(" 42 "), "42", 42, 42.0, true},
        {"COD", QString("4x"), "0", 0, 0.0, false},
        {"BAIXADO", true, "S", 1, 1.0, true},
        {"BAIXADO", QString("N"), "N", 0, 0.0, false},
    };
    for (const Case &c : cases) {
        ds.Append();
        TField &f = ds.FieldByName(c.field);
        f.SetValue(c.stored);
        SCOPED_TRACE(QString("%1 <- %2").arg(c.field, c.stored.toString()).toStdString());
        EXPECT_EQ(f.AsString(), c.asString);
        EXPECT_EQ(f.AsInteger(), c.asInteger);
        EXPECT_DOUBLE_EQ(f.AsFloat(), c.asFloat);
        EXPECT_EQ(f.AsBoolean(), c.asBoolean);
        ds.Post();
    }
}

TEST_F(ClientDataSetTest, BlankTextClearsNonTextFields)
{
    ds.Append();
    for (const char *name : {"COD", "TOT", "QTD", "DT", "BAIXADO"}) {
        TField &f = ds.FieldByName(name);
        f.SetAsString("1");
        f.SetAsString("  ");
        EXPECT_TRUE(f.IsNull()) << name;
        EXPECT_EQ(f.DisplayText(), "") << name;
    }
    ds.FieldByName("DT").SetAsString("31/02/2026");
    EXPECT_TRUE(ds.FieldByName("DT").IsNull()) << "an impossible date is no date";
}

TEST_F(ClientDataSetTest, MoneyIsStoredExactly)
{
    for (int i = 0; i < 3; ++i) {
        ds.Append();
        ds.FieldByName("TOT").SetAsFloat(0.1);
        ds.Post();
    }
    Money sum;
    double floatSum = 0;
    for (ds.First(); !ds.Eof(); ds.Next()) {
        sum += ds.FieldByName("TOT").AsMoney();
        floatSum += ds.FieldByName("TOT").AsFloat();
    }
    ASSERT_NE(floatSum, 0.3) << "doubles would not add up, so the sum below proves exactness";
    EXPECT_EQ(sum, Money::fromRaw(3000));

    ds.Edit();
    ds.FieldByName("TOT").SetAsString("123456789.1234");
    EXPECT_EQ(ds.FieldByName("TOT").AsMoney(), Money::fromRaw(1234567891234));
    EXPECT_EQ(ds.FieldByName("TOT").AsString(), "123456789.1234");
}

TEST_F(ClientDataSetTest, DisplayTextUsesTheDisplayFormat)
{
    struct Case { const char *field; QVariant value; QString shown; };
    const Case cases[] = {
        {"TOT", QVariant::fromValue(Money::fromRaw(12345000)), "1234,50"},
        {"DTH", QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9)), "22/11/26 14:05"},
        {"DT", QDate(2026, 1, 2), "02/01/26"},
        {"EMPR", 7, "007"},
        {"QTD", 1234.5, "1234,5"},
        {"COD", 1234567, "1234567"},
        {"BAIXADO", true, "Sim"},
        {"BAIXADO", false, "Não"},
        {"NOME", QVariant(), ""},
    };
    for (const Case &c : cases) {
        ds.Append();
        ds.FieldByName(c.field).SetValue(c.value);
        EXPECT_EQ(ds.FieldByName(c.field).DisplayText(), c.shown) << c.field;
        ds.Post();
    }
    ds.FieldByName("BAIXADO").SetDisplayFormat("Baixado;Aberto");
    ds.Edit();
    ds.FieldByName("BAIXADO").SetAsBoolean(false);
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
    EXPECT_EQ(ds.SortField(), "NOME");
    EXPECT_EQ(ds.SortOrder(), Qt::DescendingOrder);

    ds.SortBy("cod", Qt::DescendingOrder);
    EXPECT_EQ(Codes(), (QList<int>{8, 7, 6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(ds.SortField(), "COD");
}

TEST_F(ClientDataSetTest, SortKeepsTheOrderOfEqualKeysInLongLists)
{
    for (int i = 0; i < 50; ++i) {
        ds.Append();
        ds.FieldByName("COD").SetAsInteger(i);
        ds.FieldByName("EMPR").SetAsInteger((i * 7) % 3);
        ds.Post();
    }
    for (Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        ds.SortBy("EMPR", order);
        int previousKey = -1, previousCod = -1;
        for (ds.First(); !ds.Eof(); ds.Next()) {
            const int key = ds.FieldByName("EMPR").AsInteger(), cod = Cod();
            if (key == previousKey) {
                ASSERT_GT(cod, previousCod) << "equal keys out of order, sort order " << order;
            }
            previousKey = key;
            previousCod = cod;
        }
    }
}

TEST_F(ClientDataSetTest, SortOfMoneyComparesValuesNotText)
{
    const qint64 raws[] = {100000, 20000, -30000, 20000};
    for (int i = 0; i < 4; ++i) {
        ds.Append();
        ds.FieldByName("COD").SetAsInteger(i + 1);
        ds.FieldByName("TOT").SetAsMoney(Money::fromRaw(raws[i]));
        ds.Post();
    }
    ds.SortBy("TOT");
    EXPECT_EQ(Codes(), (QList<int>{3, 2, 4, 1}));
}

TEST_F(ClientDataSetTest, DisabledControlsEmitOneResetAndOneScrollAtTheEnd)
{
    AddRow(1, "A");
    QSignalSpy inserted(&ds, &TClientDataSet::RowInserted);
    QSignalSpy changed(&ds, &TClientDataSet::RowChanged);
    QSignalSpy resets(&ds, &TClientDataSet::DataReset);
    QSignalSpy scrolls(&ds, &TClientDataSet::AfterScroll);
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

    EXPECT_EQ(inserted.count(), 0);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(layouts.count(), 0);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(scrolls.count(), 1);
    ds.EnableControls();   // unbalanced: ignored
    EXPECT_EQ(resets.count(), 1);
}

TEST_F(ClientDataSetTest, AfterScrollOnlyWhenTheCurrentRowChanges)
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
    ds.Delete();
    EXPECT_EQ(scrolls.count(), 3) << "deleting moves to another row";
}

TEST_F(ClientDataSetTest, CloseDropsTheRowsAndKeepsTheFields)
{
    AddRow(1, "A");
    ds.Close();
    EXPECT_FALSE(ds.Active());
    EXPECT_EQ(ds.RecordCount(), 0);
    EXPECT_TRUE(ds.FieldByName("NOME").IsNull());
    ds.AddField("EXTRA", TFieldType::String);
    ds.Open();
    EXPECT_EQ(ds.FieldCount(), 9);
}

} // namespace
