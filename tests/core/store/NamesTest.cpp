// Planet and star names, and the raw key and section rewrites of the profile layer as the
// store applies them to the open descriptor.
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;

class NamesTest : public StoreTest {
  protected:
    void SetUp() override { store.record().Name = "Nova"; }
};

TEST_F(NamesTest, DefaultNamesUseTheTrimmedBaseAndRomanNumerals) {
    writeDescriptor("Nova", crlf({"[General]", "[Names]", "1=", "3=Vega"}));
    const std::string base = "Sol" + std::string(17, ' ');
    EXPECT_EQ(store.GetName(2, base), "Sol II");
    EXPECT_EQ(store.GetName(1, base), "Sol I");  // an empty value counts as absent
    EXPECT_EQ(store.GetName(3, base), "Vega");
    EXPECT_EQ(store.GetName(10, "  Far  "), "Far X");
    EXPECT_EQ(store.GetName(0, base), kNotUsed);
}

TEST_F(NamesTest, SetNameWritesOrDeletes) {
    writeDescriptor("Nova", crlf({"[General]"}));
    ASSERT_TRUE(store.SetName(0, "A bright star"));
    ASSERT_TRUE(store.SetName(2, "Ember"));
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "[Names]", "S=A bright star", "2=Ember"}));
    EXPECT_EQ(store.GetName(0, "x"), "A bright star");
    ASSERT_TRUE(store.SetName(2, ""));
    ASSERT_TRUE(store.SetName(0, ""));
    EXPECT_EQ(store.GetName(2, "Nova"), "Nova II");
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "[Names]"}));
}

TEST_F(NamesTest, DeleteKeyComparesTheRawKey) {
    writeDescriptor(
        "Nova", crlf({"[Names]", "S=Sol", "3=Vega", "4=Rigel", "3 =Other", "[1]", "3=Planet key"}));
    ASSERT_TRUE(store.DeleteKey("Names", "3"));
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[Names]", "S=Sol", "4=Rigel", "3 =Other", "[1]", "3=Planet key"}));
}

TEST_F(NamesTest, RemovePlanetSectionKeepsTheOthers) {
    writeDescriptor("Nova", crlf({"[General]", "a=0", "[1]", "a=1", "[2]", "b=2", "c=3", "[3]",
                                  "d=4", "[Names]", "2=Two"}));
    ASSERT_TRUE(store.RemovePlanetSection(2));
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "a=0", "[1]", "a=1", "[3]", "d=4", "[Names]", "2=Two"}));
    ASSERT_TRUE(store.RemovePlanetSection(0));  // [General] and [Names] are never removed
    EXPECT_TRUE(store.SectionExists("General"));
    EXPECT_TRUE(store.SectionExists("Names"));
    EXPECT_FALSE(store.SectionExists("2"));
    EXPECT_FALSE(store.SectionExists("names"));  // the raw test is case-sensitive
}

TEST_F(NamesTest, WritesGoToTheOpenWorkingCopy) {
    writeDescriptor("Nova", crlf({"[General]", ";SolarSystem", ";\"Nova\",0,0"}));
    ASSERT_TRUE(store.BeginEdit({}));
    ASSERT_TRUE(store.SetName(1, "Ember"));
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", ";SolarSystem", ";\"Nova\",0,0"}));
    EXPECT_NE(readDescriptor("Nova.edt").find("1=Ember"), std::string::npos);
    EXPECT_EQ(store.openDescriptorPath(), game.descriptor("Nova.edt"));
}

TEST_F(NamesTest, NoOpenSystemWritesNothing) {
    store.record().Name.clear();
    EXPECT_FALSE(store.WriteKey("Names", "1", "x"));
    EXPECT_EQ(store.lastError(), "No system is open.");
    EXPECT_FALSE(store.BeginEdit({}));
    EXPECT_TRUE(fs::is_empty(game.descriptors()));
    EXPECT_EQ(store.ReadKey("Names", "1"), kNotUsed);
}

TEST_F(NamesTest, RewritesOfAMissingDescriptorFail) {
    EXPECT_FALSE(store.DeleteKey("Names", "1"));
    EXPECT_FALSE(store.RemovePlanetSection(1));
    EXPECT_NE(store.lastError(), "");
    EXPECT_FALSE(store.SectionExists("General"));
    // The profile write creates the file, as the platform's does.
    EXPECT_TRUE(store.WriteKey("Names", "1", "x"));
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[Names]", "1=x"}));
}

}  // namespace
}  // namespace orr
