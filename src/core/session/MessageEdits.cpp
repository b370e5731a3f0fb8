#include "session/MessageEdits.h"

#include "messages/Flags.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"

namespace orr {

namespace {

// "Message Hail 2", "Response INIT 1", "Information".
std::string lineName(const MessageListRef& list, int n) {
    if (list.direction == Direction::Information) return "Information";
    std::string name = list.direction == Direction::Response ? "Response " : "Message ";
    name += shownGroupName(storedGroupName(list.group));
    if (n > 0) name += " " + std::to_string(n);
    return name;
}

bool requirePlanet(EditSession& session, int planet) {
    if (planet >= 1 && planet <= kMaxPlanets && session.isOpen()) return true;
    return session.fail(session.isOpen() ? "There is no planet " + std::to_string(planet) + "."
                                         : "No system is open.");
}

// Runs `change` on the list inside one command.
template <typename Change>
bool onList(EditSession& session, const MessageListRef& list, const std::string& stepName,
            Change change) {
    if (!requirePlanet(session, list.planet)) return false;
    auto command = session.command(stepName, {kPlanetKeysChanged, list.planet});
    PlanetMessageStore store(command.store(), list.planet);
    MessageList lines(store, list.group, list.direction);
    const bool ok = change(lines);
    if (!ok && command.store().lastError().empty())
        command.store().fail("There is no such line in " + lineName(list, 0) + ".");
    return command.commit(ok);
}

}  // namespace

bool storeMessageLine(EditSession& session, const MessageListRef& list, int n,
                      const std::string& line) {
    const bool information = list.direction == Direction::Information;
    const std::string name = information
                                 ? (line.empty() ? "Delete Information" : "Edit Information")
                                 : "Edit " + lineName(list, n);
    return onList(session, list, name, [&](MessageList& lines) {
        if (information) return lines.store(1, line);
        return n >= 1 && n <= lines.count() && lines.store(n, line);
    });
}

bool appendMessageLine(EditSession& session, const MessageListRef& list, const std::string& line) {
    if (list.direction == Direction::Information) return storeMessageLine(session, list, 1, line);
    if (!requirePlanet(session, list.planet)) return false;
    PlanetMessageStore reader(session.store(), list.planet);
    const int next = MessageList(reader, list.group, list.direction).count() + 1;
    return onList(session, list, "New " + lineName(list, next),
                  [&](MessageList& lines) { return lines.append(line); });
}

bool removeMessageLine(EditSession& session, const MessageListRef& list, int n) {
    return onList(session, list, "Remove " + lineName(list, n),
                  [&](MessageList& lines) { return lines.remove(n); });
}

bool clearMessageLines(EditSession& session, const MessageListRef& list) {
    const std::string what = list.direction == Direction::Response ? "Responses " : "Messages ";
    return onList(session, list, "Clear " + what + shownGroupName(storedGroupName(list.group)),
                  [](MessageList& lines) { return lines.clearAll(); });
}

bool swapMessageLines(EditSession& session, const MessageListRef& list, int n, bool movedDown) {
    const int moved = movedDown ? n : n + 1;
    return onList(session, list, "Move " + lineName(list, moved) + (movedDown ? " Down" : " Up"),
                  [&](MessageList& lines) { return lines.swap(n); });
}

bool putPlanetKeys(EditSession& session, int planet, const std::string& stepName,
                   const std::vector<std::pair<std::string, std::string>>& changes) {
    if (!requirePlanet(session, planet)) return false;
    auto command = session.command(stepName, {kPlanetKeysChanged, planet});
    PlanetMessageStore store(command.store(), planet);
    return command.commit(store.PutMessages(changes));
}

bool setFlagDescription(EditSession& session, int planet, char flag,
                        const std::string& description) {
    if (!IsUsableFlagDescription(description)) return session.fail(kFlagDescriptionNeeded);
    if (!requirePlanet(session, planet)) return false;
    auto command =
        session.command(std::string("Describe Flag ") + flag, {kPlanetKeysChanged, planet});
    PlanetMessageStore store(command.store(), planet);
    return command.commit(SaveFlagDescription(store, flag, description));
}

}  // namespace orr
