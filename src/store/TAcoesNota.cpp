#include "TAcoesNota.h"

#include "Debug.h"
#include "Dialogos.h"
#include "ErroBanco.h"
#include "TBaixaNota.h"
#include "TConexD.h"
#include "TRepD.h"
#include "TRepGates.h"
#include "UEstoque.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>

namespace {

const QString NenhumaNota = QStringLiteral("Nenhuma nota sendo exibida");

// The checks that unposting and sending share; false, with a trace or a message, when the
// action has nothing to do.
bool PodeAgirSobreNota(TDataSetState cabecState, TDataSetState itemState, const TClientDataSet &notas,
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
    if (notas.IsEmpty()) {
        MensagemErro(NenhumaNota);
        return false;
    }
    if (TNotaLinha::DaLinhaAtual(notas).emprCod < 1) {
        rastro.Add(QStringLiteral("EMPR_COD<1"));
        return false;
    }
    return true;
}

} // namespace

TAcoesNota::TAcoesNota(TRepD &repD, TConexaoSQL &conexao)
    : m_repD(repD), m_conexao(conexao), m_docAceito([] { return true; })
{
}

TClientDataSet &TAcoesNota::Notas()
{
    return m_repD.Notas();
}

bool TAcoesNota::BaixouNota(bool silencioso)
{
    TClientDataSet &notas = Notas();
    if (notas.IsEmpty()) {
        if (!silencioso)
            MensagemErro(NenhumaNota);
        return false;
    }
    const TNotaLinha nota = TNotaLinha::DaLinhaAtual(notas);
    if (nota.baixado) {
        if (!silencioso)
            MensagemInfo(QStringLiteral("Esta nota já foi baixada"));
        return false;
    }
    if (m_docAceito && !m_docAceito())
        return false;
    TRepGates gates(m_conexao);
    const TChaveNota chave{.emprCod = nota.emprCod, .estacaoCod = nota.estacaoCod, .compraCod = nota.compraCod};
    if (!gates.TotItensAceito(chave, nota.tipoCod, m_somarIPI, &notas) || !gates.TotDosItensAceito(chave, nota.tipoCod))
        return false;
    return TBaixaNota(m_conexao).BaixarNota(notas, m_somarIPI);
}

bool TAcoesNota::CancelarNota()
{
    TClientDataSet &notas = Notas();
    if (notas.IsEmpty()) {
        MensagemErro(NenhumaNota);
        return false;
    }
    const TNotaLinha nota = TNotaLinha::DaLinhaAtual(notas);
    if (nota.cancelado) {
        MensagemErro(QStringLiteral("Nota já foi cancelada"));
        return false;
    }
    if (!PerguntaDeletar())
        return false;
    const QString estacao = notas.FieldByName(QStringLiteral("ESTACAO_COD")).AsString();
    if (!TConexD::Executar(QLatin1String("update COMPRA set cancelado='S' where empr_cod=") + QString::number(nota.emprCod)
                           + QLatin1String(" and COMPRA_cod=") + QString::number(nota.compraCod)
                           + QLatin1String(" and estacao_cod=") + StrToIntStr(estacao))) {
        MensagemErro(QStringLiteral("Não foi possível cancelar a nota %1.\n%2")
                         .arg(nota.DocStr(), TConexD::Conexao().UltimoErro()));
        return false;
    }
    notas.Edit();
    notas.FieldByName(QStringLiteral("CANCELADO")).SetAsBoolean(true);
    // The list load captions a cancelled note otherwise; right after cancelling it reads "S".
    notas.FieldByName(QStringLiteral("CANCELADO_STR")).SetAsString(QStringLiteral("S"));
    notas.Post();
    return true;
}

bool TAcoesNota::DesbaixarActExecute(TDataSetState cabecState, TDataSetState itemState)
{
    TRastroDebug rastro(80);
    const auto exibir = qScopeGuard(
        [&rastro] { rastro.Exibir(TRastroDebug::CabecalhoCurto(80, QStringLiteral("DesbaixarAct;"))); });
    TClientDataSet &notas = Notas();
    if (!PodeAgirSobreNota(cabecState, itemState, notas, rastro))
        return false;
    const TNotaLinha nota = TNotaLinha::DaLinhaAtual(notas);
    if (!nota.baixado) {
        MensagemErro(QStringLiteral("A nota não foi baixada. Não precisa ser desbaixada"));
        return false;
    }
    if (nota.cancelado) {
        MensagemInfo(QStringLiteral("Esta nota já foi cancelada. Não pode ser desbaixada"));
        return false;
    }
    if (!Pergunta(QStringLiteral("Deseja desbaixar o documento ") + nota.DocStr()))
        return false;
    try {
        DesbaixarCompra(nota.emprCod, nota.compraCod, TConexD::Conexao().GetDatabase());
    } catch (const EErroBanco &e) {
        MensagemErro(e.Texto());
        return false;
    }
    // The row follows the database, so that the note can be posted again without reloading.
    notas.Edit();
    notas.FieldByName(QStringLiteral("BAIXADO")).SetAsBoolean(false);
    notas.FieldByName(QStringLiteral("BAIXADO_STR")).SetAsString(RepBaixadoStr(false));
    notas.Post();
    return true;
}

bool TAcoesNota::NotaExportActExecute(TDataSetState cabecState, TDataSetState itemState)
{
    TRastroDebug rastro(80);
    const auto exibir = qScopeGuard(
        [&rastro] { rastro.Exibir(TRastroDebug::CabecalhoCurto(80, QStringLiteral("NotaExportAct;"))); });
    TClientDataSet &notas = Notas();
    if (!PodeAgirSobreNota(cabecState, itemState, notas, rastro))
        return false;
    const TNotaLinha nota = TNotaLinha::DaLinhaAtual(notas);
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
        Quenor_EstMov_EnvCompra(nota.emprCod, nota.compraCod, nota.destinEmprCod, TConexD::Conexao().GetDatabase());
    } catch (const EErroBanco &e) {
        MensagemErro(e.Texto());
        return false;
    }
    MensagemInfo(QStringLiteral("Comando executado"));
    return true;
}
