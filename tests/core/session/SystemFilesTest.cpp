// Whole systems: the new descriptor and its refusals, deleting exactly this system's files, and
// Save As carrying the saved pictures over to the new name.
#include "session/SystemFiles.h"

#include "session/SystemEdits.h"

#include "store/SystemList.h"
#include "support/SessionFixture.h"

namespace orr::test {
namespace {

using Names = std::vector<std::string>;

class SystemFilesTest : public SessionTest {
  protected:
    void writePictures(std::initializer_list<const char*> names) {
        for (const char* name : names)
            writeBytes(game.pictures() / name, std::string("old ") + name);
    }
    std::string picture(const std::string& name) const { return readBytes(game.pictures() / name); }
};

TEST_F(SystemFilesTest, NewWritesADescriptorFromTheListOrAnEmptyOne) {
    fs::remove_all(game.descriptors());  // made when missing
    std::string error;
    ASSERT_TRUE(createSystem(game.folder(), "Nova", NewSystemAnswer::ListedKey, &error)) << error;
    EXPECT_EQ(game.read("ORBDescriptor/Nova.orb"),
              crlf({"[General]", "PlanetPics = ", "Messages = ", "", ";SolarSystem",
                    ";\"Nova                \",0,0"}));
    ASSERT_TRUE(createSystem(game.folder(), "9Sol", NewSystemAnswer::ListedKey, &error));
    const std::string listed = game.read("ORBDescriptor/9Sol.orb");
    EXPECT_TRUE(listed.starts_with(crlf({"[General]", "PlanetPics = NNNNNNNNN"})));
    EXPECT_NE(listed.find(";560,3,1,46087,13,5\r\n"), std::string::npos);
    EXPECT_EQ(OfferedSystems(game.folder()), (Names{"0Vega", "3Sol"}));
    // A typed name equal to a listed key stays a custom system.
    ASSERT_TRUE(createSystem(game.folder(), "3Sol", NewSystemAnswer::CustomName, &error));
    EXPECT_NE(game.read("ORBDescriptor/3Sol.orb").find(";\"3Sol                \",0,0"),
              std::string::npos);

    const std::pair<std::string, std::string> refused[] = {
        {"NOVA", "A system named \"Nova\" already exists."},
        {"What?", "A system name cannot contain the character '?'."},
    };
    for (const auto& [name, reason] : refused) {
        EXPECT_FALSE(createSystem(game.folder(), name, NewSystemAnswer::ListedKey, &error));
        EXPECT_EQ(error, reason);
    }
    EXPECT_EQ(canCreateSystem(game.folder(), "9sol", NewSystemAnswer::CustomName),
              "A system named \"9Sol\" already exists. Please choose another name.");
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"3Sol.orb", "9Sol.orb", "Nova.orb"}));
}

TEST_F(SystemFilesTest, DeleteRemovesOnlyThisSystemAndSaysWhatWasLeft) {
    game.writeDescriptor(TempGameFolder::systemRecord("SolX", 0));
    writePictures({"Sol.bmp", "SolSun.bmp", "Sol3.avi", "SolX.bmp", "SolXSun.bmp"});
    openSystem("Sol", 1);  // deleting the open system ends its edit
    ASSERT_TRUE(deleteSystem(session, "Sol")) << session.lastError();
    EXPECT_FALSE(session.isOpen());
    EXPECT_EQ(entryNames(game.descriptors()), Names{"SolX.orb"});
    EXPECT_EQ(entryNames(game.pictures()), (Names{"SolX.bmp", "SolXSun.bmp"}));

    // A pictures folder that cannot be listed leaves pictures behind: that is said, too.
    fs::remove_all(game.pictures());
    game.write("PICTURES", "a file where the folder should be");
    game.writeDescriptor(TempGameFolder::systemRecord("Gone", 0));
    EXPECT_FALSE(deleteSystem(session, "Gone"));
    EXPECT_NE(session.lastError().find("could not be read"), std::string::npos)
        << session.lastError();
    EXPECT_FALSE(game.exists("ORBDescriptor/Gone.orb"));
    fs::remove(game.pictures());
    fs::create_directory(game.pictures());

    writePictures({"SolX1.avi"});
    const ReadOnlyFolder locked(game.pictures());
    if (!locked.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
    EXPECT_FALSE(deleteSystem(session, "SolX"));
    EXPECT_EQ(
        session.lastError().rfind("The system SolX was deleted, but not all of its pictures", 0),
        0u)
        << session.lastError();
}

TEST_F(SystemFilesTest, SaveAsCarriesTheSavedPicturesOver) {
    writePictures({"Nova.bmp", "NovaSun.gif", "Nova2.avi", "NovaPrime.bmp"});
    // Vega's own pictures, one in another letter case, and another system's strip.
    writePictures({"vega.JPG", "VegaSun.bmp", "Vega1.avi", "Vegas.bmp"});
    std::string error;
    ASSERT_TRUE(replaceSystemPictures(game.folder(), "Nova", "Vega", &error)) << error;
    EXPECT_EQ(entryNames(game.pictures()),
              (Names{"Nova.bmp", "Nova2.avi", "NovaPrime.bmp", "NovaSun.gif", "Vega.bmp",
                     "Vega2.avi", "VegaSun.gif", "Vegas.bmp"}));
    EXPECT_EQ(picture("Vega.bmp"), "old Nova.bmp");
    // A new spelling renames the files instead.
    ASSERT_TRUE(replaceSystemPictures(game.folder(), "Vega", "VEGA", &error)) << error;
    EXPECT_EQ(picture("VEGA2.avi"), "old Nova2.avi");

    // Through the session the pictures in memory are what the new system saves.
    openSystem("Nova", 2);
    ASSERT_TRUE(setPlanetPicture(session, 2, textPicture("new")));
    ASSERT_TRUE(session.saveAs("Altair")) << session.lastError();
    EXPECT_EQ(picture("Altair.bmp"), "old Nova.bmp|new");
    EXPECT_EQ(picture("Altair2.avi"), "old Nova2.avi");
    EXPECT_EQ(picture("Nova.bmp"), "old Nova.bmp") << "the old system keeps its own";
    EXPECT_EQ(session.name(), "Altair");
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Altair.edt", "Altair.orb", "Nova.orb"}));
}

}  // namespace
}  // namespace orr::test
