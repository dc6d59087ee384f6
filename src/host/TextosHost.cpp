#include "TextosHost.h"

#include <algorithm>

QString DataSetStateToString(TDataSetState estado, const QString &nome, int estilo)
{
    QString palavra;
    switch (estado) {
    case TDataSetState::Inactive: palavra = QStringLiteral("Inativo"); break;
    case TDataSetState::Browse: palavra = QStringLiteral("Consultando"); break;
    case TDataSetState::Edit: palavra = QStringLiteral("Alterando"); break;
    case TDataSetState::Insert: palavra = QStringLiteral("Inserindo"); break;
    }
    if (estilo == 2 && !nome.isEmpty())
        return nome + QStringLiteral(" - ") + palavra;
    return palavra;
}

QString SoDig(const QString &texto)
{
    QString digitos;
    for (const QChar c : texto)
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digitos += c;
    return digitos;
}

QString CodComMasc(const QString &codigo)
{
    const QString c = codigo.trimmed();
    if (c.size() == 14)
        return c.left(2) + u'.' + c.mid(2, 3) + u'.' + c.mid(5, 3) + u'/' + c.mid(8, 4) + u'-' + c.right(2);
    if (c.size() == 11)
        return c.left(3) + u'.' + c.mid(3, 3) + u'.' + c.mid(6, 3) + u'-' + c.right(2);
    return codigo;
}

QString StrSemEspacoDuplo(const QString &texto)
{
    QString r;
    r.reserve(texto.size());
    for (const QChar c : texto)
        if (c != u' ' || !r.endsWith(u' '))
            r += c;
    return r;
}

QChar CharSemAcento(QChar c)
{
    if (!c.isLetter() || c.unicode() < 0x80)
        return c;
    // The canonical decomposition puts the base letter first and its marks after it.
    const QString decomposto = QString(c).normalized(QString::NormalizationForm_D);
    if (decomposto.size() < 2 || !decomposto.at(0).isLetter())
        return c;
    for (qsizetype i = 1; i < decomposto.size(); ++i)
        if (decomposto.at(i).category() != QChar::Mark_NonSpacing)
            return c;
    return decomposto.at(0);
}

void EscreverNaStr(QString &destino, const QString &texto, int coluna)
{
    const int inicio = std::max(coluna, 1) - 1;
    if (destino.size() < inicio + texto.size())
        destino = destino.leftJustified(inicio + texto.size(), QLatin1Char(' '));
    destino.replace(inicio, texto.size(), texto);
}

void EscreverNaStrADir(QString &destino, const QString &texto, int colunaFinal)
{
    EscreverNaStr(destino, texto, colunaFinal - int(texto.size()) + 1);
}

QStringList QuebrarTexto(const QString &texto, int largura)
{
    largura = std::max(largura, 1);
    QStringList linhas;
    QString linha;
    for (QString palavra : texto.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!linha.isEmpty() && linha.size() + 1 + palavra.size() <= largura) {
            linha += QLatin1Char(' ') + palavra;
            continue;
        }
        if (!linha.isEmpty())
            linhas << linha;
        while (palavra.size() > largura) {
            linhas << palavra.left(largura);
            palavra.remove(0, largura);
        }
        linha = palavra;
    }
    if (!linha.isEmpty() || linhas.isEmpty())
        linhas << linha;
    return linhas;
}
