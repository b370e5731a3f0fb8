#include "store/Tables.h"

#include "store/SystemRecord.h"

#include "store/FileIo.h"
#include "store/RecordFields.h"

namespace orr {

const std::array<std::string, 8> Tables::StarTypeNames = {
    "Yellow Sun",   "White Dwarf",        "Red Sun",    "Binary System", "Binary System",
    "Neutron Star", "Flaring Yellow Sun", "Blue Giant",
};

// Types 3 and 4 share a name; the menu has to tell them apart.
const std::array<std::string, 8> Tables::StarTypeMenuCaptions = {
    "Yellow Sun",
    "White Dwarf",
    "Red Sun",
    "Binary System (Black Hole)",
    "Binary System",
    "Neutron Star",
    "Flaring Yellow Sun",
    "Blue Giant",
};

const std::array<std::string, 15> Tables::ClassCaptions = {
    "- - Asteroid Belt",
    "A - Radiates heat from its surface",
    "B - Non-radiant planet",
    "C - Very high surface temperature",
    "D - Appears to be a captured asteroid",
    "E - This planet has a large molten core",
    "F - This planet is very young (less than a billion yrs)",
    "G - Desert planet",
    "H - Geologically active",
    "I - A small, young planet",
    "J - This planet seems to be a captured moon",
    "K - Red planet, Carbon Dioxide atmosphere",
    "L - Geologically inactive similar to Earth",
    "M - Geologically active similar to Earth",
    "N - Water covered planet",
};

const std::array<int, 15> Tables::ClassColours = {0, 14, 9, 2, 8, 4, 6, 6, 5, 5, 7, 12, 9, 9, 9};

const std::array<std::string, 13> Tables::RomanNumerals = {
    "", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX", "X", "XI", "XII",
};

const std::array<double, 4> Tables::Fractions = {0, 0.5, 0.3, 0.1};

const std::array<std::string, 4> Tables::InhabitedCaptions = {"No Life", "Plant", "Animal",
                                                              "Extinct"};
const std::array<std::string, 4> Tables::AttitudeCaptions = {"En Aggressive", "En Passive",
                                                             "Fr Business", "Fr Social"};
const std::array<std::string, 4> Tables::AdvancedCaptions = {"Primitive", "Sub-Warp", "Warp",
                                                             "Advanced"};
const std::array<std::string, 4> Tables::EnergyCaptions = {"No Energy", "Fossil Fuels", "Nuclear",
                                                           "Veridium"};

const std::array<std::string, 9> Tables::ShipSystemNames = {
    "Random System",       "Warp Engines",   "Short Range Scanners",
    "Long Range Scanners", "Phaser Control", "Photon Torpedo Tubes",
    "Shield Control",      "Damage Control", "Library Computer",
};

bool Tables::InitTables(const std::filesystem::path& aliensFile) {
    AlienNames.fill(std::string());
    const std::optional<std::string> bytes = readWholeFile(aliensFile);
    if (!bytes) return false;
    const std::vector<std::string_view> lines = RecordFields::splitLines(*bytes);
    // Entry 0 means "no alien"; the file fills entries 1..255 and the rest is ignored.
    for (std::size_t n = 1; n < AlienNames.size() && n <= lines.size(); ++n) {
        AlienNames[n] = std::string(lines[n - 1]);
    }
    return true;
}

std::array<std::string, 4> Tables::InfoCaptions(std::int32_t attributes) {
    const PlanetAttributes a = PlanetAttributes::unpack(attributes);
    const auto at = [](int value) { return static_cast<std::size_t>(value & 3); };
    const std::string none = "---";
    return {InhabitedCaptions[at(a.Inhabited)],
            a.Inhabited < 2 ? none : AdvancedCaptions[at(a.Advanced)],
            a.Inhabited != 2 ? none : AttitudeCaptions[at(a.Attitude)],
            EnergyCaptions[at(a.Energy)]};
}

}  // namespace orr
