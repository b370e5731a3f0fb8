#pragma once
// A planet's keys held in memory, for tests of the message core.

#include <map>
#include <string>

#include "messages/MessageStore.h"

namespace orr::test {

class MemoryMessageStore : public MessageStore {
  public:
    std::map<std::string, std::string> keys;
    bool failWrites = false;

    std::string GetMessage(const std::string& key) override {
        const auto it = keys.find(key);
        return it == keys.end() ? "ERR" : it->second;
    }

    bool PutMessage(const std::string& key, const std::string& value) override {
        if (failWrites) return false;
        if (value.empty())
            keys.erase(key);
        else
            keys[key] = value;
        return true;
    }
};

}  // namespace orr::test
