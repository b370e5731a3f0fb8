#include "store/RecordFields.h"

#include <algorithm>

#include "text/Text.h"

namespace orr {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string quoted(const std::string& s) {
    return "\"" + s + "\"";
}

constexpr long long kMin16 = -32768, kMax16 = 32767;
constexpr long long kMin32 = -2147483648LL, kMax32 = 2147483647LL;

// Field i as a number: its leading value, or 0 when the line has no such field. False when the
// value does not fit [min, max], the range of the record field it is read into.
bool readNumber(const std::vector<std::string>& fields, std::size_t i, const char* what,
                long long min, long long max, long long& out, std::string* reason) {
    out = i < fields.size() ? text::leadingValue(fields[i]) : 0;
    if (out >= min && out <= max) return true;
    if (reason) {
        // A long field is named by its beginning.
        const std::string& field = fields[i];
        const std::string shown = field.size() > 20 ? field.substr(0, 20) + "..." : field;
        *reason = std::string("the ") + what + " " + quoted(shown) + " is outside " +
                  std::to_string(min) + " to " + std::to_string(max);
    }
    return false;
}

}  // namespace

std::vector<std::string_view> RecordFields::splitLines(std::string_view bytes) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\r' && bytes[i] != '\n') continue;
        lines.push_back(bytes.substr(start, i - start));
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < bytes.size()) lines.push_back(bytes.substr(start));
    return lines;
}

std::vector<std::string> RecordFields::split(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && isBlank(line[i])) ++i;
        std::string field;
        if (i < line.size() && line[i] == '"') {
            const std::size_t close = line.find('"', i + 1);
            const std::size_t end = close == std::string_view::npos ? line.size() : close;
            field = std::string(line.substr(i + 1, end - i - 1));
            i = line.find(',', end);
        } else {
            const std::size_t comma = line.find(',', i);
            const std::size_t end = comma == std::string_view::npos ? line.size() : comma;
            field = text::trimRight(line.substr(i, end - i));
            while (!field.empty() && field.back() == '\t') field.pop_back();
            i = comma;
        }
        fields.push_back(std::move(field));
        if (i == std::string_view::npos || i >= line.size()) break;
        ++i;  // past the comma
    }
    return fields;
}

std::optional<RecordFields::Header> RecordFields::parseHeader(std::string_view line,
                                                              std::string* reason) {
    const std::vector<std::string> fields = split(line);
    long long starType = 0;
    long long count = 0;
    if (!readNumber(fields, 1, "star type", kMin16, kMax16, starType, reason) ||
        !readNumber(fields, 2, "planet count", kMin16, kMax16, count, reason)) {
        return std::nullopt;
    }
    Header header;
    header.displayName = text::fitWidth(fields[0], kDisplayNameWidth);
    header.starType = static_cast<std::int16_t>(starType);
    header.planetCount = static_cast<std::int16_t>(count);
    return header;
}

bool RecordFields::parsePlanet(std::string_view line, PlanetRecord& planet, std::string* reason) {
    const std::vector<std::string> fields = split(line);
    long long v[6];
    if (!readNumber(fields, 0, "orbit position", kMin16, kMax16, v[0], reason) ||
        !readNumber(fields, 1, "planet size", kMin16, kMax16, v[1], reason) ||
        !readNumber(fields, 2, "number of moons", kMin16, kMax16, v[2], reason) ||
        !readNumber(fields, 3, "attribute word", kMin32, kMax32, v[3], reason) ||
        !readNumber(fields, 4, "planet class", kMin16, kMax16, v[4], reason) ||
        !readNumber(fields, 5, "last visit", kMin32, kMax32, v[5], reason)) {
        return false;
    }
    planet.Position = static_cast<std::int16_t>(v[0]);
    planet.Size = static_cast<std::int16_t>(v[1]);
    planet.Moons = static_cast<std::int16_t>(v[2]);
    planet.Attributes = static_cast<std::int32_t>(v[3]);
    planet.PlanetClass = static_cast<std::int16_t>(v[4]);
    planet.LastVisit = static_cast<std::int32_t>(v[5]);
    return true;
}

int RecordFields::writtenPlanetCount(const SystemRecord& record) {
    return std::clamp<int>(record.PlanetCount, 0, kMaxPlanets);
}

std::string RecordFields::headerFields(const SystemRecord& record) {
    // A quote or a line end inside the name would break the line for the game; they are written
    // as an apostrophe and a blank.
    std::string name = text::fitWidth(record.DisplayName, kDisplayNameWidth);
    for (char& c : name) {
        if (c == '"') c = '\'';
        if (c == '\r' || c == '\n' || c == '\0') c = ' ';
    }
    return quoted(name) + "," + std::to_string(record.StarType) + "," +
           std::to_string(writtenPlanetCount(record));
}

std::string RecordFields::planetFields(const PlanetRecord& p) {
    return std::to_string(p.Position) + "," + std::to_string(p.Size) + "," +
           std::to_string(p.Moons) + "," + std::to_string(p.Attributes) + "," +
           std::to_string(p.PlanetClass) + "," + std::to_string(p.LastVisit);
}

}  // namespace orr
