#pragma once
// The adventure grid wizard's rules: the grid sizes it accepts and every key it writes for a
// grid of areas with the chosen standard actions (see GridWizardKeys). The edit session writes
// them in one command (finishGridWizard in session/RoomEdits.h).

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rooms/StandardActions.h"

namespace orr {

inline constexpr int kMinGridSize = 2;
inline constexpr int kMaxGridSize = 10;
inline constexpr int kDefaultGridSize = 3;

struct GridWizardChoices {
    int width = kDefaultGridSize;   // columns, growing eastwards
    int height = kDefaultGridSize;  // rows, growing southwards
    std::array<bool, kStandardActionCount> actions{true, true, true, true, true, true, true};
};

// A size as the wizard's Validate leaves it: below 2 becomes 2, above 10 becomes 10.
int clampGridSize(long long size);
// The text of a size box after Validate: its value (Val) clamped.
std::string validatedGridSize(std::string_view typed);

// Every key of the grid in the order the wizard writes them: for each column x and within it each
// row y the area's message, its actions (doors only towards neighbours inside the grid), their
// count, and its search and tricorder effects when those are chosen; then the beam-down message
// (always) and the beam-up group (when beam up is chosen). Keys of an earlier, larger grid are not
// touched: they stay in the file, out of reach.
std::vector<std::pair<std::string, std::string>> GridWizardKeys(const GridWizardChoices& choices,
                                                                const Requirements& requirements);

}  // namespace orr
