#include "TItemPanel.h"

#include "CamposTela.h"
#include "TNumEditBR.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace CamposTela;

namespace {

// Sizes shared by several fields.
TNumEditBR *Dinheiro(QWidget *pai, const char *nome) { return NovoNum(pai, nome, 2, 7); }
TNumEditBR *Imposto(QWidget *pai, const char *nome) { return NovoNum(pai, nome, 2, 6); }
TNumEditBR *Custo(QWidget *pai, const char *nome) { return NovoNum(pai, nome, 4, 6); }
TNumEditBR *Quantidade(QWidget *pai, const char *nome) { return NovoNum(pai, nome, 3, 6); }
TNumEditBR *Percentual(QWidget *pai, const char *nome) { return NovoNum(pai, nome, 2, 3); }
TNumEditBR *Codigo(QWidget *pai, const char *nome, int digitos) { return NovoNum(pai, nome, 0, digitos, digitos); }

QLineEdit *NovoTexto(QWidget *pai, const char *nome, int maxLen)
{
    auto *edit = new QLineEdit(pai);
    edit->setObjectName(QLatin1String(nome));
    edit->setMaxLength(maxLen);
    return edit;
}

// The small "..." button beside a field that opens the register behind it.
QToolButton *BotaoCadastro(QWidget *pai, const char *nome, const QString &dica)
{
    auto *botao = new QToolButton(pai);
    botao->setObjectName(QLatin1String(nome));
    botao->setText(QStringLiteral("..."));
    botao->setToolTip(dica);
    // Out of the Tab walk: typing an item goes from field to field.
    botao->setFocusPolicy(Qt::ClickFocus);
    return botao;
}

QLabel *NovoRotulo(QWidget *pai, const QString &texto, QWidget *campo, Qt::Alignment alinhamento)
{
    auto *rotulo = new QLabel(texto, pai);
    rotulo->setBuddy(campo);
    rotulo->setAlignment(alinhamento | Qt::AlignVCenter);
    return rotulo;
}

void Negrito(QWidget *w)
{
    QFont f = w->font();
    f.setBold(true);
    w->setFont(f);
}

// A line of cells with the caption above the field, as on the product and quantity lines.
class LinhaRotulada
{
public:
    LinhaRotulada(QWidget *pai, QList<QWidget *> &campos)
        : m_pai(pai), m_grade(new QGridLayout(pai)), m_campos(campos)
    {
        m_grade->setContentsMargins(0, 0, 0, 0);
        m_grade->setHorizontalSpacing(6);
        m_grade->setVerticalSpacing(1);
    }

    // `cresce` lets the cell take the line's free width.
    void Celula(const QString &rotulo, QWidget *campo, QAbstractButton *botao = nullptr, bool cresce = false)
    {
        m_grade->addWidget(NovoRotulo(m_pai, rotulo, campo, Qt::AlignLeft), 0, m_coluna);
        QWidget *celula = campo;
        if (botao) {
            celula = new QWidget(m_pai);
            auto *caixa = new QHBoxLayout(celula);
            caixa->setContentsMargins(0, 0, 0, 0);
            caixa->setSpacing(2);
            campo->setParent(celula);
            botao->setParent(celula);
            caixa->addWidget(campo);
            caixa->addWidget(botao);
            if (!cresce)
                celula->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        }
        m_grade->addWidget(celula, 1, m_coluna, cresce ? Qt::Alignment() : Qt::AlignLeft);
        m_grade->setColumnStretch(m_coluna, cresce ? 1 : 0);
        m_algumaCresce = m_algumaCresce || cresce;
        m_campos.append(campo);
        ++m_coluna;
    }

    // Free width goes before the buttons at the end of the line, unless a cell takes it.
    void Fechar(QAbstractButton *botaoNoFim = nullptr)
    {
        if (!m_algumaCresce)
            m_grade->setColumnStretch(m_coluna, 1);
        if (botaoNoFim)
            m_grade->addWidget(botaoNoFim, 1, m_coluna + 1);
    }

private:
    QWidget *m_pai;
    QGridLayout *m_grade;
    QList<QWidget *> &m_campos;
    int m_coluna = 0;
    bool m_algumaCresce = false;
};

// One line per tax, its name first, each caption right beside its field. The lines share the
// first column only: lining up every column would cost more width than the panel has.
class LinhasImpostos
{
public:
    LinhasImpostos(QWidget *grupo, QList<QWidget *> &campos) : m_grupo(grupo), m_campos(campos)
    {
        m_linhas = new QVBoxLayout(grupo);
        m_linhas->setContentsMargins(6, 2, 8, 4);
        m_linhas->setSpacing(3);
    }
    ~LinhasImpostos()
    {
        for (QLabel *titulo : std::as_const(m_titulos))
            titulo->setFixedWidth(m_larguraTitulo);
    }

    void Adicionar(const QString &imposto, const QList<std::pair<QString, TNumEditBR *>> &pares)
    {
        auto *linha = new QHBoxLayout;
        linha->setSpacing(4);
        auto *titulo = new QLabel(imposto, m_grupo);
        Negrito(titulo);
        m_titulos.append(titulo);
        m_larguraTitulo = std::max(m_larguraTitulo, titulo->sizeHint().width());
        linha->addWidget(titulo);
        for (const auto &[rotulo, campo] : pares) {
            linha->addSpacing(6);
            linha->addWidget(NovoRotulo(m_grupo, rotulo, campo, Qt::AlignRight));
            linha->addWidget(campo);
            m_campos.append(campo);
        }
        linha->addStretch();
        m_linhas->addLayout(linha);
    }

private:
    QWidget *m_grupo;
    QList<QWidget *> &m_campos;
    QVBoxLayout *m_linhas;
    QList<QLabel *> m_titulos;
    int m_larguraTitulo = 0;
};

} // namespace

TItemPanel::TItemPanel(QWidget *parent) : QGroupBox(parent)
{
    setObjectName(QStringLiteral("ItemPanel"));
    setTitle(tr("Item"));

    m_excluirItemButton = new QPushButton(tr("Excluir Item"), this);
    m_excluirItemButton->setObjectName(QStringLiteral("ExcluirItemButton"));
    m_excluirItemButton->setFocusPolicy(Qt::ClickFocus);

    // Product and quantity lines across the whole width; below them the taxes, with the sale
    // prices on their right.
    auto *grade = new QGridLayout(this);
    grade->setContentsMargins(6, 4, 6, 6);
    grade->setHorizontalSpacing(8);
    grade->setVerticalSpacing(6);
    grade->addWidget(CriarLinhaProduto(), 0, 0, 1, 2);
    grade->addWidget(CriarLinhaQuantidades(), 1, 0, 1, 2);
    grade->addWidget(CriarImpostos(), 2, 0, Qt::AlignLeft | Qt::AlignTop);
    grade->addWidget(CriarPrecos(), 2, 1);
    grade->setColumnStretch(0, 1);
    grade->setRowStretch(2, 1);

    CriarProdPanel();
    EncadearTab();
}

QWidget *TItemPanel::CriarLinhaProduto()
{
    auto *linha = new QWidget(this);
    linha->setObjectName(QStringLiteral("ProdutoLinha"));

    m_prodCodDelesLabeledEdit = NovoTexto(linha, "ProdCodDelesLabeledEdit", 60);
    m_prodCodDelesLabeledEdit->setFixedWidth(LarguraPara(m_prodCodDelesLabeledEdit, QString(14, QLatin1Char('9'))));
    m_buscaLabeledEdit = NovoTexto(linha, "BuscaLabeledEdit", 60);
    m_buscaLabeledEdit->setFixedWidth(LarguraPara(m_buscaLabeledEdit, QString(18, QLatin1Char('9'))));
    m_buscaLabeledEdit->setToolTip(tr("Código, código de barras ou GTIN do produto"));
    m_prodCodNumEditBR = Codigo(linha, "ProdCodNumEditBR", 9);
    m_prodCodNumEditBR->setFixedWidth(LarguraPara(m_prodCodNumEditBR, QString(7, QLatin1Char('9'))));
    m_prodButton = BotaoCadastro(linha, "ProdButton", tr("Cadastro de produtos"));
    m_prodDescrLabeledEdit = NovoTexto(linha, "ProdDescrLabeledEdit", 120);
    m_prodDescrLabeledEdit->setMinimumWidth(LarguraPara(m_prodDescrLabeledEdit, QString(24, QLatin1Char('x'))));
    m_unidComboBox = NovoCombo(linha, "UnidComboBox", 4);
    m_unidButton = BotaoCadastro(linha, "UnidButton", tr("Cadastro de unidades"));
    m_tribComboBox = NovoCombo(linha, "TribComboBox", 18);
    m_tribButton = BotaoCadastro(linha, "TribButton", tr("Cadastro de situações tributárias"));
    m_ncmMaskEdit = NovoTexto(linha, "NCMMaskEdit", 10);
    m_ncmMaskEdit->setInputMask(QStringLiteral("9999.99.99;_"));
    m_ncmMaskEdit->setFixedWidth(LarguraPara(m_ncmMaskEdit, QStringLiteral("9999.99.99M")));
    m_cfopItemNumEditBR = Codigo(linha, "CFOPItemNumEditBR", 4);
    m_cstNumEditBR = Codigo(linha, "CSTNumEditBR", 3);
    m_origMercNumEditBR = Codigo(linha, "OrigMercNumEditBR", 1);

    LinhaRotulada l(linha, m_campos);
    l.Celula(tr("Cód. no Fornecedor"), m_prodCodDelesLabeledEdit);
    l.Celula(tr("&Busca Produto"), m_buscaLabeledEdit);
    l.Celula(tr("Código"), m_prodCodNumEditBR, m_prodButton);
    l.Celula(tr("Descrição"), m_prodDescrLabeledEdit, nullptr, true);
    l.Celula(tr("Unid."), m_unidComboBox, m_unidButton);
    l.Celula(tr("Situação Tributária"), m_tribComboBox, m_tribButton);
    l.Celula(tr("NCM"), m_ncmMaskEdit);
    l.Celula(tr("CFOP"), m_cfopItemNumEditBR);
    l.Celula(tr("CST"), m_cstNumEditBR);
    l.Celula(tr("Orig.Merc"), m_origMercNumEditBR);
    l.Fechar();
    return linha;
}

QWidget *TItemPanel::CriarLinhaQuantidades()
{
    auto *linha = new QWidget(this);
    linha->setObjectName(QStringLiteral("QuantidadesLinha"));

    m_embQtdNumEditBR = Quantidade(linha, "EmbQtdNumEditBR");
    m_qtdEmbsNumEditBR = Quantidade(linha, "QtdEmbsNumEditBR");
    m_qtdCompradaNumEditBR = NovoNum(linha, "QtdCompradaNumEditBR", 3, 7);
    m_qtdCompradaNumEditBR->SetReadOnlyLook(true);
    m_custoAtualNumEditBR = Custo(linha, "CustoAtualNumEditBR");
    m_custoAtualNumEditBR->SetReadOnlyLook(true);
    m_custoTotItemNumEditBR = NovoNum(linha, "CustoTotItemNumEditBR", 4, 7);
    m_descontoItemNumEditBR = Dinheiro(linha, "DescontoItemNumEditBR");
    m_pIPINumEditBR = Percentual(linha, "pIPINumEditBR");
    m_vIPINumEditBR = Custo(linha, "vIPINumEditBR");
    m_outrasItemNumEditBR = Dinheiro(linha, "OutrasItemNumEditBR");
    m_freteItemNumEditBR = Dinheiro(linha, "FreteItemNumEditBR");
    m_seguroItemNumEditBR = Dinheiro(linha, "SeguroItemNumEditBR");
    // A new item starts with one package of one unit.
    m_embQtdNumEditBR->SetValue(1.0);
    m_qtdEmbsNumEditBR->SetValue(1.0);
    m_qtdCompradaNumEditBR->SetValue(1.0);

    LinhaRotulada l(linha, m_campos);
    l.Celula(tr("Qtd na Emb"), m_embQtdNumEditBR);
    l.Celula(tr("Qtd Embs"), m_qtdEmbsNumEditBR);
    l.Celula(tr("Qtd"), m_qtdCompradaNumEditBR);
    l.Celula(tr("Últim.Custo Un."), m_custoAtualNumEditBR);
    l.Celula(tr("Custo Tot. R$"), m_custoTotItemNumEditBR);
    l.Celula(tr("Desconto R$"), m_descontoItemNumEditBR);
    l.Celula(tr("IPI %"), m_pIPINumEditBR);
    l.Celula(tr("IPI R$"), m_vIPINumEditBR);
    l.Celula(tr("Outras D.R$"), m_outrasItemNumEditBR);
    l.Celula(tr("Frete R$"), m_freteItemNumEditBR);
    l.Celula(tr("Seguro R$"), m_seguroItemNumEditBR);
    m_excluirItemButton->setParent(linha);
    l.Fechar(m_excluirItemButton);
    return linha;
}

QWidget *TItemPanel::CriarImpostos()
{
    auto *impostos = new QGroupBox(tr("Impostos"), this);
    impostos->setObjectName(QStringLiteral("ImpostosGroupBox"));

    m_modBCNumEditBR = Codigo(impostos, "modBCNumEditBR", 1);
    m_vBCNumEditBR = Imposto(impostos, "vBCNumEditBR");
    m_pICMSNumEditBR = Percentual(impostos, "pICMSNumEditBR");
    m_vICMSNumEditBR = Imposto(impostos, "vICMSNumEditBR");
    m_pRedBCNumEditBR = Percentual(impostos, "pRedBCNumEditBR");

    m_modBCSTNumEditBR = Codigo(impostos, "modBCSTNumEditBR", 1);
    m_pMVASTNumEditBR = Percentual(impostos, "pMVASTNumEditBR");
    m_pRedBCSTNumEditBR = Percentual(impostos, "pRedBCSTNumEditBR");
    m_vBCSTNumEditBR = Imposto(impostos, "vBCSTNumEditBR");
    m_pICMSSTNumEditBR = Percentual(impostos, "pICMSSTNumEditBR");
    m_vICMSSTNumEditBR = Imposto(impostos, "vICMSSTNumEditBR");

    m_vBCFCPNumEditBR = Imposto(impostos, "vBCFCPNumEditBR");
    m_pFCPNumEditBR = Percentual(impostos, "pFCPNumEditBR");
    m_vFCPNumEditBR = Imposto(impostos, "vFCPNumEditBR");
    m_vBCFCPSTNumEditBR = Imposto(impostos, "vBCFCPSTNumEditBR");
    m_pFCPSTNumEditBR = Percentual(impostos, "pFCPSTNumEditBR");
    m_vFCPSTNumEditBR = Imposto(impostos, "vFCPSTNumEditBR");

    m_cstPisNumEditBR = Codigo(impostos, "CstPisNumEditBR", 2);
    m_pPisNumEditBR = Percentual(impostos, "pPisNumEditBR");
    m_vPisNumEditBR = Imposto(impostos, "vPisNumEditBR");
    m_cstCofinsNumEditBR = Codigo(impostos, "CstCofinsNumEditBR", 2);
    m_pCofinsNumEditBR = Percentual(impostos, "pCofinsNumEditBR");
    m_vCofinsNumEditBR = Imposto(impostos, "vCofinsNumEditBR");

    m_tribIcmsvBCSTRet = Imposto(impostos, "TribIcmsvBCSTRet_NumEditBR");
    m_tribIcmspST = Percentual(impostos, "TribIcmspST_NumEditBR");
    m_tribIcmsvICMSSubstituto = Imposto(impostos, "TribIcmsvICMSSubstituto_NumEditBR");
    m_tribIcmsvICMSSTRet = Imposto(impostos, "TribIcmsvICMSSTRet_NumEditBR");

    LinhasImpostos linhas(impostos, m_campos);
    linhas.Adicionar(tr("ICMS"), {{tr("Mod. BC"), m_modBCNumEditBR},
                                  {tr("BC R$"), m_vBCNumEditBR},
                                  {tr("Alíq. %"), m_pICMSNumEditBR},
                                  {tr("ICMS R$"), m_vICMSNumEditBR},
                                  {tr("Red. BC %"), m_pRedBCNumEditBR}});
    linhas.Adicionar(tr("ICMS ST"), {{tr("Mod. BC"), m_modBCSTNumEditBR},
                                     {tr("MVA %"), m_pMVASTNumEditBR},
                                     {tr("Red. BC %"), m_pRedBCSTNumEditBR},
                                     {tr("BC ST R$"), m_vBCSTNumEditBR},
                                     {tr("Alíq. %"), m_pICMSSTNumEditBR},
                                     {tr("ICMS ST R$"), m_vICMSSTNumEditBR}});
    linhas.Adicionar(tr("FCP"), {{tr("BC R$"), m_vBCFCPNumEditBR},
                                 {tr("FCP %"), m_pFCPNumEditBR},
                                 {tr("FCP R$"), m_vFCPNumEditBR},
                                 {tr("BC ST R$"), m_vBCFCPSTNumEditBR},
                                 {tr("FCP ST %"), m_pFCPSTNumEditBR},
                                 {tr("FCP ST R$"), m_vFCPSTNumEditBR}});
    linhas.Adicionar(tr("PIS/COFINS"), {{tr("CST PIS"), m_cstPisNumEditBR},
                                        {tr("PIS %"), m_pPisNumEditBR},
                                        {tr("PIS R$"), m_vPisNumEditBR},
                                        {tr("CST COFINS"), m_cstCofinsNumEditBR},
                                        {tr("COFINS %"), m_pCofinsNumEditBR},
                                        {tr("COFINS R$"), m_vCofinsNumEditBR}});
    linhas.Adicionar(tr("ST Retido"), {{tr("BC R$"), m_tribIcmsvBCSTRet},
                                       {tr("Alíq. %"), m_tribIcmspST},
                                       {tr("Substituto R$"), m_tribIcmsvICMSSubstituto},
                                       {tr("Retido R$"), m_tribIcmsvICMSSTRet}});
    return impostos;
}

QWidget *TItemPanel::CriarPrecos()
{
    auto *precos = new QGroupBox(tr("Preço de Venda"), this);
    precos->setObjectName(QStringLiteral("PrecoVendaGroupBox"));

    m_custoNumEditBR = Custo(precos, "CustoNumEditBR");
    m_custoNumEditBR->SetReadOnlyLook(true);
    m_precoAtualNumEditBR = Dinheiro(precos, "PrecoAtualNumEditBR");
    m_precoAtualNumEditBR->SetReadOnlyLook(true);
    m_precoPromoNumEditBR = Dinheiro(precos, "PrecoPromoNumEditBR");
    m_precoPromoNumEditBR->SetReadOnlyLook(true);
    m_margemNumEditBR = Dinheiro(precos, "MargemNumEditBR");
    m_precoNumEditBR = Dinheiro(precos, "PrecoNumEditBR");
    Negrito(m_precoNumEditBR);

    auto *fixos = new QGridLayout;
    fixos->setHorizontalSpacing(5);
    fixos->setVerticalSpacing(3);
    int linha = 0;
    auto par = [&](const QString &rotulo, TNumEditBR *campo) {
        fixos->addWidget(NovoRotulo(precos, rotulo, campo, Qt::AlignRight), linha, 0);
        fixos->addWidget(campo, linha, 1, Qt::AlignLeft);
        m_campos.append(campo);
        ++linha;
    };
    par(tr("Custo Unit."), m_custoNumEditBR);
    par(tr("Último Preço"), m_precoAtualNumEditBR);
    par(tr("Preço Promo."), m_precoPromoNumEditBR);
    par(tr("Margem %"), m_margemNumEditBR);
    par(tr("Novo Preço "), m_precoNumEditBR);
    fixos->setRowStretch(linha, 1);

    // The further price tables, then the grade combos, in a column beside the fixed prices: the
    // order in which they are typed after the new price.
    m_precosBox = new QWidget(precos);
    m_precosBox->setObjectName(QStringLiteral("PrecosBox"));
    m_precosLayout = new QVBoxLayout(m_precosBox);
    m_precosLayout->setContentsMargins(0, 0, 0, 0);
    m_precosLayout->setSpacing(3);
    m_gradesBox = new QWidget(precos);
    m_gradesBox->setObjectName(QStringLiteral("GradesBox"));
    m_gradesLayout = new QVBoxLayout(m_gradesBox);
    m_gradesLayout->setContentsMargins(0, 0, 0, 0);
    m_gradesLayout->setSpacing(3);
    auto *extras = new QVBoxLayout;
    extras->setSpacing(3);
    extras->addWidget(m_precosBox);
    extras->addWidget(m_gradesBox);
    extras->addStretch();

    auto *caixa = new QHBoxLayout(precos);
    caixa->setContentsMargins(6, 2, 6, 4);
    caixa->setSpacing(10);
    caixa->addLayout(fixos);
    caixa->addLayout(extras);
    return precos;
}

namespace {

QWidget *LinhaCaixa(QWidget *pai, const QString &rotulo, QWidget *campo)
{
    auto *linha = new QWidget(pai);
    auto *caixa = new QHBoxLayout(linha);
    caixa->setContentsMargins(0, 0, 0, 0);
    caixa->setSpacing(5);
    campo->setParent(linha);
    auto *titulo = NovoRotulo(linha, rotulo, campo, Qt::AlignRight);
    caixa->addWidget(titulo, 1);
    caixa->addWidget(campo);
    return linha;
}

// The last focusable widget of a box's lines, or null when the box is empty.
QWidget *UltimoCampo(QVBoxLayout *layout)
{
    for (int i = layout->count() - 1; i >= 0; --i) {
        QWidget *linha = layout->itemAt(i)->widget();
        if (!linha)
            continue;
        const auto filhos = linha->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
        for (auto it = filhos.crbegin(); it != filhos.crend(); ++it)
            if (!(*it)->isWindow() && ((*it)->focusPolicy() & Qt::TabFocus))
                return *it;
    }
    return nullptr;
}

} // namespace

TNumEditBR *TItemPanel::AdicionarPreco(const QString &nome, const QString &rotulo)
{
    QWidget *anterior = UltimoCampo(m_precosLayout);
    auto *edit = Dinheiro(m_precosBox, "");
    edit->setObjectName(nome);
    m_precosLayout->addWidget(LinhaCaixa(m_precosBox, rotulo, edit));
    setTabOrder(anterior ? anterior : m_precoNumEditBR, edit);
    return edit;
}

QComboBox *TItemPanel::AdicionarGrade(const QString &nome, const QString &rotulo)
{
    QWidget *anterior = UltimoCampo(m_gradesLayout);
    if (!anterior)
        anterior = UltimoCampo(m_precosLayout);
    auto *combo = NovoCombo(m_gradesBox, "", 7);
    combo->setObjectName(nome);
    m_gradesLayout->addWidget(LinhaCaixa(m_gradesBox, rotulo, combo));
    setTabOrder(anterior ? anterior : m_precoNumEditBR, combo);
    return combo;
}

void TItemPanel::CriarProdPanel()
{
    m_prodPanel = new QFrame(this);
    m_prodPanel->setObjectName(QStringLiteral("ProdPanel"));
    m_prodPanel->setFrameShape(QFrame::Box);
    m_prodPanel->setAutoFillBackground(true);
    m_prodDBGrid = new QTableView(m_prodPanel);
    m_prodDBGrid->setObjectName(QStringLiteral("ProdDBGrid"));
    m_prodDBGrid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_prodDBGrid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_prodDBGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_prodDBGrid->setAlternatingRowColors(true);
    m_prodDBGrid->verticalHeader()->hide();
    m_prodDBGrid->horizontalHeader()->setStretchLastSection(true);
    auto *caixa = new QVBoxLayout(m_prodPanel);
    caixa->setContentsMargins(1, 1, 1, 1);
    caixa->addWidget(m_prodDBGrid);
    m_prodPanel->hide();
}

void TItemPanel::ExibirProdPanel()
{
    const QPoint canto = m_buscaLabeledEdit->mapTo(this, QPoint(0, m_buscaLabeledEdit->height()));
    const int margem = 4;
    const int largura = std::min(LarguraPara(this, QString(70, QLatin1Char('x'))), width() - canto.x() - margem);
    const int altura = std::max(height() - canto.y() - margem, 80);
    m_prodPanel->setGeometry(canto.x(), canto.y(), largura, altura);
    m_prodPanel->raise();
    m_prodPanel->show();
}

void TItemPanel::EsconderProdPanel()
{
    m_prodPanel->hide();
}

void TItemPanel::EncadearTab()
{
    QWidget *anterior = nullptr;
    for (QWidget *campo : std::as_const(m_campos)) {
        if (anterior)
            setTabOrder(anterior, campo);
        anterior = campo;
    }
}
