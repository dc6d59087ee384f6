// "Etiquetas": price labels for the goods of the current note.
#include "TRepF.h"

#include "UEtiquetasF.h"

void TRepF::EtiqExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("EtiqAct"));
    if (const std::optional<TNotaLinha> nota = RepD().NotaAtual())
        ImprimirEtiquetas(nota->chave, m_conexao, this);
}
