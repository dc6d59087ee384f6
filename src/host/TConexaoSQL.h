#pragma once

#include "Contexto.h"
#include "Money.h"

#include <QDate>
#include <QDateTime>
#include <QLoggingCategory>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <memory>

// Every statement sent, exactly as sent: QT_LOGGING_RULES="pavrel.sql.debug=true".
Q_DECLARE_LOGGING_CATEGORY(lcSql)

class TQ;

// One column of the current row of a TQ.
class TQCampo final
{
public:
    TQCampo(const TQ *query, int column) : m_query(query), m_column(column) {}

    bool IsNull() const;
    QVariant Value() const;
    QString AsString() const;       // numbers with '.' as they come from the database
    int AsInteger() const;          // 0 for empty or non-numeric text
    qint64 AsInt64() const;
    double AsFloat() const;
    Money AsMoney() const;          // exact: NUMERIC columns never pass through double
    QDate AsDate() const;
    QDateTime AsDateTime() const;
    bool AsBoolean() const;         // the flag 'S'

private:
    const TQ *m_query;
    int m_column;
};

// The rows a select returned, read to the end so that the statement's transaction is over.
class TQ final
{
public:
    TQ(QStringList columns, QVector<QVector<QVariant>> rows);

    int FieldCount() const { return int(m_columns.size()); }
    QString FieldName(int column) const { return m_columns.at(column); }
    int FieldIndex(const QString &name) const;      // case-insensitive; -1 when absent
    TQCampo Fields(int column) const { return TQCampo(this, column); }
    // A missing column is a programming error: std::invalid_argument naming it.
    TQCampo FieldByName(const QString &name) const;

    int RecordCount() const { return int(m_rows.size()); }
    bool IsEmpty() const { return m_rows.isEmpty(); }
    bool Eof() const { return m_row >= m_rows.size(); }
    void First() { m_row = 0; }
    void Next() { ++m_row; }
    int RecNo() const { return int(m_row); }

    QVariant valueAt(int column) const;

private:
    QStringList m_columns;
    QVector<QVector<QVariant>> m_rows;
    qsizetype m_row = 0;
};

// A connection to the module's database. Conectar/Desconectar are counted; the physical
// attachment comes from a per-thread pool and goes back to it, so pairs of calls are cheap.
// Every statement runs in autocommit: it takes effect as it runs.
class TConexaoSQL final
{
public:
    TConexaoSQL();                                  // the context's database
    explicit TConexaoSQL(TDadosBanco banco);
    ~TConexaoSQL();
    TConexaoSQL(const TConexaoSQL &) = delete;
    TConexaoSQL &operator=(const TConexaoSQL &) = delete;

    void PegarDados(const TConexaoSQL &outra);      // same database and user, not connected

    bool Conectar();
    void Desconectar();
    bool Conectado() const { return m_contagem > 0; }

    // Each connects for itself when needed; false / nullptr / the default when it fails, with
    // the driver's text in UltimoErro().
    bool Exec(const QString &sql);
    std::unique_ptr<TQ> Ab(const QString &sql);
    int ValorInt(const QString &sql, int padrao = 0);
    QString ValorStr(const QString &sql);
    qint64 ProximoGenerator(const QString &generator, int passo = 1);

    QString GetDatabase() const { return m_banco.database; }
    const TDadosBanco &Dados() const { return m_banco; }
    QString UltimoErro() const { return m_erro; }
    QString NomeConexao() const { return m_nome; }

    // Physical attachments opened so far in this process (benchmarks, tests).
    static int AnexacoesAbertas();
    // Closes the idle attachments to a database (or to all), e.g. before its file is copied.
    static void FecharOciosas(const QString &database = QString());
    // How long a statement waits for a row another station holds before it gives up (10 s).
    static void DefinirEsperaTrava(int segundos);

private:
    bool executar(const QString &sql, std::unique_ptr<TQ> *result);

    TDadosBanco m_banco;
    QString m_nome;
    int m_contagem = 0;
    QString m_erro;
};
