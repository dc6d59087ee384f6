#pragma once

// The entry points of libpavrel.so, for hosts that load it at run time.

#include <QStringList>
#include <QVariant>

class QMetaObject;
class TConexaoSQL;

extern "C" {
using PavrelVersaoFn = const char *(*)();
// database may be empty (environment, then the default file); 0 for company or station means
// the environment, then 1.
// The fiscal folder comes from PAVREL_FISCAL_FOLDER, the configuration store, then the default.
using PavrelIniciarFn = bool (*)(const char *database, int empresa, int estacao, int modoDebug, QString *erro);
using PavrelCriarBancoFn = bool (*)(const char *caminho, bool comDemo, QString *erro);
// A headless command ("notes" and its options); the process exit code.
using PavrelExecutarFn = int (*)(const QStringList *argumentos);
// The screen, as a QVariant holding its QWidget*; a null variant when the module cannot start.
using AbrirRepFn = QVariant (*)();
// The reference-key list of a note, edited in place in chaves (at least five items on return);
// true when the user confirmed.
using NfeChavesRefListaExecFn = bool (*)(int emprCod, int estacaoCod, int compraCod, int emprCodSelecionada,
                                         QStringList *chaves, TConexaoSQL *conexao, const QString *uf,
                                         const QString *textoContexto1, const QMetaObject *classeTela,
                                         const QString *textoContexto2, int valorContexto);
}
