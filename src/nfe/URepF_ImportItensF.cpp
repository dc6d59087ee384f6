#include "URepF_ImportItensF.h"

#include "Dialogos.h"
#include "TClientManager.h"
#include "TGradeDataSet.h"
#include "TImportItensDados.h"
#include "TextoDataSet.h"
#include "Valores.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QPushButton *Botao(const QString &texto, const char *nome, QWidget *pai)
{
    auto *botao = new QPushButton(texto, pai);
    botao->setObjectName(QLatin1String(nome));
    botao->setAutoDefault(false);
    return botao;
}

} // namespace

TRepF_ImportItensF::TRepF_ImportItensF(TConexaoSQL &conexao, int fornecCod, QWidget *parent)
    : QDialog(parent), m_dados(std::make_unique<TImportItensDados>(conexao, fornecCod))
{
    setObjectName(QStringLiteral("RepF_ImportItensF"));
    setWindowTitle(QStringLiteral("Importar itens dos XMLs"));
    MontarTela();
    resize(1100, 650);
}

TRepF_ImportItensF::~TRepF_ImportItensF() = default;

void TRepF_ImportItensF::MontarTela()
{
    auto *layout = new QVBoxLayout(this);
    auto *titulo = new QLabel(QStringLiteral("Notas de Origem"), this);
    titulo->setObjectName(QStringLiteral("NotasLabel"));
    layout->addWidget(titulo);

    m_notasGrid = new QTableWidget(0, 4, this);
    m_notasGrid->setObjectName(QStringLiteral("NotasStringGrid"));
    m_notasGrid->setHorizontalHeaderLabels({QStringLiteral("Número"), QStringLiteral("Dt.Emissão"), QStringLiteral("Valor"),
                                            QStringLiteral("Chave")});
    m_notasGrid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_notasGrid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_notasGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_notasGrid->horizontalHeader()->setStretchLastSection(true);
    m_notasGrid->verticalHeader()->hide();
    m_notasGrid->setMaximumHeight(120);
    layout->addWidget(m_notasGrid);

    auto *botoes = new QHBoxLayout;
    m_zerarButton = Botao(QStringLiteral("Limpar Quantidades"), "ZerarQtdsButton", this);
    m_maxButton = Botao(QStringLiteral("Devolver Tudo"), "QtdsMaxButton", this);
    botoes->addWidget(m_zerarButton);
    botoes->addWidget(m_maxButton);
    botoes->addStretch();
    layout->addLayout(botoes);
    connect(m_zerarButton, &QPushButton::clicked, this, &TRepF_ImportItensF::ZerarQtds);
    connect(m_maxButton, &QPushButton::clicked, this, &TRepF_ImportItensF::QtdsMax);

    auto *divisor = new QSplitter(Qt::Vertical, this);
    divisor->setObjectName(QStringLiteral("Splitter"));
    m_origemGrid = new QTableView(divisor);
    m_origemGrid->setObjectName(QStringLiteral("OrigemGrid"));
    m_origemModelo = new TClientManager(&m_dados->Origem(), this);
    TGradeDataSet::Attach(m_origemModelo, m_origemGrid);
    m_origemGrid->installEventFilter(this);
    connect(m_origemGrid, &QTableView::doubleClicked, this, &TRepF_ImportItensF::QtdDevEdit);
    m_destinoGrid = new QTableView(divisor);
    m_destinoGrid->setObjectName(QStringLiteral("DestinoGrid"));
    m_destinoModelo = new TClientManager(&m_dados->Destino(), this);
    TGradeDataSet::Attach(m_destinoModelo, m_destinoGrid);
    layout->addWidget(divisor, 1);

    m_statusLabel = new QLabel(this);
    m_statusLabel->setObjectName(QStringLiteral("StatusLabel"));
    m_statusLabel->setTextFormat(Qt::PlainText);
    m_statusLabel->setWordWrap(true);
    layout->addWidget(m_statusLabel);

    auto *rodape = new QHBoxLayout;
    auto *copiar = Botao(QStringLiteral("&Copiar"), "CopiarButton", this);
    auto *ok = Botao(QStringLiteral("&OK"), "OkButton", this);
    auto *cancelar = Botao(QStringLiteral("&Cancelar"), "CancelButton", this);
    rodape->addWidget(copiar);
    rodape->addStretch();
    rodape->addWidget(ok);
    rodape->addWidget(cancelar);
    layout->addLayout(rodape);
    connect(copiar, &QPushButton::clicked, this, &TRepF_ImportItensF::Copiar);
    connect(ok, &QPushButton::clicked, this, &TRepF_ImportItensF::OkActExecute);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
}

TnfeProcList &TRepF_ImportItensF::Documentos() { return m_dados->Documentos(); }

void TRepF_ImportItensF::AdicionarDocumento(std::unique_ptr<TnfeProc> documento)
{
    m_dados->AdicionarDocumento(std::move(documento));
}

TClientDataSet &TRepF_ImportItensF::OrigemDataSet() { return m_dados->Origem(); }
TClientDataSet &TRepF_ImportItensF::DestinoDataSet() { return m_dados->Destino(); }

void TRepF_ImportItensF::PreencherItensOrigem()
{
    if (!m_dados->PreencherItensOrigem())
        MensagemErro(m_dados->Erro());
    PreencherNotas();
}

void TRepF_ImportItensF::PreencherItensDestino() { m_dados->PreencherItensDestino(); }

void TRepF_ImportItensF::PreencherNotas()
{
    const QList<TNotaOrigem> &notas = m_dados->NotasOrigem();
    m_notasGrid->setRowCount(int(notas.size()));
    for (int i = 0; i < notas.size(); ++i) {
        const TNotaOrigem &n = notas[i];
        const QStringList textos = {QString::number(n.numero), FormatDateTime(QStringLiteral("dd/mm/yy"), n.emissao),
                                    FormatFloat(QStringLiteral("#,###,##0.00"), n.valor), n.chave};
        for (int c = 0; c < textos.size(); ++c)
            m_notasGrid->setItem(i, c, new QTableWidgetItem(textos[c]));
    }
    m_notasGrid->resizeColumnsToContents();
}

void TRepF_ImportItensF::SetStatus(const QString &texto) { m_statusLabel->setText(texto); }
QString TRepF_ImportItensF::Status() const { return m_statusLabel->text(); }

void TRepF_ImportItensF::QtdDevEdit()
{
    TClientDataSet &origem = m_dados->Origem();
    const int linha = origem.RecNo() - 1;
    if (linha < 0)
        return;
    if (!m_dados->TemProduto(linha)) {
        MensagemProib(QStringLiteral("Esse item não pode ser usado pois não está relacionado a um produto do sistema"));
        return;
    }
    const TField &qtdOrig = origem.FieldByName(QStringLiteral("qtd_orig"));
    double qtd = origem.FieldByName(QStringLiteral("qtd_dev")).AsFloat();
    const QString texto = origem.FieldByName(QStringLiteral("descr_deles")).AsString() + QLatin1Char('/')
                          + QStringLiteral("Quantidade a devolver (máximo ") + qtdOrig.DisplayText() + QLatin1Char(')');
    if (PerguntarQtd(QStringLiteral("Qtd.Dev"), texto, qtdOrig.AsFloat(), qtd))
        m_dados->SetQtdDev(linha, qtd);
}

void TRepF_ImportItensF::ExecutarBotao(QPushButton *botao, void (TImportItensDados::*acao)())
{
    botao->setEnabled(false);
    m_origemGrid->setUpdatesEnabled(false);
    (m_dados.get()->*acao)();
    m_origemGrid->setUpdatesEnabled(true);
    botao->setEnabled(true);
}

void TRepF_ImportItensF::ZerarQtds() { ExecutarBotao(m_zerarButton, &TImportItensDados::ZerarQtds); }
void TRepF_ImportItensF::QtdsMax() { ExecutarBotao(m_maxButton, &TImportItensDados::QtdsMax); }

void TRepF_ImportItensF::OkActExecute()
{
    if (m_dados->Destino().IsEmpty()) {
        MensagemProib(QStringLiteral("Nenhuma quantidade foi indicada"));
        return;
    }
    accept();
}

void TRepF_ImportItensF::Copiar()
{
    QApplication::clipboard()->setText(TextoTabulado(m_dados->Origem()));
}

bool TRepF_ImportItensF::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_origemGrid && evento->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Space) {
        QtdDevEdit();
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}
