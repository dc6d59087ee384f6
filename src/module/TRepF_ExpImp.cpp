// "Exportar Notas" and "Importar Notas": every note and its movements to a file and back.
#include "TRepF.h"

#include "UCompraExport.h"
#include "UCompraImport.h"

void TRepF::ExportarComprasExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("ExportarComprasAct"));
    Exportar(m_conexao);
}

void TRepF::ImportarComprasExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("ImportarComprasAct"));
    // Even an import stopped half-way changed the notes the list shows.
    if (Importar(m_conexao))
        CarregarNotas();
}
