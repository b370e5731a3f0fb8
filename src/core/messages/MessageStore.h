#pragma once
// The keys of one planet's section, as the message editor, flags and the wizard see them:
// GetMessage reads regardless of the custom-messages switch ("ERR" when absent), PutMessage
// writes, and an empty value deletes the key.

#include <string>

namespace orr {

class MessageStore {
public:
    virtual ~MessageStore() = default;
    virtual std::string GetMessage(const std::string& key) = 0;
    virtual bool PutMessage(const std::string& key, const std::string& value) = 0;
};

}  // namespace orr
