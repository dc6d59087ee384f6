#pragma once

// Building blocks shared by the panels: fields sized for what they hold.

#include <QString>

class QComboBox;
class QWidget;
class TNumEditBR;

namespace CamposTela {

// Room for `amostra` in the field's font plus its frame and margins.
int LarguraPara(const QWidget *campo, const QString &amostra);
// A numeric edit as wide as its largest value.
TNumEditBR *NovoNum(QWidget *pai, const char *nome, int decimais, int digitosInteiros, int maxLen = 0);
// The width follows `caracteres`, never the longest text loaded later, so a long name cannot
// push the other fields out of the panel.
QComboBox *NovoCombo(QWidget *pai, const char *nome, int caracteres, bool cresce = false);

} // namespace CamposTela
