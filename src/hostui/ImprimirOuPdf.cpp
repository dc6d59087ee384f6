#include "ImprimirOuPdf.h"

#include "Dialogos.h"

#include <QDir>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
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
    QSaveFile saida(arquivo);
    auto falha = [&](const QString &motivo) {
        if (erro)
            *erro = QStringLiteral("Não foi possível gravar o PDF %1: %2").arg(QFileInfo(arquivo).absoluteFilePath(), motivo);
        return false;
    };
    if (!saida.open(QIODevice::WriteOnly))
        return falha(saida.errorString());
    {
        QPdfWriter pdf(&saida);
        pdf.setResolution(300);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
        pdf.setTitle(titulo);
        pdf.setCreator(QStringLiteral("Pavrel"));
        QString motivo;
        if (!desenhar(pdf, &motivo)) {
            saida.cancelWriting();
            return falha(motivo);
        }
    }
    if (!saida.commit())
        return falha(saida.errorString());
    return true;
}
