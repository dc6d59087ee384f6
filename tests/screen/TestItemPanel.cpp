#include "Money.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TTotaisBar.h"
#include "VerificaLayout.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>
#include <set>

namespace {

struct Campo
{
    const char *nome;
    QWidget *(*pegar)(const TItemPanel &);
    int decimais;          // -1: not numeric
    const char *inicial;   // the text of an empty item
    bool calculado;        // read-only look, skipped by Tab
    const char *rotulo;    // the caption a clerk knows it by; null where any short caption does
};

#define CAMPO(nome, decimais, inicial, calculado, rotulo) \
    Campo { #nome, [](const TItemPanel &p) -> QWidget * { return p.nome(); }, decimais, inicial, calculado, rotulo }
#define IMPOSTO(nome, decimais) CAMPO(nome, decimais, decimais ? "0,00" : "0", false, nullptr)

const Campo Campos[] = {
    CAMPO(ProdCodDelesLabeledEdit, -1, "", false, "Cód. no Fornecedor"),
    CAMPO(BuscaLabeledEdit, -1, "", false, "Busca Produto"),
    CAMPO(ProdCodNumEditBR, 0, "0", false, "Código"),
    CAMPO(ProdDescrLabeledEdit, -1, "", false, "Descrição"),
    CAMPO(UnidComboBox, -1, "", false, nullptr),
    CAMPO(TribComboBox, -1, "", false, nullptr),
    CAMPO(NCMMaskEdit, -1, "..", false, nullptr),
    CAMPO(CFOPItemNumEditBR, 0, "0", false, "CFOP"),
    CAMPO(CSTNumEditBR, 0, "0", false, "CST"),
    CAMPO(OrigMercNumEditBR, 0, "0", false, "Orig.Merc"),
    CAMPO(EmbQtdNumEditBR, 3, "1,000", false, "Qtd na Emb"),
    CAMPO(QtdEmbsNumEditBR, 3, "1,000", false, "Qtd Embs"),
    CAMPO(QtdCompradaNumEditBR, 3, "1,000", true, "Qtd"),
    CAMPO(CustoAtualNumEditBR, 4, "0,0000", true, "Últim.Custo Un."),
    CAMPO(CustoTotItemNumEditBR, 4, "0,0000", false, "Custo Tot. R$"),
    CAMPO(DescontoItemNumEditBR, 2, "0,00", false, "Desconto R$"),
    CAMPO(pIPINumEditBR, 2, "0,00", false, "IPI %"),
    CAMPO(vIPINumEditBR, 4, "0,0000", false, "IPI R$"),
    CAMPO(OutrasItemNumEditBR, 2, "0,00", false, "Outras D.R$"),
    CAMPO(FreteItemNumEditBR, 2, "0,00", false, "Frete R$"),
    CAMPO(SeguroItemNumEditBR, 2, "0,00", false, "Seguro R$"),
    IMPOSTO(modBCNumEditBR, 0), IMPOSTO(vBCNumEditBR, 2), IMPOSTO(pICMSNumEditBR, 2), IMPOSTO(vICMSNumEditBR, 2),
    IMPOSTO(pRedBCNumEditBR, 2), IMPOSTO(modBCSTNumEditBR, 0), IMPOSTO(pMVASTNumEditBR, 2),
    IMPOSTO(pRedBCSTNumEditBR, 2), CAMPO(vBCSTNumEditBR, 2, "0,00", false, "BC ST R$"),
    IMPOSTO(pICMSSTNumEditBR, 2), IMPOSTO(vICMSSTNumEditBR, 2), IMPOSTO(vBCFCPNumEditBR, 2),
    IMPOSTO(pFCPNumEditBR, 2), IMPOSTO(vFCPNumEditBR, 2), IMPOSTO(vBCFCPSTNumEditBR, 2), IMPOSTO(pFCPSTNumEditBR, 2),
    IMPOSTO(vFCPSTNumEditBR, 2), IMPOSTO(CstPisNumEditBR, 0), IMPOSTO(pPisNumEditBR, 2), IMPOSTO(vPisNumEditBR, 2),
    IMPOSTO(CstCofinsNumEditBR, 0), IMPOSTO(pCofinsNumEditBR, 2), IMPOSTO(vCofinsNumEditBR, 2),
    IMPOSTO(TribIcmsvBCSTRet_NumEditBR, 2), IMPOSTO(TribIcmspST_NumEditBR, 2),
    IMPOSTO(TribIcmsvICMSSubstituto_NumEditBR, 2), IMPOSTO(TribIcmsvICMSSTRet_NumEditBR, 2),
    CAMPO(CustoNumEditBR, 4, "0,0000", true, "Custo Unit."),
    CAMPO(PrecoAtualNumEditBR, 2, "0,00", true, "Último Preço"),
    CAMPO(PrecoPromoNumEditBR, 2, "0,00", true, "Preço Promo."),
    CAMPO(MargemNumEditBR, 2, "0,00", false, "Margem %"),
    CAMPO(PrecoNumEditBR, 2, "0,00", false, "Novo Preço "),
};

#undef IMPOSTO
#undef CAMPO

// An item panel at the size it gets in the lower half of a 1366x768 screen, shown and active.
class ItemPanel : public testing::Test
{
protected:
    void SetUp() override
    {
        m_painel.resize(1340, 300);
        m_painel.show();
        m_painel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_painel));
    }

    TItemPanel m_painel;
};

TEST_F(ItemPanel, EveryFieldIsFoundByItsNameWithItsTypeFormatStartValueAndCaption)
{
    EXPECT_EQ(m_painel.objectName(), QStringLiteral("ItemPanel"));
    QHash<QWidget *, QString> rotulos;
    for (QLabel *rotulo : m_painel.findChildren<QLabel *>())
        rotulos.insert(rotulo->buddy(), rotulo->text().remove(QLatin1Char('&')));
    for (const Campo &c : Campos) {
        SCOPED_TRACE(c.nome);
        QWidget *campo = c.pegar(m_painel);
        EXPECT_EQ(m_painel.findChildren<QWidget *>(QLatin1String(c.nome)), QList<QWidget *>{campo})
            << "the name must be unique and the accessor must return its widget";
        auto *num = qobject_cast<TNumEditBR *>(campo);
        EXPECT_EQ(num ? num->Decimals() : -1, c.decimais);
        EXPECT_EQ(num && num->ReadOnlyLook(), c.calculado);
        auto *combo = qobject_cast<QComboBox *>(campo);
        EXPECT_EQ(combo ? combo->currentText() : qobject_cast<QLineEdit *>(campo)->text(), QString::fromUtf8(c.inicial));
        ASSERT_TRUE(rotulos.contains(campo)) << "no caption";
        if (c.rotulo) {
            EXPECT_EQ(rotulos.value(campo), QString::fromUtf8(c.rotulo));
        }
    }
    EXPECT_EQ(m_painel.Campos().size(), int(std::size(Campos)));

    const std::tuple<QAbstractButton *, const char *, const char *> botoes[] = {
        {m_painel.ProdButton(), "ProdButton", "..."}, {m_painel.UnidButton(), "UnidButton", "..."},
        {m_painel.TribButton(), "TribButton", "..."}, {m_painel.ExcluirItemButton(), "ExcluirItemButton", "Excluir Item"}};
    for (const auto &[botao, nome, texto] : botoes) {
        EXPECT_EQ(m_painel.findChild<QAbstractButton *>(QLatin1String(nome)), botao);
        EXPECT_EQ(botao->text(), QLatin1String(texto));
    }
    EXPECT_EQ(m_painel.findChild<QWidget *>(QStringLiteral("PrecosBox"))->layout(), m_painel.PrecosLayout());
    EXPECT_EQ(m_painel.findChild<QWidget *>(QStringLiteral("GradesBox"))->layout(), m_painel.GradesLayout());
    EXPECT_TRUE(m_painel.findChild<QWidget *>(QStringLiteral("ProdPanel"))->isAncestorOf(
        m_painel.findChild<QTableView *>(QStringLiteral("ProdDBGrid"))));
}

TEST_F(ItemPanel, NCMTakesEightDigitsWithItsDots)
{
    QLineEdit *ncm = m_painel.NCMMaskEdit();
    ncm->setFocus();
    ncm->setCursorPosition(0);
    verifica::Digitar(ncm, QStringLiteral("2106a9090"));
    EXPECT_EQ(ncm->text(), QStringLiteral("2106.90.90"));
    EXPECT_TRUE(ncm->hasAcceptableInput());
    ncm->clear();
    ncm->setCursorPosition(0);
    verifica::Digitar(ncm, QStringLiteral("2106"));
    EXPECT_FALSE(ncm->hasAcceptableInput()) << "half an NCM must not pass as complete";
}

// Empty, and as the screen builds it for the demo store: two further price tables, three grades.
TEST_F(ItemPanel, FitsItsPlaceWithoutOverlapOrCutAlsoWithPriceTablesAndGrades)
{
    for (int loja = 0; loja < 2; ++loja) {
        if (loja == 1) {
            m_painel.AdicionarPreco(QStringLiteral("PrecoNumEditBR2"), QStringLiteral("ATACADO"));
            m_painel.AdicionarPreco(QStringLiteral("PrecoNumEditBR3"), QStringLiteral("PROMOCAO"));
            for (const char *grade : {"TAMANHO", "COR", "NUMERACAO"})
                m_painel.AdicionarGrade(QStringLiteral("GradeCombo") + QLatin1String(grade), QLatin1String(grade));
            QApplication::processEvents();
        }
        SCOPED_TRACE(loja);
        EXPECT_LE(m_painel.minimumSizeHint().width(), 1340);
        EXPECT_LE(m_painel.minimumSizeHint().height(), 300);
        EXPECT_EQ(verifica::Sobreposicoes(&m_painel), QStringList());
        EXPECT_EQ(verifica::Espremidos(&m_painel), QStringList());
        verifica::Capturar(&m_painel, loja ? QStringLiteral("ItemPanel-LojaDemo.png") : QStringLiteral("ItemPanel.png"));
    }
    auto *tabela2 = m_painel.findChild<TNumEditBR *>(QStringLiteral("PrecoNumEditBR2"));
    ASSERT_NE(tabela2, nullptr);
    EXPECT_TRUE(m_painel.PrecosBox()->isAncestorOf(tabela2));
    EXPECT_EQ(tabela2->Decimals(), 2);
    auto *ultimaGrade = m_painel.findChild<QComboBox *>(QStringLiteral("GradeComboNUMERACAO"));
    ASSERT_NE(ultimaGrade, nullptr);
    EXPECT_TRUE(m_painel.GradesBox()->isAncestorOf(ultimaGrade));

    // The further prices and then the grades are typed right after the new price.
    QStringList nomes;
    for (QWidget *w : verifica::CaminhoTab(m_painel.PrecoNumEditBR(), ultimaGrade))
        nomes << w->objectName();
    EXPECT_EQ(nomes, (QStringList{"PrecoNumEditBR", "PrecoNumEditBR2", "PrecoNumEditBR3", "GradeComboTAMANHO",
                                  "GradeComboCOR", "GradeComboNUMERACAO"}));
}

TEST_F(ItemPanel, TabWalksProductLineQuantitiesTaxesThenPrices)
{
    const QList<QWidget *> caminho = verifica::CaminhoTab(m_painel.ProdCodDelesLabeledEdit(), m_painel.PrecoNumEditBR());
    ASSERT_EQ(caminho.last(), m_painel.PrecoNumEditBR()) << "Tab never reached the new price";
    std::multiset<QWidget *> digitaveis;
    for (const Campo &c : Campos)
        if (!c.calculado)
            digitaveis.insert(c.pegar(m_painel));
    EXPECT_EQ(std::multiset<QWidget *>(caminho.begin(), caminho.end()), digitaveis) << "each field that takes typing, once";
    EXPECT_EQ(verifica::ForaDeOrdem(&m_painel, caminho), QStringList());
    EXPECT_EQ(verifica::BlocosNaOrdem(&m_painel, caminho),
              (QStringList{"ProdutoLinha", "QuantidadesLinha", "ImpostosGroupBox", "PrecoVendaGroupBox"}));
}

TEST_F(ItemPanel, LargeValuesShowWhole)
{
    const std::pair<QLineEdit *, const char *> valores[] = {
        {m_painel.ProdCodDelesLabeledEdit(), "78912345678901"}, {m_painel.BuscaLabeledEdit(), "7891234567890"},
        {m_painel.ProdCodNumEditBR(), "1234567"}, {m_painel.QtdCompradaNumEditBR(), "9999999,999"},
        {m_painel.CustoTotItemNumEditBR(), "9999999,9999"}, {m_painel.vBCSTNumEditBR(), "999999,99"},
        {m_painel.TribIcmsvICMSSubstituto_NumEditBR(), "999999,99"}, {m_painel.PrecoNumEditBR(), "9999999,99"},
    };
    for (const auto &[campo, texto] : valores) {
        campo->setText(QLatin1String(texto));
        ASSERT_EQ(campo->text(), QLatin1String(texto)) << "the field refused the sample";
        EXPECT_LE(campo->fontMetrics().horizontalAdvance(texto) + 8, campo->width()) << texto;
    }
}

TEST_F(ItemPanel, ProductListDropsDownRightBelowTheSearchFieldAboveTheOtherFields)
{
    QFrame *lista = m_painel.ProdPanel();
    EXPECT_FALSE(lista->isVisible());
    m_painel.ExibirProdPanel();
    ASSERT_TRUE(lista->isVisible());
    QLineEdit *busca = m_painel.BuscaLabeledEdit();
    EXPECT_EQ(lista->pos(), busca->mapTo(&m_painel, QPoint(0, busca->height())));
    EXPECT_TRUE(m_painel.rect().contains(lista->geometry()));
    EXPECT_GE(lista->height(), 150) << "room for several products";
    QWidget *atingido = m_painel.childAt(lista->geometry().center());
    EXPECT_TRUE(lista->isAncestorOf(atingido)) << "hidden under " << verifica::Nome(atingido).toStdString();
    verifica::Capturar(&m_painel, QStringLiteral("ItemPanel-ProdPanel.png"));
    m_painel.EsconderProdPanel();
    EXPECT_FALSE(lista->isVisible());
}

// --- Totals bar -------------------------------------------------------------------------------

TEST(TotaisBar, EachSetterShowsItsOwnValueInReais)
{
    TTotaisBar barra;
    const std::tuple<void (TTotaisBar::*)(Money), QLabel *, std::int64_t, const char *> linhas[] = {
        {&TTotaisBar::SetTotProd, barra.TotProdItensLabel(), 12345600, "R$ 1.234,56"},
        {&TTotaisBar::SetDesconto, barra.DescontoItensLabel(), 100, "R$ 0,01"},
        {&TTotaisBar::SetICMS, barra.ICMSItensLabel(), 12345678910, "R$ 1.234.567,89"},
        {&TTotaisBar::SetICMSST, barra.ICMSSTItensLabel(), 150, "R$ 0,02"},
        {&TTotaisBar::SetFCP, barra.FCPItensLabel(), 0, "R$ 0,00"},
        {&TTotaisBar::SetFCPST, barra.FCPSTItensLabel(), 10000000, "R$ 1.000,00"},
        {&TTotaisBar::SetIPI, barra.IPIItensLabel(), 9990000, "R$ 999,00"},
        {&TTotaisBar::SetOutras, barra.OutrasItensLabel(), 55550, "R$ 5,56"},
        {&TTotaisBar::SetFrete, barra.FreteItensLabel(), 1200000, "R$ 120,00"},
        {&TTotaisBar::SetSeguro, barra.SeguroItensLabel(), 30000, "R$ 3,00"},
        {&TTotaisBar::SetTot, barra.TotItensLabel(), 99999999900, "R$ 9.999.999,99"},
    };
    for (const auto &[set, rotulo, valor, esperado] : linhas)
        (barra.*set)(Money::fromRaw(valor));
    barra.SetNItens(12);
    QSet<QString> nomes;
    for (const auto &[set, rotulo, valor, esperado] : linhas) {
        EXPECT_EQ(rotulo->text(), QString::fromUtf8(esperado)) << rotulo->objectName().toStdString();
        nomes.insert(rotulo->objectName());
    }
    EXPECT_EQ(nomes.size(), int(std::size(linhas))) << "each value has a name of its own";
    EXPECT_EQ(barra.NItensLabel()->text(), QStringLiteral("12"));
    barra.Zerar();
    EXPECT_EQ(barra.TotItensLabel()->text(), QStringLiteral("R$ 0,00"));
    EXPECT_EQ(barra.NItensLabel()->text(), QStringLiteral("0"));
}

TEST(TotaisBar, ColourTellsWhetherTheItemsAgreeWithTheHeader)
{
    TTotaisBar barra;
    barra.resize(1340, barra.sizeHint().height());
    // The colour actually painted, away from the frame and the texts.
    auto pintada = [&barra] { return barra.grab().toImage().pixelColor(barra.width() - 3, 2); };
    const QColor neutra = pintada();
    EXPECT_EQ(neutra, QApplication::palette().color(QPalette::Window)) << "neutral until told";
    barra.SetConcorda(true);
    EXPECT_GT(pintada().green(), pintada().red() + 10);
    barra.SetConcorda(false);
    EXPECT_GT(pintada().red(), pintada().green() + 10);
    barra.SetNeutra();
    EXPECT_EQ(pintada(), neutra);
    barra.SetConcorda(false);
    barra.Zerar();
    EXPECT_EQ(pintada(), neutra) << "a cleared bar judges nothing";
}

// A large note: products and total in the millions, the other totals in the hundreds of thousands.
TEST(TotaisBar, FitsOneLineUnderTheGridWithLargeValues)
{
    TTotaisBar barra;
    for (auto set : {&TTotaisBar::SetDesconto, &TTotaisBar::SetICMS, &TTotaisBar::SetICMSST, &TTotaisBar::SetFCP,
                     &TTotaisBar::SetFCPST, &TTotaisBar::SetIPI, &TTotaisBar::SetOutras, &TTotaisBar::SetFrete,
                     &TTotaisBar::SetSeguro})
        (barra.*set)(Money::fromRaw(9999999900));
    barra.SetTotProd(Money::fromRaw(99999999900));
    barra.SetTot(Money::fromRaw(99999999900));
    barra.SetNItens(999);
    barra.SetConcorda(true);
    EXPECT_LE(barra.minimumSizeHint().width(), 1340);
    barra.resize(1340, barra.sizeHint().height());
    barra.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&barra));
    EXPECT_LE(barra.height(), 50) << "a bar, not a panel";
    EXPECT_EQ(verifica::Sobreposicoes(&barra), QStringList());
    EXPECT_EQ(verifica::Espremidos(&barra), QStringList());
    verifica::Capturar(&barra, QStringLiteral("TotaisBar.png"));
}

} // namespace
