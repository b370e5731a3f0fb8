// The test mode on a planet with one group of 255 timed messages, each behind conditions on the
// ship, the planet's flags and chance (about a third of them can be chosen at a time), read
// through GetPlanetKey from the open system's working copy: choosing a message of the group
// (SelectMessage) and a whole step of the console's message timer that chooses and shows one.
//
// Counters: target_ms is the time the operation may not exceed (see scripts/run-bench.sh).

#include <benchmark/benchmark.h>

#include <random>

#include "session/EditSession.h"
#include "store/FileIo.h"
#include "testmode/PlanetUnderTest.h"
#include "testmode/ShipConsole.h"

namespace orr::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kMessages = 255;

// The descriptor: one talking planet whose INIT group holds the 255 messages.
std::string talkingPlanet() {
    SystemRecord record;
    record.Name = "Chatter";
    record.setDisplayName("Chatter");
    record.PlanetCount = 1;
    record.planet(1) = PlanetRecord{400, 3, 1, PlanetAttributes{2, 1, 2, 1, 4}.pack(), 10, 0, 0};
    std::string text = "[General]\r\nPlanetPics=Y\r\nMessages=Y\r\n\r\n" + systemBlockText(record);
    text += "[1]\r\nMessages=" + std::to_string(kMessages) + "\r\n";
    const char* conditions[] = {"%31", "%38%55", "%05", "%F1%51", "%10%24", "%fB"};
    for (int i = 1; i <= kMessages; ++i) {
        text += "Message" + std::to_string(i) + "=" + conditions[i % 6] +
                "$Harbour$Welcome to Halcyon, %RK. The %AN council greets %NM.*RHail*+EN" +
                std::to_string(i) + (i % 4 == 0 ? "*RS3" : "") + "^SH\r\n";
    }
    return text;
}

class Silent : public TestEvents {
  public:
    void messageShown(const MessagePanel&) override {}
    void messageHidden() override {}
    void boxShown(const std::string&) override {}
    bool questionAsked(const std::string&, bool) override { return true; }
    int responseChosen(const std::vector<OfferedResponse>&) override { return 0; }
    float numberChosen(const NumberRequest& request) override { return request.min - 1; }
    void buttonsChanged(const ConsoleButtons&) override {}
    void orbitChanged(const std::string&) override {}
    void messageTimerChanged(bool) override {}
    void consoleClosed() override {}
};

// A game folder with the system open in an edit session, and a console orbiting its planet.
class TalkingPlanet {
  public:
    TalkingPlanet() {
        std::random_device random;
        root_ = fs::temp_directory_path() / ("orrerion-testmode-bench-" + std::to_string(random()));
        fs::create_directories(root_ / "ORBDescriptor");
        fs::create_directories(root_ / "PICTURES");
        writeFileAtomically(root_ / "voidrunner.exe", "stand-in");
        writeFileAtomically(root_ / "ORBDescriptor" / "Chatter.orb", talkingPlanet());
        session_ = std::make_unique<EditSession>(GameFolder(root_));
        ok_ = session_->open("Chatter", [] { return false; });
        ship_.ShipEnergyMax = 5000;
        ship_.UpgradeLevel = {0, 1, 2, 1, 1, 1};
        planet_ = PlanetUnderTest(session_->store(), 1);
        SetFlag(planet_.record, 0, true);
        console_ = std::make_unique<ShipConsole>(ship_, planet_, random_, events_);
        console_->open({std::nullopt, 1});
    }
    ~TalkingPlanet() {
        console_.reset();
        session_.reset();
        std::error_code ec;
        fs::remove_all(root_, ec);
    }
    bool ok() const { return ok_ && console_->state().messageTimer; }
    EditSession& session() { return *session_; }
    ShipConsole& console() { return *console_; }

  private:
    fs::path root_;
    std::unique_ptr<EditSession> session_;
    bool ok_ = false;
    ShipState ship_;
    TestPlanet planet_;
    SeededRandom random_;
    Silent events_;
    std::unique_ptr<ShipConsole> console_;
};

void SelectMessage(benchmark::State& state) {
    TalkingPlanet planet;
    if (!planet.ok()) {
        state.SkipWithError("the talking planet does not open");
        return;
    }
    for (auto _ : state) {
        planet.session().recheck();  // the file looked at once, as every tick may
        benchmark::DoNotOptimize(
            planet.console().interpreter().SelectMessage("Message", kMessages));
    }
    state.counters["target_ms"] = 1;
    state.SetLabel(std::to_string(kMessages) + " messages with conditions");
}

void ConsoleTick(benchmark::State& state) {
    TalkingPlanet planet;
    if (!planet.ok()) {
        state.SkipWithError("the talking planet does not open");
        return;
    }
    ConsoleState& console = planet.console().state();
    for (auto _ : state) {
        // The timer as a response leaves it: nothing chosen yet, running.
        console.PendingMessage = 0;
        console.messageTimer = true;
        console.MessageLevel.clear();
        planet.session().recheck();
        planet.console().tick();
    }
    state.counters["target_ms"] = 1;
    state.SetLabel("chooses and shows one of " + std::to_string(kMessages) + " messages");
}

BENCHMARK(SelectMessage)
    ->Name("TestMode/SelectMessage")
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(ConsoleTick)->Name("TestMode/ConsoleTick")->UseRealTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orr::bench
