#include "TCadastroDBI.h"

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

namespace TCadastroDBI {

const TDefCadastro *Definicao(const QString &form, const QString &acao)
{
    for (const TDefCadastro &def : Definicoes())
        if (def.form.compare(form, Qt::CaseInsensitive) == 0 && def.acao.compare(acao, Qt::CaseInsensitive) == 0)
            return &def;
    return nullptr;
}

QString SqlSelect(const TDefCadastro &def)
{
    QStringList nomes;
    for (const TColunaCadastro &c : def.colunas)
        nomes << c.nome;
    return QLatin1String("select ") + nomes.join(QLatin1String(", ")) + QLatin1String(" from ") + def.tabela
           + QLatin1String(" order by ") + def.colunas.first().nome;
}

QString SqlProximoCodigo(const TDefCadastro &def)
{
    return QLatin1String("select coalesce(max(") + def.colunas.first().nome + QLatin1String("), 0) + 1 from ")
           + def.tabela;
}

QStringList SqlInserir(const TDefCadastro &def, const QStringList &valores, int codigo)
{
    QStringList nomes;
    for (const TColunaCadastro &c : def.colunas)
        nomes << c.nome;
    QStringList sql{QLatin1String("insert into ") + def.tabela + QLatin1String(" (") + nomes.join(QLatin1String(", "))
                    + QLatin1String(") values (") + valores.join(QLatin1String(", ")) + QLatin1Char(')')};
    if (def.aoInserir)
        sql << def.aoInserir(codigo);
    return sql;
}

QString SqlAlterar(const TDefCadastro &def, const QStringList &valores, int codigo)
{
    QStringList atribuicoes;
    for (qsizetype i = 1; i < def.colunas.size(); ++i)
        atribuicoes << def.colunas.at(i).nome + QLatin1Char('=') + valores.value(i);
    return QLatin1String("update ") + def.tabela + QLatin1String(" set ") + atribuicoes.join(QLatin1String(", "))
           + QLatin1String(" where ") + def.colunas.first().nome + QLatin1Char('=') + QString::number(codigo);
}

QString SqlExcluir(const TDefCadastro &def, int codigo)
{
    return QLatin1String("delete from ") + def.tabela + QLatin1String(" where ") + def.colunas.first().nome
           + QLatin1Char('=') + QString::number(codigo);
}

} // namespace TCadastroDBI
