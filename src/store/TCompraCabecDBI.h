#pragma once

#include "Money.h"
#include "TChaveNota.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

class TClientDataSet;
class TConexaoSQL;
class TQ;

// The header of a note, a row of compra, and the statements that read and store it.
struct TCompraCabecDBI
{
    TChaveNota chave;
    int destinEmprCod = 0;
    int tipoCod = 34;
    QDate dtDoc;
    QDateTime dthSai;
    int ndoc = 0;
    QString serie;
    int fornecCod = 0;                  // 0: no party chosen, written as NULL
    QString fornecNome;                 // for the list row
    Money totProds, ipi, frete, outras, icms, icmsST, fcp, fcpst, desconto, tot;
    int freteModalidade = 0;
    int cfop = 0;
    QString natOp;
    QStringList chavesRef;              // five keys, empty ones included
    int transpFornecCod = 0;
    Money freteIcmsBCVal, freteIcmsPerc, freteIcmsRetVal;
    int freteCfop = 0;
    QString veiPlaca, veiUF, veiANTT;
    QString reboque1Placa, reboque1UF, reboque1ANTT;
    QString reboque2Placa, reboque2UF, reboque2ANTT;
    double volsQtd = 0;
    QString volsEspecie, volsMarca, volsNum;
    double pesoLiq = 0;
    double pesoBruto = 0;
    bool baixado = false;
    bool cancelado = false;

    // The header total: products, freight, other expenses, ICMS ST, FCP and FCP ST less the
    // discount, plus IPI when the store adds it, rounded to the cent.
    static Money Total(Money totProds, Money frete, Money outras, Money icmsST, Money fcp, Money fcpst,
                       Money desconto, Money ipi, bool somarIPI);

    // "insert into compra (" one column a line, then each value on its own line with a comment.
    QString SqlInsert(const QString &infAdicFisco, const QString &infAdicContribuinte) const;
    QString SqlUpdate() const;
    // The duplicate-number test: same supplier, number and series, same type or none.
    QString SqlNumeroUnico() const;
    QString SqlLer() const;

    // The stored header of a note; ICMS ST, which has no column, is what the total holds beyond
    // the other amounts.
    static std::optional<TCompraCabecDBI> Ler(TConexaoSQL &conexao, const TChaveNota &chave, bool somarIPI,
                                              QString *erro);
    // The code of a new note, from compra_g; 0 when the generator fails.
    static int ProximoCodigo(TConexaoSQL &conexao);
    // The destination company's name as the note list shows it; empty for no destination.
    static QString NomeDestino(TConexaoSQL &conexao, int destinEmprCod);

    // The note list row showing this header (the current row, in edit or insert state).
    void ParaLinhaDaLista(TClientDataSet &notas, const QString &destinEmprNome) const;
};
