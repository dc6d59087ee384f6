#pragma once

#include "TConexaoSQL.h"

#include <QString>

// The host's shared connection and the workstation it runs on.
class TConexD final
{
public:
    // The shared connection, always pointing at the context's database.
    static TConexaoSQL &Conexao();
    static bool Executar(const QString &sql) { return Conexao().Exec(sql); }
    static int EstacaoCod() { return Contexto::Atual().estacao; }
    static QString EstacaoCodSQL() { return QString::number(EstacaoCod()); }
};

// Single values from the shared connection: the first column of the first row.
QString ValorString(const QString &sql);
int Inteiro(const QString &sql);

class TTerminalModoOper final
{
public:
    // Whether the database can be reached: the file is there, or the server answers on its
    // port. Every write checks this first so that a lost server gives one clear message.
    static bool ConectouServidor();
    static bool ConectouServidor(const QString &database);
};
