#include "TNfeChaveUsoDBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

std::optional<QString> TNfeChaveUsoDBI::CnpjEmpresa(int emprCod)
{
    const auto q = m_conexao.Ab(QLatin1String("select cnpj from empr where empr_cod=") + QString::number(emprCod));
    if (!q) {
        m_erro = m_conexao.UltimoErro();
        return std::nullopt;
    }
    return q->IsEmpty() ? QString() : q->Fields(0).AsString().trimmed();
}

std::optional<QList<TNotaDaChave>> TNfeChaveUsoDBI::NotasComChave(int emprCod, const QString &chave, const TChaveNota &exceto)
{
    const QString k = QuotedStr(chave.trimmed());
    QString refere = QLatin1String("nfe_chave_ref=") + k;
    for (int n = 2; n <= 5; ++n)
        refere += QLatin1String(" or nfe_chave_ref") + QString::number(n) + QLatin1Char('=') + k;
    const auto q = m_conexao.Ab(
        QLatin1String("select estacao_cod, compra_cod, case when arq_xml containing ") + k
        + QLatin1String(" then 'S' else 'N' end from compra where empr_cod=") + QString::number(emprCod)
        + QLatin1String(" and coalesce(cancelado, 'N')<>'S' and not (estacao_cod=") + QString::number(exceto.estacaoCod)
        + QLatin1String(" and compra_cod=") + QString::number(exceto.compraCod) + QLatin1String(") and (") + refere
        + QLatin1String(" or arq_xml containing ") + k + QLatin1String(") order by compra_cod, estacao_cod"));
    if (!q) {
        m_erro = m_conexao.UltimoErro();
        return std::nullopt;
    }
    QList<TNotaDaChave> notas;
    for (q->First(); !q->Eof(); q->Next())
        notas.push_back({{emprCod, q->Fields(0).AsInteger(), q->Fields(1).AsInteger()}, q->Fields(2).AsBoolean()});
    return notas;
}

int TNfeChaveUsoDBI::FornecDoDocumento(const QString &cnpjCpf)
{
    m_erro.clear();
    if (cnpjCpf.trimmed().isEmpty())
        return 0;
    const auto q = m_conexao.Ab(QLatin1String("select first(1) fornec_cod from fornec where c=") + QuotedStr(cnpjCpf.trimmed())
                                + QLatin1String(" order by fornec_cod"));
    if (!q) {
        m_erro = m_conexao.UltimoErro();
        return 0;
    }
    return q->IsEmpty() ? 0 : q->Fields(0).AsInteger();
}
