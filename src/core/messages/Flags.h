#pragma once
// The 36 flags of a planet's adventure. Flag index 0..25 is written "A".."Z", index 26..35
// "0".."9"; each flag may carry a designer's description under the key "Flag" + character.

#include <string>
#include <string_view>
#include <vector>

#include "messages/MessageStore.h"

namespace orr {

inline constexpr int kFlagCount = 36;
inline constexpr const char* kUnusedFlag = "Unused";
inline constexpr const char* kFlagDescriptionNeeded =
    "Please enter a short description which describes how this flag is used.";

// The chooser's index of a flag character: letters by their distance from "A", anything else
// by its numeric value + 26 (so "7" is 33). An empty text means "A".
int FlagIndex(std::string_view flag);
// The character of index 0..35 ("A".."Z", "0".."9").
char FlagChar(int index);

// The flag's description, or "Unused" when none is stored.
std::string FlagDescription(MessageStore& store, char flag);
// The 36 chooser items "C - description", in index order.
std::vector<std::string> LoadFlagItems(MessageStore& store);
// The description part of a chooser item (the text after " - ").
std::string FlagItemDescription(std::string_view item);
// A description the chooser accepts: neither empty nor "Unused".
bool IsUsableFlagDescription(std::string_view description);
// Stores the flag's description; false when it could not be written.
bool SaveFlagDescription(MessageStore& store, char flag, const std::string& description);

}  // namespace orr
