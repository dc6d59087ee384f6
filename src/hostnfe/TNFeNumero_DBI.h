#pragma once

#include <QString>

class TConexaoSQL;

// The NF-e numbers of a company and series (table nfe_numero): each number is handed out once,
// also to workstations asking at the same moment.
namespace TNFeNumero_DBI {

// The next number. A company and series without a row start after the largest nfe_num its notes
// of that series already hold. False with erro naming the failure.
bool Proximo(TConexaoSQL &conexao, int emprCod, int serie, qint64 *numero, QString *erro);

} // namespace TNFeNumero_DBI
