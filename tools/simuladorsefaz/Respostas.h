#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

// The authority's answer messages, written as its schemas lay them out.
namespace Respostas {

// The authority's clock: now, at -03:00.
QDateTime Agora();
QString Hora(const QDateTime &t);   // "2026-11-23T10:30:00-03:00"
// <nome>valor</nome>, the value escaped.
QByteArray E(const char *nome, const QString &valor);

// What every answer starts with: its cStat and xMotivo.
struct TSituacao
{
    int cStat = 0;
    QString xMotivo;
};
QString Motivo(int cStat);   // the authority's text for the codes the simulator gives

struct TProtocolo
{
    int tpAmb = 2, cStat = 100;
    QString chNFe, nProt, digVal, xMotivo;
    QDateTime dhRecbto;
};
QByteArray ProtNFe(const TProtocolo &p);

QByteArray RetConsStatServ(int tpAmb, const QString &cUF, const TSituacao &s);
// protNFe may be empty (a rejection of the whole batch).
QByteArray RetEnviNFe(int tpAmb, const QString &cUF, const TSituacao &s, const QByteArray &protNFe);
QByteArray RetConsSitNFe(int tpAmb, const QString &cUF, const TSituacao &s, const QString &chNFe,
                         const QByteArray &protNFe, const QList<QByteArray> &procEventos);

struct TRetEvento
{
    int tpAmb = 2, cOrgao = 91, cStat = 0, tpEvento = 0, nSeqEvento = 0;
    QString xMotivo, chNFe, xEvento, nProt;
    QDateTime dhRegEvento;
};
QByteArray RetEvento(const TRetEvento &r);
QByteArray RetEnvEvento(const QString &idLote, int tpAmb, int cOrgao, const TSituacao &s,
                        const QList<QByteArray> &retEventos);

struct TDocZip
{
    qint64 nsu = 0;
    QString schema;
    QByteArray xml;
};
QString Nsu(qint64 nsu);   // 15 digits
QByteArray RetDistDFeInt(int tpAmb, const TSituacao &s, qint64 ultNSU, qint64 maxNSU, const QList<TDocZip> &docs);

// The SOAP 1.2 envelope around a result, in the operation's namespace.
QByteArray Envelope(const QString &operacao, const QByteArray &resultado);
// A SOAP fault (a request the simulator cannot read at all).
QByteArray Falha(const QString &motivo);
// gzip (RFC 1952) of the bytes, as docZip carries them.
QByteArray Gzip(const QByteArray &dados);

} // namespace Respostas
