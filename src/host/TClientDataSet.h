#pragma once

#include <QFlags>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

class Money;
class QDate;
class QDateTime;
class TClientDataSet;

enum class TFieldType { String, Integer, Float, Money, Boolean, Date, DateTime };
enum class TDataSetState { Inactive, Browse, Edit, Insert };

enum class TLocateOption { CaseInsensitive = 0x1, PartialKey = 0x2 };
Q_DECLARE_FLAGS(TLocateOptions, TLocateOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(TLocateOptions)

// Identifies one row for as long as it exists, whatever sorting or other rows' inserts and
// deletes do to its position.
class TBookmark final
{
public:
    TBookmark() = default;
    bool IsNull() const { return m_id == 0; }
    friend bool operator==(TBookmark, TBookmark) = default;

private:
    friend class TClientDataSet;
    explicit TBookmark(quint64 id) : m_id(id) {}
    quint64 m_id = 0;
};

// One column of a TClientDataSet: its definition, and the value it holds in the current row.
// Owned by the dataset; the reference stays valid for the dataset's lifetime.
// Reading converts forgivingly (junk reads as 0, a missing row as null); writing needs the
// dataset in Edit or Insert state and converts into the field's type.
class TField final
{
public:
    TField(const TField &) = delete;
    TField &operator=(const TField &) = delete;

    const QString &FieldName() const { return m_name; }
    TFieldType DataType() const { return m_type; }
    int Index() const { return m_index; }
    bool IsNumeric() const;

    QString DisplayLabel() const;   // the grid title; the name when no caption was given
    void SetDisplayLabel(const QString &caption);
    const QString &DisplayFormat() const { return m_displayFormat; }
    void SetDisplayFormat(const QString &pattern);
    bool Visible() const { return m_visible; }
    void SetVisible(bool visible);
    int DisplayWidth() const { return m_displayWidth; }   // in characters; 0 = by type
    void SetDisplayWidth(int characters);

    bool IsNull() const;
    QVariant Value() const;
    QString AsString() const;
    int AsInteger() const;
    double AsFloat() const;
    Money AsMoney() const;
    bool AsBoolean() const;
    QDate AsDate() const;
    QDateTime AsDateTime() const;
    QString DisplayText() const;

    void SetValue(const QVariant &value);
    void SetAsString(const QString &value);
    void SetAsInteger(int value);
    void SetAsFloat(double value);
    void SetAsMoney(Money value);
    void SetAsBoolean(bool value);
    void SetAsDate(const QDate &value);
    void SetAsDateTime(const QDateTime &value);
    void Clear();

private:
    friend class TClientDataSet;
    TField(TClientDataSet *dataSet, int index, const QString &name, TFieldType type);

    TClientDataSet *m_dataSet;
    int m_index;
    QString m_name;
    TFieldType m_type;
    QString m_caption;
    QString m_displayFormat;
    bool m_visible = true;
    int m_displayWidth = 0;
};

// An in-memory table with a cursor, in the manner of Delphi's TClientDataSet.
// Misuse by the program (unknown field, writing outside Edit/Insert, Post in Browse) throws;
// nothing a user types can reach those paths.
class TClientDataSet final : public QObject
{
    Q_OBJECT

public:
    explicit TClientDataSet(QObject *parent = nullptr);
    ~TClientDataSet() override;

    // --- Fields (declared while inactive) ---
    TField &AddField(const QString &name, TFieldType type, const QString &caption = {},
                     const QString &displayFormat = {}, bool visible = true, int displayWidth = 0);
    int FieldCount() const { return static_cast<int>(m_fields.size()); }
    TField &Fields(int index);
    const TField &Fields(int index) const;
    TField *FindField(const QString &name);
    const TField *FindField(const QString &name) const;
    TField &FieldByName(const QString &name);   // throws std::invalid_argument when absent
    const TField &FieldByName(const QString &name) const;

    // --- State ---
    void Open();
    void Close();
    bool Active() const { return m_state != TDataSetState::Inactive; }
    TDataSetState State() const { return m_state; }
    void EmptyDataSet();
    int RecordCount() const { return static_cast<int>(m_rows.size()); }
    bool IsEmpty() const { return m_rows.empty(); }

    // --- Cursor; moving it posts a pending edit first ---
    int RecNo() const { return m_cur + 1; }   // 1-based; 0 when empty
    void SetRecNo(int recNo);
    void First();
    void Last();
    void Next();
    void Prior();
    int MoveBy(int distance);                 // returns how far the cursor actually moved
    bool Bof() const { return m_bof; }
    bool Eof() const { return m_eof; }

    // --- Editing ---
    void Append();   // new row at the end
    void Insert();   // new row before the current one
    void Edit();     // on an empty dataset, appends
    void Post();
    void Cancel();   // drops a pending insert, or restores the edited values
    void Delete();   // in Insert state, cancels

    // `values` holds one value, or a QVariantList with one value per name of "A;B".
    bool Locate(const QString &fieldNames, const QVariant &values, TLocateOptions options = {});

    TBookmark GetBookmark() const;
    bool BookmarkValid(const TBookmark &bookmark) const { return RowOf(bookmark) >= 0; }
    bool GotoBookmark(const TBookmark &bookmark);

    // Counted. While disabled no row notifications and no AfterScroll are emitted; the last
    // EnableControls emits one reset and one AfterScroll.
    void DisableControls();
    void EnableControls();
    bool ControlsDisabled() const { return m_disableCount > 0; }

    // Stable; nulls first ascending; text compared by the locale, ignoring case.
    void SortBy(const QString &fieldName, Qt::SortOrder order = Qt::AscendingOrder);
    const QString &SortField() const { return m_sortField; }
    Qt::SortOrder SortOrder() const { return m_sortOrder; }

    // --- Any row, for grids ---
    QVariant ValueAt(int row, int field) const;
    QString DisplayTextAt(int row, int field) const;
    TBookmark BookmarkAt(int row) const;
    int RowOf(const TBookmark &bookmark) const;   // -1 when the row is gone

signals:
    void AfterOpen();
    void AfterScroll();
    void AfterPost();
    void AfterCancel();
    void AfterDelete();
    void StateChanged(TDataSetState state);

    // Fine-grained notifications for item models; none while controls are disabled.
    void RowAboutToBeInserted(int row);
    void RowInserted(int row);
    void RowAboutToBeRemoved(int row);
    void RowRemoved(int row);
    void RowChanged(int row);
    void DataAboutToBeReset();
    void DataReset();
    void LayoutAboutToBeChanged();
    void LayoutChanged();
    void FieldsChanged();   // a field added, or its caption, format, visibility or width changed

private:
    friend class TField;
    struct Row
    {
        quint64 id = 0;
        QList<QVariant> values;
    };

    QVariant CurrentValue(int field) const;
    void SetCurrentValue(const TField &field, const QVariant &value);
    int IndexOfField(const QString &name) const;
    bool Notifying() const { return m_disableCount == 0; }
    quint64 CurrentId() const;
    void CheckActive() const;
    void CheckBrowseMode();
    void SetState(TDataSetState state);
    void MoveCursor(int index, bool bof, bool eof);
    void EmitScrollIfMoved(quint64 oldId);
    void InsertRowAt(int index);
    void CancelInsert();
    void RemoveCurrentRow();
    void ResetRows();

    std::vector<std::unique_ptr<TField>> m_fields;
    std::vector<Row> m_rows;
    TDataSetState m_state = TDataSetState::Inactive;
    int m_cur = -1;
    bool m_bof = true;
    bool m_eof = true;
    quint64 m_nextId = 1;
    QList<QVariant> m_savedValues;   // the row as it was before Edit
    quint64 m_idBeforeInsert = 0;
    int m_disableCount = 0;
    QString m_sortField;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};

Q_DECLARE_METATYPE(TDataSetState)
