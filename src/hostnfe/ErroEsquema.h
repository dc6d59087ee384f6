#pragma once

#include <QString>

#include <libxml/xmlerror.h>

// libxml2's schema errors said in one Portuguese line for the clerk: the element (and its item
// number inside det), the value and the rule it broke.
namespace ErroEsquema {

QString Descrever(const xmlError &erro);
// The error of an NFe that only lacks its Signature (still to be signed).
bool FaltaSoAssinatura(const xmlError &erro);
QString DocumentoMalFormado(int linha);

} // namespace ErroEsquema
