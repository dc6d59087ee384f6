#include "DialogosConsole.h"

TDialogosConsole::TDialogosConsole(bool respostaSim, QTextStream &saida)
    : m_respostaSim(respostaSim), m_saida(saida)
{
}

static QString prefixo(TipoMensagem tipo)
{
    switch (tipo) {
    case TipoMensagem::Erro: return QStringLiteral("erro");
    case TipoMensagem::Info: return QStringLiteral("informação");
    case TipoMensagem::Aviso: return QStringLiteral("aviso");
    case TipoMensagem::Proib: return QStringLiteral("proibido");
    case TipoMensagem::Simples: break;
    }
    return QStringLiteral("mensagem");
}

void TDialogosConsole::Mensagem(TipoMensagem tipo, const QString &texto)
{
    m_saida << prefixo(tipo) << ": " << texto << Qt::endl;
}

bool TDialogosConsole::Perguntar(TipoPergunta, const QString &texto)
{
    m_saida << "pergunta: " << texto << (m_respostaSim ? " -> sim (--yes)" : " -> não (use --yes para confirmar)")
            << Qt::endl;
    return m_respostaSim;
}

QString TDialogosConsole::SelecionarArquivo(const QString &titulo, const QString &, const QString &, bool)
{
    m_saida << "arquivo: " << titulo << " -> nenhum escolhido" << Qt::endl;
    return {};
}

bool TDialogosConsole::PerguntarQtd(const QString &titulo, const QString &texto, double, double &)
{
    m_saida << "pergunta: " << titulo << ": " << texto << " -> nenhuma quantidade" << Qt::endl;
    return false;
}
