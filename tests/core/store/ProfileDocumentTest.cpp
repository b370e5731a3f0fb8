#include "store/ProfileDocument.h"

#include <gtest/gtest.h>

#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;

std::string afterWrite(std::string_view original, std::string_view section, std::string_view key,
                       std::string_view value) {
    ProfileDocument doc = ProfileDocument::parse(original);
    doc.writeValue(section, key, value);
    return doc.serialize();
}

// A descriptor as the editor creates it, with a name section and one planet section.
const std::string kDescriptor =
    crlf({"[General]", "PlanetPics = NNN", "Messages = NNN", "", ";SolarSystem",
          ";\"Sol                 \",0,3", ";400,2,0,0,1,0", ";430,2,0,0,1,0", ";460,2,0,0,1,0",
          "[Names]", "S=Sol", "3=Vega", "[1]", "MessagesHail=1", "MessageHail1=Greetings."});

TEST(ProfileDocumentTest, KeepsEveryByteButEndsEveryLineInCrLf) {
    const std::string longValue(100 * 1024, 'x');
    const std::pair<std::string, std::string> samples[] = {
        {"", ""},
        {"[General]", "[General]\r\n"},
        {"\r\n\r\n", "\r\n\r\n"},
        {"[General]\r\nA=1\nB=2\rC=3\n\rD=4", crlf({"[General]", "A=1", "B=2", "C=3", "", "D=4"})},
        {std::string("[1]\r\nKey=\0value\0\r\n\0", 19),
         std::string("[1]\r\nKey=\0value\0\r\n\0\r\n", 21)},
        {"[1]\r\nLong=" + longValue + "\n" + longValue,
         crlf({"[1]", "Long=" + longValue, longValue})},
        {"\xEF\xBB\xBF[General]\r\n;\x93quoted\x94\r\n   \t\r\n",
         "\xEF\xBB\xBF[General]\r\n;\x93quoted\x94\r\n   \t\r\n"},
    };
    for (const auto& [bytes, written] : samples) {
        EXPECT_EQ(ProfileDocument::parse(bytes).serialize(), written);
    }
}

TEST(ProfileDocumentTest, ReadsWithTheProfileFunctionsRules) {
    const auto doc = ProfileDocument::parse(
        "Orphan=not in a section\r\n"
        "[ General ]\r\n"
        "  PlanetPics \t=  YNN \t\r\n"
        ";Messages=NNN\r\n"
        "no equals sign here\r\n"
        "Empty=\r\n"
        "Twice=first\r\n"
        "TWICE=second\r\n"
        "[general]\r\n"
        "Other=from the second section\r\n"
        "[1]\r\n"
        "Message1=a=b = c\r\n");
    EXPECT_EQ(doc.readValue("general", "planetpics"), "YNN");
    EXPECT_EQ(doc.readValue("GENERAL", " PlanetPics "), "YNN");
    EXPECT_EQ(doc.readValue("General", "Empty"), "");
    EXPECT_EQ(doc.readValue("General", "twice"), "first");
    EXPECT_EQ(doc.readValue("1", "Message1"), "a=b = c");
    EXPECT_EQ(doc.readValue("General", "Messages"), std::nullopt) << "comment lines are no keys";
    EXPECT_EQ(doc.readValue("General", "no equals sign here"), std::nullopt);
    EXPECT_EQ(doc.readValue("General", "Other"), std::nullopt) << "the first [General] wins";
    EXPECT_EQ(doc.readValue("General", "Orphan"), std::nullopt);

    // One pair of quotes that encloses a value is dropped, as the platform's read drops it.
    const auto quoted =
        ProfileDocument::parse(crlf({"[Q]", "a = \" two blanks \" ", "b='x'", "c=\"\"x\"\"",
                                     "d=\"open", "e='mixed\"", "f=\""}));
    const std::pair<const char*, const char*> values[] = {{"a", " two blanks "}, {"b", "x"},
                                                          {"c", "\"x\""},        {"d", "\"open"},
                                                          {"e", "'mixed\""},     {"f", "\""}};
    for (const auto& [key, value] : values) EXPECT_EQ(quoted.readValue("Q", key), value) << key;

    // The raw section test wants the header at the start of the line and compares exactly.
    const auto raw = ProfileDocument::parse("  [Indented]\r\n[Names] ; planet names\r\n[10]\r\n");
    EXPECT_TRUE(raw.sectionExists("Names"));
    EXPECT_TRUE(raw.sectionExists("10"));
    EXPECT_FALSE(raw.sectionExists("names"));
    EXPECT_FALSE(raw.sectionExists("1"));
    EXPECT_FALSE(raw.sectionExists("Indented"));
}

TEST(ProfileDocumentTest, WritesRewriteOnlyTheirLineOrFollowTheLastKeyOfTheirSection) {
    const std::string original = crlf({"[General]", "planetpics = NNN", "[Names]", "S=Sol"});
    EXPECT_EQ(afterWrite(original, "GENERAL", "PlanetPics", "YNN"),
              crlf({"[General]", "PlanetPics=YNN", "[Names]", "S=Sol"}));
    EXPECT_EQ(afterWrite(original, "Names", "s", " Sirius "),
              crlf({"[General]", "planetpics = NNN", "[Names]", "s= Sirius "}));
    // In [General] a new key goes before the blank line and the system block.
    std::string expected = kDescriptor;
    expected.insert(expected.find("\r\n\r\n") + 2, "Mode=1\r\n");
    EXPECT_EQ(afterWrite(kDescriptor, "General", "Mode", "1"), expected);
    // A new section is appended on lines of its own, after a last line without an end.
    EXPECT_EQ(afterWrite("[General]\r\nA=1", "Names", "S", "Sol"),
              "[General]\r\nA=1\r\n[Names]\r\nS=Sol\r\n");

    ProfileDocument doc = ProfileDocument::parse("[A]\r\n;only a comment\r\n[B]\r\nx=1\r\n\r\n");
    const ProfileDocument copy = doc;
    doc.writeValue("A", "first", "1");
    doc.writeValue("B", "y", "2");
    doc.writeValue("A", "second", "2");
    doc.writeValue("b", "z", "3");
    // The 254-character limit belongs to the reader: the file holds the whole value.
    doc.writeValue("A", "long", std::string(300, 'v'));
    EXPECT_EQ(doc.serialize(), crlf({"[A]", "first=1", "second=2", "long=" + std::string(300, 'v'),
                                     ";only a comment", "[B]", "x=1", "y=2", "z=3", ""}));
    EXPECT_EQ(doc.readValue("A", "Second"), "2");
    EXPECT_EQ(copy.serialize(), "[A]\r\n;only a comment\r\n[B]\r\nx=1\r\n\r\n")
        << "copies are independent";
}

TEST(ProfileDocumentTest, DeleteKeyRemovesEveryExactKeyLineUpToTheNextSection) {
    ProfileDocument doc = ProfileDocument::parse(
        "[1]\r\nA=1\r\nB=2\nA=again\r\n;A=comment\r\n[2]\r\nA=2\r\n[1]\r\nA=3");
    EXPECT_TRUE(doc.deleteKey("1", "A"));
    EXPECT_EQ(doc.serialize(), crlf({"[1]", "B=2", ";A=comment", "[2]", "A=2", "[1]"}));
    EXPECT_EQ(doc.readValue("1", "B"), "2");

    const std::string raw = crlf({"[Names]", "3 =Vega", "s=lower", "[1]", "3=Other"});
    doc = ProfileDocument::parse(raw);
    EXPECT_FALSE(doc.deleteKey("Names", "3")) << "3 =Vega has the key text \"3 \"";
    EXPECT_FALSE(doc.deleteKey("Names", "S"));
    EXPECT_FALSE(doc.deleteKey("names", "s"));
    EXPECT_EQ(doc.serialize(), raw);
    EXPECT_FALSE(doc.deleteKey("7", "MessagesHail"));
}

TEST(ProfileDocumentTest, RemoveNumberedSectionComparesTheLeadingNumber) {
    const std::string original = kDescriptor + crlf({"[12]", "x=12", "[3b]", "y=3"});
    ProfileDocument doc = ProfileDocument::parse(original);
    EXPECT_FALSE(doc.removeNumberedSection(0)) << "[General] and [Names] stay";
    EXPECT_FALSE(doc.removeNumberedSection(4));
    EXPECT_EQ(doc.serialize(), original);
    EXPECT_TRUE(doc.removeNumberedSection(3));
    EXPECT_EQ(doc.serialize(), kDescriptor + crlf({"[12]", "x=12"}));

    // The system block after a section is not part of it.
    doc = ProfileDocument::parse(
        crlf({"[General]", "[1]", "a=1", ";SolarSystem", ";\"X\",0,0", "[2]", "b=2"}));
    EXPECT_TRUE(doc.removeNumberedSection(1));
    EXPECT_EQ(doc.serialize(), crlf({"[General]", ";SolarSystem", ";\"X\",0,0", "[2]", "b=2"}));

    // At the end of the file only that section goes; a new one is appended afresh.
    doc = ProfileDocument::parse("[1]\r\na=1\n[2]\r\nb=2\r\nc=3");
    EXPECT_TRUE(doc.removeNumberedSection(2));
    EXPECT_EQ(doc.serialize(), "[1]\r\na=1\r\n");
    doc.writeValue("2", "b", "new");
    EXPECT_EQ(doc.serialize(), crlf({"[1]", "a=1", "[2]", "b=new"}));
}

}  // namespace
}  // namespace orr
