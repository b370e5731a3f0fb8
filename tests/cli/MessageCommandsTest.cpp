// orrerion-cli: the message commands groups, lines, decode and compose on a small game folder.

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
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

    QJsonObject decode(const QString& direction, const QString& group, const QByteArray& line) {
        return QJsonDocument::fromJson(ok({"decode", direction, group, QString::fromLatin1(line)}))
            .object();
    }
    // compose with the JSON on standard input.
    CliResult compose(const QString& direction, const QString& group, const QByteArray& json) {
        return run({"compose", direction, group}, true, QString(), json);
    }
};

QJsonObject json(const char* text) {
    return QJsonDocument::fromJson(text).object();
}

}  // namespace

class MessageCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void groupsAndLinesAsStored() {
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
        QCOMPARE(cli.ok({"lines", "Orion", "2", "INIT", "message"}),
                 QByteArray("%W2$BOX$Greetings, %RK.*RHail\nWe have nothing to say.\n"));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Trade", "message"}),
                 QByteArray("Caf\xE9 for sale*RDeal*+EN500\n"));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Beam", "response"}), QByteArray());
        QCOMPARE(cli.snapshot(), before);
        cli.write("ORBDescriptor/Orion.orb", orionDescriptor() + crlf({"MessagesHail=1"}));
        // A missing line keeps its place as an empty line, with a note beside the output.
        const CliResult missing = cli.run({"lines", "Orion", "2", "Hail", "message"});
        QCOMPARE(missing.exitCode, 0);
        QCOMPARE(missing.out, QByteArray("\n"));
        QCOMPARE(missing.err, QByteArray("orrerion-cli: note: MessageHail1 is missing\n"));
    }

    void decodeShowsTheEditorsView() {
        MessageCli cli;
        QCOMPARE(cli.decode("message", "INIT", "%W2%05$BOX$Welcome, %RK.*RTrade*SFB"),
                 json(R"({"wait": 2, "percent": 5, "display": "box", "text": "Welcome, %RK.",
                          "answerGroup": "Trade", "codes": ["*SFB"]})"));
        QCOMPARE(cli.decode("response", "Hail", "%fC%GNOpen^EN*RS3*R!S4"),
                 json(R"({"wait": 0, "percent": 10, "display": "standard", "text": "Open",
                          "answerGroup": "Hail",
                          "codes": ["%fC", "%GN", "*RS3", "*R!S4", "^EN"]})"));
        QCOMPARE(cli.decode("message", "Hail", "$Log$Caf\xe9*R"),
                 json(R"({"wait": 0, "percent": 10, "display": "Log", "text": "Caf\u00e9",
                          "answerGroup": "INIT", "codes": []})"));
    }

    void decodePrefersTheGameFoldersList() {
        MessageCli cli;
        QFile::remove(cli.path("SPECIAL.LST"));
        cli.write("special.lst", crlf({"Mine", "*ZAP - Zaps (1) times"}));
        QCOMPARE(cli.decode("message", "Hail", "Hi*ZAP9*SFA")["codes"], QJsonArray({"*ZAP9"}));
        // Without a list in the game folder the program's own copy is used.
        QFile::remove(cli.path("special.lst"));
        QCOMPARE(cli.decode("message", "Hail", "Hi*ZAP9*SFA")["codes"], QJsonArray({"*SFA"}));
    }

    void composeWritesTheStoredLineAndDecodeThenComposeKeepsIt() {
        MessageCli cli;
        QCOMPARE(cli.compose("response", "Hail", R"({"text":"Caf\u00e9"})").out,
                 QByteArray("Caf\xE9\n"));
        QCOMPARE(cli.compose("response", "Hail", R"({"text":"Home","answerGroup":"INIT"})").out,
                 QByteArray("Home*M\n"));
        const QList<std::tuple<QString, QString, QByteArray>> lines = {
            {"message", "INIT", "%W2%05$BOX$Welcome, %RK.*RTrade*SFB"},
            {"message", "Hail", "%F3%W9%00$Captain's Log$Day one ^EN^PT*RTrade*DS3*D!S0*+ENM500"},
            {"message", "Beam", "You land in a crater.*RS3*R!S4*FALL*TREATY*-TI2*SP3"},
            {"response", "Area11", "%f7Go south*MArea12"},
        };
        for (const auto& [direction, group, stored] : lines) {
            const QByteArray decoded = QJsonDocument(cli.decode(direction, group, stored)).toJson();
            const CliResult back = cli.compose(direction, group, decoded);
            QCOMPARE(back.err, QByteArray());
            QCOMPARE(back.out, stored + "\n");
        }

        // Decoding lists prefix codes in stored order and composing puts each in front of the
        // line, so they come back turned round; a second round restores them.
        QByteArray line = "%FA%fBHello*RNone";
        for (const char* expected : {"%fB%FAHello*RNone", "%FA%fBHello*RNone"}) {
            const QJsonObject decoded = cli.decode("message", "Hail", line);
            QCOMPARE(decoded["codes"].toArray().first().toString(),
                     QString::fromLatin1(line.left(3)));
            line = cli.compose("message", "Hail", QJsonDocument(decoded).toJson()).out.trimmed();
            QCOMPARE(line, QByteArray(expected));
        }
    }

    void composeRefusesWhatDecodeHadToDrop() {
        MessageCli cli;
        const QJsonObject decoded = cli.decode("message", "Hail", "%ZZHello*QQ5*SFA");
        QCOMPARE(decoded["dropped"], QJsonArray({"%ZZ", "*QQ5"}));
        const CliResult back = cli.compose("message", "Hail", QJsonDocument(decoded).toJson());
        QCOMPARE(back.exitCode, 1);
        QCOMPARE(back.out, QByteArray());
        QCOMPARE(back.err, QByteArray("orrerion-cli: The line held codes that are not in the "
                                      "special-code list: '%ZZ', '*QQ5'. Composing it would "
                                      "lose them.\n"));
        QVERIFY(cli.compose("message", "Hail", R"({"text":"Hi","dropped":"%ZZ"})")
                    .err.contains("'dropped' must be a list of texts"));
        // An empty list is nothing lost.
        QCOMPARE(cli.compose("message", "Hail", R"({"text":"Hi","dropped":[]})").out,
                 QByteArray("Hi\n"));
    }

    void badInputIsRefusedClearly() {
        MessageCli cli;
        QCOMPARE(cli.fails({"groups", "Orion", "3"}),
                 QString("There is no planet 3 in 'Orion': it has 2 planets."));
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
        // What the editor refuses to attach, and codes whose argument nobody gave.
        QCOMPARE(refused(R"({"codes":["%GN","%FA","%GS"]})"),
                 QString("orrerion-cli: You cannot have more than one direction marker."));
        QCOMPARE(refused(R"({"codes":["%10","%10"]})"),
                 QString("orrerion-cli: You cannot have more than one of the same restriction."));
        QCOMPARE(refused(R"({"codes":["*D"]})"),
                 QString("orrerion-cli: '*D' needs its argument written after it, as in '*DS0'."));
        QCOMPARE(refused(R"({"codes":["*SF"]})"),
                 QString("orrerion-cli: '*SF' needs its argument written after it, as in '*SFA'."));
        QCOMPARE(
            cli.compose("message", "Hail", R"({"text":"Hi","codes":["%FA","%FB","*DS2"]})").out,
            QByteArray("%FB%FAHi*DS2\n"));
        QVERIFY(refused(R"({"wait":10})").contains("'wait' must be a whole number from 0 to 9"));
        QVERIFY(refused(R"({"text":"2*3"})").contains("cannot hold '*' or '^'"));
        QVERIFY(refused(R"({"text":"\u2603"})").contains("Windows-1252"));
        QVERIFY(refused(R"({"text":"%NM, hello"})").contains("read as codes"));
    }
};

QTEST_GUILESS_MAIN(MessageCommandsTest)
#include "MessageCommandsTest.moc"
