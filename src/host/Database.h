#pragma once

#include "Contexto.h"

#include <QString>
#include <QStringList>

#include <functional>

// Creating and filling a Firebird database through the Firebird client library.
namespace Database {

// The file under the user's data folder that the module opens when nobody names another.
QString DefaultPath();
// "server:/data/x.fdb", "server/3051:/data/x.fdb"; a plain path (embedded engine) is not.
bool IsServerPath(const QString &database);

// Creates an empty UTF8 database; false with the engine's message when it cannot.
bool CreateEmpty(const TDadosBanco &banco, QString *error);
// Whether every commit waits for the disk (on for a real database).
bool SetForcedWrites(const TDadosBanco &banco, bool on, QString *error);
// Creates the database with the schema and, when asked, the demo store.
bool CreateWithSchema(const TDadosBanco &banco, bool withDemo, QString *error);

// The statements of a script: split on ';' outside quotes and comments, blanks trimmed.
QStringList SplitScript(const QString &script);
// Runs a script on an open attachment; DML between two DDL statements shares one transaction.
bool RunScript(const QString &connectionName, const QString &script, QString *error);
// The embedded scripts: "schema" or "demo".
QString Script(const QString &name);

} // namespace Database
