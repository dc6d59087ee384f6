#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

// Where the module's database lives and who is working: handed over by the host, or taken from
// the environment when the module runs on its own. One per process.
struct TDadosBanco
{
    QString database;               // a file path (embedded engine) or "host[/port]:path" (server)
    QString usuario = QStringLiteral("SYSDBA");
    QString senha = QStringLiteral("masterkey");

    bool operator==(const TDadosBanco &) const = default;
};

class Contexto final
{
public:
    static Contexto &Atual();

    TDadosBanco banco;
    int empresa = 1;
    int estacao = 1;
    QString usuario = QStringLiteral("PAVREL");
    QString pastaFiscal;            // where the supplier XML files are filed
    QString ufEmpresa;              // state of the current company
    int modoDebug = 0;              // a routine whose own number equals this shows its trace

    QDate Hoje() const { return Agora().date(); }
    QDateTime Agora() const { return m_relogio ? m_relogio() : QDateTime::currentDateTime(); }
    // Tests fix the clock; an empty function gives the real one back.
    void DefinirRelogio(std::function<QDateTime()> relogio) { m_relogio = std::move(relogio); }

    // Back to a freshly started process (tests).
    void Reiniciar();

private:
    std::function<QDateTime()> m_relogio;
};
