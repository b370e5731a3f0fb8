#pragma once
// Room names: which group names can be rooms, the groups that belong to a room (its search,
// tricorder and locked-door groups), and the grid of areas the adventure wizard makes, named
// "Area" + column + row with both numbers zero-padded to the width of the grid's largest
// ("Area11" .. "Area33", "Area011" .. "Area103", "Area0101" .. "Area1010").

#include <array>
#include <string>
#include <string_view>

namespace orr {

inline constexpr const char* kNoRoom = "None";  // "*RNone" ends the exchange: never a room
inline constexpr const char* kBeamUpGroup = "BeamUp";
inline constexpr const char* kBeamDownGroup = "Beam";
inline constexpr const char* kSearchSuffix = "Search";
inline constexpr const char* kTricorderSuffix = "Tri";
inline constexpr const char* kLockedSuffix = "Locked";
inline constexpr const char* kAreaPrefix = "Area";

// North, east, south, west; an empty name where there is none.
using Neighbours = std::array<std::string, 4>;

// The value of the leading run of decimal digits (leading blanks skipped); 0 without digits.
long long Val(std::string_view s);

// The four grid neighbours of a room whose name ends in its coordinates: the last four
// characters as two two-digit numbers when they read as a number above 0, else the last two as
// two one-digit numbers. North and west stop at 1; east and south are formed without a bound,
// as the game forms them. A name without coordinates has no neighbours.
Neighbours NeighbourRooms(std::string_view room);

// The name of area (x, y) of a width x height grid.
std::string gridRoomName(int x, int y, int width, int height);

// The room a group belongs to: the group without a trailing "Search", "Tri" or "Locked".
std::string roomOfGroup(std::string_view group);

// Whether the message editor offers to edit `group` as a room: not the information text, nor the
// root groups "INIT", "Beam" and "Hail", whose lines are no room's.
bool canEditAsRoom(std::string_view group);

// Why `room` cannot be shown as a room (a name that cannot be a group, INIT's empty name, or
// "None"); empty when it can.
std::string roomNameProblem(std::string_view room);

}  // namespace orr
