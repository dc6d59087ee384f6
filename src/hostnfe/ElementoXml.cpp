#include "ElementoXml.h"

#include <QXmlStreamReader>

const TElementoXml *TElementoXml::Filho(const QString &nomeFilho) const
{
    for (const TElementoXml &f : filhos)
        if (f.nome == nomeFilho)
            return &f;
    return nullptr;
}

QString TElementoXml::Texto(const QString &filho) const
{
    const TElementoXml *f = Filho(filho);
    return f ? f->texto : QString();
}

const TElementoXml *TElementoXml::Procurar(const QString &nomeProcurado) const
{
    for (const TElementoXml &f : filhos) {
        if (f.nome == nomeProcurado)
            return &f;
        if (const TElementoXml *achado = f.Procurar(nomeProcurado))
            return achado;
    }
    return nullptr;
}

QByteArray TElementoXml::Bytes() const
{
    return fonte ? fonte->mid(inicio, fim - inicio).toUtf8() : QByteArray();
}

bool LerElementoXml(const QByteArray &xml, TElementoXml *raiz, QString *erro)
{
    // Read from text, so that the reader's offsets index the same string the bytes come from.
    auto fonte = std::make_shared<const QString>(QString::fromUtf8(SemDeclaracaoXml(xml)));
    QXmlStreamReader leitor(*fonte);
    QList<TElementoXml *> abertos;
    TElementoXml documento;
    while (!leitor.atEnd()) {
        switch (leitor.readNext()) {
        case QXmlStreamReader::StartElement: {
            TElementoXml *pai = abertos.isEmpty() ? &documento : abertos.last();
            TElementoXml &e = pai->filhos.emplaceBack();
            e.nome = leitor.name().toString();
            for (const QXmlStreamAttribute &a : leitor.attributes())
                e.atributos.insert(a.name().toString(), a.value().toString());
            e.fonte = fonte;
            // The reader has consumed the tag already; it begins at the last '<' before here.
            e.inicio = fonte->lastIndexOf(QLatin1Char('<'), leitor.characterOffset() - 1);
            abertos.append(&e);
            break;
        }
        case QXmlStreamReader::EndElement:
            abertos.last()->fim = leitor.characterOffset();
            abertos.removeLast();
            break;
        case QXmlStreamReader::Characters:
            if (!abertos.isEmpty())
                abertos.last()->texto += leitor.text();
            break;
        default:
            break;
        }
    }
    if (leitor.hasError() || documento.filhos.isEmpty()) {
        if (erro)
            *erro = leitor.hasError() ? QStringLiteral("%1 (linha %2)").arg(leitor.errorString()).arg(leitor.lineNumber())
                                      : QStringLiteral("documento vazio");
        return false;
    }
    *raiz = documento.filhos.first();
    return true;
}

QByteArray SemDeclaracaoXml(const QByteArray &xml)
{
    QByteArray resto = xml;
    if (resto.startsWith("\xEF\xBB\xBF"))
        resto.remove(0, 3);
    resto = resto.trimmed();
    if (resto.startsWith("<?xml")) {
        const qsizetype fim = resto.indexOf("?>");
        resto = fim < 0 ? QByteArray() : resto.mid(fim + 2).trimmed();
    }
    return resto;
}
