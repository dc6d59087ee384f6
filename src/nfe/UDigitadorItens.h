#pragma once

#include <QString>

#include <functional>

class QWidget;
class TEdNotaPanel;
class TItemNota;
class TItemNotaTela;
class TItemPanel;

// The parts of the note screen that imported items are typed into.
struct TTelaNota
{
    QWidget &form;
    TItemNotaTela &tela;        // the note being typed: its type, items and price edits
    TItemPanel &panel;
    TItemNota &itemNota;
    TEdNotaPanel &cabec;
};

// Types one item at a time into the item panel as a clerk would, so that the panel's own search,
// price calculation and insertion run for every item: the product code into the search with
// Enter, then each value into its field, then Enter on every sale-price edit (the last one
// inserts). A value is asked by its column name (PROD_COD, NCM, CFOP, QTD, ICMS_ST_PERC_RED...)
// as plain text with '.' for decimals.
//
// Between fields the panel is left to react: pending events run until it is done (no product
// list open), waiting no longer than 100 ms per row, 1000 ms after the product code and 70 ms per
// field, so a row takes as long as the panel needs and no more.
class TDigitadorItens final
{
public:
    using TValor = std::function<QString(const QString &coluna)>;

    explicit TDigitadorItens(const TTelaNota &tela);

    void DigitarLinha(const TValor &valor);

private:
    void digitarBusca(const QString &texto);
    void definir(QWidget *campo, const QString &texto);
    void enter(QWidget *campo);
    void aguardar(int limiteMs);
    bool ocioso() const;

    TTelaNota m_tela;
};
