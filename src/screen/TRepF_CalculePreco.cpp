#include "TRepF_CalculePreco.h"

#include "TConexaoSQL.h"
#include "TConsultasDBI.h"
#include "TTabPrecoList.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>

namespace {

int Indice(int tipoCod) { return TipoDoc::IndiceDoCodigo(tipoCod); }

// Costs are typed and paid to the cent; what lies beyond is left out.
Money T2(Money valor) { return valor.truncTo(2); }

// The quantity as the fixed point holds it: x 10000, halves to even.
Money QtdFixa(double qtd) { return Money::fromDouble(qtd); }

} // namespace

TCalculePrecoSaida TRepF_CalculePreco::Calcular(const TCalculePrecoEntrada &e)
{
    TCalculePrecoSaida s;
    const bool producao = e.tipoIndice == Indice(TipoDoc::Producao);
    // A production item needs no cost unless the store demands one.
    if (producao && !e.producCustoExige)
        return s;
    s.calculado = true;

    const Money cem = Money::fromInt(100);
    const Money fator = Money::fromInt(1) + *e.margem.dividedBy(cem);

    Money c = T2(e.custoTot) - T2(e.desconto);
    // A production note shows the unit cost before taxes at this point; the final write below
    // always replaces it, so only the final value is handed back.
    // The taxes are added whole: a Money value has no digits beyond the four decimals.
    if (e.tipoIndice == Indice(TipoDoc::Entrada)) {
        if (e.modoIcms == TModoCustoImposto::Soma)
            c += e.vICMS;
        else if (e.modoIcms == TModoCustoImposto::Deduz)
            c -= e.vICMS;
        if (e.modoIpi == TModoCustoImposto::Soma)
            c += e.vIPI;
        else if (e.modoIpi == TModoCustoImposto::Deduz)
            c -= e.vIPI;
    } else {
        if (e.ipiSomar)
            c += e.vIPI;
        // The ST base itself, not the ST tax, goes into the cost of these notes.
        if (e.vBCST >= Money::fromRaw(100))
            c += e.vBCST;
        else if (e.tipoIndice >= Indice(TipoDoc::SimplesRemessa))
            c += e.vICMS;
    }
    c = T2(c + e.outras);

    if (e.gravarCusto && c != e.custoTot)
        s.custoTot = c;

    Money unit;
    if (e.qtdComprada >= 0.001)
        unit = c.dividedBy(QtdFixa(e.qtdComprada)).value_or(Money());
    if (!e.custoUnitComFoco)
        s.custoUnit = unit;

    // A product without a margin gets no suggested price, not its cost.
    s.preco = fator == Money::fromInt(1) ? Money() : T2(unit * fator);

    for (const Money &perc : e.percTabelas)
        s.precosTabelas << s.preco + T2(s.preco * *perc.dividedBy(cem));
    return s;
}

TCalculePrecoSaida TRepF_CalculePreco::Calcule(TCalculePrecoEntrada entrada, TConexaoSQL &conexao)
{
    // The modes may be changed while the screen is open, so an entry note reads them every time.
    if (entrada.tipoIndice == Indice(TipoDoc::Entrada)) {
        const TModos modos = LerModosEntrada(conexao);
        entrada.modoIcms = modos.icms;
        entrada.modoIpi = modos.ipi;
    }
    return Calcular(entrada);
}

TRepF_CalculePreco::TModos TRepF_CalculePreco::LerModosEntrada(TConexaoSQL &conexao)
{
    TModos modos;
    if (!conexao.Conectar())
        return modos;
    const auto desconectar = qScopeGuard([&conexao] { conexao.Desconectar(); });
    modos.icms = ModoDoValor(TConsultasDBI::ValorConfig(conexao, QStringLiteral("EST_CUS_ICMS_MODO")));
    modos.ipi = ModoDoValor(TConsultasDBI::ValorConfig(conexao, QStringLiteral("EST_CUS_IPI_MODO")));
    return modos;
}

TModoCustoImposto TRepF_CalculePreco::ModoDoValor(const QString &valor)
{
    const QString v = valor.trimmed();
    if (v == QLatin1String("1"))
        return TModoCustoImposto::Soma;
    if (v == QLatin1String("2"))
        return TModoCustoImposto::Deduz;
    return TModoCustoImposto::Nenhum;
}

QList<Money> TRepF_CalculePreco::PercTabelasSeguintes(const TTabPrecoList &tabelas)
{
    QList<Money> percs;
    for (qsizetype i = 1; i < tabelas.Tabelas().size(); ++i)
        percs << tabelas.Tabelas().at(i).perc;
    return percs;
}

double TRepF_CalculePreco::CalculeQtd(double embQtd, double qtdEmbs)
{
    return TruncarViaStr(embQtd * qtdEmbs, 4);
}

TCustoItem TRepF_CalculePreco::CalculeCusto(Money custoTot, Money desconto, double qtdComprada)
{
    TCustoItem r;
    r.custo = custoTot - desconto;
    const Money q = QtdFixa(qtdComprada);
    if (q > Money())
        r.custoUnit = r.custo.dividedBy(q);
    return r;
}
