#include "Config.h"

#include "TConexaoSQL.h"
#include "Valores.h"

#include <QSettings>

namespace Config {

static QString sqlValor(const QString &chave)
{
    return QStringLiteral("select valor from config where chave=") + QuotedStr(chave) + QLatin1Char(';');
}

QString Valor(TConexaoSQL &conexao, const QString &chave)
{
    return conexao.ValorStr(sqlValor(chave)).trimmed();
}

bool LigadoSalvoN(TConexaoSQL &conexao, const QString &chave)
{
    return Valor(conexao, chave) != QLatin1String("N");
}

bool LigadoSeS(TConexaoSQL &conexao, const QString &chave)
{
    return Valor(conexao, chave) == QLatin1String("S");
}

bool LigadoSeSOuSemBanco(TConexaoSQL &conexao, const QString &chave)
{
    if (!conexao.Conectar())
        return true;
    const auto q = conexao.Ab(sqlValor(chave));
    conexao.Desconectar();
    if (!q)
        return false;
    return !q->IsEmpty() && q->Fields(0).AsString().trimmed() == QLatin1String("S");
}

} // namespace Config

QString ConfigLerStr(const QString &chave, const QString &padrao)
{
    return QSettings().value(chave, padrao).toString();
}

void ConfigGravarStr(const QString &chave, const QString &valor)
{
    QSettings().setValue(chave, valor);
}
