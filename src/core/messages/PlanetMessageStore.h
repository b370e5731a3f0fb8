#pragma once
// The message keys of one planet of the open system: reads are forced (they ignore the
// planet's custom-messages switch) and an empty value deletes the key. Made over a const store
// it only reads: windows read through it, and every change goes through an edit session's
// command, which makes one over its own store.

#include <string>
#include <utility>
#include <vector>

#include "messages/MessageStore.h"
#include "store/SystemStore.h"

namespace orr {

class PlanetMessageStore : public MessageStore {
  public:
    PlanetMessageStore(SystemStore& system, int planet);
    PlanetMessageStore(const SystemStore& system, int planet);

    int planet() const { return planet_; }

    std::string GetMessage(const std::string& key) override;
    bool PutMessage(const std::string& key, const std::string& value) override;
    // All changes in one write of the descriptor.
    bool PutMessages(const std::vector<std::pair<std::string, std::string>>& changes) override;

  private:
    const SystemStore& reader_;
    SystemStore* writer_;  // null: read only
    int planet_;
};

}  // namespace orr
