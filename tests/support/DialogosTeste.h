#pragma once

#include "Dialogos.h"

#include <QList>
#include <QString>

#include <optional>

// Records every message and answers questions from a script; a question nobody scripted fails
// the test. Installed as the current dialogs while it lives.
class DialogosTeste final : public TDialogos
{
public:
    struct Registro
    {
        TipoMensagem tipo;
        QString texto;
        bool operator==(const Registro &) const = default;
    };
    struct Questao
    {
        TipoPergunta tipo;
        QString texto;
    };
    struct QuestaoQtd
    {
        QString titulo, texto;
        double maximo;
    };

    DialogosTeste();
    ~DialogosTeste() override;

    // Answers, in order, for the questions to come.
    void Responder(bool resposta) { m_respostas << resposta; }
    // The files chosen, in order, for the file choices to come; each choice offered is kept.
    void ResponderArquivo(const QString &arquivo) { m_arquivos << arquivo; }
    struct EscolhaArquivo
    {
        QString titulo, pasta, filtro;
    };
    const QList<EscolhaArquivo> &EscolhasArquivo() const { return m_escolhas; }
    // Answers to the quantity questions, in order; nullopt cancels.
    void ResponderQtd(std::optional<double> qtd) { m_qtds << qtd; }

    const QList<Registro> &Mensagens() const { return m_mensagens; }
    const QList<Questao> &Perguntas() const { return m_perguntas; }
    const QList<QuestaoQtd> &PerguntasQtd() const { return m_perguntasQtd; }
    // The only message shown, or an empty text with a failure when there were none or several.
    QString UnicaMensagem(TipoMensagem tipo) const;
    void Limpar() { m_mensagens.clear(); m_perguntas.clear(); }

    void Mensagem(TipoMensagem tipo, const QString &texto) override;
    bool Perguntar(TipoPergunta tipo, const QString &texto) override;
    QString SelecionarArquivo(const QString &titulo, const QString &pasta, const QString &filtro,
                              bool salvar) override;
    bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor) override;

private:
    QList<Registro> m_mensagens;
    QList<Questao> m_perguntas;
    QList<bool> m_respostas;
    QList<QuestaoQtd> m_perguntasQtd;
    QList<std::optional<double>> m_qtds;
    QList<QString> m_arquivos;
    QList<EscolhaArquivo> m_escolhas;
};
