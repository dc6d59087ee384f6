#include "TQueryToClient.h"

#include "Money.h"
#include "TClientDataSet.h"
#include "TCompraItemTmpDBI.h"
#include "TConexaoSQL.h"
#include "TPreencheTribSL.h"
#include "Valores.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace {

// Query columns that are not staging columns: (query column, list field).
constexpr std::pair<const char *, const char *> Extras[] = {
    {"prod_descr", "prod_DESCR"},
    {"unid_sigla", "unid_sigla"},
    {"margem", "margem"},
    {"custo_atual", "CUSTO_atual"},
    {"preco_atual", "PRECO_ATUAL"},
};

} // namespace

std::vector<TPegarQueryCampos::Ligacao> TPegarQueryCampos::PegarQueryCampos(const TQ &q, TClientDataSet &itens)
{
    std::vector<Ligacao> ligacoes;
    auto ligar = [&](const char *coluna, const char *campo) {
        // The query also lists prod.trib_cod; the first trib_cod is the item's own.
        const int c = q.FieldIndex(QLatin1String(coluna));
        TField *f = itens.FindField(QLatin1String(campo));
        if (c >= 0 && f)
            ligacoes.push_back({c, f});
    };
    for (const TColunaItemTmp &c : ColunasItemTmp())
        ligar(c.coluna, c.campo);
    for (const auto &[coluna, campo] : Extras)
        ligar(coluna, campo);
    return ligacoes;
}

TQueryToClient::TQueryToClient(const TQ &q, TClientDataSet &itens, const QStringList &tribSL)
    : m_q(q), m_itens(itens), m_ligacoes(TPegarQueryCampos::PegarQueryCampos(q, itens)),
      m_tribCod(&itens.FieldByName(QStringLiteral("trib_cod"))),
      m_tribStr(&itens.FieldByName(QStringLiteral("trib_str"))),
      m_embQtd(&itens.FieldByName(QStringLiteral("EMB_QTD"))),
      m_qtdEmbs(&itens.FieldByName(QStringLiteral("QTD_EMBS"))),
      m_qtdComprada(&itens.FieldByName(QStringLiteral("QTD_COMPRADA"))),
      m_custoTot(&itens.FieldByName(QStringLiteral("CUSTO_TOT"))),
      m_desconto(&itens.FieldByName(QStringLiteral("DESCONTO"))),
      m_custo(&itens.FieldByName(QStringLiteral("CUSTO"))),
      m_custoUnit(&itens.FieldByName(QStringLiteral("CUSTO_unit")))
{
    for (const QString &linha : tribSL)
        m_tribs.insert(TPreencheTribSL::Codigo(linha), TPreencheTribSL::Texto(linha));
}

void TQueryToClient::QueryToClient()
{
    m_itens.Append();
    for (const TPegarQueryCampos::Ligacao &l : m_ligacoes)
        l.campo->SetValue(m_q.valueAt(l.coluna));
    if (!m_tribCod->IsNull())
        m_tribStr->SetAsString(m_tribs.value(m_tribCod->AsInteger()));

    // As the item screen computes them: the bought quantity cut at 4 decimals, the net cost,
    // and the unit cost over the quantity taken at 4 decimals (left empty for no quantity).
    const double qtd = TruncarViaStr(m_embQtd->AsFloat() * m_qtdEmbs->AsFloat(), 4);
    m_qtdComprada->SetAsFloat(qtd);
    const Money custo = m_custoTot->AsMoney() - m_desconto->AsMoney();
    m_custo->SetAsMoney(custo);
    const auto q = static_cast<std::int64_t>(std::llround(qtd * Money::Scale));
    if (q > 0) {
        if (const auto unit = custo.dividedBy(Money::fromRaw(q)))
            m_custoUnit->SetAsMoney(*unit);
    }
}
