#pragma once

#include "TClientDataSet.h"

#include <QList>

class QAbstractButton;
class QAbstractItemView;
class QComboBox;
class TNumEditBR;
class TTabPrecoList;

// What the item panel's controller needs from the screen that holds it: the note being typed,
// its header checks and the parts of the screen around the panel. The main screen implements it.
class TItemNotaTela
{
public:
    virtual ~TItemNotaTela() = default;

    // Type number of the note on the screen (34 ENTRADA, 37 PRODUCAO, ...).
    virtual int TipoDocSelecionado() const = 0;
    // The current note of the list has been posted.
    virtual bool NotaAtualBaixada() const = 0;
    virtual TDataSetState CabecState() const = 0;
    virtual TDataSetState ItemState() const = 0;
    virtual void SetItemState(TDataSetState estado) = 0;
    // The header is acceptable before items are typed; false while no note is open. A refusal
    // has shown its message and focused its field.
    virtual bool EntraItemAceito() = 0;
    // The products-total check of the header; true when acceptable.
    virtual bool TotProdAceito() = 0;
    // The header checks run before an item is appended: date, series, number, products total
    // and the note's total.
    virtual bool CabecParaItemAceito() = 0;
    // The supplier chosen in the header; 0 when none.
    virtual int FornecCodSelecionado() const = 0;
    // Company and station of the note open for alteration, for the statements on its rows.
    virtual int NotaEmprCod() const = 0;
    virtual int NotaEstacaoCod() const = 0;
    virtual bool ProducCustoExige() const = 0;
    virtual bool IPISomar() const = 0;
    // The price tables; the first is the one of PrecoNumEditBR.
    virtual const TTabPrecoList &TabPrecos() const = 0;
    // One per price table, in table order, each with the property "tab_preco_cod".
    virtual const QList<TNumEditBR *> &PrecoEdits() const = 0;
    // One per grade title, each with the property "grade_tit_cod".
    virtual const QList<QComboBox *> &GradeCombos() const = 0;
    // The header panel: the checks run only while it is shown.
    virtual bool NotaPanelVisivel() const = 0;
    virtual QAbstractButton *NotaOkButton() const = 0;
    virtual QAbstractButton *NotaCancButton() const = 0;
    virtual QAbstractItemView *ItensGrid() const = 0;
    // The staged items of the open note.
    virtual TClientDataSet &ItensNota() = 0;
};
