#pragma once
// The procedures that change the simulated ship: upgrades, shield hits, damage and destruction
// of ship systems, and the number question of the Energy command. Each shows its message
// through the test's events.

#include <string>

#include "testmode/RandomSource.h"
#include "testmode/ShipState.h"
#include "testmode/TestEvents.h"

namespace orr {

class TestModule {
  public:
    TestModule(ShipState& ship, RandomSource& random, TestEvents& events)
        : ship_(ship), random_(random), events_(events) {}

    ShipState& ship() { return ship_; }
    const ShipState& ship() const { return ship_; }
    RandomSource& random() { return random_; }
    TestEvents& events() { return events_; }

    // Raises the level of "EN", "SH", "PT", "SN" or "TB" by one; at level 5 says so instead.
    // Any other code does nothing.
    void ApplyUpgrade(const std::string& code);
    // Every level becomes 0 and then takes one upgrade, which leaves each at 1 (no upgrade).
    void ResetUpgrades();
    void ShieldHit(std::int16_t amount);
    // System 0 stands for a random system among 1..7.
    void DamageSystem(std::int16_t amount, std::int16_t system);
    // System 0, or one already destroyed, is replaced by a random intact or damaged one among
    // 1..8, unless every system is destroyed already.
    void DestroySystem(std::int16_t system);
    // The number dialog; request.min - 1 when the user cancels.
    float GetNumber(const std::string& prompt, const std::string& title, const std::string& unit,
                    float value, float min, float max, float scale);

  private:
    ShipState& ship_;
    RandomSource& random_;
    TestEvents& events_;
};

}  // namespace orr
