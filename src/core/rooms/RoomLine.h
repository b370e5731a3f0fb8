#pragma once
// One stored room line (a description, an action or an effect message) taken apart the way the
// room editor reads it: the leading "%" codes, the text, and the tail from the first "*" on, which
// holds the "*M" destination of an action or the "*R" return room of a message and any further
// action codes. Codes + text + tail gives the line back byte for byte.

#include <string>
#include <string_view>

namespace orr {

struct SplitLine {
    std::string codes;  // "%" codes, three characters each
    std::string text;   // up to the first "*"
    std::string tail;   // from the first "*" to the end

    std::string line() const { return codes + text + tail; }
    // The editor's "codes" of an action: its "%" codes and its tail, joined.
    std::string joinedCodes() const { return codes + tail; }
};

// The line taken apart; an absent line ("ERR" from the store) splits into nothing.
SplitLine SplitMessage(std::string_view line);

// What follows the first `tag` ("*M" or "*R") of a tail, up to the next "*" or the end; empty
// when the tail has no such tag.
std::string tagTarget(std::string_view tail, std::string_view tag);
bool hasTag(std::string_view tail, std::string_view tag);
inline std::string destinationOf(std::string_view tail) {
    return tagTarget(tail, "*M");
}
inline std::string returnRoomOf(std::string_view tail) {
    return tagTarget(tail, "*R");
}

// The tail without its first `tag` and that tag's target.
std::string withoutTag(std::string_view tail, std::string_view tag);
// The tail with the target of its first "*M" replaced by `destination`, or "*M" + destination
// added at its end when it has none.
std::string withDestination(std::string_view tail, std::string_view destination);

// The direction marker codes: "%GN", "%GE", "%GS", "%GW", and "%G-" for "no direction".
bool hasCode(std::string_view codes, std::string_view code);
std::string withoutDirectionMarkers(std::string_view codes);

}  // namespace orr
