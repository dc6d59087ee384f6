#pragma once

#include <QString>
#include <QStringList>

class TConexaoSQL;

// The tax situations as a name/value list: "trib_cod=descr - perc%", the rate shown with "##0".
class TPreencheTribSL final
{
public:
    static QStringList Preencher(TConexaoSQL &conexao);
    static int Codigo(const QString &linha) { return linha.section(QLatin1Char('='), 0, 0).toInt(); }
    static QString Texto(const QString &linha) { return linha.section(QLatin1Char('='), 1); }
};
