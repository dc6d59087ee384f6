#include "ExecutarModal.h"
#include "TelaTeste.h"
#include "URepEdit.h"
#include "URepEditF.h"

#include <QClipboard>
#include <QPlainTextEdit>

namespace {

// Note 70 was created on station 3; the company's defaults are in fisco_config.
class RepEdit : public TelaTeste
{
protected:
    void SetUp() override
    {
        TelaTeste::SetUp();
        ASSERT_EQ(InserirNota(db, {.estacao = 3, .compra = 70}), QString());
        sql(QStringLiteral("insert into fisco_config (fisco_config_cod, inf_adic_fisco, inf_adic_contribuinte) "
                           "values (1, ' Padrao fisco ', 'Padrao contribuinte');"));
    }
    QStringList Gravado()
    {
        return {db.valor(QStringLiteral("select coalesce(inf_adic_fisco, '-') from compra where compra_cod=70")),
                db.valor(QStringLiteral("select coalesce(inf_adic_contribuinte, '-') from compra where compra_cod=70"))};
    }
};

// Typed key by key: QTest::keyClicks knows no accented keys.
void Teclar(QWidget *campo, const QString &texto)
{
    for (const QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, campo, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

TEST_F(RepEdit, PropoeOPadraoSoOndeVazioGravaComApostrofoECancelarNaoGrava)
{
    auto tela = AbrirTela();
    ASSERT_TRUE(tela->RepD().Notas().Locate(QStringLiteral("compra_COD"), 70));
    QAction *acao = tela->Acao(QStringLiteral("AltInfoAct"));
    const struct { const char *fisco, *contribuinte; bool ok; const char *digitado; QStringList visto, gravado; } casos[] = {
        {"NULL", "' Da nota '", true, "", {"Padrao fisco", "Da nota"}, {"Padrao fisco", "Da nota"}},
        {"''", "''", false, " mudado", {"Padrao fisco", "Padrao contribuinte"}, {"", ""}},
        {"'Fisco da nota'", "NULL", true, " D'Ávila", {"Fisco da nota", "Padrao contribuinte"},
         {"Fisco da nota", "Padrao contribuinte D'Avila"}},
    };
    TRoteiroModal roteiro;
    for (const auto &c : casos) {
        SCOPED_TRACE(c.fisco);
        sql(QStringLiteral("update compra set inf_adic_fisco=%1, inf_adic_contribuinte=%2 where compra_cod=70;")
                .arg(QLatin1String(c.fisco), QLatin1String(c.contribuinte)));
        QStringList visto;
        roteiro.Responder([&](QDialog &d) {
            auto &f = dynamic_cast<TRepEditF &>(d);
            EXPECT_FALSE(acao->isEnabled());
            EXPECT_TRUE(f.windowTitle().contains(QStringLiteral("Nota 70"))) << f.windowTitle().toStdString();
            visto = QStringList{f.InfAdicFiscoMemo()->toPlainText(), f.InfAdicContribuinteMemo()->toPlainText()};
            f.InfAdicContribuinteMemo()->moveCursor(QTextCursor::End);
            Teclar(f.InfAdicContribuinteMemo(), QString::fromUtf8(c.digitado));
            (c.ok ? f.OkButton() : f.CancelarButton())->click();
            return f.result();
        });
        acao->trigger();
        EXPECT_EQ(visto, c.visto);
        EXPECT_EQ(Gravado(), c.gravado);
        EXPECT_TRUE(acao->isEnabled());
    }
    EXPECT_EQ(roteiro.Pendentes() + roteiro.SemResposta(), 0);
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << primeiraMensagem().toStdString();
}

TEST_F(RepEdit, TeclasDoDialogoSemAcentoSemQuebrasDentroDosLimites)
{
    TRepEditF f;
    f.show();
    QApplication::setActiveWindow(&f);
    QPlainTextEdit *fisco = f.InfAdicFiscoMemo(), *contribuinte = f.InfAdicContribuinteMemo();
    fisco->setFocus();
    Teclar(fisco, QStringLiteral("Ação já"));
    QTest::keyClick(fisco, Qt::Key_Return);
    EXPECT_EQ(fisco->toPlainText(), QStringLiteral("Acao ja"));
    EXPECT_EQ(Foco(), QStringLiteral("InfAdicContribuinteMemo"));
    QApplication::clipboard()->setText(QStringLiteral("linha 1\r\nlinha 2\nÉ fim"));
    contribuinte->paste();
    EXPECT_EQ(contribuinte->toPlainText(), QStringLiteral("linha 1 linha 2 E fim"));
    QTest::keyClick(contribuinte, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_FALSE(contribuinte->toPlainText().contains(QLatin1Char('\n')));

    for (const auto &[memo, limite] : {std::pair{fisco, TRepEditF::MaxFisco}, {contribuinte, TRepEditF::MaxContribuinte}}) {
        memo->setPlainText(QString(limite + 5, u'x'));
        EXPECT_EQ(memo->toPlainText().size(), limite);
        memo->moveCursor(QTextCursor::Start);
        memo->paste();
        EXPECT_EQ(memo->toPlainText(), QString(limite, u'x'));
    }
    f.show();
    f.setResult(-1);
    QTest::keyClick(fisco, Qt::Key_Escape);
    EXPECT_EQ(f.result(), QDialog::Rejected);
    EXPECT_FALSE(f.isVisible());
}

TEST_F(RepEdit, ServidorForaDoArDizOQueFalhouSemGravar)
{
    TDadosBanco perdido = db.banco();
    perdido.database += QStringLiteral(".perdido");
    TConexaoSQL semBanco(perdido);
    QString contribuinte, fisco;
    const struct { std::function<bool()> passo; TipoMensagem tipo; const char *mensagem; } casos[] = {
        {[&] { return TRepEdit::Editar(1, 3, 70, semBanco); }, TipoMensagem::Erro, "Erro lendo dados do servidor"},
        {[&] { return TRepEdit::LerConfig(semBanco, contribuinte, fisco); }, TipoMensagem::Info, "Erro lendo dados do servidor"},
        {[&] { return TRepEdit::GravarCompra(1, 3, 70, semBanco, QStringLiteral("a"), QStringLiteral("b")); },
         TipoMensagem::Erro, "Erro gravando dados no servidor"},
    };
    for (const auto &c : casos) {
        dialogos.Limpar();
        EXPECT_FALSE(c.passo());
        EXPECT_EQ(dialogos.UnicaMensagem(c.tipo), QString::fromUtf8(c.mensagem));
    }
    EXPECT_EQ(Gravado(), (QStringList{QStringLiteral("-"), QStringLiteral("-")}));
}

} // namespace
