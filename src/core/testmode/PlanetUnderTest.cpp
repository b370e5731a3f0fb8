#include "testmode/PlanetUnderTest.h"

#include "messages/Flags.h"
#include "messages/PlanetMessageStore.h"
#include "session/SystemEdits.h"

namespace orr {

TestPlanet PlanetUnderTest(const SystemStore& store, int number) {
    TestPlanet planet;
    planet.number = number;
    planet.planetCount = store.record().PlanetCount;
    if (number >= 1 && number <= kMaxPlanets) planet.record = store.record().planet(number);
    planet.name = planetName(store, number);
    planet.alienNames = store.tables().AlienNames;
    planet.keys = [&store, number](const std::string& key) {
        // "NO" is what a planet without custom messages answers; its counts then read as 0.
        std::string value = store.GetPlanetKey(number, key);
        return value == kErr ? std::string() : value;
    };
    return planet;
}

std::vector<std::string> PlanetFlagItems(const SystemStore& store, int number) {
    PlanetMessageStore messages(store, number);
    return LoadFlagItems(messages);
}

}  // namespace orr
