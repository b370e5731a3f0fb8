#include "store/ProfileStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <random>
#include <sstream>

namespace orr {
namespace {

class ProfileStoreTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::random_device random;
        dir_ = fs::temp_directory_path() /
               ("orrerion-profiles-" + std::to_string(random()) + std::to_string(random()));
        fs::create_directories(dir_ / "ORBDescriptor");
        file_ = dir_ / "ORBDescriptor" / "Sol.edt";
    }
    void TearDown() override {
        std::error_code ec;
        fs::permissions(dir_ / "ORBDescriptor", fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(dir_, ec);
    }

    static void put(const fs::path& file, std::string_view bytes) {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    static std::string get(const fs::path& file) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return bytes.str();
    }
    // Replaces the file's contents behind the store's back, then gives it `time`.
    static void replaceBehindTheBack(const fs::path& file, std::string_view bytes,
                                     fs::file_time_type time) {
        put(file, bytes);
        fs::last_write_time(file, time);
    }
    std::size_t entryCount(const fs::path& folder) const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    fs::path dir_;
    fs::path file_;
    ProfileStore store_;
};

TEST_F(ProfileStoreTest, ReadingAMissingFileCreatesNothing) {
    EXPECT_EQ(store_.readValue(file_, "General", "PlanetPics"), std::nullopt);
    EXPECT_EQ(store_.document(file_), nullptr);
    EXPECT_FALSE(fs::exists(file_));
}

TEST_F(ProfileStoreTest, WritingCreatesOnlyTheFile) {
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Sol")) << store_.lastError();
    EXPECT_EQ(get(file_), "[Names]\r\nS=Sol\r\n");
    EXPECT_EQ(entryCount(file_.parent_path()), 1u);

    const fs::path elsewhere = dir_ / "Missing" / "Sol.edt";
    EXPECT_FALSE(store_.writeValue(elsewhere, "Names", "S", "Sol"));
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    EXPECT_FALSE(fs::exists(dir_ / "Missing"));
    EXPECT_EQ(store_.readValue(elsewhere, "Names", "S"), std::nullopt);
}

TEST_F(ProfileStoreTest, EveryWriteReachesTheDiskAtOnce) {
    put(file_, "[General]\nPlanetPics = NNN\n\n;SolarSystem\n");
    ASSERT_TRUE(store_.writeValue(file_, "General", "PlanetPics", "YNN"));
    EXPECT_EQ(get(file_), "[General]\nPlanetPics=YNN\n\n;SolarSystem\n");
    ASSERT_TRUE(store_.writeValue(file_, "1", "MessagesHail", "1"));
    EXPECT_EQ(get(file_), "[General]\nPlanetPics=YNN\n\n;SolarSystem\n[1]\r\nMessagesHail=1\r\n");
    EXPECT_EQ(entryCount(file_.parent_path()), 1u) << "no temporary file is left";
}

TEST_F(ProfileStoreTest, AnUnchangedFileIsNotReadAgain) {
    put(file_, "[Names]\r\nS=Sol\r\n");
    ASSERT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    const auto time = fs::last_write_time(file_);
    // Same size and same time: the store cannot tell, so it must still answer from its cache.
    replaceBehindTheBack(file_, "[Names]\r\nS=Ra!\r\n", time);
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol");

    // The same file under another spelling of its path shares the cached document.
    const fs::path other = dir_ / "ORBDescriptor" / ".." / "ORBDescriptor" / "Sol.edt";
    EXPECT_EQ(store_.document(other), store_.document(file_));
}

TEST_F(ProfileStoreTest, AFileChangedBehindTheStoreIsReadAgain) {
    put(file_, "[Names]\r\nS=Sol\r\n");
    ASSERT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    const auto time = fs::last_write_time(file_);
    replaceBehindTheBack(file_, "[Names]\r\nS=Ra!\r\n", time + std::chrono::seconds(2));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Ra!") << "same size, other time";
    replaceBehindTheBack(file_, "[Names]\r\nS=Vega\r\n", time + std::chrono::seconds(2));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Vega") << "same time, other size";

    fs::remove(file_);
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), std::nullopt);
    ASSERT_TRUE(store_.writeValue(file_, "Names", "1", "Terra"));
    EXPECT_EQ(get(file_), "[Names]\r\n1=Terra\r\n") << "nothing of the deleted file comes back";
}

TEST_F(ProfileStoreTest, TheStoreDoesNotReadItsOwnWriteBack) {
    put(file_, "[Names]\r\nS=Sol\r\n");
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Ra"));
    const ProfileDocument* cached = store_.document(file_);
    // Swap in different bytes of the same size with the time of the store's own write: a store
    // that parsed the file again would now see them.
    replaceBehindTheBack(file_, "[Names]\r\nS=XY\r\n", fs::last_write_time(file_));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Ra");
    EXPECT_EQ(store_.document(file_), cached);
}

TEST_F(ProfileStoreTest, ABatchWritesEachChangedFileOnceWhenTheOutermostBatchEnds) {
    const fs::path orb = dir_ / "ORBDescriptor" / "Sol.orb";
    put(file_, "[1]\r\n");
    put(orb, "[General]\r\n");
    {
        ProfileStore::WriteBatch outer(store_);
        for (int i = 1; i <= 50; ++i) {
            ASSERT_TRUE(store_.writeValue(file_, "1", "Message" + std::to_string(i), "x"));
        }
        {
            ProfileStore::WriteBatch inner(store_);
            ASSERT_TRUE(store_.writeValue(orb, "General", "Messages", "YYY"));
            EXPECT_TRUE(inner.commit());
        }
        ASSERT_TRUE(store_.writeValue(dir_ / "ORBDescriptor" / "New.edt", "Names", "S", "New"));
        // Reads inside the batch see the changes; the disk does not have them yet.
        EXPECT_EQ(store_.readValue(file_, "1", "Message50"), "x");
        EXPECT_EQ(get(file_), "[1]\r\n");
        EXPECT_EQ(get(orb), "[General]\r\n");
        EXPECT_FALSE(fs::exists(dir_ / "ORBDescriptor" / "New.edt"));
        EXPECT_TRUE(outer.commit());
        EXPECT_TRUE(outer.commit()) << "a second commit repeats the answer";
    }
    std::string expected = "[1]\r\n";
    for (int i = 1; i <= 50; ++i) expected += "Message" + std::to_string(i) + "=x\r\n";
    EXPECT_EQ(get(file_), expected);
    EXPECT_EQ(get(orb), "[General]\r\nMessages=YYY\r\n");
    EXPECT_EQ(get(dir_ / "ORBDescriptor" / "New.edt"), "[Names]\r\nS=New\r\n");

    {
        ProfileStore::WriteBatch unfinished(store_);
        ASSERT_TRUE(store_.writeValue(orb, "General", "PlanetPics", "NNN"));
    }
    EXPECT_EQ(get(orb), "[General]\r\nMessages=YYY\r\nPlanetPics=NNN\r\n")
        << "a batch left without commit is committed";
}

TEST_F(ProfileStoreTest, AFailedBatchReportsFalseAndForgetsItsChanges) {
    put(file_, "[Names]\r\nS=Sol\r\n");
    ProfileStore::WriteBatch batch(store_);
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Ra"));
    // The folder disappears before the batch ends: its write must fail, for root as well.
    fs::rename(dir_ / "ORBDescriptor", dir_ / "Moved");
    EXPECT_FALSE(batch.commit());
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    fs::rename(dir_ / "Moved", dir_ / "ORBDescriptor");
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol") << "the cache follows the disk";

    // The next batch starts afresh.
    ProfileStore::WriteBatch next(store_);
    ASSERT_TRUE(store_.writeValue(file_, "Names", "S", "Ra"));
    EXPECT_TRUE(next.commit());
    EXPECT_EQ(get(file_), "[Names]\r\nS=Ra\r\n");
}

TEST_F(ProfileStoreTest, AFailedWriteLeavesFileAndCacheAsTheyWere) {
    put(file_, "[Names]\r\nS=Sol\r\n");
    ASSERT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    const fs::path folder = dir_ / "ORBDescriptor";
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    const fs::path probe = folder / "probe";
    std::ofstream(probe).put('x');
    if (fs::exists(probe)) {
        fs::remove(probe);
        GTEST_SKIP() << "permissions are not enforced for this user";
    }
    EXPECT_FALSE(store_.writeValue(file_, "Names", "S", "Ra"));
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    EXPECT_EQ(get(file_), "[Names]\r\nS=Sol\r\n");
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    EXPECT_FALSE(
        store_.rewrite(file_, [](ProfileDocument& doc) { return doc.deleteKey("Names", "S"); }));
    EXPECT_EQ(store_.readValue(file_, "Names", "S"), "Sol");
    EXPECT_EQ(entryCount(folder), 1u);
}

TEST_F(ProfileStoreTest, AFileThatCannotBeReadIsNotReplaced) {
    put(file_, "[Names]\r\nS=Sol\r\n");
    fs::permissions(file_, fs::perms::none);
    if (std::ifstream(file_).good()) GTEST_SKIP() << "permissions are not enforced for this user";
    EXPECT_FALSE(store_.writeValue(file_, "Names", "1", "Terra"));
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(get(file_), "[Names]\r\nS=Sol\r\n");
}

TEST_F(ProfileStoreTest, RewriteWritesOnlyWhenTheChangeSaysSo) {
    EXPECT_FALSE(store_.rewrite(file_, [](ProfileDocument&) { return true; }));
    EXPECT_NE(store_.lastError().find("Sol.edt"), std::string::npos) << store_.lastError();
    EXPECT_FALSE(fs::exists(file_));

    put(file_, "[Names]\r\nS=Sol\r\n3=Vega\r\n");
    const auto time = fs::last_write_time(file_) - std::chrono::hours(1);
    fs::last_write_time(file_, time);
    EXPECT_TRUE(
        store_.rewrite(file_, [](ProfileDocument& doc) { return doc.deleteKey("Names", "7"); }));
    EXPECT_EQ(fs::last_write_time(file_), time) << "nothing changed, nothing written";
    EXPECT_TRUE(
        store_.rewrite(file_, [](ProfileDocument& doc) { return doc.deleteKey("Names", "3"); }));
    EXPECT_EQ(get(file_), "[Names]\r\nS=Sol\r\n");
    EXPECT_NE(fs::last_write_time(file_), time);
}

}  // namespace
}  // namespace orr
