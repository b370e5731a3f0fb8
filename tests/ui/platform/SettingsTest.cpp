// The user's preferences: defaults, the "-1"/"0" form of yes/no values, and tolerant reading.
// (That a preference outlives the window shows in the main window's lifecycle test.)

#include <QtTest>

#include "platform/Settings.h"

using namespace orr::ui;

class SettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void defaultsThenYesNoAsMinusOneAndZeroReadTolerantly() {
        QSettings store(QStringLiteral("Orrerion"), QStringLiteral("Orrerion"));
        store.clear();
        QVERIFY(Settings::displayAsteroids());
        QVERIFY(Settings::showAbout());
        QCOMPARE(Settings::paintOptions(), QStringLiteral("\"%1\""));
        QCOMPARE(Settings::zipProgram(), QString());  // the editor zips packages itself
        QCOMPARE(Settings::zipOptions(), QStringLiteral("-min -a \"%1.zip\" \"%1\""));
#ifdef Q_OS_WIN
        QCOMPARE(Settings::paintProgram(),
                 QStringLiteral("C:\\Program Files\\Accessories\\MsPaint.exe"));
        QCOMPARE(Settings::gameLauncher(), QString());
#else
        QCOMPARE(Settings::gameLauncher(), QStringLiteral("wine"));
        QVERIFY(!Settings::paintProgram().isEmpty());  // one found in PATH, or kolourpaint
#endif

        Settings::setDisplayAsteroids(false);
        Settings::setShowAbout(true);
        Settings::setZipOptions(QStringLiteral("a \"%1\", \"%1\""));
        QCOMPARE(store.value(QStringLiteral("Options/Display Asteroids")).toString(), "0");
        QCOMPARE(store.value(QStringLiteral("Options/Show About")).toString(), "-1");
        QCOMPARE(Settings::zipOptions(), QStringLiteral("a \"%1\", \"%1\""));

        const std::pair<const char*, bool> stored[] = {
            {"-1", true}, {"0", false}, {"True", true}, {"false", false}, {"maybe", true}};
        for (const auto& [text, yes] : stored) {
            store.setValue(QStringLiteral("Options/Display Asteroids"), QString(text));
            store.sync();
            QVERIFY2(Settings::displayAsteroids() == yes, text);
        }
    }
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
