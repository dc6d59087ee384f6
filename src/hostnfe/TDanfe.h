#pragma once

#include <QString>

class QPagedPaintDevice;
class TnfeProc;

// The DANFE: the standard portrait A4 print-out of an NF-e, ours or a supplier's, drawn with
// QPainter on any paged device (a QPdfWriter here, a QPrinter from the screens).
namespace TDanfe {

// Pages the document takes (items continue on further pages).
int Paginas(const TnfeProc &nfe);
// Draws every page; false with erro when the device cannot be painted on.
bool Desenhar(const TnfeProc &nfe, QPagedPaintDevice &dispositivo, QString *erro);
// Draws to a PDF file; false with erro naming the file when it cannot be written.
bool GerarPdf(const TnfeProc &nfe, const QString &arquivoPdf, QString *erro);

} // namespace TDanfe
