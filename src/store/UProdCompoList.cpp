#include "UProdCompoList.h"

#include "TConexaoSQL.h"
#include "Valores.h"

#include <QScopeGuard>

double TProdCompo::GetQtd() const
{
    return RoundTo(m_qtd, 3);
}

TProdCompo *TProdCompoList::ProdCodFilhoToProdCompo(int prodCod)
{
    for (const auto &item : m_itens) {
        if (item->ProdCod() == prodCod)
            return item.get();
    }
    return nullptr;
}

void TProdCompoList::Pegar(int prodCod, const QString &descr, const QString &unidSigla, double qtd, bool somar)
{
    if (somar) {
        if (TProdCompo *existente = ProdCodFilhoToProdCompo(prodCod)) {
            existente->IncQtd(qtd);
            return;
        }
    }
    m_itens.push_back(std::make_unique<TProdCompo>(prodCod, descr, unidSigla, qtd));
}

QString TProdCompoList_DBI::SqlDeItem(int prodCodPai)
{
    return QLatin1String("select prod.prod_cod, prod.descr, prod_compo.qtd, unid.sigla from prod join prod_compo on "
                         "prod.prod_cod=prod_compo.prod_cod_filho join unid on prod.unid_cod=unid.unid_cod where "
                         "prod_compo.prod_cod_pai=")
           + QString::number(prodCodPai) + QLatin1String(" order by prod.descr\r\n;");
}

bool TProdCompoList_DBI::PreencherDeItem(TProdCompoList &lista, TConexaoSQL &conexao, int prodCodPai)
{
    if (!conexao.Conectar())
        return false;
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });
    const auto q = conexao.Ab(SqlDeItem(prodCodPai));
    if (!q)
        return false;
    for (q->First(); !q->Eof(); q->Next()) {
        lista.Pegar(q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed(), q->Fields(3).AsString().trimmed(),
                    RoundTo(q->Fields(2).AsFloat(), 3), false);
    }
    return true;
}
