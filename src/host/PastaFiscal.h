#pragma once

#include <QString>

// The fiscal folder, where the NF-e XML files are kept: the one given on the command line, else
// PAVREL_FISCAL_FOLDER, else the configuration store's "PASTA_FISCAL", else "fiscal" under the
// user's data folder.
QString ResolverPastaFiscal(const QString &opcao);

// The context's fiscal folder (resolved now when nobody set it), created when missing, with a
// trailing separator. Empty, with a message naming the folder in erro, when it cannot be created.
QString PastaFiscal(QString *erro = nullptr);
