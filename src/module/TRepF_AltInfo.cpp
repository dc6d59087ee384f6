// "Informações do Fisco": the additional information of the current note.
#include "TRepF.h"

#include "URepEdit.h"

void TRepF::AltInfoExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("AltInfoAct"));
    const std::optional<TNotaLinha> nota = RepD().NotaAtual();
    if (!nota)
        return;
    const int ndoc = RepD().Notas().FieldByName(QStringLiteral("NDOC")).AsInteger();
    TRepEdit::Editar(nota->chave.emprCod, nota->chave.estacaoCod, nota->chave.compraCod, m_conexao,
                     QStringLiteral("Informações adicionais - Nota %1 (%2)").arg(ndoc).arg(nota->chave.DocStr()), this);
}
