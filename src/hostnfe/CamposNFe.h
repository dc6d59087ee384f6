#pragma once

#include "TnfeProc.h"

#include <QLatin1String>
#include <QStringList>
#include <QStringView>

#include <span>
#include <variant>

// The leaf elements of the NF-e groups and the model fields they fill, in the layout's order.
// The reader looks elements up here; writers take the order and the decimals from here.
template<class S>
struct TCampoNFe
{
    QLatin1String nome;
    std::variant<QString S::*, Money S::*, double S::*, int S::*, qint64 S::*, QDateTime S::*> membro;
    int casas = 2;                   // decimals written (money and rates 2, quantities 4, ...)
    QLatin1String pai = {};          // the enclosing element, when the name repeats across subgroups
    bool soLeitura = false;          // older layouts' elements: read, never written
};

template<class S>
using TCamposNFe = std::span<const TCampoNFe<S>>;

template<class S>
const TCampoNFe<S> *AcharCampo(TCamposNFe<S> campos, QStringView nome, QStringView pai)
{
    // Length and first letter first: most names differ there, and this runs for every leaf.
    for (const TCampoNFe<S> &c : campos)
        if (c.nome.size() == nome.size() && c.nome.front() == nome.front() && c.nome == nome
            && (c.pai.isEmpty() || c.pai == pai))
            return &c;
    return nullptr;
}

namespace CamposNFe {

TCamposNFe<TNFeIde> Ide();
TCamposNFe<TPess_Emit> Emit();
TCamposNFe<TPess_Dest> Dest();
TCamposNFe<TNFeEndereco> Endereco();
// prod, and under pai the item's leaves outside it (vTotTrib, impostoDevol, infAdProd).
TCamposNFe<TItem> Prod();
TCamposNFe<TNFeICMS> ICMS();
TCamposNFe<TNFeIPI> IPI();
TCamposNFe<TNFeContrib> PIS();
TCamposNFe<TNFeContrib> COFINS();
TCamposNFe<TNFeICMSUFDest> ICMSUFDest();
TCamposNFe<TNFeIBSCBS> IBSCBS();
TCamposNFe<TNFeICMSTot> ICMSTot();
TCamposNFe<TNFeIBSCBSTot> IBSCBSTot();
TCamposNFe<TNFeTransp> Transp();
TCamposNFe<TNFeProt> Prot();
TCamposNFe<TnfeProc> InfAdic();

// The leaves of each ICMS group (ICMS00, ICMSSN202, ...) in the layout's order, those a writer
// may leave out marked with a trailing '?'; empty for a name that is no ICMS group.
QStringList CamposDoGrupoICMS(QStringView grupo);

} // namespace CamposNFe
