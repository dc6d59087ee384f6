#pragma once

#include "TChaveNota.h"
#include "TClientDataSet.h"

#include <functional>
#include <optional>

class TConexaoSQL;

// What the main screen's actions do to one note: post, cancel, unpost, send to the destination
// company. The note comes as a value (nothing when the list is empty); no grid is read or
// written here, so the screen and the headless commands both call these, and each answers
// whether it did its work. Every refusal shows its message (or, where the screen simply ignores
// the press, only a level-80 trace) and leaves the database as it was. Disabling the action while
// it runs and showing the note's new state stay with the caller.
class TAcoesNota final
{
public:
    // `conexao`: the module's connection.
    explicit TAcoesNota(TConexaoSQL &conexao);

    // The header check that runs before posting while the note panel is shown; by default the
    // header is accepted.
    void SetDocAceito(std::function<bool()> docAceito) { m_docAceito = std::move(docAceito); }
    // The screen's REP_IPI_SOMAR flag, for the totals gate and the unit costs; on by default.
    void SetSomarIPI(bool somarIPI) { m_somarIPI = somarIPI; }

    // Refuses a posted note ("Esta nota já foi baixada", unless `silencioso`); then the header
    // check, the totals and item gates, and the posting itself.
    bool BaixouNota(const std::optional<TNotaLinha> &nota, bool silencioso);
    // Marks the note cancelled after the standard delete confirmation; once only.
    bool CancelarNota(const std::optional<TNotaLinha> &nota);
    // Takes a posted note back out of stock, after asking; also a note whose posting was
    // interrupted (not marked posted, with linked movements). Both states must be browse.
    bool DesbaixarActExecute(const std::optional<TNotaLinha> &nota, TDataSetState cabecState,
                             TDataSetState itemState);
    // Enters a posted note in its destination company's stock. Both states must be browse.
    bool NotaExportActExecute(const std::optional<TNotaLinha> &nota, TDataSetState cabecState,
                              TDataSetState itemState);

private:
    TConexaoSQL &m_conexao;
    std::function<bool()> m_docAceito;
    bool m_somarIPI = true;
};
