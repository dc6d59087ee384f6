#pragma once

#include "TClientDataSet.h"

#include <QAbstractTableModel>
#include <QList>
#include <QModelIndexList>
#include <QPointer>

#include <vector>

// Read-only grid model over one TClientDataSet: one column per visible field, in declaration
// order. Clicking a title sorts the dataset. A grid follows the cursor through CursorMoved
// (TGradeDataSet does that for a QTableView).
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

    // True between the dataset's about-to and done notifications: a view moving its current
    // row then is not the user choosing a row.
    bool Changing() const { return m_changing; }

signals:
    // Where the cursor is now (-1: no row), after a move and after every change of the rows;
    // silent while the dataset's controls are disabled.
    void CursorMoved(int row);
    // The columns were rebuilt from changed fields.
    void ColumnsChanged();

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
    void EndChange();
    void ReportCursor();

    QPointer<TClientDataSet> m_dataSet;
    std::vector<int> m_columns;   // field index of each column
    // The row count the attached views know; while the dataset's controls are disabled it stays
    // put until the reset that ends the batch.
    int m_rowCount = 0;
    bool m_changing = false;   // the dataset is between an about-to and a done notification
    QModelIndexList m_persistentBefore;
    QList<TBookmark> m_persistentRows;
};
