#pragma once

#include <QString>

// What a host hands the module: where the database is, the company and the workstation.
struct TDadosHost
{
    QString database;       // empty: PAVREL_DATABASE, else the default file
    int empresa = 0;        // 0: PAVREL_COMPANY, else 1
    int estacao = 0;        // 0: PAVREL_STATION, else 1
    int modoDebug = 0;
    QString pastaFiscal;    // empty: PAVREL_FISCAL_FOLDER, the configuration store, the default
};

namespace ModuloPavrel {

QString Versao();
// Fills what the host left empty from the environment and the defaults.
TDadosHost Completar(TDadosHost dados);
// Points the module at the database; the default file is created, with the demo store, on
// first use. False with one line naming the database and the driver's error.
bool Iniciar(const TDadosHost &dados, QString *erro);
bool CriarBanco(const QString &caminho, bool comDemo, QString *erro);

} // namespace ModuloPavrel
