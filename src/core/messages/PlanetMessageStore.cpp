#include "messages/PlanetMessageStore.h"

namespace orr {

PlanetMessageStore::PlanetMessageStore(SystemStore& system, int planet)
    : reader_(system), writer_(&system), planet_(planet) {}

PlanetMessageStore::PlanetMessageStore(const SystemStore& system, int planet)
    : reader_(system), writer_(nullptr), planet_(planet) {}

std::string PlanetMessageStore::GetMessage(const std::string& key) {
    return reader_.GetPlanetKey(planet_, key, true);
}

bool PlanetMessageStore::PutMessage(const std::string& key, const std::string& value) {
    if (!writer_) return false;
    const std::string section = std::to_string(planet_);
    if (value.empty()) {
        // A key that is already absent needs no write (and is no failure).
        if (GetMessage(key) == kErr) return true;
        return writer_->DeleteKey(section, key);
    }
    return writer_->WriteKey(section, key, value);
}

bool PlanetMessageStore::PutMessages(
    const std::vector<std::pair<std::string, std::string>>& changes) {
    if (!writer_) return false;
    ProfileStore::WriteBatch batch(writer_->profiles());
    bool ok = true;
    for (const auto& [key, value] : changes) ok = PutMessage(key, value) && ok;
    return batch.commit() && ok;
}

}  // namespace orr
