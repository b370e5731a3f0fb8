// Save As in the store: the working copy renamed under a new name (also one that only changes the
// letter case), and the saved pictures carried over to the new name.
#include <gtest/gtest.h>

#include "store/SystemOperations.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::entryNames;
using test::readBytes;
using test::StoreTest;
using test::writeBytes;
using Names = std::vector<std::string>;

class SaveAsTest : public StoreTest {
  protected:
    void writePicture(const std::string& name, const std::string& bytes) {
        writeBytes(game.pictures() / name, bytes);
    }
    std::string picture(const std::string& name) { return readBytes(game.pictures() / name); }
};

TEST_F(SaveAsTest, PicturesReplaceThoseOfTheOverwrittenSystem) {
    for (const char* name : {"Nova.bmp", "NovaSun.gif", "Nova2.avi", "NovaPrime.bmp"})
        writePicture(name, std::string("old ") + name);
    // Vega's own pictures, one in another letter case, and another system's strip.
    for (const char* name : {"vega.JPG", "VegaSun.bmp", "Vega1.avi", "Vegas.bmp"})
        writePicture(name, std::string("target ") + name);

    std::string error;
    ASSERT_TRUE(replaceSystemPictures(game.folder(), "Nova", "Vega", &error)) << error;
    EXPECT_EQ(entryNames(game.pictures()),
              (Names{"Nova.bmp", "Nova2.avi", "NovaPrime.bmp", "NovaSun.gif", "Vega.bmp",
                     "Vega2.avi", "VegaSun.gif", "Vegas.bmp"}));
    EXPECT_EQ(picture("Vega.bmp"), "old Nova.bmp");
    EXPECT_EQ(picture("VegaSun.gif"), "old NovaSun.gif");
    EXPECT_EQ(picture("Nova.bmp"), "old Nova.bmp");  // the old system keeps its own

    // A system without pictures leaves the new name without any either.
    ASSERT_TRUE(replaceSystemPictures(game.folder(), "Rigel", "Vega", &error)) << error;
    EXPECT_EQ(entryNames(game.pictures()),
              (Names{"Nova.bmp", "Nova2.avi", "NovaPrime.bmp", "NovaSun.gif", "Vegas.bmp"}));
}

TEST_F(SaveAsTest, ANewSpellingRenamesThePictures) {
    for (const char* name : {"Sol.bmp", "SolSun.bmp", "Sol3.avi", "Solar.bmp"})
        writePicture(name, name);
    ASSERT_TRUE(replaceSystemPictures(game.folder(), "Sol", "SOL"));
    EXPECT_EQ(entryNames(game.pictures()),
              (Names{"SOL.bmp", "SOL3.avi", "SOLSun.bmp", "Solar.bmp"}));
    EXPECT_EQ(picture("SOL.bmp"), "Sol.bmp");
}

TEST_F(SaveAsTest, PicturesThatCannotBeReplacedAreReported) {
    writePicture("Nova.bmp", "strip");
    writePicture("Vega.bmp", "target");
    const test::ReadOnlyFolder readOnly(game.pictures());
    if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
    std::string error;
    EXPECT_FALSE(replaceSystemPictures(game.folder(), "Nova", "Vega", &error));
    EXPECT_NE(error.find("\"Vega.bmp\" could not be deleted"), std::string::npos) << error;
    EXPECT_EQ(picture("Vega.bmp"), "target");
}

TEST_F(SaveAsTest, ANewSpellingRenamesTheSavedDescriptorToo) {
    openNewSystem("Sol", 2);
    ASSERT_TRUE(store.RenameSystem("SOL")) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"SOL.edt", "SOL.orb"}));
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
    ASSERT_TRUE(store.EndEdit(true)) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), Names{"SOL.orb"});
    EXPECT_NE(readDescriptor("SOL.orb").find(";\"SOL                 \",0,2"), std::string::npos);
}

TEST_F(SaveAsTest, OverwritingTakesTheNewSpellingForTheOtherSystem) {
    writeDescriptor("Vega", crlf({"[General]", ";SolarSystem", ";\"Vega\",1,0"}));
    writeBytes(game.descriptor("vega.edt"), "an old backup of Vega");
    openNewSystem("Nova", 1);
    ASSERT_TRUE(store.RenameSystem("VEGA")) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "VEGA.edt", "VEGA.orb"}));
    ASSERT_TRUE(store.EndEdit(true)) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "VEGA.orb"}));
    EXPECT_NE(readDescriptor("VEGA.orb").find(",0,1\r\n"), std::string::npos);
}

}  // namespace
}  // namespace orr
