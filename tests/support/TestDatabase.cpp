#include "TestDatabase.h"

#include "BancoTeste.h"
#include "Database.h"

#include <QCryptographicHash>
#include <QDir>
#include <QCoreApplication>
#include <QFile>

namespace {

QString fixtureBase()
{
    QFile file(QStringLiteral(PAVREL_TESTS_DIR "/support/fixture_base.sql"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Made once and shared by every test process; renamed into place so that a half-made template
// is never copied.
QString modelo(TestDatabase::Conteudo conteudo, QString *erro)
{
    const QString dados = conteudo == TestDatabase::Conteudo::FixtureBase ? fixtureBase() : QString();
    const QByteArray hash = QCryptographicHash::hash((Database::Script(QStringLiteral("schema")) + dados).toUtf8(),
                                                     QCryptographicHash::Sha1).toHex().left(12);
    const QString caminho = QDir::tempPath() + QStringLiteral("/pavrel-test-%1.fdb").arg(QString::fromLatin1(hash));
    if (QFile::exists(caminho))
        return caminho;
    TDadosBanco banco;
    banco.database = caminho + QStringLiteral(".%1.tmp").arg(QCoreApplication::applicationPid());
    const bool ok = BancoTeste::Criar(banco, Database::SplitScript(dados), false, erro);
    if (!ok) {
        QFile::remove(banco.database);
        return {};
    }
    if (!QFile::rename(banco.database, caminho))
        QFile::remove(banco.database);   // another process won the race
    return caminho;
}

} // namespace

TestDatabase::TestDatabase(Conteudo conteudo)
{
    const QString origem = modelo(conteudo, &m_erro);
    if (origem.isEmpty())
        return;
    m_banco.database = m_pasta.filePath(QStringLiteral("teste.fdb"));
    if (!BancoTeste::Copiar(origem, m_banco, &m_erro))
        return;
    m_conexao = std::make_unique<TConexaoSQL>(m_banco);
}

TestDatabase::~TestDatabase()
{
    m_conexao.reset();
    TConexaoSQL::FecharOciosas(m_banco.database);
    Contexto::Atual().Reiniciar();
}

QString TestDatabase::exec(const QString &sql)
{
    return m_conexao->Exec(sql) ? QString() : m_conexao->UltimoErro();
}

QString TestDatabase::execScript(const QString &script)
{
    for (const QString &statement : Database::SplitScript(script)) {
        if (!m_conexao->Exec(statement))
            return m_conexao->UltimoErro() + QStringLiteral(" in: ") + statement;
    }
    return {};
}

QString TestDatabase::valor(const QString &sql)
{
    return m_conexao->ValorStr(sql);
}
