#include "TFornecDBI.h"

#include "TConexaoSQL.h"

namespace TFornecDBI {

bool PreenchaDoBD(TConexaoSQL &conexao, int codigo, TFornec &fornec)
{
    fornec = TFornec();
    if (codigo == 0)
        return true;
    const auto q = conexao.Ab(QStringLiteral("select fornec_cod, nome_red, raz, c, ie, uf from fornec where fornec_cod=")
                              + QString::number(codigo));
    if (!q || q->Eof())
        return false;
    fornec.codigo = q->Fields(0).AsInteger();
    fornec.nomeRed = q->Fields(1).AsString().trimmed();
    fornec.raz = q->Fields(2).AsString().trimmed();
    fornec.c = q->Fields(3).AsString().trimmed();
    fornec.ie = q->Fields(4).AsString().trimmed();
    fornec.uf = q->Fields(5).AsString().trimmed();
    return true;
}

} // namespace TFornecDBI
