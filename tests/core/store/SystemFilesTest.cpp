// Whole systems: which names are usable, the new descriptor, the refusals, and deleting exactly
// this system's files.
#include <gtest/gtest.h>

#include <algorithm>

#include "store/SystemList.h"
#include "store/SystemName.h"
#include "store/SystemOperations.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
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
        for (const fs::path& file : systemPictureFiles(game.folder(), name))
            names.push_back(file.filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    void touchPictures(std::initializer_list<const char*> names) {
        for (const char* name : names) writeBytes(game.pictures() / name, "picture");
    }
};

TEST_F(SystemFilesTest, CustomSystemGetsAnEmptyDescriptor) {
    fs::remove_all(game.descriptors());  // made when missing
    store.record().planet(3).Moons = 7;
    EXPECT_EQ(canCreateSystem(store, "Nova"), std::nullopt);
    ASSERT_TRUE(createSystem(store, "Nova")) << store.lastError();
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "PlanetPics = ", "Messages = ", "",
                                                ";SolarSystem", ";\"Nova                \",0,0"}));
    const SystemRecord& r = store.record();
    EXPECT_EQ(r.Name, "Nova");
    EXPECT_EQ(r.PlanetCount, 0);
    EXPECT_EQ(r.planet(3).Moons, 7);  // unused slots keep their values
}

TEST_F(SystemFilesTest, ListedSystemTakesTheListRecord) {
    ASSERT_TRUE(createSystem(store, "9Sol"));
    const std::string text = readDescriptor("9Sol.orb");
    EXPECT_TRUE(text.starts_with(
        crlf({"[General]", "PlanetPics = NNNNNNNNN", "Messages = NNNNNNNNN", "", ";SolarSystem"})));
    EXPECT_NE(text.find(";560,3,1,46087,13,5\r\n"), std::string::npos);
    EXPECT_EQ(OfferedSystems(game.folder()), (Names{"0Vega", "3Sol"}));
}

TEST_F(SystemFilesTest, ACustomNameEqualToAListedKeyStaysCustom) {
    ASSERT_TRUE(createSystem(store, "9Sol", NewSystemAnswer::CustomName)) << store.lastError();
    EXPECT_EQ(readDescriptor("9Sol.orb"), crlf({"[General]", "PlanetPics = ", "Messages = ", "",
                                                ";SolarSystem", ";\"9Sol                \",0,0"}));
    EXPECT_EQ(store.record().PlanetCount, 0);
    EXPECT_EQ(canCreateSystem(store, "9sol", NewSystemAnswer::CustomName),
              "A system named \"9Sol\" already exists. Please choose another name.");
}

TEST_F(SystemFilesTest, RefusesExistingAndUnusableNames) {
    writeDescriptor("Nova", crlf({"[General]"}));
    EXPECT_EQ(canCreateSystem(store, "NOVA"), "A system named \"Nova\" already exists.");
    EXPECT_FALSE(createSystem(store, "nova"));
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]"}));
    EXPECT_EQ(canCreateSystem(store, "What?"), "A system name cannot contain the character '?'.");
    EXPECT_FALSE(createSystem(store, "CON"));
    EXPECT_EQ(test::entryNames(game.descriptors()), Names{"Nova.orb"});
}

TEST_F(SystemFilesTest, CreatingWhileEditingLeavesTheOpenSystem) {
    openNewSystem("Open", 2);
    const SystemRecord before = store.record();
    ASSERT_TRUE(createSystem(store, "Other"));
    EXPECT_EQ(store.record(), before);
    EXPECT_TRUE(fs::exists(game.descriptor("Other.orb")));
    EXPECT_EQ(store.openDescriptorPath(), game.descriptor("Open.edt"));
}

TEST_F(SystemFilesTest, PictureFilesOfExactlyThisSystem) {
    touchPictures({"Sol.bmp", "sol.GIF", "SolSun.bmp", "SOLSUN.JPG", "Sol1.avi", "Sol10.AVI",
                   "SolX.bmp", "SolXSun.bmp", "Sol11.avi", "Sol0.avi", "Sol01.avi", "Sol1.bmp",
                   "Sol.x.bmp", "SolSun.x.bmp", "Sol", "Sol.", "Solar.bmp", "Vega.bmp"});
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

TEST_F(SystemFilesTest, DeleteRemovesOnlyThisSystem) {
    writeDescriptor("Sol", crlf({"[General]"}));
    writeDescriptor("SolX", crlf({"[General]"}));
    touchPictures({"Sol.bmp", "SolSun.bmp", "Sol3.avi", "SolX.bmp", "SolXSun.bmp"});
    ASSERT_TRUE(deleteSystemFiles(store, "Sol"));
    EXPECT_EQ(test::entryNames(game.descriptors()), Names{"SolX.orb"});
    EXPECT_EQ(test::entryNames(game.pictures()), (Names{"SolX.bmp", "SolXSun.bmp"}));

    // Deleting the open system ends its edit.
    openNewSystem("Nova", 1);
    ASSERT_TRUE(deleteSystemFiles(store, "Nova"));
    EXPECT_FALSE(store.IsEditing());
    EXPECT_EQ(test::entryNames(game.descriptors()), Names{"SolX.orb"});
}

TEST_F(SystemFilesTest, FailedDeleteIsReportedAndKeepsThePictures) {
    writeDescriptor("Sol", crlf({"[General]"}));
    touchPictures({"Sol.bmp"});
    {
        const test::ReadOnlyFolder readOnly(game.pictures());
        if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
        EXPECT_FALSE(deleteSystemFiles(store, "Sol"));
        EXPECT_NE(store.lastError().find("Sol.bmp"), std::string::npos) << store.lastError();
        EXPECT_TRUE(fs::exists(game.pictures() / "Sol.bmp"));
    }
    writeDescriptor("Sol", crlf({"[General]"}));
    touchPictures({"SolSun.bmp"});
    // A descriptor that cannot be deleted keeps the pictures.
    const test::ReadOnlyFolder readOnly(game.descriptors());
    EXPECT_FALSE(deleteSystemFiles(store, "Sol"));
    EXPECT_NE(store.lastError().find("Sol.orb"), std::string::npos) << store.lastError();
    EXPECT_EQ(test::entryNames(game.pictures()), (Names{"Sol.bmp", "SolSun.bmp"}));
}

}  // namespace
}  // namespace orr
