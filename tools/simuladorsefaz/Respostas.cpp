#include "Respostas.h"

#include <QHash>
#include <QTimeZone>

#include <zlib.h>

namespace {

const QByteArray Ns = "xmlns=\"http://www.portalfiscal.inf.br/nfe\"";
const QString VerAplic = QStringLiteral("PAVREL-SEFAZ-1.0");

QByteArray Escapar(const QString &texto)
{
    return texto.toHtmlEscaped().toUtf8();
}

QByteArray Inicio(const Respostas::TSituacao &s, int tpAmb)
{
    return Respostas::E("tpAmb", QString::number(tpAmb)) + Respostas::E("verAplic", VerAplic)
           + Respostas::E("cStat", QString::number(s.cStat)) + Respostas::E("xMotivo", s.xMotivo);
}

} // namespace

using namespace Respostas;

QDateTime Respostas::Agora()
{
    return QDateTime::currentDateTimeUtc().toTimeZone(QTimeZone(-3 * 3600));
}

QString Respostas::Hora(const QDateTime &t)
{
    return t.toTimeZone(QTimeZone(-3 * 3600)).toString(Qt::ISODate);
}

QByteArray Respostas::E(const char *nome, const QString &valor)
{
    return '<' + QByteArray(nome) + '>' + Escapar(valor) + "</" + nome + '>';
}

QString Respostas::Motivo(int cStat)
{
    static const QHash<int, QString> motivos{
        {100, QStringLiteral("Autorizado o uso da NF-e")},
        {101, QStringLiteral("Cancelamento de NF-e homologado")},
        {104, QStringLiteral("Lote processado")},
        {107, QStringLiteral("Serviço em Operação")},
        {108, QStringLiteral("Serviço Paralisado Momentaneamente (curto prazo)")},
        {109, QStringLiteral("Serviço Paralisado sem Previsão")},
        {110, QStringLiteral("Uso Denegado")},
        {128, QStringLiteral("Lote de Evento Processado")},
        {135, QStringLiteral("Evento registrado e vinculado a NF-e")},
        {137, QStringLiteral("Nenhum documento localizado para o Destinatário")},
        {138, QStringLiteral("Documento localizado para o Destinatário")},
        {204, QStringLiteral("Rejeição: Duplicidade de NF-e")},
        {217, QStringLiteral("Rejeição: NF-e não consta na base de dados da SEFAZ")},
        {218, QStringLiteral("Rejeição: NF-e já está cancelada na base de dados da SEFAZ")},
        {222, QStringLiteral("Rejeição: Protocolo de Autorização de Uso difere do cadastrado")},
        {225, QStringLiteral("Rejeição: Falha no Schema XML")},
        {252, QStringLiteral("Rejeição: Ambiente informado diverge do Ambiente de recebimento")},
        {297, QStringLiteral("Rejeição: Assinatura difere do calculado")},
        {301, QStringLiteral("Uso Denegado: Irregularidade fiscal do emitente")},
        {302, QStringLiteral("Uso Denegado: Irregularidade fiscal do destinatário")},
        {494, QStringLiteral("Rejeição: Chave de Acesso inexistente")},
        {539, QStringLiteral("Rejeição: Duplicidade de NF-e, com diferença na Chave de Acesso")},
        {573, QStringLiteral("Rejeição: Duplicidade de Evento")},
    };
    return motivos.value(cStat, QStringLiteral("Rejeição: código %1 do simulador").arg(cStat));
}

QByteArray Respostas::ProtNFe(const TProtocolo &p)
{
    QByteArray x = "<protNFe versao=\"4.00\" " + Ns + "><infProt>" + E("tpAmb", QString::number(p.tpAmb))
                   + E("verAplic", VerAplic) + E("chNFe", p.chNFe) + E("dhRecbto", Hora(p.dhRecbto));
    if (!p.nProt.isEmpty())
        x += E("nProt", p.nProt);
    if (!p.digVal.isEmpty())
        x += E("digVal", p.digVal);
    return x + E("cStat", QString::number(p.cStat)) + E("xMotivo", p.xMotivo) + "</infProt></protNFe>";
}

QByteArray Respostas::RetConsStatServ(int tpAmb, const QString &cUF, const TSituacao &s)
{
    QByteArray x = "<retConsStatServ versao=\"4.00\" " + Ns + '>' + Inicio(s, tpAmb) + E("cUF", cUF)
                   + E("dhRecbto", Hora(Agora()));
    if (s.cStat == 107)
        x += E("tMed", QStringLiteral("1"));
    return x + "</retConsStatServ>";
}

QByteArray Respostas::RetEnviNFe(int tpAmb, const QString &cUF, const TSituacao &s, const QByteArray &protNFe)
{
    return "<retEnviNFe versao=\"4.00\" " + Ns + '>' + Inicio(s, tpAmb) + E("cUF", cUF) + E("dhRecbto", Hora(Agora()))
           + protNFe + "</retEnviNFe>";
}

QByteArray Respostas::RetConsSitNFe(int tpAmb, const QString &cUF, const TSituacao &s, const QString &chNFe,
                                    const QByteArray &protNFe, const QList<QByteArray> &procEventos)
{
    QByteArray x = "<retConsSitNFe versao=\"4.00\" " + Ns + '>' + Inicio(s, tpAmb) + E("cUF", cUF)
                   + E("dhRecbto", Hora(Agora())) + E("chNFe", chNFe) + protNFe;
    for (const QByteArray &p : procEventos)
        x += p;
    return x + "</retConsSitNFe>";
}

QByteArray Respostas::RetEvento(const TRetEvento &r)
{
    QByteArray x = "<retEvento versao=\"1.00\" " + Ns + "><infEvento>" + E("tpAmb", QString::number(r.tpAmb))
                   + E("verAplic", VerAplic) + E("cOrgao", QString::number(r.cOrgao))
                   + E("cStat", QString::number(r.cStat)) + E("xMotivo", r.xMotivo);
    if (!r.chNFe.isEmpty())
        x += E("chNFe", r.chNFe);
    if (r.tpEvento)
        x += E("tpEvento", QString::number(r.tpEvento)) + E("xEvento", r.xEvento)
             + E("nSeqEvento", QString::number(r.nSeqEvento));
    x += E("dhRegEvento", Hora(r.dhRegEvento));
    if (!r.nProt.isEmpty())
        x += E("nProt", r.nProt);
    return x + "</infEvento></retEvento>";
}

QByteArray Respostas::RetEnvEvento(const QString &idLote, int tpAmb, int cOrgao, const TSituacao &s,
                                   const QList<QByteArray> &retEventos)
{
    QByteArray x = "<retEnvEvento versao=\"1.00\" " + Ns + '>' + E("idLote", idLote) + E("tpAmb", QString::number(tpAmb))
                   + E("verAplic", VerAplic) + E("cOrgao", QString::number(cOrgao))
                   + E("cStat", QString::number(s.cStat)) + E("xMotivo", s.xMotivo);
    for (const QByteArray &r : retEventos)
        x += r;
    return x + "</retEnvEvento>";
}

QString Respostas::Nsu(qint64 nsu)
{
    return QString::number(nsu).rightJustified(15, QLatin1Char('0'));
}

QByteArray Respostas::RetDistDFeInt(int tpAmb, const TSituacao &s, qint64 ultNSU, qint64 maxNSU,
                                    const QList<TDocZip> &docs)
{
    QByteArray x = "<retDistDFeInt versao=\"1.01\" " + Ns + '>' + Inicio(s, tpAmb) + E("dhResp", Hora(Agora()))
                   + E("ultNSU", Nsu(ultNSU)) + E("maxNSU", Nsu(maxNSU));
    if (!docs.isEmpty()) {
        x += "<loteDistDFeInt>";
        for (const TDocZip &d : docs)
            x += "<docZip NSU=\"" + Nsu(d.nsu).toLatin1() + "\" schema=\"" + d.schema.toLatin1() + "\">"
                 + Gzip(d.xml).toBase64() + "</docZip>";
        x += "</loteDistDFeInt>";
    }
    return x + "</retDistDFeInt>";
}

QByteArray Respostas::Envelope(const QString &operacao, const QByteArray &resultado)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\">"
           "<soap:Body><nfeResultMsg xmlns=\"http://www.portalfiscal.inf.br/nfe/wsdl/"
           + operacao.toLatin1() + "\">" + resultado + "</nfeResultMsg></soap:Body></soap:Envelope>";
}

QByteArray Respostas::Falha(const QString &motivo)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\">"
           "<soap:Body><soap:Fault><soap:Code><soap:Value>soap:Sender</soap:Value></soap:Code><soap:Reason>"
           "<soap:Text xml:lang=\"pt-BR\">"
           + Escapar(motivo) + "</soap:Text></soap:Reason></soap:Fault></soap:Body></soap:Envelope>";
}

QByteArray Respostas::Gzip(const QByteArray &dados)
{
    z_stream z{};
    if (deflateInit2(&z, Z_BEST_SPEED, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return {};
    QByteArray saida(int(deflateBound(&z, uLong(dados.size()))), Qt::Uninitialized);
    z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(dados.constData()));
    z.avail_in = uInt(dados.size());
    z.next_out = reinterpret_cast<Bytef *>(saida.data());
    z.avail_out = uInt(saida.size());
    const int r = deflate(&z, Z_FINISH);
    saida.truncate(r == Z_STREAM_END ? int(z.total_out) : 0);
    deflateEnd(&z);
    return saida;
}
