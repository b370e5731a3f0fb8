#include "text/Cp1252.h"

#include <gtest/gtest.h>

namespace orr::text {
namespace {

TEST(Cp1252Test, EveryByteSurvivesARoundTripThroughUtf8) {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    EXPECT_EQ(utf8ToCp1252(cp1252ToUtf8(all)), all);
    // The Windows characters of the C1 range; the five codes Windows-1252 leaves undefined
    // become the C1 controls of their value.
    EXPECT_EQ(cp1252ToUtf8("\x80\x93Hi\x94\x9F caf\xE9"), "\u20AC\u201CHi\u201D\u0178 caf\u00E9");
    EXPECT_EQ(cp1252ToUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(Cp1252Test, OtherCharactersBecomeTheReplacementAndInvalidUtf8IsLatin1) {
    const struct {
        std::string utf8;
        std::string bytes;
        bool valid;
    } cases[] = {
        {"a\u2192b", "a?b", true},    // an arrow, 3 bytes
        {"\U0010FFFF!", "?!", true},  // 4 bytes, the last code point
        {"\u0080", "?", true},        // a C1 control that stands for a printable character
        {"\u20AC\u0160", "\x80\x8A", true},
        {"caf\xE9", "caf\xE9", false},         // a Windows-1252 text passed by mistake
        {"\xC3", "\xC3", false},               // a sequence cut short at the end
        {"\xE2\x82z", "\xE2?z", false},        // cut short: 0x82 is the control U+0082
        {"\xC0\xAF", "\xC0\xAF", false},       // the overlong form of "/"
        {"\xED\xA0\x80", "\xED\xA0?", false},  // an encoded surrogate
        {"\xF8\xA1", "\xF8\xA1", false},       // no such lead byte
    };
    for (const auto& c : cases) {
        EXPECT_EQ(utf8ToCp1252(c.utf8), c.bytes) << c.utf8;
        EXPECT_EQ(isValidUtf8(c.utf8), c.valid) << c.utf8;
    }
    EXPECT_EQ(utf8ToCp1252("\u0100", '_'), "_");
    EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));  // beyond U+10FFFF
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

}  // namespace
}  // namespace orr::text
