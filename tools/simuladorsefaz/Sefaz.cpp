#include "Sefaz.h"

#include "ChaveNFe.h"
#include "Mensagens.h"
#include "TAssinadorNFe.h"

#include <QFile>
#include <QUrl>

using Mensagens::Valor;
using Respostas::Motivo;

namespace {

const QStringList Operacoes{QStringLiteral("NFeStatusServico4"), QStringLiteral("NFeAutorizacao4"),
                            QStringLiteral("NFeConsultaProtocolo4"), QStringLiteral("NFeRecepcaoEvento4"),
                            QStringLiteral("NFeDistribuicaoDFe")};

bool Denegacao(int cStat)
{
    return cStat == 110 || (cStat >= 301 && cStat <= 303);
}

Respostas::TSituacao Situacao(int cStat, const QString &extra = {})
{
    return {cStat, Motivo(cStat) + extra};
}

// The paths of the contingency authorizers: a status request there is served even while the
// normal authorizer is out. SVC-AN shares its paths with SVAN (one state only) and they count as
// contingency; SVC-RS shares SVRS's, which stay normal.
QSet<QString> CaminhosContingencia()
{
    QFile f(QStringLiteral(":/webservices/nfe-webservices.tsv"));
    QSet<QString> svc, outros;
    if (!f.open(QIODevice::ReadOnly))
        return svc;
    while (!f.atEnd()) {
        const QStringList c = QString::fromUtf8(f.readLine()).trimmed().split(QLatin1Char('\t'));
        if (c.size() < 6)
            continue;
        const QString caminho = QUrl(c[5]).path().toLower();
        if (c[0].startsWith(QLatin1String("SVC")))
            svc.insert(caminho);
        else if (c[0] != u"SVAN")
            outros.insert(caminho);
    }
    return svc.subtract(outros);
}

QString OutraChave(const QString &chave)
{
    QString k = chave.left(43);
    k[42] = QLatin1Char(char('0' + (k[42].digitValue() + 1) % 10));
    return k + ChaveNFe::Digito(k);
}

} // namespace

TSefaz::TSefaz() : m_caminhosContingencia(CaminhosContingencia()) {}

TSefaz::TResposta TSefaz::Atender(const QString &caminho, const QByteArray &corpo)
{
    TResposta r;
    QString operacao, erro;
    QByteArray msg;
    if (!Mensagens::AbrirEnvelope(corpo, &operacao, &msg, &erro) || !Operacoes.contains(operacao)) {
        if (erro.isEmpty())
            erro = QStringLiteral("operação desconhecida: %1").arg(operacao);
        r.http = 500;
        r.corpo = Respostas::Falha(erro);
        r.resumo = QStringLiteral("? soap:Fault %1").arg(erro);
        return r;
    }
    ++m_contagem[operacao];
    if (m_html.remove(operacao)) {
        r.http = 500;
        r.tipo = "text/html; charset=utf-8";
        r.corpo = "<html><head><title>500 Internal Server Error</title></head><body><h1>Internal Server Error</h1>"
                  "<p>The server encountered an internal error.</p></body></html>";
        r.resumo = operacao + QStringLiteral(" página HTML 500");
        return r;
    }
    m_forcado = m_rejeitar.take(operacao);
    m_detalhe.clear();
    TSituacao s;
    QByteArray ret;
    if (operacao == Operacoes[0])
        ret = Status(caminho, msg, &s);
    else if (operacao == Operacoes[1])
        ret = Autorizar(msg, &s);
    else if (operacao == Operacoes[2])
        ret = Consultar(msg, &s);
    else if (operacao == Operacoes[3])
        ret = Evento(msg, &s);
    else
        ret = Distribuir(msg, &s);
    r.corpo = Respostas::Envelope(operacao, ret);
    r.resumo = QStringLiteral("%1 %2 %3").arg(operacao).arg(s.cStat).arg(m_detalhe).trimmed();
    if (m_descartar.remove(operacao)) {
        r.modo = TResposta::TModo::Descartar;
        r.resumo += QStringLiteral(" (descartada)");
    } else if (m_truncar.remove(operacao)) {
        r.modo = TResposta::TModo::Truncar;
        r.resumo += QStringLiteral(" (truncada)");
    }
    return r;
}

QByteArray TSefaz::Status(const QString &caminho, const QByteArray &msg, TSituacao *s)
{
    const int tpAmb = Valor(msg, QStringLiteral("tpAmb")).toInt();
    const QString cUF = Valor(msg, QStringLiteral("cUF"));
    QString erro;
    if (m_forcado)
        *s = Situacao(m_forcado);
    else if (!Mensagens::Valida(msg, QStringLiteral("nfe-4.00/consStatServ_v4.00.xsd"), &erro))
        *s = Situacao(225), m_detalhe = erro;
    else
        *s = Situacao(m_caminhosContingencia.contains(caminho.toLower()) ? 107 : m_status);
    return Respostas::RetConsStatServ(tpAmb, cUF, *s);
}

QByteArray TSefaz::Autorizar(const QByteArray &msg, TSituacao *s)
{
    const int tpAmb = Valor(msg, QStringLiteral("tpAmb")).toInt();
    const QString chave = Mensagens::Atributo(msg, QStringLiteral("infNFe"), QStringLiteral("Id")).mid(3);
    const QString cUF = chave.left(2);
    m_detalhe = chave;
    QString erro;
    const auto rejeitar = [&](int cStat, const QString &extra = {}) {
        *s = Situacao(cStat, extra);
        return Respostas::RetEnviNFe(tpAmb, cUF, *s, {});
    };
    if (m_forcado && !Denegacao(m_forcado))
        return rejeitar(m_forcado);
    if (!EmContingencia(chave) && m_status != 107)
        return rejeitar(m_status);
    if (!Mensagens::Valida(msg, QStringLiteral("nfe-4.00/enviNFe_v4.00.xsd"), &erro)) {
        m_detalhe += QLatin1Char(' ') + erro;
        return rejeitar(225);
    }
    if (!TAssinadorNFe::Verificar(msg, &erro)) {
        m_detalhe += QLatin1Char(' ') + erro;
        return rejeitar(297);
    }
    if (const auto it = m_notas.constFind(chave); it != m_notas.constEnd())
        return rejeitar(204, QStringLiteral(" [nProt:%1][dhAut:%2]")
                                 .arg(it->protocolo.nProt, Respostas::Hora(it->protocolo.dhRecbto)));
    const QString numero = chave.mid(6, 14) + QLatin1Char('/') + chave.mid(22, 3) + QLatin1Char('/') + chave.mid(25, 9);
    if (const QString outra = m_numeros.value(numero); !outra.isEmpty())
        return rejeitar(539, QStringLiteral(" [chNFe:%1]").arg(outra));

    Respostas::TProtocolo &p = m_notas[chave].protocolo;
    p.tpAmb = tpAmb;
    p.cStat = m_forcado ? m_forcado : 100;
    p.xMotivo = Motivo(p.cStat);
    p.chNFe = chave;
    p.nProt = NovoProtocolo(cUF);
    p.digVal = Valor(msg, QStringLiteral("DigestValue"));
    p.dhRecbto = Respostas::Agora();
    m_numeros.insert(numero, chave);
    *s = Situacao(104);
    m_detalhe += QStringLiteral(" protocolo %1 (%2)").arg(p.nProt).arg(p.cStat);
    return Respostas::RetEnviNFe(tpAmb, cUF, *s, Protocolo(p, QStringLiteral("NFeAutorizacao4")));
}

QByteArray TSefaz::Consultar(const QByteArray &msg, TSituacao *s)
{
    const int tpAmb = Valor(msg, QStringLiteral("tpAmb")).toInt();
    const QString chave = Valor(msg, QStringLiteral("chNFe"));
    const QString cUF = chave.left(2);
    m_detalhe = chave;
    QString erro;
    QByteArray prot;
    QList<QByteArray> eventos;
    if (m_forcado)
        *s = Situacao(m_forcado);
    else if (!EmContingencia(chave) && m_status != 107)
        *s = Situacao(m_status);
    else if (!Mensagens::Valida(msg, QStringLiteral("nfe-4.00/consSitNFe_v4.00.xsd"), &erro))
        *s = Situacao(225), m_detalhe += QLatin1Char(' ') + erro;
    else if (!m_notas.contains(chave))
        *s = Situacao(217);
    else {
        const TNota &n = m_notas[chave];
        *s = Situacao(n.cancelada ? 101 : n.protocolo.cStat);
        prot = Protocolo(n.protocolo, QStringLiteral("NFeConsultaProtocolo4"));
        eventos = n.procEventos;
    }
    return Respostas::RetConsSitNFe(tpAmb, cUF, *s, chave, prot, eventos);
}

QByteArray TSefaz::Evento(const QByteArray &msg, TSituacao *s)
{
    const QString idLote = Valor(msg, QStringLiteral("idLote"));
    const int tpAmb = Valor(msg, QStringLiteral("tpAmb")).toInt();
    const int cOrgao = Valor(msg, QStringLiteral("cOrgao")).toInt();
    const int tpEvento = Valor(msg, QStringLiteral("tpEvento")).toInt();
    const QString chave = Valor(msg, QStringLiteral("chNFe"));
    m_detalhe = QStringLiteral("%1 %2").arg(tpEvento).arg(chave);
    QString esquema, erro;
    if (tpEvento == 110111)
        esquema = QStringLiteral("evento-cancelamento-1.00/envEventoCancNFe_v1.00.xsd");
    else if (tpEvento == 110110)
        esquema = QStringLiteral("evento-cce-1.00/envCCe_v1.00.xsd");
    else if (tpEvento / 1000 == 210)
        esquema = QStringLiteral("evento-manifestacao-1.00/envConfRecebto_v1.00.xsd");
    QList<QByteArray> retornos;
    if (tpEvento / 1000 == 110 && !EmContingencia(chave) && m_status != 107)
        *s = Situacao(m_status);
    else if (esquema.isEmpty())
        *s = Situacao(225), m_detalhe += QStringLiteral(" tipo de evento não suportado");
    else if (!Mensagens::Valida(msg, esquema, &erro))
        *s = Situacao(225), m_detalhe += QLatin1Char(' ') + erro;
    else if (!TAssinadorNFe::Verificar(msg, &erro))
        *s = Situacao(297), m_detalhe += QLatin1Char(' ') + erro;
    else {
        *s = Situacao(128);
        for (const QByteArray &evento : Mensagens::Elementos(msg, "evento")) {
            const Respostas::TRetEvento r = RegistrarEvento(evento);
            m_detalhe += QStringLiteral(" evento %1").arg(r.cStat);
            retornos.append(Respostas::RetEvento(r));
        }
    }
    return Respostas::RetEnvEvento(idLote, tpAmb, cOrgao, *s, retornos);
}

Respostas::TRetEvento TSefaz::RegistrarEvento(const QByteArray &evento)
{
    Respostas::TRetEvento r;
    r.tpAmb = Valor(evento, QStringLiteral("tpAmb")).toInt();
    r.cOrgao = Valor(evento, QStringLiteral("cOrgao")).toInt();
    r.chNFe = Valor(evento, QStringLiteral("chNFe"));
    r.tpEvento = Valor(evento, QStringLiteral("tpEvento")).toInt();
    r.nSeqEvento = Valor(evento, QStringLiteral("nSeqEvento")).toInt();
    r.xEvento = Valor(evento, QStringLiteral("descEvento"));
    r.dhRegEvento = Respostas::Agora();
    const bool destinatario = r.tpEvento / 1000 == 210;
    const QString id = QStringLiteral("%1/%2").arg(r.tpEvento).arg(r.nSeqEvento);
    const auto nota = m_notas.find(r.chNFe);
    const auto recusar = [&r](int cStat) {
        r.cStat = cStat;
        r.xMotivo = Motivo(cStat);
        return r;
    };
    if (m_forcado)
        return recusar(m_forcado);
    if (destinatario ? !m_fornecidas.contains(r.chNFe) && nota == m_notas.end() : nota == m_notas.end())
        return recusar(destinatario ? 494 : 217);
    if (m_eventos[r.chNFe].contains(id))
        return recusar(573);
    if (!destinatario && nota->cancelada)
        return recusar(218);
    if (r.tpEvento == 110111 && Valor(evento, QStringLiteral("nProt")) != nota->protocolo.nProt)
        return recusar(222);

    recusar(135);
    r.nProt = NovoProtocolo(QString::number(r.cOrgao));
    m_eventos[r.chNFe].insert(id);
    if (destinatario) {
        ManifestacaoRegistrada(r.chNFe, r.tpEvento, r.nSeqEvento, Valor(evento, QStringLiteral("CNPJ")), r);
    } else {
        nota->cancelada = nota->cancelada || r.tpEvento == 110111;
        nota->procEventos.append("<procEventoNFe versao=\"1.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\">"
                                 + evento + Respostas::RetEvento(r) + "</procEventoNFe>");
    }
    // Only this answer names another key; what the authority keeps is right.
    if (m_outraChave.remove(QStringLiteral("NFeRecepcaoEvento4")))
        r.chNFe = OutraChave(r.chNFe);
    return r;
}

void TSefaz::ManifestacaoRegistrada(const QString &chave, int tpEvento, int seq, const QString &cnpj,
                                    const Respostas::TRetEvento &ret)
{
    AcrescentarDocumento(cnpj, QStringLiteral("resEvento_v1.01.xsd"),
                         ResEvento(chave, cnpj, tpEvento, seq, ret.xEvento, ret.nProt, ret.dhRegEvento));
    const auto nota = m_fornecidas.constFind(chave);
    if ((tpEvento == 210200 || tpEvento == 210210) && nota != m_fornecidas.constEnd() && !m_liberadas.contains(chave)) {
        m_liberadas.insert(chave);
        AcrescentarDocumento(cnpj, QStringLiteral("procNFe_v4.00.xsd"), nota->procNFe);
    }
}

QByteArray TSefaz::Distribuir(const QByteArray &msg, TSituacao *s)
{
    const int tpAmb = Valor(msg, QStringLiteral("tpAmb")).toInt();
    const QString cnpj = Valor(msg, QStringLiteral("CNPJ"));
    QString erro;
    m_detalhe = cnpj;
    if (m_forcado) {
        *s = Situacao(m_forcado);
        return Respostas::RetDistDFeInt(tpAmb, *s, 0, 0, {});
    }
    if (!Mensagens::Valida(msg, QStringLiteral("distribuicao-dfe-1.01/distDFeInt_v1.01.xsd"), &erro)) {
        *s = Situacao(225);
        m_detalhe += QLatin1Char(' ') + erro;
        return Respostas::RetDistDFeInt(tpAmb, *s, 0, 0, {});
    }
    for (; m_pendentes > 0; --m_pendentes) {
        TNotaFornecedor nota;
        if (!GerarNotaFornecedor(cnpj, ++m_numeroFornecedor, NovoProtocolo(QStringLiteral("35")), &nota, &erro)) {
            m_detalhe += QLatin1Char(' ') + erro;
            break;
        }
        m_fornecidas.insert(nota.chave, nota);
        AcrescentarDocumento(cnpj, QStringLiteral("resNFe_v1.01.xsd"), ResNFe(nota));
    }
    const QList<Respostas::TDocZip> &docs = m_documentos[cnpj];
    const qint64 maxNSU = docs.isEmpty() ? 0 : docs.last().nsu;
    QList<Respostas::TDocZip> lote;
    const QString chave = Valor(msg, QStringLiteral("chNFe"));
    const QString nsu = Valor(msg, QStringLiteral("NSU"));
    const qint64 ultNSU = Valor(msg, QStringLiteral("ultNSU")).toLongLong();
    // By key the full XML once released, else its summary; by NSU that one; else what is newer.
    for (auto d = docs.crbegin(); !chave.isEmpty() && d != docs.crend(); ++d)
        if (d->xml.contains(chave.toLatin1())
            && (d->schema.startsWith(QLatin1String("procNFe"))
                || (lote.isEmpty() && d->schema.startsWith(QLatin1String("resNFe")))))
            lote = {*d};
    for (const Respostas::TDocZip &d : docs)
        if ((!nsu.isEmpty() && d.nsu == nsu.toLongLong()) || (chave.isEmpty() && nsu.isEmpty() && d.nsu > ultNSU
                                                              && lote.size() < 50))
            lote.append(d);
    *s = Situacao(lote.isEmpty() ? (chave.isEmpty() ? 137 : 217) : 138);
    m_detalhe += QStringLiteral(" %1 documento(s)").arg(lote.size());
    const qint64 ult = chave.isEmpty() && nsu.isEmpty() && !lote.isEmpty() ? lote.last().nsu : maxNSU;
    return Respostas::RetDistDFeInt(tpAmb, *s, ult, maxNSU, lote);
}

qint64 TSefaz::AcrescentarDocumento(const QString &cnpj, const QString &schema, const QByteArray &xml)
{
    m_documentos[cnpj].append({++m_nsu, schema, xml});
    return m_nsu;
}

bool TSefaz::EmContingencia(const QString &chave) const
{
    return chave.size() == 44 && (chave[34] == QLatin1Char('6') || chave[34] == QLatin1Char('7'));
}

QString TSefaz::NovoProtocolo(const QString &cUF)
{
    return QLatin1Char('1') + cUF.rightJustified(2, QLatin1Char('0')).left(2)
           + Respostas::Agora().toString(QStringLiteral("yy"))
           + QString::number(++m_protocolos).rightJustified(10, QLatin1Char('0'));
}

QByteArray TSefaz::Protocolo(Respostas::TProtocolo p, const QString &operacao)
{
    if (m_outraChave.remove(operacao))
        p.chNFe = OutraChave(p.chNFe);
    return Respostas::ProtNFe(p);
}

QString TSefaz::Comando(const QString &linha)
{
    const QStringList p = linha.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString verbo = p.value(0), op = p.value(1);
    bool numero = false;
    const int n = p.value(p.size() - 1).toInt(&numero);
    const auto erro = [&linha](const QString &porque) { return QStringLiteral("erro %1: %2").arg(porque, linha); };
    const QHash<QString, QSet<QString> *> falhas{{QStringLiteral("descartar"), &m_descartar},
                                                 {QStringLiteral("html"), &m_html},
                                                 {QStringLiteral("truncar"), &m_truncar},
                                                 {QStringLiteral("outra-chave"), &m_outraChave}};
    if (verbo == u"status" && p.size() == 2 && (n == 107 || n == 108 || n == 109)) {
        m_status = n;
        return QStringLiteral("ok status %1").arg(n);
    }
    if (verbo == u"documentos" && p.size() == 2 && numero && n >= 0) {
        m_pendentes += n;
        return QStringLiteral("ok documentos %1").arg(m_pendentes);
    }
    if (verbo == u"sair")
        return QStringLiteral("ok sair");
    if (!falhas.contains(verbo) && verbo != u"rejeitar" && verbo != u"contar")
        return erro(QStringLiteral("comando desconhecido"));
    if (!Operacoes.contains(op))
        return erro(QStringLiteral("operação desconhecida"));
    if (verbo == u"contar" && p.size() == 2)
        return QStringLiteral("ok %1").arg(m_contagem.value(op));
    if (verbo == u"rejeitar" && p.size() == 3 && numero && n > 0) {
        m_rejeitar.insert(op, n);
        return QStringLiteral("ok rejeitar %1 %2").arg(op).arg(n);
    }
    if (falhas.contains(verbo) && p.size() == 2) {
        falhas[verbo]->insert(op);
        return QStringLiteral("ok %1 %2").arg(verbo, op);
    }
    return erro(QStringLiteral("argumentos inválidos"));
}
