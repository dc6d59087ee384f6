#include "TPreencheTribSL.h"

#include "TConexaoSQL.h"
#include "Valores.h"

QStringList TPreencheTribSL::Preencher(TConexaoSQL &conexao)
{
    QStringList linhas;
    const auto q = conexao.Ab(QStringLiteral("select trib_cod, descr, perc from trib order by trib_cod;"));
    if (!q)
        return linhas;
    for (q->First(); !q->Eof(); q->Next()) {
        linhas << q->Fields(0).AsString().trimmed() + QLatin1Char('=') + q->Fields(1).AsString().trimmed()
                      + QStringLiteral(" - ") + FormatFloat(QStringLiteral("##0"), q->Fields(2).AsMoney())
                      + QLatin1Char('%');
    }
    return linhas;
}
