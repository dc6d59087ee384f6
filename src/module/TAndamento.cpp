#include "TAndamento.h"

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

TAndamento::TAndamento(QWidget *panel, QProgressBar *gauge, QLabel *label)
    : m_panel(panel), m_gauge(gauge), m_label(label)
{
}

void TAndamento::Exibir(const QString &texto, int maximo)
{
    m_panel->raise();
    if (maximo >= 1) {
        m_gauge->setMaximum(maximo);
        m_gauge->setValue(0);
        m_gauge->show();
    } else {
        m_gauge->hide();
    }
    m_label->setText(texto);
    m_panel->show();
    m_label->repaint();
}

void TAndamento::PegarAtual(int atual, const QString &texto)
{
    if (atual > 0)
        m_gauge->setValue(qMin(atual, m_gauge->maximum()));
    if (!texto.isEmpty()) {
        m_label->setText(texto);
        m_label->repaint();
    }
}

void TAndamento::Fechar()
{
    m_panel->hide();
}
