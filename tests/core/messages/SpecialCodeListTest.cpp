// The special-code list: parsing the file, the entries' placeholders, and the rules of the
// editor's "Actions" frame (which entry may be added, conflicts, the argument editors).

#include <gtest/gtest.h>

#include "messages/SpecialCodeFile.h"
#include "messages/SpecialCodeList.h"
#include "support/GameFixture.h"

namespace orr {
namespace {

const char* const kSample =
    "Restrictions\r\n"
    "%F - Only while flag [A] is set\r\n"
    "%f - Only while flag [A] is clear\n"
    "\r\n"
    "   \r\n"
    "%10 - No energy upgrade yet\r"
    "%GN - North door\r\n"
    "%GS - South door\r\n"
    "Actions\r\n"
    "*+EN - Gives (500) units of energy\r\n"
    "*D - Damages (S0); S0 picks one\r\n"
    "Last heading";

TEST(SpecialCodeList, ParsesEntriesAndHeadingsInFileOrder) {
    const SpecialCodeList list = SpecialCodeList::parse(kSample);
    ASSERT_EQ(list.size(), 10u);
    EXPECT_FALSE(list.codesAvailable());
    const auto& e = list.entries();
    EXPECT_TRUE(e[0].isHeading());
    EXPECT_EQ(e[1].code(), "%F");
    EXPECT_EQ(e[1].description(), "Only while flag [A] is set");
    EXPECT_EQ(e[3].line(), "%10 - No energy upgrade yet");  // a lone CR ends a line too
    EXPECT_TRUE(e[1].isRestriction());
    EXPECT_FALSE(e[6].isRestriction());  // a heading carries no mark
    EXPECT_TRUE(e[9].isHeading());
}

TEST(SpecialEntry, PlaceholdersHoldTheArgument) {
    const SpecialEntry energy("*+EN - Gives (500) units of energy");
    EXPECT_EQ(energy.storedCode(), "*+EN500");
    EXPECT_EQ(energy.withArgument("750").line(), "*+EN - Gives (750) units of energy");
    EXPECT_EQ(energy.withArgument("").line(), energy.line());

    const SpecialEntry flag("%F - Only while flag [A] is set");
    EXPECT_EQ(flag.withArgument("Q").storedCode(), "%FQ");

    // An explanation stands apart, and brackets in it are no placeholder.
    const SpecialEntry explained("*D - Damages (S0) -- S0 picks one (at random)");
    EXPECT_EQ(explained.line(), "*D - Damages (S0)");
    EXPECT_EQ(explained.explanation(), "S0 picks one (at random)");
    EXPECT_EQ(explained.withArgument("S4").storedCode(), "*DS4");

    const SpecialEntry bare("*FALL - Repairs everything");
    EXPECT_EQ(bare.withArgument("x"), bare);
    EXPECT_FALSE(bare.canEditArgument());
    EXPECT_EQ(SpecialEntry("^EN - Upgrade").storedCode(), "^EN");

    // An unclosed placeholder runs to the end of the line and is closed when edited.
    const SpecialEntry open("*A - Allows (3 days");
    EXPECT_EQ(open.roundArgument(), "3 days");
    EXPECT_EQ(open.withArgument("5").line(), "*A - Allows (5)");
    // An argument read from a file may hold brackets: it is written back as it was.
    const SpecialEntry bracket = energy.withArgument("[)");
    EXPECT_EQ(bracket.storedCode(), "*+EN[)");
    EXPECT_EQ(bracket.line(), "*+EN - Gives ([)) units of energy");
}

// The editors for "(S3)", "(12)" and "[7]" show in the window tests (SpecialCodesTest); here the
// placeholders that look alike but are none of them.
TEST(SpecialEntry, OnlyAShipSystemOpensTheSystemChooser) {
    const auto editor = [](const char* line) { return SpecialEntry(line).argumentEditor(); };
    EXPECT_EQ(editor("*D - System (S3)").systemIndex, 3);
    EXPECT_EQ(editor("*D - System (S9)").kind, ArgumentEditorKind::InputBox);
    EXPECT_EQ(editor("*D - System (s3)").kind, ArgumentEditorKind::InputBox);
    EXPECT_EQ(editor("^EN - Upgrade").kind, ArgumentEditorKind::None);
    EXPECT_EQ(SpecialEntry("*D - System (S3)").withArgument(shipSystemArgument(7)).storedCode(),
              "*DS7");
}

TEST(SpecialCodeList, FindsTheLastMatchingEntryAndKnowsWhatMayBeAttached) {
    const SpecialCodeList list = SpecialCodeList::parse(kSample);
    EXPECT_EQ(list.findEntry("%GX"), nullptr);
    EXPECT_EQ(list.findEntry("Actions"), nullptr);  // headings never match
    EXPECT_EQ(list.entryForToken("*DS4")->line(), "*D - Damages (S4); S0 picks one");
    EXPECT_EQ(list.entryForToken("%fZ")->storedCode(), "%fZ");
    EXPECT_FALSE(list.entryForToken("*Q"));

    // The direction markers and the heading's choice show in the window tests.
    const auto& e = list.entries();
    const SpecialEntry& flagSet = e[1];
    const SpecialEntry& upgrade = e[3];
    const SpecialEntry& energy = e[7];
    EXPECT_EQ(SpecialCodeList::checkAttach({upgrade}, upgrade), AttachConflict::SameRestriction);
    EXPECT_EQ(attachConflictMessage(AttachConflict::SameRestriction),
              "You cannot have more than one of the same restriction.");
    EXPECT_EQ(SpecialCodeList::checkAttach({upgrade, e[4]}, e[5]), AttachConflict::DirectionMarker);
    // Flag restrictions may be attached again and again; action codes are not checked.
    EXPECT_EQ(SpecialCodeList::checkAttach({flagSet, flagSet.withArgument("B")}, flagSet),
              AttachConflict::None);
    EXPECT_EQ(SpecialCodeList::checkAttach({energy}, energy), AttachConflict::None);
    EXPECT_TRUE(SpecialCodeList::canAdd(energy, Direction::Message));
    EXPECT_FALSE(SpecialCodeList::canAdd(e[0], Direction::Message));
    EXPECT_EQ(list.settleChoice(9), 8);  // the last line: back to the nearest entry above
    EXPECT_EQ(list.settleChoice(10), -1);
    EXPECT_EQ(SpecialCodeList::parse("A\r\nB\r\n").settleChoice(0), -1);
}

TEST(SpecialCodeFile, PrefersTheGameFolderWhateverItsLetterCaseThenTheProgramCopy) {
    test::TempGameFolder game(test::TempGameFolder::Contents::Bare);
    const fs::path programCopy = game.pictures() / "SPECIAL.LST";  // a folder of the program's
    game.write("special.lst", "*SF - Game [A]\r\n");
    test::writeBytes(programCopy, "*SF - Program [A]\r\n");
    SpecialCodeLoad load = loadSpecialCodes(game.folder(), programCopy);
    EXPECT_TRUE(load.problem.empty());
    EXPECT_EQ(load.list.source(), game.path("special.lst"));
    EXPECT_EQ(load.list.entries().at(0).line(), "*SF - Game [A]");

    fs::remove(game.path("special.lst"));
    load = loadSpecialCodes(game.folder(), programCopy);
    EXPECT_EQ(load.list.entries().at(0).line(), "*SF - Program [A]");

    load = loadSpecialCodes(game.folder(), game.path("missing.lst"));
    EXPECT_FALSE(load.list.codesAvailable());
    EXPECT_TRUE(load.list.empty());
    EXPECT_NE(load.problem.find("SPECIAL.LST"), std::string::npos);
}

}  // namespace
}  // namespace orr
