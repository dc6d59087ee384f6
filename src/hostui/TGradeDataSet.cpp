#include "TGradeDataSet.h"

#include "TClientDataSet.h"
#include "TClientManager.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QSignalBlocker>
#include <QTableView>

#include <algorithm>

namespace {

// Characters a column shows when the field gives no display width.
int DefaultWidth(TFieldType type)
{
    switch (type) {
    case TFieldType::String: return 20;
    case TFieldType::Integer: return 8;
    case TFieldType::Float: case TFieldType::Money: return 12;
    case TFieldType::Boolean: return 5;
    case TFieldType::Date: return 10;
    case TFieldType::DateTime: return 17;
    }
    return 10;
}

} // namespace

TGradeDataSet *TGradeDataSet::Attach(TClientManager *model, QTableView *view)
{
    return new TGradeDataSet(model, view);
}

TGradeDataSet::TGradeDataSet(TClientManager *model, QTableView *view)
    : QObject(view), m_model(model), m_view(view)
{
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Enabling sorting sorts by the header's indicator at once; -1 keeps the rows as they are.
    view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    view->setSortingEnabled(true);
    connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) { OnViewCurrentRowChanged(current); });
    // The view has handled each of these before we get them.
    connect(model, &QAbstractItemModel::modelReset, this, &TGradeDataSet::ShowSortIndicator);
    connect(model, &QAbstractItemModel::layoutChanged, this, &TGradeDataSet::ShowSortIndicator);
    connect(model, &TClientManager::ColumnsChanged, this, &TGradeDataSet::SizeColumns);
    connect(model, &TClientManager::CursorMoved, this, &TGradeDataSet::FollowCursor);
    SizeColumns();
    ShowSortIndicator();
    const TClientDataSet *dataSet = model->DataSet();
    if (dataSet && !dataSet->ControlsDisabled())
        FollowCursor(dataSet->RecNo() - 1);
}

void TGradeDataSet::SizeColumns()
{
    const TClientDataSet *dataSet = m_model ? m_model->DataSet() : nullptr;
    if (!dataSet)
        return;
    const QFontMetrics cell = m_view->fontMetrics();
    const QFontMetrics title = m_view->horizontalHeader()->fontMetrics();
    const int digit = cell.horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const TField &field = dataSet->Fields(m_model->FieldOfColumn(column));
        const int chars = field.DisplayWidth() > 0 ? field.DisplayWidth() : DefaultWidth(field.DataType());
        // room for the sort arrow next to the caption
        const int width = std::max(digit * chars + 12, title.horizontalAdvance(field.DisplayLabel()) + 28);
        m_view->setColumnWidth(column, width);
    }
}

void TGradeDataSet::OnViewCurrentRowChanged(const QModelIndex &current)
{
    TClientDataSet *dataSet = m_model ? m_model->DataSet() : nullptr;
    if (m_syncing || !dataSet || m_model->Changing() || !current.isValid() || !dataSet->Active())
        return;
    const int recNo = current.row() + 1;
    if (recNo <= dataSet->RecordCount() && recNo != dataSet->RecNo())
        dataSet->SetRecNo(recNo);
}

void TGradeDataSet::FollowCursor(int row)
{
    if (!m_model || m_view->model() != m_model)
        return;
    QItemSelectionModel *selection = m_view->selectionModel();
    const int columns = m_model->columnCount();
    m_syncing = true;
    if (row < 0 || row >= m_model->rowCount() || columns == 0) {
        selection->clear();
    } else {
        const int column = std::max(selection->currentIndex().column(), 0);
        const QModelIndex target = m_model->index(row, std::min(column, columns - 1));
        if (selection->currentIndex() != target || !selection->isRowSelected(row))
            selection->setCurrentIndex(target, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        m_view->scrollTo(target);
    }
    m_syncing = false;
}

void TGradeDataSet::ShowSortIndicator()
{
    const TClientDataSet *dataSet = m_model ? m_model->DataSet() : nullptr;
    if (!dataSet)
        return;
    QHeaderView *header = m_view->horizontalHeader();
    // The header would ask for the same sort again; it is already done.
    const QSignalBlocker blocker(header);
    header->setSortIndicator(m_model->ColumnOfField(dataSet->SortField()), dataSet->SortOrder());
}
