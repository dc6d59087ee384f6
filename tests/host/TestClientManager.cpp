#include "Money.h"
#include "TClientManager.h"
#include "TGradeDataSet.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTableView>
#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace {

// What QAbstractItemModelTester reports, collected instead of aborting the whole run.
QStringList g_modelFailures;
void CollectModelFailures(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtDebugMsg && qstrcmp(context.category, "qt.modeltest") == 0)
        g_modelFailures << message;
}

class ClientManagerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // Fields declared after the model: its columns follow them.
        ds.AddField("COD", TFieldType::Integer, "Cód.", "000", true, 3); ds.AddField("OCULTO", TFieldType::Integer, {}, {}, false);
        ds.AddField("NOME", TFieldType::String, "Pessoa", {}, true, 40); ds.AddField("TOT", TFieldType::Money, "Total", "######0.00");
        ds.Open();
    }

    void AddRow(int cod, const QString &nome, qint64 totRaw = 0)
    {
        ds.Append(); ds.FieldByName("COD").SetAsInteger(cod); ds.FieldByName("NOME").SetAsString(nome);
        ds.FieldByName("TOT").SetAsMoney(Money::fromRaw(totRaw)); ds.Post();
    }

    // The texts of a column, or with -1 the titles.
    QStringList Column(int column) const
    {
        QStringList texts;
        for (int i = 0; i < (column < 0 ? model.columnCount() : model.rowCount()); ++i)
            texts << (column < 0 ? model.headerData(i, Qt::Horizontal) : model.index(i, column).data()).toString();
        return texts;
    }
    void ClickTitle(int column)
    {
        QHeaderView *h = view.horizontalHeader();
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {},
                          QPoint(h->sectionViewportPosition(column) + h->sectionSize(column) / 2, h->height() / 2));
    }

    int ViewRow() const { return view.currentIndex().row(); }

    TClientDataSet ds;
    TClientManager model{&ds};
    QTableView view;
};

TEST_F(ClientManagerTest, StaysConsistentThroughEveryDataSetOperation)
{
    g_modelFailures.clear();
    const QtMessageHandler previous = qInstallMessageHandler(&CollectModelFailures);
    const auto restore = qScopeGuard([previous] { qInstallMessageHandler(previous); });
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    TGradeDataSet::Attach(&model, &view);
    const auto edit = [&](const char *nome) { ds.FieldByName("NOME").SetAsString(nome); };
    const std::pair<const char *, std::function<void()>> steps[] = {
        {"append", [&] { AddRow(3, "c"); AddRow(1, "a"); AddRow(2, "b"); }},
        {"insert", [&] { ds.SetRecNo(2); ds.Insert(); edit("novo"); ds.Post(); }},
        {"cancel edit", [&] { ds.Edit(); edit("mudou"); ds.Cancel(); }},
        {"cancel insert", [&] { ds.Append(); ds.Cancel(); }},
        {"delete", [&] { ds.First(); ds.Delete(); }},
        {"sort", [&] { model.sort(1, Qt::DescendingOrder); }},
        {"reload", [&] { ds.DisableControls(); ds.EmptyDataSet();
                         for (int i = 0; i < 5; ++i) AddRow(i, QString("x%1").arg(i));
                         model.OrdenarPelaColunm(); ds.EnableControls(); }},
        {"field shown", [&] { ds.FieldByName("OCULTO").SetVisible(true); ASSERT_EQ(Column(-1).value(1), "OCULTO"); }},
        {"delete last", [&] { ds.Last(); ds.Delete(); }},
        {"empty", [&] { ds.EmptyDataSet(); }},
        {"reopen", [&] { ds.Close(); ds.Open(); }},
    };
    for (const auto &[name, step] : steps) {
        SCOPED_TRACE(name);
        step();
        EXPECT_EQ(std::pair(model.rowCount(), ViewRow()), std::pair(int(ds.RecordCount()), ds.RecNo() - 1)) << "rows, and the view on the cursor";
        for (int row = 0; row < ds.RecordCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column)
                EXPECT_EQ(model.index(row, column).data().toString(),
                          ds.DisplayTextAt(row, model.FieldOfColumn(column)));
    }
    EXPECT_EQ(g_modelFailures.join('\n').toStdString(), "");
}

TEST_F(ClientManagerTest, ViewRowAndCursorFollowEachOtherTitlesSortAndColumnsKeepTheirWidthsThroughAReload)
{
    for (int i = 1; i <= 5; ++i) AddRow(i, QString("n%1").arg(i));
    TGradeDataSet::Attach(&model, &view);
    view.resize(700, 400); view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QSignalSpy scrolls(&ds, &TClientDataSet::AfterScroll);

    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(model.index(2, 1)).center());
    EXPECT_EQ(std::pair(ds.RecNo(), int(scrolls.count())), std::pair(3, 1)) << "row and one scroll";
    ds.First();
    EXPECT_EQ(ViewRow(), 0);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(0, {}) && !view.selectionModel()->isRowSelected(2, {}));
    ds.Edit(); ds.FieldByName("NOME").SetAsString("editado");
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(ds.RecNo(), 2);
    EXPECT_EQ(ds.State(), TDataSetState::Browse) << "leaving the row posts it";
    EXPECT_EQ(Column(1).first(), "editado");

    // The view moves its current row away from a row being removed; that must not move the
    // cursor half-way through the delete.
    ds.SetRecNo(3);
    QStringList namesSeenOnScroll;
    QObject::connect(&ds, &TClientDataSet::AfterScroll, &ds, [&] { namesSeenOnScroll << ds.FieldByName("NOME").AsString(); });
    ds.Delete();
    EXPECT_EQ(namesSeenOnScroll, QStringList{"n4"});
    EXPECT_EQ(ViewRow(), 2);
    ds.Last(); ds.Delete();
    EXPECT_EQ(ViewRow(), 2);
    EXPECT_EQ(ds.FieldByName("NOME").AsString(), "n4");

    ds.EmptyDataSet();
    AddRow(1, "Carlos", 30000); AddRow(2, "ana", 10000); AddRow(3, "Bruno", 20000);
    // Visible fields only, titled by their captions; money to the right.
    EXPECT_EQ(Column(-1), (QStringList{"Cód.", "Pessoa", "Total"}));
    EXPECT_EQ(model.index(0, 2).data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    const int codWidth = view.columnWidth(0), nomeWidth = view.columnWidth(1);
    EXPECT_GT(nomeWidth, codWidth * 3) << "display widths of 40 and 3 characters";
    EXPECT_GE(codWidth, view.horizontalHeader()->fontMetrics().horizontalAdvance("Cód.")) << "caption fits";
    ds.SetRecNo(2);   // ana

    ClickTitle(1);
    EXPECT_TRUE(ds.SortField() == "NOME" && ds.SortOrder() == Qt::AscendingOrder);
    EXPECT_EQ(Column(1), (QStringList{"ana", "Bruno", "Carlos"}));
    EXPECT_TRUE(ds.FieldByName("COD").AsInteger() == 2 && ViewRow() == 0) << "cursor and view stay on ana";
    ClickTitle(1);
    EXPECT_EQ(Column(1), (QStringList{"Carlos", "Bruno", "ana"}));
    EXPECT_EQ(ViewRow(), 2);
    ClickTitle(2);
    EXPECT_EQ(Column(2), (QStringList{"1,00", "2,00", "3,00"}));

    ds.DisableControls(); ds.EmptyDataSet();
    AddRow(1, "zeta", 20000); AddRow(2, "alfa", 10000);
    model.OrdenarPelaColunm(); ds.EnableControls();
    EXPECT_EQ(Column(1), (QStringList{"alfa", "zeta"}));
    EXPECT_EQ(view.horizontalHeader()->sortIndicatorSection(), 2);
    EXPECT_EQ(view.columnWidth(1), nomeWidth);
    EXPECT_EQ(ViewRow(), ds.RecNo() - 1);

    ds.FieldByName("NOME").SetDisplayWidth(3);
    EXPECT_LT(view.columnWidth(1), nomeWidth) << "a changed display width resizes its column";
}

} // namespace
