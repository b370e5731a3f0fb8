// The system block of the open descriptor, and the planet routines that change the planet count
// or the planet order in the record and in the file together.
#include <algorithm>
#include <system_error>

#include "store/RecordFields.h"
#include "store/SystemStore.h"
#include "text/Text.h"

namespace orr {

namespace {

constexpr const char* kMarker = "SolarSystem";
constexpr const char* kCrLf = "\r\n";

bool isCommentLine(const ProfileDocument::Line& line) {
    return !line.text.empty() && line.text[0] == ';';
}

// The block marker is a comment line naming the block; a key or a section of the user's that
// merely mentions "SolarSystem" is no marker.
std::size_t findMarker(const std::vector<ProfileDocument::Line>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (ProfileDocument::isBlockMarker(lines[i].text)) return i;
    }
    return lines.size();
}

// A descriptor's system block as the game reads it: the marker, the header line and one line
// per planet, each line's first character (the ";") skipped.
struct BlockScan {
    bool found = false;
    std::size_t marker = 0;  // the block's lines are [marker, end)
    std::size_t end = 0;
    std::optional<RecordFields::Header> header;
    std::vector<PlanetRecord> planets;  // the planet lines read, in order
    std::string damage;                 // what is wrong, for the user; empty when all is well
    bool savable = true;  // false: a block written in its place would lose what it holds
};

BlockScan scanBlock(const std::vector<ProfileDocument::Line>& lines) {
    BlockScan block;
    block.marker = findMarker(lines);
    block.found = block.marker < lines.size();
    block.end = block.marker + 1;
    if (!block.found) return block;
    const auto body = [&](std::size_t i) { return std::string_view(lines[i].text).substr(1); };
    std::string reason;
    if (block.end < lines.size() && isCommentLine(lines[block.end])) {
        block.header = RecordFields::parseHeader(body(block.end), &reason);
        if (!block.header) block.damage = "in its header, " + reason;
    } else {
        block.damage = "its header line is missing";
    }
    if (!block.header) {
        block.savable = false;
        return block;
    }
    ++block.end;
    const int claimed = block.header->planetCount;
    if (claimed > kMaxPlanets) {
        block.damage = "its header claims " + std::to_string(claimed) + " planets, more than the " +
                       std::to_string(kMaxPlanets) + " a system can have";
        block.savable = false;
    }
    // A negative count is no planets, as the game reads it.
    const int wanted = std::clamp(claimed, 0, kMaxPlanets);
    for (int n = 1; n <= wanted; ++n) {
        // Reading stops at the first line that cannot be read: reading on past it would give
        // later planets the numbers of earlier ones, and with them other planets' sections and
        // names. A line that is no comment ends the block, so no section is taken for a planet.
        if (block.end == lines.size() || !isCommentLine(lines[block.end])) {
            if (block.damage.empty()) {
                block.damage = "only " + std::to_string(n - 1) + " of its " +
                               std::to_string(claimed) + " planet lines are there";
            }
            break;
        }
        PlanetRecord planet;
        if (!RecordFields::parsePlanet(body(block.end), planet, &reason)) {
            if (block.damage.empty())
                block.damage = "in planet line " + std::to_string(n) + ", " + reason;
            block.savable = false;
            break;
        }
        block.planets.push_back(planet);
        ++block.end;
    }
    return block;
}

// A comment line of the block: ";" and the text (built by appending: GCC 12 warns falsely about
// ";" + std::string at -O3).
std::string commentLine(std::string_view text) {
    std::string line;
    line.reserve(text.size() + 1);
    line.append(";").append(text);
    return line;
}

std::vector<std::string> blockLines(const SystemRecord& record) {
    std::vector<std::string> lines{commentLine(kMarker),
                                   commentLine(RecordFields::headerFields(record))};
    for (int n = 1; n <= RecordFields::writtenPlanetCount(record); ++n) {
        lines.push_back(commentLine(RecordFields::planetFields(record.planet(n))));
    }
    return lines;
}

// The section a raw line opens: the text between "[" and "]", blanks trimmed; nullopt for a line
// that opens none.
std::optional<std::string> sectionOf(const std::string& line) {
    if (line.empty() || line[0] != '[') return std::nullopt;
    const std::size_t close = line.find(']');
    return text::trim(std::string_view(line).substr(
        1, close == std::string::npos ? std::string::npos : close - 1));
}

// "[3]..." with its number replaced, keeping whatever follows the number.
std::string renumberedHeader(const std::string& line, int number) {
    std::size_t i = 1;
    while (i < line.size() && line[i] == ' ') ++i;
    if (i < line.size() && (line[i] == '+' || line[i] == '-')) ++i;
    while (i < line.size() && line[i] >= '0' && line[i] <= '9') ++i;
    return std::string("[") + std::to_string(number) + line.substr(i);
}

// The lines of the planet swap: flag characters, [Names] keys and section numbers exchanged.
bool swapPlanetLines(ProfileDocument& doc, int a, int b) {
    bool changed = false;
    std::string section;
    for (ProfileDocument::Line& line : doc.mutableLines()) {
        std::string& t = line.text;
        if (!t.empty() && t[0] == '[') {
            section = sectionOf(t).value_or("");
            const long long number = text::leadingValue(std::string_view(t).substr(1));
            if (number == a || number == b) {
                t = renumberedHeader(t, number == a ? b : a);
                changed = true;
            }
            continue;
        }
        const std::size_t eq = t.find('=');
        if (eq == std::string::npos) continue;
        const std::string key = t.substr(0, eq);
        if (text::equalsIgnoreCase(section, "General")) {
            const std::string name = text::trim(key);
            if (!text::equalsIgnoreCase(name, kPlanetPics) &&
                !text::equalsIgnoreCase(name, kMessagesFlag)) {
                continue;
            }
            std::string flags = text::trim(std::string_view(t).substr(eq + 1));
            // A missing character reads as yes; padding with "Y" keeps that meaning.
            if (flags.size() < static_cast<std::size_t>(std::max(a, b))) {
                flags.resize(static_cast<std::size_t>(std::max(a, b)), 'Y');
            }
            std::swap(flags[static_cast<std::size_t>(a) - 1],
                      flags[static_cast<std::size_t>(b) - 1]);
            const std::string rewritten = name + "=" + flags;
            if (rewritten != t) {
                t = rewritten;
                changed = true;
            }
        } else if (text::equalsIgnoreCase(section, "Names")) {
            const long long number = text::leadingValue(key);
            if (number == a || number == b) {
                t = std::to_string(number == a ? b : a) + t.substr(eq);
                changed = true;
            }
        }
    }
    if (changed) doc.linesChanged();
    return changed;
}

}  // namespace

std::string systemBlockText(const SystemRecord& record) {
    std::string text;
    for (const std::string& line : blockLines(record)) text += line + kCrLf;
    return text;
}

std::string newDescriptorText(const SystemRecord& record) {
    const std::string flags(static_cast<std::size_t>(RecordFields::writtenPlanetCount(record)),
                            'N');
    return std::string("[General]") + kCrLf + kPlanetPics + " = " + flags + kCrLf + kMessagesFlag +
           " = " + flags + kCrLf + kCrLf + systemBlockText(record);
}

std::string SystemStore::damagedBlockWarning(const std::string& reason,
                                             const std::string& kept) const {
    return "The system block in the descriptor of " + record_.Name + " is damaged (" + reason +
           "). " + kept;
}

void SystemStore::showNothingRead() {
    // Nothing of the block can be trusted: the system shows under its own name, without planets,
    // and keeps none of the values the record held for the system opened before.
    SystemRecord blank;
    blank.Name = record_.Name;
    blank.setDisplayName(record_.Name);
    record_ = blank;
}

LoadResult SystemStore::ReadSystemBlock() {
    LoadResult result;
    blockLoaded_ = false;
    const fs::path path = openDescriptorPath();
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) return result;
    const ProfileDocument* doc = profiles_.document(path);
    if (doc == nullptr) {
        showNothingRead();
        result.warning = "The descriptor of " + record_.Name + " could not be read. " +
                         profiles_.lastError() + " The system is shown without planets.";
        return result;
    }
    const BlockScan block = scanBlock(doc->lines());
    if (!block.found) return result;  // no block: the record keeps its values
    blockLoaded_ = true;
    // A block that a save would lose is not saved over (SaveSystemBlock refuses).
    const std::string notSaved = "; the block is not saved over, so nothing of it is lost.";
    if (!block.header) {
        showNothingRead();
        result.warning = damagedBlockWarning(
            block.damage, "The system is shown under its own name without planets" + notSaved);
        return result;
    }

    SystemRecord read = record_;
    read.DisplayName = block.header->displayName;
    read.StarType = block.header->starType;
    const int kept = static_cast<int>(block.planets.size());
    for (int n = 1; n <= kept; ++n) read.planet(n) = block.planets[static_cast<std::size_t>(n - 1)];
    read.PlanetCount = static_cast<std::int16_t>(kept);
    if (block.damage.empty()) {
        record_ = read;
        result.blockFound = true;
        return result;
    }
    // The slots after the planets kept would otherwise still hold the previous system's planets.
    for (int n = kept + 1; n <= kMaxPlanets; ++n) read.planet(n) = PlanetRecord();
    record_ = read;
    const std::string shown = "The header and " + std::to_string(kept) + " of its " +
                              std::to_string(block.header->planetCount) + " planet lines are ";
    result.warning =
        damagedBlockWarning(block.damage, block.savable ? shown + "kept; saving writes a new block."
                                                        : shown + "shown" + notSaved);
    return result;
}

bool SystemStore::replaceBlock(ProfileDocument& doc, const SystemRecord& record,
                               std::string& refused) const {
    // The old block is what the load read: the marker, its header and the planet lines read,
    // so nothing outside it is lost.
    const BlockScan old = scanBlock(doc.lines());
    if (!old.found) {
        // A file that never had a block stays without one; one whose block went missing since
        // it was read must not pass for saved.
        if (blockLoaded_) refused = "it is missing from the descriptor";
        return false;
    }
    if (!old.savable) {
        refused = old.damage;
        return false;
    }
    // Block lines are comments: replacing them keeps the document's lookup index.
    return doc.replaceLines(old.marker, old.end - old.marker, blockLines(record));
}

bool SystemStore::SaveSystemBlock() {
    std::string refused;
    const bool written = rewriteOpenDescriptor(
        [&](ProfileDocument& doc) { return replaceBlock(doc, record_, refused); });
    if (written && !refused.empty()) {
        return fail("The system block of " + record_.Name + " was not saved because " + refused +
                    "; nothing was written.");
    }
    return written;
}

std::optional<std::string> SystemStore::descriptorTextFor(const SystemRecord& record) {
    const ProfileDocument* open = profiles_.document(openDescriptorPath());
    if (!open) {
        fail("The descriptor of " + record_.Name + " could not be read. " + profiles_.lastError());
        return std::nullopt;
    }
    ProfileDocument copy = *open;
    std::string refused;
    replaceBlock(copy, record, refused);
    if (!refused.empty()) {
        fail("The system block of " + record_.Name + " was not saved because " + refused +
             "; nothing was written.");
        return std::nullopt;
    }
    return copy.serialize();
}

bool SystemStore::AddPlanet() {
    if (record_.PlanetCount >= kMaxPlanets) return fail(kMaxPlanetsMessage);
    if (!requireOpenSystem()) return false;
    Transaction transaction(*this);
    const int count = ++record_.PlanetCount;
    PlanetRecord& planet = record_.planet(count);
    planet.Size = 2;
    planet.PlanetClass = 1;
    planet.Position =
        count == 1
            ? std::int16_t{400}
            : static_cast<std::int16_t>(std::min(record_.planet(count - 1).Position + 30, 32767));
    return transaction.commit(SetGeneralFlag(kPlanetPics, count, count, false) &&
                              SetGeneralFlag(kMessagesFlag, count, count, false));
}

bool SystemStore::RemoveLastPlanet() {
    if (record_.PlanetCount <= 0) return fail("The system has no planet to remove.");
    Transaction transaction(*this);
    const int count = record_.PlanetCount;
    bool ok = RemovePlanetSection(count) && SetName(count, "");
    record_.PlanetCount = static_cast<std::int16_t>(count - 1);
    ok = ok && SetGeneralFlag(kPlanetPics, 0, count - 1, false) &&
         SetGeneralFlag(kMessagesFlag, 0, count - 1, false);
    return transaction.commit(ok);
}

bool SystemStore::SwapPlanets(int a, int b) {
    const int count = record_.PlanetCount;
    if (a < 1 || b < 1 || a > count || b > count) {
        return fail("There is no planet " + std::to_string(a < 1 || a > count ? a : b) + ".");
    }
    if (a == b) return true;
    if (!rewriteOpenDescriptor(
            [a, b](ProfileDocument& doc) { return swapPlanetLines(doc, a, b); })) {
        return false;
    }
    // The planets change places; the orbits stay where they are.
    PlanetRecord& pa = record_.planet(a);
    PlanetRecord& pb = record_.planet(b);
    std::swap(pa, pb);
    std::swap(pa.Position, pb.Position);
    return true;
}

}  // namespace orr
