// The edit session on a generated descriptor of about 600 KB (ten planets, each with a 10 x 10
// room grid): opening a system, reading its planet keys as a window's refresh does, scanning a
// planet's groups, the commands that rewrite the file, undo and redo, the adventure grid wizard
// and showing a room.
//
// Counters: target_ms is the time the operation may not exceed (see scripts/run-bench.sh).

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

#include "DescriptorGenerator.h"
#include "messages/MessageGroups.h"
#include "messages/PlanetMessageStore.h"
#include "session/EditSession.h"
#include "session/PlanetEdits.h"
#include "session/RoomEdits.h"
#include "session/SystemEdits.h"
#include "store/FileIo.h"

namespace orr::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSystem = "Benchmark";

// A game folder of its own holding the generated descriptor as a saved system.
class BenchGameFolder {
  public:
    // `gridless`: a planet whose section holds no grid yet.
    explicit BenchGameFolder(int gridless = 0)
        : descriptor_(generateDescriptor(10, 10, 10, gridless)) {
        std::random_device random;
        root_ = fs::temp_directory_path() / ("orrerion-system-bench-" + std::to_string(random()));
        fs::create_directories(root_ / "ORBDescriptor");
        fs::create_directories(root_ / "PICTURES");
        writeFileAtomically(root_ / "voidrunner.exe", "stand-in");
        writeFileAtomically(root_ / "SOLARSYS.TXT", "\"Sol\",0,1\r\n400,2,0,0,1,0\r\n");
        writeFileAtomically(root_ / "ORBDescriptor" / (std::string(kSystem) + ".orb"), descriptor_);
    }
    ~BenchGameFolder() {
        std::error_code ec;
        fs::remove_all(root_, ec);
    }
    GameFolder folder() const { return GameFolder(root_); }
    std::string sizeText() const { return std::to_string(descriptor_.size() / 1024) + " KB"; }

  private:
    std::string descriptor_;
    fs::path root_;
};

// The session with the system open in its working copy, as the editor holds it.
bool openSystem(EditSession& session, benchmark::State& state) {
    LoadResult loaded;
    if (!session.open(
            kSystem, [] { return false; }, &loaded) ||
        !loaded.blockFound || session.record().PlanetCount != 10) {
        state.SkipWithError("the generated descriptor does not open as a 10-planet system");
        return false;
    }
    return true;
}

void LoadSystemCold(benchmark::State& state) {
    BenchGameFolder game;
    for (auto _ : state) {
        SystemStore store(game.folder());
        store.record().Name = kSystem;
        benchmark::DoNotOptimize(store.LoadSystem(kSystem));
        if (store.record().PlanetCount != 10) {
            state.SkipWithError("the generated descriptor has no readable 10-planet block");
            break;
        }
    }
    state.counters["target_ms"] = 30;
    state.SetLabel(game.sizeText() + " read and parsed, block read");
}

void GetPlanetKey(benchmark::State& state) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    session.recheck();  // a refresh looks at the file once; its reads trust the cache
    int i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(session.store().GetPlanetKey(1 + i++ % 10, "MessageArea05051"));
    state.counters["target_ms"] = 0.002;
    state.SetLabel("one read of a planet key, messages switch checked, within a refresh");
}

void GroupScan(benchmark::State& state) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    std::size_t groups = 0;
    for (auto _ : state) {
        session.recheck();
        PlanetMessageStore planet(session.store(), 5);
        MessageGroups scan;
        groups = scan.LoadGroupLists(planet).messageGroups.size();
    }
    if (groups < 100) state.SkipWithError("the scan did not reach the grid's rooms");
    state.counters["target_ms"] = 5;
    state.SetLabel("every group of a planet holding a 10 x 10 room grid (about 1,400 keys)");
}

void KeyWrite(benchmark::State& state) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    int i = 0;
    for (auto _ : state) {
        if (!writeKey(session, "5", "Info", "Visit " + std::to_string(i++))) {
            state.SkipWithError(session.lastError().c_str());
            break;
        }
    }
    state.counters["target_ms"] = 2;
    state.SetLabel("one key written as a command: working copy, history step and notice");
}

// Undo (or redo) of a key write: the step is made (or undone) outside the timing.
void UndoRedo(benchmark::State& state, bool redo) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    int i = 0;
    for (auto _ : state) {
        state.PauseTiming();
        bool ok = writeKey(session, "5", "Info", "Visit " + std::to_string(i++));
        if (redo) ok = ok && session.undo();
        state.ResumeTiming();
        if (!ok || !(redo ? session.redo() : session.undo())) {
            state.SkipWithError(session.lastError().c_str());
            break;
        }
    }
    state.counters["target_ms"] = 3;
    state.SetLabel(std::string(redo ? "redo" : "undo") + " of a key write on " + game.sizeText());
}

void Undo(benchmark::State& state) {
    UndoRedo(state, false);
}

void Redo(benchmark::State& state) {
    UndoRedo(state, true);
}

void Drag60(benchmark::State& state) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    int drag = 0;
    for (auto _ : state) {
        const std::size_t steps = session.history().size();
        ++drag;
        for (int move = 0; move < 60; ++move) {
            // Planet 5 swings in and out between its neighbours' orbits.
            const int inner = session.record().planet(4).Position;
            const int outer = session.record().planet(6).Position;
            const int position = inner + 1 + (move * 7) % std::max(1, outer - inner - 2);
            if (!movePlanet(session, 5, position, drag)) {
                state.SkipWithError(session.lastError().c_str());
                return;
            }
        }
        if (session.history().size() != steps + 1) {
            state.SkipWithError("the drag's moves were not one step of the history");
            return;
        }
    }
    state.counters["target_ms"] = 150;
    state.SetLabel("a drag's 60 orbit moves, each written at once, as one history step");
}

void DeleteAndInsertPlanet(benchmark::State& state) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    for (auto _ : state) {
        // Planet 1 to the end and back: nine exchanges each way, one write each command.
        if (!deletePlanet(session, 1) || insertPlanet(session, 1) != AddPlanetResult::Added) {
            state.SkipWithError(session.lastError().c_str());
            break;
        }
    }
    state.counters["target_ms"] = 60;
    state.SetLabel("delete planet 1 of 10 and insert one before planet 1, two commands");
}

// The wizard's Finish for a 10 x 10 grid on planet 5, which has none yet: about 1,400 new keys
// and the custom-messages switch, one command and one write of the working copy. The grid is
// undone between runs, outside the timing.
void Wizard10x10(benchmark::State& state) {
    BenchGameFolder game(5);
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    injectFileFailure(0);
    if (!writeKey(session, "5", "Info", "Charted")) return state.SkipWithError("no key written");
    const int oneWrite = fileOperationsSince();
    for (auto _ : state) {
        state.PauseTiming();
        const bool undone = session.history().size() < 2 || session.undo();
        injectFileFailure(0);
        state.ResumeTiming();
        if (!undone || !finishGridWizard(session, 5, {10, 10})) {
            state.SkipWithError(session.lastError().c_str());
            break;
        }
        if (fileOperationsSince() != oneWrite) {
            state.SkipWithError("the grid was not one write of the working copy");
            break;
        }
    }
    state.counters["target_ms"] = 50;
    state.SetLabel("10 x 10 grid (1,364 keys) on a planet of " + game.sizeText() +
                   ", one command, one write");
}

// The room editor's read of one area of a 10 x 10 grid within a refresh: the description, the
// seven standard actions with their default lines and requirements, and the doors' rooms.
void LoadRoom10x10(benchmark::State& state) {
    BenchGameFolder game;
    EditSession session(game.folder());
    if (!openSystem(session, state)) return;
    std::size_t doors = 0;
    for (auto _ : state) {
        session.recheck();
        const std::optional<RoomView> view = viewRoom(session, {5, "Area0505"});
        doors = view ? static_cast<std::size_t>(std::count_if(
                           view->standard.begin(), view->standard.begin() + kDirectionCount,
                           [](const ActionBinding& b) { return b.state == kDefault; }))
                     : 0;
    }
    if (doors != 4) state.SkipWithError("Area0505 did not show its four doors");
    state.counters["target_ms"] = 2;
    state.SetLabel("one area of a 10 x 10 grid as the room editor shows it");
}

BENCHMARK(LoadSystemCold)->Name("LoadSystem/Cold")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(GetPlanetKey)->Name("GetPlanetKey")->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(GroupScan)->Name("GroupScan/Grid10x10")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(KeyWrite)->Name("Command/KeyWrite")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Undo)->Name("Undo/KeyWrite")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Redo)->Name("Redo/KeyWrite")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Drag60)->Name("Drag/60Moves")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Wizard10x10)->Name("Wizard/Grid10x10")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadRoom10x10)->Name("LoadRoom/Grid10x10")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteAndInsertPlanet)
    ->Name("DeleteInsertPlanet")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orr::bench
