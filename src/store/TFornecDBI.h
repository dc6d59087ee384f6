#pragma once

#include <QString>

class TConexaoSQL;

// A supplier's record, as far as importing its documents needs it.
struct TFornec
{
    int codigo = 0;
    QString nomeRed, raz;
    QString c;                      // CNPJ or CPF, as text
    QString ie, uf;
};

namespace TFornecDBI {

// The supplier of `codigo`; false when it could not be read (UltimoErro of the connection) or
// does not exist. A code of 0 is no supplier: an empty record, no statement.
bool PreenchaDoBD(TConexaoSQL &conexao, int codigo, TFornec &fornec);

} // namespace TFornecDBI
