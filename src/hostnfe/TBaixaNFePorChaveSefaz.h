#pragma once

#include "TBaixaNFePorChave.h"

// Fetches a missing NF-e from the national distribution service, for the context's company.
class TBaixaNFePorChaveSefaz final : public TBaixaNFePorChave
{
public:
    QString Baixar(const QString &chave, const QString &pastaDestino, QString &erro) override;

    // Registers the one of the process with TBaixaNFePorChave::Definir.
    static void Registrar();
};
