// The system record's packed fields, and the alien names read from the game. (The display name's
// twenty characters show in the session's and the system list's tests.)
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

TEST(SystemModelTest, AttributesPackAndStayWithinTheirBits) {
    EXPECT_EQ((PlanetAttributes{2, 3, 1, 0, 7}.pack()), 46087);
    EXPECT_EQ(PlanetAttributes::unpack(46087), (PlanetAttributes{2, 3, 1, 0, 7}));
    // Out-of-range values must not spill into the neighbouring sub-field, and a damaged word
    // from a file still yields option indexes 0..3.
    EXPECT_EQ(PlanetAttributes::unpack(PlanetAttributes{4, 5, -1, 0, 300}.pack()),
              (PlanetAttributes{0, 1, 3, 0, 300 % 256}));
    EXPECT_EQ(PlanetAttributes::unpack(-1), (PlanetAttributes{3, 3, 3, 3, 255}));
}

TEST(SystemModelTest, AlienNamesAreTheFilesLinesFromOne) {
    test::TempGameFolder game;
    fs::remove(game.root() / "aliens.txt");
    SystemStore store(game.folder());
    std::string many = std::string("A\r\nB\nC\rD\r\n\r\nF\xe9\0x\r\n", 18);  // any line end
    for (int n = 7; n <= 300; ++n) many += "Race " + std::to_string(n) + "\r\n";
    test::writeBytes(game.root() / "ALIENS.TXT", many);  // found whatever its letter case
    ASSERT_TRUE(store.InitTables());
    const std::string expected[] = {"", "A", "B", "C", "D", "", std::string("F\xe9\0x", 4)};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(store.tables().AlienNames[i], expected[i]) << i;
    EXPECT_EQ(store.tables().AlienNames[255], "Race 255");

    fs::remove(game.root() / "ALIENS.TXT");
    EXPECT_FALSE(store.InitTables());
    for (const std::string& name : store.tables().AlienNames) EXPECT_EQ(name, "");
}

}  // namespace
}  // namespace orr
