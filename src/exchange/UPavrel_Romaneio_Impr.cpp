#include "UPavrel_Romaneio_Impr.h"

#include "Dialogos.h"
#include "TChaveNota.h"
#include "TImpressora.h"
#include "TSelecaoImpressora.h"
#include "TextosHost.h"
#include "Valores.h"

#include <QScopeGuard>

namespace {

constexpr int LarguraLinha = 100;
constexpr int LarguraDescricao = 70;

// Connects for one read and disconnects on every path; the message once when it fails.
template <typename Leitura>
bool LerConectado(TConexaoSQL &conexao, const QString &mensagem, Leitura ler)
{
    QString erro;
    bool ok = conexao.Conectar();
    if (!ok)
        erro = conexao.UltimoErro();
    const auto desconectar = qScopeGuard([&conexao, ok] {
        if (ok)
            conexao.Desconectar();
    });
    ok = ok && ler(&erro);
    if (!ok)
        MensagemErro(mensagem + erro);
    return ok;
}

} // namespace

TPavrel_Romaneio_Impr::TPavrel_Romaneio_Impr(int emprCod, int compraCod, const QString &database, int estacao,
                                             const QString &usuario, const QString &senha)
    : m_emprCod(emprCod), m_compraCod(compraCod), m_estacao(estacao), m_conexao(TDadosBanco{database, usuario, senha})
{
}

bool TPavrel_Romaneio_Impr::PegarCabec()
{
    return LerConectado(m_conexao, QStringLiteral("Erro buscando dados da nota "), [this](QString *erro) {
        return TRomaneio_DBI::LerCabec(m_conexao, m_emprCod, m_compraCod, m_cabec, erro);
    });
}

bool TPavrel_Romaneio_Impr::PegarConfig()
{
    return LerConectado(m_conexao, QStringLiteral("Erro buscando configurações "), [this](QString *erro) {
        QString valor;
        const bool ok = TRomaneio_DBI::LerOrdImpr(m_conexao, valor, erro);
        m_printOrder = valor != QLatin1String("N");
        return ok;
    });
}

bool TPavrel_Romaneio_Impr::PegarItens()
{
    return LerConectado(m_conexao, QStringLiteral("Erro buscando dados da nota "), [this](QString *erro) {
        return TRomaneio_DBI::LerItens(m_conexao, m_emprCod, m_compraCod, m_itens, erro);
    });
}

QString TPavrel_Romaneio_Impr::GetRegStr(const QString &ordem, const QString &codigo, const QString &qtd,
                                         const QString &descricao) const
{
    QString linha(LarguraLinha, QLatin1Char(' '));
    if (m_printOrder)
        EscreverNaStrADir(linha, ordem, 5);
    EscreverNaStr(linha, codigo, 12);
    EscreverNaStr(linha, qtd.trimmed(), 21);
    // Right-aligned on purpose: the warehouse reads the descriptions against the right edge.
    EscreverNaStrADir(linha, descricao, 99);
    return linha;
}

QString TPavrel_Romaneio_Impr::LinhaCabec() const
{
    QString linha;
    if (m_cabec.temDtDoc)
        linha = QStringLiteral("DT.DOC: ") + FormatDateTime(QStringLiteral("dd/mm/yy"), m_cabec.dtDoc) + QStringLiteral("    ");
    linha += QStringLiteral("DT.LANÇAMENTO: ") + FormatDateTime(QStringLiteral("dd/mm/yy hh:nn:ss"), m_cabec.dthCri);
    if (m_cabec.baixado)
        linha += QStringLiteral("  BAIXADA");
    if (m_cabec.cancelado)
        linha += QStringLiteral("  CANCELADA");
    return linha;
}

QString TPavrel_Romaneio_Impr::CabecColunas() const
{
    return GetRegStr(QStringLiteral("ORDEM"), QStringLiteral("CODIGO"), QStringLiteral("QTD"), QStringLiteral("DESCRICAO"));
}

QString TPavrel_Romaneio_Impr::Titulo() const
{
    return QStringLiteral("ROMANEIO ") + TChaveNota{m_emprCod, 0, m_compraCod}.DocStr();
}

QStringList TPavrel_Romaneio_Impr::LinhasItem(const TTavro_Romaneio_Item &item) const
{
    const QStringList descricao = QuebrarTexto(item.descr, LarguraDescricao);
    QStringList linhas{GetRegStr(item.ordem, item.prodCod, FormatFloat(QStringLiteral("######0.###"), item.qtd),
                                 descricao.first())};
    const QString branco(QLatin1Char(' '));
    for (qsizetype i = 1; i < descricao.size(); ++i)
        linhas << GetRegStr(branco, branco, branco, descricao.at(i));
    return linhas;
}

void TPavrel_Romaneio_Impr::Montar(TImpressora &impressora, int copias) const
{
    TConfigPagina &pagina = impressora.Config();
    pagina.fonte = QStringLiteral("Courier New");
    pagina.tamanho = 9;
    pagina.colunas = LarguraLinha;
    pagina.DefinirMargens(0.5, 0.5, 0.5, 1.0);
    const QString cabec = LinhaCabec();
    const QString colunas = CabecColunas();
    const QString titulo = Titulo();
    const QString traco(LarguraLinha, QLatin1Char('-'));
    for (int copia = 0; copia < copias; ++copia) {
        impressora.IniciarDoc(titulo, {cabec}, colunas);
        for (const TTavro_Romaneio_Item &item : m_itens) {
            for (const QString &linha : LinhasItem(item))
                impressora.Imprimir(linha);
            impressora.Imprimir(traco);
        }
        const QString fim = QStringLiteral("FIM DO ROMANEIO");
        const int esquerda = (LarguraLinha - int(fim.size())) / 2;
        impressora.Imprimir(QString(esquerda, QLatin1Char(' ')) + fim + QString(LarguraLinha - esquerda - fim.size(), QLatin1Char(' ')));
        impressora.FimDoc();
    }
}

bool TPavrel_Romaneio_Impr::Execute(TSelecaoImpressora &selecao)
{
    if (!selecao.Selecionar(Titulo()) || !Ler())
        return false;
    TImpressora impressora;
    Montar(impressora, selecao.Copias());
    QString erro;
    if (!selecao.Imprimir(impressora, &erro)) {
        if (!erro.isEmpty())
            MensagemErro(erro);
        return false;
    }
    return true;
}
