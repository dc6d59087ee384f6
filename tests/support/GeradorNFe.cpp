#include "GeradorNFe.h"

#include "TNFe_XMLW.h"
#include "ChaveNFe.h"
#include "Valores.h"

#include <QSaveFile>
#include <QTimeZone>

// The sample document names only the fields it sets; the rest stay zero.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

// Not a valid signature: the reader only notes that there is one and skips it whole.
QByteArray Assinatura(const TnfeProc &nfe)
{
    const QString digest = nfe.prot.digVal.isEmpty() ? QStringLiteral("bm90IGEgcmVhbCBkaWdlc3Q=") : nfe.prot.digVal;
    return QStringLiteral("<Signature xmlns=\"http://www.w3.org/2000/09/xmldsig#\"><SignedInfo><CanonicalizationMethod "
                          "Algorithm=\"http://www.w3.org/TR/2001/REC-xml-c14n-20010315\"/><Reference URI=\"#NFe%1\">"
                          "<DigestValue>%2</DigestValue></Reference></SignedInfo><SignatureValue>"
                          "R2VyYWRvTkZlIG7Do28gYXNzaW5hIGRlIHZlcmRhZGU=</SignatureValue><KeyInfo><X509Data>"
                          "<X509Certificate>TUlJRmFrZQ==</X509Certificate></X509Data></KeyInfo></Signature>")
        .arg(nfe.chave, digest)
        .toUtf8();
}

} // namespace

QByteArray GerarXmlNFe(const TnfeProc &nfe, const OpcoesGeracao &opcoes)
{
    const TNFe_XMLW escritor(opcoes.prefixo);
    const QByteArray documento = escritor.ElementoNFe(nfe, opcoes.assinatura ? Assinatura(nfe) : QByteArray());
    QByteArray xml = opcoes.bom ? QByteArray("\xEF\xBB\xBF") : QByteArray();
    xml += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    if (!opcoes.comProtocolo)
        return xml + documento;
    const QByteArray pre = opcoes.prefixo.isEmpty() ? QByteArray() : opcoes.prefixo.toLatin1() + ':';
    const QByteArray ns = opcoes.prefixo.isEmpty() ? QByteArray("xmlns") : "xmlns:" + opcoes.prefixo.toLatin1();
    return xml + '<' + pre + "nfeProc versao=\"4.00\" " + ns + "=\"http://www.portalfiscal.inf.br/nfe\">" + documento
        + escritor.ElementoProtNFe(nfe.prot) + "</" + pre + "nfeProc>";
}

bool GravarXmlNFe(const QString &caminho, const TnfeProc &nfe, const OpcoesGeracao &opcoes)
{
    QSaveFile f(caminho);
    return f.open(QIODevice::WriteOnly) && f.write(GerarXmlNFe(nfe, opcoes)) >= 0 && f.commit();
}

TnfeProc NFeExemplo(const QString &cnpjEmit, const QString &cnpjDest, qint64 numero, int nItens)
{
    TnfeProc nfe;
    nfe.versao = QStringLiteral("4.00");
    TNFeIde &ide = nfe.ide;
    ide = {.cUF = "35", .cNF = QString::number((numero * 7919 + 13) % 100000000).rightJustified(8, QLatin1Char('0')),
           .natOp = "VENDA DE MERCADORIA", .cMunFG = "3550308", .verProc = "GeradorNFe 1.0", .serie = 1, .tpNF = 1,
           .idDest = 1, .tpImp = 1, .tpEmis = 1, .tpAmb = 1, .finNFe = 1, .indPres = 9, .nNF = numero,
           .dhEmi = QDateTime(QDate(2026, 11, 20), QTime(10, 30), QTimeZone(-3 * 3600))};
    const QString chave43 = ide.cUF + ide.dhEmi.toString(QStringLiteral("yyMM")) + cnpjEmit.rightJustified(14, QLatin1Char('0'))
        + QStringLiteral("55") + QString::number(ide.serie).rightJustified(3, QLatin1Char('0'))
        + QString::number(numero).rightJustified(9, QLatin1Char('0')) + QString::number(ide.tpEmis) + ide.cNF;
    nfe.chave = chave43 + ChaveNFe::Digito(chave43);
    ide.cDV = nfe.chave.back().digitValue();

    const TNFeEndereco endereco{"RUA DAS FLORES", "120", {}, "CENTRO", "3550308", "SAO PAULO", "SP", "01001000", "1058",
                                "BRASIL", "1133334444"};
    nfe.emitente = {cnpjEmit, {}, "DISTRIBUIDORA EXEMPLO LTDA", "EXEMPLO", "110042490114", {}, {}, {}, 3, endereco};
    nfe.destinatario = {cnpjDest, {}, {}, "LOJA DESTINO LTDA", "111222333444", {}, {}, {}, 1, endereco};

    TNFeICMSTot &tot = nfe.ICMSTot;
    for (int i = 1; i <= nItens; ++i) {
        const Money unitario = Money::fromRaw(100000 + i * 2500);
        const int qtd = 1 + i % 5;
        TItem &it = nfe.itens.Add();
        it = {.nItem = i, .cProd = QStringLiteral("F%1").arg(i, 3, 10, QLatin1Char('0')),
              .xProd = QStringLiteral("PRODUTO EXEMPLO %1").arg(i), .NCM = "22021000", .CFOP = "5102", .uCom = "UN",
              .uTrib = "UN", .qCom = double(qtd), .vUnCom = unitario.toDouble(), .qTrib = double(qtd),
              .vUnTrib = unitario.toDouble(), .vProd = unitario * qtd};
        it.ICMS = {.grupo = "ICMS00", .CST = "00", .modBC = 3, .vBC = it.vProd, .vICMS = it.vProd.times(0.18).roundTo(2),
                   .pICMS = 18};
        it.PIS = {"01", it.vProd, it.vProd.times(0.0165).roundTo(2), 1.65};
        it.COFINS = {"01", it.vProd, it.vProd.times(0.076).roundTo(2), 7.6};
        tot.vICMS += it.ICMS.vICMS;
        tot.vProd += it.vProd;
        tot.vPIS += it.PIS.valor;
        tot.vCOFINS += it.COFINS.valor;
    }
    tot.vBC = tot.vNF = tot.vProd;   // every item's ICMS base is its value
    nfe.infCpl = QStringLiteral("Pedido 4521 & entrega <manhã>");
    nfe.assinado = true;
    nfe.prot = {true, 1, 100, "SP_NFE_PL009_V4", nfe.chave, QStringLiteral("1352600%1").arg(numero, 8, 10, QLatin1Char('0')),
                "bm90IGEgcmVhbCBkaWdlc3Q=", "Autorizado o uso da NF-e", ide.dhEmi.addSecs(95)};
    return nfe;
}
