#include "store/FileIo.h"

#include <gtest/gtest.h>

#include <chrono>

#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::entryNames;
using test::readBytes;
using test::writeBytes;
using Names = std::vector<std::string>;

class FileIoTest : public ::testing::Test {
  protected:
    test::TempGameFolder game;
    const fs::path dir = game.descriptors();
};

TEST_F(FileIoTest, ReadsEveryByteAndNamesAFileItCannotRead) {
    const std::string bytes = std::string("[1]\r\nA=\0\xFF\r", 10) + std::string(200000, 'z');
    writeBytes(dir / "a.orb", bytes);
    EXPECT_EQ(readWholeFile(dir / "a.orb"), bytes);
    writeBytes(dir / "empty", "");
    EXPECT_EQ(readWholeFile(dir / "empty"), std::string());

    std::string error;
    EXPECT_FALSE(readWholeFile(dir / "Missing.orb", &error).has_value());
    EXPECT_NE(error.find("Missing.orb"), std::string::npos) << error;
    EXPECT_FALSE(readWholeFile(dir, &error).has_value());
    EXPECT_FALSE(readWholeFile(dir / "Missing.orb").has_value()) << "no error text wanted";
}

// Failures at each step of a write are injected by the session's FileFailureTest; here the
// write meets a real folder that is missing and a folder where the file should be.
TEST_F(FileIoTest, WriteReplacesWholeOrFailsNamingTheFileAndLeavesNoTemporaryFile) {
    const fs::path file = dir / "Sol.edt";
    std::string error;
    ASSERT_TRUE(writeFileAtomically(file, std::string("one\r\n\0", 6), &error)) << error;
    EXPECT_EQ(readBytes(file), std::string("one\r\n\0", 6));
    ASSERT_TRUE(writeFileAtomically(file, "", &error)) << error;
    EXPECT_EQ(readBytes(file), "");

    EXPECT_FALSE(writeFileAtomically(dir / "no-such-folder" / "Sol.orb", "x", &error));
    EXPECT_NE(error.find("Sol.orb"), std::string::npos) << error;
    fs::create_directory(dir / "Sol.orb");
    EXPECT_FALSE(writeFileAtomically(dir / "Sol.orb", "x", &error));
    EXPECT_TRUE(fs::is_directory(dir / "Sol.orb"));
    EXPECT_EQ(entryNames(dir), (Names{"Sol.edt", "Sol.orb"}));
}

TEST_F(FileIoTest, ReplacingKeepsPermissionsAndSymbolicLinks) {
    writeBytes(dir / "Sol.orb", "old");
    const auto chosen = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(dir / "Sol.orb", chosen);
    ASSERT_TRUE(writeFileAtomically(dir / "Sol.orb", "new"));
    EXPECT_EQ(fs::status(dir / "Sol.orb").permissions(), chosen);

    fs::create_symlink("Sol.orb", dir / "link.orb");
    ASSERT_TRUE(writeFileAtomically(dir / "link.orb", "newer"));
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(dir / "link.orb")));
    EXPECT_EQ(readBytes(dir / "Sol.orb"), "newer");
}

TEST_F(FileIoTest, CopyKeepsTheSourceTimeExactly) {
    const fs::path from = dir / "Sol.orb";
    const fs::path to = dir / "Sol.edt";
    writeBytes(to, "an older working copy that is longer than the source");
    std::string error;
    EXPECT_FALSE(copyFileKeepingTime(from, to, &error));
    EXPECT_NE(error.find("Sol.orb"), std::string::npos) << error;
    EXPECT_EQ(readBytes(to), "an older working copy that is longer than the source");

    writeBytes(from, "[General]\r\n");
    // A time with sub-second digits, to catch copies that round it.
    const auto time = fs::file_time_type::clock::now() - std::chrono::hours(50) +
                      std::chrono::nanoseconds(123456789);
    fs::last_write_time(from, time);
    const auto sourceTime = fs::last_write_time(from);
    ASSERT_TRUE(copyFileKeepingTime(from, to, &error)) << error;
    EXPECT_EQ(readBytes(to), "[General]\r\n");
    EXPECT_EQ(modificationTime(to), sourceTime);
    EXPECT_EQ(modificationTime(from), sourceTime) << "the source is left alone";
    EXPECT_EQ(entryNames(dir), (Names{"Sol.edt", "Sol.orb"}));
}

}  // namespace
}  // namespace orr
