#pragma once
// Key names of a planet's message lists. A group's messages and responses are each stored as a
// count key plus numbered item keys ("Messages"+g / "Message"+g+n, "Responses"+g /
// "Response"+g+n). The group the editor shows as "INIT" is stored under the empty name, and the
// "Beam" group keeps its messages under "BeamMessages" / "Beam"+n, a layout the game fixed long
// ago.

#include <string>
#include <string_view>

namespace orr {

// The three lists of the message editor; the values are the editor's option-button indexes.
enum class Direction { Message = 0, Information = 1, Response = 2 };

inline constexpr const char* kInitGroup = "INIT";
inline constexpr const char* kInfoKey = "Info";
inline constexpr const char* kMissingValue = "ERR";  // what a read of an absent key returns

// Count key and item-key prefix of one list. For Information the count key is empty and the
// item key is always "Info".
struct MessageKeyPair {
    std::string countKey;
    std::string itemPrefix;
    Direction direction = Direction::Message;

    // The key of item n (1-based): prefix + decimal n; "Info" for Information.
    std::string itemKey(int n) const;
    bool operator==(const MessageKeyPair&) const = default;
};

// The group as stored in key names: "INIT" becomes the empty name, everything else is kept.
std::string storedGroupName(std::string_view group);
// The group as the editor shows it: the empty name becomes "INIT".
std::string shownGroupName(std::string_view group);

// Keys of the group's list in the given direction (group given either way, "INIT" or empty).
MessageKeyPair messageKeys(std::string_view group, Direction direction);

// The groups derived from every group: "Ignore"+g (plain "Ignore" for INIT) and g+"Phaser"
// (plain "Phaser" for INIT), both returned as stored names.
std::string ignoreGroup(std::string_view group);
std::string phaserGroup(std::string_view group);

// The keys of a flag's description and of the standard away-team restrictions.
std::string flagDescriptionKey(char flag);  // "Flag" + flag
inline constexpr const char* kBeamFlagKey = "BeamFlag";
inline constexpr const char* kSearchFlagKey = "SearchFlag";
inline constexpr const char* kTricorderFlagKey = "TriFlag";

}  // namespace orr
