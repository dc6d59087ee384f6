#include "TrazerXML.h"

#include "Dialogos.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// The month folder "yyyy/mm" of the date of issue, read as the clerk's own date-time
// ("dd/mm/yyyy hh:nn:ss") from the characters of the ISO text; empty when it is not one.
QString PastaDoMes(const QByteArray &xml)
{
    const QByteArray abre = "<dhEmi>";
    const qsizetype ini = xml.indexOf(abre);
    const qsizetype fim = ini < 0 ? -1 : xml.indexOf("</dhEmi>", ini);
    if (fim < 0)
        return {};
    const QString dh = QString::fromUtf8(xml.mid(ini + abre.size(), fim - ini - abre.size()));
    const QString regional = dh.mid(8, 2) + u'/' + dh.mid(5, 2) + u'/' + dh.mid(0, 4) + u' ' + dh.mid(11, 8);
    const QDateTime emissao = QDateTime::fromString(regional, QStringLiteral("dd/MM/yyyy HH:mm:ss"));
    if (!emissao.isValid())
        return {};
    return emissao.toString(QStringLiteral("yyyy")) + u'/' + emissao.toString(QStringLiteral("MM"));
}

bool MesmoArquivo(const QFileInfo &a, const QFileInfo &b)
{
    if (a.absoluteFilePath().compare(b.absoluteFilePath(), Qt::CaseInsensitive) == 0)
        return true;
    // Another spelling of the same file (a link in the way) must not be copied onto itself.
    return b.exists() && a.canonicalFilePath() == b.canonicalFilePath();
}

} // namespace

QString TrazerXML(const QString &FileName, const QString &pastaFiscal)
{
    const QFileInfo origem(FileName);
    if (!origem.isFile())
        return {};
    QFile arquivo(FileName);
    if (!arquivo.open(QIODevice::ReadOnly)) {
        MensagemErro(QStringLiteral("Erro lendo o XML %1: %2").arg(FileName, arquivo.errorString()));
        return {};
    }
    const QString mes = PastaDoMes(arquivo.readAll());
    arquivo.close();

    QString pasta = QDir(pastaFiscal).filePath(QStringLiteral("NFe_Entr"));
    if (!mes.isEmpty())
        pasta = QDir(pasta).filePath(mes);
    if (!QDir().mkpath(pasta)) {
        MensagemErro(QStringLiteral("Erro criando a pasta %1").arg(QDir::toNativeSeparators(pasta)));
        return {};
    }
    const QFileInfo destino(QDir(pasta).filePath(origem.fileName()));
    if (MesmoArquivo(origem, destino))
        return destino.absoluteFilePath();

    // Copied beside the target first, so that a failed copy leaves the old file in place.
    const QString temporario = destino.absoluteFilePath() + QStringLiteral(".copiando");
    QFile::remove(temporario);
    QFile copia(FileName);
    const bool copiou = copia.copy(temporario);
    if (!copiou || (destino.exists() && !QFile::remove(destino.absoluteFilePath()))
        || !QFile::rename(temporario, destino.absoluteFilePath())) {
        const QString motivo = copiou ? QStringLiteral("o arquivo de destino não pôde ser substituído") : copia.errorString();
        QFile::remove(temporario);
        MensagemErro(QStringLiteral("Erro copiando o XML %1 para %2: %3")
                         .arg(QDir::toNativeSeparators(FileName), QDir::toNativeSeparators(destino.absoluteFilePath()), motivo));
        return {};
    }
    return destino.absoluteFilePath();
}
