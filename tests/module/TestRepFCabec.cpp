#include "TelaTeste.h"
#include "DialogosTeste.h"
#include "TCabecNota.h"
#include "TClientDataSet.h"
#include "TEdNotaPanel.h"
#include "TNumEditBR.h"
#include "TRepF.h"
#include "TestDatabase.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class RepFCabec : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
        Contexto::Atual().estacao = 3;
        tela = AbrirTela();
        p = tela->EdNotaPanel();
    }

    int notasNoBanco() { return db.valor(QStringLiteral("select count(*) from compra")).toInt(); }

    // A complete purchase entry, typed as a clerk would after F3.
    void digitarEntrada()
    {
        QTest::keyClick(tela.get(), Qt::Key_F3);
        ASSERT_TRUE(p->isVisible());
        p->FornecComboBox()->setCurrentIndex(p->FornecComboBox()->findText(QStringLiteral("FORNEC SP")));
        digitar(p->NDocNumEditBR(), QStringLiteral("4587"));
        digitar(p->SerieNumEditBR(), QStringLiteral("1"));
        digitar(p->TotProdNumEditBR(), QStringLiteral("1.234,56"));
        digitar(p->FreteNumEditBR(), QStringLiteral("10,5"));
        digitar(p->CompraNatOpLabeledEdit(), QStringLiteral("Compra p/ revenda; D'Ávila"));
        digitar(p->HSaiMaskEdit(), QStringLiteral("0830"));
    }

    void digitar(QLineEdit *campo, const QString &texto)
    {
        campo->setFocus();
        campo->selectAll();
        QTest::keyClicks(campo, texto);
    }

    // Clicks the confirm button; true when the note was stored and the panel closed.
    bool gravar()
    {
        QTest::mouseClick(p->NotaOkButton(), Qt::LeftButton);
        return tela->CabecState() == TDataSetState::Browse;
    }

    TestDatabase db;
    DialogosTeste dialogos;
    std::unique_ptr<TRepF> tela;
    TEdNotaPanel *p = nullptr;
};

TEST_F(RepFCabec, F3ThenATypedEntryIsSavedAndListed)
{
    digitarEntrada();
    EXPECT_EQ(tela->windowTitle(), QStringLiteral("Pavrel - Inserindo"));
    EXPECT_EQ(p->TotNumEditBR()->text(), QStringLiteral("1245,06"));
    ASSERT_TRUE(gravar()) << dialogos.Mensagens().size();
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
    EXPECT_FALSE(p->isVisible());
    EXPECT_EQ(tela->CabecState(), TDataSetState::Browse);
    EXPECT_EQ(db.valor(QStringLiteral("select nat_op_str || '|' || ndoc || '|' || serie || '|' || tot || '|' || "
                                      "estacao_cod || '|' || fornec_cod || '|' || dth_sai from compra")),
              QStringLiteral("Compra p/ revenda; D'Ávila|4587|1|1245.0600|3|1|2026-11-22 08:30:00.0000"));
    TClientDataSet &notas = tela->RepD().Notas();
    EXPECT_EQ(notas.FieldByName(QStringLiteral("NDOC")).AsInteger(), 4587);
    EXPECT_EQ(notas.FieldByName(QStringLiteral("TIPO_DOC_STR")).AsString(), QStringLiteral("ENTRADA"));
    EXPECT_EQ(notas.FieldByName(QStringLiteral("compra_COD")).AsInteger(),
              db.valor(QStringLiteral("select compra_cod from compra")).toInt());
}

struct Recusa
{
    const char *nome;
    std::function<void(TEdNotaPanel *)> defeito;
    TipoMensagem tipo = TipoMensagem::Erro;
    const char *mensagem = nullptr;   // nullptr: accepted
    const char *campo = nullptr;
};

class RepFCabecRecusa : public RepFCabec, public ::testing::WithParamInterface<Recusa>
{
};

TEST_P(RepFCabecRecusa, RefusesWithOneMessageAtTheFieldOrSaves)
{
    const Recusa r = GetParam();
    digitarEntrada();
    r.defeito(p);
    if (!r.mensagem) {
        EXPECT_TRUE(gravar());
        EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << dialogos.Mensagens().first().texto.toStdString();
        EXPECT_EQ(notasNoBanco(), 1);
        return;
    }
    EXPECT_FALSE(gravar());
    EXPECT_EQ(dialogos.UnicaMensagem(r.tipo), QString::fromUtf8(r.mensagem));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(r.campo));
    EXPECT_EQ(notasNoBanco(), 0);
    EXPECT_TRUE(p->isVisible());
    EXPECT_EQ(tela->CabecState(), TDataSetState::Insert);
}

void devolucao(TEdNotaPanel *p)
{
    p->TipoDocComboBox()->setCurrentIndex(1);
    p->NFEChaveRefLabeledEdit()->setText(QString(44, QLatin1Char('3')));
}

INSTANTIATE_TEST_SUITE_P(, RepFCabecRecusa, ::testing::Values(
    Recusa{"no_supplier", [](TEdNotaPanel *p) { p->FornecComboBox()->setCurrentIndex(-1); }, TipoMensagem::Erro,
           "O fornecedor é obrigatório", "FornecComboBox"},
    Recusa{"date_after_today", [](TEdNotaPanel *p) { p->DtDocDtFr()->setDate(QDate(2026, 11, 23)); }, TipoMensagem::Erro,
           "A data do documento deve ser igual a de hoje ou anterior", "DtDocDtFr"},
    Recusa{"hour_half_typed", [](TEdNotaPanel *p) { p->HSaiMaskEdit()->setText(QStringLiteral("1")); }, TipoMensagem::Erro,
           "A hora de saída deve ser digitada como hh:mm, de 00:00 a 23:59", "HSaiMaskEdit"},
    Recusa{"no_number", [](TEdNotaPanel *p) { p->NDocNumEditBR()->SetValue(0); }, TipoMensagem::Erro,
           "O nº do documento é obrigatório", "NDocNumEditBR"},
    Recusa{"no_series", [](TEdNotaPanel *p) { p->SerieNumEditBR()->clear(); }, TipoMensagem::Erro,
           "A série do documento é obrigatória", "SerieNumEditBR"},
    Recusa{"entry_without_products", [](TEdNotaPanel *p) { p->TotProdNumEditBR()->SetValue(0); }, TipoMensagem::Erro,
           "O total de produtos é obrigatório", "TotProdNumEditBR"},
    Recusa{"return_key_43", [](TEdNotaPanel *p) { devolucao(p); p->NFEChaveRefLabeledEdit()->setText(QString(43, QLatin1Char('3'))); },
           TipoMensagem::Erro,
           "A chave NFE da nota de referência é obrigatória e deve ter 44 dígitos. Ajuste a chave e tente novamente.",
           "NFEChaveRefLabeledEdit"},
    Recusa{"third_party_freight_without_transporter", [](TEdNotaPanel *p) { p->FreteModalidadeComboBox()->setCurrentIndex(3); },
           TipoMensagem::Aviso, "Para modalidade de frete TERCEIROS é necessário indicar a transportadora",
           "TranspFornecComboBox"},
    Recusa{"lease_return_without_natureza", [](TEdNotaPanel *p) { p->TipoDocComboBox()->setCurrentIndex(4); p->CompraNatOpLabeledEdit()->clear(); },
           TipoMensagem::Info, "A Natureza da Operação é obrigatória para Devoluçoes e Simples Remessas",
           "CompraNatOpLabeledEdit"},
    Recusa{"loan_return_without_natureza", [](TEdNotaPanel *p) { p->TipoDocComboBox()->setCurrentIndex(5); p->CompraNatOpLabeledEdit()->clear(); },
           TipoMensagem::Info, "A Natureza da Operação é obrigatória para Devoluçoes e Simples Remessas",
           "CompraNatOpLabeledEdit"},
    // Accepted: no message, the note is written.
    Recusa{"return_with_zero_products", [](TEdNotaPanel *p) { devolucao(p); p->TotProdNumEditBR()->SetValue(0); }},
    Recusa{"complementary_without_supplier", [](TEdNotaPanel *p) { p->TipoDocComboBox()->setCurrentIndex(6); p->FornecComboBox()->setCurrentIndex(-1); }},
    Recusa{"empty_cfop", [](TEdNotaPanel *p) { p->CompraCFOPNumEditBR()->clear(); }},
    Recusa{"no_hour", [](TEdNotaPanel *p) { p->HSaiMaskEdit()->clear(); }},
    Recusa{"other_modality_without_transporter", [](TEdNotaPanel *p) { p->FreteModalidadeComboBox()->setCurrentIndex(4); }}),
    [](const auto &caso) { return std::string(caso.param.nome); });

TEST_F(RepFCabec, LeavingAnEmptyNumberRefusesAtOnceButNotTowardsCancel)
{
    QTest::keyClick(tela.get(), Qt::Key_F3);
    p->NDocNumEditBR()->setFocus();
    p->NDocNumEditBR()->clear();
    QTest::keyClick(p->NDocNumEditBR(), Qt::Key_Tab);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("O nº do documento é obrigatório"));
    EXPECT_TRUE(p->NDocNumEditBR()->hasFocus());
    dialogos.Limpar();
    p->NotaCancButton()->setFocus();
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(RepFCabec, ADuplicateNumberForTheSupplierIsRefused)
{
    digitarEntrada();
    ASSERT_TRUE(gravar());
    digitarEntrada();
    dialogos.Limpar();
    EXPECT_FALSE(gravar());
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro),
              QStringLiteral("Este número de documento já foi cadastrado para este fornecedor e para este tipo de nota"));
    EXPECT_EQ(notasNoBanco(), 1);
}

TEST_F(RepFCabec, AlteringFillsTheFieldsAndUpdatesTheNoteAndTheList)
{
    digitarEntrada();
    ASSERT_TRUE(gravar());
    tela->AltActExecute();
    ASSERT_TRUE(p->isVisible());
    EXPECT_EQ(tela->CabecState(), TDataSetState::Edit);
    EXPECT_EQ(p->NDocNumEditBR()->Value(), 4587.0);
    EXPECT_EQ(p->CompraNatOpLabeledEdit()->text(), QStringLiteral("Compra p/ revenda; D'Ávila"));
    EXPECT_EQ(p->HSaiMaskEdit()->text(), QStringLiteral("08:30"));
    EXPECT_EQ(p->TotNumEditBR()->text(), QStringLiteral("1245,06"));
    digitar(p->NDocNumEditBR(), QStringLiteral("4588"));
    ASSERT_TRUE(gravar());
    EXPECT_EQ(db.valor(QStringLiteral("select ndoc from compra")), QStringLiteral("4588"));
    EXPECT_EQ(db.valor(QStringLiteral("select count(*) from log_alt where tabela='COMPRA'")), QStringLiteral("1"));
    EXPECT_EQ(tela->RepD().Notas().FieldByName(QStringLiteral("NDOC")).AsInteger(), 4588);
    EXPECT_EQ(tela->RepD().Notas().RecordCount(), 1);
}

TEST_F(RepFCabec, ADatabaseFailureKeepsWhatWasTyped)
{
    digitarEntrada();
    // Longer than the column holds: the engine refuses the insert.
    const QString longa(200, QLatin1Char('x'));
    p->CompraNatOpLabeledEdit()->setMaxLength(500);
    p->CompraNatOpLabeledEdit()->setText(longa);
    EXPECT_FALSE(gravar());
    const QString mensagem = dialogos.UnicaMensagem(TipoMensagem::Erro);
    EXPECT_TRUE(mensagem.startsWith(QStringLiteral("Erro gravando a nota: "))) << mensagem.toStdString();
    EXPECT_TRUE(p->isVisible());
    EXPECT_EQ(p->CompraNatOpLabeledEdit()->text(), longa);
    EXPECT_EQ(notasNoBanco(), 0);
}

} // namespace
