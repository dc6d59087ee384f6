#include "Dialogos.h"

#include "DialogosConsole.h"

#include <QTextStream>

static TDialogos *g_dialogos = nullptr;

TDialogos &TDialogos::Atual()
{
    // Nobody installed real dialogs: nothing may wait for an answer that cannot come.
    static QTextStream erros(stderr);
    static TDialogosConsole padrao(false, erros);
    return g_dialogos ? *g_dialogos : padrao;
}

void TDialogos::Definir(TDialogos *dialogos)
{
    g_dialogos = dialogos;
}

TDialogos *TDialogos::Definido()
{
    return g_dialogos;
}

void MensagemErro(const QString &texto) { TDialogos::Atual().Mensagem(TipoMensagem::Erro, texto); }
void MensagemInfo(const QString &texto) { TDialogos::Atual().Mensagem(TipoMensagem::Info, texto); }
void MensagemAviso(const QString &texto) { TDialogos::Atual().Mensagem(TipoMensagem::Aviso, texto); }
void MensagemProib(const QString &texto) { TDialogos::Atual().Mensagem(TipoMensagem::Proib, texto); }
void ExibirMens(const QString &texto) { TDialogos::Atual().Mensagem(TipoMensagem::Simples, texto); }

bool Pergunta(const QString &texto)
{
    return TDialogos::Atual().Perguntar(TipoPergunta::SimNao, texto);
}

bool PerguntaDeletar()
{
    return TDialogos::Atual().Perguntar(TipoPergunta::Deletar, TextoPerguntaDeletar);
}

bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor)
{
    return TDialogos::Atual().PerguntarQtd(titulo, texto, maximo, valor);
}

QString SelectFile(const QString &titulo, const QString &pasta, const QString &filtro, bool salvar)
{
    return TDialogos::Atual().SelecionarArquivo(titulo, pasta, filtro, salvar);
}
