#include "UEstoInsuNotaF.h"

#include "ExecutarModal.h"
#include "UProdCompoList.h"
#include "UProdCompoList_UI.h"
#include "Valores.h"

QString TEstoInsuNotaF::LinhaDaNota(int emprCod, int compraCod, const QDate &dtDoc)
{
    return QStringLiteral("Nota: ") + FormatFloat(QStringLiteral("000"), double(emprCod)) + QLatin1Char('-')
           + FormatFloat(QStringLiteral("000000"), double(compraCod)) + QStringLiteral("   Data: ")
           + FormatDateTime(QStringLiteral("dd/mm/yy"), dtDoc);
}

TGradeImpr TEstoInsuNotaF::Conteudo(int emprCod, int compraCod, const QDate &dtDoc, TConexaoSQL &conexao)
{
    TProdCompoList lista;
    TProdCompoList_DBI::PreencherDeNota(lista, conexao, emprCod, compraCod);
    TGradeImpr conteudo;
    conteudo.titulo = QStringLiteral("Insumos da nota");
    conteudo.explicacao = QStringLiteral("Produtos que serão consumidos conforme a lista de componentes em Estoque, Produtos");
    conteudo.cabecalho = LinhaDaNota(emprCod, compraCod, dtDoc);
    TProdCompoList_UI::PreencherStringGridNota(conteudo.grade, lista);
    conteudo.colunasADireita = {0, 2};
    return conteudo;
}

void TEstoInsuNotaF::Abrir(int emprCod, int compraCod, const QDate &dtDoc, TConexaoSQL &conexao, QWidget *pai)
{
    TEstoInsuNotaF tela(pai);
    tela.Mostrar(Conteudo(emprCod, compraCod, dtDoc, conexao));
    ExecutarModal(tela);
}
