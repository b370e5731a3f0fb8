// A save never changes what the game does with a line: read, written back and read again, a
// line reads the same and leads to the same group, or the editor warns before it saves it. Run
// over lines that once came back changed and over every line of the demo system (whose folder
// is checked on the way), with the special-code list that ships.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/messages/support/ShippedCodes.h"
#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageGroups.h"
#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"
#include "support/GameFixture.h"
#include "text/Text.h"

namespace orr {
namespace {

using test::shippedCodes;

struct Sample {
    std::string stored;
    Direction direction;
    std::string group;
};

// The group the game goes on with after the line: the text of its last "*R" code in a message
// (conditions included), of its last "*M" code in a response; the own group without one.
std::string groupTheGameTakes(const std::string& stored, Direction direction,
                              const std::string& group) {
    const std::string tag = direction == Direction::Response ? "*M" : "*R";
    std::string taken = storedGroupName(group);
    for (std::size_t at = stored.find(tag); at != std::string::npos; at = stored.find(tag, at + 1))
        taken = text::trim(stored.substr(at + 2, stored.find('*', at + 1) - at - 2));
    return taken;
}

// The model with the order the game ignores taken out: prefix codes in any order (writing turns
// them round), and the tags as stored, which say how the line was read, not what it is.
MessageLine comparable(MessageLine line) {
    const auto prefixes =
        std::stable_partition(line.specials.begin(), line.specials.end(),
                              [](const SpecialEntry& e) { return e.place() == CodePlace::Prefix; });
    std::sort(line.specials.begin(), prefixes,
              [](const SpecialEntry& a, const SpecialEntry& b) { return a.line() < b.line(); });
    line.text = text::trim(line.text);
    line.storedTags.clear();
    return line;
}

// What a save does to the line: "survives" (read back the same, leading to the same group),
// "warned" (the editor asks before it saves), or how it changed without a word.
std::string afterSave(const Sample& s) {
    const SpecialCodeList& codes = shippedCodes();
    const MessageLine first = DecodeMessage(s.stored, s.direction, s.group, codes);
    const std::string written = ComposeMessage(first, s.direction, s.group);
    const MessageLine second = DecodeMessage(written, s.direction, s.group, codes);
    if (!checkLineForSave(first, s.direction, s.group, codes).clean()) return "warned";
    if (comparable(first) != comparable(second)) return "reads back differently as " + written;
    if (groupTheGameTakes(s.stored, s.direction, s.group) !=
        groupTheGameTakes(written, s.direction, s.group))
        return "leads elsewhere as " + written;
    return "survives";
}

TEST(LineRoundTrip, TrickyLinesRoundTripOrAreWarnedAbout) {
    const auto message = Direction::Message;
    const auto response = Direction::Response;
    const struct {
        Sample sample;
        const char* outcome;
    } cases[] = {
        {{"Engines out*RS3*RTrade", message, "Hail"}, "survives"},  // the tag still decides
        {{"Hm*DS1*R!S3*RTrade*SFA", message, "Hail"}, "survives"},
        {{"Closing*RS3", message, "Hail"}, "survives"},  // the condition decides, as before
        {{"Hm*RHail*RS3", message, "Hail"}, "survives"},
        {{"Hm*RS3*RHail", message, "Hail"}, "survives"},
        {{"Hm*RTrade*RS3", message, "Hail"}, "warned"},  // saved, the tag would decide
        {{"Hi*RSx", message, "Hail"}, "survives"},
        {{"Go on*MS1", message, "Hail"}, "warned"},  // "*RS1" would be a condition
        {{"Go on*MS1", response, "Hail"}, "survives"},
        {{"Engines out*RS3", response, "Hail"}, "survives"},
        {{"Yes*RDeal", response, "Hail"}, "warned"},
        {{"Home*M", response, "Hail"}, "survives"},
        {{"Back to the start*R", message, "Hail"}, "survives"},
        {{"Same group*RHail", message, "Hail"}, "survives"},
        {{"Take it*A[", message, "Hail"}, "survives"},  // brackets in arguments read from a file
        {{"Take it*+EN)(", message, "Hail"}, "survives"},
        {{" %W1Hello", message, "Hail"}, "warned"},  // text, but written as a wait
        {{"%05 $Log$ entry", message, "Hail"}, "warned"},
        {{"%05ERR", message, "Hail"}, "survives"},
        {{"Day one ^EN*RTrade", message, "Hail"}, "survives"},
        {{"Day one *SFA", message, "Hail"}, "survives"},
        {{"%FA%GNOpen*MRoom2", response, "Area11"}, "survives"},
        {{"$BOX$%RK*R", message, "Hail"}, "survives"},
        {{"%ZZHi*QQ5", message, "Hail"}, "warned"},
        {{"Anything *at all", Direction::Information, ""}, "survives"},
    };
    for (const auto& c : cases) EXPECT_EQ(afterSave(c.sample), c.outcome) << c.sample.stored;
}

// Width and height of a Windows bitmap, from its header.
std::pair<int, int> bitmapSize(const std::string& bmp) {
    if (bmp.size() < 26 || !bmp.starts_with("BM")) return {};
    const auto le32 = [&](std::size_t at) {
        std::int32_t value = 0;
        for (std::size_t i = 4; i-- > 0;)
            value = value * 256 + static_cast<unsigned char>(bmp[at + i]);
        return value;
    };
    return {le32(18), std::abs(le32(22))};
}

// The demo game folder that ships: Windows text files, enough alien names, pictures that fit the
// system, and dialogue whose every line exists, fits, survives a save without a question and
// leads to lines that exist.
TEST(LineRoundTrip, TheDemoFolderIsSoundAndEveryLineSurvivesASave) {
    const fs::path demo = ORRERION_SOURCE_DIR "/demo/game";
    for (const char* name : {"SOLARSYS.TXT", "aliens.txt", "voidrunner.exe", "ORBInst.dat",
                             "ORBDescriptor/Kestrel.orb"}) {
        const std::string bytes = test::readBytes(demo / name);
        EXPECT_TRUE(bytes.ends_with("\r\n")) << name;
        EXPECT_EQ(text::replaceAll(bytes, "\r\n", "").find_first_of(std::string("\r\n\0", 3)),
                  std::string::npos)
            << name;
    }
    SystemStore store{GameFolder(demo)};
    ASSERT_TRUE(store.InitTables());
    for (int n = 1; n <= 25; ++n) EXPECT_NE(text::trim(store.tables().AlienNames[n]), "") << n;
    const LoadResult loaded = store.LoadSystem("Kestrel");
    ASSERT_TRUE(loaded.blockFound && loaded.warning.empty()) << loaded.warning;
    const int count = store.record().PlanetCount;
    EXPECT_EQ(store.ReadKey("General", kPlanetPics).size(), std::size_t(count));
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag).size(), std::size_t(count));
    EXPECT_EQ(bitmapSize(test::readBytes(demo / "PICTURES/Kestrel.bmp")),
              std::pair(160 * count, 120));
    EXPECT_EQ(bitmapSize(test::readBytes(demo / "PICTURES/KestrelSun.bmp")), std::pair(16, 16));

    int lines = 0;
    int tags = 0;
    for (int n = 1; n <= count; ++n) {
        PlanetMessageStore planet(store, n);
        MessageGroups groups;
        groups.LoadGroupLists(planet);
        for (const GroupEntry& group : groups.entries()) {
            for (const Direction d : {Direction::Message, Direction::Response}) {
                const bool message = d == Direction::Message;
                if (!(group.uses & (message ? kUsedForMessages : kUsedForResponses))) continue;
                for (const std::string& line : MessageList(planet, group.name, d).lines()) {
                    ++lines;
                    EXPECT_EQ(afterSave({line, d, group.name}), "survives") << line;
                    EXPECT_TRUE(line != "ERR" && line.size() <= 254) << line;
                    const std::string target =
                        scannedAnswerGroup(line, message ? 'R' : 'M', "\x01");
                    if (target == "\x01" || target == "None") continue;
                    ++tags;
                    const Direction answers = message ? Direction::Response : Direction::Message;
                    EXPECT_GE(MessageList(planet, target, answers).count(), 1) << line;
                }
            }
        }
    }
    EXPECT_EQ(lines, 59);  // every message and response of the demo
    EXPECT_GE(tags, 20);
}

}  // namespace
}  // namespace orr
