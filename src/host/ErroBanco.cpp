#include "ErroBanco.h"

#include "TConexaoSQL.h"

namespace {

[[noreturn]] void falhar(const TConexaoSQL &conexao, const QString &oQue)
{
    throw EErroBanco(QStringLiteral("Não foi possível %1.\n%2").arg(oQue, conexao.UltimoErro()));
}

} // namespace

EErroBanco::EErroBanco(const QString &texto) : std::runtime_error(texto.toStdString()), m_texto(texto) {}

void ExecOuErro(TConexaoSQL &conexao, const QString &sql, const QString &oQue)
{
    if (!conexao.Exec(sql))
        falhar(conexao, oQue);
}

std::unique_ptr<TQ> AbOuErro(TConexaoSQL &conexao, const QString &sql, const QString &oQue)
{
    std::unique_ptr<TQ> q = conexao.Ab(sql);
    if (!q)
        falhar(conexao, oQue);
    return q;
}

qint64 GeneratorOuErro(TConexaoSQL &conexao, const QString &generator, const QString &oQue)
{
    // GEN_ID with a step of 1 never hands out 0, so 0 is the failure.
    const qint64 codigo = conexao.ProximoGenerator(generator);
    if (codigo == 0)
        falhar(conexao, oQue);
    return codigo;
}

void ConectarOuErro(TConexaoSQL &conexao, const QString &oQue)
{
    if (!conexao.Conectar())
        falhar(conexao, oQue);
}
