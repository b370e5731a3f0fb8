#include "session/RoomEdits.h"

#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "rooms/RoomChanges.h"

namespace orr {

namespace {

bool requirePlanet(EditSession& session, int planet) {
    if (!session.isOpen()) return session.fail("No system is open.");
    if (planet < 1 || planet > session.record().PlanetCount)
        return session.fail("There is no planet " + std::to_string(planet) + ".");
    return true;
}

bool requireRoom(EditSession& session, const RoomRef& ref) {
    if (!requirePlanet(session, ref.planet)) return false;
    if (const std::string problem = roomNameProblem(ref.room); !problem.empty())
        return session.fail(problem);
    return true;
}

// A step's merge key: the commands of one box of one room in a row make one step. Commands of no
// box (empty) are steps of their own.
std::string mergeKey(const RoomRef& ref, const std::string& box) {
    if (box.empty()) return {};
    return "room " + std::to_string(ref.planet) + " " + ref.room + " " + box;
}

ChangeNotice keysOf(int planet) {
    return {kPlanetKeysChanged, planet};
}

std::string actionName(int n, const RoomRef& ref) {
    return "Action " + std::to_string(n) + " in " + ref.room;
}

// The action to change: its number (0 when it is a standard action not stored yet) and line.
struct Target {
    int number = 0;
    SplitLine line;
};

std::optional<Target> resolve(EditSession& session, const RoomView& view, const ActionRef& ref) {
    if (ref.number > 0) {
        if (const SplitLine* line = view.action(ref.number)) return Target{ref.number, *line};
        session.fail("The room \"" + view.room + "\" has no action " + std::to_string(ref.number) +
                     ".");
        return std::nullopt;
    }
    if (ref.standard >= 0 && ref.standard < kStandardActionCount) {
        const ActionBinding& binding = view.standard[ref.standard];
        return Target{binding.state == kNotStored ? 0 : binding.number, binding.line};
    }
    session.fail("No action is chosen.");
    return std::nullopt;
}

// Stores `edit`(the action's line) in place, or as a new action when it is not stored yet. The
// step is named `verb` + " Action n in R", or `name` when given; the edits of `box` (when not
// empty) for one action make one step.
template <typename Edit>
bool changeAction(EditSession& session, const RoomRef& ref, const ActionRef& action,
                  const std::string& verb, const std::string& box, Edit edit, int* number,
                  const std::string& name = {}) {
    const std::optional<RoomView> view = viewRoom(session, ref);
    if (!view) return false;
    const std::optional<Target> target = resolve(session, *view, action);
    if (!target) return false;
    std::string problem;
    const std::string line = edit(target->line, problem);
    if (problem.empty()) problem = lineLengthProblem(line);
    if (target->number == 0 && problem.empty()) {
        PlanetMessageStore reader(session.store(), ref.planet);
        problem = appendProblem(reader, ref.room);
    }
    if (!problem.empty()) return session.fail(problem);

    const int n = target->number > 0 ? target->number : view->actionCount + 1;
    auto command =
        session.command(name.empty() ? verb + " " + actionName(n, ref) : name, keysOf(ref.planet),
                        box.empty() ? "" : mergeKey(ref, box + " " + std::to_string(n)));
    PlanetMessageStore store(command.store(), ref.planet);
    const bool ok = target->number > 0
                        ? MessageList(store, ref.room, Direction::Response).store(n, line)
                        : AppendAction(store, ref.room, line) == n;
    if (!command.commit(ok)) return false;
    if (number) *number = n;
    return true;
}

// One command on the room's keys; `change` reports whether its writes worked.
template <typename Change>
bool onRoom(EditSession& session, const RoomRef& ref, const std::string& name,
            const std::string& box, Change change) {
    auto command = session.command(name, keysOf(ref.planet), mergeKey(ref, box));
    PlanetMessageStore store(command.store(), ref.planet);
    return command.commit(change(store));
}

}  // namespace

std::optional<RoomView> viewRoom(EditSession& session, const RoomRef& ref) {
    if (!requireRoom(session, ref)) return std::nullopt;
    PlanetMessageStore reader(session.store(), ref.planet);
    return readRoom(reader, ref.room);
}

namespace {

// Standard action i of the room as it is stored now; nothing when either does not exist.
std::optional<ActionBinding> standardBinding(EditSession& session, const RoomRef& ref, int i) {
    if (i < 0 || i >= kStandardActionCount) {
        session.fail("A standard action is numbered 0 to 6.");
        return std::nullopt;
    }
    const std::optional<RoomView> view = viewRoom(session, ref);
    if (!view) return std::nullopt;
    return view->standard[i];
}

}  // namespace

bool tickStandardAction(EditSession& session, const RoomRef& ref, int i,
                        const std::string& destination, int* number) {
    const std::optional<ActionBinding> found = standardBinding(session, ref, i);
    if (!found) return false;
    const ActionBinding& binding = *found;
    const std::string caption = kStandardCaptions[i];
    if (binding.state != kNotStored)
        return session.fail(caption + " is ticked in " + ref.room + " already.");
    std::string line = binding.defaultLine;
    if (binding.needsDestination()) {
        if (destination.empty()) {
            return session.fail("No room lies " + caption + " of " + ref.room +
                                " in its grid: please enter the destination room.");
        }
        if (std::string problem = destinationProblem(destination); !problem.empty())
            return session.fail(problem);
        line = directionMarker(i) + binding.line.codes + binding.line.text +
               withDestination(binding.line.tail, destination);
    } else if (!destination.empty() && destination != binding.destination) {
        return session.fail(caption + " of " + ref.room + " leads to " + binding.destination +
                            "; no other destination can be given when ticking it.");
    }
    return changeAction(
        session, ref, {0, i}, "Tick", "", [&](const SplitLine&, std::string&) { return line; },
        number, "Tick " + caption + " in " + ref.room);
}

bool untickStandardAction(EditSession& session, const RoomRef& ref, int i) {
    const std::optional<ActionBinding> found = standardBinding(session, ref, i);
    if (!found) return false;
    const ActionBinding& binding = *found;
    const std::string caption = kStandardCaptions[i];
    if (binding.state == kNotStored)
        return session.fail(caption + " is not ticked in " + ref.room + ".");
    return onRoom(
        session, ref, "Untick " + caption + " in " + ref.room, "",
        [&](MessageStore& store) { return RemoveAction(store, ref.room, binding.number); });
}

bool setActionText(EditSession& session, const RoomRef& ref, const ActionRef& action,
                   const std::string& text, int* number) {
    return changeAction(
        session, ref, action, "Edit", "text",
        [&](const SplitLine& line, std::string& problem) {
            problem = lineTextProblem(text, "An action's text");
            return line.codes + text + line.tail;
        },
        number);
}

bool setActionDestination(EditSession& session, const RoomRef& ref, const ActionRef& action,
                          const std::string& destination, int* number) {
    return changeAction(
        session, ref, action, "Set Destination of", "destination",
        [&](const SplitLine& line, std::string& problem) {
            problem = destinationProblem(destination);
            return line.codes + line.text + withDestination(line.tail, destination);
        },
        number);
}

bool setActionDirection(EditSession& session, const RoomRef& ref, const ActionRef& action,
                        int choice, int* number) {
    if (choice < 0 || choice >= kDirectionChoiceCount)
        return session.fail("The direction is one of Auto, North, East, South, West and Other.");
    return changeAction(
        session, ref, action, "Set Direction of", "",
        [&](const SplitLine& line, std::string&) {
            return kDirectionTags[choice] + withoutDirectionMarkers(line.codes) + line.text +
                   line.tail;
        },
        number);
}

bool setRoomDescription(EditSession& session, const RoomRef& ref, const std::string& text) {
    if (!requireRoom(session, ref)) return false;
    PlanetMessageStore reader(session.store(), ref.planet);
    if (std::string problem = descriptionProblem(reader, ref.room, text); !problem.empty())
        return session.fail(problem);
    return onRoom(session, ref, "Edit Description of " + ref.room, "description",
                  [&](MessageStore& store) { return StoreDescription(store, ref.room, text); });
}

bool addRoomAction(EditSession& session, const RoomRef& ref, const std::string& line, int* number) {
    if (!requireRoom(session, ref)) return false;
    PlanetMessageStore reader(session.store(), ref.planet);
    std::string problem = appendProblem(reader, ref.room);
    if (problem.empty()) problem = actionLineProblem(line);
    if (!problem.empty()) return session.fail(problem);
    const int n = MessageList(reader, ref.room, Direction::Response).count() + 1;
    const bool ok = onRoom(session, ref, "Add " + actionName(n, ref), "", [&](MessageStore& store) {
        return AppendAction(store, ref.room, line) == n;
    });
    if (ok && number) *number = n;
    return ok;
}

bool removeRoomAction(EditSession& session, const RoomRef& ref, int n) {
    if (!requireRoom(session, ref)) return false;
    PlanetMessageStore reader(session.store(), ref.planet);
    const int count = MessageList(reader, ref.room, Direction::Response).count();
    if (n < 1 || n > count)
        return session.fail("The room \"" + ref.room + "\" has no action " + std::to_string(n) +
                            ".");
    return onRoom(session, ref, "Remove " + actionName(n, ref), "",
                  [&](MessageStore& store) { return RemoveAction(store, ref.room, n); });
}

bool editEffect(EditSession& session, const RoomRef& ref, const std::string& group,
                const std::string& text, const std::string& returnRoom) {
    if (!requireRoom(session, ref)) return false;
    if (std::string problem = effectGroupProblem(group); !problem.empty())
        return session.fail(problem);
    PlanetMessageStore reader(session.store(), ref.planet);
    const EffectSlot slot = FindEffect(reader, group);
    if (std::string problem = effectProblem(slot, text, returnRoom); !problem.empty())
        return session.fail(problem);
    return onRoom(session, ref, "Edit Effect " + group, "",
                  [&](MessageStore& store) { return StoreEffect(store, slot, text, returnRoom); });
}

bool lockRoomAction(EditSession& session, const RoomRef& ref, int k, char flag,
                    const std::string& message) {
    if (!requireRoom(session, ref)) return false;
    PlanetMessageStore reader(session.store(), ref.planet);
    if (std::string problem = lockProblem(reader, ref.room, k, flag, message); !problem.empty())
        return session.fail(problem);
    return onRoom(session, ref, "Lock " + actionName(k, ref), "", [&](MessageStore& store) {
        return LockAction(store, ref.room, k, flag, message);
    });
}

bool setRequirements(EditSession& session, int planet, const Requirements& requirements) {
    if (!requirePlanet(session, planet)) return false;
    if (std::string problem = requirementsProblem(requirements); !problem.empty())
        return session.fail(problem);
    auto command = session.command("Change Requirements", keysOf(planet));
    PlanetMessageStore store(command.store(), planet);
    return command.commit(StoreRequirements(store, requirements));
}

bool finishGridWizard(EditSession& session, int planet, const GridWizardChoices& choices) {
    if (!requirePlanet(session, planet)) return false;
    auto command =
        session.command("Adventure Wizard", keysOf(planet) | ChangeNotice{kFlagsChanged});
    PlanetMessageStore store(command.store(), planet);
    const bool ok =
        command.store().SetGeneralFlag(kMessagesFlag, planet, command.record().PlanetCount, true) &&
        store.PutMessages(GridWizardKeys(choices, readRequirements(store)));
    return command.commit(ok);
}

}  // namespace orr
