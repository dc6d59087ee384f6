#include "Money.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TTotaisBar.h"
#include "VerificaLayout.h"

#include <gtest/gtest.h>

namespace {

// The fields in the order Tab reaches them, then the computed ones (decimals marked "*": a
// read-only look, skipped by Tab): name, decimals when numeric, the text of an empty item and the
// caption a clerk knows it by.
const QStringList Campos = {
    "ProdCodDelesLabeledEdit [] Cód. no Fornecedor", "BuscaLabeledEdit [] Busca Produto", "ProdCodNumEditBR 0 [0] Código",
    "ProdDescrLabeledEdit [] Descrição", "UnidComboBox [] Unid.", "TribComboBox [] Situação Tributária", "NCMMaskEdit [..] NCM",
    "CFOPItemNumEditBR 0 [0] CFOP", "CSTNumEditBR 0 [0] CST", "OrigMercNumEditBR 0 [0] Orig.Merc",
    "EmbQtdNumEditBR 3 [1,000] Qtd na Emb", "QtdEmbsNumEditBR 3 [1,000] Qtd Embs", "CustoTotItemNumEditBR 4 [0,0000] Custo Tot. R$",
    "DescontoItemNumEditBR 2 [0,00] Desconto R$", "pIPINumEditBR 2 [0,00] IPI %", "vIPINumEditBR 4 [0,0000] IPI R$",
    "OutrasItemNumEditBR 2 [0,00] Outras D.R$", "FreteItemNumEditBR 2 [0,00] Frete R$", "SeguroItemNumEditBR 2 [0,00] Seguro R$",
    "modBCNumEditBR 0 [0] Mod. BC", "vBCNumEditBR 2 [0,00] BC R$", "pICMSNumEditBR 2 [0,00] Alíq. %",
    "vICMSNumEditBR 2 [0,00] ICMS R$", "pRedBCNumEditBR 2 [0,00] Red. BC %", "modBCSTNumEditBR 0 [0] Mod. BC",
    "pMVASTNumEditBR 2 [0,00] MVA %", "pRedBCSTNumEditBR 2 [0,00] Red. BC %", "vBCSTNumEditBR 2 [0,00] BC ST R$",
    "pICMSSTNumEditBR 2 [0,00] Alíq. %", "vICMSSTNumEditBR 2 [0,00] ICMS ST R$", "vBCFCPNumEditBR 2 [0,00] BC R$",
    "pFCPNumEditBR 2 [0,00] FCP %", "vFCPNumEditBR 2 [0,00] FCP R$", "vBCFCPSTNumEditBR 2 [0,00] BC ST R$",
    "pFCPSTNumEditBR 2 [0,00] FCP ST %", "vFCPSTNumEditBR 2 [0,00] FCP ST R$", "CstPisNumEditBR 0 [0] CST PIS",
    "pPisNumEditBR 2 [0,00] PIS %", "vPisNumEditBR 2 [0,00] PIS R$", "CstCofinsNumEditBR 0 [0] CST COFINS",
    "pCofinsNumEditBR 2 [0,00] COFINS %", "vCofinsNumEditBR 2 [0,00] COFINS R$", "TribIcmsvBCSTRet_NumEditBR 2 [0,00] BC R$",
    "TribIcmspST_NumEditBR 2 [0,00] Alíq. %", "TribIcmsvICMSSubstituto_NumEditBR 2 [0,00] Substituto R$",
    "TribIcmsvICMSSTRet_NumEditBR 2 [0,00] Retido R$", "MargemNumEditBR 2 [0,00] Margem %", "PrecoNumEditBR 2 [0,00] Novo Preço ",
    "QtdCompradaNumEditBR 3* [1,000] Qtd", "CustoAtualNumEditBR 4* [0,0000] Últim.Custo Un.",
    "CustoNumEditBR 4* [0,0000] Custo Unit.", "PrecoAtualNumEditBR 2* [0,00] Último Preço",
    "PrecoPromoNumEditBR 2* [0,00] Preço Promo.",
};

// An item panel at the size it gets in the lower half of a 1366x768 screen, shown and active.
class ItemPanel : public testing::Test
{
protected:
    void SetUp() override
    {
        m_painel.resize(1340, 300); m_painel.show(); m_painel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_painel));
    }

    TItemPanel m_painel;
};

TEST_F(ItemPanel, TabWalksEveryTypedFieldLineByLineAndSkipsTheComputedOnes)
{
    QHash<QWidget *, QString> rotulos;
    for (QLabel *rotulo : m_painel.findChildren<QLabel *>())
        rotulos.insert(rotulo->buddy(), rotulo->text().remove(QLatin1Char('&')));
    const auto descreve = [&](QWidget *campo) {
        auto *num = qobject_cast<TNumEditBR *>(campo);
        auto *combo = qobject_cast<QComboBox *>(campo);
        return campo->objectName() + (num ? QStringLiteral(" %1%2").arg(num->Decimals()).arg(num->ReadOnlyLook() ? "*" : "") : "")
               + QStringLiteral(" [%1] ").arg(combo ? combo->currentText() : qobject_cast<QLineEdit *>(campo)->text())
               + rotulos.value(campo, QStringLiteral("<sem rótulo>"))
               + (m_painel.findChildren<QWidget *>(campo->objectName()).size() == 1 ? "" : " <nome repetido>");
    };
    const QList<QWidget *> caminho = verifica::CaminhoTab(m_painel.ProdCodDelesLabeledEdit(), m_painel.PrecoNumEditBR());
    ASSERT_EQ(caminho.last(), m_painel.PrecoNumEditBR()) << "Tab never reached the new price";
    QStringList campos;
    for (QWidget *campo : caminho) campos << descreve(campo);
    for (QWidget *campo : m_painel.Campos())
        if (!caminho.contains(campo))
            campos << descreve(campo);
    EXPECT_EQ(campos, Campos);
    EXPECT_EQ(verifica::OrdemTab(&m_painel, caminho),
              (QStringList{"ProdutoLinha", "QuantidadesLinha", "ImpostosGroupBox", "PrecoVendaGroupBox"}));
}

TEST_F(ItemPanel, NCMProductListAndFitsItsPlaceAlsoWithPriceTablesAndGrades)
{
    QLineEdit *ncm = m_painel.NCMMaskEdit();
    const auto digitar = [ncm](const char *teclas) {
        ncm->clear(); ncm->setFocus(); ncm->setCursorPosition(0); verifica::Digitar(ncm, QLatin1String(teclas));
    };
    digitar("2106a9090");
    EXPECT_TRUE(ncm->text() == QStringLiteral("2106.90.90") && ncm->hasAcceptableInput()) << ncm->text().toStdString();
    digitar("2106");
    EXPECT_FALSE(ncm->hasAcceptableInput()) << "half an NCM must not pass as complete";

    QFrame *lista = m_painel.ProdPanel();
    m_painel.ExibirProdPanel();
    ASSERT_TRUE(lista->isVisible());
    EXPECT_EQ(lista->pos(), m_painel.BuscaLabeledEdit()->mapTo(&m_painel, QPoint(0, m_painel.BuscaLabeledEdit()->height())));
    EXPECT_TRUE(m_painel.rect().contains(lista->geometry()));
    EXPECT_GE(lista->height(), 150) << "room for several products";
    QWidget *atingido = m_painel.childAt(lista->geometry().center());
    EXPECT_TRUE(lista->isAncestorOf(atingido)) << "hidden under " << verifica::Nome(atingido).toStdString();

    // Empty, and as the screen builds it for the demo store: two further price tables, three grades.
    m_painel.EsconderProdPanel();
    auto confere = [this](const char *quando) {
        SCOPED_TRACE(quando);
        EXPECT_TRUE(m_painel.minimumSizeHint().width() <= 1340 && m_painel.minimumSizeHint().height() <= 300);
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
    EXPECT_TRUE(m_painel.PrecosBox()->isAncestorOf(tabela2) && m_painel.GradesBox()->isAncestorOf(ultimaGrade) && tabela2->Decimals() == 2);

    // The further prices and then the grades are typed right after the new price.
    QStringList nomes;
    for (QWidget *w : verifica::CaminhoTab(m_painel.PrecoNumEditBR(), ultimaGrade)) nomes << w->objectName();
    EXPECT_EQ(nomes, (QStringList{"PrecoNumEditBR", "PrecoNumEditBR2", "PrecoNumEditBR3", "GradeComboTAMANHO",
                                  "GradeComboCOR", "GradeComboNUMERACAO"}));

    // The largest value a clerk will type must show whole.
    EXPECT_EQ(verifica::CortaValores({
                  {m_painel.ProdCodDelesLabeledEdit(), "78912345678901"}, {m_painel.BuscaLabeledEdit(), "7891234567890"},
                  {m_painel.ProdCodNumEditBR(), "1234567"}, {m_painel.QtdCompradaNumEditBR(), "9999999,999"},
                  {m_painel.CustoTotItemNumEditBR(), "9999999,9999"}, {m_painel.vBCSTNumEditBR(), "999999,99"},
                  {m_painel.TribIcmsvICMSSubstituto_NumEditBR(), "999999,99"}, {m_painel.PrecoNumEditBR(), "9999999,99"}}),
              QStringList());
}

// A large note: products and total in the millions, the others in the hundreds of thousands, each
// with cents of its own so that a setter writing another's label shows. Then the colour actually
// painted, away from the frame and the texts, tells whether the items agree with the header.
TEST(TotaisBar, EachSetterShowsItsOwnValueOnOneLineAndTheColourTellsAgreement)
{
    TTotaisBar barra;
    using B = TTotaisBar;
    const std::pair<void (B::*)(Money), QLabel *> linhas[] = {
        {&B::SetDesconto, barra.DescontoItensLabel()}, {&B::SetICMS, barra.ICMSItensLabel()},
        {&B::SetICMSST, barra.ICMSSTItensLabel()}, {&B::SetFCP, barra.FCPItensLabel()},
        {&B::SetFCPST, barra.FCPSTItensLabel()}, {&B::SetIPI, barra.IPIItensLabel()},
        {&B::SetOutras, barra.OutrasItensLabel()}, {&B::SetFrete, barra.FreteItensLabel()},
        {&B::SetSeguro, barra.SeguroItensLabel()}, {&B::SetTotProd, barra.TotProdItensLabel()}, {&B::SetTot, barra.TotItensLabel()},
    };
    const int milhoes = 9;   // the last two rows
    for (int i = 0; i < int(std::size(linhas)); ++i)
        (barra.*linhas[i].first)(Money::fromRaw((i < milhoes ? 9999990000 : 99999990000) + (10 + i) * 100));
    barra.SetNItens(999);
    QStringList vistos, esperados;
    QSet<QString> nomes;
    for (int i = 0; i < int(std::size(linhas)); ++i) {
        nomes << linhas[i].second->objectName();
        vistos << linhas[i].second->objectName() + ' ' + linhas[i].second->text();
        esperados << linhas[i].second->objectName() + QStringLiteral(" R$ %1,%2").arg(i < milhoes ? "999.999" : "9.999.999").arg(10 + i);
    }
    EXPECT_EQ(vistos + QStringList{barra.NItensLabel()->text()}, esperados + QStringList{"999"});
    EXPECT_EQ(nomes.size(), vistos.size()) << "each value has a name of its own";

    barra.resize(1340, barra.sizeHint().height());
    barra.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&barra));
    auto pintada = [&barra] { return barra.grab().toImage().pixelColor(barra.width() - 3, 2); };
    const QColor neutra = pintada();
    EXPECT_EQ(neutra, QApplication::palette().color(QPalette::Window)) << "neutral until told";
    barra.SetConcorda(true);
    EXPECT_GT(pintada().green(), pintada().red() + 10);
    EXPECT_TRUE(barra.minimumSizeHint().width() <= 1340 && barra.height() <= 50) << "a bar, not a panel";
    EXPECT_EQ(verifica::Defeitos(&barra), QStringList());
    barra.SetConcorda(false);
    EXPECT_GT(pintada().red(), pintada().green() + 10);
    barra.Zerar();
    EXPECT_EQ(pintada(), neutra) << "a cleared bar judges nothing";
    EXPECT_EQ(barra.TotItensLabel()->text() + '|' + barra.NItensLabel()->text(), QStringLiteral("R$ 0,00|0"));
}

} // namespace
