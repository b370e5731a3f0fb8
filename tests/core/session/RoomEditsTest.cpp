// The room editor's and the wizard's commands on a real working copy: the wizard is one write and
// one step, typing makes one step per box, and every refusal leaves the file and the history as
// they were. (Each command's name, undo and redo are in EditSessionTest's table.)

#include "session/RoomEdits.h"

#include "messages/PlanetMessageStore.h"
#include "session/MessageEdits.h"
#include "session/SystemEdits.h"
#include "store/FileIo.h"
#include "support/SessionFixture.h"

namespace orr::test {
namespace {

class RoomEditsTest : public SessionTest {
  protected:
    void SetUp() override { openSystem("Sol", 2); }
    std::string key(const std::string& name) {
        session.recheck();
        return session.store().GetPlanetKey(2, name, true);
    }
    static RoomRef at(const char* room, int planet = 2) { return {planet, room}; }
    RoomRef area11 = at("Area11");
};

TEST_F(RoomEditsTest, TheWizardIsOneWriteAndOneStepThatLeavesLargerGridsBehind) {
    ASSERT_TRUE(putPlanetKeys(session, 2, "Prefix", {{"SearchFlag", "%FZ"}}));
    injectFileFailure(0);
    ASSERT_TRUE(writeKey(session, "2", "Note", "x"));
    const int oneKey = fileOperationsSince();
    injectFileFailure(0);
    ASSERT_TRUE(finishGridWizard(session, 2, {3, 3}));
    EXPECT_EQ(fileOperationsSince(), oneKey) << "all keys in one write";
    EXPECT_EQ(session.undoName(), "Adventure Wizard");
    EXPECT_EQ(session.store().GetGeneralFlag(kMessagesFlag, 2), 1);
    EXPECT_EQ(key("ResponseArea334"), "%FZSearch the area for anything unusual.*MArea33Search");

    ASSERT_TRUE(finishGridWizard(session, 2, {2, 2}));
    EXPECT_EQ(key("MessagesArea33"), "1") << "out of reach, but not deleted";
    EXPECT_EQ(key("ResponsesArea22"), "5");
    const std::string twoGrids = workingCopy();
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(key("MessagesArea11"), "ERR");
    EXPECT_EQ(session.store().GetGeneralFlag(kMessagesFlag, 2), 0);
    ASSERT_TRUE(session.redo() && session.redo());
    EXPECT_EQ(workingCopy(), twoGrids);
}

// Refusals first, on the wizard's grid: they leave the file and the history alone; then typing
// makes one step per box.
TEST_F(RoomEditsTest, RefusalsChangeNothingAndTypingInOneBoxIsOneStep) {
    ASSERT_TRUE(finishGridWizard(session, 2, {2, 2}));
    const std::string before = workingCopy();
    const Requirements badPrefix{{"%GA", "", ""}};
    const std::pair<const char*, std::function<bool()>> refusals[] = {
        {"no planet", [&] { return setRoomDescription(session, at("Area11", 5), "x"); }},
        {"None", [&] { return addRoomAction(session, at("None")); }},
        {"INIT", [&] { return addRoomAction(session, at("INIT")); }},
        {"odd name", [&] { return addRoomAction(session, at("Hall=1")); }},
        {"ticked twice", [&] { return tickStandardAction(session, area11, kEast); }},
        {"no neighbour", [&] { return tickStandardAction(session, area11, kNorth); }},
        {"bad destination", [&] { return tickStandardAction(session, area11, kWest, "a*b"); }},
        {"not ticked", [&] { return untickStandardAction(session, area11, kNorth); }},
        {"no action 9", [&] { return setActionText(session, area11, {9}, "x"); }},
        {"star in text", [&] { return setActionText(session, area11, {1}, "a*b"); }},
        {"too long", [&] { return setActionText(session, area11, {1}, std::string(250, 'x')); }},
        {"no direction 6", [&] { return setActionDirection(session, area11, {1}, 6); }},
        {"line break", [&] { return setRoomDescription(session, area11, "a\r\nb"); }},
        {"no effect of nothing", [&] { return editEffect(session, area11, "", "x", "Area11"); }},
        {"condition as return", [&] { return editEffect(session, area11, "Trap", "x", "S3"); }},
        {"lock without flag", [&] { return lockRoomAction(session, area11, 1, '?', "Locked."); }},
        {"requirement", [&] { return setRequirements(session, 2, badPrefix); }},
    };
    for (const auto& [what, refused] : refusals) {
        EXPECT_FALSE(refused()) << what;
        EXPECT_FALSE(session.lastError().empty()) << what;
    }
    EXPECT_EQ(workingCopy(), before);
    EXPECT_EQ(session.history().size(), 1u);

    int number = 0;
    for (const char* text : {"G", "Go", "Go up"})
        ASSERT_TRUE(setActionText(session, area11, {0, kNorth}, text, &number));
    for (const char* room : {"L", "Loft"})
        ASSERT_TRUE(setActionDestination(session, area11, {number}, room));
    for (const char* text : {"D", "Dusty"})
        ASSERT_TRUE(setRoomDescription(session, at("Cellar"), text));
    EXPECT_EQ(number, 6) << "the unticked North is stored as a new action";
    EXPECT_EQ(key("ResponseArea116"), "Go up*MLoft");
    EXPECT_EQ(key("MessagesCellar") + key("MessageCellar1"), "1Dusty");
    EXPECT_EQ(session.history().size(), 4u);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(key("MessagesCellar"), "ERR") << "the count raised by the first letter goes too";
}

}  // namespace
}  // namespace orr::test
