#include "FiltroTeclas.h"

#include <QLineEdit>

#include <algorithm>

const QString FiltroTeclas::CaracteresPlaca = QStringLiteral("1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ");
const QString FiltroTeclas::CaracteresUF = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
const QString FiltroTeclas::Digitos = QStringLiteral("0123456789");

FiltroTeclas::FiltroTeclas(const QString &permitidos, int maxLen, QObject *parent)
    : QValidator(parent), m_permitidos(permitidos), m_maxLen(maxLen)
{
}

QString FiltroTeclas::Filtrar(const QString &texto) const
{
    QString saida;
    saida.reserve(texto.size());
    for (const QChar c : texto) {
        const QChar maiuscula = c.toUpper();
        if (m_permitidos.contains(maiuscula) && saida.size() < m_maxLen)
            saida += maiuscula;
    }
    return saida;
}

QValidator::State FiltroTeclas::validate(QString &input, int &pos) const
{
    // The cursor stays after the same kept character it followed before filtering.
    const int cursorFiltrado = Filtrar(input.left(pos)).size();
    input = Filtrar(input);
    pos = std::min(cursorFiltrado, int(input.size()));
    return Acceptable;
}

void FiltroTeclas::fixup(QString &input) const
{
    input = Filtrar(input);
}

FiltroTeclas *FiltroTeclas::Aplicar(QLineEdit *edit, const QString &permitidos, int maxLen)
{
    auto *filtro = new FiltroTeclas(permitidos, maxLen, edit);
    edit->setMaxLength(maxLen);
    edit->setValidator(filtro);
    return filtro;
}

FiltroTeclas *FiltroTeclas::AplicarPlaca(QLineEdit *edit)
{
    return Aplicar(edit, CaracteresPlaca, 7);
}

FiltroTeclas *FiltroTeclas::AplicarUF(QLineEdit *edit)
{
    return Aplicar(edit, CaracteresUF, 2);
}

FiltroTeclas *FiltroTeclas::AplicarDigitos(QLineEdit *edit, int maxLen)
{
    return Aplicar(edit, Digitos, maxLen);
}
