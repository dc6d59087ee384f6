// "Ajustar ICMS UF Dest": the destination state's ICMS of the current note's movements.
#include "TRepF.h"

#include "URepF_ItensICMSUFDest.h"

// With no note in the list there is nothing to adjust: the button does nothing.
void TRepF::AjustarICMSUFDestClick()
{
    TClientDataSet &notas = RepD().Notas();
    if (!notas.Active() || notas.IsEmpty())
        return;
    const auto texto = [&notas](const char *campo) { return notas.FieldByName(QLatin1String(campo)).AsString().trimmed(); };
    const auto inteiro = [&notas](const char *campo) { return notas.FieldByName(QLatin1String(campo)).AsInteger(); };
    TRepF_ItensICMSUFDest::Perguntar(inteiro("EMPR_COD"), inteiro("ESTACAO_COD"), inteiro("COMPRA_COD"),
                                     texto("FORNEC_NOME_RED"), texto("TIPO_DOC_STR"), texto("NDOC"),
                                     notas.FieldByName(QStringLiteral("DT_DOC")).AsDate(), m_conexao.GetDatabase(),
                                     TipoDocSelecionado());
}
