#include "TestDatabase.h"

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

QString scriptsDe(TestDatabase::Conteudo conteudo)
{
    QString script = Database::Script(QStringLiteral("schema"));
    if (conteudo == TestDatabase::Conteudo::FixtureBase)
        script += QStringLiteral(";\n") + fixtureBase();
    else if (conteudo == TestDatabase::Conteudo::Demo)
        script += QStringLiteral(";\n") + Database::Script(QStringLiteral("demo"));
    return script;
}

// Made once and shared by every test process; renamed into place so that a half-made template
// is never copied.
QString modelo(TestDatabase::Conteudo conteudo, QString *erro)
{
    const QString script = scriptsDe(conteudo);
    const QByteArray hash = QCryptographicHash::hash(script.toUtf8(), QCryptographicHash::Sha1).toHex().left(12);
    const QString caminho = QDir::tempPath() + QStringLiteral("/pavrel-test-%1.fdb").arg(QString::fromLatin1(hash));
    if (QFile::exists(caminho))
        return caminho;
    TDadosBanco banco;
    banco.database = caminho + QStringLiteral(".%1.tmp").arg(QCoreApplication::applicationPid());
    QFile::remove(banco.database);
    // Tests need no flush per commit: a lost test database is simply made again.
    bool ok = Database::CreateEmpty(banco, erro) && Database::SetForcedWrites(banco, false, erro);
    if (ok) {
        TConexaoSQL conexao(banco);
        ok = conexao.Conectar() && Database::RunScript(conexao.NomeConexao(), script, erro);
        if (!ok && erro->isEmpty())
            *erro = conexao.UltimoErro();
        conexao.Desconectar();
    }
    TConexaoSQL::FecharOciosas(banco.database);
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
    if (!QFile::copy(origem, m_banco.database)) {
        m_erro = QStringLiteral("não foi possível copiar %1").arg(origem);
        return;
    }
    QFile::setPermissions(m_banco.database, QFile::ReadOwner | QFile::WriteOwner);
    Contexto::Atual().banco = m_banco;
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
