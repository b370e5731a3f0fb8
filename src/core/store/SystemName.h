#pragma once
// Whether a text can be a system name, that is the base name of a descriptor file on every
// system the game's folders travel between.

#include <optional>
#include <string>
#include <string_view>

namespace orr {

// nullopt when the name is usable; otherwise a sentence for the user saying why it is not:
// empty; holding / \ : * ? " < > | or a control character (all of them named at once); "." or
// ".."; leading or trailing blanks or dots; a reserved device name (CON, PRN, AUX, NUL, COM1..9,
// LPT1..9, with or without an extension).
std::optional<std::string> CheckSystemName(std::string_view name);

// The game's start argument for a system key: 21 characters (8-bit codes). A custom system passes
// the marker 254 and its name, a replacement of a listed system its planet count as one
// character and its name; every character is then inverted (255 - code).
std::string EncodeStarArgument(const std::string& key);
// Why the game cannot be started at the system `key`: the argument would be longer than 21
// characters (the game would see a cut name), or would hold a character 0. nullopt when it can.
std::optional<std::string> StarArgumentProblem(const std::string& key);

}  // namespace orr
