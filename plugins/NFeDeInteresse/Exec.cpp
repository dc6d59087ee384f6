// The documents addressed to the company: the module's one entry.
#include "Contexto.h"
#include "Dialogos.h"
#include "DialogosQt.h"
#include "PastaFiscal.h"
#include "TConexaoSQL.h"
#include "TNFeDeInteresseF.h"

// This library carries its own copy of the platform (linked with every other symbol local), so
// it sets up its own context, dialogs and database attachments from what it is given, and
// closes the attachments before it is unloaded.
extern "C" __attribute__((visibility("default"))) void Exec(QWidget *parent, const char *database, int empresa, int estacao)
{
    Contexto &contexto = Contexto::Atual();
    contexto.banco.database = QString::fromUtf8(database);
    contexto.empresa = empresa;
    contexto.estacao = estacao;
    contexto.pastaFiscal = ResolverPastaFiscal(QString());
    TDialogosQt dialogos;
    TDialogos::Definir(&dialogos);
    {
        TConexaoSQL conexao;
        TNFeDeInteresseF janela(conexao, empresa, parent);
        janela.exec();
    }
    TDialogos::Definir(nullptr);
    TConexaoSQL::FecharOciosas();
}
