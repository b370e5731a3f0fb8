#include "testmode/ShipConsole.h"

#include <algorithm>
#include <cmath>

#include "store/Tables.h"
#include "testmode/PlayNumbers.h"
#include "text/Text.h"

namespace orr {

namespace {

class BusyScope {
  public:
    explicit BusyScope(int& depth) : depth_(depth) { ++depth_; }
    ~BusyScope() { --depth_; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

  private:
    int& depth_;
};

}  // namespace

ShipConsole::ShipConsole(ShipState& ship, TestPlanet& planet, RandomSource& random,
                         TestEvents& events)
    : planet_(planet), module_(ship, random, events), interpreter_(module_, console_, planet_) {
    interpreter_.setAfterCode([this] { reportChanges(); });
}

std::vector<StateRow> ShipConsole::rows() const {
    return StateRows(module_.ship(), planet_.record, console_);
}

void ShipConsole::reportChanges() {
    std::vector<StateRow> now = rows();
    std::vector<std::string> changes = StateChanges(reported_, now);
    reported_ = std::move(now);
    if (!changes.empty()) module_.events().stateChanged(changes);
}

void ShipConsole::setButtons(const ConsoleButtons& buttons) {
    if (buttons == console_.buttons) return;
    console_.buttons = buttons;
    module_.events().buttonsChanged(buttons);
}

void ShipConsole::setMessageTimer(bool running) {
    if (running == console_.messageTimer) return;
    console_.messageTimer = running;
    module_.events().messageTimerChanged(running);
}

void ShipConsole::open(const ConsoleSetup& setup) {
    // Levels, the allowance and the timed message start afresh at every opening; the ship
    // carries over from the last test.
    console_ = ConsoleState{};
    console_.open = true;
    // Chosen now so the front can name it from the start; the source is seeded at step 8 below.
    seed_ = setup.seed ? *setup.seed : SeededRandom::clockSeed();
    reported_ = rows();
    TestEvents& events = module_.events();
    // The front may show what an earlier test left: start it from the opening state.
    events.messageHidden();
    events.buttonsChanged(console_.buttons);
    events.orbitChanged("");
    ShipState& ship = module_.ship();
    if (planet_.planetCount < 1) {
        events.boxShown("There are no planets in this system.");
        close();
        return;
    }
    console_.EnergyAllowance = 0;
    console_.flagTimer = true;
    ship.CurrentPlanet = static_cast<std::int16_t>(planet_.number);
    const PlanetRecord& record = planet_.record;
    if (record.PlanetClass == 0) {
        events.boxShown("This planet has been destroyed.");
        // Nothing is orbited, so nothing can be hailed, beamed to, mined or fired on.
        setButtons({false, false, false, false, false, true});
        return;
    }
    console_.OrbitPlanet = ship.CurrentPlanet;
    events.orbitChanged("Orbiting " + planet_.name);
    const PlanetAttributes attributes = PlanetAttributes::unpack(record.Attributes);
    if (record.PlanetClass >= 9 && attributes.Inhabited >= 1 && record.LastVisit == 0)
        events.boxShown("This is a habitable planet, Captain.\nI will enter it in our database.");
    if (setup.startLevel)
        console_.MessageLevel = *setup.startLevel;
    else if (record.LastVisit == 0)
        console_.MessageLevel.clear();
    else
        console_.MessageLevel = record.LastVisit >= 100 ? "Returned" : "Back";
    console_.ResponseLevel.clear();
    const bool orbiting = console_.OrbitPlanet == ship.CurrentPlanet;
    const bool talk = console_.MessageLevel != "Back" && orbiting;
    setButtons({talk, talk, orbiting, true, true, false});
    module_.random().seed(seed_);
    setMessageTimer(true);
    reportChanges();
}

void ShipConsole::tick() {
    if (!isOpen() || !console_.messageTimer) return;
    if (console_.OrbitPlanet == 0 || console_.PendingMessage == -1 || busy_ > 0) return;
    const BusyScope scope(busy_);
    TimedMessage& timed = console_.Timed;
    const std::string group = "Message" + console_.MessageLevel;
    if (console_.PendingMessage == 0) {
        const int count = interpreter_.ReadCount("Messages" + console_.MessageLevel);
        if (count == 0) return;
        const int chosen = interpreter_.SelectMessage(group, count);
        console_.PendingMessage = static_cast<std::int16_t>(chosen);
        if (chosen == -1) return;
        timed = TimedMessage{};
        timed.key = group + std::to_string(chosen);
        timed.line = interpreter_.ReadPlanetKey(timed.key);
        if (text::toUpper(timed.line.substr(0, 2)) == "%W") {
            timed.wait = play::toInt16(play::leadingNumber(timed.line.substr(2, 1)));
            timed.line.erase(0, 3);
        }
    }
    // The tick that chooses a waiting message counts as its first second: "%W5" shows on the
    // fifth tick of the timer, five seconds after the console started it.
    if (console_.PendingMessage > 0 && timed.wait > 0) {
        ++timed.counter;
        if (timed.counter < timed.wait) return;
        timed.line = interpreter_.ReadPlanetKey(timed.key);
    }
    if (timed.counter >= timed.wait) {
        timed.leadingCode = text::toUpper(timed.line.substr(0, 3));
        interpreter_.DisplayMessage(timed.line);
        console_.PendingMessage = -1;
        timed.counter = timed.wait = 0;
        setMessageTimer(false);
        console_.notesTag = "1";
    }
    reportChanges();
}

bool ShipConsole::hail() {
    if (!isOpen() || !console_.buttons.hail) return false;
    const BusyScope scope(busy_);
    ConsoleButtons buttons = console_.buttons;
    buttons.hail = false;
    setButtons(buttons);
    if (interpreter_.ReadCount("ResponsesHail") > 0) {
        console_.ResponseLevel = "Hail";
        runRespond();
    } else {
        module_.events().boxShown("You cannot hail this planet.");
    }
    reportChanges();
    return true;
}

bool ShipConsole::beam() {
    if (!isOpen() || !console_.buttons.beam) return false;
    const BusyScope scope(busy_);
    std::string group = "Beam" + console_.MessageLevel;
    int count = interpreter_.ReadCount(group + "Messages");
    if (count < 1) {
        group = "Beam";
        count = interpreter_.ReadCount("BeamMessages");
    }
    if (count < 1) {
        module_.events().boxShown("You cannot beam down to this planet.");
    } else {
        const int chosen = interpreter_.SelectMessage(group, count);
        if (chosen != -1)
            interpreter_.DisplayMessage(interpreter_.ReadPlanetKey(group + std::to_string(chosen)));
    }
    // One beam-down per visit.
    ConsoleButtons buttons = console_.buttons;
    buttons.beam = false;
    setButtons(buttons);
    reportChanges();
    return true;
}

bool ShipConsole::respond() {
    if (!isOpen() || !console_.panelVisible) return false;
    const BusyScope scope(busy_);
    runRespond();
    reportChanges();
    return true;
}

void ShipConsole::runRespond() {
    const std::string level = console_.ResponseLevel;
    const int count = interpreter_.ReadCount("Responses" + level);
    if (count == 0) {
        module_.events().boxShown("No responses allowed");
        return;
    }
    console_.Responses.clear();
    std::vector<OfferedResponse> offered;
    for (int i = 1; i <= count; ++i) {
        console_.Responses.push_back(
            interpreter_.ReadPlanetKey("Response" + level + std::to_string(i)));
        if (auto caption = interpreter_.OfferCaption(console_.Responses.back()))
            offered.push_back({i, *caption});
    }
    const int chosen = module_.events().responseChosen(offered);
    // Only a number that was offered can be sent.
    if (std::none_of(offered.begin(), offered.end(),
                     [chosen](const OfferedResponse& r) { return r.number == chosen; }))
        return;
    carryOut(console_.Responses[static_cast<std::size_t>(chosen) - 1]);
    console_.notesTag = "0";
}

void ShipConsole::carryOut(const std::string& response) {
    std::string line = response;
    while (line.starts_with('%')) line.erase(0, std::min<std::size_t>(3, line.size()));
    interpreter_.ExecuteCodes(line);
    console_.PendingMessage = 0;
    setMessageTimer(true);
}

bool ShipConsole::ignore() {
    if (!isOpen() || !console_.panelVisible) return false;
    console_.MessageLevel = "Ignore" + console_.MessageLevel;
    reportChanges();
    return true;
}

void ShipConsole::resetPanel() {
    console_.panelVisible = false;
    console_.panel = {kStandardTitle, ""};
    module_.events().messageHidden();
    setMessageTimer(true);
}

bool ShipConsole::phaser() {
    if (!isOpen() || !console_.buttons.phaser) return false;
    const BusyScope scope(busy_);
    if (!module_.events().questionAsked("Are you sure you wish to fire phasers this planet?",
                                        false))
        return true;
    console_.MessageLevel += "Phaser";
    if (interpreter_.ReadCount("Messages" + console_.MessageLevel) <= 0)
        console_.MessageLevel = "Phaser";
    resetPanel();
    console_.PendingMessage = 0;
    reportChanges();
    return true;
}

bool ShipConsole::photon() {
    if (!isOpen() || !console_.buttons.photon) return false;
    const BusyScope scope(busy_);
    ShipState& ship = module_.ship();
    PlanetRecord& record = planet_.record;
    if (record.Size > ship.Class1Torpedoes) {
        module_.events().boxShown("You don't have enough Class 1 torpedos to destroy this planet.");
        ConsoleButtons buttons = console_.buttons;
        buttons.photon = false;
        setButtons(buttons);
        return true;
    }
    if (!module_.events().questionAsked("Are you sure you wish to DESTROY this planet?", true))
        return true;
    ship.Class1Torpedoes = static_cast<std::int16_t>(ship.Class1Torpedoes - record.Size);
    record.Position = record.Size = record.Moons = 0;
    record.Attributes = 0;
    record.PlanetClass = module_.random().next() > 0.6 ? 4 : 0;
    record.LastVisit = -1000;
    reportChanges();
    close();
    return true;
}

bool ShipConsole::energy() {
    if (!isOpen() || !console_.buttons.energy) return false;
    const BusyScope scope(busy_);
    ShipState& ship = module_.ship();
    TestEvents& events = module_.events();
    const PlanetAttributes attributes = PlanetAttributes::unpack(planet_.record.Attributes);
    ConsoleButtons buttons = console_.buttons;
    buttons.energy = false;
    if (attributes.Energy == 0) {
        events.boxShown("You cannot extract any energy from this planet.");
        setButtons(buttons);
        return true;
    }
    if (ship.ShipEnergy == ship.ShipEnergyMax) {
        events.boxShown("You have as much energy as you can hold.");
        setButtons(buttons);
        return true;
    }
    // Days per 100 units: advanced animal life makes the planet's energy easier to take.
    const double divisor = attributes.Inhabited == 2 ? std::max(attributes.Advanced, 1) : 1;
    const double rate = Tables::Fractions[static_cast<std::size_t>(attributes.Energy)] / divisor;
    const double room = static_cast<double>(ship.ShipEnergyMax) -
                        (static_cast<double>(ship.Shields) + ship.ShipEnergy);
    double days = std::floor(rate * room + 0.99 + 0.5) / 100;
    const bool limited = console_.EnergyAllowance != 0 && days > console_.EnergyAllowance;
    if (limited) days = console_.EnergyAllowance;
    const std::string prompt =
        "How long do you want to stay?\n" + play::formatTwoDecimals(rate) +
        " days per 100 units of energy.\nYou have " +
        std::to_string(static_cast<long long>(ship.ShipEnergy) + ship.Shields) +
        " total units of energy.";
    const float maximum = static_cast<float>(days);
    const float t = module_.GetNumber(
        prompt, "", "days", std::clamp(1.0F, 0.0F, std::max(maximum, 0.0F)), 0, maximum, 0.01F);
    if (t > 0) {
        if (limited) {
            console_.EnergyAllowance = play::toInt16(console_.EnergyAllowance - t);
            if (console_.EnergyAllowance <= 0) {
                console_.EnergyAllowance = 0;
                setButtons(buttons);
            }
        }
        ship.ShipEnergy = play::toInt32(ship.ShipEnergy + t / rate * 100);
        if (static_cast<long long>(ship.ShipEnergy) + ship.Shields > ship.ShipEnergyMax)
            ship.ShipEnergy = ship.ShipEnergyMax - ship.Shields;
    }
    reportChanges();
    return true;
}

void ShipConsole::notes() {
    console_.notesTag = console_.notesTag == "1" ? "0" : "1";
}

std::string ShipConsole::notesCaption() const {
    if (console_.notesTag == "1") return "Response Level: " + ShownLevel(console_.ResponseLevel);
    return "Message Level: " + ShownLevel(console_.MessageLevel);
}

void ShipConsole::exit() {
    if (!isOpen()) return;
    console_.OrbitPlanet = 0;
    module_.events().orbitChanged("");
    close();
}

void ShipConsole::close() {
    setMessageTimer(false);
    console_.flagTimer = false;
    console_.open = false;
    module_.events().consoleClosed();
}

}  // namespace orr
