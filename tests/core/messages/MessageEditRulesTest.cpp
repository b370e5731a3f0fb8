// The checks the message editor makes before it saves a line: what would be lost or read
// differently by the game once the line is written back in the editor's own form.

#include <gtest/gtest.h>

#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"

namespace orr {
namespace {

const SpecialCodeList& codes() {
    static const SpecialCodeList list =
        SpecialCodeList::parse("*SF - Sets flag [A]\r\n*R - Only while system (S1) is damaged\r\n");
    return list;
}

// The warnings for saving the stored line unchanged, as the editor does after reading it.
std::vector<std::string> warningsForUnchanged(std::string_view stored, Direction direction,
                                              std::string_view group) {
    const MessageLine line = DecodeMessage(stored, direction, group, codes());
    return saveWarnings(line, direction, group, codes());
}

bool mentions(const std::vector<std::string>& warnings, std::string_view text) {
    for (const std::string& warning : warnings)
        if (warning.find(text) != std::string::npos) return true;
    return false;
}

TEST(SaveWarnings, LinesThatReadBackAsWrittenAreSavedWithoutQuestions) {
    for (const auto& [stored, direction, group] :
         {std::tuple{"Hello*RTrade*SFA", Direction::Message, "Hail"},
          std::tuple{"Back to the start*R", Direction::Message, "Hail"},
          std::tuple{"Same group*RHail", Direction::Message, "Hail"},
          std::tuple{"Yes*MTrade", Direction::Response, "Hail"},
          std::tuple{"Home*M", Direction::Response, "Hail"},
          std::tuple{"Engines out*RS3", Direction::Response, "Hail"},
          std::tuple{"Anything *at all", Direction::Information, ""}}) {
        SCOPED_TRACE(stored);
        EXPECT_TRUE(warningsForUnchanged(stored, direction, group).empty());
    }
}

TEST(SaveWarnings, ATagOfTheOtherDirectionIsNamed) {
    // A message's "*M" changes the messages that follow, a response's "*R" the responses
    // offered; the editor would write the direction's own letter instead.
    const auto message = warningsForUnchanged("Go on*MTrade", Direction::Message, "Hail");
    ASSERT_EQ(message.size(), 1u);
    EXPECT_TRUE(mentions(message, "\"*MTrade\""));
    EXPECT_TRUE(mentions(message, "\"*RTrade\""));
    const auto response = warningsForUnchanged("Yes*RDeal", Direction::Response, "Hail");
    ASSERT_EQ(response.size(), 1u);
    EXPECT_TRUE(mentions(response, "\"*MDeal\""));
    // Also when the tag names the line's own group, which the editor writes as no tag at all.
    EXPECT_TRUE(
        mentions(warningsForUnchanged("Stay*MHail", Direction::Message, "Hail"), "\"*MHail\""));
}

TEST(SaveWarnings, ALiteralInitGroupIsNamed) {
    const auto warnings = warningsForUnchanged("Restart*RINIT", Direction::Message, "Hail");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_TRUE(mentions(warnings, "\"*RINIT\""));
    EXPECT_TRUE(mentions(warnings, "\"*R\""));
    EXPECT_FALSE(warningsForUnchanged("Restart*M", Direction::Response, "Hail").size());
}

TEST(SaveWarnings, SeveralTagsAreNamed) {
    // "Text*R*MBack" offers INIT's responses and moves the messages on to Back; only one tag
    // survives the editor.
    const auto warnings = warningsForUnchanged("Text*R*RBack", Direction::Message, "Hail");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_TRUE(mentions(warnings, "\"*R\", \"*RBack\""));
    EXPECT_EQ(warningsForUnchanged("Text*R*MBack", Direction::Message, "Hail").size(), 2u);
}

}  // namespace
}  // namespace orr
