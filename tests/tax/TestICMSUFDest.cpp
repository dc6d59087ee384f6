#include "ComandosHeadless.h"
#include "ExecutarModal.h"
#include "RegistroSql.h"
#include "TBaixaNota.h"
#include "TClientDataSet.h"
#include "TSaidaItemEdUFDestF.h"
#include "TelaTeste.h"
#include "TextoDataSet.h"
#include "URepF_ItensICMSUFDest.h"

#include <QTextStream>

namespace {

using T = TRepF_ItensICMSUFDest;
const QString SemUF = QStringLiteral("A UF do fornecedor não foi indicada. Indique e tente novamente");
const QString SemUFEmpresa = QStringLiteral("A UF da empresa não foi indicada. Indique e tente novamente");
const QString MesmaUF = QStringLiteral("Esta opção só é válida quando o fornecedor é de uma UF diferente da empresa");

// Company 1 in SP; supplier 2 in PR, 1 in SP, 3 without a state.
class ICMSUFDest : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        Contexto::Atual().ufEmpresa = QStringLiteral("SP");
        sql(QStringLiteral("insert into fornec (fornec_cod, nome_red) values (3, 'SEM UF')"));
    }

    void nota(int compra, int fornec, int tipo = 34)
    {
        sql(QStringLiteral("insert into compra (empr_cod, estacao_cod, compra_cod, tipo_cod, dt_doc, ndoc, fornec_cod, baixado) "
                           "values (1, 1, %1, %2, '2026-11-10', %1, %3, 'S')").arg(compra).arg(QuotedStr(QString(QChar(tipo)))).arg(fornec));
    }
    // A movement of note `compra` under station 10, made in the order of its code.
    void mov(int compra, int cod, const char *qtd, const char *preco, const char *desconto, const char *base = "0")
    {
        sql(QStringLiteral("insert into est_mov (empr_cod, estacao_cod, est_mov_cod, prod_cod, nitem, qtd, preco_unit, desconto, "
                           "trib_icms_vbcufdest, dth_cri) values (1, 10, %1, 1, %1, %2, %3, %4, %5, dateadd(%1 second to "
                           "timestamp '2026-11-10 08:00'))").arg(cod).arg(qtd, preco, desconto, base));
        sql(QStringLiteral("insert into compra_est_mov values (1, 1, %1, 1, 10, %2)").arg(compra).arg(cod));
    }
    // "vbc:pfcp:picmsufdest:picmsinter:part:vfcp:vicmsufdest:vicmsufremet" of each movement of the note.
    QString figuras(int compra = 1)
    {
        return db.valor(QStringLiteral(
            "select list(trib_icms_vbcufdest || ':' || trib_icms_pfcpufdest || ':' || trib_icms_picmsufdest || ':' || "
            "trib_icms_picmsinter || ':' || trib_icms_picmsinterpart || ':' || trib_icms_vfcpufdest || ':' || trib_icms_vicmsufdest "
            "|| ':' || trib_icms_vicmsufremet, ' ') from (select m.* from est_mov m join compra_est_mov l on "
            "l.est_mov_cod=m.est_mov_cod where l.compra_cod=%1 order by m.est_mov_cod)").arg(compra));
    }
    bool perguntar(int compra, int tipo = 34)
    {
        return T::Perguntar(1, 1, compra, QStringLiteral("FORNEC PR"), QStringLiteral("ENTRADA"), QString::number(compra),
                            QDate(2026, 11, 10), db.caminho(), tipo);
    }
    // The command's exit code and what it printed.
    QString rodar(const QString &linha)
    {
        QString texto;
        QTextStream s(&texto);
        const int codigo = ComandosHeadless::Executar(linha.split(QLatin1Char(' ')), s, s);
        return QString::number(codigo) + QLatin1Char('|') + texto;
    }

    TRoteiroModal roteiro;
};

// Enter through the five figures of each row, typing where the text is given, then Enter on OK.
int Digitar(QDialog &d, const QStringList &celulas)
{
    d.show();
    QApplication::setActiveWindow(&d);
    for (const QString &texto : celulas) {
        if (!texto.isEmpty())
            QTest::keyClicks(QApplication::focusWidget(), texto);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(QApplication::focusWidget(), static_cast<TSaidaItemEdUFDestF &>(d).OkButton());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    return d.result();
}

TEST_F(ICMSUFDest, PostedNoteTypedInTheDialogGetsTheFiguresOnEveryMovement)
{
    ASSERT_EQ(InserirNota(db, {.fornec = 2, .itens = {Item(1, 1, "2", "20"), Item(2, 2, "1", "7.5")}}), QString());
    TRepD repD(db.conexao());
    ASSERT_TRUE(repD.CarregarNota(1, 1, 1));
    ASSERT_TRUE(TBaixaNota(db.conexao()).BaixarNota(*repD.NotaAtual(), true));
    auto tela = AbrirTela();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("COMPRA_COD"), 1));
    QString titulo;
    roteiro.Responder([&](QDialog &d) {
        titulo = d.windowTitle();
        EXPECT_EQ(static_cast<TSaidaItemEdUFDestF &>(d).Cds().RecordCount(), 2);
        const QStringList linha{"", "2", "18", "12", "100"};
        const int resultado = Digitar(d, linha + linha);
        EXPECT_EQ(TextoTabulado(static_cast<TSaidaItemEdUFDestF &>(d).Cds()).section('\n', 2, 2).section('\t', -3),
                  "0,36\t1,08\t0,00") << "the values follow what was typed";
        return resultado;
    });
    RegistroSql registro;
    QTest::mouseClick(tela->findChild<QPushButton *>(QStringLiteral("AjustarICMSUFDestButton")), Qt::LeftButton);
    EXPECT_EQ(titulo, QStringLiteral("ENTRADA  Num: 1  Dt.Doc: 10/11/26 FORNEC PR "));
    // Posting left no base, so each opens as the item's net value.
    EXPECT_EQ(figuras(), "20.0000:2.0000:18.0000:12.0000:100.0000:0.3600:1.0800:0.0000 "
                         "7.5000:2.0000:18.0000:12.0000:100.0000:0.3600:1.0800:0.0000");
    const QStringList updates = RegistroSql::ComInicio(QStringLiteral("UPDATE EST_MOV"));
    ASSERT_EQ(updates.size(), 2);
    EXPECT_EQ(updates.first(), "UPDATE EST_MOV SET TRIB_ICMS_VBCUFDEST=20, TRIB_ICMS_PFCPUFDEST=2, TRIB_ICMS_PICMSUFDEST=18, "
                               "TRIB_ICMS_PICMSINTER=12, TRIB_ICMS_PICMSINTERPART=100, TRIB_ICMS_VFCPUFDEST=0.36, "
                               "TRIB_ICMS_VICMSUFDEST=1.08, TRIB_ICMS_VICMSUFREMET=0 WHERE EMPR_COD=1 and estacao_cod=10 "
                               "and est_mov_cod=" + db.valor("select min(est_mov_cod) from est_mov") + ";");
    EXPECT_TRUE(dialogos.Mensagens().isEmpty());
}

TEST_F(ICMSUFDest, RefusalsInTheirOrderAndTheComplementaryNoteSkipsThem)
{
    const struct { int fornec; const char *ufEmpresa; int tipo; QString mensagem; } casos[] = {
        {3, "", 34, SemUF}, {0, "SP", 34, SemUF}, {2, " ", 34, SemUFEmpresa}, {1, "SP", 34, MesmaUF},
        {1, "SP", 37, MesmaUF}, {3, "", 39, {}}, {1, "SP", 39, {}}, {2, "SP", 34, {}},
    };
    int compra = 0;
    for (const auto &c : casos) {
        SCOPED_TRACE(++compra);
        nota(compra, c.fornec, c.tipo);
        Contexto::Atual().ufEmpresa = QLatin1String(c.ufEmpresa);
        dialogos.Limpar();
        const int semResposta = roteiro.SemResposta();
        EXPECT_FALSE(perguntar(compra, c.tipo));
        EXPECT_EQ(dialogos.Mensagens().isEmpty() ? QString() : dialogos.UnicaMensagem(TipoMensagem::Erro), c.mensagem);
        EXPECT_EQ(roteiro.SemResposta() - semResposta, c.mensagem.isEmpty() ? 1 : 0) << "the dialog opens only when accepted";
    }
    RegistroSql registro;
    EXPECT_EQ(T::CompraToFornecUF(1, 1, 1), "");
    EXPECT_EQ(T::CompraToFornecUF(1, 1, 8), "PR");
    EXPECT_EQ(RegistroSql::Sql().last(), "select first(1)\r\nfornec.uf\r\nfrom compra\r\njoin fornec on\r\n"
                                         "compra.fornec_cod=fornec.fornec_cod\r\nwhere compra.EMPR_COD=1\r\n"
                                         "and compra.ESTACAO_COD=1\r\nand compra.COMPRA_COD=8");
}

TEST_F(ICMSUFDest, NetValueIsTruncatedAndStandsForABaseThatRoundsToZero)
{
    nota(1, 2);
    // qtd, unit price, discount, stored base -> net value, base shown
    const struct { const char *qtd, *preco, *desconto, *base, *liquido, *vbc; } casos[] = {
        {"-2", "10.559", "0.019", "0", "21,09", "21,09"},       // a return's quantity counts positive
        {"1.2345", "3.339", "0", "0.004", "4,10", "4,10"},      // 1.234 x 3.33 = 4.10922
        {"3", "1.999", "0.999", "7.125", "4,98", "7,12"},       // the base rounds half to even
        {"1", "5", "0", "7.135", "5,00", "7,14"},
    };
    int cod = 0;
    for (const auto &c : casos)
        mov(1, ++cod, c.qtd, c.preco, c.desconto, c.base);
    TClientDataSet cds;
    TSaidaItemEdUFDestF::CriarCampos(cds);
    ASSERT_TRUE(T::Carregar(db.conexao(), 1, 1, 1, cds));
    ASSERT_EQ(cds.RecordCount(), cod);
    for (const auto &c : casos) {
        SCOPED_TRACE(c.qtd);
        EXPECT_EQ(cds.FieldByName("preco_liquido").DisplayText(), c.liquido);
        EXPECT_EQ(cds.FieldByName("TRIB_ICMS_VBCUFDEST").DisplayText(), c.vbc);
        cds.Next();
    }
}

TEST_F(ICMSUFDest, FiguresRoundHalfToEvenFromTheRateNotTheBase)
{
    const struct { double b, f, u, i, p, vfcp, vdest, vremet; } casos[] = {
        {1000, 2, 18, 12, 100, 0.36, 1.08, 0},
        {0, 2, 18, 12, 60, 0.36, 0.65, 0.43},        // D = 1.08: 0.648 and 0.432
        {50, 2.5, 17, 7, 50, 0.42, 0.85, 0.85},      // 0.425 ties to even; D = 1.7
        {50, 1, 12, 12, 100, 0.12, 0, 0},
    };
    for (const auto &c : casos) {
        const TFigurasUFDest f = T::Calcular(c.b, c.f, c.u, c.i, c.p);
        EXPECT_EQ(std::tuple(f.vbc, f.vfcp, f.vicmsUFDest, f.vicmsUFRemet), std::tuple(c.b, c.vfcp, c.vdest, c.vremet)) << c.u << ' ' << c.p;
    }
}

TEST_F(ICMSUFDest, CancelWritesNothingAndAFailedRowDoesNotStopTheNext)
{
    nota(1, 2);
    for (int cod : {1, 2, 3})
        mov(1, cod, "1", "10", "0");
    const QString antes = figuras();
    roteiro.Responder([](QDialog &d) {
        d.show();
        QApplication::setActiveWindow(&d);
        QTest::keyClicks(QApplication::focusWidget(), "5");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(d.isVisible()) << "one Esc cancels, even in a cell";
        return d.result();
    });
    EXPECT_FALSE(perguntar(1));
    EXPECT_EQ(figuras(), antes);
    // The second row's rates do not fit the column.
    roteiro.Responder([](QDialog &d) {
        TClientDataSet &cds = static_cast<TSaidaItemEdUFDestF &>(d).Cds();
        for (cds.First(); !cds.Eof(); cds.Next()) {
            cds.Edit();
            cds.FieldByName("TRIB_ICMS_PICMSUFDEST").SetAsFloat(cds.RecNo() == 2 ? 1e15 : 18);
            cds.FieldByName("TRIB_ICMS_PICMSINTER").SetAsFloat(cds.RecNo() == 2 ? 1e15 : 12);
            cds.FieldByName("TRIB_ICMS_PICMSINTERPART").SetAsFloat(100);
            cds.Post();
        }
        return int(QDialog::Accepted);
    });
    EXPECT_TRUE(perguntar(1));
    EXPECT_EQ(figuras(), "10.0000:0.0000:18.0000:12.0000:100.0000:0.0000:1.0800:0.0000 " + antes.section(' ', 1, 1)
                             + " 10.0000:0.0000:18.0000:12.0000:100.0000:0.0000:1.0800:0.0000");
    ASSERT_EQ(dialogos.Mensagens().size(), 1);
    EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).startsWith(
        "Não foi possível gravar o ICMS da UF de destino do movimento 1-10-2 (item 2): "));
}

TEST_F(ICMSUFDest, HeadlessCommandPrintsAsksAndWrites)
{
    nota(1, 2);
    mov(1, 1, "2", "10", "1");
    nota(2, 1);
    EXPECT_EQ(rodar("difal 1-1"), "0|Item\tProduto\tDescrição\tFabricante\tValor Líquido\tBase UF Dest.\t% FCP\t"
                                  "% Interna\t% Interest.\t% Partilha\tVl. FCP\tVl. ICMS Dest.\tVl. ICMS Remet.\n"
                                  "1\t1\tPRODUTO UM\tFABRICANTE TESTE\t19,00\t19,00\t0,00\t0,00\t0,00\t0,00\t0,00\t0,00\t0,00\n");
    EXPECT_EQ(rodar("difal 1-2"), "1|erro: " + MesmaUF + "\n");
    for (const char *errada : {"difal 1-1 --set 18,2", "difal 1-1 --set 18,2,x,1", "difal 1-1 --set 18;2;12;101", "difal 1-1 --set"})
        EXPECT_TRUE(rodar(errada).startsWith("2|")) << errada;
    const QString antes = figuras();
    EXPECT_TRUE(rodar("difal 1-1 --set 18,2,12,100").contains("-> não"));
    EXPECT_EQ(figuras(), antes);
    EXPECT_TRUE(rodar("difal 1-1 --set 18;2,5;12;60 --yes").endsWith("ICMS da UF de destino gravado em 1 movimentos da nota 001-0000001\n"));
    EXPECT_EQ(figuras(), "19.0000:2.5000:18.0000:12.0000:60.0000:0.4500:0.6500:0.4300");
    EXPECT_TRUE(rodar("difal 1-1 --set 18,2.5,12,100 --yes").startsWith("0|"));
    EXPECT_EQ(figuras(), "19.0000:2.5000:18.0000:12.0000:100.0000:0.4500:1.0800:0.0000");
}

} // namespace
