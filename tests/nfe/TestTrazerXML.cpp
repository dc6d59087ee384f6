// Filing a supplier's XML in the fiscal folder by month of issue.
#include "DialogosTeste.h"
#include "TrazerXML.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QByteArray Ler(const QString &caminho)
{
    QFile f(caminho);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void Gravar(const QString &caminho, const QByteArray &conteudo)
{
    QDir().mkpath(QFileInfo(caminho).absolutePath());
    QFile f(caminho);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(conteudo);
}

} // namespace

TEST(TrazerXML, FiledByMonthOfIssueOrDirectlyAndNeverOntoItself)
{
    DialogosTeste dialogos;
    QTemporaryDir fiscal, origem;
    ASSERT_TRUE(fiscal.isValid() && origem.isValid());
    const QByteArray comData = "<NFe><ide><dhEmi>2026-03-07T23:59:58-03:00</dhEmi></ide></NFe>";
    struct Caso
    {
        const char *nome;
        QByteArray conteudo;
        QString esperado;   // below the fiscal folder
    };
    const Caso casos[] = {
        {"month of issue", comData, QStringLiteral("NFe_Entr/2026/03/a.xml")},
        {"no dhEmi", "<NFe><ide/></NFe>", QStringLiteral("NFe_Entr/b.xml")},
        {"dhEmi that is no date", "<dhEmi>2026-13-40T10:00:00</dhEmi>", QStringLiteral("NFe_Entr/c.xml")},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nome);
        const QString fonte = origem.filePath(QFileInfo(c.esperado).fileName());
        Gravar(fonte, c.conteudo);
        const QString alvo = QDir(fiscal.path()).filePath(c.esperado);
        Gravar(alvo, "an older copy");
        EXPECT_EQ(TrazerXML(fonte, fiscal.path()), alvo);
        EXPECT_EQ(Ler(alvo), c.conteudo);
        EXPECT_EQ(Ler(fonte), c.conteudo);
    }

    // The file chosen from its own place in the fiscal folder stays as it is.
    const QString noLugar = QDir(fiscal.path()).filePath(QStringLiteral("NFe_Entr/2026/03/a.xml"));
    EXPECT_EQ(TrazerXML(noLugar, fiscal.path()), noLugar);
    EXPECT_EQ(Ler(noLugar), comData);
    EXPECT_EQ(QDir(QFileInfo(noLugar).absolutePath()).entryList(QDir::Files), QStringList{"a.xml"});

    EXPECT_EQ(TrazerXML(origem.filePath(QStringLiteral("ausente.xml")), fiscal.path()), QString());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}
