#include "ImpressoraFiscal.h"

#include <QLibrary>

namespace ImpressoraFiscal {

bool PegarProcs(QString *erro)
{
    const QString caminho = qEnvironmentVariable("PAVREL_ECF_LIBRARY");
    if (caminho.isEmpty())
        return true;
    QLibrary biblioteca(caminho);
    if (!biblioteca.load()) {
        *erro = QStringLiteral("Erro carregando as rotinas da impressora fiscal (%1): %2")
                    .arg(caminho, biblioteca.errorString());
        return false;
    }
    return true;
}

} // namespace ImpressoraFiscal
