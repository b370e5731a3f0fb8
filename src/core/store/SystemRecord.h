#pragma once
// The open system: a star and up to ten planets in orbit order.

#include <array>
#include <cstdint>
#include <string>

namespace orr {

constexpr int kMaxPlanets = 10;
constexpr std::size_t kDisplayNameWidth = 20;

struct PlanetRecord {
    std::int16_t Position = 0;     // orbit radius in canvas units
    std::int16_t Size = 0;         // 1..5; 0 for an asteroid belt
    std::int16_t Moons = 0;        // 0..25
    std::int32_t Attributes = 0;   // packed life, attitude, advancement, energy, alien
    std::int16_t PlanetClass = 0;  // 0 asteroid belt, 1..14 classes A..N
    std::int32_t LastVisit = 0;    // kept unchanged; only the test mode uses it
    std::uint64_t TestFlags = 0;   // flags during a test; never stored in a file

    bool operator==(const PlanetRecord&) const = default;
};

// The sub-fields of PlanetRecord::Attributes.
struct PlanetAttributes {
    int Inhabited = 0;  // 0 No Life, 1 Plant, 2 Animal, 3 Extinct
    int Attitude = 0;
    int Advanced = 0;
    int Energy = 0;
    int Alien = 0;  // 0..255, index into the alien names

    static PlanetAttributes unpack(std::int32_t word);
    std::int32_t pack() const;
    bool operator==(const PlanetAttributes&) const = default;
};

struct SystemRecord {
    std::string Name;  // the key: base name of the descriptor file
    std::int16_t PlanetCount = 0;
    std::int16_t StarType = 0;
    std::string DisplayName = std::string(kDisplayNameWidth, ' ');
    std::array<PlanetRecord, kMaxPlanets> Planets{};  // slot 0 is planet 1

    // Planets are numbered 1..10 everywhere; these take that number.
    PlanetRecord& planet(int n) { return Planets.at(n - 1); }
    const PlanetRecord& planet(int n) const { return Planets.at(n - 1); }

    // Cuts or pads to exactly 20 characters.
    void setDisplayName(const std::string& name);
    std::string trimmedDisplayName() const;

    bool operator==(const SystemRecord&) const = default;
};

}  // namespace orr
