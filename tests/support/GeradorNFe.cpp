#include "GeradorNFe.h"

QByteArray GerarXmlNFe(const TnfeProc &, const OpcoesGeracao &)
{
    return {};
}

bool GravarXmlNFe(const QString &, const TnfeProc &, const OpcoesGeracao &)
{
    return false;
}

TnfeProc NFeExemplo(const QString &, const QString &, qint64, int)
{
    return {};
}
