#include "ComandosHeadless.h"
#include "TImpressora.h"
#include "TSelecaoImpressora.h"
#include "TelaTeste.h"
#include "TextosHost.h"
#include "UPavrel_Romaneio_Impr.h"

#include <QAction>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// The machine has no printer: the selection asks for a PDF file.
class SelecaoSemImpressora final : public TSelecaoImpressora
{
public:
    bool TemImpressora() const override { return false; }
};

QString TextoDoPdf(const QString &pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    EXPECT_TRUE(p.waitForFinished(30000)) << "pdftotext";
    return QString::fromUtf8(p.readAllStandardOutput());
}

const QString Traco(100, QLatin1Char('-'));
const QString Fim = QString(42, QLatin1Char(' ')) + QStringLiteral("FIM DO ROMANEIO") + QString(43, QLatin1Char(' '));

// Note 345: 2 packages of 12 of product 2, then 1.5 packages of 1 of product 1; note 346 has no items.
class Romaneio : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        ItemTeste caixas{.cod = 1, .prod = 2, .embQtd = QStringLiteral("12"), .qtdEmbs = QStringLiteral("2"), .infoAdic = {}, .precos = {}};
        ASSERT_EQ(InserirNota(db, {.compra = 345, .itens = {caixas, Item(2, 1, "1.5", "10")}}), QString());
        ASSERT_EQ(InserirNota(db, {.compra = 346, .itens = {}}), QString());
        sql(QStringLiteral("update compra set dth_cri='2026-11-11 08:09:10';"));
    }

    TPavrel_Romaneio_Impr Novo(int compra)
    {
        return TPavrel_Romaneio_Impr(1, compra, db.conexao().GetDatabase(), 1, QStringLiteral("SYSDBA"), QStringLiteral("masterkey"));
    }

    // The documents of the note's copies, once its reads are done.
    static TImpressora Montado(TPavrel_Romaneio_Impr &r, int copias)
    {
        TImpressora impressora;
        EXPECT_TRUE(r.Ler());
        r.Montar(impressora, copias);
        return impressora;
    }

    int Rodar(const QString &linha)
    {
        saida.clear();
        QTextStream s(&saida), e(&saida);
        return ComandosHeadless::Executar(linha.split(QLatin1Char(' ')), s, e);
    }

    QString saida;
    QTemporaryDir pasta;
};

TEST(LinhaFixa, EscreveNasColunasEQuebraEmBrancos)
{
    QString linha = QStringLiteral("abcdef");
    EscreverNaStr(linha, QStringLiteral("XY"), 2);
    EscreverNaStrADir(linha, QStringLiteral("Z"), 9);
    EXPECT_EQ(linha, QStringLiteral("aXYdef  Z"));
    EscreverNaStrADir(linha, QStringLiteral("0123456789"), 3);   // no room to the left: from column 1
    EXPECT_EQ(linha, QStringLiteral("0123456789"));

    const QString setenta(70, QLatin1Char('a'));
    const struct { QString texto; QStringList linhas; } casos[] = {
        {QString(), {QString()}},
        {QStringLiteral("  duas   palavras "), {QStringLiteral("duas palavras")}},
        {setenta + QStringLiteral(" b"), {setenta, QStringLiteral("b")}},
        {QString(64, QLatin1Char('a')) + QStringLiteral(" bbbbb c"), {QString(64, QLatin1Char('a')) + QStringLiteral(" bbbbb"), QStringLiteral("c")}},
        {QStringLiteral("x ") + setenta + QStringLiteral("bbbbb c"), {QStringLiteral("x"), setenta, QStringLiteral("bbbbb c")}},
    };
    for (const auto &c : casos)
        EXPECT_EQ(QuebrarTexto(c.texto, 70), c.linhas) << c.texto.toStdString();
}

TEST_F(Romaneio, ColunasNosLugaresEOrdemConformeAChave)
{
    const struct { const char *config; bool ordem; } casos[] = {
        {nullptr, true}, {"N", false}, {" N ", false}, {"n", true}, {"S", true},
    };
    for (const auto &c : casos) {
        sql(QStringLiteral("delete from config;"));
        if (c.config)
            sql(QStringLiteral("insert into config (chave, valor) values ('REP_ROM_ORD_IMPR', '%1');").arg(c.config));
        TPavrel_Romaneio_Impr r = Novo(345);
        ASSERT_TRUE(r.PegarConfig());
        const QString linha = r.GetRegStr(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral(" 24 "), QStringLiteral("PRODUTO DOIS"));
        const QString cabec = r.CabecColunas();
        EXPECT_EQ(linha.size(), 100);
        EXPECT_EQ(linha.left(22), (c.ordem ? QStringLiteral("    1") : QString(5, QLatin1Char(' '))) + QStringLiteral("      2        24"));
        EXPECT_EQ(linha.mid(22).trimmed(), QStringLiteral("PRODUTO DOIS"));
        EXPECT_EQ(linha.right(13), QStringLiteral("PRODUTO DOIS "));
        EXPECT_EQ(cabec.left(23), (c.ordem ? QStringLiteral("ORDEM") : QString(5, QLatin1Char(' '))) + QStringLiteral("      CODIGO   QTD"));
        EXPECT_EQ(cabec.right(10), QStringLiteral("DESCRICAO "));
    }
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(Romaneio, LinhasDaNotaQuantidadesTracosEFim)
{
    TPavrel_Romaneio_Impr r = Novo(345);
    const TImpressora impressora = Montado(r, 1);
    ASSERT_EQ(impressora.Documentos().size(), 1);
    const TDocImpr &doc = impressora.Documentos().first();
    EXPECT_EQ(doc.titulo, QStringLiteral("ROMANEIO 001-0000345"));
    EXPECT_EQ(doc.cabecalhos, QStringList{QStringLiteral("DT.DOC: 10/11/26    DT.LANÇAMENTO: 11/11/26 08:09:10")});
    EXPECT_EQ(doc.linhas, (QStringList{r.GetRegStr(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("24"), QStringLiteral("PRODUTO DOIS")), Traco,
                                       r.GetRegStr(QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("1,5"), QStringLiteral("PRODUTO UM")), Traco, Fim}));
}

TEST_F(Romaneio, CabecalhoConformeDataEEstado)
{
    const struct { const char *update; const char *linha; } casos[] = {
        {"dt_doc='2026-11-10', baixado='S', cancelado='N'", "DT.DOC: 10/11/26    DT.LANÇAMENTO: 11/11/26 08:09:10  BAIXADA"},
        {"dt_doc=null, baixado='N', cancelado='S'", "DT.LANÇAMENTO: 11/11/26 08:09:10  CANCELADA"},
        {"dt_doc=null, baixado='S', cancelado='S'", "DT.LANÇAMENTO: 11/11/26 08:09:10  BAIXADA  CANCELADA"},
    };
    for (const auto &c : casos) {
        sql(QStringLiteral("update compra set %1 where compra_cod=345;").arg(c.update));
        TPavrel_Romaneio_Impr r = Novo(345);
        ASSERT_TRUE(r.PegarCabec());
        EXPECT_EQ(r.LinhaCabec(), QString::fromUtf8(c.linha));
    }
}

TEST_F(Romaneio, DescricaoLongaQuebradaEmSetentaSemAsOutrasColunas)
{
    TPavrel_Romaneio_Impr r = Novo(345);
    QStringList palavras;
    for (int i = 0; i < 14; ++i)
        palavras << QStringLiteral("PALAVRA%1").arg(i, 3, 10, QLatin1Char('0'));   // 153 characters with the blanks
    const QString longa = QString(75, QLatin1Char('L'));
    const QStringList linhas = r.LinhasItem({QStringLiteral("7"), QStringLiteral("99"), palavras.join(QLatin1Char(' ')), 3});
    const QStringList cortada = r.LinhasItem({QStringLiteral("8"), QStringLiteral("98"), longa + QStringLiteral(" FIM"), 1});
    ASSERT_EQ(linhas.size(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(linhas.at(i), r.GetRegStr(i ? QStringLiteral(" ") : QStringLiteral("7"), i ? QStringLiteral(" ") : QStringLiteral("99"),
                                            i ? QStringLiteral(" ") : QStringLiteral("3"), palavras.mid(i * 6, 6).join(QLatin1Char(' '))));
    ASSERT_EQ(cortada.size(), 2);
    EXPECT_EQ(cortada.at(0).mid(29, 70), longa.left(70));
    EXPECT_EQ(cortada.at(1).trimmed(), QStringLiteral("LLLLL FIM"));
}

TEST_F(Romaneio, NotaSemItensCopiasEPaginasComCabecalhos)
{
    TPavrel_Romaneio_Impr vazia = Novo(346);
    const TImpressora duas = Montado(vazia, 2);
    ASSERT_EQ(duas.Documentos().size(), 2);
    EXPECT_EQ(duas.Documentos().at(1).linhas, QStringList{Fim});
    QString titulo = QStringLiteral("ROMANEIO 001-0000346");
    EscreverNaStrADir(titulo, QStringLiteral("Página 1 de 1"), 100);
    const QString pagina = QStringList{titulo, vazia.LinhaCabec(), vazia.CabecColunas(), Fim}.join(QLatin1Char('\n')) + QStringLiteral("\n\f\n");
    EXPECT_EQ(duas.Texto(), pagina + pagina);

    TPavrel_Romaneio_Impr longa = Novo(345);
    for (int i = 1; i <= 150; ++i)
        longa.Itens().append({QString::number(i), QStringLiteral("1"), QStringLiteral("ITEM %1").arg(i), 1});
    TImpressora impressora;
    longa.Montar(impressora, 1);
    const TDocImpr &doc = impressora.Documentos().first();
    const QList<QStringList> paginas = impressora.Paginas(doc);
    ASSERT_EQ(paginas.size(), 4);   // 301 lines, 76 to a page of 79
    QStringList corpo;
    for (int n = 0; n < paginas.size(); ++n) {
        EXPECT_LE(paginas.at(n).size(), impressora.Config().LinhasPorPagina());
        EXPECT_TRUE(paginas.at(n).at(0).startsWith(doc.titulo) && paginas.at(n).at(0).endsWith(QStringLiteral("Página %1 de 4").arg(n + 1)));
        EXPECT_EQ(paginas.at(n).mid(1, 2), (QStringList{doc.cabecalhos.first(), doc.cabecColunas}));
        corpo += paginas.at(n).mid(3);
    }
    EXPECT_EQ(corpo, doc.linhas);
    EXPECT_EQ(impressora.Texto().count(QStringLiteral("\n\f\n")), 4);
}

TEST_F(Romaneio, PdfEscolhidoCanceladoOuNotaQueNaoExiste)
{
    SelecaoSemImpressora selecao;
    const QString arquivo = pasta.filePath(QStringLiteral("romaneio"));
    dialogos.ResponderArquivo(QString());
    EXPECT_FALSE(Novo(345).Execute(selecao));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());

    dialogos.ResponderArquivo(arquivo);
    ASSERT_TRUE(Novo(345).Execute(selecao));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Info), QStringLiteral("PDF gravado em ") + arquivo + QStringLiteral(".pdf"));
    const QString lido = TextoDoPdf(arquivo + QStringLiteral(".pdf"));
    for (const char *parte : {"ROMANEIO 001-0000345", "Página 1 de 1", "DT.LANÇAMENTO: 11/11/26 08:09:10", "PRODUTO DOIS", "1,5", "FIM DO ROMANEIO"})
        EXPECT_TRUE(lido.contains(QString::fromUtf8(parte))) << parte << "\n" << lido.toStdString();

    dialogos.Limpar();
    dialogos.ResponderArquivo(pasta.filePath(QStringLiteral("nada.pdf")));
    EXPECT_FALSE(Novo(999).Execute(selecao));
    EXPECT_EQ(dialogos.UnicaMensagem(TipoMensagem::Erro), QStringLiteral("Erro buscando dados da nota (nota 001-0000999 não encontrada)"));
    EXPECT_FALSE(QFile::exists(pasta.filePath(QStringLiteral("nada.pdf"))));
}

TEST_F(Romaneio, TelaImprimeANotaAtual)
{
    const auto tela = AbrirTela();
    dialogos.ResponderArquivo(pasta.filePath(QStringLiteral("tela.pdf")));
    ASSERT_FALSE(TSelecaoImpressora().TemImpressora()) << "a printer would be asked through its dialog";
    tela->Acao(QStringLiteral("RomaneioImprAct"))->trigger();
    EXPECT_TRUE(TextoDoPdf(pasta.filePath(QStringLiteral("tela.pdf"))).contains(QStringLiteral("FIM DO ROMANEIO")));
    EXPECT_TRUE(tela->Acao(QStringLiteral("RomaneioImprAct"))->isEnabled());
}

TEST_F(Romaneio, ComandoTextoPdfERecusas)
{
    ASSERT_EQ(Rodar(QStringLiteral("romaneio 1-345 --text --copies 2")), 0) << saida.toStdString();
    TPavrel_Romaneio_Impr r = Novo(345);
    EXPECT_EQ(saida, Montado(r, 2).Texto());

    const QString pdf = pasta.filePath(QStringLiteral("cmd.pdf"));
    ASSERT_EQ(Rodar(QStringLiteral("romaneio 1-345 --pdf ") + pdf + QStringLiteral(" --copies 2")), 0) << saida.toStdString();
    EXPECT_EQ(TextoDoPdf(pdf).count(QStringLiteral("FIM DO ROMANEIO")), 2);

    const struct { QString linha; int codigo; } casos[] = {
        {QStringLiteral("romaneio 1-345 --text --pdf x.pdf"), 2},
        {QStringLiteral("romaneio 1-345 --copies 0"), 2},
        {QStringLiteral("romaneio"), 2},
        {QStringLiteral("romaneio 1-999 --text"), 1},
    };
    for (const auto &c : casos)
        EXPECT_EQ(Rodar(c.linha), c.codigo) << c.linha.toStdString();
}

} // namespace
