// The checks the message editor makes before it saves a line: what would be lost or read
// differently by the game once the line is written back in the editor's own form. (Which lines
// save without a question is LineRoundTripTest's table.)

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

TEST(SaveWarnings, WhatTheEditorWouldWriteDifferentlyIsNamed) {
    // A message's "*M" changes the messages that follow, a response's "*R" the responses
    // offered; the editor writes the direction's own letter, INIT as "*R", and one tag only.
    const struct {
        const char* stored;
        Direction direction;
        std::size_t count;
        std::vector<const char*> named;
    } cases[] = {
        {"Go on*MTrade", Direction::Message, 1, {"\"*MTrade\"", "\"*RTrade\""}},
        {"Yes*RDeal", Direction::Response, 1, {"\"*MDeal\""}},
        {"Stay*MHail", Direction::Message, 1, {"\"*MHail\""}},  // even for the own group
        {"Restart*RINIT", Direction::Message, 1, {"\"*RINIT\"", "\"*R\""}},
        {"Restart*M", Direction::Response, 0, {}},
        {"Text*R*RBack", Direction::Message, 1, {"\"*R\", \"*RBack\""}},
        {"Text*R*MBack", Direction::Message, 2, {}},
        // The condition chose the answer; saved, the tag after it will.
        {"Hm*RTrade*RS3", Direction::Message, 1, {"\"*RS3\"", "\"S3\"", "\"Trade\""}},
        // Codes the list does not know, a text that would read back otherwise.
        {"%ZZHi*QQ5*SFA", Direction::Message, 1, {"will be dropped: %ZZ, *QQ5."}},
        {" %W1Hello", Direction::Message, 1, {"The text will read back as \"Hello\""}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stored);
        const auto warnings = warningsForUnchanged(c.stored, c.direction, "Hail");
        EXPECT_EQ(warnings.size(), c.count);
        for (const char* text : c.named) EXPECT_TRUE(mentions(warnings, text)) << text;
    }
}

TEST(GroupNames, OneRuleForTheEditorAndTheTool) {
    for (const char* good : {"Trade", "[Hail]", "Area11", "S1"})
        EXPECT_EQ(groupNameProblem(good), "") << good;
    for (const char* bad : {"", " ", "Trade ", " Trade", "a*b", "a=b", "a\tb"})
        EXPECT_NE(groupNameProblem(bad), "") << bad;
    // A message's tag to "S1" would be read as a ship-system condition; a response's is not.
    EXPECT_EQ(answerGroupProblem("S1", Direction::Message),
              "A message cannot lead to the group \"S1\": the game reads \"*RS1\" as a "
              "ship-system condition.");
    EXPECT_NE(answerGroupProblem("!S2", Direction::Message), "");
    EXPECT_EQ(answerGroupProblem("S1", Direction::Response), "");
    EXPECT_EQ(answerGroupProblem("", Direction::Message), "");
}

TEST(ArgumentValues, EachCodeGetsTheKindOfValueTheGameReads) {
    struct Case {
        const char* code;
        const char* value;
        const char* problem;  // a word of the message; empty: accepted
    };
    const Case cases[] = {
        {"*H", "100", ""},
        {"*H", "lots", "whole number"},
        {"*+EN", "-5", "whole number"},
        {"*-TI", "99999", "32767"},
        {"*SP", "5", ""},
        {"*SP", "6", "0 to 5"},
        {"*D", "S8", ""},
        {"*D!", "S9", "ship system"},
        {"*R", "3", "ship system"},
        {"*SF", "7", ""},
        {"%F", "a", "flag"},
        {"*A", "4*H1", "brackets"},
        {"*Z", "free text", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.code) + c.value);
        const std::string problem = argumentProblem(c.code, c.value);
        if (*c.problem == '\0')
            EXPECT_EQ(problem, "");
        else
            EXPECT_NE(problem.find(c.problem), std::string::npos) << problem;
    }
}

}  // namespace
}  // namespace orr
