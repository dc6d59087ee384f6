#include "URepF_AjusteItem.h"

#include "Dialogos.h"
#include "ErroBanco.h"
#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "TItemAjuste_DBI.h"
#include "URepItemAJusteF.h"

#include <QScopeGuard>
#include <QStringList>
#include <QVariantList>

namespace {

TItemAjuste DaLinha(const TClientDataSet &itens)
{
    TItemAjuste item;
    item.compraItemTmpCod = itens.FieldByName(QStringLiteral("COMPRA_ITEM_TMP_COD")).AsInteger();
    item.prodCod = itens.FieldByName(QStringLiteral("PROD_COD")).AsInteger();
    item.ncm = itens.FieldByName(QStringLiteral("ncm")).AsString();
    item.cfop = itens.FieldByName(QStringLiteral("cfop")).AsString().trimmed().toInt();
    item.cst = itens.FieldByName(QStringLiteral("cst")).AsInteger();
    item.pRedBCST = itens.FieldByName(QStringLiteral("icms_st_perc_red")).AsFloat();
    item.pRedBC = itens.FieldByName(QStringLiteral("icms_perc_red")).AsFloat();
    item.infoAdic = itens.FieldByName(QStringLiteral("info_adic")).AsString().trimmed();
    return item;
}

const QStringList CamposAjustados = {QStringLiteral("ncm"), QStringLiteral("cfop"), QStringLiteral("cst"),
                                     QStringLiteral("icms_st_perc_red"), QStringLiteral("icms_perc_red"), QStringLiteral("info_adic")};

QVariantList Valores(const TItemAjuste &item)
{
    return {item.ncm, QString::number(item.cfop), item.cst, item.pRedBCST, item.pRedBC, item.infoAdic};
}

QVariantList ValoresDaLinha(const TClientDataSet &itens)
{
    QVariantList valores;
    for (const QString &campo : CamposAjustados)
        valores << itens.FieldByName(campo).Value();
    return valores;
}

void ParaLinha(TClientDataSet &itens, const QVariantList &valores)
{
    itens.Edit();
    for (qsizetype i = 0; i < CamposAjustados.size(); ++i)
        itens.FieldByName(CamposAjustados.at(i)).SetValue(valores.at(i));
    itens.Post();
}

} // namespace

bool TRepF_AjusteItem::Executar(const TNotaDoAjuste &nota, QWidget *parent)
{
    if (m_itens.IsEmpty()) {
        MensagemInfo(QStringLiteral("Não há item a ajusar"));
        return false;
    }
    const QVariantList antes = ValoresDaLinha(m_itens);
    TItemAjuste item = DaLinha(m_itens);
    const QString titulo = QString::number(item.prodCod) + QStringLiteral(" - ")
                           + m_itens.FieldByName(QStringLiteral("prod_DESCR")).AsString();
    if (!Perg(titulo, item.cfop, item.cst, item.pRedBCST, item.pRedBC, item.infoAdic, item.ncm, nota.fornecCod, 0, 0, 0,
              nota.tipoDocCod, parent))
        return false;
    ParaLinha(m_itens, Valores(item));

    bool gravouItem = false;
    try {
        ConectarOuErro(m_conexao, QStringLiteral("conectar ao banco para ajustar o item"));
        const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });
        TItemAjuste_DBI dbi(m_conexao);
        dbi.GravarItemTmp(item);
        gravouItem = true;
        dbi.GravarProd(item);
        dbi.GravarEstMov(item, nota.emprCod, nota.compraCod);
    } catch (const EErroBanco &e) {
        if (!gravouItem)
            ParaLinha(m_itens, antes);
        MensagemErro(e.Texto());
    }
    return gravouItem;
}
