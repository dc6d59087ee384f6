#include "TEdNotaPanel.h"
#include "TNumEditBR.h"
#include "VerificaLayout.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using Aba = TEdNotaPanel::Aba;

// Every typed field: its name, its decimals (-1: not numeric) and its tab.
struct Campo
{
    const char *nome;
    QWidget *(*pegar)(const TEdNotaPanel &);
    int decimais;
    Aba aba;
};

#define CAMPO(nome, decimais, aba) \
    Campo { #nome, [](const TEdNotaPanel &p) -> QWidget * { return p.nome(); }, decimais, TEdNotaPanel::aba }

const Campo Campos[] = {
    CAMPO(EmprComboBox, -1, AbaNota), CAMPO(DestinEmprComboBox, -1, AbaNota), CAMPO(TipoDocComboBox, -1, AbaNota),
    CAMPO(DtDocDtFr, -1, AbaNota), CAMPO(DtSaiDtFr, -1, AbaNota), CAMPO(HSaiMaskEdit, -1, AbaNota),
    CAMPO(NDocNumEditBR, 0, AbaNota), CAMPO(SerieNumEditBR, 0, AbaNota), CAMPO(FornecComboBox, -1, AbaNota),
    CAMPO(CompraCFOPNumEditBR, 0, AbaNota), CAMPO(CompraNatOpLabeledEdit, -1, AbaNota),
    CAMPO(TotProdNumEditBR, 2, AbaNota), CAMPO(IPITotNumEditBR, 2, AbaNota), CAMPO(FreteNumEditBR, 2, AbaNota),
    CAMPO(OutrasNumEditBR, 2, AbaNota), CAMPO(ICMSTotNumEditBR, 2, AbaNota), CAMPO(ICMSSTTotNumEditBR, 2, AbaNota),
    CAMPO(FCPTotNumEditBR, 2, AbaNota), CAMPO(FCPSTTotNumEditBR, 2, AbaNota), CAMPO(DescontoTotNumEditBR, 2, AbaNota),
    CAMPO(TotNumEditBR, 2, AbaNota),
    CAMPO(FreteModalidadeComboBox, -1, AbaTransporte), CAMPO(TranspFornecComboBox, -1, AbaTransporte),
    CAMPO(FreteBCValNumEditBR, 2, AbaTransporte), CAMPO(FreteICMSNumEditBR, 2, AbaTransporte),
    CAMPO(FreteICMSRetValNumEditBR, 2, AbaTransporte), CAMPO(FreteCFOPNumEditBR, 0, AbaTransporte),
    CAMPO(FreteVeiPlacaLabeledEdit, -1, AbaTransporte), CAMPO(FreteVeiUFLabeledEdit, -1, AbaTransporte),
    CAMPO(FreteVeiANTTLabeledEdit, -1, AbaTransporte), CAMPO(FreteReboque1PlacaLabeledEdit, -1, AbaTransporte),
    CAMPO(FreteReboque1UFLabeledEdit, -1, AbaTransporte), CAMPO(FreteReboque1ANTTLabeledEdit, -1, AbaTransporte),
    CAMPO(FreteReboque2PlacaLabeledEdit, -1, AbaTransporte), CAMPO(FreteReboque2UFLabeledEdit, -1, AbaTransporte),
    CAMPO(FreteReboque2ANTTLabeledEdit, -1, AbaTransporte), CAMPO(FreteVolsQtdNumEditBR, 3, AbaTransporte),
    CAMPO(FreteVolsEspecieLabeledEdit, -1, AbaTransporte), CAMPO(FreteVolsMarcaLabeledEdit, -1, AbaTransporte),
    CAMPO(FreteVolsNumLabeledEdit, -1, AbaTransporte), CAMPO(FretePesoLiqNumEditBR, 3, AbaTransporte),
    CAMPO(FretePesoBrutoNumEditBR, 3, AbaTransporte),
    CAMPO(NFEChaveRefLabeledEdit, -1, AbaReferencias), CAMPO(NFEChaveRef2LabeledEdit, -1, AbaReferencias),
    CAMPO(NFEChaveRef3LabeledEdit, -1, AbaReferencias), CAMPO(NFEChaveRef4LabeledEdit, -1, AbaReferencias),
    CAMPO(NFEChaveRef5LabeledEdit, -1, AbaReferencias),
};

#undef CAMPO

// A header panel at the size it gets in the lower half of a 1366x768 screen, shown and active so
// that focus and shortcuts work as for a clerk.
class EdNotaPanel : public testing::Test
{
protected:
    void SetUp() override
    {
        m_painel.resize(1340, 260);
        m_painel.show();
        m_painel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_painel));
    }

    void MostrarAbaDe(QWidget *campo)
    {
        for (int aba = 0; aba < m_painel.Abas()->count(); ++aba)
            if (m_painel.Abas()->widget(aba)->isAncestorOf(campo))
                m_painel.Abas()->setCurrentIndex(aba);
        QApplication::processEvents();
    }

    TEdNotaPanel m_painel;
};

TEST_F(EdNotaPanel, EveryFieldIsFoundByItsNameWithItsFormatCaptionAndTab)
{
    EXPECT_EQ(m_painel.objectName(), QStringLiteral("EdNotaPanel"));
    QSet<QWidget *> comRotulo;
    for (QLabel *rotulo : m_painel.findChildren<QLabel *>())
        comRotulo.insert(rotulo->buddy());
    for (const Campo &c : Campos) {
        SCOPED_TRACE(c.nome);
        QWidget *campo = c.pegar(m_painel);
        EXPECT_EQ(m_painel.findChildren<QWidget *>(QLatin1String(c.nome)), QList<QWidget *>{campo})
            << "the name must be unique and the accessor must return its widget";
        auto *num = qobject_cast<TNumEditBR *>(campo);
        EXPECT_EQ(num ? num->Decimals() : -1, c.decimais);
        EXPECT_EQ(num && num->ReadOnlyLook(), campo == m_painel.TotNumEditBR()) << "only the total is computed";
        EXPECT_TRUE(m_painel.Abas()->widget(c.aba)->isAncestorOf(campo)) << "on the wrong tab";
        EXPECT_TRUE(comRotulo.contains(campo)) << "no caption";
    }
    EXPECT_EQ(m_painel.Campos().size(), int(std::size(Campos)));
    EXPECT_EQ(m_painel.findChild<QPushButton *>(QStringLiteral("NotaOkButton"))->text(), QStringLiteral("&Gravar"));
    EXPECT_EQ(m_painel.findChild<QPushButton *>(QStringLiteral("NotaCancButton"))->text(), QStringLiteral("&Cancelar"));

    QStringList modalidades;
    for (int i = 0; i < m_painel.FreteModalidadeComboBox()->count(); ++i)
        modalidades << m_painel.FreteModalidadeComboBox()->itemText(i);
    EXPECT_EQ(modalidades, (QStringList{"<NAO INDICADO>", "EMITENTE", "DESTINATARIO/REMETENTE", "TERCEIROS", "SEM FRETE"}));
    EXPECT_FALSE(m_painel.TipoDocComboBox()->isEditable());
    EXPECT_EQ(m_painel.TipoDocComboBox()->maxVisibleItems(), 16);
    for (QDateEdit *data : {m_painel.DtDocDtFr(), m_painel.DtSaiDtFr()}) {
        EXPECT_TRUE(data->calendarPopup());
        data->setDate(QDate(2024, 3, 5));
        EXPECT_EQ(data->text(), QStringLiteral("05/03/2024"));
    }
}

TEST_F(EdNotaPanel, TypingKeepsOnlyWhatTheFieldAccepts)
{
    const struct { const char *caso, *campo, *teclas, *esperado; } linhas[] = {
        {"HourSkipsItsColon", "HSaiMaskEdit", "14h30", "14:30"},
        {"PlateUpperCasesAndDropsTheDash", "FreteVeiPlacaLabeledEdit", "abc-1d", "ABC1D"},
        {"PlateStopsAtSeven", "FreteVeiPlacaLabeledEdit", "abc1d234", "ABC1D23"},
        {"PlateDropsAccentedLetters", "FreteReboque1PlacaLabeledEdit", "çab1", "AB1"},
        {"SecondTrailerPlate", "FreteReboque2PlacaLabeledEdit", "rst 9z8", "RST9Z8"},
        {"UFTakesTwoLetters", "FreteVeiUFLabeledEdit", "spr", "SP"},
        {"UFRefusesDigits", "FreteReboque1UFLabeledEdit", "1p2r", "PR"},
        {"SecondTrailerUF", "FreteReboque2UFLabeledEdit", "m-g", "MG"},
        {"KeyTakesDigitsOnly", "NFEChaveRefLabeledEdit", "3524 0412.345a6", "352404123456"},
        {"KeyStopsAt44", "NFEChaveRef5LabeledEdit", "35240412345678000190550010000012341000012345999",
         "35240412345678000190550010000012341000012345"},
    };
    for (const auto &linha : linhas) {
        SCOPED_TRACE(linha.caso);
        auto *edit = m_painel.findChild<QLineEdit *>(QLatin1String(linha.campo));
        ASSERT_NE(edit, nullptr);
        MostrarAbaDe(edit);
        edit->clear();
        edit->setFocus();
        edit->setCursorPosition(0);
        verifica::Digitar(edit, QString::fromUtf8(linha.teclas));
        EXPECT_EQ(edit->text(), QString::fromUtf8(linha.esperado));
    }
}

// Alt+letter must be unambiguous among what is visible at once and land where the caption says.
TEST_F(EdNotaPanel, AcceleratorsAreUniqueOnEachTabAndReachTheirField)
{
    for (int aba = 0; aba < m_painel.Abas()->count(); ++aba) {
        m_painel.Abas()->setCurrentIndex(aba);
        std::multiset<QString> atalhos;
        for (QWidget *w : m_painel.findChildren<QWidget *>()) {
            const auto *rotulo = qobject_cast<QLabel *>(w);
            const auto *botao = qobject_cast<QPushButton *>(w);
            if (w->isVisible() && ((rotulo && rotulo->buddy()) || botao))
                atalhos.insert(QKeySequence::mnemonic(rotulo ? rotulo->text() : botao->text()).toString());
        }
        atalhos.erase(QString());
        for (int i = 0; i < m_painel.Abas()->count(); ++i)
            atalhos.insert(QKeySequence::mnemonic(m_painel.Abas()->tabText(i)).toString());
        for (const QString &a : atalhos)
            EXPECT_EQ(atalhos.count(a), 1u) << "tab " << aba << ": " << a.toStdString();
    }

    const std::pair<Qt::Key, QWidget *> atalhos[] = {
        {Qt::Key_F, m_painel.FornecComboBox()}, {Qt::Key_D, m_painel.NDocNumEditBR()},
        {Qt::Key_S, m_painel.SerieNumEditBR()}, {Qt::Key_O, m_painel.TotProdNumEditBR()},
        {Qt::Key_M, m_painel.FreteModalidadeComboBox()}, {Qt::Key_3, m_painel.NFEChaveRef3LabeledEdit()},
    };
    for (const auto &[tecla, campo] : atalhos) {
        MostrarAbaDe(campo);
        QTest::keyClick(&m_painel, tecla, Qt::AltModifier);
        EXPECT_EQ(QApplication::focusWidget(), campo) << verifica::Nome(campo).toStdString();
    }
    QTest::keyClick(&m_painel, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(m_painel.Abas()->currentIndex(), int(TEdNotaPanel::AbaTransporte));
}

// Every tab fits without overlap or cut, and the largest value a clerk will type, and the longest
// list entry, show whole.
TEST_F(EdNotaPanel, FitsItsPlaceAndShowsLargeValuesWhole)
{
    EXPECT_LE(m_painel.minimumSizeHint().width(), 1340);
    EXPECT_LE(m_painel.minimumSizeHint().height(), 260);
    for (int aba = 0; aba < m_painel.Abas()->count(); ++aba) {
        m_painel.Abas()->setCurrentIndex(aba);
        QApplication::processEvents();
        SCOPED_TRACE(aba);
        ASSERT_TRUE(m_painel.Abas()->currentWidget()->isVisible());
        EXPECT_EQ(verifica::Defeitos(&m_painel), QStringList());
    }

    const std::pair<QLineEdit *, const char *> valores[] = {
        {m_painel.NDocNumEditBR(), "999999999"}, {m_painel.SerieNumEditBR(), "99999"},
        {m_painel.TotProdNumEditBR(), "99999999,99"}, {m_painel.TotNumEditBR(), "99999999,99"},
        {m_painel.FreteVolsQtdNumEditBR(), "999999,999"}, {m_painel.FreteVeiPlacaLabeledEdit(), "WWW9W99"},
        {m_painel.FreteVeiUFLabeledEdit(), "MG"},
        {m_painel.NFEChaveRef2LabeledEdit(), "35240412345678000190550010000012341000012345"},
    };
    for (const auto &[campo, texto] : valores) {
        MostrarAbaDe(campo);
        campo->setText(QLatin1String(texto));
        ASSERT_EQ(campo->text(), QLatin1String(texto)) << "the field refused the sample";
        EXPECT_LE(campo->fontMetrics().horizontalAdvance(texto) + 8, campo->width()) << texto;
    }
    m_painel.TipoDocComboBox()->addItems({"ENTRADA", "RETORNO DE LOCACAO", "RETORNO DE COMODATO"});
    for (QComboBox *combo : {m_painel.TipoDocComboBox(), m_painel.FreteModalidadeComboBox()}) {
        MostrarAbaDe(combo);
        for (int i = 0; i < combo->count(); ++i)
            EXPECT_LE(combo->fontMetrics().horizontalAdvance(combo->itemText(i)) + 30, combo->width())
                << combo->itemText(i).toStdString();
    }
}

TEST_F(EdNotaPanel, TabWalksEachTabInTheOrderItIsSeenThenReachesTheButtons)
{
    const std::tuple<Aba, QWidget *, QStringList> abas[] = {
        {TEdNotaPanel::AbaNota, m_painel.EmprComboBox(), {"NotaGroupBox", "TotaisGroupBox", "NotaOkButton"}},
        {TEdNotaPanel::AbaTransporte, m_painel.FreteModalidadeComboBox(),
         {"FreteGroupBox", "VeiculosGroupBox", "VolumesGroupBox", "NotaOkButton"}},
        {TEdNotaPanel::AbaReferencias, m_painel.NFEChaveRefLabeledEdit(), {"ReferenciasGroupBox", "NotaOkButton"}},
    };
    for (const auto &[aba, primeiro, blocos] : abas) {
        SCOPED_TRACE(int(aba));
        MostrarAbaDe(primeiro);
        const QList<QWidget *> caminho = verifica::CaminhoTab(primeiro, m_painel.NotaOkButton());
        ASSERT_EQ(caminho.last(), m_painel.NotaOkButton()) << "Tab never reached Gravar";
        // Every field of the tab that takes typing, each once, and nothing else before Gravar.
        std::multiset<QWidget *> esperados;
        for (const Campo &c : Campos)
            if (c.aba == aba && c.pegar(m_painel) != m_painel.TotNumEditBR())
                esperados.insert(c.pegar(m_painel));
        EXPECT_EQ(std::multiset<QWidget *>(caminho.begin(), caminho.end() - 1), esperados);
        EXPECT_EQ(verifica::OrdemTab(&m_painel, caminho), blocos);
    }
    QTest::keyClick(m_painel.NotaOkButton(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), m_painel.NotaCancButton());
}

} // namespace
