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

// Orion: two planets; planet 2 has a message list and a count without its line. (The program's
// own SPECIAL.LST serves; the game folder has none.)
class MessageCli : public CliFixture {
  public:
    MessageCli() {
        folder().writeDescriptor(
            orr::test::TempGameFolder::systemRecord("Orion", 2),
            orr::test::crlf({"[2]", "MessagesTrade=1",
                             "MessageTrade1=Caf\xE9 for sale*RDeal*+EN500", "MessagesHail=1"}));
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

  private:
    MessageCli cli;

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init() { cli = MessageCli(); }

    void groupsAndLinesAsStored() {
        const auto before = cli.snapshot();
        QCOMPARE(cli.ok({"groups", "orion", "1"}),
                 QByteArray("INIT\tmessages\nBack\tmessages\nReturned\tmessages\n"
                            "Beam\tmessages\nPhaser\tmessages\nHail\tresponses\n"));
        QCOMPARE(cli.ok({"lines", "Orion", "2", "Trade", "message"}),
                 QByteArray("Caf\xE9 for sale*RDeal*+EN500\n"));
        // A missing line keeps its place as an empty line, with a note beside the output.
        const CliResult missing = cli.run({"lines", "Orion", "2", "Hail", "message"});
        QCOMPARE(missing.exitCode, 0);
        QCOMPARE(missing.out, QByteArray("\n"));
        QCOMPARE(missing.err, QByteArray("orrerion-cli: note: MessageHail1 is missing\n"));
        QVERIFY(cli.snapshot() == before);
    }

    void decodeShowsTheEditorsViewWithTheGameFoldersList() {
        QCOMPARE(cli.decode("response", "Hail", "%fC%GNOpen^EN*RS3*R!S4"),
                 json(R"({"wait": 0, "percent": 10, "display": "standard", "text": "Open",
                          "answerGroup": "Hail",
                          "codes": ["%fC", "%GN", "*RS3", "*R!S4", "^EN"]})"));
        QCOMPARE(cli.decode("message", "Hail", "%W2%05$Log$Caf\xe9*RTrade"),
                 json(R"({"wait": 2, "percent": 5, "display": "Log", "text": "Caf\u00e9",
                          "answerGroup": "Trade", "codes": [], "storedTags": ["*RTrade"]})"));
        // The game folder's special-code list comes first.
        cli.write("special.lst", crlf({"Mine", "*ZAP - Zaps (1) times"}));
        QCOMPARE(cli.decode("message", "Hail", "Hi*ZAP9")["codes"], QJsonArray({"*ZAP9"}));
        // Without a list in the game folder the program's own copy is used.
        QFile::remove(cli.path("special.lst"));
        QCOMPARE(cli.decode("message", "Hail", "Hi*SFA")["codes"], QJsonArray({"*SFA"}));
    }

    // A line read and written back is the stored line, or decode names, in the editor's words,
    // what its Save would ask about, and compose refuses with the same sentences. (Which lines
    // are warned about is LineRoundTripTest's table; the sentences are MessageEditRulesTest's.)
    void decodeThenComposeGivesTheLineOrRefusesAsTheEditorAsks() {
        const std::pair<QByteArray, QByteArray> lines[] = {
            // the stored line, the warning
            {"%F3%W9%00$Captain's Log$Day one ^EN^PT*RTrade*DS3*+ENM500", ""},
            {"%ZZHello*QQ5*SFA",
             "These codes stored in the line are not in the special-code list and will be "
             "dropped: %ZZ, *QQ5."},
            {"Go on*MS1",
             "A message cannot lead to the group \"S1\": the game reads \"*RS1\" as a "
             "ship-system condition."},
        };
        for (const auto& [stored, warning] : lines) {
            const CliResult decoded =
                cli.run({"decode", "message", "Hail", QString::fromLatin1(stored)});
            QCOMPARE(decoded.exitCode, 0);
            const CliResult back = cli.compose("message", "Hail", decoded.out);
            if (warning.isEmpty()) {
                QCOMPARE(decoded.err + back.err, QByteArray());
                QCOMPARE(back.out, stored + "\n");
                continue;
            }
            QVERIFY2(decoded.err.contains(warning), decoded.err.constData());
            QCOMPARE(back.exitCode, 1);
            QCOMPARE(back.out, QByteArray());
            // The warnings, one line each, are the refusal's sentences.
            QByteArray sentences = decoded.err;
            sentences.replace("orrerion-cli: warning: ", "").replace("\n", " ");
            QCOMPARE(back.err, "orrerion-cli: " + sentences.trimmed() + "\n");
        }
    }

    void badArgumentsAreRefused() {
        QCOMPARE(cli.fails({"groups", "Orion", "3"}),
                 QString("There is no planet 3 in 'Orion': it has 2 planets."));
        QCOMPARE(cli.fails({"lines", "Orion", "2", "Hail", "messages"}),
                 QString("The list must be 'message' or 'response', not 'messages'."));
        // Group names follow the editor's rule: "*" is refused, brackets are not.
        QCOMPARE(cli.fails({"decode", "message", "Ha*il", "Hi"}),
                 QString("A group name cannot contain \"*\" or \"=\"."));
        QCOMPARE(cli.decode("message", "[Hail]", "Hi")["answerGroup"], QJsonValue("[Hail]"));
    }

    void composeWritesTheEditorsLineOrRefusesBadInput() {
        QCOMPARE(cli.compose("response", "Hail", R"({"text":"Home","answerGroup":"INIT"})").out,
                 QByteArray("Home*M\n"));
        // An empty list of dropped codes is nothing lost.
        QCOMPARE(cli.compose("message", "Hail", R"({"text":"Hi","dropped":[]})").out,
                 QByteArray("Hi\n"));
        const std::pair<QByteArray, QByteArray> refused[] = {
            // the input, the reason
            {"{\"text\":", "not valid JSON"},
            {R"({"text":"Hi","dropped":"%ZZ"})", "'dropped' must be a list of texts"},
            {R"({"codes":["*QQQ"]})", "'*QQQ' is not in the special-code list"},
            {R"({"codes":["*RTrade"]})", "answer tag"},
            {R"({"codes":["%10","%10"]})",
             "You cannot have more than one of the same restriction."},
            {R"({"codes":["*D"]})", "'*D' needs its argument written after it, as in '*DS0'."},
            {R"({"wait":10})", "'wait' must be a whole number from 0 to 9"},
            {R"({"text":"\u2603"})", "'text': The game cannot store these characters: \u2603"},
        };
        for (const auto& [input, reason] : refused) {
            const CliResult result = cli.compose("message", "Hail", input);
            QCOMPARE(result.exitCode, 1);
            QCOMPARE(result.out, QByteArray());
            QVERIFY2(result.err.startsWith("orrerion-cli: ") && result.err.contains(reason),
                     result.err.constData());
        }
    }
};

QTEST_GUILESS_MAIN(MessageCommandsTest)
#include "MessageCommandsTest.moc"
