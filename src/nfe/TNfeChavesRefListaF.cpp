#include "TNfeChavesRefListaF.h"

#include "ChaveNFe.h"
#include "Debug.h"
#include "Dialogos.h"
#include "ExecutarModal.h"
#include "PastaFiscal.h"
#include "TBaixarViaChaveF.h"
#include "TConexaoSQL.h"
#include "TPess_Emit_Carregar_DBI.h"
#include "TextosHost.h"
#include "UPergChaveF.h"

#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

const QString MsgMaximo = QStringLiteral("O máximo aceito é de cinco chaves");
const QString MsgTamanho = QStringLiteral("A chave deve ter 44 caracteres");

// A file dialog filter written as description|pattern pairs, as Qt wants it.
QString FiltroQt(const QString &pares)
{
    const QStringList partes = pares.split(u'|');
    QStringList filtros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2)
        filtros << QStringLiteral("%1 (%2)").arg(partes.at(i), partes.at(i + 1));
    return filtros.join(QStringLiteral(";;"));
}

} // namespace

TNfeChavesRefListaF::TNfeChavesRefListaF(const TArgsChavesRef &args, QWidget *parent)
    : QDialog(parent), m_args(args)
{
    setObjectName(QStringLiteral("NfeChavesRefListaF"));
    setWindowTitle(QStringLiteral("Chaves das NF-e de Referência"));

    auto *barra = new QToolBar(this);
    barra->setObjectName(QStringLiteral("ToolBar"));
    barra->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_insAct = criarAcao("InsAct", QStringLiteral("Inserir"), &TNfeChavesRefListaF::InsActExecute);
    m_altAct = criarAcao("AltAct", QStringLiteral("Alterar"), &TNfeChavesRefListaF::AltActExecute);
    m_exclAct = criarAcao("ExclAct", QStringLiteral("Excluir"), &TNfeChavesRefListaF::ExclActExecute);
    m_colarAct = criarAcao("ColarAct", QStringLiteral("Colar"), &TNfeChavesRefListaF::ColarActExecute);
    m_importXmlAct = criarAcao("ImportXmlAct", QStringLiteral("XML"), &TNfeChavesRefListaF::ImportXmlActExecute);
    barra->addActions({m_insAct, m_altAct, m_exclAct, m_colarAct, m_importXmlAct});
    // Kept working, but only Inserir, Alterar and Excluir are offered.
    m_colarAct->setVisible(false);
    m_importXmlAct->setVisible(false);

    m_tituloLabel = new QLabel(this);
    m_tituloLabel->setObjectName(QStringLiteral("TituloLabel"));

    m_grid = new QTableWidget(2, 1, this);
    m_grid->setObjectName(QStringLiteral("Grid"));
    m_grid->horizontalHeader()->hide();
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setMinimumWidth(m_grid->fontMetrics().horizontalAdvance(QString(50, u'9')));
    auto *titulo = new QTableWidgetItem(QStringLiteral("Chaves"));
    titulo->setFlags(Qt::ItemIsEnabled);
    QFont negrito = titulo->font();
    negrito.setBold(true);
    titulo->setFont(negrito);
    titulo->setBackground(palette().button());
    m_grid->setItem(0, 0, titulo);
    colocar(1, QString());
    connect(m_grid, &QTableWidget::cellDoubleClicked, this, [this](int linha) {
        if (linha > 0)
            m_altAct->trigger();
    });

    auto *botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    m_imprimirButton = botoes->addButton(QStringLiteral("&Imprimir"), QDialogButtonBox::ActionRole);
    m_imprimirButton->setObjectName(QStringLiteral("ImprimirButton"));
    m_imprimirButton->hide();
    connect(botoes, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(barra);
    layout->addWidget(m_tituloLabel);
    layout->addWidget(m_grid, 1);
    layout->addWidget(botoes);
}

// Each action is off while it runs, so a double click cannot run it twice.
QAction *TNfeChavesRefListaF::criarAcao(const char *nome, const QString &texto, void (TNfeChavesRefListaF::*executar)())
{
    auto *acao = new QAction(texto, this);
    acao->setObjectName(QLatin1String(nome));
    connect(acao, &QAction::triggered, this, [this, acao, executar] {
        acao->setEnabled(false);
        QCoreApplication::processEvents();
        (this->*executar)();
        acao->setEnabled(true);
    });
    return acao;
}

void TNfeChavesRefListaF::colocar(int linha, const QString &texto)
{
    auto *item = new QTableWidgetItem(texto);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    m_grid->setItem(linha, 0, item);
}

bool TNfeChavesRefListaF::cheia() const
{
    return m_grid->rowCount() >= 6;
}

int TNfeChavesRefListaF::linhaAtual() const
{
    return qMax(1, m_grid->currentRow());
}

void TNfeChavesRefListaF::PreencherLista(const QStringList &chaves)
{
    QStringList linhas = chaves;
    linhas.removeAll(QString());
    m_grid->setRowCount(qMax(2, int(linhas.size()) + 1));
    for (int i = 0; i < m_grid->rowCount() - 1; ++i)
        colocar(i + 1, linhas.value(i));
    m_grid->setCurrentCell(1, 0);
}

QStringList TNfeChavesRefListaF::Chaves() const
{
    QStringList chaves;
    for (int linha = 1; linha < m_grid->rowCount(); ++linha) {
        const QString texto = m_grid->item(linha, 0) ? m_grid->item(linha, 0)->text() : QString();
        if (!texto.isEmpty())
            chaves << texto;
    }
    return chaves;
}

bool TNfeChavesRefListaF::TemChave(const QString &s) const
{
    for (int linha = 0; linha < m_grid->rowCount(); ++linha)
        if (m_grid->item(linha, 0) && m_grid->item(linha, 0)->text() == s)
            return true;
    return false;
}

void TNfeChavesRefListaF::InserirStr(const QString &s)
{
    if (s.isEmpty())
        return;
    if (TemChave(s)) {
        MensagemInfo(QStringLiteral("Chave já estava cadastrada"));
        return;
    }
    if (cheia()) {
        MensagemInfo(MsgMaximo);
        return;
    }
    int linha = m_grid->rowCount() - 1;
    const QTableWidgetItem *ultima = m_grid->item(linha, 0);
    if (ultima && !ultima->text().isEmpty())
        m_grid->setRowCount(++linha + 1);
    colocar(linha, s);
    m_grid->setCurrentCell(linha, 0);
}

QString TNfeChavesRefListaF::NomeXMLToNFEChave(const QString &FileName) const
{
    return ::NomeXMLToNFEChave(FileName);
}

void TNfeChavesRefListaF::InsActExecute()
{
    RastroHook(QStringLiteral("ini"));
    if (cheia()) {
        MensagemInfo(MsgMaximo);
        return;
    }
    TBaixarViaChaveF baixar(m_args.conexao ? m_args.conexao->GetDatabase() : QString(), m_args.uf,
                            m_args.textoContexto1, m_args.classeTela, m_args.textoContexto2, m_emitente,
                            m_args.valorContexto, this);
    RastroHook(QStringLiteral("vai BaixarViaChaveF.showmodal"));
    if (ExecutarModal(baixar) == QDialog::Accepted) {
        const QString nome = baixar.NomeArqXMLLabeledEdit()->text();
        // The file-name part only, whichever separator the path was written with.
        const QString digitos = SoDig(QFileInfo(QString(nome).replace(u'\\', u'/')).fileName());
        RastroHook(QStringLiteral("usuario deu ok em BaixarViaChaveF ") + nome + u' ' + digitos);
        // No length test here: whatever digits the file name holds go in.
        InserirStr(digitos);
    } else {
        RastroHook(QStringLiteral("usuario cancelou BaixarViaChaveF"));
    }
    RastroHook(QStringLiteral("fim"));
}

void TNfeChavesRefListaF::AltActExecute()
{
    const int linha = linhaAtual();
    QString chave = m_grid->item(linha, 0) ? m_grid->item(linha, 0)->text() : QString();
    if (Perg(chave, this))
        colocar(linha, chave);
}

void TNfeChavesRefListaF::ExclActExecute()
{
    if (m_grid->rowCount() == 2 && (!m_grid->item(1, 0) || m_grid->item(1, 0)->text().trimmed().isEmpty())) {
        MensagemInfo(QStringLiteral("Nenhuma chave cadastrada"));
        return;
    }
    if (!PerguntaDeletar())
        return;
    // The grid keeps one data row under its title row: the last one is emptied instead.
    if (m_grid->rowCount() == 2)
        colocar(1, QString());
    else
        m_grid->removeRow(linhaAtual());
}

void TNfeChavesRefListaF::ColarActExecute()
{
    if (cheia()) {
        MensagemInfo(MsgMaximo);
        return;
    }
    const QString texto = QGuiApplication::clipboard()->text();
    const QString primeira = texto.split(QRegularExpression(QStringLiteral("\r\n|\r|\n"))).first();
    if (texto.isEmpty() || primeira.size() != 44)
        MensagemInfo(MsgTamanho);
    else
        InserirStr(primeira);
    m_grid->setFocus();
}

void TNfeChavesRefListaF::ImportXmlActExecute()
{
    if (cheia()) {
        MensagemInfo(MsgMaximo);
        return;
    }
    const QString arquivo = SelectFile(QStringLiteral("Ler chave do XML..."), PastaFiscal(),
                                       FiltroQt(QStringLiteral("*.xml|*.xml|*.*|*.*")));
    if (arquivo.isEmpty())
        return;
    const QString chave = NomeXMLToNFEChave(arquivo);
    if (chave.size() == 44)
        InserirStr(chave);
    else
        MensagemInfo(MsgTamanho);
}

void TNfeChavesRefListaF::CarregarTitulo()
{
    QString erro;
    if (!m_args.conexao
        || !TPess_Emit_Carregar_DBI::Carregar(*m_args.conexao, m_args.emprCodSelecionada, m_emitente, &erro)) {
        // Not worth a message box over a title: the label says what went wrong.
        m_tituloLabel->setText(erro);
        return;
    }
    const QString cnpj = m_emitente.CNPJ.isEmpty() ? m_emitente.CPF : m_emitente.CNPJ;
    m_tituloLabel->setText(m_emitente.xNome + u'\n' + QStringLiteral("CNPJ: ") + CodComMasc(cnpj));
}

// The title waits for the first paint, so the dialog shows at once.
void TNfeChavesRefListaF::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_tituloAgendado)
        return;
    m_tituloAgendado = true;
    QTimer::singleShot(100, this, &TNfeChavesRefListaF::CarregarTitulo);
}
