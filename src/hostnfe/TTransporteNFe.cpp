#include "TTransporteNFe.h"

#include "ElementoXml.h"
#include "TCertificadoA1.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTimer>

namespace {

using TFalha = TRespostaTransporte::TFalha;

const QString kWsdl = QStringLiteral("http://www.portalfiscal.inf.br/nfe/wsdl/");

QByteArray Envelope(const TServicoNFe &servico, const QByteArray &mensagem)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
           "<soap12:Envelope xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
           "xmlns:soap12=\"http://www.w3.org/2003/05/soap-envelope\"><soap12:Body>"
           "<nfeDadosMsg xmlns=\"" + (kWsdl + servico.operacao).toUtf8() + "\">"
           + SemDeclaracaoXml(mensagem) + "</nfeDadosMsg></soap12:Body></soap12:Envelope>";
}

QString Onde(const TServicoNFe &servico)
{
    return QStringLiteral("SEFAZ (%1)").arg(servico.autorizador);
}

QString Segundos(int ms)
{
    return ms % 1000 == 0 ? QStringLiteral("%1 s").arg(ms / 1000) : QStringLiteral("%1 ms").arg(ms);
}

TRespostaTransporte Falha(TFalha falha, const QString &erro)
{
    TRespostaTransporte r;
    r.falha = falha;
    r.erro = erro;
    return r;
}

// The message inside nfeResultMsg, or why the body is not one.
TRespostaTransporte LerCorpo(const TServicoNFe &servico, const QByteArray &corpo, int statusHttp, const QString &tipo)
{
    const QString url = servico.url.toString();
    const QString http = statusHttp ? QStringLiteral(" (HTTP %1)").arg(statusHttp) : QString();
    const QByteArray inicio = SemDeclaracaoXml(corpo).left(200).toLower();
    if (tipo.contains(QLatin1String("html"), Qt::CaseInsensitive) || inicio.startsWith("<!doctype html") || inicio.startsWith("<html"))
        return Falha(TFalha::RespostaInvalida, QStringLiteral("A %1 respondeu uma página HTML em vez de SOAP%2: %3")
                                                   .arg(Onde(servico), http, url));
    TElementoXml envelope;
    QString erroXml;
    if (corpo.trimmed().isEmpty() || !LerElementoXml(corpo, &envelope, &erroXml))
        return Falha(TFalha::RespostaInvalida,
                     QStringLiteral("Resposta incompleta ou mal formada da %1%2: %3 (%4)")
                         .arg(Onde(servico), http, url, corpo.trimmed().isEmpty() ? QStringLiteral("vazia") : erroXml));
    const TElementoXml *body = envelope.nome == QLatin1String("Envelope") ? envelope.Filho(QStringLiteral("Body")) : nullptr;
    if (!body)
        return Falha(TFalha::RespostaInvalida, QStringLiteral("A %1 respondeu algo que não é SOAP (%2)%3: %4")
                                                   .arg(Onde(servico), envelope.nome, http, url));
    if (const TElementoXml *fault = body->Filho(QStringLiteral("Fault"))) {
        const TElementoXml *razao = fault->Procurar(QStringLiteral("Text"));
        const QString texto = (razao ? razao->texto : fault->Texto(QStringLiteral("faultstring"))).trimmed();
        return Falha(TFalha::RespostaInvalida, QStringLiteral("A %1 recusou o pedido (SOAP Fault%2): %3 - %4")
                                                   .arg(Onde(servico), http, url, texto));
    }
    const TElementoXml *resultado = body->Filho(QStringLiteral("nfeResultMsg"));
    if (!resultado || resultado->filhos.isEmpty())
        return Falha(TFalha::RespostaInvalida, QStringLiteral("A resposta da %1%2 não traz nfeResultMsg: %3")
                                                   .arg(Onde(servico), http, url));
    if (statusHttp != 200)
        return Falha(TFalha::RespostaInvalida, QStringLiteral("A %1 respondeu HTTP %2: %3").arg(Onde(servico)).arg(statusHttp).arg(url));
    TRespostaTransporte r;
    r.mensagem = resultado->filhos.first().Bytes();
    return r;
}

// The request's body, readable once. Qt sends a POST again by itself when a connection closes
// without an answer; with a body it cannot rewind it reports ContentReSendError instead, so an
// authorisation never reaches the authority twice from here.
class TCorpoUmaVez final : public QIODevice
{
public:
    TCorpoUmaVez(const QByteArray &bytes, QObject *pai) : QIODevice(pai), m_bytes(bytes) { open(QIODevice::ReadOnly); }
    bool isSequential() const override { return true; }
    bool reset() override { return false; }
    qint64 bytesAvailable() const override { return m_bytes.size() - m_lido + QIODevice::bytesAvailable(); }

protected:
    qint64 readData(char *dados, qint64 maximo) override
    {
        const qint64 n = qMin(maximo, qint64(m_bytes.size()) - m_lido);
        if (n <= 0)
            return -1;
        memcpy(dados, m_bytes.constData() + m_lido, size_t(n));
        m_lido += n;
        return n;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    qint64 m_lido = 0;
};

} // namespace

struct TTransporteSoap::Dados
{
    QNetworkAccessManager rede;
    QSslConfiguration tls;
    QString erroConfiguracao;   // nothing is sent while set
    int tempoLimiteMs = 30000;
};

TTransporteSoap::TTransporteSoap(const TCertificadoA1 &certificado, int tempoLimiteMs) : d(new Dados)
{
    d->tempoLimiteMs = tempoLimiteMs;
    d->tls = QSslConfiguration::defaultConfiguration();
    d->tls.setProtocol(QSsl::TlsV1_2OrLater);
    d->tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    d->tls.setLocalCertificate(QSslCertificate(certificado.CertificadoPem(), QSsl::Pem));
    const QByteArray chavePem = certificado.ChavePrivadaPem();
    QSslKey chave(chavePem, QSsl::Rsa, QSsl::Pem);
    if (chave.isNull())
        chave = QSslKey(chavePem, QSsl::Ec, QSsl::Pem);
    if (d->tls.localCertificate().isNull() || chave.isNull())
        d->erroConfiguracao = QStringLiteral("O certificado da empresa não pode ser usado na conexão com a SEFAZ (%1)")
                                  .arg(certificado.Titular());
    d->tls.setPrivateKey(chave);

    // Only these roots when given: setCaCertificates also stops the system's being loaded.
    const QString ca = qEnvironmentVariable("PAVREL_NFE_CA");
    if (!ca.isEmpty()) {
        const QList<QSslCertificate> raizes = QSslCertificate::fromPath(ca, QSsl::Pem);
        if (raizes.isEmpty())
            d->erroConfiguracao = QStringLiteral("Não foi possível ler as autoridades confiáveis da SEFAZ em %1 (PAVREL_NFE_CA)").arg(ca);
        d->tls.setCaCertificates(raizes);
    }
    d->rede.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

TTransporteSoap::~TTransporteSoap() { delete d; }

TRespostaTransporte TTransporteSoap::Postar(const TServicoNFe &servico, const QByteArray &mensagem)
{
    const QString url = servico.url.toString();
    if (!d->erroConfiguracao.isEmpty())
        return Falha(TFalha::Recusada, d->erroConfiguracao);
    if (servico.url.scheme() != QLatin1String("https"))
        return Falha(TFalha::Recusada, QStringLiteral("O endereço da %1 não é HTTPS: %2").arg(Onde(servico), url));

    QNetworkRequest pedido(servico.url);
    pedido.setSslConfiguration(d->tls);
    pedido.setHeader(QNetworkRequest::ContentTypeHeader,
                     QStringLiteral("application/soap+xml; charset=utf-8; action=\"%1%2/%3\"")
                         .arg(kWsdl, servico.operacao, servico.metodo));
    // Older servers: plain HTTP/1.1, one request per connection, nothing cached or followed.
    pedido.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    pedido.setAttribute(QNetworkRequest::HttpPipeliningAllowedAttribute, false);
    pedido.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    pedido.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    pedido.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    pedido.setRawHeader("Connection", "close");
    pedido.setTransferTimeout(d->tempoLimiteMs);
    const QByteArray envelope = Envelope(servico, mensagem);
    pedido.setHeader(QNetworkRequest::ContentLengthHeader, envelope.size());
    pedido.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);

    auto *corpo = new TCorpoUmaVez(envelope, nullptr);
    QNetworkReply *resposta = d->rede.post(pedido, corpo);
    corpo->setParent(resposta);
    bool enviado = false, expirou = false;
    QStringList errosTls;
    QEventLoop espera;
    QTimer limite;
    limite.setSingleShot(true);
    QObject::connect(resposta, &QNetworkReply::uploadProgress, resposta, [&](qint64 feito, qint64 total) {
        enviado = enviado || (total > 0 && feito == total);
    });
    QObject::connect(resposta, &QNetworkReply::sslErrors, resposta, [&](const QList<QSslError> &erros) {
        for (const QSslError &e : erros)
            errosTls << e.errorString();
    });
    QObject::connect(&limite, &QTimer::timeout, resposta, [&] {
        expirou = true;
        resposta->abort();
    });
    QObject::connect(resposta, &QNetworkReply::finished, &espera, &QEventLoop::quit);
    limite.start(d->tempoLimiteMs);
    if (!resposta->isFinished())
        espera.exec(QEventLoop::ExcludeUserInputEvents);
    limite.stop();

    const QNetworkReply::NetworkError erro = resposta->error();
    const int statusHttp = resposta->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QByteArray lido = resposta->isOpen() ? resposta->readAll() : QByteArray();
    const QString tipo = resposta->header(QNetworkRequest::ContentTypeHeader).toString();
    const QString textoQt = resposta->errorString();
    resposta->deleteLater();

    // An incomplete request cannot have been processed: only a written one may have arrived.
    if (expirou || erro == QNetworkReply::OperationCanceledError || erro == QNetworkReply::TimeoutError)
        return enviado ? Falha(TFalha::SemResposta, QStringLiteral("A %1 não respondeu em %2: %3").arg(Onde(servico), Segundos(d->tempoLimiteMs), url))
                       : Falha(TFalha::Recusada, QStringLiteral("A %1 não completou a conexão em %2: %3").arg(Onde(servico), Segundos(d->tempoLimiteMs), url));
    // TLS 1.3 reports a client certificate refused by the server as a read error after the handshake.
    const bool tlsRecusado = erro == QNetworkReply::SslHandshakeFailedError
                             || (statusHttp == 0 && textoQt.contains(QLatin1String("SSL routines")));
    if (!errosTls.isEmpty() || tlsRecusado)
        return Falha(TFalha::Recusada, QStringLiteral("Conexão segura com a %1 recusada: %2 (%3)")
                                           .arg(Onde(servico), url, errosTls.isEmpty() ? textoQt : errosTls.join(QStringLiteral("; "))));
    if (statusHttp == 0) {
        if ((erro == QNetworkReply::RemoteHostClosedError || erro == QNetworkReply::ContentReSendError) && enviado)
            return Falha(TFalha::SemResposta, QStringLiteral("A %1 fechou a conexão sem responder: %2").arg(Onde(servico), url));
        if (erro != QNetworkReply::NoError)
            return Falha(TFalha::Recusada, QStringLiteral("Não foi possível conectar à %1: %2 (%3)").arg(Onde(servico), url, textoQt));
    }
    if (statusHttp >= 300 && statusHttp < 400)
        return Falha(TFalha::RespostaInvalida, QStringLiteral("A %1 respondeu com um redirecionamento (HTTP %2), que não é seguido: %3")
                                                   .arg(Onde(servico)).arg(statusHttp).arg(url));
    TRespostaTransporte r = LerCorpo(servico, lido, statusHttp, tipo);
    if (r.Ok() && erro != QNetworkReply::NoError)
        return Falha(TFalha::RespostaInvalida, QStringLiteral("Resposta interrompida da %1: %2 (%3)").arg(Onde(servico), url, textoQt));
    return r;
}
