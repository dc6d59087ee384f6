#include "TImpressoraNFePdf.h"

#include <QFileInfo>
#include <QPdfWriter>
#include <QSaveFile>

bool TImpressoraNFePdf::Imprimir(const QString &nome, const TDesenho &desenhar, QString *erro)
{
    return GravarPdfA4(m_arquivo, nome, desenhar, erro);
}

bool GravarPdfA4(const QString &arquivo, const QString &titulo, const TImpressoraNFe::TDesenho &desenhar, QString *erro)
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
