#include "TEnvioNFe.h"

#include "Contexto.h"
#include "TConexaoSQL.h"
#include "TEnvioNFe_Partes.h"
#include "Valores.h"

using namespace EnvioNFe;

namespace {

constexpr int Cancelamento = 110111;
constexpr int CCe = 110110;
constexpr int MaximoCCe = 20;

// The event's procEventoNFe as the authority keeps it (asked by key), or empty.
QByteArray EventoRegistrado(const QList<QByteArray> &procEventos, int tpEvento, int seq)
{
    for (const QByteArray &proc : procEventos)
        if (Folha(proc, QStringLiteral("tpEvento")).toInt() == tpEvento
            && Folha(proc, QStringLiteral("nSeqEvento")).toInt() == seq
            && Folha(proc, QStringLiteral("cStat"), QStringLiteral("retEvento")).toInt() == 135)
            return proc;
    return {};
}

} // namespace

bool TEnvioNFe::Dados::RegistrarEvento(TPedidoEvento pedido, const QString &rejeitado, TEventoRegistrado *registrado,
                                       QString *erro)
{
    pedido.cnpj = cnpj;
    pedido.cOrgao = CodigoUF().toInt();
    pedido.tpAmb = tpAmb;
    pedido.dhEvento = Contexto::Atual().Agora();
    const QString pasta = PastaDaChave(pedido.chave, erro);
    if (pasta.isEmpty())
        return false;
    Progresso(QStringLiteral("Assinando..."));
    QByteArray assinado;
    if (!TEventoNFe::MontarAssinado(pedido, *certificado, &assinado, erro))
        return false;
    Progresso(QStringLiteral("Enviando evento à SEFAZ..."));
    const QString autorizador = AutorizadorDaChave(pedido.chave);
    const TRetornoEvento r = servicos->EnviarEvento(autorizador, assinado, NovoLote());
    if (!r.Respondeu())
        return Falhar(erro, FalhaComunicacao(r));
    Guardar(r.cStat, r.xMotivo);
    QByteArray proc;
    if (r.cStat == 128 && r.cStatEvento == 573) {
        // Sent before without an answer: the authority already holds it.
        Progresso(QStringLiteral("Consultando NF-e na SEFAZ..."));
        const TRetornoConsulta c = servicos->Consultar(autorizador, pedido.chave);
        if (!c.Respondeu())
            return Falhar(erro, FalhaComunicacao(c));
        proc = EventoRegistrado(c.procEventos, pedido.tpEvento, pedido.nSeqEvento);
        if (proc.isEmpty())
            return Falhar(erro, QStringLiteral("%1: %2 - %3").arg(rejeitado).arg(r.cStatEvento).arg(r.xMotivoEvento));
    } else if (r.cStat == 128 && (r.cStatEvento == 135 || r.cStatEvento == 136 || r.cStatEvento == 155)) {
        proc = TEventoNFe::MontarProc(assinado, r.retEvento);
    } else {
        const bool doEvento = r.cStat == 128 && r.cStatEvento != 0;
        Guardar(doEvento ? r.cStatEvento : r.cStat, doEvento ? r.xMotivoEvento : r.xMotivo);
        return Falhar(erro, QStringLiteral("%1: %2 - %3").arg(rejeitado).arg(retorno.cStat).arg(retorno.xMotivo));
    }
    Guardar(Folha(proc, QStringLiteral("cStat"), QStringLiteral("retEvento")).toInt(),
            Folha(proc, QStringLiteral("xMotivo"), QStringLiteral("retEvento")));
    registrado->nProt = Folha(proc, QStringLiteral("nProt"), QStringLiteral("retEvento"));
    registrado->dhRegEvento =
        QDateTime::fromString(Folha(proc, QStringLiteral("dhRegEvento"), QStringLiteral("retEvento")), Qt::ISODate);
    registrado->arquivo = ArquivoEvento(pasta, pedido.chave, pedido.tpEvento, pedido.nSeqEvento);
    return Gravar(registrado->arquivo, proc, erro);
}

bool TEnvioNFe::Cancelar(int estacaoCod, int compraCod, const QString &justificativa, QDateTime *dhCanc, QString *erro)
{
    d->retorno = {};
    const QString onde = QStringLiteral(" where empr_cod=%1 and estacao_cod=%2 and compra_cod=%3")
                             .arg(d->empr).arg(estacaoCod).arg(compraCod);
    const auto q = d->conexao.Ab(QStringLiteral("select nfe_chave, nfe_protocolo from compra") + onde);
    if (!q)
        return Falhar(erro, QStringLiteral("Erro lendo a nota %1: %2").arg(compraCod).arg(d->conexao.UltimoErro()));
    if (q->IsEmpty())
        return Falhar(erro, QStringLiteral("A nota %1 não existe").arg(compraCod));
    TPedidoEvento pedido;
    pedido.chave = q->FieldByName(QStringLiteral("nfe_chave")).AsString().trimmed();
    pedido.nProt = q->FieldByName(QStringLiteral("nfe_protocolo")).AsString().trimmed();
    pedido.xJust = justificativa.trimmed();
    pedido.tpEvento = Cancelamento;
    if (pedido.chave.isEmpty())
        return Falhar(erro, QStringLiteral("Esta nota não possui Chave NFE. Não é possivel enviar cancelamento"));
    if (pedido.nProt.isEmpty())
        return Falhar(erro, QStringLiteral("A NF-e desta nota não possui Protocolo de autorização. Não é possivel enviar "
                                           "cancelamento"));
    if (pedido.xJust.size() < 15 || pedido.xJust.size() > 255)
        return Falhar(erro, QStringLiteral("A justificativa do cancelamento deve ter de 15 a 255 caracteres"));
    if (!d->Preparar(erro))
        return false;
    TEventoRegistrado registrado;
    if (!d->RegistrarEvento(pedido, QStringLiteral("Cancelamento da NF-e rejeitado pela SEFAZ"), &registrado, erro))
        return false;
    if (!d->conexao.Exec(QStringLiteral("update compra set nfe_dth_canc=%1").arg(DataHoraSQLFirebird(registrado.dhRegEvento))
                         + onde))
        return Falhar(erro, QStringLiteral("Erro gravando o cancelamento na nota (o arquivo %1 foi gravado): %2")
                                .arg(registrado.arquivo, d->conexao.UltimoErro()));
    if (dhCanc)
        *dhCanc = registrado.dhRegEvento;
    return true;
}

bool TEnvioNFe::CartaCorrecao(const QString &chave, int docTipo, const QString &descricao, const QString &texto,
                              int *seq, QString *erro)
{
    d->retorno = {};
    TPedidoEvento pedido;
    pedido.chave = chave.trimmed();
    pedido.tpEvento = CCe;
    pedido.xCorrecao = texto.trimmed();
    if (pedido.xCorrecao.size() < 15 || pedido.xCorrecao.size() > 1000)
        return Falhar(erro, QStringLiteral("O texto da carta de correção deve ter de 15 a 1000 caracteres"));
    TConexaoSQL &c = d->conexao;
    const QString daChave = QStringLiteral(" where empr_cod=%1 and nfe_chave=%2").arg(d->empr).arg(QuotedStr(pedido.chave));
    const auto nota = c.Ab(QStringLiteral("select first 1 estacao_cod, compra_cod from compra") + daChave);
    // The letter not sent last time keeps its number: the authority may hold it already.
    const auto ultima = c.Ab(QStringLiteral("select first 1 nfe_corr_cod, seq, protocolo from nfe_corr") + daChave
                             + QStringLiteral(" order by seq desc"));
    if (!nota || !ultima)
        return Falhar(erro, QStringLiteral("Erro lendo as cartas de correção da NF-e %1: %2").arg(pedido.chave, c.UltimoErro()));
    if (nota->IsEmpty())
        return Falhar(erro, QStringLiteral("Nenhuma nota da empresa %1 tem a NF-e %2").arg(d->empr).arg(pedido.chave));
    const bool pendente = !ultima->IsEmpty() && ultima->FieldByName(QStringLiteral("protocolo")).AsString().trimmed().isEmpty();
    pedido.nSeqEvento = ultima->IsEmpty() ? 1 : ultima->FieldByName(QStringLiteral("seq")).AsInteger() + (pendente ? 0 : 1);
    if (pedido.nSeqEvento > MaximoCCe)
        return Falhar(erro, QStringLiteral("A NF-e %1 já tem %2 cartas de correção, o máximo permitido").arg(pedido.chave)
                                .arg(MaximoCCe));
    if (!d->Preparar(erro))
        return false;
    qint64 codigo = pendente ? ultima->FieldByName(QStringLiteral("nfe_corr_cod")).AsInt64() : 0;
    const bool gravou = pendente
        ? c.Exec(QStringLiteral("update nfe_corr set texto=%1, descr=%2, doc_tipo=%3 where empr_cod=%4 and nfe_corr_cod=%5")
                     .arg(QuotedStr(pedido.xCorrecao), QuotedStr(descricao.left(120))).arg(docTipo).arg(d->empr).arg(codigo))
        : (codigo = c.ProximoGenerator(QStringLiteral("nfe_corr_g"))) > 0
            && c.Exec(QStringLiteral("insert into nfe_corr (empr_cod, nfe_corr_cod, estacao_cod, compra_cod, doc_tipo, "
                                     "descr, nfe_chave, seq, texto) values (%1, %2, %3, %4, %5, %6, %7, %8, %9)")
                          .arg(d->empr).arg(codigo)
                          .arg(nota->FieldByName(QStringLiteral("estacao_cod")).AsInteger())
                          .arg(nota->FieldByName(QStringLiteral("compra_cod")).AsInteger()).arg(docTipo)
                          .arg(QuotedStr(descricao.left(120)), QuotedStr(pedido.chave)).arg(pedido.nSeqEvento)
                          .arg(QuotedStr(pedido.xCorrecao)));
    if (!gravou)
        return Falhar(erro, QStringLiteral("Erro gravando a carta de correção da NF-e %1: %2").arg(pedido.chave, c.UltimoErro()));
    TEventoRegistrado registrado;
    if (!d->RegistrarEvento(pedido, QStringLiteral("Carta de correção rejeitada pela SEFAZ"), &registrado, erro))
        return false;
    if (!c.Exec(QStringLiteral("update nfe_corr set protocolo=%1, dth_env=%2 where empr_cod=%3 and nfe_corr_cod=%4")
                    .arg(QuotedStr(registrado.nProt), DataHoraSQLFirebird(registrado.dhRegEvento)).arg(d->empr).arg(codigo)))
        return Falhar(erro, QStringLiteral("Erro gravando o protocolo da carta de correção (o arquivo %1 foi gravado): %2")
                                .arg(registrado.arquivo, c.UltimoErro()));
    if (seq)
        *seq = pedido.nSeqEvento;
    return true;
}
