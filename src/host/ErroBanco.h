#pragma once

#include <QString>

#include <memory>
#include <stdexcept>

class TConexaoSQL;
class TQ;

// A statement of a host routine that failed: what it was doing and the driver's text. Routines
// that write several rows throw it so that the caller stops at once and says what failed; the
// rows written before stay, since every statement commits as it runs.
class EErroBanco final : public std::runtime_error
{
public:
    explicit EErroBanco(const QString &texto);
    const QString &Texto() const { return m_texto; }

private:
    QString m_texto;
};

// "Não foi possível <oQue>." and the driver's text, thrown when the statement fails.
void ExecOuErro(TConexaoSQL &conexao, const QString &sql, const QString &oQue);
std::unique_ptr<TQ> AbOuErro(TConexaoSQL &conexao, const QString &sql, const QString &oQue);
qint64 GeneratorOuErro(TConexaoSQL &conexao, const QString &generator, const QString &oQue);
// Connects `conexao` (counted) or throws.
void ConectarOuErro(TConexaoSQL &conexao, const QString &oQue);
