#include "BancoTeste.h"
#include "DialogosTeste.h"
#include "SimuladorSefaz.h"
#include "TBaixaNFePorChaveSefaz.h"
#include "TBaixarViaChaveF.h"
#include "TDistribuicaoNFe.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>

namespace {

const QString Nsu = QStringLiteral("select valor from config where chave='NFE_ULT_NSU_1'");

// Company 1 of the fixture against the simulator, with a fiscal folder of its own.
class DistribuicaoNFe : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        // The simulator's certificates are valid from yesterday on.
        BancoTeste::FixarRelogio(QDateTime::currentDateTime());
        Contexto::Atual().pastaFiscal = fiscal.path();
        QString erro;
        ASSERT_TRUE(simulador.Iniciar(QStringLiteral("11222333000181"), &erro)) << erro.toStdString();
        simulador.Apontar();
    }
    // One document addressed to us, fetched; its key.
    QString UmaNFe()
    {
        simulador.Comando(QStringLiteral("documentos 1"));
        QList<TNFeDeInteresse> novos;
        QString erro;
        TDistribuicaoNFe(db.conexao(), 1).Baixar(&novos, &erro);
        return novos.size() == 1 ? novos.first().chave : QString();
    }

    TestDatabase db;
    QTemporaryDir fiscal;
    TSimuladorSefaz simulador;
};

} // namespace

TEST_F(DistribuicaoNFe, TresResumosArquivadosNsuGravadoESegundaConsultaNadaTraz)
{
    simulador.Comando(QStringLiteral("documentos 3"));
    QString erro;
    QList<TNFeDeInteresse> novos;
    // An error page instead of the answer: nothing filed, the NSU not moved.
    simulador.Comando(QStringLiteral("html NFeDistribuicaoDFe"));
    EXPECT_FALSE(TDistribuicaoNFe(db.conexao(), 1).Baixar(&novos, &erro));
    EXPECT_FALSE(erro.isEmpty());
    EXPECT_TRUE(novos.isEmpty());
    EXPECT_EQ(db.valor(Nsu), QString());

    TDistribuicaoNFe distribuicao(db.conexao(), 1);
    ASSERT_TRUE(distribuicao.Baixar(&novos, &erro)) << erro.toStdString();
    ASSERT_EQ(novos.size(), 3);
    const QString nsu = db.valor(Nsu);
    EXPECT_EQ(nsu.size(), 15);
    EXPECT_GT(nsu.toLongLong(), 0);
    for (const TNFeDeInteresse &doc : novos) {
        EXPECT_EQ(doc.tipo, QStringLiteral("resumo"));
        EXPECT_FALSE(doc.completo);
        EXPECT_FALSE(doc.cnpjEmitente.isEmpty());
        EXPECT_TRUE(doc.dhEmi.isValid());
        EXPECT_TRUE(doc.arquivo.startsWith(fiscal.filePath(QStringLiteral("NFe_Dest/20") + doc.chave.mid(2, 2) + u'/' + doc.chave.mid(4, 2))))
            << doc.arquivo.toStdString();
        EXPECT_TRUE(doc.arquivo.endsWith(doc.chave + QStringLiteral("-resNFe.xml")));
        EXPECT_TRUE(QFileInfo::exists(doc.arquivo));
    }
    EXPECT_EQ(distribuicao.Listar().size(), 3);

    const int pedidos = simulador.Pedidos(QStringLiteral("NFeDistribuicaoDFe"));
    novos.clear();
    ASSERT_TRUE(distribuicao.Baixar(&novos, &erro)) << erro.toStdString();
    EXPECT_TRUE(novos.isEmpty());
    EXPECT_EQ(distribuicao.UltimoCStat(), 137);
    EXPECT_EQ(db.valor(Nsu), nsu);
    EXPECT_EQ(simulador.Pedidos(QStringLiteral("NFeDistribuicaoDFe")), pedidos + 1);
    EXPECT_EQ(distribuicao.Listar().size(), 3);
}

TEST_F(DistribuicaoNFe, ManifestacaoRecusadaNadaEnviaECienciaTrazOXmlCompleto)
{
    const QString chave = UmaNFe();
    ASSERT_EQ(chave.size(), 44);
    TDistribuicaoNFe distribuicao(db.conexao(), 1);
    const struct { const char *nome; QString chave; TManifestacao tipo; QString justificativa, erro; } recusas[] = {
        {"chave curta", chave.left(43), TManifestacao::Ciencia, {}, QStringLiteral("A chave deve ter 44 caracteres")},
        {"justificativa de 14", chave, TManifestacao::NaoRealizada, QStringLiteral("  quatorze letr  "),
         QStringLiteral("A justificativa deve ter de 15 a 255 caracteres")},
        {"justificativa de 256", chave, TManifestacao::NaoRealizada, QString(256, u'x'),
         QStringLiteral("A justificativa deve ter de 15 a 255 caracteres")},
    };
    for (const auto &r : recusas) {
        SCOPED_TRACE(r.nome);
        QString erro;
        EXPECT_FALSE(distribuicao.Manifestar(r.chave, r.tipo, r.justificativa, &erro));
        EXPECT_EQ(erro, r.erro);
    }
    EXPECT_EQ(simulador.Pedidos(QStringLiteral("NFeRecepcaoEvento4")), 0);

    QString erro;
    ASSERT_TRUE(distribuicao.Manifestar(chave, TManifestacao::Ciencia, {}, &erro)) << erro.toStdString();
    EXPECT_EQ(distribuicao.UltimoCStat(), 135);
    EXPECT_EQ(distribuicao.UltimoAviso(), QString());
    const QString mes = fiscal.filePath(QStringLiteral("NFe_Dest/20%1/%2/").arg(chave.mid(2, 2), chave.mid(4, 2)));
    EXPECT_TRUE(QFileInfo::exists(mes + chave + QStringLiteral("-210210-01-evento.xml")));
    EXPECT_TRUE(QFileInfo::exists(mes + chave + QStringLiteral("-procNFe.xml")));
    const QList<TNFeDeInteresse> lista = distribuicao.Listar();
    const auto nota = std::find_if(lista.begin(), lista.end(), [](const TNFeDeInteresse &d) { return d.tipo != QLatin1String("evento"); });
    ASSERT_NE(nota, lista.end());
    EXPECT_TRUE(nota->completo);
    EXPECT_FALSE(nota->valor.isEmpty());
    EXPECT_EQ(std::count_if(lista.begin(), lista.end(), [](const TNFeDeInteresse &d) { return d.tpEvento == 210210; }), 1);
}

TEST_F(DistribuicaoNFe, DialogoDeChaveBaixaPeloRegistradoSoDepoisDaCiencia)
{
    const QString chave = UmaNFe();
    ASSERT_EQ(chave.size(), 44);
    TBaixaNFePorChaveSefaz::Registrar();
    DialogosTeste dialogos;
    TBaixarViaChaveF dialogo(db.caminho(), QStringLiteral("SP"), {}, nullptr, {}, TPess_Emit{}, 0);
    dialogo.ChaveEdit()->setText(chave);
    // Only the summary is on the authority's side until the recipient manifests.
    EXPECT_FALSE(dialogo.Procurar());
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).contains(QStringLiteral("manifeste a Ciência da Operação")));

    QString erro;
    ASSERT_TRUE(TDistribuicaoNFe(db.conexao(), 1).Manifestar(chave, TManifestacao::Confirmacao, {}, &erro)) << erro.toStdString();
    dialogos.Limpar();
    ASSERT_TRUE(dialogo.Procurar());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    const QString arquivo = QDir::fromNativeSeparators(dialogo.NomeArqXMLLabeledEdit()->text());
    EXPECT_TRUE(arquivo.endsWith(chave + QStringLiteral("-procNFe.xml"))) << arquivo.toStdString();
    EXPECT_TRUE(QFileInfo::exists(arquivo));
    TBaixaNFePorChave::Definir(nullptr);
}

// The module is its own copy of the platform: it exports Exec and nothing of the platform (or its
// context would bind to the loader's), and sets itself up from what Exec is given.
TEST(ModuloNFeDeInteresse, ExportaSoExecEListaOQueEstaNaPasta)
{
    QLibrary modulo(QCoreApplication::applicationDirPath() + QStringLiteral("/../../bin/NFeDeInteresse"));
    ASSERT_TRUE(modulo.load()) << modulo.errorString().toStdString();
    for (const char *interno : {"_ZN8Contexto5AtualEv", "_ZN9TDialogos7DefinirEPS_", "_ZN11TConexaoSQL8ConectarEv"})
        EXPECT_EQ(modulo.resolve(interno), nullptr) << interno;
    const auto exec = reinterpret_cast<void (*)(QWidget *, const char *, int, int)>(modulo.resolve("Exec"));
    ASSERT_NE(exec, nullptr);

    TestDatabase db;
    QTemporaryDir fiscal;
    const QString chave = QStringLiteral("35261148091527000103550010000000011000482723");
    ASSERT_TRUE(QDir().mkpath(fiscal.filePath(QStringLiteral("NFe_Dest/2026/11"))));
    QFile resumo(fiscal.filePath(QStringLiteral("NFe_Dest/2026/11/") + chave + QStringLiteral("-resNFe.xml")));
    ASSERT_TRUE(resumo.open(QIODevice::WriteOnly));
    resumo.write(QStringLiteral("<resNFe versao=\"1.01\"><chNFe>%1</chNFe><CNPJ>48091527000103</CNPJ><xNome>SERRA AZUL</xNome>"
                                "<dhEmi>2026-11-23T05:30:00-03:00</dhEmi><vNF>162.50</vNF></resNFe>").arg(chave).toUtf8());
    resumo.close();
    qputenv("PAVREL_FISCAL_FOLDER", fiscal.path().toLocal8Bit());
    QStringList linha;
    QTimer espera;
    QObject::connect(&espera, &QTimer::timeout, [&] {
        if (QWidget *janela = QApplication::activeModalWidget()) {
            if (const auto *grade = janela->findChild<QTableWidget *>(QStringLiteral("DocumentosGrid")); grade && grade->rowCount() == 1)
                for (int coluna = 0; coluna < grade->columnCount(); ++coluna)
                    linha << grade->item(0, coluna)->text();
            janela->close();
        }
    });
    espera.start(20);
    exec(nullptr, db.caminho().toUtf8().constData(), 1, 1);
    qunsetenv("PAVREL_FISCAL_FOLDER");
    EXPECT_EQ(linha, (QStringList{chave, QStringLiteral("48091527000103 SERRA AZUL"), QStringLiteral("23/11/2026 05:30"),
                                  QStringLiteral("162,50"), QStringLiteral("NF-e"), QStringLiteral("Resumo")}));
    modulo.unload();
}
