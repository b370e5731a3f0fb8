#pragma once
// Preparing a test (the "Test Options" window's rules): the flags the planet starts with, how
// long ago the ship last visited it, the two test options and the upgrade levels. begin() puts
// the choices on the planet's copy and the ship, ready for the console.

#include <string>
#include <vector>

#include "testmode/ConsoleState.h"
#include "testmode/TestModule.h"

namespace orr {

// One entry of the list of chosen flags: the flag's number and its name.
struct FlagEntry {
    int flag = 0;
    std::string name;
    bool operator==(const FlagEntry&) const = default;
};

class TestOptions {
  public:
    static constexpr int kLastVisitMaximum = 300;  // the scroll bar's end: 30.0 days ago

    // Prepares a test of `planet`: the upgrade levels are reset and the rank and player names
    // set. `flagItems` are the planet's 36 flag descriptions as the flag chooser lists them
    // ("A - description" ... "9 - description").
    TestOptions(TestModule& module, TestPlanet& planet, std::vector<std::string> flagItems);

    // The caption of flag n's label (0..36): its character, "Treaty" for flag 7.
    static std::string FlagLabel(int n);
    // What the list shows for flag n: its flag-list entry, "Have Treaty" for flag 7.
    std::string FlagName(int n) const;

    bool isMarked(int n) const;
    // A click on flag n's label: marks it and adds it to the list, or the other way round.
    void toggleFlag(int n);
    // A double click on list entry `index`: the planet's flag is cleared and the entry goes
    // (and so does the label's mark, which would otherwise set the flag again at Begin).
    void removeEntry(int index);
    void clearFlags();
    const std::vector<FlagEntry>& entries() const { return entries_; }
    // The marks follow the planet's flags (while the console runs, codes change them); true
    // when a mark changed.
    bool mirrorFlags();

    // "Never", or the value / 10 with one decimal and " days ago".
    static std::string LastVisitCaption(int value);

    // Unchecking "Upgrades" resets every level to 1.
    void setUpgradesOption(bool on);
    bool upgradesOption() const { return upgrades_; }
    // A press on an upgrade label (1..5 = EN .. TB) while "Upgrades" is checked: the level
    // cycles 1, 2, 3, 4, 5, 1.
    void cycleUpgrade(int index);
    // The upgrade indicator: fill and border colours (palette indexes; -1 is the face colour).
    static int UpgradeFill(int level);
    static int UpgradeBorder(int level);
    // "Retrofits: " and the counters 1..5, each followed by a space.
    std::string RetrofitCaption() const;

    // The planet's flags become the marked ones; the options and the last visit (scroll value
    // in tenths of a day) go to the ship and the planet.
    void begin(bool badGuy, int lastVisitValue);

  private:
    void mark(int n, bool on);

    TestModule& module_;
    TestPlanet& planet_;
    std::vector<std::string> flagItems_;
    std::vector<bool> marked_;
    std::vector<FlagEntry> entries_;
    bool upgrades_ = false;
};

}  // namespace orr
