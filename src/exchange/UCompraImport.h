#pragma once

#include "UArqCompras.h"

#include <QString>

#include <optional>

class TConexaoSQL;
class TProgresso;

// "Importar Notas": replaces every note and its linked stock movements by those of a file.

inline const QString PerguntaImportar = QStringLiteral("Deseja EXCLUIR TODAS AS COMPRAS e importá-las de um arquivo?");

// Asks first, then for the file, then ImportarDe with the host's progress window. True when the
// database may have changed.
bool Importar(TConexaoSQL &conexao);
// Checks the whole file before anything is deleted; nullopt after the one message that says what
// failed. A statement that fails stops the import there, keeping what went before.
std::optional<TContagemArq> ImportarDe(TConexaoSQL &conexao, const QString &arquivo, TProgresso &progresso);
