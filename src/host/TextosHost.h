#pragma once

#include "TClientDataSet.h"

#include <QString>
#include <QStringList>

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

// --- Fixed-width lines (line printer) -------------------------------------------------------------

// Writes `texto` over the line from the 1-based column on; a short line grows with blanks.
void EscreverNaStr(QString &destino, const QString &texto, int coluna);
// Writes `texto` so that it ends at the 1-based column; a text too long for the room starts at
// column 1 and runs past it.
void EscreverNaStrADir(QString &destino, const QString &texto, int colunaFinal);
// The text broken at blanks into lines of at most `largura` characters; a word longer than the
// width is cut at the width. Runs of blanks count as one. An empty text gives one empty line.
QStringList QuebrarTexto(const QString &texto, int largura);
