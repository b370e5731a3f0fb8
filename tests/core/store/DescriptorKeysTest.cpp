// The keys of the open descriptor: planet and star names, the per-planet flags of [General],
// reads with the game's limits, the raw key and section rewrites, SwapPlanets, and the planet
// count routines that keep the flags in step.
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;

class DescriptorKeysTest : public StoreTest {
  protected:
    void SetUp() override { store.record().Name = "Nova"; }
};

TEST_F(DescriptorKeysTest, DefaultNamesUseTheTrimmedBaseAndRomanNumerals) {
    writeDescriptor("Nova", crlf({"[General]", "[Names]", "1=", "3=Vega"}));
    const std::string base = "Sol" + std::string(17, ' ');
    EXPECT_EQ(store.GetName(2, base), "Sol II");
    EXPECT_EQ(store.GetName(1, base), "Sol I");  // an empty value counts as absent
    EXPECT_EQ(store.GetName(3, base), "Vega");
    EXPECT_EQ(store.GetName(10, "  Far  "), "Far X");
    EXPECT_EQ(store.GetName(0, base), kNotUsed);
}

TEST_F(DescriptorKeysTest, SetNameWritesOrDeletes) {
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

// The rules of both rewrites belong to the profile document; this shows the store uses them.
TEST_F(DescriptorKeysTest, DeleteKeyAndRemovePlanetSectionRewriteTheDescriptor) {
    writeDescriptor("Nova", crlf({"[Names]", "3=Vega", "3 =Other", "[1]", "3=Planet key", "[2]",
                                  "b=2", "[3]"}));
    ASSERT_TRUE(store.DeleteKey("Names", "3"));
    ASSERT_TRUE(store.RemovePlanetSection(2));
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[Names]", "3 =Other", "[1]", "3=Planet key", "[3]"}));
}

TEST_F(DescriptorKeysTest, WithoutSystemOrDescriptorNothingIsRewritten) {
    EXPECT_FALSE(store.DeleteKey("Names", "1"));
    EXPECT_FALSE(store.RemovePlanetSection(1));
    EXPECT_NE(store.lastError(), "");
    // The profile write creates the file, as the platform's does.
    EXPECT_TRUE(store.WriteKey("Names", "1", "x"));
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[Names]", "1=x"}));

    store.record().Name.clear();
    EXPECT_FALSE(store.WriteKey("Names", "1", "y"));
    EXPECT_EQ(store.lastError(), "No system is open.");
    EXPECT_EQ(test::entryNames(game.descriptors()), std::vector<std::string>{"Nova.orb"});
}

TEST_F(DescriptorKeysTest, ReadKeyHasTheGameLimits) {
    writeDescriptor("Nova", "[General]\r\nLong=" + std::string(300, 'a') + "\r\nNul=ab" +
                                std::string(1, '\0') + "cd\r\nEmpty=\r\nSpaced =  v  \r\n");
    EXPECT_EQ(store.ReadKey("General", "Long"), std::string(254, 'a'));
    EXPECT_EQ(store.ReadKey("General", "Nul"), "ab");
    EXPECT_EQ(store.ReadKey("General", "Empty"), "");
    EXPECT_EQ(store.ReadKey("general", "SPACED"), "v");
    EXPECT_EQ(store.ReadKey("General", "Absent"), kNotUsed);
    EXPECT_EQ(store.ReadKey("Absent", "Long"), kNotUsed);
}

TEST_F(DescriptorKeysTest, FlagCharactersAndAMissingKey) {
    SystemRecord record;
    record.Name = "Nova";
    record.PlanetCount = 3;
    writeDescriptor("Nova", newDescriptorText(record));
    EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, 3), 0);  // a new system has no flags set
    // Beyond the text there is no character, which reads as yes.
    EXPECT_TRUE(store.HasCustomPictures(4));
    EXPECT_FALSE(store.HasCustomPictures(2));

    writeDescriptor("Nova", crlf({"[General]", "PlanetPics=1YPVNy0 "}));
    EXPECT_EQ(store.GetGeneralFlag(kMessagesFlag, 1), -2);
    const int expected[] = {1, 1, 1, 1, 0, 0, 0, 1};
    for (int n = 1; n <= 8; ++n) EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, n), expected[n - 1]);
}

TEST_F(DescriptorKeysTest, SetGeneralFlagFitsTheTextToTheCount) {
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics = NNN", "Messages = NNN"}));
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 2, 4, true));
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "PlanetPics = NNN", "Messages=NYNN"}));
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 0, 1, true));  // cuts, sets nothing
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "N");
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 5, 2, true));  // beyond the count
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NN");
    // A missing key starts from count times "N".
    ASSERT_TRUE(store.SetGeneralFlag("Other", 3, 3, true));
    EXPECT_EQ(store.ReadKey("General", "Other"), "NNY");
}

TEST_F(DescriptorKeysTest, GetPlanetKeyHonoursTheMessagesFlag) {
    writeDescriptor(
        "Nova", crlf({"[General]", "Messages=YN", "[1]", "Hail=Greetings", "[2]", "Hail=Go away"}));
    EXPECT_EQ(store.GetPlanetKey(1, "Hail"), "Greetings");
    EXPECT_EQ(store.GetPlanetKey(1, "Absent"), kErr);
    EXPECT_EQ(store.GetPlanetKey(2, "Hail"), "NO");
    EXPECT_EQ(store.GetPlanetKey(2, "Hail", true), "Go away");
    EXPECT_EQ(store.GetPlanetKey(2, "Absent", true), kErr);
    EXPECT_EQ(store.GetPlanetKey(3, "Hail"), kErr);  // beyond the flags: uses messages
    // Without the Messages key every planet uses its messages.
    writeDescriptor("Nova", crlf({"[General]", "[2]", "Hail=Hi"}));
    EXPECT_EQ(store.GetPlanetKey(2, "Hail"), "Hi");
}

// Its section, name and flags going is shown by the deletePlanet test.
TEST_F(DescriptorKeysTest, RemoveLastPlanetLeavesItsSlotForTheNextPlanet) {
    openNewSystem("Nova", 3);
    store.record().planet(3) = {460, 2, 12, 46087, 9, 3, 0};
    ASSERT_TRUE(store.RemoveLastPlanet());
    EXPECT_EQ(store.record().PlanetCount, 2);
    // The freed slot gives its values to the next planet, but for its class and size.
    ASSERT_TRUE(store.AddPlanet());
    EXPECT_EQ(store.record().planet(3), (PlanetRecord{460, 2, 12, 46087, 1, 3, 0}));

    for (int n = 0; n < 3; ++n) ASSERT_TRUE(store.RemoveLastPlanet());
    EXPECT_EQ(store.ReadKey("General", kPlanetPics), "");
    EXPECT_FALSE(store.RemoveLastPlanet());
    EXPECT_EQ(store.record().PlanetCount, 0);
}

// SwapPlanets rewrites flags, names and section headers and exchanges the records, while the
// orbits stay with their slots.
class SwapPlanetsTest : public DescriptorKeysTest {
  protected:
    void SetUp() override {
        DescriptorKeysTest::SetUp();
        store.record().PlanetCount = 3;
        for (std::int16_t n = 1; n <= 3; ++n) {
            store.record().planet(n) = {static_cast<std::int16_t>(300 + 100 * n),
                                        n,
                                        static_cast<std::int16_t>(10 * n),
                                        0,
                                        static_cast<std::int16_t>(n + 1),
                                        0,
                                        std::uint32_t(n)};
        }
    }
};

TEST_F(SwapPlanetsTest, ExchangesFlagsNamesAndSections) {
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics=YNN", "Messages=NNY", "", ";SolarSystem",
                                  "[Names]", "S=Star", "1=Vega", "3=Rigel", "[1]", "Hail=One",
                                  "[2]", "Hail=Two", "[3]", "Hail=Three"}));
    ASSERT_TRUE(store.SwapPlanets(1, 3)) << store.lastError();
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "PlanetPics=NNY", "Messages=YNN", "", ";SolarSystem", "[Names]",
                    "S=Star", "3=Vega", "1=Rigel", "[3]", "Hail=One", "[2]", "Hail=Two", "[1]",
                    "Hail=Three"}));
    EXPECT_EQ(store.record().planet(1), (PlanetRecord{400, 3, 30, 0, 4, 0, 3}));
    EXPECT_EQ(store.record().planet(3), (PlanetRecord{600, 1, 10, 0, 2, 0, 1}));
}

TEST_F(SwapPlanetsTest, KeepsLinesItDoesNotChange) {
    // Blanks around "=" in flags, name keys with blanks, headers with text after "]", and a
    // flag text shorter than the planets (a missing character reads as yes and stays yes).
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics = YN", "Other=YN", "[Names]", "2 =Two",
                                  "12=Twelve", "S=Star", "[2] planet two", "x=1", "[12]", "[1]"}));
    ASSERT_TRUE(store.SwapPlanets(2, 3));
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "PlanetPics=YYN", "Other=YN", "[Names]", "3=Two", "12=Twelve",
                    "S=Star", "[3] planet two", "x=1", "[12]", "[1]"}));
}

}  // namespace
}  // namespace orr
