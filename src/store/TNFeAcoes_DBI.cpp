#include "TNFeAcoes_DBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

namespace TNFeAcoes_DBI {

QString SqlDestinatario(int fornecCod)
{
    return QStringLiteral("select\r\n"
                          "raz as \"Nome\",\r\n"
                          "c as \"CPF/CNPJ\",\r\n"
                          "logr as \"Logradouro\",\r\n"
                          "num as \"Número\",\r\n"
                          "bai as \"Bairro\",\r\n"
                          "mun as \"Município\",\r\n"
                          "uf as \"Estado\"\r\n"
                          "from fornec\r\n"
                          "where fornec_cod=")
        + QString::number(fornecCod);
}

std::unique_ptr<TQ> Destinatario(TConexaoSQL &conexao, int fornecCod)
{
    return conexao.Ab(SqlDestinatario(fornecCod));
}

bool GravarJustificativa(TConexaoSQL &conexao, int emprCod, int compraCod, const QString &texto)
{
    return conexao.Exec(QLatin1String("update compra set nfe_justificativa=") + QuotedStr(texto) + QLatin1String(" where ")
                        + QLatin1String(" empr_cod=") + QString::number(emprCod) + QLatin1String(" and compra_cod=")
                        + QString::number(compraCod));
}

} // namespace TNFeAcoes_DBI
