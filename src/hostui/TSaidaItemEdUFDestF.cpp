#include "TSaidaItemEdUFDestF.h"

#include "TClientDataSet.h"
#include "TClientManager.h"
#include "TNumEditBR.h"

#include <QColor>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <functional>

namespace {

const QString FormatoValor = QStringLiteral("#,###,##0.00");
const QString FormatoTaxa = QStringLiteral("##0.00##");

bool Enter(const QKeyEvent *e) { return e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter; }

} // namespace

// The manager's grid model with the five figures editable, written through to the dataset.
class TSaidaItemEdUFDestF::Modelo final : public QIdentityProxyModel
{
public:
    Modelo(TClientManager *manager, const TCalculo &calculo, QObject *parent)
        : QIdentityProxyModel(parent), m_manager(manager), m_calculo(calculo)
    {
        setSourceModel(manager);
    }

    const TField *Campo(const QModelIndex &index) const
    {
        const int campo = m_manager->FieldOfColumn(index.column());
        return campo < 0 ? nullptr : &m_manager->DataSet()->Fields(campo);
    }
    bool Editavel(const QModelIndex &index) const
    {
        const TField *campo = Campo(index);
        return campo && CamposEditaveis().contains(campo->FieldName(), Qt::CaseInsensitive);
    }

    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        const Qt::ItemFlags f = QIdentityProxyModel::flags(index);
        return Editavel(index) ? f | Qt::ItemIsEditable : f;
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::EditRole && index.isValid())
            return m_manager->DataSet()->ValueAt(index.row(), Campo(index)->Index());
        // What cannot be typed over is shown greyed, as the read-only edits are.
        if (role == Qt::BackgroundRole && index.isValid() && !Editavel(index))
            return QColor(0xF0, 0xF0, 0xF0);
        return QIdentityProxyModel::data(index, role);
    }
    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role != Qt::EditRole || !Editavel(index))
            return false;
        TClientDataSet *cds = m_manager->DataSet();
        cds->SetRecNo(index.row() + 1);
        cds->Edit();
        cds->Fields(Campo(index)->Index()).SetAsFloat(value.toDouble());
        if (m_calculo)
            m_calculo(*cds);
        cds->Post();
        return true;
    }

private:
    TClientManager *m_manager;
    const TCalculo &m_calculo;
};

// Figures typed in a TNumEditBR: the base with 2 places, the rates with 4. Enter confirms the
// cell and goes on like Tab; Esc leaves the cell as it was and cancels the dialog.
class TSaidaItemEdUFDestF::Delegado final : public QStyledItemDelegate
{
public:
    Delegado(std::function<void()> aoEsc, QObject *parent) : QStyledItemDelegate(parent), m_aoEsc(std::move(aoEsc)) {}

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        auto *edit = new TNumEditBR(parent);
        const auto *modelo = static_cast<const Modelo *>(index.model());
        const TField *campo = modelo->Campo(index);
        edit->SetDecimals(campo && campo->FieldName().compare(CamposEditaveis().first(), Qt::CaseInsensitive) == 0 ? 2 : 4);
        edit->setObjectName(campo ? campo->FieldName() : QString());
        m_editor = edit;
        return edit;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        auto *edit = static_cast<TNumEditBR *>(editor);
        edit->SetValue(index.data(Qt::EditRole).toDouble());
        edit->selectAll();
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        model->setData(index, static_cast<TNumEditBR *>(editor)->Value(), Qt::EditRole);
    }
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override
    {
        if (m_editor == editor)
            m_editor = nullptr;
        QStyledItemDelegate::destroyEditor(editor, index);
    }
    // Writes what the open cell holds, as leaving it would.
    void Confirmar()
    {
        if (m_editor)
            emit commitData(m_editor);
    }

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override
    {
        auto *editor = qobject_cast<QWidget *>(objeto);
        if (editor && evento->type() == QEvent::KeyPress) {
            const auto *tecla = static_cast<QKeyEvent *>(evento);
            if (Enter(tecla)) {
                emit commitData(editor);
                emit closeEditor(editor, EditNextItem);
                return true;
            }
            if (tecla->key() == Qt::Key_Escape) {
                emit closeEditor(editor, RevertModelCache);
                m_aoEsc();
                return true;
            }
        }
        return QStyledItemDelegate::eventFilter(objeto, evento);
    }

private:
    std::function<void()> m_aoEsc;
    mutable QPointer<QWidget> m_editor;
};

namespace {

// Walks only the editable cells, row after row; past the last one the focus goes on (to OK).
class TGradeEdicao final : public QTableView
{
public:
    TGradeEdicao(std::function<void()> aoFim, QWidget *parent) : QTableView(parent), m_aoFim(std::move(aoFim)) {}

    QModelIndex moveCursor(CursorAction acao, Qt::KeyboardModifiers modificadores) override
    {
        if (acao != MoveNext && acao != MovePrevious)
            return QTableView::moveCursor(acao, modificadores);
        const int colunas = model()->columnCount();
        const int passo = acao == MoveNext ? 1 : -1;
        const QModelIndex atual = currentIndex();
        int celula = atual.isValid() ? atual.row() * colunas + atual.column() : (passo > 0 ? -1 : model()->rowCount() * colunas);
        for (celula += passo; celula >= 0 && celula < model()->rowCount() * colunas; celula += passo) {
            const QModelIndex i = model()->index(celula / colunas, celula % colunas);
            if (i.flags().testFlag(Qt::ItemIsEditable))
                return i;
        }
        return {};
    }
    void Inicio()
    {
        setCurrentIndex(QModelIndex());
        setFocus();
        setCurrentIndex(moveCursor(MoveNext, Qt::NoModifier));
        if (state() != EditingState)
            edit(currentIndex());
    }

protected:
    void keyPressEvent(QKeyEvent *evento) override
    {
        if (Enter(evento) && state() != EditingState) {
            Avancar();
            return;
        }
        QTableView::keyPressEvent(evento);
    }
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint dica) override
    {
        if (dica == QAbstractItemDelegate::EditNextItem) {
            QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
            Avancar();
            return;
        }
        QTableView::closeEditor(editor, dica);
    }

private:
    void Avancar()
    {
        const QModelIndex proxima = moveCursor(MoveNext, Qt::NoModifier);
        if (proxima.isValid())
            setCurrentIndex(proxima);
        else
            m_aoFim();
    }

    std::function<void()> m_aoFim;
};

} // namespace

const QStringList &TSaidaItemEdUFDestF::CamposEditaveis()
{
    static const QStringList campos{QStringLiteral("TRIB_ICMS_VBCUFDEST"), QStringLiteral("TRIB_ICMS_PFCPUFDEST"),
                                    QStringLiteral("TRIB_ICMS_PICMSUFDEST"), QStringLiteral("TRIB_ICMS_PICMSINTER"),
                                    QStringLiteral("TRIB_ICMS_PICMSINTERPART")};
    return campos;
}

const QStringList &TSaidaItemEdUFDestF::CamposCalculados()
{
    static const QStringList campos{QStringLiteral("TRIB_ICMS_VFCPUFDEST"), QStringLiteral("TRIB_ICMS_VICMSUFDEST"),
                                    QStringLiteral("TRIB_ICMS_VICMSUFREMET")};
    return campos;
}

void TSaidaItemEdUFDestF::DefinirCalculo(TCalculo calculo)
{
    m_calculo = std::move(calculo);
}

void TSaidaItemEdUFDestF::CriarCampos(TClientDataSet &cds)
{
    using T = TFieldType;
    cds.AddField(QStringLiteral("nitem"), T::Integer, QStringLiteral("Item"), {}, true, 4);
    cds.AddField(QStringLiteral("prod_cod"), T::Integer, QStringLiteral("Produto"), {}, true, 7);
    cds.AddField(QStringLiteral("descr"), T::String, QStringLiteral("Descrição"), {}, true, 26);
    cds.AddField(QStringLiteral("prod_fabr_nome"), T::String, QStringLiteral("Fabricante"), {}, true, 14);
    cds.AddField(QStringLiteral("preco_liquido"), T::Float, QStringLiteral("Valor Líquido"), FormatoValor, true, 11);
    const QStringList titulos{QStringLiteral("Base UF Dest."), QStringLiteral("% FCP"), QStringLiteral("% Interna"),
                              QStringLiteral("% Interest."), QStringLiteral("% Partilha")};
    for (int i = 0; i < CamposEditaveis().size(); ++i)
        cds.AddField(CamposEditaveis().at(i), T::Float, titulos.at(i), i == 0 ? FormatoValor : FormatoTaxa, true, i == 0 ? 11 : 8);
    const QStringList calculados{QStringLiteral("Vl. FCP"), QStringLiteral("Vl. ICMS Dest."), QStringLiteral("Vl. ICMS Remet.")};
    for (int i = 0; i < CamposCalculados().size(); ++i)
        cds.AddField(CamposCalculados().at(i), T::Float, calculados.at(i), FormatoValor, true, 10);
    for (const char *chave : {"est_mov_empr_cod", "est_mov_estacao_cod", "est_mov_cod"})
        cds.AddField(QLatin1String(chave), T::Integer, {}, {}, false);
    cds.Open();
}

TSaidaItemEdUFDestF::TSaidaItemEdUFDestF(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("SaidaItemEdUFDestF"));
    setWindowTitle(QStringLiteral("ICMS da UF de destino"));
    m_cds = new TClientDataSet(this);
    CriarCampos(*m_cds);
    m_manager = new TClientManager(m_cds, this);
    m_modelo = new Modelo(m_manager, m_calculo, this);

    m_ok = new QPushButton(QStringLiteral("&OK"), this);
    m_ok->setObjectName(QStringLiteral("OkButton"));
    auto *grade = new TGradeEdicao([this] { m_ok->setFocus(); }, this);
    m_grade = grade;
    grade->setObjectName(QStringLiteral("ItensGrid"));
    grade->setModel(m_modelo);
    m_delegado = new Delegado([this] { reject(); }, grade);
    grade->setItemDelegate(m_delegado);
    grade->setSelectionBehavior(QAbstractItemView::SelectItems);
    grade->setSelectionMode(QAbstractItemView::SingleSelection);
    grade->setEditTriggers(QAbstractItemView::CurrentChanged | QAbstractItemView::AnyKeyPressed
                           | QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    grade->setTabKeyNavigation(true);
    grade->verticalHeader()->hide();
    const int digito = grade->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    int largura = 0;
    for (int coluna = 0; coluna < m_modelo->columnCount(); ++coluna) {
        const TField &campo = m_cds->Fields(m_manager->FieldOfColumn(coluna));
        grade->setColumnWidth(coluna, qMax(digito * campo.DisplayWidth() + 12,
                                           grade->horizontalHeader()->fontMetrics().horizontalAdvance(campo.DisplayLabel()) + 16));
        largura += grade->columnWidth(coluna);
    }

    auto *ajuda = new QLabel(QStringLiteral("Enter ou Tab: próximo valor    Esc: cancelar"), this);
    auto *botoes = new QDialogButtonBox(this);
    botoes->addButton(m_ok, QDialogButtonBox::AcceptRole);
    QPushButton *cancelar = botoes->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    cancelar->setObjectName(QStringLiteral("CancelarButton"));
    m_ok->setAutoDefault(true);
    cancelar->setAutoDefault(false);
    connect(botoes, &QDialogButtonBox::accepted, this, &TSaidaItemEdUFDestF::accept);
    connect(botoes, &QDialogButtonBox::rejected, this, &TSaidaItemEdUFDestF::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(grade, 1);
    layout->addWidget(ajuda);
    layout->addWidget(botoes);
    resize(qMin(largura + 60, 1340), 420);
}

TSaidaItemEdUFDestF::~TSaidaItemEdUFDestF() = default;

void TSaidaItemEdUFDestF::accept()
{
    m_delegado->Confirmar();
    if (m_cds->State() == TDataSetState::Edit || m_cds->State() == TDataSetState::Insert)
        m_cds->Post();
    QDialog::accept();
}

void TSaidaItemEdUFDestF::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    static_cast<TGradeEdicao *>(m_grade)->Inicio();
}
