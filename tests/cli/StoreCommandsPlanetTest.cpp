// orrerion-cli: the planet commands (add, insert, delete, swap, clear) reach the session's planet
// commands, report their refusals as one error line, and leave no working copy behind. What the
// commands do to the descriptor is the core tests' business (DescriptorKeysTest, PlanetEditsTest);
// here one effect each shows the command did the right one.

#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;
using orr::test::TempGameFolder;

namespace {

const QString kVega = "ORBDescriptor/Vega.orb";

}  // namespace

class StoreCommandsPlanetTest : public QObject {
    Q_OBJECT

  private:
    CliFixture cli;

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        cli.freshFolder();
        cli.write(kVega, orr::clitest::vegaDescriptor());
    }

    void cleanup() { QVERIFY(!cli.exists("ORBDescriptor/Vega.edt")); }

    void planetCommandCallsItsOperation_data() {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QByteArray>("effect");  // a piece of the rewritten descriptor
        QTest::newRow("add") << QStringList{"add-planet", "Vega"}
                             << QByteArray(";460,4,2,9,14,0\r\n;490,2,0,0,1,0\r\n");
        QTest::newRow("insert") << QStringList{"insert-planet", "Vega", "1"}
                                << QByteArray("\",0,4\r\n;400,2,0,0,1,0\r\n;430,2,0,0,1,0\r\n");
        QTest::newRow("delete") << QStringList{"delete-planet", "Vega", "1"}
                                << QByteArray("\",0,2\r\n;400,3,1,5,13,7\r\n");
        QTest::newRow("swap") << QStringList{"swap-planets", "Vega", "1", "3"}
                              << QByteArray(
                                     ";400,4,2,9,14,0\r\n;430,3,1,5,13,7\r\n;460,2,0,0,1,0"
                                     "\r\n[Names]\r\nS=Bright star\r\n3=First\r\n1=Third");
        QTest::newRow("clear") << QStringList{"clear-planets", "Vega"}
                               << QByteArray("\",0,0\r\n[Names]\r\nS=Bright star\r\n");
    }

    void planetCommandCallsItsOperation() {
        QFETCH(QStringList, command);
        QFETCH(QByteArray, effect);
        QCOMPARE(cli.ok(command), QByteArray());
        QVERIFY2(cli.read(kVega).contains(effect), cli.read(kVega).constData());
    }

    // In an older file the block follows a planet section; deleting that planet keeps the block.
    void deletePlanetKeepsABlockAfterItsSection() {
        cli.write(kVega,
                  crlf({"[General]", "PlanetPics=NN", "Messages=NN", "[2]", "Info=two",
                        ";SolarSystem", ";\"Vega\",3,2", ";400,2,0,0,1,0", ";430,2,0,0,1,0"}));
        cli.ok({"delete-planet", "Vega", "2"});
        QCOMPARE(cli.read(kVega), crlf({"[General]", "PlanetPics=N", "Messages=N", ";SolarSystem",
                                        ";\"Vega                \",3,1", ";400,2,0,0,1,0"}));
    }

    void refusalsAreOneLineAndChangeNothing_data() {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QString>("reason");
        QTest::newRow("full") << QStringList{"insert-planet", "Full", "3"}
                              << "This system has the maximum number of planets.";
        QTest::newRow("no block") << QStringList{"add-planet", "Blockless"}
                                  << "The descriptor of Blockless holds no system block, so its "
                                     "planets and its star cannot be changed.";
        QTest::newRow("beyond") << QStringList{"delete-planet", "Vega", "-1"}
                                << "There is no planet -1 in 'Vega': it has 3 planets.";
        QTest::newRow("not a number") << QStringList{"swap-planets", "Vega", "1", "99999999999"}
                                      << "'99999999999' is not a planet number.";
        QTest::newRow("no system")
            << QStringList{"add-planet", "Nowhere"} << "There is no system named 'Nowhere'.";
    }

    void refusalsAreOneLineAndChangeNothing() {
        QFETCH(QStringList, command);
        QFETCH(QString, reason);
        cli.folder().writeDescriptor(TempGameFolder::systemRecord("Full", 10));
        cli.write("ORBDescriptor/Blockless.orb", crlf({"[General]", "PlanetPics=", "Messages="}));
        const auto before = cli.snapshot();
        QCOMPARE(cli.fails(command), reason);
        QVERIFY(cli.snapshot() == before);
    }

    // The editor's working copy means the system is open there: every change is refused.
    void aWorkingCopyBlocksEveryChange() {
        cli.write("ORBDescriptor/Vega.edt", "editor's working copy\r\n");
        const auto before = cli.snapshot();
        const QList<QStringList> commands = {{"add-planet", "Vega"},
                                             {"insert-planet", "Vega", "1"},
                                             {"delete-planet", "Vega", "1"},
                                             {"swap-planets", "Vega", "1", "2"},
                                             {"clear-planets", "Vega"},
                                             {"set", "Vega", "1", "Info", "x"},
                                             {"delete-key", "Vega", "1", "Info"},
                                             {"set-name", "Vega", "1", "x"},
                                             {"set-flag", "Vega", "Messages", "1", "yes"},
                                             {"rename", "Vega", "Deneb"},
                                             {"delete", "Vega"},
                                             {"new", "Vega"}};
        for (const QStringList& command : commands) {
            const QString reason = cli.fails(command);
            QVERIFY2(reason.contains("Vega.edt") || reason.contains("already exists"),
                     qPrintable(command.join(' ') + ": " + reason));
        }
        QVERIFY(cli.snapshot() == before);
        std::filesystem::remove(cli.folder().path("ORBDescriptor/Vega.edt"));
    }
};

QTEST_GUILESS_MAIN(StoreCommandsPlanetTest)
#include "StoreCommandsPlanetTest.moc"
