#pragma once
// The planet a test plays, taken from the open system: a copy of its record, its name, the alien
// names, and its keys read through GetPlanetKey. Reading is all a test does to the system: its
// record and its file stay as they are whatever the play does to the copy.

#include <string>
#include <vector>

#include "store/SystemStore.h"
#include "testmode/ConsoleState.h"

namespace orr {

// Planet `number` of the store's open system. Its keys are read as the game reads them: while
// the planet's "Use Custom Messages" switch is off they hold nothing, as they do for the game.
// The store must outlive the planet.
TestPlanet PlanetUnderTest(const SystemStore& store, int number);

// The planet's 36 flag descriptions as the flag chooser lists them ("A - Treaty signed", ...).
std::vector<std::string> PlanetFlagItems(const SystemStore& store, int number);

}  // namespace orr
