#pragma once
// Test in Voidrunner: the game started at a system. The game reads the system from its argument
// "/star:" + EncodeStarArgument(key); where the game does not run by itself (elsewhere than on
// Windows) a launcher such as wine is put in front of the game's path.

#include <optional>
#include <string>
#include <string_view>

#include "external/CommandLine.h"
#include "store/GameFolder.h"

namespace orr {

// The launcher's words (the "Game Launcher" setting split as a command line, its program looked
// up in PATH), the game's path and the start argument; the game alone when `launcher` is empty.
// Every word is UTF-8: the start argument is the text of its Windows-1252 bytes, which the
// platform (or wine) hands to the game as exactly those bytes. nullopt, with the reason in
// *problem, when the key cannot be passed to the game or a program is missing.
std::optional<CommandLine> gameCommand(const GameFolder& folder, const std::string& key,
                                       std::string_view launcher, std::string* problem);

}  // namespace orr
