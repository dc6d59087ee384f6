#include "CamposTela.h"

#include "TNumEditBR.h"

#include <QComboBox>

#include <algorithm>

namespace CamposTela {

int LarguraPara(const QWidget *campo, const QString &amostra)
{
    return campo->fontMetrics().horizontalAdvance(amostra) + 16;
}

TNumEditBR *NovoNum(QWidget *pai, const char *nome, int decimais, int digitosInteiros, int maxLen)
{
    auto *edit = new TNumEditBR(pai);
    edit->setObjectName(QLatin1String(nome));
    edit->SetDecimals(decimais);
    if (maxLen > 0)
        edit->setMaxLength(maxLen);
    edit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QString amostra(digitosInteiros, QLatin1Char('9'));
    if (decimais > 0)
        amostra += QLatin1Char(',') + QString(decimais, QLatin1Char('9'));
    edit->setFixedWidth(std::max(LarguraPara(edit, amostra), edit->minimumSizeHint().width()));
    return edit;
}

QComboBox *NovoCombo(QWidget *pai, const char *nome, int caracteres, bool cresce)
{
    auto *combo = new QComboBox(pai);
    combo->setObjectName(QLatin1String(nome));
    combo->setEditable(false);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(caracteres);
    combo->setMaxVisibleItems(20);
    combo->setSizePolicy(cresce ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    return combo;
}

} // namespace CamposTela
