// Whole systems: which names are usable, the new descriptor, the refusals, and deleting exactly
// this system's files.
#include <gtest/gtest.h>

#include <algorithm>

#include "store/PictureFiles.h"
#include "store/SystemList.h"
#include "store/SystemName.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::entryNames;
using test::StoreTest;
using test::writeBytes;
using Names = std::vector<std::string>;

TEST(SystemNameTest, UsableNames) {
    for (const char* name :
         {"9Sol", "New Haven", "Sol.II", "K\xe4rnten", "CONSOLE", "COM0", "LPT10"}) {
        EXPECT_EQ(CheckSystemName(name), std::nullopt) << name;
    }
    EXPECT_EQ(CheckSystemName(std::string(200, 'x')), std::nullopt);
}

TEST(SystemNameTest, UnusableNamesGiveASentence) {
    for (char c : std::string("/\\:*?\"<>|")) {
        EXPECT_EQ(CheckSystemName(std::string("Sol") + c + "x"),
                  std::string("A system name cannot contain the character '") + c + "'.");
    }
    const std::pair<std::string, std::string> cases[] = {
        {"", "A system name cannot be empty."},
        {".", "A system name cannot be \".\" or \"..\"."},
        {" Sol", "A system name cannot begin or end with a blank."},
        {".Sol", "A system name cannot begin or end with a dot."},
        {std::string(201, 'x'), "A system name can have at most 200 characters."},
        {"com1.x", "\"COM1\" is a device name reserved by Windows and cannot be a system name."},
        // Every forbidden character is named at once, each once.
        {"a/b:c/d?", "A system name cannot contain the characters '/', ':' and '?'."},
        {"a|b\tc",
         "A system name cannot contain the characters '|' or control characters such "
         "as tabs or line breaks."},
    };
    for (const auto& [name, reason] : cases) EXPECT_EQ(CheckSystemName(name), reason) << name;
    for (const std::string& name : Names{"Sol\tII", std::string("S\0l", 3), "S\x7fl"}) {
        EXPECT_EQ(CheckSystemName(name),
                  "A system name cannot contain control characters such as tabs or line breaks.");
    }
    for (const char* name : {"con", "Prn", "AUX", "NUL.txt", "com9", "LPT1"}) {
        EXPECT_NE(CheckSystemName(name).value_or("").find("reserved by Windows"), std::string::npos)
            << name;
    }
}

class SystemFilesTest : public StoreTest {
  protected:
    Names pictureNames(const std::string& name) {
        Names names;
        for (const fs::path& file : systemPictureFiles(game.folder(), name).paths())
            names.push_back(file.filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(SystemFilesTest, PictureFilesOfExactlyThisSystem) {
    for (const char* name :
         {"Sol.bmp", "sol.GIF", "SolSun.bmp", "SOLSUN.JPG", "Sol1.avi", "Sol10.AVI", "SolX.bmp",
          "SolXSun.bmp", "Sol11.avi", "Sol0.avi", "Sol01.avi", "Sol1.bmp", "Sol.x.bmp",
          "SolSun.x.bmp", "Sol", "Sol.", "Solar.bmp", "Vega.bmp"})
        writeBytes(game.pictures() / name, "picture");
    fs::create_directory(game.pictures() / "Sol.dir");
    EXPECT_EQ(pictureNames("Sol"),
              (Names{"SOLSUN.JPG", "Sol.bmp", "Sol1.avi", "Sol10.AVI", "SolSun.bmp", "sol.GIF"}));
    // "Sol1.avi" is animation 1 of Sol, not a picture of a system "Sol1".
    EXPECT_EQ(pictureNames("Sol1"), (Names{"Sol1.bmp", "Sol11.avi"}));
    // With a system "SolSun", its strip is not Sol's star picture.
    writeDescriptor("SolSun", crlf({"[General]"}));
    EXPECT_EQ(pictureNames("Sol"), (Names{"Sol.bmp", "Sol1.avi", "Sol10.AVI", "sol.GIF"}));
    EXPECT_EQ(pictureNames(""), Names{});
}

TEST_F(SystemFilesTest, ANewSpellingRenamesTheSavedDescriptorToo) {
    openNewSystem("Sol", 2);
    ASSERT_TRUE(store.RenameSystem("SOL")) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"SOL.edt", "SOL.orb"}));
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
    ASSERT_TRUE(store.EndEdit(true)) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), Names{"SOL.orb"});
    EXPECT_NE(readDescriptor("SOL.orb").find(";\"SOL                 \",0,2"), std::string::npos);
}

TEST_F(SystemFilesTest, OverwritingTakesTheNewSpellingForTheOtherSystem) {
    writeDescriptor("Vega", crlf({"[General]", ";SolarSystem", ";\"Vega\",1,0"}));
    writeBytes(game.descriptor("vega.edt"), "an old backup of Vega");
    openNewSystem("Nova", 1);
    ASSERT_TRUE(store.RenameSystem("VEGA")) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "VEGA.edt", "VEGA.orb"}));
    ASSERT_TRUE(store.EndEdit(true)) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "VEGA.orb"}));
    EXPECT_NE(readDescriptor("VEGA.orb").find(",0,1\r\n"), std::string::npos);
}

// The game's start argument: the key's characters before their final inversion, as codes.
std::vector<int> plainCodes(const std::string& key) {
    std::vector<int> codes;
    for (char c : EncodeStarArgument(key)) codes.push_back(255 - static_cast<unsigned char>(c));
    return codes;
}

std::vector<int> padded(std::vector<int> codes, int blank = ' ') {
    codes.resize(21, blank);
    return codes;
}

TEST(EncodeStarArgumentTest, ListedKeysPassTheirPlanetCountCustomKeysAMark) {
    EXPECT_EQ(plainCodes("9Sol"), padded({255 - 246, 255 - 172, 255 - 144, 255 - 147}));
    EXPECT_EQ(static_cast<unsigned char>(EncodeStarArgument("9Sol")[20]), 223);
    const std::pair<std::string, std::vector<int>> cases[] = {
        {"10Vega", {10, 'V', 'e', 'g', 'a'}},
        {"0Test", {0, 'T', 'e', 's', 't'}},
        {"Nova", {254, 'N', 'o', 'v', 'a'}},
        {"-3Neg", {254, '-', '3', 'N', 'e', 'g'}},  // a negative number is no planet count
        {"253X", {253, 'X'}},
        {"254X", {25, '4', 'X'}},  // from 254 on, the first two characters are one number
        {"", {254}},
    };
    for (const auto& [key, head] : cases) EXPECT_EQ(plainCodes(key), padded(head)) << key;
    // The game takes 21 characters: a longer key is cut there.
    EXPECT_EQ(EncodeStarArgument("Nova" + std::string(30, 'a')).size(), 21u);
}

}  // namespace
}  // namespace orr
