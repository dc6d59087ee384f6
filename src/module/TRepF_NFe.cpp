// The NF-e actions of the screen: send, cancel, print again, correction letter.
#include "TRepF.h"

#include "TNfeCorrI.h"
#include "UNFeAcoes.h"
#include "Unfecancjustificativaf.h"

#include <QCoreApplication>

namespace {

// Lets the disabled action repaint before the work starts.
void ProcessarPendentes()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

void TRepF::NFEEnviarExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("NFEEnviarAct"));
    ProcessarPendentes();
    UNFeAcoes::EnviarNFe(RepD());
}

void TRepF::NFECancExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("NFECancAct"));
    ProcessarPendentes();
    UNFeAcoes::CancelarNFe(m_conexao, RepD().Notas(), &TNfeCancJustificativaF::Perguntar);
}

void TRepF::NFEImprExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("NFEImprAct"));
    ProcessarPendentes();
    UNFeAcoes::ReimprimirNFe(m_conexao, RepD().Notas());
}

void TRepF::NfeCorrExecute()
{
    const auto reabilitar = DesabilitarEnquanto(QStringLiteral("NfeCorrAct"));
    ProcessarPendentes();
    UNFeAcoes::CartaCorrecaoNFe(RepD().Notas(), [this](const QString &chave, int docTipo, const QString &descricao) {
        TNfeCorrI::EditarNfeCorr(chave, docTipo, descricao, this);
        return true;
    });
}
