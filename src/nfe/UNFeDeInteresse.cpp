#include "UNFeDeInteresse.h"

#include "Contexto.h"
#include "Dialogos.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QStringList>

#include <dlfcn.h>

namespace {

const QString NomeModulo = QStringLiteral("NFeDeInteresse");

QStringList Pastas()
{
    QStringList pastas{QCoreApplication::applicationDirPath()};
    Dl_info info{};
    if (dladdr(reinterpret_cast<void *>(&ExecutarNFeDeInteresse), &info) && info.dli_fname) {
        const QString daBiblioteca = QFileInfo(QString::fromLocal8Bit(info.dli_fname)).absolutePath();
        if (!pastas.contains(daBiblioteca))
            pastas << daBiblioteca;
    }
    return pastas;
}

} // namespace

bool ExecutarNFeDeInteresse(QWidget *parent)
{
    QLibrary modulo;
    QStringList tentados;
    for (const QString &pasta : Pastas()) {
        modulo.setFileName(QDir(pasta).filePath(NomeModulo));
        if (modulo.load())
            break;
        tentados << QDir::toNativeSeparators(pasta);
    }
    if (!modulo.isLoaded()) {
        MensagemErro(QStringLiteral("O módulo %1 não está instalado (procurado em %2)").arg(NomeModulo, tentados.join(QStringLiteral(", "))));
        return false;
    }
    const auto exec = reinterpret_cast<TNFeDeInteresseExec>(modulo.resolve("Exec"));
    if (!exec) {
        MensagemErro(QStringLiteral("O módulo %1 não tem a entrada Exec (%2)").arg(NomeModulo, modulo.fileName()));
        modulo.unload();
        return false;
    }
    const Contexto &ctx = Contexto::Atual();
    exec(parent, ctx.banco.database.toUtf8().constData(), ctx.empresa, ctx.estacao);
    modulo.unload();
    return true;
}
