#include "CertificadosTeste.h"

#include <QMap>

#include <gtest/gtest.h>

const TCertificadosTeste &CertificadosTeste(const QString &cnpj)
{
    static QMap<QString, TCertificadosTeste> feitos;
    auto it = feitos.find(cnpj);
    if (it != feitos.end())
        return *it;
    TCertificadosTeste c;
    c.senha = QStringLiteral("s3nh@ teste");
    QString erro;
    EXPECT_TRUE(GerarAutoridadeTeste(QStringLiteral("AC TESTE PAVREL"), &c.caPem, &c.caChavePem, &erro)) << erro.toStdString();
    TPedidoCertificadoTeste pedido;
    pedido.cnpj = cnpj;
    pedido.senha = c.senha;
    pedido.caCertificadoPem = c.caPem;
    pedido.caChavePem = c.caChavePem;
    c.pfx = GerarCertificadoTeste(pedido, &erro);
    EXPECT_FALSE(c.pfx.isEmpty()) << erro.toStdString();
    return *feitos.insert(cnpj, c);
}

std::unique_ptr<TCertificadoA1> AbrirCertificadoTeste(const QString &cnpj)
{
    const TCertificadosTeste &c = CertificadosTeste(cnpj);
    QString erro;
    auto certificado = TCertificadoA1::AbrirDeBytes(c.pfx, c.senha, &erro);
    EXPECT_TRUE(certificado) << erro.toStdString();
    return certificado;
}
