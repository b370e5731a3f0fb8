// orrerion-cli: the command line itself (usage, errors, the game folder), the reading commands
// offered, list, show, get and encode-star, the system commands new, set, delete-key, set-name,
// set-flag, rename and delete, the planet commands add, insert, delete, swap and clear, and the
// picture and package commands: their output, exit codes, the refusals of the command line as one
// error line, one effect each of the operation they call, and no working copy left behind.

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;
using orr::test::TempGameFolder;

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

    QJsonObject kestrelPictures() {
        return QJsonDocument::fromJson(cli.ok({"pictures", "Kestrel"})).object();
    }

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
        QCOMPARE(cli.fails({"list", "extra"}), QString("usage: orrerion-cli list"));
        QVERIFY(cli.fails({"--colour", "list"}).startsWith("unknown option --colour"));
        QCOMPARE(cli.run({"--game-dir"}, false).err,
                 QByteArray("orrerion-cli: --game-dir needs a folder.\n"));
    }

    void gameFolderMustHoldTheGame() {
        cli.freshFolder();
        cli.write("ORBDescriptor/Nova.orb", crlf({"[General]"}));
        // Without --game-dir the current folder is the game folder.
        QCOMPARE(cli.run({"list"}, false, cli.game()).out, QByteArray("Nova\n"));
        QCOMPARE(cli.run({"--game-dir=" + cli.game(), "list"}, false, "/").out,
                 QByteArray("Nova\n"));
        QFile::remove(cli.path("voidrunner.exe"));
        QCOMPARE(cli.fails({"list"}), QString("This software must be installed in the same folder "
                                              "as Voidrunner for Windows 9x."));
    }

    void offeredAndListNameTheSystems() {
        // The key bytes as stored (3Ossère in Windows-1252); a saved descriptor takes a system
        // off the offer.
        cli.write("ORBDescriptor/7Quorn.orb", crlf({"[General]"}));
        QCOMPARE(cli.ok({"offered"}),
                 QByteArray("4Harrow\n6Castellan\n3Mirelle\n5Tessaly Reach\n2Quorn\n8Veyra\n"
                            "3Oss\xe8re\n10Brightwater Expanse\n0Nadir\n"));
        cli.write("ORBDescriptor/Alpha.ORB", "");
        QCOMPARE(cli.ok({"list"}), QByteArray("7Quorn\nAlpha\nKestrel\nVega\n"));
        // new: a key of the game's list starts from its record. (The refusals of new are the
        // core's; that they reach the user shows in the working-copy test below.)
        cli.ok({"new", "4Harrow"});
        QVERIFY(cli.read("ORBDescriptor/4Harrow.orb").contains(";\"Harrow              \",0,4"));
    }

    // The one damaged-input case of the command line: the store's refusal reaches the user as
    // one error line and the file stays as it was. A missing system list offers nothing.
    void damagedInputIsReportedAndKeptAsItWas() {
        const QByteArray text =
            crlf({"[General]", "PlanetPics=NN", "Messages=NN", "", ";SolarSystem",
                  ";\"Short               \",0,5", ";400,2,0,0,1,0", "[Names]", "1=Keep me"});
        cli.write("ORBDescriptor/Damaged.orb", text);
        QVERIFY(QJsonDocument::fromJson(cli.ok({"show", "Damaged"})).isObject());
        const auto before = cli.snapshot();
        QVERIFY(cli.fails({"set", "Damaged", "1", "Info", "x"}).contains("damaged"));
        QVERIFY(!cli.fails({"add-planet", "Damaged"}).isEmpty());
        QVERIFY(cli.snapshot() == before);
        QFile::remove(cli.path("SOLARSYS.TXT"));
        QCOMPARE(cli.ok({"offered"}), QByteArray());
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
        QCOMPARE(QJsonDocument::fromJson(cli.ok({"show", "3Oss\u00e8re"}))["displayName"],
                 QString("Oss\u00e8re").leftJustified(20));
    }

    void getReadsOneKeyOfTheSavedDescriptor() {
        QCOMPARE(cli.ok({"get", "Kestrel", "2", "ResponseHail1"}),
                 QByteArray("We come in peace and would like to trade.*MTrade\n"));
        QCOMPARE(cli.ok({"get", "Kestrel", "9", "Info"}), QByteArray("Not Used\n"));
        // The saved descriptor, not a working copy; bytes come out as stored.
        cli.write("ORBDescriptor/Kestrel.edt", crlf({"[Names]", "1=Changed"}));
        QCOMPARE(cli.ok({"get", "Kestrel", "Names", "1"}), QByteArray("Cinder\n"));
        cli.write("ORBDescriptor/Long.orb", "[1]\r\nName=Caf\xe9\r\n");
        QCOMPARE(cli.ok({"get", "Long", "1", "Name"}), QByteArray("Caf\xe9\n"));
    }

    void encodeStarGivesTheGamesStartArgument() {
        QByteArray sol = "246 172 144 147";
        for (int i = 0; i < 17; ++i) sol += " 223";
        QCOMPARE(cli.ok({"encode-star", "9Sol"}), sol + "\n");
        QVERIFY(
            cli.fails({"encode-star", "A name far too long for the game"}).contains("too long"));
    }

    void setAndDeleteKeyWriteThroughTheProfileLayer() {
        cli.ok({"set", "Vega", "3", "Info", "Ice and \xc3\xa9ther"});  // UTF-8 in, 1252 stored
        QCOMPARE(cli.read(kVega), vegaWith("Info=three", "Info=Ice and \xe9ther"));
        cli.ok({"delete-key", "Vega", "3", "Info"});
        QCOMPARE(cli.read(kVega), vegaWith("[3]\r\nInfo=three\r\n", "[3]\r\n"));

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"set", "Vega", "1", "Info", "two\r\nlines"}),
                 QString("A value cannot hold a line break or a NUL character."));
        for (const char* key : {"Key=x", "[2]", ";x", ""}) {
            QCOMPARE(cli.fails({"set", "Vega", "1", key, "v"}),
                     QString("A key cannot be empty, hold '=' or a line break, or begin with "
                             "'[' or ';'."));
        }
        QCOMPARE(cli.fails({"delete-key", "Vega", "a]b", "Info"}),
                 QString("A section name cannot be empty or hold ']' or a line break."));
        QVERIFY(cli.snapshot() == before);
    }

    void setNameAndSetFlagChangeOnePlanet() {
        cli.ok({"set-name", "Vega", "2", "Second"});
        cli.ok({"set-flag", "Vega", "messages", "3", "YES"});
        QCOMPARE(cli.read(kVega),
                 vegaWith("Messages=NYN", "Messages=NYY").replace("[1]", "2=Second\r\n[1]"));

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"set-flag", "Vega", "Pictures", "1", "yes"}),
                 QString("Unknown flag key 'Pictures': use PlanetPics or Messages."));
        QCOMPARE(cli.fails({"set-flag", "Vega", "Messages", "1", "maybe"}),
                 QString("The flag value must be yes or no, not 'maybe'."));
        QVERIFY(cli.snapshot() == before);
    }

    void renameSavesUnderTheNewNameAndKeepsTheOldSystem() {
        cli.write("PICTURES/Vega.bmp", "strip");
        cli.ok({"rename", "Vega", "Altair"});
        QCOMPARE(cli.read(kVega), orr::clitest::vegaDescriptor());
        // The display name followed the name, as it was the old name.
        QCOMPARE(cli.read("ORBDescriptor/Altair.orb"),
                 vegaWith("\"Vega                \"", "\"Altair              \""));
        QCOMPARE(cli.read("PICTURES/Altair.bmp"), QByteArray("strip"));

        const auto before = cli.snapshot();
        QCOMPARE(cli.fails({"rename", "Vega", "kestrel"}),
                 QString("A system named \"Kestrel\" already exists."));
        QVERIFY(cli.snapshot() == before);
        // A new spelling respells the system itself.
        cli.ok({"rename", "vega", "VEGA"});
        QCOMPARE(QDir(cli.path("ORBDescriptor")).entryList({"vega.orb"}), QStringList{"VEGA.orb"});
        QCOMPARE(cli.read("PICTURES/VEGA.bmp"), QByteArray("strip"));
    }

    void deleteRemovesOnlyThisSystemsFiles() {
        cli.write("PICTURES/Vega.bmp", "strip");
        cli.write("PICTURES/Vegas.bmp", "another system's strip");
        cli.ok({"delete", "Vega"});
        QCOMPARE(QDir(cli.path("PICTURES")).entryList(QDir::Files),
                 QStringList({"Kestrel.bmp", "KestrelSun.bmp", "Vegas.bmp"}));
        QCOMPARE(cli.fails({"delete", "Vega"}), QString("There is no system named 'Vega'."));
    }

    // The planet commands reach the session's planet commands; one effect each shows the command
    // did the right one (what they do to the descriptor is DescriptorKeysTest's and
    // PlanetEditsTest's business).
    void planetCommandCallsItsOperation() {
        const std::pair<QStringList, QByteArray> commands[] = {
            // a piece of the rewritten descriptor
            {{"add-planet", "Vega"}, ";460,4,2,9,14,0\r\n;490,2,0,0,1,0\r\n"},
            {{"insert-planet", "Vega", "1"}, "\",0,4\r\n;400,2,0,0,1,0\r\n;430,2,0,0,1,0\r\n"},
            {{"delete-planet", "Vega", "1"}, "\",0,2\r\n;400,3,1,5,13,7\r\n"},
            {{"swap-planets", "Vega", "1", "3"},
             ";400,4,2,9,14,0\r\n;430,3,1,5,13,7\r\n;460,2,0,0,1,0\r\n[Names]\r\nS=Bright "
             "star\r\n3=First\r\n1=Third"},
            {{"clear-planets", "Vega"}, "\",0,0\r\n[Names]\r\nS=Bright star\r\n"},
        };
        for (const auto& [command, effect] : commands) {
            cli.write(kVega, orr::clitest::vegaDescriptor());
            QCOMPARE(cli.ok(command), QByteArray());
            QVERIFY2(cli.read(kVega).contains(effect), cli.read(kVega).constData());
        }
        // In an older file the block follows a planet section; deleting that planet keeps it.
        cli.write(kVega,
                  crlf({"[General]", "PlanetPics=NN", "Messages=NN", "[2]", "Info=two",
                        ";SolarSystem", ";\"Vega\",3,2", ";400,2,0,0,1,0", ";430,2,0,0,1,0"}));
        cli.ok({"delete-planet", "Vega", "2"});
        QCOMPARE(cli.read(kVega), crlf({"[General]", "PlanetPics=N", "Messages=N", ";SolarSystem",
                                        ";\"Vega                \",3,1", ";400,2,0,0,1,0"}));
    }

    void refusalsAreOneLineAndChangeNothing() {
        cli.folder().writeDescriptor(TempGameFolder::systemRecord("Full", 10));
        cli.write("ORBDescriptor/Blockless.orb", crlf({"[General]", "PlanetPics=", "Messages="}));
        const auto before = cli.snapshot();
        const std::pair<QStringList, QString> refusals[] = {
            {{"insert-planet", "Full", "3"}, "This system has the maximum number of planets."},
            {{"add-planet", "Blockless"},
             "The descriptor of Blockless holds no system block, so its planets and its star "
             "cannot be changed."},
            {{"delete-planet", "Vega", "-1"}, "There is no planet -1 in 'Vega': it has 3 planets."},
            {{"swap-planets", "Vega", "1", "99999999999"}, "'99999999999' is not a planet number."},
            {{"add-planet", "Nowhere"}, "There is no system named 'Nowhere'."},
        };
        for (const auto& [command, reason] : refusals) QCOMPARE(cli.fails(command), reason);
        QVERIFY(cli.snapshot() == before);

        // The editor's working copy means the system is open there: every change is refused.
        cli.write("ORBDescriptor/Vega.edt", "editor's working copy\r\n");
        const auto withCopy = cli.snapshot();
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
        QVERIFY(cli.snapshot() == withCopy);
        std::filesystem::remove(cli.folder().path("ORBDescriptor/Vega.edt"));
    }

    // The picture and package commands on Kestrel: what pictures reports, a picture removed and
    // a star picture refused by the editor's rules, and a package zipped by the editor's own
    // writer when no zip program is named.
    void picturesStarPictureAndPackage() {
        QCOMPARE(kestrelPictures()["strip"].toString(), QStringLiteral("Kestrel.bmp"));
        QCOMPARE(kestrelPictures()["planets"].toArray().size(), 6);
        QCOMPARE(cli.fails({"star-picture", "Kestrel", cli.path("PICTURES/Kestrel.bmp")}),
                 QStringLiteral("The picture must be 16 x 16 pixels in size to be used for a "
                                "star picture."));
        cli.ok({"picture-remove", "Kestrel", "2"});
        const QJsonObject second = kestrelPictures()["planets"].toArray()[1].toObject();
        QVERIFY(!second["picture"].toBool() && !second["customPicture"].toBool());

        QVERIFY(QDir().mkpath(cli.path("out")));
        QCOMPARE(cli.ok({"package", "Kestrel", cli.path("out")}),
                 (cli.path("out/Kestrel") + "\n" + cli.path("out/Kestrel.zip") + "\n").toUtf8());
        QVERIFY(cli.fails({"package", "Kestrel", cli.path("out")}).contains("exists already"));
        QVERIFY(!cli.exists("ORBDescriptor/Kestrel.edt"));
    }
};

QTEST_GUILESS_MAIN(StoreCommandsTest)
#include "StoreCommandsTest.moc"
