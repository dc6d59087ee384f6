#include "TCertificadoA1.h"

struct TCertificadoA1::Dados {};

TCertificadoA1::TCertificadoA1() = default;
TCertificadoA1::~TCertificadoA1() = default;

std::unique_ptr<TCertificadoA1> TCertificadoA1::Abrir(const QString &, const QString &, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("certificado ainda não disponível");
    return nullptr;
}

std::unique_ptr<TCertificadoA1> TCertificadoA1::AbrirDeBytes(const QByteArray &, const QString &, QString *erro)
{
    return Abrir(QString(), QString(), erro);
}

QString TCertificadoA1::Cnpj() const { return {}; }
QString TCertificadoA1::Titular() const { return {}; }
QDateTime TCertificadoA1::ValidoDe() const { return {}; }
QDateTime TCertificadoA1::ValidoAte() const { return {}; }
bool TCertificadoA1::Teste() const { return false; }
bool TCertificadoA1::Aceitar(const QString &, const QDateTime &, int, QString *) const { return false; }
QByteArray TCertificadoA1::CertificadoDer() const { return {}; }
QByteArray TCertificadoA1::CertificadoPem() const { return {}; }
QByteArray TCertificadoA1::ChavePrivadaPem() const { return {}; }
void *TCertificadoA1::X509() const { return nullptr; }
void *TCertificadoA1::ChavePrivada() const { return nullptr; }

TOrigemCertificado OrigemCertificado(int) { return {}; }

QByteArray GerarCertificadoTeste(const TPedidoCertificadoTeste &, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("certificado ainda não disponível");
    return {};
}

bool GerarAutoridadeTeste(const QString &, QByteArray *, QByteArray *, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("certificado ainda não disponível");
    return false;
}
