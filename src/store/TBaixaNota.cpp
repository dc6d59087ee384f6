#include "TBaixaNota.h"

#include "Contexto.h"
#include "Debug.h"
#include "Dialogos.h"
#include "ErroBanco.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TEstMovCompo_DBI.h"
#include "TProgresso.h"
#include "UProduto.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>
#include <QStringList>

#include <vector>

namespace {

QString Int(qint64 v) { return QString::number(v); }

// The company whose cost and price registers posting writes.
constexpr int EmprCustosPrecos = 1;
constexpr int PassoProgresso = 10;

// Column positions of the item query, found once for all rows.
class TColunasItem final
{
public:
    explicit TColunasItem(const TQ &q)
        : m_item(indice(q, "compra_item_tmp_cod")), m_prod(indice(q, "prod_cod")), m_embQtd(indice(q, "emb_qtd")),
          m_qtdEmbs(indice(q, "qtd_embs")), m_custoTot(indice(q, "custo_tot")), m_desconto(indice(q, "desconto")),
          m_cfop(indice(q, "cfop")), m_infoAdic(indice(q, "info_adic"))
    {
        for (const auto &c : TEstMovTrib::ColunasInt())
            m_ints.push_back(indice(q, c.coluna));
        for (const auto &c : TEstMovTrib::ColunasMoney())
            m_moneys.push_back(indice(q, c.coluna));
    }

    TItemBaixa Ler(const TQ &q) const
    {
        TItemBaixa item;
        item.itemCod = q.Fields(m_item).AsInteger();
        item.prodCod = q.Fields(m_prod).AsInteger();
        item.embQtd = q.Fields(m_embQtd).AsFloat();
        item.qtdEmbs = q.Fields(m_qtdEmbs).AsFloat();
        item.custoTot = q.Fields(m_custoTot).AsMoney();
        item.desconto = q.Fields(m_desconto).AsMoney();
        item.cfop = q.Fields(m_cfop).AsString().trimmed();
        item.infoAdic = q.Fields(m_infoAdic).AsString();
        int i = 0;
        for (const auto &c : TEstMovTrib::ColunasInt())
            item.trib.*(c.campo) = q.Fields(m_ints[i++]).AsInteger();
        i = 0;
        for (const auto &c : TEstMovTrib::ColunasMoney())
            item.trib.*(c.campo) = q.Fields(m_moneys[i++]).AsMoney();
        return item;
    }

private:
    static int indice(const TQ &q, const char *nome)
    {
        const int i = q.FieldIndex(QLatin1String(nome));
        if (i < 0)
            throw EErroBanco(QStringLiteral("Os itens da nota não trazem a coluna %1.").arg(QLatin1String(nome)));
        return i;
    }

    int m_item, m_prod, m_embQtd, m_qtdEmbs, m_custoTot, m_desconto, m_cfop, m_infoAdic;
    std::vector<int> m_ints;
    std::vector<int> m_moneys;
};

// The posting trace: its "vai ..." lines go to the hook, the others to the level-72 box.
class TRastroBaixa final
{
public:
    TRastroBaixa() : m_rastro(72) {}
    ~TRastroBaixa() { m_rastro.Exibir(TRastroDebug::CabecalhoLongo(72, QStringLiteral("TRepD.BaixarNota;"))); }

    bool Ativo() const { return m_rastro.Ativo(); }
    void operator()(const QString &linha)
    {
        if (linha.startsWith(QLatin1String("vai")))
            RastroHook(linha);
        else
            m_rastro.Add(linha);
    }

private:
    TRastroDebug m_rastro;
};

} // namespace

double TBaixaNota::QtdDoItem(double embQtd, double qtdEmbs)
{
    return RoundTo(RoundTo(embQtd, 3) * RoundTo(qtdEmbs, 3), 3);
}

Money TBaixaNota::CustoDoItem(Money custoTot, Money outras, Money desconto, double qtd, Money vipi, bool somarIPI)
{
    Money custo;
    if (qtd != 0)
        custo = (custoTot + outras - desconto).dividedBy(Money::fromDouble(qtd)).value_or(Money());
    if (somarIPI)
        custo += vipi;
    return custo;
}

QString TBaixaNota::SQLContaItensABaixar(const TNotaLinha &nota)
{
    return QLatin1String("select count(*) from COMPRA_ITEM_TMP where empr_cod=") + Int(nota.chave.emprCod)
           + QLatin1String(" and compra_cod=") + Int(nota.chave.compraCod) + QLatin1String(" and compra_item_tmp.estacao_cod=")
           + Int(nota.chave.estacaoCod) + QLatin1String("\r\n");
}

QString TBaixaNota::SQLItensABaixar(const TNotaLinha &nota)
{
    return QLatin1String("select * from COMPRA_ITEM_TMP where empr_cod=") + Int(nota.chave.emprCod)
           + QLatin1String(" and compra_cod=") + Int(nota.chave.compraCod)
           + QLatin1String(" and compra_item_tmp.estacao_cod=10\r\n order by compra_item_tmp_cod");
}

QString TBaixaNota::SQLPrecosDeUmItem(const TNotaLinha &nota, int itemCod)
{
    return QLatin1String("select tab_preco_cod, preco from COMPRA_ITEM_TMP_precos where empr_cod=") + Int(nota.chave.emprCod)
           + QLatin1String(" and estacao_cod=") + Int(nota.chave.estacaoCod) + QLatin1String(" and compra_item_tmp_cod=")
           + Int(itemCod) + QLatin1String(" order by tab_preco_cod");
}

QString TBaixaNota::SqlConfigBaixa()
{
    return QLatin1String("select valor from config where chave=") + QuotedStr(QStringLiteral("REP_PRODUC_CUSTO_CRIA"));
}

int TBaixaNota::GetEstMovCod(TConexaoSQL &conexao, const TNotaEstMov &nota, const TItemBaixa &item, double qtd,
                             Money custo, Money preco)
{
    return CompraEstMovInsNovo(conexao, nota, item.prodCod, qtd, custo, item.custoTot, preco, item.desconto,
                               QLatin1Char(' '), item.cfop, item.trib);
}

const QString TBaixaNota::AvisoBaixaInterrompida = QStringLiteral(
    "A baixa da nota foi interrompida e parte dos itens já foi lançada no estoque. Use Desbaixar para desfazer a "
    "parte lançada e depois baixe a nota de novo.");

int TBaixaNota::MovimentosLigados(TConexaoSQL &conexao, const TChaveNota &chave)
{
    return conexao.ValorInt(QLatin1String("select count(*) from compra_est_mov where empr_cod=") + Int(chave.emprCod)
                                + QLatin1String(" and estacao_cod=") + Int(chave.estacaoCod)
                                + QLatin1String(" and compra_cod=") + Int(chave.compraCod),
                            -1);
}

std::optional<bool> TBaixaNota::BaixadoNoBanco(TConexaoSQL &conexao, const TChaveNota &chave)
{
    const auto q = conexao.Ab(QLatin1String("select baixado from compra where empr_cod=") + Int(chave.emprCod)
                              + QLatin1String(" and estacao_cod=") + Int(chave.estacaoCod)
                              + QLatin1String(" and compra_cod=") + Int(chave.compraCod));
    if (!q || q->IsEmpty())
        return std::nullopt;
    return q->Fields(0).AsBoolean();
}

namespace {

QString NoItem(int contador, int prodCod)
{
    return QStringLiteral("no item %1 (produto %2)").arg(contador).arg(prodCod);
}

// A quantity or unit cost the money columns cannot hold, found before the first movement is
// written; empty when every item fits. `onde` names the item.
QString ValorForaDaColuna(TQ &itens, bool somarIPI, QString &onde)
{
    const TColunasItem colunas(itens);
    int contador = 1;
    for (itens.First(); !itens.Eof(); itens.Next(), ++contador) {
        const TItemBaixa item = colunas.Ler(itens);
        const double qtd = TBaixaNota::QtdDoItem(item.embQtd, item.qtdEmbs);
        const Money custo =
            TBaixaNota::CustoDoItem(item.custoTot, item.trib.outras, item.desconto, qtd, item.trib.vIPI, somarIPI);
        const QString valor = !Money::fromDouble(qtd).CabeNaColuna() ? QStringLiteral("A quantidade %1").arg(qtd, 0, 'f', 4)
                              : !custo.CabeNaColuna()                 ? QStringLiteral("O custo unitário ") + FloatToStrPonto(custo)
                                                                      : QString();
        if (!valor.isEmpty()) {
            onde = NoItem(contador, item.prodCod);
            return valor + QStringLiteral(" não cabe no banco de dados.");
        }
    }
    return {};
}

// The items in order: each one's movement, inputs, texts, taxes, and the costs and prices the
// type asks for. `custeados` collects the products whose cost was created; `onde` says which
// item is being handled and `lancados` counts the movements written, for the message of a failure.
void BaixarItens(TConexaoSQL &conexao, const TNotaLinha &nota, TQ &itens, bool somarIPI, bool criaCustos,
                 QStringList &custeados, TRastroBaixa &rastro, QString &onde, int &lancados)
{
    // Held for the whole loop, so that the routines' own Conectar/Desconectar pairs cost nothing.
    TConexaoSQL &host = TConexD::Conexao();
    ConectarOuErro(conexao, QStringLiteral("conectar ao banco"));
    const auto soltarModulo = qScopeGuard([&conexao] { conexao.Desconectar(); });
    ConectarOuErro(host, QStringLiteral("conectar ao banco"));
    const auto soltarHost = qScopeGuard([&host] { host.Desconectar(); });

    const TColunasItem colunas(itens);
    const TNotaEstMov notaMov{nota.chave.emprCod, nota.chave.estacaoCod, nota.chave.compraCod, nota.tipoCod};
    // Every composition is read before the first movement, so that one that cannot be read stops
    // the posting before anything is written.
    TEstMovCompo_DBI insumos(conexao);
    const int colunaProd = itens.FieldIndex(QStringLiteral("prod_cod"));
    for (itens.First(); !itens.Eof(); itens.Next())
        insumos.Composicao(itens.Fields(colunaProd).AsInteger());
    int contador = 1;
    for (itens.First(); !itens.Eof(); itens.Next(), ++contador) {
        if (contador % PassoProgresso == 0)
            TProgresso::Janela().PegarAtual(contador);
        const TItemBaixa item = colunas.Ler(itens);
        onde = NoItem(contador, item.prodCod);
        const auto precos = AbOuErro(conexao, TBaixaNota::SQLPrecosDeUmItem(nota, item.itemCod),
                                     QStringLiteral("ler os preços do item"));
        const double qtd = TBaixaNota::QtdDoItem(item.embQtd, item.qtdEmbs);
        const Money custo =
            TBaixaNota::CustoDoItem(item.custoTot, item.trib.outras, item.desconto, qtd, item.trib.vIPI, somarIPI);
        const Money preco = precos->IsEmpty() ? Money() : precos->Fields(1).AsMoney();

        const int estMovCod = TBaixaNota::GetEstMovCod(conexao, notaMov, item, qtd, custo, preco);
        ++lancados;
        insumos.Gravar(Contexto::Atual().empresa, estMovCod, item.prodCod, qtd);
        ExecOuErro(conexao,
                   QLatin1String("update est_mov set info_adic=") + QuotedStr(item.infoAdic)
                       + QLatin1String(" where empr_cod=") + Int(nota.chave.emprCod)
                       + QLatin1String(" and estacao_cod=10 and est_mov_cod=") + Int(estMovCod),
                   QStringLiteral("gravar as informações adicionais do movimento %1").arg(estMovCod));
        EstMovAjusteTrib(conexao, nota.chave.emprCod, TConexD::EstacaoCod(), estMovCod, item.trib.vICMS);

        rastro(QStringLiteral("vai testar se tipo_cod=34 compra ou 37, nota de prod. (%1)").arg(nota.tipoCod));
        if (!criaCustos)
            continue;
        if (rastro.Ativo()) {
            rastro(QStringLiteral("era compra ou produc"));
            rastro(QStringLiteral("prod_cod=") + Int(item.prodCod));
            rastro(QStringLiteral("custo=") + FloatToStrPonto(custo));
            rastro(QStringLiteral("fornec_cod=") + Int(nota.fornecCod));
        }
        ProdInserirCusto(EmprCustosPrecos, item.prodCod, custo, nota.fornecCod, nota.chave.compraCod, estMovCod);
        custeados << Int(item.prodCod);
        rastro(QStringLiteral("inseriu custo"));
        rastro(QStringLiteral("vai iniciar loop de criacao de precos"));
        for (precos->First(); !precos->Eof(); precos->Next()) {
            const int tabPrecoCod = precos->Fields(0).AsInteger();
            const Money precoTab = precos->Fields(1).AsMoney();
            rastro(QStringLiteral("vai criar preco"));
            if (rastro.Ativo()) {
                rastro(QStringLiteral("prod_cod=") + Int(item.prodCod));
                rastro(QStringLiteral("tab_preco_cod=") + Int(tabPrecoCod));
                rastro(QStringLiteral("preco=") + FloatToStrPonto(precoTab));
            }
            ProdInserirPreco(EmprCustosPrecos, tabPrecoCod, item.prodCod, precoTab, Money(),
                             Contexto::Atual().Hoje(), QLatin1Char('N'));
        }
    }
}

} // namespace

bool TBaixaNota::BaixarNota(const TNotaLinha &nota, bool somarIPI)
{
    TRastroBaixa rastro;

    if (!m_conexao.Conectar()) {
        MensagemErro(QStringLiteral("Erro acessando os itens. Processo interrompido."));
        return false;
    }
    // Posting again over movements already written would count them twice.
    const int ligados = MovimentosLigados(m_conexao, nota.chave);
    if (ligados != 0) {
        m_conexao.Desconectar();
        MensagemErro(ligados > 0 ? AvisoBaixaInterrompida
                                 : QStringLiteral("Não foi possível ler os movimentos de estoque da nota %1. A nota "
                                                  "não foi baixada.\n%2")
                                       .arg(nota.chave.DocStr(), m_conexao.UltimoErro()));
        return false;
    }
    const int qtdItens = m_conexao.ValorInt(SQLContaItensABaixar(nota));
    rastro(QStringLiteral("vai ler das configuracoes"));
    bool producCriaCustos = false;
    if (const auto config = m_conexao.Ab(SqlConfigBaixa())) {
        producCriaCustos = !config->IsEmpty() && config->Fields(0).AsString().trimmed() == QLatin1String("S");
        rastro(QStringLiteral("leu das config, ProducCriaCustos=") + (producCriaCustos ? "S" : "N"));
    } else {
        rastro(QStringLiteral("erro lendo das config, ProducCriaCustos=N"));
    }
    m_conexao.Desconectar();

    const auto itens = m_conexao.Ab(SQLItensABaixar(nota));
    if (!itens) {
        MensagemErro(QStringLiteral("Não foi possível ler os itens da nota %1. A nota não foi baixada.\n%2")
                         .arg(nota.chave.DocStr(), m_conexao.UltimoErro()));
        return false;
    }

    const bool criaCustos = nota.tipoCod == TipoDoc::Entrada || (producCriaCustos && nota.tipoCod == TipoDoc::Producao);
    QStringList custeados;
    TProgresso::Janela().Exibir(QStringLiteral("Entrada de estoque de produtos"), qtdItens);
    const auto fecharProgresso = qScopeGuard([] { TProgresso::Janela().Fechar(); });

    // Where a failure stopped the posting, for its message: once a movement is written, the
    // way back is unposting.
    QString onde = QStringLiteral("antes do primeiro item");
    int lancados = 0;
    const auto falhou = [&](const QString &causa) {
        const QString parou = QStringLiteral("A baixa da nota %1 parou %2.\n%3").arg(nota.chave.DocStr(), onde, causa);
        MensagemErro(lancados > 0 ? AvisoBaixaInterrompida + QLatin1Char('\n') + parou
                                  : parou + QStringLiteral("\nNada foi lançado no estoque; a nota continua não baixada."));
        return false;
    };
    if (const QString foraDaColuna = ValorForaDaColuna(*itens, somarIPI, onde); !foraDaColuna.isEmpty())
        return falhou(foraDaColuna);
    try {
        BaixarItens(m_conexao, nota, *itens, somarIPI, criaCustos, custeados, rastro, onde, lancados);
        onde = QStringLiteral("ao enviar os custos alterados");
        if (criaCustos)
            CustoEnviarSL(custeados, m_conexao.GetDatabase(), SessaoHost());
    } catch (const EErroBanco &e) {
        return falhou(e.Texto());
    } catch (const std::exception &e) {
        return falhou(QString::fromUtf8(e.what()));
    }

    if (!TConexD::Executar(QLatin1String("update compra set baixado='S' where empr_cod=") + Int(nota.chave.emprCod)
                           + QLatin1String(" and compra_cod=") + Int(nota.chave.compraCod)
                           + QLatin1String(" and estacao_cod=") + Int(nota.chave.estacaoCod))) {
        onde = QStringLiteral("ao marcá-la como baixada");
        return falhou(TConexD::Conexao().UltimoErro());
    }
    return true;
}
