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
    const std::string saved = crlf({"[General]", ";SolarSystem", ";\"Nova\",0,0"});
};

TEST_F(WorkingCopyTest, BeginEditCopiesKeepingTheTime) {
    ASSERT_TRUE(store.BeginEdit({}));
    EXPECT_TRUE(store.IsEditing());
    EXPECT_EQ(store.DescriptorExtension(), ".edt");
    EXPECT_EQ(readDescriptor("Nova.edt"), saved);
    EXPECT_EQ(modificationTime(game.descriptor("Nova.edt")),
              modificationTime(game.descriptor("Nova.orb")));
    EXPECT_FALSE(store.IsModified());

    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    EXPECT_TRUE(store.IsModified());
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);
}

TEST_F(WorkingCopyTest, SaveCommitsAndDeletesTheWorkingCopy) {
    ASSERT_TRUE(store.BeginEdit({}));
    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    const std::string edited = readDescriptor("Nova.edt");
    ASSERT_TRUE(store.EndEdit(true));
    EXPECT_FALSE(store.IsEditing());
    EXPECT_FALSE(fs::exists(game.descriptor("Nova.edt")));
    EXPECT_EQ(readDescriptor("Nova.orb"), edited);
    EXPECT_EQ(store.ReadKey("Names", "1"), "Ember");
    EXPECT_TRUE(store.EndEdit(true));  // not editing: nothing to do

    // A fresh working copy after a save is not modified, and the next change counts at once.
    ASSERT_TRUE(store.BeginEdit({}));
    EXPECT_FALSE(store.IsModified());
    ASSERT_TRUE(store.SetName(2, "Cinder"));
    EXPECT_TRUE(store.IsModified());
}

TEST_F(WorkingCopyTest, DiscardKeepsTheSavedFile) {
    ASSERT_TRUE(store.BeginEdit({}));
    ASSERT_TRUE(store.WriteKey("Names", "1", "Ember"));
    ASSERT_TRUE(store.EndEdit(false));
    EXPECT_FALSE(fs::exists(game.descriptor("Nova.edt")));
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);
    EXPECT_EQ(store.ReadKey("Names", "1"), kNotUsed);
}

TEST_F(WorkingCopyTest, ExistingBackupIsOfferedAndKeptOrDiscarded) {
    const std::string backup = crlf({"[General]", "Backup=yes"});
    const fs::path edt = game.descriptor("Nova.edt");
    const auto writeBackup = [&] {
        // A backup left by an earlier session is older than the saved file.
        test::writeBytes(edt, backup);
        fs::last_write_time(edt, *modificationTime(game.descriptor("Nova.orb")) - 1h);
    };
    writeBackup();
    int asked = 0;
    ASSERT_TRUE(store.BeginEdit([&] {
        ++asked;
        return true;
    }));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(store.ReadKey("General", "Backup"), "yes");
    EXPECT_TRUE(store.IsModified());

    store.EndEdit(false);
    writeBackup();
    ASSERT_TRUE(store.BeginEdit([&] {
        ++asked;
        return false;
    }));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(readDescriptor("Nova.edt"), saved);
    EXPECT_EQ(store.ReadKey("General", "Backup"), kNotUsed);
    EXPECT_FALSE(store.IsModified());

    // No question when there is no backup.
    store.EndEdit(false);
    ASSERT_TRUE(store.BeginEdit([&] {
        ++asked;
        return true;
    }));
    EXPECT_EQ(asked, 2);
}

TEST_F(WorkingCopyTest, BeginEditWithoutSavedFileStaysClosed) {
    store.record().Name = "Absent";
    EXPECT_FALSE(store.BeginEdit({}));
    EXPECT_NE(store.lastError(), "");
    EXPECT_FALSE(store.IsEditing());
    EXPECT_FALSE(fs::exists(game.descriptor("Absent.edt")));
}

TEST_F(WorkingCopyTest, MarkModifiedAlwaysGivesANewTime) {
    ASSERT_TRUE(store.BeginEdit({}));
    ASSERT_TRUE(store.MarkModified());
    EXPECT_TRUE(store.IsModified());
    EXPECT_TRUE(store.MarkModified());  // already modified: stays so

    // A descriptor without block: the block save leaves it alone, the mark still counts.
    store.EndEdit(false);
    writeDescriptor("Nova", crlf({"[General]", "x=1"}));
    ASSERT_TRUE(store.BeginEdit({}));
    EXPECT_FALSE(store.IsModified());
    ASSERT_TRUE(store.MarkModified());
    EXPECT_TRUE(store.IsModified());
    EXPECT_EQ(readDescriptor("Nova.edt"), crlf({"[General]", "x=1"}));
}

TEST_F(WorkingCopyTest, FailedCommitKeepsTheWorkingCopyAsBackup) {
    ASSERT_TRUE(store.BeginEdit({}));
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
    bool asked = false;
    ASSERT_TRUE(store.BeginEdit([&] { return asked = true; }));
    EXPECT_TRUE(asked);
    EXPECT_EQ(store.ReadKey("Names", "1"), "Ember");
}

TEST_F(WorkingCopyTest, RenameMovesTheWorkingCopyAndTheDisplayName) {
    store.record().setDisplayName("Nova");
    ASSERT_TRUE(store.BeginEdit({}));
    ASSERT_TRUE(store.RenameSystem("Supernova"));
    EXPECT_EQ(store.record().Name, "Supernova");
    EXPECT_EQ(store.record().trimmedDisplayName(), "Supernova");
    EXPECT_TRUE(fs::exists(game.descriptor("Supernova.edt")));
    EXPECT_FALSE(fs::exists(game.descriptor("Nova.edt")));
    ASSERT_TRUE(store.EndEdit(true));
    EXPECT_EQ(readDescriptor("Supernova.orb"), saved);
    EXPECT_EQ(readDescriptor("Nova.orb"), saved);  // the former system keeps its file

    // A display name of its own stays; a case-only rename renames the file.
    store.record().setDisplayName("Shown");
    ASSERT_TRUE(store.RenameSystem("SUPERNOVA"));
    EXPECT_EQ(store.record().trimmedDisplayName(), "Shown");
    EXPECT_TRUE(fs::exists(game.descriptor("SUPERNOVA.orb")));
    EXPECT_FALSE(fs::exists(game.descriptor("Supernova.orb")));

    EXPECT_FALSE(store.RenameSystem("Bad?Name"));
    EXPECT_EQ(store.lastError(), "A system name cannot contain the character '?'.");
    EXPECT_EQ(store.record().Name, "SUPERNOVA");
}

}  // namespace
}  // namespace orr
