#include "TEnderecosNFe.h"

namespace TEnderecosNFe {

QString Autorizador(const QString &) { return {}; }
QString Contingencia(const QString &) { return {}; }
bool Servico(const QString &, int, const QString &, TServicoNFe *, QString *erro)
{
    if (erro)
        *erro = QStringLiteral("endereços não implementados");
    return false;
}

} // namespace TEnderecosNFe
