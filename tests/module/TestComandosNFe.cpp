// The NF-e commands on a fresh fixture database: a test certificate, the NF-e of a return note,
// its DANFE, and their refusals.
#include "BancoTeste.h"
#include "ComandosHeadless.h"
#include "Config.h"
#include "Contexto.h"
#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "TAssinadorNFe.h"
#include "TCertificadoF.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

class ComandosNFe : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        ASSERT_TRUE(pasta.isValid());
        BancoTeste::FixarRelogio();
        Contexto::Atual().pastaFiscal = pasta.filePath(QStringLiteral("fiscal"));
    }
    void TearDown() override
    {
        Contexto::Atual().pastaFiscal.clear();
        qunsetenv("PAVREL_CERTIFICADO");
        qunsetenv("PAVREL_CERTIFICADO_SENHA");
    }

    // "exit code|what it printed" of the command line, split at blanks; @ stands for the folder.
    QString Rodou(const QString &linha)
    {
        QString saida, erros;
        QTextStream s(&saida), e(&erros);
        const int codigo = ComandosHeadless::Executar(QString(linha).replace(QLatin1Char('@'), pasta.path() + '/').split(' '), s, e);
        return QString::number(codigo) + '|' + saida + erros;
    }

    TestDatabase db;
    QTemporaryDir pasta;
};

TEST_F(ComandosNFe, CertificadoNotaDevolvidaEDanfeDaNotaEDoArquivo)
{
    // A return of two items to supplier 1, with the key of the note it returns.
    ASSERT_EQ(InserirNota(db, {.tipo = 35, .baixado = true, .itens = {Item(1, 1, "2", "10"), Item(2, 2, "1", "4.5")}}), QString());
    ASSERT_EQ(db.execScript(QStringLiteral(
                  "update compra_item_tmp set cfop='5202';"
                  "update compra set nat_op_str='DEVOLUCAO DE COMPRA', serie='1', "
                  "nfe_chave_ref='35261144555666000181550010000045871000045875';")),
              QString());

    EXPECT_TRUE(Rodou(QStringLiteral("test-certificate --cnpj 11.222.333/0001-81 --out @a1.pfx --password segredo"))
                    .startsWith("0|Certificado de TESTE gravado em " + pasta.path()));
    {
        // The settings dialog keeps only a certificate that opens.
        DialogosTeste dialogos;
        TCertificadoF dialogo(97, QStringLiteral("11222333000181"));
        const auto limpar = qScopeGuard([] {
            ConfigGravarStr(TCertificadoF::ChaveArquivo(97), {});
            ConfigGravarStr(TCertificadoF::ChaveSenha(97), {});
        });
        dialogo.ArquivoEdit()->setText(pasta.filePath(QStringLiteral("a1.pfx")));
        dialogo.SenhaEdit()->setText(QStringLiteral("errada"));
        EXPECT_FALSE(dialogo.Gravar());
        EXPECT_EQ(dialogos.Mensagens().size(), 1);
        EXPECT_EQ(ConfigLerStr(TCertificadoF::ChaveArquivo(97)), QString());
        dialogo.SenhaEdit()->setText(QStringLiteral("segredo"));
        EXPECT_TRUE(dialogo.Gravar());
        EXPECT_TRUE(dialogo.ResultadoLabel()->text().contains(QStringLiteral("CNPJ: 11222333000181\nVálido de 19/11/2026")))
            << dialogo.ResultadoLabel()->text().toStdString();
        EXPECT_EQ(ConfigLerStr(TCertificadoF::ChaveSenha(97)), QStringLiteral("segredo"));
    }
    qputenv("PAVREL_CERTIFICADO", pasta.filePath(QStringLiteral("a1.pfx")).toLocal8Bit());
    qputenv("PAVREL_CERTIFICADO_SENHA", "segredo");

    const QString copia = pasta.filePath(QStringLiteral("copia.xml"));
    ASSERT_EQ(Rodou(QStringLiteral("nfe-xml 001-0000001 --out @copia.xml")), "0|" + copia + '\n');
    const QString chave = db.valor(QStringLiteral("select nfe_chave from compra"));
    ASSERT_EQ(chave.size(), 44);
    QFile arquivo(copia);
    ASSERT_TRUE(arquivo.open(QIODevice::ReadOnly));
    QString erro;
    EXPECT_TRUE(TAssinadorNFe::Verificar(arquivo.readAll(), &erro)) << erro.toStdString();

    for (const char *alvo : {"001-0000001", "@copia.xml"}) {
        SCOPED_TRACE(alvo);
        const QString pdf = pasta.filePath(QStringLiteral("danfe.pdf"));
        QFile::remove(pdf);
        EXPECT_EQ(Rodou(QStringLiteral("danfe %1 --pdf @danfe.pdf").arg(QLatin1String(alvo))), "0|" + pdf + '\n');
        QFile gerado(pdf);
        ASSERT_TRUE(gerado.open(QIODevice::ReadOnly));
        EXPECT_TRUE(gerado.read(5) == "%PDF-");
    }
}

TEST_F(ComandosNFe, RecusasSaemComMensagemENaoGravamNada)
{
    ASSERT_EQ(InserirNota(db, {.itens = {Item(1, 1, "1", "10")}}), QString());
    const struct
    {
        const char *linha, *saida;
    } casos[] = {
        {"danfe 001-0000001 --pdf @d.pdf", "1|pavrel danfe: a nota 001-0000001 não tem NF-e emitida; emita-a com nfe-xml\n"},
        {"danfe @nada.xml --pdf @d.pdf", "1|pavrel danfe: "},
        {"danfe 001-0000001", "2|uso: pavrel danfe NOTA|ARQUIVO.xml --pdf SAIDA.pdf\n"},
        {"nfe-xml 001-0000009", "1|pavrel nfe-xml: nota 001-0000009 não encontrada\n"},
        {"nfe-xml 001-0000001", "1|pavrel nfe-xml: "},
        {"test-certificate --cnpj 11222333000182 --out @a.pfx --password x", "2|pavrel test-certificate: CNPJ inválido: 11222333000182\n"},
        {"test-certificate --cnpj 11222333000181 --out @a.pfx", "2|pavrel test-certificate: falta --password\n"},
    };
    for (const auto &caso : casos) {
        SCOPED_TRACE(caso.linha);
        EXPECT_TRUE(Rodou(QLatin1String(caso.linha)).startsWith(QString::fromUtf8(caso.saida)));
    }
    EXPECT_EQ(db.valor(QStringLiteral("select coalesce(nfe_chave, '-') from compra")), "-");
    EXPECT_EQ(QDir(pasta.path()).entryList(QDir::Files), QStringList());
}

} // namespace
