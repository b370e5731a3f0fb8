#pragma once
// The test mode's state that lives for the whole run of the program: one simulated ship, so a
// second test starts from what the first one left, and one random source, which every console
// seeds when it opens.

#include "testmode/RandomSource.h"
#include "testmode/ShipState.h"

namespace orr::ui {

ShipState& testShip();
RandomSource& testRandom();

}  // namespace orr::ui
