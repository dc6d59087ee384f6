#pragma once

#include "Fornecedores.h"
#include "Respostas.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

// The authority's services in memory: what it has authorised, the events, the documents for
// the distribution, and the faults it was told to give next.
class TSefaz
{
public:
    struct TResposta
    {
        enum class TModo { Normal, Descartar, Truncar };
        int http = 200;
        QByteArray tipo = "application/soap+xml; charset=utf-8";
        QByteArray corpo;
        TModo modo = TModo::Normal;
        QString resumo;   // one line for the log: operation and cStat
    };

    TSefaz();
    // One HTTP POST to `caminho`.
    TResposta Atender(const QString &caminho, const QByteArray &corpo);
    // One line of the control language; its one-line answer ("ok ..." / "erro ...").
    QString Comando(const QString &linha);
    void AcrescentarDocumentos(int n) { m_pendentes += n; }

private:
    struct TNota
    {
        Respostas::TProtocolo protocolo;
        bool cancelada = false;
        QList<QByteArray> procEventos;
    };
    using TSituacao = Respostas::TSituacao;

    QByteArray Status(const QString &caminho, const QByteArray &msg, TSituacao *s);
    QByteArray Autorizar(const QByteArray &msg, TSituacao *s);
    QByteArray Consultar(const QByteArray &msg, TSituacao *s);
    QByteArray Evento(const QByteArray &msg, TSituacao *s);
    QByteArray Distribuir(const QByteArray &msg, TSituacao *s);
    Respostas::TRetEvento RegistrarEvento(const QByteArray &evento);
    void ManifestacaoRegistrada(const QString &chave, int tpEvento, int seq, const QString &cnpj,
                                const Respostas::TRetEvento &ret);
    bool EmContingencia(const QString &chave) const;
    QString NovoProtocolo(const QString &cUF);
    QByteArray Protocolo(Respostas::TProtocolo p, const QString &operacao);
    qint64 AcrescentarDocumento(const QString &cnpj, const QString &schema, const QByteArray &xml);

    int m_status = 107;
    QSet<QString> m_caminhosContingencia;
    QHash<QString, int> m_contagem, m_rejeitar;
    QSet<QString> m_descartar, m_html, m_truncar, m_outraChave;
    QHash<QString, TNota> m_notas;               // by key
    QHash<QString, QString> m_numeros;           // "CNPJ/série/número" -> key
    QHash<QString, QSet<QString>> m_eventos;     // by key: "tpEvento/nSeqEvento"
    int m_forcado = 0;                           // the rejection the current request gets
    QString m_detalhe;                           // for the log line
    qint64 m_protocolos = 0;
    // Distribution.
    int m_pendentes = 0;
    qint64 m_nsu = 0, m_numeroFornecedor = 0;
    QHash<QString, QList<Respostas::TDocZip>> m_documentos;   // by the recipient's CNPJ
    QHash<QString, TNotaFornecedor> m_fornecidas;             // by key
    QSet<QString> m_liberadas;                                // keys whose full XML may be fetched
};
