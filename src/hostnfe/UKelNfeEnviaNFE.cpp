#include "UKelNfeEnviaNFE.h"

bool KelNFEDevFornecEnviaNFE(TConexaoSQL *, TConexaoSQL &, const TProgressFormPegarTit &, const TExibirErro &, int, int,
                             int, int, int, QDateTime &, int &, QString &, QString &)
{
    return false;
}

bool KelNFEEnviaCancNFE(TConexaoSQL *, TConexaoSQL &, const TProgressFormPegarTit &, const TExibirErro &, int, int, int,
                        const QString &, int, QDateTime &)
{
    return false;
}

void KelNFEEnviarImpr(TConexaoSQL *, TConexaoSQL &, const TProgressFormPegarTit &, const TExibirErro &, int, int, int,
                      const QString &, int, const QString &, bool)
{
}
