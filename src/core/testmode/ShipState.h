#pragma once
// The simulated ship of the test mode. One ship lives for the whole run of the program: nothing
// resets it between tests, so a second test starts from what the first one left. Only the
// upgrade levels are reset when a test is prepared.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "store/SystemRecord.h"

namespace orr {

inline constexpr int kShipSystems = 9;  // 0 "Random System", 1..8 the ship's systems
inline constexpr int kUpgradeKinds = 5;
inline constexpr int kMaxUpgradeLevel = 5;
inline constexpr int kRetrofitCounters = 6;
inline constexpr float kDestroyedDamage = 7;  // damage from here on destroys a system
inline constexpr int kTreatyFlag = 7;
inline constexpr int kHighestTestFlag = 62;

// The upgrade kinds by their level index 1..5 ("EN" is 1); 0 for another code.
int UpgradeIndex(std::string_view code);
// "EN", "SH", "PT", "SN", "TB" for 1..5.
const char* UpgradeCode(int index);

struct ShipState {
    std::int32_t ShipEnergy = 0;
    std::int16_t ShipEnergyMax = 0;
    std::int16_t Shields = 0;
    std::int16_t Class1Torpedoes = 0;
    std::int16_t ExtraBay = 0;
    std::int16_t PoValue = 0;
    std::array<float, kShipSystems> SystemDamage{};
    std::array<std::int16_t, kUpgradeKinds + 1> UpgradeLevel{};  // 1..5 used: EN SH PT SN TB
    std::array<std::int16_t, kRetrofitCounters> Retrofits{};
    std::int16_t CurrentPlanet = 0;
    bool BadGuyOption = false;
    bool UpgradesOption = false;
    std::string RankName;
    std::string PlayerName;

    static bool isDamaged(float damage) { return damage > 0 && damage < kDestroyedDamage; }
    static bool isDestroyed(float damage) { return damage >= kDestroyedDamage; }
    // Of the systems 1..8 (system 0 stands for "any system" and does not count).
    int damagedSystems() const;
    int destroyedSystems() const;
    bool anyDamage() const;

    bool operator==(const ShipState&) const = default;
};

// The planet's test flags (bits 0..62 of TestFlags); a number outside that range is never set
// and cannot be set.
bool GetFlag(const PlanetRecord& planet, int n);
void SetFlag(PlanetRecord& planet, int n, bool value);

// The test flag named by the character at `pos` of `code`: "A".."G" are 0..6, "H".."Z" 8..26
// (7 is the treaty flag), and a character below "A" names the numeric value of the text from
// there on + 27 ("0" is 27, "12" is 39). -1 when there is no character or no such flag.
int TestFlagNumber(std::string_view code, std::size_t pos);
// The character that names flag n (0..36) in codes and in the options window: "A".."G", "H"..
// "Z", "0".."9"; empty for the treaty flag and beyond.
std::string TestFlagChar(int n);
inline constexpr int kLabelledFlags = 37;  // flags 0..36 have a character (7 is the treaty)

}  // namespace orr
