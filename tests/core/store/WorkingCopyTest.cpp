// The working copy: BeginEdit, EndEdit, IsModified by file times, MarkModified and rename. (Save
// and undo back to the saved state are the session's, in EditSessionTest.)
#include <gtest/gtest.h>

#include "store/FileIo.h"
#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::entryNames;
using test::StoreTest;
using Names = std::vector<std::string>;

class WorkingCopyTest : public StoreTest {
  protected:
    void SetUp() override {
        writeDescriptor("Nova", saved);
        store.record().Name = "Nova";
    }
    // Opens the working copy, answering the backup question with `keep` and counting it.
    bool begin(bool keep = false) {
        return store.BeginEdit([this, keep] {
            ++asked;
            return keep;
        });
    }
    const std::string saved = crlf({"[General]", ";SolarSystem", ";\"Nova\",0,0"});
    int asked = 0;
};

TEST_F(WorkingCopyTest, BeginEditCopiesKeepingTheTimeAndEndEditSavesOrDiscards) {
    for (const bool save : {false, true}) {
        ASSERT_TRUE(begin());
        EXPECT_EQ(readDescriptor("Nova.edt"), saved);
        EXPECT_FALSE(store.IsModified());
        ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
        EXPECT_TRUE(store.IsModified());
        EXPECT_EQ(readDescriptor("Nova.orb"), saved);
        const std::string edited = readDescriptor("Nova.edt");
        ASSERT_TRUE(store.EndEdit(save));
        EXPECT_FALSE(store.IsEditing());
        EXPECT_EQ(entryNames(game.descriptors()), Names{"Nova.orb"});
        EXPECT_EQ(readDescriptor("Nova.orb"), save ? edited : saved);
    }
    EXPECT_EQ(asked, 0);               // no backup, no question
    EXPECT_TRUE(store.EndEdit(true));  // not editing: nothing to do

    // Without a saved file there is nothing to copy: editing stays closed.
    store.record().Name = "Absent";
    EXPECT_FALSE(begin());
    EXPECT_FALSE(store.IsEditing());
    EXPECT_EQ(entryNames(game.descriptors()), Names{"Nova.orb"});
}

TEST_F(WorkingCopyTest, ABackupIsOfferedAndAFailedSaveLeavesOne) {
    for (const bool keep : {true, false}) {
        // A backup left by an earlier session is older than the saved file.
        test::writeBytes(game.descriptor("Nova.edt"), crlf({"[General]", "Backup=yes"}));
        fs::last_write_time(game.descriptor("Nova.edt"),
                            *modificationTime(game.descriptor("Nova.orb")) - std::chrono::hours(1));
        asked = 0;
        ASSERT_TRUE(begin(keep));
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(store.ReadKey("General", "Backup"), keep ? "yes" : kNotUsed);
        EXPECT_EQ(store.IsModified(), keep);
    }
    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    {
        const test::ReadOnlyFolder readOnly(game.descriptors());
        if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
        EXPECT_FALSE(store.EndEdit(true));
        EXPECT_NE(store.lastError(), "");
    }
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);
    asked = 0;
    ASSERT_TRUE(begin(true));  // the next opening offers the working copy as the backup
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(store.ReadKey("Names", "1"), "Ember");
}

TEST_F(WorkingCopyTest, MarkModifiedCountsEvenWithoutABlock) {
    // A descriptor without block: the block save leaves it alone, the mark still counts.
    writeDescriptor("Nova", crlf({"[General]", "x=1"}));
    ASSERT_TRUE(begin());
    ASSERT_TRUE(store.MarkModified());
    EXPECT_TRUE(store.IsModified());
    EXPECT_EQ(readDescriptor("Nova.edt"), crlf({"[General]", "x=1"}));
}

TEST_F(WorkingCopyTest, RenameMovesTheWorkingCopyTheDisplayNameAndAnotherSpelling) {
    store.record().setDisplayName("Nova");
    ASSERT_TRUE(begin());
    EXPECT_FALSE(store.RenameSystem("Bad?Name"));
    EXPECT_EQ(store.lastError(), "A system name cannot contain the character '?'.");
    ASSERT_TRUE(store.RenameSystem("Supernova"));
    EXPECT_EQ(store.record().trimmedDisplayName(), "Supernova");
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "Supernova.edt"}));
    store.record().setDisplayName("Shown");  // a display name of its own stays
    // A system of the new name in another spelling, with an old backup, takes the new spelling.
    writeDescriptor("Vega", saved);
    test::writeBytes(game.descriptor("vega.edt"), "an old backup of Vega");
    ASSERT_TRUE(store.RenameSystem("VEGA")) << store.lastError();
    EXPECT_EQ(store.record().trimmedDisplayName(), "Shown");
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "VEGA.edt", "VEGA.orb"}));
    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    ASSERT_TRUE(store.EndEdit(true)) << store.lastError();
    EXPECT_EQ(entryNames(game.descriptors()), (Names{"Nova.orb", "VEGA.orb"}));
    EXPECT_NE(readDescriptor("VEGA.orb").find("1=Ember"), std::string::npos);
}

}  // namespace
}  // namespace orr
