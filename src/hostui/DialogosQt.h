#pragma once

#include "Dialogos.h"

// Real message boxes and file dialogs, parented to the active window.
class TDialogosQt final : public TDialogos
{
public:
    void Mensagem(TipoMensagem tipo, const QString &texto) override;
    bool Perguntar(TipoPergunta tipo, const QString &texto) override;
    QString SelecionarArquivo(const QString &titulo, const QString &pasta, const QString &filtro,
                              bool salvar) override;
    bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor) override;
};
