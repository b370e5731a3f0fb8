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
Change onShip(std::function<void(ShipState&)> change) {
    return [=](ShipState& s, PlanetRecord&) { change(s); };
}

}  // namespace

// Conditions ("%" codes) and star codes that decide whether a message may be chosen, grouped by
// the ship and planet they are checked on.
TEST_F(PlayTest, ConditionsAndStarCodesDecideWhetherAMessageMayBeChosen) {
    struct Row {
        Change setup;
        std::vector<const char*> hold, fail;
        double draw = 0;
    };
    const std::vector<Row> rows = {
        {none,
         {"%10", "%44", "%60", "%99", "%0A", "%fB", "%W5", "%GN", "*RS9", "*-TI5", "*+EN900"},
         {"%00", "%19", "*RS3", "*-ENM6000"}},
        {none, {"%05"}, {}, 0.5},  // n tenths: r x 10 not greater than n
        {none, {}, {"%05"}, 0.51},
        {level(1, 2), {"%15"}, {"%10"}},
        {level(5, 2), {}, {"%14", "%30"}},
        {energySource(2), {"%22"}, {"%20"}},
        {energySource(1), {"%24"}, {"%25"}},
        {level(1, 3), {"%26"}, {}},
        {level(1, 4), {"%55"}, {}},
        {level(5, 5), {}, {"%59"}},
        {flag(0), {"%31", "%FA"}, {"%38"}},
        {flag(6), {"%37"}, {}},
        {flag(7), {"%45"}, {"%46", "%FH"}},
        {flag(8), {"%FH"}, {}},
        {flag(27), {"%F0"}, {}},
        {flag(36), {"%F9"}, {}},
        {flag(26), {}, {"%fZ"}},
        {damage({{1, 3}}), {"%47"}, {}},
        {damage({{0, 3}}), {}, {"%47"}},
        {damage({{1, 7}}), {}, {"%47"}},
        {damage({{1, 1}, {2, 1}, {3, 1}, {4, 1}}), {}, {"%48"}},
        {damage({{1, 1}, {2, 1}, {3, 1}, {4, 1}, {8, 1}}), {"%48"}, {}},
        {damage({{8, 7}}), {"%49"}, {}},
        {damage({{1, 9}, {2, 9}, {3, 9}, {4, 9}, {5, 9}}), {"%50"}, {}},
        {damage({{0, 5}}), {"%51"}, {}},
        {damage({{2, 0.5F}}), {}, {"%51"}},
        {damage({{3, 3}}), {"*RS3"}, {}},
        {damage({{3, 7}}), {"*R!S3"}, {"*RS3"}},
        {onShip([](ShipState& s) { s.UpgradesOption = true; }), {}, {"%52"}},
        {onShip([](ShipState& s) { s.BadGuyOption = true; }), {"%53"}, {"%54"}},
        {onShip([](ShipState& s) { s.ExtraBay = 5; }), {"*-PTU5"}, {}},
        {onShip([](ShipState& s) { s.ExtraBay = 4; }), {}, {"*-PTU5"}},
        {onShip([](ShipState& s) { s.Class1Torpedoes = 4; }), {}, {"*-PT5"}},
        {onShip([](ShipState& s) { s.PoValue = 2; }), {"*-PO2"}, {}},
        {onShip([](ShipState& s) { s.ShipEnergy = 99; }), {}, {"*-EN100"}},
    };
    for (const Row& row : rows) {
        const ShipState s = ship;
        const PlanetRecord p = planet.record;
        row.setup(ship, planet.record);
        for (const bool expected : {true, false}) {
            for (const std::string code : expected ? row.hold : row.fail) {
                random.script = {row.draw};
                const bool eligible = code[0] == '%' ? interpreter().CheckCondition(code.substr(1))
                                                     : interpreter().IsCodeEligible(code.substr(1));
                EXPECT_EQ(eligible, expected) << code;
            }
        }
        ship = s;
        planet.record = p;
    }
}

TEST_F(PlayTest, SelectingAndShowingAMessage) {
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

    // Showing a line fills its text, then runs its codes in order.
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
        std::vector<std::string> shown;
        std::function<bool()> holds = [] { return true; };
        std::vector<double> draws = {};
    };
    play({});  // treaties need an orbited planet
    const std::vector<Row> rows = {
        {"+EN500", {}, [&] { return ship.ShipEnergy == 4500; }},
        {"-ENM9000", {}, [&] { return ship.ShipEnergyMax == 1000 && ship.ShipEnergy == 4000; }},
        {"+ENM99999", {}, [&] { return ship.ShipEnergyMax == 32767; }},
        {"+EN99999999999", {}, [&] { return ship.ShipEnergy == 4500; }},
        {"+EN1E12", {}, [&] { return ship.ShipEnergy == 4000; }},    // the name is "EN1E"
        {"+PT2.5", {}, [&] { return ship.Class1Torpedoes == 12; }},  // 12.5 to even
        {"-PT15", {}, [&] { return ship.Class1Torpedoes == 0; }},
        {"+PTU99", {}, [&] { return ship.ExtraBay == 20; }},
        {"+PO11", {}, [&] { return ship.PoValue == 10; }},
        {"+5", {"box: There is a syntax error in the message file: +5"}},
        {"-TI2.5", {"box: Time has gone down by 2.5"}},
        {"H30",
         {"box: Your shields have been hit with 30units."},
         [&] { return ship.Shields == -30; }},
        {"A5",
         {},
         [&] { return console.state().EnergyAllowance == 5 && console.state().buttons.energy; }},
        {"SP3", {}, [&] { return ship.Retrofits[3] == 1; }},
        {"SP6", {}, [&] { return ship.Retrofits == decltype(ship.Retrofits){}; }},
        {"SF12", {}, [&] { return GetFlag(planet.record, 39); }},
        {"SFH", {}, [&] { return GetFlag(planet.record, 8); }},
        {"TFA", {}, [&] { return GetFlag(planet.record, 0); }},
        {"XFB", {}, [&] { return planet.record.TestFlags == 0; }},
        {"TREATY",
         {"box: A treaty has been formed with the Kelvari.\nThis will allow you more "
          "time to complete\nyour mission.  (It will also look pretty good\non "
          "your record.)"},
         [&] { return GetFlag(planet.record, 7); }},
        {"DS0",
         {"box: System 7 damaged."},
         [&] { return ship.SystemDamage[7] == 175; },
         {0.5, 0.9999}},
        {"DS9", {}, [&] { return !ship.anyDamage(); }},
        {"FALL", {"box: All systems repaired!"}},
        {"FS2", {"box: System 2 repaired!"}},
        {"FS0", {}},  // nothing damaged
        {"RS3", {}, [&] { return console.state().ResponseLevel == "S3"; }},
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
    damage({{1, 8}, {2, 8}, {3, 8}, {4, 8}, {5, 8}, {6, 8}, {7, 8}, {8, 8}})(ship, planet.record);
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
