#include "messages/PlanetMessageStore.h"

namespace orr {

PlanetMessageStore::PlanetMessageStore(SystemStore& system, int planet)
    : system_(system), planet_(planet) {}

std::string PlanetMessageStore::GetMessage(const std::string& key) {
    return system_.GetPlanetKey(planet_, key, true);
}

bool PlanetMessageStore::PutMessage(const std::string& key, const std::string& value) {
    const std::string section = std::to_string(planet_);
    if (value.empty()) {
        // A key that is already absent needs no write (and is no failure).
        if (GetMessage(key) == kErr) return true;
        return system_.DeleteKey(section, key);
    }
    return system_.WriteKey(section, key, value);
}

bool PlanetMessageStore::PutMessages(
    const std::vector<std::pair<std::string, std::string>>& changes) {
    ProfileStore::WriteBatch batch(system_.profiles());
    bool ok = true;
    for (const auto& [key, value] : changes) ok = PutMessage(key, value) && ok;
    return batch.commit() && ok;
}

}  // namespace orr
