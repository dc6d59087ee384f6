// "&Itens pelo XML" on the real screen: the supplier's documents found in the fiscal folder,
// quantities chosen in the import dialog, the chosen items typed into the item panel.
#include "ExecutarModal.h"
#include "GeradorNFe.h"
#include "ItemEntradaTeste.h"
#include "TImportItensDados.h"
#include "URepF_ImportItensF.h"

#include <QDir>
#include <QTemporaryDir>

// The sample groups name only the fields they set; the rest stay zero.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace {

// From supplier 1 to company 1; product 1 is the supplier's F001, product 2 its F002.
TnfeProc Documento(qint64 numero, int itens)
{
    TnfeProc nfe = NFeExemplo(QStringLiteral("44555666000181"), QStringLiteral("11222333000181"), numero, itens);
    TNFeICMS &icms = nfe.itens.GetItem(0).ICMS;
    icms = {.grupo = "ICMS70", .CST = "70", .modBC = 3, .vBC = icms.vBC, .vICMS = icms.vICMS, .pRedBC = 10, .pICMS = 18,
            .modBCST = 4, .pMVAST = 40, .pRedBCST = 25};
    nfe.itens.GetItem(0).vDesc = Money::fromInt(1);
    return nfe;
}

} // namespace

class ImportarItensXML : public ItemEntrada
{
protected:
    void SetUp() override
    {
        ItemEntrada::SetUp();
        ASSERT_TRUE(fiscal.isValid());
        Contexto::Atual().pastaFiscal = fiscal.path();
        sql(QStringLiteral("insert into prod_norig (norig, prod_cod, fornec_cod) values ('F001', 1, 1);\n"
                           "insert into prod_norig (norig, prod_cod, fornec_cod) values ('F002', 2, 1);\n"));
    }
    void TearDown() override
    {
        Contexto::Atual().pastaFiscal.clear();
        ItemEntrada::TearDown();
    }

    std::string itensDigitados()
    {
        QStringList linhas;
        TClientDataSet &ds = itens();
        for (ds.First(); !ds.Eof(); ds.Next()) {
            QStringList l;
            for (const char *c : {"PROD_COD", "EMB_QTD", "QTD_EMBS", "CUSTO_TOT", "DESCONTO", "cfop", "icms_perc",
                                  "icms_st_bc_mod", "icms_st_perc_ad", "icms_st_perc_red", "icms_perc_red", "cst"})
                l << QString::number(ds.FieldByName(QLatin1String(c)).AsFloat());
            linhas << l.join(u' ');
        }
        return linhas.join(QStringLiteral("; ")).toStdString();
    }

    QTemporaryDir fiscal;
};

TEST_F(ImportarItensXML, AReturnFromTwoDocumentsTypedIntoThePanel)
{
    const TnfeProc doc1 = Documento(101, 2), doc2 = Documento(102, 1);
    ASSERT_TRUE(GravarXmlNFe(fiscal.filePath(doc1.chave + QStringLiteral("-nfe.xml")), doc1) && QDir(fiscal.path()).mkdir("2026")
                && GravarXmlNFe(fiscal.filePath(QStringLiteral("2026/") + doc2.chave + QStringLiteral(".xml")), doc2));
    const QString ausente = QString(43, QLatin1Char('5')) + QLatin1Char('0');

    abrir();
    novaNota(1);
    const QStringList chaves{doc1.chave, doc2.chave, ausente};
    for (int i = 0; i < chaves.size(); ++i)
        h->ChavesRef().at(i)->setText(chaves.at(i));

    TRoteiroModal roteiro;
    QStringList status;
    int notas = -1;
    roteiro.Responder([&](QDialog &d) {
        auto &dialogo = static_cast<TRepF_ImportItensF &>(d);
        status << dialogo.Status();
        notas = int(dialogo.Dados().NotasOrigem().size());
        // One of the two F001 of the first document, both of the second's.
        dialogo.Dados().SetQtdDev(0, 1);
        dialogo.Dados().SetQtdDev(2, 2);
        dialogo.OkActExecute();
        return dialogo.result();
    });
    h->ItensButton()->click();
    ASSERT_EQ(roteiro.Pendentes(), 0);
    EXPECT_EQ(notas, 2);
    EXPECT_TRUE(status.join(u'\n').endsWith(QStringLiteral("Erro arquivo não encontrado ") + ausente + QStringLiteral(".xml")))
        << status.join(u'\n').toStdString();

    // product, units per package, packages, total cost, discount, CFOP, ICMS %, ST mode, MVA,
    // ST base reduction, the ICMS base reduction that takes the ST one, CST.
    EXPECT_EQ(itensDigitados(), "1 1 1 10.25 0.5 5102 18 4 40 25 25 70; 1 1 2 20.5 1 5102 18 4 40 25 25 70");
    // 1 x (10,25 - 0,50) + 2 x (20,50 - 1,00) / 2
    EXPECT_EQ(h->TotProdNumEditBR()->text(), QStringLiteral("29,25"));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();

    secao("a note with items takes none from XML, and a supplier is asked first");
    h->ItensButton()->click();
    h->FornecComboBox()->setCurrentIndex(-1);
    h->ItensButton()->click();
    const QString comItens = QStringLiteral("Não é permitido importar de XML se a nota já possui itens");
    EXPECT_EQ(dialogos.Mensagens(), (QList<DialogosTeste::Registro>{{TipoMensagem::Erro, comItens}, {TipoMensagem::Erro, "O fornecedor é obrigatório"}}));
}

TEST_F(ImportarItensXML, AComodatoReturnNeedsNoSupplierTheXMLButtonTypesItAndFilesOtherKeys)
{
    QTemporaryDir origem;
    // The company's own shipment: its codes are the products'; product 2 comes in packages of 12.
    TnfeProc remessa = Documento(301, 2);
    remessa.itens.GetItem(0).cProd = QStringLiteral("1");
    remessa.itens.GetItem(1).cProd = QStringLiteral("2");
    remessa.itens.GetItem(1).ICMS = {.grupo = "ICMSSN102", .CSOSN = "102"};
    const QString arquivo = origem.filePath(QStringLiteral("remessa.xml"));
    ASSERT_TRUE(GravarXmlNFe(arquivo, remessa));

    abrir();
    novaNota(5);
    // A return of a loan needs no supplier: the import dialog opens without one, with no document.
    const int fornec = h->FornecComboBox()->currentIndex();
    h->FornecComboBox()->setCurrentIndex(-1);
    TRoteiroModal roteiro;
    int notas = -1;
    roteiro.Responder([&](QDialog &d) {
        notas = int(static_cast<TRepF_ImportItensF &>(d).Dados().NotasOrigem().size());
        return int(QDialog::Rejected);
    });
    h->ItensButton()->click();
    EXPECT_EQ(notas, 0);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();

    h->FornecComboBox()->setCurrentIndex(fornec);
    dialogos.ResponderArquivo(arquivo);
    h->XMLImportButton()->click();
    EXPECT_EQ(h->NFEChaveRefLabeledEdit()->text(), remessa.chave);
    EXPECT_EQ(itensDigitados(), "1 1 2 20.5 1 5102 18 4 40 25 25 70; 2 1 3 31.5 0 5102 0 0 0 0 0 102");
    h->XMLImportButton()->click();
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Não é permitido importar de XML se a nota já possui itens"));

    secao("another type takes the key and files the XML; the folder is offered next time");
    h->TipoDocComboBox()->setCurrentIndex(0);
    h->NFEChaveRefLabeledEdit()->clear();
    dialogos.ResponderArquivo(arquivo);
    h->XMLImportButton()->click();
    EXPECT_EQ(h->NFEChaveRefLabeledEdit()->text(), remessa.chave);
    EXPECT_TRUE(QFile::exists(QDir(fiscal.path()).filePath(QStringLiteral("NFe_Entr/2026/11/remessa.xml"))));
    const auto &escolhas = dialogos.EscolhasArquivo();
    ASSERT_EQ(escolhas.size(), 2);
    EXPECT_EQ(escolhas.at(0).titulo + ' ' + escolhas.at(0).filtro, "Indique o arquivo XML DANFE *.XML|*.xml|*.*|*.*");
    EXPECT_EQ(escolhas.at(1).pasta, QFileInfo(arquivo).absolutePath());
}
