#pragma once

#include <QString>

#include <memory>
#include <vector>

class TConexaoSQL;

// One input of a composed product.
class TProdCompo final
{
public:
    TProdCompo(int prodCod, const QString &descr, const QString &unidSigla, double qtd)
        : m_prodCod(prodCod), m_descr(descr), m_unidSigla(unidSigla), m_qtd(qtd)
    {
    }

    int ProdCod() const { return m_prodCod; }
    const QString &Descr() const { return m_descr; }
    const QString &UnidSigla() const { return m_unidSigla; }
    // Rounded to 3 decimals, halves to even; the stored sum stays unrounded.
    double GetQtd() const;
    void IncQtd(double d) { m_qtd += d; }

private:
    int m_prodCod;
    QString m_descr;
    QString m_unidSigla;
    double m_qtd;
};

// The inputs of a product or of a note, in the order they were taken.
class TProdCompoList final
{
public:
    int Count() const { return int(m_itens.size()); }
    const TProdCompo &GetProdCompo(int i) const { return *m_itens.at(i); }
    // The first line of that input product, by a scan from the start; nullptr when absent.
    TProdCompo *ProdCodFilhoToProdCompo(int prodCod);
    // With `somar`, an input already listed grows by `qtd` (its texts stay as first given);
    // otherwise, or when it is new, a line is appended.
    void Pegar(int prodCod, const QString &descr, const QString &unidSigla, double qtd, bool somar);

private:
    std::vector<std::unique_ptr<TProdCompo>> m_itens;
};

class TProdCompoList_DBI final
{
public:
    // The inputs of one unit of `prodCodPai` (prod_compo), by description. False when the
    // database cannot be read; the list then stays as it was and nothing is shown.
    static bool PreencherDeItem(TProdCompoList &lista, TConexaoSQL &conexao, int prodCodPai);
    static QString SqlDeItem(int prodCodPai);
    // The inputs the staged items of the note consume, summed per input product: each item's
    // quantity is round3(emb_qtd) x round3(qtd_embs), each input's round3(round3(qtd) x that).
    // Items under any station count. False as above.
    static bool PreencherDeNota(TProdCompoList &lista, TConexaoSQL &conexao, int emprCod, int compraCod);
    static QString SqlDeNota(int emprCod, int compraCod);
};
