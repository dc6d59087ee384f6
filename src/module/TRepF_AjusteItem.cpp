// "Ajustar Item": the fiscal coding of the current item, even after posting.
#include "TRepF.h"

#include "TCabecNota.h"
#include "TEdNotaPanel.h"
#include "URepF_AjusteItem.h"

#include <QAbstractItemView>

void TRepF::AjustarItemClick()
{
    // The note being edited, else the list's current one; its supplier as the header holds it.
    TNotaDoAjuste nota;
    nota.tipoDocCod = TipoDocSelecionado();
    if (m_edNotaPanel->isVisible() && m_cabec->Chave().compraCod != 0) {
        nota.emprCod = m_cabec->Chave().emprCod;
        nota.compraCod = m_cabec->Chave().compraCod;
        nota.fornecCod = FornecCodSelecionado();
    } else if (const auto linha = m_repD->NotaAtual()) {
        nota.emprCod = linha->chave.emprCod;
        nota.compraCod = linha->chave.compraCod;
        nota.fornecCod = linha->fornecCod;
    }
    TRepF_AjusteItem ajuste(ItensNota(), m_conexao);
    if (ajuste.Executar(nota, this))
        ItensGrid()->viewport()->update();
    AtualizarAcoes();
}
