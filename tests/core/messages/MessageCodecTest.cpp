// Reading and writing stored message lines: the editor's model must survive a save unchanged,
// and codes must never turn into something else on the way.

#include <gtest/gtest.h>

#include "messages/MessageCodec.h"

namespace orr {
namespace {

// A small list in the order the shipped file keeps: longer codes after the codes they extend.
const SpecialCodeList& codes() {
    static const SpecialCodeList list = SpecialCodeList::parse(
        "Restrictions\r\n"
        "%F - Only while flag [A] is set\r\n"
        "%GN - Door to the north\r\n"
        "Actions\r\n"
        "*SF - Sets flag [A]\r\n"
        "*D - Damages system (S0) now\r\n"
        "*D! - Destroys system (S0)\r\n"
        "*R - Only while system (S1) is damaged\r\n"
        "*R! - Only while system (S1) is destroyed\r\n"
        "*+EN - Gives (500) energy\r\n"
        "^EN - Energy upgrade\r\n");
    return list;
}

MessageLine decode(std::string_view stored, Direction direction = Direction::Message,
                   std::string_view group = "Hail") {
    return DecodeMessage(stored, direction, group, codes());
}

std::string roundTrip(std::string_view stored, Direction direction = Direction::Message,
                      std::string_view group = "Hail") {
    return ComposeMessage(decode(stored, direction, group), direction, group);
}

std::vector<std::string> storedCodes(const MessageLine& line) {
    std::vector<std::string> result;
    for (const SpecialEntry& entry : line.specials) result.push_back(entry.storedCode());
    return result;
}

TEST(MessageCodec, ComposesTheWelcomeExampleAndReadsItBack) {
    MessageLine line;
    line.text = "Welcome, %RK.";
    line.wait = 2;
    line.percent = 5;
    line.display = DisplayMode::Box;
    line.answerGroup = "Trade";
    line.specials.push_back(codes().findEntry("*SF")->withArgument("B"));
    const std::string stored = ComposeMessage(line, Direction::Message, "INIT");
    EXPECT_EQ(stored, "%W2%05$BOX$Welcome, %RK.*RTrade*SFB");

    const MessageLine back = DecodeMessage(stored, Direction::Message, "INIT", codes());
    EXPECT_EQ(back.title, "<none>");
    EXPECT_EQ(ComposeMessage(back, Direction::Message, "INIT"), stored);
    EXPECT_EQ(back.specials.at(0).line(), "*SF - Sets flag [B]");
}

TEST(MessageCodec, DefaultsWriteNoCodesAndNeverIsKept) {
    MessageLine line;
    line.text = "Hi";
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "INIT"), "Hi");
    const MessageLine plain = decode("Hi");
    EXPECT_EQ(plain.percent, 10);
    EXPECT_EQ(plain.title, "Message from Planet:");
    EXPECT_EQ(plain.answerGroup, "Hail");
    EXPECT_EQ(decode("%00Hi").percent, 0);
    EXPECT_EQ(roundTrip("%W9%09Hi"), "%W9%09Hi");
    // Out-of-range model values are written within the scroll bars' ranges.
    line.wait = 12;
    line.percent = -3;
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "INIT"), "%W9%00Hi");
}

TEST(MessageCodec, AnswerTagsFollowDirectionAndGroup) {
    // "*R" alone names INIT and is written back alone.
    EXPECT_EQ(decode("Back to the start*R").answerGroup, "INIT");
    EXPECT_EQ(roundTrip("Back to the start*R"), "Back to the start*R");
    // A tag naming the own group is not written; INIT as the own group is the empty name.
    EXPECT_EQ(roundTrip("Hello*RHail"), "Hello");
    EXPECT_EQ(roundTrip("Hello*R", Direction::Message, ""), "Hello");
    // Responses carry "*M"; a message's "*M" is read as its answer tag too.
    EXPECT_EQ(roundTrip("Yes*MTrade", Direction::Response), "Yes*MTrade");
    EXPECT_EQ(roundTrip("Yes*RTrade", Direction::Response), "Yes*MTrade");
    EXPECT_EQ(AnswerTag("INIT", Direction::Response, "Hail"), "*M");
}

TEST(MessageCodec, SystemConditionsAreNeverAnswerTags) {
    const MessageLine line = decode("Your engines look bad*RS3*R!S4");
    EXPECT_EQ(line.answerGroup, "Hail");
    EXPECT_EQ(storedCodes(line), (std::vector<std::string>{"*RS3", "*R!S4"}));
    // The game takes a message's last "R" code for its answer: a tag read after the conditions
    // stays after them, one read before them moves behind them (the save warns), and a tag to
    // the own group is kept only where it decided.
    for (const char* stored : {"Hm*RS3*RTrade", "Hm*DS1*R!S3*RTrade*SFA", "Hm*RS3*RHail", "Hm*RS3"})
        EXPECT_EQ(roundTrip(stored), stored);
    EXPECT_EQ(roundTrip("Hm*RTrade*RS3"), "Hm*RS3*RTrade");
    EXPECT_EQ(decode("Hm*RTrade*RS3").answerCondition, "*RS3");
    EXPECT_EQ(roundTrip("Hm*RHail*RS3"), "Hm*RS3");
    // In a response the condition keeps its letter.
    EXPECT_EQ(roundTrip("Fix it*RS3", Direction::Response), "Fix it*RS3");
    // Without a digit the token is an answer tag to the group "S" or "Sx".
    EXPECT_EQ(decode("Hm*RSx").answerGroup, "Sx");
    EXPECT_FALSE(IsSystemCondition("*RS"));
}

TEST(MessageCodec, LongerCodesWinOverTheCodesTheyExtend) {
    EXPECT_EQ(decode("Boom*D!S3").specials.at(0).code(), "*D!");
    EXPECT_EQ(decode("Boom*DS3").specials.at(0).line(), "*D - Damages system (S3) now");
    // A list in the wrong order still writes the same bytes but shows the wrong entry.
    const SpecialCodeList wrongOrder =
        SpecialCodeList::parse("*D! - Destroys (S0)\r\n*D - Damages (S0)\r\n");
    const MessageLine line = DecodeMessage("Boom*D!S3", Direction::Message, "Hail", wrongOrder);
    EXPECT_EQ(line.specials.at(0).code(), "*D");
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "Hail"), "Boom*D!S3");
}

TEST(MessageCodec, UnknownCodesAreDroppedAndReported) {
    // Text that begins with "%" is read as a code too.
    EXPECT_EQ(decode("%NM, welcome aboard").droppedCodes, std::vector<std::string>{"%NM"});
    EXPECT_EQ(roundTrip("Hello %NM, welcome"), "Hello %NM, welcome");
    const MessageLine line = decode("Hi^QQ*XYZ12*SFC");
    EXPECT_EQ(storedCodes(line), std::vector<std::string>{"*SFC"});
    EXPECT_EQ(line.droppedCodes, (std::vector<std::string>{"*XYZ12", "^QQ"}));
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "Hail"), "Hi*SFC");
}

TEST(MessageCodec, PartsAreWrittenInTheirOrder) {
    // Suffix codes after the text, then the tag, then the actions; text after a "^" is lost.
    const std::string stored = "Take this ^EN gift*RTrade*+EN250";
    const MessageLine line = decode(stored);
    EXPECT_EQ(line.text, "Take this ");
    EXPECT_EQ(storedCodes(line), (std::vector<std::string>{"*+EN250", "^EN"}));
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "Hail"), "Take this ^EN*RTrade*+EN250");
    // Each prefix code goes in front of the ones before it, so their order turns round.
    const MessageLine prefixed = decode("%FA%GN%W2Go");
    EXPECT_EQ(storedCodes(prefixed), (std::vector<std::string>{"%FA", "%GN"}));
    EXPECT_EQ(ComposeMessage(prefixed, Direction::Message, "Hail"), "%GN%FA%W2Go");
}

TEST(MessageCodec, DisplayPrefixes) {
    const MessageLine custom = decode("$Captain's Log$Day one");
    EXPECT_EQ(custom.title, "Captain's Log");
    EXPECT_EQ(roundTrip("$Captain's Log$Day one"), "$Captain's Log$Day one");
    EXPECT_EQ(roundTrip("$$Untitled"), "$$Untitled");
    EXPECT_EQ(decode("$box$x").display, DisplayMode::Custom);
    // A single "$" opens no prefix: it stays in the text.
    EXPECT_EQ(roundTrip("$5 for a drink"), "$5 for a drink");
}

TEST(MessageCodec, MissingLinesAndInformation) {
    EXPECT_EQ(decode("ERR").text, "");
    EXPECT_EQ(roundTrip("%05ERR"), "%05ERR");  // only a whole line "ERR" is a missing key
    EXPECT_EQ(decode("").answerGroup, "Hail");
    const MessageLine info = DecodeMessage("Life: *lots*", Direction::Information, "", codes());
    EXPECT_EQ(info.answerGroup, "");
    EXPECT_EQ(ComposeMessage(info, Direction::Information, ""), "Life: *lots*");
    EXPECT_EQ(DecodeMessage("ERR", Direction::Information, "", codes()).text, "");
}

TEST(MessageCodec, LengthLimit) {
    EXPECT_FALSE(ExceedsLengthLimit(std::string(254, 'x')));
    MessageLine line;
    line.text = std::string(249, 'x');
    line.answerGroup = "Trade";
    const std::string stored = ComposeMessage(line, Direction::Message, "INIT");
    EXPECT_EQ(stored.size(), 256u);
    EXPECT_TRUE(ExceedsLengthLimit(stored));
}

TEST(MessageCodec, PlainText) {
    EXPECT_EQ(PlainText("%W2%05$BOX$Welcome, %RK.*RTrade*SFB"), "Welcome, %RK.");
    EXPECT_EQ(PlainText("$Log$  Day one ^EN*R"), "Day one ");
    EXPECT_EQ(PlainText("%NMHello"), "Hello");
}

}  // namespace
}  // namespace orr
