#include "BancoTeste.h"
#include "CertificadosTeste.h"
#include "TAssinadorNFe.h"
#include "ChaveNFe.h"
#include "Database.h"
#include "NotasTeste.h"
#include "TEmissorNFe.h"
#include "TNFeMontar_DBI.h"
#include "TNFeNumero_DBI.h"
#include "TNFe_XMLI.h"
#include "TNFe_XMLW.h"
#include "TValidadorNFe.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <thread>

namespace {

const QString ChaveRef = QStringLiteral("35261112345678000195550010000012341097720596");

// A note of company 1 to supplier 1 (same state) with two items leaving under CFOP 5202.
QString NotaDeSaida(TestDatabase &db, int tipo, const QString &extra = {})
{
    NotaTeste n{.tipo = tipo, .itens = {Item(1, 1, "2", "10"), Item(2, 2, "1.5", "7.35")}};
    for (const QString &erro :
         {InserirNota(db, n), db.exec(QStringLiteral("update compra_item_tmp set cfop='5202'")),
          db.exec(QStringLiteral("update compra set nat_op_str='DEVOLUCAO DE COMPRA', serie='1', nfe_chave_ref=")
                  + QuotedStr(ChaveRef)),
          extra.isEmpty() ? QString() : db.execScript(extra)})
        if (!erro.isEmpty())
            return erro;
    return {};
}

QByteArray Montar(TestDatabase &db, int tipo, TnfeProc *nfe, QString *erro)
{
    TEmissorNFe emissor(db.conexao());
    if (!emissor.Montar(1, 1, 1, FinalidadeDoTipo(tipo), tipo, nfe, erro))
        return {};
    return TNFe_XMLW().Documento(*nfe);
}

class EmissorNFe : public ::testing::Test
{
protected:
    void SetUp() override { BancoTeste::FixarRelogio(); }
};

} // namespace

TEST_F(EmissorNFe, CadaTipoEmitidoValidaEAssinaturaConfereEReemitidoGuardaNumeroEChave)
{
    const auto certificado = AbrirCertificadoTeste(QStringLiteral("11222333000181"));
    ASSERT_TRUE(certificado);
    // The test certificate is valid from yesterday on.
    BancoTeste::FixarRelogio(QDateTime(QDate::currentDate(), QTime(10, 30)));
    const struct { int tipo, finNFe; const char *sql, *grupoICMS; } casos[] = {
        {35, 4, "", "ICMS00"}, {36, 1, "update compra_item_tmp set trib_icms_cst=60;", "ICMS60"}, {38, 4, "", "ICMS00"},
        {41, 4, "update empr set crt=1; update compra_item_tmp set trib_icms_cst=102;", "ICMSSN102"},
        {39, 2, "update empr set crt=4; update compra_item_tmp set trib_icms_cst=900, trib_icms_vbc=10, "
                "trib_icms_picms=18, trib_icms_vicms=1.8;", "ICMSSN900"}};
    for (const auto &c : casos) {
        SCOPED_TRACE(c.tipo);
        TestDatabase db;
        QTemporaryDir fiscal;
        Contexto::Atual().pastaFiscal = fiscal.path();
        ASSERT_EQ(NotaDeSaida(db, c.tipo, QStringLiteral("update compra_item_tmp set vipi=0.50, pipi=5 where compra_item_tmp_cod=2;"
                                                       "update compra set ipi=0.5, tot=tot+0.5;")
                                            + QString::fromUtf8(c.sql)),
                  QString());
        TEmissorNFe emissor(db.conexao());
        TNFeEmitida emitida;
        QString erro;
        ASSERT_TRUE(emissor.Emitir(1, 1, 1, c.finNFe, c.tipo, certificado.get(), &emitida, &erro)) << erro.toStdString();
        EXPECT_EQ(emitida.arquivo, fiscal.filePath(QStringLiteral("NFe_Said/%1/%2-nfe.xml").arg(QDate::currentDate().toString(u"yyyy/MM"), emitida.chave)));
        QFile arquivo(emitida.arquivo);
        ASSERT_TRUE(arquivo.open(QIODevice::ReadOnly));
        const QByteArray xml = arquivo.readAll();
        EXPECT_TRUE(TValidadorNFe::Validar(xml, TValidadorNFe::TEsquema::NFe, &erro)) << erro.toStdString();
        EXPECT_TRUE(TAssinadorNFe::Verificar(xml, &erro)) << erro.toStdString();
        EXPECT_EQ(db.valor(QStringLiteral("select nfe_num || '/' || nfe_chave from compra")),
                  QStringLiteral("1/") + emitida.chave);

        TnfeProc nfe;
        TNFe_XMLI leitor(nfe);
        ASSERT_TRUE(leitor.ImportarDoTexto(xml, emitida.arquivo)) << leitor.Erro().toStdString();
        EXPECT_EQ(nfe.ide.finNFe, c.finNFe);
        EXPECT_EQ(nfe.ide.tpNF, 1);
        EXPECT_EQ(nfe.ide.refNFe, QStringList{ChaveRef});
        EXPECT_EQ(nfe.destinatario.xNome, QStringLiteral("NF-E EMITIDA EM AMBIENTE DE HOMOLOGACAO - SEM VALOR FISCAL"));
        // A return gives the IPI back instead of charging it; either way the total carries it.
        EXPECT_EQ(nfe.itens.GetItem(1).IPI.presente, c.finNFe != 4);
        EXPECT_EQ(nfe.itens.GetItem(1).vIPIDevol, c.finNFe == 4 ? *Money::parse(u"0.5") : Money());
        EXPECT_EQ(nfe.ICMSTot.vNF, *Money::parse(u"17.85"));
        EXPECT_EQ(nfe.itens.GetItem(0).ICMS.grupo, QLatin1String(c.grupoICMS));

        TNFeEmitida deNovo;
        ASSERT_TRUE(emissor.Emitir(1, 1, 1, c.finNFe, c.tipo, certificado.get(), &deNovo, &erro)) << erro.toStdString();
        EXPECT_EQ(deNovo.numero, 1);
        EXPECT_EQ(deNovo.chave, emitida.chave);
        EXPECT_EQ(db.valor(QStringLiteral("select ultimo from nfe_numero")), QStringLiteral("1"));
    }
}

TEST_F(EmissorNFe, RecusaAntesDeNumerarComUmaMensagemENaoMudaANota)
{
    const struct { const char *caso; int tipo; const char *sql; const char *mensagem; } casos[] = {
        {"entrada", 34, "", "Não pode ser enviada NFe referente a uma ENTRADA"},
        {"cancelada", 35, "update compra set cancelado='S';", "Esta venda foi cancelada. Não é possivel gerar o NFe"},
        {"com protocolo", 35, "update compra set nfe_protocolo='135260000000001';",
         "Esta venda já possui Protocolo NFE. Não pode mais ser enviada"},
        {"devolução sem chave", 35, "update compra set nfe_chave_ref=null;",
         "Indique a chave da NF-e referenciada nas chaves referenciadas da nota e tente novamente"},
        {"empresa sem IE", 35, "update empr set ie='' where empr_cod=1;",
         "Em Tabelas, Empresa, indique a Inscrição Estatual e tente novamente"},
        {"empresa sem IBGE", 36, "update empr set mun_ibge_cod=null where empr_cod=1;",
         "Em Tabelas, Empresa, indique o Código IBGE do Município e tente novamente"},
        {"empresa sem regime", 36, "update empr set crt=null where empr_cod=1;",
         "Em Tabelas, Empresa, indique o Regime Tributário e tente novamente"},
        {"cliente sem bairro", 36, "update fornec set bai=' ' where fornec_cod=1;",
         "O campo 'Bairro' do cliente está em branco. Corrija e tente novamente"},
        {"cliente sem CEP", 36, "update fornec set cep=null where fornec_cod=1;",
         "O campo 'CEP' do cliente está em branco. Corrija e tente novamente"},
        {"item sem NCM", 36, "update compra_item_tmp set ncm=null; update prod set ncm=null where prod_cod=2;",
         "Item 2 (produto 2): indique o NCM"},
        {"item sem CFOP", 36, "update compra_item_tmp set cfop='' where compra_item_tmp_cod=1;",
         "Item 1 (produto 1): indique o CFOP"},
        {"CFOP de entrada e de saída", 36, "update compra_item_tmp set cfop='1202' where compra_item_tmp_cod=2;",
         "Item 2 (produto 2): o CFOP 1202 não tem a direção (entrada ou saída) dos demais itens. Corrija e tente novamente"},
        {"total não confere", 36, "update compra set tot=tot+0.02;",
         "O valor total da nota (R$ 17,37) não confere com a soma dos itens (R$ 17,35). Corrija e tente novamente"},
        {"produtos não conferem", 36, "update compra set tot_prods=17;",
         "O total de produtos da nota (R$ 17,00) não confere com a soma dos itens (R$ 17,35). Corrija e tente novamente"},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.caso);
        TestDatabase db;
        ASSERT_EQ(NotaDeSaida(db, c.tipo, QString::fromUtf8(c.sql)), QString());
        const QString antes = db.valor(QStringLiteral("select nfe_num || '/' || coalesce(nfe_chave, '') from compra"));
        TEmissorNFe emissor(db.conexao());
        QString erro;
        EXPECT_FALSE(emissor.Emitir(1, 1, 1, FinalidadeDoTipo(c.tipo), c.tipo, nullptr, nullptr, &erro));
        EXPECT_EQ(erro, QString::fromUtf8(c.mensagem));
        EXPECT_EQ(db.valor(QStringLiteral("select count(*) from nfe_numero")), QStringLiteral("0"));
        EXPECT_EQ(db.valor(QStringLiteral("select nfe_num || '/' || coalesce(nfe_chave, '') from compra")), antes);
    }
}

TEST_F(EmissorNFe, AspasAcentosEControlesValidamEVoltamIntactosComOTransporte)
{
    TestDatabase db;
    ASSERT_EQ(NotaDeSaida(db, 36,
                          QStringLiteral("update compra set frete_modalidade=1, transp_fornec_cod=2, frete_vei_placa='ABC-1D23', "
                                         "frete_vei_uf='PR', frete_reboque1_placa='XYZ9A87', frete_reboque1_uf='PR', "
                                         "frete_vols_qtd=3, frete_vols_especie='CAIXA', frete_peso_liq=12.5, "
                                         "frete_peso_bruto=13.25;"
                                         "update compra set nat_op_str='REMESSA \"TESTE\" & <AMOSTRA> DE CAFÉ', "
                                         "inf_adic_contribuinte='Pedido nº 12 & ''urgente''' || ascii_char(10) || "
                                         "ascii_char(9) || 'até 5ª feira' || ascii_char(7);"
                                         "update prod set descr='CAFÉ D''OURO – “500g”' || ascii_char(1) where prod_cod=1;")),
              QString());
    TnfeProc nfe;
    QString erro;
    const QByteArray xml = Montar(db, 36, &nfe, &erro);
    ASSERT_FALSE(xml.isEmpty()) << erro.toStdString();
    EXPECT_TRUE(TValidadorNFe::Validar(xml, TValidadorNFe::TEsquema::NFe, &erro)) << erro.toStdString();
    TnfeProc lida;
    TNFe_XMLI leitor(lida);
    ASSERT_TRUE(leitor.ImportarDoTexto(xml, QStringLiteral("nota"))) << leitor.Erro().toStdString();
    EXPECT_EQ(lida.ide.natOp, QStringLiteral("REMESSA \"TESTE\" & <AMOSTRA> DE CAFÉ"));
    EXPECT_EQ(lida.itens.GetItem(0).xProd, QStringLiteral("CAFÉ D'OURO - \"500g\""));
    EXPECT_EQ(lida.infCpl, QStringLiteral("Pedido nº 12 & 'urgente' até 5ª feira"));
    EXPECT_EQ(TextoXML(u"  a\u00A0 <b>  🙂c  "), QStringLiteral("a &lt;b&gt; c"));
    EXPECT_EQ(lida.transp.modFrete, 0);
    EXPECT_EQ(lida.transp.CNPJ, QStringLiteral("77888999000181"));
    EXPECT_EQ(lida.transp.placa, QStringLiteral("ABC1D23"));
    EXPECT_EQ(lida.transp.qVol, 3);
    EXPECT_EQ(lida.transp.pesoB, 13.25);
}

TEST(NumeracaoNFe, CodigoAleatorioNuncaTrivialNemIgualAoNumero)
{
    for (int i = 0; i < 2000; ++i) {
        const QString c = NumeracaoNFe::NovoCNF(12345678 + i % 2);
        ASSERT_EQ(c.size(), 8);
        EXPECT_NE(c.toLongLong(), 12345678 + i % 2);
        EXPECT_NE(c, QString(8, c[0]));
        EXPECT_FALSE(QStringLiteral("0123456789").contains(c) || QStringLiteral("9876543210").contains(c)) << c.toStdString();
    }
}

TEST(NumeroNFe, DuasConexoesAoMesmoTempoNuncaRepetemEContinuamDoMaiorUsado)
{
    TestDatabase db;
    ASSERT_EQ(InserirNota(db, NotaTeste{.tipo = 35}), QString());
    ASSERT_EQ(db.exec(QStringLiteral("update compra set nfe_num=41, serie='1'")), QString());
    QList<qint64> numeros[2];
    QString erros[2];
    const auto pedir = [&](int i) {
        TConexaoSQL conexao(db.banco());
        for (int n = 0; n < 50; ++n) {
            qint64 numero = 0;
            if (!TNFeNumero_DBI::Proximo(conexao, 1, 1, &numero, &erros[i]))
                return;
            numeros[i] << numero;
        }
    };
    std::thread a(pedir, 0), b(pedir, 1);
    a.join();
    b.join();
    ASSERT_EQ(erros[0] + erros[1], QString());
    QSet<qint64> todos(numeros[0].begin(), numeros[0].end());
    todos.unite(QSet<qint64>(numeros[1].begin(), numeros[1].end()));
    EXPECT_EQ(todos.size(), 100);
    EXPECT_EQ(*std::min_element(todos.begin(), todos.end()), 42);
    EXPECT_EQ(*std::max_element(todos.begin(), todos.end()), 141);
}

TEST_F(EmissorNFe, DevolucaoDaLojaDeDemonstracaoValida)
{
    QTemporaryDir pasta;
    TDadosBanco banco;
    banco.database = pasta.filePath(QStringLiteral("demo.fdb"));
    QString erro;
    ASSERT_TRUE(Database::CreateWithSchema(banco, true, &erro)) << erro.toStdString();
    TConexaoSQL conexao(banco);
    TEmissorNFe emissor(conexao);
    TnfeProc nfe;
    ASSERT_TRUE(emissor.Montar(1, 1, 3, FinalidadeDoTipo(35), 35, &nfe, &erro)) << erro.toStdString();
    EXPECT_TRUE(TValidadorNFe::Validar(TNFe_XMLW().Documento(nfe), TValidadorNFe::TEsquema::NFe, &erro))
        << erro.toStdString();
    EXPECT_EQ(nfe.ide.nNF, 1532);
    // Issued before: the same number and random code give back the key it already has.
    EXPECT_EQ(nfe.chave, QStringLiteral("35261124587136000108550010000015321719204669"));
    TConexaoSQL::FecharOciosas(banco.database);
}

TEST_F(EmissorNFe, DocumentoForaDoEsquemaGuardaSoONumeroENenhumArquivo)
{
    const auto certificado = AbrirCertificadoTeste(QStringLiteral("11222333000181"));
    ASSERT_TRUE(certificado);
    BancoTeste::FixarRelogio(QDateTime(QDate::currentDate(), QTime(10, 30)));
    TestDatabase db;
    QTemporaryDir fiscal;
    Contexto::Atual().pastaFiscal = fiscal.path();
    ASSERT_EQ(NotaDeSaida(db, 36, QStringLiteral("update compra_item_tmp set ncm='1234' where compra_item_tmp_cod=2;")), QString());
    TEmissorNFe emissor(db.conexao());
    QString erro;
    EXPECT_FALSE(emissor.Emitir(1, 1, 1, 1, 36, certificado.get(), nullptr, &erro));
    EXPECT_TRUE(erro.contains(QStringLiteral("NCM"))) << erro.toStdString();
    EXPECT_EQ(db.valor(QStringLiteral("select nfe_num || '/' || coalesce(nfe_chave, 'sem chave') from compra")),
              QStringLiteral("1/sem chave"));
    EXPECT_FALSE(QDir(fiscal.filePath(QStringLiteral("NFe_Said"))).exists());
}
