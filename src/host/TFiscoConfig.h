#pragma once

#include <QString>

class TConexaoSQL;

// The store's fiscal settings: the remarks proposed for a new note.
class TFiscoConfig final
{
public:
    // The first row's texts, trimmed (empty when there is no row); false with the driver's text
    // when the table cannot be read.
    static bool PegaInfoAdic(TConexaoSQL &conexao, QString *fisco, QString *contribuinte, QString *erro);
};
