// The keys of the open descriptor: planet and star names, the per-planet flags of [General],
// reads with the game's limits, and SwapPlanets. (The planet count routines and the section
// rewrites are shown through the session's planet commands.)
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

TEST_F(DescriptorKeysTest, NamesDefaultToTheTrimmedBaseWithRomanNumerals) {
    writeDescriptor("Nova", crlf({"[General]", "[Names]", "1=", "3=Vega"}));
    const std::string base = "Sol" + std::string(17, ' ');
    EXPECT_EQ(store.GetName(1, base), "Sol I");  // an empty value counts as absent
    EXPECT_EQ(store.GetName(3, base), "Vega");
    EXPECT_EQ(store.GetName(10, "  Far  "), "Far X");
    EXPECT_EQ(store.GetName(0, base), kNotUsed);
    ASSERT_TRUE(store.SetName(0, "Star"));
    ASSERT_TRUE(store.SetName(3, ""));  // deletes
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "[Names]", "1=", "S=Star"}));
}

TEST_F(DescriptorKeysTest, WritesNeedAnOpenSystemAndReadsHaveTheGameLimits) {
    EXPECT_FALSE(store.DeleteKey("Names", "1"));  // no file to rewrite
    // The profile write creates the file, as the platform's does.
    EXPECT_TRUE(store.WriteKey("General", "Long", std::string(300, 'a')));
    store.record().Name.clear();
    EXPECT_FALSE(store.WriteKey("Names", "1", "y"));
    EXPECT_EQ(store.lastError(), "No system is open.");
    EXPECT_EQ(test::entryNames(game.descriptors()), std::vector<std::string>{"Nova.orb"});

    store.record().Name = "Nova";
    writeDescriptor("Nova",
                    readDescriptor("Nova.orb") + std::string("Nul=ab\0cd\r\nEmpty=\r\n", 19));
    EXPECT_EQ(store.ReadKey("general", "LONG"), std::string(254, 'a'));
    EXPECT_EQ(store.ReadKey("General", "Nul"), "ab");
    EXPECT_EQ(store.ReadKey("General", "Empty"), "");
    EXPECT_EQ(store.ReadKey("General", "Absent"), kNotUsed);
}

TEST_F(DescriptorKeysTest, FlagCharactersAreFittedToTheCount) {
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics=1YPVNy0 ", "Messages = NNN"}));
    const int expected[] = {1, 1, 1, 1, 0, 0, 0, 1};  // beyond the text: no character, yes
    for (int n = 1; n <= 8; ++n) EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, n), expected[n - 1]);
    EXPECT_FALSE(store.HasCustomPictures(5));
    EXPECT_TRUE(store.HasCustomPictures(9));
    EXPECT_EQ(store.GetGeneralFlag("Other", 1), -2);

    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 2, 4, true));
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NYNN");
    // No planet 0, none beyond the count: the text is only cut.
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 0, 3, true));
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 5, 2, true));
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NY");
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
    EXPECT_EQ(store.GetPlanetKey(3, "Hail"), kErr);  // beyond the flags: uses messages
    // Without the Messages key every planet uses its messages.
    writeDescriptor("Nova", crlf({"[General]", "[2]", "Hail=Hi"}));
    EXPECT_EQ(store.GetPlanetKey(2, "Hail"), "Hi");
}

// Flags, names and section headers are exchanged, the records too, while the orbits stay with
// their slots; lines it does not change keep their form.
TEST_F(DescriptorKeysTest, SwapPlanetsExchangesFlagsNamesAndSections) {
    store.record().PlanetCount = 3;
    for (std::int16_t n = 1; n <= 3; ++n)
        store.record().planet(n) = {static_cast<std::int16_t>(300 + 100 * n), n, 0, 0, 1, 0, 0};
    // A flag text shorter than the planets (a missing character reads as yes and stays yes),
    // blanks around "=", name keys with blanks, headers with text after "]".
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics = YN", "Messages=NNY", "Other=YN",
                                  "[Names]", "S=Star", "2=Vega", "3 =Rigel", "12=Twelve", "[2]",
                                  "Hail=Two", "[3] planet three", "x=1", "[12]", "[1]"}));
    ASSERT_TRUE(store.SwapPlanets(2, 3)) << store.lastError();
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "PlanetPics=YYN", "Messages=NYN", "Other=YN", "[Names]", "S=Star",
                    "3=Vega", "2=Rigel", "12=Twelve", "[3]", "Hail=Two", "[2] planet three", "x=1",
                    "[12]", "[1]"}));
    EXPECT_EQ(store.record().planet(2), (PlanetRecord{500, 3, 0, 0, 1, 0, 0}));
    EXPECT_EQ(store.record().planet(3), (PlanetRecord{600, 2, 0, 0, 1, 0, 0}));
}

}  // namespace
}  // namespace orr
