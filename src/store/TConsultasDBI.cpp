#include "TConsultasDBI.h"

#include "TConexD.h"
#include "TConexaoSQL.h"
#include "Valores.h"

namespace TConsultasDBI {

namespace {

QList<TCodigoTexto> Lista(TConexaoSQL &conexao, const QString &sql)
{
    QList<TCodigoTexto> lista;
    const auto q = conexao.Ab(sql);
    if (!q)
        return lista;
    for (q->First(); !q->Eof(); q->Next())
        lista << TCodigoTexto{q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed()};
    return lista;
}

} // namespace

QList<TCodigoTexto> Empresas(TConexaoSQL &conexao)
{
    return Lista(conexao, QStringLiteral("select empr_cod, nome_red from empr order by empr_cod"));
}

QList<TCodigoTexto> Fornecedores(TConexaoSQL &conexao)
{
    return Lista(conexao, QStringLiteral("SELECT FORNEC_COD, NOME_RED FROM FORNEC ORDER BY NOME_RED"));
}

QList<TCodigoTexto> Unidades(TConexaoSQL &conexao)
{
    return Lista(conexao, QStringLiteral("SELECT UNID_COD, SIGLA FROM UNID ORDER BY DESCR"));
}

QList<TCodigoTexto> TitulosDeGrade(TConexaoSQL &conexao)
{
    QList<TCodigoTexto> titulos;
    if (Inteiro(QStringLiteral("select count(*) from prod_grade")) <= 0)
        return titulos;
    const auto q = conexao.Ab(QStringLiteral("select * from grade_tit order by grade_tit_cod"));
    if (!q)
        return titulos;
    const int codigo = q->FieldIndex(QStringLiteral("grade_tit_cod"));
    const int descr = q->FieldIndex(QStringLiteral("descr"));
    for (q->First(); !q->Eof(); q->Next())
        titulos << TCodigoTexto{q->Fields(codigo).AsInteger(), descr >= 0 ? q->Fields(descr).AsString().trimmed() : QString()};
    return titulos;
}

bool HaTabelasDePreco()
{
    return Inteiro(QStringLiteral("select count(*) from tab_preco")) > 0;
}

QString ValorConfig(TConexaoSQL &conexao, const QString &chave)
{
    return conexao.ValorStr(QLatin1String("select valor from config where chave=") + QuotedStr(chave));
}

QString UFEmpresa(TConexaoSQL &conexao, int emprCod)
{
    return conexao.ValorStr(QStringLiteral("select uf from empr where empr_cod=%1").arg(emprCod)).trimmed();
}

void ApagarPrecoZerado()
{
    TConexaoSQL &host = TConexD::Conexao();
    if (!host.Conectar())
        return;
    host.Exec(QStringLiteral("delete from prod_preco where prod_cod=0 or prod_cod is null"));
    host.Desconectar();
}

} // namespace TConsultasDBI
