#pragma once
// The test's state as rows of a table ("Energy", "4000 / 4500"): what the console's ship-state
// panel shows, and, compared before and after a step, the changes a transcript lists.

#include <string>
#include <vector>

#include "testmode/ConsoleState.h"
#include "testmode/ShipState.h"

namespace orr {

struct StateRow {
    std::string label;
    std::string value;
    bool operator==(const StateRow&) const = default;
};

// The ship's values, the planet's set flags, the two levels and the energy allowance.
std::vector<StateRow> StateRows(const ShipState& ship, const PlanetRecord& planet,
                                const ConsoleState& console);

// One line per row whose value differs: "Energy: 0 / 1000 -> 500 / 1000".
std::vector<std::string> StateChanges(const std::vector<StateRow>& before,
                                      const std::vector<StateRow>& after);

// A level as shown: "INIT" for the empty name.
std::string ShownLevel(const std::string& level);

}  // namespace orr
