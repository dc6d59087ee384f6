#pragma once

#include <QList>

#include <functional>

class QDialog;

// Shows a dialog modally, unless a script stands in for the user: then the script's next answer
// gets the real dialog (to fill its fields and press its buttons) and returns its result.
int ExecutarModal(QDialog &dialogo);

// The user's answers to the modal dialogs to come, in order (tests). While it lives, a dialog
// with no answer left is rejected and counted instead of waiting for a user who is not there.
class TRoteiroModal final
{
public:
    using Resposta = std::function<int(QDialog &)>;

    TRoteiroModal();
    ~TRoteiroModal();
    TRoteiroModal(const TRoteiroModal &) = delete;
    TRoteiroModal &operator=(const TRoteiroModal &) = delete;

    void Responder(Resposta resposta) { m_respostas << std::move(resposta); }
    int Pendentes() const { return int(m_respostas.size()); }
    int SemResposta() const { return m_semResposta; }
    int Executar(QDialog &dialogo);

private:
    QList<Resposta> m_respostas;
    int m_semResposta = 0;
};
