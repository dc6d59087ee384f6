#pragma once

#include "Firebird.h"

#include <QMutex>

#include <atomic>

#include <memory>
#include <vector>

namespace Firebird {

// The attachments of the process, each owned by the thread that opened it and lent by name to
// one connection at a time.
class Pool final
{
public:
    static Pool &Instancia();

    // An idle attachment of this thread to the database, or a new one; empty on failure.
    QString Obter(const TDadosBanco &banco, Falha *falha);
    void Devolver(const QString &nome);
    // The attachment lent under `nome`; nullptr for an unknown name.
    TAnexacao *Anexacao(const QString &nome);
    // Opens the attachment under `nome` again (after Desanexar); counted as a new one.
    bool Reanexar(const QString &nome, Falha *falha);
    void FecharOciosas(const QString &database);
    int Abertas() const { return m_abertas; }

private:
    struct Entrada
    {
        QString nome;
        TDadosBanco banco;
        Qt::HANDLE thread;
        bool emUso;
        std::unique_ptr<TAnexacao> anexacao;
    };

    Entrada *entrada(const QString &nome);

    QMutex m_mutex;
    std::vector<Entrada> m_entradas;
    int m_sequencia = 0;
    std::atomic<int> m_abertas = 0;
};

} // namespace Firebird
