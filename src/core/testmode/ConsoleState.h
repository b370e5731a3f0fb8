#pragma once
// What the ship console holds while it orbits a planet, and the planet the test plays on. The
// interpreter and the console read and change both.

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "store/SystemRecord.h"
#include "testmode/TestEvents.h"

namespace orr {

// One key of the planet's section as the game reads it; empty when the key is absent.
using KeyReader = std::function<std::string(const std::string& key)>;

// The planet under test: a copy of its record (a test never changes the open system), its
// number, name and keys, and the alien names its Alien attribute indexes.
struct TestPlanet {
    PlanetRecord record;
    int number = 1;
    int planetCount = 1;  // of the system, for "There are no planets in this system."
    std::string name;
    KeyReader keys;
    std::array<std::string, 256> alienNames{};

    std::string alienName() const { return alienNames[record.Attributes & 0xFF]; }
};

// The timed message chosen by the message timer.
struct TimedMessage {
    std::int16_t counter = 0;
    std::int16_t wait = 0;
    std::string key;  // where the line is stored; read again when its wait is over
    std::string line;
    std::string leadingCode;  // the line's first three characters in upper case
};

struct ConsoleState {
    std::int16_t OrbitPlanet = 0;
    std::string MessageLevel;  // "" is the INIT group
    std::string ResponseLevel;
    std::int16_t EnergyAllowance = 0;  // days the planet still grants; 0 = no limit
    std::int16_t PendingMessage = 0;   // 0 nothing chosen yet, -1 done, n the chosen message
    TimedMessage Timed;
    std::vector<std::string> Responses;  // the lines the last Respond offered
    ConsoleButtons buttons;
    MessagePanel panel{"Message from Planet:", ""};
    bool panelVisible = false;
    bool messageTimer = false;
    bool flagTimer = false;
    std::string notesTag;  // "" or "0": the level button shows the message level; "1" responses
    bool open = false;
};

inline constexpr const char* kStandardTitle = "Message from Planet:";

}  // namespace orr
