#include "TFiscoConfig.h"

#include "TConexaoSQL.h"

bool TFiscoConfig::PegaInfoAdic(TConexaoSQL &conexao, QString *fisco, QString *contribuinte, QString *erro)
{
    const auto q = conexao.Ab(QStringLiteral("select\r\nINF_ADIC_CONTRIBUINTE\r\n, INF_ADIC_FISCO\r\nfrom fisco_config\r\n"));
    if (!q) {
        *erro = conexao.UltimoErro();
        return false;
    }
    fisco->clear();
    contribuinte->clear();
    if (!q->Eof()) {
        *contribuinte = q->Fields(0).AsString().trimmed();
        *fisco = q->Fields(1).AsString().trimmed();
    }
    return true;
}
