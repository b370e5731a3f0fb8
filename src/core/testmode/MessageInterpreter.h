#pragma once
// The play-time meaning of the planet message language: choosing one message of a group,
// showing a stored line, and carrying out its codes on the ship, the planet's flags and the
// console's levels. Lines are taken exactly as stored; every random number comes from the
// test's source, so a run can be replayed.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "testmode/ConsoleState.h"
#include "testmode/TestModule.h"

namespace orr {

class MessageInterpreter {
  public:
    MessageInterpreter(TestModule& module, ConsoleState& console, TestPlanet& planet)
        : module_(module), console_(console), planet_(planet) {}

    // Called after every code carried out (the console reports what changed).
    void setAfterCode(std::function<void()> afterCode) { afterCode_ = std::move(afterCode); }

    // The number (1..count) of an eligible message of the group, each equally likely, or -1
    // (after "*** COMMUNICATION TERMINATED ***") when none can be chosen.
    int SelectMessage(const std::string& group, int count);
    // Shows one stored line and carries out its codes: star codes left to right, then caret codes.
    void DisplayMessage(const std::string& line);
    // Carries out one star code (the text between two "*").
    void ExecuteCode(const std::string& code);
    // One condition: the two characters after "%".
    bool CheckCondition(std::string_view code);
    // False when a message holding this star code may not be chosen now.
    bool IsCodeEligible(std::string_view code);

    // The star codes of a line, carried out left to right (leading conditions already dropped).
    void ExecuteCodes(std::string_view line);
    // The key of the orbited planet; empty when absent.
    std::string ReadPlanetKey(const std::string& key) const;
    // A count key: its leading number, 0 when absent or not numeric, at most 32767.
    int ReadCount(const std::string& key) const;

    // A response line as the respond dialog offers it: insert codes filled in, leading
    // conditions checked and dropped, cut before its first "*". nullopt when it is not offered.
    std::optional<std::string> OfferCaption(const std::string& line);

    void TreatyFormed();
    void TreatyBroken();

  private:
    // "+"/"-" codes: adjust a ship value, or report the passing of time.
    void Adjust(const std::string& code);
    // Drops leading "%" codes; false at the first one whose condition fails.
    bool PassConditions(std::string& line);
    void RepairRandom(bool destroyed, const char* verb);
    void ApplyCaret(const std::string& code);
    void changed();

    TestModule& module_;
    ConsoleState& console_;
    TestPlanet& planet_;
    std::function<void()> afterCode_;
};

// Each star code of a line, left to right: the text after each "*" up to the next "*" or the
// end. Returns what stands before the first "*".
std::string_view ForEachStarCode(std::string_view line,
                                 const std::function<bool(std::string_view code)>& visit);

// The adjustment name of a "+"/"-" code: the characters after the sign up to the last capital
// letter ("EN" of "+EN500"); empty when there is none.
std::string AdjustmentName(std::string_view code);

}  // namespace orr
