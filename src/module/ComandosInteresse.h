#pragma once

#include <QStringList>

class QTextStream;

namespace ComandosInteresse {

// nfe-interesse [--manifestar TIPO --chave KEY]: the documents addressed to the company.
int NfeInteresse(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosInteresse
