#pragma once

#include "Money.h"

#include <QString>

class TClientDataSet;
class TQ;

// The totals of a note's items and the tolerance checks against the totals typed in its header.
// Sums either the in-memory item list or a query over compra_item_tmp: the column names differ
// between the two (ICMS_VAL in the list, trib_icms_vicms in the table), so each amount is looked
// up by the names it may carry, case-insensitively.
class TRepTotais final
{
public:
    TRepTotais() { Zerar(); }

    Money CustoTot;
    Money Desconto;
    Money ICMS;
    Money ICMSSub;
    Money IPI;
    Money Outras;
    Money Frete;
    Money Seguro;
    Money FCP;
    Money FCPST;
    Money Total;

    void Zerar();

    // Adds the current row (accumulates). A dataset without one of the amounts is a programming
    // error: std::invalid_argument naming it.
    void PegarDoReg(const TClientDataSet &ds);
    void PegarDoReg(const TQ &q);

    // Zerar, add every row, then the total. The list's controls are disabled meanwhile and its
    // cursor comes back where it was; a query is left after its last row.
    void PegarDoDataSet(TClientDataSet &ds, bool somarIPI);
    void PegarDoDataSet(TQ &q, bool somarIPI);

    // The product total must agree to the cent; every other amount within 0,02.
    bool CustoTotAceito(Money v) const;
    bool DescontoAceito(Money v) const;
    bool ICMSAceito(Money v) const;
    bool ICMSSubAceito(Money v) const;
    bool IPIAceito(Money v) const;
    bool OutrasAceito(Money v) const;
    bool FCPAceito(Money v) const;
    bool FCPSTAceito(Money v) const;
    bool TotalAceito(Money v) const;
    // The nine checks in this order, stopping at the first that fails.
    bool ValoresAceitos(Money custoTot, Money desconto, Money icms, Money icmsSub, Money ipi,
                        Money outras, Money fcp, Money fcpst, Money total) const;

    // "CustoTot=1234,50\r\nDesconto=0,00\r\n..." : money with a decimal comma and two decimals,
    // no thousands separator, rounded half to even.
    QString GetAsStringIni() const;

private:
    void Fechar(bool somarIPI);
};
