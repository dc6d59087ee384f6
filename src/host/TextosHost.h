#pragma once

#include "TClientDataSet.h"

#include <QString>

// The host's word for a dataset state, as screens show it in captions:
// style 1 the bare word ("Inserindo"), style 2 the name and the word ("Item - Inserindo").
QString DataSetStateToString(TDataSetState estado, const QString &nome, int estilo);

// Only the digits of the text.
QString SoDig(const QString &texto);
// A CNPJ as 99.999.999/9999-99 (14 characters) or a CPF as 999.999.999-99 (11); any other
// length comes back as it is. Letters count as characters: the alphanumeric CNPJ is masked alike.
QString CodComMasc(const QString &codigo);

// The text with every run of spaces reduced to one space.
QString StrSemEspacoDuplo(const QString &texto);
// A letter without its accent ('á' -> 'a', 'Ç' -> 'C'); any other character as it is.
QChar CharSemAcento(QChar c);
