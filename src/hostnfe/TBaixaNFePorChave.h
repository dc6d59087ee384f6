#pragma once

#include <QString>

// Fetches from the tax authority the XML of an NF-e that is not on file. The NF-e services
// register the real one; until one is registered the key-download dialog only searches the
// fiscal folder.
class TBaixaNFePorChave
{
public:
    virtual ~TBaixaNFePorChave() = default;

    // Saves the document's XML in pastaDestino; its path, or empty with erro saying why.
    virtual QString Baixar(const QString &chave, const QString &pastaDestino, QString &erro) = 0;

    // The registered one (not owned), or nullptr.
    static TBaixaNFePorChave *Atual();
    static void Definir(TBaixaNFePorChave *baixa);
};
