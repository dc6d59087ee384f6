#pragma once

// The host's product routines that posting calls: cost and price history, and passing changed
// costs on. They write through the host's shared connection (TConexD) and throw EErroBanco
// (ErroBanco.h) naming the statement that failed.

#include "Money.h"

#include <QChar>
#include <QDate>
#include <QString>
#include <QStringList>

// A new cost of a product in company `emprCod`: a row of the history prod_custo (with the note
// and the movement that created it), and the current cost, both the general one (fornec_cod 0
// or empty) and, when `fornecCod` is above 0, that supplier's own; all in one statement.
void ProdInserirCusto(int emprCod, int prodCod, Money custo, int fornecCod, int compraCod, int estMovCod);

// A new sale price of a product in price table `tabPrecoCod` of company `emprCod`, valid from
// `dt`: a row of the history prod_preco, and the current price, in one statement. `enviado` is
// the history row's flag for the points of sale ('N': still to be passed on).
void ProdInserirPreco(int emprCod, int tabPrecoCod, int prodCod, Money preco, Money precoPromo, const QDate &dt,
                      QChar enviado);

// Queues the current general cost of each product (codes as text, repeats counted once) in
// prod_custo_env of the database named, stamped with the session, for the screens and stores
// that pick changed costs up. Nothing is written for an empty list.
void CustoEnviarSL(const QStringList &prodCods, const QString &database, const QString &sessao);

// The session text the host stamps on what it passes on: user and workstation.
QString SessaoHost();
