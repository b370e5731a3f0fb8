#include "store/ProfileDocument.h"

#include <unordered_map>

#include "text/Text.h"

namespace orr {

namespace {

constexpr std::string_view kCrLf = "\r\n";
// The profile functions skip both kinds of blank around names and values.
constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::string_view trimBlanks(std::string_view s) {
    const auto first = s.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    const auto last = s.find_last_not_of(kBlanks);
    return s.substr(first, last - first + 1);
}

// Section and key names are looked up ignoring blanks around them and letter case.
std::string lookupName(std::string_view name) {
    return text::toLower(trimBlanks(name));
}

char firstNonBlank(std::string_view s) {
    const auto first = s.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? '\0' : s[first];
}

// A profile section header: "[" after optional blanks; the name runs to the first "]".
bool headerName(std::string_view line, std::string_view& name) {
    const auto first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos || line[first] != '[') return false;
    const std::string_view rest = line.substr(first + 1);
    name = rest.substr(0, rest.find(']'));
    return true;
}

// A profile key line: not a comment, and has an "=". The key is the text before it.
bool keyName(std::string_view line, std::string_view& key) {
    if (firstNonBlank(line) == ';') return false;
    const auto eq = line.find('=');
    if (eq == std::string_view::npos) return false;
    key = line.substr(0, eq);
    return true;
}

// The raw rules of the descriptor routines: a section starts with "[" in the very first column,
// and a key is the exact text before the first "=".
bool startsRawSection(std::string_view line) {
    return !line.empty() && line[0] == '[';
}

bool rawKeyIs(std::string_view line, std::string_view key) {
    const auto eq = line.find('=');
    return eq != std::string_view::npos && line.substr(0, eq) == key;
}

// "[" + name + "]", built by appending (GCC 12 warns falsely about "[" + std::string).
std::string bracketed(std::string_view name) {
    std::string header;
    header.reserve(name.size() + 2);
    header.append("[").append(name).append("]");
    return header;
}

bool hasLineBreak(std::string_view s) {
    return s.find_first_of("\r\n") != std::string_view::npos;
}

// Writes whose lines would not read back as one key line of the same section: the indexed
// update cannot describe them, so the document is parsed again afterwards.
bool changesStructure(std::string_view section, std::string_view key, std::string_view value) {
    const char lead = firstNonBlank(key);
    return hasLineBreak(section) || hasLineBreak(key) || hasLineBreak(value) ||
           section.find(']') != std::string_view::npos || key.find('=') != std::string_view::npos ||
           lead == ';' || lead == '[';
}

}  // namespace

struct ProfileDocument::Index {
    // A line of the document: lines_[anchor] when offset is 0, else the offset-th line waiting
    // in pendingAfter_[anchor].
    struct LineRef {
        std::size_t anchor;
        std::size_t offset;
    };
    struct Section {
        std::size_t header;           // in lines_
        std::size_t lastKey = kNone;  // last key line in lines_, kNone when there is none
        std::unordered_map<std::string, LineRef> keys;  // first line of each key
    };
    std::vector<Section> sections;                        // in file order
    std::unordered_map<std::string, std::size_t> byName;  // first section of each name
};

std::vector<std::string> ProfileDocument::splitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    lines.reserve(bytes.size() / 40 + 1);
    std::size_t pos = 0;
    const std::size_t size = bytes.size();
    while (pos < size) {
        std::size_t end = pos;
        while (end < size && bytes[end] != '\r' && bytes[end] != '\n') ++end;
        lines.emplace_back(bytes.substr(pos, end - pos));
        // CR LF, LF and CR each end a line; serialize() writes CR LF for all of them.
        if (end < size)
            end += (bytes[end] == '\r' && end + 1 < size && bytes[end + 1] == '\n') ? 2 : 1;
        pos = end;
    }
    return lines;
}

ProfileDocument ProfileDocument::parse(std::string_view bytes) {
    ProfileDocument doc;
    std::vector<std::string> lines = splitLines(bytes);
    doc.lines_.reserve(lines.size());
    for (std::string& line : lines) doc.lines_.push_back(Line{std::move(line)});
    return doc;
}

namespace {

// What a line is to the lookup index: a section header, a key line, or neither.
std::string indexIdentity(std::string_view line) {
    std::string_view name;
    if (headerName(line, name)) return "[" + lookupName(name);
    if (keyName(line, name)) return "=" + lookupName(name);
    return {};
}

}  // namespace

bool ProfileDocument::replaceLines(std::size_t first, std::size_t count,
                                   std::vector<std::string> texts) {
    applyPendingLines();
    if (first > lines_.size() || count > lines_.size() - first) return false;
    bool sameShape = index_ && count == texts.size();
    for (std::size_t i = 0; sameShape && i < count; ++i)
        sameShape = indexIdentity(lines_[first + i].text) == indexIdentity(texts[i]);
    if (sameShape) {
        for (std::size_t i = 0; i < count; ++i) lines_[first + i].text = std::move(texts[i]);
        return true;
    }
    std::vector<Line> replacement;
    replacement.reserve(texts.size());
    for (std::string& text : texts) replacement.push_back(Line{std::move(text)});
    const auto at = lines_.begin() + static_cast<std::ptrdiff_t>(first);
    lines_.erase(at, at + static_cast<std::ptrdiff_t>(count));
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(first),
                  std::make_move_iterator(replacement.begin()),
                  std::make_move_iterator(replacement.end()));
    index_.reset();
    return true;
}

std::string ProfileDocument::serialize() const {
    std::size_t total = 0;
    for (const Line& line : lines_) total += line.text.size() + kCrLf.size();
    for (const auto& [anchor, pending] : pendingAfter_) {
        for (const Line& line : pending) total += line.text.size() + kCrLf.size();
    }
    std::string out;
    out.reserve(total);
    auto pending = pendingAfter_.begin();
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        out += lines_[i].text;
        out += kCrLf;
        if (pending != pendingAfter_.end() && pending->first == i) {
            for (const Line& line : pending->second) {
                out += line.text;
                out += kCrLf;
            }
            ++pending;
        }
    }
    return out;
}

std::optional<std::string> ProfileDocument::readValue(std::string_view section,
                                                      std::string_view key) const {
    const Index& idx = index();
    const auto found = idx.byName.find(lookupName(section));
    if (found == idx.byName.end()) return std::nullopt;
    const Index::Section& s = idx.sections[found->second];
    const auto keyLine = s.keys.find(lookupName(key));
    if (keyLine == s.keys.end()) return std::nullopt;
    const std::string_view text = lineAt(keyLine->second.anchor, keyLine->second.offset).text;
    std::string_view value = trimBlanks(text.substr(text.find('=') + 1));
    // The platform's read drops one pair of quotes around the value, so the game never sees them.
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value);
}

void ProfileDocument::writeValue(std::string_view section, std::string_view key,
                                 std::string_view value) {
    std::string text;
    text.reserve(key.size() + 1 + value.size());
    text.append(key).append("=").append(value);

    Index& idx = mutableIndex();
    const std::string sectionName = lookupName(section);
    const std::string name = lookupName(key);
    const auto found = idx.byName.find(sectionName);
    if (found == idx.byName.end()) {
        // A new section goes at the end, on lines of its own.
        lines_.push_back(Line{bracketed(section)});
        lines_.push_back(Line{std::move(text)});
        Index::Section added{lines_.size() - 2, lines_.size() - 1, {}};
        added.keys.emplace(name, Index::LineRef{lines_.size() - 1, 0});
        idx.sections.push_back(std::move(added));
        idx.byName.emplace(sectionName, idx.sections.size() - 1);
    } else {
        Index::Section& s = idx.sections[found->second];
        const auto existing = s.keys.find(name);
        if (existing != s.keys.end()) {
            lineAt(existing->second.anchor, existing->second.offset).text = std::move(text);
        } else {
            // After the section's last key line, so comments and blank lines that close the
            // section stay below the keys (the system block of [General] relies on it).
            const std::size_t anchor = s.lastKey != kNone ? s.lastKey : s.header;
            std::vector<Line>& pending = pendingAfter_[anchor];
            pending.push_back(Line{std::move(text)});
            s.keys.emplace(name, Index::LineRef{anchor, pending.size()});
        }
    }
    if (changesStructure(section, key, value)) *this = parse(serialize());
}

bool ProfileDocument::sectionExists(std::string_view section) const {
    const std::string header = bracketed(section);
    // Every line that begins with "[" heads an indexed section, so the headers are enough.
    for (const Index::Section& s : index().sections) {
        if (text::startsWith(lines_[s.header].text, header)) return true;
    }
    return false;
}

bool ProfileDocument::deleteKey(std::string_view section, std::string_view key) {
    if (key.find('=') != std::string_view::npos || !sectionExists(section)) return false;
    // Lines the rule can remove are key lines of some section, so the index can rule out the
    // common case of a key that is not there without touching the lines. Comment and header
    // lines are not indexed as keys: keys that look like them take the full pass.
    const char lead = firstNonBlank(key);
    if (lead != ';' && lead != '[') {
        const std::string name = lookupName(key);
        bool anywhere = false;
        for (const Index::Section& s : index().sections) {
            if (s.keys.count(name) != 0) {
                anywhere = true;
                break;
            }
        }
        if (!anywhere) return false;
    }

    applyPendingLines();
    const std::string header = bracketed(section);
    std::vector<Line> kept;
    kept.reserve(lines_.size());
    bool removed = false;
    std::size_t i = 0;
    const std::size_t count = lines_.size();
    while (i < count) {
        Line& line = lines_[i++];
        const bool opens = text::startsWith(line.text, header);
        kept.push_back(std::move(line));
        if (!opens) continue;
        // Inside the section up to and including the line that starts the next one.
        while (i < count) {
            Line& inner = lines_[i++];
            const bool endsSection = startsRawSection(inner.text);
            if (rawKeyIs(inner.text, key)) {
                removed = true;
            } else {
                kept.push_back(std::move(inner));
            }
            if (endsSection) break;
        }
    }
    lines_.swap(kept);
    if (removed) index_.reset();
    return removed;
}

bool ProfileDocument::removeNumberedSection(int n) {
    // [General], [Names] and every other header without a number have the value 0.
    if (n <= 0) return false;
    auto isTarget = [n](std::string_view line) {
        return startsRawSection(line) && text::leadingValue(line.substr(1)) == n;
    };
    bool present = false;
    for (const Index::Section& s : index().sections) {
        if (isTarget(lines_[s.header].text)) {
            present = true;
            break;
        }
    }
    if (!present) return false;

    applyPendingLines();
    const std::size_t count = lines_.size();
    std::size_t marker = 0;
    while (marker < count && !isBlockMarker(lines_[marker].text)) ++marker;
    std::vector<Line> kept;
    kept.reserve(count);
    std::size_t i = 0;
    while (i < count) {
        Line& line = lines_[i++];
        if (!isTarget(line.text)) {
            kept.push_back(std::move(line));
            continue;
        }
        // Drop the header and its lines; the next header, or the block marker, is kept as it is.
        // A section that runs to the end of the file is dropped up to the end and nothing else
        // goes with it.
        while (i < count) {
            Line& inner = lines_[i++];
            if (startsRawSection(inner.text) || i - 1 == marker) {
                kept.push_back(std::move(inner));
                break;
            }
        }
    }
    lines_.swap(kept);
    index_.reset();
    return true;
}

bool ProfileDocument::isBlockMarker(std::string_view line) {
    return !line.empty() && line[0] == ';' && line.find("SolarSystem") != std::string_view::npos;
}

const std::vector<ProfileDocument::Line>& ProfileDocument::lines() const {
    applyPendingLines();
    return lines_;
}

std::vector<ProfileDocument::Line>& ProfileDocument::mutableLines() {
    applyPendingLines();
    index_.reset();
    return lines_;
}

void ProfileDocument::linesChanged() {
    applyPendingLines();
    index_.reset();
}

const ProfileDocument::Index& ProfileDocument::index() const {
    if (index_) return *index_;
    applyPendingLines();
    auto idx = std::make_shared<Index>();
    std::size_t current = kNone;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view text = lines_[i].text;
        std::string_view name;
        if (headerName(text, name)) {
            idx->sections.push_back(Index::Section{i, kNone, {}});
            current = idx->sections.size() - 1;
            idx->byName.emplace(lookupName(name), current);
        } else if (current != kNone && keyName(text, name)) {
            Index::Section& s = idx->sections[current];
            s.lastKey = i;
            s.keys.emplace(lookupName(name), Index::LineRef{i, 0});
        }
    }
    index_ = std::move(idx);
    return *index_;
}

ProfileDocument::Index& ProfileDocument::mutableIndex() {
    index();
    // Copies of a document share their index until one of them changes.
    if (index_.use_count() > 1) index_ = std::make_shared<Index>(*index_);
    return *index_;
}

void ProfileDocument::applyPendingLines() const {
    if (pendingAfter_.empty()) return;
    std::size_t total = lines_.size();
    for (const auto& [anchor, pending] : pendingAfter_) total += pending.size();
    std::vector<Line> merged;
    merged.reserve(total);
    auto pending = pendingAfter_.begin();
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        merged.push_back(std::move(lines_[i]));
        if (pending != pendingAfter_.end() && pending->first == i) {
            for (Line& line : pending->second) merged.push_back(std::move(line));
            ++pending;
        }
    }
    lines_.swap(merged);
    pendingAfter_.clear();
    index_.reset();
}

ProfileDocument::Line& ProfileDocument::lineAt(std::size_t anchor, std::size_t offset) const {
    return offset == 0 ? lines_[anchor] : pendingAfter_.find(anchor)->second[offset - 1];
}

}  // namespace orr
