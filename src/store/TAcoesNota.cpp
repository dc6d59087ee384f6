#include "TAcoesNota.h"

#include "Debug.h"
#include "Dialogos.h"
#include "ErroBanco.h"
#include "SincPorArq.h"
#include "TBaixaNota.h"
#include "TConexD.h"
#include "TRepGates.h"
#include "UEstoque.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>

namespace {

const QString NenhumaNota = QStringLiteral("Nenhuma nota sendo exibida");

// The checks that unposting and sending share; false, with a trace or a message, when the
// action has nothing to do.
bool PodeAgirSobreNota(TDataSetState cabecState, TDataSetState itemState, const std::optional<TNotaLinha> &nota,
                       TRastroDebug &rastro)
{
    rastro.Add(QStringLiteral("inicio"));
    if (cabecState != TDataSetState::Browse) {
        rastro.Add(QStringLiteral("CabecState<>dsBrowse"));
        return false;
    }
    if (itemState != TDataSetState::Browse) {
        rastro.Add(QStringLiteral("ItemState<>dsBrowse"));
        return false;
    }
    if (!nota) {
        MensagemErro(NenhumaNota);
        return false;
    }
    if (nota->chave.emprCod < 1) {
        rastro.Add(QStringLiteral("EMPR_COD<1"));
        return false;
    }
    return true;
}

// Posting and unposting of one note run at one workstation at a time: the note's lock is shared by
// every process on the database. nullptr, with the message shown, when it cannot be taken.
std::unique_ptr<TSincPorArq> TravarNota(const TChaveNota &chave)
{
    auto trava = SincPorArq_Create(QStringLiteral("Retag Compra Baixa %1-%2-%3").arg(chave.emprCod).arg(chave.estacaoCod).arg(chave.compraCod),
                                   QStringLiteral("Baixa da nota ") + chave.DocStr(), QStringLiteral("TAcoesNota"), 2, false);
    if (trava->Adquirir())
        return trava;
    MensagemErro(trava->EmUso() ? QStringLiteral("A nota %1 está sendo baixada ou desbaixada em outra estação. "
                                                 "Nada foi feito; tente de novo em alguns instantes.")
                                      .arg(chave.DocStr())
                                : trava->UltimoErro());
    return nullptr;
}

} // namespace

TAcoesNota::TAcoesNota(TConexaoSQL &conexao) : m_conexao(conexao), m_docAceito([] { return true; }) {}

bool TAcoesNota::BaixouNota(const std::optional<TNotaLinha> &linha, bool silencioso)
{
    if (!linha) {
        if (!silencioso)
            MensagemErro(NenhumaNota);
        return false;
    }
    const TNotaLinha &nota = *linha;
    if (nota.baixado) {
        if (!silencioso)
            MensagemInfo(QStringLiteral("Esta nota já foi baixada"));
        return false;
    }
    if (m_docAceito && !m_docAceito())
        return false;
    TRepGates gates(m_conexao);
    if (!gates.TotItensAceito(nota.chave, nota.tipoCod, m_somarIPI) || !gates.TotDosItensAceito(nota.chave, nota.tipoCod))
        return false;
    const auto trava = TravarNota(nota.chave);
    if (!trava)
        return false;
    // Another workstation may have posted it since the list was read.
    if (TBaixaNota::BaixadoNoBanco(m_conexao, nota.chave).value_or(false)) {
        if (!silencioso)
            MensagemInfo(QStringLiteral("Esta nota já foi baixada"));
        return false;
    }
    return TBaixaNota(m_conexao).BaixarNota(nota, m_somarIPI);
}

bool TAcoesNota::CancelarNota(const std::optional<TNotaLinha> &linha)
{
    if (!linha) {
        MensagemErro(NenhumaNota);
        return false;
    }
    const TNotaLinha &nota = *linha;
    if (nota.cancelado) {
        MensagemErro(QStringLiteral("Nota já foi cancelada"));
        return false;
    }
    if (!PerguntaDeletar())
        return false;
    const TChaveNota &chave = nota.chave;
    if (!TConexD::Executar(QLatin1String("update COMPRA set cancelado='S' where empr_cod=") + QString::number(chave.emprCod)
                           + QLatin1String(" and COMPRA_cod=") + QString::number(chave.compraCod)
                           + QLatin1String(" and estacao_cod=") + QString::number(chave.estacaoCod))) {
        MensagemErro(QStringLiteral("Não foi possível cancelar a nota %1.\n%2")
                         .arg(chave.DocStr(), TConexD::Conexao().UltimoErro()));
        return false;
    }
    return true;
}

bool TAcoesNota::DesbaixarActExecute(const std::optional<TNotaLinha> &linha, TDataSetState cabecState,
                                     TDataSetState itemState)
{
    TRastroDebug rastro(80);
    const auto exibir = qScopeGuard(
        [&rastro] { rastro.Exibir(TRastroDebug::CabecalhoCurto(80, QStringLiteral("DesbaixarAct;"))); });
    if (!PodeAgirSobreNota(cabecState, itemState, linha, rastro))
        return false;
    const TNotaLinha &nota = *linha;
    // A note whose posting was interrupted is not marked posted but has movements to take back.
    if (!nota.baixado) {
        const int ligados = TBaixaNota::MovimentosLigados(m_conexao, nota.chave);
        if (ligados < 0) {
            MensagemErro(QStringLiteral("Não foi possível ler os movimentos de estoque da nota %1.\n%2")
                             .arg(nota.chave.DocStr(), m_conexao.UltimoErro()));
            return false;
        }
        if (ligados == 0) {
            MensagemErro(QStringLiteral("A nota não foi baixada. Não precisa ser desbaixada"));
            return false;
        }
    }
    if (nota.cancelado) {
        MensagemInfo(QStringLiteral("Esta nota já foi cancelada. Não pode ser desbaixada"));
        return false;
    }
    if (!Pergunta(QStringLiteral("Deseja desbaixar o documento ") + nota.chave.DocStr()))
        return false;
    const auto trava = TravarNota(nota.chave);
    if (!trava)
        return false;
    // Another workstation may have unposted it while the question was open.
    if (!TBaixaNota::BaixadoNoBanco(m_conexao, nota.chave).value_or(true) && TBaixaNota::MovimentosLigados(m_conexao, nota.chave) == 0) {
        MensagemErro(QStringLiteral("A nota não foi baixada. Não precisa ser desbaixada"));
        return false;
    }
    try {
        DesbaixarCompra(nota.chave.emprCod, nota.chave.compraCod, TConexD::Conexao().GetDatabase());
    } catch (const EErroBanco &e) {
        MensagemErro(e.Texto());
        return false;
    }
    return true;
}

bool TAcoesNota::NotaExportActExecute(const std::optional<TNotaLinha> &linha, TDataSetState cabecState,
                                     TDataSetState itemState)
{
    TRastroDebug rastro(80);
    const auto exibir = qScopeGuard(
        [&rastro] { rastro.Exibir(TRastroDebug::CabecalhoCurto(80, QStringLiteral("NotaExportAct;"))); });
    if (!PodeAgirSobreNota(cabecState, itemState, linha, rastro))
        return false;
    const TNotaLinha &nota = *linha;
    if (nota.destinEmprCod < 1) {
        rastro.Add(QStringLiteral("DESTIN_EMPR_COD<1"));
        return false;
    }
    if (!nota.baixado) {
        MensagemErro(QStringLiteral("A nota não foi baixada. Não pode ser exportada"));
        return false;
    }
    if (nota.cancelado) {
        MensagemInfo(QStringLiteral("Esta nota já foi cancelada. Não pode ser exportada"));
        return false;
    }
    try {
        Quenor_EstMov_EnvCompra(nota.chave.emprCod, nota.chave.compraCod, nota.destinEmprCod, TConexD::Conexao().GetDatabase());
    } catch (const EErroBanco &e) {
        MensagemErro(e.Texto());
        return false;
    }
    MensagemInfo(QStringLiteral("Comando executado"));
    return true;
}
