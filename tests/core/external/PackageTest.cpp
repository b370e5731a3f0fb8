// Make Package: the package folder holds the system's own files, the installer and a byte-exact
// SETUP.LST; the built-in writer zips exactly those files; a package that cannot be made whole
// leaves nothing behind and says why.

#include <gtest/gtest.h>
#include <zip.h>

#include "external/Package.h"
#include "external/ZipWriter.h"
#include "support/GameFixture.h"

namespace orr {
namespace {

using test::TempGameFolder;
using Names = std::vector<std::string>;

// The entries of a zip archive, with the bytes of each.
std::vector<std::pair<std::string, std::string>> zipEntries(const fs::path& archive) {
    std::vector<std::pair<std::string, std::string>> entries;
    zip_t* zip = zip_open(archive.c_str(), ZIP_RDONLY, nullptr);
    if (!zip) return entries;
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
        zip_stat_t stat;
        zip_stat_index(zip, static_cast<zip_uint64_t>(i), 0, &stat);
        std::string bytes(stat.size, '\0');
        zip_file_t* file = zip_fopen_index(zip, static_cast<zip_uint64_t>(i), 0);
        zip_fread(file, bytes.data(), stat.size);
        zip_fclose(file);
        entries.emplace_back(stat.name, bytes);
    }
    zip_close(zip);
    return entries;
}

class PackageTest : public ::testing::Test {
  protected:
    PackageTest() {
        game.writeDescriptor(TempGameFolder::systemRecord("9Sol", 2));
        game.write("ORBInst.dat", "installer");
        // Another system's strip and a file that only looks like Sol's stay out.
        for (const char* name : {"9Sol.bmp", "9SolSun.jpg", "9Sol2.avi", "9Sol2.bmp", "Vega.bmp"})
            game.write(std::string("PICTURES/") + name, name);
        fs::create_directories(parent);
    }
    TempGameFolder game;
    fs::path parent = game.path("out dir");
};

TEST_F(PackageTest, HoldsTheSystemsFilesTheInstallerAndTheInstallList) {
    fs::path made;
    std::string error;
    ASSERT_TRUE(makePackage(game.folder(), "9Sol", parent, &made, &error)) << error;
    EXPECT_EQ(made, parent / "9Sol");
    const Names expected{"9Sol.bmp",    "9Sol.orb",  "9Sol2.avi",
                         "9SolSun.jpg", "SETUP.EXE", "SETUP.LST"};
    EXPECT_EQ(test::entryNames(made), expected);
    EXPECT_EQ(test::readBytes(made / "SETUP.EXE"), "installer");
    EXPECT_EQ(test::readBytes(made / "SETUP.LST"),
              test::crlf({R"("9Sol.bmp","\PICTURES\")", R"("9Sol2.avi","\PICTURES\")",
                          R"("9SolSun.jpg","\PICTURES\")", R"("9Sol.orb","\ORBDescriptor\")"}));

    ASSERT_TRUE(zipFolder(made, packageArchive(made), &error)) << error;
    EXPECT_EQ(packageArchive(made), parent / "9Sol.zip");
    const auto entries = zipEntries(parent / "9Sol.zip");
    Names names;
    for (const auto& [name, bytes] : entries) {
        names.push_back(name);
        EXPECT_EQ(bytes, test::readBytes(made / name)) << name;
    }
    EXPECT_EQ(names, expected);
}

TEST_F(PackageTest, APackageThatCannotBeMadeWholeLeavesNothing) {
    std::string error;
    test::writeBytes(parent / "9Sol" / "mine.txt", "keep");
    EXPECT_FALSE(makePackage(game.folder(), "9Sol", parent, nullptr, &error));
    EXPECT_NE(error.find("exists already"), std::string::npos) << error;
    EXPECT_EQ(test::readBytes(parent / "9Sol" / "mine.txt"), "keep");
    fs::remove_all(parent / "9Sol");
    fs::remove(game.path("ORBInst.dat"));
    for (const auto& [name, why] : {std::pair<std::string, std::string>{"9Sol", "installer"},
                                    {"Nope", "no saved descriptor"}}) {
        EXPECT_FALSE(makePackage(game.folder(), name, parent, nullptr, &error));
        EXPECT_NE(error.find(why), std::string::npos) << error;
    }

    // A folder no package can be written to: nothing half-made stays.
    game.write("ORBInst.dat", "installer");
    test::ReadOnlyFolder locked(parent);
    if (!locked.enforced()) GTEST_SKIP() << "the folder could not be made read-only";
    EXPECT_FALSE(makePackage(game.folder(), "9Sol", parent, nullptr, &error));
    EXPECT_TRUE(test::entryNames(parent).empty());
    EXPECT_FALSE(zipFolder(game.pictures(), parent / "p.zip", &error));
    EXPECT_NE(error.find("could not be written"), std::string::npos) << error;
}

}  // namespace
}  // namespace orr
