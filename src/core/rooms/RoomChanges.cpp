#include "rooms/RoomChanges.h"

#include <algorithm>

#include "messages/MessageEditRules.h"
#include "messages/MessageList.h"

namespace orr {

namespace {

using Changes = std::vector<std::pair<std::string, std::string>>;

// Item k of a list, written with the count raised to k when the list is shorter.
void putItem(Changes& changes, const MessageList& list, int k, const std::string& line) {
    if (k > list.count()) changes.emplace_back(list.keys().countKey, std::to_string(k));
    changes.emplace_back(list.keys().itemKey(k), line);
}

std::string inQuotes(std::string_view s) {
    return "\"" + std::string(s) + "\"";
}

}  // namespace

std::string lineTextProblem(std::string_view text, std::string_view what) {
    if (text.find('*') != std::string_view::npos)
        return std::string(what) + " cannot contain \"*\": it begins the line's codes.";
    if (std::any_of(text.begin(), text.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x20; }))
        return std::string(what) + " must be one line of text.";
    return {};
}

std::string destinationProblem(std::string_view destination) {
    return answerGroupProblem(destination, Direction::Response);
}

std::string returnRoomProblem(std::string_view room) {
    if (room.empty()) return "Please enter the room the effect returns to.";
    return answerGroupProblem(room, Direction::Message);
}

std::string lineLengthProblem(std::string_view line) {
    if (line.size() <= kMaxRoomLine) return {};
    return "The line would be " + std::to_string(line.size()) +
           " characters long; the game reads " + std::to_string(kMaxRoomLine) + " at most.";
}

std::string actionLineProblem(std::string_view line) {
    if (std::any_of(line.begin(), line.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x20; }))
        return "An action must be one line of text.";
    if (std::string problem = destinationProblem(destinationOf(SplitMessage(line).tail));
        !problem.empty())
        return problem;
    return lineLengthProblem(line);
}

std::string descriptionProblem(MessageStore& store, const std::string& room,
                               std::string_view text) {
    if (std::string problem = lineTextProblem(text, "A room's description"); !problem.empty())
        return problem;
    const std::optional<int> n = FindDescription(store, room);
    const MessageList messages(store, room, Direction::Message);
    if (!n && messages.count() >= kMaxRoomActions)
        return "The room " + inQuotes(room) + " has " + std::to_string(messages.count()) +
               " messages and none describes it; no further one can be added.";
    const SplitLine old = n ? SplitMessage(messages.line(*n)) : SplitLine{};
    return lineLengthProblem(old.codes + std::string(text) + old.tail);
}

bool StoreDescription(MessageStore& store, const std::string& room, const std::string& text) {
    const MessageList messages(store, room, Direction::Message);
    const std::optional<int> found = FindDescription(store, room);
    const int n = found ? *found : messages.count() + 1;
    SplitLine line = found ? SplitMessage(messages.line(n)) : SplitLine{};
    line.text = text;
    Changes changes;
    putItem(changes, messages, n, line.line());
    return store.PutMessages(changes);
}

std::string effectGroupProblem(std::string_view group) {
    if (group.empty())
        return "This action has no destination. Give it one before adding an effect.";
    if (group == kNoRoom)
        return "This action ends the exchange (its destination is \"None\"); it can have no "
               "effect.";
    return groupNameProblem(group);
}

EffectSlot FindEffect(MessageStore& store, const std::string& group) {
    EffectSlot slot;
    slot.group = group;
    const MessageList messages(store, group, Direction::Message);
    const int count = messages.count();
    if (count == 0) return slot;
    for (int k = 1; k <= count; ++k) {
        SplitLine line = SplitMessage(messages.line(k));
        std::string returnRoom = returnRoomOf(line.tail);
        if (returnRoom.empty()) continue;
        line.tail = withoutTag(line.tail, "*R");
        slot.number = k;
        slot.line = std::move(line);
        slot.returnRoom = std::move(returnRoom);
        return slot;
    }
    // Every message keeps the player there: a room. A new message is added after the last, with
    // the last one's codes and tail.
    slot.isRoom = true;
    slot.number = count + 1;
    slot.line = SplitMessage(messages.line(count));
    slot.line.text.clear();
    slot.line.tail = withoutTag(slot.line.tail, "*R");
    return slot;
}

std::string effectProblem(const EffectSlot& slot, std::string_view text,
                          std::string_view returnRoom) {
    if (std::string problem = effectGroupProblem(slot.group); !problem.empty()) return problem;
    if (text.empty()) return "Please enter the description of what happens.";
    if (std::string problem = lineTextProblem(text, "An effect"); !problem.empty()) return problem;
    if (std::string problem = returnRoomProblem(returnRoom); !problem.empty()) return problem;
    return lineLengthProblem(slot.line.codes + std::string(text) + slot.line.tail + "*R" +
                             std::string(returnRoom));
}

bool StoreEffect(MessageStore& store, const EffectSlot& slot, const std::string& text,
                 const std::string& returnRoom) {
    const MessageList messages(store, slot.group, Direction::Message);
    Changes changes;
    putItem(changes, messages, slot.number,
            slot.line.codes + text + slot.line.tail + "*R" + returnRoom);
    return store.PutMessages(changes);
}

std::string lockProblem(MessageStore& store, const std::string& room, int k, char flag,
                        std::string_view message) {
    const MessageList actions(store, room, Direction::Response);
    if (k < 1 || k > actions.count())
        return "The room " + inQuotes(room) + " has no action " + std::to_string(k) + ".";
    if (!isFlagCharacter(flag)) return "A flag is one of the letters A to Z or digits 0 to 9.";
    if (message.empty()) return "Please enter a message for the locked action.";
    if (std::string problem = lineTextProblem(message, "The locked message"); !problem.empty())
        return problem;
    const SplitLine action = SplitMessage(actions.line(k));
    const std::string destination = destinationOf(action.tail);
    if (destination.empty())
        return "This action has no destination. Give it one before locking it.";
    if (std::string problem = appendProblem(store, room); !problem.empty()) return problem;
    // The twin is the longer of the two action lines.
    const std::string twin = "%f" + std::string(1, flag) + action.codes + action.text +
                             withoutTag(action.tail, "*M") + "*M" + destination + kLockedSuffix;
    if (std::string problem = lineLengthProblem(twin); !problem.empty()) return problem;
    return lineLengthProblem(std::string(message) + "*R" + room);
}

bool LockAction(MessageStore& store, const std::string& room, int k, char flag,
                const std::string& message) {
    const MessageList actions(store, room, Direction::Response);
    const SplitLine action = SplitMessage(actions.line(k));
    const std::string destination = destinationOf(action.tail);
    const std::string flagText(1, flag);
    const int twin = actions.count() + 1;
    const MessageList locked(store, destination + kLockedSuffix, Direction::Message);
    Changes changes;
    changes.emplace_back(actions.keys().itemKey(k), "%F" + flagText + action.line());
    putItem(changes, actions, twin,
            "%f" + flagText + action.codes + action.text + withoutTag(action.tail, "*M") + "*M" +
                destination + kLockedSuffix);
    putItem(changes, locked, locked.count() + 1, message + "*R" + room);
    return store.PutMessages(changes);
}

std::string requirementsProblem(const Requirements& requirements) {
    for (const std::string& code : requirements.codes) {
        const bool valid =
            code.empty() || (code.size() == 3 && code[0] == '%' &&
                             (code[1] == 'F' || code[1] == 'f') && isFlagCharacter(code[2]));
        if (!valid)
            return "A requirement is \"%F\" or \"%f\" and a flag, not " + inQuotes(code) + ".";
    }
    return {};
}

bool StoreRequirements(MessageStore& store, const Requirements& requirements) {
    Changes changes;
    for (std::size_t row = 0; row < kRequirementKeys.size(); ++row)
        changes.emplace_back(kRequirementKeys[row], requirements.codes[row]);
    return store.PutMessages(changes);
}

}  // namespace orr
