// The system record's packed fields and display name, and the alien names read from the game.
#include <gtest/gtest.h>

#include "store/SystemRecord.h"
#include "store/SystemStore.h"
#include "store/Tables.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::TempGameFolder;
using test::writeBytes;

TEST(SystemModelTest, AttributesPackAndStayWithinTheirBits) {
    const PlanetAttributes a{2, 3, 1, 0, 7};
    EXPECT_EQ(a.pack(), 46087);
    EXPECT_EQ(PlanetAttributes::unpack(46087), a);
    const PlanetAttributes all{3, 3, 3, 3, 255};
    EXPECT_EQ(all.pack(), 65535);

    // Out-of-range values must not spill into the neighbouring sub-field.
    EXPECT_EQ(PlanetAttributes::unpack(PlanetAttributes{4, 5, -1, 0, 300}.pack()),
              (PlanetAttributes{0, 1, 3, 0, 300 % 256}));
    // A damaged word from a file still yields option indexes 0..3.
    EXPECT_EQ(PlanetAttributes::unpack(-1), all);
}

TEST(SystemModelTest, DisplayNameIsAlwaysTwentyCharacters) {
    SystemRecord record;
    EXPECT_EQ(record.DisplayName, std::string(20, ' '));
    record.setDisplayName("Sol");
    EXPECT_EQ(record.DisplayName, "Sol" + std::string(17, ' '));
    record.setDisplayName("ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_EQ(record.DisplayName, "ABCDEFGHIJKLMNOPQRST");
    record.setDisplayName("  Sol  ");
    EXPECT_EQ(record.trimmedDisplayName(), "Sol");
}

TEST(SystemModelTest, AlienNamesAreTheFilesLinesFromOne) {
    TempGameFolder game;
    const fs::path file = game.root() / "aliens.txt";
    Tables tables;
    // Any line end; 8-bit characters and NUL bytes are kept.
    writeBytes(file, std::string_view("A\r\nB\nC\rD\r\n\r\nF\xe9\0x", 16));
    ASSERT_TRUE(tables.InitTables(file));
    const std::string expected[] = {"", "A", "B", "C", "D", "", std::string("F\xe9\0x", 4), ""};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(tables.AlienNames[i], expected[i]) << i;

    std::string many;
    for (int n = 1; n <= 300; ++n) many += "Race " + std::to_string(n) + "\r\n";
    writeBytes(file, many);
    ASSERT_TRUE(tables.InitTables(file));
    EXPECT_EQ(tables.AlienNames[255], "Race 255");
}

TEST(SystemModelTest, MissingAlienFileLeavesNamesEmpty) {
    TempGameFolder game;
    fs::rename(game.root() / "aliens.txt", game.root() / "ALIENS.TXT");
    SystemStore store(game.folder());
    EXPECT_TRUE(store.InitTables());  // found whatever its letter case
    EXPECT_EQ(store.tables().AlienNames[2], "Ormu");
    fs::remove(game.root() / "ALIENS.TXT");
    EXPECT_FALSE(store.InitTables());
    for (const std::string& name : store.tables().AlienNames) EXPECT_EQ(name, "");
    Tables tables;
    EXPECT_FALSE(tables.InitTables(game.root()));  // a folder is no file either
}

}  // namespace
}  // namespace orr
