#include "Database.h"

#include "FirebirdPool.h"
#include "TConexaoSQL.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <ibase.h>

namespace Database {

QString DefaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QStringLiteral("/pavrel.fdb");
}

bool IsServerPath(const QString &database)
{
    // "host:path" with a host of two characters or more; "C:/x" would be a drive letter.
    static const QRegularExpression server(QStringLiteral("^[^/:\\\\]{2,}(/[0-9]+)?:"));
    return server.match(database).hasMatch();
}

static QString quoted(const QString &text)
{
    QString doubled = text;
    doubled.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + doubled + QLatin1Char('\'');
}

bool CreateEmpty(const TDadosBanco &banco, QString *error)
{
    if (!IsServerPath(banco.database)) {
        const QFileInfo file(banco.database);
        if (file.exists()) {
            *error = QStringLiteral("O arquivo %1 já existe").arg(banco.database);
            return false;
        }
        if (!QDir().mkpath(file.absolutePath())) {
            *error = QStringLiteral("Não foi possível criar a pasta %1").arg(file.absolutePath());
            return false;
        }
    }
    const QString statement = QStringLiteral("CREATE DATABASE %1 USER %2 PASSWORD %3 "
                                             "PAGE_SIZE 8192 DEFAULT CHARACTER SET UTF8")
                                  .arg(quoted(banco.database), quoted(banco.usuario), quoted(banco.senha));
    const QByteArray sql = statement.toUtf8();
    ISC_STATUS_ARRAY status{};
    isc_db_handle db = 0;
    isc_tr_handle tr = 0;
    isc_dsql_execute_immediate(status, &db, &tr, 0, sql.constData(), SQL_DIALECT_V6, nullptr);
    if (status[0] == 1 && status[1] != 0) {
        *error = Firebird::Mensagem(status);
        return false;
    }
    isc_detach_database(status, &db);
    return true;
}

QString Script(const QString &name)
{
    QFile file(QStringLiteral(":/db/%1.sql").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

QStringList SplitScript(const QString &script)
{
    QStringList statements;
    QString current;
    enum class In { Code, Quote, LineComment, BlockComment } in = In::Code;
    for (qsizetype i = 0; i < script.size(); ++i) {
        const QChar c = script.at(i);
        const QChar next = i + 1 < script.size() ? script.at(i + 1) : QChar();
        switch (in) {
        case In::Code:
            if (c == QLatin1Char('\'')) {
                in = In::Quote;
            } else if (c == QLatin1Char('-') && next == QLatin1Char('-')) {
                in = In::LineComment;
                continue;
            } else if (c == QLatin1Char('/') && next == QLatin1Char('*')) {
                in = In::BlockComment;
                continue;
            } else if (c == QLatin1Char(';')) {
                if (!current.trimmed().isEmpty())
                    statements << current.trimmed();
                current.clear();
                continue;
            }
            current += c;
            break;
        case In::Quote:
            // A doubled quote stays inside the text; it toggles out and straight back in.
            if (c == QLatin1Char('\''))
                in = In::Code;
            current += c;
            break;
        case In::LineComment:
            if (c == QLatin1Char('\n')) {
                in = In::Code;
                current += c;
            }
            break;
        case In::BlockComment:
            if (c == QLatin1Char('*') && next == QLatin1Char('/')) {
                in = In::Code;
                ++i;
            }
            break;
        }
    }
    if (!current.trimmed().isEmpty())
        statements << current.trimmed();
    return statements;
}

static bool isDdl(const QString &statement)
{
    static const QRegularExpression ddl(QStringLiteral("^(create|alter|drop|recreate|set\\s+generator)\\b"),
                                        QRegularExpression::CaseInsensitiveOption);
    return ddl.match(statement).hasMatch();
}

bool RunScript(const QString &connectionName, const QString &script, QString *error)
{
    // Consecutive statements of one kind share a transaction: DDL cannot be followed by DML on
    // the same table before a commit, and one commit per statement would cost a disk flush each.
    Firebird::TAnexacao *db = Firebird::Pool::Instancia().Anexacao(connectionName);
    if (!db || !db->Anexada()) {
        *error = QStringLiteral("A conexão %1 não está aberta").arg(connectionName);
        return false;
    }
    Firebird::Falha failure;
    bool lastWasDdl = false;
    for (const QString &statement : SplitScript(script)) {
        const bool ddl = isDdl(statement);
        bool ok = true;
        if (db->EmTransacao() && ddl != lastWasDdl)
            ok = db->Confirmar(&failure);
        if (ok && !db->EmTransacao())
            ok = db->Iniciar({}, &failure);
        lastWasDdl = ddl;
        if (!ok || !db->Executar(statement, nullptr, &failure)) {
            *error = failure.texto + QStringLiteral("\n") + statement.left(300);
            db->Desfazer();
            return false;
        }
    }
    if (db->EmTransacao() && !db->Confirmar(&failure)) {
        *error = failure.texto;
        return false;
    }
    return true;
}

bool SetForcedWrites(const TDadosBanco &banco, bool on, QString *error)
{
    const QByteArray path = banco.database.toUtf8();
    const QByteArray user = banco.usuario.toUtf8();
    const QByteArray password = banco.senha.toUtf8();
    QByteArray dpb;
    dpb.append(char(isc_dpb_version1));
    const auto add = [&dpb](char tag, const QByteArray &value) {
        dpb.append(tag);
        dpb.append(char(value.size()));
        dpb.append(value);
    };
    add(char(isc_dpb_user_name), user);
    add(char(isc_dpb_password), password);
    add(char(isc_dpb_force_write), QByteArray(1, on ? 1 : 0));
    ISC_STATUS_ARRAY status{};
    isc_db_handle db = 0;
    isc_attach_database(status, 0, path.constData(), &db, short(dpb.size()), dpb.constData());
    if (status[0] == 1 && status[1] != 0) {
        *error = Firebird::Mensagem(status);
        return false;
    }
    isc_detach_database(status, &db);
    return true;
}

bool CreateWithSchema(const TDadosBanco &banco, bool withDemo, QString *error)
{
    // Synchronous writes only once the schema is in: loading it with one flush per commit takes
    // several times longer.
    if (!CreateEmpty(banco, error) || !SetForcedWrites(banco, false, error))
        return false;
    TConexaoSQL conexao(banco);
    if (!conexao.Conectar()) {
        *error = conexao.UltimoErro();
        return false;
    }
    bool ok = RunScript(conexao.NomeConexao(), Script(QStringLiteral("schema")), error);
    if (ok && withDemo)
        ok = RunScript(conexao.NomeConexao(), Script(QStringLiteral("demo")), error);
    conexao.Desconectar();
    TConexaoSQL::FecharOciosas(banco.database);
    return ok && SetForcedWrites(banco, true, error);
}

} // namespace Database
