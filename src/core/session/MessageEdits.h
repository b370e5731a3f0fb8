#pragma once
// The commands on a planet's messages: the lines of one list of a group (messages or responses)
// or the planet's information text, and the descriptions of its flags. Each is one undoable step
// of the edit session, named as the Edit menu shows it ("Edit Message Hail 2").

#include <string>
#include <utility>
#include <vector>

#include "messages/MessageKeys.h"
#include "session/EditSession.h"

namespace orr {

// One list of a planet: the messages or responses of a group, or its information text.
struct MessageListRef {
    int planet = 1;
    std::string group;  // "INIT" or the empty name for the root group; ignored for Information
    Direction direction = Direction::Message;
};

// Line n (1-based) replaced by `line`; for Information the text (empty deletes it).
bool storeMessageLine(EditSession& session, const MessageListRef& list, int n,
                      const std::string& line);
// A new last line.
bool appendMessageLine(EditSession& session, const MessageListRef& list, const std::string& line);
// Line n removed, the following lines moving one number down.
bool removeMessageLine(EditSession& session, const MessageListRef& list, int n);
// The count set to 0; the item keys stay and are overwritten as lines are added.
bool clearMessageLines(EditSession& session, const MessageListRef& list);
// Lines n and n + 1 exchanged; `movedDown` says which of them the user moved, for the name.
bool swapMessageLines(EditSession& session, const MessageListRef& list, int n, bool movedDown);

// Several keys of a planet written as one step (an empty value deletes its key).
bool putPlanetKeys(EditSession& session, int planet, const std::string& stepName,
                   const std::vector<std::pair<std::string, std::string>>& changes);

// The description of flag `flag` of the planet.
bool setFlagDescription(EditSession& session, int planet, char flag,
                        const std::string& description);

}  // namespace orr
