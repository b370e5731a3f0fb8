// The user's preferences: defaults, the "-1"/"0" form of yes/no values, and tolerant reading.

#include <QtTest>

#include "platform/Settings.h"

using namespace orr::ui;

class SettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init() {
        QSettings store(QStringLiteral("Orrerion"), QStringLiteral("Orrerion"));
        store.clear();
    }

    void defaultsWhenNothingIsStored() {
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
    }

    void yesNoValuesAreStoredAsMinusOneAndZeroAndTextsAsGiven() {
        Settings::setDisplayAsteroids(false);
        Settings::setShowAbout(true);
        Settings::setZipOptions(QStringLiteral("a \"%1\", \"%1\""));
        QSettings store(QStringLiteral("Orrerion"), QStringLiteral("Orrerion"));
        QCOMPARE(store.value(QStringLiteral("Options/Display Asteroids")).toString(),
                 QStringLiteral("0"));
        QCOMPARE(store.value(QStringLiteral("Options/Show About")).toString(),
                 QStringLiteral("-1"));
        QVERIFY(!Settings::displayAsteroids());
        QVERIFY(Settings::showAbout());
        QCOMPARE(Settings::zipOptions(), QStringLiteral("a \"%1\", \"%1\""));
    }

    void yesNoValuesAreReadTolerantly_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<bool>("expected");
        QTest::newRow("-1") << "-1" << true;
        QTest::newRow("0") << "0" << false;
        QTest::newRow("True") << "True" << true;
        QTest::newRow("false") << "false" << false;
        QTest::newRow("garbage falls back") << "maybe" << true;
    }
    void yesNoValuesAreReadTolerantly() {
        QFETCH(QString, stored);
        QFETCH(bool, expected);
        QSettings store(QStringLiteral("Orrerion"), QStringLiteral("Orrerion"));
        store.setValue(QStringLiteral("Options/Display Asteroids"), stored);
        store.sync();
        QCOMPARE(Settings::displayAsteroids(), expected);
    }
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
