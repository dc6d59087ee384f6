#include "TEdNotaPanel.h"
#include "TNumEditBR.h"
#include "VerificaLayout.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// A header panel at the size it gets in the lower half of a 1366x768 screen, shown and active so
// that focus and shortcuts work as for a clerk.
class EdNotaPanel : public testing::Test
{
protected:
    void SetUp() override
    {
        m_painel.resize(1340, 260); m_painel.show(); m_painel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_painel));
    }

    TEdNotaPanel m_painel;
};

// Each tab's fields in the order Tab reaches them, with their decimals when numeric, then the
// blocks Tab enters. The computed total is skipped.
TEST_F(EdNotaPanel, TabWalksEveryFieldOfEachTabInTheOrderItIsSeenThenReachesTheButtons)
{
    QSet<QWidget *> comRotulo;
    for (QLabel *rotulo : m_painel.findChildren<QLabel *>()) comRotulo.insert(rotulo->buddy());
    const auto descreve = [&](QWidget *w) {
        auto *num = qobject_cast<TNumEditBR *>(w);
        return w->objectName() + (num ? QStringLiteral(":%1").arg(num->Decimals()) : QString())
               + (comRotulo.contains(w) || w == m_painel.NotaOkButton() ? "" : " <sem rótulo>")
               + (m_painel.findChildren<QWidget *>(w->objectName()).size() == 1 ? "" : " <nome repetido>");
    };
    const std::tuple<QWidget *, const char *, QStringList> abas[] = {
        {m_painel.EmprComboBox(),
         "EmprComboBox DestinEmprComboBox TipoDocComboBox DtDocDtFr DtSaiDtFr HSaiMaskEdit NDocNumEditBR:0 SerieNumEditBR:0 "
         "FornecComboBox CompraCFOPNumEditBR:0 CompraNatOpLabeledEdit TotProdNumEditBR:2 IPITotNumEditBR:2 FreteNumEditBR:2 "
         "OutrasNumEditBR:2 ICMSTotNumEditBR:2 ICMSSTTotNumEditBR:2 FCPTotNumEditBR:2 FCPSTTotNumEditBR:2 "
         "DescontoTotNumEditBR:2 NotaOkButton",
         {"NotaGroupBox", "TotaisGroupBox", "NotaOkButton"}},
        {m_painel.FreteModalidadeComboBox(),
         "FreteModalidadeComboBox TranspFornecComboBox FreteBCValNumEditBR:2 FreteICMSNumEditBR:2 "
         "FreteICMSRetValNumEditBR:2 FreteCFOPNumEditBR:0 FreteVeiPlacaLabeledEdit FreteVeiUFLabeledEdit "
         "FreteVeiANTTLabeledEdit FreteReboque1PlacaLabeledEdit FreteReboque1UFLabeledEdit FreteReboque1ANTTLabeledEdit "
         "FreteReboque2PlacaLabeledEdit FreteReboque2UFLabeledEdit FreteReboque2ANTTLabeledEdit FreteVolsQtdNumEditBR:3 "
         "FreteVolsEspecieLabeledEdit FretePesoLiqNumEditBR:3 FreteVolsMarcaLabeledEdit FretePesoBrutoNumEditBR:3 "
         "FreteVolsNumLabeledEdit NotaOkButton",
         {"FreteGroupBox", "VeiculosGroupBox", "VolumesGroupBox", "NotaOkButton"}},
        {m_painel.NFEChaveRefLabeledEdit(),
         "NFEChaveRefLabeledEdit NFEChaveRef2LabeledEdit NFEChaveRef3LabeledEdit NFEChaveRef4LabeledEdit "
         "NFEChaveRef5LabeledEdit NotaOkButton",
         {"ReferenciasGroupBox", "NotaOkButton"}},
    };
    std::multiset<QWidget *> andados{m_painel.TotNumEditBR()};
    for (const auto &[primeiro, campos, blocos] : abas) {
        SCOPED_TRACE(verifica::Nome(primeiro).toStdString());
        verifica::MostrarAbaDe(primeiro);
        const QList<QWidget *> caminho = verifica::CaminhoTab(primeiro, m_painel.NotaOkButton());
        QStringList vistos;
        for (QWidget *w : caminho) vistos << descreve(w);
        EXPECT_EQ(vistos.join(' '), QString::fromLatin1(campos));
        EXPECT_EQ(verifica::OrdemTab(&m_painel, caminho), blocos);
        andados.insert(caminho.begin(), caminho.end() - 1);
    }
    EXPECT_EQ(andados, std::multiset<QWidget *>(m_painel.Campos().begin(), m_painel.Campos().end()));
    EXPECT_TRUE(m_painel.TotNumEditBR()->ReadOnlyLook() && comRotulo.contains(m_painel.TotNumEditBR()));
    QTest::keyClick(m_painel.NotaOkButton(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), m_painel.NotaCancButton());
}

// Every tab fits without overlap or cut; the largest value a clerk will type, the longest list
// entry, the buttons, dates and freight choices show as the clerk expects.
TEST_F(EdNotaPanel, FitsShowsValuesWholeKeepsWhatTheFieldAcceptsAndHasUniqueAccelerators)
{
    EXPECT_TRUE(m_painel.minimumSizeHint().width() <= 1340 && m_painel.minimumSizeHint().height() <= 260);
    for (int aba = 0; aba < m_painel.Abas()->count(); ++aba) {
        m_painel.Abas()->setCurrentIndex(aba);
        QApplication::processEvents();
        SCOPED_TRACE(aba);
        ASSERT_TRUE(m_painel.Abas()->currentWidget()->isVisible());
        EXPECT_EQ(verifica::Defeitos(&m_painel), QStringList());
    }
    EXPECT_EQ(verifica::CortaValores({{m_painel.NDocNumEditBR(), "999999999"}, {m_painel.SerieNumEditBR(), "99999"},
                  {m_painel.TotProdNumEditBR(), "99999999,99"}, {m_painel.TotNumEditBR(), "99999999,99"},
                  {m_painel.FreteVolsQtdNumEditBR(), "999999,999"}, {m_painel.FreteVeiPlacaLabeledEdit(), "WWW9W99"},
                  {m_painel.FreteVeiUFLabeledEdit(), "MG"},
                  {m_painel.NFEChaveRef2LabeledEdit(), "35240412345678000190550010000012341000012345"}}),
              QStringList());
    m_painel.DtDocDtFr()->setDate(QDate(2024, 3, 5)); m_painel.DtSaiDtFr()->setDate(QDate(2024, 3, 6));
    EXPECT_EQ(m_painel.DtDocDtFr()->text() + ' ' + m_painel.DtSaiDtFr()->text(), QStringLiteral("05/03/2024 06/03/2024"));
    // The freight choices, after the longest document types, each shown whole.
    m_painel.TipoDocComboBox()->addItems({"ENTRADA", "RETORNO DE LOCACAO", "RETORNO DE COMODATO"});
    QStringList itens, cortados;
    for (QComboBox *combo : {m_painel.TipoDocComboBox(), m_painel.FreteModalidadeComboBox()}) {
        verifica::MostrarAbaDe(combo);
        for (int i = 0; i < combo->count(); ++i)
            if (itens << combo->itemText(i); combo->fontMetrics().horizontalAdvance(itens.last()) + 30 > combo->width())
                cortados << itens.last();
    }
    EXPECT_EQ(cortados, QStringList());
    EXPECT_EQ(itens, (QStringList{"ENTRADA", "RETORNO DE LOCACAO", "RETORNO DE COMODATO", "<NAO INDICADO>", "EMITENTE",
                                  "DESTINATARIO/REMETENTE", "TERCEIROS", "SEM FRETE"}));

    // Typing keeps only what the field accepts.
    const struct { const char *caso, *campo, *teclas, *esperado; } linhas[] = {
        {"HourSkipsItsColon", "HSaiMaskEdit", "14h30", "14:30"},
        {"PlateUpperCasesDropsTheDashAndStopsAtSeven", "FreteVeiPlacaLabeledEdit", "abc-1d234", "ABC1D23"},
        {"PlateDropsAccentedLetters", "FreteReboque1PlacaLabeledEdit", "çab1", "AB1"},
        {"SecondTrailerPlate", "FreteReboque2PlacaLabeledEdit", "rst 9z8", "RST9Z8"},
        {"UFTakesTwoLetters", "FreteVeiUFLabeledEdit", "spr", "SP"}, {"UFRefusesDigits", "FreteReboque1UFLabeledEdit", "1p2r", "PR"},
        {"SecondTrailerUF", "FreteReboque2UFLabeledEdit", "m-g", "MG"}, {"KeyUpperCasesLettersDropsTheRest", "NFEChaveRefLabeledEdit", "3524 0412.345a6", "35240412345A6"},
        {"KeyStopsAt44", "NFEChaveRef5LabeledEdit", "35240412345678000190550010000012341000012345999",
         "35240412345678000190550010000012341000012345"},
    };
    for (const auto &linha : linhas) {
        SCOPED_TRACE(linha.caso);
        auto *edit = m_painel.findChild<QLineEdit *>(QLatin1String(linha.campo));
        ASSERT_NE(edit, nullptr);
        verifica::MostrarAbaDe(edit);
        edit->clear(); edit->setFocus(); edit->setCursorPosition(0);
        verifica::Digitar(edit, QString::fromUtf8(linha.teclas));
        EXPECT_EQ(edit->text(), QString::fromUtf8(linha.esperado));
    }

    // Alt+letter must be unambiguous among what is visible at once and land where the caption says.
    for (int aba = 0; aba < m_painel.Abas()->count(); ++aba) {
        m_painel.Abas()->setCurrentIndex(aba);
        std::multiset<QString> atalhos;
        for (QWidget *w : m_painel.findChildren<QWidget *>()) {
            const QLabel *rotulo = qobject_cast<QLabel *>(w); const QPushButton *botao = qobject_cast<QPushButton *>(w);
            if (w->isVisible() && ((rotulo && rotulo->buddy()) || botao))
                atalhos.insert(QKeySequence::mnemonic(rotulo ? rotulo->text() : botao->text()).toString());
        }
        atalhos.erase(QString());
        for (int i = 0; i < m_painel.Abas()->count(); ++i)
            atalhos.insert(QKeySequence::mnemonic(m_painel.Abas()->tabText(i)).toString());
        for (const QString &a : atalhos)
            EXPECT_EQ(atalhos.count(a), 1u) << "tab " << aba << ": " << a.toStdString();
    }
    const std::pair<Qt::Key, QWidget *> atalhos[] = {{Qt::Key_F, m_painel.FornecComboBox()}, {Qt::Key_D, m_painel.NDocNumEditBR()},
        {Qt::Key_S, m_painel.SerieNumEditBR()}, {Qt::Key_O, m_painel.TotProdNumEditBR()},
        {Qt::Key_M, m_painel.FreteModalidadeComboBox()}, {Qt::Key_3, m_painel.NFEChaveRef3LabeledEdit()}};
    for (const auto &[tecla, campo] : atalhos) {
        verifica::MostrarAbaDe(campo);
        QTest::keyClick(&m_painel, tecla, Qt::AltModifier);
        EXPECT_EQ(QApplication::focusWidget(), campo) << verifica::Nome(campo).toStdString();
    }
    QTest::keyClick(&m_painel, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(m_painel.Abas()->currentIndex(), int(TEdNotaPanel::AbaTransporte));
}

} // namespace
