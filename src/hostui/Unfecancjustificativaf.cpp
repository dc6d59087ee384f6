#include "Unfecancjustificativaf.h"

TNfeCancJustificativaF::TNfeCancJustificativaF(int, QWidget *parent) : QDialog(parent) {}

bool TNfeCancJustificativaF::Perguntar(int, QString &)
{
    return false;
}
