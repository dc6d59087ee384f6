#include "TNFeNumero_DBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

namespace TNFeNumero_DBI {

bool Proximo(TConexaoSQL &conexao, int emprCod, int serie, qint64 *numero, QString *erro)
{
    // The update takes the number under the row's lock; the first of two stations creating the
    // row wins and the other one's key violation sends it round again, as does an update conflict.
    const QString sql = QStringLiteral(
        "execute block returns (n integer) as begin\r\n"
        " update nfe_numero set ultimo=ultimo+1 where empr_cod=%1 and serie=%2 returning ultimo into :n;\r\n"
        " if (row_count=0) then\r\n"
        "  insert into nfe_numero (empr_cod, serie, ultimo) values (%1, %2,\r\n"
        "   (select coalesce(max(nfe_num), 0)+1 from compra where empr_cod=%1 and trim(serie)=%3))\r\n"
        "   returning ultimo into :n;\r\n"
        " suspend;\r\n"
        "end")
                            .arg(emprCod).arg(serie).arg(QuotedStr(QString::number(serie)));
    QString ultimoErro;
    for (int tentativa = 0; tentativa < 50; ++tentativa) {
        const auto q = conexao.Ab(sql);
        if (q && !q->IsEmpty() && q->Fields(0).AsInt64() > 0) {
            *numero = q->Fields(0).AsInt64();
            return true;
        }
        ultimoErro = conexao.UltimoErro();
    }
    if (erro)
        *erro = QStringLiteral("Não foi possível obter o número da NF-e (empresa %1, série %2): %3")
                    .arg(emprCod).arg(serie).arg(ultimoErro);
    return false;
}

} // namespace TNFeNumero_DBI
