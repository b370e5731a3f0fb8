// The special-code list that ships beside the program: every code the game's interpreter knows
// must pass through the editor unchanged, and the file must be what the game's tools expect.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "core/messages/support/ShippedCodes.h"
#include "messages/MessageCodec.h"

namespace orr {
namespace {

using test::shippedCodes;

// Every code of the interpreter, each with a sample argument where it takes one.
std::vector<std::string> interpreterCodes() {
    std::vector<std::string> codes;
    for (int n = 10; n <= 59; ++n) codes.push_back("%" + std::to_string(n));
    for (const char* code :
         {"%FA",      "%fB",     "%F7",       "%GN",   "%GE",     "%GS",     "%GW",
          "%G-",      "^EN",     "^PT",       "^TB",   "^SH",     "^SN",     "*SFA",
          "*CFZ",     "*TF9",    "*DS0",      "*DS3",  "*D!S8",   "*FS2",    "*F!S5",
          "*FALL",    "*TREATY", "*NOTREATY", "*RS3",  "*R!S4",   "*+PTU5",  "*-PTU2",
          "*+PT10",   "*-PT3",   "*+PO1",     "*-PO2", "*+EN500", "*-EN250", "*+ENM1000",
          "*-ENM500", "*+TI5",   "*-TI2",     "*A3",   "*H100",   "*SP2"})
        codes.emplace_back(code);
    return codes;
}

std::string lineWith(const std::string& code) {
    if (code.front() == '%') return code + "Text";
    return "Text" + code;
}

TEST(ShippedSpecialList, EveryInterpreterCodeSurvivesReadingAndWriting) {
    for (const std::string& code : interpreterCodes()) {
        SCOPED_TRACE(code);
        const std::string stored = lineWith(code);
        const MessageLine line = DecodeMessage(stored, Direction::Message, "Hail", shippedCodes());
        ASSERT_EQ(line.specials.size(), 1u);
        EXPECT_TRUE(line.droppedCodes.empty());
        EXPECT_EQ(line.specials[0].storedCode(), code);
        EXPECT_EQ(line.answerGroup, "Hail");
        EXPECT_EQ(ComposeMessage(line, Direction::Message, "Hail"), stored);
        if (code.front() != '%') continue;
        // Restrictions also hold in responses.
        const std::string response = code + "Open the door*MRoom2";
        const MessageLine answer =
            DecodeMessage(response, Direction::Response, "Area11", shippedCodes());
        ASSERT_EQ(answer.specials.size(), 1u);
        EXPECT_TRUE(SpecialCodeList::canAdd(answer.specials[0], Direction::Response));
        EXPECT_EQ(ComposeMessage(answer, Direction::Response, "Area11"), response);
    }
}

TEST(ShippedSpecialList, EntriesAreWellFormed) {
    const auto& entries = shippedCodes().entries();
    std::set<std::string> headings;
    std::vector<std::string> seen;
    for (const SpecialEntry& entry : entries) {
        SCOPED_TRACE(entry.line());
        if (entry.isHeading()) {
            headings.insert(entry.line());
            continue;
        }
        EXPECT_NE(entry.place(), CodePlace::None);
        EXPECT_FALSE(entry.description().empty());
        const std::string& line = entry.line();
        // The list is as wide as its longest entry: explanations go after " -- ".
        EXPECT_LE(line.size(), 80u);
        const auto brackets =
            std::count_if(line.begin(), line.end(), [](char c) { return c == '(' || c == '['; });
        EXPECT_LE(brackets, 1) << "one placeholder at most";
        EXPECT_EQ(brackets, std::count_if(line.begin(), line.end(),
                                          [](char c) { return c == ')' || c == ']'; }));
        if (entry.place() == CodePlace::Prefix) {
            EXPECT_FALSE(entry.roundArgument()) << "prefix codes take square brackets only";
            EXPECT_EQ(entry.storedCode().size(), 3u);
        }
        if (entry.place() == CodePlace::Suffix) {
            EXPECT_FALSE(entry.canEditArgument());
            EXPECT_EQ(entry.code().size(), 3u);
        }
        // Matching runs from the last entry, so a code must stand after every code it extends,
        // and no code may be listed twice.
        for (const std::string& earlier : seen) EXPECT_FALSE(earlier.starts_with(entry.code()));
        seen.push_back(entry.code());
    }
    for (const char* heading : {"Restrictions", "Conditions: upgrades", "Conditions: flags",
                                "Room directions", "Flags", "Ship systems", "Supplies"})
        EXPECT_TRUE(headings.count(heading)) << heading;
}

// The damage, repair and condition codes choose a ship system; the game reads "*RS3" as a
// restriction and also as a change of the responses offered (to the group "S3"), so a designer
// who wants only the damage test is sent to the plain condition.
TEST(ShippedSpecialList, SystemCodesOpenTheSystemChooserAndConditionsSayWhatElseTheyDo) {
    for (const char* code : {"*D", "*D!", "*F", "*F!", "*R", "*R!"}) {
        const SpecialEntry* entry = shippedCodes().findEntry(code);
        ASSERT_NE(entry, nullptr) << code;
        EXPECT_EQ(entry->argumentEditor().kind, ArgumentEditorKind::SystemChooser) << code;
    }
    EXPECT_EQ(shippedCodes().findEntry("*SF")->argumentEditor().kind,
              ArgumentEditorKind::FlagChooser);
    for (const auto& [code, plainCondition] : {std::pair{"*R", "%47"}, std::pair{"*R!", "%49"}}) {
        const std::string description = shippedCodes().findEntry(code)->explanation();
        EXPECT_NE(description.find("responses"), std::string::npos) << code;
        EXPECT_NE(description.find(plainCondition), std::string::npos) << code;
        EXPECT_NE(shippedCodes().findEntry(plainCondition), nullptr) << code;
    }
}

TEST(ShippedSpecialList, FileIsWindows1252WithCrLf) {
    const std::string bytes = test::shippedListBytes();
    EXPECT_TRUE(bytes.ends_with("\r\n"));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned char c = bytes[i];
        // Every CR and every LF belongs to a CR LF pair.
        if (c == '\r' || c == '\n') {
            EXPECT_TRUE(c == '\r' ? bytes[i + 1] == '\n' : i > 0 && bytes[i - 1] == '\r') << i;
            continue;
        }
        // No control characters, and none of the five byte values Windows-1252 leaves undefined.
        EXPECT_TRUE(c >= 0x20 && c != 0x7F && c != 0x81 && c != 0x8D && c != 0x8F && c != 0x90 &&
                    c != 0x9D)
            << int(c);
    }
}

}  // namespace
}  // namespace orr
