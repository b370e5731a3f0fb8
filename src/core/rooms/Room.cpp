#include "rooms/Room.h"

#include <algorithm>

#include "messages/MessageList.h"

namespace orr {

namespace {

int addressable(int count) {
    return std::min(count, kMaxRoomActions);
}

// Following a room's "*R" answers is the designer's choice each time; the bound only keeps a
// scripted asker that always says Yes from going round a circle of effects for ever.
constexpr int kMaxFollowedEffects = 256;

}  // namespace

const SplitLine* RoomView::action(int n) const {
    for (const ActionBinding& binding : standard)
        if (binding.state != kNotStored && binding.number == n) return &binding.line;
    for (const ListedAction& listedAction : listed)
        if (listedAction.number == n) return &listedAction.line;
    return nullptr;
}

int RoomView::standardOf(int n) const {
    for (int i = 0; i < kStandardActionCount; ++i)
        if (standard[i].state != kNotStored && standard[i].number == n) return i;
    return -1;
}

std::optional<int> FindDescription(MessageStore& store, const std::string& room) {
    const MessageList messages(store, room, Direction::Message);
    const int count = addressable(messages.count());
    for (int n = 1; n <= count; ++n)
        if (!hasTag(SplitMessage(messages.line(n)).tail, "*R")) return n;
    return std::nullopt;
}

bool groupHasMessages(MessageStore& store, const std::string& group) {
    return MessageList(store, group, Direction::Message).count() > 0;
}

RoomView readRoom(MessageStore& store, const std::string& room) {
    RoomView view;
    view.room = room;
    const MessageList messages(store, room, Direction::Message);
    view.messageCount = messages.count();
    std::vector<LeadingMessage> leading;
    for (int n = 1; n <= addressable(view.messageCount); ++n) {
        SplitLine line = SplitMessage(messages.line(n));
        if (!hasTag(line.tail, "*R")) {
            view.description = RoomDescription{n, std::move(line)};
            break;
        }
        // "*R" alone returns to the planet's first group, which is no room to go to.
        if (std::string group = returnRoomOf(line.tail); !group.empty())
            leading.push_back({n, line.text, std::move(group)});
    }
    if (!view.description) view.leadsTo = std::move(leading);

    view.neighbours = NeighbourRooms(room);
    const Requirements requirements = readRequirements(store);
    for (int i = 0; i < kStandardActionCount; ++i) {
        ActionBinding& binding = view.standard[i];
        binding.defaultLine = defaultActionLine(i, room, view.neighbours, requirements);
        binding.line = SplitMessage(binding.defaultLine);
        binding.destination = destinationOf(binding.line.tail);
    }

    const MessageList actions(store, room, Direction::Response);
    view.actionCount = actions.count();
    std::array<bool, kStandardActionCount> bound{};
    for (int n = 1; n <= addressable(view.actionCount); ++n) {
        SplitLine line = SplitMessage(actions.line(n));
        std::string destination = destinationOf(line.tail);
        const int i = ClassifyAction(line, view.neighbours, bound);
        if (i < 0) {
            view.listed.push_back({n, std::move(line), std::move(destination)});
            continue;
        }
        bound[i] = true;
        ActionBinding& binding = view.standard[i];
        binding.state = line.line() == binding.defaultLine ? kDefault : kChanged;
        binding.number = n;
        binding.line = std::move(line);
        binding.destination = std::move(destination);
    }
    for (int d = 0; d < kDirectionCount; ++d) {
        const ActionBinding& door = view.standard[d];
        view.doorLeadsNowhere[d] = door.state != kNotStored && !door.destination.empty() &&
                                   door.destination != kNoRoom &&
                                   !groupHasMessages(store, door.destination);
    }
    return view;
}

std::string notARoomCaption(const std::string& room) {
    return room + " is not a room (maybe an effect?)";
}

std::string notARoomQuestion(const LeadingMessage& message) {
    return message.text + "\r\n\r\nThis message leads to the room '" + message.group +
           "', would you like to go there instead?";
}

std::optional<RoomView> LoadRoom(MessageStore& store, const std::string& room,
                                 const NotARoomQuestion& ask) {
    std::string current = room;
    for (int followed = 0; followed <= kMaxFollowedEffects; ++followed) {
        if (!roomNameProblem(current).empty()) return std::nullopt;
        RoomView view = readRoom(store, current);
        std::string next;
        for (const LeadingMessage& message : view.leadsTo) {
            const NotARoomAnswer answer = ask(current, message);
            if (answer == NotARoomAnswer::Cancel) return std::nullopt;
            if (answer == NotARoomAnswer::Yes) {
                next = message.group;
                break;
            }
        }
        if (next.empty()) return view;  // a room, or an effect the designer stays in
        current = next;
    }
    return std::nullopt;
}

std::string appendProblem(MessageStore& store, const std::string& room) {
    const int count = MessageList(store, room, Direction::Response).count();
    if (count < kMaxRoomActions) return {};
    return "The room \"" + room + "\" has " + std::to_string(count) + " actions; a room can have " +
           std::to_string(kMaxRoomActions) + " at most. Remove one before adding another.";
}

int AppendAction(MessageStore& store, const std::string& room, const std::string& line) {
    if (!appendProblem(store, room).empty()) return 0;
    MessageList actions(store, room, Direction::Response);
    const int n = actions.count() + 1;
    return actions.append(line) ? n : 0;
}

bool RemoveAction(MessageStore& store, const std::string& room, int n) {
    return MessageList(store, room, Direction::Response).remove(n);
}

}  // namespace orr
