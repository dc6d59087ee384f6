// The functions a host finds in libpavrel.so by name.
#include "ModuloPavrel.h"
#include "PavrelExports.h"

extern "C" {

Q_DECL_EXPORT const char *PavrelVersao()
{
    static const QByteArray versao = ModuloPavrel::Versao().toUtf8();
    return versao.constData();
}

Q_DECL_EXPORT bool PavrelIniciar(const char *database, int empresa, int estacao, int modoDebug, QString *erro)
{
    TDadosHost dados;
    dados.database = QString::fromUtf8(database);
    dados.empresa = empresa;
    dados.estacao = estacao;
    dados.modoDebug = modoDebug;
    return ModuloPavrel::Iniciar(dados, erro);
}

Q_DECL_EXPORT bool PavrelCriarBanco(const char *caminho, bool comDemo, QString *erro)
{
    return ModuloPavrel::CriarBanco(QString::fromUtf8(caminho), comDemo, erro);
}

} // extern "C"
