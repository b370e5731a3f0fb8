// The outside programs and files the editor deals with: command lines split as Windows splits
// them, options filled in without leaving their words, programs found in PATH, the command that
// starts the game at a system, and Make Package: the package folder holds the system's own files,
// the installer and a byte-exact SETUP.LST; the built-in writer zips exactly those files; a
// package that cannot be made whole leaves nothing behind and says why.

#include <gtest/gtest.h>
#include <zip.h>

#include "external/CommandLine.h"
#include "external/GameLaunch.h"
#include "external/Package.h"
#include "external/ZipWriter.h"
#include "store/SystemName.h"
#include "support/GameFixture.h"
#include "text/Cp1252.h"

namespace orr {
namespace {

using test::TempGameFolder;
using Words = std::vector<std::string>;
using Names = std::vector<std::string>;

TEST(CommandLineTest, SplitsByTheWindowsRules) {
    const std::pair<std::string, Words> cases[] = {
        {"a  b\tc", {"a", "b", "c"}},
        {R"("a b" c)", {"a b", "c"}},
        {R"(a\\b c\)", {R"(a\\b)", R"(c\)"}},  // backslashes before no quote are kept
        {R"(a\"b)", {R"(a"b)"}},               // an odd run escapes the quote
        {R"(a\\"b c")", {R"(a\b c)"}},         // an even run is halved and the quote counts
        {R"("a""b" c)", {R"(a"b)", "c"}},      // "" inside quotes is a quote
        {R"("" x)", {"", "x"}},
        {"  ", {}},
    };
    for (const auto& [line, words] : cases) EXPECT_EQ(splitArguments(line), words) << line;
    // The program's name knows no escapes: a quoted folder may end in a backslash.
    const CommandLine line = splitCommandLine(R"( "C:\Tools\"paint.exe "C:\Planet 4.bmp")");
    EXPECT_EQ(line.program, R"(C:\Tools\paint.exe)");
    EXPECT_EQ(line.arguments, Words{R"(C:\Planet 4.bmp)"});
}

TEST(CommandLineTest, OptionsKeepTheValueInItsWordsWhateverItHolds) {
    const std::string odd = "C:\\It's \"odd\"; rm -rf x\\";
    const std::tuple<std::string, std::string, Words> cases[] = {
        {"a %1 %1", "C:\\Pkg\\Sol", {"a", "C:\\Pkg\\Sol", "C:\\Pkg\\Sol"}},
        {"/e %1 /x", "C:\\Planet4.bmp", {"/e", "C:\\Planet4.bmp", "/x"}},
        {"-min -a \"%1.zip\" \"%1\"", odd, {"-min", "-a", odd + ".zip", odd}},
    };
    for (const auto& [options, value, words] : cases)
        EXPECT_EQ(expandOptions(options, value), words) << options;
}

TEST(CommandLineTest, ProgramsAreFoundAsGivenOrInPath) {
    TempGameFolder game(TempGameFolder::Contents::Bare);
    const fs::path bin = game.path("bin dir");
    test::writeProgram(bin / "paint", "exit 0");
    test::writeBytes(bin / "notes", "not a program");
    const std::string path = "/nonexistent:" + bin.string();
    const std::pair<std::string, std::optional<std::string>> cases[] = {
        {"paint", (bin / "paint").string()},
        {"notes", std::nullopt},  // in PATH only what may run
        {(bin / "notes").string(), (bin / "notes").string()},
        {"/nonexistent/paint", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [program, found] : cases)
        EXPECT_EQ(findProgram(program, path), found) << program;
    // The zip program: none set or none found leaves the zipping to the editor.
    EXPECT_FALSE(zipProgramCall("", "%1", "/p/Sol"));
    EXPECT_FALSE(zipProgramCall("/nonexistent/zip", "%1", "/p/Sol"));
    EXPECT_EQ(zipProgramCall("sh", "-c \"%1\"", "/p/Sol")->arguments, (Words{"-c", "/p/Sol"}));
}

TEST(GameLaunchTest, TheGameGetsTheStartArgumentsBytes) {
    TempGameFolder game;
    const std::string game_exe = game.folder().executable().string();
    std::string problem;
    for (const std::string key : {"9Sol", "0Test", "Nova", "Caf\xE9"}) {
        const auto alone = gameCommand(game.folder(), key, "", &problem);
        ASSERT_TRUE(alone) << problem;
        EXPECT_EQ(alone->program, game_exe);
        ASSERT_EQ(alone->arguments.size(), 1u);
        EXPECT_EQ(text::utf8ToCp1252(alone->arguments[0]), "/star:" + EncodeStarArgument(key));
        // A launcher goes in front of the game, with its own words.
        const auto launched = gameCommand(game.folder(), key, "sh -x", &problem);
        ASSERT_TRUE(launched) << problem;
        EXPECT_EQ(launched->arguments, (Words{"-x", game_exe, alone->arguments[0]}));
    }
    const std::pair<std::string, std::string> refused[] = {
        {"Nova" + std::string(17, 'a'), "too long"},  // the game would see a cut name
        {"Caf\xFF", "cannot carry"},
    };
    for (const auto& [key, why] : refused) {
        EXPECT_FALSE(gameCommand(game.folder(), key, "", &problem)) << key;
        EXPECT_NE(problem.find(why), std::string::npos) << problem;
    }
    EXPECT_FALSE(gameCommand(game.folder(), "Nova", "no-such-launcher --x", &problem));
    EXPECT_EQ(problem, "Cannot find the program 'no-such-launcher'.");
}

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
