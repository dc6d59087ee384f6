#pragma once

#include <QString>

class QWidget;

// The host's correction-letter component: the letters already sent for an NF-e, a new one
// (15 to 1,000 characters) sent to the authority, and any of them printed.
class TNfeCorrI
{
public:
    static void EditarNfeCorr(const QString &chave, int docTipo, const QString &descricao, QWidget *pai = nullptr);
};
