#include "TCertificadoA1.h"

#include "Config.h"
#include "OpenSSLNFe.h"

#include <QFile>
#include <QRegularExpression>

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

using namespace OpenSSLNFe;

namespace {

constexpr char kOidCnpj[] = "2.16.76.1.3.3";   // ICP-Brasil: the company's CNPJ

QString TextoAsn1(const ASN1_STRING *s)
{
    unsigned char *utf8 = nullptr;
    const int n = s ? ASN1_STRING_to_UTF8(&utf8, s) : -1;
    if (n < 0)
        return {};
    QString texto = QString::fromUtf8(reinterpret_cast<const char *>(utf8), n);
    OPENSSL_free(utf8);
    return texto;
}

QString CampoDoTitular(const ::X509 *cert, int nid)
{
    const X509_NAME *nome = X509_get_subject_name(cert);
    const int i = X509_NAME_get_index_by_NID(nome, nid, -1);
    return i < 0 ? QString() : TextoAsn1(X509_NAME_ENTRY_get_data(X509_NAME_get_entry(nome, i)));
}

QDateTime Instante(const ASN1_TIME *t)
{
    struct tm tm = {};
    if (!t || !ASN1_TIME_to_tm(t, &tm))
        return {};
    return QDateTime(QDate(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday),
                     QTime(tm.tm_hour, tm.tm_min, tm.tm_sec), Qt::UTC);
}

QString CnpjDoOtherName(const ::X509 *cert)
{
    auto *nomes = static_cast<GENERAL_NAMES *>(X509_get_ext_d2i(cert, NID_subject_alt_name, nullptr, nullptr));
    QString cnpj;
    for (int i = 0; nomes && i < sk_GENERAL_NAME_num(nomes) && cnpj.isEmpty(); ++i) {
        const GENERAL_NAME *g = sk_GENERAL_NAME_value(nomes, i);
        if (g->type != GEN_OTHERNAME)
            continue;
        char oid[64] = {};
        OBJ_obj2txt(oid, sizeof oid, g->d.otherName->type_id, 1);
        const ASN1_TYPE *valor = g->d.otherName->value;
        // ICP-Brasil writes it as an OCTET STRING; any string type is read the same way.
        if (qstrcmp(oid, kOidCnpj) == 0 && valor && valor->type != V_ASN1_SEQUENCE && valor->type != V_ASN1_BOOLEAN) {
            const ASN1_STRING *s = valor->value.asn1_string;
            cnpj = QString::fromLatin1(reinterpret_cast<const char *>(ASN1_STRING_get0_data(s)), ASN1_STRING_length(s)).trimmed();
        }
    }
    GENERAL_NAMES_free(nomes);
    return cnpj;
}

// Letters and digits only, upper case: "12.ABC.345/01DE-35" -> "12ABC34501DE35".
QString SoCnpj(const QString &texto)
{
    static const QRegularExpression pontuacao(QStringLiteral("[^0-9A-Z]"));
    return texto.toUpper().remove(pontuacao);
}

bool Recusar(QString *erro, const QString &texto)
{
    if (erro)
        *erro = texto;
    return false;
}

} // namespace

struct TCertificadoA1::Dados
{
    TX509 certificado;
    TChave chave;
};

TCertificadoA1::TCertificadoA1() : d(std::make_unique<Dados>()) {}
TCertificadoA1::~TCertificadoA1() = default;

std::unique_ptr<TCertificadoA1> TCertificadoA1::Abrir(const QString &arquivo, const QString &senha, QString *erro)
{
    QFile f(arquivo);
    if (!f.open(QIODevice::ReadOnly)) {
        Recusar(erro, QStringLiteral("Não foi possível ler o certificado %1: %2").arg(arquivo, f.errorString()));
        return nullptr;
    }
    return AbrirDeBytes(f.readAll(), senha, erro, arquivo);
}

std::unique_ptr<TCertificadoA1> TCertificadoA1::AbrirDeBytes(const QByteArray &pkcs12, const QString &senha,
                                                             QString *erro, const QString &nome)
{
    CarregarProvedores();
    const QString qual = nome.isEmpty() ? QStringLiteral("(em memória)") : nome;
    TBio bio = BioDeBytes(pkcs12);
    TPkcs12 p12(d2i_PKCS12_bio(bio.get(), nullptr));
    if (!p12) {
        ERR_clear_error();
        Recusar(erro, QStringLiteral("O arquivo %1 não é um certificado digital A1 (PKCS#12, .pfx)").arg(qual));
        return nullptr;
    }
    const QByteArray s = senha.toUtf8();
    // An empty password may have been written as none at all.
    const char *pass = s.constData();
    if (!PKCS12_verify_mac(p12.get(), pass, int(s.size()))) {
        pass = nullptr;
        if (!s.isEmpty() || !PKCS12_verify_mac(p12.get(), nullptr, 0)) {
            ERR_clear_error();
            Recusar(erro, QStringLiteral("Senha do certificado incorreta: %1").arg(qual));
            return nullptr;
        }
    }
    EVP_PKEY *chave = nullptr;
    ::X509 *cert = nullptr;
    STACK_OF(X509) *cadeia = nullptr;
    if (!PKCS12_parse(p12.get(), pass, &chave, &cert, &cadeia)) {
        Recusar(erro, QStringLiteral("Não foi possível abrir o certificado %1 (%2)").arg(qual, UltimoErro()));
        return nullptr;
    }
    sk_X509_pop_free(cadeia, X509_free);
    std::unique_ptr<TCertificadoA1> c(new TCertificadoA1);
    c->d->certificado.reset(cert);
    c->d->chave.reset(chave);
    if (!cert || !chave || X509_check_private_key(cert, chave) != 1) {
        ERR_clear_error();
        Recusar(erro, QStringLiteral("O certificado %1 não traz a chave privada do titular").arg(qual));
        return nullptr;
    }
    return c;
}

QString TCertificadoA1::Cnpj() const
{
    const QString doOtherName = CnpjDoOtherName(d->certificado.get());
    if (!doOtherName.isEmpty())
        return doOtherName;
    const QString cn = Titular();
    return cn.contains(QLatin1Char(':')) ? SoCnpj(cn.section(QLatin1Char(':'), -1)) : QString();
}

QString TCertificadoA1::Titular() const { return CampoDoTitular(d->certificado.get(), NID_commonName); }
QDateTime TCertificadoA1::ValidoDe() const { return Instante(X509_get0_notBefore(d->certificado.get())); }
QDateTime TCertificadoA1::ValidoAte() const { return Instante(X509_get0_notAfter(d->certificado.get())); }

bool TCertificadoA1::Teste() const
{
    return CampoDoTitular(d->certificado.get(), NID_organizationName) == OrganizacaoCertificadoTeste;
}

bool TCertificadoA1::Aceitar(const QString &cnpjEmpresa, const QDateTime &agora, int tpAmb, QString *erro) const
{
    const auto dia = [](const QDateTime &t) { return t.toLocalTime().toString(QStringLiteral("dd/MM/yyyy")); };
    if (agora < ValidoDe())
        return Recusar(erro, QStringLiteral("O certificado digital só vale a partir de %1").arg(dia(ValidoDe())));
    if (agora > ValidoAte())
        return Recusar(erro, QStringLiteral("O certificado digital venceu em %1").arg(dia(ValidoAte())));
    const QString doCertificado = SoCnpj(Cnpj()), daEmpresa = SoCnpj(cnpjEmpresa);
    if (doCertificado.isEmpty())
        return Recusar(erro, QStringLiteral("O certificado digital não traz o CNPJ do titular"));
    if (doCertificado.left(8) != daEmpresa.left(8) || daEmpresa.size() < 8)
        return Recusar(erro, QStringLiteral("O certificado digital é do CNPJ %1, não da empresa (CNPJ %2)")
                                 .arg(doCertificado, daEmpresa));
    if (tpAmb == 1 && Teste())
        return Recusar(erro, QStringLiteral("Certificado de teste não pode ser usado em produção"));
    return true;
}

QByteArray TCertificadoA1::CertificadoDer() const
{
    unsigned char *der = nullptr;
    const int n = i2d_X509(d->certificado.get(), &der);
    QByteArray r(reinterpret_cast<const char *>(der), qMax(n, 0));
    OPENSSL_free(der);
    return r;
}

QByteArray TCertificadoA1::CertificadoPem() const
{
    TBio bio(BIO_new(BIO_s_mem()));
    PEM_write_bio_X509(bio.get(), d->certificado.get());
    return BytesDoBio(bio.get());
}

QByteArray TCertificadoA1::ChavePrivadaPem() const
{
    TBio bio(BIO_new(BIO_s_mem()));
    PEM_write_bio_PrivateKey(bio.get(), d->chave.get(), nullptr, nullptr, 0, nullptr, nullptr);
    return BytesDoBio(bio.get());
}

void *TCertificadoA1::X509() const { return d->certificado.get(); }
void *TCertificadoA1::ChavePrivada() const { return d->chave.get(); }

TOrigemCertificado OrigemCertificado(int empresa)
{
    const QString doAmbiente = qEnvironmentVariable("PAVREL_CERTIFICADO");
    if (!doAmbiente.isEmpty())
        return {doAmbiente, qEnvironmentVariable("PAVREL_CERTIFICADO_SENHA")};
    return {ConfigLerStr(QStringLiteral("NFE_CERTIFICADO_%1").arg(empresa)),
            ConfigLerStr(QStringLiteral("NFE_CERTIFICADO_SENHA_%1").arg(empresa))};
}
