#include "text/Text.h"

#include <gtest/gtest.h>

#include <limits>

namespace orr::text {
namespace {

TEST(TextTest, TrimRemovesSpacesOnly) {
    EXPECT_EQ(trim("  Sol III  "), "Sol III");
    EXPECT_EQ(trimLeft("  a b  "), "a b  ");
    EXPECT_EQ(trimRight("  a b  "), "  a b");
    EXPECT_EQ(trim("      "), "");
    EXPECT_EQ(trim(""), "");
    // Tabs and other bytes are part of the text, as in the game's files.
    EXPECT_EQ(trim("\tVega\t"), "\tVega\t");
    EXPECT_EQ(trim(std::string_view("\0 x\0", 4)), std::string("\0 x\0", 4));
}

TEST(TextTest, LetterCaseAppliesToAsciiLettersOnly) {
    EXPECT_EQ(toUpper("area11Search"), "AREA11SEARCH");
    EXPECT_EQ(toLower("[GENERAL]"), "[general]");
    // Windows-1252 letters (e acute 0xE9, E acute 0xC9) keep their bytes.
    EXPECT_EQ(toUpper("caf\xE9"), "CAF\xE9");
    EXPECT_EQ(toLower("\xC9T\xC9"), "\xC9t\xC9");
    EXPECT_TRUE(equalsIgnoreCase("PlanetPics", "PLANETPICS"));
    EXPECT_FALSE(equalsIgnoreCase("\xE9", "\xC9"));
    EXPECT_FALSE(equalsIgnoreCase("Names", "Name"));
    EXPECT_TRUE(startsWith("[Names] ; x", "[Names]"));
    EXPECT_FALSE(startsWith("[Name", "[Names]"));
    EXPECT_TRUE(endsWith("Sol.orb", ".orb"));
    EXPECT_FALSE(endsWith("orb", ".orb"));
}

TEST(TextTest, LeadingValueReadsLikeVal) {
    EXPECT_EQ(leadingValue("12]"), 12);
    EXPECT_EQ(leadingValue("General]"), 0);
    EXPECT_EQ(leadingValue("Names]"), 0);
    EXPECT_EQ(leadingValue("  -7 apples"), -7);
    EXPECT_EQ(leadingValue("+3"), 3);
    EXPECT_EQ(leadingValue("007"), 7);
    EXPECT_EQ(leadingValue(""), 0);
    EXPECT_EQ(leadingValue("-"), 0);
    EXPECT_EQ(leadingValue("1 2"), 1);
    constexpr long long kMax = std::numeric_limits<long long>::max();
    constexpr long long kMin = std::numeric_limits<long long>::min();
    EXPECT_EQ(leadingValue("9223372036854775807"), kMax);
    EXPECT_EQ(leadingValue("-9223372036854775808"), kMin);
    EXPECT_EQ(leadingValue("99999999999999999999999"), kMax);
    EXPECT_EQ(leadingValue("-99999999999999999999999"), kMin);
}

TEST(TextTest, ParseIntegerIsStrict) {
    long long value = -1;
    EXPECT_TRUE(parseInteger(" 42 ", 0, 100, value));
    EXPECT_EQ(value, 42);
    EXPECT_TRUE(parseInteger("-5", -10, 10, value));
    EXPECT_EQ(value, -5);
    EXPECT_TRUE(parseInteger("+0", 0, 0, value));
    EXPECT_EQ(value, 0);

    value = 77;
    for (const char* bad : {"", "   ", "-", "+", "4 2", "12]", "0x10", "1.5", "--1"}) {
        EXPECT_FALSE(parseInteger(bad, -1000, 1000, value)) << bad;
    }
    EXPECT_EQ(value, 77) << "a refused text leaves the output alone";
    EXPECT_FALSE(parseInteger("11", 0, 10, value));
    EXPECT_FALSE(parseInteger("-1", 0, 10, value));
}

TEST(TextTest, ParseIntegerHandlesTheLimitsOfItsType) {
    constexpr long long kMax = std::numeric_limits<long long>::max();
    constexpr long long kMin = std::numeric_limits<long long>::min();
    long long value = 0;
    EXPECT_TRUE(parseInteger("9223372036854775807", kMin, kMax, value));
    EXPECT_EQ(value, kMax);
    EXPECT_TRUE(parseInteger("-9223372036854775808", kMin, kMax, value));
    EXPECT_EQ(value, kMin);
    EXPECT_FALSE(parseInteger("9223372036854775808", kMin, kMax, value));
    EXPECT_FALSE(parseInteger("-9223372036854775809", kMin, kMax, value));
    EXPECT_FALSE(parseInteger("184467440737095516160", kMin, kMax, value));
}

TEST(TextTest, FitWidthCutsOrPads) {
    EXPECT_EQ(fitWidth("Sol", 6), "Sol   ");
    EXPECT_EQ(fitWidth("Andromeda Gateway Prime", 20), "Andromeda Gateway Pr");
    EXPECT_EQ(fitWidth("", 2), "  ");
    EXPECT_EQ(fitWidth("abc", 0), "");
}

TEST(TextTest, ReplaceAllReplacesEveryOccurrenceLeftToRight) {
    EXPECT_EQ(replaceAll("%1 and %1", "%1", "Sol"), "Sol and Sol");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("abc", "abc", ""), "");
    // The replacement is not searched again.
    EXPECT_EQ(replaceAll("a", "a", "aa"), "aa");
}

}  // namespace
}  // namespace orr::text
