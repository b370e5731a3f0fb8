#include "testmode/MessageInterpreter.h"

#include <vector>

#include "testmode/PlayNumbers.h"
#include "text/Text.h"

namespace orr {

namespace {

constexpr const char* kTerminated = "*** COMMUNICATION TERMINATED ***";

// A draw that keeps missing (only a broken source does that) would hang the test; after this
// many draws per candidate the first candidate is taken instead.
constexpr long kDrawsPerCandidate = 64;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string after(std::string_view code, std::size_t count) {
    return code.size() > count ? std::string(code.substr(count)) : std::string();
}

std::int16_t integerAfter(std::string_view code, std::size_t count) {
    return play::toInt16(play::leadingNumber(after(code, count)));
}

bool isSystem(int n) {
    return n >= 0 && n < kShipSystems;
}

template <typename T>
T limit(T value, T low, T high) {
    if (value < low) return low;
    if (value > high) return high;
    return value;
}

// Replaces the first occurrence of `code` (any letter case) by `value`.
void replaceFirst(std::string& line, std::string_view code, const std::string& value) {
    const std::string lower = text::toLower(line);
    const std::size_t at = lower.find(text::toLower(code));
    if (at != std::string::npos) line.replace(at, code.size(), value);
}

}  // namespace

std::string_view ForEachStarCode(std::string_view line,
                                 const std::function<bool(std::string_view code)>& visit) {
    std::size_t star = line.find('*');
    const std::string_view before = line.substr(0, star);
    while (star != std::string_view::npos) {
        const std::size_t next = line.find('*', star + 1);
        const std::size_t end = next == std::string_view::npos ? line.size() : next;
        if (!visit(line.substr(star + 1, end - star - 1))) break;
        star = next;
    }
    return before;
}

std::string AdjustmentName(std::string_view code) {
    const std::string_view rest = code.substr(code.empty() ? 0 : 1);
    for (std::size_t i = rest.size(); i > 0; --i)
        if (rest[i - 1] >= 'A' && rest[i - 1] <= 'Z') return std::string(rest.substr(0, i));
    return {};
}

std::string MessageInterpreter::ReadPlanetKey(const std::string& key) const {
    return planet_.keys ? planet_.keys(key) : std::string();
}

int MessageInterpreter::ReadCount(const std::string& key) const {
    return std::max<int>(0, play::toInt16(play::leadingNumber(ReadPlanetKey(key))));
}

void MessageInterpreter::changed() {
    if (afterCode_) afterCode_();
}

bool MessageInterpreter::PassConditions(std::string& line) {
    while (line.starts_with('%')) {
        if (!CheckCondition(std::string_view(line).substr(1, 2))) return false;
        line.erase(0, 3);
    }
    return true;
}

int MessageInterpreter::SelectMessage(const std::string& group, int count) {
    count = std::max(count, 0);
    std::vector<char> usable(static_cast<std::size_t>(count) + 1, 0);
    int eligible = count;
    int candidates = 0;
    for (int i = 1; i <= count; ++i) {
        std::string line = ReadPlanetKey(group + std::to_string(i));
        bool ok = PassConditions(line);
        line = text::trim(line);
        if (ok)
            ForEachStarCode(line, [&](std::string_view code) { return ok = IsCodeEligible(code); });
        if (!ok) {
            --eligible;
        } else if (!line.empty()) {  // an empty line is never chosen
            usable[static_cast<std::size_t>(i)] = 1;
            ++candidates;
        }
    }
    if (eligible == 0 || candidates == 0) {
        module_.events().boxShown(kTerminated);
        return -1;
    }
    int chosen = 0;
    for (long draws = 0; !usable[static_cast<std::size_t>(chosen)]; ++draws) {
        if (draws > kDrawsPerCandidate * count) {
            chosen = 1;
            while (!usable[static_cast<std::size_t>(chosen)]) ++chosen;
            break;
        }
        chosen = std::min(count, static_cast<int>(module_.random().next() * count + 1));
    }
    return chosen;
}

void MessageInterpreter::DisplayMessage(const std::string& stored) {
    const std::string alien = planet_.alienName();
    std::string line = stored;
    while (line.starts_with('%')) line.erase(0, std::min<std::size_t>(3, line.size()));
    bool box = false;
    std::string title = kStandardTitle;
    if (line.starts_with('$')) {
        const std::size_t close = line.find('$', 1);
        if (close == std::string::npos) {
            // The closing "$" is missing, so title and text cannot be told apart: a player sees
            // the whole rest as the message, under the standard title.
            line.erase(0, 1);
        } else {
            const std::string prefix = line.substr(1, close - 1);
            line.erase(0, close + 1);
            if (prefix == "BOX")
                box = true;
            else
                title = prefix;
        }
    }
    line = " " + line + " ";
    ShipState& ship = module_.ship();
    replaceFirst(line, "%AN", alien);
    replaceFirst(line, "%NM", ship.PlayerName);
    replaceFirst(line, "%RK", ship.RankName);
    replaceFirst(line, "%BG", "BadGuy");
    replaceFirst(line, "%VK", "Vorlak");
    if (!box) console_.ResponseLevel = console_.MessageLevel;

    const std::string trimmed = text::trim(line);
    std::string shown = trimmed.substr(0, trimmed.find('*'));
    shown.resize(std::min(shown.size(), shown.find('^')));
    if (box) {
        // A boxed message leaves the panel's text, but the title goes back to the standard one.
        if (console_.panel.title != kStandardTitle) {
            console_.panel.title = kStandardTitle;
            module_.events().titleChanged(console_.panel.title);
        }
        module_.events().boxShown(shown);
    } else {
        console_.panel = {title, shown};
        console_.panelVisible = true;
        module_.events().messageShown(console_.panel);
    }
    changed();

    const std::string rest = " " +
                             std::string(ForEachStarCode(trimmed,
                                                         [this](std::string_view code) {
                                                             ExecuteCode(std::string(code));
                                                             return true;
                                                         })) +
                             " ";
    for (std::size_t at = rest.find('^'); at != std::string::npos; at = rest.find('^', at + 3))
        ApplyCaret(rest.substr(at + 1, 2));
}

void MessageInterpreter::ApplyCaret(const std::string& code) {
    module_.ApplyUpgrade(code);
    ShipState& ship = module_.ship();
    std::string fill;
    if (code == "EN") {
        fill = "We will fill your veridium crystals to test their integrity.";
        ship.ShipEnergy = ship.ShipEnergyMax;
        ship.Shields = 0;
    } else if (code == "PT") {
        fill = "We will fill your photon bay to test new containment fields.";
        ship.ExtraBay = 20;
        ship.Class1Torpedoes = std::min<std::int16_t>(ship.Class1Torpedoes, 60);
    } else if (code == "TB") {
        if (ship.ExtraBay < 20) {
            fill = "We will fill your extra photon bay to capacity for testing.";
            ship.ExtraBay = 20;
        } else if (ship.Class1Torpedoes < 60) {
            fill = "We will give you some Class 1 photons we had laying around.";
            const double t = ship.Class1Torpedoes;
            ship.Class1Torpedoes = std::min<std::int16_t>(
                60, play::toInt16(module_.random().next() * (60 - t) * 1.2 + t));
        }
    }
    if (!fill.empty()) {
        console_.panel.text += fill;
        if (console_.panelVisible) module_.events().messageShown(console_.panel);
    }
    changed();
}

void MessageInterpreter::ExecuteCodes(std::string_view line) {
    ForEachStarCode(text::trim(line), [this](std::string_view code) {
        ExecuteCode(std::string(code));
        return true;
    });
}

void MessageInterpreter::ExecuteCode(const std::string& code) {
    if (code.empty()) return;
    ShipState& ship = module_.ship();
    TestEvents& events = module_.events();
    const char first = code[0];
    if (first == 'M') {
        console_.MessageLevel = after(code, 1);
    } else if (first == 'R') {
        console_.ResponseLevel = after(code, 1);
    } else if (first == 'A') {
        console_.EnergyAllowance = integerAfter(code, 1);
        console_.buttons.energy = true;
        events.buttonsChanged(console_.buttons);
    } else if (first == 'H') {
        module_.ShieldHit(integerAfter(code, 1));
    } else if (code.starts_with("DS")) {
        const std::int16_t system = integerAfter(code, 2);
        if (isSystem(system))
            module_.DamageSystem(static_cast<std::int16_t>(module_.random().next() * 250 + 50),
                                 system);
    } else if (code.starts_with("D!S")) {
        const std::int16_t system = integerAfter(code, 3);
        if (isSystem(system)) module_.DestroySystem(system);
    } else if (code.starts_with("SP")) {
        const std::int16_t counter = integerAfter(code, 2);
        if (counter >= 0 && counter < kRetrofitCounters)
            ship.Retrofits[counter] = play::toInt16(ship.Retrofits[counter] + 1.0);
    } else if (code.starts_with("FALL")) {
        ship.SystemDamage.fill(0);
        events.boxShown("All systems repaired!");
    } else if (code.starts_with("FS") || code.starts_with("F!S")) {
        const bool replace = code[1] == '!';
        const std::int16_t system = integerAfter(code, replace ? 3 : 2);
        if (system != 0 && isSystem(system)) {
            ship.SystemDamage[system] = 0;
            events.boxShown("System " + std::to_string(system) +
                            (replace ? " replaced!" : " repaired!"));
        } else if (system == 0) {
            RepairRandom(replace, replace ? " replaced!" : " repaired!");
        }
    } else if (code.size() >= 2 && code[1] == 'F') {
        const int flag = TestFlagNumber(code, 2);
        if (first == 'S') SetFlag(planet_.record, flag, true);
        if (first == 'C') SetFlag(planet_.record, flag, false);
        if (first == 'T') SetFlag(planet_.record, flag, !GetFlag(planet_.record, flag));
    } else if (code.starts_with("TREATY")) {
        TreatyFormed();
    } else if (code.starts_with("NOTREATY")) {
        TreatyBroken();
    } else if (first == '+' || first == '-') {
        Adjust(code);
    }
    changed();
}

void MessageInterpreter::RepairRandom(bool destroyed, const char* verb) {
    ShipState& ship = module_.ship();
    auto qualifies = [&](int system) {
        const float damage = ship.SystemDamage[static_cast<std::size_t>(system)];
        return destroyed ? ShipState::isDestroyed(damage) : ShipState::isDamaged(damage);
    };
    int first = -1;
    for (int system = kShipSystems - 1; system >= 0; --system)
        if (qualifies(system)) first = system;
    if (first < 0) return;  // nothing to repair
    int system = -1;
    for (long draws = 0; system < 0 || !qualifies(system); ++draws)
        system = draws > kDrawsPerCandidate * kShipSystems
                     ? first
                     : std::min(kShipSystems - 1, static_cast<int>(module_.random().next() * 8.99));
    ship.SystemDamage[static_cast<std::size_t>(system)] = 0;
    module_.events().boxShown("System " + std::to_string(system) + verb);
}

void MessageInterpreter::Adjust(const std::string& code) {
    const std::string name = AdjustmentName(code);
    if (name.empty()) {
        module_.events().boxShown("There is a syntax error in the message file: " + code);
        return;
    }
    const double sign = code[0] == '-' ? -1 : 1;
    const double v = sign * play::leadingNumber(after(code, 1 + name.size()));
    ShipState& ship = module_.ship();
    if (name == "PTU") {
        ship.ExtraBay = limit<std::int16_t>(play::toInt16(v + ship.ExtraBay), 0, 20);
    } else if (name == "PT") {
        ship.Class1Torpedoes = limit<std::int16_t>(play::toInt16(v + ship.Class1Torpedoes), 0, 60);
    } else if (name == "PO") {
        ship.PoValue = limit<std::int16_t>(play::toInt16(v + ship.PoValue), 0, 10);
    } else if (name == "EN") {
        ship.ShipEnergy =
            limit<std::int32_t>(play::toInt32(v + ship.ShipEnergy), 0, ship.ShipEnergyMax);
    } else if (name == "ENM") {
        // No upper limit but the integer's; the energy may stay above a lowered maximum.
        ship.ShipEnergyMax = std::max<std::int16_t>(1000, play::toInt16(v + ship.ShipEnergyMax));
    } else if (name == "TI") {
        module_.events().boxShown("Time has gone down by " + play::formatNumber(-v));
    }
}

bool MessageInterpreter::CheckCondition(std::string_view code) {
    if (code == "00") return false;
    const ShipState& ship = module_.ship();
    const PlanetRecord& planet = planet_.record;
    if (!code.empty() && isDigit(code[0])) {
        int n = 0;
        for (std::size_t i = 0; i < code.size() && isDigit(code[i]); ++i)
            n = n * 10 + code[i] - '0';
        const int energy = PlanetAttributes::unpack(planet.Attributes).Energy;
        if (n >= 1 && n <= 9) return module_.random().next() * 10 <= n;
        if (n >= 10 && n <= 14) return ship.UpgradeLevel[n - 9] == 1;
        if (n >= 15 && n <= 19) return ship.UpgradeLevel[n - 14] != 1;
        if (n >= 20 && n <= 23) return energy == n - 20;
        if (n == 24) return energy >= 1;
        if (n == 25) return energy >= 2;
        if (n >= 26 && n <= 30) return ship.UpgradeLevel[n - 25] >= 3;
        if (n >= 31 && n <= 37) return GetFlag(planet, n - 31);
        if (n >= 38 && n <= 44) return !GetFlag(planet, n - 38);
        if (n == 45) return GetFlag(planet, kTreatyFlag);
        if (n == 46) return !GetFlag(planet, kTreatyFlag);
        if (n == 47) return ship.damagedSystems() >= 1;
        if (n == 48) return ship.damagedSystems() >= 5;
        if (n == 49) return ship.destroyedSystems() >= 1;
        if (n == 50) return ship.destroyedSystems() >= 5;
        if (n == 51) return !ship.anyDamage();
        if (n == 52) return !ship.UpgradesOption;
        if (n == 53) return ship.BadGuyOption;
        if (n == 54) return !ship.BadGuyOption;
        if (n >= 55 && n <= 59) return ship.UpgradeLevel[n - 54] < kMaxUpgradeLevel;
        return true;
    }
    if (code.starts_with('F')) return GetFlag(planet, TestFlagNumber(code, 1));
    if (code.starts_with('f')) return !GetFlag(planet, TestFlagNumber(code, 1));
    return true;
}

bool MessageInterpreter::IsCodeEligible(std::string_view code) {
    const ShipState& ship = module_.ship();
    const bool destroyed = code.starts_with("R!S");
    if (code.starts_with("RS") || destroyed) {
        const std::int16_t system = integerAfter(code, destroyed ? 3 : 2);
        if (!isSystem(system)) return true;  // a fault of the message file: ignored
        const float damage = ship.SystemDamage[static_cast<std::size_t>(system)];
        return destroyed ? damage >= kDestroyedDamage : damage != 0 && damage < kDestroyedDamage;
    }
    if (!code.starts_with('-')) return true;
    const std::string name = AdjustmentName(code);
    const double v = play::leadingNumber(after(code, 1 + name.size()));
    if (name == "PTU") return ship.ExtraBay >= v;
    if (name == "PT") return ship.Class1Torpedoes >= v;
    if (name == "PO") return ship.PoValue >= v;
    if (name == "EN") return ship.ShipEnergy >= v;
    if (name == "ENM") return ship.ShipEnergyMax >= v;
    return true;
}

std::optional<std::string> MessageInterpreter::OfferCaption(const std::string& stored) {
    if (stored.empty()) return std::nullopt;
    std::string line = stored;
    const ShipState& ship = module_.ship();
    replaceFirst(line, "%RK", ship.RankName);
    replaceFirst(line, "%NM", ship.PlayerName);
    replaceFirst(line, "%AN", planet_.alienName());
    if (!PassConditions(line)) return std::nullopt;
    line.resize(std::min(line.size(), line.find('*')));
    return line;
}

void MessageInterpreter::TreatyFormed() {
    if (console_.OrbitPlanet == 0) return;
    module_.events().boxShown("A treaty has been formed with the " + planet_.alienName() +
                              ".\nThis will allow you more time to complete\n"
                              "your mission.  (It will also look pretty good\n"
                              "on your record.)");
    SetFlag(planet_.record, kTreatyFlag, true);
}

void MessageInterpreter::TreatyBroken() {
    if (console_.OrbitPlanet == 0) return;
    module_.events().boxShown("The " + planet_.alienName() +
                              " have broken the treaty with Concordat.\n"
                              "This will take extra time away from your mission.");
    SetFlag(planet_.record, kTreatyFlag, false);
}

}  // namespace orr
