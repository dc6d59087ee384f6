#include "ExecutarModal.h"
#include "Unfecancjustificativaf.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QPushButton>

TEST(DialogosNFe, JustificativaSoLiberaOkDe15A255CaracteresSemOsBrancosDasPontas)
{
    const struct { const char *caso; QString texto; bool ok; } casos[] = {
        {"vazia", QString(), false},
        {"14", QString(14, u'a'), false},
        {"15", QString(15, u'a'), true},
        {"14 com brancos em volta", QStringLiteral("   ") + QString(14, u'a') + QStringLiteral("  \n"), false},
        {"255", QString(255, u'a'), true},
        {"256", QString(256, u'a'), false},
    };
    for (const auto &c : casos) {
        SCOPED_TRACE(c.caso);
        TNfeCancJustificativaF dialogo(12);
        dialogo.DefinirTexto(c.texto);
        auto *ok = dialogo.findChild<QPushButton *>(QStringLiteral("OkButton"));
        ASSERT_TRUE(ok);
        EXPECT_EQ(ok->isEnabled(), c.ok);
    }
}

TEST(DialogosNFe, JustificativaComecaDoTextoGuardadoEDevolveOTextoDigitadoSoNoOk)
{
    for (const bool aceita : {true, false}) {
        TRoteiroModal roteiro;
        roteiro.Responder([&](QDialog &d) {
            auto *memo = d.findChild<QPlainTextEdit *>(QStringLiteral("JustificativaMemo"));
            EXPECT_EQ(memo->toPlainText(), QStringLiteral("texto guardado"));
            EXPECT_TRUE(d.windowTitle().contains(QStringLiteral("12")));
            memo->setPlainText(QStringLiteral("  Nota emitida com erro de valor  "));
            return aceita ? QDialog::Accepted : QDialog::Rejected;
        });
        QString justificativa = QStringLiteral("texto guardado");
        EXPECT_EQ(TNfeCancJustificativaF::Perguntar(12, justificativa), aceita);
        EXPECT_EQ(justificativa, aceita ? QStringLiteral("Nota emitida com erro de valor") : QStringLiteral("texto guardado"));
    }
}
