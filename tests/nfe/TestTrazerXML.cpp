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

bool Gravar(const QString &caminho, const QByteArray &conteudo)
{
    QFile f(caminho);
    return QDir().mkpath(QFileInfo(caminho).absolutePath()) && f.open(QIODevice::WriteOnly) && f.write(conteudo) == conteudo.size();
}

} // namespace

TEST(TrazerXML, FiledByMonthOfIssueOrDirectlyAndNeverOntoItself)
{
    DialogosTeste dialogos;
    QTemporaryDir fiscal, origem;
    const QByteArray comData = "<NFe><ide><dhEmi>2026-03-07T23:59:58-03:00</dhEmi></ide></NFe>";
    // Each replaces an older copy below the fiscal folder.
    const struct { const char *nome; QByteArray conteudo; QString esperado; } casos[] = {
        {"month of issue", comData, QStringLiteral("NFe_Entr/2026/03/a.xml")},
        {"no dhEmi", "<NFe><ide/></NFe>", QStringLiteral("NFe_Entr/b.xml")},
        {"dhEmi that is no date", "<dhEmi>2026-13-40T10:00:00</dhEmi>", QStringLiteral("NFe_Entr/c.xml")},
    };
    for (const auto &c : casos) {
        const QString fonte = origem.filePath(QFileInfo(c.esperado).fileName());
        const QString alvo = QDir(fiscal.path()).filePath(c.esperado);
        ASSERT_TRUE(Gravar(fonte, c.conteudo) && Gravar(alvo, "an older copy")) << c.nome;
        EXPECT_EQ(TrazerXML(fonte, fiscal.path()), alvo) << c.nome;
        EXPECT_EQ(Ler(alvo) + Ler(fonte), c.conteudo + c.conteudo) << c.nome;
    }

    // The file chosen from its own place in the fiscal folder stays as it is.
    const QString noLugar = QDir(fiscal.path()).filePath(QStringLiteral("NFe_Entr/2026/03/a.xml"));
    EXPECT_EQ(TrazerXML(noLugar, fiscal.path()), noLugar);
    EXPECT_EQ(Ler(noLugar), comData);
    EXPECT_EQ(QDir(QFileInfo(noLugar).absolutePath()).entryList(QDir::Files), QStringList{"a.xml"});

    EXPECT_EQ(TrazerXML(origem.filePath(QStringLiteral("ausente.xml")), fiscal.path()), QString());
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}
