#pragma once

#include <QString>

class TProgresso;
struct TTelaNota;

// Types every item of one NF-e XML into the note's item panel, the same way as the items chosen
// in the import dialog: the item's code into the search (the note's own document, so the code
// is the product's), its quantity as packages of one unit, its values and taxes into their
// fields, the progress shown on `andamento`. False when the file could not be read (the message
// names it).
bool CarregarDoXML(const TTelaNota &Form, const QString &FileName, TProgresso &andamento);
