#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <memory>

// A small read-only tree of an answer from the authority, by local names (namespaces and
// prefixes aside), where every element can give back its own bytes exactly as received.
struct TElementoXml
{
    QString nome;                          // local name
    QString texto;                         // the text directly inside it
    QHash<QString, QString> atributos;     // by local name
    QList<TElementoXml> filhos;

    // The first child of that name (null when none) and its text (empty when none).
    const TElementoXml *Filho(const QString &nome) const;
    QString Texto(const QString &filho) const;
    // The first element of that name at any depth below this one.
    const TElementoXml *Procurar(const QString &nome) const;
    // The element's own bytes, start tag to end tag.
    QByteArray Bytes() const;

    std::shared_ptr<const QString> fonte;
    qsizetype inicio = 0, fim = 0;
};

// False with erro (the reader's own description and line) when the bytes are not well-formed
// XML; an empty document is not.
bool LerElementoXml(const QByteArray &xml, TElementoXml *raiz, QString *erro);

// The bytes without an XML declaration or byte-order mark in front.
QByteArray SemDeclaracaoXml(const QByteArray &xml);
