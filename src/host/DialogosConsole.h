#pragma once

#include "Dialogos.h"

#include <QTextStream>

// Dialogs of the headless commands, and the default where no screen installed real ones:
// messages go to standard error prefixed by their kind; questions take the answer given on the
// command line (--yes), otherwise no.
class TDialogosConsole final : public TDialogos
{
public:
    explicit TDialogosConsole(bool respostaSim, QTextStream &saida);

    void Mensagem(TipoMensagem tipo, const QString &texto) override;
    bool Perguntar(TipoPergunta tipo, const QString &texto) override;
    QString SelecionarArquivo(const QString &titulo, const QString &pasta, const QString &filtro,
                              bool salvar) override;
    bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor) override;

private:
    bool m_respostaSim;
    QTextStream &m_saida;
};
