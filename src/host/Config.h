#pragma once

#include <QString>

class TConexaoSQL;

// Values of the `config` table. A missing row, or a database that cannot be read, gives an
// empty text and so each flag's default; reading never fails.
namespace Config {

// "select valor from config where chave='KEY';", first column of the first row, trimmed.
QString Valor(TConexaoSQL &conexao, const QString &chave);
// On unless the trimmed value is exactly "N" (a missing row is on; "n" is on).
bool LigadoSalvoN(TConexaoSQL &conexao, const QString &chave);
// On only when the trimmed value is exactly "S" (a missing row is off).
bool LigadoSeS(TConexaoSQL &conexao, const QString &chave);
// As LigadoSeS, but on when the database cannot be reached before the read; a statement that
// fails once connected is off.
bool LigadoSeSOuSemBanco(TConexaoSQL &conexao, const QString &chave);

} // namespace Config

// The host's per-user configuration store (last folders and the like).
QString ConfigLerStr(const QString &chave, const QString &padrao = QString());
void ConfigGravarStr(const QString &chave, const QString &valor);
