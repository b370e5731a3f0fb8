#include "text/Cp1252.h"

#include <gtest/gtest.h>

namespace orr::text {
namespace {

TEST(Cp1252Test, EveryByteSurvivesARoundTripThroughUtf8) {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    const std::string utf8 = cp1252ToUtf8(all);
    EXPECT_EQ(utf8ToCp1252(utf8), all);
}

TEST(Cp1252Test, MapsTheWindowsCharactersOfTheC1Range) {
    EXPECT_EQ(cp1252ToUtf8("\x80"), "\u20AC");  // euro sign
    EXPECT_EQ(cp1252ToUtf8("\x93Hi\x94"), "\u201CHi\u201D");
    EXPECT_EQ(cp1252ToUtf8("\x9F"), "\u0178");
    EXPECT_EQ(cp1252ToUtf8("caf\xE9"), "caf\u00E9");
    EXPECT_EQ(cp1252ToUtf8(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

TEST(Cp1252Test, UndefinedCodesBecomeC1Controls) {
    for (unsigned char b : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
        const std::string byte(1, static_cast<char>(b));
        const std::string expected = {static_cast<char>(0xC2), static_cast<char>(b)};
        EXPECT_EQ(cp1252ToUtf8(byte), expected) << int(b);
        EXPECT_EQ(utf8ToCp1252(expected), byte) << int(b);
    }
}

TEST(Cp1252Test, CharactersOutsideTheCodePageBecomeTheReplacement) {
    EXPECT_EQ(utf8ToCp1252("a\u2192b"), "a?b");    // arrow, 3 bytes
    EXPECT_EQ(utf8ToCp1252("\U0001F680!"), "?!");  // 4 bytes
    EXPECT_EQ(utf8ToCp1252("\u0100", '_'), "_");   // Latin Extended-A, 2 bytes
    // The C1 controls that Windows-1252 uses for printable characters cannot be stored.
    EXPECT_EQ(utf8ToCp1252("\u0080"), "?");
    EXPECT_EQ(utf8ToCp1252("\u20AC\u0160"), "\x80\x8A");
}

TEST(Cp1252Test, InvalidUtf8IsTakenAsLatin1) {
    EXPECT_EQ(utf8ToCp1252("caf\xE9"), "caf\xE9");         // a Windows-1252 text passed by mistake
    EXPECT_EQ(utf8ToCp1252("\xC3"), "\xC3");               // sequence cut short at the end
    EXPECT_EQ(utf8ToCp1252("\xE2\x82z"), "\xE2?z");        // cut short: 0x82 is the control U+0082
    EXPECT_EQ(utf8ToCp1252("\xC0\xAF"), "\xC0\xAF");       // overlong form of "/"
    EXPECT_EQ(utf8ToCp1252("\xED\xA0\x80"), "\xED\xA0?");  // encoded surrogate
    EXPECT_EQ(utf8ToCp1252("\xF8\xA1"), "\xF8\xA1");       // no such lead byte
}

TEST(Cp1252Test, TheStrictConversionNamesWhatCannotBeStored) {
    const Cp1252Conversion mixed =
        utf8ToCp1252Strict("caf\u00E9 \u2603\U0001F680\u2603\u0080 \u20AC");
    EXPECT_EQ(mixed.bytes, "caf\xE9  \x80");
    EXPECT_EQ(mixed.unstorable, "\u2603\U0001F680\u0080");
    EXPECT_EQ(unstorableMessage(mixed.unstorable),
              "The game cannot store these characters: \u2603 \U0001F680 \u0080\n"
              "Please use other characters.");
    // Bytes that are not UTF-8 are never taken for characters of the code page.
    EXPECT_EQ(utf8ToCp1252Strict("caf\xE9").unstorable, "\uFFFD");
    EXPECT_TRUE(utf8ToCp1252Strict("\u0081\u0178").storable());
}

TEST(Cp1252Test, ValidUtf8) {
    for (const char* valid : {"", "plain", "caf\u00E9", "\u20AC", "\U0010FFFF"})
        EXPECT_TRUE(isValidUtf8(valid)) << valid;
    for (const char* invalid : {"caf\xE9", "\xC3", "\xE2\x82z", "\xC0\xAF", "\xED\xA0\x80",
                                "\xF4\x90\x80\x80", "\xF8\xA1"})
        EXPECT_FALSE(isValidUtf8(invalid)) << invalid;
}

}  // namespace
}  // namespace orr::text
