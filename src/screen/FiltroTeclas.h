#pragma once

#include <QString>
#include <QValidator>

class QLineEdit;

// Keeps only the characters of a fixed set, upper-casing letters first, and cuts the text at a
// maximum length. Unwanted characters are dropped rather than refused, so a pasted "abc-1d"
// still lands as "ABC1D" in a plate field.
class FiltroTeclas final : public QValidator
{
    Q_OBJECT

public:
    static const QString CaracteresPlaca;   // "1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    static const QString CaracteresUF;      // "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    static const QString Digitos;           // "0123456789"

    FiltroTeclas(const QString &permitidos, int maxLen, QObject *parent = nullptr);

    QString Permitidos() const { return m_permitidos; }
    int MaxLen() const { return m_maxLen; }

    // The text as the filter leaves it: letters upper-cased, other characters dropped, cut at MaxLen.
    QString Filtrar(const QString &texto) const;

    State validate(QString &input, int &pos) const override;
    void fixup(QString &input) const override;

    // Installs a filter on the edit (owned by it) and sets the edit's maximum length to match.
    static FiltroTeclas *Aplicar(QLineEdit *edit, const QString &permitidos, int maxLen);
    static FiltroTeclas *AplicarPlaca(QLineEdit *edit);             // 7 characters
    static FiltroTeclas *AplicarUF(QLineEdit *edit);                // 2 letters
    static FiltroTeclas *AplicarDigitos(QLineEdit *edit, int maxLen);

private:
    QString m_permitidos;
    int m_maxLen;
};
