#include "UProdCompoList_UI.h"

#include "TStringGrid.h"
#include "UProdCompoList.h"
#include "Valores.h"

namespace {

QString Qtd(double qtd, const TProdCompo &insumo)
{
    return FormatFloat(QStringLiteral("####0.###"), qtd) + insumo.UnidSigla();
}

} // namespace

void TProdCompoList_UI::PreencherStringGridItem(TStringGrid &grade, const TProdCompoList &lista, double qtdItem)
{
    grade = TStringGrid();
    grade.SetTitulos({QStringLiteral("Código"), QStringLiteral("Descrição"), QStringLiteral("Qtd.Unit"),
                      QStringLiteral("Qtd.Tot")});
    for (int i = 0; i < lista.Count(); ++i) {
        const TProdCompo &insumo = lista.GetProdCompo(i);
        grade.AdicionarLinha({QString::number(insumo.ProdCod()), insumo.Descr(), Qtd(insumo.GetQtd(), insumo),
                              Qtd(RoundTo(insumo.GetQtd() * qtdItem, 3), insumo)});
    }
}

void TProdCompoList_UI::PreencherStringGridNota(TStringGrid &grade, const TProdCompoList &lista)
{
    grade = TStringGrid();
    grade.SetTitulos({QStringLiteral("Código"), QStringLiteral("Descrição"), QStringLiteral("Qtd")});
    for (int i = 0; i < lista.Count(); ++i) {
        const TProdCompo &insumo = lista.GetProdCompo(i);
        grade.AdicionarLinha({QString::number(insumo.ProdCod()), insumo.Descr(), Qtd(insumo.GetQtd(), insumo)});
    }
}
