#include "CertificadosTeste.h"
#include "GeradorNFe.h"
#include "SimuladorSefaz.h"
#include "TAssinadorNFe.h"
#include "TEnderecosNFe.h"
#include "TEventoNFe.h"
#include "TServicosNFe.h"
#include "TValidadorNFe.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSslKey>
#include <QSslServer>
#include <QTcpServer>
#include <QTemporaryDir>

namespace {

const QString kCnpj = QStringLiteral("12345678000195");

QByteArray NFeAssinada(qint64 numero, const TCertificadoA1 &a1)
{
    OpcoesGeracao opcoes;
    opcoes.comProtocolo = false;
    opcoes.assinatura = false;
    const TnfeProc nfe = NFeExemplo(kCnpj, QStringLiteral("98765432000110"), numero, 2);
    QByteArray assinado;
    QString erro;
    EXPECT_TRUE(TAssinadorNFe::Assinar(GerarXmlNFe(nfe, opcoes), QStringLiteral("NFe") + nfe.chave, a1, &assinado, &erro))
        << erro.toStdString();
    return assinado;
}

QString Entre(const QByteArray &xml, const QString &tag)
{
    return QRegularExpression(QStringLiteral("<%1>([^<]*)</%1>").arg(tag)).match(QString::fromUtf8(xml)).captured(1);
}

// The simulator with the company's certificate and its test authority trusted.
struct Sefaz : ::testing::Test
{
    TSimuladorSefaz simulador;
    std::unique_ptr<TCertificadoA1> a1;
    void SetUp() override
    {
        QString erro;
        ASSERT_TRUE(simulador.Iniciar(kCnpj, &erro)) << erro.toStdString();
        simulador.Apontar();
        a1 = TCertificadoA1::Abrir(simulador.CertificadoCliente(), simulador.SenhaCliente(), &erro);
        ASSERT_TRUE(a1) << erro.toStdString();
    }
};

} // namespace

TEST(EnderecosNFe, AutorizadorContingenciaEEnderecoRedirecionado)
{
    const struct { const char *uf, *autorizador, *contingencia; } casos[] = {
        {"SP", "SP", "SVCAN"}, {"SC", "SVRS", "SVCAN"}, {"PR", "PR", "SVCRS"}, {"MA", "SVAN", "SVCRS"}, {"XX", "", ""}};
    for (const auto &c : casos) {
        EXPECT_EQ(TEnderecosNFe::Autorizador(QString::fromLatin1(c.uf)), QString::fromLatin1(c.autorizador)) << c.uf;
        EXPECT_EQ(TEnderecosNFe::Contingencia(QString::fromLatin1(c.uf)), QString::fromLatin1(c.contingencia)) << c.uf;
    }
    qputenv("PAVREL_NFE_ENDPOINT", "https://127.0.0.1:4433");
    TServicoNFe s;
    QString erro;
    ASSERT_TRUE(TEnderecosNFe::Servico(QStringLiteral("SP"), 2, QStringLiteral("NFeAutorizacao4"), &s, &erro)) << erro.toStdString();
    EXPECT_EQ(s.url.toString(), QStringLiteral("https://127.0.0.1:4433/ws/nfeautorizacao4.asmx"));
    EXPECT_EQ(s.metodo, QStringLiteral("nfeAutorizacaoLote"));
    EXPECT_FALSE(TEnderecosNFe::Servico(QStringLiteral("SP"), 1, QStringLiteral("NFeDistribuicaoDFe"), &s, &erro));
    EXPECT_TRUE(erro.contains(QStringLiteral("NFeDistribuicaoDFe")) && erro.contains(QStringLiteral("produção"))) << erro.toStdString();
    qunsetenv("PAVREL_NFE_ENDPOINT");
}

TEST(ServicosNFe, NfeProcSoComAChaveEODigestDoDocumento)
{
    const QByteArray nfe = NFeAssinada(31, *AbrirCertificadoTeste(kCnpj));
    TProtocoloNFe p;
    p.chNFe = QRegularExpression(QStringLiteral("Id=\"NFe(\\w{44})\"")).match(QString::fromUtf8(nfe)).captured(1);
    p.digVal = Entre(nfe, QStringLiteral("DigestValue"));
    p.xml = "<protNFe versao=\"4.00\"><infProt><tpAmb>2</tpAmb><verAplic>SIM</verAplic><chNFe>" + p.chNFe.toUtf8()
            + "</chNFe><dhRecbto>2026-11-23T10:00:00-03:00</dhRecbto><nProt>135260000000001</nProt><digVal>"
            + p.digVal.toUtf8() + "</digVal><cStat>100</cStat><xMotivo>Autorizado o uso da NF-e</xMotivo></infProt></protNFe>";
    QByteArray proc;
    QString erro;
    ASSERT_TRUE(MontarNfeProc(nfe, p, &proc, &erro)) << erro.toStdString();
    EXPECT_TRUE(TValidadorNFe::Validar(proc, TValidadorNFe::TEsquema::ProcNFe, &erro)) << erro.toStdString();
    EXPECT_TRUE(TAssinadorNFe::Verificar(proc, &erro)) << erro.toStdString();

    TProtocoloNFe outraChave = p, outroDigest = p;
    outraChave.chNFe[43] = outraChave.chNFe[43] == QLatin1Char('1') ? QLatin1Char('2') : QLatin1Char('1');
    outroDigest.digVal = QStringLiteral("AAAAAAAAAAAAAAAAAAAAAAAAAAA=");
    for (const TProtocoloNFe &errado : {outraChave, outroDigest}) {
        proc.clear();
        EXPECT_FALSE(MontarNfeProc(nfe, errado, &proc, &erro));
        EXPECT_TRUE(proc.isEmpty());
        EXPECT_TRUE(erro.contains(errado.chNFe == p.chNFe ? errado.digVal : errado.chNFe) && erro.contains(p.chNFe)) << erro.toStdString();
    }
}

TEST(EventoNFe, CadaTipoAssinadoEValidoETextoCurtoRecusado)
{
    auto a1 = AbrirCertificadoTeste(kCnpj);
    ASSERT_TRUE(a1);
    const QString justificativa = QStringLiteral("Erro de digitação na quantidade & no <preço>");
    const struct { int tpEvento, cOrgao; QString nProt, xJust, xCorrecao; } casos[] = {
        {110111, 35, QStringLiteral("135260000000001"), justificativa, {}},
        {110110, 35, {}, {}, justificativa + QStringLiteral("\r\nsegunda linha")},
        {210200, 91, {}, {}, {}}, {210210, 91, {}, {}, {}}, {210220, 91, {}, {}, {}},
        {210240, 91, {}, justificativa, {}}};
    for (const auto &c : casos) {
        TPedidoEvento pedido{QStringLiteral("35261112345678000195550010000000311000000312"), kCnpj, c.cOrgao, 2, c.tpEvento, 2,
                             QDateTime::currentDateTime(), c.nProt, c.xJust, c.xCorrecao};
        QByteArray assinado;
        QString erro;
        ASSERT_TRUE(TEventoNFe::MontarAssinado(pedido, *a1, &assinado, &erro)) << c.tpEvento << ": " << erro.toStdString();
        EXPECT_TRUE(assinado.contains("Id=\"ID" + QByteArray::number(c.tpEvento) + pedido.chave.toUtf8() + "02\""));
        EXPECT_TRUE(TAssinadorNFe::Verificar(assinado, &erro)) << c.tpEvento << ": " << erro.toStdString();
        if (!c.xCorrecao.isEmpty()) {
            EXPECT_EQ(Entre(assinado, QStringLiteral("xCondUso")), TEventoNFe::CondicaoUsoCCe);
        }
        if (c.tpEvento == 110111 || c.tpEvento == 210240) {
            pedido.xJust = QStringLiteral("muito curta");
            EXPECT_FALSE(TEventoNFe::MontarAssinado(pedido, *a1, &assinado, &erro)) << c.tpEvento;
            EXPECT_TRUE(erro.contains(QStringLiteral("xJust"))) << erro.toStdString();
        }
    }
}

TEST(TransporteSoap, SemConexaoCompletaNadaFoiEntregue)
{
    using TFalha = TRespostaTransporte::TFalha;
    auto a1 = AbrirCertificadoTeste(kCnpj);
    ASSERT_TRUE(a1);
    QTcpServer mudo, fechado;
    ASSERT_TRUE(mudo.listen(QHostAddress::LocalHost) && fechado.listen(QHostAddress::LocalHost));
    const quint16 portaFechada = fechado.serverPort();
    fechado.close();
    for (const auto &[porta, falha, naMensagem] : {std::tuple{mudo.serverPort(), TFalha::Recusada, "não completou a conexão em 300 ms"},
                                                   std::tuple{portaFechada, TFalha::Recusada, "Não foi possível conectar"}}) {
        qputenv("PAVREL_NFE_ENDPOINT", QByteArray("https://127.0.0.1:") + QByteArray::number(porta));
        TTransporteSoap transporte(*a1, 300);
        const TRetornoSefaz r = TServicosNFe(transporte, QStringLiteral("SP"), 2).Status(QStringLiteral("SP"));
        EXPECT_EQ(int(r.transporte.falha), int(falha)) << r.transporte.erro.toStdString();
        EXPECT_TRUE(r.transporte.erro.contains(QString::fromUtf8(naMensagem))) << r.transporte.erro.toStdString();
    }
    qunsetenv("PAVREL_NFE_ENDPOINT");
}

TEST_F(Sefaz, StatusAutorizacaoConsultaEventoEDistribuicao)
{
    TTransporteSoap transporte(*a1);
    TServicosNFe servicos(transporte, QStringLiteral("SP"), 2);
    TRetornoSefaz status = servicos.Status(QStringLiteral("SP"));
    ASSERT_TRUE(status.Respondeu()) << status.transporte.erro.toStdString();
    EXPECT_EQ(status.cStat, 107);
    simulador.Comando(QStringLiteral("status 108"));
    EXPECT_EQ(servicos.Status(QStringLiteral("SP")).cStat, 108);
    simulador.Comando(QStringLiteral("status 107"));

    const QByteArray nfe = NFeAssinada(32, *a1);
    const TRetornoAutorizacao aut = servicos.Autorizar(QStringLiteral("SP"), nfe, 1);
    ASSERT_TRUE(aut.Respondeu() && aut.protocolo) << aut.transporte.erro.toStdString() << aut.xMotivo.toStdString();
    EXPECT_EQ(aut.cStat, 104);
    EXPECT_EQ(aut.protocolo->cStat, 100);
    QByteArray proc;
    QString erro;
    ASSERT_TRUE(MontarNfeProc(nfe, *aut.protocolo, &proc, &erro)) << erro.toStdString();
    EXPECT_TRUE(TValidadorNFe::Validar(proc, TValidadorNFe::TEsquema::ProcNFe, &erro)) << erro.toStdString();

    TPedidoEvento canc{aut.protocolo->chNFe, kCnpj, 35, 2, 110111, 1, QDateTime::currentDateTime(), aut.protocolo->nProt,
                       QStringLiteral("Nota cancelada no sistema por engano"), {}};
    QByteArray evento;
    ASSERT_TRUE(TEventoNFe::MontarAssinado(canc, *a1, &evento, &erro)) << erro.toStdString();
    const TRetornoEvento ev = servicos.EnviarEvento(QStringLiteral("SP"), evento, 2);
    ASSERT_TRUE(ev.Respondeu()) << ev.transporte.erro.toStdString();
    EXPECT_EQ(ev.cStatEvento, 135) << ev.xMotivoEvento.toStdString();
    EXPECT_TRUE(ev.retEvento.startsWith("<retEvento"));

    const TRetornoConsulta cons = servicos.Consultar(QStringLiteral("SP"), canc.chave);
    ASSERT_TRUE(cons.Respondeu() && cons.protocolo) << cons.transporte.erro.toStdString();
    EXPECT_EQ(cons.protocolo->nProt, aut.protocolo->nProt);
    ASSERT_EQ(cons.procEventos.size(), 1);
    EXPECT_EQ(Entre(cons.procEventos.first(), QStringLiteral("nProt")), canc.nProt);

    simulador.Comando(QStringLiteral("documentos 3"));
    const TRetornoDistribuicao dist = servicos.Distribuicao(kCnpj, QStringLiteral("0"));
    ASSERT_TRUE(dist.Respondeu()) << dist.transporte.erro.toStdString();
    EXPECT_EQ(dist.cStat, 138);
    ASSERT_EQ(dist.documentos.size(), 3);
    for (const TDocumentoDistribuido &d : dist.documentos)
        EXPECT_TRUE(d.xml.contains("<resNFe") && !d.nsu.isEmpty()) << d.schema.toStdString();
    EXPECT_EQ(servicos.Distribuicao(kCnpj, dist.ultNSU).cStat, 137);
}

TEST_F(Sefaz, CadaFalhaDoCaminhoTemSuaClasseEMensagem)
{
    using TFalha = TRespostaTransporte::TFalha;
    QTemporaryDir pasta;
    const QString outraRaiz = pasta.filePath(QStringLiteral("outra.pem"));
    QFile arquivo(outraRaiz);
    ASSERT_TRUE(arquivo.open(QIODevice::WriteOnly) && arquivo.write(CertificadosTeste(QStringLiteral("99888777000166")).caPem) > 0);
    arquivo.close();
    auto outroA1 = AbrirCertificadoTeste(QStringLiteral("99888777000166"));
    const QString operacao = QStringLiteral("NFeStatusServico4");

    // A client certificate refused under TLS 1.3 may look like a connection closed after the
    // request went out; either way nothing reached the simulator.
    const struct { const char *caso, *comando; TFalha falha; const char *naMensagem; bool outroCliente, outroCa; } casos[] = {
        {"pagina HTML", "html", TFalha::RespostaInvalida, "HTML", false, false},
        {"resposta truncada", "truncar", TFalha::RespostaInvalida, "mal formada", false, false},
        {"resposta descartada", "descartar", TFalha::SemResposta, "sem responder", false, false},
        {"cliente de outra autoridade", nullptr, TFalha::Recusada, "127.0.0.1", true, false},
        {"servidor fora das raizes confiaveis", nullptr, TFalha::Recusada, "certific", false, true}};
    for (const auto &c : casos) {
        simulador.Apontar();
        if (c.outroCa)
            qputenv("PAVREL_NFE_CA", outraRaiz.toUtf8());
        TTransporteSoap transporte(c.outroCliente ? *outroA1 : *a1, 5000);
        if (c.comando) {
            EXPECT_TRUE(simulador.Comando(QStringLiteral("%1 %2").arg(QString::fromLatin1(c.comando), operacao)).startsWith(QLatin1String("ok")));
        }
        const int antes = simulador.Pedidos(operacao);
        const TRetornoSefaz r = TServicosNFe(transporte, QStringLiteral("SP"), 2).Status(QStringLiteral("SP"));
        const bool tls13 = c.outroCliente && r.transporte.falha == TFalha::SemResposta;
        EXPECT_TRUE(r.transporte.falha == c.falha || tls13) << c.caso << ": " << r.transporte.erro.toStdString();
        EXPECT_TRUE(r.transporte.erro.contains(QString::fromLatin1(c.naMensagem), Qt::CaseInsensitive))
            << c.caso << ": " << r.transporte.erro.toStdString();
        EXPECT_EQ(r.cStat, 0) << c.caso;
        // The request arrived exactly once when only its answer went wrong, never when TLS refused it.
        EXPECT_EQ(simulador.Pedidos(operacao), antes + (c.comando ? 1 : 0)) << c.caso;
    }
}

TEST_F(Sefaz, PedidoEntregueSemRespostaNoPrazo)
{
    // A server that takes the whole request and never answers.
    QSslServer lento;
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    QFile chave(QDir(simulador.Pasta()).filePath(QStringLiteral("servidor.key")));
    ASSERT_TRUE(chave.open(QIODevice::ReadOnly));
    tls.setLocalCertificateChain(QSslCertificate::fromPath(QDir(simulador.Pasta()).filePath(QStringLiteral("servidor.pem"))));
    tls.setPrivateKey(QSslKey(&chave, QSsl::Rsa));
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    lento.setSslConfiguration(tls);
    ASSERT_TRUE(lento.listen(QHostAddress::LocalHost));
    qputenv("PAVREL_NFE_ENDPOINT", QByteArray("https://127.0.0.1:") + QByteArray::number(lento.serverPort()));
    TTransporteSoap transporte(*a1, 1000);
    const TRetornoSefaz r = TServicosNFe(transporte, QStringLiteral("SP"), 2).Status(QStringLiteral("SP"));
    EXPECT_EQ(int(r.transporte.falha), int(TRespostaTransporte::TFalha::SemResposta)) << r.transporte.erro.toStdString();
    EXPECT_TRUE(r.transporte.erro.contains(QStringLiteral("não respondeu em 1 s"))) << r.transporte.erro.toStdString();
}
