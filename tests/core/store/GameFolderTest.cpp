#include "store/GameFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::TempGameFolder;
using test::writeBytes;

TEST(GameFolderTest, FindsItemsWhateverTheirLetterCase) {
    TempGameFolder game;
    fs::rename(game.root() / "SOLARSYS.TXT", game.root() / "SolarSys.txt");
    fs::rename(game.root() / "ORBDescriptor", game.root() / "orbdescriptor");
    fs::rename(game.root() / "voidrunner.exe", game.root() / "VOIDRUNNER.EXE");

    const GameFolder folder(game.root());
    EXPECT_EQ(folder.systemList(), game.root() / "SolarSys.txt");
    EXPECT_EQ(folder.descriptorFolder(), game.root() / "orbdescriptor");
    EXPECT_TRUE(folder.hasGameExecutable());
}

TEST(GameFolderTest, MissingItemsGetTheNamesTheGameUses) {
    TempGameFolder game;
    fs::remove_all(game.root() / "PICTURES");
    const GameFolder folder(game.root());
    EXPECT_EQ(folder.picturesFolder(), game.root() / "PICTURES");
    EXPECT_EQ(folder.installer(), game.root() / "ORBInst.dat");
    EXPECT_EQ(folder.specialCodes(), game.root() / "SPECIAL.LST");
    EXPECT_EQ(GameFolder::findInFolder(game.root() / "absent", "X.orb"),
              game.root() / "absent" / "X.orb");
}

TEST(GameFolderTest, ExactNameWinsOverOtherCases) {
    TempGameFolder game;
    writeBytes(game.root() / "ALIENS.TXT", "upper");
    EXPECT_EQ(GameFolder(game.root()).alienNames(), game.root() / "aliens.txt");
    EXPECT_EQ(GameFolder::findInFolder(game.root(), "Aliens.Txt"), game.root() / "ALIENS.TXT");
}

TEST(GameFolderTest, WithoutExecutableTheFolderIsNoGameFolder) {
    TempGameFolder game;
    fs::remove(game.root() / "voidrunner.exe");
    EXPECT_FALSE(GameFolder(game.root()).hasGameExecutable());
    fs::create_directory(game.root() / "voidrunner.exe");
    EXPECT_FALSE(GameFolder(game.root()).hasGameExecutable());
    EXPECT_FALSE(GameFolder().hasGameExecutable());
}

TEST(GameFolderTest, ListsFilesByExtensionInFolderOrder) {
    TempGameFolder game;
    const fs::path dir = game.descriptors();
    for (const char* name : {"Sol.orb", "Vega.ORB", "Nova.orb.bak", ".orb", "Rigel.edt"}) {
        writeBytes(dir / name, "");
    }
    fs::create_directory(dir / "Folder.orb");

    std::vector<std::string> expected;
    for (const auto& entry : fs::directory_iterator(dir)) {
        const std::string name = entry.path().filename().string();
        if (name == "Sol.orb" || name == "Vega.ORB") expected.push_back(name);
    }
    EXPECT_EQ(GameFolder::filesWithExtension(dir, ".orb"), expected);
    EXPECT_EQ(GameFolder::filesWithExtension(dir, ".edt"), std::vector<std::string>{"Rigel.edt"});
    EXPECT_TRUE(GameFolder::filesWithExtension(game.root() / "absent", ".orb").empty());
}

}  // namespace
}  // namespace orr
