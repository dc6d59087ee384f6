#include "Money.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TTotaisBar.h"
#include "VerificaLayout.h"

#include <gtest/gtest.h>

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
    CAMPO(BuscaLabeledEdit, -1, "", false, "Busca Produto"), CAMPO(ProdCodNumEditBR, 0, "0", false, "Código"),
    CAMPO(ProdDescrLabeledEdit, -1, "", false, "Descrição"), CAMPO(UnidComboBox, -1, "", false, nullptr),
    CAMPO(TribComboBox, -1, "", false, nullptr), CAMPO(NCMMaskEdit, -1, "..", false, nullptr),
    CAMPO(CFOPItemNumEditBR, 0, "0", false, "CFOP"), CAMPO(CSTNumEditBR, 0, "0", false, "CST"),
    CAMPO(OrigMercNumEditBR, 0, "0", false, "Orig.Merc"), CAMPO(EmbQtdNumEditBR, 3, "1,000", false, "Qtd na Emb"),
    CAMPO(QtdEmbsNumEditBR, 3, "1,000", false, "Qtd Embs"), CAMPO(QtdCompradaNumEditBR, 3, "1,000", true, "Qtd"),
    CAMPO(CustoAtualNumEditBR, 4, "0,0000", true, "Últim.Custo Un."),
    CAMPO(CustoTotItemNumEditBR, 4, "0,0000", false, "Custo Tot. R$"),
    CAMPO(DescontoItemNumEditBR, 2, "0,00", false, "Desconto R$"), CAMPO(pIPINumEditBR, 2, "0,00", false, "IPI %"),
    CAMPO(vIPINumEditBR, 4, "0,0000", false, "IPI R$"), CAMPO(OutrasItemNumEditBR, 2, "0,00", false, "Outras D.R$"),
    CAMPO(FreteItemNumEditBR, 2, "0,00", false, "Frete R$"), CAMPO(SeguroItemNumEditBR, 2, "0,00", false, "Seguro R$"),
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
    CAMPO(PrecoPromoNumEditBR, 2, "0,00", true, "Preço Promo."), CAMPO(MargemNumEditBR, 2, "0,00", false, "Margem %"),
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
TEST_F(ItemPanel, FitsItsPlaceAlsoWithPriceTablesAndGradesAndShowsLargeValuesWhole)
{
    auto confere = [this](const char *quando) {
        SCOPED_TRACE(quando);
        EXPECT_LE(m_painel.minimumSizeHint().width(), 1340);
        EXPECT_LE(m_painel.minimumSizeHint().height(), 300);
        EXPECT_EQ(verifica::Defeitos(&m_painel), QStringList());
    };
    confere("empty");
    TNumEditBR *tabela2 = m_painel.AdicionarPreco(QStringLiteral("PrecoNumEditBR2"), QStringLiteral("ATACADO"));
    m_painel.AdicionarPreco(QStringLiteral("PrecoNumEditBR3"), QStringLiteral("PROMOCAO"));
    QComboBox *ultimaGrade = nullptr;
    for (const char *grade : {"TAMANHO", "COR", "NUMERACAO"})
        ultimaGrade = m_painel.AdicionarGrade(QStringLiteral("GradeCombo") + QLatin1String(grade), QLatin1String(grade));
    QApplication::processEvents();
    confere("demo store");
    EXPECT_TRUE(m_painel.PrecosBox()->isAncestorOf(tabela2));
    EXPECT_EQ(tabela2->Decimals(), 2);
    EXPECT_TRUE(m_painel.GradesBox()->isAncestorOf(ultimaGrade));

    // The further prices and then the grades are typed right after the new price.
    QStringList nomes;
    for (QWidget *w : verifica::CaminhoTab(m_painel.PrecoNumEditBR(), ultimaGrade))
        nomes << w->objectName();
    EXPECT_EQ(nomes, (QStringList{"PrecoNumEditBR", "PrecoNumEditBR2", "PrecoNumEditBR3", "GradeComboTAMANHO",
                                  "GradeComboCOR", "GradeComboNUMERACAO"}));

    // The largest value a clerk will type must show whole.
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

TEST_F(ItemPanel, TabWalksProductLineQuantitiesTaxesThenPrices)
{
    const QList<QWidget *> caminho = verifica::CaminhoTab(m_painel.ProdCodDelesLabeledEdit(), m_painel.PrecoNumEditBR());
    ASSERT_EQ(caminho.last(), m_painel.PrecoNumEditBR()) << "Tab never reached the new price";
    std::multiset<QWidget *> digitaveis;
    for (const Campo &c : Campos)
        if (!c.calculado)
            digitaveis.insert(c.pegar(m_painel));
    EXPECT_EQ(std::multiset<QWidget *>(caminho.begin(), caminho.end()), digitaveis) << "each field that takes typing, once";
    EXPECT_EQ(verifica::OrdemTab(&m_painel, caminho),
              (QStringList{"ProdutoLinha", "QuantidadesLinha", "ImpostosGroupBox", "PrecoVendaGroupBox"}));
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
    m_painel.EsconderProdPanel();
    EXPECT_FALSE(lista->isVisible());
}

// --- Totals bar -------------------------------------------------------------------------------

// A large note: products and total in the millions, the others in the hundreds of thousands, each
// with cents of its own so that a setter writing another's label shows.
TEST(TotaisBar, EachSetterShowsItsOwnValueAndAllFitOneLineUnderTheGrid)
{
    TTotaisBar barra;
    const std::pair<void (TTotaisBar::*)(Money), QLabel *> linhas[] = {
        {&TTotaisBar::SetDesconto, barra.DescontoItensLabel()}, {&TTotaisBar::SetICMS, barra.ICMSItensLabel()},
        {&TTotaisBar::SetICMSST, barra.ICMSSTItensLabel()}, {&TTotaisBar::SetFCP, barra.FCPItensLabel()},
        {&TTotaisBar::SetFCPST, barra.FCPSTItensLabel()}, {&TTotaisBar::SetIPI, barra.IPIItensLabel()},
        {&TTotaisBar::SetOutras, barra.OutrasItensLabel()}, {&TTotaisBar::SetFrete, barra.FreteItensLabel()},
        {&TTotaisBar::SetSeguro, barra.SeguroItensLabel()}, {&TTotaisBar::SetTotProd, barra.TotProdItensLabel()},
        {&TTotaisBar::SetTot, barra.TotItensLabel()},
    };
    const int milhoes = 9;   // the last two rows
    for (int i = 0; i < int(std::size(linhas)); ++i)
        (barra.*linhas[i].first)(Money::fromRaw((i < milhoes ? 9999990000 : 99999990000) + (10 + i) * 100));
    barra.SetNItens(999);
    barra.SetConcorda(true);
    QSet<QString> nomes;
    for (int i = 0; i < int(std::size(linhas)); ++i) {
        QLabel *rotulo = linhas[i].second;
        EXPECT_EQ(rotulo->text(), QStringLiteral("R$ %1,%2").arg(i < milhoes ? "999.999" : "9.999.999").arg(10 + i))
            << rotulo->objectName().toStdString();
        nomes.insert(rotulo->objectName());
    }
    EXPECT_EQ(nomes.size(), int(std::size(linhas))) << "each value has a name of its own";
    EXPECT_EQ(barra.NItensLabel()->text(), QStringLiteral("999"));

    EXPECT_LE(barra.minimumSizeHint().width(), 1340);
    barra.resize(1340, barra.sizeHint().height());
    barra.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&barra));
    EXPECT_LE(barra.height(), 50) << "a bar, not a panel";
    EXPECT_EQ(verifica::Defeitos(&barra), QStringList());

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

} // namespace
