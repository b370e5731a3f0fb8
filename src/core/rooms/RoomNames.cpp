#include "rooms/RoomNames.h"

#include "messages/MessageEditRules.h"
#include "messages/MessageKeys.h"
#include "text/Text.h"

namespace orr {

namespace {

std::string padded(long long value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

std::string_view lastChars(std::string_view s, std::size_t n) {
    return s.size() <= n ? s : s.substr(s.size() - n);
}

}  // namespace

long long Val(std::string_view s) {
    std::size_t at = 0;
    while (at < s.size() && s[at] == ' ') ++at;
    long long value = 0;
    for (; at < s.size() && s[at] >= '0' && s[at] <= '9'; ++at) {
        if (value > 100000000000LL) break;  // far beyond any coordinate; never overflows
        value = value * 10 + (s[at] - '0');
    }
    return value;
}

Neighbours NeighbourRooms(std::string_view room) {
    Neighbours neighbours;
    if (Val(lastChars(room, 2)) <= 0) return neighbours;
    long long x = 0;
    long long y = 0;
    std::size_t width = 1;
    std::string_view prefix;
    if (room.size() >= 4 && Val(lastChars(room, 4)) > 0) {
        const std::string_view last = lastChars(room, 4);
        x = Val(last.substr(0, 2));
        y = Val(last.substr(2));
        prefix = room.substr(0, room.size() - 4);
        width = 2;
    } else {
        const std::string_view last = lastChars(room, 2);
        x = Val(last.substr(0, 1));
        y = Val(last.substr(1));
        prefix = room.substr(0, room.size() - last.size());
    }
    const auto name = [&](long long cx, long long cy) {
        return std::string(prefix) + padded(cx, width) + padded(cy, width);
    };
    if (y > 1) neighbours[0] = name(x, y - 1);
    neighbours[1] = name(x + 1, y);
    neighbours[2] = name(x, y + 1);
    if (x > 1) neighbours[3] = name(x - 1, y);
    return neighbours;
}

std::string gridRoomName(int x, int y, int width, int height) {
    return std::string(kAreaPrefix) + padded(x, std::to_string(width).size()) +
           padded(y, std::to_string(height).size());
}

std::string roomOfGroup(std::string_view group) {
    for (const std::string_view suffix : {kSearchSuffix, kTricorderSuffix, kLockedSuffix}) {
        if (group.size() > suffix.size() && group.ends_with(suffix))
            return std::string(group.substr(0, group.size() - suffix.size()));
    }
    return std::string(group);
}

bool canEditAsRoom(std::string_view group) {
    for (const std::string_view root : {kInfoKey, kBeamDownGroup, "Hail", kInitGroup, ""})
        if (group == root) return false;
    return true;
}

std::string roomNameProblem(std::string_view room) {
    if (room.empty() || room == kInitGroup) return "INIT is the planet's first group, not a room.";
    if (room == kNoRoom) return "\"None\" ends the exchange; it is never a room.";
    return groupNameProblem(room);
}

}  // namespace orr
