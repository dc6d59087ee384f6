#include "TValidadorNFe.h"

bool TValidadorNFe::Validar(const QByteArray &, TEsquema, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("validação ainda não disponível");
    return false;
}
