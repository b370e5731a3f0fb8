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

// A field that must be a whole number within [min, max]; the reason names the field.
bool readNumber(const std::string& field, const char* what, long long min, long long max,
                long long& out, std::string* reason) {
    if (text::parseInteger(field, min, max, out)) return true;
    if (reason) {
        *reason = std::string("the ") + what + " " + quoted(field) +
                  " is not a whole number from " + std::to_string(min) + " to " +
                  std::to_string(max);
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
    if (fields.size() != 3) {
        if (reason) {
            *reason = "the header line has " + std::to_string(fields.size()) +
                      " fields instead of the display name, star type and planet count";
        }
        return std::nullopt;
    }
    long long starType = 0;
    long long count = 0;
    if (!readNumber(fields[1], "star type", 0, 7, starType, reason)) return std::nullopt;
    if (!readNumber(fields[2], "planet count", 0, kMaxPlanets, count, reason)) return std::nullopt;
    Header header;
    header.displayName = text::fitWidth(fields[0], kDisplayNameWidth);
    header.starType = static_cast<std::int16_t>(starType);
    header.planetCount = static_cast<std::int16_t>(count);
    return header;
}

std::optional<long long> RecordFields::claimedPlanetCount(std::string_view line) {
    const std::vector<std::string> fields = split(line);
    long long count = 0;
    if (fields.size() != 3 || !text::parseInteger(fields[2], -32768, 32767, count)) {
        return std::nullopt;
    }
    return count;
}

bool RecordFields::parsePlanet(std::string_view line, PlanetRecord& planet, std::string* reason) {
    const std::vector<std::string> fields = split(line);
    if (fields.size() != 6) {
        if (reason) {
            *reason = "a planet line has " + std::to_string(fields.size()) + " fields instead of 6";
        }
        return false;
    }
    constexpr long long kMin16 = -32768, kMax16 = 32767;
    constexpr long long kMin32 = -2147483648LL, kMax32 = 2147483647LL;
    long long v[6];
    if (!readNumber(fields[0], "orbit position", kMin16, kMax16, v[0], reason) ||
        !readNumber(fields[1], "planet size", kMin16, kMax16, v[1], reason) ||
        !readNumber(fields[2], "number of moons", kMin16, kMax16, v[2], reason) ||
        !readNumber(fields[3], "attribute word", kMin32, kMax32, v[3], reason) ||
        !readNumber(fields[4], "planet class", kMin16, kMax16, v[4], reason) ||
        !readNumber(fields[5], "last visit", kMin32, kMax32, v[5], reason)) {
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
