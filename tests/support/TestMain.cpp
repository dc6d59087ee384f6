#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

int main(int argc, char **argv)
{
    // Screens are built offscreen; the Brazilian locale catches any value that leaks through it.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
