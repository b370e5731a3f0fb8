// The away-team room commands of orrerion-cli: the adventure grid wizard, a room as the room
// editor shows it (JSON), and the room editor's changes. Changes open a working copy through the
// core's edit session, make the change with the room editor's own commands, and save; they refuse
// where the system has a working copy (it is open in the editor, or a backup waits).

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <iostream>

#include "CliSupport.h"
#include "Command.h"
#include "messages/PlanetMessageStore.h"
#include "session/RoomEdits.h"
#include "text/Text.h"

namespace orr::cli {

namespace {

constexpr std::array<const char*, kStandardActionCount> kActionWords = {
    "north", "east", "south", "west", "beamup", "search", "tricorder"};

std::string roomArgument(const QString& argument) {
    const std::string room = storableBytesOf(argument, "The room name");
    if (const std::string problem = roomNameProblem(room); !problem.empty())
        throw CliError(problem);
    return room;
}

std::string textArgument(const QString& argument, const std::string& what) {
    const std::string text = storableBytesOf(argument, what);
    requireSingleLine(text, what);
    return text;
}

int actionNumber(const QString& argument) {
    return numberArgument(argument, 1, kMaxRoomActions, "An action number");
}

// One change of a room: the system opened in a working copy, the planet and the room checked.
struct RoomChange {
    RoomChange(CliContext& context, const QStringList& args)
        : change(context.folder, args[0]),
          ref{change.planetArgument(args[1], 1), roomArgument(args[2])} {}

    void finish(bool ok, const std::string& fallback) {
        change.require(ok, fallback);
        change.commit();
    }
    SystemChange change;
    RoomRef ref;
};

// --- the wizard

void wizardCommand(CliContext& context, const QStringList& args) {
    GridWizardChoices choices;
    std::array<int*, 2> sizes = {&choices.width, &choices.height};
    for (int axis = 0; axis < 2; ++axis) {
        const int asked = numberArgument(args[2 + axis], -1000000, 1000000, "A grid size");
        *sizes[axis] = clampGridSize(asked);
        if (asked != *sizes[axis]) {
            std::cerr << "orrerion-cli: note: a grid is 2 to 10 areas wide and high; "
                      << (axis == 0 ? "the width " : "the height ") << asked << " became "
                      << *sizes[axis] << ".\n";
        }
    }
    QString without;
    if (args.size() > 4) {
        const QString option = args[4];
        if (option.startsWith(QStringLiteral("--without="))) {
            without = option.mid(10);
        } else if (option == QStringLiteral("--without") && args.size() == 6) {
            without = args[5];
        } else {
            throw CliError("usage: orrerion-cli wizard NAME PLANET W H [--without LIST]");
        }
    }
    for (const QString& word : without.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const auto found =
            std::find(kActionWords.begin(), kActionWords.end(), bytesOf(word.trimmed()));
        if (found == kActionWords.end()) {
            throw CliError("Unknown action " + inQuotes(bytesOf(word)) +
                           ": use north, east, south, west, beamup, search and tricorder.");
        }
        choices.actions[found - kActionWords.begin()] = false;
    }
    SystemChange change(context.folder, args[0]);
    const int planet = change.planetArgument(args[1], 1);
    change.require(finishGridWizard(change.session(), planet, choices),
                   "The grid could not be written.");
    change.commit();
}

// --- a room as the room editor shows it

QJsonObject lineJson(int number, const SplitLine& line, const std::string& destination) {
    return {{"number", number},
            {"text", textOf(line.text)},
            {"destination", textOf(destination)},
            {"codes", textOf(line.joinedCodes())}};
}

void roomCommand(CliContext& context, const QStringList& args) {
    SystemStore store = openSavedSystem(context.folder, args[0]);
    PlanetMessageStore planet(store, savedPlanetArgument(store, args[1]));
    const RoomView view = readRoom(planet, roomArgument(args[2]));
    QJsonObject json;
    json["room"] = textOf(view.room);
    json["description"] =
        view.description
            ? QJsonValue(QJsonObject{{"number", view.description->number},
                                     {"text", textOf(view.description->line.text)},
                                     {"codes", textOf(view.description->line.joinedCodes())}})
            : QJsonValue(QJsonValue::Null);
    QJsonArray leadsTo;
    for (const LeadingMessage& message : view.leadsTo) leadsTo.append(textOf(message.group));
    json["leadsTo"] = leadsTo;
    QJsonArray neighbours;
    for (const std::string& name : view.neighbours) neighbours.append(textOf(name));
    json["neighbours"] = neighbours;
    QJsonArray standard;
    for (const ActionBinding& binding : view.standard) {
        standard.append(QJsonObject{{"state", binding.state},
                                    {"number", binding.number},
                                    {"line", textOf(binding.line.line())},
                                    {"destination", textOf(binding.destination)}});
    }
    json["standard"] = standard;
    QJsonArray listed;
    for (const ListedAction& action : view.listed)
        listed.append(lineJson(action.number, action.line, action.destination));
    json["listed"] = listed;
    context.out << QJsonDocument(json).toJson(QJsonDocument::Indented).toStdString();
}

// --- the room editor's changes

void addActionCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    const std::string line = textArgument(args[3], "The action");
    room.finish(addRoomAction(room.change.session(), room.ref, line),
                "The action could not be added.");
}

void removeActionCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    room.finish(removeRoomAction(room.change.session(), room.ref, actionNumber(args[3])),
                "The action could not be removed.");
}

void tickCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    const int i = numberArgument(args[3], 0, kStandardActionCount - 1, "A standard action");
    const std::string destination = args.size() > 4 ? textArgument(args[4], "The destination") : "";
    room.finish(tickStandardAction(room.change.session(), room.ref, i, destination),
                "The action could not be ticked.");
}

void untickCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    const int i = numberArgument(args[3], 0, kStandardActionCount - 1, "A standard action");
    room.finish(untickStandardAction(room.change.session(), room.ref, i),
                "The action could not be removed.");
}

void setActionCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    EditSession& session = room.change.session();
    const ActionRef action{actionNumber(args[3])};
    bool ok = setActionText(session, room.ref, action, textArgument(args[4], "The action's text"));
    if (ok && args.size() > 5)
        ok = setActionDestination(session, room.ref, action,
                                  textArgument(args[5], "The destination"));
    room.finish(ok, "The action could not be changed.");
}

void directionCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    const std::string word = bytesOf(args[4]);
    int choice = -1;
    for (int c = 0; c < kDirectionChoiceCount; ++c)
        if (text::equalsIgnoreCase(word, kDirectionChoices[c])) choice = c;
    if (choice < 0)
        throw CliError("The direction is auto, north, east, south, west or other, not " +
                       inQuotes(word) + ".");
    room.finish(
        setActionDirection(room.change.session(), room.ref, {actionNumber(args[3])}, choice),
        "The direction could not be set.");
}

void describeCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    room.finish(setRoomDescription(room.change.session(), room.ref,
                                   textArgument(args[3], "The description")),
                "The description could not be written.");
}

void effectCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    EditSession& session = room.change.session();
    const int n = actionNumber(args[3]);
    const std::optional<RoomView> view = viewRoom(session, room.ref);
    const SplitLine* action = view ? view->action(n) : nullptr;
    if (!action)
        throw CliError("The room " + inQuotes(room.ref.room) + " has no action " +
                       std::to_string(n) + ".");
    // Where the editor warns that the destination looks like a room, this goes on as Yes would.
    room.finish(editEffect(session, room.ref, destinationOf(action->tail),
                           textArgument(args[4], "The effect"), textArgument(args[5], "The room")),
                "The effect could not be written.");
}

char flagArgument(const QString& argument) {
    const std::string flag = bytesOf(argument);
    if (flag.size() != 1 || !isFlagCharacter(flag[0]))
        throw CliError("A flag is one of the letters A to Z or digits 0 to 9, not " +
                       inQuotes(flag) + ".");
    return flag[0];
}

void lockCommand(CliContext& context, const QStringList& args) {
    RoomChange room(context, args);
    room.finish(lockRoomAction(room.change.session(), room.ref, actionNumber(args[3]),
                               flagArgument(args[4]), textArgument(args[5], "The message")),
                "The action could not be locked.");
}

void requirementCommand(CliContext& context, const QStringList& args) {
    const std::string which = bytesOf(args[2]);
    const std::array<const char*, 3> rows = {"beamup", "search", "tricorder"};
    const auto row = std::find(rows.begin(), rows.end(), which);
    if (row == rows.end())
        throw CliError("The action is beamup, search or tricorder, not " + inQuotes(which) + ".");
    const std::string need = bytesOf(args[3]);
    if (need != "set" && need != "clear" && need != "none")
        throw CliError("The requirement is set, clear or none, not " + inQuotes(need) + ".");
    if ((need == "none") != (args.size() == 4))
        throw CliError(need == "none" ? "No flag goes with none."
                                      : "Give the flag to " + need + ".");
    SystemChange change(context.folder, args[0]);
    const int planet = change.planetArgument(args[1], 1);
    PlanetMessageStore reader(change.session().store(), planet);
    Requirements requirements = readRequirements(reader);
    requirements.codes[row - rows.begin()] =
        need == "none" ? "" : requirementCode(need == "set" ? 'F' : 'f', flagArgument(args[4]));
    change.require(setRequirements(change.session(), planet, requirements),
                   "The requirement could not be written.");
    change.commit();
}

}  // namespace

std::vector<CommandSpec> roomCommands() {
    return {
        {"wizard", "wizard NAME PLANET W H [--without LIST]", 4, 6, wizardCommand},
        {"room", "room NAME PLANET ROOM", 3, 3, roomCommand},
        {"add-action", "add-action NAME PLANET ROOM LINE", 4, 4, addActionCommand},
        {"remove-action", "remove-action NAME PLANET ROOM N", 4, 4, removeActionCommand},
        {"tick", "tick NAME PLANET ROOM I [DESTINATION]", 4, 5, tickCommand},
        {"untick", "untick NAME PLANET ROOM I", 4, 4, untickCommand},
        {"set-action", "set-action NAME PLANET ROOM N TEXT [DESTINATION]", 5, 6, setActionCommand},
        {"direction", "direction NAME PLANET ROOM N auto|north|east|south|west|other", 5, 5,
         directionCommand},
        {"describe", "describe NAME PLANET ROOM TEXT", 4, 4, describeCommand},
        {"effect", "effect NAME PLANET ROOM N TEXT RETURN", 6, 6, effectCommand},
        {"lock", "lock NAME PLANET ROOM N FLAG MESSAGE", 6, 6, lockCommand},
        {"requirement", "requirement NAME PLANET beamup|search|tricorder set|clear|none [FLAG]", 4,
         5, requirementCommand},
    };
}

}  // namespace orr::cli
