#include "messages/MessageGroups.h"

#include <utility>

#include "messages/MessageCodec.h"
#include "messages/MessageKeys.h"
#include "messages/MessageList.h"

namespace orr {

std::string scannedAnswerGroup(const std::string& line, char tagLetter,
                               const std::string& ownGroup) {
    const std::string tag = std::string("*") + tagLetter;
    for (std::size_t at = line.find(tag); at != std::string::npos; at = line.find(tag, at + 1)) {
        const std::size_t next = line.find('*', at + 1);
        const std::string token = line.substr(at, next - at);
        if (tagLetter == 'R' && IsSystemCondition(token)) continue;
        return token.substr(tag.size());
    }
    return ownGroup;
}

void MessageGroups::clear() {
    entries_.clear();
    index_.clear();
}

const GroupEntry* MessageGroups::find(const std::string& group) const {
    const auto it = index_.find(shownGroupName(storedGroupName(group)));
    return it == index_.end() ? nullptr : &entries_[it->second];
}

GroupEntry* MessageGroups::mark(const std::string& shownName, int kind, bool& isNew) {
    auto [it, inserted] = index_.try_emplace(shownName, entries_.size());
    if (inserted) entries_.push_back({shownName, 0});
    isNew = inserted;
    GroupEntry& entry = entries_[it->second];
    entry.uses |= 1 << kind;
    return &entry;
}

void MessageGroups::ScanGroup(MessageStore& store, const std::string& group, int kind) {
    // An explicit stack visits the groups in the same order as the natural recursion would
    // (children in line order, each explored completely before the next), without the risk of
    // running out of stack on long chains of groups.
    std::vector<std::pair<std::string, int>> pending{{storedGroupName(group), kind}};
    std::vector<std::pair<std::string, int>> children;
    while (!pending.empty()) {
        auto [name, use] = std::move(pending.back());
        pending.pop_back();
        bool isNew = false;
        mark(shownGroupName(name), use, isNew);
        if (!isNew) continue;

        children.clear();
        for (const std::string& line : MessageList(store, name, Direction::Message).lines())
            children.emplace_back(scannedAnswerGroup(line, 'R', name), kResponseKind);
        for (const std::string& line : MessageList(store, name, Direction::Response).lines())
            children.emplace_back(scannedAnswerGroup(line, 'M', name), kMessageKind);
        if (MessageList(store, ignoreGroup(name), Direction::Message).count() > 0)
            children.emplace_back(ignoreGroup(name), kMessageKind);
        if (MessageList(store, phaserGroup(name), Direction::Message).count() > 0)
            children.emplace_back(phaserGroup(name), kMessageKind);
        for (auto it = children.rbegin(); it != children.rend(); ++it)
            pending.emplace_back(storedGroupName(it->first), it->second);
    }
}

GroupLists MessageGroups::LoadGroupLists(MessageStore& store) {
    if (entries_.empty()) {
        for (const char* root : {"", "Back", "Returned", "Beam", "Phaser"})
            ScanGroup(store, root, kMessageKind);
        ScanGroup(store, "Hail", kResponseKind);
    }
    GroupLists lists;
    for (const GroupEntry& entry : entries_) {
        if (entry.uses & kUsedForResponses) lists.responseGroups.push_back(entry.name);
        if (entry.uses & kUsedForMessages) lists.messageGroups.push_back(entry.name);
    }
    return lists;
}

}  // namespace orr
