#include "TPess_Emit_Carregar_DBI.h"

#include "TConexaoSQL.h"
#include "TnfeProc.h"

namespace TPess_Emit_Carregar_DBI {

bool Carregar(TConexaoSQL &conexao, int empr_cod, TPess_Emit &emitente, QString *erro)
{
    const auto falhar = [&](const QString &texto) {
        if (erro)
            *erro = texto;
        return false;
    };
    if (!conexao.Conectar())
        return falhar(QStringLiteral("Erro lendo a empresa %1: %2").arg(empr_cod).arg(conexao.UltimoErro()));
    const auto q = conexao.Ab(QStringLiteral(
        "select raz, nome_red, cnpj, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone1, crt, cnae, im "
        "from empr where empr_cod=%1").arg(empr_cod));
    const QString erroBanco = conexao.UltimoErro();
    conexao.Desconectar();
    if (!q)
        return falhar(QStringLiteral("Erro lendo a empresa %1: %2").arg(empr_cod).arg(erroBanco));
    if (q->IsEmpty())
        return falhar(QStringLiteral("Empresa %1 não cadastrada").arg(empr_cod));
    const auto texto = [&](const char *campo) { return q->FieldByName(QLatin1String(campo)).AsString().trimmed(); };
    emitente = TPess_Emit{};
    emitente.xNome = texto("raz");
    emitente.xFant = texto("nome_red");
    // A company of eleven characters is a person.
    (texto("cnpj").size() == 11 ? emitente.CPF : emitente.CNPJ) = texto("cnpj");
    emitente.IE = texto("ie");
    emitente.ender.xLgr = texto("logr");
    emitente.ender.nro = texto("num");
    emitente.ender.xCpl = texto("compl");
    emitente.ender.xBairro = texto("bai");
    emitente.ender.xMun = texto("mun");
    emitente.ender.cMun = texto("mun_ibge_cod");
    emitente.ender.UF = texto("uf");
    emitente.ender.CEP = texto("cep");
    emitente.ender.fone = texto("fone1");
    emitente.CRT = q->FieldByName(QStringLiteral("crt")).AsInteger();
    emitente.IM = texto("im");
    emitente.CNAE = texto("cnae");
    return true;
}

} // namespace TPess_Emit_Carregar_DBI
