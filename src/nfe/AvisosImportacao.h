#pragma once

#include "TChaveNota.h"

#include <QStringList>

class TConexaoSQL;
class TnfeProc;

// What a careful clerk wants to know about a supplier's NF-e before importing its items, none of
// it blocking the import: a key whose check digit is wrong, a recipient that is not the note's
// company, another note of the company that already refers to the key or was imported from it.
// `notaAtual` is the note being typed (left out of the search). Empty when all is well.
QStringList AvisosImportacao(TConexaoSQL &conexao, int emprCod, const TnfeProc &documento,
                             const TChaveNota &notaAtual = {});
