#include "testmode/ShipState.h"

#include <algorithm>

#include "testmode/PlayNumbers.h"

namespace orr {

namespace {

constexpr std::array<const char*, kUpgradeKinds + 1> kUpgradeCodes = {"",   "EN", "SH",
                                                                      "PT", "SN", "TB"};

}  // namespace

int UpgradeIndex(std::string_view code) {
    for (int i = 1; i <= kUpgradeKinds; ++i)
        if (code == kUpgradeCodes[i]) return i;
    return 0;
}

const char* UpgradeCode(int index) {
    return index >= 1 && index <= kUpgradeKinds ? kUpgradeCodes[index] : "";
}

int ShipState::damagedSystems() const {
    return static_cast<int>(
        std::count_if(SystemDamage.begin() + 1, SystemDamage.end(), &ShipState::isDamaged));
}

int ShipState::destroyedSystems() const {
    return static_cast<int>(
        std::count_if(SystemDamage.begin() + 1, SystemDamage.end(), &ShipState::isDestroyed));
}

bool ShipState::anyDamage() const {
    return std::any_of(SystemDamage.begin() + 1, SystemDamage.end(),
                       [](float damage) { return damage != 0; });
}

bool GetFlag(const PlanetRecord& planet, int n) {
    return n >= 0 && n <= kHighestTestFlag && ((planet.TestFlags >> n) & 1U) != 0;
}

void SetFlag(PlanetRecord& planet, int n, bool value) {
    if (n < 0 || n > kHighestTestFlag) return;
    const std::uint64_t bit = std::uint64_t{1} << n;
    planet.TestFlags = value ? (planet.TestFlags | bit) : (planet.TestFlags & ~bit);
}

int TestFlagNumber(std::string_view code, std::size_t pos) {
    if (pos >= code.size()) return -1;
    const int c = static_cast<unsigned char>(code[pos]);
    double n = 0;
    if (c < 'A')
        n = play::leadingNumber(code.substr(pos)) + 27;
    else
        n = c - 'A' + (c > 'G' ? 1 : 0);  // the treaty flag sits between "G" and "H"
    const int flag = play::toInt16(n);
    return flag >= 0 && flag <= kHighestTestFlag ? flag : -1;
}

std::string TestFlagChar(int n) {
    if (n >= 0 && n <= 6) return std::string(1, static_cast<char>('A' + n));
    if (n >= 8 && n <= 26) return std::string(1, static_cast<char>('A' + n - 1));
    if (n >= 27 && n <= 36) return std::string(1, static_cast<char>('0' + n - 27));
    return {};
}

}  // namespace orr
