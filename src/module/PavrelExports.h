#pragma once

// The entry points of libpavrel.so, for hosts that load it at run time.

#include <QStringList>
#include <QVariant>

extern "C" {
using PavrelVersaoFn = const char *(*)();
// database may be empty (environment, then the default file); 0 for company or station means
// the environment, then 1.
using PavrelIniciarFn = bool (*)(const char *database, int empresa, int estacao, int modoDebug, QString *erro);
using PavrelCriarBancoFn = bool (*)(const char *caminho, bool comDemo, QString *erro);
// A headless command ("notes" and its options); the process exit code.
using PavrelExecutarFn = int (*)(const QStringList *argumentos);
// The screen, as a QVariant holding its QWidget*; a null variant when the module cannot start.
using AbrirRepFn = QVariant (*)();
}
