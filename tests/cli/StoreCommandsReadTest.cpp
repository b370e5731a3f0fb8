// orrerion-cli: the command line itself (usage, errors, the game folder) and the reading
// commands offered, list, show, get and encode-star.

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;
using orr::clitest::crlf;

class StoreCommandsReadTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void usageAndCommandLineErrors() {
        CliFixture cli;
        const auto none = cli.run({}, false);
        QCOMPARE(none.exitCode, 1);
        QVERIFY(none.out.startsWith("usage: orrerion-cli [--game-dir DIR] COMMAND ARGS..."));
        QVERIFY(none.out.contains("  set-flag NAME PlanetPics|Messages N yes|no\n"));
        QCOMPARE(none.err, QByteArray("orrerion-cli: no command given.\n"));

        const auto help = cli.run({"--help"}, false);
        QCOMPARE(help.exitCode, 0);
        QVERIFY(help.out.contains("  show NAME\n"));

        QVERIFY(cli.fails({"frobnicate"}).startsWith("unknown command frobnicate"));
        QCOMPARE(cli.fails({"show"}), QString("usage: orrerion-cli show NAME"));
        QCOMPARE(cli.fails({"list", "extra"}), QString("usage: orrerion-cli list"));
        QVERIFY(cli.fails({"--colour", "list"}).startsWith("unknown option --colour"));
        const auto noFolder = cli.run({"--game-dir"}, false);
        QCOMPARE(noFolder.exitCode, 1);
        QCOMPARE(noFolder.err, QByteArray("orrerion-cli: --game-dir needs a folder.\n"));
    }

    void gameFolderMustHoldTheGame() {
        const QString sentence =
            "This software must be installed in the same folder as Voidrunner for Windows 9x.";
        CliFixture cli;
        QFile::remove(cli.path("voidrunner.exe"));
        QCOMPARE(cli.fails({"list"}), sentence);
        // Found whatever its letter case, as in a folder copied from Windows.
        cli.write("VOIDRUNNER.EXE", "x");
        QCOMPARE(cli.ok({"list"}), QByteArray());
        // Without --game-dir the current folder is the game folder.
        cli.write("ORBDescriptor/Nova.orb", crlf({"[General]"}));
        const auto here = cli.run({"list"}, false, cli.game());
        QCOMPARE(here.exitCode, 0);
        QCOMPARE(here.out, QByteArray("Nova\n"));
        const auto elsewhere = cli.run({"list"}, false, cli.path("ORBDescriptor"));
        QCOMPARE(elsewhere.exitCode, 1);
        QCOMPARE(elsewhere.err, "orrerion-cli: " + sentence.toUtf8() + "\n");
        const auto equals = cli.run({"--game-dir=" + cli.game(), "list"}, false, "/");
        QCOMPARE(equals.out, QByteArray("Nova\n"));
        const auto missing = cli.run({"--game-dir", cli.path("nowhere"), "list"}, false);
        QCOMPARE(missing.exitCode, 1);
    }

    void offeredListsTheReplaceableGameSystemsInFileOrder() {
        CliFixture cli;
        cli.demoCopy();
        // No "#" names, and the key bytes as stored (3Ossère in Windows-1252).
        QCOMPARE(cli.ok({"offered"}), QByteArray("4Harrow\n6Castellan\n3Mirelle\n5Tessaly Reach\n"
                                                 "2Quorn\n7Quorn\n8Veyra\n3Oss\xe8re\n"
                                                 "10Brightwater Expanse\n0Nadir\n"));
        // A system with a saved descriptor is no longer offered; a working copy does not count.
        cli.write("ORBDescriptor/7Quorn.orb", crlf({"[General]"}));
        cli.write("ORBDescriptor/4Harrow.edt", crlf({"[General]"}));
        const QByteArray offered = cli.ok({"offered"});
        QVERIFY(!offered.contains("7Quorn\n"));
        QVERIFY(offered.contains("2Quorn\n"));
        QVERIFY(offered.startsWith("4Harrow\n"));
    }

    void listShowsTheCustomSystemsSorted() {
        CliFixture cli;
        cli.write("ORBDescriptor/zeta.orb", "");
        cli.write("ORBDescriptor/Alpha.ORB", "");
        cli.write("ORBDescriptor/9Sol.orb", "");
        cli.write("ORBDescriptor/Beta.edt", "");
        cli.write("ORBDescriptor/notes.txt", "");
        QCOMPARE(cli.ok({"list"}), QByteArray("9Sol\nAlpha\nzeta\n"));
        QDir(cli.path("ORBDescriptor")).removeRecursively();
        QCOMPARE(cli.ok({"list"}), QByteArray());
    }

    void showGivesTheDemoSystem() {
        CliFixture cli;
        cli.demoCopy();
        QJsonParseError error;
        const auto doc = QJsonDocument::fromJson(cli.ok({"show", "Kestrel"}), &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        const QJsonObject system = doc.object();
        QCOMPARE(system["name"].toString(), QString("Kestrel"));
        QCOMPARE(system["displayName"].toString(), QString("Kestrel             "));
        QCOMPARE(system["starType"].toInt(), 2);
        QCOMPARE(system["starDescription"].toString(), QString("A restless ember of a star"));
        QVERIFY(!system.contains("warning"));
        const QJsonArray planets = system["planets"].toArray();
        QCOMPARE(planets.size(), 6);
        const QStringList names = {"Cinder",     "Halcyon",   "Rustmoor",
                                   "The Shards", "Kestrel V", "Undertow"};
        const QList<bool> messages = {false, true, true, false, false, true};
        for (int i = 0; i < 6; ++i) {
            const QJsonObject planet = planets[i].toObject();
            QCOMPARE(planet["name"].toString(), names[i]);
            QCOMPARE(planet["customPictures"].toBool(), true);
            QCOMPARE(planet["customMessages"].toBool(), messages[i]);
        }
        const QJsonObject halcyon = planets[1].toObject();
        QCOMPARE(halcyon["position"].toInt(), 640);
        QCOMPARE(halcyon["size"].toInt(), 3);
        QCOMPARE(halcyon["moons"].toInt(), 1);
        QCOMPARE(halcyon["attributes"].toInt(), 47876);
        QCOMPARE(halcyon["planetClass"].toInt(), 13);
        QCOMPARE(halcyon["lastVisit"].toInt(), 0);
        QCOMPARE(planets[3].toObject()["planetClass"].toInt(), 0);

        // Found ignoring case, reported as the file spells it.
        QCOMPARE(QJsonDocument::fromJson(cli.ok({"show", "KESTREL"}))["name"].toString(),
                 QString("Kestrel"));
        QCOMPARE(cli.fails({"show", "Osprey"}), QString("There is no system named 'Osprey'."));
        QCOMPARE(cli.fails({"show", "../ORBDescriptor/Kestrel"}),
                 QString("There is no system named '../ORBDescriptor/Kestrel'."));
    }

    void showConvertsWindowsTextsAndGivesNullForNoDescription() {
        CliFixture cli;
        cli.demoCopy();
        cli.ok({"new", "3Oss\u00e8re"});  // typed as UTF-8, stored as Windows-1252
        QVERIFY(cli.ok({"list"}).startsWith("3Oss\xe8re\nKestrel\n"));
        const auto doc = QJsonDocument::fromJson(cli.ok({"show", "3Oss\u00e8re"}));
        QCOMPARE(doc["name"].toString(), QString("3Oss\u00e8re"));
        QCOMPARE(doc["displayName"].toString(), QString("Oss\u00e8re").leftJustified(20));
        QVERIFY(doc["starDescription"].isNull());
        QCOMPARE(doc["planets"].toArray()[1].toObject()["name"].toString(),
                 QString("Oss\u00e8re II"));
        QCOMPARE(doc["planets"].toArray()[1].toObject()["customMessages"].toBool(), false);
    }

    void getReadsOneKeyOfTheSavedDescriptor() {
        CliFixture cli;
        cli.demoCopy();
        QCOMPARE(cli.ok({"get", "Kestrel", "2", "ResponseHail1"}),
                 QByteArray("We come in peace and would like to trade.*MTrade\n"));
        QCOMPARE(cli.ok({"get", "Kestrel", "general", "planetpics"}), QByteArray("YYYYYY\n"));
        QCOMPARE(cli.ok({"get", "Kestrel", "2", "Nothing"}), QByteArray("Not Used\n"));
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
        CliFixture cli;
        const auto codes = [](std::initializer_list<int> head, int blanks) {
            QStringList parts;
            for (int code : head) parts << QString::number(code);
            for (int i = 0; i < blanks; ++i) parts << "223";
            return (parts.join(' ') + "\n").toUtf8();
        };
        QCOMPARE(cli.ok({"encode-star", "9Sol"}), codes({246, 172, 144, 147}, 17));
        QCOMPARE(cli.ok({"encode-star", "0Test"}), codes({255, 171, 154, 140, 139}, 16));
        QCOMPARE(cli.ok({"encode-star", "Nova"}), codes({1, 177, 144, 137, 158}, 16));
        // 300 is above 254: its first two characters become one character of code 30.
        QCOMPARE(cli.ok({"encode-star", "300X"}), codes({225, 255 - '0', 255 - 'X'}, 18));
        QVERIFY(
            cli.fails({"encode-star", "A name far too long for the game"}).contains("too long"));
    }
};

QTEST_GUILESS_MAIN(StoreCommandsReadTest)
#include "StoreCommandsReadTest.moc"
