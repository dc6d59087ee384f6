#pragma once

#include "TProgresso.h"

#include <QPointer>
#include <QString>

class QLabel;
class QProgressBar;
class QWidget;

// The host's progress window for long work. It lets the screen repaint between rows; in a
// process without a screen (headless commands) it shows nothing.
class TProgressForm final : public TProgresso
{
public:
    TProgressForm() = default;
    ~TProgressForm() override;
    TProgressForm(const TProgressForm &) = delete;
    TProgressForm &operator=(const TProgressForm &) = delete;

    void Exibir(const QString &texto, int maximo) override;
    void PegarAtual(int atual, const QString &texto = QString()) override;
    void Fechar() override;

private:
    QWidget *janela();

    QPointer<QWidget> m_janela;
    QLabel *m_texto = nullptr;
    QProgressBar *m_barra = nullptr;
};
