// Issuing and sending 200 returns to a supplier, one after another, to the authority's simulator
// on loopback over mutual TLS; then the same documents again piece by piece, to tell where the
// time goes: building (database, XML, schema), signing, the TLS round trip and the authority's
// answer.
#include "BancoTeste.h"
#include "Contexto.h"
#include "Database.h"
#include "Medicao.h"
#include "SimuladorSefaz.h"
#include "TAssinadorNFe.h"
#include "TCertificadoA1.h"
#include "TEmissorNFe.h"
#include "TEnderecosNFe.h"
#include "TEnvioNFe.h"
#include "TNFe_XMLW.h"
#include "TServicosNFe.h"
#include "TValidadorNFe.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <vector>

namespace {

constexpr int TipoDevolucao = '#';
const QString Cnpj = QStringLiteral("11222333000181");   // company 1's

// The tests' base data (company 1 in SP, its supplier 1, products 1 and 2) and `notas` returns
// of three items each, ready to issue.
QStringList Dados(int notas)
{
    QFile base(QStringLiteral(PAVREL_TESTS_DIR "/support/fixture_base.sql"));
    if (!base.open(QIODevice::ReadOnly))
        return {};
    QStringList dados = Database::SplitScript(QString::fromUtf8(base.readAll()));
    dados << QStringLiteral(
        "execute block as\n"
        "declare n integer = 1;\n"
        "declare i integer;\n"
        "begin\n"
        "  while (n <= %1) do\n"
        "  begin\n"
        "    insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, dt_doc, ndoc, serie, tot_prods,\n"
        "      tot, nat_op_str, nfe_chave_ref, cancelado, baixado)\n"
        "      values (1, 1, :n, '#', 1, '2026-11-10', :n, '1', 60, 60, 'DEVOLUCAO DE COMPRA',\n"
        "      '35261144555666000181550010000012341097720595', 'N', 'N');\n"
        "    i = 1;\n"
        "    while (i <= 3) do\n"
        "    begin\n"
        "      insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod, unid_cod,\n"
        "        emb_qtd, qtd_embs, custo_tot, ordem, ncm, cfop, trib_icms_cst, trib_orig, trib_icms_modbc,\n"
        "        trib_icms_vbc, trib_icms_picms, trib_icms_vicms, cst_pis, ppis, vpis, cst_cofins, pcofins, vcofins)\n"
        "        values (1, 10, :n, :i, 1 + mod(:i, 2), 1, 1, 2, 20, :i, '22021000', '5202', 0, 0, 3, 20, 18, 3.60,\n"
        "        1, 1.65, 0.33, 1, 7.6, 1.52);\n"
        "      i = i + 1;\n"
        "    end\n"
        "    n = n + 1;\n"
        "  end\n"
        "end").arg(notas);
    return dados;
}

double Soma(const std::vector<double> &v)
{
    double s = 0;
    for (double x : v)
        s += x;
    return s;
}

QString Ms(double total, int n)
{
    return QString::number(total / n, 'f', 2) + QStringLiteral(" ms");
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    int notas = 200, rodadas = 1;
    Medicao::LerTamanho(argc, argv, notas, rodadas);
    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("bench.fdb"));
    QString erro;
    const QStringList dados = Dados(notas);
    if (dados.isEmpty() || !BancoTeste::Criar(banco, dados, false, &erro)) {
        out << "database: " << (dados.isEmpty() ? QStringLiteral("no tests/support/fixture_base.sql") : erro) << Qt::endl;
        return 1;
    }
    BancoTeste::FixarRelogio(QDateTime::currentDateTime());
    Contexto::Atual().pastaFiscal = pasta.filePath(QStringLiteral("fiscal"));
    TSimuladorSefaz sim;
    if (!sim.Iniciar(Cnpj, &erro)) {
        out << "simulator: " << erro << Qt::endl;
        return 1;
    }
    sim.Apontar();
    const auto certificado = TCertificadoA1::Abrir(sim.CertificadoCliente(), sim.SenhaCliente(), &erro);
    if (!certificado) {
        out << "certificate: " << erro << Qt::endl;
        return 1;
    }

    TConexaoSQL conexao(banco);
    conexao.Conectar();   // one attachment for the whole run, as a workstation keeps it
    // The product's road: issue, sign, file, send, attach the protocol, update the note.
    TEnvioNFe envio(conexao, 1);
    const double total = Medicao::Ms([&] {
        for (int n = 1; n <= notas && erro.isEmpty(); ++n) {
            TNFeAutorizada autorizada;
            if (!envio.Enviar(1, n, FinalidadeDoTipo(TipoDevolucao), TipoDevolucao, &autorizada, &erro))
                erro = QStringLiteral("note %1: %2").arg(n).arg(erro);
        }
    });
    if (!erro.isEmpty()) {
        out << "send: " << erro << Qt::endl;
        return 1;
    }

    // The same documents piece by piece. The authority sees keys it has authorised already: it
    // checks schema and signature as before and answers 204 instead of recording them.
    TEmissorNFe emissor(conexao);
    std::vector<double> montar, assinar, status, autorizar;
    std::vector<QByteArray> assinados;
    for (int n = 1; n <= notas && erro.isEmpty(); ++n) {
        TnfeProc nfe;
        QByteArray xml, assinado;
        bool ok = true;
        montar.push_back(Medicao::Ms([&] {
            ok = emissor.Montar(1, 1, n, FinalidadeDoTipo(TipoDevolucao), TipoDevolucao, &nfe, &erro);
            xml = ok ? TNFe_XMLW().Documento(nfe) : QByteArray();
            ok = ok && TValidadorNFe::Validar(xml, TValidadorNFe::TEsquema::NFe, &erro);
        }));
        assinar.push_back(Medicao::Ms(
            [&] { ok = ok && TAssinadorNFe::Assinar(xml, QStringLiteral("NFe") + nfe.chave, *certificado, &assinado, &erro); }));
        if (ok)
            assinados.push_back(assinado);
    }
    conexao.Desconectar();
    if (!erro.isEmpty()) {
        out << "build/sign: " << erro << Qt::endl;
        return 1;
    }
    TTransporteSoap transporte(*certificado);
    TServicosNFe servicos(transporte, QStringLiteral("SP"), 2);
    const QString autorizador = TEnderecosNFe::Autorizador(QStringLiteral("SP"));
    // The first call opens the connection: the TLS handshake with both certificates.
    const double primeira = Medicao::Ms([&] { servicos.Status(autorizador); });
    for (const QByteArray &doc : assinados) {
        status.push_back(Medicao::Ms([&] { servicos.Status(autorizador); }));
        TRetornoAutorizacao r;
        autorizar.push_back(Medicao::Ms([&] { r = servicos.Autorizar(autorizador, doc, 1); }));
        if (!r.Respondeu()) {
            out << "authorise: " << r.transporte.erro << Qt::endl;
            return 1;
        }
    }

    const double construir = Soma(montar), assinatura = Soma(assinar), ida = Soma(status);
    const double espera = Soma(autorizar) - ida;
    const double resto = total - construir - assinatura - Soma(autorizar);
    const auto parte = [total](double t) { return QString::number(100 * t / total, 'f', 1) + QStringLiteral(" %"); };
    out << notas << " returns of 3 items sent one after another to the simulator (mutual TLS on loopback)\n"
        << "  total:                       " << QString::number(total / 1000, 'f', 2) << " s, "
        << QString::number(notas * 1000 / total, 'f', 1) << " notes/s\n"
        << "  per note, measured apart on the same documents:\n"
        << "  build (db + XML + schema):   " << Ms(construir, notas) << "  " << parte(construir) << "\n"
        << "  sign:                        " << Ms(assinatura, notas) << "  " << parte(assinatura) << "\n"
        << "  TLS round trip (status):     " << Ms(ida, notas) << "  " << parte(ida) << "\n"
        << "  waiting for the answer:      " << Ms(espera, notas) << "  " << parte(espera)
        << "  (authorisation minus the round trip: the authority's checks and the answer)\n"
        << "  the rest (numbering, filing, database updates): " << Ms(resto, notas) << "  " << parte(resto) << "\n"
        << "  first call with the TLS handshake: " << QString::number(primeira, 'f', 2) << " ms" << Qt::endl;
    return 0;
}
