// The room model over a planet's keys: neighbours, how stored actions bind to the seven standard
// actions, descriptions and effects, and the changes of a room's lists, effects and locks; the
// adventure grid wizard's keys and sizes, and its grids as the room model reads them back.

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "rooms/GridWizard.h"
#include "rooms/RoomChanges.h"

namespace orr {
namespace {

using Keys = std::map<std::string, std::string>;

TEST(RoomNames, NeighboursInBothFormsAndNamesWithoutCoordinates) {
    const std::vector<std::pair<std::string, Neighbours>> cases = {
        {"Area11", {"", "Area21", "Area12", ""}},
        {"Area0305", {"Area0304", "Area0405", "Area0306", "Area0205"}},
        {"Area1010", {"Area1009", "Area1110", "Area1011", "Area0910"}},
        // x of two digits and y of one: only the last two characters count.
        {"Area103", {"Area102", "Area113", "Area104", ""}},
        {"Cave", {}},
        {"Room7", {}},
        {"Area0", {}},
        {"7", {"", "80", "71", "60"}},
    };
    for (const auto& [room, expected] : cases) EXPECT_EQ(NeighbourRooms(room), expected) << room;
    EXPECT_EQ(roomOfGroup("Area22Locked"), "Area22");
    EXPECT_EQ(roomOfGroup("Search"), "Search");
}

TEST(RoomLine, SplitsIntoCodesTextAndTail) {
    const std::vector<std::tuple<std::string, std::string, std::string, std::string>> cases = {
        {"%FB%GNOpen the hatch.*MCellar*SFA", "%FB%GN", "Open the hatch.", "*MCellar*SFA"},
        {"Plain", "", "Plain", ""},
        {"%GN", "%GN", "", ""},
        {"ERR", "", "", ""},
    };
    for (const auto& [line, codes, text, tail] : cases) {
        const SplitLine split = SplitMessage(line);
        EXPECT_EQ(std::tie(split.codes, split.text, split.tail), std::tie(codes, text, tail));
    }
    EXPECT_EQ(destinationOf("*SFA*MCellar*TREATY"), "Cellar");
    EXPECT_EQ(returnRoomOf("*MCellar"), "");
    EXPECT_EQ(withDestination("*MOld*SFA", "New"), "*MNew*SFA");
    EXPECT_EQ(withDestination("*SFA", "New"), "*SFA*MNew");
    EXPECT_EQ(withoutDirectionMarkers("%FB%GN%G-"), "%FB");
}

class RoomTest : public ::testing::Test {
  protected:
    test::MemoryMessageStore store;
    void actions(const std::string& room, const std::vector<std::string>& lines) {
        store.keys["Responses" + room] = std::to_string(lines.size());
        for (std::size_t n = 0; n < lines.size(); ++n)
            store.keys["Response" + room + std::to_string(n + 1)] = lines[n];
    }
    // "North:1" for a box and its state, "list" for a listed action, per stored action.
    std::vector<std::string> bindings(const std::string& room) {
        const RoomView view = readRoom(store, room);
        std::vector<std::string> result;
        for (int n = 1; n <= view.actionCount; ++n) {
            const int i = view.standardOf(n);
            result.push_back(i < 0 ? "list"
                                   : std::string(kStandardCaptions[i]).substr(0, 5) + ":" +
                                         std::to_string(view.standard[i].state));
        }
        return result;
    }
};

TEST_F(RoomTest, ActionsBindInOrderWithTheirStates) {
    store.keys["SearchFlag"] = "%fC";
    const std::vector<std::tuple<std::string, std::vector<std::string>, std::vector<std::string>>>
        cases = {
            {"Area22",
             {"Go North and report back.*MArea21", "Go West and report back.*MArea12",
              "Beam back up to the ship.*MBeamUp",
              "%fCSearch the area for anything unusual.*MArea22Search",
              "What are your current tricorder readings?*MArea22Tri"},
             {"North:1", "West:1", "Beam :1", "Searc:1", "What :1"}},
            // "%G-" never binds a door; a marker binds whatever the destination; the caption in
            // the text binds; a changed line is grey.
            {"Area11",
             {"%G-Go north*MArea12", "%GWOpen the hatch.*MCellar",
              "Go North and report back.*MArea10", "New Action*M",
              "Search the area for anything unusual.*MX"},
             {"list", "West:2", "North:2", "list", "list"}},
            // An empty destination binds the first door without a neighbour.
            {"Cave",
             {"Climb down*MPit", "Go South and report back.*M", "Look*MCaveSearch"},
             {"list", "North:2", "Searc:2"}},
        };
    for (const auto& [room, lines, expected] : cases) {
        actions(room, lines);
        EXPECT_EQ(bindings(room), expected) << room;
    }
    const RoomView cave = readRoom(store, "Cave");
    EXPECT_EQ(cave.standard[kSearch].defaultLine,
              "%fCSearch the area for anything unusual.*MCaveSearch");
    EXPECT_EQ(cave.standard[kEast].defaultLine, "Go East and report back.*M");
    EXPECT_TRUE(cave.standard[kEast].needsDestination());
}

TEST_F(RoomTest, DescriptionsEffectsAndDoorsThatLeadNowhere) {
    store.keys = {{"MessagesPit", "2"},
                  {"MessagePit1", "You fall into a pit.*RArea11"},
                  {"MessagePit2", "It is dark.*R"},
                  {"MessagesHall", "2"},
                  {"MessageHall1", "Dust.*RNone"},
                  {"MessageHall2", "%W1A long hall.^EN"}};
    actions("Hall", {"Go North and report back.*MPit", "Go East and report back.*MVault"});
    const RoomView pit = readRoom(store, "Pit");
    EXPECT_FALSE(pit.description);
    ASSERT_EQ(pit.leadsTo.size(), 1u) << "\"*R\" alone leads to no room";
    EXPECT_EQ(pit.leadsTo[0].group, "Area11");
    const RoomView hall = readRoom(store, "Hall");
    ASSERT_TRUE(hall.description);
    EXPECT_EQ(hall.description->number, 2);
    EXPECT_EQ(hall.doorLeadsNowhere, (std::array<bool, 4>{false, true, false, false}));

    // The designer's answers: Yes follows, No goes on asking, Cancel shows nothing.
    for (const auto& [answer, shown] :
         std::vector<std::pair<NotARoomAnswer, std::string>>{{NotARoomAnswer::Yes, "Area11"},
                                                             {NotARoomAnswer::No, "Pit"},
                                                             {NotARoomAnswer::Cancel, ""}}) {
        const NotARoomAnswer given = answer;  // clang 14 cannot capture a structured binding
        const auto view = LoadRoom(store, "Pit", [given](auto&, auto&) { return given; });
        EXPECT_EQ(view ? view->room : "", shown);
    }
    EXPECT_FALSE(LoadRoom(store, "None", [](auto&, auto&) { return NotARoomAnswer::Yes; }));
}

TEST_F(RoomTest, RemovingAnActionRenumbersTheLaterOnesAndAppendingStopsAt255) {
    actions("Area11", {"a*MX", "b*MY", "c*MZ", "d*MW"});
    ASSERT_TRUE(RemoveAction(store, "Area11", 2));
    EXPECT_EQ(store.keys, (Keys{{"ResponsesArea11", "3"},
                                {"ResponseArea111", "a*MX"},
                                {"ResponseArea112", "c*MZ"},
                                {"ResponseArea113", "d*MW"}}));
    EXPECT_FALSE(RemoveAction(store, "Area11", 4));
    // The two hundred and fifty-fifth action is the last.
    store.keys["ResponsesBig"] = "254";
    EXPECT_EQ(AppendAction(store, "Big", "x*M"), 255);
    EXPECT_EQ(AppendAction(store, "Big", "y*M"), 0);
    EXPECT_NE(appendProblem(store, "Big").find("255"), std::string::npos);
}

TEST_F(RoomTest, EffectsAreFoundOrCreated) {
    store.keys = {{"MessagesTrap", "2"},
                  {"MessageTrap1", "%05Nothing.*R"},
                  {"MessageTrap2", "%FAA dart flies.*RHall*SFB"},
                  {"MessagesHall", "1"},
                  {"MessageHall1", "%W2A hall.*SFC"}};
    const std::vector<std::tuple<std::string, int, bool, std::string>> cases = {
        {"Trap", 2, false, "%FAOuch.*SFB*RHall"},
        {"Hall", 2, true, "%W2Ouch.*SFC*RHall"},
        {"Empty", 1, false, "Ouch.*RHall"},
    };
    for (const auto& [group, k, isRoom, stored] : cases) {
        const EffectSlot slot = FindEffect(store, group);
        EXPECT_EQ(slot.number, k) << group;
        EXPECT_EQ(slot.isRoom, isRoom) << group;
        ASSERT_TRUE(StoreEffect(store, slot, "Ouch.", "Hall"));
        EXPECT_EQ(store.keys["Message" + group + std::to_string(k)], stored);
        EXPECT_EQ(store.keys["Messages" + group], std::to_string(k));
    }
    EXPECT_EQ(FindEffect(store, "Trap").returnRoom, "Hall");
}

TEST_F(RoomTest, ALockMakesThreeWrites) {
    actions("Area11", {"Go North and report back.*MArea12", "%GNClimb.*MLoft*SFA"});
    store.keys["MessagesArea12Locked"] = "1";
    ASSERT_EQ(lockProblem(store, "Area11", 1, 'B', "The hatch is jammed."), "");
    ASSERT_TRUE(LockAction(store, "Area11", 1, 'B', "The hatch is jammed."));
    ASSERT_TRUE(LockAction(store, "Area11", 2, 'C', "Too high."));
    EXPECT_EQ(store.keys, (Keys{{"ResponsesArea11", "4"},
                                {"ResponseArea111", "%FBGo North and report back.*MArea12"},
                                {"ResponseArea112", "%FC%GNClimb.*MLoft*SFA"},
                                {"ResponseArea113", "%fBGo North and report back.*MArea12Locked"},
                                {"ResponseArea114", "%fC%GNClimb.*SFA*MLoftLocked"},
                                {"MessagesArea12Locked", "2"},
                                {"MessageArea12Locked2", "The hatch is jammed.*RArea11"},
                                {"MessagesLoftLocked", "1"},
                                {"MessageLoftLocked1", "Too high.*RArea11"}}));
    actions("Cave", {"Shout"});
    EXPECT_NE(lockProblem(store, "Cave", 1, 'B', "x"), "") << "no destination to lock";
}

Keys keysOf(const GridWizardChoices& choices, const Requirements& requirements = {}) {
    Keys keys;
    for (const auto& [key, value] : GridWizardKeys(choices, requirements)) {
        EXPECT_TRUE(keys.emplace(key, value).second) << key << " written twice";
    }
    return keys;
}

TEST(GridWizard, SizesAreClampedByValidate) {
    for (const auto& [typed, kept] : std::vector<std::pair<std::string, std::string>>{
             {"1", "2"}, {"15", "10"}, {"99", "10"}, {"abc", "2"}, {"5", "5"}, {" 7x", "7"}})
        EXPECT_EQ(validatedGridSize(typed), kept) << typed;
}

TEST(GridWizard, TwoByTwoWritesTheExampleArea) {
    const Keys keys = keysOf({2, 2});
    const Keys area11 = {
        {"MessagesArea11", "1"},
        {"MessageArea111", "This is Area 1, 1"},
        {"ResponseArea111", "Go East and report back.*MArea21"},
        {"ResponseArea112", "Go South and report back.*MArea12"},
        {"ResponseArea113", "Beam back up to the ship.*MBeamUp"},
        {"ResponseArea114", "Search the area for anything unusual.*MArea11Search"},
        {"ResponseArea115", "What are your current tricorder readings?*MArea11Tri"},
        {"ResponsesArea11", "5"},
        {"MessagesArea11Search", "1"},
        {"MessageArea11Search1", "We found nothing of interest, %RK.*RArea11"},
        {"MessagesArea11Tri", "1"},
        {"MessageArea11Tri1", "We have a [type] reading bearing [number] degrees.*RArea11"},
        {"BeamMessages", "1"},
        {"Beam1", "We beamed down to Area 1, 1*RArea11"},
        {"MessagesBeamUp", "1"},
        {"MessageBeamUp1", "Beam up sucessful.*RNone"}};
    for (const auto& [key, value] : area11)
        EXPECT_EQ(keys.count(key) ? keys.at(key) : "", value) << key;
    EXPECT_EQ(keys.size(), 4 * 12 + 4u);
}

TEST(GridWizard, NamesAndDoorsOfWideAndLargeGrids) {
    const Keys wide = keysOf({10, 3});
    // A corner has two doors, an edge three, an inner area four; three more actions each.
    for (const auto& [area, count] : std::vector<std::pair<std::string, std::string>>{
             {"Area011", "5"}, {"Area021", "6"}, {"Area052", "7"}, {"Area103", "5"}})
        EXPECT_EQ(wide.at("Responses" + area), count) << area;
    EXPECT_EQ(wide.at("Beam1"), "We beamed down to Area 1, 1*RArea011");
    const Keys large = keysOf({10, 10});
    EXPECT_EQ(large.size(), 1364u);
    EXPECT_EQ(large.at("ResponseArea10101"), "Go North and report back.*MArea1009");
}

TEST(GridWizard, ActionsLeftOutAndRequirementPrefixes) {
    GridWizardChoices choices{3, 2};
    choices.actions[kBeamUp] = false;
    choices.actions[kNorth] = false;
    const Keys keys = keysOf(choices, Requirements{{"%FA", "", "%fB"}});
    EXPECT_FALSE(keys.count("MessagesBeamUp"));
    EXPECT_EQ(keys.at("Beam1"), "We beamed down to Area 1, 1*RArea11");
    for (const auto& [key, value] : keys) {
        EXPECT_EQ(value.find("BeamUp"), std::string::npos) << key;
        EXPECT_EQ(value.find("Go North"), std::string::npos) << key;
    }
    EXPECT_EQ(keys.at("ResponseArea224"),
              "%fBWhat are your current tricorder readings?*MArea22Tri");
    choices.actions[kBeamUp] = true;
    EXPECT_EQ(keysOf(choices, Requirements{{"%FA", "", ""}}).at("ResponseArea113"),
              "%FABeam back up to the ship.*MBeamUp");
}

// Every area of a wizard's grid opens with its doors, beam up,
// search and tricorder ticked as default lines and nothing listed, whatever the requirement
// prefixes.
TEST(GridWizard, ItsAreasReadBackAsDefaultStandardActions) {
    for (const GridWizardChoices& choices : {GridWizardChoices{3, 3}, GridWizardChoices{10, 10}}) {
        test::MemoryMessageStore store;
        store.keys = {{"BeamFlag", "%FA"}, {"TriFlag", "%f7"}};
        for (const auto& [key, value] : GridWizardKeys(choices, readRequirements(store)))
            store.keys[key] = value;
        for (int x = 1; x <= choices.width; ++x) {
            for (int y = 1; y <= choices.height; ++y) {
                const RoomView view =
                    readRoom(store, gridRoomName(x, y, choices.width, choices.height));
                const std::array<bool, 4> doors = {y > 1, x < choices.width,
                                                   y<choices.height, x> 1};
                EXPECT_TRUE(view.description && view.listed.empty()) << view.room;
                for (int i = 0; i < kStandardActionCount; ++i)
                    EXPECT_EQ(view.standard[i].state,
                              i >= kDirectionCount || doors[i] ? kDefault : kNotStored)
                        << view.room << " " << kStandardCaptions[i];
            }
        }
    }
}

}  // namespace
}  // namespace orr
