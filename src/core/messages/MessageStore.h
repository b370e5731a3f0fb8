#pragma once
// The keys of one planet's section, as the message editor, flags and the wizard see them:
// GetMessage reads regardless of the custom-messages switch ("ERR" when absent), PutMessage
// writes, and an empty value deletes the key.

#include <string>
#include <utility>
#include <vector>

namespace orr {

class MessageStore {
  public:
    virtual ~MessageStore() = default;
    virtual std::string GetMessage(const std::string& key) = 0;
    virtual bool PutMessage(const std::string& key, const std::string& value) = 0;

    // Several changes that belong together (renumbering a list). Stores that can write them in
    // one go override this; the default writes them one by one and reports whether all worked.
    virtual bool PutMessages(const std::vector<std::pair<std::string, std::string>>& changes) {
        bool ok = true;
        for (const auto& [key, value] : changes) ok = PutMessage(key, value) && ok;
        return ok;
    }
};

}  // namespace orr
