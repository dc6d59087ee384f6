#pragma once

// Notes with staged items and prices for the posting tests, and the statement log.

#include "RegistroSql.h"
#include "Money.h"
#include "TestDatabase.h"
#include "Valores.h"

#include <QList>
#include <QLoggingCategory>
#include <QPair>
#include <QString>
#include <QStringList>

// Decimal values are texts so that they reach the database exactly as written.
struct ItemTeste
{
    int cod = 1, prod = 1;
    QString embQtd = QStringLiteral("1"), qtdEmbs = QStringLiteral("1"), custoTot = QStringLiteral("10");
    QString outras = QStringLiteral("0"), desconto = QStringLiteral("0"), vipi = QStringLiteral("0"), vicms = QStringLiteral("0");
    QString infoAdic;
    QList<QPair<int, QString>> precos;   // table, price; written under station 10
};

inline ItemTeste Item(int cod, int prod, const char *qtdEmbs, const char *custoTot, QList<QPair<int, QString>> precos = {})
{
    return {.cod = cod, .prod = prod, .qtdEmbs = qtdEmbs, .custoTot = custoTot, .infoAdic = {}, .precos = std::move(precos)};
}

struct NotaTeste
{
    int empr = 1, estacao = 1, compra = 1, tipo = 34, fornec = 1, destin = 0;
    bool baixado = false, cancelado = false;
    QList<ItemTeste> itens = {};
};

// Writes the note, its items (station 10) and their prices; the header's product total is the
// items' sum so that the totals gate accepts it. The driver's text on failure.
inline QString InserirNota(TestDatabase &db, const NotaTeste &n)
{
    Money soma;
    for (const ItemTeste &i : n.itens)
        soma += Money::parse(i.custoTot).value_or(Money());
    QString erro = db.exec(
        QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, fornec_cod, destin_empr_cod, "
                       "dt_doc, ndoc, serie, cancelado, baixado, tot_prods, tot) values (%1, %2, %3, %4, %5, %6, "
                       "'2026-11-10', %3, '1', %7, %8, %9, %9)")
            .arg(n.empr).arg(n.estacao).arg(n.compra)
            .arg(QuotedStr(QString(QChar(n.tipo))))
            .arg(n.fornec).arg(n.destin)
            .arg(QuotedStr(n.cancelado ? QStringLiteral("S") : QStringLiteral("N")),
                 QuotedStr(n.baixado ? QStringLiteral("S") : QStringLiteral("N")), FloatToStrPonto(soma)));
    for (const ItemTeste &i : n.itens) {
        if (!erro.isEmpty())
            return erro;
        erro = db.exec(QStringLiteral("insert into compra_item_tmp (empr_cod, estacao_cod, compra_cod, "
                                      "compra_item_tmp_cod, prod_cod, emb_qtd, qtd_embs, custo_tot, outras, desconto, "
                                      "vipi, trib_icms_vicms, trib_icms_cst, cfop, info_adic, ordem) values (%1, 10, "
                                      "%2, %3, %4, %5, %6, %7, %8, %9, %10, %11, 0, ' 1102 ', %12, %3)")
                           .arg(n.empr).arg(n.compra).arg(i.cod).arg(i.prod)
                           .arg(i.embQtd, i.qtdEmbs, i.custoTot, i.outras, i.desconto, i.vipi, i.vicms,
                                i.infoAdic.isNull() ? QStringLiteral("NULL") : QuotedStr(i.infoAdic)));
        for (const auto &[tab, preco] : i.precos) {
            if (!erro.isEmpty())
                return erro;
            erro = db.exec(QStringLiteral("insert into compra_item_tmp_precos (empr_cod, estacao_cod, "
                                          "compra_item_tmp_cod, tab_preco_cod, preco) values (%1, 10, %2, %3, %4)")
                               .arg(n.empr).arg(i.cod).arg(tab).arg(preco));
        }
    }
    return erro;
}

// The stock on hand of a product in a company, as the balance view gives it ("0" when none).
inline QString Saldo(TestDatabase &db, int empr, int prod)
{
    const QString v = db.valor(QStringLiteral("select qtd from est_saldo where empr_cod=%1 and prod_cod=%2").arg(empr).arg(prod));
    return v.isEmpty() ? QStringLiteral("0") : FloatToStrPonto(Money::parse(v).value_or(Money()));
}
