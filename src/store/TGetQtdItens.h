#pragma once

#include <QString>

class TConexaoSQL;

// How many items a note has staged, under any station: it only sizes the progress gauge.
class TGetQtdItens final
{
public:
    static QString Sql(int emprCod, int compraCod);
    // -1 when the database fails (the driver's text in the connection's UltimoErro()).
    static int GetQtdItens(TConexaoSQL &conexao, int emprCod, int compraCod);
};
