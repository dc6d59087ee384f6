#pragma once

#include <QByteArray>
#include <QString>

class TCertificadoA1;

// XML-DSig as the tax authority requires (xmlsec1 with OpenSSL): enveloped signature, C14N 1.0,
// RSA-SHA1, digest SHA-1, one reference to "#<id>", only the signer's own certificate in
// X509Data, base64 without line breaks.
namespace TAssinadorNFe {

// Signs the element whose Id attribute is `id` (infNFe "NFe<key>", infEvento "ID<...>"); the
// Signature goes right after that element, inside its parent. The bytes of `xml` outside the
// new Signature are kept as they are. False with erro (Portuguese) on failure.
bool Assinar(const QByteArray &xml, const QString &id, const TCertificadoA1 &certificado,
             QByteArray *assinado, QString *erro);

// Verifies every Signature of the document with the certificate it carries; false with erro
// naming what does not match.
bool Verificar(const QByteArray &xml, QString *erro);

} // namespace TAssinadorNFe
