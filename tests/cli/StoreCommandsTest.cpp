// orrerion-cli: the command line itself (usage, errors, the game folder), the reading commands
// offered, list, show, get and encode-star, and the system commands new, set, delete-key,
// set-name, set-flag, rename and delete with the editor's results and refusals.

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"
#include "cli/support/SampleSystems.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;

namespace {

const QString kVega = "ORBDescriptor/Vega.orb";

// The Vega sample with some text replaced.
QByteArray vegaWith(const QByteArray& from, const QByteArray& to) {
    QByteArray text = orr::clitest::vegaDescriptor();
    return text.replace(from, to);
}

}  // namespace

class StoreCommandsTest : public QObject {
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

    void usageAndCommandLineErrors() {
        const auto none = cli.run({}, false);
        QCOMPARE(none.exitCode, 1);
        QVERIFY(none.out.startsWith("usage: orrerion-cli [--game-dir DIR] COMMAND ARGS..."));
        QCOMPARE(none.err, QByteArray("orrerion-cli: no command given.\n"));
        const auto help = cli.run({"--help"}, false);
        QCOMPARE(help.exitCode, 0);
        QVERIFY(help.out.contains("  set-flag NAME PlanetPics|Messages N yes|no\n"));
        QVERIFY(cli.fails({"frobnicate"}).startsWith("unknown command frobnicate"));
        QCOMPARE(cli.fails({"show"}), QString("usage: orrerion-cli show NAME"));
        QCOMPARE(cli.fails({"list", "extra"}), QString("usage: orrerion-cli list"));
        QVERIFY(cli.fails({"--colour", "list"}).startsWith("unknown option --colour"));
        QCOMPARE(cli.run({"--game-dir"}, false).err,
                 QByteArray("orrerion-cli: --game-dir needs a folder.\n"));
    }

    void gameFolderMustHoldTheGame() {
        const QByteArray sentence =
            "This software must be installed in the same folder as Voidrunner for Windows 9x.";
        cli.freshFolder();
        cli.write("ORBDescriptor/Nova.orb", crlf({"[General]"}));
        // Without --game-dir the current folder is the game folder.
        QCOMPARE(cli.run({"list"}, false, cli.game()).out, QByteArray("Nova\n"));
        QCOMPARE(cli.run({"--game-dir=" + cli.game(), "list"}, false, "/").out,
                 QByteArray("Nova\n"));
        const auto elsewhere = cli.run({"list"}, false, cli.path("ORBDescriptor"));
        QCOMPARE(elsewhere.exitCode, 1);
        QCOMPARE(elsewhere.err, "orrerion-cli: " + sentence + "\n");
        // Found whatever its letter case, as in a folder copied from Windows.
        QFile::rename(cli.path("voidrunner.exe"), cli.path("VOIDRUNNER.EXE"));
        QCOMPARE(cli.ok({"list"}), QByteArray("Nova\n"));
        QFile::remove(cli.path("VOIDRUNNER.EXE"));
        QCOMPARE(cli.fails({"list"}).toUtf8(), sentence);
    }

    void offeredAndListNameTheSystems() {
        // No "#" names, and the key bytes as stored (3Ossère in Windows-1252).
        QByteArray offered =
            "4Harrow\n6Castellan\n3Mirelle\n5Tessaly Reach\n2Quorn\n7Quorn\n8Veyra\n3Oss\xe8re\n"
            "10Brightwater Expanse\n0Nadir\n";
        QCOMPARE(cli.ok({"offered"}), offered);
        // A saved descriptor takes a system off the offer; a working copy does not.
        cli.write("ORBDescriptor/7Quorn.orb", crlf({"[General]"}));
        cli.write("ORBDescriptor/4Harrow.edt", crlf({"[General]"}));
        QCOMPARE(cli.ok({"offered"}), offered.replace("7Quorn\n", ""));
        cli.write("ORBDescriptor/zeta.orb", "");
        cli.write("ORBDescriptor/Alpha.ORB", "");
        cli.write("ORBDescriptor/notes.txt", "");
        QCOMPARE(cli.ok({"list"}), QByteArray("7Quorn\nAlpha\nKestrel\nVega\nzeta\n"));
        QFile::remove(cli.path("ORBDescriptor/4Harrow.edt"));
    }

    void showGivesTheSystemAsJson() {
        const QByteArray expected = R"({"name": "Vega", "displayName": "Vega                ",
            "starType": 0, "starDescription": "Bright star", "planets": [
            {"position": 400, "size": 2, "moons": 0, "attributes": 0, "planetClass": 1,
             "lastVisit": 0, "name": "First", "customPictures": true, "customMessages": false},
            {"position": 430, "size": 3, "moons": 1, "attributes": 5, "planetClass": 13,
             "lastVisit": 7, "name": "Vega II", "customPictures": false, "customMessages": true},
            {"position": 460, "size": 4, "moons": 2, "attributes": 9, "planetClass": 14,
             "lastVisit": 0, "name": "Third", "customPictures": false, "customMessages": false}
            ]})";
        // Found ignoring case, reported as the file spells it.
        QCOMPARE(QJsonDocument::fromJson(cli.ok({"show", "VEGA"})),
                 QJsonDocument::fromJson(expected));
        QCOMPARE(cli.fails({"show", "../ORBDescriptor/Kestrel"}),
                 QString("There is no system named '../ORBDescriptor/Kestrel'."));

        // Names typed as UTF-8 are stored as Windows-1252 and shown as UTF-8 again.
        cli.ok({"new", "3Oss\u00e8re"});
        QVERIFY(cli.ok({"list"}).startsWith("3Oss\xe8re\nKestrel\n"));
        const auto doc = QJsonDocument::fromJson(cli.ok({"show", "3Oss\u00e8re"}));
        QCOMPARE(doc["displayName"].toString(), QString("Oss\u00e8re").leftJustified(20));
        QVERIFY(doc["starDescription"].isNull());
        QCOMPARE(doc["planets"][1]["name"].toString(), QString("Oss\u00e8re II"));
    }

    void getReadsOneKeyOfTheSavedDescriptor() {
        QCOMPARE(cli.ok({"get", "Kestrel", "2", "ResponseHail1"}),
                 QByteArray("We come in peace and would like to trade.*MTrade\n"));
        QCOMPARE(cli.ok({"get", "Kestrel", "general", "planetpics"}), QByteArray("YYYYYY\n"));
        QCOMPARE(cli.ok({"get", "Kestrel", "9", "Info"}), QByteArray("Not Used\n"));
        // The saved descriptor, not a working copy.
        cli.write("ORBDescriptor/Kestrel.edt", crlf({"[Names]", "1=Changed"}));
        QCOMPARE(cli.ok({"get", "Kestrel", "Names", "1"}), QByteArray("Cinder\n"));
        // Values are read with the game's 254-character limit; bytes come out as stored.
        cli.write("ORBDescriptor/Long.orb",
                  "[1]\r\nInfo=" + QByteArray(300, 'x') + "\r\nName=Caf\xe9\r\n");
        QCOMPARE(cli.ok({"get", "Long", "1", "Info"}), QByteArray(254, 'x') + "\n");
        QCOMPARE(cli.ok({"get", "Long", "1", "Name"}), QByteArray("Caf\xe9\n"));
        QCOMPARE(cli.fails({"get", "Osprey", "1", "Info"}),
                 QString("There is no system named 'Osprey'."));
    }

    void encodeStarGivesTheGamesStartArgument() {
        QByteArray sol = "246 172 144 147";
        for (int i = 0; i < 17; ++i) sol += " 223";
        QCOMPARE(cli.ok({"encode-star", "9Sol"}), sol + "\n");
        QVERIFY(cli.ok({"encode-star", "300X"}).startsWith("225 207 167 223 "));
        QVERIFY(
            cli.fails({"encode-star", "A name far too long for the game"}).contains("too long"));
    }

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

        const auto before = cli.snapshot();
        QVERIFY(cli.fails({"new", "KESTREL"}).contains("exists"));
        QCOMPARE(cli.fails({"new", "a/b"}),
                 QString("A system name cannot contain the character '/'."));
        // A backup waiting under the name blocks it too.
        cli.write("ORBDescriptor/Deneb.edt", "backup\r\n");
        QVERIFY(cli.fails({"new", "Deneb"}).contains("Deneb.edt"));
        QFile::remove(cli.path("ORBDescriptor/Deneb.edt"));
        QCOMPARE(cli.snapshot(), before);
    }

    void setAndDeleteKeyWriteThroughTheProfileLayer() {
        cli.ok({"set", "Vega", "3", "Info", "Ice and \xc3\xa9ther"});  // UTF-8 in, 1252 stored
        QCOMPARE(cli.read(kVega), vegaWith("Info=three", "Info=Ice and \xe9ther"));
        cli.ok({"set", "Vega", "Extra", "Key", "a=b"});
        QVERIFY(cli.read(kVega).endsWith("Info=Ice and \xe9ther\r\n[Extra]\r\nKey=a=b\r\n"));
        cli.ok({"delete-key", "Vega", "Extra", "Key"});
        cli.ok({"delete-key", "Vega", "3", "Info"});
        cli.ok({"delete-key", "Vega", "3", "Missing"});
        QCOMPARE(cli.read(kVega), vegaWith("[3]\r\nInfo=three\r\n", "[3]\r\n") + "[Extra]\r\n");

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"set", "Vega", "1", "Info", "two\r\nlines"}),
                 QString("A value cannot hold a line break or a NUL character."));
        for (const char* key : {"Key=x", "[2]", ";x", ""}) {
            QCOMPARE(cli.fails({"set", "Vega", "1", key, "v"}),
                     QString("A key cannot be empty, hold '=' or begin with '[' or ';'."));
        }
        QCOMPARE(cli.fails({"delete-key", "Vega", "a]b", "Info"}),
                 QString("A section name cannot be empty or hold ']'."));
        QCOMPARE(cli.fails({"set", "Vega", "", "Info", "v"}),
                 QString("A section name cannot be empty or hold ']'."));
        QCOMPARE(cli.snapshot(), before);
    }

    void setNameAndSetFlagChangeOnePlanet() {
        cli.ok({"set-name", "Vega", "2", "Second"});
        cli.ok({"set-name", "Vega", "1", "DEFAULT"});
        cli.ok({"set-name", "Vega", "0", "Yellow Sun"});  // the star type's own name: removed
        cli.ok({"set-flag", "Vega", "Messages", "3", "yes"});
        cli.ok({"set-flag", "Vega", "planetpics", "1", "NO"});
        QCOMPARE(
            cli.read(kVega),
            vegaWith("PlanetPics=YNN\r\nMessages=NYN", "PlanetPics=NNN\r\nMessages=NYY")
                .replace("S=Bright star\r\n1=First\r\n3=Third\r\n", "3=Third\r\n2=Second\r\n"));

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"set-name", "Vega", "4", "x"}),
                 QString("There is no planet 4 in 'Vega': it has 3 planets."));
        QCOMPARE(cli.fails({"set-name", "Vega", "1", "a\nb"}),
                 QString("A name cannot hold a line break or a NUL character."));
        QCOMPARE(cli.fails({"set-flag", "Vega", "Pictures", "1", "yes"}),
                 QString("Unknown flag key 'Pictures': use PlanetPics or Messages."));
        QCOMPARE(cli.fails({"set-flag", "Vega", "Messages", "1", "maybe"}),
                 QString("The flag value must be yes or no, not 'maybe'."));
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

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"rename", "Vega", "kestrel"}),
                 QString("A system named \"Kestrel\" already exists."));
        QCOMPARE(cli.fails({"rename", "Vega", "Vega"}),
                 QString("A system named \"Vega\" already exists."));
        QCOMPARE(cli.fails({"rename", "Vega", "LPT1.x"}),
                 QString("\"LPT1\" is a device name reserved by Windows and cannot be a "
                         "system name."));
        QCOMPARE(cli.fails({"rename", "Nowhere", "Elsewhere"}),
                 QString("There is no system named 'Nowhere'."));
        QCOMPARE(cli.snapshot(), before);

        // A new spelling renames the system itself, pictures included, as the editor does.
        cli.ok({"rename", "vega", "VEGA"});
        QVERIFY(!cli.exists(kVega));
        QCOMPARE(cli.read("ORBDescriptor/VEGA.orb"),
                 vegaWith("\"Vega                \"", "\"VEGA                \""));
        for (const char* gone : {"Vega.bmp", "VegaSun.bmp", "Vega2.avi"})
            QVERIFY2(!cli.exists(QString("PICTURES/") + gone), gone);
        QCOMPARE(cli.read("PICTURES/VEGA.bmp"), QByteArray("strip"));
        QCOMPARE(cli.read("PICTURES/VEGASun.bmp"), QByteArray("star"));
        QCOMPARE(cli.read("PICTURES/VEGA2.avi"), QByteArray("animation"));
        QVERIFY(cli.exists("PICTURES/Vegas.bmp"));
    }

    void deleteRemovesOnlyThisSystemsFiles() {
        cli.write("PICTURES/Vega.bmp", "strip");
        cli.write("PICTURES/VegaSun.gif", "star");
        cli.write("PICTURES/Vega10.avi", "animation");
        cli.write("PICTURES/Vegas.bmp", "another system's strip");
        cli.write("ORBDescriptor/Vegas.orb", "[General]\r\n");
        cli.ok({"delete", "Vega"});
        QCOMPARE(QDir(cli.path("PICTURES")).entryList(QDir::Files),
                 QStringList({"Kestrel.bmp", "KestrelSun.bmp", "Vegas.bmp"}));
        QCOMPARE(cli.ok({"list"}), QByteArray("Kestrel\nVegas\n"));
        QCOMPARE(cli.fails({"delete", "Vega"}), QString("There is no system named 'Vega'."));
    }
};

QTEST_GUILESS_MAIN(StoreCommandsTest)
#include "StoreCommandsTest.moc"
