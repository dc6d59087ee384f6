#include "TEstMovCompo_DBI.h"

#include "ErroBanco.h"
#include "TConexaoSQL.h"
#include "UProdCompoList.h"
#include "Valores.h"

#include <QScopeGuard>

#include <cmath>

int TEstMovCompo_DBI::Gravar(int emprCod, int estMovCod, int prodCod, double qtd, TConexaoSQL &conexao)
{
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco para gravar os insumos do produto %1").arg(prodCod));
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });

    TProdCompoList compo;
    if (!TProdCompoList_DBI::PreencherDeItem(compo, conexao, prodCod))
        throw EErroBanco(QStringLiteral("Não foi possível ler a composição do produto %1.\n%2")
                             .arg(prodCod)
                             .arg(conexao.UltimoErro()));
    const QString prefixo = QLatin1String("insert into EST_MOV_COMPO( EMPR_COD, EST_MOV_COD, EST_MOV_COMPO_COD, "
                                          "PROD_COD_FILHO, QTD) values (")
                            + QString::number(emprCod) + QLatin1String(", ") + QString::number(estMovCod)
                            + QLatin1String(", ");
    for (int i = 0; i < compo.Count(); ++i) {
        const TProdCompo &insumo = compo.GetProdCompo(i);
        const qint64 codigo = GeneratorOuErro(conexao, QStringLiteral("est_mov_compo_g"),
                                              QStringLiteral("numerar o insumo do movimento %1").arg(estMovCod));
        ExecOuErro(conexao,
                   prefixo + QString::number(codigo) + QLatin1String(", ") + QString::number(insumo.ProdCod())
                       + QLatin1String(", ") + FloatToStrPonto(RoundTo(insumo.GetQtd() * std::abs(qtd), 3))
                       + QLatin1String(");"),
                   QStringLiteral("gravar o insumo %1 do movimento %2").arg(insumo.ProdCod()).arg(estMovCod));
    }
    return compo.Count();
}
