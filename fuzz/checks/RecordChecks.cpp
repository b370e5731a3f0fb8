// The record files: the game's system list and a descriptor loaded by the system store. Both
// are read from files, so the input is written into the scratch folder first.
#include <algorithm>
#include <system_error>

#include "CheckSupport.h"
#include "FuzzChecks.h"
#include "store/FileIo.h"
#include "store/RecordFields.h"
#include "store/SystemList.h"
#include "store/SystemStore.h"
#include "text/Text.h"

namespace orr::fuzz {

namespace {

constexpr const char* kSystemName = "Fuzz";
constexpr std::size_t kLookups = 8;  // records looked up by key: each lookup reads the file

// The display name as the writer puts it into a record line: quotes and line ends cannot stand
// inside the quoted text.
std::string writtenDisplayName(std::string name) {
    for (char& c : name) {
        if (c == '"') c = '\'';
        if (c == '\r' || c == '\n' || c == '\0') c = ' ';
    }
    return name;
}

std::string recordProblem(const SystemRecord& record) {
    if (record.DisplayName.size() != kDisplayNameWidth) {
        return "the display name " + shown(record.DisplayName) + " is not 20 characters long";
    }
    if (record.PlanetCount < 0 || record.PlanetCount > kMaxPlanets) {
        return "the planet count is " + std::to_string(record.PlanetCount);
    }
    return {};
}

std::string describe(const SystemRecord& r) {
    std::string out = shown(r.DisplayName) + "," + std::to_string(r.StarType) + "," +
                      std::to_string(r.PlanetCount);
    for (int n = 1; n <= std::clamp<int>(r.PlanetCount, 0, kMaxPlanets); ++n) {
        out += " / " + RecordFields::planetFields(r.planet(n));
    }
    return out;
}

// The scratch game folder with the input as its only descriptor; a new, empty one each time.
GameFolder freshGameFolder() {
    const fs::path root = ScratchFolder::path() / "game";
    std::error_code ec;
    fs::remove_all(root, ec);
    fs::create_directories(root / "ORBDescriptor", ec);
    return GameFolder(root);
}

}  // namespace

std::string checkSystemList(std::string_view input) {
    const fs::path file = ScratchFolder::path() / "SOLARSYS.TXT";
    if (!writeFileAtomically(file, input)) return "the scratch file cannot be written";
    const std::vector<ListedSystem> listed = ReadSystemList(file);

    std::string again;
    for (const ListedSystem& system : listed) {
        if (std::string problem = recordProblem(system.record); !problem.empty()) {
            return "record " + shown(system.key) + ": " + problem;
        }
        // The key is made from the count as written (which may lie outside 0..10), so only its
        // name part can be checked against the record.
        if (!system.key.ends_with(text::trim(system.record.DisplayName)) ||
            system.record.Name != system.key) {
            return "record " + shown(system.key) + " is named " + shown(system.record.Name);
        }
        again += RecordFields::headerFields(system.record) + "\r\n";
        for (int n = 1; n <= system.record.PlanetCount; ++n) {
            again += RecordFields::planetFields(system.record.planet(n)) + "\r\n";
        }
    }

    // The game's lookup finds each of the first records by its key, and the Add System dialog
    // offers every record whose name has no "#" (there is no descriptor yet).
    const GameFolder folder(ScratchFolder::path());
    std::vector<std::string> offerable;
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const ListedSystem& system = listed[i];
        if (system.record.DisplayName.find('#') == std::string::npos) {
            offerable.push_back(system.key);
        }
        const bool earlier =
            std::any_of(listed.begin(), listed.begin() + i,
                        [&](const ListedSystem& s) { return s.key == system.key; });
        if (i >= kLookups || earlier) continue;
        SystemRecord found;
        if (!FindListedSystem(folder, system.key, found) || found.Name != system.key ||
            found.DisplayName != system.record.DisplayName ||
            found.StarType != system.record.StarType ||
            found.PlanetCount != system.record.PlanetCount ||
            !std::equal(found.Planets.begin(), found.Planets.begin() + found.PlanetCount,
                        system.record.Planets.begin())) {
            return "looking up " + shown(system.key) + " gives " + describe(found) +
                   " instead of " + describe(system.record);
        }
    }
    if (OfferedSystems(folder) != offerable) return "the Add System dialog offers other records";

    // Written again in the writer's own form, the list reads back as it was read.
    if (!writeFileAtomically(file, again)) return "the scratch file cannot be written";
    const std::vector<ListedSystem> back = ReadSystemList(file);
    if (back.size() != listed.size()) {
        return std::to_string(listed.size()) + " records read, " + std::to_string(back.size()) +
               " after writing them as " + shown(again);
    }
    for (std::size_t i = 0; i < listed.size(); ++i) {
        SystemRecord expected = listed[i].record;
        expected.DisplayName = writtenDisplayName(expected.DisplayName);
        expected.Name = ListedSystemKey(expected.PlanetCount, expected.DisplayName);
        if (back[i].record != expected) {
            return "record " + std::to_string(i + 1) + " read as " + describe(expected) +
                   " reads back as " + describe(back[i].record);
        }
    }
    return {};
}

std::string checkDescriptor(std::string_view input) {
    const GameFolder folder = freshGameFolder();
    const fs::path file = folder.descriptorFolder() / (std::string(kSystemName) + ".orb");
    if (!writeFileAtomically(file, input)) return "the scratch file cannot be written";

    SystemStore store(folder);
    const LoadResult loaded = store.LoadSystem(kSystemName);
    const SystemRecord record = store.record();
    if (std::string problem = recordProblem(record); !problem.empty()) return problem;
    if (record.Name != kSystemName) return "the record is named " + shown(record.Name);
    // Every read the windows make of a loaded system.
    for (int n = 0; n <= record.PlanetCount; ++n) {
        store.GetName(n, record.DisplayName);
        store.GetGeneralFlag(kPlanetPics, n);
        store.GetGeneralFlag(kMessagesFlag, n);
        store.GetPlanetKey(n, "Messages", n % 2 == 0);
        store.SectionExists(std::to_string(n));
    }
    if (!loaded.blockFound && loaded.warning.empty()) return {};  // no block: nothing to save

    // A block the store cannot write without losing planets is refused, and the file stays.
    if (!store.SaveSystemBlock()) {
        if (store.lastError().empty()) return "saving the block failed without saying why";
        if (readWholeFile(file) != std::optional<std::string>(input)) {
            return "a refused save changed the file: " + store.lastError();
        }
        return {};
    }
    SystemStore reloaded(folder);
    const LoadResult again = reloaded.LoadSystem(kSystemName);
    SystemRecord expected = record;
    expected.DisplayName = writtenDisplayName(expected.DisplayName);
    if (!again.blockFound || !again.warning.empty() || reloaded.record() != expected) {
        return "the record " + describe(record) + " saved as " +
               shown(readWholeFile(file).value_or("")) + " loads back as " +
               describe(reloaded.record()) + (again.warning.empty() ? "" : ": " + again.warning);
    }
    return {};
}

}  // namespace orr::fuzz
