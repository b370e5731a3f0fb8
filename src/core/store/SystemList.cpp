#include "store/SystemList.h"

#include <algorithm>
#include <set>

#include "store/FileIo.h"
#include "store/RecordFields.h"
#include "text/Text.h"

namespace orr {

namespace {

// Blanks and control bytes only: also a DOS end-of-file mark (Ctrl-Z) or a stray NUL at the end,
// which the lenient field rules would otherwise read as a record of their own.
bool isBlankLine(std::string_view line) {
    for (char c : line) {
        if (static_cast<unsigned char>(c) > ' ') return false;
    }
    return true;
}

}  // namespace

std::string ListedSystemKey(int planetCount, const std::string& displayName) {
    return std::to_string(planetCount) + text::trim(displayName);
}

std::vector<ListedSystem> ReadSystemList(const std::filesystem::path& file) {
    std::vector<ListedSystem> systems;
    const std::optional<std::string> bytes = readWholeFile(file);
    if (!bytes) return systems;
    const std::vector<std::string_view> lines = RecordFields::splitLines(*bytes);

    std::size_t i = 0;
    while (true) {
        // Blank lines between records (and at the end of the file) carry nothing.
        while (i < lines.size() && isBlankLine(lines[i])) ++i;
        if (i >= lines.size()) break;
        const std::optional<RecordFields::Header> header =
            RecordFields::parseHeader(lines[i++], nullptr);
        if (!header || header->planetCount > kMaxPlanets) break;

        ListedSystem listed;
        listed.record.DisplayName = header->displayName;
        listed.record.StarType = header->starType;
        // A negative count is no planets; the key keeps the count as written.
        const int count = std::max<int>(header->planetCount, 0);
        listed.record.PlanetCount = static_cast<std::int16_t>(count);
        bool complete = true;
        for (int n = 1; n <= count && complete; ++n) {
            complete = i < lines.size() &&
                       RecordFields::parsePlanet(lines[i++], listed.record.planet(n), nullptr);
        }
        if (!complete) break;  // the records before it stay
        listed.key = ListedSystemKey(header->planetCount, header->displayName);
        listed.record.Name = listed.key;
        systems.push_back(std::move(listed));
    }
    return systems;
}

bool FindListedSystem(const GameFolder& folder, const std::string& key, SystemRecord& record) {
    if (key.empty()) return false;
    // The game's own routine reads every record into the open record in turn, so a slot beyond
    // the found system's planet count keeps what an earlier record (or the record itself) put
    // there. That is what a planet added later inherits, so the same happens here.
    SystemRecord scan = record;
    for (const ListedSystem& listed : ReadSystemList(folder.systemList())) {
        for (int n = 1; n <= listed.record.PlanetCount; ++n) {
            PlanetRecord& slot = scan.planet(n);
            const PlanetRecord& read = listed.record.planet(n);
            const std::uint64_t testFlags = slot.TestFlags;
            slot = read;
            slot.TestFlags = testFlags;
        }
        if (listed.key != key) continue;
        scan.Name = listed.key;
        scan.DisplayName = listed.record.DisplayName;
        scan.StarType = listed.record.StarType;
        scan.PlanetCount = listed.record.PlanetCount;
        record = scan;
        return true;
    }
    return false;
}

std::vector<std::string> OfferedSystems(const GameFolder& folder) {
    std::set<std::string> saved;  // base names in upper case: the folder ignores case
    for (const std::string& file :
         GameFolder::filesWithExtension(folder.descriptorFolder(), ".orb")) {
        saved.insert(text::toUpper(file.substr(0, file.size() - 4)));
    }
    std::vector<std::string> offered;
    for (const ListedSystem& listed : ReadSystemList(folder.systemList())) {
        if (listed.record.DisplayName.find('#') != std::string::npos) continue;
        if (saved.count(text::toUpper(listed.key))) continue;
        offered.push_back(listed.key);
    }
    return offered;
}

}  // namespace orr
