// The actions on the current note of the list: posting, cancelling, unposting and sending.
#include "TRepF.h"

#include "TAcoesNota.h"
#include "TCabecNota.h"
#include "UTipoDoc.h"

#include <QAction>
#include <QCoreApplication>

void TRepF::CriarAcoesNota()
{
    m_acoesNota = std::make_unique<TAcoesNota>(m_conexao);
    m_acoesNota->SetSomarIPI(m_ipiSomar);
    m_acoesNota->SetDocAceito([this] { return m_cabec->DocAceito(); });
    // The note is read once from the current row; afterwards its row shows what the action did.
    const auto ligar = [this](const char *nome, auto trabalho) {
        QAction *acao = m_acoes.value(QLatin1String(nome));
        connect(acao, &QAction::triggered, this, [this, acao, trabalho] {
            // Disabled while it runs, and enabled again however it ends.
            acao->setEnabled(false);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            const std::optional<TNotaLinha> nota = m_repD->NotaAtual();
            trabalho(nota);
            AtualizarAcoes();
            AposRolarNotas();
        });
    };
    ligar("BaixarAct", [this](const std::optional<TNotaLinha> &nota) {
        const bool baixou = m_acoesNota->BaixouNota(nota, false);
        // A type whose total follows its items may have had it written even when posting stopped.
        const TipoDoc::TTipoDoc *tipo = nota ? TipoDoc::PorCodigo(nota->tipoCod) : nullptr;
        if (nota && (baixou || (tipo && tipo->ajustaTotalNaBaixa)))
            m_repD->RecarregarLinha(nota->chave);
    });
    ligar("CancAct", [this](const std::optional<TNotaLinha> &nota) {
        if (m_acoesNota->CancelarNota(nota))
            m_repD->MarcarLinhaCancelada();
    });
    ligar("DesbaixarAct", [this](const std::optional<TNotaLinha> &nota) {
        if (m_acoesNota->DesbaixarActExecute(nota, m_cabecState, m_itemState))
            m_repD->RecarregarLinha(nota->chave);
    });
    ligar("NotaExportAct", [this](const std::optional<TNotaLinha> &nota) {
        m_acoesNota->NotaExportActExecute(nota, m_cabecState, m_itemState);
    });
}
