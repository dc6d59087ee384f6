#pragma once

#include "TClientDataSet.h"

#include <QAbstractTableModel>
#include <QList>
#include <QModelIndexList>
#include <QPointer>

#include <vector>

class QTableView;

// Read-only grid model over one TClientDataSet: one column per visible field, in declaration
// order. Clicking a title sorts the dataset; the view's current row and the dataset cursor follow
// each other.
class TClientManager final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit TClientManager(TClientDataSet *dataSet, QObject *parent = nullptr);

    TClientDataSet *DataSet() const { return m_dataSet; }
    int FieldOfColumn(int column) const;           // field index, -1 when out of range
    int ColumnOfField(const QString &fieldName) const;   // -1 when absent or hidden

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    // Re-applies the dataset's current sort, e.g. after reloading its rows.
    void OrdenarPelaColunm();

    void Attach(QTableView *view);
    void PrepGrid();   // column widths from the fields' display widths and captions

private:
    void Rebuild();
    void OnRowAboutToBeInserted(int row);
    void OnRowInserted();
    void OnRowAboutToBeRemoved(int row);
    void OnRowRemoved();
    void OnRowChanged(int row);
    void OnAboutToReset();
    void OnReset();
    void OnLayoutAboutToBeChanged();
    void OnLayoutChanged();
    void OnFieldsChanged();
    void OnViewCurrentRowChanged(const QModelIndex &current);
    void EndChange();
    void SyncViewToCursor();
    void ShowSortIndicator();

    QPointer<TClientDataSet> m_dataSet;
    QPointer<QTableView> m_view;
    std::vector<int> m_columns;   // field index of each column
    // The row count the attached views know; while the dataset's controls are disabled it stays
    // put until the reset that ends the batch.
    int m_rowCount = 0;
    bool m_syncing = false;    // the view is being moved to the cursor
    bool m_changing = false;   // the dataset is between an about-to and a done notification
    QModelIndexList m_persistentBefore;
    QList<TBookmark> m_persistentRows;
};
