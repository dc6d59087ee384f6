#include "TNFe_XMLI.h"

bool TNFe_XMLI::ImportarDoArq(const QString &FileName)
{
    m_erro = QStringLiteral("%1: leitura de NF-e ainda não disponível").arg(FileName);
    return false;
}

bool TNFe_XMLI::ImportarDoTexto(const QByteArray &, const QString &nomeParaErro)
{
    m_erro = QStringLiteral("%1: leitura de NF-e ainda não disponível").arg(nomeParaErro);
    return false;
}
