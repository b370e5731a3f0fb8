#include "store/SystemRecord.h"

#include "text/Text.h"

namespace orr {

PlanetAttributes PlanetAttributes::unpack(std::int32_t word) {
    // The bits of the word as stored; for the non-negative words the editor writes this equals
    // the division-and-remainder reading, and a damaged negative word still gives valid options.
    const auto bits = static_cast<std::uint32_t>(word);
    PlanetAttributes a;
    a.Inhabited = static_cast<int>((bits / 16384) % 4);
    a.Attitude = static_cast<int>((bits / 4096) % 4);
    a.Advanced = static_cast<int>((bits / 1024) % 4);
    a.Energy = static_cast<int>((bits / 256) % 4);
    a.Alien = static_cast<int>(bits % 256);
    return a;
}

std::int32_t PlanetAttributes::pack() const {
    // Each sub-field is kept within its bits so one bad value cannot spill into its neighbour.
    return (Inhabited & 3) * 16384 + (Attitude & 3) * 4096 + (Advanced & 3) * 1024 +
           (Energy & 3) * 256 + (Alien & 255);
}

void SystemRecord::setDisplayName(const std::string& name) {
    DisplayName = text::fitWidth(name, kDisplayNameWidth);
}

std::string SystemRecord::trimmedDisplayName() const {
    return text::trim(DisplayName);
}

}  // namespace orr
