#pragma once

#include <QPageSize>
#include <QString>

#include <functional>

class QPagedPaintDevice;
class QWidget;

// Draws every page of a print-out on a printer or a PDF writer; false with the reason in erro.
using TDesenhoPaginas = std::function<bool(QPagedPaintDevice &dispositivo, QString *erro)>;

// One print-out and how it is offered to the user.
struct TTrabalhoImpressao
{
    QString nome;               // the print job's name and the PDF's title
    QString tituloImpressao;    // the print dialog's title
    QString tituloPdf;          // the file chooser's title
    QString arquivoPdf;         // the file name offered in the documents folder
    TDesenhoPaginas desenhar;
    QPageSize papel = QPageSize(QPageSize::A4);     // the printer's paper
    // Writes the PDF; GravarPdf over `desenhar` when not given.
    std::function<bool(const QString &arquivo, QString *erro)> gravarPdf;
};

// Through the print dialog (printer, copies) when the machine has a printer, otherwise into a
// PDF file that the user names (".pdf" added when missing). False when the user gives up (erro
// stays empty) or when printing or writing fails (erro says what failed).
bool ImprimirOuPdf(QWidget *pai, const TTrabalhoImpressao &trabalho, QString *erro);

// Writes the pages into an A4 PDF whole or not at all: a failure leaves an earlier file of that
// name untouched.
bool GravarPdf(const QString &arquivo, const QString &titulo, const TDesenhoPaginas &desenhar, QString *erro);
