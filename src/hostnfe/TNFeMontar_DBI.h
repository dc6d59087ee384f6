#pragma once

#include "Money.h"

#include <QString>

class TConexaoSQL;
class TnfeProc;

// Builds the NF-e of a note from the database (compra, its staged items, prod, unid, fornec,
// empr, config) and refuses, before anything is numbered, a note that lacks what the document
// needs: one message naming what to fix and where.
class TNFeMontar_DBI final
{
public:
    explicit TNFeMontar_DBI(TConexaoSQL &conexao) : m_conexao(conexao) {}

    // Everything but the number and the key (see Numerar). False with erro. For an issue
    // (`emissao`) a cancelled note and one with a protocol are refused too.
    bool Carregar(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod, bool emissao, TnfeProc &nfe,
                  QString *erro);

    // What the note kept of an earlier issue: its number (0 when none) and key.
    qint64 NumeroAnterior() const { return m_numeroAnterior; }
    QString ChaveAnterior() const { return m_chaveAnterior; }

private:
    bool CarregarNota(int emprCod, int estacaoCod, int compraCod, int finalidade, int tipoCod, bool emissao,
                      TnfeProc &nfe, QString *erro);
    bool CarregarEmitente(int emprCod, TnfeProc &nfe, QString *erro);
    bool CarregarDestinatario(int fornecCod, TnfeProc &nfe, QString *erro);
    void CarregarTransportador(int fornecCod, TnfeProc &nfe);
    // A header total against the items' within a cent; the refusal names both.
    static bool Conferir(const QString &total, const QString &daNota, Money dosItens, QString *erro);

    TConexaoSQL &m_conexao;
    qint64 m_numeroAnterior = 0;
    QString m_chaveAnterior;
    int m_fornecCod = 0, m_transpCod = 0;
    bool m_somarIPI = true;
    QString m_totProds, m_tot;
};

namespace NumeracaoNFe {

// The IBGE code of a state ("SP" -> "35"); empty for no state.
QString CodigoUF(const QString &uf);
// Eight random digits that are no trivial pattern and differ from the number.
QString NovoCNF(qint64 nNF);
// Sets nNF, cNF, the key and its check digit.
void Numerar(TnfeProc &nfe, qint64 numero, const QString &cNF);

} // namespace NumeracaoNFe
