#include "TextosHost.h"

QString DataSetStateToString(TDataSetState estado, const QString &nome, int estilo)
{
    QString palavra;
    switch (estado) {
    case TDataSetState::Inactive: palavra = QStringLiteral("Inativo"); break;
    case TDataSetState::Browse: palavra = QStringLiteral("Consultando"); break;
    case TDataSetState::Edit: palavra = QStringLiteral("Alterando"); break;
    case TDataSetState::Insert: palavra = QStringLiteral("Inserindo"); break;
    }
    if (estilo == 2 && !nome.isEmpty())
        return nome + QStringLiteral(" - ") + palavra;
    return palavra;
}
