#include "TServicosNFe.h"

#include "ElementoXml.h"
#include "TNFeMontar_DBI.h"
#include "TValidadorNFe.h"

#include <QXmlStreamWriter>

#include <zlib.h>

#include <functional>

namespace {

using TFalha = TRespostaTransporte::TFalha;
using TValidadorNFe::TEsquema;

const QString kNs = QStringLiteral("http://www.portalfiscal.inf.br/nfe");

// One message: its root in the NF-e namespace with versao, the children written by `corpo`.
QByteArray Mensagem(const QString &raiz, const QString &versao, const std::function<void(QXmlStreamWriter &)> &corpo)
{
    QByteArray xml;
    QXmlStreamWriter w(&xml);
    w.writeStartElement(raiz);
    w.writeDefaultNamespace(kNs);
    w.writeAttribute(QStringLiteral("versao"), versao);
    corpo(w);
    w.writeEndElement();
    return xml;
}

// The author as the schemas want it: CPF for 11 digits, CNPJ otherwise.
void EscreverAutor(QXmlStreamWriter &w, const QString &cnpj)
{
    w.writeTextElement(cnpj.size() == 11 ? QStringLiteral("CPF") : QStringLiteral("CNPJ"), cnpj);
}

void FalharTransporte(TRetornoSefaz *ret, TFalha falha, const QString &erro)
{
    ret->transporte.falha = falha;
    ret->transporte.erro = erro;
}

QDateTime DataHora(const QString &texto)
{
    return QDateTime::fromString(texto.trimmed(), Qt::ISODate);
}

std::optional<TProtocoloNFe> Protocolo(const TElementoXml *protNFe)
{
    const TElementoXml *inf = protNFe ? protNFe->Filho(QStringLiteral("infProt")) : nullptr;
    if (!inf)
        return std::nullopt;
    TProtocoloNFe p;
    p.cStat = inf->Texto(QStringLiteral("cStat")).toInt();
    p.xMotivo = inf->Texto(QStringLiteral("xMotivo")).trimmed();
    p.chNFe = inf->Texto(QStringLiteral("chNFe")).trimmed();
    p.nProt = inf->Texto(QStringLiteral("nProt")).trimmed();
    p.digVal = inf->Texto(QStringLiteral("digVal")).trimmed();
    p.dhRecbto = DataHora(inf->Texto(QStringLiteral("dhRecbto")));
    p.xml = protNFe->Bytes();
    return p;
}

// docZip: base64 of a gzip stream.
bool Descompactar(const QByteArray &base64, QByteArray *xml)
{
    const auto decodificado = QByteArray::fromBase64Encoding(base64.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decodificado)
        return false;
    const QByteArray &gz = *decodificado;
    z_stream z{};
    if (inflateInit2(&z, 16 + MAX_WBITS) != Z_OK)
        return false;
    z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(gz.constData()));
    z.avail_in = uInt(gz.size());
    constexpr qsizetype kMaximo = 64 * 1024 * 1024;   // no document is this big; a bomb is
    char bloco[16384];
    int r = Z_OK;
    xml->clear();
    while (r == Z_OK && xml->size() < kMaximo) {
        z.next_out = reinterpret_cast<Bytef *>(bloco);
        z.avail_out = sizeof bloco;
        r = inflate(&z, Z_NO_FLUSH);
        xml->append(bloco, qsizetype(sizeof bloco - z.avail_out));
        if (r == Z_BUF_ERROR && z.avail_in == 0)
            break;
    }
    inflateEnd(&z);
    return r == Z_STREAM_END;
}

QString Nsu(qint64 n)
{
    return QStringLiteral("%1").arg(n, 15, 10, QLatin1Char('0'));
}

} // namespace

TServicosNFe::TServicosNFe(TTransporteNFe &transporte, const QString &uf, int tpAmb)
    : m_transporte(transporte), m_uf(uf), m_tpAmb(tpAmb == 1 ? 1 : 2)
{
}

bool TServicosNFe::Chamar(const QString &autorizador, const QString &operacao, const QByteArray &mensagem,
                          TEsquema esquema, const QString &raizEsperada, TRetornoSefaz *ret, TElementoXml *raiz)
{
    TServicoNFe servico;
    QString erro;
    if (autorizador.isEmpty()) {
        FalharTransporte(ret, TFalha::Recusada, QStringLiteral("A UF '%1' não tem autorizador da NF-e na tabela de endereços (%2)")
                                                    .arg(m_uf, operacao));
        return false;
    }
    if (!TEnderecosNFe::Servico(autorizador, m_tpAmb, operacao, &servico, &erro)) {
        FalharTransporte(ret, TFalha::Recusada, erro);
        return false;
    }
    if (!TValidadorNFe::Validar(mensagem, esquema, &erro)) {
        FalharTransporte(ret, TFalha::Recusada,
                         QStringLiteral("A mensagem para %1 não segue o esquema oficial e não foi enviada: %2").arg(operacao, erro));
        return false;
    }
    ret->transporte = m_transporte.Postar(servico, mensagem);
    if (!ret->transporte.Ok())
        return false;
    const QString onde = QStringLiteral("SEFAZ (%1) em %2").arg(autorizador, servico.url.toString());
    if (!LerElementoXml(ret->transporte.mensagem, raiz, &erro)) {
        FalharTransporte(ret, TFalha::RespostaInvalida, QStringLiteral("Resposta mal formada da %1: %2").arg(onde, erro));
        return false;
    }
    bool numero = false;
    ret->cStat = raiz->Texto(QStringLiteral("cStat")).toInt(&numero);
    ret->xMotivo = raiz->Texto(QStringLiteral("xMotivo")).trimmed();
    if (raiz->nome != raizEsperada || !numero || ret->cStat <= 0) {
        ret->cStat = 0;
        FalharTransporte(ret, TFalha::RespostaInvalida,
                         QStringLiteral("Resposta inesperada da %1: %2 sem cStat, esperado %3").arg(onde, raiz->nome, raizEsperada));
        return false;
    }
    return true;
}

TRetornoSefaz TServicosNFe::Status(const QString &autorizador)
{
    const QByteArray msg = Mensagem(QStringLiteral("consStatServ"), QStringLiteral("4.00"), [&](QXmlStreamWriter &w) {
        w.writeTextElement(QStringLiteral("tpAmb"), QString::number(m_tpAmb));
        w.writeTextElement(QStringLiteral("cUF"), NumeracaoNFe::CodigoUF(m_uf));
        w.writeTextElement(QStringLiteral("xServ"), QStringLiteral("STATUS"));
    });
    TRetornoSefaz ret;
    TElementoXml raiz;
    Chamar(autorizador, QStringLiteral("NFeStatusServico4"), msg, TEsquema::ConsStatServ,
           QStringLiteral("retConsStatServ"), &ret, &raiz);
    return ret;
}

TRetornoAutorizacao TServicosNFe::Autorizar(const QString &autorizador, const QByteArray &nfeAssinada, qint64 idLote)
{
    const QByteArray msg = "<enviNFe xmlns=\"" + kNs.toUtf8() + "\" versao=\"4.00\"><idLote>" + QByteArray::number(idLote)
                           + "</idLote><indSinc>1</indSinc>" + SemDeclaracaoXml(nfeAssinada) + "</enviNFe>";
    TRetornoAutorizacao ret;
    TElementoXml raiz;
    if (Chamar(autorizador, QStringLiteral("NFeAutorizacao4"), msg, TEsquema::EnviNFe,
               QStringLiteral("retEnviNFe"), &ret, &raiz))
        ret.protocolo = Protocolo(raiz.Filho(QStringLiteral("protNFe")));
    return ret;
}

TRetornoConsulta TServicosNFe::Consultar(const QString &autorizador, const QString &chave)
{
    const QByteArray msg = Mensagem(QStringLiteral("consSitNFe"), QStringLiteral("4.00"), [&](QXmlStreamWriter &w) {
        w.writeTextElement(QStringLiteral("tpAmb"), QString::number(m_tpAmb));
        w.writeTextElement(QStringLiteral("xServ"), QStringLiteral("CONSULTAR"));
        w.writeTextElement(QStringLiteral("chNFe"), chave);
    });
    TRetornoConsulta ret;
    TElementoXml raiz;
    if (!Chamar(autorizador, QStringLiteral("NFeConsultaProtocolo4"), msg, TEsquema::ConsSitNFe,
                QStringLiteral("retConsSitNFe"), &ret, &raiz))
        return ret;
    ret.protocolo = Protocolo(raiz.Filho(QStringLiteral("protNFe")));
    for (const TElementoXml &f : raiz.filhos)
        if (f.nome == QLatin1String("procEventoNFe"))
            ret.procEventos.append(f.Bytes());
    return ret;
}

TRetornoEvento TServicosNFe::EnviarEvento(const QString &autorizador, const QByteArray &eventoAssinado, qint64 idLote)
{
    TRetornoEvento ret;
    TElementoXml evento;
    QString erro;
    if (!LerElementoXml(eventoAssinado, &evento, &erro)) {
        FalharTransporte(&ret, TFalha::Recusada, QStringLiteral("O evento da NF-e está mal formado e não foi enviado: %1").arg(erro));
        return ret;
    }
    const TElementoXml *tp = evento.Procurar(QStringLiteral("tpEvento"));
    const QString tpEvento = tp ? tp->texto.trimmed() : QString();
    const TEsquema esquema = tpEvento == QLatin1String("110111")   ? TEsquema::EnvEventoCanc
                             : tpEvento == QLatin1String("110110") ? TEsquema::EnvEventoCCe
                                                                   : TEsquema::EnvEventoManif;
    const QByteArray msg = "<envEvento xmlns=\"" + kNs.toUtf8() + "\" versao=\"1.00\"><idLote>" + QByteArray::number(idLote)
                           + "</idLote>" + SemDeclaracaoXml(eventoAssinado) + "</envEvento>";
    TElementoXml raiz;
    if (!Chamar(autorizador, QStringLiteral("NFeRecepcaoEvento4"), msg, esquema,
                QStringLiteral("retEnvEvento"), &ret, &raiz))
        return ret;
    const TElementoXml *retEvento = raiz.Filho(QStringLiteral("retEvento"));
    const TElementoXml *inf = retEvento ? retEvento->Filho(QStringLiteral("infEvento")) : nullptr;
    if (inf) {
        ret.cStatEvento = inf->Texto(QStringLiteral("cStat")).toInt();
        ret.xMotivoEvento = inf->Texto(QStringLiteral("xMotivo")).trimmed();
        ret.nProt = inf->Texto(QStringLiteral("nProt")).trimmed();
        ret.dhRegEvento = DataHora(inf->Texto(QStringLiteral("dhRegEvento")));
        ret.retEvento = retEvento->Bytes();
    }
    return ret;
}

TRetornoDistribuicao TServicosNFe::Distribuir(const QString &cnpj, const std::function<void(QXmlStreamWriter &)> &pedido)
{
    const QByteArray msg = Mensagem(QStringLiteral("distDFeInt"), QStringLiteral("1.01"), [&](QXmlStreamWriter &w) {
        w.writeTextElement(QStringLiteral("tpAmb"), QString::number(m_tpAmb));
        w.writeTextElement(QStringLiteral("cUFAutor"), NumeracaoNFe::CodigoUF(m_uf));
        EscreverAutor(w, cnpj);
        pedido(w);
    });
    TRetornoDistribuicao ret;
    TElementoXml raiz;
    if (!Chamar(QStringLiteral("AN"), QStringLiteral("NFeDistribuicaoDFe"), msg, TEsquema::DistDFeInt,
                QStringLiteral("retDistDFeInt"), &ret, &raiz))
        return ret;
    ret.ultNSU = raiz.Texto(QStringLiteral("ultNSU")).trimmed();
    ret.maxNSU = raiz.Texto(QStringLiteral("maxNSU")).trimmed();
    const TElementoXml *lote = raiz.Filho(QStringLiteral("loteDistDFeInt"));
    for (const TElementoXml &doc : lote ? lote->filhos : QList<TElementoXml>()) {
        TDocumentoDistribuido d;
        d.nsu = doc.atributos.value(QStringLiteral("NSU"));
        d.schema = doc.atributos.value(QStringLiteral("schema"));
        if (!Descompactar(doc.texto.toLatin1(), &d.xml)) {
            ret.documentos.clear();
            FalharTransporte(&ret, TFalha::RespostaInvalida,
                             QStringLiteral("Documento NSU %1 da distribuição da SEFAZ (AN) não pôde ser descompactado").arg(d.nsu));
            return ret;
        }
        ret.documentos.append(d);
    }
    return ret;
}

TRetornoDistribuicao TServicosNFe::Distribuicao(const QString &cnpj, const QString &ultNSU)
{
    return Distribuir(cnpj, [&](QXmlStreamWriter &w) {
        w.writeStartElement(QStringLiteral("distNSU"));
        w.writeTextElement(QStringLiteral("ultNSU"), Nsu(ultNSU.trimmed().toLongLong()));
        w.writeEndElement();
    });
}

TRetornoDistribuicao TServicosNFe::DistribuicaoPorChave(const QString &cnpj, const QString &chave)
{
    return Distribuir(cnpj, [&](QXmlStreamWriter &w) {
        w.writeStartElement(QStringLiteral("consChNFe"));
        w.writeTextElement(QStringLiteral("chNFe"), chave);
        w.writeEndElement();
    });
}

bool MontarNfeProc(const QByteArray &nfeAssinada, const TProtocoloNFe &protocolo, QByteArray *nfeProc, QString *erro)
{
    auto falhar = [erro](const QString &texto) {
        if (erro)
            *erro = texto;
        return false;
    };
    TElementoXml nfe;
    QString erroXml;
    if (!LerElementoXml(nfeAssinada, &nfe, &erroXml))
        return falhar(QStringLiteral("A NF-e assinada está mal formada: %1").arg(erroXml));
    const TElementoXml *inf = nfe.Filho(QStringLiteral("infNFe"));
    const QString chave = inf ? inf->atributos.value(QStringLiteral("Id")).mid(3) : QString();
    const TElementoXml *digest = nfe.Procurar(QStringLiteral("DigestValue"));
    const QString digestValue = digest ? digest->texto.trimmed() : QString();
    if (protocolo.chNFe != chave)
        return falhar(QStringLiteral("O protocolo da SEFAZ é da chave %1, não da NF-e %2; nada foi gravado")
                          .arg(protocolo.chNFe, chave));
    if (digestValue.isEmpty() || protocolo.digVal != digestValue)
        return falhar(QStringLiteral("O protocolo da SEFAZ (digVal %1) não confere com a assinatura da NF-e %2 (DigestValue %3); nada foi gravado")
                          .arg(protocolo.digVal, chave, digestValue));
    if (protocolo.xml.isEmpty())
        return falhar(QStringLiteral("O protocolo da NF-e %1 veio vazio").arg(chave));
    *nfeProc = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><nfeProc versao=\"4.00\" xmlns=\"" + kNs.toUtf8() + "\">"
               + SemDeclaracaoXml(nfeAssinada) + SemDeclaracaoXml(protocolo.xml) + "</nfeProc>";
    return true;
}
