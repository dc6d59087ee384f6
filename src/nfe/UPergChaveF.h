#pragma once

#include <QDialog>

class QLineEdit;

// The one-key question: "Chave NF-e" with one edit "Chave" taking at most 44 characters.
class TPergChaveF final : public QDialog
{
    Q_OBJECT
public:
    explicit TPergChaveF(QWidget *parent = nullptr);

    QLineEdit *ChaveEdit() const { return m_chaveEdit; }
    // Run on OK: trims the edit in place; a length other than 44 is refused and the dialog stays.
    bool PodeOk();
    void accept() override;

private:
    QLineEdit *m_chaveEdit = nullptr;
};

// Asks for a key starting from Chave; on OK Chave takes the answer and the result is true.
bool Perg(QString &Chave, QWidget *parent = nullptr);
