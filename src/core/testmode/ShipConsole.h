#pragma once
// The ship console: the simulated bridge in orbit around the planet under test. It opens on the
// planet, plays the timed messages of the current message level (tick() is one step of the
// message timer), and carries out the console's commands. Everything it shows goes to the
// test's events; it reads the planet only through its keys and plays on the copy of its record,
// so a test never changes the open system.
//
//     ShipConsole console(ship, planet, random, events);
//     console.open();
//     console.tick();   // every 1000 ms while the message timer runs
//     console.hail();

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "testmode/ConsoleState.h"
#include "testmode/MessageInterpreter.h"
#include "testmode/StateRows.h"
#include "testmode/TestModule.h"

namespace orr {

// Beyond the game's own rules, both off when unset.
struct ConsoleSetup {
    // Start at this message level instead of the one the last visit gives ("" is INIT).
    std::optional<std::string> startLevel;
    // Seed the random source with this instead of the clock, to replay a run.
    std::optional<std::uint32_t> seed;
};

class ShipConsole {
  public:
    ShipConsole(ShipState& ship, TestPlanet& planet, RandomSource& random, TestEvents& events);

    void open(const ConsoleSetup& setup = {});
    // One step of the message timer; nothing while it is stopped.
    void tick();

    // The commands. Each does nothing while its button is disabled (or, for Respond and Ignore,
    // while no message is shown) and returns whether it ran.
    bool hail();
    bool beam();
    bool respond();
    bool ignore();
    bool phaser();
    bool photon();
    bool energy();
    void notes();
    void leave() { exit(); }
    void exit();

    // The level button's caption: "Message Level: INIT", "Response Level: Hail".
    std::string notesCaption() const;
    std::uint32_t seedInUse() const { return seed_; }

    const ConsoleState& state() const { return console_; }
    ConsoleState& state() { return console_; }
    ShipState& ship() { return module_.ship(); }
    const PlanetRecord& planet() const { return planet_.record; }
    TestModule& module() { return module_; }
    MessageInterpreter& interpreter() { return interpreter_; }
    std::vector<StateRow> rows() const;

  private:
    bool isOpen() const { return console_.open; }
    void runRespond();
    void carryOut(const std::string& response);
    void resetPanel();
    void setMessageTimer(bool running);
    void setButtons(const ConsoleButtons& buttons);
    void close();
    // Tells the events which values changed since the last call.
    void reportChanges();

    TestPlanet& planet_;
    TestModule module_;
    ConsoleState console_;
    MessageInterpreter interpreter_;
    std::vector<StateRow> reported_;
    std::uint32_t seed_ = 0;
    // Steps running now. The front's timer keeps firing while a step's message box or dialog is
    // open; such a tick waits for the next one, so a step always runs to its end first.
    int busy_ = 0;
};

}  // namespace orr
