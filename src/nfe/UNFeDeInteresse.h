#pragma once

class QWidget;

// The entry the separate module NFeDeInteresse exports as "Exec": it fetches the NF-e documents
// addressed to the company. Given the screen to parent its windows, the database text (a file
// path or "host:path"), the company and the station.
extern "C" {
using TNFeDeInteresseExec = void (*)(QWidget *parent, const char *database, int empresa, int estacao);
}

// Loads the module (next to the executable, or next to the library this code lives in), calls
// its "Exec" and unloads it. False, with one message naming what is missing, when it cannot.
bool ExecutarNFeDeInteresse(QWidget *parent);
