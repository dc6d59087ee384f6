#pragma once

#include "TProgresso.h"

#include <QString>

class QLabel;
class QProgressBar;
class QWidget;

// The screen's own progress panel: a panel, its gauge and its label, none of them owned.
class TAndamento final : public TProgresso
{
public:
    TAndamento(QWidget *panel, QProgressBar *gauge, QLabel *label);

    void Exibir(const QString &texto, int maximo) override;
    void PegarAtual(int atual, const QString &texto = QString()) override;
    void Fechar() override;

private:
    QWidget *m_panel;
    QProgressBar *m_gauge;
    QLabel *m_label;
};
