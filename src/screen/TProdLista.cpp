#include "TProdLista.h"

#include "Dialogos.h"
#include "TBuscaProd.h"
#include "TClientDataSet.h"
#include "TClientManager.h"
#include "TConexaoSQL.h"
#include "TGradeDataSet.h"
#include "TItemPanel.h"

#include <QApplication>
#include <QFrame>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>

#include <algorithm>

namespace {

// Long enough for the click that moves the focus into the list to land there first.
constexpr int AtrasoFechamentoMs = 150;

bool SoDigitos(const QString &texto)
{
    return !texto.isEmpty() && std::all_of(texto.begin(), texto.end(), [](QChar c) { return c.isDigit(); });
}

// Case and accents do not matter when a description is looked for.
QString Chave(const QString &texto)
{
    const QString decomposto = texto.normalized(QString::NormalizationForm_D);
    QString chave;
    chave.reserve(decomposto.size());
    for (const QChar c : decomposto)
        if (c.category() != QChar::Mark_NonSpacing)
            chave.append(c.toCaseFolded());
    return chave;
}

} // namespace

TProdLista::TProdLista(TItemPanel &panel, TConexaoSQL &conexao, QObject *parent)
    : QObject(parent), m_panel(panel), m_conexao(conexao), m_produtos(new TClientDataSet(this)),
      m_manager(nullptr), m_fechTimer(new QTimer(this))
{
    m_produtos->setObjectName(QStringLiteral("ProdListaDataSet"));
    m_produtos->AddField(QStringLiteral("DESCR"), TFieldType::String, QStringLiteral("Descrição"), {}, true, 40);
    m_produtos->AddField(QStringLiteral("PROD_FABR_NOME"), TFieldType::String, QStringLiteral("Fabricante"), {}, true, 20);
    m_produtos->AddField(QStringLiteral("PROD_COD"), TFieldType::Integer, QStringLiteral("Código"), QStringLiteral("00000"));
    m_produtos->Open();
    m_manager = new TClientManager(m_produtos, this);
    TGradeDataSet::Attach(m_manager, m_panel.ProdDBGrid());
    // The description takes the width the maker and the code leave, so the code is never cut off.
    QHeaderView *titulos = m_panel.ProdDBGrid()->horizontalHeader();
    titulos->setStretchLastSection(false);
    titulos->setSectionResizeMode(0, QHeaderView::Stretch);

    m_fechTimer->setSingleShot(true);
    m_fechTimer->setInterval(AtrasoFechamentoMs);
    connect(m_fechTimer, &QTimer::timeout, this, &TProdLista::ProdFechTimer);

    // Hidden by anyone (Esc on the screen too), the list is read again when it next drops down.
    m_panel.ProdPanel()->installEventFilter(this);
    QTableView *grade = m_panel.ProdDBGrid();
    grade->installEventFilter(this);
    connect(grade, &QAbstractItemView::doubleClicked, this, [this] {
        if (const int codigo = CodigoSelecionado())
            Q_EMIT Escolhido(codigo);
    });
}

TProdLista::~TProdLista() = default;

bool TProdLista::carregar(int emprCod)
{
    m_linhas.clear();
    TBuscaProd busca(m_conexao, emprCod);
    const auto q = busca.ListaProd();
    if (!q) {
        MensagemErro(QStringLiteral("Erro lendo a lista de produtos: ") + busca.Erro());
        return false;
    }
    for (q->First(); !q->Eof(); q->Next()) {
        Linha l;
        l.descr = q->Fields(0).AsString().trimmed();
        l.fabr = q->Fields(1).AsString().trimmed();
        l.codigo = q->Fields(2).AsInteger();
        l.chave = Chave(l.descr + QLatin1Char('\n') + l.fabr);
        m_linhas << l;
    }
    std::stable_sort(m_linhas.begin(), m_linhas.end(),
                     [](const Linha &a, const Linha &b) { return a.descr.localeAwareCompare(b.descr) < 0; });
    m_carregada = true;
    return true;
}

bool TProdLista::Filtrar(const QString &texto, int emprCod)
{
    const QString t = texto.trimmed();
    if (t.isEmpty() || SoDigitos(t)) {
        Esconder();
        return true;
    }
    // The list is read afresh each time it drops down, so new products show up.
    if (!m_carregada && !carregar(emprCod)) {
        Esconder();
        return false;
    }
    const QString procurado = Chave(t);
    m_produtos->DisableControls();
    m_produtos->EmptyDataSet();
    for (const Linha &l : std::as_const(m_linhas)) {
        if (!l.chave.contains(procurado))
            continue;
        m_produtos->Append();
        m_produtos->Fields(0).SetAsString(l.descr);
        m_produtos->Fields(1).SetAsString(l.fabr);
        m_produtos->Fields(2).SetAsInteger(l.codigo);
        m_produtos->Post();
    }
    m_produtos->First();
    m_produtos->EnableControls();
    if (m_produtos->IsEmpty()) {
        m_panel.EsconderProdPanel();
        return true;
    }
    if (!m_panel.ProdPanel()->isVisible())
        m_panel.ExibirProdPanel();
    m_panel.ProdDBGrid()->selectRow(0);
    return true;
}

bool TProdLista::Visivel() const
{
    return m_panel.ProdPanel()->isVisible();
}

void TProdLista::Esconder()
{
    m_fechTimer->stop();
    m_carregada = false;
    m_panel.EsconderProdPanel();
}

int TProdLista::CodigoSelecionado() const
{
    if (!Visivel() || m_produtos->IsEmpty())
        return 0;
    return m_produtos->FieldByName(QStringLiteral("PROD_COD")).AsInteger();
}

void TProdLista::AgendaProdFech()
{
    if (Visivel())
        m_fechTimer->start();
}

void TProdLista::ProdFechTimer()
{
    QWidget *foco = QApplication::focusWidget();
    if (foco && (foco == m_panel.BuscaLabeledEdit() || m_panel.ProdPanel()->isAncestorOf(foco)))
        return;
    Esconder();
}

bool TProdLista::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_panel.ProdPanel() && event->type() == QEvent::Hide) {
        m_fechTimer->stop();
        m_carregada = false;
    }
    if (watched == m_panel.ProdDBGrid()) {
        if (event->type() == QEvent::FocusOut)
            AgendaProdFech();
        if (event->type() == QEvent::KeyPress) {
            const int tecla = static_cast<QKeyEvent *>(event)->key();
            if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
                if (const int codigo = CodigoSelecionado())
                    Q_EMIT Escolhido(codigo);
                return true;
            }
            if (tecla == Qt::Key_Escape) {
                Esconder();
                m_panel.BuscaLabeledEdit()->setFocus(Qt::OtherFocusReason);
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}
