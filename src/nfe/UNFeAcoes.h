#pragma once

#include "TChaveNota.h"

#include <QDate>
#include <QString>

#include <functional>

class TClientDataSet;
class TConexaoSQL;
class TRepD;

// The NF-e actions on a note: their checks and what each does.
namespace UNFeAcoes {

// The issuing company's registration is complete; the first blank field gets its message.
bool EmprAceita(TConexaoSQL &conexao, int emprCod);
// The note's supplier (the recipient) is complete; on its own connection.
bool NotaAceita(int fornecCod);
// The place for item checks: none today.
bool ItensAceitos();

// What the NF-e actions read from the current row of the note list.
struct TNotaNFe
{
    TChaveNota chave;
    int tipoCod = 34;
    bool cancelado = false;
    int fornecCod = 0;
    QString fornecNomeRed, serie;
    int ndoc = 0;
    QDate dtDoc;
    int nfeNum = 0;
    QString nfeChave, nfeProtocolo, nfeJustificativa;

    static TNotaNFe DaLinhaAtual(const TClientDataSet &notas);
};

// The four actions on the current row of the note list, shared by the screen and the commands.
// Each refusal shows its one message and answers false; so does a failure, which the library
// reports itself. The row shows what the authority registered.

// Only the notes the company issues itself are sent (error boxes); then TRepD::EnviarNFE.
bool EnviarNFe(TRepD &repD);
// The justification: true with the text typed, starting from the stored one; false to give up.
using TPerguntarJustificativa = std::function<bool(int nfeNum, QString &justificativa)>;
// Needs the NF-e's key and the note cancelled in the system; the justification is kept on the
// note before the cancellation goes out, so a failed send keeps it for the next try.
bool CancelarNFe(TConexaoSQL &conexao, TClientDataSet &notas, const TPerguntarJustificativa &perguntar);
// A note not cancelled, with an NF-e key, a complete company, recipient and items: its DANFE
// again on the registered printer.
bool ReimprimirNFe(TConexaoSQL &conexao, const TClientDataSet &notas);
// The correction-letter editor for the note's NF-e: its key, the host's document kind and the
// note's description ("Nota Num: <ndoc> <supplier> <dd/mm/yy>").
using TEditarCarta = std::function<bool(const QString &chave, int docTipo, const QString &descricao)>;
// Returns and simple shipments only; the editor runs under the note's lock.
bool CartaCorrecaoNFe(const TClientDataSet &notas, const TEditarCarta &editar);

} // namespace UNFeAcoes
