// The adventure grid wizard's keys and sizes, and its grids as the room model reads them back.

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "rooms/GridWizard.h"
#include "rooms/Room.h"

namespace orr {
namespace {

using Keys = std::map<std::string, std::string>;

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

// Every area of a wizard's grid opens with its doors, beam up, search and tricorder ticked as
// default lines and nothing listed, whatever the requirement prefixes.
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
