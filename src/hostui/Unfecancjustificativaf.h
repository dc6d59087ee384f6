#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

// The host's cancellation-justification dialog: the text the authority requires (15 to 255
// characters) for cancelling the NF-e numbered nfeNum.
class TNfeCancJustificativaF final : public QDialog
{
    Q_OBJECT
public:
    explicit TNfeCancJustificativaF(int nfeNum, QWidget *parent = nullptr);

    // Starts from `justificativa`; on OK it holds the typed text and true is returned.
    static bool Perguntar(int nfeNum, QString &justificativa);

    void DefinirTexto(const QString &texto);
    QString Texto() const;

private:
    void TextoAlterado();

    QPlainTextEdit *m_texto;
    QLabel *m_contador;
    QPushButton *m_ok;
};
