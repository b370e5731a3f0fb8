// Key names of the message lists and the list changes the editor and the command-line tool make.

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "messages/MessageList.h"

namespace orr {
namespace {

using Lines = std::vector<std::string>;
using Keys = std::map<std::string, std::string>;

TEST(MessageKeys, KeyTable) {
    const auto keys = [](const char* group, Direction direction) {
        const MessageKeyPair pair = messageKeys(group, direction);
        return pair.countKey + " " + pair.itemKey(1);
    };
    EXPECT_EQ(keys("INIT", Direction::Message), "Messages Message1");
    EXPECT_EQ(keys("", Direction::Message), "Messages Message1");
    EXPECT_EQ(keys("INIT", Direction::Response), "Responses Response1");
    EXPECT_EQ(keys("Hail", Direction::Message), "MessagesHail MessageHail1");
    EXPECT_EQ(keys("BeamUp", Direction::Message), "MessagesBeamUp MessageBeamUp1");
    EXPECT_EQ(keys("Beam", Direction::Message), "BeamMessages Beam1");
    EXPECT_EQ(keys("Beam", Direction::Response), "ResponsesBeam ResponseBeam1");
    EXPECT_EQ(keys("Hail", Direction::Information), " Info");
    EXPECT_EQ(messageKeys("Hail", Direction::Response).itemKey(12), "ResponseHail12");
    EXPECT_EQ(ignoreGroup("Hail"), "IgnoreHail");
    EXPECT_EQ(ignoreGroup("INIT"), "Ignore");
    EXPECT_EQ(phaserGroup("Hail"), "HailPhaser");
    EXPECT_EQ(phaserGroup(""), "Phaser");
    EXPECT_EQ(keys("IgnoreHail", Direction::Message), "MessagesIgnoreHail MessageIgnoreHail1");
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

TEST_F(MessageListTest, RemovingTheSecondOfThree) {
    EXPECT_TRUE(list.remove(2));
    EXPECT_EQ(store.keys,
              (Keys{{"MessagesHail", "2"}, {"MessageHail1", "one"}, {"MessageHail2", "three"}}));
    EXPECT_FALSE(list.remove(3));
    EXPECT_FALSE(list.remove(0));
    EXPECT_TRUE(list.remove(2));
    EXPECT_TRUE(list.remove(1));
    EXPECT_EQ(store.keys, (Keys{{"MessagesHail", "0"}}));
}

TEST_F(MessageListTest, RemovingKeepsAMissingLineMissing) {
    store.keys.erase("MessageHail3");
    EXPECT_TRUE(list.remove(1));
    EXPECT_EQ(store.keys, (Keys{{"MessagesHail", "2"}, {"MessageHail1", "two"}}));
}

TEST_F(MessageListTest, ClearAllKeepsTheOldLinesUntilOverwritten) {
    EXPECT_TRUE(list.clearAll());
    EXPECT_EQ(store.keys.at("MessagesHail"), "0");
    EXPECT_EQ(store.keys.at("MessageHail3"), "three");
    EXPECT_TRUE(list.lines().empty());
    EXPECT_TRUE(list.append("new"));
    EXPECT_EQ(store.keys.at("MessagesHail"), "1");
    EXPECT_EQ(list.lines(), Lines{"new"});
}

TEST_F(MessageListTest, SwapAndStore) {
    EXPECT_TRUE(list.swap(2));
    EXPECT_EQ(list.lines(), (Lines{"one", "three", "two"}));
    EXPECT_FALSE(list.swap(3));
    EXPECT_FALSE(list.swap(0));
    EXPECT_TRUE(list.store(1, "first"));
    EXPECT_TRUE(list.append("four"));
    EXPECT_EQ(list.lines(), (Lines{"first", "three", "two", "four"}));
}

TEST_F(MessageListTest, FailedWritesAreReported) {
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

}  // namespace
}  // namespace orr
