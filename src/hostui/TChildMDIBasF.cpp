#include "TChildMDIBasF.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QChildEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTimer>

TChildMDIBasF::TChildMDIBasF(QWidget *parent) : QWidget(parent), m_showTimer(new QTimer(this))
{
    m_showTimer->setSingleShot(true);
    m_showTimer->setInterval(0);
    connect(m_showTimer, &QTimer::timeout, this, [this] {
        m_showTimerDisparado = true;
        ShowTimerTimer();
    });
}

void TChildMDIBasF::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_showTimerDisparado && !m_showTimer->isActive())
        m_showTimer->start();
}

void TChildMDIBasF::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (event->added())
        observar(event->child());
}

// Key presses of every descendant pass here first, so Enter works wherever the focus is.
void TChildMDIBasF::observar(QObject *objeto)
{
    if (!objeto->isWidgetType())
        return;
    objeto->installEventFilter(this);
    for (QObject *filho : objeto->children())
        observar(filho);
}

static bool enterMoveFoco(QWidget *w)
{
    // Multi-line texts, buttons and grids keep Enter for themselves.
    if (qobject_cast<QTextEdit *>(w) || qobject_cast<QPlainTextEdit *>(w)
        || qobject_cast<QAbstractButton *>(w) || qobject_cast<QAbstractItemView *>(w))
        return false;
    if (auto *combo = qobject_cast<QComboBox *>(w); combo && combo->view() && combo->view()->isVisible())
        return false;
    return true;
}

bool TChildMDIBasF::FormKeyPress(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return false;
    if (event->modifiers() & ~Qt::KeypadModifier)
        return false;
    QWidget *foco = QApplication::focusWidget();
    if (!foco || !isAncestorOf(foco) || !enterMoveFoco(foco))
        return false;
    focusNextChild();
    return true;
}

// A key the receiving field leaves unused climbs through its parents, each of them watched too;
// the screen takes each key once, where it first arrives. A key always arrives first at the focused
// field, so a key seen there is a new one even when it reuses the address of the last.
bool TChildMDIBasF::teclaNova(QObject *watched, QEvent *event)
{
    if (event == m_teclaVista && watched != QApplication::focusWidget())
        return false;
    m_teclaVista = event;
    return true;
}

bool TChildMDIBasF::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildAdded)
        observar(static_cast<QChildEvent *>(event)->child());
    if (event->type() == QEvent::KeyRelease)
        m_teclaVista = nullptr;
    if (event->type() == QEvent::KeyPress && teclaNova(watched, event) && FormKeyPress(static_cast<QKeyEvent *>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}
