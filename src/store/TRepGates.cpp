#include "TRepGates.h"

#include "Dialogos.h"
#include "TConexD.h"
#include "TConexaoSQL.h"
#include "TRepTotais.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QScopeGuard>

namespace {

const TipoDoc::TTipoDoc &Tipo(int tipoCod)
{
    const TipoDoc::TTipoDoc *tipo = TipoDoc::PorCodigo(tipoCod);
    return tipo ? *tipo : *TipoDoc::PorCodigo(TipoDoc::Entrada);
}

// The staged rows of a note: always station 10.
QString ChaveItens(const TChaveNota &chave)
{
    return QLatin1String("empr_cod=") + QString::number(chave.emprCod) + QLatin1String(" and compra_cod=")
           + QString::number(chave.compraCod) + QLatin1String(" and estacao_cod=10");
}

bool Falhou(const QString &oQue, const TConexaoSQL &conexao)
{
    MensagemErro(QStringLiteral("Não foi possível %1.\n%2").arg(oQue, conexao.UltimoErro()));
    return false;
}

} // namespace

bool TRepGates::TotItensAceito(const TChaveNota &chave, int tipoCod, bool somarIPI)
{
    const TipoDoc::TTipoDoc &tipo = Tipo(tipoCod);
    if (!m_conexao.Conectar())
        return Falhou(QStringLiteral("conferir os totais da nota"), m_conexao);
    const auto desconectar = qScopeGuard([this] { m_conexao.Desconectar(); });

    const int qtd =
        m_conexao.ValorInt(QLatin1String("select count(*) from compra_item_tmp where ") + ChaveItens(chave), -1);
    if (qtd < 0)
        return Falhou(QStringLiteral("contar os itens da nota"), m_conexao);
    if (qtd == 0) {
        MensagemInfo(QStringLiteral("Esta nota não possui itens cadastrados. Não pode ser baixada"));
        return false;
    }
    if (!tipo.conferirTotaisNaBaixa)
        return true;

    const auto itens =
        m_conexao.Ab(QLatin1String("select *\r\nfrom compra_item_tmp where ") + ChaveItens(chave));
    if (!itens)
        return Falhou(QStringLiteral("ler os itens da nota"), m_conexao);
    TRepTotais totais;
    totais.PegarDoDataSet(*itens, somarIPI);

    if (totais.Total == Money() && !tipo.aceitaValorZerado) {
        MensagemInfo(QStringLiteral("O valor desta nota está zerado. Não pode ser baixada"));
        return false;
    }
    if (tipo.ajustaTotalNaBaixa && !AjusteTotalProducao(chave, totais.Total)) {
        MensagemInfo(
            QStringLiteral("Erro acessando o servidor ao ajustar os totais da nota. Não pode ser baixada"));
        return false;
    }

    const auto cabec = m_conexao.Ab(
        QLatin1String("select tot_prods as custo_tot, \r\nipi, outras, icms, desconto, tot\r\n"
                      "from compra where empr_cod=")
        + QString::number(chave.emprCod) + QLatin1String(" and compra_cod=") + QString::number(chave.compraCod)
        + QLatin1String(" and estacao_cod=") + QString::number(chave.estacaoCod));
    if (!cabec)
        return Falhou(QStringLiteral("ler os totais da nota"), m_conexao);
    if (!totais.CustoTotAceito(cabec->FieldByName(QStringLiteral("custo_tot")).AsMoney())) {
        MensagemErro(
            QStringLiteral("O total de produtos deve ser igual ao total dos itens. A nota não pode ser baixada"));
        return false;
    }
    return true;
}

bool TRepGates::TotDosItensAceito(const TChaveNota &chave, int tipoCod)
{
    // A type that needs no quantities has nothing to read.
    if (!Tipo(tipoCod).exigeEmbQtd)
        return true;
    const auto itens = m_conexao.Ab(QLatin1String("select qtd_embs, emb_qtd from compra_item_tmp where ")
                                    + ChaveItens(chave) + QLatin1String(" order by compra_item_tmp_cod"));
    if (!itens)
        return Falhou(QStringLiteral("ler os itens da nota"), m_conexao);
    for (itens->First(); !itens->Eof(); itens->Next()) {
        // Quantities are doubles; only an exact zero stops the note.
        if (itens->Fields(0).AsFloat() == 0.0) {
            MensagemErro(QStringLiteral("Não foi possível baixar a nota pois um dos itens tem a quantidade de "
                                        "embalagens zerada"));
            return false;
        }
        if (itens->Fields(1).AsFloat() == 0.0) {
            MensagemErro(QStringLiteral("Não foi possível baixar a nota pois um dos itens tem a quantidade na "
                                        "embalagem zerada"));
            return false;
        }
    }
    return true;
}

bool TRepGates::AjusteTotalProducao(const TChaveNota &chave, Money total)
{
    if (!TTerminalModoOper::ConectouServidor())
        return false;
    TConexaoSQL propria;
    propria.PegarDados(m_conexao);
    if (!propria.Conectar())
        return false;
    const auto desconectar = qScopeGuard([&propria] { propria.Desconectar(); });
    const QString valor = FloatToStrPonto(total);
    if (!propria.Exec(QLatin1String("update compra set tot_prods=") + valor + QLatin1String(", tot=") + valor
                      + QLatin1String(" where empr_cod=") + QString::number(chave.emprCod)
                      + QLatin1String(" and estacao_cod=") + QString::number(chave.estacaoCod)
                      + QLatin1String(" and compra_cod=") + QString::number(chave.compraCod)))
        return false;
    return true;
}
