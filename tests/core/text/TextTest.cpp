#include "text/Text.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <utility>

namespace orr::text {
namespace {

constexpr long long kMax = std::numeric_limits<long long>::max();
constexpr long long kMin = std::numeric_limits<long long>::min();

TEST(TextTest, TrimAndLetterCaseTouchBlanksAndAsciiLettersOnly) {
    EXPECT_EQ(trim("  Sol III  "), "Sol III");
    EXPECT_EQ(trimLeft("  a b  "), "a b  ");
    EXPECT_EQ(trimRight("  a b  "), "  a b");
    // Tabs and other bytes are part of the text, as in the game's files.
    EXPECT_EQ(trim(std::string_view("\t\0 x\0\t", 6)), std::string("\t\0 x\0\t", 6));
    // Windows-1252 letters (e acute 0xE9, E acute 0xC9) keep their bytes.
    EXPECT_EQ(toUpper("area11caf\xE9"), "AREA11CAF\xE9");
    EXPECT_EQ(toLower("\xC9T\xC9"), "\xC9t\xC9");
    EXPECT_TRUE(equalsIgnoreCase("PlanetPics", "PLANETPICS"));
    EXPECT_FALSE(equalsIgnoreCase("\xE9", "\xC9"));
    EXPECT_FALSE(equalsIgnoreCase("Names", "Name"));
    EXPECT_FALSE(startsWith("[Name", "[Names]"));
    EXPECT_FALSE(endsWith("orb", ".orb"));
}

TEST(TextTest, LeadingValueReadsLikeVal) {
    const std::pair<const char*, long long> cases[] = {
        {"12]", 12}, {"General]", 0}, {"  -7 apples", -7}, {"+3", 3}, {"007", 7},
        {"", 0},     {"-", 0},        {"1 2", 1}};
    for (const auto& [text, value] : cases) EXPECT_EQ(leadingValue(text), value) << text;
    EXPECT_EQ(leadingValue("9223372036854775807"), kMax);
    EXPECT_EQ(leadingValue("-9223372036854775808"), kMin);
    EXPECT_EQ(leadingValue("99999999999999999999999"), kMax);
    EXPECT_EQ(leadingValue("-99999999999999999999999"), kMin);
}

std::optional<long long> parsed(std::string_view text, long long low = kMin,
                                long long high = kMax) {
    long long value = 0;
    if (!parseInteger(text, low, high, value)) return std::nullopt;
    return value;
}

TEST(TextTest, ParseIntegerIsStrict) {
    EXPECT_EQ(parsed(" 42 ", 0, 100), 42);
    EXPECT_EQ(parsed("-5", -10, 10), -5);
    EXPECT_EQ(parsed("9223372036854775807"), kMax);
    EXPECT_EQ(parsed("-9223372036854775808"), kMin);
    for (const char* bad :
         {"", "   ", "-", "4 2", "12]", "0x10", "1.5", "--1", "9223372036854775808",
          "-9223372036854775809", "184467440737095516160"}) {
        EXPECT_EQ(parsed(bad), std::nullopt) << bad;
    }
    EXPECT_EQ(parsed("11", 0, 10), std::nullopt);
    long long value = 77;
    EXPECT_FALSE(parseInteger("x", 0, 10, value));
    EXPECT_EQ(value, 77) << "a refused text leaves the output alone";
}

TEST(TextTest, ReplaceAllReplacesEveryOccurrenceLeftToRight) {
    EXPECT_EQ(replaceAll("%1 and %1", "%1", "Sol"), "Sol and Sol");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("a", "a", "aa"), "aa");  // the replacement is not searched again
}

}  // namespace
}  // namespace orr::text
