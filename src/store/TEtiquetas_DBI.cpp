#include "TEtiquetas_DBI.h"

#include "TConexaoSQL.h"
#include "Valores.h"

#include <QHash>
#include <QScopeGuard>

namespace {

const QString CRLF = QStringLiteral("\r\n");

QString ItensDaNota(const TChaveNota &nota)
{
    return QLatin1String("compra_item_tmp.empr_cod=") + QString::number(nota.emprCod) + CRLF
           + QLatin1String("and compra_item_tmp.estacao_cod=10") + CRLF
           + QLatin1String("and compra_item_tmp.compra_cod=") + QString::number(nota.compraCod);
}

} // namespace

namespace TEtiquetas_DBI {

std::optional<QList<TEtiquetaItem>> LerItens(TConexaoSQL &conexao, const TChaveNota &nota)
{
    if (!conexao.Conectar())
        return std::nullopt;
    const auto soltar = qScopeGuard([&conexao] { conexao.Desconectar(); });
    const auto itens = conexao.Ab(
        QLatin1String("select compra_item_tmp.prod_cod, prod.descr, prod.gtin, compra_item_tmp.qtd_embs, "
                      "compra_item_tmp.emb_qtd,")
        + CRLF
        + QLatin1String("(select preco from prod_preco_atual where prod_preco_atual.empr_cod=") + QString::number(nota.emprCod)
        + QLatin1String(" and prod_preco_atual.prod_cod=compra_item_tmp.prod_cod"
                        " and prod_preco_atual.tab_preco_cod=(select min(tab_preco_cod) from tab_preco)) as preco")
        + CRLF + QLatin1String("from compra_item_tmp") + CRLF
        + QLatin1String("join prod on prod.prod_cod=compra_item_tmp.prod_cod") + CRLF + QLatin1String("where ")
        + ItensDaNota(nota) + CRLF
        + QLatin1String("order by compra_item_tmp.ordem, compra_item_tmp.compra_item_tmp_cod"));
    if (!itens)
        return std::nullopt;
    const auto barras = conexao.Ab(
        QLatin1String("select prod_barras.prod_cod, prod_barras.bar_cod from prod_barras") + CRLF
        + QLatin1String("where prod_barras.prod_cod in (select compra_item_tmp.prod_cod from compra_item_tmp where ")
        + ItensDaNota(nota) + QLatin1String(")") + CRLF + QLatin1String("order by prod_barras.prod_cod, prod_barras.bar_cod"));
    if (!barras)
        return std::nullopt;
    QHash<int, QStringList> barrasDe;
    for (barras->First(); !barras->Eof(); barras->Next())
        barrasDe[barras->Fields(0).AsInteger()] << barras->Fields(1).AsString().trimmed();

    QList<TEtiquetaItem> lidos;
    for (itens->First(); !itens->Eof(); itens->Next()) {
        TEtiquetaItem item;
        item.prodCod = itens->Fields(0).AsInteger();
        item.descr = itens->Fields(1).AsString().trimmed();
        item.gtin = itens->Fields(2).AsString().trimmed();
        item.barras = barrasDe.value(item.prodCod);
        item.qtd = RoundTo(itens->Fields(3).AsFloat() * itens->Fields(4).AsFloat(), 3);
        if (!itens->Fields(5).IsNull())
            item.preco = itens->Fields(5).AsMoney();
        lidos << item;
    }
    return lidos;
}

} // namespace TEtiquetas_DBI
