#include "Contexto.h"
#include "Debug.h"
#include "DialogosQt.h"
#include "DialogosTeste.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Clicks the button with `texto` on the message box that opens next, remembering its text.
void clicarQuandoAbrir(const QString &texto, QString *visto)
{
    QTimer::singleShot(0, [texto, visto] {
        for (QWidget *w : QApplication::topLevelWidgets()) {
            auto *box = qobject_cast<QMessageBox *>(w);
            if (!box || !box->isVisible())
                continue;
            *visto = box->text();
            for (QAbstractButton *b : box->buttons()) {
                if (b->text() == texto)
                    b->click();
            }
        }
    });
}

TEST(DialogosQt, QuestionsShowTheExactTextAndAnswerInPortuguese)
{
    TDialogosQt dialogos;
    QString visto;
    clicarQuandoAbrir(QStringLiteral("&Sim"), &visto);
    EXPECT_TRUE(dialogos.Perguntar(TipoPergunta::SimNao, QStringLiteral("Deseja desbaixar o documento 001-0000345")));
    EXPECT_EQ(visto, QStringLiteral("Deseja desbaixar o documento 001-0000345"));

    clicarQuandoAbrir(QStringLiteral("&Não"), &visto);
    EXPECT_FALSE(dialogos.Perguntar(TipoPergunta::Deletar, TextoPerguntaDeletar));

    clicarQuandoAbrir(QStringLiteral("OK"), &visto);
    dialogos.Mensagem(TipoMensagem::Erro, QStringLiteral("Nota já foi cancelada"));
    EXPECT_EQ(visto, QStringLiteral("Nota já foi cancelada"));
}

TEST(Dialogos, WithNoneInstalledQuestionsAnswerNoWithoutWaiting)
{
    ASSERT_EQ(TDialogos::Definido(), nullptr);
    EXPECT_FALSE(Pergunta(QStringLiteral("Deseja continuar?")));
    EXPECT_FALSE(PerguntaDeletar());
}

TEST(RastroDebug, ShowsOnlyAtItsOwnLevel)
{
    DialogosTeste dialogos;
    Contexto::Atual().modoDebug = 72;
    TRastroDebug outro(80);
    outro.Add(QStringLiteral("inicio"));
    outro.Exibir(TRastroDebug::CabecalhoCurto(80, QStringLiteral("DesbaixarAct;")));
    Contexto::Atual().Reiniciar();
    EXPECT_TRUE(dialogos.Mensagens().isEmpty()) << "a trace at its own level is the posting trace test's";
}

} // namespace
