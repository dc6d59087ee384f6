// Building, schema-checking and signing the NF-e of a 990-item note, next to the command-line
// tools doing the schema check and the signature of the same document in the same run
// (xmllint --schema, xmlsec1 --sign): the product is held to at most 1.5 times their sum.
#include "BancoTeste.h"
#include "Contexto.h"
#include "Database.h"
#include "Medicao.h"
#include "TAssinadorNFe.h"
#include "TCertificadoA1.h"
#include "TEmissorNFe.h"
#include "TNFe_XMLW.h"
#include "TValidadorNFe.h"
#include "TnfeProc.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <vector>

namespace {

constexpr int Itens = 990;
constexpr int Rodadas = 5;
const QString Cnpj = QStringLiteral("11222333000181");

QStringList Dados()
{
    QStringList dados = Database::SplitScript(QStringLiteral(
        "insert into empr (empr_cod, raz, nome_red, cnpj, ie, logr, num, bai, mun, mun_ibge_cod, uf, cep, fone1) values "
        "(1, 'Loja Matriz Ltda', 'MATRIZ', '11222333000181', '110042490114', 'Rua das Flores', '100', 'Centro', "
        "'Sao Paulo', '3550308', 'SP', '01001000', '1130001000');\n"
        "insert into fornec (fornec_cod, nome_red, raz, c, ie, logr, num, bai, mun, mun_ibge_cod, uf, cep, fone) values "
        "(1, 'FORNEC', 'Fornecedor Paulista Ltda', '44555666000181', '445556660102', 'Rua Augusta', '500', "
        "'Consolacao', 'Sao Paulo', '3550308', 'SP', '01305000', '1130003000');\n"
        "insert into unid (unid_cod, sigla, descr) values (1, 'UN', 'UNIDADE');\n"));
    dados << QStringLiteral(
        "execute block as\n"
        "declare i integer = 1;\n"
        "begin\n"
        "  while (i <= %1) do\n"
        "  begin\n"
        "    insert into prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin)\n"
        "      values (:i, 'PRODUTO DE TESTE NUMERO ' || :i, 1, 1, 1, 0, '22021000', '7890000000017');\n"
        "    insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod, unid_cod,\n"
        "      emb_qtd, qtd_embs, custo_tot, ordem, ncm, cfop, trib_icms_cst, trib_orig, trib_icms_modbc,\n"
        "      trib_icms_vbc, trib_icms_picms, trib_icms_vicms, pipi, vipi, cst_pis, ppis, vpis, cst_cofins,\n"
        "      pcofins, vcofins, info_adic)\n"
        "      values (1, 10, 1, :i, :i, 1, 1, 2, 20, :i, '22021000', '5202', 0, 0, 3, 20, 18, 3.60, 5, 1,\n"
        "      1, 1.65, 0.33, 1, 7.6, 1.52, 'Lote ' || :i || ' & validade 12/2027');\n"
        "    i = i + 1;\n"
        "  end\n"
        "  insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, serie, tot_prods, ipi, tot,\n"
        "    nat_op_str, nfe_chave_ref, frete_modalidade)\n"
        "    values (1, 1, 1, '$', 1, '1', %2, %3, %4, 'REMESSA DE MERCADORIA', null, 1);\n"
        "end").arg(Itens).arg(Itens * 20).arg(Itens).arg(Itens * 21);
    return dados;
}

// The document with an empty Signature of the same layout, for xmlsec1 to fill.
QByteArray Modelo(const QByteArray &xml, const QString &chave)
{
    const QByteArray assinatura =
        "<Signature xmlns=\"http://www.w3.org/2000/09/xmldsig#\"><SignedInfo><CanonicalizationMethod "
        "Algorithm=\"http://www.w3.org/TR/2001/REC-xml-c14n-20010315\"/><SignatureMethod "
        "Algorithm=\"http://www.w3.org/2000/09/xmldsig#rsa-sha1\"/><Reference URI=\"#NFe" + chave.toLatin1()
        + "\"><Transforms><Transform Algorithm=\"http://www.w3.org/2000/09/xmldsig#enveloped-signature\"/><Transform "
          "Algorithm=\"http://www.w3.org/TR/2001/REC-xml-c14n-20010315\"/></Transforms><DigestMethod "
          "Algorithm=\"http://www.w3.org/2000/09/xmldsig#sha1\"/><DigestValue/></Reference></SignedInfo>"
          "<SignatureValue/><KeyInfo><X509Data><X509Certificate/></X509Data></KeyInfo></Signature>";
    QByteArray modelo = xml;
    return modelo.insert(modelo.lastIndexOf("</NFe>"), assinatura);
}

bool Gravar(const QString &arquivo, const QByteArray &bytes)
{
    QFile f(arquivo);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

// One run of a tool, in ms; negative when it fails.
double Ferramenta(const QString &programa, const QStringList &args, QString *saida)
{
    QProcess p;
    const double ms = Medicao::Ms([&] {
        p.start(programa, args);
        p.waitForFinished(-1);
    });
    *saida = QString::fromLocal8Bit(p.readAllStandardError()).trimmed();
    return p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0 ? ms : -1;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("bench.fdb"));
    QString erro;
    if (!BancoTeste::Criar(banco, Dados(), false, &erro)) {
        out << "database: " << erro << Qt::endl;
        return 1;
    }
    BancoTeste::FixarRelogio(QDateTime::currentDateTime());
    TPedidoCertificadoTeste pedido;
    pedido.cnpj = Cnpj;
    pedido.senha = QStringLiteral("bench");
    const auto certificado = TCertificadoA1::AbrirDeBytes(GerarCertificadoTeste(pedido, &erro), pedido.senha, &erro);
    if (!certificado) {
        out << "certificate: " << erro << Qt::endl;
        return 1;
    }

    TConexaoSQL conexao(banco);
    conexao.Conectar();   // one attachment for every round, as a workstation keeps it
    TEmissorNFe emissor(conexao);
    std::vector<double> nosso;
    QByteArray xml, assinado;
    QString chave;
    for (int r = 0; r < Rodadas; ++r) {
        bool ok = true;
        nosso.push_back(Medicao::Ms([&] {
            TnfeProc nfe;
            ok = emissor.Montar(1, 1, 1, 1, 36, &nfe, &erro);
            xml = ok ? TNFe_XMLW().Documento(nfe) : QByteArray();
            ok = ok && TValidadorNFe::Validar(xml, TValidadorNFe::TEsquema::NFe, &erro)
                && TAssinadorNFe::Assinar(xml, QStringLiteral("NFe") + nfe.chave, *certificado, &assinado, &erro);
            chave = nfe.chave;
        }));
        if (!ok) {
            out << "build/validate/sign: " << erro << Qt::endl;
            return 1;
        }
    }
    conexao.Desconectar();

    const QString documento = pasta.filePath(QStringLiteral("nfe.xml"));
    const QString modelo = pasta.filePath(QStringLiteral("modelo.xml"));
    const QString chavePem = pasta.filePath(QStringLiteral("chave.pem"));
    const QString certPem = pasta.filePath(QStringLiteral("cert.pem"));
    // The official schema wants the Signature: xmllint checks the signed document.
    if (!Gravar(documento, assinado) || !Gravar(modelo, Modelo(xml, chave)) || !Gravar(chavePem, certificado->ChavePrivadaPem())
        || !Gravar(certPem, certificado->CertificadoPem())) {
        out << "cannot write the tools' files in " << pasta.path() << Qt::endl;
        return 1;
    }
    std::vector<double> xmllint, xmlsec;
    for (int r = 0; r < Rodadas; ++r) {
        QString saida;
        xmllint.push_back(Ferramenta(QStringLiteral("xmllint"),
                                     {QStringLiteral("--noout"), QStringLiteral("--schema"),
                                      QStringLiteral(PAVREL_ESQUEMAS "/nfe-4.00/nfe_v4.00.xsd"), documento}, &saida));
        if (xmllint.back() < 0) {
            out << "xmllint: " << saida << Qt::endl;
            return 1;
        }
        xmlsec.push_back(Ferramenta(QStringLiteral("xmlsec1"),
                                    {QStringLiteral("--sign"), QStringLiteral("--privkey-pem"), chavePem + u',' + certPem,
                                     QStringLiteral("--id-attr:Id"), QStringLiteral("http://www.portalfiscal.inf.br/nfe:infNFe"),
                                     QStringLiteral("--output"), pasta.filePath(QStringLiteral("assinado.xml")), modelo},
                                    &saida));
        if (xmlsec.back() < 0) {
            out << "xmlsec1: " << saida << Qt::endl;
            return 1;
        }
    }
    const double ferramentas = Medicao::Melhor(xmllint) + Medicao::Melhor(xmlsec);
    out << "NF-e of " << Itens << " items, " << xml.size() / 1024 << " KiB, best of " << Rodadas << " rounds\n"
        << "  build + validate + sign:    " << QString::number(Medicao::Melhor(nosso), 'f', 1) << " ms\n"
        << "  xmllint --schema:           " << QString::number(Medicao::Melhor(xmllint), 'f', 1) << " ms\n"
        << "  xmlsec1 --sign:             " << QString::number(Medicao::Melhor(xmlsec), 'f', 1) << " ms\n"
        << "  ratio to the tools' sum:    " << QString::number(Medicao::Melhor(nosso) / ferramentas, 'f', 2)
        << " (goal at most 1.5)" << Qt::endl;
    return 0;
}
