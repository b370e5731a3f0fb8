#pragma once
// The changes of a room beyond adding and removing actions: its description, the effect of an
// action, a lock on an action, and the planet-wide requirements of the standard actions. Each
// has a check that says, in the designer's words, why it cannot be made (empty when it can);
// the writes assume the check passed. All go through a MessageStore, so the edit session's
// commands write each change in one go.

#include <string>
#include <string_view>

#include "messages/MessageStore.h"
#include "rooms/Room.h"

namespace orr {

// Why `text` cannot be the text of a room line: a "*" would begin the line's codes, and a line
// break or other control character has no place in a stored line.
std::string lineTextProblem(std::string_view text, std::string_view what);
// Why `destination` cannot follow "*M" (an empty destination can), or `room` "*R".
std::string destinationProblem(std::string_view destination);
std::string returnRoomProblem(std::string_view room);
// Why `line` is too long for the game to read back.
std::string lineLengthProblem(std::string_view line);
// Why a whole action line (codes, text, "*M" destination, further codes) cannot be stored: a
// line break, a destination that cannot be a group, or its length.
std::string actionLineProblem(std::string_view line);

// --- the description: the first message without "*R", or a new one after the last.
std::string descriptionProblem(MessageStore& store, const std::string& room, std::string_view text);
bool StoreDescription(MessageStore& store, const std::string& room, const std::string& text);

// --- effects: the message of group E that an action leads to and that returns to a room.
struct EffectSlot {
    std::string group;
    int number = 1;       // the message replaced, or count + 1 for a new one
    bool isRoom = false;  // E has messages and none leads on: E is a room, adding one may hide it
    SplitLine line;       // codes, text and tail of the message replaced, its "*R" part taken out
    std::string returnRoom;  // where the message returns to now; empty when nowhere
};
std::string effectGroupProblem(std::string_view group);
EffectSlot FindEffect(MessageStore& store, const std::string& group);
std::string effectProblem(const EffectSlot& slot, std::string_view text,
                          std::string_view returnRoom);
bool StoreEffect(MessageStore& store, const EffectSlot& slot, const std::string& text,
                 const std::string& returnRoom);

// --- locks: action k of the room works only while flag c is set; while it is clear a twin of
// the action leads to D + "Locked", whose new message `message` returns to the room.
std::string lockProblem(MessageStore& store, const std::string& room, int k, char flag,
                        std::string_view message);
bool LockAction(MessageStore& store, const std::string& room, int k, char flag,
                const std::string& message);

// --- the requirements of beam up, search and tricorder ("BeamFlag", "SearchFlag", "TriFlag");
// an empty code deletes its key.
std::string requirementsProblem(const Requirements& requirements);
bool StoreRequirements(MessageStore& store, const Requirements& requirements);

}  // namespace orr
