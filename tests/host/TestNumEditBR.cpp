#include "Money.h"
#include "TNumEditBR.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <cmath>

namespace {

class NumEditBRTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(edit); layout->addWidget(other);
        window.show(); window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        edit->setFocus();
        ASSERT_TRUE(edit->hasFocus());
    }

    void Type(const QString &keys) { edit->setFocus(); edit->selectAll(); QTest::keyClicks(edit, keys); }
    void Paste(const QString &text) { QApplication::clipboard()->setText(text); edit->selectAll(); edit->paste(); }
    void Leave() { other->setFocus(); ASSERT_FALSE(edit->hasFocus()); }

    QWidget window;
    TNumEditBR *edit = new TNumEditBR(&window);
    QLineEdit *other = new QLineEdit(&window);
};

TEST_F(NumEditBRTest, TypingKeepsOnlyWhatMakesANumberPastingReadsTheBrazilianWayAndLeavingFixesThePlaces)
{
    const struct { const char *name; int decimals; bool negative; QString keys; QString shown; double value; } cases[] = {
        {"letters ignored", 2, false, "12a,5", "12,5", 12.5}, {"minus refused", 2, false, "-7", "7", 7},
        {"minus allowed", 2, true, "-7,25", "-7,25", -7.25}, {"minus only first", 2, true, "7-", "7", 7},
        {"places limited", 2, false, "1,234", "1,23", 1.23}, {"second comma", 2, false, "1,2,3", "1,23", 1.23},
        {"no comma when whole", 0, false, "12,5", "125", 125}, {"quantity places", 3, false, "0,1x2y5", "0,125", 0.125},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        edit->SetDecimals(c.decimals); edit->SetAcceptNegative(c.negative);
        Type(c.keys);
        EXPECT_EQ(edit->text(), c.shown);
        EXPECT_DOUBLE_EQ(edit->Value(), c.value);
    }

    edit->SetDecimals(2); edit->SetAcceptNegative(false);
    Type("123456789012345");
    EXPECT_EQ(edit->text(), "12345678901234") << "no more whole digits than the money columns hold";
    Paste("1.234,56");
    EXPECT_EQ(edit->AsMoney(), Money::fromRaw(12345600));
    edit->SetValue(0);
    for (const QString &foreign : {QString("1,234.56"), QString("R$ 10"), QString("1e3")}) {
        Paste(foreign);
        EXPECT_EQ(edit->text(), "0,00") << foreign.toStdString() << " must be refused";
    }

    // Fixed places when leaving or on Enter; the keypad period types the decimal comma.
    const struct { const char *keys; bool enter; QString typed, fixed; } rows[] = {
        {"12,5", false, "12,5", "12,50"}, {"\b", false, "", "0,00"}, {"3,", true, "3,", "3,00"}, {"1.234", false, "1.234", "1234,00"},
    };
    for (const auto &row : rows) {
        Type(row.keys);
        EXPECT_EQ(edit->text(), row.typed) << row.keys;
        EXPECT_TRUE(!row.typed.isEmpty() || (edit->Value() == 0.0 && edit->AsMoney() == Money())) << "an empty edit reads 0";
        row.enter ? QTest::keyClick(edit, Qt::Key_Return) : Leave();
        EXPECT_EQ(edit->text(), row.fixed) << row.keys;
    }
    Type("3");
    QTest::keyClick(edit, Qt::Key_Period, Qt::KeypadModifier);
    QTest::keyClicks(edit, "5");
    EXPECT_TRUE(edit->text() == "3,5" && edit->Value() == 3.5) << edit->text().toStdString();
}

TEST_F(NumEditBRTest, SetValueRoundsHalfToEvenValueChangedOnlyOnChangeAndTheReadOnlyLookRefusesTypingAndTab)
{
    const struct { int decimals; double value; QString shown; } cases[] = {
        {2, 2.675, "2,68"}, {2, 2.665, "2,66"}, {2, 1234.5, "1234,50"}, {2, -0.004, "0,00"},
        {0, 2.5, "2"}, {0, 3.5, "4"}, {3, 1.0005, "1,000"}, {3, 1.0015, "1,002"}, {4, 0.12345, "0,1234"},
        // beyond the money columns the widest value they hold, never a wrapped one
        {2, 1e20, "99999999999999,99"}, {0, -HUGE_VAL, "-99999999999999"}, {4, NAN, "0,0000"},
    };
    for (const auto &c : cases) {
        edit->SetDecimals(c.decimals);
        edit->SetValue(c.value);
        EXPECT_EQ(edit->text(), c.shown) << c.value << " at " << c.decimals;
    }
    edit->SetDecimals(2); edit->SetMoney(Money::fromRaw(1250));   // 0.125
    EXPECT_EQ(edit->text(), "0,12");
    edit->SetMoney(Money::fromRaw(-123456789));
    EXPECT_EQ(edit->text(), "-12345,68");
    EXPECT_EQ(edit->AsMoney(), Money::fromRaw(-123456800));
    edit->SetMoney(Money::fromRaw(Money::MaxColunaRaw));
    EXPECT_EQ(edit->AsMoney(), Money::fromRaw(Money::MaxColunaRaw - 99)) << "rounding up would leave the column";
    edit->SetValue(1.5); edit->SetDecimals(3);
    const QString threePlaces = edit->text();
    edit->SetDecimals(0);
    EXPECT_EQ(threePlaces + '|' + edit->text(), "1,500|2") << "changing the places reshows the value";

    edit->SetDecimals(2);
    QSignalSpy changes(edit, &TNumEditBR::ValueChanged);
    Type("12,5");   // 1, 12, "12," is still 12, 12.5
    ASSERT_EQ(changes.count(), 3);
    EXPECT_EQ(changes.last().at(0).toDouble(), 12.5);
    Leave();
    edit->SetValue(12.5);
    EXPECT_EQ(changes.count(), 3) << "re-showing the same value is no change";
    edit->SetValue(3);
    EXPECT_EQ(changes.count(), 4);

    const QColor normal = edit->palette().color(QPalette::Base);
    edit->SetValue(5); edit->SetReadOnlyLook(true);
    QTest::keyClicks(edit, "9");
    EXPECT_EQ(edit->text(), "5,00");
    EXPECT_TRUE(!(edit->focusPolicy() & Qt::TabFocus) && edit->palette().color(QPalette::Base) != normal);
    edit->SetReadOnlyLook(false);
    EXPECT_TRUE(!edit->isReadOnly() && (edit->focusPolicy() & Qt::TabFocus) && edit->palette().color(QPalette::Base) == normal);
}

} // namespace
