#include "rooms/RoomLine.h"

#include "messages/MessageKeys.h"

namespace orr {

namespace {

constexpr std::size_t kCodeLength = 3;

}  // namespace

SplitLine SplitMessage(std::string_view line) {
    SplitLine split;
    if (line == kMissingValue) return split;
    std::size_t at = 0;
    while (at < line.size() && line[at] == '%') {
        split.codes.append(line.substr(at, kCodeLength));
        at += kCodeLength;
    }
    if (at >= line.size()) return split;
    const std::string_view rest = line.substr(at);
    const std::size_t star = rest.find('*');
    split.text = std::string(rest.substr(0, star));
    if (star != std::string_view::npos) split.tail = std::string(rest.substr(star));
    return split;
}

std::string tagTarget(std::string_view tail, std::string_view tag) {
    const std::size_t at = tail.find(tag);
    if (at == std::string_view::npos) return {};
    const std::size_t from = at + tag.size();
    const std::size_t end = tail.find('*', from);
    return std::string(tail.substr(from, end == std::string_view::npos ? end : end - from));
}

bool hasTag(std::string_view tail, std::string_view tag) {
    return tail.find(tag) != std::string_view::npos;
}

std::string withoutTag(std::string_view tail, std::string_view tag) {
    const std::size_t at = tail.find(tag);
    if (at == std::string_view::npos) return std::string(tail);
    const std::size_t end = tail.find('*', at + tag.size());
    std::string result(tail.substr(0, at));
    if (end != std::string_view::npos) result.append(tail.substr(end));
    return result;
}

std::string withDestination(std::string_view tail, std::string_view destination) {
    const std::size_t at = tail.find("*M");
    if (at == std::string_view::npos) return std::string(tail) + "*M" + std::string(destination);
    const std::size_t end = tail.find('*', at + 2);
    std::string result(tail.substr(0, at + 2));
    result.append(destination);
    if (end != std::string_view::npos) result.append(tail.substr(end));
    return result;
}

// Codes are compared code by code, so that a marker is never found across two codes.
bool hasCode(std::string_view codes, std::string_view code) {
    for (std::size_t at = 0; at < codes.size(); at += kCodeLength)
        if (codes.substr(at, kCodeLength) == code) return true;
    return false;
}

std::string withoutDirectionMarkers(std::string_view codes) {
    std::string kept;
    for (std::size_t at = 0; at < codes.size(); at += kCodeLength) {
        const std::string_view code = codes.substr(at, kCodeLength);
        if (!code.starts_with("%G")) kept.append(code);
    }
    return kept;
}

}  // namespace orr
