#pragma once

#include <QWidget>

class QTimer;

// Base of the module's screens: Enter moves the focus like Tab, and a one-shot timer fires
// once the screen is first shown, so that slow loading happens with the screen already visible.
class TChildMDIBasF : public QWidget
{
    Q_OBJECT
public:
    explicit TChildMDIBasF(QWidget *parent = nullptr);

    bool ShowTimerDisparado() const { return m_showTimerDisparado; }

protected:
    // Runs once, after the first show.
    virtual void ShowTimerTimer() {}
    // Every key pressed anywhere on the screen passes here first; true when it was used.
    // The base moves the focus on Enter.
    virtual bool FormKeyPress(QKeyEvent *event);

    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void childEvent(QChildEvent *event) override;

private:
    void observar(QObject *objeto);
    bool teclaNova(QObject *watched, QEvent *event);

    QTimer *m_showTimer;
    bool m_showTimerDisparado = false;
    const QEvent *m_teclaVista = nullptr;   // compared, never read: the key press last taken
};
