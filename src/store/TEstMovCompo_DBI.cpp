#include "TEstMovCompo_DBI.h"

#include "ErroBanco.h"
#include "TConexaoSQL.h"
#include "Valores.h"

#include <QScopeGuard>

#include <cmath>

const TProdCompoList &TEstMovCompo_DBI::Composicao(int prodCod)
{
    const auto achada = m_composicoes.find(prodCod);
    if (achada != m_composicoes.end())
        return achada->second;
    TProdCompoList lista;
    if (!TProdCompoList_DBI::PreencherDeItem(lista, m_conexao, prodCod)) {
        // An unread composition would post the movement without its inputs.
        const QString motivo = m_conexao.UltimoErro();
        throw EErroBanco(QStringLiteral("Não foi possível ler a composição do produto %1.").arg(prodCod)
                         + (motivo.isEmpty() ? QString() : QLatin1Char('\n') + motivo));
    }
    return m_composicoes.emplace(prodCod, std::move(lista)).first->second;
}

int TEstMovCompo_DBI::Gravar(int emprCod, int estMovCod, int prodCod, double qtd)
{
    const TProdCompoList &insumos = Composicao(prodCod);
    const int total = insumos.Count();
    if (total == 0)
        return 0;
    ConectarOuErro(m_conexao, QStringLiteral("conectar ao banco para gravar os insumos do produto %1").arg(prodCod));
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    // The codes of all the movement's inputs in one step of the generator: the last one comes back.
    const QString oQue = QStringLiteral("numerar os insumos do movimento %1").arg(estMovCod);
    const auto gerado = AbOuErro(m_conexao,
                                 QStringLiteral("select GEN_ID(est_mov_compo_g, %1) from RDB$DATABASE").arg(total), oQue);
    if (gerado->IsEmpty())
        throw EErroBanco(QStringLiteral("Não foi possível %1.").arg(oQue));
    qint64 codigo = gerado->Fields(0).AsInt64() - total;
    const QString prefixo = QLatin1String("insert into EST_MOV_COMPO( EMPR_COD, EST_MOV_COD, EST_MOV_COMPO_COD, "
                                          "PROD_COD_FILHO, QTD) values (")
                            + QString::number(emprCod) + QLatin1String(", ") + QString::number(estMovCod)
                            + QLatin1String(", ");
    for (int i = 0; i < total; ++i) {
        const TProdCompo &insumo = insumos.GetProdCompo(i);
        ExecOuErro(m_conexao,
                   prefixo + QString::number(++codigo) + QLatin1String(", ") + QString::number(insumo.ProdCod())
                       + QLatin1String(", ") + FloatToStrPonto(RoundTo(insumo.GetQtd() * std::abs(qtd), 3))
                       + QLatin1String(");"),
                   QStringLiteral("gravar o insumo %1 do movimento %2").arg(insumo.ProdCod()).arg(estMovCod));
    }
    return total;
}
