#include "UNfeChavesRefListaExec.h"

#include "Debug.h"
#include "ExecutarModal.h"
#include "TNfeChavesRefListaF.h"

bool NfeChavesRefListaExec(int empr_cod, int estacao_cod, int compra_cod, int emprCodSelecionada,
                           QStringList &chaves, TConexaoSQL &conexao, const QString &uf,
                           const QString &textoContexto1, const QMetaObject *classeTela,
                           const QString &textoContexto2, int valorContexto, QWidget *parent)
{
    const TArgsChavesRef args{empr_cod,      estacao_cod,    compra_cod, emprCodSelecionada,
                              &conexao,      uf,             textoContexto1, classeTela,
                              textoContexto2, valorContexto};
    TNfeChavesRefListaF lista(args, parent);
    chaves.removeAll(QString());
    lista.PreencherLista(chaves);
    RastroHook(QStringLiteral("vai NfeChavesRefListaF.Perguntar"));
    const bool confirmou = ExecutarModal(lista) == QDialog::Accepted;
    if (confirmou) {
        RastroHook(QStringLiteral("usuario deu ok, vai gravar"));
        chaves = lista.Chaves();
    } else {
        RastroHook(QStringLiteral("usuario cancelou"));
    }
    while (chaves.size() < 5)
        chaves << QString();
    return confirmou;
}
