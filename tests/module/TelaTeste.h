#pragma once

#include "TRepF.h"

#include <QApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

// The real screen, shown offscreen at the size of a clerk's monitor, once its note list is loaded.
inline std::unique_ptr<TRepF> AbrirTela()
{
    auto tela = std::make_unique<TRepF>();
    QSignalSpy carregou(tela.get(), &TRepF::ListaCarregada);
    tela->resize(1366, 768);
    tela->show();
    EXPECT_TRUE(carregou.wait(5000)) << "the note list never loaded";
    // The progress window took the activation while the list loaded.
    QApplication::setActiveWindow(tela.get());
    return tela;
}
