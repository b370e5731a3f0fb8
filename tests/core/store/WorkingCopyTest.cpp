// The working copy: BeginEdit, EndEdit, IsModified by file times, MarkModified and rename.
#include <gtest/gtest.h>

#include "store/FileIo.h"
#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;
using namespace std::chrono_literals;

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

TEST_F(WorkingCopyTest, BeginEditCopiesKeepingTheTimeAndSaveCommits) {
    ASSERT_TRUE(begin());
    EXPECT_TRUE(store.IsEditing());
    EXPECT_EQ(readDescriptor("Nova.edt"), saved);
    EXPECT_EQ(modificationTime(game.descriptor("Nova.edt")),
              modificationTime(game.descriptor("Nova.orb")));
    EXPECT_FALSE(store.IsModified());
    EXPECT_EQ(asked, 0);  // no backup, no question

    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    EXPECT_TRUE(store.IsModified());
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);
    const std::string edited = readDescriptor("Nova.edt");
    ASSERT_TRUE(store.EndEdit(true));
    EXPECT_FALSE(store.IsEditing());
    EXPECT_FALSE(fs::exists(game.descriptor("Nova.edt")));
    EXPECT_EQ(readDescriptor("Nova.orb"), edited);
    EXPECT_TRUE(store.EndEdit(true));  // not editing: nothing to do

    // A fresh working copy after a save is not modified, and the next change counts at once.
    ASSERT_TRUE(begin());
    EXPECT_FALSE(store.IsModified());
    ASSERT_TRUE(store.SetName(2, "Cinder"));
    EXPECT_TRUE(store.IsModified());
    // Discarding keeps the saved file.
    ASSERT_TRUE(store.EndEdit(false));
    EXPECT_FALSE(fs::exists(game.descriptor("Nova.edt")));
    EXPECT_EQ(readDescriptor("Nova.orb"), edited);
    EXPECT_EQ(store.ReadKey("Names", "2"), kNotUsed);
}

TEST_F(WorkingCopyTest, ExistingBackupIsOfferedAndKeptOrDiscarded) {
    const fs::path edt = game.descriptor("Nova.edt");
    for (const bool keep : {true, false}) {
        // A backup left by an earlier session is older than the saved file.
        test::writeBytes(edt, crlf({"[General]", "Backup=yes"}));
        fs::last_write_time(edt, *modificationTime(game.descriptor("Nova.orb")) - 1h);
        asked = 0;
        ASSERT_TRUE(begin(keep));
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(store.ReadKey("General", "Backup"), keep ? "yes" : kNotUsed);
        EXPECT_EQ(store.IsModified(), keep);
        EXPECT_EQ(readDescriptor("Nova.edt") == saved, !keep);
        store.EndEdit(false);
    }
}

TEST_F(WorkingCopyTest, MarkModifiedCountsEvenWithoutABlock) {
    // A descriptor without block: the block save leaves it alone, the mark still counts.
    writeDescriptor("Nova", crlf({"[General]", "x=1"}));
    ASSERT_TRUE(begin());
    EXPECT_FALSE(store.IsModified());
    ASSERT_TRUE(store.MarkModified());
    EXPECT_TRUE(store.IsModified());
    EXPECT_EQ(readDescriptor("Nova.edt"), crlf({"[General]", "x=1"}));
    EXPECT_TRUE(store.MarkModified());  // already modified: stays so
    store.EndEdit(false);

    // Without a saved file there is nothing to copy: editing stays closed.
    store.record().Name = "Absent";
    EXPECT_FALSE(begin());
    EXPECT_NE(store.lastError(), "");
    EXPECT_FALSE(store.IsEditing());
    EXPECT_FALSE(fs::exists(game.descriptor("Absent.edt")));
}

TEST_F(WorkingCopyTest, FailedCommitKeepsTheWorkingCopyAsBackup) {
    ASSERT_TRUE(begin());
    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    const std::string edited = readDescriptor("Nova.edt");
    {
        const test::ReadOnlyFolder readOnly(game.descriptors());
        if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
        EXPECT_FALSE(store.EndEdit(true));
        EXPECT_NE(store.lastError(), "");
    }
    EXPECT_FALSE(store.IsEditing());
    EXPECT_EQ(readDescriptor("Nova.edt"), edited);
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);
    // The next opening offers it.
    ASSERT_TRUE(begin(true));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(store.ReadKey("Names", "1"), "Ember");
}

TEST_F(WorkingCopyTest, RenameMovesTheWorkingCopyAndTheDisplayName) {
    store.record().setDisplayName("Nova");
    ASSERT_TRUE(begin());
    ASSERT_TRUE(store.RenameSystem("Supernova"));
    EXPECT_EQ(store.record().Name, "Supernova");
    EXPECT_EQ(store.record().trimmedDisplayName(), "Supernova");
    EXPECT_EQ(test::entryNames(game.descriptors()),
              (std::vector<std::string>{"Nova.orb", "Supernova.edt"}));
    ASSERT_TRUE(store.EndEdit(true));
    EXPECT_EQ(readDescriptor("Supernova.orb"), saved);
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);  // the former system keeps its file

    store.record().setDisplayName("Shown");  // a display name of its own stays
    ASSERT_TRUE(store.RenameSystem("Vega"));
    EXPECT_EQ(store.record().trimmedDisplayName(), "Shown");

    EXPECT_FALSE(store.RenameSystem("Bad?Name"));
    EXPECT_EQ(store.lastError(), "A system name cannot contain the character '?'.");
    EXPECT_EQ(store.record().Name, "Vega");
}

}  // namespace
}  // namespace orr
