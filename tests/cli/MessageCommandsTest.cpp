// orrerion-cli: the message commands groups, lines, decode and compose on a small game folder.

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;
using orr::clitest::CliResult;
using orr::clitest::crlf;

namespace {

// Orion: two planets; planet 2 talks (its custom-messages switch is off, which the editor's
// reads ignore).
QByteArray orionDescriptor() {
    return crlf({"[General]",
                 "PlanetPics=NN",
                 "Messages=NN",
                 "",
                 ";SolarSystem",
                 ";\"Orion               \",0,2",
                 ";400,2,0,0,1,0",
                 ";430,3,1,0,2,0",
                 "[2]",
                 "Messages=2",
                 "Message1=%W2$BOX$Greetings, %RK.*RHail",
                 "Message2=We have nothing to say.",
                 "ResponsesHail=2",
                 "ResponseHail1=%FATrade?*MTrade",
                 "ResponseHail2=Farewell.*MBack",
                 "MessagesTrade=1",
                 "MessageTrade1=Caf\xE9 for sale*RDeal*+EN500",
                 "ResponsesDeal=1",
                 "ResponseDeal1=Deal*M*SFB",
                 "BeamMessages=1",
                 "Beam1=You land in a crater.*RS3",
                 "MessagesIgnoreHail=1",
                 "MessageIgnoreHail1=How rude."});
}

class MessageCli : public CliFixture {
  public:
    MessageCli() {
        write("ORBDescriptor/Orion.orb", orionDescriptor());
        QFile list(ORRERION_SOURCE_DIR "/data/SPECIAL.LST");
        if (list.open(QIODevice::ReadOnly)) write("SPECIAL.LST", list.readAll());
    }

    // compose with the JSON on standard input.
    CliResult compose(const QString& direction, const QString& group, const QByteArray& json) {
        QProcess process;
        process.start(ORRERION_BINARY_DIR "/bin/orrerion-cli",
                      {"--game-dir", game(), "compose", direction, group});
        process.write(json);
        process.closeWriteChannel();
        CliResult result;
        if (!process.waitForFinished(30000)) {
            process.kill();
            return result;
        }
        result.exitCode = process.exitCode();
        result.out = process.readAllStandardOutput();
        result.err = process.readAllStandardError();
        return result;
    }
};

QJsonObject decoded(const CliFixture& cli, const QStringList& args) {
    QJsonParseError error;
    const QJsonDocument json =
        QJsonDocument::fromJson(cli.ok(QStringList{"decode"} + args), &error);
    if (error.error != QJsonParseError::NoError) QTest::qFail("no JSON", __FILE__, __LINE__);
    return json.object();
}

}  // namespace

class MessageCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void groupsFollowTheAnswerTags() {
        MessageCli cli;
        const auto before = cli.snapshot();
        // INIT's untagged second line offers its own responses; "*RS3" is no tag, so Beam's
        // line offers Beam's responses.
        QCOMPARE(cli.ok({"groups", "Orion", "2"}),
                 QByteArray("INIT\tboth\nHail\tresponses\nTrade\tmessages\nDeal\tresponses\n"
                            "Back\tmessages\nIgnoreHail\tboth\nReturned\tmessages\nBeam\tboth\n"
                            "Phaser\tmessages\n"));
        QCOMPARE(cli.ok({"groups", "orion", "1"}),
                 QByteArray("INIT\tmessages\nBack\tmessages\nReturned\tmessages\n"
                            "Beam\tmessages\nPhaser\tmessages\nHail\tresponses\n"));
        QCOMPARE(cli.snapshot(), before);
    }

    void linesAsStored() {
        MessageCli cli;
        QCOMPARE(cli.ok({"lines", "Orion", "2", "INIT", "message"}),
                 QByteArray("%W2$BOX$Greetings, %RK.*RHail\nWe have nothing to say.\n"));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Trade", "message"}),
                 QByteArray("Caf\xE9 for sale*RDeal*+EN500\n"));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Beam", "message"}),
                 QByteArray("You land in a crater.*RS3\n"));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Beam", "response"}), QByteArray());
        cli.write("ORBDescriptor/Orion.orb", orionDescriptor() + crlf({"MessagesHail=1"}));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Hail", "message"}), QByteArray("ERR\n"));
    }

    void decodeShowsTheEditorsView() {
        MessageCli cli;
        const QJsonObject welcome =
            decoded(cli, {"message", "INIT", "%W2%05$BOX$Welcome, %RK.*RTrade*SFB"});
        QCOMPARE(welcome["wait"].toInt(), 2);
        QCOMPARE(welcome["percent"].toInt(), 5);
        QCOMPARE(welcome["display"].toString(), QString("box"));
        QCOMPARE(welcome["text"].toString(), QString("Welcome, %RK."));
        QCOMPARE(welcome["answerGroup"].toString(), QString("Trade"));
        QCOMPARE(welcome["codes"].toArray(), QJsonArray({"*SFB"}));

        const QJsonObject plain = decoded(cli, {"response", "Hail", "%fC%GNOpen^EN*RS3*R!S4"});
        QCOMPARE(plain["wait"].toInt(), 0);
        QCOMPARE(plain["percent"].toInt(), 10);
        QCOMPARE(plain["display"].toString(), QString("standard"));
        QCOMPARE(plain["answerGroup"].toString(), QString("Hail"));
        QCOMPARE(plain["codes"].toArray(), QJsonArray({"%fC", "%GN", "*RS3", "*R!S4", "^EN"}));

        const QJsonObject custom = decoded(cli, {"message", "Hail", "$Log$Caf\u00e9*R"});
        QCOMPARE(custom["display"].toString(), QString("Log"));
        QCOMPARE(custom["text"].toString(), QString("Caf\u00e9"));
        QCOMPARE(custom["answerGroup"].toString(), QString("INIT"));
    }

    void decodePrefersTheGameFoldersList() {
        MessageCli cli;
        QVERIFY(decoded(cli, {"message", "Hail", "Hi*ZAP9"})["codes"].toArray().isEmpty());
        QFile::remove(cli.path("SPECIAL.LST"));
        cli.write("special.lst", crlf({"Mine", "*ZAP - Zaps (1) times"}));
        QCOMPARE(decoded(cli, {"message", "Hail", "Hi*ZAP9*SFA"})["codes"].toArray(),
                 QJsonArray({"*ZAP9"}));
        // Without a list in the game folder the program's own copy is used.
        QFile::remove(cli.path("special.lst"));
        QCOMPARE(decoded(cli, {"message", "Hail", "Hi*SFA"})["codes"].toArray(),
                 QJsonArray({"*SFA"}));
    }

    void composeWritesTheStoredLine() {
        MessageCli cli;
        const CliResult welcome =
            cli.compose("message", "INIT",
                        R"({"wait":2,"percent":5,"display":"box","text":"Welcome, %RK.",)"
                        R"("answerGroup":"Trade","codes":["*SFB"]})");
        QCOMPARE(welcome.err, QByteArray());
        QCOMPARE(welcome.out, QByteArray("%W2%05$BOX$Welcome, %RK.*RTrade*SFB\n"));
        const CliResult least = cli.compose("response", "Hail", R"({"text":"Caf\u00e9"})");
        QCOMPARE(least.out, QByteArray("Caf\xE9\n"));
        const CliResult home =
            cli.compose("response", "Hail", R"({"text":"Home","answerGroup":"INIT"})");
        QCOMPARE(home.out, QByteArray("Home*M\n"));
    }

    void decodeThenComposeKeepsTheLine() {
        MessageCli cli;
        struct Line {
            QString direction;
            QString group;
            QByteArray stored;
        };
        const QList<Line> lines = {
            {"message", "INIT", "%W2$BOX$Greetings, %RK.*RHail"},
            {"message", "Hail", "%F3%W9%00$Captain's Log$Day one ^EN^PT*RTrade*DS3*D!S0*+ENM500"},
            {"message", "Trade", "Caf\xE9 for sale*RDeal*+EN500"},
            {"message", "Beam", "You land in a crater.*RS3*R!S4*FALL*TREATY*-TI2*SP3"},
            {"message", "Hail", "Back home*R"},
            {"response", "Hail", "%FATrade?*MTrade*SFB*NOTREATY"},
            {"response", "Area11", "%f7Go south*MArea12"},
        };
        for (const Line& line : lines) {
            const QByteArray json = QJsonDocument(decoded(cli, {line.direction, line.group,
                                                                QString::fromLatin1(line.stored)}))
                                        .toJson();
            const CliResult back = cli.compose(line.direction, line.group, json);
            QCOMPARE(back.err, QByteArray());
            QCOMPARE(back.out, line.stored + "\n");
        }
    }

    void badInputIsRefusedClearly() {
        MessageCli cli;
        QCOMPARE(cli.fails({"groups", "Orion", "3"}),
                 QString("There is no planet 3 in 'Orion': it has 2 planets."));
        QCOMPARE(cli.fails({"groups", "Nowhere", "1"}),
                 QString("There is no system named 'Nowhere'."));
        QCOMPARE(cli.fails({"lines", "Orion", "2", "Hail", "messages"}),
                 QString("The list must be 'message' or 'response', not 'messages'."));
        QCOMPARE(cli.fails({"decode", "information", "Hail", "x"}),
                 QString("The list must be 'message' or 'response', not 'information'."));

        const auto refused = [&](const QByteArray& json) {
            const CliResult result = cli.compose("message", "Hail", json);
            if (result.exitCode != 1 || !result.out.isEmpty())
                QTest::qFail(qPrintable("accepted: " + json), __FILE__, __LINE__);
            return QString::fromUtf8(result.err).trimmed();
        };
        QVERIFY(refused("{\"text\":").contains("not valid JSON"));
        QVERIFY(
            refused(R"({"codes":["*QQQ"]})").contains("'*QQQ' is not in the special-code list"));
        QVERIFY(refused(R"({"codes":["*RTrade"]})").contains("answer tag"));
        QVERIFY(refused(R"({"wait":10})").contains("'wait' must be a whole number from 0 to 9"));
        QVERIFY(refused(R"({"text":"2*3"})").contains("cannot hold '*' or '^'"));
        QVERIFY(refused(R"({"text":"\u2603"})").contains("Windows-1252"));
        QVERIFY(refused(R"({"text":"%NM, hello"})").contains("read as codes"));
    }
};

QTEST_GUILESS_MAIN(MessageCommandsTest)
#include "MessageCommandsTest.moc"
