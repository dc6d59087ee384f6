#pragma once

#include <QPlainTextEdit>

// A text whose letters never carry accents and that never grows beyond its limit, whether the
// characters are typed, pasted or set. Without line breaks, any that arrive become blanks.
class TMemoSemAcento final : public QPlainTextEdit
{
public:
    TMemoSemAcento(int limite, bool comQuebras, QWidget *parent = nullptr);

protected:
    void insertFromMimeData(const QMimeData *origem) override;

private:
    void Ajustar(int posicao, int inseridos);

    int m_limite;
    bool m_comQuebras;
    bool m_ajustando = false;
};
