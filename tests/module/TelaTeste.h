#pragma once

#include "DialogosTeste.h"
#include "NotasTeste.h"
#include "TEdNotaPanel.h"
#include "TItemPanel.h"
#include "TNumEditBR.h"
#include "TRepF.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

inline void PrintTo(const QString &texto, std::ostream *os) { *os << '"' << texto.toStdString() << '"'; }

// The real screen, shown offscreen at the size of a clerk's monitor, once its note list is loaded.
inline std::unique_ptr<TRepF> AbrirTela()
{
    auto tela = std::make_unique<TRepF>();
    QSignalSpy carregou(tela.get(), &TRepF::ListaCarregada);
    tela->resize(1366, 768);
    tela->show();
    EXPECT_TRUE(carregou.wait(5000)) << "the note list never loaded";
    // What a host that loads the module by name waits on before it takes a picture.
    EXPECT_TRUE(tela->property("listaCarregada").toBool() && tela->property("itensCarregados").toBool());
    // The progress window took the activation while the list loaded.
    QApplication::setActiveWindow(tela.get());
    return tela;
}

// Types over what the field holds, as a clerk does.
inline void Digitar(QLineEdit *campo, const QString &texto)
{
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, texto);
}

inline QString Foco() { return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(); }

// A fresh database on a fixed day, with the messages recorded.
class TelaTeste : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(db.ok()) << db.erro().toStdString();
        Contexto::Atual().DefinirRelogio([] { return QDateTime(QDate(2026, 11, 22), QTime(10, 0)); });
    }
    void TearDown() override { Contexto::Atual().estacao = 1; Contexto::Atual().empresa = 1; }
    // Names the part of a long screen story that a failure belongs to, in place of the last one.
    void secao(const char *nome) { m_secao.emplace(__FILE__, __LINE__, nome); }
    void sql(const QString &script) { ASSERT_EQ(db.execScript(script), QString()); }
    QString primeiraMensagem() const { return dialogos.Mensagens().isEmpty() ? QString() : dialogos.Mensagens().first().texto; }

    TestDatabase db;
    DialogosTeste dialogos;
    std::optional<::testing::ScopedTrace> m_secao;
};
