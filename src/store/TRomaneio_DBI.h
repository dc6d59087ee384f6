#pragma once

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>

class TConexaoSQL;

// The header of a note as the packing list shows it.
struct TRomaneio
{
    bool temDtDoc = false;
    QDate dtDoc;
    QDateTime dthCri;           // launch date-time
    bool baixado = false;
    bool cancelado = false;
    QString tipoCod;
};

struct TTavro_Romaneio_Item
{
    QString ordem;
    QString prodCod;
    QString descr;
    double qtd = 0;             // packages times units per package
};
using TTavro_Romaneio_Item_List = QList<TTavro_Romaneio_Item>;

// The packing list's reads. Each is false with the driver's text in erro when the statement
// cannot run.
namespace TRomaneio_DBI {

// Also false, with a note saying so, when the note is not there.
bool LerCabec(TConexaoSQL &conexao, int emprCod, int compraCod, TRomaneio &romaneio, QString *erro);
// REP_ROM_ORD_IMPR, trimmed; empty when the key has no row.
bool LerOrdImpr(TConexaoSQL &conexao, QString &valor, QString *erro);
bool LerItens(TConexaoSQL &conexao, int emprCod, int compraCod, TTavro_Romaneio_Item_List &itens, QString *erro);

} // namespace TRomaneio_DBI
