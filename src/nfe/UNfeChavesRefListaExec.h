#pragma once

#include <QString>
#include <QStringList>

class QMetaObject;
class QWidget;
class TConexaoSQL;

// Opens the reference-key list of a note on chaves. On OK chaves becomes the keys of the list;
// on cancel it keeps the keys it had, blanks squeezed out. Either way it ends with at least five
// items (blanks at the end). True when the user confirmed.
// uf, textoContexto1, classeTela, textoContexto2 and valorContexto come from the host's context
// and only pass through to the key-download dialog.
bool NfeChavesRefListaExec(int empr_cod, int estacao_cod, int compra_cod, int emprCodSelecionada,
                           QStringList &chaves, TConexaoSQL &conexao, const QString &uf,
                           const QString &textoContexto1, const QMetaObject *classeTela,
                           const QString &textoContexto2, int valorContexto, QWidget *parent = nullptr);
