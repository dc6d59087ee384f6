#pragma once

#include "TChaveNota.h"

#include <QStringList>

#include <optional>

class QCommandLineParser;
class QTextStream;
class TRepD;

// The commands that run the screen's logic without a screen ("notes", ...). Answers the
// process exit code: 0 done, 1 refused or failed, 2 a command line that makes no sense.
namespace ComandosHeadless {

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
