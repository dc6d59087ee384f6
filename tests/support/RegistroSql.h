#pragma once

#include <QByteArray>
#include <QLoggingCategory>
#include <QString>
#include <QStringList>

#include <functional>

// The statements sent to the database while it lives, exactly as the connection logs them.
class RegistroSql final
{
public:
    RegistroSql()
    {
        s_sql.clear();
        QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=true"));
        s_anterior = qInstallMessageHandler(&Handler);
    }
    ~RegistroSql()
    {
        qInstallMessageHandler(s_anterior);
        QLoggingCategory::setFilterRules(QStringLiteral("pavrel.sql.debug=false"));
    }
    static QStringList Sql() { return s_sql; }
    static void Limpar() { s_sql.clear(); }
    // The statements that begin with `inicio` (case-insensitive).
    static QStringList ComInicio(const QString &inicio)
    {
        QStringList r;
        for (const QString &s : s_sql) {
            if (s.startsWith(inicio, Qt::CaseInsensitive))
                r << s;
        }
        return r;
    }
    // Called with each statement as it is sent (benchmarks time against it).
    static void AoRegistrar(std::function<void(const QString &)> ao) { s_ao = std::move(ao); }

private:
    static void Handler(QtMsgType tipo, const QMessageLogContext &ctx, const QString &msg)
    {
        if (QByteArray(ctx.category ? ctx.category : "") == "pavrel.sql" && tipo == QtDebugMsg) {
            s_sql << msg;
            if (s_ao)
                s_ao(msg);
        }
        else if (s_anterior)
            s_anterior(tipo, ctx, msg);
    }
    static inline QStringList s_sql;
    static inline QtMessageHandler s_anterior = nullptr;
    static inline std::function<void(const QString &)> s_ao;
};
