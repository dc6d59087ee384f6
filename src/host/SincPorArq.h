#pragma once

#include "Contexto.h"
#include "Firebird.h"

#include <QString>

#include <memory>

// A named lock shared by every process and workstation on one database: holding it is holding
// an uncommitted update of its row in `sinc_trava`, so the server frees it when the holder dies.
class TSincPorArq final
{
public:
    TSincPorArq(const QString &nome, const QString &texto, const QString &classe, int segundos, TDadosBanco banco);
    ~TSincPorArq() { Liberar(); }
    TSincPorArq(const TSincPorArq &) = delete;
    TSincPorArq &operator=(const TSincPorArq &) = delete;

    // Waits at most the given seconds; false when another holder keeps it (or the database fails).
    bool Adquirir();
    void Liberar();
    bool Adquirida() const { return m_anexacao.EmTransacao(); }
    // The last Adquirir failed only because another holder kept the lock.
    bool EmUso() const { return m_emUso; }
    QString UltimoErro() const { return m_erro; }

private:
    bool garantirLinha();

    QString m_nome, m_texto, m_classe;
    int m_segundos;
    TDadosBanco m_banco;
    Firebird::TAnexacao m_anexacao;
    QString m_erro;
    bool m_emUso = false;
};

// The lock on the context's database. `flag` is kept for the callers' sake and changes nothing.
std::unique_ptr<TSincPorArq> SincPorArq_Create(const QString &nome, const QString &texto, const QString &classe,
                                               int segundos, bool flag);
