#include "TEdNotaPanel.h"
#include "TNumEditBR.h"
#include "VerificaLayout.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDateEdit>
#include <QKeySequence>
#include <QPushButton>

#include <memory>
#include <set>

namespace {

using Aba = TEdNotaPanel::Aba;

struct Campo
{
    const char *nome;
    QWidget *(*pegar)(const TEdNotaPanel &);
    const char *classe;
    int decimais;   // -1: not numeric
    Aba aba;
};

#define CAMPO(nome, classe, decimais, aba) \
    Campo { #nome, [](const TEdNotaPanel &p) -> QWidget * { return p.nome(); }, classe, decimais, TEdNotaPanel::aba }
#define NUM(nome, decimais, aba) CAMPO(nome, "TNumEditBR", decimais, aba)
#define TEXTO(nome, aba) CAMPO(nome, "QLineEdit", -1, aba)
#define COMBO(nome, aba) CAMPO(nome, "QComboBox", -1, aba)

const Campo Campos[] = {
    COMBO(EmprComboBox, AbaNota), COMBO(DestinEmprComboBox, AbaNota), COMBO(TipoDocComboBox, AbaNota),
    CAMPO(DtDocDtFr, "QDateEdit", -1, AbaNota), CAMPO(DtSaiDtFr, "QDateEdit", -1, AbaNota),
    TEXTO(HSaiMaskEdit, AbaNota), NUM(NDocNumEditBR, 0, AbaNota), NUM(SerieNumEditBR, 0, AbaNota),
    COMBO(FornecComboBox, AbaNota), NUM(CompraCFOPNumEditBR, 0, AbaNota), TEXTO(CompraNatOpLabeledEdit, AbaNota),
    NUM(TotProdNumEditBR, 2, AbaNota), NUM(IPITotNumEditBR, 2, AbaNota), NUM(FreteNumEditBR, 2, AbaNota),
    NUM(OutrasNumEditBR, 2, AbaNota), NUM(ICMSTotNumEditBR, 2, AbaNota), NUM(ICMSSTTotNumEditBR, 2, AbaNota),
    NUM(FCPTotNumEditBR, 2, AbaNota), NUM(FCPSTTotNumEditBR, 2, AbaNota), NUM(DescontoTotNumEditBR, 2, AbaNota),
    NUM(TotNumEditBR, 2, AbaNota),
    COMBO(FreteModalidadeComboBox, AbaTransporte), COMBO(TranspFornecComboBox, AbaTransporte),
    NUM(FreteBCValNumEditBR, 2, AbaTransporte), NUM(FreteICMSNumEditBR, 2, AbaTransporte),
    NUM(FreteICMSRetValNumEditBR, 2, AbaTransporte), NUM(FreteCFOPNumEditBR, 0, AbaTransporte),
    TEXTO(FreteVeiPlacaLabeledEdit, AbaTransporte), TEXTO(FreteVeiUFLabeledEdit, AbaTransporte),
    TEXTO(FreteVeiANTTLabeledEdit, AbaTransporte), TEXTO(FreteReboque1PlacaLabeledEdit, AbaTransporte),
    TEXTO(FreteReboque1UFLabeledEdit, AbaTransporte), TEXTO(FreteReboque1ANTTLabeledEdit, AbaTransporte),
    TEXTO(FreteReboque2PlacaLabeledEdit, AbaTransporte), TEXTO(FreteReboque2UFLabeledEdit, AbaTransporte),
    TEXTO(FreteReboque2ANTTLabeledEdit, AbaTransporte), NUM(FreteVolsQtdNumEditBR, 3, AbaTransporte),
    TEXTO(FreteVolsEspecieLabeledEdit, AbaTransporte), TEXTO(FreteVolsMarcaLabeledEdit, AbaTransporte),
    TEXTO(FreteVolsNumLabeledEdit, AbaTransporte), NUM(FretePesoLiqNumEditBR, 3, AbaTransporte),
    NUM(FretePesoBrutoNumEditBR, 3, AbaTransporte),
    TEXTO(NFEChaveRefLabeledEdit, AbaReferencias), TEXTO(NFEChaveRef2LabeledEdit, AbaReferencias),
    TEXTO(NFEChaveRef3LabeledEdit, AbaReferencias), TEXTO(NFEChaveRef4LabeledEdit, AbaReferencias),
    TEXTO(NFEChaveRef5LabeledEdit, AbaReferencias),
};

#undef COMBO
#undef TEXTO
#undef NUM
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

TEST_F(EdNotaPanel, EveryFieldIsFoundByItsNameWithItsTypeFormatCaptionAndTab)
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
        EXPECT_STREQ(campo->metaObject()->className(), c.classe);
        auto *num = qobject_cast<TNumEditBR *>(campo);
        EXPECT_EQ(num ? num->Decimals() : -1, c.decimais);
        EXPECT_EQ(num && num->ReadOnlyLook(), campo == m_painel.TotNumEditBR()) << "only the total is computed";
        EXPECT_TRUE(m_painel.Abas()->widget(c.aba)->isAncestorOf(campo)) << "on the wrong tab";
        EXPECT_TRUE(comRotulo.contains(campo)) << "no caption";
    }
    EXPECT_EQ(m_painel.Campos().size(), int(std::size(Campos)));
    EXPECT_EQ(m_painel.findChild<QPushButton *>(QStringLiteral("NotaOkButton"))->text(), QStringLiteral("&Gravar"));
    EXPECT_EQ(m_painel.findChild<QPushButton *>(QStringLiteral("NotaCancButton"))->text(), QStringLiteral("&Cancelar"));
    EXPECT_EQ(m_painel.ChavesRef(), (QList<QLineEdit *>{m_painel.NFEChaveRefLabeledEdit(), m_painel.NFEChaveRef2LabeledEdit(),
                                                        m_painel.NFEChaveRef3LabeledEdit(), m_painel.NFEChaveRef4LabeledEdit(),
                                                        m_painel.NFEChaveRef5LabeledEdit()}));
}

TEST_F(EdNotaPanel, ChoicesDatesAndHour)
{
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
    QLineEdit *hora = m_painel.HSaiMaskEdit();
    hora->setFocus();
    hora->setCursorPosition(0);
    verifica::Digitar(hora, QStringLiteral("14h30"));
    EXPECT_EQ(hora->text(), QStringLiteral("14:30"));
}

struct Digitado
{
    const char *caso;
    const char *campo;
    const char *teclas;
    const char *esperado;
};

class EdNotaPanelDigitacao : public EdNotaPanel, public testing::WithParamInterface<Digitado> {};

TEST_P(EdNotaPanelDigitacao, KeepsOnlyWhatTheFieldAccepts)
{
    auto *edit = m_painel.findChild<QLineEdit *>(QLatin1String(GetParam().campo));
    ASSERT_NE(edit, nullptr);
    MostrarAbaDe(edit);
    edit->setFocus();
    verifica::Digitar(edit, QString::fromUtf8(GetParam().teclas));
    EXPECT_EQ(edit->text(), QString::fromUtf8(GetParam().esperado));
}

INSTANTIATE_TEST_SUITE_P(EdNotaPanel, EdNotaPanelDigitacao, testing::Values(
    Digitado{"PlateUpperCasesAndDropsTheDash", "FreteVeiPlacaLabeledEdit", "abc-1d", "ABC1D"},
    Digitado{"PlateStopsAtSeven", "FreteVeiPlacaLabeledEdit", "abc1d234", "ABC1D23"},
    Digitado{"PlateDropsAccentedLetters", "FreteReboque1PlacaLabeledEdit", "çab1", "AB1"},
    Digitado{"SecondTrailerPlate", "FreteReboque2PlacaLabeledEdit", "rst 9z8", "RST9Z8"},
    Digitado{"UFTakesTwoLetters", "FreteVeiUFLabeledEdit", "spr", "SP"},
    Digitado{"UFRefusesDigits", "FreteReboque1UFLabeledEdit", "1p2r", "PR"},
    Digitado{"SecondTrailerUF", "FreteReboque2UFLabeledEdit", "m-g", "MG"},
    Digitado{"KeyTakesDigitsOnly", "NFEChaveRefLabeledEdit", "3524 0412.345a6", "352404123456"},
    Digitado{"KeyStopsAt44", "NFEChaveRef5LabeledEdit",
             "35240412345678000190550010000012341000012345999", "35240412345678000190550010000012341000012345"}),
    [](const testing::TestParamInfo<Digitado> &linha) { return std::string(linha.param.caso); });

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

TEST_F(EdNotaPanel, FitsItsPlaceWithoutOverlapOrCutOnEveryTab)
{
    EXPECT_LE(m_painel.minimumSizeHint().width(), 1340);
    EXPECT_LE(m_painel.minimumSizeHint().height(), 260);
    const char *arquivos[] = {"EdNotaPanel-Nota.png", "EdNotaPanel-Transporte.png", "EdNotaPanel-Referencias.png"};
    for (int aba = 0; aba < m_painel.Abas()->count(); ++aba) {
        m_painel.Abas()->setCurrentIndex(aba);
        QApplication::processEvents();
        SCOPED_TRACE(aba);
        ASSERT_TRUE(m_painel.Abas()->currentWidget()->isVisible());
        EXPECT_EQ(verifica::Sobreposicoes(&m_painel), QStringList());
        EXPECT_EQ(verifica::Espremidos(&m_painel), QStringList());
        verifica::Capturar(&m_painel, QLatin1String(arquivos[aba]));
    }
}

// The largest value a clerk will type, and the longest list entry, must show whole.
TEST_F(EdNotaPanel, LargeValuesShowWhole)
{
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
        EXPECT_EQ(verifica::ForaDeOrdem(&m_painel, caminho), QStringList());
        EXPECT_EQ(verifica::BlocosNaOrdem(&m_painel, caminho), blocos);
    }
    QTest::keyClick(m_painel.NotaOkButton(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), m_painel.NotaCancButton());
}

} // namespace
