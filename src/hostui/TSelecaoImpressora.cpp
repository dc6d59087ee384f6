#include "TSelecaoImpressora.h"

#include "Dialogos.h"
#include "ExecutarModal.h"
#include "ImprimirOuPdf.h"
#include "TImpressora.h"

#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

// One job per document: copies are documents of their own, never the printer's copy count.
bool ImprimirDocs(QPrinter &impressora, const TImpressora &docs, QString *erro)
{
    impressora.setCopyCount(1);
    for (int i = 0; i < docs.Documentos().size(); ++i) {
        impressora.setDocName(docs.Documentos().at(i).titulo);
        if (!docs.DesenharDoc(impressora, i, erro)) {
            if (erro)
                *erro = QStringLiteral("Não foi possível imprimir em %1: %2").arg(impressora.printerName(), *erro);
            return false;
        }
    }
    return true;
}

} // namespace

TSelecaoImpressora::TSelecaoImpressora(QWidget *pai) : m_pai(pai) {}

TSelecaoImpressora::~TSelecaoImpressora() = default;

bool TSelecaoImpressora::TemImpressora() const
{
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool TSelecaoImpressora::Selecionar(const QString &titulo)
{
    m_impressora.reset();
    m_arquivoPdf.clear();
    m_copias = 1;
    if (TemImpressora()) {
        auto impressora = std::make_unique<QPrinter>(QPrinter::HighResolution);
        impressora->setDocName(titulo);
        QPrintDialog dialogo(impressora.get(), m_pai);
        dialogo.setWindowTitle(QStringLiteral("Imprimir ") + titulo);
        if (ExecutarModal(dialogo) != QDialog::Accepted)
            return false;
        m_copias = std::max(1, impressora->copyCount());
        m_impressora = std::move(impressora);
        return true;
    }
    const QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    m_arquivoPdf = SelectFile(QStringLiteral("Gravar ") + titulo + QStringLiteral(" em PDF"),
                              QDir(pasta).filePath(titulo + QStringLiteral(".pdf")), QStringLiteral("PDF|*.pdf"), true);
    if (m_arquivoPdf.isEmpty())
        return false;
    if (!m_arquivoPdf.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        m_arquivoPdf += QStringLiteral(".pdf");
    return true;
}

bool TSelecaoImpressora::Imprimir(const TImpressora &impressora, QString *erro)
{
    if (m_impressora)
        return ImprimirDocs(*m_impressora, impressora, erro);
    if (m_arquivoPdf.isEmpty() || !GravarPdf(impressora, m_arquivoPdf, erro))
        return false;
    MensagemInfo(QStringLiteral("PDF gravado em ") + QDir::toNativeSeparators(QFileInfo(m_arquivoPdf).absoluteFilePath()));
    return true;
}

bool TSelecaoImpressora::TemImpressoraPadrao()
{
    return !QPrinterInfo::defaultPrinter().isNull();
}

bool TSelecaoImpressora::ImprimirNaPadrao(const TImpressora &impressora, QString *erro)
{
    QPrinter padrao(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    return ImprimirDocs(padrao, impressora, erro);
}

bool TSelecaoImpressora::GravarPdf(const TImpressora &impressora, const QString &arquivo, QString *erro)
{
    const QString titulo = impressora.Documentos().isEmpty() ? QString() : impressora.Documentos().first().titulo;
    return ::GravarPdf(arquivo, titulo,
                       [&impressora](QPagedPaintDevice &dispositivo, QString *motivo) {
                           return impressora.DesenharTudo(dispositivo, motivo);
                       },
                       erro);
}
