#pragma once
// The commands of the room editor, its lock and requirement dialogs and the adventure grid
// wizard: each is one undoable step of the edit session, written to the planet's section at once
// ("Tick North in Area11", "Edit Description of Area11", "Adventure Wizard"). Typing in one box
// makes one step per run (the commands of one box share a merge key). The room editor and
// orrerion-cli call the same functions; a refusal leaves everything as it was and says why in
// session.lastError().

#include <string>

#include "rooms/GridWizard.h"
#include "rooms/Room.h"
#include "session/EditSession.h"

namespace orr {

struct RoomRef {
    int planet = 1;
    std::string room;
};

// An action of the room: a stored one by its number, or a standard action (0..6) that is not
// stored yet, whose default line the first change stores as a new action.
struct ActionRef {
    int number = 0;
    int standard = -1;
};

// The room as the editor shows it now (no questions asked); nullopt, with the reason in
// lastError(), when the planet or the name is no room.
std::optional<RoomView> viewRoom(EditSession& session, const RoomRef& ref);

// Ticks standard action i: its default line, or, for a door without a neighbour, the door marker
// and `destination` (required then). *number receives the new action's number.
bool tickStandardAction(EditSession& session, const RoomRef& ref, int i,
                        const std::string& destination = {}, int* number = nullptr);
// Removes the action standard action i stands for.
bool untickStandardAction(EditSession& session, const RoomRef& ref, int i);

// The action's text, its destination (after "*M"), or its direction marker (a choice of
// kDirectionChoices: 0 "Auto" takes the marker away). An action not stored yet is stored; its
// number goes to *number.
bool setActionText(EditSession& session, const RoomRef& ref, const ActionRef& action,
                   const std::string& text, int* number = nullptr);
bool setActionDestination(EditSession& session, const RoomRef& ref, const ActionRef& action,
                          const std::string& destination, int* number = nullptr);
bool setActionDirection(EditSession& session, const RoomRef& ref, const ActionRef& action,
                        int choice, int* number = nullptr);

// The room's description (a new message when it has none).
bool setRoomDescription(EditSession& session, const RoomRef& ref, const std::string& text);

inline constexpr const char* kNewActionLine = "New Action*M";
bool addRoomAction(EditSession& session, const RoomRef& ref,
                   const std::string& line = kNewActionLine, int* number = nullptr);
bool removeRoomAction(EditSession& session, const RoomRef& ref, int n);

// The effect message of `group` (see FindEffect): `text`, returning to `returnRoom`.
bool editEffect(EditSession& session, const RoomRef& ref, const std::string& group,
                const std::string& text, const std::string& returnRoom);

// Locks action k with `flag`; `message` is what the player gets while the flag is clear.
bool lockRoomAction(EditSession& session, const RoomRef& ref, int k, char flag,
                    const std::string& message);

// The requirement prefixes of beam up, search and tricorder, all three in one step.
bool setRequirements(EditSession& session, int planet, const Requirements& requirements);

// The whole grid in one step and one write, with the planet's custom messages switched on.
bool finishGridWizard(EditSession& session, int planet, const GridWizardChoices& choices);

}  // namespace orr
