#pragma once
// What the message editor shows and the rules for moving around a planet's lists, apart from
// the window: the planet, the direction and group shown, the groups known for the planet (found
// by following the answer tags, plus those the designer added), when they are looked for again,
// and where "Go to Answer" leads. It reads the planet's keys through a MessageStore and never
// writes: the lines themselves change through the edit session's commands.
//
//     MessageEditorState state;
//     state.setPlanet(2);
//     if (state.activate(displayName)) ...         // first time, or another planet or system
//     state.show(store, Direction::Response, state.groupToKeep());
//     for (const std::string& g : state.groups()) ...   // the group box's items

#include <string>
#include <vector>

#include "messages/MessageGroups.h"
#include "messages/MessageKeys.h"
#include "messages/MessageStore.h"

namespace orr {

class MessageEditorState {
  public:
    // --- the planet, and when its groups are looked for again
    void setPlanet(int planet) { planet_ = planet; }
    int planet() const { return planet_; }
    // Set while one of the editor's own dialogs (a chooser) is open: coming back from it is no
    // reason to look for the groups again.
    void setSkipMark() { skipMark_ = true; }
    // Another system was opened, or the editor comes back from a window that may have made
    // groups (room editor, wizard). The mark stays set after a reload; Cancel and Close clear it.
    void markForReload() { reloadMark_ = true; }
    void clearReloadMark() { reloadMark_ = false; }
    bool reloadMarked() const { return reloadMark_; }
    // The editor became active on the system whose display name is `systemName`. True when the
    // groups must be looked for again: the first time, another planet or system than last time,
    // or the reload mark. They are then forgotten and the caller shows "Message" afresh. With a
    // skip mark nothing happens but the mark's removal.
    bool activate(const std::string& systemName);
    // The planet's keys changed (an undo, a redo): the groups are looked for again at once; the
    // group shown stays listed even when it holds no lines any more.
    void reread(MessageStore& store);
    int scanCount() const { return scanCount_; }  // how often the groups were looked for

    // --- what is shown
    Direction direction() const { return direction_; }
    // The group shown, as the editor names it ("INIT" for the first group); "Info" while the
    // information text is shown.
    const std::string& group() const { return group_; }
    // The group to show again in another direction: the one shown, or the one shown before
    // "Information" was chosen.
    const std::string& groupToKeep() const;
    // Shows `direction`. For messages and responses the groups are looked for when none are
    // known; `wanted` is shown when that direction lists it, when it holds lines there, or when
    // `create` is set (it then becomes a known group of the direction); otherwise "INIT", and
    // then "Hail", when listed.
    void show(MessageStore& store, Direction direction, const std::string& wanted,
              bool create = false);
    // The groups of the direction shown (the group box's items) and those of the other
    // direction, which its lines may answer with; both in the order they were found. Empty for
    // "Information".
    std::vector<std::string> groups() const;
    std::vector<std::string> answerGroups() const;
    bool lists(const std::string& group) const;  // listed in the direction shown

    // A listed group chosen in the group box; false (and nothing changes) when it is not listed.
    bool choose(const std::string& group);
    // A name typed into the group box and confirmed ("Add Group", and New, Edit or leaving the
    // box with a name typed): a listed group is chosen; a new name becomes a known group of the
    // direction, which exists only in the editor until a line is saved in it. Returns why the
    // name cannot be a group; nothing changes then.
    std::string take(MessageStore& store, const std::string& typed);
    // A line of the group shown was saved leading to `answerGroup` (empty: its own group): that
    // group is known from now on in the other direction.
    void lineSaved(MessageStore& store, const std::string& answerGroup);

    // Where "Go to Answer" leads from a line whose answer group is `answerGroup`: that group in
    // the other direction, made there when it has no lines yet. `problem` says why it cannot.
    struct AnswerTarget {
        Direction direction = Direction::Message;
        std::string group;
        std::string problem;
    };
    AnswerTarget answerTarget(const std::string& answerGroup) const;

  private:
    int planet_ = 0;
    MessageGroups groups_;
    int loadedPlanet_ = 0;
    std::string loadedName_;
    bool loadedOnce_ = false;
    bool reloadMark_ = false;
    bool skipMark_ = false;
    int scanCount_ = 0;

    Direction direction_ = Direction::Message;
    std::string group_;
    std::string lastGroup_;  // shown before "Information" was chosen

    void scanIfNeeded(MessageStore& store);
    void remember(MessageStore& store, const std::string& group, Direction direction);
    bool listedIn(const std::string& group, Direction direction) const;
    std::vector<std::string> groupsOf(Direction direction) const;
};

}  // namespace orr
