#include "TNFeDeInteresseF.h"

#include "Dialogos.h"
#include "Valores.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

TNFeDeInteresseF::TNFeDeInteresseF(TConexaoSQL &conexao, int empresa, QWidget *parent)
    : QDialog(parent), m_distribuicao(conexao, empresa)
{
    setWindowTitle(QStringLiteral("NFe de Interesse"));
    resize(980, 520);
    const auto botao = [this](const QString &texto, auto acao) {
        auto *b = new QPushButton(texto, this);
        connect(b, &QPushButton::clicked, this, acao);
        m_botoes << b;
        return b;
    };
    auto *topo = new QHBoxLayout;
    topo->addWidget(botao(QStringLiteral("Baixar novas"), [this] { BaixarNovas(); }));
    m_situacao = new QLabel(this);
    topo->addWidget(m_situacao, 1);

    m_grade = new QTableWidget(0, 6, this);
    m_grade->setObjectName(QStringLiteral("DocumentosGrid"));
    m_grade->setHorizontalHeaderLabels({QStringLiteral("Chave"), QStringLiteral("Emitente"), QStringLiteral("Data"),
                                        QStringLiteral("Valor"), QStringLiteral("Tipo"), QStringLiteral("XML")});
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grade->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_grade->verticalHeader()->hide();

    auto *manifestacoes = new QHBoxLayout;
    for (const auto &[tipo, titulo] : {std::pair{TManifestacao::Ciencia, QStringLiteral("Ciência da Operação")},
                                       std::pair{TManifestacao::Confirmacao, QStringLiteral("Confirmação da Operação")},
                                       std::pair{TManifestacao::Desconhecimento, QStringLiteral("Desconhecimento da Operação")},
                                       std::pair{TManifestacao::NaoRealizada, QStringLiteral("Operação não Realizada")}})
        manifestacoes->addWidget(botao(titulo, [this, tipo, titulo] { Manifestar(tipo, titulo); }));
    manifestacoes->addStretch();
    manifestacoes->addWidget(botao(QStringLiteral("Abrir pasta"), [this] { AbrirPasta(); }));
    manifestacoes->addWidget(botao(QStringLiteral("Fechar"), [this] { reject(); }));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(topo);
    layout->addWidget(m_grade, 1);
    layout->addLayout(manifestacoes);
    m_distribuicao.DefinirProgresso([this](const QString &titulo) {
        m_situacao->setText(titulo);
        QApplication::processEvents();
    });
    Preencher();
}

void TNFeDeInteresseF::Preencher()
{
    m_documentos = m_distribuicao.Listar();
    m_grade->setRowCount(int(m_documentos.size()));
    for (int linha = 0; linha < m_documentos.size(); ++linha) {
        const TNFeDeInteresse &doc = m_documentos.at(linha);
        const bool evento = doc.tipo == QLatin1String("evento");
        const QStringList celulas{
            doc.chave,
            (doc.cnpjEmitente + u' ' + doc.nomeEmitente).trimmed(),
            doc.dhEmi.toString(QStringLiteral("dd/MM/yyyy HH:mm")),
            doc.valor.isEmpty() ? QString() : FormatFloat(QStringLiteral("#,###,##0.00"), doc.valor.toDouble()),
            evento ? QStringLiteral("Evento %1").arg(doc.tpEvento) : QStringLiteral("NF-e"),
            evento ? QString() : doc.completo ? QStringLiteral("Completo") : QStringLiteral("Resumo"),
        };
        for (int coluna = 0; coluna < celulas.size(); ++coluna)
            m_grade->setItem(linha, coluna, new QTableWidgetItem(celulas.at(coluna)));
    }
    m_grade->resizeColumnToContents(0);
}

void TNFeDeInteresseF::Ocupado(bool ocupado)
{
    for (QPushButton *b : std::as_const(m_botoes))
        b->setEnabled(!ocupado);
    if (!ocupado)
        m_situacao->clear();
}

void TNFeDeInteresseF::BaixarNovas()
{
    Ocupado(true);
    QList<TNFeDeInteresse> novos;
    QString erro;
    const bool ok = m_distribuicao.Baixar(&novos, &erro);
    Ocupado(false);
    Preencher();
    if (!ok)
        MensagemErro(erro);
    else
        MensagemInfo(QStringLiteral("%1 documento(s) recebido(s). SEFAZ: %2 - %3")
                         .arg(novos.size()).arg(m_distribuicao.UltimoCStat()).arg(m_distribuicao.UltimoXMotivo()));
}

void TNFeDeInteresseF::Manifestar(TManifestacao tipo, const QString &titulo)
{
    const int linha = m_grade->currentRow();
    if (linha < 0 || linha >= m_documentos.size()) {
        MensagemInfo(QStringLiteral("Selecione uma NF-e na lista"));
        return;
    }
    const QString chave = m_documentos.at(linha).chave;
    QString justificativa;
    if (tipo == TManifestacao::NaoRealizada) {
        bool ok = false;
        justificativa = QInputDialog::getMultiLineText(this, titulo, QStringLiteral("Justificativa (de 15 a 255 caracteres):"),
                                                       QString(), &ok);
        if (!ok)
            return;
    } else if (!Pergunta(QStringLiteral("Enviar \"%1\" da NF-e %2?").arg(titulo, chave))) {
        return;
    }
    Ocupado(true);
    QString erro;
    const bool ok = m_distribuicao.Manifestar(chave, tipo, justificativa, &erro);
    Ocupado(false);
    Preencher();
    if (!ok) {
        MensagemErro(erro);
        return;
    }
    QString texto = QStringLiteral("Manifestação registrada: %1 - %2").arg(m_distribuicao.UltimoCStat()).arg(m_distribuicao.UltimoXMotivo());
    if (!m_distribuicao.UltimoAviso().isEmpty())
        texto += QStringLiteral("\n") + m_distribuicao.UltimoAviso();
    MensagemInfo(texto);
}

void TNFeDeInteresseF::AbrirPasta()
{
    QString erro;
    const QString pasta = TDistribuicaoNFe::PastaDestino(&erro);
    if (pasta.isEmpty() || !QDir().mkpath(pasta)) {
        MensagemErro(pasta.isEmpty() ? erro : QStringLiteral("Não foi possível criar a pasta %1").arg(QDir::toNativeSeparators(pasta)));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(pasta)))
        MensagemErro(QStringLiteral("Não foi possível abrir a pasta %1").arg(QDir::toNativeSeparators(pasta)));
}
