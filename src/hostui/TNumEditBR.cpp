#include "TNumEditBR.h"

#include "Money.h"
#include "Valores.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QValidator>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

constexpr int MaxDecimals = 4;

// Exactly `decimals` places, ',' for decimals, no grouping: 1234.5 -> "1234,50".
QString FormatFixed(Money value, int decimals)
{
    const std::int64_t raw = value.roundTo(decimals).raw();
    const std::uint64_t magnitude = raw < 0 ? std::uint64_t(0) - std::uint64_t(raw) : std::uint64_t(raw);
    QString text = QString::number(magnitude / Money::Scale);
    if (decimals > 0) {
        const QString fraction = QStringLiteral("%1").arg(magnitude % Money::Scale, 4, 10, QLatin1Char('0'));
        text += QLatin1Char(',') + fraction.left(decimals);
    }
    return raw < 0 ? QLatin1Char('-') + text : text;
}

// The widest value the money columns take at `decimals` places.
Money LimiteColuna(int decimals, bool negative)
{
    const Money limite = Money::fromRaw(Money::MaxColunaRaw).truncTo(decimals);
    return negative ? -limite : limite;
}

// Whole numbers from here on have more digits than the money columns take.
constexpr double AlemDaColuna = 1e14;
static_assert(Money::DigitosInteirosColuna == 14);

} // namespace

// Accepts only what can still be read as a number: an optional leading '-', digits that may be
// grouped with '.', one ',' followed by at most the set number of places.
class TNumEditBR::Validator final : public QValidator
{
public:
    using QValidator::QValidator;

    void Configure(int decimals, bool acceptNegative)
    {
        const QString sign = acceptNegative ? QStringLiteral("-?") : QString();
        const QString fraction = decimals > 0 ? QStringLiteral("(,[0-9]{0,%1})?").arg(decimals) : QString();
        m_pattern.setPattern(QStringLiteral("^%1([0-9]+(\\.[0-9]+)*\\.?)?%2$").arg(sign, fraction));
        emit changed();
    }

    State validate(QString &input, int &) const override
    {
        if (!m_pattern.match(input).hasMatch())
            return Invalid;
        const QString integerPart = input.section(QLatin1Char(','), 0, 0);
        const auto digits = std::count_if(integerPart.begin(), integerPart.end(),
                                          [](QChar c) { return c.isDigit(); });
        return digits <= Money::DigitosInteirosColuna ? Acceptable : Invalid;
    }

private:
    QRegularExpression m_pattern;
};

TNumEditBR::TNumEditBR(QWidget *parent) : QLineEdit(parent), m_validator(new Validator(this))
{
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    UpdateValidator();
    setValidator(m_validator);
    setText(FormatFixed(Money(), m_decimals));
    connect(this, &QLineEdit::textChanged, this, &TNumEditBR::OnTextChanged);
}

void TNumEditBR::UpdateValidator()
{
    m_validator->Configure(m_decimals, m_acceptNegative);
}

void TNumEditBR::SetDecimals(int decimals)
{
    const Money current = AsMoney();
    m_decimals = std::clamp(decimals, 0, MaxDecimals);
    UpdateValidator();
    SetMoney(current);
}

void TNumEditBR::SetAcceptNegative(bool accept)
{
    m_acceptNegative = accept;
    UpdateValidator();
}

// The text as SQL-style decimal: "-1.234,5" -> "-1234.5", "" -> "0", ",5" -> "0.5".
QString TNumEditBR::NormalizedText() const
{
    QString t = text().trimmed();
    t.remove(QLatin1Char('.'));
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    const bool negative = t.startsWith(QLatin1Char('-'));
    if (negative)
        t.remove(0, 1);
    if (t.endsWith(QLatin1Char('.')))
        t.chop(1);
    if (t.startsWith(QLatin1Char('.')))
        t.prepend(QLatin1Char('0'));
    if (t.isEmpty())
        return QStringLiteral("0");
    return negative ? QLatin1Char('-') + t : t;
}

double TNumEditBR::Value() const
{
    bool ok = false;
    const double value = NormalizedText().toDouble(&ok);
    return ok ? value : 0.0;
}

Money TNumEditBR::AsMoney() const
{
    return Money::parse(NormalizedText()).value_or(Money());
}

void TNumEditBR::SetValue(double value)
{
    const double rounded = RoundTo(std::isnan(value) ? 0.0 : value, m_decimals);
    if (!(std::fabs(rounded) < AlemDaColuna)) {
        SetMoney(LimiteColuna(m_decimals, rounded < 0));
        return;
    }
    QString shown = QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', m_decimals);
    ShowText(shown.replace(QLatin1Char('.'), QLatin1Char(',')));
}

void TNumEditBR::SetMoney(Money value)
{
    Money shown = value.roundTo(m_decimals);
    if (!shown.CabeNaColuna())
        shown = LimiteColuna(m_decimals, shown < Money());
    ShowText(FormatFixed(shown, m_decimals));
}

// Leaves an unchanged text alone, so that the cursor and undo history survive re-formatting.
void TNumEditBR::ShowText(const QString &shown)
{
    if (text() != shown)
        setText(shown);
}

void TNumEditBR::Reformat()
{
    if (const auto money = Money::parse(NormalizedText()))
        SetMoney(*money);
    else
        SetValue(Value());
}

void TNumEditBR::OnTextChanged()
{
    const double value = Value();
    if (value == m_lastValue)
        return;
    m_lastValue = value;
    emit ValueChanged(value);
}

void TNumEditBR::SetReadOnlyLook(bool on)
{
    m_readOnlyLook = on;
    setReadOnly(on);
    setFocusPolicy(on ? Qt::ClickFocus : Qt::StrongFocus);
    if (on) {
        QPalette grey = palette();
        grey.setColor(QPalette::Base, grey.color(QPalette::Window));
        setPalette(grey);
    } else {
        setPalette(QPalette());
    }
}

void TNumEditBR::keyPressEvent(QKeyEvent *event)
{
    // The keypad's '.' is where a Brazilian clerk expects the decimal comma.
    if (event->key() == Qt::Key_Period && event->modifiers().testFlag(Qt::KeypadModifier)) {
        QKeyEvent comma(QEvent::KeyPress, Qt::Key_Comma, event->modifiers(), QStringLiteral(","));
        QLineEdit::keyPressEvent(&comma);
        event->setAccepted(comma.isAccepted());
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Reformat();
    QLineEdit::keyPressEvent(event);
}

void TNumEditBR::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::PopupFocusReason)
        Reformat();
    QLineEdit::focusOutEvent(event);
}
