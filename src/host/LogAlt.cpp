#include "LogAlt.h"

#include "Contexto.h"
#include "TConexaoSQL.h"
#include "Valores.h"

bool InsLogAlt(TConexaoSQL &conexao, const QString &tabela, const QString &chave, const QString &descricao)
{
    const Contexto &c = Contexto::Atual();
    return conexao.Exec(QStringLiteral("insert into log_alt (log_alt_cod, empr_cod, estacao_cod, dth, usuario, tabela, "
                                       "chave, descr) values (GEN_ID(log_alt_g, 1), %1, %2, %3, %4, %5, %6, %7)")
                            .arg(c.empresa)
                            .arg(c.estacao)
                            .arg(DataHoraSQLFirebird(c.Agora()), QuotedStr(c.usuario), QuotedStr(tabela),
                                 QuotedStr(chave), QuotedStr(descricao)));
}
