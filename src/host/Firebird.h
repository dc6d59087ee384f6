#pragma once

// A thin client over Firebird's ISC API: one attachment, its transaction, and statements whose
// rows are read whole into variants.

#include "Contexto.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <ibase.h>

#include <vector>

namespace Firebird {

// Where a call failed: up to Preparar nothing of the statement ran.
enum class Etapa { Anexar, Iniciar, Preparar, Executar, Confirmar };

struct Falha
{
    Etapa etapa = Etapa::Anexar;
    std::vector<ISC_STATUS> codigos;    // the status vector's error codes, in order
    QString texto;                      // the engine's message
    bool esperaEsgotada = false;        // the row stayed held for the whole wait

    bool Contem(ISC_STATUS codigo) const;
    // The attachment is gone (network, server restart, attachment killed): never reuse it.
    bool ConexaoPerdida() const;
    // Another transaction changed or locks the row; a fresh transaction may succeed.
    bool Conflito() const;
    bool EsperaEsgotada() const { return esperaEsgotada || Contem(isc_lock_timeout); }
};

struct Transacao
{
    // Seconds a statement waits for a row another transaction locks; 0 does not wait.
    int esperaSegundos = 10;
};

struct Resultado
{
    QStringList colunas;
    QVector<QVector<QVariant>> linhas;
    bool consulta = false;              // a select (reads only)
};

class TAnexacao final
{
public:
    TAnexacao() = default;
    ~TAnexacao();
    TAnexacao(const TAnexacao &) = delete;
    TAnexacao &operator=(const TAnexacao &) = delete;

    bool Anexar(const TDadosBanco &banco, Falha *falha);
    // Rolls back what is open and detaches, ignoring errors: the attachment may be dead already.
    void Desanexar();
    bool Anexada() const { return m_db != 0; }

    bool Iniciar(const Transacao &opcoes, Falha *falha);
    bool Confirmar(Falha *falha);
    void Desfazer();
    bool EmTransacao() const { return m_tr != 0; }

    // Runs one statement in the open transaction. `resultado` receives the rows of a select or
    // the output row of a procedure or block.
    bool Executar(const QString &sql, Resultado *resultado, Falha *falha);

private:
    isc_db_handle m_db = 0;
    isc_tr_handle m_tr = 0;
    int m_espera = 0;
};

// The engine's message for a status vector.
QString Mensagem(const ISC_STATUS *status);

} // namespace Firebird
