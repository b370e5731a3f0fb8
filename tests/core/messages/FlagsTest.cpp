// Flag characters, indexes and descriptions.

#include <gtest/gtest.h>

#include "core/messages/support/MemoryMessageStore.h"
#include "messages/Flags.h"

namespace orr {
namespace {

TEST(Flags, CharactersAndIndexes) {
    EXPECT_EQ(FlagIndex("A"), 0);
    EXPECT_EQ(FlagIndex("Z"), 25);
    EXPECT_EQ(FlagIndex("0"), 26);
    EXPECT_EQ(FlagIndex("7"), 33);
    EXPECT_EQ(FlagIndex(""), 0);
    EXPECT_EQ(FlagIndex("a"), 26);  // not a capital: its numeric value 0, + 26
    for (int index = 0; index < kFlagCount; ++index)
        EXPECT_EQ(FlagIndex(std::string(1, FlagChar(index))), index) << index;
    EXPECT_EQ(FlagChar(33), '7');
    EXPECT_EQ(FlagChar(99), 'A');
}

TEST(Flags, ItemsShowDescriptionsOrUnused) {
    test::MemoryMessageStore store;
    store.keys = {{"FlagC", "Met the ambassador"}, {"Flag7", "Door open"}};
    const std::vector<std::string> items = LoadFlagItems(store);
    ASSERT_EQ(items.size(), 36u);
    EXPECT_EQ(items[0], "A - Unused");
    EXPECT_EQ(items[2], "C - Met the ambassador");
    EXPECT_EQ(items[26], "0 - Unused");
    EXPECT_EQ(items[33], "7 - Door open");
    EXPECT_EQ(FlagItemDescription(items[2]), "Met the ambassador");
    EXPECT_EQ(FlagDescription(store, 'Z'), "Unused");
}

TEST(Flags, SavingADescription) {
    test::MemoryMessageStore store;
    EXPECT_FALSE(IsUsableFlagDescription(""));
    EXPECT_FALSE(IsUsableFlagDescription("Unused"));
    EXPECT_TRUE(IsUsableFlagDescription("Met the ambassador"));
    EXPECT_TRUE(SaveFlagDescription(store, 'C', "Met the ambassador"));
    EXPECT_EQ(store.keys.at("FlagC"), "Met the ambassador");
    store.failWrites = true;
    EXPECT_FALSE(SaveFlagDescription(store, 'D', "x"));
}

}  // namespace
}  // namespace orr
