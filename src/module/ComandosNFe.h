#pragma once

#include <QStringList>

class QTextStream;

// The headless commands of the company's own NF-e. Exit codes as ComandosHeadless::Executar's.
namespace ComandosNFe {

// nfe-xml NOTA [--out FILE]: issues the note's NF-e (built, validated, signed, filed) and prints
// the filed XML's path, or FILE after copying it there.
int NfeXml(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
// danfe NOTA|FILE.xml --pdf OUT.pdf: the DANFE of a note's filed NF-e or of any NF-e XML.
int Danfe(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);
// test-certificate --cnpj N --out FILE.pfx --password TEXT [--legacy]: a self-signed A1-like
// certificate for trying the product, never accepted in production.
int TestCertificate(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

} // namespace ComandosNFe
