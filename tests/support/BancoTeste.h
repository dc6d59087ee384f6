#pragma once

// Databases for tests and benchmarks: made from the schema plus a script, copied fresh for each
// use, with the clock fixed so that every run sends the same statements.

#include "Contexto.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace BancoTeste {

// A new database with the schema, then each of `comandos` as it is (an "execute block" writes
// thousands of rows in one statement). Without forced writes no commit waits for the disk: a lost
// test database is simply made again. The driver's text in `erro` on failure.
bool Criar(const TDadosBanco &banco, const QStringList &comandos, bool escritaForcada, QString *erro);
// Replaces `copia` with a copy of `modelo` and points the context at it.
bool Copiar(const QString &modelo, const TDadosBanco &copia, QString *erro);
// The clock of the context, fixed.
void FixarRelogio(const QDateTime &agora = QDateTime(QDate(2026, 11, 20), QTime(10, 30)));

} // namespace BancoTeste
