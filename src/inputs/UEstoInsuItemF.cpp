#include "UEstoInsuItemF.h"

#include "ExecutarModal.h"
#include "UEstoInsuNotaF.h"
#include "UProdCompoList.h"
#include "UProdCompoList_UI.h"
#include "Valores.h"

TGradeImpr TEstoInsuItemF::Conteudo(int emprCod, int compraCod, const QDate &dtDoc, int prodCod, const QString &descr,
                                    double qtdItem, TConexaoSQL &conexao)
{
    TProdCompoList lista;
    TProdCompoList_DBI::PreencherDeItem(lista, conexao, prodCod);
    TGradeImpr conteudo;
    conteudo.titulo = QStringLiteral("Insumos do Item");
    conteudo.explicacao = QStringLiteral("Produtos que serão consumidos por este item conforme a lista de componentes "
                                         "em Estoque, Produtos");
    conteudo.cabecalho = TEstoInsuNotaF::LinhaDaNota(emprCod, compraCod, dtDoc) + QLatin1String("\r\n")
                         + QString::number(prodCod) + QStringLiteral(" - ") + descr + QStringLiteral("  Qtd.Item:")
                         + FormatFloat(QStringLiteral("#####0.###"), qtdItem);
    TProdCompoList_UI::PreencherStringGridItem(conteudo.grade, lista, qtdItem);
    conteudo.colunasADireita = {0, 2, 3};
    return conteudo;
}

void TEstoInsuItemF::Abrir(int emprCod, int compraCod, int /*itemCod*/, const QDate &dtDoc, int prodCod,
                           const QString &descr, double qtdItem, TConexaoSQL &conexao, QWidget *pai)
{
    TEstoInsuItemF tela(pai);
    tela.Mostrar(Conteudo(emprCod, compraCod, dtDoc, prodCod, descr, qtdItem, conexao));
    ExecutarModal(tela);
}
