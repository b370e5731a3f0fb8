// A save never changes what the game does with a line: read, written back and read again, a
// line reads the same and leads to the same group, or the editor warns before it saves it. Run
// over lines that once came back changed and over every line of the demo system, with the
// special-code list that ships.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "core/messages/support/MemoryMessageStore.h"
#include "core/messages/support/ShippedCodes.h"
#include "messages/MessageCodec.h"
#include "messages/MessageEditRules.h"
#include "messages/MessageGroups.h"
#include "messages/MessageList.h"
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

// Whether the line survives a save; false only when the editor warns before that save.
::testing::AssertionResult survivesSave(const Sample& s) {
    const SpecialCodeList& codes = shippedCodes();
    const MessageLine first = DecodeMessage(s.stored, s.direction, s.group, codes);
    const std::string written = ComposeMessage(first, s.direction, s.group);
    const MessageLine second = DecodeMessage(written, s.direction, s.group, codes);
    if (!checkLineForSave(first, s.direction, s.group, codes).clean())
        return ::testing::AssertionFailure() << "warned; written as " << written;
    if (comparable(first) != comparable(second))
        return ::testing::AssertionFailure() << "reads back differently from " << written;
    if (groupTheGameTakes(s.stored, s.direction, s.group) !=
        groupTheGameTakes(written, s.direction, s.group))
        return ::testing::AssertionFailure() << "leads elsewhere as " << written;
    return ::testing::AssertionSuccess();
}

TEST(LineRoundTrip, TrickyLinesRoundTripOrAreWarnedAbout) {
    const auto message = Direction::Message;
    const auto response = Direction::Response;
    const struct {
        Sample sample;
        bool survives;
    } cases[] = {
        {{"Engines out*RS3*RTrade", message, "Hail"}, true},  // the tag still decides
        {{"Hm*DS1*R!S3*RTrade*SFA", message, "Hail"}, true},
        {{"Closing*RS3", message, "Hail"}, true},  // the condition decides, as before
        {{"Hm*RHail*RS3", message, "Hail"}, true},
        {{"Hm*RS3*RHail", message, "Hail"}, true},
        {{"Hm*RTrade*RS3", message, "Hail"}, false},  // saved, the tag would decide
        {{"Hi*RSx", message, "Hail"}, true},
        {{"Go on*MS1", message, "Hail"}, false},  // "*RS1" would be a condition
        {{"Go on*MS1", response, "Hail"}, true},
        {{"Take it*A[", message, "Hail"}, true},  // brackets in arguments read from a file
        {{"Take it*+EN)(", message, "Hail"}, true},
        {{" %W1Hello", message, "Hail"}, false},  // text, but written as a wait
        {{"%05 $Log$ entry", message, "Hail"}, false},
        {{"%05ERR", message, "Hail"}, true},
        {{"Day one ^EN*RTrade", message, "Hail"}, true},
        {{"%FA%GNOpen*MRoom2", response, "Area11"}, true},
        {{"$BOX$%RK*R", message, "Hail"}, true},
        {{"%ZZHi*QQ5", message, "Hail"}, false},
        {{"Yes*RDeal", response, "Hail"}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.sample.stored);
        EXPECT_EQ(static_cast<bool>(survivesSave(c.sample)), c.survives)
            << survivesSave(c.sample).message();
    }
}

// Every line the editor lists for the planets of the demo descriptor, with its group.
std::vector<Sample> demoLines() {
    std::ifstream in(std::string(ORRERION_SOURCE_DIR) + "/demo/game/ORBDescriptor/Kestrel.orb",
                     std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    std::vector<Sample> samples;
    test::MemoryMessageStore planet;
    const auto takeLines = [&] {
        MessageGroups groups;
        groups.LoadGroupLists(planet);
        for (const GroupEntry& group : groups.entries()) {
            if (group.uses & kUsedForMessages)
                for (const std::string& line :
                     MessageList(planet, group.name, Direction::Message).lines())
                    samples.push_back({line, Direction::Message, group.name});
            if (group.uses & kUsedForResponses)
                for (const std::string& line :
                     MessageList(planet, group.name, Direction::Response).lines())
                    samples.push_back({line, Direction::Response, group.name});
        }
        planet.keys.clear();
    };
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find("\r\n", at), bytes.size());
        const std::string line = bytes.substr(at, end - at);
        at = end + 2;
        if (line.starts_with('['))
            takeLines();
        else if (const auto eq = line.find('='); eq != std::string::npos)
            planet.keys[line.substr(0, eq)] = line.substr(eq + 1);
    }
    takeLines();
    return samples;
}

TEST(LineRoundTrip, EveryDemoLineSurvivesASaveWithoutQuestions) {
    const std::vector<Sample> samples = demoLines();
    EXPECT_EQ(samples.size(), 59u);  // every message and response of the demo
    for (const Sample& sample : samples) EXPECT_TRUE(survivesSave(sample)) << sample.stored;
}

}  // namespace
}  // namespace orr
