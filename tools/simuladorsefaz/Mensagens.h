#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// Reading the requests: the SOAP envelope, values of the message and the schemas it must follow.
namespace Mensagens {

// The operation (the last part of nfeDadosMsg's namespace) and the message inside it; false
// with erro when the body is not such an envelope.
bool AbrirEnvelope(const QByteArray &corpo, QString *operacao, QByteArray *mensagem, QString *erro);
// The text of the first element named `nome` (any namespace); empty when there is none.
QString Valor(const QByteArray &xml, const QString &nome);
// The value of attribute `atributo` of the first element named `nome`.
QString Atributo(const QByteArray &xml, const QString &nome, const QString &atributo);
// Every element named `nome`, bytes as sent (unprefixed elements only).
QList<QByteArray> Elementos(const QByteArray &xml, const QByteArray &nome);
// Valid against the schema file (relative to the schemas' folder); erro names the first fault.
bool Valida(const QByteArray &xml, const QString &esquema, QString *erro);

} // namespace Mensagens
