#include "URepF_ImportItens.h"

#include "AvisosImportacao.h"
#include "ExecutarModal.h"
#include "Money.h"
#include "TBuscaArq.h"
#include "TClientDataSet.h"
#include "TEdNotaPanel.h"
#include "TItemNotaTela.h"
#include "TNFe_XMLI.h"
#include "TNumEditBR.h"
#include "TProgresso.h"
#include "URepF_ImportItensF.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <memory>

TRepF_ImportItens::TRepF_ImportItens(const TFornec &fornec, const QStringList &chaves, TConexaoSQL &conexao,
                                     const QString &pastaFiscal, const QString &nomeArqDanfe, const TTelaNota &tela,
                                     TProgresso &andamento)
    : m_fornec(fornec), m_chaves(chaves), m_conexao(conexao), m_pastaFiscal(pastaFiscal),
      m_nomeArqDanfe(nomeArqDanfe), m_tela(tela), m_andamento(andamento)
{
}

void TRepF_ImportItens::Executar()
{
    TRepF_ImportItensF dialogo(m_conexao, m_fornec.codigo, &m_tela.form);
    dialogo.SetTipoDoc(TipoDoc::IndiceDoCodigo(m_tela.tela.TipoDocSelecionado()));
    Preencher(dialogo);
    if (ExecutarModal(dialogo) != QDialog::Accepted)
        return;
    AjustarTots(dialogo);
    DigitarItens(dialogo);
}

// "<key>-nfe.xml", "<key>.xml", then the DANFE name, each in the fiscal folder or below it.
QString TRepF_ImportItens::localizar(const QString &chave, QString *nomeProcurado) const
{
    TBuscaArq busca;
    busca.Pasta = m_pastaFiscal;
    for (const QString &nome : {chave + QStringLiteral("-nfe.xml"), chave + QStringLiteral(".xml"), m_nomeArqDanfe}) {
        if (nome.isEmpty())
            continue;
        *nomeProcurado = nome;
        busca.NomeArq = nome;
        if (busca.Execute())
            return busca.GetUltimoCaminho();
    }
    return {};
}

void TRepF_ImportItens::Preencher(TRepF_ImportItensF &dialogo)
{
    QStringList status;
    const auto informar = [&](const QStringList &linhas) {
        status << linhas;
        dialogo.SetStatus(status.join(u'\n'));
    };
    for (const QString &chave : std::as_const(m_chaves)) {
        QString nome;
        const QString caminho = localizar(chave, &nome);
        if (caminho.isEmpty()) {
            informar({QStringLiteral("Erro arquivo não encontrado ") + nome});
            continue;
        }
        informar({QStringLiteral("Encontrado ") + caminho});
        auto documento = std::make_unique<TnfeProc>();
        TNFe_XMLI leitor(*documento);
        if (!leitor.ImportarDoArq(caminho)) {
            informar({leitor.Erro()});
            continue;
        }
        informar(AvisosImportacao(m_conexao, m_tela.tela.NotaEmprCod(), *documento, m_notaAtual));
        dialogo.AdicionarDocumento(std::move(documento));
    }
    dialogo.PreencherItensOrigem();
}

void TRepF_ImportItens::AjustarTots(TRepF_ImportItensF &dialogo)
{
    TClientDataSet &destino = dialogo.DestinoDataSet();
    Money total;
    for (destino.First(); !destino.Eof(); destino.Next()) {
        const double qtd = RoundTo(destino.FieldByName(QStringLiteral("QTD")).AsFloat(), 3);
        const double custoUnit = RoundTo(destino.FieldByName(QStringLiteral("CUSTO_UNIT")).AsFloat(), 4);
        total += Money::fromDouble(RoundTo(qtd * custoUnit, 2));
    }
    destino.First();
    m_tela.cabec.TotProdNumEditBR()->SetMoney(total);
}

void TRepF_ImportItens::DigitarItens(TRepF_ImportItensF &dialogo)
{
    TClientDataSet &destino = dialogo.DestinoDataSet();
    m_andamento.Exibir(QStringLiteral("Inserindo itens..."), destino.RecordCount());
    TDigitadorItens digitador(m_tela);
    const auto valor = [&destino](const QString &coluna) { return destino.FieldByName(coluna).AsString(); };
    int linha = 0;
    for (destino.First(); !destino.Eof(); destino.Next()) {
        digitador.DigitarLinha(valor);
        m_andamento.PegarAtual(++linha);
    }
    m_andamento.Fechar();
}
