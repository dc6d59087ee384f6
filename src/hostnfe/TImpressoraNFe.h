#pragma once

#include <QString>

#include <functional>

class QPagedPaintDevice;

// Where the NF-e library's print-outs (DANFE, correction letter) go: the printer the user picks,
// or a PDF. The screens register the real one; the commands and tests a PDF file.
class TImpressoraNFe
{
public:
    using TDesenho = std::function<bool(QPagedPaintDevice &dispositivo, QString *erro)>;
    virtual ~TImpressoraNFe() = default;
    // nome: the job's name ("DANFE <key>"). False with erro when nothing was printed; cancelled
    // by the user is false with erro empty.
    virtual bool Imprimir(const QString &nome, const TDesenho &desenhar, QString *erro) = 0;

    static TImpressoraNFe *Atual();
    static void Definir(TImpressoraNFe *impressora);
};
