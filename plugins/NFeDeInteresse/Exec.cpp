// The documents addressed to the company: the module's one entry.
#include <QWidget>

extern "C" __attribute__((visibility("default"))) void Exec(QWidget *, const char *, int, int)
{
}
