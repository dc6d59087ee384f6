#pragma once

#include "TChaveNota.h"

#include <QString>

#include <optional>

class TConexaoSQL;

// The two additional-information texts of a note: for the tax authority and for the taxpayer.
struct TInfoAdic
{
    QString contribuinte;
    QString fisco;

    bool operator==(const TInfoAdic &) const = default;
};

// Reads and writes a note's additional information. Each runs on a connection the caller holds
// open; false / nullopt when the statement fails, with the driver's text in the connection.
namespace TRepEdit_DBI {

// Both texts trimmed; empty when the note has none (or is gone).
std::optional<TInfoAdic> LerCompra(TConexaoSQL &conexao, const TChaveNota &nota);
// Both texts as they are: nothing else of the note changes.
bool GravarCompra(TConexaoSQL &conexao, const TChaveNota &nota, const TInfoAdic &info);

} // namespace TRepEdit_DBI
