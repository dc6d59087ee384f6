#include "Fornecedores.h"

#include "ChaveNFe.h"
#include "Respostas.h"
#include "TAssinadorNFe.h"
#include "TCertificadoA1.h"
#include "TNFe_XMLW.h"
#include "TnfeProc.h"

#include <QHash>

#include <memory>

using Respostas::E;

namespace {

struct TFornecedor
{
    const char *cnpj, *nome, *ie, *produto, *ncm;
};
constexpr TFornecedor Fornecedores[] = {
    {"61729483000154", "ATACADO BOA SAFRA LTDA", "110042490114", "ARROZ TIPO 1 5KG", "10063021"},
    {"48091527000103", "BEBIDAS SERRA AZUL S/A", "206115337116", "AGUA MINERAL 500ML", "22011000"},
    {"73510864000127", "PAPELARIA CENTRAL COMERCIO LTDA", "492017563110", "CADERNO ESPIRAL 96F", "48202000"},
};

// A certificate per supplier, made on first use (making RSA keys is slow).
const TCertificadoA1 *Certificado(const QString &cnpj, QString *erro)
{
    static QHash<QString, std::shared_ptr<TCertificadoA1>> feitos;
    if (auto it = feitos.constFind(cnpj); it != feitos.constEnd())
        return it->get();
    TPedidoCertificadoTeste pedido;
    pedido.cnpj = cnpj;
    pedido.senha = QStringLiteral("fornecedor");
    const QByteArray pfx = GerarCertificadoTeste(pedido, erro);
    if (pfx.isEmpty())
        return nullptr;
    std::shared_ptr<TCertificadoA1> c = TCertificadoA1::AbrirDeBytes(pfx, pedido.senha, erro);
    return c ? feitos.insert(cnpj, c)->get() : nullptr;
}

TnfeProc Documento(const TFornecedor &f, const QString &cnpjDest, qint64 numero, const QDateTime &dhEmi)
{
    TnfeProc nfe;
    nfe.versao = QStringLiteral("4.00");
    TNFeIde &ide = nfe.ide;
    ide.cUF = QStringLiteral("35");
    ide.cNF = QString::number((numero * 48271) % 99999989 + 1).rightJustified(8, QLatin1Char('0'));
    ide.natOp = QStringLiteral("VENDA DE MERCADORIA");
    ide.cMunFG = QStringLiteral("3550308");
    ide.verProc = QStringLiteral("FORNECEDOR 2.1");
    ide.serie = 1;
    ide.nNF = numero;
    ide.tpNF = ide.idDest = ide.tpImp = ide.tpEmis = ide.finNFe = 1;
    ide.tpAmb = 2;
    ide.indPres = 9;
    ide.dhEmi = ide.dhSaiEnt = dhEmi;
    const QString chave43 = ide.cUF + dhEmi.toString(QStringLiteral("yyMM")) + QLatin1String(f.cnpj) + QStringLiteral("55001")
                            + QString::number(numero).rightJustified(9, QLatin1Char('0')) + QStringLiteral("1") + ide.cNF;
    nfe.chave = chave43 + ChaveNFe::Digito(chave43);
    ide.cDV = nfe.chave.back().digitValue();

    const TNFeEndereco endereco{QStringLiteral("AVENIDA DO ESTADO"), QStringLiteral("4500"), {}, QStringLiteral("CAMBUCI"),
                                QStringLiteral("3550308"), QStringLiteral("SAO PAULO"), QStringLiteral("SP"),
                                QStringLiteral("01516000"), QStringLiteral("1058"), QStringLiteral("BRASIL"), {}};
    nfe.emitente.CNPJ = QLatin1String(f.cnpj);
    nfe.emitente.xNome = QLatin1String(f.nome);
    nfe.emitente.IE = QLatin1String(f.ie);
    nfe.emitente.CRT = 3;
    nfe.emitente.ender = endereco;
    nfe.destinatario.CNPJ = cnpjDest;
    nfe.destinatario.xNome = QStringLiteral("NF-E EMITIDA EM AMBIENTE DE HOMOLOGACAO - SEM VALOR FISCAL");
    nfe.destinatario.indIEDest = 9;
    nfe.destinatario.ender = endereco;

    // One or two items, alternately.
    for (int i = 1; i <= 1 + numero % 2; ++i) {
        TItem &it = nfe.itens.Add();
        it.nItem = i;
        it.cProd = QStringLiteral("P%1").arg(i * 101);
        it.cEAN = it.cEANTrib = QStringLiteral("SEM GTIN");
        it.xProd = QLatin1String(f.produto);
        it.NCM = QLatin1String(f.ncm);
        it.CFOP = QStringLiteral("5102");
        it.uCom = it.uTrib = QStringLiteral("UN");
        it.qCom = it.qTrib = double(2 * i + numero % 5);
        it.vUnCom = it.vUnTrib = 12.5 * i;
        it.vProd = Money::fromDouble(it.qCom * it.vUnCom);
        it.ICMS.grupo = QStringLiteral("ICMS00");
        it.ICMS.CST = QStringLiteral("00");
        it.ICMS.modBC = 3;
        it.ICMS.vBC = it.vProd;
        it.ICMS.pICMS = 18;
        it.ICMS.vICMS = it.vProd.times(0.18).roundTo(2);
        it.PIS = {QStringLiteral("07"), {}, {}, 0};
        it.COFINS = {QStringLiteral("07"), {}, {}, 0};
        nfe.ICMSTot.vBC += it.vProd;
        nfe.ICMSTot.vICMS += it.ICMS.vICMS;
        nfe.ICMSTot.vProd += it.vProd;
    }
    nfe.ICMSTot.vNF = nfe.ICMSTot.vProd;
    return nfe;
}

} // namespace

bool GerarNotaFornecedor(const QString &cnpjDest, qint64 numero, const QString &nProt, TNotaFornecedor *nota,
                         QString *erro)
{
    const TFornecedor &f = Fornecedores[numero % std::size(Fornecedores)];
    const TCertificadoA1 *certificado = Certificado(QLatin1String(f.cnpj), erro);
    if (!certificado)
        return false;
    const QDateTime agora = Respostas::Agora();
    const TnfeProc nfe = Documento(f, cnpjDest, numero, agora.addSecs(-3600));
    QByteArray assinado;
    if (!TAssinadorNFe::Assinar(TNFe_XMLW().ElementoNFe(nfe), QStringLiteral("NFe") + nfe.chave, *certificado,
                                &assinado, erro))
        return false;
    if (assinado.startsWith("<?xml"))
        assinado = assinado.mid(assinado.indexOf("?>") + 2).trimmed();

    *nota = {nfe.chave, nfe.emitente.CNPJ, nfe.emitente.xNome, nfe.emitente.IE, cnpjDest, {}, nProt,
             nfe.ide.dhEmi, agora.addSecs(-3590), nfe.ICMSTot.vNF.toDouble(), {}};
    const int i = int(assinado.indexOf("<DigestValue>")), j = int(assinado.indexOf("</DigestValue>"));
    nota->digVal = QString::fromLatin1(assinado.mid(i + 13, j - i - 13));
    Respostas::TProtocolo p;
    p.chNFe = nota->chave;
    p.nProt = nProt;
    p.digVal = nota->digVal;
    p.dhRecbto = nota->dhRecbto;
    p.xMotivo = Respostas::Motivo(100);
    nota->procNFe = "<nfeProc versao=\"4.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\">" + assinado
                    + Respostas::ProtNFe(p) + "</nfeProc>";
    return true;
}

QByteArray ResNFe(const TNotaFornecedor &n)
{
    return "<resNFe versao=\"1.01\" xmlns=\"http://www.portalfiscal.inf.br/nfe\">" + E("chNFe", n.chave)
           + E("CNPJ", n.cnpjEmit) + E("xNome", n.xNome) + E("IE", n.ie) + E("dhEmi", Respostas::Hora(n.dhEmi))
           + E("tpNF", QStringLiteral("1")) + E("vNF", QString::number(n.vNF, 'f', 2)) + E("digVal", n.digVal)
           + E("dhRecbto", Respostas::Hora(n.dhRecbto)) + E("nProt", n.nProt) + E("cSitNFe", QStringLiteral("1"))
           + "</resNFe>";
}

QByteArray ResEvento(const QString &chave, const QString &cnpjAutor, int tpEvento, int nSeqEvento,
                     const QString &xEvento, const QString &nProt, const QDateTime &dhEvento)
{
    return "<resEvento versao=\"1.01\" xmlns=\"http://www.portalfiscal.inf.br/nfe\">" + E("cOrgao", QStringLiteral("91"))
           + E("CNPJ", cnpjAutor) + E("chNFe", chave) + E("dhEvento", Respostas::Hora(dhEvento))
           + E("tpEvento", QString::number(tpEvento)) + E("nSeqEvento", QString::number(nSeqEvento))
           + E("xEvento", xEvento) + E("dhRecbto", Respostas::Hora(Respostas::Agora())) + E("nProt", nProt)
           + "</resEvento>";
}
