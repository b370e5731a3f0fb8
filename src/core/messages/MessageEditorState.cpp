#include "messages/MessageEditorState.h"

#include "messages/MessageEditRules.h"
#include "messages/MessageList.h"
#include "text/Text.h"

namespace orr {

namespace {

constexpr const char* kHailGroup = "Hail";

Direction otherDirection(Direction direction) {
    return direction == Direction::Response ? Direction::Message : Direction::Response;
}

int kindOf(Direction direction) {
    return direction == Direction::Response ? MessageGroups::kResponseKind
                                            : MessageGroups::kMessageKind;
}

}  // namespace

bool MessageEditorState::activate(const std::string& systemName) {
    if (skipMark_) {
        skipMark_ = false;
        return false;
    }
    if (loadedOnce_ && planet_ == loadedPlanet_ && systemName == loadedName_ && !reloadMark_)
        return false;
    groups_.clear();
    loadedOnce_ = true;
    loadedPlanet_ = planet_;
    loadedName_ = systemName;
    direction_ = Direction::Message;
    group_.clear();
    lastGroup_.clear();
    reloadMark_ = true;
    return true;
}

void MessageEditorState::reread(MessageStore& store) {
    groups_.clear();
    scanIfNeeded(store);
    if (direction_ != Direction::Information && !group_.empty())
        remember(store, group_, direction_);
}

const std::string& MessageEditorState::groupToKeep() const {
    return direction_ == Direction::Information ? lastGroup_ : group_;
}

void MessageEditorState::scanIfNeeded(MessageStore& store) {
    if (!groups_.empty()) return;
    ++scanCount_;
    groups_.LoadGroupLists(store);
}

void MessageEditorState::remember(MessageStore& store, const std::string& group,
                                  Direction direction) {
    scanIfNeeded(store);
    groups_.ScanGroup(store, group, kindOf(direction));
}

bool MessageEditorState::listedIn(const std::string& group, Direction direction) const {
    if (group.empty() || group == kInfoKey) return false;
    const GroupEntry* entry = groups_.find(group);
    if (!entry || entry->name != group) return false;  // "" is found as INIT, but not listed
    return (entry->uses &
            (direction == Direction::Response ? kUsedForResponses : kUsedForMessages)) != 0;
}

bool MessageEditorState::lists(const std::string& group) const {
    return direction_ != Direction::Information && listedIn(group, direction_);
}

std::vector<std::string> MessageEditorState::groupsOf(Direction direction) const {
    std::vector<std::string> names;
    const int use = direction == Direction::Response ? kUsedForResponses : kUsedForMessages;
    for (const GroupEntry& entry : groups_.entries())
        if (entry.uses & use) names.push_back(entry.name);
    return names;
}

std::vector<std::string> MessageEditorState::groups() const {
    if (direction_ == Direction::Information) return {};
    return groupsOf(direction_);
}

std::vector<std::string> MessageEditorState::answerGroups() const {
    if (direction_ == Direction::Information) return {};
    return groupsOf(otherDirection(direction_));
}

void MessageEditorState::show(MessageStore& store, Direction direction, const std::string& wanted,
                              bool create) {
    if (direction_ != Direction::Information) lastGroup_ = group_;
    direction_ = direction;
    if (direction == Direction::Information) {
        group_ = kInfoKey;
        return;
    }
    scanIfNeeded(store);
    std::string group = wanted;
    if (!group.empty() && group != kInfoKey && !listedIn(group, direction)) {
        // A group this direction does not list yet is shown when it holds lines here, or when
        // the designer asked to go there.
        if (create || MessageList(store, group, direction).count() > 0)
            remember(store, group, direction);
    }
    if (!listedIn(group, direction)) group = kInitGroup;
    if (!listedIn(group, direction)) group = kHailGroup;
    group_ = listedIn(group, direction) ? group : std::string(kInitGroup);
}

bool MessageEditorState::choose(const std::string& group) {
    if (!lists(group)) return false;
    group_ = group;
    return true;
}

std::string MessageEditorState::take(MessageStore& store, const std::string& typed) {
    if (direction_ == Direction::Information) return "Information has no groups.";
    const std::string name = text::trim(typed);
    if (std::string problem = groupNameProblem(name); !problem.empty()) return problem;
    if (!lists(name)) remember(store, name, direction_);
    group_ = name;
    return {};
}

void MessageEditorState::lineSaved(MessageStore& store, const std::string& answerGroup) {
    if (direction_ == Direction::Information) return;
    remember(store, answerGroup.empty() ? group_ : answerGroup, otherDirection(direction_));
}

MessageEditorState::AnswerTarget MessageEditorState::answerTarget(
    const std::string& answerGroup) const {
    AnswerTarget target;
    target.direction = otherDirection(direction_);
    target.group = text::trim(answerGroup);
    if (direction_ == Direction::Information)
        target.problem = "The information text has no answer.";
    else
        target.problem = groupNameProblem(target.group);
    return target;
}

}  // namespace orr
