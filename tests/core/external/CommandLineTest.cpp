// Command lines split as Windows splits them, options filled in without leaving their words,
// programs found in PATH, and the command that starts the game at a system.

#include <gtest/gtest.h>

#include "external/CommandLine.h"
#include "external/GameLaunch.h"
#include "external/Package.h"
#include "store/SystemName.h"
#include "support/GameFixture.h"
#include "text/Cp1252.h"

namespace orr {
namespace {

using test::TempGameFolder;
using Words = std::vector<std::string>;

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

}  // namespace
}  // namespace orr
