#pragma once

#include <QString>

class QWidget;
class TnfeProc;

// Prints a DANFE: through the print dialog (printer, copies) when the machine has a printer,
// otherwise into a PDF file that the user names. False when the user gives up (erro stays empty)
// or when printing or writing fails (erro says what failed).
bool ImprimirDanfe(QWidget *pai, const TnfeProc &nfe, QString *erro);
