#include "store/ProfileStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::entryNames;
using test::readBytes;
using test::writeBytes;
using Names = std::vector<std::string>;

class ProfileStoreTest : public ::testing::Test {
  protected:
    // Replaces the file's contents behind the store's back, then gives it `time`.
    // The store looks again in its next check round.
    void replaceBehindTheBack(const fs::path& file, std::string_view bytes,
                              fs::file_time_type time) {
        writeBytes(file, bytes);
        fs::last_write_time(file, time);
        store_.recheck();
    }

    test::TempGameFolder game;
    const fs::path file_ = game.descriptor("Sol.edt");
    ProfileStore store_;
};

TEST_F(ProfileStoreTest, TheCacheIsUsedWhileSizeAndTimeStayTheSame) {
    writeBytes(file_, "[Names]\r\nS=Sol\r\n");
    ASSERT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    const auto time = fs::last_write_time(file_);
    // Same size and same time: the store cannot tell, so it must still answer from its cache.
    replaceBehindTheBack(file_, "[Names]\r\nS=Ra!\r\n", time);
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    // The same file under another spelling of its path shares the cached document.
    const fs::path other = game.descriptors() / ".." / "ORBDescriptor" / "Sol.edt";
    EXPECT_EQ(store_.document(other), store_.document(file_));

    replaceBehindTheBack(file_, "[Names]\r\nS=Ra!\r\n", time + std::chrono::seconds(2));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Ra!") << "same size, other time";
    replaceBehindTheBack(file_, "[Names]\r\nS=Vega\r\n", time + std::chrono::seconds(2));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Vega") << "same time, other size";

    // Nor does it read its own write back: bytes of the same size with the time of that write.
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Ra"));
    replaceBehindTheBack(file_, "[Names]\r\nS=XY\r\n", fs::last_write_time(file_));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Ra");

    fs::remove(file_);
    store_.recheck();
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), std::nullopt);
    ASSERT_TRUE(store_.writeValue(file_, "Names", "1", "Terra"));
    EXPECT_EQ(readBytes(file_), "[Names]\r\n1=Terra\r\n") << "nothing of the deleted file returns";
}

TEST_F(ProfileStoreTest, ABatchWritesEachChangedFileOnceWhenTheOutermostBatchEnds) {
    const fs::path orb = game.descriptor("Sol.orb");
    const fs::path created = game.descriptor("New.edt");
    writeBytes(file_, "[1]\r\n");
    writeBytes(orb, "[General]\r\n");
    {
        ProfileStore::WriteBatch outer(store_);
        ASSERT_TRUE(store_.writeValue(file_, "1", "Message1", "x"));
        ASSERT_TRUE(store_.writeValue(file_, "1", "Message2", "y"));
        {
            ProfileStore::WriteBatch inner(store_);
            ASSERT_TRUE(store_.writeValue(orb, "General", "Messages", "YYY"));
            EXPECT_TRUE(inner.commit());
        }
        ASSERT_TRUE(store_.writeValue(created, "Names", "S", "New"));
        // Reads inside the batch see the changes; the disk does not have them yet.
        EXPECT_EQ(store_.readValue(file_, "1", "Message2"), "y");
        EXPECT_EQ(readBytes(file_), "[1]\r\n");
        EXPECT_EQ(readBytes(orb), "[General]\r\n");
        EXPECT_FALSE(fs::exists(created));
        EXPECT_TRUE(outer.commit());
        EXPECT_TRUE(outer.commit()) << "a second commit repeats the answer";
    }
    EXPECT_EQ(readBytes(file_), "[1]\r\nMessage1=x\r\nMessage2=y\r\n");
    EXPECT_EQ(readBytes(orb), "[General]\r\nMessages=YYY\r\n");
    EXPECT_EQ(readBytes(created), "[Names]\r\nS=New\r\n");
    {
        ProfileStore::WriteBatch unfinished(store_);
        ASSERT_TRUE(store_.writeValue(orb, "General", "PlanetPics", "NNN"));
    }
    EXPECT_EQ(readBytes(orb), "[General]\r\nMessages=YYY\r\nPlanetPics=NNN\r\n")
        << "a batch left without commit is committed";
}

TEST_F(ProfileStoreTest, AFailedBatchReportsFalseAndForgetsItsChanges) {
    writeBytes(file_, "[Names]\r\nS=Sol\r\n");
    ProfileStore::WriteBatch batch(store_);
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Ra"));
    // The folder disappears before the batch ends: its write must fail, for root as well.
    fs::rename(game.descriptors(), game.root() / "Moved");
    EXPECT_FALSE(batch.commit());
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    fs::rename(game.root() / "Moved", game.descriptors());
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol") << "the cache follows the disk";

    // The next batch starts afresh.
    ProfileStore::WriteBatch next(store_);
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Ra"));
    EXPECT_TRUE(next.commit());
    EXPECT_EQ(readBytes(file_), "[Names]\r\nS=Ra\r\n");
}

TEST_F(ProfileStoreTest, AFailedWriteLeavesFileAndCacheAsTheyWere) {
    writeBytes(file_, "[Names]\r\nS=Sol\r\n");
    ASSERT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    const test::ReadOnlyFolder readOnly(game.descriptors());
    if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
    EXPECT_FALSE(store_.writeValue(file_, "Names", "S", "Ra"));
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    EXPECT_EQ(readBytes(file_), "[Names]\r\nS=Sol\r\n");
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    EXPECT_FALSE(
        store_.rewrite(file_, [](ProfileDocument& doc) { return doc.deleteKey("Names", "S"); }));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    EXPECT_EQ(entryNames(game.descriptors()), Names{"Sol.edt"});
}

TEST_F(ProfileStoreTest, AFileThatCannotBeReadIsNotReplaced) {
    writeBytes(file_, "[Names]\r\nS=Sol\r\n");
    fs::permissions(file_, fs::perms::none);
    if (std::ifstream(file_).good()) GTEST_SKIP() << "permissions are not enforced for this user";
    EXPECT_FALSE(store_.writeValue(file_, "Names", "1", "Terra"));
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(readBytes(file_), "[Names]\r\nS=Sol\r\n");
}

TEST_F(ProfileStoreTest, ReadsAndRewritesCreateNoFileAndRewritesWriteOnlyAChange) {
    EXPECT_EQ(store_.readValue(file_, "General", "PlanetPics"), std::nullopt);
    EXPECT_FALSE(store_.rewrite(file_, [](ProfileDocument&) { return true; }));
    EXPECT_FALSE(fs::exists(file_));

    writeBytes(file_, "[Names]\r\nS=Sol\r\n3=Vega\r\n");
    const auto time = fs::last_write_time(file_) - std::chrono::hours(1);
    fs::last_write_time(file_, time);
    EXPECT_TRUE(
        store_.rewrite(file_, [](ProfileDocument& doc) { return doc.deleteKey("Names", "7"); }));
    EXPECT_EQ(fs::last_write_time(file_), time) << "nothing changed, nothing written";
    EXPECT_TRUE(
        store_.rewrite(file_, [](ProfileDocument& doc) { return doc.deleteKey("Names", "3"); }));
    EXPECT_EQ(readBytes(file_), "[Names]\r\nS=Sol\r\n");
}

}  // namespace
}  // namespace orr
