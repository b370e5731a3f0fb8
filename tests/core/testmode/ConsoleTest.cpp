// The ship console: opening, the message timer, every command, the number dialog's arithmetic,
// and a whole play on an open system that leaves its files and its history alone.

#include <tuple>

#include "core/testmode/support/PlayFixture.h"
#include "session/EditSession.h"
#include "store/SystemStore.h"
#include "support/GameFixture.h"
#include "testmode/NumberEntry.h"
#include "testmode/PlanetUnderTest.h"

using namespace orr;
using orr::test::PlayTest;
using Lines = std::vector<std::string>;

TEST_F(PlayTest, OpeningPlaysTheGroupOfTheLastVisit) {
    for (const auto& [lastVisit, level, talk] : std::vector<std::tuple<int, std::string, bool>>{
             {0, "", true}, {50, "Back", false}, {99, "Back", false}, {100, "Returned", true}}) {
        play({"Messages=1", "Message1=Init", "MessagesBack=1", "MessageBack1=Back",
              "MessagesReturned=1", "MessageReturned1=Returned"},
             lastVisit);
        EXPECT_EQ(console.state().MessageLevel, level);
        EXPECT_EQ(console.state().buttons.hail, talk);
        EXPECT_EQ(console.state().buttons.beam, talk);
        console.tick();
        EXPECT_EQ(take(),
                  Lines{"message: Message from Planet: | " + (level.empty() ? "Init" : level)});
    }
}

TEST_F(PlayTest, OpeningReportsWhatCannotBePlayed) {
    planet.record.Attributes = PlanetAttributes{1, 0, 0, 0, 4}.pack();  // plant life, class 10
    console.open();
    EXPECT_EQ(take(), (Lines{"hidden",
                             "box: This is a habitable planet, Captain.\nI will enter it "
                             "in our database."}));
    planet.record.PlanetClass = 0;
    console.open();
    EXPECT_EQ(take(), (Lines{"hidden", "box: This planet has been destroyed."}));
    EXPECT_FALSE(console.hail());
    planet.planetCount = 0;
    console.open();
    EXPECT_EQ(take(), (Lines{"hidden", "box: There are no planets in this system.", "closed"}));
}

TEST_F(PlayTest, TimedMessagesWaitTheirSeconds) {
    play({"Messages=2", "Message1=%W5Later", "Message2=Now"});
    random.script = {0.0};
    for (int tick = 1; tick <= 4; ++tick) console.tick();
    EXPECT_TRUE(take().empty());
    console.tick();
    EXPECT_EQ(take(), Lines{"message: Message from Planet: | Later"});
    EXPECT_FALSE(console.state().messageTimer);
    EXPECT_EQ(console.notesCaption(), "Response Level: INIT");
    console.notes();
    EXPECT_EQ(console.notesCaption(), "Message Level: INIT");

    play({"Messages=2", "Message1=%W5Later", "Message2=Now*H1"});
    random.script = {0.9};
    events.duringBox = [this] { console.tick(); };  // the timer fires on: the step ends first
    console.tick();
    EXPECT_EQ(take(), (Lines{"message: Message from Planet: | Now",
                             "box: Your shields have been hit with 1units."}));
    events.duringBox = nullptr;
    for (const char* count : {"Messages=0", "Messages=x"}) {
        play({count, "Message1=Never"});
        console.tick();
        EXPECT_TRUE(take().empty()) << count;
    }
}

TEST_F(PlayTest, HailBeamPhaserAndPhoton) {
    play({"BeamMessages=1", "Beam1=A crater."}, 100);
    EXPECT_TRUE(console.hail());
    EXPECT_FALSE(console.hail());  // disabled after its use
    EXPECT_TRUE(console.beam());   // no "BeamReturnedMessages": the plain beam group
    EXPECT_FALSE(console.beam());
    EXPECT_EQ(take(), (Lines{"box: You cannot hail this planet.",
                             "message: Message from Planet: | A crater."}));
    play({"MessagesPhaserPhaser=1"});
    console.beam();
    EXPECT_EQ(take(), Lines{"box: You cannot beam down to this planet."});

    events.answers = {false, true, true, true};
    for (const char* level : {"", "Phaser", "PhaserPhaser", "Phaser"}) {
        console.phaser();
        EXPECT_EQ(console.state().MessageLevel, level);
    }
    EXPECT_EQ(take()[0], "question: Are you sure you wish to fire phasers this planet?");

    // Photon destroys the planet only with enough torpedoes.
    play({});
    ship.Class1Torpedoes = 2;
    console.photon();
    EXPECT_FALSE(console.photon());
    EXPECT_EQ(take(), Lines{"box: You don't have enough Class 1 torpedos to destroy this planet."});
    play({});
    ship.Class1Torpedoes = 5;
    events.answers = {false, true};
    random.script = {0.7};
    console.photon();
    EXPECT_EQ(planet.record.PlanetClass, 10);
    console.photon();
    EXPECT_EQ(take().back(), "closed");
    EXPECT_EQ(ship.Class1Torpedoes, 2);
    EXPECT_EQ(planet.record, (PlanetRecord{0, 0, 0, 0, 4, -1000, 0}));
}

TEST_F(PlayTest, EnergyFollowsTheFormulaAndTheAllowance) {
    planet.record.Attributes = PlanetAttributes{0, 0, 0, 0, 4}.pack();
    play({});
    console.energy();
    EXPECT_EQ(take(), Lines{"box: You cannot extract any energy from this planet."});
    EXPECT_FALSE(console.energy());

    planet.record.Attributes = PlanetAttributes{2, 0, 2, 1, 4}.pack();  // 0.5 / 2 days per 100
    ship.ShipEnergy = ship.ShipEnergyMax;
    play({});
    console.energy();
    EXPECT_EQ(take(), Lines{"box: You have as much energy as you can hold."});

    ship.ShipEnergy = 4000;
    play({});
    events.numbers = {2};
    console.energy();
    EXPECT_EQ(events.lastRequest.prompt,
              "How long do you want to stay?\n.25 days per 100 units "
              "of energy.\nYou have 4000 total units of energy.");
    EXPECT_FLOAT_EQ(events.lastRequest.max, 2.51F);  // Int(0.25 x 1000 + 1.49) / 100
    EXPECT_EQ(ship.ShipEnergy, 4800);

    ship.ShipEnergy = 4000;
    interpreter().ExecuteCode("A2");
    events.numbers = {1.5F};
    console.energy();  // limited to the 2 days granted: 2 - 1.5 rounds to 0, none left
    EXPECT_FLOAT_EQ(events.lastRequest.max, 2);
    EXPECT_EQ(console.state().EnergyAllowance, 0);
    EXPECT_FALSE(console.state().buttons.energy);
    EXPECT_EQ(ship.ShipEnergy, 4600);
}

TEST_F(PlayTest, RespondCarriesOutTheResponseWhoseTextWasChosen) {
    play({"Messages=1", "Message1=Hail us.*RHail", "ResponsesHail=3",
          "ResponseHail1=%00Never offered*MSecret", "ResponseHail2=Trade, %rk?*MTrade*SFA",
          "ResponseHail3=", "MessagesTrade=1", "MessageTrade1=Deal."});
    EXPECT_FALSE(console.respond());  // no message shown yet
    console.tick();
    events.responses = {1};
    console.respond();
    EXPECT_EQ(events.offered, Lines{"Trade, Captain?"});
    EXPECT_EQ(console.state().MessageLevel, "Trade");
    EXPECT_TRUE(GetFlag(planet.record, 0));
    console.tick();
    EXPECT_EQ(take().back(), "message: Message from Planet: | Deal.");

    console.state().ResponseLevel = "Nothing";
    console.respond();
    EXPECT_EQ(take(), Lines{"box: No responses allowed"});
}

TEST(NumberEntryTest, ScrollBarAndTextStayInStep) {
    NumberEntry entry({"", "", "days", 9, 0.01F, 2.5F, 0.01F});
    EXPECT_EQ(std::make_pair(entry.minimum(), entry.maximum()), std::make_pair(1, 250));
    EXPECT_EQ(entry.position(), 1);  // a value above the range opens at its top, max
    EXPECT_EQ(entry.numberText(), "2.5");
    entry.scrollTo(250);
    EXPECT_EQ(entry.numberText(), "0.01");
    for (const auto& [typed, replaced, number] :
         std::vector<std::tuple<std::string, std::string, float>>{
             {"9", "2.5", 2.5F}, {"abc", "0.01", 0.01F}, {"1.234", "", 1.23F}}) {
        EXPECT_EQ(entry.typed(typed), replaced) << typed;
        EXPECT_FLOAT_EQ(entry.number(), number) << typed;
    }
    EXPECT_FLOAT_EQ(entry.result(true), 1.23F);
    EXPECT_FLOAT_EQ(entry.result(false), -0.99F);
}

TEST(WholePlayTest, LeavesTheSystemAndItsFilesAsTheyWere) {
    test::TempGameFolder game;
    SystemRecord record = test::TempGameFolder::systemRecord("Nova", 1);
    record.planet(1).Size = 1;
    std::string text = newDescriptorText(record);
    text.replace(text.find("Messages = N"), 12, "Messages = Y");
    game.write("ORBDescriptor/Nova.orb",
               text + test::crlf({"[1]", "Messages=1", "Message1=Hello*RHail*+ENM3000",
                                  "ResponsesHail=1", "ResponseHail1=Bye*SFA*TREATY*+PT9"}));
    EditSession session(game.folder());
    ASSERT_TRUE(session.open("Nova", [] { return false; }));
    const std::string before = game.read("ORBDescriptor/Nova.edt");
    const SystemRecord recordBefore = session.record();

    ShipState ship;
    test::RecordingEvents events;
    test::ScriptedRandom random;
    TestPlanet planet = PlanetUnderTest(session.store(), 1);
    ShipConsole console(ship, planet, random, events);
    console.open();
    console.tick();
    events.responses = {1};
    console.hail();
    random.script = {0.9};
    console.photon();
    EXPECT_EQ(events.lines.back(), "closed");
    EXPECT_EQ(planet.record.LastVisit, -1000);

    EXPECT_EQ(game.read("ORBDescriptor/Nova.edt"), before);
    EXPECT_EQ(session.record(), recordBefore);
    EXPECT_FALSE(session.canUndo());
    EXPECT_FALSE(session.isModified());

    // The next test starts from the ship the last one left.
    TestPlanet again = PlanetUnderTest(session.store(), 1);
    ShipConsole second(ship, again, random, events);
    second.open();
    EXPECT_EQ(std::make_tuple(ship.ShipEnergyMax, ship.Class1Torpedoes), std::make_tuple(3000, 8));
}
