#pragma once

#include <QString>

#include <memory>

class QPrinter;
class QWidget;
class TImpressora;

// The host's printer selection. With a printer on the machine: the print dialog, whose number of
// copies the caller prints as separate documents, each a print job of its own. Without one: a
// PDF file that the user names, and a message saying where it went.
class TSelecaoImpressora
{
public:
    explicit TSelecaoImpressora(QWidget *pai = nullptr);
    virtual ~TSelecaoImpressora();

    // False when the user gives up.
    bool Selecionar(const QString &titulo);
    int Copias() const { return m_copias; }
    // Each document to the printer chosen, or all into the PDF one after another. False with the
    // reason in erro when the printer or the file fails.
    bool Imprimir(const TImpressora &impressora, QString *erro);

    // The machine's default printer, for the headless commands: false when there is none.
    static bool TemImpressoraPadrao();
    static bool ImprimirNaPadrao(const TImpressora &impressora, QString *erro);
    // Writes the documents into a PDF whole or not at all.
    static bool GravarPdf(const TImpressora &impressora, const QString &arquivo, QString *erro);

    // Whether the machine has a printer to choose from.
    virtual bool TemImpressora() const;

private:
    QWidget *m_pai;
    std::unique_ptr<QPrinter> m_impressora;
    QString m_arquivoPdf;
    int m_copias = 1;
};
