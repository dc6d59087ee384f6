#include "TImpressaoDanfe.h"

#include "Dialogos.h"
#include "TDanfe.h"
#include "TnfeProc.h"

#include <QDir>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

namespace {

bool ImprimirNaImpressora(QWidget *pai, const TnfeProc &nfe, QString *erro)
{
    QPrinter impressora(QPrinter::HighResolution);
    impressora.setDocName(QStringLiteral("DANFE ") + nfe.chave);
    impressora.setPageSize(QPageSize(QPageSize::A4));
    QPrintDialog dialogo(&impressora, pai);
    dialogo.setWindowTitle(QStringLiteral("Imprimir DANFE"));
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    // Where the print system cannot make the copies itself, each copy is a job of its own.
    const int vezes = impressora.supportsMultipleCopies() ? 1 : std::max(1, impressora.copyCount());
    for (int i = 0; i < vezes; ++i)
        if (!TDanfe::Desenhar(nfe, impressora, erro))
            return false;
    return true;
}

} // namespace

bool ImprimirDanfe(QWidget *pai, const TnfeProc &nfe, QString *erro)
{
    if (erro)
        erro->clear();
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        return ImprimirNaImpressora(pai, nfe, erro);

    const QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString arquivo = SelectFile(QStringLiteral("Salvar DANFE em PDF"),
                                 QDir(pasta).filePath(QStringLiteral("DANFE-%1.pdf").arg(nfe.chave)),
                                 QStringLiteral("PDF|*.pdf"), true);
    if (arquivo.isEmpty())
        return false;
    if (!arquivo.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        arquivo += QStringLiteral(".pdf");
    return TDanfe::GerarPdf(nfe, arquivo, erro);
}
