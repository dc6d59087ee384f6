#include "BancoTeste.h"
#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "SimuladorSefaz.h"
#include "TDacce.h"
#include "TEmissorNFe.h"
#include "TEnvioNFe.h"
#include "TImpressoraNFePdf.h"
#include "UKelNfeEnviaNFE.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace {

std::string S(const QString &t) { return t.toStdString(); }

QString TextoPdf(const QString &pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

class EnvioNFe : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        simulador = std::make_unique<TSimuladorSefaz>();
        ASSERT_TRUE(simulador->Iniciar(QStringLiteral("11222333000181"), &erroSimulador)) << S(erroSimulador);
    }
    static void TearDownTestSuite() { simulador.reset(); }

    void SetUp() override
    {
        ASSERT_TRUE(simulador && erroSimulador.isEmpty()) << S(erroSimulador);
        BancoTeste::FixarRelogio(QDateTime::currentDateTime());
        Contexto::Atual().pastaFiscal = fiscal.path();
        simulador->Apontar();
        simulador->Comando(QStringLiteral("status 107"));
        NotaTeste n{.tipo = 35, .itens = {Item(1, 1, "2", "10"), Item(2, 2, "1.5", "7.35")}};
        ASSERT_EQ(InserirNota(db, n), QString());
        // One simulator for the suite: each test issues in a series of its own.
        static int serie = 0;
        ASSERT_EQ(db.execScript(QStringLiteral(
                      "update compra_item_tmp set cfop='5202';"
                      "update compra set nat_op_str='DEVOLUCAO DE COMPRA', serie='%1', "
                      "nfe_chave_ref='35261112345678000195550010000012341097720596';").arg(++serie)),
                  QString());
    }

    bool Enviar(QString *erro) { return envio.Enviar(1, 1, 4, 35, &autorizada, erro); }
    QString Protocolo() { return db.valor(QStringLiteral("select coalesce(nfe_protocolo, '') from compra")); }
    QString Chave() { return db.valor(QStringLiteral("select nfe_chave from compra")); }
    QString Pasta() { return fiscal.filePath(QStringLiteral("NFe_Said/20%1/%2/").arg(Chave().mid(2, 2), Chave().mid(4, 2))); }

    static inline std::unique_ptr<TSimuladorSefaz> simulador;
    static inline QString erroSimulador;
    TestDatabase db;
    QTemporaryDir fiscal;
    DialogosTeste dialogos;
    TEnvioNFe envio{db.conexao(), 1};
    TNFeAutorizada autorizada;
};

} // namespace

TEST_F(EnvioNFe, AutorizadaArquivaProcNFeGravaNaNotaEImprimeDanfeComProtocolo)
{
    QStringList titulos;
    envio.DefinirProgresso([&](const QString &t) { titulos << t; });
    QString erro;
    ASSERT_TRUE(Enviar(&erro)) << S(erro);
    EXPECT_EQ(envio.UltimoRetorno().cStat, 100);
    EXPECT_EQ(titulos, QStringList({"Gerando NF-e...", "Assinando...", "Enviando NF-e à SEFAZ..."}));
    EXPECT_EQ(autorizada.protocolo.size(), 15);
    EXPECT_EQ(Protocolo(), autorizada.protocolo);
    EXPECT_EQ(autorizada.arquivo, Pasta() + Chave() + QStringLiteral("-procNFe.xml"));
    ASSERT_TRUE(QFile::exists(autorizada.arquivo));

    TImpressoraNFePdf pdf(fiscal.filePath(QStringLiteral("danfe.pdf")));
    TImpressoraNFe::Definir(&pdf);
    QStringList erros;
    KelNFEEnviarImpr(nullptr, db.conexao(), {}, [&](const QString &e) { erros << e; }, 1, 1, 1, QStringLiteral("1"),
                     int(autorizada.numero), autorizada.chave, true);
    TImpressoraNFe::Definir(nullptr);
    EXPECT_EQ(erros, QStringList());
    EXPECT_TRUE(TextoPdf(pdf.Arquivo()).contains(autorizada.protocolo));

    // Sent once: a second send is refused before anything leaves.
    EXPECT_FALSE(Enviar(&erro));
    EXPECT_EQ(erro, QStringLiteral("Esta venda já possui Protocolo NFE. Não pode mais ser enviada"));
    EXPECT_EQ(simulador->Pedidos(QStringLiteral("NFeAutorizacao4")), 1);
}

TEST_F(EnvioNFe, RespostaPerdidaReenvioTomaOProtocoloQueASefazJaTemSemEnviarDeNovo)
{
    const int antes = simulador->Pedidos(QStringLiteral("NFeAutorizacao4"));
    simulador->Comando(QStringLiteral("descartar NFeAutorizacao4"));
    QString erro;
    ASSERT_FALSE(Enviar(&erro));
    EXPECT_TRUE(erro.endsWith(QStringLiteral("A NF-e será consultada antes de um novo envio."))) << S(erro);
    EXPECT_EQ(Protocolo(), QString());

    ASSERT_TRUE(Enviar(&erro)) << S(erro);
    EXPECT_EQ(Protocolo(), autorizada.protocolo);
    EXPECT_EQ(autorizada.chave, Chave());
    EXPECT_EQ(simulador->Pedidos(QStringLiteral("NFeAutorizacao4")), antes + 1);
}

TEST_F(EnvioNFe, RejeicaoMostraCodigoEMotivoENadaFicaAutorizado)
{
    for (const int cStat : {204, 225, 297}) {
        SCOPED_TRACE(cStat);
        simulador->Comando(QStringLiteral("rejeitar NFeAutorizacao4 %1").arg(cStat));
        QString erro;
        EXPECT_FALSE(Enviar(&erro));
        EXPECT_TRUE(erro.startsWith(QStringLiteral("NF-e rejeitada pela SEFAZ: %1 - ").arg(cStat))) << S(erro);
        EXPECT_EQ(Protocolo(), QString());
        EXPECT_FALSE(QFile::exists(Pasta() + Chave() + QStringLiteral("-procNFe.xml")));
    }
}

TEST_F(EnvioNFe, CancelamentoDaNotaCanceladaNoSistemaGravaDataEArquivaEvento)
{
    QString erro;
    ASSERT_TRUE(Enviar(&erro)) << S(erro);
    QDateTime dhCanc;
    EXPECT_FALSE(envio.Cancelar(1, 1, QStringLiteral("curta demais  "), &dhCanc, &erro));
    EXPECT_EQ(erro, QStringLiteral("A justificativa do cancelamento deve ter de 15 a 255 caracteres"));
    ASSERT_EQ(db.exec(QStringLiteral("update compra set cancelado='S'")), QString());
    ASSERT_TRUE(envio.Cancelar(1, 1, QStringLiteral("Mercadoria devolvida por engano"), &dhCanc, &erro)) << S(erro);
    EXPECT_EQ(envio.UltimoRetorno().cStat, 135);
    EXPECT_TRUE(dhCanc.isValid());
    EXPECT_NE(db.valor(QStringLiteral("select nfe_dth_canc from compra")), QString());
    EXPECT_TRUE(QFile::exists(Pasta() + Chave() + QStringLiteral("-110111-01-procEventoNFe.xml")));
}

TEST_F(EnvioNFe, CartasDeCorrecaoNumeradasEmSequenciaEImpressas)
{
    QString erro;
    ASSERT_TRUE(Enviar(&erro)) << S(erro);
    for (const int esperado : {1, 2}) {
        int seq = 0;
        ASSERT_TRUE(envio.CartaCorrecao(Chave(), 35, QStringLiteral("Nota Num: 1"),
                                        QStringLiteral("Correção número %1 do endereço").arg(esperado), &seq, &erro))
            << S(erro);
        EXPECT_EQ(seq, esperado);
        EXPECT_TRUE(QFile::exists(Pasta() + Chave() + QStringLiteral("-110110-%1-procEventoNFe.xml").arg(seq, 2, 10, QLatin1Char('0'))));
    }
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from nfe_corr where protocolo is not null and dth_env is not null")),
              QStringLiteral("2"));

    TImpressoraNFePdf pdf(fiscal.filePath(QStringLiteral("cce.pdf")));
    TImpressoraNFe::Definir(&pdf);
    const bool impresso = TDacce::Imprimir(db.conexao(), 1, Chave(), 2, &erro);
    TImpressoraNFe::Definir(nullptr);
    ASSERT_TRUE(impresso) << S(erro);
    const QString texto = TextoPdf(pdf.Arquivo()).simplified();
    EXPECT_TRUE(texto.contains(QStringLiteral("Correção número 2 do endereço"))) << S(texto);
    EXPECT_TRUE(texto.contains(QStringLiteral("CONDIÇÕES DE USO"))) << S(texto);
}

TEST_F(EnvioNFe, ForaDeServicoEmiteEmContingenciaComOutraChaveQuandoOUsuarioAceita)
{
    simulador->Comando(QStringLiteral("status 108"));
    dialogos.Responder(true);
    QString erro;
    const bool ok = Enviar(&erro);
    simulador->Comando(QStringLiteral("status 107"));
    ASSERT_TRUE(ok) << S(erro);
    ASSERT_EQ(dialogos.Perguntas().size(), 1);
    EXPECT_TRUE(dialogos.Perguntas().first().texto.contains(QStringLiteral("contingência pelo SVC-AN")));
    EXPECT_EQ(autorizada.chave.at(34), u'6');
    EXPECT_EQ(Chave(), autorizada.chave);
    EXPECT_EQ(Protocolo(), autorizada.protocolo);
}
