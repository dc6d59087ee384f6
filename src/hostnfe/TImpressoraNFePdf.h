#pragma once

#include "TImpressoraNFe.h"

// The print-outs into one A4 PDF file (the commands' --pdf, the tests): written whole or not at
// all, so a failure leaves an earlier file of that name untouched.
class TImpressoraNFePdf final : public TImpressoraNFe
{
public:
    explicit TImpressoraNFePdf(const QString &arquivo) : m_arquivo(arquivo) {}
    bool Imprimir(const QString &nome, const TDesenho &desenhar, QString *erro) override;
    QString Arquivo() const { return m_arquivo; }

private:
    QString m_arquivo;
};

// The pages into an A4 PDF (15 mm margins, 300 dpi) titled `titulo`; false with erro naming the file.
bool GravarPdfA4(const QString &arquivo, const QString &titulo, const TImpressoraNFe::TDesenho &desenhar, QString *erro);
