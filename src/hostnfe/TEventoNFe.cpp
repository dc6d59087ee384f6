#include "TEventoNFe.h"

#include "ElementoXml.h"
#include "TAssinadorNFe.h"
#include "TValidadorNFe.h"

#include <QXmlStreamWriter>

namespace {

using TValidadorNFe::TEsquema;

QString Descricao(int tpEvento)
{
    switch (tpEvento) {
    case 110111: return QStringLiteral("Cancelamento");
    case 110110: return QStringLiteral("Carta de Correcao");
    case 210200: return QStringLiteral("Confirmacao da Operacao");
    case 210210: return QStringLiteral("Ciencia da Operacao");
    case 210220: return QStringLiteral("Desconhecimento da Operacao");
    case 210240: return QStringLiteral("Operacao nao Realizada");
    }
    return {};
}

TEsquema Esquema(int tpEvento)
{
    return tpEvento == 110111 ? TEsquema::EventoCanc : tpEvento == 110110 ? TEsquema::EventoCCe : TEsquema::EventoManif;
}

// "2026-11-23T10:15:00-03:00": local time with its own offset, as the authority requires.
QString DataHoraComFuso(const QDateTime &quando)
{
    const QDateTime t = quando.isValid() ? quando : QDateTime::currentDateTime();
    const int minutos = t.offsetFromUtc() / 60;
    return t.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"))
           + QStringLiteral("%1%2:%3")
                 .arg(minutos < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                 .arg(qAbs(minutos) / 60, 2, 10, QLatin1Char('0'))
                 .arg(qAbs(minutos) % 60, 2, 10, QLatin1Char('0'));
}

// Free text goes out on one line, without the spaces at its ends the schemas refuse.
QString TextoLivre(const QString &texto)
{
    return texto.simplified();
}

} // namespace

namespace TEventoNFe {

const QString CondicaoUsoCCe = QStringLiteral(
    "A Carta de Correcao e disciplinada pelo paragrafo 1o-A do art. 7o do Convenio S/N, de 15 de dezembro de 1970 "
    "e pode ser utilizada para regularizacao de erro ocorrido na emissao de documento fiscal, desde que o erro nao "
    "esteja relacionado com: I - as variaveis que determinam o valor do imposto tais como: base de calculo, aliquota, "
    "diferenca de preco, quantidade, valor da operacao ou da prestacao; II - a correcao de dados cadastrais que "
    "implique mudanca do remetente ou do destinatario; III - a data de emissao ou de saida.");

QString Id(const TPedidoEvento &pedido)
{
    return QStringLiteral("ID%1%2%3").arg(pedido.tpEvento).arg(pedido.chave).arg(pedido.nSeqEvento, 2, 10, QLatin1Char('0'));
}

QByteArray Montar(const TPedidoEvento &pedido)
{
    QByteArray xml;
    QXmlStreamWriter w(&xml);
    w.writeStartElement(QStringLiteral("evento"));
    w.writeDefaultNamespace(QStringLiteral("http://www.portalfiscal.inf.br/nfe"));
    w.writeAttribute(QStringLiteral("versao"), QStringLiteral("1.00"));
    w.writeStartElement(QStringLiteral("infEvento"));
    w.writeAttribute(QStringLiteral("Id"), Id(pedido));
    w.writeTextElement(QStringLiteral("cOrgao"), QString::number(pedido.cOrgao));
    w.writeTextElement(QStringLiteral("tpAmb"), QString::number(pedido.tpAmb == 1 ? 1 : 2));
    w.writeTextElement(pedido.cnpj.size() == 11 ? QStringLiteral("CPF") : QStringLiteral("CNPJ"), pedido.cnpj);
    w.writeTextElement(QStringLiteral("chNFe"), pedido.chave);
    w.writeTextElement(QStringLiteral("dhEvento"), DataHoraComFuso(pedido.dhEvento));
    w.writeTextElement(QStringLiteral("tpEvento"), QString::number(pedido.tpEvento));
    w.writeTextElement(QStringLiteral("nSeqEvento"), QString::number(pedido.nSeqEvento));
    w.writeTextElement(QStringLiteral("verEvento"), QStringLiteral("1.00"));
    w.writeStartElement(QStringLiteral("detEvento"));
    w.writeAttribute(QStringLiteral("versao"), QStringLiteral("1.00"));
    w.writeTextElement(QStringLiteral("descEvento"), Descricao(pedido.tpEvento));
    if (pedido.tpEvento == 110111) {
        w.writeTextElement(QStringLiteral("nProt"), pedido.nProt);
        w.writeTextElement(QStringLiteral("xJust"), TextoLivre(pedido.xJust));
    } else if (pedido.tpEvento == 110110) {
        w.writeTextElement(QStringLiteral("xCorrecao"), TextoLivre(pedido.xCorrecao));
        w.writeTextElement(QStringLiteral("xCondUso"), CondicaoUsoCCe);
    } else if (pedido.tpEvento == 210240) {
        w.writeTextElement(QStringLiteral("xJust"), TextoLivre(pedido.xJust));
    }
    w.writeEndElement();   // detEvento
    w.writeEndElement();   // infEvento
    w.writeEndElement();   // evento
    return xml;
}

bool MontarAssinado(const TPedidoEvento &pedido, const TCertificadoA1 &certificado, QByteArray *assinado, QString *erro)
{
    if (Descricao(pedido.tpEvento).isEmpty()) {
        if (erro)
            *erro = QStringLiteral("Tipo de evento da NF-e desconhecido: %1").arg(pedido.tpEvento);
        return false;
    }
    QByteArray xml;
    if (!TAssinadorNFe::Assinar(Montar(pedido), Id(pedido), certificado, &xml, erro))
        return false;
    QString erroEsquema;
    if (!TValidadorNFe::Validar(xml, Esquema(pedido.tpEvento), &erroEsquema)) {
        if (erro)
            *erro = QStringLiteral("O evento %1 da NF-e %2 não segue o esquema oficial: %3")
                        .arg(Descricao(pedido.tpEvento), pedido.chave, erroEsquema);
        return false;
    }
    *assinado = xml;
    return true;
}

QByteArray MontarProc(const QByteArray &eventoAssinado, const QByteArray &retEvento)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
           "<procEventoNFe versao=\"1.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\">"
           + SemDeclaracaoXml(eventoAssinado) + SemDeclaracaoXml(retEvento) + "</procEventoNFe>";
}

} // namespace TEventoNFe
