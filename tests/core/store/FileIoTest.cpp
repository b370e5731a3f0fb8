#include "store/FileIo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <random>
#include <sstream>

namespace orr {
namespace {

class FileIoTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::random_device random;
        dir_ = fs::temp_directory_path() /
               ("orrerion-fileio-" + std::to_string(random()) + std::to_string(random()));
        fs::create_directories(dir_);
    }
    void TearDown() override {
        // A folder a test made read-only must be writable again before it can be removed.
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
    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(dir_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    // Makes `folder` read-only and says whether that stops this process from creating files in
    // it (it does not for root).
    static bool makeReadOnly(const fs::path& folder) {
        fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
        const fs::path probe = folder / "probe";
        std::ofstream(probe).put('x');
        const bool enforced = !fs::exists(probe);
        fs::remove(probe);
        return enforced;
    }

    fs::path dir_;
};

TEST_F(FileIoTest, ReadsEveryByte) {
    const std::string bytes = std::string("[1]\r\nA=\0\xFF\r", 10) + std::string(200000, 'z');
    put(dir_ / "a.orb", bytes);
    std::string error;
    const auto read = readWholeFile(dir_ / "a.orb", &error);
    ASSERT_TRUE(read.has_value()) << error;
    EXPECT_EQ(*read, bytes);
    put(dir_ / "empty", "");
    EXPECT_EQ(readWholeFile(dir_ / "empty"), std::string());
}

TEST_F(FileIoTest, ReadingAMissingFileOrAFolderSaysWhichFile) {
    std::string error;
    EXPECT_FALSE(readWholeFile(dir_ / "Missing.orb", &error).has_value());
    EXPECT_NE(error.find("Missing.orb"), std::string::npos) << error;
    EXPECT_FALSE(readWholeFile(dir_, &error).has_value());
    EXPECT_NE(error.find(dir_.filename().string()), std::string::npos) << error;
    EXPECT_FALSE(readWholeFile(dir_ / "Missing.orb").has_value()) << "no error text wanted";
}

TEST_F(FileIoTest, WriteCreatesAndReplacesLeavingNoTemporaryFile) {
    const fs::path file = dir_ / "Sol.edt";
    std::string error;
    ASSERT_TRUE(writeFileAtomically(file, std::string("one\r\n\0", 6), &error)) << error;
    EXPECT_EQ(get(file), std::string("one\r\n\0", 6));
    ASSERT_TRUE(writeFileAtomically(file, "two", &error)) << error;
    EXPECT_EQ(get(file), "two");
    ASSERT_TRUE(writeFileAtomically(file, "", &error)) << error;
    EXPECT_EQ(get(file), "");
    EXPECT_EQ(entries(), std::vector<std::string>{"Sol.edt"});
}

TEST_F(FileIoTest, WriteKeepsThePermissionsOfTheFileItReplaces) {
    const fs::path file = dir_ / "Sol.orb";
    put(file, "old");
    const auto chosen = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(file, chosen);
    ASSERT_TRUE(writeFileAtomically(file, "new"));
    EXPECT_EQ(fs::status(file).permissions(), chosen);
}

TEST_F(FileIoTest, WriteThroughASymbolicLinkKeepsTheLink) {
    put(dir_ / "real.orb", "old");
    fs::create_symlink("real.orb", dir_ / "link.orb");
    ASSERT_TRUE(writeFileAtomically(dir_ / "link.orb", "new"));
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(dir_ / "link.orb")));
    EXPECT_EQ(get(dir_ / "real.orb"), "new");
}

TEST_F(FileIoTest, FailedWritesReportFalseAndNameTheFile) {
    std::string error;
    EXPECT_FALSE(writeFileAtomically(dir_ / "no-such-folder" / "Sol.orb", "x", &error));
    EXPECT_NE(error.find("Sol.orb"), std::string::npos) << error;
    EXPECT_FALSE(fs::exists(dir_ / "no-such-folder"));

    fs::create_directory(dir_ / "Sol.orb");
    error.clear();
    EXPECT_FALSE(writeFileAtomically(dir_ / "Sol.orb", "x", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_directory(dir_ / "Sol.orb"));
    EXPECT_EQ(entries(), std::vector<std::string>{"Sol.orb"});
}

TEST_F(FileIoTest, WriteInAReadOnlyFolderLeavesTheFileAsItWas) {
    const fs::path folder = dir_ / "ORBDescriptor";
    fs::create_directory(folder);
    put(folder / "Sol.orb", "kept");
    if (!makeReadOnly(folder)) GTEST_SKIP() << "permissions are not enforced for this user";
    std::string error;
    EXPECT_FALSE(writeFileAtomically(folder / "Sol.orb", "lost", &error));
    EXPECT_NE(error.find("Sol.orb"), std::string::npos) << error;
    EXPECT_EQ(get(folder / "Sol.orb"), "kept");
    EXPECT_FALSE(copyFileKeepingTime(dir_ / "nothing", folder / "Sol.orb"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
}

TEST_F(FileIoTest, CopyKeepsTheSourceTimeExactly) {
    const fs::path from = dir_ / "Sol.orb";
    const fs::path to = dir_ / "Sol.edt";
    put(from, "[General]\r\nPlanetPics=NNN\r\n");
    put(to, "an older working copy that is longer than the source");
    // A time with sub-second digits, to catch copies that round it.
    const auto time = fs::file_time_type::clock::now() - std::chrono::hours(50) +
                      std::chrono::nanoseconds(123456789);
    fs::last_write_time(from, time);
    const auto sourceTime = fs::last_write_time(from);

    std::string error;
    ASSERT_TRUE(copyFileKeepingTime(from, to, &error)) << error;
    EXPECT_EQ(get(to), get(from));
    EXPECT_EQ(modificationTime(to), sourceTime);
    EXPECT_EQ(modificationTime(from), sourceTime) << "the source is left alone";
    EXPECT_EQ(entries(), (std::vector<std::string>{"Sol.edt", "Sol.orb"}));
}

TEST_F(FileIoTest, CopyOfAMissingSourceChangesNothing) {
    put(dir_ / "Sol.edt", "backup");
    std::string error;
    EXPECT_FALSE(copyFileKeepingTime(dir_ / "Sol.orb", dir_ / "Sol.edt", &error));
    EXPECT_NE(error.find("Sol.orb"), std::string::npos) << error;
    EXPECT_EQ(get(dir_ / "Sol.edt"), "backup");
    EXPECT_FALSE(modificationTime(dir_ / "Sol.orb").has_value());
}

}  // namespace
}  // namespace orr
