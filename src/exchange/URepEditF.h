#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

// The two remarks of a note, each on one line of unaccented text within its limit. The form
// sees the keys first: Enter in the first text moves to the second, Enter in the second presses
// OK, Esc anywhere presses Cancel.
class TRepEditF final : public QDialog
{
    Q_OBJECT
public:
    static constexpr int MaxFisco = 2000;
    static constexpr int MaxContribuinte = 5000;

    explicit TRepEditF(QWidget *parent = nullptr);

    QPlainTextEdit *InfAdicFiscoMemo() const { return m_fisco; }
    QPlainTextEdit *InfAdicContribuinteMemo() const { return m_contribuinte; }
    QPushButton *OkButton() const { return m_ok; }
    QPushButton *CancelarButton() const { return m_cancelar; }

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    QPlainTextEdit *m_fisco;
    QPlainTextEdit *m_contribuinte;
    QPushButton *m_ok;
    QPushButton *m_cancelar;
};
