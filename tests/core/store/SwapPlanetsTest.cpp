// SwapPlanets: the raw rewrite of flags, names and section headers, and the record exchange
// that leaves the orbits with their slots.
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;

class SwapPlanetsTest : public StoreTest {
  protected:
    void SetUp() override {
        store.record().Name = "Nova";
        store.record().PlanetCount = 3;
        for (int n = 1; n <= 3; ++n) {
            PlanetRecord& p = store.record().planet(n);
            p.Position = static_cast<std::int16_t>(300 + 100 * n);
            p.Size = static_cast<std::int16_t>(n);
            p.Moons = static_cast<std::int16_t>(10 * n);
            p.PlanetClass = static_cast<std::int16_t>(n + 1);
            p.TestFlags = n;
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
    EXPECT_EQ(store.GetName(1, "Nova"), "Rigel");
    EXPECT_EQ(store.GetPlanetKey(3, "Hail", true), "One");

    const PlanetRecord& slot1 = store.record().planet(1);
    EXPECT_EQ(slot1.Position, 400);  // the orbit stays with the slot
    EXPECT_EQ(slot1.Size, 3);        // everything else is the former planet 3
    EXPECT_EQ(slot1.Moons, 30);
    EXPECT_EQ(slot1.PlanetClass, 4);
    EXPECT_EQ(slot1.TestFlags, 3u);
    EXPECT_EQ(store.record().planet(3).Position, 600);
    EXPECT_EQ(store.record().planet(3).Size, 1);
}

TEST_F(SwapPlanetsTest, KeepsLinesItDoesNotChange) {
    // Blanks around "=" in flags, name keys with blanks, headers with text after "]", and a
    // flag text shorter than the planets (a missing character reads as yes and stays yes).
    const std::string before =
        crlf({"[General]", "PlanetPics = YN", "Other=YN", "[Names]", "2 =Two", "12=Twelve",
              "S=Star", "[2] planet two", "x=1", "[12]", "[1]"});
    writeDescriptor("Nova", before);
    store.record().PlanetCount = 3;
    ASSERT_TRUE(store.SwapPlanets(2, 3));
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "PlanetPics=YYN", "Other=YN", "[Names]", "3=Two", "12=Twelve",
                    "S=Star", "[3] planet two", "x=1", "[12]", "[1]"}));
    EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, 2), 1);
    EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, 3), 0);
}

TEST_F(SwapPlanetsTest, PlanetNumbersOutsideTheSystemDoNothing) {
    const std::string before = crlf({"[General]", "PlanetPics=YNN", "[1]", "a=1"});
    writeDescriptor("Nova", before);
    const SystemRecord record = store.record();
    for (const auto& [a, b] : {std::pair{0, 1}, {1, 4}, {4, 1}, {-1, 2}}) {
        EXPECT_FALSE(store.SwapPlanets(a, b)) << a << "," << b;
        EXPECT_NE(store.lastError().find("no planet"), std::string::npos);
    }
    EXPECT_TRUE(store.SwapPlanets(2, 2));
    EXPECT_EQ(readDescriptor("Nova.orb"), before);
    EXPECT_EQ(store.record(), record);
}

TEST_F(SwapPlanetsTest, MissingDescriptorLeavesTheRecord) {
    const SystemRecord record = store.record();
    EXPECT_FALSE(store.SwapPlanets(1, 2));
    EXPECT_EQ(store.record(), record);
}

}  // namespace
}  // namespace orr
