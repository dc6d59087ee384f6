#include "DialogosTeste.h"

#include <gtest/gtest.h>

DialogosTeste::DialogosTeste()
{
    TDialogos::Definir(this);
}

DialogosTeste::~DialogosTeste()
{
    TDialogos::Definir(nullptr);
    EXPECT_TRUE(m_respostas.isEmpty() && m_qtds.isEmpty() && m_arquivos.isEmpty())
        << m_respostas.size() + m_qtds.size() + m_arquivos.size() << " scripted answer(s) never asked for";
}

QString DialogosTeste::UnicaMensagem(TipoMensagem tipo) const
{
    QStringList textos;
    for (const Registro &r : m_mensagens)
        textos << r.texto;
    if (m_mensagens.size() != 1 || m_mensagens.first().tipo != tipo) {
        ADD_FAILURE() << "expected exactly one message of kind " << int(tipo) << ", got: "
                      << textos.join(QStringLiteral(" | ")).toStdString();
        return {};
    }
    return m_mensagens.first().texto;
}

void DialogosTeste::Mensagem(TipoMensagem tipo, const QString &texto)
{
    m_mensagens.push_back({tipo, texto});
}

bool DialogosTeste::Perguntar(TipoPergunta tipo, const QString &texto)
{
    m_perguntas.push_back({tipo, texto});
    if (m_respostas.isEmpty()) {
        ADD_FAILURE() << "unscripted question: " << texto.toStdString();
        return false;
    }
    return m_respostas.takeFirst();
}

QString DialogosTeste::SelecionarArquivo(const QString &titulo, const QString &pasta, const QString &filtro, bool)
{
    m_escolhas.push_back({titulo, pasta, filtro});
    if (m_arquivos.isEmpty()) {
        ADD_FAILURE() << "unscripted file choice";
        return {};
    }
    return m_arquivos.takeFirst();
}

bool DialogosTeste::PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor)
{
    m_perguntasQtd.push_back({titulo, texto, maximo});
    if (m_qtds.isEmpty()) {
        ADD_FAILURE() << "unscripted quantity question: " << texto.toStdString();
        return false;
    }
    const std::optional<double> resposta = m_qtds.takeFirst();
    if (resposta)
        valor = *resposta;
    return resposta.has_value();
}
