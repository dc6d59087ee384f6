#include "AvisosImportacao.h"
#include "ComandosHeadless.h"
#include "DialogosTeste.h"
#include "GeradorNFe.h"
#include "TImportItensDados.h"
#include "TestDatabase.h"
#include "URepF_ImportItensF.h"

#include <gtest/gtest.h>

#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

namespace {

// From supplier 1 to company 1. Item 1 by its supplier code (F001: product 1 for supplier 1,
// product 3 for any other), item 2 by its GTIN (product 2), item 3 matching nothing; item 1
// carries every money column.
std::unique_ptr<TnfeProc> Documento()
{
    auto doc = std::make_unique<TnfeProc>(NFeExemplo(QStringLiteral("44555666000181"), QStringLiteral("11222333000181"), 123, 3));
    TItem &a = doc->itens.GetItem(0);
    a.qCom = 3;
    a.vProd = Money::fromInt(100);
    a.vDesc = Money::fromInt(10);
    a.vFrete = Money::parse(u"0.05").value();
    a.vSeg = Money::fromInt(1);
    a.vOutro = Money::fromInt(2);
    a.IPI.pIPI = 5;
    a.IPI.vIPI = Money::fromInt(5);
    a.ICMS.pICMSST = 18;
    a.ICMS.vBCST = Money::fromInt(140);
    a.ICMS.vICMSST = Money::parse(u"7.2").value();
    a.ICMS.pFCP = 2;
    a.ICMS.vBCFCP = Money::fromInt(100);
    a.ICMS.vFCP = Money::fromInt(2);
    doc->itens.GetItem(1).cEAN = QStringLiteral("7890000000024");
    return doc;
}

class ImportItens : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        ASSERT_EQ(db.execScript("insert into prod_norig (norig, prod_cod, fornec_cod) values ('F001', 1, 1);"
                                "insert into prod_norig (norig, prod_cod, fornec_cod) values ('F001', 3, 0);"), QString());
    }

    TestDatabase db;
    DialogosTeste dialogos;
};

QString Coluna(TClientDataSet &ds, const char *campo)
{
    QStringList valores;
    for (int linha = 0; linha < ds.RecordCount(); ++linha)
        valores << ds.DisplayTextAt(linha, ds.FieldByName(QLatin1String(campo)).Index());
    return valores.join(QLatin1Char('|'));
}

TEST_F(ImportItens, DevolverTudoIgualaAOrigemEParteDaQuantidadeEProporcional)
{
    TImportItensDados dados(db.conexao(), 1);
    dados.AdicionarDocumento(Documento());
    ASSERT_TRUE(dados.PreencherItensOrigem()) << dados.Erro().toStdString();
    TClientDataSet &origem = dados.Origem();
    TClientDataSet &destino = dados.Destino();

    dados.QtdsMax();
    // The item without a product is left out.
    EXPECT_EQ(Coluna(origem, "qtd_dev"), "3|3|0");
    ASSERT_EQ(Coluna(destino, "ORDEM"), "1|2");
    for (int f = 0; f < origem.FieldCount(); ++f) {
        const TField *d = destino.FindField(origem.Fields(f).FieldName());
        if (d && origem.Fields(f).DataType() == TFieldType::Money) {
            EXPECT_EQ(destino.ValueAt(0, d->Index()).value<Money>(), origem.ValueAt(0, f).value<Money>()) << d->FieldName().toStdString();
        }
    }
    EXPECT_FALSE(dados.SetQtdDev(2, 1));

    ASSERT_TRUE(dados.SetQtdDev(1, 0) && dados.SetQtdDev(0, 1));
    ASSERT_EQ(destino.RecordCount(), 1);
    const struct { const char *campo, *valor; } esperados[] = {
        {"QTD", "1"}, {"CUSTO_TOT", "33,33"}, {"DESCONTO", "3,33"}, {"CUSTO", "30,00"}, {"CUSTO_UNIT", "30,0000"},
        {"FRETE", "0,02"}, {"SEGURO", "0,33"}, {"OUTRAS", "0,67"}, {"VIPI", "1,67"}, {"PIPI", "5,00"},
        {"ICMS_ST_VAL", "2,40"}, {"ICMS_ST_BC_VAL", "46,67"}, {"ICMS_ST_PERC", "18,00"}, {"TRIB_ICMS_VFCP", "0,67"},
        {"ICMS_PFCP", "2,00"}, {"ICMS_BC_MOD", "3"}, {"CFOP", "5102"}, {"CST", "0000"}, {"PROD_COD_DELES", "F001"},
    };
    for (const auto &e : esperados)
        EXPECT_EQ(Coluna(destino, e.campo), e.valor) << e.campo;

    dados.ZerarQtds();
    EXPECT_EQ(Coluna(origem, "qtd_dev"), "0|0|0");
    EXPECT_TRUE(destino.IsEmpty());
}

TEST_F(ImportItens, DialogoPerguntaQtdERecusaItemSemProdutoEOkSemQuantidade)
{
    TRepF_ImportItensF dialogo(db.conexao(), 1);
    dialogo.AdicionarDocumento(Documento());
    dialogo.PreencherItensOrigem();
    dialogo.show();
    auto *grade = dialogo.findChild<QTableView *>(QStringLiteral("OrigemGrid"));
    auto *notas = dialogo.findChild<QTableWidget *>(QStringLiteral("NotasStringGrid"));
    ASSERT_TRUE(grade && notas && notas->rowCount() == 1 && dialogo.OrigemDataSet().RecordCount() == 3);
    EXPECT_EQ(notas->item(0, 1)->text() + ' ' + notas->item(0, 3)->text(), "20/11/26 " + Documento()->chave);

    dialogo.OkActExecute();
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Proib), "Nenhuma quantidade foi indicada");
    EXPECT_NE(dialogo.result(), QDialog::Accepted);

    dialogos.Limpar();
    dialogo.OrigemDataSet().SetRecNo(3);
    QTest::keyClick(grade, Qt::Key_Space);
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Proib),
              "Esse item não pode ser usado pois não está relacionado a um produto do sistema");
    EXPECT_TRUE(dialogos.PerguntasQtd().isEmpty());

    // Above the original quantity is kept at it; a cancelled question changes nothing.
    dialogo.OrigemDataSet().SetRecNo(1);
    dialogos.ResponderQtd(7);
    dialogos.ResponderQtd(std::nullopt);
    QTest::keyClick(grade, Qt::Key_Space);
    dialogo.QtdDevEdit();
    ASSERT_EQ(dialogos.PerguntasQtd().size(), 2);
    EXPECT_EQ(dialogos.PerguntasQtd()[0].titulo + ' ' + QString::number(dialogos.PerguntasQtd()[0].maximo), "Qtd.Dev 3");
    EXPECT_EQ(Coluna(dialogo.DestinoDataSet(), "QTD"), "3");
}

TEST_F(ImportItens, AvisosDeChaveDestinatarioENotasQueJaUsamAChave)
{
    const QString chave = Documento()->chave;
    // Each case brings exactly one warning: the untouched document on an empty database brings none.
    const struct { const char *nome; std::function<void(TnfeProc &)> mudar; QString sql; QString trecho; } casos[] = {
        {"dígito errado", [](TnfeProc &d) { d.chave[43] = d.chave[43] == u'1' ? u'2' : u'1'; }, {}, "dígito verificador"},
        {"outro destinatário", [](TnfeProc &d) { d.destinatario.CNPJ = QStringLiteral("11222333000262"); }, {},
         "destinatário (11222333000262) não é a empresa da nota (CNPJ 11222333000181)"},
        {"referida por outra nota", [](TnfeProc &) {},
         "insert into compra (empr_cod, estacao_cod, compra_cod, nfe_chave_ref3) values (1, 1, 8, '" + chave + "')",
         "a nota 001-0000008 já se refere a esta chave"},
        {"importada em outra nota; a nota atual e as canceladas não contam", [](TnfeProc &) {},
         "insert into compra (empr_cod, estacao_cod, compra_cod, arq_xml, nfe_chave_ref) select 1, 1, 9, '<x>" + chave
             + "</x>', null from rdb$database union all select 1, 1, 5, null, '" + chave
             + "' from rdb$database union all select 1, 2, 6, null, '" + chave + "' from rdb$database",
         "a nota 001-0000009 já foi importada deste XML"},
    };
    for (const auto &c : casos) {
        TestDatabase banco;
        ASSERT_TRUE(banco.ok()) << banco.erro().toStdString();
        ASSERT_EQ(banco.execScript(c.sql + ";\nupdate compra set cancelado='S' where compra_cod=6;"), QString()) << c.nome;
        auto doc = Documento();
        c.mudar(*doc);
        const QStringList avisos = AvisosImportacao(banco.conexao(), 1, *doc, TChaveNota{1, 1, 5});
        ASSERT_EQ(avisos.size(), 1) << c.nome << ": " << avisos.join(" | ").toStdString();
        EXPECT_TRUE(avisos[0].contains(c.trecho)) << c.nome << ": " << avisos[0].toStdString();
    }
}

TEST_F(ImportItens, XmlItemsEXmlKeyLeemOArquivoComoODialogoMostra)
{
    QTemporaryDir pasta;
    const QString arquivo = pasta.filePath(QStringLiteral("nota.xml"));
    const auto doc = Documento();
    ASSERT_TRUE(GravarXmlNFe(arquivo, *doc));
    const QString lixo = pasta.filePath(QStringLiteral("lixo.xml"));
    QFile(lixo).open(QIODevice::WriteOnly);

    // Each run starts a fresh output; errors pile up.
    const auto rodar = [](QStringList argumentos, QString &saida, QString &erros) {
        saida.clear();
        QTextStream s(&saida), e(&erros);
        return ComandosHeadless::Executar(argumentos, s, e);
    };
    QString saida, erros;
    // The supplier is the one registered with the issuer's CNPJ.
    ASSERT_EQ(rodar({"xml-items", arquivo}, saida, erros), 0) << erros.toStdString();
    EXPECT_TRUE(erros.isEmpty()) << erros.toStdString();
    const QStringList linhas = saida.split(QLatin1Char('\n'));
    ASSERT_EQ(linhas.size(), 5) << saida.toStdString();
    EXPECT_EQ(linhas[0],
              "Nota\tItem\tCód.Fornec\tDescr.Fornec\tQtd\tQtd.Dev\tCód.Barras\tCód.Prod\tDescrição\tFabricante\tUnid\t"
              "Custo Unit\tDesconto\tCusto Tot (CT)\tOutras\tFrete R$\tSeguro R$\tCST\tCFOP\tNCM\tIPI%\tIPI R$\tICMS%\t"
              "ICMS R$\tICMS ST%\tICMS ST R$\tICMS ST% Ad\tICMS %BC ST Red\tICMS %BC Red\tBC ICMS R$\tBC ICMS ST R$\t"
              "Mod.BC ICMS\tMod.BC ICMS ST\tOrigem Merc\tBC FCP R$\tFCP %\tFCP R$\tBC ST FCP R$\tFCP ST %\tFCP ST R$");
    // Values in the columns' display formats; the groups the layout has no place for stay 0.
    EXPECT_EQ(linhas[1], "123\t1\tF001\tPRODUTO EXEMPLO 1\t3\t0\t\t1\tPRODUTO UM\tFABRICANTE TESTE\tUN\t10,25\t10,00\t"
                         "100,00\t2,00\t0,05\t1,00\t0000\t5102\t22021000\t0,00\t0,00\t18,00\t3,69\t0,00\t0,00\t0,00\t"
                         "0,00\t0,00\t20,50\t0,00\t3\t0\t0\t0,00\t2,00\t2,00\t0,00\t0,00\t0,00");
    // The product by the supplier's code, then by the GTIN: code, description, manufacturer, unit.
    const auto produtos = [&] {
        QStringList p;
        for (const QString &linha : saida.split(u'\n').mid(1, 3))
            p << linha.section(u'\t', 7, 10);
        return p.join(u'|');
    };
    const QString outros = QStringLiteral("|2\tPRODUTO DOIS\tFABRICANTE TESTE\tCX|0\t<NÃO LOCALIZADO>\t\t");
    EXPECT_EQ(produtos(), "1\tPRODUTO UM\tFABRICANTE TESTE\tUN" + outros);
    ASSERT_EQ(rodar({"xml-items", arquivo, "--supplier", "2"}, saida, erros), 0) << erros.toStdString();
    EXPECT_EQ(produtos(), "3\tPRODUTO TRES COMPOSTO\tFABRICANTE TESTE\tUN" + outros);

    EXPECT_EQ(rodar({"xml-key", arquivo}, saida, erros), 0) << erros.toStdString();
    EXPECT_EQ(saida, doc->chave + "\n");

    EXPECT_EQ(rodar({"xml-items", arquivo, lixo}, saida, erros), 1);
    EXPECT_TRUE(saida.isEmpty() && erros.count('\n') == 1 && erros.contains(lixo)) << erros.toStdString();
}

} // namespace
