#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <span>

// How a column of the exchange file is written and turned back into SQL.
enum class TLeitorArq { Inteiro, Decimal, Texto, Data, DataHora };

struct TColunaArq
{
    const char *nome;
    TLeitorArq leitor;
};

// Every statement of the exchange file of all notes and their stock movements.
namespace TCompraExpImp_DBI {

// The columns of a "C" line (compra) and of a "CE" line (est_mov), in file order.
std::span<const TColunaArq> ColunasCompra();
std::span<const TColunaArq> ColunasEstMov();
// The key column of both kinds, drawn anew on import (0-based).
inline constexpr int ColunaChave = 2;

// The SQL literal of one file value for its reader: nullopt when the text is not one.
// Integers and decimals may be empty (0); dates are "dd/mm/yyyy", date-times also take
// " hh:nn:ss", " hh:nn" or no time at all.
std::optional<QString> Literal(TLeitorArq leitor, QStringView texto);

QString SqlNotas();
QString SqlMovsDaNota(int emprCod, int estacaoCod, int compraCod);
QString SqlContarLigacoes();
QString SqlMovsLigados();
QString SqlExcluirMov(int emprCod, int estacaoCod, int estMovCod);
// The three statements that follow the movements' deletes, in order.
QStringList SqlExcluirNotas();
// `literais`: one per column, already SQL (from Literal); the key column is replaced by `chave`.
QString SqlInserirCompra(QStringList literais, qint64 chave);
QString SqlInserirEstMov(QStringList literais, qint64 chave);
// The link of a movement to its note, both sides on station 10.
QString SqlInserirLigacao(int notaEmprCod, qint64 compraCod, int movEmprCod, qint64 estMovCod);

} // namespace TCompraExpImp_DBI
