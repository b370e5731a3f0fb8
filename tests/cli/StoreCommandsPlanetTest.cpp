// orrerion-cli: the planet commands (add, insert, delete, swap, clear) give the same descriptor
// as the editor's canvas and order commands, refuse what the editor refuses, and leave no
// working copy behind.

#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"
#include "cli/support/SampleSystems.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;
using orr::clitest::plainDescriptor;
using orr::clitest::vegaDescriptor;

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
        cli.write(kVega, vegaDescriptor());
    }

    void cleanup() { QCOMPARE(QDir(cli.path("ORBDescriptor")).entryList({"*.edt"}), {}); }

    void addAndInsertPlanetGiveTheEditorsFile() {
        cli.ok({"add-planet", "Vega"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=YNNN", "Messages=NYNN", "", ";SolarSystem",
                       ";\"Vega                \",0,4", ";400,2,0,0,1,0", ";430,3,1,5,13,7",
                       ";460,4,2,9,14,0", ";490,2,0,0,1,0", "[Names]", "S=Bright star", "1=First",
                       "3=Third", "[1]", "Info=one", "[3]", "Info=three"}));
        // The new planet takes the orbit of the one it precedes; the later ones move out.
        cli.write(kVega, vegaDescriptor());
        cli.ok({"insert-planet", "Vega", "1"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=NYNN", "Messages=NNYN", "", ";SolarSystem",
                       ";\"Vega                \",0,4", ";400,2,0,0,1,0", ";430,2,0,0,1,0",
                       ";460,3,1,5,13,7", ";490,4,2,9,14,0", "[Names]", "S=Bright star", "2=First",
                       "4=Third", "[2]", "Info=one", "[4]", "Info=three"}));
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
        // Orbits so crowded that planet 1 would have to move too, or ten planets: refused.
        const QByteArray crowded = crlf({"[General]", "PlanetPics=NNN", "Messages=NNN", "",
                                         ";SolarSystem", ";\"Rim                 \",0,3",
                                         ";1975,1,0,0,1,0", ";1980,1,0,0,1,0", ";2000,1,0,0,1,0"});
        cli.write("ORBDescriptor/Rim.orb", crowded);
        QVERIFY(cli.fails({"add-planet", "Rim"}).contains("too crowded"));
        QCOMPARE(cli.read("ORBDescriptor/Rim.orb"), crowded);
        cli.write("ORBDescriptor/Full.orb", plainDescriptor("Full", 10));
        const QString message = "This system has the maximum number of planets.";
        QCOMPARE(cli.fails({"add-planet", "Full"}), message);
        QCOMPARE(cli.fails({"insert-planet", "Full", "3"}), message);
        QCOMPARE(cli.read("ORBDescriptor/Full.orb"), plainDescriptor("Full", 10));
    }

    void deletePlanetMovesTheLaterPlanetsInward() {
        cli.ok({"delete-planet", "Vega", "1"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=NN", "Messages=YN", "", ";SolarSystem",
                       ";\"Vega                \",0,2", ";400,3,1,5,13,7", ";430,4,2,9,14,0",
                       "[Names]", "S=Bright star", "2=Third", "[2]", "Info=three"}));
        cli.ok({"delete-planet", "Vega", "2"});
        cli.ok({"delete-planet", "Vega", "1"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=", "Messages=", "", ";SolarSystem",
                       ";\"Vega                \",0,0", "[Names]", "S=Bright star"}));
        QCOMPARE(cli.fails({"delete-planet", "Vega", "1"}),
                 QString("There is no planet 1 in 'Vega': it has no planets."));
    }

    void swapAndClearPlanets() {
        cli.ok({"swap-planets", "Vega", "1", "3"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=NNY", "Messages=NYN", "", ";SolarSystem",
                       ";\"Vega                \",0,3", ";400,4,2,9,14,0", ";430,3,1,5,13,7",
                       ";460,2,0,0,1,0", "[Names]", "S=Bright star", "3=First", "1=Third", "[3]",
                       "Info=one", "[1]", "Info=three"}));
        // Swapping back restores the file exactly.
        cli.ok({"swap-planets", "Vega", "3", "1"});
        QCOMPARE(cli.read(kVega), vegaDescriptor());
        cli.ok({"clear-planets", "Vega"});
        QCOMPARE(cli.read(kVega),
                 crlf({"[General]", "PlanetPics=YNN", "Messages=NYN", "", ";SolarSystem",
                       ";\"Vega                \",0,0", "[Names]", "S=Bright star"}));
    }

    void planetNumbersOutOfRangeAreRefused() {
        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"insert-planet", "Vega", "4"}),
                 QString("There is no planet 4 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.fails({"delete-planet", "Vega", "-1"}),
                 QString("There is no planet -1 in 'Vega': it has 3 planets."));
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
