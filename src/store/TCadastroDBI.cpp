#include "TCadastroDBI.h"

#include "Contexto.h"
#include "VerificaCadastro.h"

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

const QString Digitos = QStringLiteral("0123456789");
const QString Alfanumericos = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");

QString Recusa(QString *coluna, const char *nome, const QString &mensagem)
{
    *coluna = QLatin1String(nome);
    return mensagem;
}

// UF, the town's IBGE code and the CEP, the same columns in both registers.
QString VerificarEndereco(const QHash<QString, QString> &t, QString *coluna)
{
    using namespace VerificaCadastro;
    const QString uf = t.value(QStringLiteral("uf"));
    const QString ibge = t.value(QStringLiteral("mun_ibge_cod"));
    const QString cep = t.value(QStringLiteral("cep"));
    const int codigoUf = CodigoUf(uf);
    if (!uf.isEmpty() && codigoUf == 0)
        return Recusa(coluna, "uf", QStringLiteral("UF inválida: indique a sigla de um dos 27 estados"));
    if (!ibge.isEmpty() && !SoDigitos(ibge, 7))
        return Recusa(coluna, "mun_ibge_cod", QStringLiteral("Código IBGE do município inválido: indique os 7 dígitos"));
    if (!ibge.isEmpty() && codigoUf != 0 && ibge.left(2).toInt() != codigoUf)
        return Recusa(coluna, "mun_ibge_cod",
                      QStringLiteral("O código IBGE do município não é de %1: os municípios de %1 começam por %2")
                          .arg(uf).arg(codigoUf));
    if (!cep.isEmpty() && !SoDigitos(cep, 8))
        return Recusa(coluna, "cep", QStringLiteral("CEP inválido: indique os 8 dígitos"));
    return {};
}

QString VerificarEmpresa(const QHash<QString, QString> &t, QString *coluna)
{
    const QString cnpj = t.value(QStringLiteral("cnpj"));
    if (!cnpj.isEmpty() && !VerificaCadastro::CnpjValido(cnpj))
        return Recusa(coluna, "cnpj", QStringLiteral("CNPJ inválido: confira os dígitos verificadores"));
    return VerificarEndereco(t, coluna);
}

QString VerificarFornecedor(const QHash<QString, QString> &t, QString *coluna)
{
    const QString c = t.value(QStringLiteral("c"));
    if (!c.isEmpty() && !(c.size() == 11 ? VerificaCadastro::CpfValido(c) : VerificaCadastro::CnpjValido(c)))
        return Recusa(coluna, "c", QStringLiteral("CPF/CNPJ inválido: confira os dígitos verificadores"));
    return VerificarEndereco(t, coluna);
}

TColunaCadastro Coluna(const char *nome, const char *titulo, T tipo, int tamanho = 0, bool obrigatoria = false,
                       const QString &lista = {})
{
    return {QLatin1String(nome), QString::fromUtf8(titulo), tipo, tamanho, obrigatoria, lista, {}, {}};
}

TColunaCadastro Codigo(const char *nome)
{
    return Coluna(nome, "Código", T::Codigo, 0, true);
}

TColunaCadastro Texto(const char *nome, const char *titulo, int tamanho, const QString &caracteres = {},
                      bool obrigatoria = false)
{
    TColunaCadastro c = Coluna(nome, titulo, T::Texto, tamanho, obrigatoria);
    c.caracteres = caracteres;
    return c;
}

// The address columns, from the street to the CEP, as the NF-e asks for them.
QList<TColunaCadastro> Endereco()
{
    return {Texto("logr", "Logradouro", 60),
            Texto("num", "Número", 10),
            Texto("compl", "Complemento", 60),
            Texto("bai", "Bairro", 60),
            Texto("mun", "Município", 60),
            Texto("mun_ibge_cod", "Código IBGE do Município", 7, Digitos),
            Texto("uf", "UF", 2, Alfanumericos.mid(10)),
            Texto("cep", "CEP", 8, Digitos)};
}

QList<TColunaCadastro> ColunasEmpresa()
{
    TColunaCadastro crt = Coluna("crt", "Regime Tributário", T::Lista, 0, true,
                                 QStringLiteral("select 1, 'Simples Nacional' from rdb$database union all "
                                                "select 2, 'Simples Nacional - excesso de sublimite' from rdb$database union all "
                                                "select 3, 'Regime Normal' from rdb$database union all "
                                                "select 4, 'MEI' from rdb$database"));
    crt.padrao = QStringLiteral("3");
    return QList<TColunaCadastro>{Codigo("empr_cod"), Texto("raz", "Razão Social", 60, {}, true),
                                  Texto("nome_red", "Nome Reduzido", 30), Texto("cnpj", "CNPJ", 14, Alfanumericos),
                                  Texto("ie", "Inscrição Estadual", 20)}
           + Endereco()
           + QList<TColunaCadastro>{Texto("fone1", "Telefone 1", 20), Texto("fone2", "Telefone 2", 20),
                                    Texto("email", "E-mail", 60), crt, Texto("cnae", "CNAE", 7, Digitos),
                                    Texto("im", "Inscrição Municipal", 15)};
}

QList<TColunaCadastro> ColunasFornecedor()
{
    TColunaCadastro transp = Texto("transp", "Transportador (S/N)", 1, QStringLiteral("SN"), true);
    transp.padrao = QStringLiteral("N");
    return QList<TColunaCadastro>{Codigo("fornec_cod"), Texto("nome_red", "Nome Reduzido", 30, {}, true),
                                  Texto("raz", "Razão Social", 60), Texto("c", "CPF/CNPJ", 14, Alfanumericos),
                                  Texto("ie", "Inscrição Estadual", 20)}
           + Endereco()
           + QList<TColunaCadastro>{Texto("fone", "Fone", 20), Texto("email", "E-mail", 60), transp};
}

const QList<TDefCadastro> &Definicoes()
{
    static const QList<TDefCadastro> defs = {
        {QStringLiteral("ProdF"), QStringLiteral("TabProdAct"), QStringLiteral("Produtos"), QStringLiteral("prod"),
         {Codigo("prod_cod"),
          Texto("descr", "Descrição", 120, {}, true),
          Coluna("unid_cod", "Unidade", T::Lista, 0, false, QStringLiteral("select unid_cod, sigla from unid order by descr")),
          Coluna("emb_qtd", "Qtd na Emb", T::Quantidade, 3),
          Coluna("trib_cod", "Situação Tributária", T::Lista, 0, false,
                 QStringLiteral("select trib_cod, descr from trib order by trib_cod")),
          Coluna("ipi", "IPI %", T::Valor, 2),
          Texto("ncm", "NCM", 8, Digitos),
          Texto("gtin", "GTIN", 14, Digitos),
          Coluna("prod_fabr_cod", "Fabricante", T::Lista, 0, false,
                 QStringLiteral("select prod_fabr_cod, nome from prod_fabr order by nome"))},
         &ProdutoNaEmpresa, nullptr},
        {QStringLiteral("UnidF"), QStringLiteral("EstoqUnidAct"), QStringLiteral("Unidades"), QStringLiteral("unid"),
         {Codigo("unid_cod"), Texto("sigla", "Sigla", 6, {}, true), Texto("descr", "Descrição", 60, {}, true)},
         nullptr, nullptr},
        {QStringLiteral("TribF"), QStringLiteral("TabFiscoTributAct"), QStringLiteral("Situações Tributárias"),
         QStringLiteral("trib"),
         {Codigo("trib_cod"), Texto("descr", "Descrição", 60, {}, true), Coluna("perc", "Alíquota %", T::Valor, 2)},
         nullptr, nullptr},
        {QStringLiteral("EmprF"), QStringLiteral("TabEmprAct"), QStringLiteral("Empresa"), QStringLiteral("empr"),
         ColunasEmpresa(), nullptr, &VerificarEmpresa},
        {QStringLiteral("FornecF"), QStringLiteral("TabFornecAct"), QStringLiteral("Fornecedores"),
         QStringLiteral("fornec"), ColunasFornecedor(), nullptr, &VerificarFornecedor},
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

QString SqlCnpjEmpresa(int emprCod)
{
    return QLatin1String("select cnpj from empr where empr_cod=") + QString::number(emprCod);
}

QString SqlExcluir(const TDefCadastro &def, int codigo)
{
    return QLatin1String("delete from ") + def.tabela + QLatin1String(" where ") + def.colunas.first().nome
           + QLatin1Char('=') + QString::number(codigo);
}

} // namespace TCadastroDBI
