#include "ChaveNFe.h"

#include "TNFe_XMLI.h"

#include <QFile>
#include <QFileInfo>

namespace ChaveNFe {

QChar Digito(QStringView chave43)
{
    int soma = 0;
    int peso = 2;
    for (qsizetype i = chave43.size() - 1; i >= 0; --i) {
        soma += (chave43[i].unicode() - '0') * peso;
        peso = peso == 9 ? 2 : peso + 1;
    }
    const int resto = soma % 11;
    return QLatin1Char(resto < 2 ? '0' : char('0' + 11 - resto));
}

bool DigitoConfere(QStringView chave44)
{
    return chave44.size() == 44 && Digito(chave44.first(43)) == chave44.back();
}

} // namespace ChaveNFe

QString NomeXMLToNFEChave(const QString &FileName)
{
    const QFileInfo info(FileName);
    QFile arquivo(FileName);
    if (!info.isFile() || info.size() > TNFe_XMLI::TamanhoMaximo || !arquivo.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    const QString texto = QString::fromUtf8(arquivo.readAll());
    const qsizetype ini = texto.indexOf(QLatin1String("<infNFe"));
    if (ini < 0)
        return {};
    QStringView resto = QStringView(texto).mid(ini, 80);
    const qsizetype id = resto.indexOf(QLatin1String("Id="));
    if (id < 0)
        return {};
    resto = resto.mid(id);
    const qsizetype abre = resto.indexOf(QLatin1Char('"'));
    if (abre < 0)
        return {};
    resto = resto.mid(abre + 1);
    const qsizetype fecha = resto.indexOf(QLatin1Char('"'));
    if (fecha < 0)
        return {};
    QString digitos;
    for (const QChar c : resto.first(fecha))
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digitos += c;
    return digitos;
}
