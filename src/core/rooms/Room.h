#pragma once
// A room as the room editor shows it, read from a planet's keys: its description, the groups its
// messages lead to when it is an effect rather than a room, its neighbours, its seven standard
// actions and its further ("listed") actions; and the changes of its lists. A room is the message
// group of its name: its messages describe it, its responses are its actions.
//
//     RoomView view = readRoom(store, "Area11");
//     if (view.standard[kNorth].state == kNotStored) ...   // the box is unticked
//     const int n = AppendAction(store, "Area11", "New Action*M");

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "messages/MessageStore.h"
#include "rooms/RoomLine.h"
#include "rooms/StandardActions.h"

namespace orr {

// An action number is kept in one character by the game's room editor, so a room has at most
// 255 actions and 255 description messages the editor can address.
inline constexpr int kMaxRoomActions = 255;
// The longest line the game reads back (values are read into a 255-character buffer).
inline constexpr std::size_t kMaxRoomLine = 254;

// The state of a standard action box: not stored (unticked), stored as its default line
// (ticked), or stored and changed by the designer (grey).
enum ActionState { kNotStored = 0, kDefault = 1, kChanged = 2 };

struct ActionBinding {
    int state = kNotStored;
    int number = 0;  // the stored action's number; 0 when not stored
    SplitLine line;  // the stored line, or the default line when not stored
    std::string defaultLine;
    std::string destination;
    // A door without a neighbour has no default destination: ticking it asks for one.
    bool needsDestination() const { return state == kNotStored && destination.empty(); }
};

struct ListedAction {
    int number = 0;
    SplitLine line;
    std::string destination;
};

struct RoomDescription {
    int number = 0;
    SplitLine line;
};

// A message of the room that leads to another group ("*R" + group): the room is an effect.
struct LeadingMessage {
    int number = 0;
    std::string text;
    std::string group;
};

struct RoomView {
    std::string room;
    std::optional<RoomDescription> description;
    std::vector<LeadingMessage> leadsTo;  // only when there is no description
    Neighbours neighbours;
    std::array<ActionBinding, kStandardActionCount> standard;
    std::vector<ListedAction> listed;  // in number order
    // A door leads to a group without messages: the game would find nothing there.
    std::array<bool, kDirectionCount> doorLeadsNowhere{};
    int messageCount = 0;
    int actionCount = 0;

    // The stored action n as a standard action's line or a listed one; nullptr when absent.
    const SplitLine* action(int n) const;
    // The standard action bound to stored action n, or -1.
    int standardOf(int n) const;
};

// The first message of the room without "*R": its description; none when every message leads on.
std::optional<int> FindDescription(MessageStore& store, const std::string& room);
RoomView readRoom(MessageStore& store, const std::string& room);
// Whether a group holds any message (a door to a group without one leads nowhere).
bool groupHasMessages(MessageStore& store, const std::string& group);

// What the designer answers when a room turns out to be an effect: go to the group its message
// leads to (Yes), ask about the next message (No), or stay where one was (Cancel).
enum class NotARoomAnswer { Yes, No, Cancel };
using NotARoomQuestion =
    std::function<NotARoomAnswer(const std::string& room, const LeadingMessage& message)>;
std::string notARoomCaption(const std::string& room);
std::string notARoomQuestion(const LeadingMessage& message);
// The room to show for `room`, following the designer's answers; nullopt when nothing is to be
// shown ("None", a name that is no room, or Cancel).
std::optional<RoomView> LoadRoom(MessageStore& store, const std::string& room,
                                 const NotARoomQuestion& ask);

// Why the room cannot take one more action; empty when it can.
std::string appendProblem(MessageStore& store, const std::string& room);
// Appends the line as action count + 1 (count first, then the line, in one write); returns its
// number, or 0 when it was refused (appendProblem) or not written.
int AppendAction(MessageStore& store, const std::string& room, const std::string& line);
// Removes action n, moving the later ones one number down; false when n is not an action.
bool RemoveAction(MessageStore& store, const std::string& room, int n);

}  // namespace orr
