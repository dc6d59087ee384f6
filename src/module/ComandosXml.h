#pragma once

#include <QStringList>

class QTextStream;

// The headless commands on suppliers' NF-e files. Exit codes as ComandosHeadless::Executar's.
namespace ComandosXml {

// xml-items FILE... [--supplier N]: the origin items as the import dialog shows them.
int XmlItems(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
// xml-key FILE: the key taken from the file's content; an empty line when there is none.
int XmlKey(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosXml
