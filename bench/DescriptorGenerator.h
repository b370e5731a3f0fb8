#pragma once
// Invented descriptors of realistic size for the benchmarks: every planet section holds an
// away-team room grid written the way the adventure grid wizard writes it.

#include <string>
#include <string_view>
#include <vector>

namespace orr::bench {

struct KeyValue {
    std::string key;
    std::string value;
};

// The keys of the areas of a width x height grid (all seven actions checked, no restriction
// prefixes), in the wizard's order: per area its message, its responses, their count, and the
// search and tricorder groups. Areas are named roomPrefix + x + y, zero-padded as the wizard does;
// with the prefix "Area" they are the wizard's own keys (GridWizardKeys) without the beam entries.
std::vector<KeyValue> gridAreaKeys(int width, int height, std::string_view roomPrefix = "Area");

// Every key the adventure grid wizard writes for the grid (GridWizardKeys of the core): the areas
// followed by the beam-down and beam-up entries.
std::vector<KeyValue> gridWizardKeys(int width, int height);

// A whole descriptor with CR LF line ends: [General] with the flag keys and the system block,
// [Names], then one section per planet holding a width x height grid, except the planet
// `gridless` (1..planets; 0 for none), whose section holds only its information text. Ten planets
// with 10 x 10 grids give about 600 KB.
std::string generateDescriptor(int planets = 10, int width = 10, int height = 10, int gridless = 0);

}  // namespace orr::bench
