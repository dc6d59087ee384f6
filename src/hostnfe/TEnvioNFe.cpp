#include "TEnvioNFe.h"

#include "Config.h"
#include "Contexto.h"
#include "Dialogos.h"
#include "PastaFiscal.h"
#include "TConexaoSQL.h"
#include "TEmissorNFe.h"
#include "TEnderecosNFe.h"
#include "TEnvioNFe_Partes.h"
#include "TNFeMontar_DBI.h"
#include "Valores.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QXmlStreamReader>

#include <optional>

using namespace EnvioNFe;

namespace {

bool Denegada(int cStat)
{
    return cStat == 110 || cStat == 301 || cStat == 302 || cStat == 303;
}

QString NomeContingencia(const QString &autorizador)
{
    return autorizador == QLatin1String("SVCRS") ? QStringLiteral("SVC-RS") : QStringLiteral("SVC-AN");
}

QString Rejeicao(int cStat, const QString &xMotivo)
{
    return QStringLiteral("NF-e rejeitada pela SEFAZ: %1 - %2").arg(cStat).arg(xMotivo);
}

} // namespace

namespace EnvioNFe {

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

QString PastaDaChave(const QString &chave, QString *erro)
{
    const QString fiscal = PastaFiscal(erro);
    if (fiscal.isEmpty())
        return {};
    return fiscal + QStringLiteral("NFe_Said/20%1/%2/").arg(chave.mid(2, 2), chave.mid(4, 2));
}

QString ArquivoEvento(const QString &pasta, const QString &chave, int tpEvento, int seq)
{
    return pasta + QStringLiteral("%1-%2-%3-procEventoNFe.xml").arg(chave).arg(tpEvento).arg(seq, 2, 10, QLatin1Char('0'));
}

bool Gravar(const QString &arquivo, const QByteArray &bytes, QString *erro)
{
    QSaveFile f(arquivo);
    if (QDir().mkpath(QFileInfo(arquivo).absolutePath()) && f.open(QIODevice::WriteOnly)
        && f.write(bytes) == bytes.size() && f.commit())
        return true;
    return Falhar(erro, QStringLiteral("Não foi possível gravar o arquivo %1: %2").arg(arquivo, f.errorString()));
}

bool Ler(const QString &arquivo, QByteArray *bytes, QString *erro)
{
    QFile f(arquivo);
    if (!f.open(QIODevice::ReadOnly))
        return Falhar(erro, QStringLiteral("Não foi possível ler o arquivo %1: %2").arg(arquivo, f.errorString()));
    *bytes = f.readAll();
    return true;
}

QString Folha(const QByteArray &xml, const QString &nome, const QString &dentroDe)
{
    QXmlStreamReader r(xml);
    int dentro = 0;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement()) {
            if (!dentroDe.isEmpty() && r.name() == dentroDe)
                ++dentro;
            else if (r.name() == nome && (dentroDe.isEmpty() || dentro > 0))
                return r.readElementText();
        } else if (r.isEndElement() && !dentroDe.isEmpty() && r.name() == dentroDe) {
            --dentro;
        }
    }
    return {};
}

QString FalhaComunicacao(const TRetornoSefaz &r)
{
    if (!r.transporte.Ok())
        return r.transporte.erro;
    return QStringLiteral("A resposta da SEFAZ não trouxe o código da situação (cStat)");
}

} // namespace EnvioNFe

bool TEnvioNFe::Dados::Preparar(QString *erro)
{
    if (servicos)
        return true;
    const auto q = conexao.Ab(QStringLiteral("select uf, cnpj from empr where empr_cod=%1").arg(empr));
    if (!q)
        return Falhar(erro, QStringLiteral("Erro lendo a empresa %1: %2").arg(empr).arg(conexao.UltimoErro()));
    if (q->IsEmpty())
        return Falhar(erro, QStringLiteral("A empresa %1 não existe").arg(empr));
    uf = q->FieldByName(QStringLiteral("uf")).AsString().trimmed();
    cnpj = q->FieldByName(QStringLiteral("cnpj")).AsString().trimmed();
    tpAmb = Config::Valor(conexao, QStringLiteral("NFE_AMBIENTE")).trimmed() == QLatin1String("1") ? 1 : 2;
    if (!certificado) {
        const TOrigemCertificado origem = OrigemCertificado(empr);
        if (origem.arquivo.isEmpty())
            return Falhar(erro, MensagemSemCertificado);
        certificado = TCertificadoA1::Abrir(origem.arquivo, origem.senha, erro);
        if (!certificado)
            return false;
    }
    if (!transporte) {
        transporteProprio = std::make_unique<TTransporteSoap>(*certificado);
        transporte = transporteProprio.get();
    }
    servicos = std::make_unique<TServicosNFe>(*transporte, uf, tpAmb);
    return true;
}

void TEnvioNFe::Dados::Progresso(const QString &titulo) const
{
    if (progresso)
        progresso(titulo);
}

QString TEnvioNFe::Dados::AutorizadorDaChave(const QString &chave) const
{
    const QChar tpEmis = chave.size() == 44 ? chave.at(34) : QChar(u'1');
    if (tpEmis == u'6')
        return QStringLiteral("SVCAN");
    if (tpEmis == u'7')
        return QStringLiteral("SVCRS");
    return TEnderecosNFe::Autorizador(uf);
}

QString TEnvioNFe::Dados::CodigoUF() const
{
    return NumeracaoNFe::CodigoUF(uf);
}

qint64 TEnvioNFe::Dados::NovoLote() const
{
    return Contexto::Atual().Agora().toMSecsSinceEpoch() % 1000000000000000LL;
}

TEnvioNFe::TEnvioNFe(TConexaoSQL &conexao, int emprCod, TTransporteNFe *transporte)
    : d(new Dados(conexao, emprCod, transporte))
{
}

TEnvioNFe::~TEnvioNFe() { delete d; }

void TEnvioNFe::DefinirProgresso(TProgresso progresso) { d->progresso = std::move(progresso); }

TRetornoNFe TEnvioNFe::UltimoRetorno() const { return d->retorno; }

bool TEnvioNFe::Status(QString *erro)
{
    d->retorno = {};
    if (!d->Preparar(erro))
        return false;
    d->Progresso(QStringLiteral("Consultando o status da SEFAZ..."));
    const QString autorizador = TEnderecosNFe::Autorizador(d->uf);
    const TRetornoSefaz r = d->servicos->Status(autorizador);
    if (!r.Respondeu())
        return Falhar(erro, FalhaComunicacao(r));
    d->Guardar(r.cStat, r.xMotivo);
    if (r.cStat != 107)
        return Falhar(erro, QStringLiteral("A SEFAZ (%1) não está em operação: %2 - %3").arg(autorizador).arg(r.cStat).arg(r.xMotivo));
    return true;
}

// One send of one note: what it read of the note and how far it got.
class TEnvioNFe::TEnvio
{
public:
    TEnvio(Dados &dados, int estacaoCod, int compraCod) : d(dados), m_estacao(estacaoCod), m_compra(compraCod) {}

    // The protocol attached to the filed document, filed beside it and kept on the note.
    bool Registrar(const QString &arquivoNfe, const TProtocoloNFe &prot, TNFeAutorizada *saida, QString *erro)
    {
        QByteArray assinado, proc;
        if (!Ler(arquivoNfe, &assinado, erro) || !MontarNfeProc(assinado, prot, &proc, erro))
            return false;
        QString arquivo = arquivoNfe;
        arquivo.replace(QStringLiteral("-nfe.xml"), QStringLiteral("-procNFe.xml"));
        if (!Gravar(arquivo, proc, erro))
            return false;
        const QDateTime dhEmi = QDateTime::fromString(Folha(assinado, QStringLiteral("dhEmi")), Qt::ISODate);
        if (!d.conexao.Exec(QStringLiteral("update compra set nfe_protocolo=%1, nfe_dth_emiss=%2 where empr_cod=%3 "
                                           "and estacao_cod=%4 and compra_cod=%5")
                                .arg(QuotedStr(prot.nProt), DataHoraSQLFirebird(dhEmi)).arg(d.empr).arg(m_estacao)
                                .arg(m_compra)))
            return Falhar(erro, QStringLiteral("Erro gravando o protocolo %1 na nota (o arquivo %2 foi gravado): %3")
                                    .arg(prot.nProt, arquivo, d.conexao.UltimoErro()));
        if (saida)
            *saida = {dhEmi, prot.chNFe.mid(25, 9).toLongLong(), prot.chNFe, prot.nProt, arquivo};
        return true;
    }

    // The authority's protocol for a key, asked by key; nullopt with erro when it has none.
    // naoConhece: true when it answered that it does not know the key (217).
    std::optional<TProtocoloNFe> Consultar(const QString &chave, bool *naoConhece, QString *erro)
    {
        d.Progresso(QStringLiteral("Consultando NF-e na SEFAZ..."));
        const TRetornoConsulta r = d.servicos->Consultar(d.AutorizadorDaChave(chave), chave);
        *naoConhece = r.Respondeu() && r.cStat == 217;
        if (!r.Respondeu()) {
            Falhar(erro, FalhaComunicacao(r));
            return std::nullopt;
        }
        d.Guardar(r.cStat, r.xMotivo);
        if (!r.protocolo || r.protocolo->chNFe != chave) {
            Falhar(erro, QStringLiteral("Consulta da NF-e %1 na SEFAZ: %2 - %3").arg(chave).arg(r.cStat).arg(r.xMotivo));
            return std::nullopt;
        }
        return r.protocolo;
    }

    // What an authorisation or a consultation gave: authorised, denied or refused.
    bool Concluir(const QString &arquivoNfe, const TProtocoloNFe &prot, TNFeAutorizada *saida, QString *erro)
    {
        d.Guardar(prot.cStat, prot.xMotivo);
        if (prot.cStat == 100)
            return Registrar(arquivoNfe, prot, saida, erro);
        if (Denegada(prot.cStat)) {
            if (!Registrar(arquivoNfe, prot, nullptr, erro))
                return false;
            return Falhar(erro, QStringLiteral("Uso da NF-e denegado pela SEFAZ: %1 - %2. A denegação (protocolo %3) foi "
                                               "registrada na nota").arg(prot.cStat).arg(prot.xMotivo, prot.nProt));
        }
        return Falhar(erro, Rejeicao(prot.cStat, prot.xMotivo));
    }

    Dados &d;
    int m_estacao, m_compra;
};

bool TEnvioNFe::Enviar(int estacaoCod, int compraCod, int finalidade, int tipoCod, TNFeAutorizada *autorizada,
                       QString *erro)
{
    d->retorno = {};
    const auto q = d->conexao.Ab(QStringLiteral("select cancelado, nfe_protocolo, nfe_chave from compra where empr_cod=%1 "
                                                "and estacao_cod=%2 and compra_cod=%3")
                                     .arg(d->empr).arg(estacaoCod).arg(compraCod));
    if (!q)
        return Falhar(erro, QStringLiteral("Erro lendo a nota %1: %2").arg(compraCod).arg(d->conexao.UltimoErro()));
    if (q->IsEmpty())
        return Falhar(erro, QStringLiteral("A nota %1 não existe").arg(compraCod));
    if (q->FieldByName(QStringLiteral("cancelado")).AsString().trimmed() == QLatin1String("S"))
        return Falhar(erro, QStringLiteral("Esta venda foi cancelada. Não é possivel gerar o NFe"));
    if (!q->FieldByName(QStringLiteral("nfe_protocolo")).AsString().trimmed().isEmpty())
        return Falhar(erro, QStringLiteral("Esta venda já possui Protocolo NFE. Não pode mais ser enviada"));
    if (!d->Preparar(erro))
        return false;
    TEnvio envio(*d, estacaoCod, compraCod);

    // Sent before, maybe without an answer: the authority may already hold it, so ask first.
    const QString chaveAnterior = q->FieldByName(QStringLiteral("nfe_chave")).AsString().trimmed();
    if (chaveAnterior.size() == 44) {
        bool naoConhece = false;
        QString motivo;
        const auto prot = envio.Consultar(chaveAnterior, &naoConhece, &motivo);
        if (prot) {
            const QString pasta = PastaDaChave(chaveAnterior, erro);
            return !pasta.isEmpty()
                && envio.Concluir(pasta + chaveAnterior + QStringLiteral("-nfe.xml"), *prot, autorizada, erro);
        }
        if (!naoConhece)
            return Falhar(erro, motivo + QStringLiteral(". A NF-e já emitida (%1) não foi reenviada: tente novamente")
                                             .arg(chaveAnterior));
    }

    TOpcoesEmissao opcoes;
    opcoes.progresso = d->progresso;
    QString autorizador = TEnderecosNFe::Autorizador(d->uf);
    for (;;) {
        TNFeEmitida emitida;
        if (!TEmissorNFe(d->conexao).Emitir(d->empr, estacaoCod, compraCod, finalidade, tipoCod, d->certificado.get(),
                                            &emitida, erro, opcoes))
            return false;
        QByteArray assinado;
        if (!Ler(emitida.arquivo, &assinado, erro))
            return false;
        d->Progresso(QStringLiteral("Enviando NF-e à SEFAZ..."));
        const TRetornoAutorizacao r = d->servicos->Autorizar(autorizador, assinado, d->NovoLote());
        using TFalha = TRespostaTransporte::TFalha;
        // Only a refused connection proves nothing arrived; after a time-out the first document
        // may be authorised, and a contingency one would issue the note twice.
        const bool foraDeServico = r.transporte.falha == TFalha::Recusada
            || (r.Respondeu() && (r.cStat == 108 || r.cStat == 109));
        if (foraDeServico && opcoes.tpEmis == 1) {
            const QString contingencia = TEnderecosNFe::Contingencia(d->uf);
            const QString motivo = r.Respondeu() ? QStringLiteral("%1 - %2").arg(r.cStat).arg(r.xMotivo) : r.transporte.erro;
            if (r.Respondeu())
                d->Guardar(r.cStat, r.xMotivo);
            if (!Pergunta(QStringLiteral("A SEFAZ (%1) não está atendendo: %2\nDeseja emitir a NF-e em contingência pelo %3?")
                              .arg(autorizador, motivo, NomeContingencia(contingencia))))
                return Falhar(erro, QStringLiteral("A NF-e não foi autorizada: a SEFAZ (%1) não está atendendo: %2")
                                        .arg(autorizador, motivo));
            opcoes.tpEmis = contingencia == QLatin1String("SVCRS") ? 7 : 6;
            opcoes.dhCont = Contexto::Atual().Agora();
            opcoes.xJust = QStringLiteral("SEFAZ %1 sem atendimento: %2").arg(autorizador, motivo).simplified().left(256);
            autorizador = contingencia;
            continue;
        }
        if (r.transporte.falha == TFalha::SemResposta || r.transporte.falha == TFalha::RespostaInvalida) {
            QString texto = r.transporte.erro;
            if (!texto.endsWith(u'.'))
                texto += u'.';
            return Falhar(erro, texto + QStringLiteral(" A NF-e será consultada antes de um novo envio."));
        }
        if (!r.Respondeu())
            return Falhar(erro, FalhaComunicacao(r));
        d->Guardar(r.cStat, r.xMotivo);
        if (r.cStat == 104 && r.protocolo)
            return envio.Concluir(emitida.arquivo, *r.protocolo, autorizada, erro);
        if (r.cStat == 204 || r.cStat == 539) {
            // A resend the transport made by itself, or an earlier send that did arrive.
            bool naoConhece = false;
            QString motivo;
            const auto prot = envio.Consultar(emitida.chave, &naoConhece, &motivo);
            if (prot && prot->cStat == 100 && prot->digVal == Folha(assinado, QStringLiteral("DigestValue")))
                return envio.Concluir(emitida.arquivo, *prot, autorizada, erro);
            d->Guardar(r.cStat, r.xMotivo);
            return Falhar(erro, Rejeicao(r.cStat, r.xMotivo));
        }
        return Falhar(erro, Rejeicao(r.cStat, r.xMotivo));
    }
}
