// The actions on the current note of the list: posting, cancelling, unposting and sending.
#include "TRepF.h"

#include "TAcoesNota.h"
#include "TCabecNota.h"

#include <QAction>
#include <QCoreApplication>

void TRepF::CriarAcoesNota()
{
    m_acoesNota = std::make_unique<TAcoesNota>(*m_repD, m_conexao);
    m_acoesNota->SetSomarIPI(m_ipiSomar);
    m_acoesNota->SetDocAceito([this] { return m_cabec->DocAceito(); });
    const auto ligar = [this](const char *nome, auto trabalho) {
        QAction *acao = m_acoes.value(QLatin1String(nome));
        connect(acao, &QAction::triggered, this, [this, acao, trabalho] {
            // Disabled while it runs, and enabled again however it ends.
            acao->setEnabled(false);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            trabalho();
            AtualizarAcoes();
            AposRolarNotas();
        });
    };
    ligar("BaixarAct", [this] { m_acoesNota->BaixouNota(false); });
    ligar("CancAct", [this] { m_acoesNota->CancelarNota(); });
    ligar("DesbaixarAct", [this] { m_acoesNota->DesbaixarActExecute(m_cabecState, m_itemState); });
    ligar("NotaExportAct", [this] { m_acoesNota->NotaExportActExecute(m_cabecState, m_itemState); });
}
