#pragma once

#include <QLineEdit>

class Money;

// A number typed the Brazilian way: ',' for decimals, a fixed number of places (money 2, costs 4,
// quantities 3, whole numbers 0). Anything that is not part of a number is refused as typed; the
// text is re-written with exactly the set places when the edit loses focus or on Enter.
// No thousands grouping is shown, so every edit of the shown text stays a valid number; pasted
// text may group thousands with '.' ("1.234,56"). At most 14 whole digits can be typed or
// pasted: what the money columns (NUMERIC(18,4)) hold.
class TNumEditBR final : public QLineEdit
{
    Q_OBJECT

public:
    explicit TNumEditBR(QWidget *parent = nullptr);

    int Decimals() const { return m_decimals; }
    void SetDecimals(int decimals);   // 0..4; the shown value is rounded to the new places
    bool AcceptNegative() const { return m_acceptNegative; }
    void SetAcceptNegative(bool accept);

    double Value() const;   // an empty edit reads 0
    // Rounded half to even to the set places. A value beyond the money columns shows the widest
    // one they take, sign kept, as typing cannot go further either; NaN shows 0.
    void SetValue(double value);
    Money AsMoney() const;
    void SetMoney(Money value);

    // Read-only, grey, and skipped by Tab.
    void SetReadOnlyLook(bool on);
    bool ReadOnlyLook() const { return m_readOnlyLook; }

signals:
    void ValueChanged(double value);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    class Validator;

    QString NormalizedText() const;
    void Reformat();
    void ShowText(const QString &shown);
    void UpdateValidator();
    void OnTextChanged();

    Validator *m_validator;
    int m_decimals = 2;
    bool m_acceptNegative = false;
    bool m_readOnlyLook = false;
    double m_lastValue = 0.0;
};
