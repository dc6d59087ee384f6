#include "BancoTeste.h"

#include "Database.h"
#include "TConexaoSQL.h"

#include <QFile>

namespace BancoTeste {

bool Criar(const TDadosBanco &banco, const QStringList &comandos, bool escritaForcada, QString *erro)
{
    QFile::remove(banco.database);
    // Loaded without a flush per commit, whatever the database keeps afterwards.
    if (!Database::CreateEmpty(banco, erro) || !Database::SetForcedWrites(banco, false, erro))
        return false;
    bool ok = false;
    {
        TConexaoSQL conexao(banco);
        ok = conexao.Conectar()
             && Database::RunScript(conexao.NomeConexao(), Database::Script(QStringLiteral("schema")), erro);
        for (const QString &sql : comandos) {
            if (!ok)
                break;
            ok = conexao.Exec(sql);
        }
        if (!ok && erro->isEmpty())
            *erro = conexao.UltimoErro();
        conexao.Desconectar();
    }
    TConexaoSQL::FecharOciosas(banco.database);
    return ok && (!escritaForcada || Database::SetForcedWrites(banco, true, erro));
}

bool Copiar(const QString &modelo, const TDadosBanco &copia, QString *erro)
{
    TConexaoSQL::FecharOciosas(copia.database);
    QFile::remove(copia.database);
    if (!QFile::copy(modelo, copia.database)) {
        *erro = QStringLiteral("não foi possível copiar %1 para %2").arg(modelo, copia.database);
        return false;
    }
    QFile::setPermissions(copia.database, QFile::ReadOwner | QFile::WriteOwner);
    Contexto::Atual().banco = copia;
    return true;
}

void FixarRelogio(const QDateTime &agora)
{
    Contexto::Atual().DefinirRelogio([agora] { return agora; });
}

} // namespace BancoTeste
