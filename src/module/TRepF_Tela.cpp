// Building the screen: actions, filters, panels and the lists they offer.
#include "TRepF.h"

#include "TAndamento.h"
#include "TClientManager.h"
#include "TConexD.h"
#include "TConsultasDBI.h"
#include "TEdNotaPanel.h"
#include "TGradeDataSet.h"
#include "TImpressoraNFeQt.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TPreencheTribSL.h"
#include "TTotaisBar.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

struct DefAcao
{
    const char *nome;
    const char *caption;
    const char *hint;
    const char *grupo;
    bool naBarra;
};

// Every action of the screen, in the order the task menu lists them.
const DefAcao Acoes[] = {
    {"NotaInsAct", "Inserir", "Inserir Nota", "", true},
    {"AltAct", "Alterar", "Alterar Nota", "", true},
    {"BaixarAct", "Baixar", "", "", true},
    {"CancAct", "Cancelar", "", "", true},
    {"EtiqAct", "Etiquetas", "", "", false},
    {"ConsultarAction", "Consultar", "", "", true},
    {"ExportarComprasAct", "Exportar Notas", "", "ExpImp", false},
    {"ImportarComprasAct", "Importar Notas", "", "ExpImp", false},
    {"NFEEnviarAct", "Enviar NFE", "", "NFE", false},
    {"NFECancAct", "Enviar Canc.", "", "NFE", false},
    {"NFEImprAct", "Reimprimir", "", "NFE", false},
    {"NfeCorrAct", "Carta de Correção", "", "NFE", false},
    {"AltInfoAct", "Informações do Fisco", "", "Notas", false},
    {"AjusteAct", "Ajustar Nota", "", "", false},
    {"EstoInsumosItemAct", "Insumos do Item", "", "Estoque", false},
    {"EstoInsumosNotaAct", "Insumos da Nota", "", "Estoque", false},
    {"InsDevAct", "Cria devolução", "", "Notas", false},
    {"NFEDeInteresseAct", "NFe de Interesse", "Baixar NFe de interesse da empresa. NFes onde somos o destinatário", "", false},
    {"RomaneioImprAct", "Romaneio", "Imprime Lista de Prdutos", "Notas", false},
    {"NotaExportAct", "Exportar", "Exportar documento para as filiais", "Notas", true},
    {"DesbaixarAct", "Desbaixar", "", "Notas", true},
    {"EmprCadAct", "Empresa", "Dados da empresa para a NF-e", "Tabelas", false},
    {"FornecCadAct", "Fornecedores", "Fornecedores e clientes", "Tabelas", false},
    {"CertificadoAct", "Certificado Digital", "Certificado A1 da empresa para assinar as NF-e", "Tabelas", false},
};

QLabel *rotulo(const QString &texto, QWidget *buddy)
{
    auto *label = new QLabel(texto);
    label->setBuddy(buddy);
    return label;
}

} // namespace

void TRepF::criarAcoes()
{
    m_toolBar = new QToolBar(this);
    m_toolBar->setObjectName(QStringLiteral("ToolBar1"));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_menuPanel = new QFrame(this);
    m_menuPanel->setObjectName(QStringLiteral("MenuPanel"));
    m_menuPanel->setFrameShape(QFrame::StyledPanel);
    m_menuPanel->setAutoFillBackground(true);
    auto *menuLayout = new QGridLayout(m_menuPanel);
    QHash<QString, int> colunaDoGrupo;
    QList<int> linhaDaColuna;

    for (const DefAcao &def : Acoes) {
        auto *acao = new QAction(QString::fromUtf8(def.caption), this);
        acao->setObjectName(QString::fromLatin1(def.nome));
        const QString hint = QString::fromUtf8(def.hint);
        acao->setToolTip(hint.isEmpty() ? acao->text() : hint);
        acao->setStatusTip(hint);
        acao->setProperty("Category", QString::fromLatin1(def.grupo));
        acao->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(acao);
        m_acoes.insert(acao->objectName(), acao);
        if (def.naBarra)
            m_toolBar->addAction(acao);

        const QString grupo = QString::fromLatin1(def.grupo).isEmpty() ? QStringLiteral("Nota") : QString::fromLatin1(def.grupo);
        if (!colunaDoGrupo.contains(grupo)) {
            colunaDoGrupo.insert(grupo, int(linhaDaColuna.size()));
            auto *titulo = new QLabel(QStringLiteral("<b>%1</b>").arg(grupo), m_menuPanel);
            menuLayout->addWidget(titulo, 0, int(linhaDaColuna.size()));
            linhaDaColuna << 1;
        }
        const int coluna = colunaDoGrupo.value(grupo);
        auto *botao = new QToolButton(m_menuPanel);
        botao->setDefaultAction(acao);
        botao->setToolButtonStyle(Qt::ToolButtonTextOnly);
        botao->setAutoRaise(true);
        botao->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        menuLayout->addWidget(botao, linhaDaColuna[coluna]++, coluna);
        connect(acao, &QAction::triggered, this, &TRepF::EsconderMenu);
    }
    menuLayout->setRowStretch(menuLayout->rowCount(), 1);
    m_menuPanel->hide();

    m_acoes.value(QStringLiteral("NotaInsAct"))->setShortcut(QKeySequence(Qt::Key_F3));
    m_acoes.value(QStringLiteral("InsDevAct"))->setVisible(false);
    m_acoes.value(QStringLiteral("AltInfoAct"))
        ->setToolTip(QStringLiteral("Editar as informações adicionais\r\ndo fisco e do contribuinte\r\nda nota selecionada"));

    m_toolBar->addSeparator();
    m_tarefasButton = new QToolButton(m_toolBar);
    m_tarefasButton->setObjectName(QStringLiteral("TarefasButton"));
    m_tarefasButton->setText(QStringLiteral("Tarefas"));
    m_tarefasButton->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_toolBar->addWidget(m_tarefasButton);
    connect(m_tarefasButton, &QToolButton::clicked, this, &TRepF::ExibirMenu);
    m_tarefasButton->installEventFilter(this);
    m_toolBar->installEventFilter(this);

    connect(m_acoes.value(QStringLiteral("ConsultarAction")), &QAction::triggered, this, &TRepF::CarregarNotas);
    CriarAcoesTabelas();
}

QWidget *TRepF::criarFiltros()
{
    auto *filtros = new QFrame(this);
    filtros->setObjectName(QStringLiteral("FiltrosPanel"));
    auto *layout = new QHBoxLayout(filtros);
    layout->setContentsMargins(4, 2, 4, 2);

    m_dateTimePicker1 = new QDateEdit(filtros);
    m_dateTimePicker1->setObjectName(QStringLiteral("DateTimePicker1"));
    m_dateTimePicker2 = new QDateEdit(filtros);
    m_dateTimePicker2->setObjectName(QStringLiteral("DateTimePicker2"));
    for (QDateEdit *edit : {m_dateTimePicker1, m_dateTimePicker2}) {
        edit->setCalendarPopup(true);
        edit->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    }
    m_consideraDatas = new QCheckBox(QStringLiteral("Considerar Datas"), filtros);
    m_consideraDatas->setObjectName(QStringLiteral("ConsideraDatasCheckBox"));
    m_consideraDatas->setChecked(true);
    m_fornecFiltro = new QComboBox(filtros);
    m_fornecFiltro->setObjectName(QStringLiteral("FornecFiltroComboBox"));
    m_fornecFiltro->setMinimumContentsLength(18);
    m_canceladosFiltro = new QComboBox(filtros);
    m_canceladosFiltro->setObjectName(QStringLiteral("CanceladosFiltroComboBox"));
    m_canceladosFiltro->addItems({QStringLiteral("TODAS"), QStringLiteral("NAO CANCELADAS"), QStringLiteral("CANCELADAS")});
    m_ndocPos = new TNumEditBR(filtros);
    m_ndocPos->setObjectName(QStringLiteral("NDocPosNumEditBR"));
    m_ndocPos->SetDecimals(0);
    m_ndocPos->SetValue(0);
    m_ndocPos->setMaximumWidth(90);
    m_origDoc = new QComboBox(filtros);
    m_origDoc->setObjectName(QStringLiteral("OrigDocComboBox"));
    m_origDoc->addItems({QStringLiteral("TODAS"), QStringLiteral("MANUAL"), QStringLiteral("XML")});
    m_origDoc->setCurrentIndex(1);
    auto *consultar = new QToolButton(filtros);
    consultar->setDefaultAction(m_acoes.value(QStringLiteral("ConsultarAction")));

    layout->addWidget(rotulo(QStringLiteral("&De"), m_dateTimePicker1));
    layout->addWidget(m_dateTimePicker1);
    layout->addWidget(rotulo(QStringLiteral("A&té"), m_dateTimePicker2));
    layout->addWidget(m_dateTimePicker2);
    layout->addWidget(m_consideraDatas);
    layout->addSpacing(8);
    layout->addWidget(rotulo(QStringLiteral("&Pessoa"), m_fornecFiltro));
    layout->addWidget(m_fornecFiltro, 1);
    layout->addWidget(rotulo(QStringLiteral("Ca&nceladas"), m_canceladosFiltro));
    layout->addWidget(m_canceladosFiltro);
    layout->addWidget(rotulo(QStringLiteral("NºDoc"), m_ndocPos));
    layout->addWidget(m_ndocPos);
    layout->addWidget(rotulo(QStringLiteral("&Origem"), m_origDoc));
    layout->addWidget(m_origDoc);
    layout->addWidget(consultar);
    return filtros;
}

void TRepF::CriarAjustes()
{
    connect(m_ajustarItemButton, &QAbstractButton::clicked, this, &TRepF::AjustarItemClick);
    connect(m_acoes.value(QStringLiteral("AjusteAct")), &QAction::triggered, this, &TRepF::AjustarItemClick);
    connect(m_ajustarICMSUFDestButton, &QAbstractButton::clicked, this, &TRepF::AjustarICMSUFDestClick);
    connect(m_acoes.value(QStringLiteral("EstoInsumosItemAct")), &QAction::triggered, this, &TRepF::InsumosItemExecute);
    connect(m_acoes.value(QStringLiteral("EstoInsumosNotaAct")), &QAction::triggered, this, &TRepF::InsumosNotaExecute);
}

void TRepF::CriarTrocaEImpressao()
{
    const QList<QPair<const char *, void (TRepF::*)()>> ligacoes = {
        {"ExportarComprasAct", &TRepF::ExportarComprasExecute},
        {"ImportarComprasAct", &TRepF::ImportarComprasExecute},
        {"RomaneioImprAct", &TRepF::RomaneioImprExecute},
        {"AltInfoAct", &TRepF::AltInfoExecute},
        {"EtiqAct", &TRepF::EtiqExecute},
        {"NFEEnviarAct", &TRepF::NFEEnviarExecute},
        {"NFECancAct", &TRepF::NFECancExecute},
        {"NFEImprAct", &TRepF::NFEImprExecute},
        {"NfeCorrAct", &TRepF::NfeCorrExecute},
    };
    for (const auto &[nome, slot] : ligacoes)
        connect(m_acoes.value(QLatin1String(nome)), &QAction::triggered, this, slot);
    RegistrarImpressoraNFeQt();
}

void TRepF::montarTela()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_toolBar);
    m_filtros = criarFiltros();
    layout->addWidget(m_filtros);

    m_painelCentral = new QSplitter(Qt::Vertical, this);
    m_painelCentral->setObjectName(QStringLiteral("PainelCentral"));
    m_painelCentral->installEventFilter(this);
    auto *splitter = static_cast<QSplitter *>(m_painelCentral);

    m_notasGrid = new QTableView(splitter);
    m_notasGrid->setObjectName(QStringLiteral("NotasDBGrid"));
    m_notasGrid->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_notasGrid->verticalHeader()->hide();
    m_notasGrid->setAlternatingRowColors(true);
    m_notasGrid->setMouseTracking(true);
    m_notasGrid->viewport()->installEventFilter(this);
    TGradeDataSet::Attach(&m_repD->ClientManager1(), m_notasGrid);

    auto *inferior = new QWidget(splitter);
    auto *inferiorLayout = new QVBoxLayout(inferior);
    inferiorLayout->setContentsMargins(2, 0, 2, 0);
    inferiorLayout->setSpacing(2);
    m_edNotaPanel = new TEdNotaPanel(inferior);
    m_edNotaPanel->hide();
    inferiorLayout->addWidget(m_edNotaPanel);
    m_tipoDocLabel = new QLabel(inferior);
    m_tipoDocLabel->setObjectName(QStringLiteral("TipoDocLabel"));
    QFont negrito = m_tipoDocLabel->font();
    negrito.setBold(true);
    m_tipoDocLabel->setFont(negrito);
    inferiorLayout->addWidget(m_tipoDocLabel);
    m_itemPanel = new TItemPanel(inferior);
    // Items are typed only into a note open for editing; browsing shows the list and its items.
    m_itemPanel->hide();
    m_tipoDocLabel->hide();
    inferiorLayout->addWidget(m_itemPanel);
    m_itensGrid = new QTableView(inferior);
    m_itensGrid->setObjectName(QStringLiteral("ItensDBGrid"));
    m_itensGrid->verticalHeader()->hide();
    m_itensGrid->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_itensGrid->setAlternatingRowColors(true);
    TGradeDataSet::Attach(&m_repD->ClientManager2(), m_itensGrid);
    // The corrections of an item's taxes sit beside the items they correct.
    auto *itensLinha = new QHBoxLayout;
    itensLinha->setSpacing(2);
    itensLinha->addWidget(m_itensGrid, 1);
    auto *ajustes = new QVBoxLayout;
    m_ajustarItemButton = new QPushButton(QStringLiteral("Ajustar Item"), inferior);
    m_ajustarItemButton->setObjectName(QStringLiteral("AjustarItemButton"));
    m_ajustarItemButton->setToolTip(QStringLiteral("Ajustar CFOP do item"));
    m_ajustarICMSUFDestButton = new QPushButton(QStringLiteral("Ajustar ICMS UF Dest"), inferior);
    m_ajustarICMSUFDestButton->setObjectName(QStringLiteral("AjustarICMSUFDestButton"));
    m_ajustarICMSUFDestButton->setToolTip(QStringLiteral("Ajustar o ICMS da UF do Destinatário"));
    for (QPushButton *botao : {m_ajustarItemButton, m_ajustarICMSUFDestButton}) {
        botao->setFocusPolicy(Qt::TabFocus);
        ajustes->addWidget(botao);
    }
    ajustes->addStretch(1);
    itensLinha->addLayout(ajustes);
    inferiorLayout->addLayout(itensLinha, 1);
    m_totaisBar = new TTotaisBar(inferior);
    inferiorLayout->addWidget(m_totaisBar);
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 3);
    layout->addWidget(splitter, 1);

    m_andamentoPanel = new QFrame(this);
    m_andamentoPanel->setObjectName(QStringLiteral("AndamentoPanel"));
    m_andamentoPanel->setFrameShape(QFrame::StyledPanel);
    auto *andamentoLayout = new QHBoxLayout(m_andamentoPanel);
    andamentoLayout->setContentsMargins(6, 2, 6, 2);
    m_andamentoLabel = new QLabel(m_andamentoPanel);
    m_andamentoLabel->setObjectName(QStringLiteral("AndamentoLabel"));
    m_andamentoGauge = new QProgressBar(m_andamentoPanel);
    m_andamentoGauge->setObjectName(QStringLiteral("AndamentoGauge"));
    andamentoLayout->addWidget(m_andamentoLabel);
    andamentoLayout->addWidget(m_andamentoGauge, 1);
    m_andamentoPanel->hide();
    layout->addWidget(m_andamentoPanel);
}

// Companies of the header: the note's own and the one a transfer goes to.
void TRepF::PrepEmprComboBox()
{
    QComboBox *empr = m_edNotaPanel->EmprComboBox();
    QComboBox *destino = m_edNotaPanel->DestinEmprComboBox();
    empr->clear();
    destino->clear();
    destino->addItem(QStringLiteral("<NENHUMA>"), 0);
    for (const TCodigoTexto &e : TConsultasDBI::Empresas(m_conexao)) {
        const QString texto = FormatFloat(QStringLiteral("000"), double(e.codigo)) + QStringLiteral(" - ") + e.texto;
        empr->addItem(texto, e.codigo);
        destino->addItem(texto, e.codigo);
    }
    // The host's current company is the default of a new note, even when empr does not list it.
    const int atual = Contexto::Atual().empresa;
    if (atual > 0 && empr->findData(atual) < 0)
        empr->addItem(FormatFloat(QStringLiteral("000"), double(atual)), atual);
}

void TRepF::PreencherFornec()
{
    QComboBox *fornec = m_edNotaPanel->FornecComboBox();
    QComboBox *transp = m_edNotaPanel->TranspFornecComboBox();
    fornec->clear();
    transp->clear();
    m_fornecFiltro->clear();
    m_fornecFiltro->addItem(QStringLiteral("TODOS"), 0);
    transp->addItem(QString(), 0);
    for (const TCodigoTexto &f : TConsultasDBI::Fornecedores(m_conexao)) {
        fornec->addItem(f.texto, f.codigo);
        transp->addItem(f.texto, f.codigo);
        m_fornecFiltro->addItem(f.texto, f.codigo);
    }
    fornec->setCurrentIndex(-1);
}

void TRepF::PreencherUnid()
{
    QComboBox *unid = m_itemPanel->UnidComboBox();
    unid->clear();
    for (const TCodigoTexto &u : TConsultasDBI::Unidades(m_conexao))
        unid->addItem(u.texto, u.codigo);
}

void TRepF::PreencherTrib()
{
    QComboBox *trib = m_itemPanel->TribComboBox();
    trib->clear();
    for (const QString &linha : TPreencheTribSL::Preencher(m_conexao))
        trib->addItem(TPreencheTribSL::Texto(linha), TPreencheTribSL::Codigo(linha));
}

void TRepF::criarPrecoEdits()
{
    if (!TConsultasDBI::HaTabelasDePreco())
        return;
    int ordinal = 0;
    for (const TTabPreco &tabela : m_tabPrecoList.Tabelas()) {
        const QString nome = QStringLiteral("PrecoNumEditBR") + FormatFloat(QStringLiteral("######0"), double(++ordinal));
        TNumEditBR *edit = m_itemPanel->AdicionarPreco(nome, tabela.nome);
        edit->setProperty("tab_preco_cod", tabela.codigo);
        m_precoEdits << edit;
    }
}

void TRepF::criarGradeCombos()
{
    int ordinal = 0;
    for (const TCodigoTexto &titulo : TConsultasDBI::TitulosDeGrade(m_conexao)) {
        QComboBox *combo = m_itemPanel->AdicionarGrade(QStringLiteral("GradeCombo%1").arg(++ordinal), titulo.texto);
        combo->setProperty("grade_tit_cod", titulo.codigo);
        m_gradeCombos << combo;
    }
}
