// The functions a host finds in libpavrel.so by name.
#include "ComandosHeadless.h"
#include "Contexto.h"
#include "Dialogos.h"
#include "DialogosQt.h"
#include "ModuloPavrel.h"
#include "PavrelExports.h"
#include "TProgressForm.h"
#include "TRepF.h"
#include "UNfeChavesRefListaExec.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QVariant>

namespace {

// The screen shows real dialogs and the host's progress window, unless whoever opens it (a
// test) installed its own.
void InstalarJanelas()
{
    static TDialogosQt dialogos;
    static TProgressForm progresso;
    if (!TDialogos::Definido())
        TDialogos::Definir(&dialogos);
    if (!TProgresso::JanelaDefinida())
        TProgresso::DefinirJanela(&progresso);
}

} // namespace

extern "C" {

Q_DECL_EXPORT const char *PavrelVersao()
{
    static const QByteArray versao = ModuloPavrel::Versao().toUtf8();
    return versao.constData();
}

Q_DECL_EXPORT bool PavrelIniciar(const char *database, int empresa, int estacao, int modoDebug, QString *erro)
{
    TDadosHost dados;
    dados.database = QString::fromUtf8(database);
    dados.empresa = empresa;
    dados.estacao = estacao;
    dados.modoDebug = modoDebug;
    return ModuloPavrel::Iniciar(dados, erro);
}

Q_DECL_EXPORT bool PavrelCriarBanco(const char *caminho, bool comDemo, QString *erro)
{
    return ModuloPavrel::CriarBanco(QString::fromUtf8(caminho), comDemo, erro);
}

Q_DECL_EXPORT int PavrelExecutar(const QStringList *argumentos)
{
    QTextStream saida(stdout);
    QTextStream erros(stderr);
    return ComandosHeadless::Executar(*argumentos, saida, erros);
}

// The entry a host calls: a new screen, handed over as the QWidget* it is. The host shows it
// and frees it; until then it goes with the application.
Q_DECL_EXPORT QVariant AbrirRep()
{
    InstalarJanelas();
    if (Contexto::Atual().banco.database.isEmpty()) {
        QString erro;
        if (!ModuloPavrel::Iniciar(TDadosHost{}, &erro)) {
            MensagemErro(erro);
            return {};
        }
    }
    auto *tela = new TRepF;
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, tela, &QObject::deleteLater);
    return QVariant::fromValue(static_cast<QWidget *>(tela));
}

Q_DECL_EXPORT bool NfeChavesRefListaExec(int emprCod, int estacaoCod, int compraCod, int emprCodSelecionada,
                                         QStringList *chaves, TConexaoSQL *conexao, const QString *uf,
                                         const QString *textoContexto1, const QMetaObject *classeTela,
                                         const QString *textoContexto2, int valorContexto)
{
    InstalarJanelas();
    return NfeChavesRefListaExec(emprCod, estacaoCod, compraCod, emprCodSelecionada, *chaves, *conexao, *uf,
                                 *textoContexto1, classeTela, *textoContexto2, valorContexto);
}

} // extern "C"
