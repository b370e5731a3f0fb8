// The profile parser with edits.
//
// Input: the file's bytes up to the first NUL byte; after it, up to 32 edits, each an operation
// byte (its value modulo 3: 0 writeValue, 1 deleteKey, 2 removeNumberedSection) and its
// arguments. writeValue takes a section, a key and a value, deleteKey a section and a key, each a
// name; removeNumberedSection takes one byte (modulo 12, the section number). A name is one byte
// b: below 0x80, the next b % 24 bytes as they are; from 0x80 on, one of the section and key names
// the file holds (or of a few the descriptors always use), so that edits meet existing lines.
#include <optional>
#include <utility>
#include <vector>

#include "CheckSupport.h"
#include "FuzzChecks.h"
#include "store/ProfileDocument.h"
#include "text/Text.h"

namespace orr::fuzz {

namespace {

constexpr int kMaxEdits = 32;
constexpr std::size_t kMaxNames = 64;
constexpr std::size_t kLiteralLength = 24;
constexpr int kSectionNumbers = 12;

using Lines = std::vector<ProfileDocument::Line>;

std::string joined(const Lines& lines) {
    std::string out;
    for (const ProfileDocument::Line& line : lines) out += line.text + "\r\n";
    return out;
}

// The file as a rewrite must leave it: every line ended by CR LF, whatever ended it before.
std::string withCrLfEnds(std::string_view file) {
    std::string out;
    for (std::size_t at = 0; at < file.size();) {
        const std::size_t end = std::min(file.find_first_of("\r\n", at), file.size());
        out.append(file.substr(at, end - at)).append("\r\n");
        at = end + (file.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return out;
}

// Section names as the raw rules see them ("[" in the first column up to "]") and key names
// (the text before the first "="), then the names every descriptor has.
std::vector<std::string> namesOf(const Lines& lines) {
    std::vector<std::string> names;
    for (const ProfileDocument::Line& line : lines) {
        if (names.size() >= kMaxNames) break;
        const std::string& t = line.text;
        if (!t.empty() && t[0] == '[') {
            names.push_back(t.substr(1, t.find(']') - 1));
        } else if (const std::size_t eq = t.find('='); eq != std::string::npos) {
            names.push_back(t.substr(0, eq));
        }
    }
    for (const char* fixed : {"General", "Names", "1", "PlanetPics", "Messages"}) {
        names.emplace_back(fixed);
    }
    return names;
}

class EditReader {
  public:
    EditReader(std::string_view bytes, std::vector<std::string> names)
        : bytes_(bytes), names_(std::move(names)) {}

    bool done() const { return at_ >= bytes_.size(); }
    unsigned char byte() { return done() ? 0 : static_cast<unsigned char>(bytes_[at_++]); }

    std::string name() {
        const unsigned char b = byte();
        if (b >= 0x80) return names_[(b - 0x80u) % names_.size()];
        const std::size_t length = std::min<std::size_t>(b % kLiteralLength, bytes_.size() - at_);
        const std::string literal(bytes_.substr(at_, length));
        at_ += length;
        return literal;
    }

  private:
    std::string_view bytes_;
    std::size_t at_ = 0;
    std::vector<std::string> names_;
};

std::string_view trimBlanks(std::string_view s) {
    const std::size_t first = s.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

// A value as the platform's profile functions read it back: blanks trimmed, then one pair of
// enclosing quotes dropped.
std::string_view valueAsRead(std::string_view value) {
    value = trimBlanks(value);
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    return value;
}

bool rawKeyIs(const std::string& line, const std::string& key) {
    const std::size_t eq = line.find('=');
    return eq != std::string::npos && line.compare(0, eq, key) == 0 && eq == key.size();
}

bool startsRawSection(const std::string& line) {
    return !line.empty() && line[0] == '[';
}

// The documented raw rule of deleteKey, line by line: inside every section whose header begins
// "[" + section + "]", up to and including the line that starts the next section, the lines of
// the key go.
Lines rawDeleteKey(const Lines& lines, const std::string& section, const std::string& key) {
    const std::string header = "[" + section + "]";
    Lines kept;
    std::size_t i = 0;
    while (i < lines.size()) {
        const ProfileDocument::Line& line = lines[i++];
        kept.push_back(line);
        if (!text::startsWith(line.text, header)) continue;
        while (i < lines.size()) {
            const ProfileDocument::Line& inner = lines[i++];
            if (!rawKeyIs(inner.text, key)) kept.push_back(inner);
            if (startsRawSection(inner.text)) break;
        }
    }
    return kept;
}

// The documented raw rule of removeNumberedSection: a header whose number is n goes with its
// lines; the header that ends it stays.
Lines rawRemoveSection(const Lines& lines, int n) {
    if (n <= 0) return lines;
    // A section also ends at the system block's marker (its first ";...SolarSystem" line).
    std::size_t marker = 0;
    while (marker < lines.size() && !ProfileDocument::isBlockMarker(lines[marker].text)) ++marker;
    Lines kept;
    std::size_t i = 0;
    while (i < lines.size()) {
        const ProfileDocument::Line& line = lines[i++];
        if (!startsRawSection(line.text) || text::leadingValue(line.text.substr(1)) != n) {
            kept.push_back(line);
            continue;
        }
        while (i < lines.size()) {
            const ProfileDocument::Line& inner = lines[i++];
            if (startsRawSection(inner.text) || i - 1 == marker) {
                kept.push_back(inner);
                break;
            }
        }
    }
    return kept;
}

// Whether key + "=" + value, written into section, reads back as one key line of that section.
bool plainKeyLine(const std::string& section, const std::string& key, const std::string& value) {
    const std::string_view lead = trimBlanks(key);
    auto breaks = [](const std::string& s) { return s.find_first_of("\r\n") != std::string::npos; };
    return !breaks(section) && !breaks(key) && !breaks(value) &&
           section.find(']') == std::string::npos && key.find('=') == std::string::npos &&
           (lead.empty() || (lead[0] != ';' && lead[0] != '['));
}

std::string shownValue(const std::optional<std::string>& value) {
    return value ? shown(*value) : "nothing";
}

std::string readsDifferently(const ProfileDocument& doc, const ProfileDocument& fresh,
                             const std::string& section, const std::string& key) {
    const std::optional<std::string> live = doc.readValue(section, key);
    const std::optional<std::string> reparsed = fresh.readValue(section, key);
    if (live == reparsed) return {};
    return "[" + shown(section) + "] " + shown(key) + " reads " + shownValue(live) +
           " but the bytes parsed again give " + shownValue(reparsed);
}

// The document must read like its own bytes parsed afresh: every key named anywhere in the
// section just edited, and every section and key edited before.
std::string compareWithFresh(const ProfileDocument& doc,
                             const std::vector<std::pair<std::string, std::string>>& used,
                             const std::vector<std::string>& names) {
    const ProfileDocument fresh = ProfileDocument::parse(doc.serialize());
    const std::string& section = used.back().first;
    for (const std::string& key : names) {
        if (std::string problem = readsDifferently(doc, fresh, section, key); !problem.empty()) {
            return problem;
        }
    }
    for (const auto& [usedSection, usedKey] : used) {
        if (doc.sectionExists(usedSection) != fresh.sectionExists(usedSection)) {
            return "sectionExists(" + shown(usedSection) + ") differs from the bytes parsed again";
        }
        if (std::string problem = readsDifferently(doc, fresh, usedSection, usedKey);
            !problem.empty()) {
            return problem;
        }
    }
    return {};
}

// A raw removal must leave what the line rules expect and report whether lines went.
std::string removalProblem(const std::string& after, const std::string& expected,
                           const std::string& before, bool removed) {
    if (after != expected)
        return "the file became " + shown(after) + " instead of " + shown(expected);
    if (removed == (expected != before)) return {};
    return removed ? "reported a removal that changed nothing"
                   : "reported no removal but lines went";
}

}  // namespace

std::string checkProfileEdits(std::string_view input) {
    const std::size_t split = input.find('\0');
    const std::string_view file = input.substr(0, split);
    const std::string_view edits =
        split == std::string_view::npos ? std::string_view() : input.substr(split + 1);

    ProfileDocument doc = ProfileDocument::parse(file);
    if (doc.serialize() != withCrLfEnds(file)) return "parsing and serializing changed the bytes";
    const std::vector<std::string> names = namesOf(doc.lines());
    EditReader reader(edits, names);
    std::vector<std::pair<std::string, std::string>> used;

    for (int step = 1; step <= kMaxEdits && !reader.done(); ++step) {
        const std::string before = doc.serialize();
        std::string edit;
        std::string problem;
        switch (reader.byte() % 3) {
            case 0: {
                const std::string section = reader.name(), key = reader.name(),
                                  value = reader.name();
                edit =
                    "writeValue(" + shown(section) + ", " + shown(key) + ", " + shown(value) + ")";
                doc.writeValue(section, key, value);
                const std::optional<std::string> back = doc.readValue(section, key);
                if (plainKeyLine(section, key, value) && back != valueAsRead(value)) {
                    problem = "the value reads back as " + shownValue(back);
                }
                used.emplace_back(section, key);
                break;
            }
            case 1: {
                const std::string section = reader.name(), key = reader.name();
                edit = "deleteKey(" + shown(section) + ", " + shown(key) + ")";
                const bool removed = doc.deleteKey(section, key);
                const std::string expected =
                    joined(rawDeleteKey(ProfileDocument::parse(before).lines(), section, key));
                problem = removalProblem(doc.serialize(), expected, before, removed);
                used.emplace_back(section, key);
                break;
            }
            default: {
                const int n = reader.byte() % kSectionNumbers;
                edit = "removeNumberedSection(" + std::to_string(n) + ")";
                const bool removed = doc.removeNumberedSection(n);
                const std::string expected =
                    joined(rawRemoveSection(ProfileDocument::parse(before).lines(), n));
                problem = removalProblem(doc.serialize(), expected, before, removed);
                used.emplace_back(std::to_string(n), "");
                break;
            }
        }
        if (problem.empty()) problem = compareWithFresh(doc, used, names);
        if (!problem.empty()) {
            return "edit " + std::to_string(step) + ", " + edit + " on " + shown(before) + ": " +
                   problem;
        }
    }
    return {};
}

}  // namespace orr::fuzz
