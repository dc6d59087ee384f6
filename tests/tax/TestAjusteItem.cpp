#include "ExecutarModal.h"
#include "TBaixaNota.h"
#include "TelaTeste.h"
#include "TextosHost.h"
#include "URepF_AjusteItem.h"
#include "URepItemAJusteF.h"
#include "UTipoDoc.h"

#include <QLabel>
#include <QPlainTextEdit>

namespace {

// Note 1 (ENTRADA from supplier 1): items 1 and 2 of product 1, item 3 of product 2. Note 2 moves
// product 1 too. Both posted unless a test says otherwise.
class AjusteItem : public TelaTeste
{
protected:
    void Preparar(bool baixar = true)
    {
        ASSERT_EQ(InserirNota(db, {.compra = 1, .itens = {Item(1, 1, "2", "20"), Item(2, 1, "3", "30"), Item(3, 2, "1", "12")}}), QString());
        ASSERT_EQ(InserirNota(db, {.compra = 2, .itens = {Item(4, 1, "1", "10")}}), QString());
        for (int compra : {1, 2}) {
            ASSERT_TRUE(repD.CarregarNota(1, 1, compra));
            if (baixar) {
                ASSERT_TRUE(TBaixaNota(db.conexao()).BaixarNota(*repD.NotaAtual(), true)) << primeiraMensagem().toStdString();
            }
        }
        sql(QStringLiteral("update compra_item_tmp set unid_cod=1, trib_cod=1"));
        ASSERT_TRUE(repD.CarregarNota(1, 1, 1));
        ASSERT_TRUE(repD.CarregarItens(repD.NotaAtual()->chave));
        ASSERT_EQ(repD.Itens().RecordCount(), 3);
        repD.Itens().First();
    }

    // The clerk's answer: types each field, or cancels.
    void Responder(bool ok, const QString &infoAdic = QStringLiteral("Ação  fiscal   'x';  réu"))
    {
        roteiro.Responder([=, this](QDialog &d) {
            auto &f = dynamic_cast<TRepItemAJusteF &>(d);
            aberto = f.ProdLabel()->text() + '|' + f.NCM() + '|' + f.CfopNumEditBR()->text() + '|' + f.InfoAdicMemo()->toPlainText();
            const std::pair<QLineEdit *, const char *> campos[] = {{f.NCMMaskEdit(), "85171231"}, {f.CfopNumEditBR(), "5949"},
                {f.TratICMSNumEditBR(), "60"}, {f.pRedBCNumEditBR(), "12,5"}, {f.pRedBCSTNumEditBR(), "33,33"}};
            for (const auto &[campo, texto] : campos)
                Digitar(campo, QLatin1String(texto));
            f.InfoAdicMemo()->clear();
            // Typed key by key: QTest::keyClicks knows no accented keys.
            for (const QChar c : infoAdic)
                QTest::sendKeyEvent(QTest::Click, f.InfoAdicMemo(), Qt::Key_unknown, QString(c), Qt::NoModifier);
            ok ? f.accept() : f.reject();
            return f.result();
        });
    }

    bool Ajustar(int fornec = 1, int tipo = TipoDoc::Entrada)
    {
        return TRepF_AjusteItem(repD.Itens(), db.conexao()).Executar({.emprCod = 1, .compraCod = 1, .fornecCod = fornec, .tipoDocCod = tipo});
    }

    // "ncm cfop cst predbcst predbc info" of the staged items, product 1 and the movements.
    QString Itens() { return db.valor(QStringLiteral("select list(coalesce(ncm, '-')||' '||trim(cfop)||' '||trib_icms_cst||' '||trib_icms_predbcst||' '||"
                                                     "trib_icms_predbc||' '||coalesce(info_adic, '-'), '|') from (select * from compra_item_tmp where compra_cod=1 order by compra_item_tmp_cod)")); }
    QString Prod() { return db.valor(QStringLiteral("select ncm||' '||cfop from prod where prod_cod=1")); }
    QString Movs() { return db.valor(QStringLiteral("select list(l.compra_cod||':'||m.prod_cod||' '||m.cfop||' '||m.trib_icms_cst||' '||m.trat_icms||' '||"
                                                    "m.trib_icms_predbcst||' '||m.trib_icms_predbc||' '||coalesce(m.info_adic, '-'), '|') from "
                                                    "(select * from est_mov order by est_mov_cod) m join compra_est_mov l on l.est_mov_cod=m.est_mov_cod")); }
    QString Tudo() { return Itens() + '#' + Prod() + '#' + Movs(); }

    TRepD repD{db.conexao()};
    TRoteiroModal roteiro;
    QString aberto;
};

TEST_F(AjusteItem, WritesTheStagedItemTheProductAndEveryMovementOfTheProductInTheNote)
{
    Preparar();
    const QString movsAntes = Movs();
    Responder(true);
    RegistroSql registro;
    ASSERT_TRUE(Ajustar());
    EXPECT_EQ(RegistroSql::ComInicio(QStringLiteral("select est_mov.")).join(u'#'),
              QStringLiteral("select est_mov.est_mov_cod\r\nfrom compra_est_mov\r\njoin est_mov on\r\ncompra_est_mov.empr_cod=est_mov.empr_cod\r\n"
                             "and est_mov.estacao_cod=10\r\nand compra_est_mov.est_mov_cod=est_mov.est_mov_cod\r\nwhere compra_cod=1 and est_mov.prod_cod=1\r\n"));
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(aberto, QStringLiteral("1 - PRODUTO UM||1102|"));
    const QString info = QStringLiteral("Acao fiscal 'x'; reu");
    EXPECT_EQ(Itens(), QStringLiteral("85171231 5949 60 33.3300 12.5000 ") + info + QStringLiteral("|- 1102 0 0.0000 0.0000 -|- 1102 0 0.0000 0.0000 -"));
    EXPECT_EQ(Prod(), QStringLiteral("85171231 5949"));
    const QString novo = QStringLiteral("1:1 5949 60 60 33.3300 12.5000 ") + info;
    EXPECT_EQ(Movs(), novo + '|' + novo + '|' + movsAntes.section(u'|', 2)) << "product 2 and note 2 keep theirs";
    const TClientDataSet &i = repD.Itens();
    EXPECT_EQ(QStringList({i.FieldByName("ncm").AsString(), i.FieldByName("cfop").AsString(), i.FieldByName("cst").AsString(),
                           i.FieldByName("icms_perc_red").AsString(), i.FieldByName("info_adic").AsString()}).join(u' '),
              QStringLiteral("85171231 5949 60 12.5 ") + info);
}

TEST_F(AjusteItem, RefusalsAndCancelChangeNothing)
{
    // supplier, type, the one message (none: the dialog opens and is cancelled); the last empties the list
    const std::tuple<int, int, DialogosTeste::Registro> casos[] = {
        {0, TipoDoc::Entrada, {TipoMensagem::Proib, QStringLiteral("Fornecedor não indicado na nota (TipoDoc=34)")}},
        {0, TipoDoc::Producao, {TipoMensagem::Proib, QStringLiteral("Fornecedor não indicado na nota (TipoDoc=37)")}},
        {0, TipoDoc::NotaComplementar, {}},
        {1, TipoDoc::Entrada, {}},
        {1, TipoDoc::Entrada, {TipoMensagem::Info, QStringLiteral("Não há item a ajusar")}},
    };
    Preparar();
    const QString antes = Tudo();
    for (const auto &[fornec, tipo, mensagem] : casos) {
        SCOPED_TRACE(mensagem.texto.toStdString() + " " + std::to_string(tipo));
        dialogos.Limpar();
        if (mensagem.tipo == TipoMensagem::Info)
            repD.Itens().EmptyDataSet();
        if (mensagem.texto.isEmpty())
            Responder(false);
        EXPECT_FALSE(Ajustar(fornec, tipo));
        EXPECT_EQ(roteiro.Pendentes() + roteiro.SemResposta(), 0) << "the dialog opens exactly when it should";
        EXPECT_EQ(dialogos.Mensagens(), mensagem.texto.isEmpty() ? QList<DialogosTeste::Registro>() : QList{mensagem});
        EXPECT_EQ(Tudo(), antes);
    }
}

TEST_F(AjusteItem, AFailedStatementIsNamedAndLeavesTheEarlierOnesWritten)
{
    // table whose update fails, the message's start, what the row then shows, which of staged
    // item, product and movements differ from the start (each case keeps what the last one wrote)
    const struct
    {
        const char *tabela, *mensagem, *ncmNaLinha, *gravados;
    } casos[] = {
        {"compra_item_tmp", "Não foi possível gravar o ajuste do item 1 da nota.", "", "---"},
        {"prod", "Não foi possível gravar o NCM e o CFOP do produto 1.", "85171231", "S--"},
        {"est_mov", "Não foi possível gravar o ajuste do movimento de estoque", "85171231", "SS-"},
    };
    Preparar();
    sql(QStringLiteral("create exception recusa 'recusado'"));
    const QString antes = Tudo();
    for (const auto &c : casos) {
        SCOPED_TRACE(c.tabela);
        ASSERT_EQ(db.exec(QStringLiteral("create or alter trigger recusa_upd for %1 before update as begin exception recusa; end").arg(c.tabela)), QString());
        dialogos.Limpar();
        Responder(true, QStringLiteral("obs"));
        EXPECT_EQ(Ajustar(), c.gravados[0] == 'S');
        EXPECT_TRUE(dialogos.UnicaMensagem(TipoMensagem::Erro).startsWith(QString::fromUtf8(c.mensagem))) << primeiraMensagem().toStdString();
        EXPECT_EQ(repD.Itens().FieldByName("ncm").AsString(), c.ncmNaLinha);
        QString gravados;
        for (int parte = 0; parte < 3; ++parte)
            gravados += Tudo().section(u'#', parte, parte) == antes.section(u'#', parte, parte) ? u'-' : u'S';
        EXPECT_EQ(gravados, QLatin1String(c.gravados));
        sql(QStringLiteral("drop trigger recusa_upd"));
    }
}

TEST_F(AjusteItem, TheDialogStripsAccentsKeepsTheLimitAndMovesOnWithEnter)
{
    TRepItemAJusteF f;
    f.show();
    QApplication::setActiveWindow(&f);
    f.InfoAdicMemo()->insertPlainText(QString(498, u'a') + QStringLiteral("çÉü"));   // a paste beyond the limit
    EXPECT_EQ(f.InfoAdicMemo()->toPlainText(), QString(498, u'a') + QStringLiteral("cE"));
    f.SetNCM(QStringLiteral("12345678"));
    EXPECT_EQ(f.NCMMaskEdit()->text() + ' ' + f.NCM(), QStringLiteral("1234.56.78 12345678"));
    const char *ordem[] = {"NCMMaskEdit", "CfopNumEditBR", "TratICMSNumEditBR", "pRedBCNumEditBR", "pRedBCSTNumEditBR", "InfoAdicMemo"};
    f.NCMMaskEdit()->setFocus();
    for (const char *campo : ordem) {
        EXPECT_EQ(Foco(), QLatin1String(campo));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(Foco(), QStringLiteral("InfoAdicMemo")) << "the text keeps Enter";
    QTest::keyClick(&f, Qt::Key_Escape);
    EXPECT_EQ(f.result(), QDialog::Rejected);

    const std::pair<QChar, QChar> letras[] = {{u'á', u'a'}, {u'Ç', u'C'}, {u'ñ', u'n'}, {u'Ü', u'U'}, {u'ß', u'ß'}, {u'Ø', u'Ø'}, {u'º', u'º'}, {u'1', u'1'}};
    for (const auto &[de, para] : letras)
        EXPECT_EQ(CharSemAcento(de), para) << QString(de).toStdString();
}

// A note never posted has no movements: the staged item and the product only.
TEST_F(AjusteItem, TheScreensButtonAdjustsTheCurrentItemOfTheListsNote)
{
    Preparar(false);
    auto tela = AbrirTela();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 1));
    tela->RepD().Itens().Next();
    Responder(true, QStringLiteral("ok"));
    QTest::mouseClick(tela->findChild<QPushButton *>(QStringLiteral("AjustarItemButton")), Qt::LeftButton);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
    EXPECT_EQ(aberto, QStringLiteral("1 - PRODUTO UM||1102|"));
    EXPECT_EQ(Tudo(), QStringLiteral("- 1102 0 0.0000 0.0000 -|85171231 5949 60 33.3300 12.5000 ok|- 1102 0 0.0000 0.0000 -#85171231 5949#"));
}

} // namespace
