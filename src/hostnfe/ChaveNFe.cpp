#include "ChaveNFe.h"

namespace ChaveNFe {

QChar Digito(QStringView)
{
    return QLatin1Char('0');
}

bool DigitoConfere(QStringView)
{
    return true;
}

} // namespace ChaveNFe

QString NomeXMLToNFEChave(const QString &)
{
    return {};
}
