#pragma once

#include "DialogosConsole.h"
#include "TChaveNota.h"

#include <QStringList>

#include <optional>

class QCommandLineParser;
class QTextStream;
class TRepD;

// The commands that run the screen's logic without a screen ("notes", ...). Answers the
// process exit code: 0 done, 1 refused or failed, 2 a command line that makes no sense.
namespace ComandosHeadless {

// The console's dialogs, counting what they show: a refusal that the screen leaves silent (a
// trace only) still needs a line on the console.
class TDialogosContados final : public TDialogos
{
public:
    TDialogosContados(bool respostaSim, QTextStream &erros) : m_console(respostaSim, erros) {}

    void Mensagem(TipoMensagem tipo, const QString &texto) override
    {
        ++m_mostrados;
        m_console.Mensagem(tipo, texto);
    }
    bool Perguntar(TipoPergunta tipo, const QString &texto) override
    {
        ++m_mostrados;
        return m_console.Perguntar(tipo, texto);
    }
    QString SelecionarArquivo(const QString &titulo, const QString &pasta, const QString &filtro, bool salvar) override
    {
        return m_console.SelecionarArquivo(titulo, pasta, filtro, salvar);
    }
    bool PerguntarQtd(const QString &titulo, const QString &texto, double maximo, double &valor) override
    {
        ++m_mostrados;
        return m_console.PerguntarQtd(titulo, texto, maximo, valor);
    }
    int Mostrados() const { return m_mostrados; }

private:
    TDialogosConsole m_console;
    int m_mostrados = 0;
};

int Executar(const QStringList &argumentos, QTextStream &saida, QTextStream &erros);

// A refused command line: what was wrong (when said), then how the command is used. Exit code 2.
int Recusar(QTextStream &erros, const QString &comando, const QString &motivo, const char *uso);

// The note a command names: "EEE-CCCCCCC" or "E-C", "E-S-C" when workstations share a code. The
// station is -1 when not given: any station.
std::optional<TChaveNota> LerNota(const QString &texto);
// The note named by the parsed command line's one positional argument; nullopt once the usage
// refusal has been written (the command then exits with 2).
std::optional<TChaveNota> NotaPedida(const QCommandLineParser &parser, const QString &comando, const char *uso,
                                     QTextStream &erros);
// Reads the one note named into repD's list; a message on `erros` when it is missing or ambiguous.
std::optional<TNotaLinha> LerDoBanco(TRepD &repD, const TChaveNota &pedida, const QString &texto,
                                     const QString &comando, QTextStream &erros);

} // namespace ComandosHeadless
