#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The document types of a note, their codes and the rules that depend on them. The type is
// stored in compra.tipo_cod as one character whose character code is the type number.
// Every rule that depends on the type reads it from this table instead of listing codes.
namespace TipoDoc {

constexpr int Entrada = 34;
constexpr int Devolucao = 35;
constexpr int SimplesRemessa = 36;
constexpr int Producao = 37;
constexpr int RetornoLocacao = 38;
constexpr int NotaComplementar = 39;
constexpr int RetornoComodato = 41;

// The host's document kinds handed to the correction-letter editor.
constexpr int DocTipoDevolucao = 7;
constexpr int DocTipoOutros = 8;

// Whether posting creates product costs and sale prices.
enum class TCustosNaBaixa { Sempre, ConformeConfig, Nunca };

struct TTipoDoc
{
    int indice;                 // position in the type combo
    int codigo;                 // type number, the character code of tipo_cod
    const char *texto;          // combo text (and the note list's caption)
    const char *nomeCurto;      // name shown by the F6 switch beside the item panel
    int docTipoHost;            // the host's document kind for the correction-letter editor
    bool exigeFornecedor;
    bool exigeNatOp;
    bool exigeNCMItem;
    bool exigeEmbQtd;           // quantity per package, and package count before posting
    bool exigeTotProds;         // products total of at least 0,01
    bool podeEnviarNFe;
    bool podeCartaCorrecao;
    bool numeroDigitado;        // the number is typed; otherwise it comes from the NF-e
    // Added to the agreed fields: the remaining rules that depend on the type.
    const char *recusaNFe;      // the refusal when podeEnviarNFe is false, else nullptr
    int finalidadeNFe;          // NF-e purpose: 1 normal, 2 complementary, 4 return
    bool conferirTotaisNaBaixa; // the items' totals are checked against the header before posting
    bool aceitaValorZerado;     // may be posted with a zero total
    bool ajustaTotalNaBaixa;    // the header total is set from the items before posting
    TCustosNaBaixa custosNaBaixa;
};

// The seven types in combo order.
const QList<TTipoDoc> &Tabela();
QStringList TextosCombo();

// Index -> code; an index outside the table (no selection) is ENTRADA.
int CodigoDoIndice(int indice);
// Code -> index; -1 for a code outside the table.
int IndiceDoCodigo(int codigo);
// nullptr for a code outside the table.
const TTipoDoc *PorCodigo(int codigo);
const TTipoDoc &PorIndice(int indice);      // outside the table: ENTRADA

// The character whose code is `codigo` (any code, also one outside the table).
QChar CharDoCodigo(int codigo);
// The stored column: an empty, blank or null value is a purchase entry (34). A CHAR(1) column
// hands an empty text back as one blank, hence blank counts as empty.
int CodigoDoChar(const QString &tipoCod);
// The SQL literal of a type: the quoted character ('"', '''').
QString SqlDoCodigo(int codigo);

// The caption of a type in the note list: the combo text; a code outside the table shows as
// the number in brackets ("[42]") so that the row still says what is stored.
QString RepTipoDocToStr(int codigo);
// 7 for '#' (a return), 8 for every other character.
int TipoDocCharToTDocTipo(QChar c);

} // namespace TipoDoc

// Captions of the flags in the note list: "SIM" when set, "NÃO" when not.
QString RepBaixadoStr(bool baixado);
QString RepCanceladoStr(bool cancelado);
