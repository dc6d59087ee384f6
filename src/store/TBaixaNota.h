#pragma once

#include "Money.h"
#include "TChaveNota.h"
#include "UEstoque.h"

#include <QString>

#include <optional>

class TConexaoSQL;

// One staged item as posting uses it.
struct TItemBaixa
{
    int itemCod = 0;
    int prodCod = 0;
    double embQtd = 0;
    double qtdEmbs = 0;
    Money custoTot;
    Money desconto;
    QString cfop;               // trimmed
    QString infoAdic;
    TEstMovTrib trib;           // outras and vipi among them
};

// Posting a note to stock: one movement per staged item, the inputs it consumes, costs and
// prices where the type asks for them, then the note marked posted.
class TBaixaNota final
{
public:
    // `conexao`: the module's connection; costs, prices and the final mark go through the host's.
    explicit TBaixaNota(TConexaoSQL &conexao) : m_conexao(conexao) {}

    // Posts the note and marks it posted. Whether the note is already posted is the caller's
    // check; a note that already has linked movements is refused with the interrupted-posting
    // advice. `somarIPI` is the screen's REP_IPI_SOMAR flag. No transaction: when a statement
    // fails part-way the movements of the items already handled stay and the note stays
    // unposted; the failure is shown once, naming what failed and how to take it back, and
    // false comes back.
    bool BaixarNota(const TNotaLinha &nota, bool somarIPI);

    // round3(round3(emb_qtd) x round3(qtd_embs))
    static double QtdDoItem(double embQtd, double qtdEmbs);
    // round4((custo_tot + outras - desconto) / qtd), 0 for no quantity; then, with IPI adding,
    // plus the item's whole IPI value, not divided by the quantity (the established rule).
    static Money CustoDoItem(Money custoTot, Money outras, Money desconto, double qtd, Money vipi, bool somarIPI);

    // Sizes the progress only: it filters on the note's station, while the items are read
    // under station 10.
    static QString SQLContaItensABaixar(const TNotaLinha &nota);
    static QString SQLItensABaixar(const TNotaLinha &nota);
    // Under the note's own station: on a note of a station other than 10 it finds no price, so
    // that such a note creates no prices.
    static QString SQLPrecosDeUmItem(const TNotaLinha &nota, int itemCod);
    static QString SqlConfigBaixa();

    // The item's movement through the host's stock routine; the new est_mov_cod.
    static int GetEstMovCod(TConexaoSQL &conexao, const TNotaEstMov &nota, const TItemBaixa &item, double qtd,
                            Money custo, Money preco);

    // How many movements are linked to the note in compra_est_mov; -1 when they cannot be
    // counted. A note not marked posted that has some was interrupted part-way.
    static int MovimentosLigados(TConexaoSQL &conexao, const TChaveNota &chave);
    // The note's posted flag as the database has it now; nullopt when it cannot be read.
    static std::optional<bool> BaixadoNoBanco(TConexaoSQL &conexao, const TChaveNota &chave);
    // The advice for a note whose posting stopped after some of its movements were written.
    static const QString AvisoBaixaInterrompida;

private:
    TConexaoSQL &m_conexao;
};
