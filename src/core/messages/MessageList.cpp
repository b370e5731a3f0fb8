#include "messages/MessageList.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace orr {

namespace {

using Changes = std::vector<std::pair<std::string, std::string>>;

// A missing line is written back as missing (the key deleted), never as the text "ERR".
std::string storable(const std::string& value) {
    return value == kMissingValue ? "" : value;
}

}  // namespace

MessageList::MessageList(MessageStore& store, const std::string& group, Direction direction)
    : store_(store), keys_(messageKeys(group, direction)) {}

int MessageList::count() const {
    if (keys_.direction == Direction::Information)
        return store_.GetMessage(keys_.itemKey(1)) == kMissingValue ? 0 : 1;
    const long long value = text::leadingValue(store_.GetMessage(keys_.countKey));
    return static_cast<int>(std::clamp<long long>(value, 0, kMaxListCount));
}

std::string MessageList::line(int n) const {
    return store_.GetMessage(keys_.itemKey(n));
}

std::vector<std::string> MessageList::lines() const {
    std::vector<std::string> result;
    const int n = count();
    result.reserve(n);
    for (int i = 1; i <= n; ++i) result.push_back(line(i));
    return result;
}

bool MessageList::store(int n, const std::string& line) {
    if (n < 1) return false;
    return store_.PutMessage(keys_.itemKey(n), line);
}

bool MessageList::append(const std::string& line) {
    if (keys_.direction == Direction::Information) return store(1, line);
    const int n = count() + 1;
    if (n > kMaxListCount) return false;
    // The count first, so that in a new list its key line stands before the item's. The planet
    // store writes both in one write, so a failure cannot leave the count without its line.
    return store_.PutMessages({{keys_.countKey, std::to_string(n)}, {keys_.itemKey(n), line}});
}

bool MessageList::remove(int n) {
    if (keys_.direction == Direction::Information)
        return n == 1 && store_.PutMessage(keys_.itemKey(1), "");
    const int last = count();
    if (n < 1 || n > last) return false;
    Changes changes;
    for (int i = n; i < last; ++i) changes.emplace_back(keys_.itemKey(i), storable(line(i + 1)));
    changes.emplace_back(keys_.itemKey(last), "");
    changes.emplace_back(keys_.countKey, std::to_string(last - 1));
    return store_.PutMessages(changes);
}

bool MessageList::clearAll() {
    if (keys_.direction == Direction::Information) return store_.PutMessage(keys_.itemKey(1), "");
    return store_.PutMessage(keys_.countKey, "0");
}

bool MessageList::swap(int n) {
    if (keys_.direction == Direction::Information || n < 1 || n + 1 > count()) return false;
    const std::string first = line(n);
    const std::string second = line(n + 1);
    return store_.PutMessages(
        {{keys_.itemKey(n), storable(second)}, {keys_.itemKey(n + 1), storable(first)}});
}

}  // namespace orr
