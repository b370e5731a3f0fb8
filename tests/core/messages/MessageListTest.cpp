// Key names of the message lists, the list changes the editor and the command-line tool make,
// flag characters and descriptions, and a planet's keys in a real descriptor.

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "messages/Flags.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "support/GameFixture.h"

namespace orr {
namespace {

using Lines = std::vector<std::string>;
using Keys = std::map<std::string, std::string>;

TEST(MessageKeys, KeyTable) {
    const auto keys = [](const char* group, Direction direction) {
        const MessageKeyPair pair = messageKeys(group, direction);
        return pair.countKey + " " + pair.itemKey(12);
    };
    EXPECT_EQ(keys("INIT", Direction::Message), "Messages Message12");
    EXPECT_EQ(keys("INIT", Direction::Response), "Responses Response12");
    EXPECT_EQ(keys("Hail", Direction::Message), "MessagesHail MessageHail12");
    EXPECT_EQ(keys("Beam", Direction::Message), "BeamMessages Beam12");
    EXPECT_EQ(keys("Beam", Direction::Response), "ResponsesBeam ResponseBeam12");
    EXPECT_EQ(keys("Hail", Direction::Information), " Info");
    EXPECT_EQ(ignoreGroup("Hail"), "IgnoreHail");
    EXPECT_EQ(ignoreGroup("INIT"), "Ignore");
    EXPECT_EQ(phaserGroup(""), "Phaser");
    EXPECT_EQ(flagDescriptionKey('7'), "Flag7");
}

class MessageListTest : public ::testing::Test {
  protected:
    test::MemoryMessageStore store;
    MessageList list{store, "Hail", Direction::Message};
    void SetUp() override {
        store.keys = {{"MessagesHail", "3"},
                      {"MessageHail1", "one"},
                      {"MessageHail2", "two"},
                      {"MessageHail3", "three"}};
    }
};

TEST_F(MessageListTest, ReadsTheCountedLines) {
    EXPECT_EQ(list.lines(), (Lines{"one", "two", "three"}));
    store.keys.erase("MessageHail2");
    EXPECT_EQ(list.lines(), (Lines{"one", "ERR", "three"}));
    store.keys["MessagesHail"] = "-4";
    EXPECT_EQ(list.count(), 0);
    store.keys["MessagesHail"] = "2147483648";
    EXPECT_EQ(list.count(), kMaxListCount);
}

TEST_F(MessageListTest, RemovingMovesTheLaterLinesUp) {
    EXPECT_TRUE(list.remove(2));
    EXPECT_EQ(store.keys,
              (Keys{{"MessagesHail", "2"}, {"MessageHail1", "one"}, {"MessageHail2", "three"}}));
    EXPECT_FALSE(list.remove(3));
    EXPECT_FALSE(list.remove(0));

    // A missing line stays missing.
    SetUp();
    store.keys.erase("MessageHail3");
    EXPECT_TRUE(list.remove(1));
    EXPECT_EQ(store.keys, (Keys{{"MessagesHail", "2"}, {"MessageHail1", "two"}}));
}

TEST_F(MessageListTest, ClearAllKeepsTheOldLinesUntilOverwritten) {
    EXPECT_TRUE(list.clearAll());
    EXPECT_EQ(store.keys.at("MessagesHail"), "0");
    EXPECT_EQ(store.keys.at("MessageHail3"), "three");
    EXPECT_TRUE(list.append("new"));
    EXPECT_EQ(list.lines(), Lines{"new"});
}

TEST_F(MessageListTest, SwapStoreAndFailedWrites) {
    EXPECT_TRUE(list.swap(2));
    EXPECT_EQ(list.lines(), (Lines{"one", "three", "two"}));
    EXPECT_FALSE(list.swap(3));
    EXPECT_TRUE(list.store(1, "first"));
    EXPECT_TRUE(list.append("four"));
    EXPECT_EQ(list.lines(), (Lines{"first", "three", "two", "four"}));
    store.failWrites = true;
    EXPECT_FALSE(list.append("x"));
    EXPECT_FALSE(list.remove(1));
}

TEST(MessageList, Information) {
    test::MemoryMessageStore store;
    MessageList info(store, "INIT", Direction::Information);
    EXPECT_EQ(info.count(), 0);
    EXPECT_TRUE(info.append("A quiet world."));
    EXPECT_EQ(store.keys, (Keys{{"Info", "A quiet world."}}));
    EXPECT_TRUE(info.remove(1));
    EXPECT_TRUE(store.keys.empty());
}

TEST(Flags, CharactersAndIndexes) {
    EXPECT_EQ(FlagIndex(""), 0);
    EXPECT_EQ(FlagIndex("a"), 26);  // not a capital: its numeric value 0, + 26
    for (int index = 0; index < kFlagCount; ++index)
        EXPECT_EQ(FlagIndex(std::string(1, FlagChar(index))), index) << index;
    EXPECT_EQ(FlagChar(99), 'A');
}

TEST(Flags, DescriptionsAndChooserItems) {
    test::MemoryMessageStore store;
    store.keys = {{"Flag7", "Door open"}};
    EXPECT_FALSE(IsUsableFlagDescription("Unused"));
    EXPECT_TRUE(SaveFlagDescription(store, 'C', "Met the ambassador"));
    EXPECT_EQ(store.keys.at("FlagC"), "Met the ambassador");
    const std::vector<std::string> items = LoadFlagItems(store);
    ASSERT_EQ(items.size(), 36u);
    EXPECT_EQ(items[2], "C - Met the ambassador");
    EXPECT_EQ(items[26], "0 - Unused");
    EXPECT_EQ(items[33], "7 - Door open");
    EXPECT_EQ(FlagItemDescription(items[2]), "Met the ambassador");
    store.failWrites = true;
    EXPECT_FALSE(SaveFlagDescription(store, 'D', "x"));
}

// A planet's keys in a real descriptor: reads ignore the custom-messages switch, empty values
// delete, and list changes keep the rest of the file.
class PlanetMessageStoreTest : public ::testing::Test {
  protected:
    void SetUp() override {
        game.writeDescriptor(test::TempGameFolder::systemRecord("Kestrel", 2),
                             test::crlf({"[2]", "Messages=1", "Message1=Welcome"}));
        system.LoadSystem("Kestrel");
    }
    std::string file() const { return game.read("ORBDescriptor/Kestrel.orb"); }

    test::TempGameFolder game;
    SystemStore system{game.folder()};
};

TEST_F(PlanetMessageStoreTest, ReadsWhateverTheSwitchSaysAndKeepsTheDescriptorWhole) {
    PlanetMessageStore planet(system, 2);
    EXPECT_EQ(system.GetPlanetKey(2, "Message1"), "NO");
    EXPECT_EQ(planet.GetMessage("Message1"), "Welcome");
    EXPECT_EQ(planet.GetMessage("Message2"), "ERR");
    EXPECT_EQ(PlanetMessageStore(system, 1).GetMessage("Message1"), "ERR");

    EXPECT_TRUE(planet.PutMessage("FlagC", "Met the ambassador"));
    EXPECT_TRUE(planet.PutMessage("Message1", ""));
    EXPECT_TRUE(planet.PutMessage("Message9", ""));  // already absent
    EXPECT_EQ(file().find("Message1="), std::string::npos);
    EXPECT_NE(file().find("[2]\r\nMessages=1\r\nFlagC=Met the ambassador\r\n"), std::string::npos);

    // List changes keep the rest of the descriptor; a new list's count key comes first.
    MessageList list(planet, "Hail", Direction::Response);
    ASSERT_TRUE(list.append("Who are you?*MWho"));
    ASSERT_TRUE(list.append("Goodbye*MBack"));
    ASSERT_TRUE(list.remove(1));
    EXPECT_EQ(list.lines(), std::vector<std::string>{"Goodbye*MBack"});
    EXPECT_NE(file().find(
                  "FlagC=Met the ambassador\r\nResponsesHail=1\r\nResponseHail1=Goodbye*MBack\r\n"),
              std::string::npos);
    EXPECT_NE(file().find(";430,2,0,0,1,0\r\n"), std::string::npos);
}

}  // namespace
}  // namespace orr
