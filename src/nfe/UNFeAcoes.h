#pragma once

class TConexaoSQL;

// The checks the NF-e actions make before sending, cancelling and printing.
namespace UNFeAcoes {

// The issuing company's registration is complete; the first blank field gets its message.
bool EmprAceita(TConexaoSQL &conexao, int emprCod);
// The note's supplier (the recipient) is complete; on its own connection.
bool NotaAceita(int fornecCod);
// The place for item checks: none today.
bool ItensAceitos();

} // namespace UNFeAcoes
