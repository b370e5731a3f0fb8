#include "testmode/StateRows.h"

#include "testmode/PlayNumbers.h"

namespace orr {

namespace {

template <typename Values>
std::string joined(const Values& values, std::size_t from) {
    std::string out;
    for (std::size_t i = from; i < values.size(); ++i) {
        if (!out.empty()) out += ' ';
        out += play::formatNumber(values[i]);
    }
    return out;
}

}  // namespace

std::string ShownLevel(const std::string& level) {
    return level.empty() ? "INIT" : level;
}

std::vector<StateRow> StateRows(const ShipState& ship, const PlanetRecord& planet,
                                const ConsoleState& console) {
    std::string upgrades;
    for (int i = 1; i <= kUpgradeKinds; ++i)
        upgrades += std::string(i > 1 ? " " : "") + UpgradeCode(i) + " " +
                    std::to_string(ship.UpgradeLevel[i]);
    std::string flags;
    for (int n = 0; n <= kHighestTestFlag; ++n) {
        if (!GetFlag(planet, n)) continue;
        const std::string name = n == kTreatyFlag ? "Treaty" : TestFlagChar(n);
        flags += (flags.empty() ? "" : " ") + (name.empty() ? "#" + std::to_string(n) : name);
    }
    return {
        {"Energy", std::to_string(ship.ShipEnergy) + " / " + std::to_string(ship.ShipEnergyMax)},
        {"Shields", std::to_string(ship.Shields)},
        {"Torpedoes", std::to_string(ship.Class1Torpedoes)},
        {"Extra bay", std::to_string(ship.ExtraBay)},
        {"PO", std::to_string(ship.PoValue)},
        {"Damage 0-8", joined(ship.SystemDamage, 0)},
        {"Upgrades", upgrades},
        {"Retrofits 0-5", joined(ship.Retrofits, 0)},
        {"Flags", flags.empty() ? "none" : flags},
        {"Message level", ShownLevel(console.MessageLevel)},
        {"Response level", ShownLevel(console.ResponseLevel)},
        {"Energy allowance", console.EnergyAllowance == 0
                                 ? std::string("no limit")
                                 : std::to_string(console.EnergyAllowance) + " days"},
    };
}

std::vector<std::string> StateChanges(const std::vector<StateRow>& before,
                                      const std::vector<StateRow>& after) {
    std::vector<std::string> changes;
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (i < before.size() && before[i].value == after[i].value) continue;
        changes.push_back(after[i].label + ": " + (i < before.size() ? before[i].value : "") +
                          " -> " + after[i].value);
    }
    return changes;
}

}  // namespace orr
