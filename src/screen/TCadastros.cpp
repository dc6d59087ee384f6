// The registers behind the item panel's buttons, by host form and action name.
#include "TCadastroF.h"

#include "Contexto.h"

namespace {

using T = TTipoColunaCadastro;

// A new product is carried by the current company at once, with a general cost of zero, so that
// a note's item of it is listed again when the note is reopened.
QStringList ProdutoNaEmpresa(int prodCod)
{
    const QString empresa = QString::number(Contexto::Atual().empresa);
    const QString produto = QString::number(prodCod);
    return {QLatin1String("insert into prod_compl (prod_cod, empr_cod, margem, ativo) values (") + produto
                + QLatin1String(", ") + empresa + QLatin1String(", 0, 'S')"),
            QLatin1String("insert into prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo) values (") + empresa
                + QLatin1String(", ") + produto + QLatin1String(", 0, 0)")};
}

const QList<TDefCadastro> &Definicoes()
{
    static const QList<TDefCadastro> defs = {
        {QStringLiteral("ProdF"), QStringLiteral("TabProdAct"), QStringLiteral("Produtos"), QStringLiteral("prod"),
         {{QStringLiteral("prod_cod"), QStringLiteral("Código"), T::Codigo, 0, true, {}},
          {QStringLiteral("descr"), QStringLiteral("Descrição"), T::Texto, 120, true, {}},
          {QStringLiteral("unid_cod"), QStringLiteral("Unidade"), T::Lista, 0, false,
           QStringLiteral("select unid_cod, sigla from unid order by descr")},
          {QStringLiteral("emb_qtd"), QStringLiteral("Qtd na Emb"), T::Quantidade, 3, false, {}},
          {QStringLiteral("trib_cod"), QStringLiteral("Situação Tributária"), T::Lista, 0, false,
           QStringLiteral("select trib_cod, descr from trib order by trib_cod")},
          {QStringLiteral("ipi"), QStringLiteral("IPI %"), T::Valor, 2, false, {}},
          {QStringLiteral("ncm"), QStringLiteral("NCM"), T::Texto, 8, false, {}},
          {QStringLiteral("gtin"), QStringLiteral("GTIN"), T::Texto, 14, false, {}},
          {QStringLiteral("prod_fabr_cod"), QStringLiteral("Fabricante"), T::Lista, 0, false,
           QStringLiteral("select prod_fabr_cod, nome from prod_fabr order by nome")}},
         &ProdutoNaEmpresa},
        {QStringLiteral("UnidF"), QStringLiteral("EstoqUnidAct"), QStringLiteral("Unidades"), QStringLiteral("unid"),
         {{QStringLiteral("unid_cod"), QStringLiteral("Código"), T::Codigo, 0, true, {}},
          {QStringLiteral("sigla"), QStringLiteral("Sigla"), T::Texto, 6, true, {}},
          {QStringLiteral("descr"), QStringLiteral("Descrição"), T::Texto, 60, true, {}}},
         nullptr},
        {QStringLiteral("TribF"), QStringLiteral("TabFiscoTributAct"), QStringLiteral("Situações Tributárias"),
         QStringLiteral("trib"),
         {{QStringLiteral("trib_cod"), QStringLiteral("Código"), T::Codigo, 0, true, {}},
          {QStringLiteral("descr"), QStringLiteral("Descrição"), T::Texto, 60, true, {}},
          {QStringLiteral("perc"), QStringLiteral("Alíquota %"), T::Valor, 2, false, {}}},
         nullptr},
    };
    return defs;
}

} // namespace

namespace Cadastros {

const TDefCadastro *Definicao(const QString &form, const QString &acao)
{
    for (const TDefCadastro &def : Definicoes())
        if (def.form.compare(form, Qt::CaseInsensitive) == 0 && def.acao.compare(acao, Qt::CaseInsensitive) == 0)
            return &def;
    return nullptr;
}

std::unique_ptr<TCadastroF> Criar(const QString &form, const QString &acao, TConexaoSQL &conexao, QWidget *parent)
{
    const TDefCadastro *def = Definicao(form, acao);
    if (!def)
        return nullptr;
    return std::make_unique<TCadastroF>(*def, conexao, parent);
}

bool Abrir(const QString &form, const QString &acao, TConexaoSQL &conexao, QWidget *parent)
{
    const auto editor = Criar(form, acao, conexao, parent);
    if (!editor)
        return false;
    editor->exec();
    return editor->Alterado();
}

} // namespace Cadastros
