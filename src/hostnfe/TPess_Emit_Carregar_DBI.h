#pragma once

#include <QString>

class TConexaoSQL;
struct TPess_Emit;

// The issuer of the company's NF-e, from its `empr` row.
namespace TPess_Emit_Carregar_DBI {

// False, with erro naming the company and the driver's text, when the database cannot be read;
// false too when the company does not exist (erro says so).
bool Carregar(TConexaoSQL &conexao, int empr_cod, TPess_Emit &emitente, QString *erro = nullptr);

} // namespace TPess_Emit_Carregar_DBI
