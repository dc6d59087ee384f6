#pragma once

// What a clerk checks by eye on a panel: nothing overlaps or is cut off, captions are whole, and
// Tab walks the fields in the order they are seen.

#include <QTest>
#include <QtWidgets>

inline void PrintTo(const QString &texto, std::ostream *os) { *os << '"' << texto.toStdString() << '"'; }

namespace verifica {

inline QString Nome(const QWidget *w)
{
    const auto *rotulo = qobject_cast<const QLabel *>(w);
    return !w ? QStringLiteral("<nenhum>") : QLatin1String(w->metaObject()->className()) + QLatin1Char(' ')
           + (rotulo && w->objectName().isEmpty() ? rotulo->text() : w->objectName());
}

// Widgets drawn as one piece; their inner parts are Qt's business.
inline bool Folha(const QWidget *w)
{
    return qobject_cast<const QLineEdit *>(w) || qobject_cast<const QComboBox *>(w) || qobject_cast<const QAbstractSpinBox *>(w)
           || qobject_cast<const QAbstractButton *>(w) || qobject_cast<const QLabel *>(w)
           || qobject_cast<const QAbstractItemView *>(w) || qobject_cast<const QTabBar *>(w);
}

inline void Percorrer(QWidget *pai, QStringList &falhas)
{
    if (Folha(pai)) return;
    if (auto *abas = qobject_cast<QTabWidget *>(pai)) {
        if (!abas->currentWidget()->parentWidget()->rect().contains(abas->currentWidget()->geometry()))
            falhas << Nome(abas->currentWidget()) + QStringLiteral(" sai da área das abas");
        return Percorrer(abas->currentWidget(), falhas);
    }
    QList<QWidget *> filhos = pai->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    filhos.removeIf([](QWidget *w) { return w->isWindow() || !w->isVisible() || w->size().isEmpty(); });   // an empty box has nothing to cut
    for (int i = 0; i < filhos.size(); ++i) {
        if (!pai->rect().contains(filhos[i]->geometry()))
            falhas << Nome(filhos[i]) + QStringLiteral(" cortado por ") + Nome(pai);
        for (int j = i + 1; j < filhos.size(); ++j)
            if (filhos[i]->geometry().intersects(filhos[j]->geometry()))
                falhas << Nome(filhos[i]) + QStringLiteral(" sobrepõe ") + Nome(filhos[j]);
        Percorrer(filhos[i], falhas);
    }
}

// Overlapping siblings, children that stick out of their parent, captions narrower or lower than
// their text and fields squeezed below their minimum.
inline QStringList Defeitos(QWidget *raiz)
{
    QStringList falhas;   // filled by the walk first
    Percorrer(raiz, falhas);
    for (QWidget *w : raiz->findChildren<QWidget *>()) {
        const QSize minimo = qobject_cast<QLabel *>(w) ? w->sizeHint() : w->minimumSizeHint();
        const bool interno = qobject_cast<QComboBox *>(w->parentWidget()) || qobject_cast<QAbstractSpinBox *>(w->parentWidget());
        if (w->isVisible() && Folha(w) && !interno && !qobject_cast<QAbstractItemView *>(w)
            && (w->width() < minimo.width() || w->height() < minimo.height()))
            falhas << Nome(w) + QStringLiteral(" espremido");
    }
    return falhas;
}

// Brings forward the tab pages that hold `w`, so that it is laid out as a clerk sees it.
inline void MostrarAbaDe(QWidget *w)
{
    for (QWidget *p = w; p && p->parentWidget(); p = p->parentWidget())
        if (auto *abas = qobject_cast<QTabWidget *>(p->parentWidget()->parentWidget()); abas && abas->indexOf(p) >= 0)
            abas->setCurrentWidget(p);
    QApplication::processEvents();
}

// Fields that refuse or cut the largest sample a clerk will type.
inline QStringList CortaValores(const QList<std::pair<QLineEdit *, const char *>> &amostras)
{
    QStringList falhas;
    for (const auto &[campo, texto] : amostras) {
        MostrarAbaDe(campo);
        campo->setText(QLatin1String(texto));
        if (campo->text() != QLatin1String(texto) || campo->fontMetrics().horizontalAdvance(texto) + 8 > campo->width())
            falhas << Nome(campo) + QStringLiteral(" recusa ou corta ") + texto;
    }
    return falhas;
}

// Types the text key by key, accented letters included.
inline void Digitar(QWidget *w, const QString &texto)
{
    for (const QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, w, c.unicode() < 128 ? QTest::asciiToKey(c.toLatin1()) : Qt::Key_unknown, QString(c), Qt::NoModifier);
}

// The widgets Tab reaches from `inicio` until `fim`, each once even when Tab first moves inside
// it (the sections of a date).
inline QList<QWidget *> CaminhoTab(QWidget *inicio, QWidget *fim)
{
    inicio->setFocus(Qt::TabFocusReason);
    QList<QWidget *> caminho{QApplication::focusWidget()};
    for (int i = 0; i < 200 && caminho.last() && caminho.last() != fim; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() != caminho.last()) caminho.append(QApplication::focusWidget());
    }
    return caminho;
}

// The block (a direct child of `raiz` or of its current tab page) that holds `w`.
inline QWidget *Bloco(QWidget *raiz, QWidget *w)
{
    while (w->parentWidget() != raiz && !qobject_cast<QStackedWidget *>(w->parentWidget()->parentWidget()))
        w = w->parentWidget();
    return w;
}

// The blocks in the order Tab enters them. Within a block the fields must come line by line, left
// to right; each step back shows as "a -> b".
inline QStringList OrdemTab(QWidget *raiz, const QList<QWidget *> &caminho)
{
    QStringList ordem;
    for (int i = 0; i < caminho.size(); ++i) {
        QWidget *a = i ? caminho[i - 1] : nullptr, *b = caminho[i];
        if (!a || Bloco(raiz, a) != Bloco(raiz, b)) { ordem << Bloco(raiz, b)->objectName(); continue; }
        const QRect ra(a->mapTo(raiz, QPoint()), a->size()), rb(b->mapTo(raiz, QPoint()), b->size());
        const bool mesmaLinha = std::abs(ra.center().y() - rb.center().y()) < std::min(ra.height(), rb.height()) / 2;
        if (mesmaLinha ? rb.left() <= ra.left() : rb.center().y() <= ra.center().y())
            ordem << Nome(a) + QStringLiteral(" -> ") + Nome(b);
    }
    return ordem;
}

} // namespace verifica
