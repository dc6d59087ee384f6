#pragma once

#include <QObject>
#include <QPointer>

class QModelIndex;
class QTableView;
class TClientManager;

// Shows a TClientManager in a QTableView: whole rows, read-only, sorted by a click on a title
// with the indicator shown, columns as wide as the fields' display widths and captions ask, and
// the view's current row and the dataset cursor following each other.
class TGradeDataSet final : public QObject
{
    Q_OBJECT

public:
    // Puts the model in the view; the helper lives as the view's child.
    static TGradeDataSet *Attach(TClientManager *model, QTableView *view);

    // Column widths from the fields' display widths and captions.
    void SizeColumns();

private:
    TGradeDataSet(TClientManager *model, QTableView *view);

    void OnViewCurrentRowChanged(const QModelIndex &current);
    void FollowCursor(int row);
    void ShowSortIndicator();

    QPointer<TClientManager> m_model;
    QTableView *m_view;        // the parent
    bool m_syncing = false;    // the view is being moved to the cursor
};
