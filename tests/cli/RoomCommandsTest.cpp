// orrerion-cli's room commands on a copy of the demo game folder: a room as the room editor
// shows it, the wizard, each change as the editor makes it, and refusals that change nothing.

#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;

namespace {

QJsonObject room(const CliFixture& cli, const QString& planet, const QString& name) {
    return QJsonDocument::fromJson(cli.ok({"room", "Kestrel", planet, name})).object();
}

}  // namespace

class RoomCommandsTest : public QObject {
    Q_OBJECT

  private:
    CliFixture cli;

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init() { cli.demoCopy(); }

    void aRoomAsTheEditorShowsIt() {
        const char* expected = R"({
            "room": "Area22",
            "description": {"number": 1, "text": "A sealed vault door stands half buried in the sand.", "codes": ""},
            "leadsTo": [],
            "neighbours": ["Area21", "Area32", "Area23", "Area12"],
            "standard": [
                {"state": 1, "number": 1, "line": "Go North and report back.*MArea21", "destination": "Area21"},
                {"state": 0, "number": 0, "line": "Go East and report back.*MArea32", "destination": "Area32"},
                {"state": 0, "number": 0, "line": "Go South and report back.*MArea23", "destination": "Area23"},
                {"state": 1, "number": 2, "line": "Go West and report back.*MArea12", "destination": "Area12"},
                {"state": 1, "number": 3, "line": "Beam back up to the ship.*MBeamUp", "destination": "BeamUp"},
                {"state": 1, "number": 4, "line": "Search the area for anything unusual.*MArea22Search", "destination": "Area22Search"},
                {"state": 1, "number": 5, "line": "What are your current tricorder readings?*MArea22Tri", "destination": "Area22Tri"}],
            "listed": []})";
        QCOMPARE(room(cli, "3", "Area22"), QJsonDocument::fromJson(expected).object());
        const QJsonObject effect = room(cli, "3", "Area22Search");
        QVERIFY(effect["description"].isNull());
        QCOMPARE(effect["leadsTo"].toArray(), QJsonArray({"Area22", "Area22"}));
    }

    void eachChangeIsStoredAsTheEditorStoresIt() {
        cli.ok({"wizard", "Kestrel", "1", "2", "2", "--without", "search"});
        struct Step {
            QStringList args;
            const char* key;
            const char* stored;
        };
        const Step steps[] = {
            {{"tick", "Kestrel", "1", "Area11", "0", "Cellar"},
             "ResponseArea115",
             "%GNGo North and report back.*MCellar"},
            {{"set-action", "Kestrel", "1", "Area11", "5", "Climb", "Loft"},
             "ResponseArea115",
             "%GNClimb*MLoft"},
            {{"direction", "Kestrel", "1", "Area11", "5", "other"},
             "ResponseArea115",
             "%G-Climb*MLoft"},
            {{"describe", "Kestrel", "1", "Area11", "Ash."}, "MessageArea111", "Ash."},
            {{"add-action", "Kestrel", "1", "Area11", "Dig*MPit"}, "ResponseArea116", "Dig*MPit"},
            {{"effect", "Kestrel", "1", "Area11", "6", "You fall.", "Area12"},
             "MessagePit1",
             "You fall.*RArea12"},
            {{"lock", "Kestrel", "1", "Area11", "1", "B", "Jammed."},
             "MessageArea21Locked1",
             "Jammed.*RArea11"},
            {{"remove-action", "Kestrel", "1", "Area11", "6"},
             "ResponseArea116",
             "%fBGo East and report back.*MArea21Locked"},
            {{"untick", "Kestrel", "1", "Area11", "2"}, "ResponsesArea11", "5"},
            {{"requirement", "Kestrel", "1", "search", "clear", "7"}, "SearchFlag", "%f7"},
        };
        for (const Step& step : steps) {
            QCOMPARE(cli.ok(step.args), QByteArray());
            QCOMPARE(cli.ok({"get", "Kestrel", "1", step.key}), QByteArray(step.stored) + "\n");
        }
        QCOMPARE(cli.ok({"get", "Kestrel", "1", "MessagesArea11Search"}), QByteArray("Not Used\n"));
        QCOMPARE(cli.ok({"get", "Kestrel", "General", "Messages"}), QByteArray("YYYNNY\n"));
        QVERIFY(!cli.exists("ORBDescriptor/Kestrel.edt"));
    }

    // A refusal of each command, one line that changes nothing; which changes the core refuses
    // is RoomEditsTest's business.
    void refusalsChangeNothing() {
        const auto before = cli.snapshot();
        const std::pair<QStringList, const char*> refusals[] = {
            {{"tick", "Kestrel", "3", "Area11", "0"}, "please enter the destination room"},
            {{"room", "Kestrel", "3", "None"}, "never a room"},
            {{"add-action", "Kestrel", "3", "Hall=1", "x*M"}, "cannot contain"},
            {{"wizard", "Kestrel", "3", "3", "3", "--without", "up"}, "Unknown action"},
            {{"lock", "Kestrel", "3", "Area11", "1", "b", "x"}, "A flag is"},
            {{"direction", "Kestrel", "3", "Area11", "1", "up"}, "The direction is"},
            {{"requirement", "Kestrel", "3", "beamup", "set"}, "Give the flag"},
            {{"set-action", "Kestrel", "3", "Area11", "9", "x"}, "has no action 9"},
            {{"effect", "Kestrel", "3", "Area11", "3", "x", "S3"}, "ship-system condition"},
        };
        for (const auto& [args, reason] : refusals)
            QVERIFY2(cli.fails(args).contains(reason), qPrintable(args.join(' ')));
        cli.write("ORBDescriptor/Kestrel.edt", cli.read("ORBDescriptor/Kestrel.orb"));
        QVERIFY(cli.fails({"describe", "Kestrel", "3", "Area11", "x"}).contains("working copy"));
        QFile::remove(cli.path("ORBDescriptor/Kestrel.edt"));
        QCOMPARE(cli.snapshot(), before);
        // Sizes outside 2..10 become 2 and 10, and the tool says so.
        const auto clamped = cli.run({"wizard", "Kestrel", "1", "1", "99"});
        QCOMPARE(clamped.exitCode, 0);
        QVERIFY(clamped.err.contains("the width 1 became 2") &&
                clamped.err.contains("the height 99 became 10"));
        QCOMPARE(cli.ok({"get", "Kestrel", "1", "Beam1"}),
                 QByteArray("We beamed down to Area 1, 1*RArea101\n"));
    }
};

QTEST_MAIN(RoomCommandsTest)
#include "RoomCommandsTest.moc"
