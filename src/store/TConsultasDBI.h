#pragma once

#include <QList>
#include <QString>

#include <optional>

class TConexaoSQL;

// A code and the text a combo shows for it.
struct TCodigoTexto
{
    int codigo = 0;
    QString texto;
};

// The registers the main screen fills its choices from, and its small house-keeping writes.
// A failed read gives an empty list: the combos simply stay empty.
namespace TConsultasDBI {

QList<TCodigoTexto> Empresas(TConexaoSQL &conexao);       // by code, short names
QList<TCodigoTexto> Fornecedores(TConexaoSQL &conexao);   // by short name
QList<TCodigoTexto> Unidades(TConexaoSQL &conexao);       // symbols, by description
// The grade titles, by code; empty when no product has a grade.
QList<TCodigoTexto> TitulosDeGrade(TConexaoSQL &conexao);
bool HaTabelasDePreco();
// A key of the config table as stored; empty when absent.
QString ValorConfig(TConexaoSQL &conexao, const QString &chave);
// The state of a company, trimmed.
QString UFEmpresa(TConexaoSQL &conexao, int emprCod);
// Price rows left without a product by an abandoned item, through the host's connection.
void ApagarPrecoZerado();

} // namespace TConsultasDBI
