#include "TClientManager.h"

#include <algorithm>

TClientManager::TClientManager(TClientDataSet *dataSet, QObject *parent)
    : QAbstractTableModel(parent), m_dataSet(dataSet)
{
    Rebuild();
    using DS = TClientDataSet;
    connect(dataSet, &DS::RowAboutToBeInserted, this, &TClientManager::OnRowAboutToBeInserted);
    connect(dataSet, &DS::RowInserted, this, &TClientManager::OnRowInserted);
    connect(dataSet, &DS::RowAboutToBeRemoved, this, &TClientManager::OnRowAboutToBeRemoved);
    connect(dataSet, &DS::RowRemoved, this, &TClientManager::OnRowRemoved);
    connect(dataSet, &DS::RowChanged, this, &TClientManager::OnRowChanged);
    connect(dataSet, &DS::DataAboutToBeReset, this, &TClientManager::OnAboutToReset);
    connect(dataSet, &DS::DataReset, this, &TClientManager::OnReset);
    connect(dataSet, &DS::LayoutAboutToBeChanged, this, &TClientManager::OnLayoutAboutToBeChanged);
    connect(dataSet, &DS::LayoutChanged, this, &TClientManager::OnLayoutChanged);
    connect(dataSet, &DS::FieldsChanged, this, &TClientManager::OnFieldsChanged);
    connect(dataSet, &DS::AfterScroll, this, &TClientManager::ReportCursor);
    connect(dataSet, &QObject::destroyed, this, [this] {
        beginResetModel();
        m_columns.clear();
        m_rowCount = 0;
        endResetModel();
    });
}

void TClientManager::Rebuild()
{
    m_columns.clear();
    m_rowCount = 0;
    if (!m_dataSet)
        return;
    for (int f = 0; f < m_dataSet->FieldCount(); ++f)
        if (m_dataSet->Fields(f).Visible())
            m_columns.push_back(f);
    m_rowCount = m_dataSet->RecordCount();
}

int TClientManager::FieldOfColumn(int column) const
{
    if (column < 0 || column >= static_cast<int>(m_columns.size()))
        return -1;
    return m_columns[static_cast<size_t>(column)];
}

int TClientManager::ColumnOfField(const QString &fieldName) const
{
    const TField *field = m_dataSet ? m_dataSet->FindField(fieldName) : nullptr;
    if (!field)
        return -1;
    const auto it = std::find(m_columns.begin(), m_columns.end(), field->Index());
    return it == m_columns.end() ? -1 : static_cast<int>(it - m_columns.begin());
}

// --- Model -----------------------------------------------------------------------------------

int TClientManager::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rowCount;
}

int TClientManager::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant TClientManager::data(const QModelIndex &index, int role) const
{
    const int field = FieldOfColumn(index.column());
    if (!m_dataSet || !index.isValid() || field < 0)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_dataSet->DisplayTextAt(index.row(), field);
    case Qt::TextAlignmentRole:
        if (m_dataSet->Fields(field).IsNumeric())
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant TClientManager::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return QAbstractTableModel::headerData(section, orientation, role);
    const int field = FieldOfColumn(section);
    if (!m_dataSet || field < 0)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_dataSet->Fields(field).DisplayLabel();
    case Qt::InitialSortOrderRole:   // a first click on a title sorts ascending
        return int(Qt::AscendingOrder);
    default:
        return {};
    }
}

Qt::ItemFlags TClientManager::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

void TClientManager::sort(int column, Qt::SortOrder order)
{
    const int field = FieldOfColumn(column);
    if (m_dataSet && field >= 0)
        m_dataSet->SortBy(m_dataSet->Fields(field).FieldName(), order);
}

void TClientManager::OrdenarPelaColunm()
{
    if (m_dataSet && !m_dataSet->SortField().isEmpty())
        m_dataSet->SortBy(m_dataSet->SortField(), m_dataSet->SortOrder());
}

// --- Dataset notifications -------------------------------------------------------------------

void TClientManager::OnRowAboutToBeInserted(int row)
{
    m_changing = true;
    beginInsertRows({}, row, row);
}

void TClientManager::OnRowInserted()
{
    ++m_rowCount;
    endInsertRows();
    EndChange();
}

void TClientManager::OnRowAboutToBeRemoved(int row)
{
    m_changing = true;
    beginRemoveRows({}, row, row);
}

void TClientManager::OnRowRemoved()
{
    --m_rowCount;
    endRemoveRows();
    EndChange();
}

// The views move their current row on their own while rows come and go; the cursor is what counts.
void TClientManager::EndChange()
{
    m_changing = false;
    ReportCursor();
}

void TClientManager::OnRowChanged(int row)
{
    if (row >= 0 && row < m_rowCount && !m_columns.empty())
        emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void TClientManager::OnAboutToReset()
{
    m_changing = true;
    beginResetModel();
}

void TClientManager::OnReset()
{
    Rebuild();
    endResetModel();
    EndChange();
}

void TClientManager::OnLayoutAboutToBeChanged()
{
    m_changing = true;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    m_persistentBefore = persistentIndexList();
    m_persistentRows.clear();
    for (const QModelIndex &i : std::as_const(m_persistentBefore))
        m_persistentRows.append(m_dataSet->BookmarkAt(i.row()));
}

void TClientManager::OnLayoutChanged()
{
    QModelIndexList after;
    for (qsizetype i = 0; i < m_persistentBefore.size(); ++i) {
        const int row = m_dataSet->RowOf(m_persistentRows[i]);
        after.append(row < 0 ? QModelIndex() : index(row, m_persistentBefore[i].column()));
    }
    changePersistentIndexList(m_persistentBefore, after);
    m_persistentBefore.clear();
    m_persistentRows.clear();
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    EndChange();
}

void TClientManager::OnFieldsChanged()
{
    // Columns may come or go; only a reset tells the views that.
    m_changing = true;
    beginResetModel();
    Rebuild();
    endResetModel();
    emit ColumnsChanged();
    EndChange();
}

void TClientManager::ReportCursor()
{
    if (m_dataSet && !m_dataSet->ControlsDisabled())
        emit CursorMoved(m_dataSet->RecNo() - 1);
}
