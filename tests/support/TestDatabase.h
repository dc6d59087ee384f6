#pragma once

#include "Contexto.h"
#include "TConexaoSQL.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

// A fresh embedded database for one test: a copy of a template made once per schema (and
// fixture) version, so that each test starts from the same rows in milliseconds. The context
// points at it while the object lives.
class TestDatabase final
{
public:
    enum class Conteudo { SoEsquema, FixtureBase };

    explicit TestDatabase(Conteudo conteudo = Conteudo::FixtureBase);
    ~TestDatabase();

    bool ok() const { return m_erro.isEmpty(); }
    QString erro() const { return m_erro; }
    const TDadosBanco &banco() const { return m_banco; }
    QString caminho() const { return m_banco.database; }
    TConexaoSQL &conexao() { return *m_conexao; }

    // For the test's own rows; the driver's text on failure.
    QString exec(const QString &sql);
    QString execScript(const QString &script);
    QString valor(const QString &sql);

private:
    QTemporaryDir m_pasta;
    TDadosBanco m_banco;
    std::unique_ptr<TConexaoSQL> m_conexao;
    QString m_erro;
};
