#include "TRepTotais.h"

#include "TClientDataSet.h"
#include "TConexaoSQL.h"
#include "Valores.h"

#include <QScopeGuard>
#include <QStringList>

#include <stdexcept>
#include <string>

namespace {

constexpr Money Tolerancia = Money::fromRaw(200);   // 0,02

Money Arred2(Money v)
{
    return v.roundTo(2);
}

bool Perto(Money v, Money campo)
{
    return (v - campo).abs() <= Tolerancia;
}

// The two kinds of row the totals read, seen the same way: a column index by name and the
// money value of a column in the current row.
class LinhaDataSet final
{
public:
    explicit LinhaDataSet(const TClientDataSet &ds) : m_ds(ds) {}
    int Indice(const char *nome) const
    {
        const TField *f = m_ds.FindField(QLatin1String(nome));
        return f ? f->Index() : -1;
    }
    Money Valor(int indice) const { return m_ds.Fields(indice).AsMoney(); }

private:
    const TClientDataSet &m_ds;
};

class LinhaQuery final
{
public:
    explicit LinhaQuery(const TQ &q) : m_q(q) {}
    int Indice(const char *nome) const { return m_q.FieldIndex(QLatin1String(nome)); }
    Money Valor(int indice) const { return m_q.Fields(indice).AsMoney(); }

private:
    const TQ &m_q;
};

// The summing rules, written once for both kinds of row. The columns are found once per
// dataset, not once per row.
template<typename Linha>
struct TSomaTotais
{
    explicit TSomaTotais(const Linha &linha) : m_linha(linha)
    {
        custoTot = Exigir("custo_tot");
        desconto = Exigir("desconto");
        icmsSub = Preferir("TRIB_ICMS_VICMSST", "icms_st_val");
        icms = Preferir("TRIB_ICMS_VICMS", "icms_val");
        fcp = Exigir("TRIB_icms_vFCP");
        fcpst = Exigir("TRIB_icms_vFCPST");
        ipi = Exigir("vipi");
        outras = Exigir("outras");
        frete = Exigir("Frete");
        seguro = Exigir("Seguro");
    }

    void Somar(TRepTotais &t) const
    {
        auto v = [this](int c) { return m_linha.Valor(c); };
        t.CustoTot += v(custoTot);
        t.Desconto += v(desconto);
        t.ICMSSub += v(icmsSub);
        t.ICMS += Arred2(v(icms));
        t.FCP += Arred2(v(fcp));
        t.FCPST += Arred2(v(fcpst));
        t.IPI += Arred2(v(ipi));
        t.Outras += Arred2(v(outras));
        t.Frete += Arred2(v(frete));
        t.Seguro += Arred2(v(seguro));
    }

private:
    int Exigir(const char *nome) const
    {
        const int c = m_linha.Indice(nome);
        if (c < 0)
            throw std::invalid_argument(std::string("TRepTotais: the items have no column ") + nome);
        return c;
    }
    int Preferir(const char *nome, const char *alternativa) const
    {
        const int c = m_linha.Indice(nome);
        return c >= 0 ? c : Exigir(alternativa);
    }

    const Linha &m_linha;
    int custoTot, desconto, icmsSub, icms, fcp, fcpst, ipi, outras, frete, seguro;
};

} // namespace

void TRepTotais::Zerar()
{
    CustoTot = Desconto = ICMS = ICMSSub = IPI = Outras = Frete = Seguro = FCP = FCPST = Total = Money();
}

void TRepTotais::PegarDoReg(const TClientDataSet &ds)
{
    const LinhaDataSet linha(ds);
    TSomaTotais<LinhaDataSet>(linha).Somar(*this);
}

void TRepTotais::PegarDoReg(const TQ &q)
{
    const LinhaQuery linha(q);
    TSomaTotais<LinhaQuery>(linha).Somar(*this);
}

void TRepTotais::PegarDoDataSet(TClientDataSet &ds, bool somarIPI)
{
    Zerar();
    const LinhaDataSet linha(ds);
    const TSomaTotais<LinhaDataSet> soma(linha);
    ds.DisableControls();
    const TBookmark marca = ds.GetBookmark();
    {
        const auto restaurar = qScopeGuard([&] {
            if (!marca.IsNull())
                ds.GotoBookmark(marca);
            ds.EnableControls();
        });
        for (ds.First(); !ds.Eof(); ds.Next())
            soma.Somar(*this);
    }
    Fechar(somarIPI);
}

void TRepTotais::PegarDoDataSet(TQ &q, bool somarIPI)
{
    Zerar();
    const LinhaQuery linha(q);
    const TSomaTotais<LinhaQuery> soma(linha);
    for (q.First(); !q.Eof(); q.Next())
        soma.Somar(*this);
    Fechar(somarIPI);
}

// Own ICMS is never part of the total.
void TRepTotais::Fechar(bool somarIPI)
{
    Total = Arred2(CustoTot - Desconto + ICMSSub + Outras + Frete + Seguro + FCP + FCPST);
    if (somarIPI)
        Total = Arred2(Total + IPI);
}

bool TRepTotais::CustoTotAceito(Money v) const { return Arred2(v) == Arred2(CustoTot); }
bool TRepTotais::DescontoAceito(Money v) const { return Perto(v, Desconto); }
bool TRepTotais::ICMSAceito(Money v) const { return Perto(v, ICMS); }
// The difference counted in ten-thousandths, which is what a Money holds: at most 200.
bool TRepTotais::ICMSSubAceito(Money v) const { return (v - ICMSSub).abs().raw() <= 200; }
bool TRepTotais::IPIAceito(Money v) const { return Perto(v, IPI); }
bool TRepTotais::OutrasAceito(Money v) const { return Perto(v, Outras); }
bool TRepTotais::FCPAceito(Money v) const { return Perto(v, FCP); }
bool TRepTotais::FCPSTAceito(Money v) const { return Perto(v, FCPST); }
bool TRepTotais::TotalAceito(Money v) const { return Perto(v, Total); }

bool TRepTotais::ValoresAceitos(Money custoTot, Money desconto, Money icms, Money icmsSub, Money ipi,
                                Money outras, Money fcp, Money fcpst, Money total) const
{
    return CustoTotAceito(custoTot) && DescontoAceito(desconto) && ICMSAceito(icms)
           && ICMSSubAceito(icmsSub) && IPIAceito(ipi) && OutrasAceito(outras) && FCPAceito(fcp)
           && FCPSTAceito(fcpst) && TotalAceito(total);
}

QString TRepTotais::GetAsStringIni() const
{
    auto dinheiro = [](Money v) { return FormatFloat(QStringLiteral("######0.00"), v); };
    const QStringList linhas = {
        QStringLiteral("CustoTot=") + dinheiro(CustoTot), QStringLiteral("Desconto=") + dinheiro(Desconto),
        QStringLiteral("ICMS=") + dinheiro(ICMS),         QStringLiteral("ICMSSub=") + dinheiro(ICMSSub),
        QStringLiteral("FCP=") + dinheiro(FCP),           QStringLiteral("FCPST=") + dinheiro(FCPST),
        QStringLiteral("IPI=") + dinheiro(IPI),           QStringLiteral("Outras=") + dinheiro(Outras),
        QStringLiteral("Frete=") + dinheiro(Frete),       QStringLiteral("Seguro=") + dinheiro(Seguro),
        QStringLiteral("Total=") + dinheiro(Total),
    };
    return linhas.join(QStringLiteral("\r\n"));
}
