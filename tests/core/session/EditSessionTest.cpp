#include "session/EditSession.h"

#include <functional>

#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "session/MessageEdits.h"
#include "session/PlanetEdits.h"
#include "session/RoomEdits.h"
#include "session/SystemEdits.h"
#include "support/SessionFixture.h"

namespace orr::test {
namespace {

struct State {
    std::string bytes;
    SystemRecord record;
    std::vector<std::string> pictures;
    std::string star;
    bool operator==(const State&) const = default;
};

class EditSessionTest : public SessionTest {
  protected:
    State state() const {
        State s{workingCopy(), session.record(), {}, textOf(session.pictures().star())};
        for (const PictureRef& p : session.pictures().planets()) s.pictures.push_back(textOf(p));
        return s;
    }
    int planetKeyCount(int planet, const std::string& group, Direction direction) const {
        PlanetMessageStore store(session.store(), planet);
        return MessageList(store, group, direction).count();
    }
};

// Every command, run in turn; undoing them all must give back each state on the way, in the
// working copy's bytes, the record and the pictures, and redoing them must do the same forwards.
TEST_F(EditSessionTest, EveryCommandIsUndoneAndRedoneWithItsName) {
    openSystem("Sol", 3);
    const MessageListRef hail{2, "Hail", Direction::Message};
    const MessageListRef answers{2, "Hail", Direction::Response};
    const RoomRef area11{2, "Area11"};
    const std::vector<std::pair<std::string, std::function<bool(EditSession&)>>> commands = {
        {"Add Planet", [](EditSession& s) { return addPlanet(s) == AddPlanetResult::Added; }},
        {"Insert Planet 2",
         [](EditSession& s) { return insertPlanet(s, 2) == AddPlanetResult::Added; }},
        {"Rename Planet 3", [](EditSession& s) { return setPlanetName(s, 3, "Ember"); }},
        {"Describe Star", [](EditSession& s) { return setPlanetName(s, 0, "Old Sun"); }},
        {"Change Class of Planet 1", [](EditSession& s) { return setPlanetClass(s, 1, 0); }},
        {"Move Planet 2",
         [](EditSession& s) { return movePlanet(s, 2, 420, 1) && movePlanet(s, 2, 425, 1); }},
        {"Change Properties of Planet 2",
         [](EditSession& s) {
             return setPlanetAttribute(s, 2, AttributeGroup::Inhabited, 2, "p") &&
                    setPlanetProperties(s, 2, {PlanetAttributes{2, 3, 1, 0, 7}, 4, 9, true, true},
                                        "p");
         }},
        {"Use Custom Pictures for Planet 4",
         [](EditSession& s) { return setPlanetFlag(s, kPlanetPics, 4, true); }},
        {"New Message Hail 1",
         [&](EditSession& s) { return appendMessageLine(s, hail, "Greetings.*RTrade"); }},
        {"New Message Hail 2",
         [&](EditSession& s) { return appendMessageLine(s, hail, "Hello again."); }},
        {"Edit Message Hail 1",
         [&](EditSession& s) { return storeMessageLine(s, hail, 1, "Welcome.*RTrade"); }},
        {"Move Message Hail 1 Down",
         [&](EditSession& s) { return swapMessageLines(s, hail, 1, true); }},
        {"New Response Hail 1",
         [&](EditSession& s) { return appendMessageLine(s, answers, "Leave."); }},
        {"Remove Message Hail 1", [&](EditSession& s) { return removeMessageLine(s, hail, 1); }},
        {"Clear Responses Hail", [&](EditSession& s) { return clearMessageLines(s, answers); }},
        {"Edit Information",
         [](EditSession& s) {
             return storeMessageLine(s, {2, "", Direction::Information}, 1, "Dusty.");
         }},
        {"Describe Flag C",
         [](EditSession& s) { return setFlagDescription(s, 2, 'C', "Door open"); }},
        {"Change Picture of Planet 2",
         [](EditSession& s) { return setPlanetPicture(s, 2, textPicture("blue")); }},
        {"Change Star Picture",
         [](EditSession& s) { return setStarPicture(s, textPicture("sun")); }},
        {"Adventure Wizard",
         [](EditSession& s) {
             return finishGridWizard(s, 2, {2, 2});
         }},
        {"Tick North in Area11",
         [&](EditSession& s) { return tickStandardAction(s, area11, kNorth, "Cellar"); }},
        {"Edit Action 6 in Area11",
         [&](EditSession& s) { return setActionText(s, area11, {6}, "Down"); }},
        {"Set Destination of Action 6 in Area11",
         [&](EditSession& s) { return setActionDestination(s, area11, {6}, "Pit"); }},
        {"Set Direction of Action 6 in Area11",
         [&](EditSession& s) { return setActionDirection(s, area11, {6}, 5); }},
        {"Edit Description of Area11",
         [&](EditSession& s) { return setRoomDescription(s, area11, "Dark"); }},
        {"Add Action 7 in Area11", [&](EditSession& s) { return addRoomAction(s, area11); }},
        {"Remove Action 7 in Area11",
         [&](EditSession& s) { return removeRoomAction(s, area11, 7); }},
        {"Untick East in Area11",
         [&](EditSession& s) { return untickStandardAction(s, area11, kEast); }},
        {"Edit Effect Area11Search",
         [&](EditSession& s) {
             return editEffect(s, area11, "Area11Search", "A coin.", "Area11");
         }},
        {"Lock Action 1 in Area11",
         [&](EditSession& s) { return lockRoomAction(s, area11, 1, 'B', "Jammed."); }},
        {"Change Requirements",
         [](EditSession& s) {
             return setRequirements(s, 2, {{"%FA", "", ""}});
         }},
        {"Swap Planets 1 and 2", [](EditSession& s) { return swapPlanets(s, 2, 1); }},
        {"Change Star Type", [](EditSession& s) { return setStarType(s, 5); }},
        {"Change Display Name", [](EditSession& s) { return setDisplayName(s, "Solace"); }},
        {"Set Note", [](EditSession& s) { return writeKey(s, "General", "Note", "x"); }},
        {"Delete Planet 1", [](EditSession& s) { return deletePlanet(s, 1); }},
        {"Clear Planets", [](EditSession& s) { return clearPlanets(s); }},
    };
    std::vector<State> states{state()};
    for (const auto& [name, run] : commands) {
        ASSERT_TRUE(run(session)) << name << ": " << session.lastError();
        EXPECT_EQ(session.undoName(), name);
        EXPECT_NE(state(), states.back()) << name << " changed nothing";
        states.push_back(state());
    }
    EXPECT_EQ(session.history().size(), commands.size()) << "each command is one step";

    for (std::size_t i = commands.size(); i-- > 0;) {
        EXPECT_EQ(session.undoName(), commands[i].first);
        ASSERT_TRUE(session.undo()) << session.lastError();
        EXPECT_EQ(state(), states[i]) << "undo of " << commands[i].first;
    }
    EXPECT_FALSE(session.canUndo());
    EXPECT_TRUE(workingCopyHasSavedTime()) << "undone back to the saved state";
    EXPECT_FALSE(session.isModified());

    for (std::size_t i = 0; i < commands.size(); ++i) {
        EXPECT_EQ(session.redoName(), commands[i].first);
        ASSERT_TRUE(session.redo()) << session.lastError();
        EXPECT_EQ(state(), states[i + 1]) << "redo of " << commands[i].first;
    }
    EXPECT_TRUE(session.isModified());
}

TEST_F(EditSessionTest, SaveMarksThePointThatUndoMakesUnmodifiedAgain) {
    openSystem("Sol", 2);
    ASSERT_TRUE(setPlanetName(session, 1, "First"));
    ASSERT_TRUE(session.save()) << session.lastError();
    EXPECT_FALSE(session.isModified());
    ASSERT_TRUE(setPlanetName(session, 2, "Second"));
    EXPECT_TRUE(session.isModified()) << "the first change after a save counts";
    ASSERT_TRUE(movePlanet(session, 2, 500, 7));
    EXPECT_EQ(session.history().size(), 3u) << "a drag after a save starts a step of its own";
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    EXPECT_FALSE(session.isModified()) << "back at the saved state";
    EXPECT_EQ(workingCopy(), saved());
    ASSERT_TRUE(session.undo());
    EXPECT_TRUE(session.isModified()) << "before the save";
    // A new command here drops the saved state from reach.
    ASSERT_TRUE(setPlanetName(session, 2, "Other"));
    ASSERT_TRUE(session.undo());
    EXPECT_TRUE(session.isModified());
}

TEST_F(EditSessionTest, ADragIsOneStepAndAtLeastTwoHundredStepsAreKept) {
    openSystem("Sol", 3);
    for (int position = 431; position <= 450; ++position)
        ASSERT_TRUE(movePlanet(session, 2, position, 1));
    ASSERT_TRUE(movePlanet(session, 2, 440, 2));  // another drag
    for (int i = 0; i < 220; ++i)
        ASSERT_TRUE(setPlanetName(session, 1, "Name " + std::to_string(i)));
    EXPECT_EQ(session.history().size(), 222u);
    for (int i = 0; i < 221; ++i) ASSERT_TRUE(session.undo()) << i;
    EXPECT_EQ(session.record().planet(2).Position, 450);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(session.record().planet(2).Position, 430);
    EXPECT_FALSE(session.isModified());
}

TEST_F(EditSessionTest, AFailedCommandChangesNothingAndLeavesNoStep) {
    openSystem("Sol", 2);
    const State before = state();
    {
        ReadOnlyFolder locked(game.descriptors());
        if (!locked.enforced()) GTEST_SKIP() << "file permissions are not enforced here";
        EXPECT_EQ(addPlanet(session), AddPlanetResult::Failed);
        EXPECT_NE(session.lastError().find("could not be written"), std::string::npos)
            << session.lastError();
    }
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(session.canUndo());
    // Refusals change nothing either.
    EXPECT_FALSE(setPlanetClass(session, 9, 1));
    EXPECT_FALSE(setPlanetName(session, 1, "Two\nLines"));
    EXPECT_EQ(state(), before);
}

TEST_F(EditSessionTest, UndoRefusesAWorkingCopyChangedOutside) {
    openSystem("Sol", 2);
    ASSERT_TRUE(setPlanetName(session, 1, "Alpha"));
    const std::string outside = "[General]\r\nRewritten=1\r\n";
    game.write("ORBDescriptor/Sol.edt", outside);
    EXPECT_FALSE(session.undo());
    EXPECT_NE(session.lastError().find("changed outside"), std::string::npos);
    EXPECT_EQ(workingCopy(), outside);
    EXPECT_TRUE(session.canUndo());
}

TEST_F(EditSessionTest, NoticesNameWhatChanged) {
    std::vector<ChangeNotice> heard;
    session.subscribe([&](const ChangeNotice& n) { heard.push_back(n); });
    openSystem("Sol", 3);
    ASSERT_TRUE(heard.back().has(kSystemOpened));
    heard.clear();
    ASSERT_TRUE(setFlagDescription(session, 3, 'A', "Met the elders"));
    ASSERT_TRUE(setPlanetName(session, 3, "Elder"));
    ASSERT_TRUE(session.undo());
    ASSERT_EQ(heard.size(), 3u);
    EXPECT_TRUE(heard[0].touchesKeysOf(3));
    EXPECT_FALSE(heard[0].touchesKeysOf(2));
    EXPECT_TRUE(heard[1].has(kNamesChanged) && !heard[1].has(kPlanetKeysChanged));
    EXPECT_TRUE(heard[2].has(kNamesChanged) && heard[2].has(kSavedChanged)) << "undo reports too";
    // A write that changes no byte is no step and no notice.
    heard.clear();
    ASSERT_TRUE(setDisplayName(session, "Sol"));
    ASSERT_TRUE(setFlagDescription(session, 3, 'A', "Met the elders"));
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(session.canRedo()) << "a command that changes nothing keeps the redo step";
    ASSERT_TRUE(session.save());
    ASSERT_TRUE(setPlanetProperties(
        session, 3,
        {PlanetAttributes::unpack(session.record().planet(3).Attributes), 2, 0, false, false}));
    EXPECT_FALSE(session.isModified()) << "a write that changes no byte leaves the file alone";
}

TEST_F(EditSessionTest, ANewSystemTakesNothingFromTheSystemOpenedBefore) {
    openSystem("Busy", 2);
    ASSERT_TRUE(setPlanetProperties(session, 2, {PlanetAttributes{2, 1, 2, 3, 9}, 5, 20, {}, {}}));
    ASSERT_TRUE(deletePlanet(session, 2));
    ASSERT_TRUE(session.commit()) << session.lastError();
    openSystem("Empty", 1);
    ASSERT_EQ(addPlanet(session), AddPlanetResult::Added);
    EXPECT_EQ(session.record().planet(2), (PlanetRecord{430, 2, 0, 0, 1, 0, 0}));
    // Within a system a freed slot still gives its values to the next planet, but for its class
    // and size.
    ASSERT_TRUE(setPlanetProperties(session, 2, {PlanetAttributes{1, 0, 0, 0, 4}, 3, 6, {}, {}}));
    ASSERT_TRUE(setPlanetClass(session, 2, 9));
    ASSERT_TRUE(deletePlanet(session, 2));
    ASSERT_EQ(addPlanet(session), AddPlanetResult::Added);
    EXPECT_EQ(session.record().planet(2),
              (PlanetRecord{430, 2, 6, PlanetAttributes{1, 0, 0, 0, 4}.pack(), 1, 0, 0}));
}

TEST_F(EditSessionTest, AddOnACrowdedOutsideMovesOrbitsInAndAddsTheFullCheckFirst) {
    SystemRecord crowded = TempGameFolder::systemRecord("Edge", 3);
    crowded.planet(1).Position = 1950;
    crowded.planet(2).Position = 1990;
    crowded.planet(3).Position = 2000;
    game.writeDescriptor(crowded);
    ASSERT_TRUE(session.open("Edge", [] { return false; }));
    ASSERT_EQ(addPlanet(session), AddPlanetResult::Added) << session.lastError();
    const SystemRecord& r = session.record();
    EXPECT_EQ((std::vector<int>{r.planet(1).Position, r.planet(2).Position, r.planet(3).Position,
                                r.planet(4).Position}),
              (std::vector<int>{1910, 1940, 1970, 2000}));
    while (session.record().PlanetCount < kMaxPlanets)
        ASSERT_EQ(addPlanet(session), AddPlanetResult::Added);
    EXPECT_EQ(addPlanet(session), AddPlanetResult::Full);
    EXPECT_EQ(insertPlanet(session, 1), AddPlanetResult::Full);
    EXPECT_EQ(session.lastError(), kMaxPlanetsMessage);
}

TEST_F(EditSessionTest, SaveWritesOnlyThisSystemsPicturesAndUndoneEditsAreNotSaved) {
    openSystem("Sol", 2);
    game.write("PICTURES/Sol1.avi", "animation of Sol's planet 1");
    ASSERT_TRUE(setPlanetPicture(session, 1, textPicture("red")));
    ASSERT_TRUE(setStarPicture(session, textPicture("star")));
    EXPECT_TRUE(session.isModified());
    ASSERT_TRUE(session.save()) << session.lastError();
    EXPECT_EQ(game.read("PICTURES/Sol.bmp"), "red|");
    EXPECT_EQ(game.read("PICTURES/SolSun.bmp"), "star");
    EXPECT_FALSE(session.isModified());

    ASSERT_TRUE(session.discard());
    openSystem("Sol1", 1);
    ASSERT_TRUE(setPlanetPicture(session, 1, textPicture("green")));
    ASSERT_TRUE(session.save());
    EXPECT_EQ(game.read("PICTURES/Sol1.bmp"), "green");
    EXPECT_EQ(game.read("PICTURES/Sol1.avi"), "animation of Sol's planet 1");

    ASSERT_TRUE(setPlanetPicture(session, 1, nullptr));
    ASSERT_TRUE(session.undo());
    EXPECT_FALSE(session.isModified()) << "the pictures are the saved ones again";
}

TEST_F(EditSessionTest, LeftoverTemporaryFilesOfTheSystemGoWhenItIsOpened) {
    const fs::path stale = game.descriptor(".Sol.orb.0123abcd4567.tmp");
    const fs::path fresh = game.descriptor(".Sol.edt.89abcdef0123.tmp");
    const fs::path other = game.descriptor(".Sol2.orb.0123abcd4567.tmp");
    for (const fs::path& file : {stale, fresh, other}) writeBytes(file, "partial");
    const auto hourAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(stale, hourAgo);
    fs::last_write_time(other, hourAgo);
    openSystem("Sol", 1);
    EXPECT_FALSE(fs::exists(stale));
    EXPECT_TRUE(fs::exists(fresh)) << "a write may still be going on";
    EXPECT_TRUE(fs::exists(other)) << "another system's";
}

}  // namespace
}  // namespace orr::test
