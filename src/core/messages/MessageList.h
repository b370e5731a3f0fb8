#pragma once
// One list of a group (its messages or its responses) read and changed key by key through a
// MessageStore: the count key holds the number of lines, item keys 1..count the lines.

#include <string>
#include <vector>

#include "messages/MessageKeys.h"
#include "messages/MessageStore.h"

namespace orr {

// Counts above this are taken as this; the game keeps counts in 16-bit integers.
inline constexpr int kMaxListCount = 32767;

class MessageList {
  public:
    MessageList(MessageStore& store, const std::string& group, Direction direction);

    const MessageKeyPair& keys() const { return keys_; }

    // The stored count; a missing or non-numeric count is 0.
    int count() const;
    // Line n (1-based) as stored; "ERR" when the key is missing.
    std::string line(int n) const;
    // Lines 1..count.
    std::vector<std::string> lines() const;

    // Each change reports whether everything reached the file.
    bool store(int n, const std::string& line);  // replaces line n
    bool append(const std::string& line);        // adds line count + 1
    // Moves the following lines one number down, deletes the old last key, writes the count.
    bool remove(int n);
    // Writes the count "0"; the item keys stay and are overwritten as lines are added.
    bool clearAll();
    // Exchanges lines n and n + 1.
    bool swap(int n);

  private:
    MessageStore& store_;
    MessageKeyPair keys_;
};

}  // namespace orr
