#pragma once

#include "TTransporteNFe.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

class QXmlStreamWriter;
struct TElementoXml;
namespace TValidadorNFe {
enum class TEsquema;
}

// The authority's protocol of one NF-e (protNFe/infProt), as received.
struct TProtocoloNFe
{
    int cStat = 0;            // 100 authorised; 110, 301, 302, 303 denied
    QString xMotivo, chNFe, nProt, digVal;
    QDateTime dhRecbto;
    QByteArray xml;           // the protNFe element, bytes as received
};

// What one service call gave: the transport's outcome and, when there was an answer, its
// cStat and xMotivo.
struct TRetornoSefaz
{
    TRespostaTransporte transporte;
    int cStat = 0;
    QString xMotivo;
    bool Respondeu() const { return transporte.Ok() && cStat != 0; }
};

struct TRetornoAutorizacao : TRetornoSefaz
{
    std::optional<TProtocoloNFe> protocolo;     // with cStat 104
};

struct TRetornoConsulta : TRetornoSefaz
{
    std::optional<TProtocoloNFe> protocolo;     // 100/101/110... with the note's protocol
    QList<QByteArray> procEventos;              // procEventoNFe elements, as received
};

struct TRetornoEvento : TRetornoSefaz
{
    int cStatEvento = 0;                        // 135 registered, 136, 155; 573 duplicate
    QString xMotivoEvento, nProt;
    QDateTime dhRegEvento;
    QByteArray retEvento;                       // the retEvento element, as received
};

// One document of the distribution service, unpacked.
struct TDocumentoDistribuido
{
    QString nsu;
    QString schema;                             // "resNFe_v1.01.xsd", "procNFe_v4.00.xsd", ...
    QByteArray xml;
};

struct TRetornoDistribuicao : TRetornoSefaz
{
    QString ultNSU, maxNSU;
    QList<TDocumentoDistribuido> documentos;
};

// The authority's services for one company: builds each message, posts it and reads the answer.
class TServicosNFe
{
public:
    // uf: the company's state; tpAmb 1 production, 2 homologation.
    TServicosNFe(TTransporteNFe &transporte, const QString &uf, int tpAmb);

    TRetornoSefaz Status(const QString &autorizador);
    // enviNFe with indSinc 1 around the signed NFe (bytes kept as they are).
    TRetornoAutorizacao Autorizar(const QString &autorizador, const QByteArray &nfeAssinada, qint64 idLote);
    TRetornoConsulta Consultar(const QString &autorizador, const QString &chave);
    // envEvento around one signed evento.
    TRetornoEvento EnviarEvento(const QString &autorizador, const QByteArray &eventoAssinado, qint64 idLote);
    // Distribution (national environment, AN) from the last NSU received, or of one key.
    TRetornoDistribuicao Distribuicao(const QString &cnpj, const QString &ultNSU);
    TRetornoDistribuicao DistribuicaoPorChave(const QString &cnpj, const QString &chave);

    QString Uf() const { return m_uf; }
    int TpAmb() const { return m_tpAmb; }

private:
    // Checks the message, posts it and reads cStat and xMotivo from an answer whose root is
    // `raiz`; false (ret->transporte saying why) when there is no such answer.
    bool Chamar(const QString &autorizador, const QString &operacao, const QByteArray &mensagem,
                TValidadorNFe::TEsquema esquema, const QString &raiz, TRetornoSefaz *ret, TElementoXml *resposta);
    TRetornoDistribuicao Distribuir(const QString &cnpj, const std::function<void(QXmlStreamWriter &)> &pedido);

    TTransporteNFe &m_transporte;
    QString m_uf;
    int m_tpAmb;
};

// The nfeProc of a signed NFe and its protocol; false with erro when the protocol's key or
// digest is not the document's.
bool MontarNfeProc(const QByteArray &nfeAssinada, const TProtocoloNFe &protocolo, QByteArray *nfeProc, QString *erro);
