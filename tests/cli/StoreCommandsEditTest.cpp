// orrerion-cli: the system commands new, set, delete-key, set-name, set-flag, rename and delete,
// with the editor's results and refusals.

#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"
#include "cli/support/SampleSystems.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;

namespace {

const QString kVega = "ORBDescriptor/Vega.orb";

// The Vega sample with some lines replaced.
QByteArray vegaWith(const QByteArray& from, const QByteArray& to) {
    QByteArray text = orr::clitest::vegaDescriptor();
    return text.replace(from, to);
}

}  // namespace

class StoreCommandsEditTest : public QObject {
    Q_OBJECT

  private:
    CliFixture cli;

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        cli.demoCopy();
        cli.write(kVega, orr::clitest::vegaDescriptor());
    }

    void cleanup() { QVERIFY(!cli.exists("ORBDescriptor/Vega.edt")); }

    void newMakesACustomSystemOrReplacesAListedOne() {
        cli.ok({"new", "Nova"});
        QCOMPARE(cli.read("ORBDescriptor/Nova.orb"),
                 crlf({"[General]", "PlanetPics = ", "Messages = ", "", ";SolarSystem",
                       ";\"Nova                \",0,0"}));
        // A key of the game's list starts from that system's record.
        cli.ok({"new", "4Harrow"});
        QCOMPARE(cli.read("ORBDescriptor/4Harrow.orb"),
                 crlf({"[General]", "PlanetPics = NNNN", "Messages = NNNN", "", ";SolarSystem",
                       ";\"Harrow              \",0,4", ";400,2,0,0,7,0", ";650,3,1,16384,13,0",
                       ";930,1,0,0,4,0", ";1400,5,12,0,1,0"}));
        QVERIFY(!cli.ok({"offered"}).contains("4Harrow"));
        // A listed system whose name holds "#" is never offered but is still found by its key.
        cli.ok({"new", "1Outpost #9"});
        QVERIFY(
            cli.read("ORBDescriptor/1Outpost #9.orb").contains(";\"Outpost #9          \",5,1"));
        // Display names are cut to 20 characters.
        cli.ok({"new", "A very long custom system name"});
        QVERIFY(cli.read("ORBDescriptor/A very long custom system name.orb")
                    .contains(";\"A very long custom s\",0,0\r\n"));
        QCOMPARE(cli.ok({"list"}), QByteArray("1Outpost #9\n4Harrow\nA very long custom system "
                                              "name\nKestrel\nNova\nVega\n"));
    }

    void newRefusesExistingSystemsAndUnusableNames() {
        const auto before = cli.snapshot();
        QVERIFY(cli.fails({"new", "Kestrel"}).contains("exists"));
        QVERIFY(cli.fails({"new", "KESTREL"}).contains("exists"));
        QCOMPARE(
            cli.fails({"new", "CON"}),
            QString("\"CON\" is a device name reserved by Windows and cannot be a system name."));
        QCOMPARE(cli.fails({"new", "a/b"}),
                 QString("A system name cannot contain the character '/'."));
        QCOMPARE(cli.fails({"new", " x"}),
                 QString("A system name cannot begin or end with a blank."));
        QCOMPARE(cli.fails({"new", "x."}),
                 QString("A system name cannot begin or end with a dot."));
        QCOMPARE(cli.fails({"new", ""}), QString("A system name cannot be empty."));
        QVERIFY(cli.fails({"new", "tab\there"}).contains("control characters"));
        // A backup waiting under the name blocks it too.
        cli.write("ORBDescriptor/Deneb.edt", "backup\r\n");
        QVERIFY(cli.fails({"new", "Deneb"}).contains("Deneb.edt"));
        QFile::remove(cli.path("ORBDescriptor/Deneb.edt"));
        QCOMPARE(cli.snapshot(), before);
    }

    void setAndDeleteKeyWriteThroughTheProfileLayer() {
        cli.ok({"set", "Vega", "3", "Info", "Ice and \xc3\xa9ther"});  // UTF-8 in, 1252 stored
        QCOMPARE(cli.read(kVega), vegaWith("Info=three", "Info=Ice and \xe9ther"));
        QCOMPARE(cli.ok({"get", "Vega", "3", "info"}), QByteArray("Ice and \xe9ther\n"));
        cli.ok({"set", "Vega", "Extra", "Key", "a=b"});
        QVERIFY(cli.read(kVega).endsWith("Info=Ice and \xe9ther\r\n[Extra]\r\nKey=a=b\r\n"));
        cli.ok({"delete-key", "Vega", "Extra", "Key"});
        cli.ok({"delete-key", "Vega", "3", "Info"});
        cli.ok({"delete-key", "Vega", "3", "Missing"});
        QCOMPARE(cli.read(kVega), vegaWith("[3]\r\nInfo=three\r\n", "[3]\r\n") + "[Extra]\r\n");

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"set", "Vega", "1", "Info", "two\r\nlines"}),
                 QString("A value cannot hold a line break or a NUL character."));
        QCOMPARE(cli.fails({"set", "Vega", "1", "Key=x", "v"}),
                 QString("A key cannot be empty, hold '=' or begin with '[' or ';'."));
        QCOMPARE(cli.fails({"set", "Vega", "1", "[2]", "v"}),
                 QString("A key cannot be empty, hold '=' or begin with '[' or ';'."));
        QCOMPARE(cli.fails({"set", "Vega", "", "Info", "v"}),
                 QString("A section name cannot be empty or hold ']'."));
        QCOMPARE(cli.fails({"delete-key", "Vega", "a]b", "Info"}),
                 QString("A section name cannot be empty or hold ']'."));
        QCOMPARE(cli.fails({"set", "Osprey", "1", "Info", "v"}),
                 QString("There is no system named 'Osprey'."));
        QCOMPARE(cli.snapshot(), before);
    }

    void setNameStoresOrRestoresNames() {
        cli.ok({"set-name", "Vega", "2", "Second"});
        QVERIFY(cli.read(kVega).contains("1=First\r\n3=Third\r\n2=Second\r\n[1]"));
        cli.ok({"set-name", "Vega", "1", ""});
        cli.ok({"set-name", "Vega", "3", "DEFAULT"});
        cli.ok({"set-name", "Vega", "2", "None"});
        QVERIFY(cli.read(kVega).contains("[Names]\r\nS=Bright star\r\n[1]"));
        QCOMPARE(cli.ok({"get", "Vega", "Names", "S"}), QByteArray("Bright star\n"));
        // The star: its description, removed again when it equals the star type's name.
        cli.ok({"set-name", "Vega", "0", "A pale white star"});
        QCOMPARE(cli.ok({"get", "Vega", "Names", "S"}), QByteArray("A pale white star\n"));
        cli.ok({"set-name", "Vega", "0", "Yellow Sun"});
        QCOMPARE(cli.ok({"get", "Vega", "Names", "S"}), QByteArray("Not Used\n"));
        QCOMPARE(cli.fails({"set-name", "Vega", "4", "x"}),
                 QString("There is no planet 4 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.fails({"set-name", "Vega", "1", "a\nb"}),
                 QString("A name cannot hold a line break or a NUL character."));
    }

    void setFlagSetsOnePlanetsFlag() {
        cli.ok({"set-flag", "Vega", "Messages", "3", "yes"});
        cli.ok({"set-flag", "Vega", "planetpics", "1", "NO"});
        QCOMPARE(cli.read(kVega),
                 vegaWith("PlanetPics=YNN\r\nMessages=NYN", "PlanetPics=NNN\r\nMessages=NYY"));
        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"set-flag", "Vega", "Pictures", "1", "yes"}),
                 QString("Unknown flag key 'Pictures': use PlanetPics or Messages."));
        QCOMPARE(cli.fails({"set-flag", "Vega", "Messages", "1", "maybe"}),
                 QString("The flag value must be yes or no, not 'maybe'."));
        QCOMPARE(cli.fails({"set-flag", "Vega", "Messages", "0", "yes"}),
                 QString("There is no planet 0 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.snapshot(), before);
    }

    void renameSavesUnderTheNewNameAndKeepsTheOldSystem() {
        cli.write("PICTURES/Vega.bmp", "strip");
        cli.write("PICTURES/VegaSun.bmp", "star");
        cli.write("PICTURES/Vega2.avi", "animation");
        cli.write("PICTURES/Vegas.bmp", "another system's strip");
        cli.ok({"rename", "Vega", "Altair"});
        QCOMPARE(cli.read(kVega), orr::clitest::vegaDescriptor());
        // The display name followed the name, as it was the old name.
        QCOMPARE(cli.read("ORBDescriptor/Altair.orb"),
                 vegaWith("\"Vega                \"", "\"Altair              \""));
        QCOMPARE(cli.read("PICTURES/Altair.bmp"), QByteArray("strip"));
        QCOMPARE(cli.read("PICTURES/AltairSun.bmp"), QByteArray("star"));
        QCOMPARE(cli.read("PICTURES/Altair2.avi"), QByteArray("animation"));
        QVERIFY(!cli.exists("PICTURES/Altairs.bmp"));
        QCOMPARE(cli.read("PICTURES/Vega.bmp"), QByteArray("strip"));
        QVERIFY(!cli.exists("ORBDescriptor/Altair.edt"));

        // A display name of its own stays.
        cli.ok({"new", "4Harrow"});
        cli.ok({"rename", "4Harrow", "Harrow Prime"});
        QVERIFY(
            cli.read("ORBDescriptor/Harrow Prime.orb").contains(";\"Harrow              \",0,4"));
        QVERIFY(cli.exists("ORBDescriptor/4Harrow.orb"));

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"rename", "Vega", "Altair"}),
                 QString("A system named \"Altair\" already exists."));
        QCOMPARE(cli.fails({"rename", "Vega", "vega"}),
                 QString("A system named \"Vega\" already exists."));
        QCOMPARE(
            cli.fails({"rename", "Vega", "LPT1.x"}),
            QString("\"LPT1\" is a device name reserved by Windows and cannot be a system name."));
        QCOMPARE(cli.fails({"rename", "Vega", "a/b"}),
                 QString("A system name cannot contain the character '/'."));
        QCOMPARE(cli.fails({"rename", "Vega", ""}), QString("A system name cannot be empty."));
        QCOMPARE(cli.fails({"rename", "Nowhere", "Elsewhere"}),
                 QString("There is no system named 'Nowhere'."));
        QCOMPARE(cli.snapshot(), before);
    }

    void deleteRemovesOnlyThisSystemsFiles() {
        cli.write("PICTURES/Vega.bmp", "strip");
        cli.write("PICTURES/VegaSun.gif", "star");
        cli.write("PICTURES/Vega10.avi", "animation");
        cli.write("PICTURES/Vegas.bmp", "another system's strip");
        cli.write("ORBDescriptor/Vegas.orb", "[General]\r\n");
        cli.ok({"delete", "Vega"});
        QVERIFY(!cli.exists(kVega));
        QVERIFY(!cli.exists("PICTURES/Vega.bmp"));
        QVERIFY(!cli.exists("PICTURES/VegaSun.gif"));
        QVERIFY(!cli.exists("PICTURES/Vega10.avi"));
        QVERIFY(cli.exists("PICTURES/Vegas.bmp"));
        QVERIFY(cli.exists("PICTURES/Kestrel.bmp"));
        QCOMPARE(cli.ok({"list"}), QByteArray("Kestrel\nVegas\n"));
        QCOMPARE(cli.fails({"delete", "Vega"}), QString("There is no system named 'Vega'."));
    }
};

QTEST_GUILESS_MAIN(StoreCommandsEditTest)
#include "StoreCommandsEditTest.moc"
