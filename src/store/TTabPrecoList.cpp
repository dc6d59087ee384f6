#include "TTabPrecoList.h"

#include "TConexaoSQL.h"

bool TTabPrecoList::CarregarDoDB(TConexaoSQL &conexao, QString *erro)
{
    m_tabelas.clear();
    const auto q = conexao.Ab(QStringLiteral("select * from tab_preco order by tab_preco_cod"));
    if (!q) {
        *erro = conexao.UltimoErro();
        return false;
    }
    const int perc = q->FieldIndex(QStringLiteral("perc"));
    for (q->First(); !q->Eof(); q->Next()) {
        TTabPreco tabela;
        tabela.codigo = q->FieldByName(QStringLiteral("tab_preco_cod")).AsInteger();
        tabela.nome = q->FieldByName(QStringLiteral("nome")).AsString().trimmed();
        if (perc >= 0)
            tabela.perc = q->Fields(perc).AsMoney();
        m_tabelas << tabela;
    }
    return true;
}
