#include "TMemoSemAcento.h"

#include "TextosHost.h"

#include <QMimeData>

TMemoSemAcento::TMemoSemAcento(int limite, bool comQuebras, QWidget *parent)
    : QPlainTextEdit(parent), m_limite(limite), m_comQuebras(comQuebras)
{
    setTabChangesFocus(true);
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int posicao, int, int inseridos) { Ajustar(posicao, inseridos); });
}

void TMemoSemAcento::insertFromMimeData(const QMimeData *origem)
{
    // As plain text, so that the change is reported where it lands and the limit holds; a pasted
    // CR LF is one break, so one blank.
    if (!origem || !origem->hasText())
        return;
    QString texto = origem->text();
    insertPlainText(m_comQuebras ? texto : texto.replace(QStringLiteral("\r\n"), QStringLiteral(" ")));
}

void TMemoSemAcento::Ajustar(int posicao, int inseridos)
{
    if (m_ajustando || inseridos <= 0)
        return;
    const QString texto = toPlainText();
    inseridos = qMin(inseridos, int(texto.size()) - posicao);
    if (inseridos <= 0)
        return;
    const QString chegou = texto.mid(posicao, inseridos);
    QString fica;
    fica.reserve(chegou.size());
    for (const QChar c : chegou)
        fica += !m_comQuebras && c == QLatin1Char('\n') ? QLatin1Char(' ') : CharSemAcento(c);
    // What goes beyond the limit is what has just arrived, never what was there.
    fica.chop(qMax(0, int(texto.size()) - m_limite));
    if (fica == chegou)
        return;
    m_ajustando = true;
    QTextCursor cursor(document());
    cursor.setPosition(posicao);
    cursor.setPosition(posicao + inseridos, QTextCursor::KeepAnchor);
    cursor.insertText(fica);
    setTextCursor(cursor);
    m_ajustando = false;
}
