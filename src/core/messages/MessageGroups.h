#pragma once
// The message groups of a planet, found by following the answer tags from the root groups.
// Each group is listed once, in the order it was first reached, with the lists it is used
// for: messages (a response leads to it, or it is a message root) and/or responses (a message
// leads to it, or it is "Hail").

#include <string>
#include <unordered_map>
#include <vector>

#include "messages/MessageStore.h"

namespace orr {

enum GroupUse : int { kUsedForMessages = 1, kUsedForResponses = 4 };

struct GroupEntry {
    std::string name;  // shown form: "INIT" for the empty name
    int uses = 0;      // GroupUse bits
};

struct GroupLists {
    std::vector<std::string> messageGroups;
    std::vector<std::string> responseGroups;
};

class MessageGroups {
  public:
    // kind 0: the group is used for messages; kind 2: for responses. Marks the group and, the
    // first time it is met, follows every line of it and its ignore and phaser groups. Works
    // without recursion, so a chain of thousands of groups is fine.
    void ScanGroup(MessageStore& store, const std::string& group, int kind);

    // Scans the root groups when nothing is known yet (INIT, "Back", "Returned", "Beam",
    // "Phaser" for messages, then "Hail" for responses) and returns both lists in scan order.
    GroupLists LoadGroupLists(MessageStore& store);

    const std::vector<GroupEntry>& entries() const { return entries_; }
    bool empty() const { return entries_.empty(); }
    void clear();
    const GroupEntry* find(const std::string& group) const;

    static constexpr int kMessageKind = 0;
    static constexpr int kResponseKind = 2;

  private:
    std::vector<GroupEntry> entries_;
    std::unordered_map<std::string, std::size_t> index_;  // name -> position in entries_

    GroupEntry* mark(const std::string& shownName, int kind, bool& isNew);
};

// The group a stored line leads to, as the scan reads it: the text after the first answer
// tag ("*R" in a message, "*M" in a response) up to the next "*", or `ownGroup` without one.
// Ship-system conditions ("*RS3", "*R!S3") are not answer tags.
std::string scannedAnswerGroup(const std::string& line, char tagLetter,
                               const std::string& ownGroup);

}  // namespace orr
