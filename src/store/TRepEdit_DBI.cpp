#include "TRepEdit_DBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

namespace {

const QString CRLF = QStringLiteral("\r\n");

QString OndeNota(const TChaveNota &nota)
{
    return QLatin1String("where") + CRLF + QLatin1String("empr_cod=") + QString::number(nota.emprCod) + CRLF
           + QLatin1String("and estacao_cod=") + QString::number(nota.estacaoCod) + CRLF
           + QLatin1String("and compra_cod=") + QString::number(nota.compraCod);
}

} // namespace

namespace TRepEdit_DBI {

std::optional<TInfoAdic> LerCompra(TConexaoSQL &conexao, const TChaveNota &nota)
{
    const auto q = conexao.Ab(QLatin1String("select") + CRLF + QLatin1String("INF_ADIC_CONTRIBUINTE") + CRLF
                              + QLatin1String(", INF_ADIC_FISCO") + CRLF + QLatin1String("from compra") + CRLF
                              + OndeNota(nota));
    if (!q)
        return std::nullopt;
    TInfoAdic info;
    if (!q->Eof()) {
        info.contribuinte = q->Fields(0).AsString().trimmed();
        info.fisco = q->Fields(1).AsString().trimmed();
    }
    return info;
}

bool GravarCompra(TConexaoSQL &conexao, const TChaveNota &nota, const TInfoAdic &info)
{
    return conexao.Exec(QLatin1String("update compra set") + CRLF + QLatin1String("INF_ADIC_CONTRIBUINTE=")
                        + QuotedStr(info.contribuinte) + CRLF + QLatin1String(", INF_ADIC_FISCO=") + QuotedStr(info.fisco)
                        + CRLF + OndeNota(nota));
}

} // namespace TRepEdit_DBI
