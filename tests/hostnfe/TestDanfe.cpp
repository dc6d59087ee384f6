#include "GeradorNFe.h"
#include "TCodigoBarras.h"
#include "DialogosTeste.h"
#include "TDanfe.h"
#include "TImpressaoDanfe.h"
#include "TNFe_XMLI.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

struct CasoCode128
{
    const char *nome;
    QString texto;
    std::vector<int> simbolos;
};

TEST(TCodigoBarras, Code128EscolheConjuntosEChecagem)
{
    const std::vector<CasoCode128> casos = {
        {"letras em B", "ABC", {104, 33, 34, 35, 1, 106}},
        {"chave de 44 digitos toda em C", "35261112345678000195550010000001231000012345",
         {105, 35, 26, 11, 12, 34, 56, 78, 0, 1, 95, 55, 0, 10, 0, 0, 1, 23, 10, 0, 1, 23, 45, 52, 106}},
        {"chave com letras: C, B, um digito impar em B, C de novo", "35261112ABC345000195550010000001231000012345",
         {105, 35, 26, 11, 12, 100, 33, 34, 35, 19, 99, 45, 0, 1, 95, 55, 0, 10, 0, 0, 1, 23, 10, 0, 1, 23, 45, 44, 106}},
        {"controle isolado vai por shift para A", QStringLiteral("a\tb"), {104, 65, 98, 73, 66, 24, 106}},
        {"digitos finais em C", "AB12345", {104, 33, 34, 17, 99, 23, 45, 7, 106}},
        {"fora do ASCII", QStringLiteral("AÇO"), {}},
    };
    for (const CasoCode128 &c : casos)
        EXPECT_EQ(TCodigoBarras::Code128Simbolos(c.texto), c.simbolos) << c.nome;

    const std::vector<int> m = TCodigoBarras::Code128Modulos(QStringLiteral("ABC"));
    int total = 0;
    for (const int l : m)
        total += l;
    EXPECT_EQ(total, 5 * 11 + 13);
    EXPECT_EQ(std::vector<int>(m.begin(), m.begin() + 6), (std::vector<int>{2, 1, 1, 2, 1, 4}));   // start B
    EXPECT_EQ(std::vector<int>(m.end() - 7, m.end()), (std::vector<int>{2, 3, 3, 1, 1, 1, 2}));    // stop
}

TEST(TCodigoBarras, Ean13DigitoEModulos)
{
    EXPECT_EQ(TCodigoBarras::Ean13Digito(QStringLiteral("590123412345")), 7);
    EXPECT_EQ(TCodigoBarras::Ean13Digito(QStringLiteral("400638133393")), 1);
    EXPECT_EQ(TCodigoBarras::Ean13Digito(QStringLiteral("78910003155X")), -1);
    EXPECT_TRUE(TCodigoBarras::Ean13Modulos(QStringLiteral("5901234123458")).empty());

    QString bits;
    bool barra = true;
    for (const int l : TCodigoBarras::Ean13Modulos(QStringLiteral("5901234123457"))) {
        bits += QString(l, barra ? QLatin1Char('1') : QLatin1Char('0'));
        barra = !barra;
    }
    EXPECT_EQ(bits, QStringLiteral("101" "0001011" "0100111" "0110011" "0010011" "0111101" "0011101" "01010"
                                   "1100110" "1101100" "1000010" "1011100" "1001110" "1000100" "101"));
}

QString TextoDoPdf(const QString &pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    EXPECT_TRUE(p.waitForFinished(60000)) << "pdftotext";
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    return QString::fromUtf8(p.readAllStandardOutput());
}

// A supplier's document read back from its XML, so the DANFE prints what the reader fills.
TnfeProc DoXml(const TnfeProc &original)
{
    TnfeProc nfe;
    TNFe_XMLI leitor(nfe);
    EXPECT_TRUE(leitor.ImportarDoTexto(GerarXmlNFe(original), QStringLiteral("nota.xml"))) << leitor.Erro().toStdString();
    return nfe;
}

QString Num(int i) { return QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('0')); }

TEST(TDanfe, ItensEDadosAdicionaisContinuamNasFolhasSemPerderNemRepetir)
{
    struct Caso
    {
        const char *nome;
        int itens, observacoes;
    };
    for (const Caso &c : {Caso{"120 itens, o resto dos dados adicionais depois do ultimo", 120, 90},
                          Caso{"poucos itens, dados adicionais numa folha so deles", 2, 400}}) {
        SCOPED_TRACE(c.nome);
        TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000198"), 123, c.itens);
        for (int i = 0; i < c.itens; ++i)
            nfe.itens.GetItem(i).xProd = QStringLiteral("PRODUTO DANFE ") + Num(i + 1);
        nfe.itens.GetItem(1).infAdProd = QStringLiteral("Lote 77 validade 12/2027 armazenar em local seco e arejado");
        QStringList obs;
        for (int i = 1; i <= c.observacoes; ++i)
            obs << QStringLiteral("OBS-%1 entrega parcial conforme pedido.").arg(Num(i));
        nfe.infCpl = obs.join(QLatin1Char(' '));
        nfe = DoXml(nfe);

        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("danfe.pdf"));
        QString erro;
        ASSERT_TRUE(TDanfe::GerarPdf(nfe, pdf, &erro)) << erro.toStdString();
        const QString texto = TextoDoPdf(pdf);
        ASSERT_TRUE(texto.contains(QStringLiteral("PRODUTO DANFE 001")));

        const int folhas = TDanfe::Paginas(nfe);
        EXPECT_GE(folhas, 2);
        EXPECT_EQ(texto.count(QLatin1Char('\f')), folhas);
        for (int k = 1; k <= folhas; ++k)
            EXPECT_EQ(texto.count(QStringLiteral("FOLHA %1/%2").arg(k).arg(folhas)), 1) << k;
        for (int i = 1; i <= c.itens; ++i)
            EXPECT_EQ(texto.count(QStringLiteral("PRODUTO DANFE ") + Num(i)), 1) << i;
        for (int i = 1; i <= c.observacoes; ++i)
            EXPECT_EQ(texto.count(QStringLiteral("OBS-") + Num(i)), 1) << i;
        EXPECT_TRUE(texto.contains(QStringLiteral("armazenar em local seco")));
        EXPECT_TRUE(texto.contains(QStringLiteral("3526 1112 3456 7800 0195")));
        EXPECT_FALSE(texto.contains(QStringLiteral("SEM VALOR FISCAL")));
    }
}

TEST(TDanfe, HomologacaoSemProtocoloAvisa)
{
    TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000198"), 5, 3);
    nfe.ide.tpAmb = 2;
    nfe.prot = {};
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("homologacao.pdf"));
    QString erro;
    ASSERT_TRUE(TDanfe::GerarPdf(nfe, pdf, &erro)) << erro.toStdString();
    const QString texto = TextoDoPdf(pdf).simplified();
    EXPECT_TRUE(texto.contains(QStringLiteral("NF-e emitida em ambiente de homologação - SEM VALOR FISCAL")));
    EXPECT_TRUE(texto.contains(QStringLiteral("DANFE sem protocolo de autorização")));
    EXPECT_EQ(TDanfe::Paginas(nfe), 1);
}

TEST(TDanfe, ArquivoQueNaoPodeSerGravadoEhNomeado)
{
    const TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000198"), 5, 1);
    const QString pdf = QStringLiteral("/nao-existe/pasta/danfe.pdf");
    QString erro;
    EXPECT_FALSE(TDanfe::GerarPdf(nfe, pdf, &erro));
    EXPECT_TRUE(erro.contains(pdf)) << erro.toStdString();
    EXPECT_FALSE(QFile::exists(pdf));
}

TEST(TDanfe, SemImpressoraImprimeNoPdfQueOUsuarioNomeia)
{
    // No print server answers here, so the machine has no printer.
    qputenv("CUPS_SERVER", "/nao-existe/cups.sock");
    ASSERT_TRUE(QPrinterInfo::availablePrinterNames().isEmpty());
    const TnfeProc nfe = NFeExemplo(QStringLiteral("12345678000195"), QStringLiteral("98765432000198"), 9, 2);
    QTemporaryDir dir;
    DialogosTeste dialogos;
    dialogos.ResponderArquivo(dir.filePath(QStringLiteral("reimpressao")));
    dialogos.ResponderArquivo(QString());
    QString erro;
    EXPECT_TRUE(ImprimirDanfe(nullptr, nfe, &erro)) << erro.toStdString();
    EXPECT_TRUE(QFile::exists(dir.filePath(QStringLiteral("reimpressao.pdf"))));
    EXPECT_FALSE(ImprimirDanfe(nullptr, nfe, &erro));   // gave up choosing the file
    EXPECT_TRUE(erro.isEmpty());
}

} // namespace
