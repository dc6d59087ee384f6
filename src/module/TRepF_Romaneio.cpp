// "Romaneio": the packing list of the current note.
#include "TRepF.h"

#include "Contexto.h"
#include "TSelecaoImpressora.h"
#include "UPavrel_Romaneio_Impr.h"

void TRepF::RomaneioImprExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("RomaneioImprAct"));
    const TClientDataSet &notas = RepD().Notas();
    if (notas.IsEmpty())
        return;
    const TDadosBanco &banco = m_conexao.Dados();
    TPavrel_Romaneio_Impr romaneio(notas.FieldByName(QStringLiteral("empr_cod")).AsInteger(),
                                   notas.FieldByName(QStringLiteral("compra_cod")).AsInteger(), banco.database,
                                   Contexto::Atual().estacao, banco.usuario, banco.senha);
    TSelecaoImpressora selecao(this);
    romaneio.Execute(selecao);
}
