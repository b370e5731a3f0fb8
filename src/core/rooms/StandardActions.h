#pragma once
// The seven standard actions of a room (four doors, beam up, search, tricorder): their captions,
// the line each has by default in a room, the planet-wide requirement prefixes put in front of the
// last three, and which stored action a standard action stands for (ClassifyAction).

#include <array>
#include <string>
#include <string_view>

#include "messages/MessageStore.h"
#include "rooms/RoomLine.h"
#include "rooms/RoomNames.h"

namespace orr {

inline constexpr int kStandardActionCount = 7;
enum StandardAction { kNorth = 0, kEast, kSouth, kWest, kBeamUp, kSearch, kTricorder };
inline constexpr int kDirectionCount = 4;

inline constexpr std::array<const char*, kStandardActionCount> kStandardCaptions = {
    "North",
    "East",
    "South",
    "West",
    "Beam back up to the ship.",
    "Search the area for anything unusual.",
    "What are your current tricorder readings?"};

// The direction menu of the room editor: "Auto" takes the marker away, "Other" marks an action
// that is no door although its text or destination looks like one.
inline constexpr int kDirectionChoiceCount = 6;
inline constexpr std::array<const char*, kDirectionChoiceCount> kDirectionChoices = {
    "Auto", "North", "East", "South", "West", "Other"};
inline constexpr std::array<const char*, kDirectionChoiceCount> kDirectionTags = {
    "", "%GN", "%GE", "%GS", "%GW", "%G-"};
// The choice whose tag the codes hold (0, "Auto", when none).
int directionChoiceOf(std::string_view codes);

// The planet-wide prefixes of the beam-up, search and tricorder actions: empty, or "%F" + flag
// (offered only while the flag is set) or "%f" + flag (only while it is clear).
struct Requirements {
    std::array<std::string, 3> codes;  // beam up, search, tricorder
    bool operator==(const Requirements&) const = default;
};
inline constexpr std::array<const char*, 3> kRequirementKeys = {"BeamFlag", "SearchFlag",
                                                                "TriFlag"};
Requirements readRequirements(MessageStore& store);
// The code of a requirement: `need` 'F' (set), 'f' (clear) or 0 (none).
std::string requirementCode(char need, char flag);
// A flag character: "A".."Z" or "0".."9".
bool isFlagCharacter(char c);

// The line action `i` has by default in `room`. A door without a neighbour ends in "*M" (no
// destination): the editor then asks for one.
std::string defaultActionLine(int i, std::string_view room, const Neighbours& neighbours,
                              const Requirements& requirements);
// The door marker of direction i ("%GN" ..).
std::string directionMarker(int i);

// The standard action 0..6 that a stored action stands for, or -1 for a listed action. Only the
// actions not `bound` yet by an earlier action are tried, in order: a door whose neighbour is the
// destination, whose caption the text holds (any case), or whose marker the codes hold (never
// with "%G-"); beam up for "BeamUp"; search and tricorder for destinations ending in "Search"
// and "Tri".
int ClassifyAction(const SplitLine& action, const Neighbours& neighbours,
                   const std::array<bool, kStandardActionCount>& bound);

}  // namespace orr
