#include "testmode/TestOptions.h"

#include <algorithm>

#include "messages/Flags.h"
#include "testmode/PlayNumbers.h"

namespace orr {

TestOptions::TestOptions(TestModule& module, TestPlanet& planet, std::vector<std::string> flagItems)
    : module_(module), planet_(planet), flagItems_(std::move(flagItems)), marked_(kLabelledFlags) {
    module_.ResetUpgrades();
    module_.ship().RankName = "Captain";
    module_.ship().PlayerName = "<Player>";
}

std::string TestOptions::FlagLabel(int n) {
    return n == kTreatyFlag ? "Treaty" : TestFlagChar(n);
}

std::string TestOptions::FlagName(int n) const {
    if (n == kTreatyFlag) return "Have Treaty";
    const std::string c = TestFlagChar(n);
    const int index = c.empty() ? -1 : FlagIndex(c);
    if (index >= 0 && static_cast<std::size_t>(index) < flagItems_.size())
        return flagItems_[static_cast<std::size_t>(index)];
    return c + " - " + kUnusedFlag;
}

bool TestOptions::isMarked(int n) const {
    return n >= 0 && n < kLabelledFlags && marked_[static_cast<std::size_t>(n)];
}

void TestOptions::mark(int n, bool on) {
    if (n < 0 || n >= kLabelledFlags || isMarked(n) == on) return;
    marked_[static_cast<std::size_t>(n)] = on;
    if (on)
        entries_.push_back({n, FlagName(n)});
    else
        std::erase_if(entries_, [n](const FlagEntry& entry) { return entry.flag == n; });
}

void TestOptions::toggleFlag(int n) {
    mark(n, !isMarked(n));
}

void TestOptions::removeEntry(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= entries_.size()) return;
    const int n = entries_[static_cast<std::size_t>(index)].flag;
    SetFlag(planet_.record, n, false);
    mark(n, false);
}

void TestOptions::clearFlags() {
    for (int n = 0; n < kLabelledFlags; ++n) mark(n, false);
}

bool TestOptions::mirrorFlags() {
    bool changed = false;
    for (int n = 0; n < kLabelledFlags; ++n) {
        const bool set = GetFlag(planet_.record, n);
        if (set == isMarked(n)) continue;
        mark(n, set);
        changed = true;
    }
    return changed;
}

std::string TestOptions::LastVisitCaption(int value) {
    return value == 0 ? "Never" : play::formatOneDecimal(value / 10.0) + " days ago";
}

void TestOptions::setUpgradesOption(bool on) {
    upgrades_ = on;
    if (!on) module_.ResetUpgrades();
}

void TestOptions::cycleUpgrade(int index) {
    if (!upgrades_ || index < 1 || index > kUpgradeKinds) return;
    std::int16_t& level = module_.ship().UpgradeLevel[static_cast<std::size_t>(index)];
    if (level >= kMaxUpgradeLevel) level = 0;
    module_.ApplyUpgrade(UpgradeCode(index));
}

int TestOptions::UpgradeFill(int level) {
    switch (level) {
        case 2:
            return 14;
        case 3:
            return 10;
        case 4:
            return 11;
        case 5:
            return 12;
        default:
            return -1;
    }
}

int TestOptions::UpgradeBorder(int level) {
    return level >= kMaxUpgradeLevel ? 8 : 0;
}

std::string TestOptions::RetrofitCaption() const {
    std::string caption = "Retrofits: ";
    for (int i = 1; i < kRetrofitCounters; ++i)
        caption += std::to_string(module_.ship().Retrofits[static_cast<std::size_t>(i)]) + " ";
    return caption;
}

void TestOptions::begin(bool badGuy, int lastVisitValue) {
    planet_.record.TestFlags = 0;
    for (int n = 0; n < kLabelledFlags; ++n)
        if (isMarked(n)) SetFlag(planet_.record, n, true);
    ShipState& ship = module_.ship();
    ship.BadGuyOption = badGuy;
    ship.UpgradesOption = upgrades_;
    planet_.record.LastVisit = lastVisitValue * 10;
}

}  // namespace orr
