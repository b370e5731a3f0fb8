#include "testmode/TestShip.h"

namespace orr::ui {

ShipState& testShip() {
    static ShipState ship;
    return ship;
}

RandomSource& testRandom() {
    static SeededRandom random;
    return random;
}

}  // namespace orr::ui
