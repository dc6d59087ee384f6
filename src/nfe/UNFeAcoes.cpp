#include "UNFeAcoes.h"

namespace UNFeAcoes {

bool EmprAceita(TConexaoSQL &, int) { return true; }
bool NotaAceita(int) { return true; }
bool ItensAceitos() { return true; }

} // namespace UNFeAcoes
