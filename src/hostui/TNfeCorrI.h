#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;
class QWidget;

// The host's correction-letter component: the letters already sent for an NF-e, a new one
// (15 to 1,000 characters) sent to the authority, and any of them printed.
class TNfeCorrI
{
public:
    static void EditarNfeCorr(const QString &chave, int docTipo, const QString &descricao, QWidget *pai = nullptr);
};

// Its dialog: the description, the letters (seq, date, protocol, text), the new text and
// "Enviar", "Imprimir", "Fechar".
class TNfeCorrF final : public QDialog
{
    Q_OBJECT
public:
    TNfeCorrF(const QString &chave, int docTipo, const QString &descricao, QWidget *parent = nullptr);

    void Enviar();
    void Imprimir();

private:
    void Carregar();
    void TextoAlterado();

    QString m_chave, m_descricao;
    int m_docTipo;
    QTableWidget *m_grade;
    QPlainTextEdit *m_texto;
    QLabel *m_contador;
    QPushButton *m_enviar, *m_imprimir;
};
