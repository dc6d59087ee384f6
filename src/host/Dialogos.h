#pragma once

#include <QString>

enum class TipoMensagem { Erro, Info, Aviso, Proib, Simples };
enum class TipoPergunta { SimNao, Deletar };

// Every message, question and file choice the module shows goes through the current
// implementation: real dialogs on screen, a console in headless commands, a script in tests.
class TDialogos
{
public:
    virtual ~TDialogos() = default;

    virtual void Mensagem(TipoMensagem tipo, const QString &texto) = 0;
    // True on yes.
    virtual bool Perguntar(TipoPergunta tipo, const QString &texto) = 0;
    // The chosen file, or empty when the user gave up.
    virtual QString SelecionarArquivo(const QString &titulo, const QString &pasta,
                                      const QString &filtro, bool salvar) = 0;
    // A whole number from 0 to `maximo`, starting at `valor`; true and `valor` set on OK.
    virtual bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor) = 0;

    static TDialogos &Atual();
    // Not owned; nullptr restores the default (the console, answering no).
    static void Definir(TDialogos *dialogos);
    // The one set by Definir, or nullptr for the default.
    static TDialogos *Definido();
};

inline const QString TextoPerguntaDeletar = QStringLiteral("Confirma a exclusão do registro?");

void MensagemErro(const QString &texto);
void MensagemInfo(const QString &texto);
void MensagemAviso(const QString &texto);
void MensagemProib(const QString &texto);
// A plain message box, as the debug traces use.
void ExibirMens(const QString &texto);
bool Pergunta(const QString &texto);
bool PerguntaDeletar();
// The limited-quantity question: caption, prompt, upper limit; the answer in `valor`.
bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor);
QString SelectFile(const QString &titulo, const QString &pasta, const QString &filtro, bool salvar = false);
