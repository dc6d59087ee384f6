#include "ImprimirOuPdf.h"

#include "Dialogos.h"
#include "TImpressoraNFePdf.h"

#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

bool ImprimirNaImpressora(QWidget *pai, const TTrabalhoImpressao &trabalho, QString *erro)
{
    QPrinter impressora(QPrinter::HighResolution);
    impressora.setDocName(trabalho.nome);
    impressora.setPageSize(trabalho.papel);
    QPrintDialog dialogo(&impressora, pai);
    dialogo.setWindowTitle(trabalho.tituloImpressao);
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    // Where the print system cannot make the copies itself, each copy is a job of its own.
    const int vezes = impressora.supportsMultipleCopies() ? 1 : std::max(1, impressora.copyCount());
    for (int i = 0; i < vezes; ++i)
        if (!trabalho.desenhar(impressora, erro))
            return false;
    return true;
}

} // namespace

bool ImprimirOuPdf(QWidget *pai, const TTrabalhoImpressao &trabalho, QString *erro)
{
    if (erro)
        erro->clear();
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        return ImprimirNaImpressora(pai, trabalho, erro);

    const QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString arquivo = SelectFile(trabalho.tituloPdf, QDir(pasta).filePath(trabalho.arquivoPdf),
                                 QStringLiteral("PDF|*.pdf"), true);
    if (arquivo.isEmpty())
        return false;
    if (!arquivo.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        arquivo += QStringLiteral(".pdf");
    return trabalho.gravarPdf ? trabalho.gravarPdf(arquivo, erro)
                              : GravarPdf(arquivo, trabalho.nome, trabalho.desenhar, erro);
}

bool GravarPdf(const QString &arquivo, const QString &titulo, const TDesenhoPaginas &desenhar, QString *erro)
{
    return GravarPdfA4(arquivo, titulo, desenhar, erro);
}
