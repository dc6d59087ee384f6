#include "TAssinadorNFe.h"

bool TAssinadorNFe::Assinar(const QByteArray &, const QString &, const TCertificadoA1 &, QByteArray *, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("assinatura ainda não disponível");
    return false;
}

bool TAssinadorNFe::Verificar(const QByteArray &, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("verificação ainda não disponível");
    return false;
}
