#include "Debug.h"

#include "Contexto.h"
#include "Dialogos.h"

TRastroDebug::TRastroDebug(int nivel) : m_nivel(nivel) {}

bool TRastroDebug::Ativo() const
{
    return Contexto::Atual().modoDebug == m_nivel;
}

void TRastroDebug::Add(const QString &linha)
{
    if (Ativo())
        m_linhas << linha;
}

void TRastroDebug::Exibir(const QString &cabecalho) const
{
    if (Ativo())
        ExibirMens(cabecalho + Texto());
}

QString TRastroDebug::CabecalhoLongo(int nivel, const QString &rotina)
{
    return QStringLiteral("modo_debug=%1\r\n%2\r\n\r\n").arg(nivel).arg(rotina);
}

QString TRastroDebug::CabecalhoCurto(int nivel, const QString &rotina)
{
    return QStringLiteral("modo debug %1;%2").arg(nivel).arg(rotina);
}
