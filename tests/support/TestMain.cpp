#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char **argv)
{
    // Screens are built offscreen; the Brazilian locale catches any value that leaks through it.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Pavrel"));
    QCoreApplication::setApplicationName(QStringLiteral("pavrel-tests"));
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    // The user's own settings are never touched by a test.
    QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
