#include "TRomaneio_DBI.h"

#include "TChaveNota.h"
#include "TConexaoSQL.h"

namespace TRomaneio_DBI {

namespace {

std::unique_ptr<TQ> Abrir(TConexaoSQL &conexao, const QString &sql, QString *erro)
{
    std::unique_ptr<TQ> q = conexao.Ab(sql);
    if (!q && erro)
        *erro = conexao.UltimoErro();
    return q;
}

} // namespace

bool LerCabec(TConexaoSQL &conexao, int emprCod, int compraCod, TRomaneio &romaneio, QString *erro)
{
    const auto q = Abrir(conexao,
                         QStringLiteral("SELECT TIPO_COD, CANCELADO, BAIXADO, DT_DOC, DTH_CRI FROM COMPRA WHERE EMPR_cod=")
                             + QString::number(emprCod) + QStringLiteral(" and compra_cod=") + QString::number(compraCod),
                         erro);
    if (!q)
        return false;
    if (q->IsEmpty()) {
        if (erro)
            *erro = QStringLiteral("(nota %1 não encontrada)").arg(TChaveNota{emprCod, 0, compraCod}.DocStr());
        return false;
    }
    romaneio.tipoCod = q->FieldByName(QStringLiteral("TIPO_COD")).AsString();
    romaneio.cancelado = q->FieldByName(QStringLiteral("CANCELADO")).AsString() == QLatin1String("S");
    romaneio.baixado = q->FieldByName(QStringLiteral("BAIXADO")).AsString() == QLatin1String("S");
    romaneio.temDtDoc = !q->FieldByName(QStringLiteral("DT_DOC")).IsNull();
    romaneio.dtDoc = q->FieldByName(QStringLiteral("DT_DOC")).AsDate();
    romaneio.dthCri = q->FieldByName(QStringLiteral("DTH_CRI")).AsDateTime();
    return true;
}

bool LerOrdImpr(TConexaoSQL &conexao, QString &valor, QString *erro)
{
    const auto q = Abrir(conexao, QStringLiteral("select valor from config where chave='REP_ROM_ORD_IMPR';"), erro);
    if (!q)
        return false;
    valor = q->IsEmpty() ? QString() : q->Fields(0).AsString().trimmed();
    return true;
}

bool LerItens(TConexaoSQL &conexao, int emprCod, int compraCod, TTavro_Romaneio_Item_List &itens, QString *erro)
{
    const auto q = Abrir(conexao,
                         QStringLiteral("SELECT compra_item_tmp.ordem, PROD.prod_cod, PROD.descr, compra_item_tmp.qtd_embs, "
                                        "compra_item_tmp.emb_qtd from compra_item_tmp JOIN PROD ON "
                                        "PROD.PROD_COD=compra_item_tmp.PROD_COD where compra_item_tmp.empr_cod=")
                             + QString::number(emprCod) + QStringLiteral(" and compra_item_tmp.compra_cod=")
                             + QString::number(compraCod) + QStringLiteral(" order by compra_item_tmp.ordem"),
                         erro);
    if (!q)
        return false;
    itens.clear();
    for (q->First(); !q->Eof(); q->Next())
        itens.append({q->Fields(0).AsString(), q->Fields(1).AsString(), q->Fields(2).AsString(),
                      q->Fields(3).AsFloat() * q->Fields(4).AsFloat()});
    return true;
}

} // namespace TRomaneio_DBI
