#include "testmode/TestModule.h"

#include <algorithm>
#include <array>

#include "testmode/PlayNumbers.h"

namespace orr {

namespace {

constexpr std::array<const char*, kUpgradeKinds + 1> kUpgradeNames = {
    "", "energy", "shields", "photon", "sensor", "torpedo bay"};

}  // namespace

void TestModule::ApplyUpgrade(const std::string& code) {
    const int index = UpgradeIndex(code);
    if (index == 0) return;
    if (ship_.UpgradeLevel[index] >= kMaxUpgradeLevel) {
        events_.boxShown(std::string("You cannot take another ") + kUpgradeNames[index] +
                         " upgrade.");
        return;
    }
    ++ship_.UpgradeLevel[index];
    events_.upgradesChanged();
}

void TestModule::ResetUpgrades() {
    for (int i = 1; i <= kUpgradeKinds; ++i) {
        ship_.UpgradeLevel[i] = 0;
        ApplyUpgrade(UpgradeCode(i));
    }
}

void TestModule::ShieldHit(std::int16_t amount) {
    events_.boxShown("Your shields have been hit with " + std::to_string(amount) + "units.");
    ship_.Shields = play::toInt16(static_cast<double>(ship_.Shields) - amount);
}

void TestModule::DamageSystem(std::int16_t amount, std::int16_t system) {
    if (system == 0) system = static_cast<std::int16_t>(random_.next() * 7 + 1);
    if (system < 0 || system >= kShipSystems) return;
    events_.boxShown("System " + std::to_string(system) + " damaged.");
    ship_.SystemDamage[system] += amount;
}

void TestModule::DestroySystem(std::int16_t system) {
    if (system < 0 || system >= kShipSystems) return;
    if (ship_.destroyedSystems() < kShipSystems - 1) {
        while (system == 0 || ShipState::isDestroyed(ship_.SystemDamage[system]))
            system = static_cast<std::int16_t>(random_.next() * 7.99 + 1);
    }
    events_.boxShown("System " + std::to_string(system) + " destroyed!");
    ship_.SystemDamage[system] = 8;
}

float TestModule::GetNumber(const std::string& prompt, const std::string& title,
                            const std::string& unit, float value, float min, float max,
                            float scale) {
    return events_.numberChosen({prompt, title, unit, value, min, max, scale});
}

}  // namespace orr
