// "Insumos do Item" and "Insumos da Nota": the inputs the current note's production consumes.
#include "TRepF.h"

#include "Dialogos.h"
#include "UEstoInsuItemF.h"
#include "UEstoInsuNotaF.h"
#include "UProdConsulta.h"


void TRepF::InsumosItemExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("EstoInsumosItemAct"));
    TClientDataSet &itens = ItensNota();
    if (itens.IsEmpty()) {
        MensagemInfo(QStringLiteral("Não há itens na nota"));
        return;
    }
    const int prodCod = itens.FieldByName(QStringLiteral("prod_cod")).AsInteger();
    if (ProdCodToTipo(m_conexao, prodCod) != ProdTipoComposicao) {
        MensagemInfo(QStringLiteral("O item não é do tipo Composição"));
        return;
    }
    const TClientDataSet &notas = RepD().Notas();
    TEstoInsuItemF::Abrir(notas.FieldByName(QStringLiteral("empr_cod")).AsInteger(),
                          notas.FieldByName(QStringLiteral("compra_cod")).AsInteger(),
                          itens.FieldByName(QStringLiteral("COMPRA_ITEM_TMP_COD")).AsInteger(),
                          notas.FieldByName(QStringLiteral("DT_DOC")).AsDate(), prodCod,
                          itens.FieldByName(QStringLiteral("prod_DESCR")).AsString().trimmed(),
                          itens.FieldByName(QStringLiteral("QTD_COMPRADA")).AsFloat(), m_conexao, this);
}

void TRepF::InsumosNotaExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("EstoInsumosNotaAct"));
    const TClientDataSet &notas = RepD().Notas();
    if (notas.IsEmpty())
        return;
    TEstoInsuNotaF::Abrir(notas.FieldByName(QStringLiteral("empr_cod")).AsInteger(),
                          notas.FieldByName(QStringLiteral("compra_cod")).AsInteger(),
                          notas.FieldByName(QStringLiteral("DT_DOC")).AsDate(), m_conexao, this);
}
