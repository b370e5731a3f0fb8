// Whole systems: which names are usable, which picture files are exactly this system's, and the
// game's start argument.
#include <gtest/gtest.h>

#include <algorithm>

#include "store/PictureFiles.h"
#include "store/SystemName.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;
using Names = std::vector<std::string>;

TEST(SystemNameTest, UnusableNamesGiveASentence) {
    const std::string controls =
        "A system name cannot contain control characters such as tabs or line breaks.";
    const std::pair<std::string, std::string> cases[] = {
        {"9Sol", ""},
        {"K\xe4rnten Sol.II", ""},
        {"CONSOLE", ""},
        {"COM0", ""},
        {"LPT10", ""},
        {std::string(200, 'x'), ""},
        {"", "A system name cannot be empty."},
        {"..", "A system name cannot be \".\" or \"..\"."},
        {" Sol", "A system name cannot begin or end with a blank."},
        {".Sol", "A system name cannot begin or end with a dot."},
        {"Sol.", "A system name cannot begin or end with a dot."},
        {std::string(201, 'x'), "A system name can have at most 200 characters."},
        {"com1.x", "\"COM1\" is a device name reserved by Windows and cannot be a system name."},
        {"Prn", "\"PRN\" is a device name reserved by Windows and cannot be a system name."},
        {"a*b", "A system name cannot contain the character '*'."},
        {"\"<>", "A system name cannot contain the characters '\"', '<' and '>'."},
        // Every forbidden character is named at once, each once.
        {"a/b:c/d?\\", "A system name cannot contain the characters '/', ':', '?' and '\\'."},
        {"a|b\tc",
         "A system name cannot contain the characters '|' or control characters such "
         "as tabs or line breaks."},
        {std::string("S\0l", 3), controls},
        {"S\x7fl", controls},
    };
    for (const auto& [name, reason] : cases)
        EXPECT_EQ(CheckSystemName(name).value_or(""), reason) << name;
    for (const char* name : {"con", "AUX", "NUL.txt", "com9", "LPT1"})
        EXPECT_NE(CheckSystemName(name).value_or("").find("reserved by Windows"),
                  std::string::npos);
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
        test::writeBytes(game.pictures() / name, "picture");
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

// The start argument: the key's characters before their final inversion, as codes; listed keys
// pass their planet count, custom keys a mark; 21 characters, blank-padded.
TEST(EncodeStarArgumentTest, ListedKeysPassTheirPlanetCountCustomKeysAMark) {
    const std::pair<std::string, std::vector<int>> cases[] = {
        {"10Vega", {10, 'V', 'e', 'g', 'a'}},
        {"Nova", {254, 'N', 'o', 'v', 'a'}},
        {"-3Neg", {254, '-', '3', 'N', 'e', 'g'}},  // a negative number is no planet count
        {"253X", {253, 'X'}},
        {"254X", {25, '4', 'X'}},  // from 254 on, the first two characters are one number
        {"", {254}},
    };
    for (auto [key, codes] : cases) {
        codes.resize(21, ' ');
        std::vector<int> plain;
        for (char c : EncodeStarArgument(key)) plain.push_back(255 - static_cast<unsigned char>(c));
        EXPECT_EQ(plain, codes) << key;
    }
    EXPECT_EQ(EncodeStarArgument("Nova" + std::string(30, 'a')).size(), 21u);
}

}  // namespace
}  // namespace orr
