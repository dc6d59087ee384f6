#include "TBuscaProd.h"

#include "TConexaoSQL.h"
#include "Valores.h"

#include <QScopeGuard>

#include <algorithm>

namespace {

bool SoDigitos(const QString &texto)
{
    return !texto.isEmpty()
           && std::all_of(texto.begin(), texto.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// Product codes have at most 7 digits; anything longer is a bar code or a GTIN.
constexpr int MaxDigitosCodigo = 7;

} // namespace

std::unique_ptr<TQ> TBuscaProd::Abrir(const QString &sql)
{
    auto q = m_conexao.Ab(sql);
    if (!q)
        m_erro = m_conexao.UltimoErro();
    return q;
}

std::optional<TProdAchado> TBuscaProd::Buscar(const QString &texto)
{
    m_erro.clear();
    // A blank search would match every product without a GTIN.
    if (texto.trimmed().isEmpty())
        return std::nullopt;
    // One attachment for the whole chain of look-ups.
    if (!m_conexao.Conectar()) {
        m_erro = m_conexao.UltimoErro();
        return std::nullopt;
    }
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    if (auto achado = BuscarProdCod(texto))
        return achado;
    if (auto achado = BuscarBarCode(texto))
        return achado;
    if (m_modoConexao == ModoConexaoNOrig)
        return BuscarNOrig(texto);
    return std::nullopt;
}

std::optional<TProdAchado> TBuscaProd::BuscarProdCod(const QString &texto)
{
    if (!SoDigitos(texto) || texto.size() > MaxDigitosCodigo)
        return std::nullopt;
    const auto q = Abrir(QLatin1String("select first(1) prod.prod_cod, prod.descr, prod.ncm from prod where prod_cod=")
                         + StrToIntStr(texto));
    if (!q || q->IsEmpty())
        return std::nullopt;
    return TProdAchado{q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed(), q->Fields(2).AsString().trimmed()};
}

std::optional<TProdAchado> TBuscaProd::PorCodigo(const QString &codigo)
{
    const auto q = Abrir(QLatin1String("select first(1) prod.prod_cod, prod.descr, prod.ncm from prod where prod.prod_cod=")
                         + StrToIntStr(codigo));
    if (!q || q->IsEmpty())
        return std::nullopt;
    return TProdAchado{q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed(), q->Fields(2).AsString().trimmed()};
}

std::optional<TProdAchado> TBuscaProd::BuscarBarCode(const QString &texto)
{
    const QString codigo = texto.trimmed();
    const auto barras = Abrir(QLatin1String("select first(1) prod_cod from prod_barras where bar_cod=") + QuotedStr(codigo));
    if (!barras)
        return std::nullopt;
    // A registered bar code decides: its product or nothing, the GTIN is not tried.
    if (!barras->IsEmpty())
        return PorCodigo(barras->Fields(0).AsString());
    const auto q = Abrir(QLatin1String("select first(1) prod.prod_cod, prod.descr from prod where prod.gtin=") + QuotedStr(codigo));
    if (!q || q->IsEmpty())
        return std::nullopt;
    return TProdAchado{q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed(), QString()};
}

std::optional<TProdAchado> TBuscaProd::BuscarNOrig(const QString &texto)
{
    const auto q = Abrir(QLatin1String("select first(1) prod_cod from prod_NOrig where norig=") + QuotedStr(texto.trimmed()));
    if (!q || q->IsEmpty())
        return std::nullopt;
    return PorCodigo(q->Fields(0).AsString());
}

QString TBuscaProd::SqlPreencherProd(int emprCod, int prodCod)
{
    const QString empresa = QString::number(emprCod);
    return QLatin1String("select first(1) prod.prod_cod, prod.descr, prod.unid_cod, prod.emb_qtd, prod.trib_cod, prod.ipi, "
                         "( select first(1) custo from prod_custo_atual where prod_custo_atual.prod_cod=prod.prod_cod and empr_cod=")
           + empresa + QLatin1String(" ) as custo_atual")
           + QLatin1String(", prod_compl.margem")
           + QLatin1String(", (select count(prod_cod) from prod_grade where prod_grade.prod_cod=prod.prod_cod) as NItensGrade")
           + QLatin1String(", prod.ncm as prod_ncm")
           + QLatin1String(" from prod")
           + QLatin1String(" join prod_compl on prod.prod_cod=prod_compl.prod_cod")
           + QLatin1String(" and prod_compl.empr_cod=") + empresa
           + QLatin1String(" where prod.prod_cod=") + QString::number(prodCod);
}

std::optional<TProdDados> TBuscaProd::PreencherProd(int prodCod)
{
    m_erro.clear();
    const auto q = Abrir(SqlPreencherProd(m_emprCod, prodCod));
    if (!q || q->IsEmpty())
        return std::nullopt;
    TProdDados d;
    d.codigo = q->Fields(0).AsInteger();
    d.descr = q->Fields(1).AsString().trimmed();
    d.unidCod = q->Fields(2).AsInteger();
    d.embQtd = q->Fields(3).AsFloat();
    d.tribCod = q->Fields(4).AsInteger();
    d.ipi = q->Fields(5).AsMoney();
    d.custoAtual = q->Fields(6).AsMoney();
    d.margem = q->Fields(7).AsMoney();
    d.nItensGrade = q->Fields(8).AsInteger();
    d.ncm = q->Fields(9).AsString().trimmed();
    return d;
}

QString TBuscaProd::SqlGradeItens(int gradeTitCod)
{
    return QLatin1String("select grade_item_cod, grade_item_descr from grade_item where grade_tit_cod=")
           + QString::number(gradeTitCod) + QLatin1String(" and grade_item_cod>0") + QLatin1String(" order by grade_item_descr");
}

QString TBuscaProd::SqlGradeSemVariante(int gradeTitCod)
{
    return QLatin1String("select first(1) grade_item_descr from grade_item where grade_item_cod=0 and grade_tit_cod=")
           + QString::number(gradeTitCod) + QLatin1String(" order by grade_item_cod");
}

QList<TGradeItem> TBuscaProd::ItensGrade(int gradeTitCod)
{
    m_erro.clear();
    if (!m_conexao.Conectar()) {
        m_erro = m_conexao.UltimoErro();
        return {};
    }
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    QList<TGradeItem> itens;
    const auto semVariante = Abrir(SqlGradeSemVariante(gradeTitCod));
    const QString descr = semVariante && !semVariante->IsEmpty() ? semVariante->Fields(0).AsString().trimmed() : QString();
    itens << TGradeItem{0, descr.isEmpty() ? QStringLiteral("UNICO") : descr};

    const auto q = Abrir(SqlGradeItens(gradeTitCod));
    if (!q)
        return itens;
    for (q->First(); !q->Eof(); q->Next())
        itens << TGradeItem{q->Fields(0).AsInteger(), q->Fields(1).AsString().trimmed()};
    return itens;
}

QString TBuscaProd::SqlListaProd(int emprCod)
{
    return QLatin1String("select prod.descr, prod_fabr.nome as prod_fabr_nome, prod.prod_cod from prod"
                         " join prod_fabr on prod.prod_fabr_cod=prod_fabr.prod_fabr_cod"
                         " join prod_compl on prod.prod_cod=prod_compl.prod_cod"
                         " where prod_compl.empr_cod=")
           + QString::number(emprCod) + QLatin1String(" and prod_compl.ativo='S'");
}

std::unique_ptr<TQ> TBuscaProd::ListaProd()
{
    m_erro.clear();
    return Abrir(SqlListaProd(m_emprCod));
}
