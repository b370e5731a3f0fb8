// The system store on a generated descriptor of about 600 KB (ten planets, each with a 10 x 10
// room grid): opening a system, reading its planet keys and the edits that rewrite the file.
//
// Counters: target_ms is the time the operation may not exceed (see scripts/run-bench.sh).

#include <benchmark/benchmark.h>

#include <random>

#include "DescriptorGenerator.h"
#include "store/FileIo.h"
#include "store/SystemOperations.h"
#include "store/SystemStore.h"

namespace orr::bench {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSystem = "Benchmark";

// A game folder of its own holding the generated descriptor as a saved system.
class BenchGameFolder {
  public:
    BenchGameFolder() : descriptor_(generateDescriptor()) {
        std::random_device random;
        root_ = fs::temp_directory_path() / ("orrerion-system-bench-" + std::to_string(random()));
        fs::create_directories(root_ / "ORBDescriptor");
        fs::create_directories(root_ / "PICTURES");
        writeFileAtomically(root_ / "voidrunner.exe", "stand-in");
        writeFileAtomically(root_ / "SOLARSYS.TXT", "\"Sol\",0,1\r\n400,2,0,0,1,0\r\n");
        reset();
    }
    ~BenchGameFolder() {
        std::error_code ec;
        fs::remove_all(root_, ec);
    }
    GameFolder folder() const { return GameFolder(root_); }
    std::size_t size() const { return descriptor_.size(); }
    void reset() const {
        writeFileAtomically(root_ / "ORBDescriptor" / (std::string(kSystem) + ".orb"), descriptor_);
        std::error_code ec;
        fs::remove(root_ / "ORBDescriptor" / (std::string(kSystem) + ".edt"), ec);
    }

  private:
    std::string descriptor_;
    fs::path root_;
};

// A store with the system open in its working copy, as the editor holds it.
void openSystem(SystemStore& store, benchmark::State& state) {
    store.record().Name = kSystem;
    if (!store.BeginEdit({})) state.SkipWithError(store.lastError().c_str());
    const LoadResult loaded = store.LoadSystem(kSystem);
    if (!loaded.blockFound || store.record().PlanetCount != 10) {
        state.SkipWithError("the generated descriptor has no readable 10-planet block");
    }
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
    state.SetLabel(std::to_string(game.size() / 1024) + " KB read and parsed, block read");
}

void LoadSystemCached(benchmark::State& state) {
    BenchGameFolder game;
    SystemStore store(game.folder());
    openSystem(store, state);
    for (auto _ : state) benchmark::DoNotOptimize(store.LoadSystem(kSystem));
    state.counters["target_ms"] = 2;
    state.SetLabel("the open system loaded again from the cached working copy");
}

void PlanetKeys1000(benchmark::State& state) {
    BenchGameFolder game;
    SystemStore store(game.folder());
    openSystem(store, state);
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i) {
            benchmark::DoNotOptimize(store.GetPlanetKey(1 + i % 10, "MessageArea05051", true));
        }
    }
    state.counters["target_ms"] = 20;
    state.SetLabel("1,000 GetPlanetKey reads with the messages flag check");
}

void SaveSystemBlock(benchmark::State& state) {
    BenchGameFolder game;
    SystemStore store(game.folder());
    openSystem(store, state);
    std::int16_t moons = 0;
    for (auto _ : state) {
        store.record().planet(5).Moons = moons++ % 25;
        if (!store.SaveSystemBlock()) {
            state.SkipWithError(store.lastError().c_str());
            break;
        }
    }
    state.counters["target_ms"] = 20;
    state.SetLabel("the block rewritten, the whole working copy written atomically");
}

void DeleteAndInsertPlanet(benchmark::State& state) {
    BenchGameFolder game;
    SystemStore store(game.folder());
    openSystem(store, state);
    for (auto _ : state) {
        // Planet 1 to the end and back: nine exchanges each way, one write each.
        if (!deletePlanet(store, 1) || insertPlanet(store, 1) != AddPlanetResult::Added) {
            state.SkipWithError(store.lastError().c_str());
            break;
        }
    }
    state.counters["target_ms"] = 60;
    state.SetLabel("delete planet 1 of 10 and insert one before planet 1");
}

BENCHMARK(LoadSystemCold)->Name("LoadSystem/Cold")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSystemCached)
    ->Name("LoadSystem/Cached")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PlanetKeys1000)->Name("GetPlanetKey1000")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SaveSystemBlock)->Name("SaveSystemBlock")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteAndInsertPlanet)
    ->Name("DeleteInsertPlanet")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orr::bench
