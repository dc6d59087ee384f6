#pragma once

#include "Money.h"

class TnfeProc;
struct TNFeICMSTot;

// The totals of an NF-e, from its items.
namespace TTotaisNFe {

// Fills ICMSTot (vNF = products - discount + ST + FCP ST + freight + insurance + other + IPI +
// IPI given back) and, when the items carry it, IBSCBSTot.
void Totalizar(TnfeProc &nfe);

// The same amounts the way the note's header adds them up: own FCP in, IPI only when the
// configuration adds it.
Money TotalDaNota(const TNFeICMSTot &t, bool somarIPI);

} // namespace TTotaisNFe
