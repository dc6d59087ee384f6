#include "TEstMovCompo_DBI.h"

#include "ErroBanco.h"
#include "TChaveNota.h"
#include "TConexaoSQL.h"
#include "Valores.h"

#include <QScopeGuard>

#include <cmath>

TEstMovCompo_DBI::TComposicoes TEstMovCompo_DBI::CarregarDaNota(TConexaoSQL &conexao, const TChaveNota &nota)
{
    // The same rows and order as a product's own composition (inputs with a unit, by description).
    const auto q = AbOuErro(
        conexao,
        QLatin1String("select prod_compo.prod_cod_pai, prod.prod_cod, prod_compo.qtd from prod join prod_compo on "
                      "prod.prod_cod=prod_compo.prod_cod_filho join unid on prod.unid_cod=unid.unid_cod where "
                      "prod_compo.prod_cod_pai in (select prod_cod from compra_item_tmp where empr_cod=")
            + QString::number(nota.emprCod) + QLatin1String(" and compra_cod=") + QString::number(nota.compraCod)
            + QLatin1String(" and estacao_cod=10) order by prod_compo.prod_cod_pai, prod.descr"),
        QStringLiteral("ler a composição dos produtos da nota %1").arg(nota.DocStr()));
    TComposicoes composicoes;
    for (q->First(); !q->Eof(); q->Next())
        composicoes[q->Fields(0).AsInteger()].append({q->Fields(1).AsInteger(), RoundTo(q->Fields(2).AsFloat(), 3)});
    return composicoes;
}

int TEstMovCompo_DBI::Gravar(int emprCod, int estMovCod, int prodCod, double qtd, TConexaoSQL &conexao,
                             const TComposicoes &composicoes)
{
    const auto insumos = composicoes.value(prodCod);
    if (insumos.isEmpty())
        return 0;
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco para gravar os insumos do produto %1").arg(prodCod));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    // The codes of all the movement's inputs in one step of the generator: the last one comes back.
    const QString oQue = QStringLiteral("numerar os insumos do movimento %1").arg(estMovCod);
    const auto gerado = AbOuErro(conexao,
                                 QStringLiteral("select GEN_ID(est_mov_compo_g, %1) from RDB$DATABASE").arg(insumos.size()),
                                 oQue);
    if (gerado->IsEmpty())
        throw EErroBanco(QStringLiteral("Não foi possível %1.").arg(oQue));
    qint64 codigo = gerado->Fields(0).AsInt64() - insumos.size();
    const QString prefixo = QLatin1String("insert into EST_MOV_COMPO( EMPR_COD, EST_MOV_COD, EST_MOV_COMPO_COD, "
                                          "PROD_COD_FILHO, QTD) values (")
                            + QString::number(emprCod) + QLatin1String(", ") + QString::number(estMovCod)
                            + QLatin1String(", ");
    for (const auto &[filho, porUnidade] : insumos) {
        ExecOuErro(conexao,
                   prefixo + QString::number(++codigo) + QLatin1String(", ") + QString::number(filho)
                       + QLatin1String(", ") + FloatToStrPonto(RoundTo(porUnidade * std::abs(qtd), 3))
                       + QLatin1String(");"),
                   QStringLiteral("gravar o insumo %1 do movimento %2").arg(filho).arg(estMovCod));
    }
    return int(insumos.size());
}
