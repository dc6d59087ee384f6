#pragma once

#include "TClientDataSet.h"

#include <functional>

class TConexaoSQL;
class TRepD;

// What the main screen's actions do to the note of the current row of the note list: post,
// cancel, unpost, send to the destination company. No widgets: the screen and the headless
// commands both call these, and each answers whether it did its work. Every refusal shows its
// message (or, where the screen simply ignores the press, only a level-80 trace) and leaves the
// database as it was. Disabling the action while it runs, letting pending events through first
// and refreshing the controls afterwards stay with the screen.
class TAcoesNota final
{
public:
    // `conexao`: the module's connection.
    TAcoesNota(TRepD &repD, TConexaoSQL &conexao);

    // The header check that runs before posting while the note panel is shown; by default the
    // header is accepted.
    void SetDocAceito(std::function<bool()> docAceito) { m_docAceito = std::move(docAceito); }
    // The screen's REP_IPI_SOMAR flag, for the totals gate and the unit costs; on by default.
    void SetSomarIPI(bool somarIPI) { m_somarIPI = somarIPI; }

    // Refuses a posted note ("Esta nota já foi baixada", unless `silencioso`); then the header
    // check, the totals and item gates, and the posting itself.
    bool BaixouNota(bool silencioso);
    // Marks the note cancelled after the standard delete confirmation; once only.
    bool CancelarNota();
    // Takes a posted note back out of stock, after asking; the row then shows it unposted, so
    // that it can be posted again without reloading the list. Both states must be browse.
    bool DesbaixarActExecute(TDataSetState cabecState, TDataSetState itemState);
    // Enters a posted note in its destination company's stock. Both states must be browse.
    bool NotaExportActExecute(TDataSetState cabecState, TDataSetState itemState);

private:
    TClientDataSet &Notas();

    TRepD &m_repD;
    TConexaoSQL &m_conexao;
    std::function<bool()> m_docAceito;
    bool m_somarIPI = true;
};
