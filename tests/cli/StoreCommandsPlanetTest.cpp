// orrerion-cli: the planet commands (add, insert, delete, swap, clear) give the same descriptor
// as the editor's canvas and order commands, and refuse what the editor refuses.

#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"
#include "cli/support/SampleSystems.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;

namespace {

const QString kVega = "ORBDescriptor/Vega.orb";
const QString kLyra = "ORBDescriptor/Lyra.orb";

}  // namespace

class StoreCommandsPlanetTest : public QObject {
    Q_OBJECT

  private:
    CliFixture cli;

    // No working copy may stay behind after a command, whatever its outcome.
    void verifyNoWorkingCopies() {
        QVERIFY(!cli.exists("ORBDescriptor/Vega.edt"));
        QVERIFY(!cli.exists("ORBDescriptor/Lyra.edt"));
    }

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        cli.freshFolder();
        cli.write(kVega, orr::clitest::vegaDescriptor());
        cli.write(kLyra, orr::clitest::lyraDescriptor());
    }

    void cleanup() { verifyNoWorkingCopies(); }

    void addPlanetAppendsOneOrbitFurtherOut() {
        cli.ok({"add-planet", "Vega"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=YNNN", "Messages=NYNN", "", ";SolarSystem",
                       ";\"Vega                \",0,4", ";400,2,0,0,1,0", ";430,3,1,5,13,7",
                       ";460,4,2,9,14,0", ";490,2,0,0,1,0", "[Names]", "S=Bright star", "1=First",
                       "3=Third", "[1]", "Info=one", "[3]", "Info=three"}));
    }

    void addPlanetMakesRoomAtTheOuterEdge() {
        cli.write("ORBDescriptor/Rim.orb",
                  crlf({"[General]", "PlanetPics=NNN", "Messages=NNN", "", ";SolarSystem",
                        ";\"Rim                 \",0,3", ";1900,1,0,0,1,0", ";1950,1,0,0,1,0",
                        ";2000,1,0,0,1,0"}));
        cli.ok({"add-planet", "Rim"});
        QVERIFY(cli.read("ORBDescriptor/Rim.orb")
                    .contains(";1900,1,0,0,1,0\r\n;1950,1,0,0,1,0\r\n;1970,1,0,0,1,0\r\n"
                              ";2000,2,0,0,1,0\r\n"));

        // Orbits so crowded that planet 1 would have to move too: nothing is added.
        const QByteArray crowded = crlf({"[General]", "PlanetPics=NNN", "Messages=NNN", "",
                                         ";SolarSystem", ";\"Crowd               \",0,3",
                                         ";1975,1,0,0,1,0", ";1980,1,0,0,1,0", ";2000,1,0,0,1,0"});
        cli.write("ORBDescriptor/Crowd.orb", crowded);
        QVERIFY(cli.fails({"add-planet", "Crowd"}).contains("too crowded"));
        QCOMPARE(cli.read("ORBDescriptor/Crowd.orb"), crowded);
        QVERIFY(!cli.exists("ORBDescriptor/Crowd.edt"));
    }

    void anEleventhPlanetIsRefused() {
        const QByteArray full = orr::clitest::plainDescriptor("Full", 10);
        cli.write("ORBDescriptor/Full.orb", full);
        const QString message = "This system has the maximum number of planets.";
        QCOMPARE(cli.fails({"add-planet", "Full"}), message);
        QCOMPARE(cli.fails({"insert-planet", "Full", "3"}), message);
        QCOMPARE(cli.read("ORBDescriptor/Full.orb"), full);
        QVERIFY(!cli.exists("ORBDescriptor/Full.edt"));
        // Nine planets take a tenth.
        cli.write("ORBDescriptor/Nine.orb", orr::clitest::plainDescriptor("Nine", 9));
        cli.ok({"add-planet", "Nine"});
        QVERIFY(cli.read("ORBDescriptor/Nine.orb").contains("\",0,10\r\n"));
        QCOMPARE(cli.fails({"add-planet", "Nine"}), message);
    }

    void insertPlanetTakesTheOrbitOfThePlanetItPrecedes() {
        cli.ok({"insert-planet", "Lyra", "2"});
        QCOMPARE(cli.read(kLyra), crlf({"[General]",      "PlanetPics=YNNYN",
                                        "Messages=NNNYY", "",
                                        ";SolarSystem",   ";\"Lyra                \",1,5",
                                        ";400,1,0,0,1,0", ";500,2,0,0,1,0",
                                        ";600,2,0,0,2,0", ";700,3,0,0,3,0",
                                        ";730,4,0,0,4,0", "[Names]",
                                        "3=Two",          "4=Three",
                                        "5=Four",         "[3]",
                                        "Info=two",       "[4]",
                                        "Info=three",     "[5]",
                                        "Info=four"}));
    }

    void deletePlanetMovesTheLaterPlanetsInward() {
        cli.ok({"delete-planet", "Lyra", "2"});
        QCOMPARE(cli.read(kLyra),
                 crlf({"[General]", "PlanetPics=YYN", "Messages=NYY", "", ";SolarSystem",
                       ";\"Lyra                \",1,3", ";400,1,0,0,1,0", ";500,3,0,0,3,0",
                       ";600,4,0,0,4,0", "[Names]", "2=Three", "3=Four", "[2]", "Info=three", "[3]",
                       "Info=four"}));
        // Down to no planets, one at a time.
        cli.ok({"delete-planet", "Vega", "3"});
        cli.ok({"delete-planet", "Vega", "1"});
        cli.ok({"delete-planet", "Vega", "1"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=", "Messages=", "", ";SolarSystem",
                       ";\"Vega                \",0,0", "[Names]", "S=Bright star"}));
        QCOMPARE(cli.fails({"delete-planet", "Vega", "1"}),
                 QString("There is no planet 1 in 'Vega': it has no planets."));
    }

    void swapPlanetsExchangesEverythingButTheOrbits() {
        cli.ok({"swap-planets", "Vega", "1", "3"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=NNY", "Messages=NYN", "", ";SolarSystem",
                       ";\"Vega                \",0,3", ";400,4,2,9,14,0", ";430,3,1,5,13,7",
                       ";460,2,0,0,1,0", "[Names]", "S=Bright star", "3=First", "1=Third", "[3]",
                       "Info=one", "[1]", "Info=three"}));
        // Swapping back restores the file exactly; a planet with itself changes nothing.
        cli.ok({"swap-planets", "Vega", "3", "1"});
        QCOMPARE(cli.read(kVega), orr::clitest::vegaDescriptor());
        cli.ok({"swap-planets", "Vega", "2", "2"});
        QCOMPARE(cli.read(kVega), orr::clitest::vegaDescriptor());
    }

    void clearPlanetsRemovesPlanetsNamesAndSections() {
        cli.ok({"clear-planets", "Vega"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=YNN", "Messages=NYN", "", ";SolarSystem",
                       ";\"Vega                \",0,0", "[Names]", "S=Bright star"}));
    }

    void planetNumbersOutOfRangeAreRefused() {
        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"insert-planet", "Vega", "4"}),
                 QString("There is no planet 4 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.fails({"insert-planet", "Vega", "0"}),
                 QString("There is no planet 0 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.fails({"delete-planet", "Vega", "-1"}),
                 QString("There is no planet -1 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.fails({"swap-planets", "Vega", "1", "x"}),
                 QString("'x' is not a planet number."));
        QCOMPARE(cli.fails({"swap-planets", "Vega", "1", "99999999999"}),
                 QString("'99999999999' is not a planet number."));
        QCOMPARE(cli.fails({"add-planet", "Nowhere"}),
                 QString("There is no system named 'Nowhere'."));
        QCOMPARE(cli.snapshot(), before);
    }

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
        QCOMPARE(cli.snapshot(), before);
        QFile::remove(cli.path("ORBDescriptor/Vega.edt"));
    }
};

QTEST_GUILESS_MAIN(StoreCommandsPlanetTest)
#include "StoreCommandsPlanetTest.moc"
