#pragma once

#include <QString>

class TConexaoSQL;

// The host's change log: who altered which row of which table, and what was done.
bool InsLogAlt(TConexaoSQL &conexao, const QString &tabela, const QString &chave, const QString &descricao);
