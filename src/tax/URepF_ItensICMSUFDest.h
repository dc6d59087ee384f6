#pragma once

#include "TICMSUFDest_DBI.h"

#include <QDate>
#include <QString>

class TClientDataSet;
class TConexaoSQL;

// The destination state's ICMS (DIFAL and its FCP share) of a posted note's movements: reviewed
// in the host's dialog and written back to each movement on OK. Nothing is kept between calls.
class TRepF_ItensICMSUFDest final
{
public:
    // The state of the note's supplier through the host's connection; empty when there is none.
    static QString CompraToFornecUF(int emprCod, int estacaoCod, int compraCod);

    // Refusals, the dialog, the computation and the writes; true when the user confirmed.
    // `tipoCod` is the character code of the note's type: a complementary note (39) skips the
    // state checks.
    static bool Perguntar(int emprCod, int estacaoCod, int compraCod, const QString &fornecNomeRed,
                          const QString &tipoDocStr, const QString &ndoc, const QDate &dtDoc,
                          const QString &database, int tipoCod);

    // --- The steps, also for the headless command ---

    // The first refusal the note meets, or empty text when it may be adjusted. A failed read of
    // the supplier's state is a refusal naming what failed.
    static QString Recusa(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod, int tipoCod);
    static QString Titulo(const QString &tipoDocStr, const QString &ndoc, const QDate &dtDoc, const QString &fornecNomeRed);
    // Empties `cds` (with the dialog's fields) and appends one row per movement of the note;
    // false, with the message shown, when the read failed.
    static bool Carregar(TConexaoSQL &conexao, int emprCod, int estacaoCod, int compraCod, TClientDataSet &cds);
    // Net value of a movement: |qtd| to 3 places, unit price and discount to 2, all truncated.
    static double PrecoLiquido(double qtd, double precoUnit, double desconto);
    // The three values from the row's five figures; the base is carried along, not used.
    static TFigurasUFDest Calcular(double vbc, double pfcp, double picmsUFDest, double picmsInter, double picmsInterPart);
    // The current row's (in Edit or Insert state) three values from its five figures.
    static void CalcularLinha(TClientDataSet &cds);
    // Every row from the first, computed and written; a failed row is reported and the next ones
    // still tried. Answers how many failed.
    static int Gravar(TConexaoSQL &conexao, TClientDataSet &cds);
};
