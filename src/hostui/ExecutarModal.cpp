#include "ExecutarModal.h"

#include <QDialog>

namespace {
TRoteiroModal *g_roteiro = nullptr;
}

int ExecutarModal(QDialog &dialogo)
{
    return g_roteiro ? g_roteiro->Executar(dialogo) : dialogo.exec();
}

TRoteiroModal::TRoteiroModal()
{
    g_roteiro = this;
}

TRoteiroModal::~TRoteiroModal()
{
    g_roteiro = nullptr;
}

int TRoteiroModal::Executar(QDialog &dialogo)
{
    if (m_respostas.isEmpty()) {
        ++m_semResposta;
        return QDialog::Rejected;
    }
    return m_respostas.takeFirst()(dialogo);
}
