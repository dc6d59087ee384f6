#include "TClientDataSet.h"

#include "Money.h"
#include "Valores.h"

#include <QCollator>
#include <QDate>
#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <stdexcept>
#include <utility>

namespace {

// --- Reading any stored or given value as another type --------------------------------------

enum class Kind { Null, Text, Whole, Real, Cash, Flag, Day, Moment, Other };

Kind KindOf(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return Kind::Null;
    const int id = v.typeId();
    if (id == qMetaTypeId<Money>())
        return Kind::Cash;
    switch (id) {
    case QMetaType::QString: case QMetaType::QByteArray: case QMetaType::QChar:
        return Kind::Text;
    case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong: case QMetaType::ULongLong:
    case QMetaType::Short: case QMetaType::UShort: case QMetaType::Long: case QMetaType::ULong:
        return Kind::Whole;
    case QMetaType::Double: case QMetaType::Float:
        return Kind::Real;
    case QMetaType::Bool:
        return Kind::Flag;
    case QMetaType::QDate:
        return Kind::Day;
    case QMetaType::QDateTime:
        return Kind::Moment;
    default:
        return Kind::Other;
    }
}

const QString DateText = QStringLiteral("dd/MM/yyyy");
const QString DateTimeText = QStringLiteral("dd/MM/yyyy hh:mm:ss");

// Text holding a ',' is Brazilian ("1.234,5"); otherwise it is SQL style ("1234.5"), which is
// what AsString of a number gives back.
std::optional<double> ParseNumber(const QString &text)
{
    const QString t = text.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    if (t.contains(QLatin1Char(',')))
        return LerNumeroBR(t);
    bool ok = false;
    const double d = QLocale::c().toDouble(t, &ok);
    return ok ? std::optional<double>(d) : std::nullopt;
}

std::optional<Money> ParseMoney(const QString &text)
{
    const QString t = text.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    if (auto m = t.contains(QLatin1Char(',')) ? Money::parseBR(t) : Money::parse(t))
        return m;
    if (auto d = ParseNumber(t))
        return Money::fromDouble(*d);
    return std::nullopt;
}

int ClampToInt(double d)
{
    if (std::isnan(d))
        return 0;
    const double r = std::nearbyint(d);   // ties to even under the default rounding mode
    return static_cast<int>(std::clamp(r, double(std::numeric_limits<int>::min()),
                                       double(std::numeric_limits<int>::max())));
}

QDateTime ParseDateTime(const QString &text)
{
    const QString t = text.trimmed();
    for (const QString &format : {DateTimeText, QStringLiteral("dd/MM/yyyy hh:mm"), DateText,
                                  QStringLiteral("d/M/yyyy")}) {
        const QDateTime dt = QDateTime::fromString(t, format);
        if (dt.isValid())
            return dt;
    }
    const QDateTime iso = QDateTime::fromString(t, Qt::ISODate);
    if (iso.isValid())
        return iso;
    const QDate day = QDate::fromString(t, Qt::ISODate);
    return day.isValid() ? day.startOfDay() : QDateTime();
}

bool ParseFlag(const QString &text)
{
    static const QStringList yes = {QStringLiteral("S"), QStringLiteral("SIM"), QStringLiteral("T"),
                                    QStringLiteral("TRUE"), QStringLiteral("Y"), QStringLiteral("YES")};
    const QString t = text.trimmed().toUpper();
    if (yes.contains(t))
        return true;
    const auto n = ParseNumber(t);
    return n && *n != 0.0;
}

QString ToString(const QVariant &v)
{
    switch (KindOf(v)) {
    case Kind::Null: return {};
    case Kind::Real: return FloatToStrPonto(v.toDouble());
    case Kind::Cash: return FloatToStrPonto(v.value<Money>());
    case Kind::Flag: return v.toBool() ? QStringLiteral("S") : QStringLiteral("N");
    case Kind::Day: return v.toDate().toString(DateText);
    case Kind::Moment: return v.toDateTime().toString(DateTimeText);
    default: return v.toString();
    }
}

double ToFloat(const QVariant &v)
{
    switch (KindOf(v)) {
    case Kind::Text: return ParseNumber(v.toString()).value_or(0.0);
    case Kind::Whole: case Kind::Real: return v.toDouble();
    case Kind::Cash: return v.value<Money>().toDouble();
    case Kind::Flag: return v.toBool() ? 1.0 : 0.0;
    default: return 0.0;
    }
}

int ToInteger(const QVariant &v)
{
    switch (KindOf(v)) {
    case Kind::Whole: return static_cast<int>(std::clamp<qlonglong>(
        v.toLongLong(), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    case Kind::Cash: return ClampToInt(double(v.value<Money>().roundTo(0).raw() / Money::Scale));
    default: return ClampToInt(ToFloat(v));
    }
}

Money ToMoney(const QVariant &v)
{
    switch (KindOf(v)) {
    case Kind::Text: return ParseMoney(v.toString()).value_or(Money());
    case Kind::Whole: return Money::fromInt(v.toLongLong());
    case Kind::Real: return Money::fromDouble(v.toDouble());
    case Kind::Cash: return v.value<Money>();
    case Kind::Flag: return Money::fromInt(v.toBool() ? 1 : 0);
    default: return Money();
    }
}

bool ToBoolean(const QVariant &v)
{
    switch (KindOf(v)) {
    case Kind::Text: return ParseFlag(v.toString());
    case Kind::Flag: return v.toBool();
    case Kind::Cash: return v.value<Money>().raw() != 0;
    case Kind::Whole: case Kind::Real: return ToFloat(v) != 0.0;
    default: return false;
    }
}

QDateTime ToDateTime(const QVariant &v)
{
    switch (KindOf(v)) {
    case Kind::Moment: return v.toDateTime();
    case Kind::Day: return v.toDate().startOfDay();
    case Kind::Text: return ParseDateTime(v.toString());
    default: return {};
    }
}

QDate ToDate(const QVariant &v)
{
    return KindOf(v) == Kind::Day ? v.toDate() : ToDateTime(v).date();
}

// The value as the field stores it: blank text and invalid dates become null.
QVariant Coerce(TFieldType type, const QVariant &v)
{
    const Kind kind = KindOf(v);
    if (kind == Kind::Null)
        return {};
    if (type == TFieldType::String)
        return ToString(v);
    if (kind == Kind::Text && v.toString().trimmed().isEmpty())
        return {};
    switch (type) {
    case TFieldType::Integer: return ToInteger(v);
    case TFieldType::Float: return ToFloat(v);
    case TFieldType::Money: return QVariant::fromValue(ToMoney(v));
    case TFieldType::Boolean: return ToBoolean(v);
    case TFieldType::Date: {
        const QDate d = ToDate(v);
        return d.isValid() ? QVariant(d) : QVariant();
    }
    case TFieldType::DateTime: {
        const QDateTime dt = ToDateTime(v);
        return dt.isValid() ? QVariant(dt) : QVariant();
    }
    case TFieldType::String: break;
    }
    return {};
}

QString BrazilianDecimal(QString text)
{
    return text.replace(QLatin1Char('.'), QLatin1Char(','));
}

QString DisplayOf(const TField &field, const QVariant &v)
{
    if (KindOf(v) == Kind::Null)
        return {};
    const QString &format = field.DisplayFormat();
    switch (field.DataType()) {
    case TFieldType::String:
        return v.toString();
    case TFieldType::Integer:
        return format.isEmpty() ? QString::number(v.toInt()) : FormatFloat(format, v.toDouble());
    case TFieldType::Float:
        return format.isEmpty() ? BrazilianDecimal(FloatToStrPonto(v.toDouble()))
                                : FormatFloat(format, v.toDouble());
    case TFieldType::Money:
        return format.isEmpty() ? BrazilianDecimal(FloatToStrPonto(v.value<Money>()))
                                : FormatFloat(format, v.value<Money>());
    case TFieldType::Boolean: {
        // Delphi's "true text;false text" display values
        const QStringList texts = format.split(QLatin1Char(';'));
        if (texts.size() == 2)
            return v.toBool() ? texts[0] : texts[1];
        return v.toBool() ? QStringLiteral("Sim") : QStringLiteral("Não");
    }
    case TFieldType::Date:
        return format.isEmpty() ? v.toDate().toString(DateText) : FormatDateTime(format, v.toDate());
    case TFieldType::DateTime:
        return format.isEmpty() ? v.toDateTime().toString(DateTimeText)
                                : FormatDateTime(format, v.toDateTime());
    }
    return {};
}

// --- Comparing -------------------------------------------------------------------------------

template<typename T>
int Compare3(const T &a, const T &b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

int CompareValues(TFieldType type, const QVariant &a, const QVariant &b)
{
    switch (type) {
    case TFieldType::Integer: return Compare3(a.toInt(), b.toInt());
    case TFieldType::Float: return Compare3(a.toDouble(), b.toDouble());
    case TFieldType::Money: return Compare3(a.value<Money>(), b.value<Money>());
    case TFieldType::Boolean: return Compare3(a.toBool(), b.toBool());
    case TFieldType::Date: return Compare3(a.toDate(), b.toDate());
    case TFieldType::DateTime: return Compare3(a.toDateTime(), b.toDateTime());
    case TFieldType::String: return QString::compare(a.toString(), b.toString(), Qt::CaseInsensitive);
    }
    return 0;
}

bool Matches(const TField &field, const QVariant &stored, const QVariant &wanted, TLocateOptions options)
{
    if (field.DataType() == TFieldType::String) {
        const QString have = stored.toString();
        const QString want = wanted.toString();
        const Qt::CaseSensitivity cs = options.testFlag(TLocateOption::CaseInsensitive)
                                           ? Qt::CaseInsensitive : Qt::CaseSensitive;
        return options.testFlag(TLocateOption::PartialKey) ? have.startsWith(want, cs)
                                                           : have.compare(want, cs) == 0;
    }
    const QVariant target = Coerce(field.DataType(), wanted);
    const bool storedNull = KindOf(stored) == Kind::Null;
    if (KindOf(target) == Kind::Null || storedNull)
        return storedNull && KindOf(target) == Kind::Null;
    return CompareValues(field.DataType(), stored, target) == 0;
}

[[noreturn]] void ThrowLogic(const QString &message)
{
    throw std::logic_error(message.toStdString());
}

} // namespace

// --- TField ----------------------------------------------------------------------------------

TField::TField(TClientDataSet *dataSet, int index, const QString &name, TFieldType type)
    : m_dataSet(dataSet), m_index(index), m_name(name), m_type(type)
{
}

bool TField::IsNumeric() const
{
    return m_type == TFieldType::Integer || m_type == TFieldType::Float || m_type == TFieldType::Money;
}

QString TField::DisplayLabel() const
{
    return m_caption.isEmpty() ? m_name : m_caption;
}

void TField::SetDisplayLabel(const QString &caption)
{
    m_caption = caption;
    emit m_dataSet->FieldsChanged();
}

void TField::SetDisplayFormat(const QString &pattern)
{
    m_displayFormat = pattern;
    emit m_dataSet->FieldsChanged();
}

void TField::SetVisible(bool visible)
{
    m_visible = visible;
    emit m_dataSet->FieldsChanged();
}

void TField::SetDisplayWidth(int characters)
{
    m_displayWidth = characters;
    emit m_dataSet->FieldsChanged();
}

bool TField::IsNull() const { return KindOf(Value()) == Kind::Null; }
QVariant TField::Value() const { return m_dataSet->CurrentValue(m_index); }
QString TField::AsString() const { return ToString(Value()); }
int TField::AsInteger() const { return ToInteger(Value()); }
double TField::AsFloat() const { return ToFloat(Value()); }
Money TField::AsMoney() const { return ToMoney(Value()); }
bool TField::AsBoolean() const { return ToBoolean(Value()); }
QDate TField::AsDate() const { return ToDate(Value()); }
QDateTime TField::AsDateTime() const { return ToDateTime(Value()); }
QString TField::DisplayText() const { return DisplayOf(*this, Value()); }

void TField::SetValue(const QVariant &value) { m_dataSet->SetCurrentValue(*this, Coerce(m_type, value)); }
void TField::SetAsString(const QString &value) { SetValue(value); }
void TField::SetAsInteger(int value) { SetValue(value); }
void TField::SetAsFloat(double value) { SetValue(value); }
void TField::SetAsMoney(Money value) { SetValue(QVariant::fromValue(value)); }
void TField::SetAsBoolean(bool value) { SetValue(value); }
void TField::SetAsDate(const QDate &value) { SetValue(value); }
void TField::SetAsDateTime(const QDateTime &value) { SetValue(value); }
void TField::Clear() { SetValue(QVariant()); }

// --- TClientDataSet: fields ------------------------------------------------------------------

TClientDataSet::TClientDataSet(QObject *parent) : QObject(parent) {}

TClientDataSet::~TClientDataSet() = default;

TField &TClientDataSet::AddField(const QString &name, TFieldType type, const QString &caption,
                                 const QString &displayFormat, bool visible, int displayWidth)
{
    if (Active())
        ThrowLogic(QStringLiteral("TClientDataSet %1: fields are fixed once open (adding %2)")
                       .arg(objectName(), name));
    if (name.trimmed().isEmpty() || IndexOfField(name) >= 0)
        throw std::invalid_argument(
            QStringLiteral("TClientDataSet %1: empty or repeated field name '%2'").arg(objectName(), name).toStdString());
    auto field = std::unique_ptr<TField>(new TField(this, FieldCount(), name, type));
    field->m_caption = caption;
    field->m_displayFormat = displayFormat;
    field->m_visible = visible;
    field->m_displayWidth = displayWidth;
    m_fields.push_back(std::move(field));
    emit FieldsChanged();
    return *m_fields.back();
}

TField &TClientDataSet::Fields(int index)
{
    return *m_fields.at(static_cast<size_t>(index));
}

const TField &TClientDataSet::Fields(int index) const
{
    return *m_fields.at(static_cast<size_t>(index));
}

int TClientDataSet::IndexOfField(const QString &name) const
{
    const QString wanted = name.trimmed();
    for (const auto &field : m_fields)
        if (field->m_name.compare(wanted, Qt::CaseInsensitive) == 0)
            return field->m_index;
    return -1;
}

TField *TClientDataSet::FindField(const QString &name)
{
    const int index = IndexOfField(name);
    return index < 0 ? nullptr : m_fields[static_cast<size_t>(index)].get();
}

const TField *TClientDataSet::FindField(const QString &name) const
{
    const int index = IndexOfField(name);
    return index < 0 ? nullptr : m_fields[static_cast<size_t>(index)].get();
}

TField &TClientDataSet::FieldByName(const QString &name)
{
    return const_cast<TField &>(std::as_const(*this).FieldByName(name));
}

const TField &TClientDataSet::FieldByName(const QString &name) const
{
    if (const TField *field = FindField(name))
        return *field;
    throw std::invalid_argument(
        QStringLiteral("TClientDataSet %1: field '%2' not found").arg(objectName(), name).toStdString());
}

// --- Values ----------------------------------------------------------------------------------

QVariant TClientDataSet::CurrentValue(int field) const
{
    return ValueAt(m_cur, field);
}

void TClientDataSet::SetCurrentValue(const TField &field, const QVariant &value)
{
    if (m_state != TDataSetState::Edit && m_state != TDataSetState::Insert)
        ThrowLogic(QStringLiteral("TClientDataSet %1: field '%2' set outside Edit/Insert")
                       .arg(objectName(), field.FieldName()));
    m_rows[static_cast<size_t>(m_cur)].values[field.Index()] = value;
}

QVariant TClientDataSet::ValueAt(int row, int field) const
{
    if (row < 0 || row >= RecordCount() || field < 0 || field >= FieldCount())
        return {};
    return m_rows[static_cast<size_t>(row)].values[field];
}

QString TClientDataSet::DisplayTextAt(int row, int field) const
{
    if (field < 0 || field >= FieldCount())
        return {};
    return DisplayOf(Fields(field), ValueAt(row, field));
}

// --- State -----------------------------------------------------------------------------------

void TClientDataSet::CheckActive() const
{
    if (!Active())
        ThrowLogic(QStringLiteral("TClientDataSet %1: dataset is not open").arg(objectName()));
}

void TClientDataSet::CheckBrowseMode()
{
    if (m_state == TDataSetState::Edit || m_state == TDataSetState::Insert)
        Post();
}

void TClientDataSet::SetState(TDataSetState state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit StateChanged(state);
}

void TClientDataSet::Open()
{
    if (Active())
        return;
    if (m_fields.empty())
        ThrowLogic(QStringLiteral("TClientDataSet %1: no fields declared").arg(objectName()));
    if (Notifying())
        emit DataAboutToBeReset();
    m_rows.clear();
    m_cur = -1;
    m_bof = m_eof = true;
    m_state = TDataSetState::Browse;
    if (Notifying())
        emit DataReset();
    emit StateChanged(m_state);
    emit AfterOpen();
}

void TClientDataSet::Close()
{
    if (!Active())
        return;
    m_savedValues.clear();
    ResetRows();
    SetState(TDataSetState::Inactive);
}

void TClientDataSet::EmptyDataSet()
{
    CheckActive();
    CheckBrowseMode();
    ResetRows();
}

void TClientDataSet::ResetRows()
{
    const quint64 oldId = CurrentId();
    if (Notifying())
        emit DataAboutToBeReset();
    m_rows.clear();
    m_cur = -1;
    m_bof = m_eof = true;
    if (Notifying())
        emit DataReset();
    EmitScrollIfMoved(oldId);
}

// --- Cursor ----------------------------------------------------------------------------------

quint64 TClientDataSet::CurrentId() const
{
    return m_cur < 0 ? 0 : m_rows[static_cast<size_t>(m_cur)].id;
}

void TClientDataSet::EmitScrollIfMoved(quint64 oldId)
{
    if (CurrentId() != oldId && Notifying())
        emit AfterScroll();
}

void TClientDataSet::MoveCursor(int index, bool bof, bool eof)
{
    const quint64 oldId = CurrentId();
    m_cur = index;
    m_bof = bof;
    m_eof = eof;
    EmitScrollIfMoved(oldId);
}

void TClientDataSet::SetRecNo(int recNo)
{
    CheckActive();
    CheckBrowseMode();
    if (!IsEmpty())
        MoveCursor(std::clamp(recNo, 1, RecordCount()) - 1, false, false);
}

void TClientDataSet::First()
{
    CheckActive();
    CheckBrowseMode();
    MoveCursor(IsEmpty() ? -1 : 0, true, IsEmpty());
}

void TClientDataSet::Last()
{
    CheckActive();
    CheckBrowseMode();
    MoveCursor(RecordCount() - 1, IsEmpty(), true);
}

void TClientDataSet::Next() { MoveBy(1); }
void TClientDataSet::Prior() { MoveBy(-1); }

int TClientDataSet::MoveBy(int distance)
{
    CheckActive();
    CheckBrowseMode();
    if (IsEmpty() || distance == 0)
        return 0;
    const qint64 target = qint64(m_cur) + distance;
    const int last = RecordCount() - 1;
    const int index = static_cast<int>(std::clamp<qint64>(target, 0, last));
    const int moved = index - m_cur;
    // Like Delphi: Eof (Bof) is set by trying to move past the last (first) row.
    if (distance > 0)
        MoveCursor(index, false, target > last);
    else
        MoveCursor(index, target < 0, false);
    return moved;
}

// --- Editing ---------------------------------------------------------------------------------

void TClientDataSet::InsertRowAt(int index)
{
    const quint64 oldId = CurrentId();
    m_idBeforeInsert = oldId;
    if (Notifying())
        emit RowAboutToBeInserted(index);
    Row row{m_nextId++, QList<QVariant>(FieldCount())};
    m_rows.insert(m_rows.begin() + index, std::move(row));
    m_cur = index;
    m_bof = m_eof = false;
    if (Notifying())
        emit RowInserted(index);
    SetState(TDataSetState::Insert);
    EmitScrollIfMoved(oldId);
}

void TClientDataSet::Append()
{
    CheckActive();
    CheckBrowseMode();
    InsertRowAt(RecordCount());
}

void TClientDataSet::Insert()
{
    CheckActive();
    CheckBrowseMode();
    InsertRowAt(std::max(m_cur, 0));
}

void TClientDataSet::Edit()
{
    CheckActive();
    if (m_state == TDataSetState::Edit || m_state == TDataSetState::Insert)
        return;
    if (IsEmpty()) {
        Append();
        return;
    }
    m_savedValues = m_rows[static_cast<size_t>(m_cur)].values;
    SetState(TDataSetState::Edit);
}

void TClientDataSet::Post()
{
    if (m_state != TDataSetState::Edit && m_state != TDataSetState::Insert)
        ThrowLogic(QStringLiteral("TClientDataSet %1: Post outside Edit/Insert").arg(objectName()));
    m_savedValues.clear();
    SetState(TDataSetState::Browse);
    if (Notifying())
        emit RowChanged(m_cur);
    emit AfterPost();
}

void TClientDataSet::Cancel()
{
    if (m_state == TDataSetState::Insert) {
        CancelInsert();
    } else if (m_state == TDataSetState::Edit) {
        m_rows[static_cast<size_t>(m_cur)].values = m_savedValues;
        m_savedValues.clear();
        SetState(TDataSetState::Browse);
        if (Notifying())
            emit RowChanged(m_cur);
    } else {
        return;
    }
    emit AfterCancel();
}

void TClientDataSet::CancelInsert()
{
    const quint64 insertedId = CurrentId();
    const int index = m_cur;
    if (Notifying())
        emit RowAboutToBeRemoved(index);
    m_rows.erase(m_rows.begin() + index);
    // back to the row that was current before the insert
    const int before = RowOf(TBookmark(m_idBeforeInsert));
    m_cur = before >= 0 ? before : std::min(index, RecordCount() - 1);
    m_bof = m_eof = IsEmpty();
    if (Notifying())
        emit RowRemoved(index);
    SetState(TDataSetState::Browse);
    EmitScrollIfMoved(insertedId);
}

void TClientDataSet::Delete()
{
    CheckActive();
    if (m_state == TDataSetState::Insert) {
        Cancel();
        return;
    }
    if (IsEmpty())
        ThrowLogic(QStringLiteral("TClientDataSet %1: Delete on an empty dataset").arg(objectName()));
    const quint64 deletedId = CurrentId();
    m_savedValues.clear();
    RemoveCurrentRow();
    SetState(TDataSetState::Browse);
    emit AfterDelete();
    EmitScrollIfMoved(deletedId);
}

void TClientDataSet::RemoveCurrentRow()
{
    const int index = m_cur;
    if (Notifying())
        emit RowAboutToBeRemoved(index);
    m_rows.erase(m_rows.begin() + index);
    m_cur = std::min(index, RecordCount() - 1);
    m_bof = m_eof = IsEmpty();
    if (Notifying())
        emit RowRemoved(index);
}

// --- Searching and bookmarks -----------------------------------------------------------------

bool TClientDataSet::Locate(const QString &fieldNames, const QVariant &values, TLocateOptions options)
{
    CheckActive();
    CheckBrowseMode();
    std::vector<const TField *> fields;
    for (const QString &name : fieldNames.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        fields.push_back(&FieldByName(name));
    const QVariantList wanted = fields.size() > 1 || values.typeId() == QMetaType::QVariantList
                                    ? values.toList() : QVariantList{values};
    if (fields.empty() || static_cast<size_t>(wanted.size()) != fields.size())
        throw std::invalid_argument(
            QStringLiteral("TClientDataSet %1: Locate needs one value per field of '%2'")
                .arg(objectName(), fieldNames).toStdString());
    auto rowMatches = [&](const Row &r) {
        for (size_t i = 0; i < fields.size(); ++i)
            if (!Matches(*fields[i], r.values[fields[i]->Index()], wanted[static_cast<int>(i)], options))
                return false;
        return true;
    };
    const auto it = std::find_if(m_rows.begin(), m_rows.end(), rowMatches);
    if (it == m_rows.end())
        return false;
    MoveCursor(static_cast<int>(it - m_rows.begin()), false, false);
    return true;
}

TBookmark TClientDataSet::GetBookmark() const
{
    return TBookmark(CurrentId());
}

TBookmark TClientDataSet::BookmarkAt(int row) const
{
    if (row < 0 || row >= RecordCount())
        return {};
    return TBookmark(m_rows[static_cast<size_t>(row)].id);
}

int TClientDataSet::RowOf(const TBookmark &bookmark) const
{
    if (bookmark.IsNull())
        return -1;
    const auto it = std::find_if(m_rows.begin(), m_rows.end(),
                                 [&](const Row &r) { return r.id == bookmark.m_id; });
    return it == m_rows.end() ? -1 : static_cast<int>(it - m_rows.begin());
}

bool TClientDataSet::GotoBookmark(const TBookmark &bookmark)
{
    CheckActive();
    CheckBrowseMode();
    const int row = RowOf(bookmark);
    if (row < 0)
        return false;
    MoveCursor(row, false, false);
    return true;
}

// --- Controls --------------------------------------------------------------------------------

void TClientDataSet::DisableControls()
{
    ++m_disableCount;
}

void TClientDataSet::EnableControls()
{
    if (m_disableCount == 0 || --m_disableCount > 0)
        return;
    emit DataAboutToBeReset();
    emit DataReset();
    emit AfterScroll();
}

// --- Sorting ---------------------------------------------------------------------------------

void TClientDataSet::SortBy(const QString &fieldName, Qt::SortOrder order)
{
    const TField &field = FieldByName(fieldName);
    CheckBrowseMode();
    m_sortField = field.FieldName();
    m_sortOrder = order;
    if (m_rows.size() < 2)
        return;

    const int f = field.Index();
    const bool text = field.DataType() == TFieldType::String;
    QCollator collator{QLocale()};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    // Sort keys computed once per row keep the locale comparison cheap.
    std::vector<std::optional<QCollatorSortKey>> keys;
    if (text)
        for (const Row &r : m_rows)
            keys.push_back(KindOf(r.values[f]) == Kind::Null
                               ? std::nullopt
                               : std::optional<QCollatorSortKey>(collator.sortKey(r.values[f].toString())));

    auto compare = [&](int a, int b) {
        const QVariant &va = m_rows[static_cast<size_t>(a)].values[f];
        const QVariant &vb = m_rows[static_cast<size_t>(b)].values[f];
        const bool na = KindOf(va) == Kind::Null, nb = KindOf(vb) == Kind::Null;
        if (na || nb)
            return int(nb) - int(na);
        if (text)
            return keys[static_cast<size_t>(a)]->compare(*keys[static_cast<size_t>(b)]);
        return CompareValues(field.DataType(), va, vb);
    };
    std::vector<int> perm(m_rows.size());
    std::iota(perm.begin(), perm.end(), 0);
    std::stable_sort(perm.begin(), perm.end(), [&](int a, int b) {
        return order == Qt::AscendingOrder ? compare(a, b) < 0 : compare(b, a) < 0;
    });

    if (Notifying())
        emit LayoutAboutToBeChanged();
    const quint64 currentId = CurrentId();
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (int i : perm)
        sorted.push_back(std::move(m_rows[static_cast<size_t>(i)]));
    m_rows = std::move(sorted);
    m_cur = RowOf(TBookmark(currentId));
    if (Notifying())
        emit LayoutChanged();
}
