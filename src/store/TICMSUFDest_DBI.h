#pragma once

#include <QString>

#include <memory>

class TConexaoSQL;
class TQ;

// The eight destination-state ICMS figures of one movement, as they are written back.
struct TFigurasUFDest
{
    double vbc = 0, pfcp = 0, picmsUFDest = 0, picmsInter = 0, picmsInterPart = 0;
    double vfcp = 0, vicmsUFDest = 0, vicmsUFRemet = 0;
};

// The statements of the destination-state ICMS adjustment of a posted note.
namespace TICMSUFDest_DBI {

// The state of the note's supplier.
QString SqlFornecUF(int emprCod, int estacaoCod, int compraCod);
// The note's movements with their product's description and maker, in the order they were made.
QString SqlMovimentos(int emprCod, int estacaoCod, int compraCod);
// One movement's eight figures.
QString SqlAtualizar(const TFigurasUFDest &f, int emprCod, int estacaoCod, int estMovCod);

// The supplier's state, trimmed; empty when the note or its supplier has none. False when the
// read failed (the driver's text in the connection's UltimoErro).
bool FornecUF(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod, QString &uf);
// nullptr when the read failed.
std::unique_ptr<TQ> Movimentos(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod);

} // namespace TICMSUFDest_DBI
