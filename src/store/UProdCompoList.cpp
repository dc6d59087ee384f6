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

QString TProdCompoList_DBI::SqlDeNota(int emprCod, int compraCod)
{
    return QLatin1String("select\r\n"
                         " prod.prod_cod as mp_prod_cod\r\n"
                         " , prod.descr as mp_descr\r\n"
                         " , unid.sigla as mp_unid_sigla\r\n"
                         " , compra_item_tmp.EMB_QTD\r\n"
                         " , compra_item_tmp.QTD_EMBS\r\n"
                         " , prod_compo.qtd mp_qtd\r\n"
                         " from compra_item_tmp\r\n"
                         " join prod_compo on\r\n"
                         " compra_item_tmp.prod_cod=prod_compo.prod_cod_pai\r\n"
                         " join prod on\r\n"
                         " prod.prod_cod=prod_compo.prod_cod_filho\r\n"
                         " join unid on\r\n"
                         " unid.unid_cod=prod.unid_cod\r\n"
                         " where compra_item_tmp.empr_cod=")
           + QString::number(emprCod) + QLatin1String("\r\n and compra_item_tmp.compra_cod=")
           + QString::number(compraCod) + QLatin1String("\r\n order by prod.descr\r\n;\r\n");
}

bool TProdCompoList_DBI::PreencherDeNota(TProdCompoList &lista, TConexaoSQL &conexao, int emprCod, int compraCod)
{
    if (!conexao.Conectar())
        return false;
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });
    const auto q = conexao.Ab(SqlDeNota(emprCod, compraCod));
    if (!q)
        return false;
    const int prodCod = q->FieldIndex(QStringLiteral("mp_prod_cod")), descr = q->FieldIndex(QStringLiteral("mp_descr")),
              sigla = q->FieldIndex(QStringLiteral("mp_unid_sigla")), embQtd = q->FieldIndex(QStringLiteral("EMB_QTD")),
              qtdEmbs = q->FieldIndex(QStringLiteral("QTD_EMBS")), qtd = q->FieldIndex(QStringLiteral("mp_qtd"));
    for (q->First(); !q->Eof(); q->Next()) {
        // Each factor is rounded before it multiplies; the product again before it is summed.
        const double qtdItem = RoundTo(q->Fields(embQtd).AsFloat(), 3) * RoundTo(q->Fields(qtdEmbs).AsFloat(), 3);
        lista.Pegar(q->Fields(prodCod).AsInteger(), q->Fields(descr).AsString().trimmed(),
                    q->Fields(sigla).AsString().trimmed(), RoundTo(RoundTo(q->Fields(qtd).AsFloat(), 3) * qtdItem, 3), true);
    }
    return true;
}
