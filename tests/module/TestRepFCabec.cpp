#include "TelaTeste.h"
#include "TCabecNota.h"

namespace {

class RepFCabec : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        Contexto::Atual().estacao = 3;
        tela = AbrirTela();
        p = tela->EdNotaPanel();
    }

    int notasNoBanco() { return db.valor(QStringLiteral("select count(*) from compra")).toInt(); }

    // A complete purchase entry, typed as a clerk would after F3.
    void digitarEntrada(const char *ndoc = "4587")
    {
        QTest::keyClick(tela.get(), Qt::Key_F3);
        ASSERT_TRUE(p->isVisible());
        p->FornecComboBox()->setCurrentIndex(p->FornecComboBox()->findText(QStringLiteral("FORNEC SP")));
        Digitar(p->NDocNumEditBR(), QLatin1String(ndoc));
        Digitar(p->SerieNumEditBR(), QStringLiteral("1"));
        Digitar(p->TotProdNumEditBR(), QStringLiteral("1.234,56"));
        Digitar(p->FreteNumEditBR(), QStringLiteral("10,5"));
        Digitar(p->CompraNatOpLabeledEdit(), QStringLiteral("Compra p/ revenda; D'Ávila"));
        Digitar(p->HSaiMaskEdit(), QStringLiteral("0830"));
    }

    // Clicks the confirm button; true when the note was stored and the panel closed.
    bool gravar()
    {
        QTest::mouseClick(p->NotaOkButton(), Qt::LeftButton);
        return tela->CabecState() == TDataSetState::Browse && !p->isVisible();
    }

    std::unique_ptr<TRepF> tela;
    TEdNotaPanel *p = nullptr;
};

TEST_F(RepFCabec, F3ThenATypedEntryIsSavedListedAlteredAndNotTypedTwice)
{
    // Leaving an empty number refuses at once, but not towards cancel.
    QTest::keyClick(tela.get(), Qt::Key_F3);
    p->NDocNumEditBR()->setFocus();
    p->NDocNumEditBR()->clear();
    QTest::keyClick(p->NDocNumEditBR(), Qt::Key_Tab);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), "O nº do documento é obrigatório");
    EXPECT_TRUE(p->NDocNumEditBR()->hasFocus());
    dialogos.Limpar();
    p->NotaCancButton()->setFocus();
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    digitarEntrada();
    EXPECT_EQ(tela->windowTitle() + ' ' + p->TotNumEditBR()->text(), "Pavrel - Inserindo 1245,06");
    ASSERT_TRUE(gravar() && dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(db.valor(QStringLiteral("select nat_op_str || '|' || ndoc || '|' || serie || '|' || tot || '|' || "
                                      "estacao_cod || '|' || fornec_cod || '|' || dth_sai || '|' || compra_cod from compra")),
              QStringLiteral("Compra p/ revenda; D'Ávila|4587|1|1245.0600|3|1|2026-11-22 08:30:00.0000|%1")
                  .arg(tela->RepD().Notas().FieldByName(QStringLiteral("compra_COD")).AsInteger()));
    TClientDataSet &notas = tela->RepD().Notas();
    EXPECT_EQ(notas.FieldByName(QStringLiteral("NDOC")).AsString() + ' ' + notas.FieldByName(QStringLiteral("TIPO_DOC_STR")).AsString(), "4587 ENTRADA");

    tela->AltActExecute();
    ASSERT_TRUE(p->isVisible());
    EXPECT_EQ(tela->CabecState(), TDataSetState::Edit);
    EXPECT_EQ((QStringList{QString::number(p->NDocNumEditBR()->Value()), p->CompraNatOpLabeledEdit()->text(), p->HSaiMaskEdit()->text(), p->TotNumEditBR()->text()}),
              (QStringList{"4587", "Compra p/ revenda; D'Ávila", "08:30", "1245,06"}));
    Digitar(p->NDocNumEditBR(), QStringLiteral("4588"));
    ASSERT_TRUE(gravar());
    EXPECT_EQ(db.valor(QStringLiteral("select list(ndoc) || ' ' || (select count(*) from log_alt where tabela='COMPRA') from compra")), "4588 1");
    EXPECT_EQ(notas.FieldByName(QStringLiteral("NDOC")).AsString() + ' ' + QString::number(notas.RecordCount()), "4588 1");

    digitarEntrada("4588");
    dialogos.Limpar();
    EXPECT_FALSE(gravar());
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), "Este número de documento já foi cadastrado para este fornecedor e para este tipo de nota");

    // A text longer than the column holds: the engine refuses, what was typed stays.
    dialogos.Limpar();
    Digitar(p->NDocNumEditBR(), QStringLiteral("4589"));
    const QString longa(200, QLatin1Char('x'));
    p->CompraNatOpLabeledEdit()->setMaxLength(500);
    p->CompraNatOpLabeledEdit()->setText(longa);
    EXPECT_FALSE(gravar());
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).startsWith("Erro gravando a nota: ")) << primeiraMensagem().toStdString();
    EXPECT_EQ(p->isVisible() ? p->CompraNatOpLabeledEdit()->text() : QString(), longa);
    // Neither the duplicate nor the failed note was written.
    EXPECT_EQ(notasNoBanco(), 1);
}

// A store whose empr lists no company: the host's company is the note's; with none at all the
// note is refused and nothing is written.
TEST_F(RepFCabec, WithoutCompaniesTheHostsCompanyOwnsTheNote)
{
    sql(QStringLiteral("delete from empr"));
    for (const int empresa : {2, 0}) {
        SCOPED_TRACE(empresa);
        Contexto::Atual().empresa = empresa;
        tela = AbrirTela();
        p = tela->EdNotaPanel();
        dialogos.Limpar();
        digitarEntrada(empresa > 0 ? "4587" : "4590");
        EXPECT_EQ(gravar(), empresa > 0);
        EXPECT_EQ(db.valor(QStringLiteral("select list(empr_cod) from compra")), "2");
        EXPECT_EQ(primeiraMensagem(), empresa > 0 ? "" : "Nenhuma empresa cadastrada: a nota não pode ser gravada sem empresa.");
    }
}

// mensagem nullptr: accepted.
struct Recusa { const char *nome; std::function<void(TEdNotaPanel *)> defeito; TipoMensagem tipo = TipoMensagem::Erro;
                const char *mensagem = nullptr, *campo = nullptr; };

class RepFCabecRecusa : public RepFCabec, public ::testing::WithParamInterface<Recusa>
{
};

TEST_P(RepFCabecRecusa, RefusesWithOneMessageAtTheFieldOrSaves)
{
    const Recusa r = GetParam();
    digitarEntrada();
    r.defeito(p);
    const bool gravou = gravar();
    EXPECT_EQ(notasNoBanco(), r.mensagem ? 0 : 1);
    if (!r.mensagem) {
        EXPECT_TRUE(gravou);
        EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
        return;
    }
    EXPECT_EQ(dialogos.UnicaMensagem(r.tipo), QString::fromUtf8(r.mensagem));
    EXPECT_EQ(Foco(), QLatin1String(r.campo));
    EXPECT_TRUE(p->isVisible());
    EXPECT_EQ(tela->CabecState(), TDataSetState::Insert);
}

void Devolucao(TEdNotaPanel *p)
{
    p->TipoDocComboBox()->setCurrentIndex(1);
    p->NFEChaveRefLabeledEdit()->setText(QString(44, QLatin1Char('3')));
}

void SemNatureza(TEdNotaPanel *p, int tipo)
{
    p->TipoDocComboBox()->setCurrentIndex(tipo);
    p->CompraNatOpLabeledEdit()->clear();
}

const char *const Natureza = "A Natureza da Operação é obrigatória para Devoluçoes e Simples Remessas";
const auto E = TipoMensagem::Erro;

INSTANTIATE_TEST_SUITE_P(, RepFCabecRecusa, ::testing::Values(
    Recusa{"no_supplier", [](TEdNotaPanel *p) { p->FornecComboBox()->setCurrentIndex(-1); }, E, "O fornecedor é obrigatório", "FornecComboBox"},
    Recusa{"date_after_today", [](TEdNotaPanel *p) { p->DtDocDtFr()->setDate(QDate(2026, 11, 23)); }, E, "A data do documento deve ser igual a de hoje ou anterior", "DtDocDtFr"},
    Recusa{"hour_half_typed", [](TEdNotaPanel *p) { p->HSaiMaskEdit()->setText(QStringLiteral("1")); }, E, "A hora de saída deve ser digitada como hh:mm, de 00:00 a 23:59", "HSaiMaskEdit"},
    Recusa{"no_number", [](TEdNotaPanel *p) { p->NDocNumEditBR()->SetValue(0); }, E, "O nº do documento é obrigatório", "NDocNumEditBR"},
    Recusa{"no_series", [](TEdNotaPanel *p) { p->SerieNumEditBR()->clear(); }, E, "A série do documento é obrigatória", "SerieNumEditBR"},
    Recusa{"entry_without_products", [](TEdNotaPanel *p) { p->TotProdNumEditBR()->SetValue(0); }, E, "O total de produtos é obrigatório", "TotProdNumEditBR"},
    Recusa{"return_key_43", [](TEdNotaPanel *p) { Devolucao(p); p->NFEChaveRefLabeledEdit()->setText(QString(43, QLatin1Char('3'))); }, E, "A chave NFE da nota de referência é obrigatória e deve ter 44 dígitos. Ajuste a chave e tente novamente.", "NFEChaveRefLabeledEdit"},
    Recusa{"third_party_freight_without_transporter", [](TEdNotaPanel *p) { p->FreteModalidadeComboBox()->setCurrentIndex(3); }, TipoMensagem::Aviso, "Para modalidade de frete TERCEIROS é necessário indicar a transportadora", "TranspFornecComboBox"},
    Recusa{"lease_return_without_natureza", [](TEdNotaPanel *p) { SemNatureza(p, 4); }, TipoMensagem::Info, Natureza, "CompraNatOpLabeledEdit"},
    Recusa{"loan_return_without_natureza", [](TEdNotaPanel *p) { SemNatureza(p, 5); }, TipoMensagem::Info, Natureza, "CompraNatOpLabeledEdit"},
    // Accepted: no message, the note is written.
    Recusa{"return_with_zero_products", [](TEdNotaPanel *p) { Devolucao(p); p->TotProdNumEditBR()->SetValue(0); }},
    Recusa{"complementary_without_supplier", [](TEdNotaPanel *p) { p->TipoDocComboBox()->setCurrentIndex(6); p->FornecComboBox()->setCurrentIndex(-1); }},
    Recusa{"empty_cfop", [](TEdNotaPanel *p) { p->CompraCFOPNumEditBR()->clear(); }},
    Recusa{"no_hour", [](TEdNotaPanel *p) { p->HSaiMaskEdit()->clear(); }},
    Recusa{"other_modality_without_transporter", [](TEdNotaPanel *p) { p->FreteModalidadeComboBox()->setCurrentIndex(4); }}),
    [](const auto &caso) { return std::string(caso.param.nome); });

} // namespace
