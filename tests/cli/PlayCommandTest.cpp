// orrerion-cli play: the JSON events of a scripted play, the options that prepare it, the state
// file that carries the ship between runs, bad descriptors that still play, and wrong arguments.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include "cli/support/CliFixture.h"

using orr::clitest::CliFixture;
using orr::clitest::CliResult;
using orr::clitest::crlf;

namespace {

// Orion: planet 2 talks (class 10, animal life, warp, fossil fuels, the Trevani; size 3).
QByteArray orion(const QByteArray& planet2) {
    return crlf({"[General]", "PlanetPics=NN", "Messages=NY", "", ";SolarSystem",
                 ";\"Orion               \",0,2", ";400,2,0,0,1,0", ";430,3,1,35073,10,0", "[2]"}) +
           planet2;
}

const QByteArray kTalk =
    crlf({"Messages=1", "Message1=$Harbour$Welcome, %RK.*RHail", "ResponsesHail=2",
          "ResponseHail1=%00Hidden", "ResponseHail2=Trade?*MTrade*SFA", "MessagesTrade=1",
          "MessageTrade1=$BOX$Deal.*+ENM2000*+EN500"});

class PlayCli : public CliFixture {
  public:
    explicit PlayCli(const QByteArray& planet2 = kTalk) {
        freshFolder();
        write("ORBDescriptor/Orion.orb", orion(planet2));
        write("aliens.txt", crlf({"Trevani"}));
    }
    CliResult play(const QStringList& options, const QByteArray& commands) {
        return run(QStringList{"play", "Orion", "2"} + options, true, QString(), commands);
    }
};

QJsonObject lastState(const QByteArray& out) {
    QJsonObject state;
    for (const QByteArray& line : out.split('\n')) {
        const QJsonObject event = QJsonDocument::fromJson(line).object();
        if (event["event"] == "state") state = event;
    }
    return state;
}

}  // namespace

class PlayCommandTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void aScriptedPlayShowsWhatTheGameWouldAndChangesNoFile() {
        PlayCli f;
        const auto before = f.snapshot();
        const CliResult r = f.play({"--seed", "7"},
                                   "tick\nrespond 1\n\ntick 3\nenergy 2\nphaser no\n"
                                   "state\nphoton\nbogus\nexit\ntick\n");
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.err, QByteArray("orrerion-cli: unknown command bogus.\n"));
        QList<QByteArray> lines = r.out.split('\n');
        QCOMPARE(lines.takeAt(6).left(17), QByteArray("{\"event\":\"state\","));
        const QList<QByteArray> shown = {
            "{\"event\":\"box\",\"text\":\"This is a habitable planet, Captain.\\nI will enter it "
            "in our database.\"}",
            "{\"event\":\"message\",\"title\":\"Harbour\",\"text\":\"Welcome, Captain.\"}",
            "{\"event\":\"responses\",\"items\":[\"Trade?\"]}",
            "{\"event\":\"box\",\"text\":\"Deal.\"}",
            "{\"event\":\"number\",\"prompt\":\"How long do you want to stay?\\n.25 days per 100 "
            "units of energy.\\nYou have 500 total units of "
            "energy.\",\"unit\":\"days\",\"min\":0,\"max\":3.76,\"value\":1}",
            "{\"event\":\"question\",\"text\":\"Are you sure you wish to fire phasers this "
            "planet?\",\"answer\":\"no\"}",
            "{\"event\":\"box\",\"text\":\"You don't have enough Class 1 torpedos to destroy this "
            "planet.\"}",
            "{\"event\":\"closed\"}",
            ""};
        QCOMPARE(lines, shown);
        const QJsonObject state = lastState(r.out);
        QCOMPARE(state["messageLevel"].toString(), QStringLiteral("Trade"));
        QCOMPARE(state["responseLevel"].toString(), QStringLiteral("Hail"));
        QCOMPARE(state["energy"].toInt(), 1300);  // 500 + 2 days / .25 x 100
        QCOMPARE(state["flags"].toArray(), QJsonArray{0});
        QCOMPARE(state["upgrades"].toObject()["EN"].toInt(), 1);
        QCOMPARE(state["enabled"].toObject()["photon"].toBool(), true);
        QCOMPARE(state["planet"].toObject()["attributes"].toInt(), 35073);
        QCOMPARE(f.snapshot(), before);
    }

    void optionsPrepareThePlanetAndTheStateFileCarriesTheShip() {
        PlayCli f;
        const QString state = f.path("ship.json");
        const QStringList options = {"--flags", "A1",   "--treaty", "--last-visit", "150",
                                     "--level", "INIT", "--badguy", "--state",      state};
        QCOMPARE(f.play(options,
                        "set energyMax 3000\nset energy 2500\nset damage.3 4.5\n"
                        "upgrade EN\nstate\n")
                     .exitCode,
                 0);
        const QJsonObject first = lastState(f.play(options, "state\nphoton no\nleave\n").out);
        QCOMPARE(first["flags"].toArray(), (QJsonArray{0, 7, 28}));
        QCOMPARE(first["messageLevel"].toString(), QString());
        QCOMPARE(first["planet"].toObject()["lastVisit"].toInt(), 150);
        QCOMPARE(first["energy"].toInt(), 2500);
        QCOMPARE(first["damage"].toArray()[3].toDouble(), 4.5);
        QCOMPARE(first["upgrades"].toObject()["EN"].toInt(), 1);  // reset by every test
        QVERIFY(f.read("ship.json").startsWith("{\"energy\":2500,"));
    }

    void badDescriptorsStillPlay() {
        PlayCli f(
            crlf({"Messages=x", "MessagesIgnore=3", "MessageIgnore1=$No partner*H99999*+PT-9E9",
                  "ResponsesHail=40", "ResponseHail1=%0", "BeamMessages=2",
                  "Beam1=*F!S0*D!S99*SP-1*UNKNOWN*-", "Beam2=%00"}) +
            "ResponseHail2=" + QByteArray(100000, '*') + "\r\n");
        const CliResult r = f.play({"--seed", "1"},
                                   "ignore\ntick 5\nhail 1\nbeam\nignore\n"
                                   "set energy x\ntick\nrespond\nstate\n");
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.err.count('\n'), 2);  // Ignore with no message shown; the energy value
        for (const char* event :
             {"{\"event\":\"responses\",\"items\":[\"\",\"\"]}",
              "{\"event\":\"box\",\"text\":\"There is a syntax error in the message file: -\"}",
              "{\"event\":\"message\",\"title\":\"Message from Planet:\",\"text\":\"No partner\"}",
              "{\"event\":\"box\",\"text\":\"Your shields have been hit with 32767units.\"}",
              "{\"event\":\"box\",\"text\":\"No responses allowed\"}"})
            QVERIFY2(r.out.contains(event), event);
        QCOMPARE(lastState(r.out)["shields"].toInt(), -32767);
    }

    void wrongArgumentsAreRefused() {
        PlayCli f;
        for (const QStringList& args :
             std::vector<QStringList>{{"play", "Orion", "3"},
                                      {"play", "Orion", "2", "--seed", "x"},
                                      {"play", "Orion", "2", "--fast"},
                                      {"play", "Orion", "2", "--flags", "a"},
                                      {"play", "Nowhere", "1"},
                                      {"play", "Orion"}})
            QVERIFY2(!f.fails(args).isEmpty(), qPrintable(args.join(' ')));
    }
};

QTEST_MAIN(PlayCommandTest)
#include "PlayCommandTest.moc"
