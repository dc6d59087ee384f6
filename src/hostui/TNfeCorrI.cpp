#include "TNfeCorrI.h"

#include "Contexto.h"
#include "Dialogos.h"
#include "ExecutarModal.h"
#include "TConexaoSQL.h"
#include "TDacce.h"
#include "TEnvioNFe.h"
#include "TProgresso.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int Minimo = 15, Maximo = 1000;

QPushButton *Botao(const QString &texto, const QString &nome, QWidget *pai)
{
    auto *b = new QPushButton(texto, pai);
    b->setObjectName(nome);
    b->setAutoDefault(false);
    return b;
}
} // namespace

void TNfeCorrI::EditarNfeCorr(const QString &chave, int docTipo, const QString &descricao, QWidget *pai)
{
    TNfeCorrF dialogo(chave, docTipo, descricao, pai);
    ExecutarModal(dialogo);
}

TNfeCorrF::TNfeCorrF(const QString &chave, int docTipo, const QString &descricao, QWidget *parent)
    : QDialog(parent), m_chave(chave), m_descricao(descricao), m_docTipo(docTipo)
{
    setObjectName(QStringLiteral("NfeCorrF"));
    setWindowTitle(QStringLiteral("Carta de Correção da NF-e"));
    auto *rotulo = new QLabel(descricao + QStringLiteral("\nChave: ") + chave, this);
    rotulo->setObjectName(QStringLiteral("DescricaoLabel"));
    m_grade = new QTableWidget(0, 4, this);
    m_grade->setObjectName(QStringLiteral("CartasGrid"));
    m_grade->setHorizontalHeaderLabels({QStringLiteral("Seq"), QStringLiteral("Data"), QStringLiteral("Protocolo"),
                                        QStringLiteral("Correção")});
    m_grade->horizontalHeader()->setStretchLastSection(true);
    m_grade->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grade->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grade->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_texto = new QPlainTextEdit(this);
    m_texto->setObjectName(QStringLiteral("TextoMemo"));
    m_texto->setTabChangesFocus(true);
    m_contador = new QLabel(this);
    m_contador->setObjectName(QStringLiteral("ContadorLabel"));
    m_enviar = Botao(QStringLiteral("&Enviar"), QStringLiteral("EnviarButton"), this);
    m_imprimir = Botao(QStringLiteral("&Imprimir"), QStringLiteral("ImprimirButton"), this);
    auto *fechar = Botao(QStringLiteral("&Fechar"), QStringLiteral("FecharButton"), this);
    connect(m_enviar, &QPushButton::clicked, this, &TNfeCorrF::Enviar);
    connect(m_imprimir, &QPushButton::clicked, this, &TNfeCorrF::Imprimir);
    connect(fechar, &QPushButton::clicked, this, &TNfeCorrF::accept);
    connect(m_texto, &QPlainTextEdit::textChanged, this, &TNfeCorrF::TextoAlterado);
    connect(m_grade, &QTableWidget::itemSelectionChanged, this,
            [this] { m_imprimir->setEnabled(!m_grade->selectedItems().isEmpty()); });
    auto *botoes = new QHBoxLayout;
    botoes->addWidget(m_enviar);
    botoes->addWidget(m_imprimir);
    botoes->addStretch();
    botoes->addWidget(fechar);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(rotulo);
    layout->addWidget(m_grade, 2);
    layout->addWidget(new QLabel(QStringLiteral("Nova correção (de %1 a %2 caracteres):").arg(Minimo).arg(Maximo), this));
    layout->addWidget(m_texto, 1);
    layout->addWidget(m_contador);
    layout->addLayout(botoes);
    resize(720, 480);
    Carregar();
    TextoAlterado();
}

void TNfeCorrF::Carregar()
{
    TConexaoSQL conexao;
    QList<TCartaCorrecaoNFe> cartas;
    QString erro;
    if (!TDacce::Cartas(conexao, Contexto::Atual().empresa, m_chave, &cartas, &erro))
        MensagemErro(erro);
    m_grade->setRowCount(0);
    for (const TCartaCorrecaoNFe &c : cartas) {
        const int linha = m_grade->rowCount();
        m_grade->insertRow(linha);
        const QStringList valores{QString::number(c.seq), c.dthEnv.toString(QStringLiteral("dd/MM/yy HH:mm")),
                                  c.protocolo, c.texto};
        for (int coluna = 0; coluna < valores.size(); ++coluna)
            m_grade->setItem(linha, coluna, new QTableWidgetItem(valores.at(coluna)));
    }
    m_imprimir->setEnabled(false);
}

void TNfeCorrF::TextoAlterado()
{
    const int tamanho = int(m_texto->toPlainText().trimmed().size());
    m_contador->setText(QStringLiteral("%1 de %2 caracteres").arg(tamanho).arg(Maximo));
    m_enviar->setEnabled(tamanho >= Minimo && tamanho <= Maximo);
}

void TNfeCorrF::Enviar()
{
    m_enviar->setEnabled(false);
    TConexaoSQL conexao;
    TEnvioNFe envio(conexao, Contexto::Atual().empresa);
    TProgresso &janela = TProgresso::Janela();
    janela.Exibir(QStringLiteral("Enviando carta de correção..."), 0);
    envio.DefinirProgresso([&janela](const QString &titulo) { janela.PegarAtual(0, titulo); });
    int seq = 0;
    QString erro;
    const bool ok = envio.CartaCorrecao(m_chave, m_docTipo, m_descricao, m_texto->toPlainText(), &seq, &erro);
    janela.Fechar();
    Carregar();
    if (!ok) {
        MensagemErro(erro);
        TextoAlterado();
        return;
    }
    const TRetornoNFe r = envio.UltimoRetorno();
    m_texto->clear();
    MensagemInfo(QStringLiteral("Carta de correção %1 registrada pela SEFAZ: %2 - %3").arg(seq).arg(r.cStat).arg(r.xMotivo));
}

void TNfeCorrF::Imprimir()
{
    const QList<QTableWidgetItem *> itens = m_grade->selectedItems();
    if (itens.isEmpty())
        return;
    const int seq = m_grade->item(itens.first()->row(), 0)->text().toInt();
    TConexaoSQL conexao;
    QString erro;
    if (!TDacce::Imprimir(conexao, Contexto::Atual().empresa, m_chave, seq, &erro) && !erro.isEmpty())
        MensagemErro(erro);
}
