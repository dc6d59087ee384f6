// The item panel's controller: wiring of the fields, keys, leaving checks and statement texts.
#include "TItemNota.h"

#include "Dialogos.h"
#include "TItemNotaTela.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TProdLista.h"
#include "UTipoDoc.h"
#include "Valores.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QTableView>
#include <QToolButton>

TItemNota::TItemNota(TItemNotaTela &tela, TItemPanel &panel, TConexaoSQL &conexao, QObject *parent)
    : QObject(parent), m_tela(tela), m_panel(panel), m_conexao(conexao),
      m_prodLista(new TProdLista(panel, conexao, this))
{
    // The bought quantity keeps the 4 decimals of its calculation: 1,115 x 1,111 is 1,2387.
    m_panel.QtdCompradaNumEditBR()->SetDecimals(4);
    ligarCampos();
    limpar();
}

TItemNota::~TItemNota() = default;

void TItemNota::ligarCampos()
{
    TItemPanel &p = m_panel;
    for (TNumEditBR *fator : {p.EmbQtdNumEditBR(), p.QtdEmbsNumEditBR()})
        connect(fator, &TNumEditBR::ValueChanged, this, [this] {
            if (!m_carregando)
                CalculeQtd();
        });
    connect(p.QtdCompradaNumEditBR(), &TNumEditBR::ValueChanged, this, [this] { Calcule(true); });
    for (TNumEditBR *campo : {p.CustoTotItemNumEditBR(), p.DescontoItemNumEditBR(), p.CustoNumEditBR(),
                              p.MargemNumEditBR(), p.vICMSNumEditBR(), p.vIPINumEditBR(), p.OutrasItemNumEditBR()})
        connect(campo, &TNumEditBR::ValueChanged, this, [this] { Calcule(false); });
    connect(p.TribComboBox(), &QComboBox::activated, this, [this] { Calcule(false); });

    // The first price table's edit and "Novo Preço" are the same price.
    if (!m_tela.PrecoEdits().isEmpty()) {
        TNumEditBR *primeiro = m_tela.PrecoEdits().first();
        connect(p.PrecoNumEditBR(), &TNumEditBR::ValueChanged, this,
                [this, primeiro] { espelharPreco(m_panel.PrecoNumEditBR(), primeiro); });
        connect(primeiro, &TNumEditBR::ValueChanged, this,
                [this, primeiro] { espelharPreco(primeiro, m_panel.PrecoNumEditBR()); });
    }

    connect(p.BuscaLabeledEdit(), &QLineEdit::textEdited, this,
            [this](const QString &texto) { m_prodLista->Filtrar(texto, emprCod()); });
    connect(m_prodLista, &TProdLista::Escolhido, this, [this](int codigo) {
        m_prodLista->Esconder();
        m_panel.BuscaLabeledEdit()->setText(QString::number(codigo));
        m_panel.ProdCodNumEditBR()->SetValue(0);
        PreencherProd(codigo);
    });

    p.installEventFilter(this);
    for (QWidget *campo : p.Campos())
        campo->installEventFilter(this);
    for (TNumEditBR *preco : m_tela.PrecoEdits())
        preco->installEventFilter(this);
    for (QComboBox *combo : m_tela.GradeCombos())
        combo->installEventFilter(this);
}

// The edit that changed is the one source: the copy must not echo back and re-format "9," into
// "9,00" while the price is still being typed.
void TItemNota::espelharPreco(TNumEditBR *origem, TNumEditBR *destino)
{
    if (m_espelhando)
        return;
    const QScopedValueRollback espelhando(m_espelhando, true);
    destino->SetMoney(origem->AsMoney());
}

int TItemNota::tipo() const
{
    return m_tela.TipoDocSelecionado();
}

int TItemNota::indiceTipo() const
{
    return TipoDoc::IndiceDoCodigo(tipo());
}

int TItemNota::emprCod() const
{
    return m_tela.NotaEmprCod();
}

TNumEditBR *TItemNota::PrecoUltimoEdit() const
{
    return m_tela.PrecoEdits().isEmpty() ? m_panel.PrecoNumEditBR() : m_tela.PrecoEdits().last();
}

namespace {

bool RecebeTab(const QWidget *w, const QWidget *panel)
{
    return (w->focusPolicy() & Qt::TabFocus) && w->isEnabled() && w->isVisibleTo(panel);
}

bool TeclaEnter(const QKeyEvent *k)
{
    return (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) && !(k->modifiers() & ~Qt::KeypadModifier);
}

// A focus move the user made, not a message or a popup taking the focus for a while.
bool SaidaDoUsuario(const QEvent *event)
{
    const auto reason = static_cast<const QFocusEvent *>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

} // namespace

// Enter on the last price completes the item. Where the type leaves the prices untyped, the
// last field that still takes the focus does, so that Enter alone can always finish an item.
bool TItemNota::ultimoCampoDoItem(const QObject *campo) const
{
    QWidget *ultimo = PrecoUltimoEdit();
    if (campo == ultimo)
        return true;
    if (RecebeTab(ultimo, &m_panel))
        return false;
    QList<QWidget *> campos = m_panel.Campos();
    for (TNumEditBR *preco : m_tela.PrecoEdits())
        campos << preco;
    for (auto it = campos.crbegin(); it != campos.crend(); ++it)
        if (RecebeTab(*it, &m_panel))
            return *it == campo;
    return false;
}

bool TItemNota::eventFilter(QObject *watched, QEvent *event)
{
    TItemPanel &p = m_panel;
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto *k = static_cast<QKeyEvent *>(event);
        if (TeclaEnter(k))
            return teclaEnter(watched);
        if (k->key() == Qt::Key_Down && watched == p.BuscaLabeledEdit() && m_prodLista->Visivel()) {
            p.ProdDBGrid()->setFocus(Qt::OtherFocusReason);
            return true;
        }
        break;
    }
    case QEvent::FocusIn:
        // Items belong to a header that is fit to receive them.
        if ((watched == p.ProdCodDelesLabeledEdit() || watched == p.BuscaLabeledEdit()) && !m_checando
            && SaidaDoUsuario(event) && m_tela.NotaPanelVisivel()) {
            m_checando = true;
            m_tela.EntraItemAceito();
            m_checando = false;
        }
        break;
    case QEvent::FocusOut:
        if (watched == p.BuscaLabeledEdit())
            m_prodLista->AgendaProdFech();
        if (!m_checando && SaidaDoUsuario(event))
            saiuDoCampo(watched);
        break;
    case QEvent::Hide:
        // A note closed or cancelled leaves an empty panel for the next one.
        if (watched == &p)
            limpar();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool TItemNota::teclaEnter(QObject *watched)
{
    TItemPanel &p = m_panel;
    if (m_tela.ItemState() == TDataSetState::Browse)
        return false;
    if (watched == p.ProdCodDelesLabeledEdit()) {
        FornecProdCodTestar();
        return true;
    }
    if (watched == p.BuscaLabeledEdit()) {
        // An empty search goes on to the next field; leaving it checks that there is a product.
        if (p.BuscaLabeledEdit()->text().trimmed().isEmpty())
            return false;
        Buscar(p.BuscaLabeledEdit()->text());
        return true;
    }
    if (watched == p.QtdEmbsNumEditBR() && tipo() == TipoDoc::Producao && !m_tela.ProducCustoExige()) {
        // A production item needs no cost: the packages complete it.
        PrecoUltimoEditBRKeyDown();
        return true;
    }
    const QList<QComboBox *> &combos = m_tela.GradeCombos();
    if (const qsizetype i = combos.indexOf(qobject_cast<QComboBox *>(watched)); i >= 0) {
        if (i + 1 < combos.size() && combos.at(i + 1)->isEnabled())
            focar(combos.at(i + 1));
        else
            PrecoUltimoEditBRKeyDown();
        return true;
    }
    if (ultimoCampoDoItem(watched)) {
        PrecoUltimoEditBRKeyDown();
        return true;
    }
    return false;
}

void TItemNota::saiuDoCampo(QObject *watched)
{
    TItemPanel &p = m_panel;
    QWidget *destino = QApplication::focusWidget();
    if (watched == p.ProdCodDelesLabeledEdit()) {
        if (destino == p.BuscaLabeledEdit() && podeChecar())
            FornecProdCodTestar();
    } else if (watched == p.BuscaLabeledEdit()) {
        // Going down into the product list is part of the search.
        if (!(destino && p.ProdPanel()->isAncestorOf(destino)))
            ProdAceito();
    } else if (watched == p.EmbQtdNumEditBR()) {
        EmbQtdAceito();
    } else if (watched == p.QtdEmbsNumEditBR()) {
        QtdEmbsAceito();
    } else if (watched == p.CustoTotItemNumEditBR()) {
        CustoTotAceito();
    } else if (watched == p.NCMMaskEdit()) {
        if (NCMAceito())
            GravarNCM();
    }
}

bool TItemNota::podeChecar() const
{
    return !m_checando && m_tela.NotaPanelVisivel() && m_tela.ItemState() != TDataSetState::Browse
           && QApplication::focusWidget() != m_tela.NotaCancButton();
}

bool TItemNota::recusar(QWidget *campo, void (*mensagem)(const QString &), const QString &texto)
{
    // The message and the way back to the field must not set off the checks of other fields.
    m_checando = true;
    mensagem(texto);
    campo->setFocus(Qt::OtherFocusReason);
    if (auto *edit = qobject_cast<QLineEdit *>(campo))
        edit->selectAll();
    m_checando = false;
    return false;
}

void TItemNota::focar(QWidget *campo)
{
    const bool antes = m_checando;
    m_checando = true;
    campo->setFocus(Qt::OtherFocusReason);
    // What is typed next replaces what the field shows, as when Tab reaches it.
    if (auto *edit = qobject_cast<QLineEdit *>(campo))
        edit->selectAll();
    m_checando = antes;
}

bool TItemNota::ProdAceito()
{
    TItemPanel &p = m_panel;
    if (!podeChecar())
        return true;
    QWidget *destino = QApplication::focusWidget();
    if (destino == p.ProdCodDelesLabeledEdit() || destino == p.ProdButton() || destino == m_tela.ItensGrid()
        || destino == m_tela.NotaOkButton() || destino == m_tela.NotaCancButton())
        return true;
    // A production note may carry items without a chosen product.
    if (!RecebeTab(p.BuscaLabeledEdit(), &p) || tipo() == TipoDoc::Producao || p.ProdCodNumEditBR()->Value() >= 1)
        return true;
    return recusar(p.BuscaLabeledEdit(), MensagemErro, QStringLiteral("O produto é obrigatório"));
}

bool TItemNota::EmbQtdAceito()
{
    TNumEditBR *campo = m_panel.EmbQtdNumEditBR();
    if (!podeChecar() || !TipoDoc::PorIndice(indiceTipo()).exigeEmbQtd || TruncarViaStr(campo->Value(), 3) > 0)
        return true;
    return recusar(campo, MensagemErro, QStringLiteral("Quantidade na embalagem é obrigatória"));
}

bool TItemNota::QtdEmbsAceito()
{
    TNumEditBR *campo = m_panel.QtdEmbsNumEditBR();
    if (!podeChecar() || tipo() == TipoDoc::NotaComplementar || m_escape || TruncarViaStr(campo->Value(), 3) > 0)
        return true;
    return recusar(campo, MensagemErro, QStringLiteral("Quantidade de embalagens é obrigatória"));
}

bool TItemNota::CustoTotAceito()
{
    TNumEditBR *campo = m_panel.CustoTotItemNumEditBR();
    // Leaving an empty panel is no item being typed.
    const bool semItem = m_panel.ProdCodNumEditBR()->Value() < 1 && m_panel.BuscaLabeledEdit()->text().isEmpty();
    if (!podeChecar() || semItem || (tipo() == TipoDoc::Producao && !m_tela.ProducCustoExige())
        || campo->AsMoney() >= Money::fromRaw(100))
        return true;
    return recusar(campo, MensagemErro, QStringLiteral("O custo total das embalagens é obrigatório"));
}

bool TItemNota::NCMAceito()
{
    QLineEdit *campo = m_panel.NCMMaskEdit();
    if (!podeChecar() || !TipoDoc::PorIndice(indiceTipo()).exigeNCMItem || m_prodLista->Visivel())
        return true;
    QString digitos = campo->text();
    digitos.remove(QRegularExpression(QStringLiteral("[^0-9]")));
    if (!digitos.isEmpty())
        return true;
    return recusar(campo, MensagemInfo, QStringLiteral("O NCM é obrigatório"));
}
