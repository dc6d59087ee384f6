#include "TDistribuicaoNFe.h"

#include "Config.h"
#include "Contexto.h"
#include "PastaFiscal.h"
#include "TArquivoInteresse.h"
#include "TCertificadoA1.h"
#include "TConexaoSQL.h"
#include "TEventoNFe.h"
#include "TPess_Emit_Carregar_DBI.h"
#include "TServicosNFe.h"
#include "Valores.h"
#include "TnfeProc.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace {

const QString Nacional = QStringLiteral("AN");
// Answers asked of the service in one Baixar: the authority hands out at most 50 documents a time.
constexpr int MaxConsultas = 100;

bool Falhar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

QString Nsu15(const QString &nsu)
{
    return QStringLiteral("%1").arg(nsu.toLongLong(), 15, 10, QLatin1Char('0'));
}

} // namespace

struct TDistribuicaoNFe::Dados
{
    Dados(TConexaoSQL &c, int empr, TTransporteNFe *t) : conexao(c), emprCod(empr), transporte(t) {}

    TConexaoSQL &conexao;
    int emprCod;
    TTransporteNFe *transporte;
    std::unique_ptr<TCertificadoA1> certificado;
    std::unique_ptr<TTransporteNFe> transporteProprio;
    QString cnpj, uf;
    int tpAmb = 2;
    int cStat = 0;
    QString xMotivo, aviso;
    std::function<void(const QString &)> progresso;

    bool Preparar(QString *erro);
    bool AbrirCertificado(QString *erro);
    // The answer's cStat and xMotivo kept; false with erro when the service gave none.
    bool Respondeu(const TRetornoSefaz &ret, QString *erro);
    void Progresso(const QString &texto) const
    {
        if (progresso)
            progresso(texto);
    }
};

bool TDistribuicaoNFe::Dados::Preparar(QString *erro)
{
    if (cnpj.isEmpty()) {
        TPess_Emit emitente;
        if (!TPess_Emit_Carregar_DBI::Carregar(conexao, emprCod, emitente, erro))
            return false;
        tpAmb = Config::Valor(conexao, QStringLiteral("NFE_AMBIENTE")) == QLatin1String("1") ? 1 : 2;
        uf = emitente.ender.UF;
        cnpj = emitente.CNPJ.isEmpty() ? emitente.CPF : emitente.CNPJ;
        if (cnpj.isEmpty())
            return Falhar(erro, QStringLiteral("A empresa %1 não tem CNPJ cadastrado").arg(emprCod));
    }
    if (!transporte) {
        if (!AbrirCertificado(erro))
            return false;
        transporteProprio = std::make_unique<TTransporteSoap>(*certificado);
        transporte = transporteProprio.get();
    }
    return true;
}

bool TDistribuicaoNFe::Dados::AbrirCertificado(QString *erro)
{
    if (certificado)
        return true;
    const TOrigemCertificado origem = OrigemCertificado(emprCod);
    if (origem.arquivo.isEmpty())
        return Falhar(erro, MensagemSemCertificado);
    certificado = TCertificadoA1::Abrir(origem.arquivo, origem.senha, erro);
    if (certificado && !certificado->Aceitar(cnpj, Contexto::Atual().Agora(), tpAmb, erro))
        certificado.reset();
    return certificado != nullptr;
}

bool TDistribuicaoNFe::Dados::Respondeu(const TRetornoSefaz &ret, QString *erro)
{
    cStat = ret.cStat;
    xMotivo = ret.xMotivo;
    if (!ret.transporte.Ok())
        return Falhar(erro, ret.transporte.erro);
    if (ret.cStat == 0)
        return Falhar(erro, QStringLiteral("A SEFAZ (AN) respondeu sem código de situação"));
    return true;
}

TDistribuicaoNFe::TDistribuicaoNFe(TConexaoSQL &conexao, int emprCod, TTransporteNFe *transporte)
    : d(new Dados(conexao, emprCod, transporte))
{
}

TDistribuicaoNFe::~TDistribuicaoNFe() { delete d; }

QString TDistribuicaoNFe::PastaDestino(QString *erro)
{
    const QString fiscal = PastaFiscal(erro);
    return fiscal.isEmpty() ? QString() : fiscal + QStringLiteral("NFe_Dest/");
}

bool TDistribuicaoNFe::Baixar(QList<TNFeDeInteresse> *novos, QString *erro)
{
    const QString pasta = PastaDestino(erro);
    if (pasta.isEmpty() || !d->Preparar(erro))
        return false;
    const QString chaveNsu = QStringLiteral("NFE_ULT_NSU_%1").arg(d->emprCod);
    const auto lido = d->conexao.Ab(QStringLiteral("select valor from config where chave=") + QuotedStr(chaveNsu));
    if (!lido)
        return Falhar(erro, QStringLiteral("Erro lendo o último NSU recebido (%1): %2").arg(chaveNsu, d->conexao.UltimoErro()));
    QString ultNsu = Nsu15(lido->IsEmpty() ? QString() : lido->Fields(0).AsString().trimmed());

    TServicosNFe servicos(*d->transporte, d->uf, d->tpAmb);
    for (int consulta = 0; consulta < MaxConsultas; ++consulta) {
        d->Progresso(QStringLiteral("Consultando documentos a partir do NSU %1...").arg(ultNsu));
        const TRetornoDistribuicao ret = servicos.Distribuicao(d->cnpj, ultNsu);
        if (!d->Respondeu(ret, erro))
            return false;
        if (ret.cStat == 137)
            return true;
        if (ret.cStat == 656)
            return Falhar(erro, QStringLiteral("A SEFAZ recusou a consulta por consumo indevido: %1 - %2. Aguarde uma hora antes "
                                               "de consultar de novo.").arg(ret.cStat).arg(ret.xMotivo));
        if (ret.cStat != 138)
            return Falhar(erro, QStringLiteral("Distribuição de DF-e rejeitada pela SEFAZ: %1 - %2").arg(ret.cStat).arg(ret.xMotivo));
        d->Progresso(QStringLiteral("Gravando %1 documentos...").arg(ret.documentos.size()));
        for (const TDocumentoDistribuido &recebido : ret.documentos) {
            TNFeDeInteresse doc;
            QString motivo;
            if (!TArquivoInteresse::Ler(recebido.xml, &doc, &motivo))
                return Falhar(erro, QStringLiteral("Documento de NSU %1 (%2) ilegível: %3").arg(recebido.nsu, recebido.schema, motivo));
            doc.nsu = recebido.nsu;
            if (!TArquivoInteresse::Gravar(pasta, recebido.xml, &doc, erro))
                return false;
            if (novos)
                *novos << doc;
        }
        // Only now: a document not filed is asked for again next time.
        const QString novoNsu = Nsu15(ret.ultNSU);
        if (!d->conexao.Exec(QStringLiteral("update or insert into config (chave, valor) values (%1, %2) matching (chave)")
                                 .arg(QuotedStr(chaveNsu), QuotedStr(novoNsu))))
            return Falhar(erro, QStringLiteral("Os documentos foram gravados, mas não o último NSU recebido (%1): %2")
                                    .arg(novoNsu, d->conexao.UltimoErro()));
        if (novoNsu <= ultNsu || novoNsu >= Nsu15(ret.maxNSU))
            return true;
        ultNsu = novoNsu;
    }
    return true;
}

QList<TNFeDeInteresse> TDistribuicaoNFe::Listar() const
{
    const QString pasta = PastaDestino(nullptr);
    return pasta.isEmpty() ? QList<TNFeDeInteresse>{} : TArquivoInteresse::Listar(pasta);
}

bool TDistribuicaoNFe::Manifestar(const QString &chave, TManifestacao tipo, const QString &justificativa, QString *erro)
{
    d->aviso.clear();
    if (chave.trimmed().size() != 44)
        return Falhar(erro, QStringLiteral("A chave deve ter 44 caracteres"));
    const QString xJust = justificativa.trimmed();
    if (tipo == TManifestacao::NaoRealizada && (xJust.size() < 15 || xJust.size() > 255))
        return Falhar(erro, QStringLiteral("A justificativa deve ter de 15 a 255 caracteres"));
    const QString pasta = PastaDestino(erro);
    if (pasta.isEmpty() || !d->Preparar(erro) || !d->AbrirCertificado(erro))
        return false;

    TPedidoEvento pedido;
    pedido.chave = chave.trimmed();
    pedido.cnpj = d->cnpj;
    pedido.cOrgao = 91;
    pedido.tpAmb = d->tpAmb;
    pedido.tpEvento = int(tipo);
    pedido.dhEvento = Contexto::Atual().Agora();
    if (tipo == TManifestacao::NaoRealizada)
        pedido.xJust = xJust;
    QByteArray assinado;
    if (!TEventoNFe::MontarAssinado(pedido, *d->certificado, &assinado, erro))
        return false;
    d->Progresso(QStringLiteral("Enviando a manifestação da NF-e %1...").arg(pedido.chave));
    TServicosNFe servicos(*d->transporte, d->uf, d->tpAmb);
    const TRetornoEvento ret = servicos.EnviarEvento(Nacional, assinado, QDateTime::currentMSecsSinceEpoch());
    if (!d->Respondeu(ret, erro))
        return false;
    if (ret.cStatEvento != 0) {
        d->cStat = ret.cStatEvento;
        d->xMotivo = ret.xMotivoEvento;
    }
    if (ret.cStat != 128 || (ret.cStatEvento != 135 && ret.cStatEvento != 136))
        return Falhar(erro, QStringLiteral("Manifestação rejeitada pela SEFAZ: %1 - %2").arg(d->cStat).arg(d->xMotivo));

    TNFeDeInteresse evento;
    evento.chave = pedido.chave;
    evento.tipo = QStringLiteral("evento");
    evento.tpEvento = pedido.tpEvento;
    evento.nSeqEvento = pedido.nSeqEvento;
    if (!TArquivoInteresse::Gravar(pasta, TEventoNFe::MontarProc(assinado, ret.retEvento), &evento, erro))
        return Falhar(erro, QStringLiteral("A manifestação foi registrada (%1), mas %2").arg(ret.nProt, *erro));
    if (tipo == TManifestacao::Ciencia || tipo == TManifestacao::Confirmacao) {
        const int cStat = d->cStat;
        const QString xMotivo = d->xMotivo;
        QString motivo;
        if (BaixarPorChave(pedido.chave, QString(), &motivo).isEmpty())
            d->aviso = QStringLiteral("O XML completo da NF-e %1 ainda não foi baixado: %2").arg(pedido.chave, motivo);
        d->cStat = cStat;
        d->xMotivo = xMotivo;
    }
    return true;
}

QString TDistribuicaoNFe::BaixarPorChave(const QString &chave, const QString &pastaDestino, QString *erro)
{
    const QString pasta = PastaDestino(erro);
    if (pasta.isEmpty() || !d->Preparar(erro))
        return {};
    d->Progresso(QStringLiteral("Baixando a NF-e %1...").arg(chave));
    TServicosNFe servicos(*d->transporte, d->uf, d->tpAmb);
    const TRetornoDistribuicao ret = servicos.DistribuicaoPorChave(d->cnpj, chave);
    if (!d->Respondeu(ret, erro))
        return {};
    if (ret.cStat != 138) {
        Falhar(erro, QStringLiteral("A SEFAZ não entregou a NF-e %1: %2 - %3").arg(chave).arg(ret.cStat).arg(ret.xMotivo));
        return {};
    }
    QString completo;
    for (const TDocumentoDistribuido &recebido : ret.documentos) {
        TNFeDeInteresse doc;
        if (!TArquivoInteresse::Ler(recebido.xml, &doc, nullptr) || doc.chave != chave)
            continue;
        if (!TArquivoInteresse::Gravar(pasta, recebido.xml, &doc, erro))
            return {};
        if (doc.tipo == QLatin1String("nfe"))
            completo = doc.arquivo;
    }
    if (completo.isEmpty()) {
        Falhar(erro, QStringLiteral("A SEFAZ só tem o resumo da NF-e %1: manifeste a Ciência da Operação antes de baixar o XML completo")
                         .arg(chave));
        return {};
    }
    if (pastaDestino.isEmpty() || QDir(pastaDestino) == QDir(pasta) || QDir(pastaDestino) == QDir(PastaFiscal()))
        return completo;
    const QString copia = QDir(pastaDestino).filePath(QFileInfo(completo).fileName());
    QFile::remove(copia);
    if (!QDir().mkpath(pastaDestino) || !QFile::copy(completo, copia)) {
        Falhar(erro, QStringLiteral("Não foi possível gravar o arquivo %1").arg(QDir::toNativeSeparators(copia)));
        return {};
    }
    return copia;
}

int TDistribuicaoNFe::UltimoCStat() const { return d->cStat; }
QString TDistribuicaoNFe::UltimoXMotivo() const { return d->xMotivo; }
QString TDistribuicaoNFe::UltimoAviso() const { return d->aviso; }

void TDistribuicaoNFe::DefinirProgresso(std::function<void(const QString &)> progresso)
{
    d->progresso = std::move(progresso);
}
