// Finding a planet's message groups by following the answer tags from the root groups. (An empty
// planet's root groups show in the command-line "groups" test.)

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "messages/MessageGroups.h"

namespace orr {
namespace {

using Names = std::vector<std::string>;

TEST(MessageGroups, GroupsReachedOnlyThroughATagAreListed) {
    test::MemoryMessageStore store;
    store.keys = {
        {"Messages", "2"},
        {"Message1", "Hello*RGreet"},
        {"Message2", "Again"},
        {"ResponsesHail", "1"},
        {"ResponseHail1", "Trade?*MTrade"},
        {"MessagesTrade", "1"},
        {"MessageTrade1", "Sure*RDeal*SFA"},
        {"ResponsesDeal", "1"},
        {"ResponseDeal1", "Bye*M"},
        {"BeamMessages", "1"},
        {"Beam1", "Landed*RBeamUp"},
    };
    MessageGroups groups;
    const GroupLists lists = groups.LoadGroupLists(store);
    // INIT answers Greet and, through its untagged second line, its own responses.
    EXPECT_EQ(lists.responseGroups, (Names{"INIT", "Greet", "BeamUp", "Hail", "Deal"}));
    EXPECT_EQ(lists.messageGroups, (Names{"INIT", "Back", "Returned", "Beam", "Phaser", "Trade"}));
    EXPECT_EQ(groups.find("")->uses, kUsedForMessages | kUsedForResponses);
    EXPECT_EQ(groups.find("Deal")->uses, kUsedForResponses);
}

TEST(MessageGroups, IgnoreAndPhaserGroupsAreFollowedWhenTheyHoldMessages) {
    test::MemoryMessageStore store;
    store.keys = {
        {"MessagesIgnoreHail", "1"}, {"MessageIgnoreHail1", "Rude."}, {"MessagesHailPhaser", "2"},
        {"MessagesIgnore", "0"},     {"MessagesPhaser", "1"},         {"MessagesPhaserPhaser", "1"},
    };
    MessageGroups groups;
    const GroupLists lists = groups.LoadGroupLists(store);
    EXPECT_EQ(lists.messageGroups, (Names{"INIT", "Phaser", "PhaserPhaser", "Back", "Returned",
                                          "Beam", "IgnoreHail", "HailPhaser"}));
    EXPECT_EQ(groups.find("Ignore"), nullptr);  // a count of 0 is no group
}

TEST(MessageGroups, CyclesAndConditionsEndTheScan) {
    test::MemoryMessageStore store;
    store.keys = {
        {"Messages", "1"},        {"Message1", "Ping*RA*RS3"}, {"ResponsesA", "1"},
        {"ResponseA1", "Pong*M"}, {"MessagesB", "1"},          {"MessageB1", "Damaged*RS2*R!S4*RC"},
    };
    MessageGroups groups;
    groups.ScanGroup(store, "B", MessageGroups::kMessageKind);
    groups.ScanGroup(store, "", MessageGroups::kMessageKind);
    Names names;
    for (const GroupEntry& entry : groups.entries()) names.push_back(entry.name);
    EXPECT_EQ(names, (Names{"B", "C", "INIT", "A"}));
    EXPECT_EQ(scannedAnswerGroup("x*RS3", 'R', "Own"), "Own");
    EXPECT_EQ(scannedAnswerGroup("x*M*SFA", 'M', "Own"), "");
}

TEST(MessageGroups, ScansOnceUntilCleared) {
    test::MemoryMessageStore store;
    MessageGroups groups;
    groups.LoadGroupLists(store);
    store.keys = {{"Messages", "1"}, {"Message1", "Hi*RNew"}};
    EXPECT_EQ(groups.LoadGroupLists(store).responseGroups, Names{"Hail"});
    groups.clear();
    EXPECT_EQ(groups.LoadGroupLists(store).responseGroups, (Names{"New", "Hail"}));
}

TEST(MessageGroups, LongChainsDoNotExhaustTheStack) {
    test::MemoryMessageStore store;
    constexpr int kChain = 10000;
    store.keys["Messages"] = "1";
    store.keys["Message1"] = "Go*RG0";
    for (int i = 0; i < kChain; ++i) {
        const std::string g = "G" + std::to_string(i);
        store.keys["Messages" + g] = "1";
        store.keys["Message" + g + "1"] = "Next*RG" + std::to_string(i + 1);
    }
    MessageGroups groups;
    const GroupLists lists = groups.LoadGroupLists(store);
    EXPECT_EQ(lists.responseGroups.size(), kChain + 2u);  // G0..G10000 and Hail
    EXPECT_EQ(lists.responseGroups[kChain], "G10000");
}

}  // namespace
}  // namespace orr
