#include "URepEdit.h"

#include "Dialogos.h"
#include "ExecutarModal.h"
#include "TConexaoSQL.h"
#include "TFiscoConfig.h"
#include "TRepEdit_DBI.h"
#include "URepEditF.h"

#include <QPlainTextEdit>
#include <QScopeGuard>

namespace {

const QString ErroLendo = QStringLiteral("Erro lendo dados do servidor");
const QString ErroGravando = QStringLiteral("Erro gravando dados no servidor");

// Runs `passo` connected. The message alone when the server cannot be reached; with the
// driver's text when the statement fails on it.
template <typename Passo>
bool NoServidor(TConexaoSQL &conexao, TipoMensagem tipo, const QString &mensagem, Passo passo)
{
    if (!conexao.Conectar()) {
        TDialogos::Atual().Mensagem(tipo, mensagem);
        return false;
    }
    const auto soltar = qScopeGuard([&conexao] { conexao.Desconectar(); });
    if (!passo()) {
        TDialogos::Atual().Mensagem(tipo, mensagem + QLatin1Char('\n') + conexao.UltimoErro());
        return false;
    }
    return true;
}

} // namespace

bool TRepEdit::Editar(int empresa, int estacao, int compra, TConexaoSQL &conexao, const QString &titulo, QWidget *pai)
{
    QString contribuinte, fisco;
    return LerCompra(empresa, estacao, compra, conexao, contribuinte, fisco)
           && LerConfig(conexao, contribuinte, fisco) && Perg(contribuinte, fisco, titulo, pai)
           && GravarCompra(empresa, estacao, compra, conexao, contribuinte, fisco);
}

bool TRepEdit::LerCompra(int empresa, int estacao, int compra, TConexaoSQL &conexao, QString &contribuinte,
                         QString &fisco)
{
    return NoServidor(conexao, TipoMensagem::Erro, ErroLendo, [&] {
        const auto lido = TRepEdit_DBI::LerCompra(conexao, {empresa, estacao, compra});
        if (lido) {
            contribuinte = lido->contribuinte;
            fisco = lido->fisco;
        }
        return lido.has_value();
    });
}

bool TRepEdit::LerConfig(TConexaoSQL &conexao, QString &contribuinte, QString &fisco)
{
    return NoServidor(conexao, TipoMensagem::Info, ErroLendo, [&] {
        QString padraoFisco, padraoContribuinte, erro;
        if (!TFiscoConfig::PegaInfoAdic(conexao, &padraoFisco, &padraoContribuinte, &erro))
            return false;
        if (contribuinte.isEmpty())
            contribuinte = padraoContribuinte;
        if (fisco.isEmpty())
            fisco = padraoFisco;
        return true;
    });
}

bool TRepEdit::Perg(QString &contribuinte, QString &fisco, const QString &titulo, QWidget *pai)
{
    TRepEditF dialogo(pai);
    dialogo.setWindowTitle(titulo);
    dialogo.InfAdicFiscoMemo()->setPlainText(fisco);
    dialogo.InfAdicContribuinteMemo()->setPlainText(contribuinte);
    if (ExecutarModal(dialogo) != QDialog::Accepted)
        return false;
    fisco = dialogo.InfAdicFiscoMemo()->toPlainText();
    contribuinte = dialogo.InfAdicContribuinteMemo()->toPlainText();
    return true;
}

bool TRepEdit::GravarCompra(int empresa, int estacao, int compra, TConexaoSQL &conexao, const QString &contribuinte,
                            const QString &fisco)
{
    return NoServidor(conexao, TipoMensagem::Erro, ErroGravando, [&] {
        return TRepEdit_DBI::GravarCompra(conexao, {empresa, estacao, compra}, {contribuinte, fisco});
    });
}
