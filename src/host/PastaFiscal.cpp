#include "PastaFiscal.h"

#include "Config.h"
#include "Contexto.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString ResolverPastaFiscal(const QString &opcao)
{
    if (!opcao.trimmed().isEmpty())
        return opcao.trimmed();
    const QString ambiente = qEnvironmentVariable("PAVREL_FISCAL_FOLDER").trimmed();
    if (!ambiente.isEmpty())
        return ambiente;
    const QString configurada = ConfigLerStr(QStringLiteral("PASTA_FISCAL")).trimmed();
    if (!configurada.isEmpty())
        return configurada;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/fiscal");
}

QString PastaFiscal(QString *erro)
{
    QString &pasta = Contexto::Atual().pastaFiscal;
    if (pasta.isEmpty())
        pasta = ResolverPastaFiscal(QString());
    const QString caminho = QDir::cleanPath(QDir(pasta).absolutePath());
    if (!QDir().mkpath(caminho) || !QFileInfo(caminho).isDir()) {
        if (erro)
            *erro = QStringLiteral("Não foi possível criar a pasta fiscal %1").arg(QDir::toNativeSeparators(caminho));
        return {};
    }
    return caminho + QLatin1Char('/');
}
