#pragma once
// The fixed tables that give the record's numbers their meaning.

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace orr {

struct Tables {
    static const std::array<std::string, 8> StarTypeNames;
    static const std::array<std::string, 8>
        StarTypeMenuCaptions;  // 3 reads "Binary System (Black Hole)"
    static const std::array<std::string, 15>
        ClassCaptions;                              // "- - Asteroid Belt", "A - Radiates ..."
    static const std::array<int, 15> ClassColours;  // index into the 16-colour palette
    static const std::array<std::string, 13> RomanNumerals;  // entry 0 empty
    static const std::array<double, 4> Fractions;            // 0, 0.5, 0.3, 0.1 (test mode)
    static const std::array<std::string, 4> InhabitedCaptions;
    static const std::array<std::string, 4> AttitudeCaptions;
    static const std::array<std::string, 4> AdvancedCaptions;
    static const std::array<std::string, 4> EnergyCaptions;
    static const std::array<std::string, 9> ShipSystemNames;  // 0 "Random System" .. 8

    // What the planet's info panel shows of its properties: life, technology, attitude and
    // energy, with "---" where the planet has none: technology needs animal life (living or
    // extinct), an attitude living animal life.
    static std::array<std::string, 4> InfoCaptions(std::int32_t attributes);

    // Entry n (1..255) is line n of aliens.txt; entry 0 and entries past the end are empty.
    std::array<std::string, 256> AlienNames{};

    // Fills AlienNames from the file (at most 255 lines; CR LF, LF or CR line ends). A missing
    // or unreadable file leaves every entry empty and returns false.
    bool InitTables(const std::filesystem::path& aliensFile);
};

}  // namespace orr
