// The profile store against the way the platform's profile functions work: those read, parse and
// rewrite the whole file for every single key, which is what "Naive" does here.
//
// Each benchmark sets counters that scripts/run-bench.sh turns into the targets of the report:
// target_ms (the time may not exceed it) and target_speedup (the "Store" variant must be that many
// times faster than the "Naive" one of the same operation).

#include <benchmark/benchmark.h>

#include <cctype>
#include <fstream>
#include <optional>
#include <random>
#include <sstream>

#include "DescriptorGenerator.h"
#include "store/FileIo.h"
#include "store/ProfileStore.h"

namespace orr::bench {
namespace {

namespace fs = std::filesystem;

// ---------------------------------------------------------------------------------------------
// The baseline: one whole-file read (and for writes one whole-file write) per key.
namespace naive {

std::string readFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::vector<std::string> splitLines(const std::string& bytes) {
    std::vector<std::string> lines;
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        std::size_t end = bytes.find('\n', pos);
        if (end == std::string::npos) end = bytes.size();
        std::size_t textEnd = end;
        if (textEnd > pos && bytes[textEnd - 1] == '\r') --textEnd;
        lines.push_back(bytes.substr(pos, textEnd - pos));
        pos = end + 1;
    }
    return lines;
}

std::string trimmed(std::string_view s) {
    const auto first = s.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return std::string(s.substr(first, s.find_last_not_of(" \t") - first + 1));
}

bool sameName(std::string_view a, std::string_view b) {
    const std::string x = trimmed(a), y = trimmed(b);
    if (x.size() != y.size()) return false;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(x[i])) !=
            std::tolower(static_cast<unsigned char>(y[i]))) {
            return false;
        }
    }
    return true;
}

bool isHeader(const std::string& line, std::string& name) {
    const std::string t = trimmed(line);
    if (t.empty() || t[0] != '[') return false;
    name = t.substr(1, t.find(']') - 1);
    return true;
}

bool isKey(const std::string& line, std::string& key) {
    const std::string t = trimmed(line);
    const auto eq = line.find('=');
    if (t.empty() || t[0] == ';' || eq == std::string::npos) return false;
    key = line.substr(0, eq);
    return true;
}

std::optional<std::string> readKey(const fs::path& file, std::string_view section,
                                   std::string_view key) {
    const std::vector<std::string> lines = splitLines(readFile(file));
    bool inSection = false;
    std::string name;
    for (const std::string& line : lines) {
        if (isHeader(line, name)) {
            if (inSection) return std::nullopt;
            inSection = sameName(name, section);
        } else if (inSection && isKey(line, name) && sameName(name, key)) {
            return trimmed(std::string_view(line).substr(line.find('=') + 1));
        }
    }
    return std::nullopt;
}

void writeKey(const fs::path& file, std::string_view section, std::string_view key,
              std::string_view value) {
    std::vector<std::string> lines = splitLines(readFile(file));
    const std::string newLine = std::string(key) + "=" + std::string(value);
    std::size_t header = lines.size();
    std::string name;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (isHeader(lines[i], name) && sameName(name, section)) {
            header = i;
            break;
        }
    }
    if (header == lines.size()) {
        lines.push_back(std::string("[").append(section).append("]"));
        lines.push_back(newLine);
    } else {
        std::size_t insertAt = header + 1;
        bool replaced = false;
        for (std::size_t i = header + 1; i < lines.size() && !isHeader(lines[i], name); ++i) {
            if (!isKey(lines[i], name)) continue;
            if (sameName(name, key)) {
                lines[i] = newLine;
                replaced = true;
                break;
            }
            insertAt = i + 1;
        }
        if (!replaced) lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(insertAt), newLine);
    }
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    for (const std::string& line : lines) out << line << "\r\n";
}

}  // namespace naive

// ---------------------------------------------------------------------------------------------

// A generated 10-planet descriptor in a fresh folder of its own.
class DescriptorFile {
  public:
    DescriptorFile() : original_(generateDescriptor()) {
        std::random_device random;
        dir_ = fs::temp_directory_path() / ("orrerion-bench-" + std::to_string(random()));
        fs::create_directories(dir_);
        path_ = dir_ / "Benchmark.edt";
        reset();
    }
    ~DescriptorFile() {
        std::error_code ec;
        fs::remove_all(dir_, ec);
    }
    const fs::path& path() const { return path_; }
    std::size_t originalSize() const { return original_.size(); }
    std::string sizeText() const {
        return "a " + std::to_string((original_.size() + 512) / 1024) + " KB descriptor";
    }
    void reset() const { writeFileAtomically(path_, original_); }

  private:
    std::string original_;
    fs::path dir_;
    fs::path path_;
};

// 1,000 keys spread over all planet sections.
std::vector<std::pair<std::string, std::string>> readKeys() {
    const std::vector<KeyValue> grid = gridWizardKeys(10, 10);
    std::vector<std::pair<std::string, std::string>> keys;
    for (std::size_t i = 0; i < 1000; ++i) {
        keys.emplace_back(std::to_string(1 + i % 10), grid[(i * 7) % grid.size()].key);
    }
    return keys;
}

// 1,400 keys that the first planet section does not have yet: the areas of two more grids.
std::vector<KeyValue> burstKeys() {
    std::vector<KeyValue> keys = gridAreaKeys(10, 10, "Cave");
    const std::vector<KeyValue> more = gridAreaKeys(10, 10, "Mine");
    keys.insert(keys.end(), more.begin(), more.end());
    keys.resize(1400);
    return keys;
}

constexpr const char* kChangedSection = "5";
constexpr const char* kChangedKey = "MessageArea05051";
const char* const kValues[2] = {"This is Area 5, 5", "This is Area 5, 6"};

void WriteKeyStore(benchmark::State& state) {
    DescriptorFile file;
    ProfileStore store;
    store.document(file.path());
    std::size_t i = 0;
    for (auto _ : state) {
        if (!store.writeValue(file.path(), kChangedSection, kChangedKey, kValues[i++ % 2])) {
            state.SkipWithError(store.lastError().c_str());
            break;
        }
    }
    state.counters["target_ms"] = 2;
    state.SetLabel("one key of " + file.sizeText() + " written to disk through the cache");
}

void WriteKeyNaive(benchmark::State& state) {
    DescriptorFile file;
    std::size_t i = 0;
    for (auto _ : state)
        naive::writeKey(file.path(), kChangedSection, kChangedKey, kValues[i++ % 2]);
    state.SetLabel("one key of " + file.sizeText() + ": whole file read, parsed and written");
}

void Read1000Store(benchmark::State& state) {
    DescriptorFile file;
    ProfileStore store;
    const auto keys = readKeys();
    store.document(file.path());
    for (auto _ : state) {
        // A window's refresh: the file is looked at once, then every read trusts the cache.
        store.recheck();
        for (const auto& [section, key] : keys) {
            benchmark::DoNotOptimize(store.readValue(file.path(), section, key));
        }
    }
    if (store.readValue(file.path(), "10", "ResponsesArea1010") != "5") {
        state.SkipWithError("the generated descriptor does not read back as written");
    }
    state.counters["target_speedup"] = 50;
    state.SetLabel("1,000 keys of " + file.sizeText() +
                   ", cached (the file checked once for them all)");
}

void Read1000Naive(benchmark::State& state) {
    DescriptorFile file;
    const auto keys = readKeys();
    for (auto _ : state) {
        for (const auto& [section, key] : keys) {
            benchmark::DoNotOptimize(naive::readKey(file.path(), section, key));
        }
    }
    state.SetLabel("1,000 keys of " + file.sizeText() +
                   ", the whole file read and parsed for each");
}

void Burst1400Store(benchmark::State& state) {
    DescriptorFile file;
    ProfileStore store;
    const std::vector<KeyValue> keys = burstKeys();
    std::size_t added = 0;
    for (const KeyValue& kv : keys) added += kv.key.size() + 1 + kv.value.size() + 2;
    for (auto _ : state) {
        state.PauseTiming();
        file.reset();
        store.forget(file.path());
        store.document(file.path());
        state.ResumeTiming();

        ProfileStore::WriteBatch batch(store);
        for (const KeyValue& kv : keys) store.writeValue(file.path(), "1", kv.key, kv.value);
        if (!batch.commit()) {
            state.SkipWithError(store.lastError().c_str());
            break;
        }
    }
    if (fs::file_size(file.path()) != file.originalSize() + added) {
        state.SkipWithError("the burst did not write every key once");
    }
    state.counters["target_ms"] = 50;
    state.SetLabel("1,400 new keys in one section of " + file.sizeText() +
                   ", one batch, one write");
}

void Burst1400Naive(benchmark::State& state) {
    DescriptorFile file;
    const std::vector<KeyValue> keys = burstKeys();
    for (auto _ : state) {
        state.PauseTiming();
        file.reset();
        state.ResumeTiming();
        for (const KeyValue& kv : keys) naive::writeKey(file.path(), "1", kv.key, kv.value);
    }
    state.SetLabel("1,400 new keys in " + file.sizeText() +
                   ", the whole file read and written for each");
}

BENCHMARK(WriteKeyStore)->Name("WriteKey/Store")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WriteKeyNaive)->Name("WriteKey/Naive")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Read1000Store)->Name("Read1000/Store")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Read1000Naive)->Name("Read1000/Naive")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Burst1400Store)->Name("Burst1400/Store")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Burst1400Naive)
    ->Name("Burst1400/Naive")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

}  // namespace
}  // namespace orr::bench
