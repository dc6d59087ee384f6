#include "FirebirdPool.h"

#include <QThread>

namespace Firebird {

Pool &Pool::Instancia()
{
    // Never destroyed: connections held by other statics may be returned during exit.
    static Pool *pool = new Pool;
    return *pool;
}

QString Pool::Obter(const TDadosBanco &banco, Falha *falha)
{
    const Qt::HANDLE thread = QThread::currentThreadId();
    {
        QMutexLocker trava(&m_mutex);
        for (Entrada &e : m_entradas) {
            if (!e.emUso && e.thread == thread && e.banco == banco && e.anexacao->Anexada()) {
                e.emUso = true;
                return e.nome;
            }
        }
    }
    auto anexacao = std::make_unique<TAnexacao>();
    // A server that has just restarted may refuse the first attempt.
    if (!anexacao->Anexar(banco, falha) && (!falha->ConexaoPerdida() || !anexacao->Anexar(banco, falha)))
        return {};
    ++m_abertas;
    QMutexLocker trava(&m_mutex);
    const QString nome = QStringLiteral("pavrel-%1").arg(++m_sequencia);
    m_entradas.push_back({nome, banco, thread, true, std::move(anexacao)});
    return nome;
}

Pool::Entrada *Pool::entrada(const QString &nome)
{
    for (Entrada &e : m_entradas) {
        if (e.nome == nome)
            return &e;
    }
    return nullptr;
}

void Pool::Devolver(const QString &nome)
{
    QMutexLocker trava(&m_mutex);
    if (Entrada *e = entrada(nome))
        e->emUso = false;
}

TAnexacao *Pool::Anexacao(const QString &nome)
{
    QMutexLocker trava(&m_mutex);
    Entrada *e = entrada(nome);
    return e ? e->anexacao.get() : nullptr;
}

bool Pool::Reanexar(const QString &nome, Falha *falha)
{
    TDadosBanco banco;
    TAnexacao *anexacao = nullptr;
    {
        QMutexLocker trava(&m_mutex);
        Entrada *e = entrada(nome);
        if (!e)
            return false;
        banco = e->banco;
        anexacao = e->anexacao.get();
    }
    if (!anexacao->Anexar(banco, falha))
        return false;
    ++m_abertas;
    return true;
}

void Pool::FecharOciosas(const QString &database)
{
    QMutexLocker trava(&m_mutex);
    std::erase_if(m_entradas, [&database](const Entrada &e) {
        return !e.emUso && (database.isEmpty() || e.banco.database == database);
    });
}

} // namespace Firebird
