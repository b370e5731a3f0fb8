// The message interpreter: conditions, eligibility, selection, showing a line and every star
// code, with a scripted random source.

#include <functional>
#include <set>
#include <tuple>

#include "core/testmode/support/PlayFixture.h"
#include "testmode/PlayNumbers.h"

using namespace orr;
using orr::test::PlayTest;

namespace {

using Change = std::function<void(ShipState&, PlanetRecord&)>;
const Change none = [](ShipState&, PlanetRecord&) {};

Change level(int index, int value) {
    return [=](ShipState& s, PlanetRecord&) { s.UpgradeLevel[index] = value; };
}
Change flag(int n) {
    return [=](ShipState&, PlanetRecord& p) { SetFlag(p, n, true); };
}
Change damage(std::vector<std::pair<int, float>> systems) {
    return [systems](ShipState& s, PlanetRecord&) {
        for (auto [system, amount] : systems) s.SystemDamage[system] = amount;
    };
}
Change energySource(int energy) {
    return [=](ShipState&, PlanetRecord& p) {
        p.Attributes = PlanetAttributes{0, 0, 0, energy, 4}.pack();
    };
}

}  // namespace

TEST_F(PlayTest, ConditionsFollowTheirTable) {
    struct Row {
        const char* code;
        Change setup;
        bool expected;
        double draw = 0;
    };
    const std::vector<Row> rows = {
        {"00", none, false},
        {"05", none, true, 0.5},  // n tenths: r x 10 not greater than n
        {"05", none, false, 0.51},
        {"10", none, true},
        {"10", level(1, 2), false},
        {"14", level(5, 2), false},
        {"15", level(1, 2), true},
        {"19", none, false},
        {"22", energySource(2), true},
        {"20", energySource(2), false},
        {"24", energySource(1), true},
        {"25", energySource(1), false},
        {"26", level(1, 3), true},
        {"30", level(5, 2), false},
        {"31", flag(0), true},
        {"37", flag(6), true},
        {"38", flag(0), false},
        {"44", none, true},
        {"45", flag(7), true},
        {"46", flag(7), false},
        {"47", damage({{1, 3}}), true},
        {"47", damage({{0, 3}}), false},
        {"47", damage({{1, 7}}), false},
        {"48", damage({{1, 1}, {2, 1}, {3, 1}, {4, 1}}), false},
        {"48", damage({{1, 1}, {2, 1}, {3, 1}, {4, 1}, {8, 1}}), true},
        {"49", damage({{8, 7}}), true},
        {"50", damage({{1, 9}, {2, 9}, {3, 9}, {4, 9}, {5, 9}}), true},
        {"51", damage({{0, 5}}), true},
        {"51", damage({{2, 0.5F}}), false},
        {"52", [](ShipState& s, PlanetRecord&) { s.UpgradesOption = true; }, false},
        {"53", [](ShipState& s, PlanetRecord&) { s.BadGuyOption = true; }, true},
        {"54", [](ShipState& s, PlanetRecord&) { s.BadGuyOption = true; }, false},
        {"55", level(1, 4), true},
        {"59", level(5, 5), false},
        {"60", none, true},
        {"99", none, true},
        {"0A", none, true},
        {"FA", flag(0), true},
        {"FH", flag(8), true},
        {"FH", flag(7), false},
        {"F0", flag(27), true},
        {"F9", flag(36), true},
        {"fZ", flag(26), false},
        {"fB", none, true},
        {"W5", none, true},
        {"GN", none, true},
    };
    for (const Row& row : rows) {
        ShipState s = ship;
        PlanetRecord p = planet.record;
        row.setup(ship, planet.record);
        random.script = {row.draw};
        EXPECT_EQ(interpreter().CheckCondition(row.code), row.expected) << row.code;
        ship = s;
        planet.record = p;
    }
}

TEST_F(PlayTest, StarCodesDecideWhetherAMessageMayBeChosen) {
    const std::vector<std::tuple<const char*, Change, bool>> rows = {
        {"RS3", damage({{3, 3}}), true},
        {"RS3", none, false},
        {"RS3", damage({{3, 7}}), false},
        {"R!S3", damage({{3, 7}}), true},
        {"RS9", none, true},
        {"-PTU5", [](ShipState& s, PlanetRecord&) { s.ExtraBay = 5; }, true},
        {"-PTU5", [](ShipState& s, PlanetRecord&) { s.ExtraBay = 4; }, false},
        {"-PT5", [](ShipState& s, PlanetRecord&) { s.Class1Torpedoes = 4; }, false},
        {"-PO2", [](ShipState& s, PlanetRecord&) { s.PoValue = 2; }, true},
        {"-EN100", [](ShipState& s, PlanetRecord&) { s.ShipEnergy = 99; }, false},
        {"-ENM6000", none, false},
        {"-TI5", none, true},
        {"+EN900", none, true},
    };
    for (const auto& [code, setup, expected] : rows) {
        const ShipState s = ship;
        setup(ship, planet.record);
        EXPECT_EQ(interpreter().IsCodeEligible(code), expected) << code;
        ship = s;
    }
}

TEST_F(PlayTest, SelectionReachesEveryEligibleMessageAndNoOther) {
    play({"Message1=%00Never", "Message2=Two", "Message3=Three*RS3", "Message4=Four"});
    std::set<int> chosen;
    for (int k = 0; k < 100; ++k) {
        random.script = {k / 100.0, 0.3};  // a miss is drawn again: 0.3 picks 2
        chosen.insert(interpreter().SelectMessage("Message", 4));
    }
    EXPECT_EQ(chosen, (std::set<int>{2, 4}));
    EXPECT_TRUE(take().empty());

    for (const char* only : {"%00Never", "%05"}) {  // none eligible; eligible but empty
        keys = {{"Message1", only}};
        EXPECT_EQ(interpreter().SelectMessage("Message", 1), -1);
        EXPECT_EQ(take(), std::vector<std::string>{"box: *** COMMUNICATION TERMINATED ***"});
    }
}

TEST_F(PlayTest, ShowingALineFillsItsTextThenRunsItsCodesInOrder) {
    play({});
    console.state().MessageLevel = "Hail";
    const std::vector<std::pair<std::string, std::vector<std::string>>> rows = {
        {"%W2%05Hello %nm, %NM from %an",
         {"message: Message from Planet: | Hello <Player>, %NM from Kelvari"}},
        {"$Harbour$Welcome*H10*+TI5",
         {"message: Harbour | Welcome", "box: Your shields have been hit with 10units.",
          "box: Time has gone down by -5"}},
        {"$BOX$Text*M2", {"title: Message from Planet:", "box: Text"}},  // the panel's title
        {"$No closing title", {"message: Message from Planet: | No closing title"}},
        {"Tune ^EN^SH^PT*RNone",
         {"message: Message from Planet: | Tune ",
          "message: Message from Planet: | Tune We will fill your veridium crystals to test "
          "their integrity.",
          "message: Message from Planet: | Tune We will fill your veridium crystals to test "
          "their integrity.We will fill your photon bay to test new containment fields."}},
    };
    for (const auto& [line, expected] : rows) {
        interpreter().DisplayMessage(line);
        EXPECT_EQ(take(), expected) << line;
    }
    // The box kept the response level; its code still moved the message level.
    EXPECT_EQ(console.state().MessageLevel, "2");
    EXPECT_EQ(console.state().ResponseLevel, "None");
    EXPECT_EQ(ship.UpgradeLevel[1], 2);
    EXPECT_EQ(ship.ExtraBay, 20);

    interpreter().DisplayMessage("Text*R*MBack");
    EXPECT_EQ(console.state().ResponseLevel, "");
    EXPECT_EQ(console.state().MessageLevel, "Back");
}

TEST_F(PlayTest, TorpedoBayFillDependsOnWhatIsMissing) {
    play({});
    interpreter().DisplayMessage("Bay ^TB");
    ship.Class1Torpedoes = 30;
    random.script = {0.5};
    interpreter().DisplayMessage("Tubes ^TB");  // 0.5 x 30 x 1.2 + 30 = 48
    EXPECT_EQ(ship.Class1Torpedoes, 48);
    ship.Class1Torpedoes = 60;
    interpreter().DisplayMessage("Full ^TB");
    const std::vector<std::string> shown = take();
    EXPECT_EQ(shown[1],
              "message: Message from Planet: | Bay We will fill your extra photon bay to "
              "capacity for testing.");
    EXPECT_EQ(shown[3],
              "message: Message from Planet: | Tubes We will give you some Class 1 "
              "photons we had laying around.");
    EXPECT_EQ(shown.size(), 5U);
    EXPECT_EQ(ship.UpgradeLevel[5], 4);
}

TEST_F(PlayTest, FifthUpgradeOfAKindIsRefused) {
    play({});
    for (int i = 0; i < 5; ++i) interpreter().DisplayMessage("$BOX$x^EN");
    EXPECT_EQ(ship.UpgradeLevel[1], 5);
    EXPECT_EQ(take().back(), "box: You cannot take another energy upgrade.");
}

TEST_F(PlayTest, StarCodesChangeTheShipWithinTheirLimits) {
    struct Row {
        const char* code;
        std::vector<double> draws;
        std::vector<std::string> shown;
        std::function<bool()> holds;
    };
    play({});  // treaties need an orbited planet
    auto destroyAll = [this] {
        damage({{1, 8}, {2, 8}, {3, 8}, {4, 8}, {5, 8}, {6, 8}, {7, 8}, {8, 8}})(ship,
                                                                                 planet.record);
    };
    const std::vector<Row> rows = {
        {"+EN500", {}, {}, [&] { return ship.ShipEnergy == 4500; }},
        {"-ENM9000", {}, {}, [&] { return ship.ShipEnergyMax == 1000 && ship.ShipEnergy == 4000; }},
        {"+ENM99999", {}, {}, [&] { return ship.ShipEnergyMax == 32767; }},
        {"+EN99999999999", {}, {}, [&] { return ship.ShipEnergy == 4500; }},
        {"+EN1E12", {}, {}, [&] { return ship.ShipEnergy == 4000; }},    // the name is "EN1E"
        {"+PT2.5", {}, {}, [&] { return ship.Class1Torpedoes == 12; }},  // 12.5 to even
        {"-PT15", {}, {}, [&] { return ship.Class1Torpedoes == 0; }},
        {"+PTU99", {}, {}, [&] { return ship.ExtraBay == 20; }},
        {"+PO11", {}, {}, [&] { return ship.PoValue == 10; }},
        {"+5", {}, {"box: There is a syntax error in the message file: +5"}, [] { return true; }},
        {"-TI2.5", {}, {"box: Time has gone down by 2.5"}, [] { return true; }},
        {"H30",
         {},
         {"box: Your shields have been hit with 30units."},
         [&] { return ship.Shields == -30; }},
        {"A5",
         {},
         {},
         [&] { return console.state().EnergyAllowance == 5 && console.state().buttons.energy; }},
        {"SP3", {}, {}, [&] { return ship.Retrofits[3] == 1; }},
        {"SP6", {}, {}, [&] { return ship.Retrofits == decltype(ship.Retrofits){}; }},
        {"SF12", {}, {}, [&] { return GetFlag(planet.record, 39); }},
        {"SFH", {}, {}, [&] { return GetFlag(planet.record, 8); }},
        {"TFA", {}, {}, [&] { return GetFlag(planet.record, 0); }},
        {"XFB", {}, {}, [&] { return planet.record.TestFlags == 0; }},
        {"TREATY",
         {},
         {"box: A treaty has been formed with the Kelvari.\nThis will allow you more "
          "time to complete\nyour mission.  (It will also look pretty good\non "
          "your record.)"},
         [&] { return GetFlag(planet.record, 7); }},
        {"DS0",
         {0.5, 0.9999},
         {"box: System 7 damaged."},
         [&] { return ship.SystemDamage[7] == 175; }},
        {"DS9", {}, {}, [&] { return !ship.anyDamage(); }},
        {"FALL", {}, {"box: All systems repaired!"}, [] { return true; }},
        {"FS2", {}, {"box: System 2 repaired!"}, [] { return true; }},
        {"FS0", {}, {}, [] { return true; }},  // nothing damaged
        {"RS3", {}, {}, [&] { return console.state().ResponseLevel == "S3"; }},
    };
    for (const Row& row : rows) {
        const ShipState s = ship;
        ship.ShipEnergy = 4000;
        ship.ShipEnergyMax = 4500;
        ship.Class1Torpedoes = 10;
        random.script.assign(row.draws.begin(), row.draws.end());
        interpreter().ExecuteCode(row.code);
        EXPECT_EQ(take(), row.shown) << row.code;
        EXPECT_TRUE(row.holds()) << row.code;
        ship = s;
        planet.record.TestFlags = 0;
    }
    interpreter().ExecuteCode("NOTREATY");
    EXPECT_EQ(take(), std::vector<std::string>{"box: The Kelvari have broken the treaty with "
                                               "Concordat.\nThis will take extra time away from "
                                               "your mission."});

    // Damage and repair draws: a destroyed system is drawn again; with all destroyed, 0 stays.
    ship.SystemDamage[3] = 8;
    random.script = {0.26, 0.9999};
    interpreter().ExecuteCode("D!S3");
    destroyAll();
    interpreter().ExecuteCode("D!S0");
    interpreter().ExecuteCode("FS0");  // only destroyed ones: nothing
    ship.SystemDamage = {0, 0, 0, 0, 3, 0, 8, 0, 0};
    random.script = {0.0, 0.5, 0.7};
    interpreter().ExecuteCode("FS0");
    interpreter().ExecuteCode("F!S0");
    EXPECT_EQ(take(),
              (std::vector<std::string>{"box: System 8 destroyed!", "box: System 0 destroyed!",
                                        "box: System 4 repaired!", "box: System 6 replaced!"}));
    EXPECT_TRUE(!ship.anyDamage());
}

TEST(PlayNumbersTest, NumbersAreWrittenAsTheGameWritesThem) {
    EXPECT_EQ(play::formatTwoDecimals(0.3), ".30");
    EXPECT_EQ(play::formatTwoDecimals(0.5 / 3), ".17");
    EXPECT_EQ(play::formatTwoDecimals(1.5), "1.50");
    EXPECT_EQ(play::formatOneDecimal(0.5), "0.5");
    EXPECT_EQ(play::formatNumber(1e20), "1E+20");
    EXPECT_EQ(play::leadingNumber(" 1 2.5x"), 12.5);
    EXPECT_EQ(play::toInt16(-2.5), -2);
    EXPECT_EQ(play::toInt16(1e9), 32767);
}
