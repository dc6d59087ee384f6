#pragma once

// Sends the NF-e library's print-outs (DANFE, correction letter) through the print dialog, or
// into a PDF the user names when the machine has no printer. The screen calls this once.
void RegistrarImpressoraNFeQt();
