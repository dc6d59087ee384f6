#pragma once

#include <QString>

#include <memory>

class TConexaoSQL;
class TQ;

// The statements of the NF-e actions' checks and of the cancellation's justification.
namespace TNFeAcoes_DBI {

// The recipient's fields that must be filled, one column each, labelled as the clerk knows them.
QString SqlDestinatario(int fornecCod);
std::unique_ptr<TQ> Destinatario(TConexaoSQL &conexao, int fornecCod);
// Keeps the cancellation's justification on the note; false with the driver's text in
// conexao.UltimoErro().
bool GravarJustificativa(TConexaoSQL &conexao, int emprCod, int compraCod, const QString &texto);

} // namespace TNFeAcoes_DBI
