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

// Read and written back, a line takes the editor's form: defaults, tags to the own group and
// codes the list does not know go, the parts stand in their order.
TEST(MessageCodec, LinesAreWrittenBackInTheEditorsForm) {
    const auto m = Direction::Message;
    const auto r = Direction::Response;
    const struct {
        const char* stored;
        Direction direction;
        const char* group;
        const char* written;
    } cases[] = {
        {"%W9%09Hi", m, "Hail", "%W9%09Hi"},
        {"%00Hi", m, "Hail", "%00Hi"},                              // never is no default
        {"Back to the start*R", m, "Hail", "Back to the start*R"},  // "*R" alone: to INIT
        {"Hello*RHail", m, "Hail", "Hello"},                        // a tag to the own group
        {"Hello*R", m, "", "Hello"},  // INIT as the own group is the empty name
        {"Yes*MTrade", r, "Hail", "Yes*MTrade"},
        {"Yes*RTrade", r, "Hail", "Yes*MTrade"},
        // The game takes a message's last "R" code for its answer: a tag read before the
        // conditions moves behind them (the save warns), one to the own group stays only where
        // it decided. (That the rest keep their meaning is LineRoundTripTest's.)
        {"Hm*RTrade*RS3", m, "Hail", "Hm*RS3*RTrade"},
        {"Hm*RHail*RS3", m, "Hail", "Hm*RS3"},
        {"Hm*RS3*RHail", m, "Hail", "Hm*RS3*RHail"},
        {"Fix it*RS3", r, "Hail", "Fix it*RS3"},  // in a response the condition keeps its letter
        {"Hello %NM, welcome", m, "Hail", "Hello %NM, welcome"},
        {"Hi^QQ*XYZ12*SFC", m, "Hail", "Hi*SFC"},  // unknown codes are dropped
        // Suffix codes after the text, then the tag, then the actions; text after a "^" is lost.
        {"Take this ^EN gift*RTrade*+EN250", m, "Hail", "Take this ^EN*RTrade*+EN250"},
        // Each prefix code goes in front of the ones before it, so their order turns round.
        {"%FA%GN%W2Go", m, "Hail", "%GN%FA%W2Go"},
        {"$Captain's Log$Day one", m, "Hail", "$Captain's Log$Day one"},
        {"$$Untitled", m, "Hail", "$$Untitled"},
        {"$5 for a drink", m, "Hail", "$5 for a drink"},  // a single "$" opens no prefix
        {"%05ERR", m, "Hail", "%05ERR"},  // only a whole line "ERR" is a missing key
        {"Life: *lots*", Direction::Information, "", "Life: *lots*"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(roundTrip(c.stored, c.direction, c.group), c.written) << c.stored;

    // Out-of-range model values are written within the scroll bars' ranges.
    MessageLine line;
    line.text = "Hi";
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "INIT"), "Hi");
    line.wait = 12;
    line.percent = -3;
    EXPECT_EQ(ComposeMessage(line, Direction::Message, "INIT"), "%W9%00Hi");
    EXPECT_EQ(AnswerTag("INIT", Direction::Response, "Hail"), "*M");
}

TEST(MessageCodec, DecodedLinesShowTheEditorsModel) {
    const MessageLine plain = decode("Hi");
    EXPECT_EQ(plain.percent, 10);
    EXPECT_EQ(plain.title, "Message from Planet:");
    EXPECT_EQ(plain.answerGroup, "Hail");
    EXPECT_EQ(decode("Back to the start*R").answerGroup, "INIT");
    EXPECT_EQ(decode("$Captain's Log$Day one").title, "Captain's Log");
    EXPECT_EQ(decode("$box$x").display, DisplayMode::Custom);
    EXPECT_EQ(decode("ERR").text, "");
    EXPECT_EQ(decode("").answerGroup, "Hail");
    EXPECT_EQ(DecodeMessage("ERR", Direction::Information, "", codes()).text, "");
    EXPECT_EQ(DecodeMessage("Hi", Direction::Information, "", codes()).answerGroup, "");
    // System conditions are never answer tags; without a digit the token is a tag to "Sx".
    const MessageLine line = decode("Your engines look bad*RS3*R!S4");
    EXPECT_EQ(line.answerGroup, "Hail");
    EXPECT_EQ(storedCodes(line), (std::vector<std::string>{"*RS3", "*R!S4"}));
    EXPECT_EQ(decode("Hm*RTrade*RS3").answerCondition, "*RS3");
    EXPECT_EQ(decode("Hm*RSx").answerGroup, "Sx");
    EXPECT_FALSE(IsSystemCondition("*RS"));
    // Text that begins with "%" is read as a code too; unknown codes are reported.
    EXPECT_EQ(decode("%NM, welcome aboard").droppedCodes, std::vector<std::string>{"%NM"});
    EXPECT_EQ(decode("Hi^QQ*XYZ12*SFC").droppedCodes, (std::vector<std::string>{"*XYZ12", "^QQ"}));
    EXPECT_EQ(decode("Take this ^EN gift*RTrade*+EN250").text, "Take this ");
    EXPECT_EQ(storedCodes(decode("%FA%GN%W2Go")), (std::vector<std::string>{"%FA", "%GN"}));
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
