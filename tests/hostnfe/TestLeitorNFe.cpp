#include "GeradorNFe.h"
#include "TNFe_XMLI.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>

// The documents below name only the fields each case sets; the rest stay zero.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

const QString Chave = QStringLiteral("35261112345678000195550010000012341097720596");

Money M(const char *texto) { return *Money::parse(QString::fromLatin1(texto)); }

// A supplier's document with a group of every kind the reader keeps, spread over its items.
TnfeProc NotaCompleta()
{
    TnfeProc nfe = NFeExemplo(QStringLiteral("12ABC34501DE35"), QStringLiteral("98765432000198"), 4521, 40);
    nfe.ide.refNFe = {Chave, QStringLiteral("35261198765432000198550010000000071000000075")};
    nfe.ide.dhSaiEnt = QDateTime(QDate(2026, 11, 21), QTime(8, 0), QTimeZone(-4 * 3600));
    nfe.infAdFisco = QStringLiteral("ICMS ST recolhido conforme protocolo");
    nfe.transp = {1, "11222333000181", {}, "TRANSPORTES RAPIDO", {}, {}, "CAMPINAS", "SP", "ABC1D23", "MG", 12, 110.5, 118.25, "CAIXA"};
    nfe.IBSCBSTot = {true, M("100"), M("0.10"), M("0"), M("0.10"), M("0"), M("0.90")};

    nfe.itens.GetItem(0).ICMS = {.grupo = "ICMS10", .CST = "10", .modBC = 3, .vBC = M("100"), .vICMS = M("12"),
                                 .pICMS = 12, .vBCFCP = M("100"), .vFCP = M("2"), .pFCP = 2, .modBCST = 4,
                                 .pMVAST = 41.39, .pRedBCST = 10, .pICMSST = 18, .vBCST = M("127.25"),
                                 .vICMSST = M("10.91"), .vBCFCPST = M("127.25"), .vFCPST = M("2.55"), .pFCPST = 2};

    TItem &ipi = nfe.itens.GetItem(1);
    ipi.IPI = {true, "999", {}, "50", M("200.10"), M("13.01"), 6.5};
    ipi.ICMSUFDest = {true, M("200.10"), M("200.10"), M("4.00"), M("10.01"), M("0"), 2, 20, 12, 100};

    nfe.itens.GetItem(2).ICMS = {.grupo = "ICMS60", .orig = 2, .CST = "60", .vBCSTRet = M("80.40"),
                                 .vICMSSubstituto = M("9.60"), .vICMSSTRet = M("4.87"), .pST = 18};
    TItem &sn = nfe.itens.GetItem(3);
    sn.ICMS = {.grupo = "ICMSSN202", .CSOSN = "202", .modBCST = 4, .pICMSST = 18, .vBCST = M("55.50"), .vICMSST = M("3.21")};
    sn.PIS = {"07"};
    sn.COFINS = {"03", {}, M("1.52"), 0, 4, 0.38};

    TItem &ibs = nfe.itens.GetItem(4);
    ibs.IBSCBS = {true, "000", "000001", M("100"), M("0.10"), M("0"), M("0.10"), M("0.90"), 0.1, 0, 0.9};
    ibs.IPI = {true, "301", "11222333000181", "53"};

    TItem &imp = nfe.itens.GetItem(6);
    imp.CFOP = QStringLiteral("3102");
    imp.cEAN = imp.cEANTrib = QStringLiteral("7891234567895");
    imp.infAdProd = QStringLiteral("DI 26/0012345-6 <lote A&B>");
    imp.ICMS = {.grupo = "ICMS90", .CST = "90", .pRedBC = 33.33};

    TItem &dev = nfe.itens.GetItem(8);
    dev.vFrete = M("1.11");
    dev.vDesc = M("0.01");
    dev.vTotTrib = M("7.77");
    dev.pDevol = 50;
    dev.vIPIDevol = M("6.50");
    dev.qCom = 1.2345;
    dev.vUnCom = 0.0123456789;
    return nfe;
}

struct Lido { TnfeProc nfe; bool ok = false; QString erro; };

Lido Ler(const QByteArray &xml, const QString &nome = QStringLiteral("nota.xml"))
{
    Lido l;
    TNFe_XMLI leitor(l.nfe);
    l.ok = leitor.ImportarDoTexto(xml, nome);
    l.erro = leitor.Erro();
    return l;
}

} // namespace

TEST(LeitorNFe, DevolveOQueOGeradorEscreveuEmTodasAsFormas)
{
    const TnfeProc nota = NotaCompleta();
    // Without the optional groups (no recipient, IPI, PIS, ...): a reader that made one up would write it.
    TnfeProc minima = NFeExemplo(QStringLiteral("12345678000195"), {}, 7, 1);
    minima.destinatario = {};
    minima.itens.GetItem(0).PIS = {};
    minima.infCpl.clear();
    const struct { const char *forma; const TnfeProc &nfe; OpcoesGeracao op; } formas[] = {
        {"nfeProc assinada", nota, {}},
        {"NFe sem protocolo nem assinatura", nota, {false, {}, false, false}},
        {"prefixo nfe: e BOM", nota, {true, QStringLiteral("nfe"), true, true}},
        {"sem os grupos opcionais", minima, {false, {}, false, false}},
    };
    for (const auto &f : formas) {
        const QByteArray xml = GerarXmlNFe(f.nfe, f.op);
        const Lido l = Ler(xml);
        ASSERT_TRUE(l.ok) << f.forma << ": " << l.erro.toStdString();
        // Whatever the reader missed or changed would be missing or changed here.
        EXPECT_EQ(GerarXmlNFe(l.nfe, f.op), xml) << f.forma;
        EXPECT_EQ(l.nfe.prot.presente, f.op.comProtocolo) << f.forma;
        EXPECT_EQ(l.nfe.assinado, f.op.assinatura) << f.forma;
    }

    // Reader and writer share the field tables, so a field mapped wrongly in them would still
    // round-trip: one value of each table checked against the model itself.
    const TnfeProc l = Ler(GerarXmlNFe(nota)).nfe;
    ASSERT_EQ(l.itens.Count(), 40);
    const auto item = [&](int i) -> const TItem & { return l.itens.GetItem(i); };
    EXPECT_EQ(l.emitente.CNPJ + ' ' + QString::number(l.ide.nNF), QStringLiteral("12ABC34501DE35 4521"));
    QStringList valores;
    for (const Money m : {item(0).ICMS.vICMSST, item(0).ICMS.vFCPST, item(1).IPI.vIPI, item(1).ICMSUFDest.vICMSUFDest,
                          item(2).ICMS.vICMSSTRet, item(3).COFINS.valor, item(4).IBSCBS.vCBS, item(8).vIPIDevol,
                          l.IBSCBSTot.vCBS, l.ICMSTot.vProd - nota.ICMSTot.vProd})
        valores << m.toString();
    EXPECT_EQ(valores.join(u' '), "10.91 2.55 13.01 10.01 4.87 1.52 0.9 6.5 0.9 0");
    // Numbers read as exactly as strtod reads them.
    EXPECT_EQ(std::tuple(item(0).ICMS.pMVAST, item(8).vUnCom, item(8).qCom), std::tuple(41.39, 0.0123456789, 1.2345));
    EXPECT_EQ(item(3).ICMS.CSOSN + ' ' + item(6).CFOP + ' ' + item(6).cEAN, QStringLiteral("202 3102 7891234567895"));
    EXPECT_EQ(item(7).cEAN, QString());   // "SEM GTIN"
    EXPECT_EQ(l.transp.UF + ' ' + l.transp.UFVeic + ' ' + l.prot.nProt, "SP MG " + nota.prot.nProt);
}

TEST(LeitorNFe, DataSoDeLayoutAntigoEmISO88591)
{
    const Lido antigo = Ler("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><NFe><infNFe Id=\"NFe" + Chave.toLatin1()
                            + "\" versao=\"2.00\"><ide><nNF>88</nNF><dEmi>2010-05-03</dEmi></ide>"
                              "<emit><xNome>A\xe7\xfa" "car Uni\xe3o</xNome></emit><dest><CPF>01234567890</CPF></dest></infNFe></NFe>");
    ASSERT_TRUE(antigo.ok) << antigo.erro.toStdString();
    EXPECT_EQ(antigo.nfe.ide.dhEmi.date().toString(Qt::ISODate) + ' ' + antigo.nfe.destinatario.CPF + ' ' + antigo.nfe.emitente.xNome,
              QStringLiteral("2010-05-03 01234567890 Açúcar União"));
}

TEST(LeitorNFe, EntradaRuimDaUmaMensagemQueNomeiaOArquivoENaoLeNada)
{
    const QByteArray boa = GerarXmlNFe(NFeExemplo(QStringLiteral("12345678000195"), {}, 1, 5));
    const auto trocar = [&](const char *item, const char *elemento, const char *valor) {
        QByteArray xml = boa;
        const qsizetype ini = xml.indexOf(elemento, xml.indexOf(item)) + qstrlen(elemento);
        return xml.replace(ini, xml.indexOf('<', ini) - ini, valor);
    };
    const QByteArray fundo = "<NFe><infNFe>" + QByteArray("<a>").repeated(100000);
    const struct { const char *caso; QByteArray xml; const char *trecho; } casos[] = {
        {"vazio", "", "o arquivo está vazio"},
        {"só BOM e brancos", "\xEF\xBB\xBF \n ", "o arquivo está vazio"},
        {"não é XML", "%PDF-1.4 ...", "não é um arquivo XML"},
        {"truncado", boa.left(boa.size() / 2), "truncado"},
        {"mal formado", "<NFe><infNFe></NFe>", "XML mal formado na linha 1"},
        {"entidade não declarada", "<NFe><infNFe>&x;</infNFe></NFe>", "XML mal formado"},
        {"outro namespace", "<NFe xmlns=\"http://www.exemplo.com.br/nfe\"><infNFe/></NFe>", "o namespace 'http://www.exemplo.com.br/nfe'"},
        {"outra raiz", "<html><infNFe/></html>", "o elemento raiz é <html>"},
        {"sem infNFe", "<nfeProc xmlns=\"http://www.portalfiscal.inf.br/nfe\"><NFe/></nfeProc>", "sem o grupo <infNFe>"},
        {"bomba de entidades", "<?xml version=\"1.0\"?><!DOCTYPE NFe [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;\">]>"
                               "<NFe><infNFe>&b;&b;&b;&b;</infNFe></NFe>", "contém DTD, que não é aceita em NF-e"},
        {"entidade externa", "<!DOCTYPE NFe [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><NFe>&x;</NFe>", "contém DTD"},
        {"aninhamento fundo", fundo, "aninhados além de 64 níveis"},
        {"valor mal escrito", trocar("<det nItem=\"3\">", "<vProd>", "abc"), "valor inválido em <vProd> do item 3: 'abc'"},
        {"taxa não finita", trocar("<det nItem=\"2\">", "<pICMS>", "nan"), "valor inválido em <pICMS> do item 2: 'nan'"},
        {"valor fora do alcance", trocar("<det nItem=\"1\">", "<vProd>", "999999999999999"), "valor inválido em <vProd> do item 1"},
        {"dois pontos", trocar("<det nItem=\"4\">", "<qCom>", "1.2.3"), "valor inválido em <qCom> do item 4"},
        {"data inválida", trocar("<ide>", "<dhEmi>", "2026-13-45T10:00:00-03:00"), "valor inválido em <dhEmi>: '2026-13"},
    };
    for (const auto &c : casos) {
        const Lido l = Ler(c.xml, QStringLiteral("/notas/fornecedor.xml"));
        EXPECT_TRUE(!l.ok && l.nfe.chave.isEmpty() && l.nfe.itens.Count() == 0) << c.caso;
        EXPECT_TRUE(l.erro.startsWith(QStringLiteral("/notas/fornecedor.xml: ")) && l.erro.contains(QString::fromUtf8(c.trecho)))
            << c.caso << ": " << l.erro.toStdString();
    }

    QTemporaryDir pasta;
    QFile grande(pasta.filePath(QStringLiteral("grande.xml")));
    ASSERT_TRUE(grande.open(QIODevice::WriteOnly) && grande.resize(TNFe_XMLI::TamanhoMaximo + 1));
    grande.close();
    const struct { QString caminho; const char *trecho; } arquivos[] = {
        {pasta.path(), "é uma pasta"},
        {pasta.filePath(QStringLiteral("falta.xml")), "arquivo não encontrado"},
        {grande.fileName(), "arquivo grande demais para uma NF-e"},
        {QStringLiteral("/dev/zero"), "não é um arquivo comum"},
    };
    for (const auto &a : arquivos) {
        TnfeProc nfe;
        TNFe_XMLI leitor(nfe);
        EXPECT_FALSE(leitor.ImportarDoArq(a.caminho));
        EXPECT_TRUE(leitor.Erro().startsWith(a.caminho + QStringLiteral(": ")) && leitor.Erro().contains(QString::fromUtf8(a.trecho)))
            << leitor.Erro().toStdString();
    }
}
