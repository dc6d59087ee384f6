#include "ModuloPavrel.h"

#include "Contexto.h"
#include "Database.h"
#include "PastaFiscal.h"
#include "TBaixaNFePorChaveSefaz.h"
#include "TConexaoSQL.h"
#include "TConsultasDBI.h"

#include <QFileInfo>
#include <QProcessEnvironment>

namespace ModuloPavrel {

QString Versao()
{
    return QStringLiteral(PAVREL_VERSION);
}

TDadosHost Completar(TDadosHost dados)
{
    const QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    if (dados.database.isEmpty())
        dados.database = ambiente.value(QStringLiteral("PAVREL_DATABASE"), Database::DefaultPath());
    if (dados.empresa <= 0)
        dados.empresa = qMax(1, ambiente.value(QStringLiteral("PAVREL_COMPANY")).toInt());
    if (dados.estacao <= 0)
        dados.estacao = qMax(1, ambiente.value(QStringLiteral("PAVREL_STATION")).toInt());
    dados.pastaFiscal = ResolverPastaFiscal(dados.pastaFiscal);
    return dados;
}

bool Iniciar(const TDadosHost &dadosHost, QString *erro)
{
    const TDadosHost dados = Completar(dadosHost);
    Contexto &contexto = Contexto::Atual();
    contexto.banco.database = dados.database;
    contexto.empresa = dados.empresa;
    contexto.estacao = dados.estacao;
    contexto.modoDebug = dados.modoDebug;
    contexto.pastaFiscal = dados.pastaFiscal;
    TBaixaNFePorChaveSefaz::Registrar();

    if (dados.database == Database::DefaultPath() && !QFileInfo::exists(dados.database)
        && !Database::CreateWithSchema(contexto.banco, true, erro)) {
        *erro = QStringLiteral("Não foi possível criar o banco de dados %1: %2").arg(dados.database, *erro);
        return false;
    }
    TConexaoSQL conexao;
    if (!conexao.Conectar()) {
        *erro = conexao.UltimoErro();
        return false;
    }
    contexto.ufEmpresa = TConsultasDBI::UFEmpresa(conexao, contexto.empresa);
    conexao.Desconectar();
    return true;
}

bool CriarBanco(const QString &caminho, bool comDemo, QString *erro)
{
    TDadosBanco banco;
    banco.database = caminho;
    if (Database::CreateWithSchema(banco, comDemo, erro))
        return true;
    *erro = QStringLiteral("Não foi possível criar o banco de dados %1: %2").arg(caminho, *erro);
    return false;
}

} // namespace ModuloPavrel
