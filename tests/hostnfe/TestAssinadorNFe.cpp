#include "CertificadosTeste.h"
#include "GeradorNFe.h"
#include "TAssinadorNFe.h"
#include "TValidadorNFe.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

// xmlsec1's own verification, with the test authority as the trusted root.
bool XmlSec1Verifica(const QByteArray &xml)
{
    QTemporaryDir pasta;
    QFile ca(pasta.filePath(QStringLiteral("ca.pem"))), doc(pasta.filePath(QStringLiteral("nfe.xml")));
    EXPECT_TRUE(ca.open(QIODevice::WriteOnly) && ca.write(CertificadosTeste().caPem) > 0);
    EXPECT_TRUE(doc.open(QIODevice::WriteOnly) && doc.write(xml) == xml.size());
    ca.close();
    doc.close();
    QProcess xmlsec1;
    xmlsec1.start(QStringLiteral("xmlsec1"), {QStringLiteral("--verify"), QStringLiteral("--trusted-pem"), ca.fileName(),
                                              QStringLiteral("--id-attr:Id"), QStringLiteral("infNFe"), doc.fileName()});
    EXPECT_TRUE(xmlsec1.waitForFinished()) << "xmlsec1";
    return xmlsec1.exitStatus() == QProcess::NormalExit && xmlsec1.exitCode() == 0;
}

QByteArray Assinatura(const QByteArray &xml)
{
    const qsizetype de = xml.indexOf("<Signature"), ate = xml.indexOf("</Signature>") + 12;
    return de < 0 ? QByteArray() : xml.mid(de, ate - de);
}

} // namespace

TEST(AssinadorNFe, AssinaUmaVezSemMudarODocumentoEXmlSec1Confere)
{
    auto a1 = AbrirCertificadoTeste();
    ASSERT_TRUE(a1);
    const TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000110"), 9, 2);
    for (const QString &prefixo : {QString(), QStringLiteral("nfe")}) {
        OpcoesGeracao opcoes;
        opcoes.comProtocolo = false;
        opcoes.assinatura = false;
        opcoes.prefixo = prefixo;
        const QByteArray xml = GerarXmlNFe(nfe, opcoes);
        QByteArray assinado;
        QString erro;
        ASSERT_TRUE(TAssinadorNFe::Assinar(xml, QStringLiteral("NFe") + nfe.chave, *a1, &assinado, &erro)) << erro.toStdString();

        const QByteArray assinatura = Assinatura(assinado);
        EXPECT_EQ(QByteArray(assinado).replace(assinatura, QByteArray()), xml) << "prefixo " << prefixo.toStdString();
        EXPECT_FALSE(assinatura.contains('\n') || assinatura.contains('\r') || assinatura.contains("> <"));
        EXPECT_TRUE(assinatura.startsWith("<Signature xmlns=\"http://www.w3.org/2000/09/xmldsig#\"><SignedInfo>"));
        // Only the signer's certificate, though the file carries the authority too.
        EXPECT_EQ(assinatura.count("<X509Certificate>"), 1);
        EXPECT_TRUE(assinatura.contains("<X509Certificate>" + a1->CertificadoDer().toBase64() + "</X509Certificate>"));
        const QByteArray p = prefixo.isEmpty() ? QByteArray() : prefixo.toLatin1() + ':';
        EXPECT_TRUE(assinado.contains("</" + p + "infNFe>" + assinatura + "</" + p + "NFe>"));

        EXPECT_TRUE(TValidadorNFe::Validar(assinado, TValidadorNFe::TEsquema::NFe, &erro)) << erro.toStdString();
        EXPECT_TRUE(TAssinadorNFe::Verificar(assinado, &erro)) << erro.toStdString();
        EXPECT_TRUE(XmlSec1Verifica(assinado));
        EXPECT_FALSE(TAssinadorNFe::Assinar(assinado, QStringLiteral("NFe") + nfe.chave, *a1, &assinado, &erro));
        EXPECT_EQ(erro, QStringLiteral("O documento já está assinado (Id 'NFe%1')").arg(nfe.chave));
    }
}

TEST(AssinadorNFe, UmByteTrocadoQuebraAVerificacao)
{
    auto a1 = AbrirCertificadoTeste();
    ASSERT_TRUE(a1);
    const TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000110"), 10, 1);
    OpcoesGeracao opcoes;
    opcoes.comProtocolo = false;
    opcoes.assinatura = false;
    QByteArray assinado;
    QString erro;
    ASSERT_TRUE(TAssinadorNFe::Assinar(GerarXmlNFe(nfe, opcoes), QStringLiteral("NFe") + nfe.chave, *a1, &assinado, &erro));
    const QByteArray valor = assinado.mid(assinado.indexOf("<SignatureValue>") + 16, 8);

    const struct { const char *caso; QByteArray de, para; QString esperado; bool xmlsec1Confere; } casos[] = {
        {"nome do destinatário", "LOJA DESTINO LTDA", "LOJA DESTINO LTDB",
         QStringLiteral("O conteúdo assinado foi alterado depois da assinatura: o resumo (DigestValue) de '#NFe%1' não confere").arg(nfe.chave), false},
        {"valor da assinatura", valor, QByteArray(valor).replace(0, 1, valor.startsWith('A') ? "B" : "A"),
         QStringLiteral("A assinatura não confere com o certificado que a acompanha ('#NFe%1')").arg(nfe.chave), false},
        {"sem assinatura", Assinatura(assinado), "", QStringLiteral("O documento não está assinado"), false},
    };
    for (const auto &c : casos) {
        const QByteArray alterado = QByteArray(assinado).replace(c.de, c.para);
        ASSERT_NE(alterado, assinado) << c.caso;
        EXPECT_FALSE(TAssinadorNFe::Verificar(alterado, &erro)) << c.caso;
        EXPECT_EQ(erro, c.esperado) << c.caso;
        EXPECT_EQ(XmlSec1Verifica(alterado), c.xmlsec1Confere) << c.caso;
    }
}
