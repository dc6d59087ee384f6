#pragma once

#include <QString>

// Files a copy of an NF-e XML under the fiscal folder: "NFe_Entr", then the year and month of
// issue taken from the file's "<dhEmi>" (directly in "NFe_Entr" when it has none). Missing
// folders are created; a file of the same name there is replaced, unless it is the very file
// being filed. Returns the path the XML lies at afterwards; empty when the file does not exist or
// could not be copied (the message, naming what failed, has been shown).
QString TrazerXML(const QString &FileName, const QString &pastaFiscal);
