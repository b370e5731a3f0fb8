#include "store/Tables.h"

#include <gtest/gtest.h>

#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::TempGameFolder;
using test::writeBytes;

TEST(TablesTest, TablesLineUpWithTheirIndexes) {
    // Types 3 and 4 share their name; only the menu tells them apart.
    EXPECT_EQ(Tables::StarTypeNames[3], Tables::StarTypeNames[4]);
    EXPECT_EQ(Tables::StarTypeMenuCaptions[3], "Binary System (Black Hole)");
    EXPECT_EQ(Tables::StarTypeMenuCaptions[4], "Binary System");
    EXPECT_EQ(Tables::ClassCaptions[0], "- - Asteroid Belt");
    for (std::size_t c = 1; c < Tables::ClassCaptions.size(); ++c) {
        EXPECT_EQ(Tables::ClassCaptions[c][0], static_cast<char>('A' + c - 1)) << c;
    }
    EXPECT_EQ(Tables::RomanNumerals[0], "");
    EXPECT_EQ(Tables::RomanNumerals[12], "XII");
    EXPECT_EQ(Tables::ShipSystemNames[8], "Library Computer");
}

TEST(TablesTest, AlienNamesComeFromTheFile) {
    TempGameFolder game;
    Tables tables;
    ASSERT_TRUE(tables.InitTables(game.root() / "aliens.txt"));
    EXPECT_EQ(tables.AlienNames[0], "");
    EXPECT_EQ(tables.AlienNames[1], "Klaxi");
    EXPECT_EQ(tables.AlienNames[3], "Vessari");
    EXPECT_EQ(tables.AlienNames[4], "");
    EXPECT_EQ(tables.AlienNames[255], "");
}

TEST(TablesTest, AnyLineEndStyleAndBytesKept) {
    TempGameFolder game;
    const fs::path file = game.root() / "aliens.txt";
    writeBytes(file, std::string_view("A\r\nB\nC\rD\r\n\r\nF\xe9\0x", 16));
    Tables tables;
    ASSERT_TRUE(tables.InitTables(file));
    EXPECT_EQ(tables.AlienNames[1], "A");
    EXPECT_EQ(tables.AlienNames[2], "B");
    EXPECT_EQ(tables.AlienNames[3], "C");
    EXPECT_EQ(tables.AlienNames[4], "D");
    EXPECT_EQ(tables.AlienNames[5], "");
    EXPECT_EQ(tables.AlienNames[6], std::string("F\xe9\0x", 4));
    EXPECT_EQ(tables.AlienNames[7], "");
}

TEST(TablesTest, AtMost255LinesAreRead) {
    TempGameFolder game;
    const fs::path file = game.root() / "aliens.txt";
    std::string bytes;
    for (int n = 1; n <= 300; ++n) bytes += "Race " + std::to_string(n) + "\r\n";
    writeBytes(file, bytes);
    Tables tables;
    ASSERT_TRUE(tables.InitTables(file));
    EXPECT_EQ(tables.AlienNames[1], "Race 1");
    EXPECT_EQ(tables.AlienNames[255], "Race 255");
    EXPECT_EQ(tables.AlienNames[0], "");
}

TEST(TablesTest, MissingFileLeavesNamesEmpty) {
    TempGameFolder game;
    Tables tables;
    ASSERT_TRUE(tables.InitTables(game.root() / "aliens.txt"));
    fs::remove(game.root() / "aliens.txt");
    EXPECT_FALSE(tables.InitTables(game.root() / "aliens.txt"));
    for (const std::string& name : tables.AlienNames) EXPECT_EQ(name, "");
    EXPECT_FALSE(tables.InitTables(game.root()));  // a folder is no file either
}

TEST(TablesTest, StoreReadsAliensWhateverTheirCase) {
    TempGameFolder game;
    fs::rename(game.root() / "aliens.txt", game.root() / "ALIENS.TXT");
    SystemStore store(game.folder());
    EXPECT_TRUE(store.InitTables());
    EXPECT_EQ(store.tables().AlienNames[2], "Ormu");
    fs::remove(game.root() / "ALIENS.TXT");
    EXPECT_FALSE(store.InitTables());
    EXPECT_EQ(store.tables().AlienNames[2], "");
}

}  // namespace
}  // namespace orr
