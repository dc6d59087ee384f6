#include "CertificadosTeste.h"
#include "GeradorNFe.h"
#include "ChaveNFe.h"
#include "SimuladorSefaz.h"
#include "TAssinadorNFe.h"
#include "TNFe_XMLW.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslKey>
#include <QXmlStreamReader>

#include <zlib.h>

namespace {

const QString Cnpj = QStringLiteral("24587136000108");

// Raw SOAP through Qt Network with the company's certificate, as the product's wire posts it.
class Cliente
{
public:
    explicit Cliente(const TSimuladorSefaz &sim) : m_sim(sim)
    {
        QString erro;
        m_a1 = TCertificadoA1::Abrir(sim.CertificadoCliente(), sim.SenhaCliente(), &erro);
        EXPECT_TRUE(m_a1) << erro.toStdString();
        QFile ca(sim.CaServidor());
        EXPECT_TRUE(ca.open(QIODevice::ReadOnly));
        m_tls.setCaCertificates(QSslCertificate::fromData(ca.readAll()));
        m_tls.setLocalCertificate(QSslCertificate(m_a1->CertificadoPem()));
        m_tls.setPrivateKey(QSslKey(m_a1->ChavePrivadaPem(), QSsl::Rsa));
    }
    QByteArray Postar(const QString &operacao, const QByteArray &msg)
    {
        QNetworkRequest pedido(QUrl(m_sim.Endpoint() + QStringLiteral("/ws/") + operacao));
        pedido.setSslConfiguration(m_tls);
        pedido.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/soap+xml; charset=utf-8"));
        const QByteArray corpo = "<soap:Envelope xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\"><soap:Body>"
                                 "<nfeDadosMsg xmlns=\"http://www.portalfiscal.inf.br/nfe/wsdl/"
                                 + operacao.toLatin1() + "\">" + msg + "</nfeDadosMsg></soap:Body></soap:Envelope>";
        QNetworkReply *r = m_rede.post(pedido, corpo);
        QEventLoop espera;
        QObject::connect(r, &QNetworkReply::finished, &espera, &QEventLoop::quit);
        espera.exec();
        r->deleteLater();
        EXPECT_EQ(r->error(), QNetworkReply::NoError) << r->errorString().toStdString();
        return r->readAll();
    }
    QByteArray Assinar(const QByteArray &xml, const QString &id)
    {
        QByteArray assinado;
        QString erro;
        EXPECT_TRUE(TAssinadorNFe::Assinar(xml, id, *m_a1, &assinado, &erro)) << erro.toStdString();
        return assinado.startsWith("<?xml") ? assinado.mid(assinado.indexOf("?>") + 2).trimmed() : assinado;
    }

private:
    const TSimuladorSefaz &m_sim;
    std::unique_ptr<TCertificadoA1> m_a1;
    QSslConfiguration m_tls = QSslConfiguration::defaultConfiguration();
    QNetworkAccessManager m_rede;
};

QStringList Valores(const QByteArray &xml, const QString &nome)
{
    QStringList v;
    QXmlStreamReader r(xml);
    while (!r.atEnd())
        if (r.readNext() == QXmlStreamReader::StartElement && r.name() == nome)
            v.append(r.readElementText(QXmlStreamReader::IncludeChildElements));
    return v;
}

QString Valor(const QByteArray &xml, const QString &nome) { return Valores(xml, nome).value(0); }

QByteArray EnviNFe(Cliente &c, qint64 numero, const QString &cNF = {})
{
    TnfeProc nfe = NFeExemplo(Cnpj, QStringLiteral("98765432000110"), numero, 2);
    nfe.ide.tpAmb = 2;
    if (!cNF.isEmpty()) {
        nfe.ide.cNF = cNF;
        const QString k = nfe.chave.left(35) + cNF;
        nfe.chave = k + ChaveNFe::Digito(k);
        nfe.ide.cDV = nfe.chave.back().digitValue();
    }
    return "<enviNFe versao=\"4.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\"><idLote>1</idLote><indSinc>1</indSinc>"
           + c.Assinar(TNFe_XMLW().ElementoNFe(nfe), QStringLiteral("NFe") + nfe.chave) + "</enviNFe>";
}

QByteArray EnvEvento(Cliente &c, const QString &chave, int tpEvento, int seq, const QByteArray &det)
{
    const QString id = QStringLiteral("ID%1%2%3").arg(tpEvento).arg(chave).arg(seq, 2, 10, QLatin1Char('0'));
    const QByteArray evento = QStringLiteral("<evento versao=\"1.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\">"
                                             "<infEvento Id=\"%1\"><cOrgao>%2</cOrgao><tpAmb>2</tpAmb><CNPJ>%3</CNPJ>"
                                             "<chNFe>%4</chNFe><dhEvento>2026-11-20T10:00:00-03:00</dhEvento>"
                                             "<tpEvento>%5</tpEvento><nSeqEvento>%6</nSeqEvento><verEvento>1.00</verEvento>"
                                             "<detEvento versao=\"1.00\">")
                                  .arg(id, tpEvento / 1000 == 210 ? QStringLiteral("91") : QStringLiteral("35"), Cnpj,
                                       chave)
                                  .arg(tpEvento)
                                  .arg(seq)
                                  .toUtf8()
                              + det + "</detEvento></infEvento></evento>";
    return "<envEvento versao=\"1.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\"><idLote>7</idLote>"
           + c.Assinar(evento, id) + "</envEvento>";
}

QByteArray Gunzip(const QByteArray &gz)
{
    z_stream z{};
    inflateInit2(&z, 16 + MAX_WBITS);
    QByteArray saida(1 << 20, Qt::Uninitialized);
    z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(gz.constData()));
    z.avail_in = uInt(gz.size());
    z.next_out = reinterpret_cast<Bytef *>(saida.data());
    z.avail_out = uInt(saida.size());
    inflate(&z, Z_FINISH);
    saida.truncate(int(z.total_out));
    inflateEnd(&z);
    return saida;
}

struct DocZip
{
    QString nsu, schema;
    QByteArray xml;
};
QList<DocZip> Documentos(const QByteArray &ret)
{
    QList<DocZip> docs;
    QXmlStreamReader r(ret);
    while (!r.atEnd())
        if (r.readNext() == QXmlStreamReader::StartElement && r.name() == u"docZip") {
            const QXmlStreamAttributes a = r.attributes();
            docs.append({a.value(QStringLiteral("NSU")).toString(), a.value(QStringLiteral("schema")).toString(),
                         Gunzip(QByteArray::fromBase64(r.readElementText().toLatin1()))});
        }
    return docs;
}

class SimuladorSefaz : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QString erro;
        ASSERT_TRUE(sim.Iniciar(Cnpj, &erro)) << erro.toStdString();
        cliente = std::make_unique<Cliente>(sim);
    }
    TSimuladorSefaz sim;
    std::unique_ptr<Cliente> cliente;
};

} // namespace

TEST_F(SimuladorSefaz, AutorizaUmaVezERecusaDuplicidadesAssinaturaEEsquema)
{
    const QByteArray nota = EnviNFe(*cliente, 501);
    QByteArray quebrada = nota;
    quebrada.replace("<xNome>LOJA DESTINO LTDA</xNome>", "<xNome>OUTRA LOJA LTDA</xNome>");
    ASSERT_NE(quebrada, nota);
    QByteArray semIdLote = nota;
    semIdLote.replace("<idLote>1</idLote>", "");
    const struct { const char *caso; QByteArray msg; int cStat; } casos[] = {
        {"nova", nota, 104},
        {"a mesma chave", nota, 204},
        {"mesmo número, outra chave", EnviNFe(*cliente, 501, QStringLiteral("11112222")), 539},
        {"alterada depois de assinada", quebrada, 297},
        {"fora do esquema", semIdLote, 225},
    };
    QString nProt;
    for (const auto &c : casos) {
        SCOPED_TRACE(c.caso);
        const QByteArray ret = cliente->Postar(QStringLiteral("NFeAutorizacao4"), c.msg);
        EXPECT_EQ(Valor(ret, QStringLiteral("cStat")).toInt(), c.cStat) << ret.toStdString();
        if (c.cStat == 104) {
            nProt = Valor(ret, QStringLiteral("nProt"));
            EXPECT_EQ(Valores(ret, QStringLiteral("cStat")).value(1), QStringLiteral("100"));
            EXPECT_EQ(Valor(ret, QStringLiteral("digVal")), Valor(c.msg, QStringLiteral("DigestValue")));
            EXPECT_EQ(nProt.size(), 15);
        }
        if (c.cStat == 204) {
            EXPECT_TRUE(Valor(ret, QStringLiteral("xMotivo")).contains(QStringLiteral("[nProt:") + nProt));
        }
    }
    EXPECT_EQ(sim.Pedidos(QStringLiteral("NFeAutorizacao4")), 5);
}

TEST_F(SimuladorSefaz, EventosUmaVezPorSequenciaEParadaSoParaEmissaoNormal)
{
    const QByteArray nota = EnviNFe(*cliente, 77);
    const QByteArray autorizada = cliente->Postar(QStringLiteral("NFeAutorizacao4"), nota);
    const QString chave = Valor(autorizada, QStringLiteral("chNFe")), nProt = Valor(autorizada, QStringLiteral("nProt"));
    ASSERT_EQ(chave.size(), 44) << autorizada.toStdString();
    const QString desconhecida = chave.left(25) + QStringLiteral("999999999") + chave.mid(34);
    const QByteArray cancelar = EnvEvento(*cliente, chave, 110111, 1,
                                          "<descEvento>Cancelamento</descEvento><nProt>" + nProt.toLatin1()
                                              + "</nProt><xJust>Nota emitida com valor errado</xJust>");
    const QByteArray consulta = "<consSitNFe versao=\"4.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\"><tpAmb>2</tpAmb>"
                                "<xServ>CONSULTAR</xServ><chNFe>" + chave.toLatin1() + "</chNFe></consSitNFe>";
    const QByteArray status = "<consStatServ versao=\"4.00\" xmlns=\"http://www.portalfiscal.inf.br/nfe\"><tpAmb>2</tpAmb>"
                              "<cUF>35</cUF><xServ>STATUS</xServ></consStatServ>";
    const struct { const char *comando, *operacao; QByteArray msg; int primeiro, ultimo; } passos[] = {
        {"", "NFeRecepcaoEvento4", cancelar, 128, 135},
        {"", "NFeRecepcaoEvento4", cancelar, 128, 573},
        {"", "NFeRecepcaoEvento4",
         EnvEvento(*cliente, desconhecida.left(43) + ChaveNFe::Digito(desconhecida.left(43)), 110111, 1,
                   "<descEvento>Cancelamento</descEvento><nProt>" + nProt.toLatin1()
                       + "</nProt><xJust>Nota emitida com valor errado</xJust>"),
         128, 217},
        {"", "NFeConsultaProtocolo4", consulta, 101, 135},
        {"status 108", "NFeStatusServico4", status, 108, 108},
        {"", "NFeConsultaProtocolo4", consulta, 108, 108},
        {"", "NFeAutorizacao4", EnviNFe(*cliente, 78), 108, 108},
        {"status 107", "NFeStatusServico4", status, 107, 107},
    };
    for (const auto &p : passos) {
        SCOPED_TRACE(p.operacao);
        if (*p.comando) {
            ASSERT_FALSE(sim.Comando(QLatin1String(p.comando)).isEmpty());
        }
        const QStringList cStat = Valores(cliente->Postar(QLatin1String(p.operacao), p.msg), QStringLiteral("cStat"));
        EXPECT_EQ(cStat.value(0).toInt(), p.primeiro);
        EXPECT_EQ(cStat.value(cStat.size() - 1).toInt(), p.ultimo);
    }
}

TEST_F(SimuladorSefaz, DistribuiEmOrdemDeNsuEOXmlCompletoSoDepoisDaManifestacao)
{
    const auto distribuir = [this](const QString &ultNSU) {
        return cliente->Postar(QStringLiteral("NFeDistribuicaoDFe"),
                               "<distDFeInt versao=\"1.01\" xmlns=\"http://www.portalfiscal.inf.br/nfe\"><tpAmb>2</tpAmb>"
                               "<cUFAutor>35</cUFAutor><CNPJ>" + Cnpj.toLatin1() + "</CNPJ><distNSU><ultNSU>"
                                   + ultNSU.toLatin1() + "</ultNSU></distNSU></distDFeInt>");
    };
    ASSERT_EQ(sim.Comando(QStringLiteral("documentos 3")), QStringLiteral("ok documentos 3"));
    const QByteArray primeiro = distribuir(QStringLiteral("000000000000000"));
    ASSERT_EQ(Valor(primeiro, QStringLiteral("cStat")), QStringLiteral("138")) << primeiro.toStdString();
    QStringList nsus, chaves;
    for (const DocZip &d : Documentos(primeiro)) {
        nsus.append(d.nsu);
        EXPECT_EQ(d.schema, QStringLiteral("resNFe_v1.01.xsd"));
        chaves.append(Valor(d.xml, QStringLiteral("chNFe")));
    }
    ASSERT_EQ(nsus.size(), 3);
    EXPECT_TRUE(nsus[0] < nsus[1] && nsus[1] < nsus[2] && nsus[0].size() == 15) << nsus.join(' ').toStdString();
    EXPECT_EQ(Valor(primeiro, QStringLiteral("ultNSU")), nsus[2]);
    EXPECT_EQ(Valor(primeiro, QStringLiteral("maxNSU")), nsus[2]);
    EXPECT_EQ(chaves[0].size(), 44);
    EXPECT_EQ(Valor(distribuir(nsus[2]), QStringLiteral("cStat")), QStringLiteral("137"));

    const QByteArray ciencia = cliente->Postar(
        QStringLiteral("NFeRecepcaoEvento4"),
        EnvEvento(*cliente, chaves[0], 210210, 1, "<descEvento>Ciencia da Operacao</descEvento>"));
    EXPECT_EQ(Valores(ciencia, QStringLiteral("cStat")).value(1), QStringLiteral("135")) << ciencia.toStdString();
    const QList<DocZip> depois = Documentos(distribuir(nsus[2]));
    QStringList esquemas;
    for (const DocZip &d : depois)
        esquemas.append(d.schema);
    const QByteArray procNFe = depois.value(depois.size() - 1).xml;
    EXPECT_EQ(esquemas, QStringList({QStringLiteral("resEvento_v1.01.xsd"), QStringLiteral("procNFe_v4.00.xsd")}));
    QString erro;
    EXPECT_TRUE(TAssinadorNFe::Verificar(procNFe, &erro)) << erro.toStdString();
    EXPECT_TRUE(procNFe.contains("Id=\"NFe" + chaves[0].toLatin1() + '"'));
}
