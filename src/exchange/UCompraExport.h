#pragma once

#include "UArqCompras.h"

#include <optional>

class TConexaoSQL;
class TProgresso;

// "Exportar Notas": every note of compra with its linked stock movements into one file.

// Asks for the file, then ExportarPara with the host's progress window.
void Exportar(TConexaoSQL &conexao);
// Writes the file; nullopt after the one message that says what failed (no file is left then).
std::optional<TContagemArq> ExportarPara(TConexaoSQL &conexao, const QString &arquivo, TProgresso &progresso);
