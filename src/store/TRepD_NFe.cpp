// Sending the NF-e of the current note of the list.
#include "TRepD.h"

#include "Contexto.h"
#include "Dialogos.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TEmissorNFe.h"
#include "TProgresso.h"
#include "UKelNfeEnviaNFE.h"
#include "Valores.h"

#include <QScopeGuard>

#include <cmath>

namespace {

// Days from one moment to the other as a calendar reads them: a clock change between the two
// must not turn exactly one day into a day and an hour.
double DiasEntre(const QDateTime &a, const QDateTime &b)
{
    const auto ingenuo = [](const QDateTime &d) { return QDateTime(d.date(), d.time(), Qt::UTC); };
    return std::abs(double(ingenuo(a).msecsTo(ingenuo(b)))) / 86400000.0;
}

} // namespace

bool TRepD::EnviarNFE()
{
    TClientDataSet &notas = *m_notas;
    if (notas.IsEmpty())
        return false;
    const auto campo = [&notas](const char *nome) -> TField & { return notas.FieldByName(QLatin1String(nome)); };
    if (campo("CANCELADO").AsBoolean()) {
        MensagemInfo(QStringLiteral("Esta venda foi cancelada. Não é possivel gerar o NFe"));
        return false;
    }
    if (!campo("NFE_PROTOCOLO").AsString().trimmed().isEmpty()) {
        MensagemInfo(QStringLiteral("Esta venda já possui Protocolo NFE. Não pode mais ser enviada"));
        return false;
    }
    const QDateTime agora = Contexto::Atual().Agora();
    // A note without an exit date counts as far away, as the date zero would.
    const TField &saida = campo("DTH_SAI");
    if (saida.IsNull() || DiasEntre(agora, saida.AsDateTime()) > 1.0) {
        if (!Pergunta(QStringLiteral("Deseja ajustar a data de saída?")) || !AjustarDtHSai(agora))
            return false;
    }
    const TNotaLinha nota = TNotaLinha::DaLinhaAtual(notas);
    QDateTime dthEmiss;
    int nfeNum = 0;
    QString chave, protocolo;
    const auto fechar = qScopeGuard([] { TProgresso::Janela().Fechar(); });
    const TProgressFormPegarTit progresso = [](const QString &titulo) { TProgresso::Janela().Exibir(titulo, 0); };
    if (!KelNFEDevFornecEnviaNFE(nullptr, m_conexao, progresso, MensagemErro, nota.chave.emprCod, nota.chave.estacaoCod,
                                 nota.chave.compraCod, FinalidadeDoTipo(nota.tipoCod), nota.tipoCod, dthEmiss, nfeNum,
                                 chave, protocolo))
        return false;
    notas.Edit();
    campo("NFE_DTH_EMISS").SetAsDateTime(dthEmiss);
    campo("NFE_NUM").SetAsInteger(nfeNum);
    campo("NFE_CHAVE").SetAsString(chave);
    campo("NFE_PROTOCOLO").SetAsString(protocolo);
    notas.Post();
    return true;
}

bool TRepD::AjustarDtHSai(const QDateTime &d)
{
    if (m_notas->IsEmpty())
        return false;
    const TChaveNota chave = TNotaLinha::DaLinhaAtual(*m_notas).chave;
    if (!m_conexao.Exec(QLatin1String("update compra set dth_sai=") + DataHoraSQLFirebird(d)
                        + QLatin1String(" where empr_cod=") + QString::number(chave.emprCod)
                        + QLatin1String(" and estacao_cod=") + QString::number(chave.estacaoCod)
                        + QLatin1String(" and compra_cod=") + QString::number(chave.compraCod))) {
        MensagemErro(QStringLiteral("Não foi possível ajustar a data de saída da nota %1.\n%2")
                         .arg(chave.DocStr(), m_conexao.UltimoErro()));
        return false;
    }
    m_notas->Edit();
    m_notas->FieldByName(QStringLiteral("DTh_sai")).SetAsDateTime(d);
    m_notas->Post();
    return true;
}
