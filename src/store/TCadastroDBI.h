#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

class TConexaoSQL;

// How a column of a register is typed and spliced into SQL.
enum class TTipoColunaCadastro {
    Codigo,     // integer
    Texto,      // quoted text, empty is NULL
    Valor,      // decimal number (money, rates)
    Quantidade, // decimal number with 3 places
    Lista,      // integer code chosen from a list (`lista` gives "select code, text ...")
};

struct TColunaCadastro
{
    QString nome;           // column of the table
    QString titulo;         // caption in the grid and beside the field
    TTipoColunaCadastro tipo = TTipoColunaCadastro::Texto;
    int tamanho = 0;        // characters of a text; decimals of a value
    bool obrigatoria = false;
    QString lista;          // for Lista: the statement that fills the choice
    QString caracteres;     // for Texto: the only characters typed (letters upper-cased); empty: any
    QString padrao;         // what a new row starts with (the code, for a Lista)
};

// One register table: its key (the first column, an integer code) and its columns.
struct TDefCadastro
{
    QString form;           // host form name, e.g. "UnidF"
    QString acao;           // host action name, e.g. "EstoqUnidAct"
    QString titulo;         // window title
    QString tabela;
    QList<TColunaCadastro> colunas;
    // Run after a new row is inserted, given the new code; may add rows of other tables.
    QStringList (*aoInserir)(int codigo) = nullptr;
    // Run before saving, given each column's trimmed text (a Lista's code): the message of the
    // first mistake and its column, or an empty message.
    QString (*verificar)(const QHash<QString, QString> &textos, QString *coluna) = nullptr;
};

// The statements of the small register editors. Values come already spliced through the value
// functions (`QuotedStr`, `FloatToStrPonto`, integers, "NULL"), one per column in column order.
namespace TCadastroDBI {

// The registers the item panel opens: "ProdF"/"TabProdAct" (products), "UnidF"/"EstoqUnidAct"
// (units) and "TribF"/"TabFiscoTributAct" (tax situations); those of the Tabelas menu:
// "EmprF"/"TabEmprAct" (companies) and "FornecF"/"TabFornecAct" (suppliers and customers).
// Null for other names.
const TDefCadastro *Definicao(const QString &form, const QString &acao);

QString SqlSelect(const TDefCadastro &def);
QString SqlProximoCodigo(const TDefCadastro &def);
// The insert and whatever the register adds after it.
QStringList SqlInserir(const TDefCadastro &def, const QStringList &valores, int codigo);
QString SqlAlterar(const TDefCadastro &def, const QStringList &valores, int codigo);
QString SqlExcluir(const TDefCadastro &def, int codigo);
// The CNPJ of a company.
QString SqlCnpjEmpresa(int emprCod);

} // namespace TCadastroDBI
