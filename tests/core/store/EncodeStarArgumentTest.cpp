#include <gtest/gtest.h>

#include "store/SystemOperations.h"

namespace orr {
namespace {

// The argument before its final inversion, as character codes.
std::vector<int> plainCodes(const std::string& key) {
    std::vector<int> codes;
    for (char c : EncodeStarArgument(key)) codes.push_back(255 - static_cast<unsigned char>(c));
    return codes;
}

std::vector<int> codesOf(const std::string& text) {
    std::vector<int> codes;
    for (char c : text) codes.push_back(static_cast<unsigned char>(c));
    return codes;
}

TEST(EncodeStarArgumentTest, ReplacedGameSystemPassesItsPlanetCount) {
    const std::string encoded = EncodeStarArgument("9Sol");
    ASSERT_EQ(encoded.size(), 21u);
    std::vector<int> expected{246, 172, 144, 147};
    expected.resize(21, 223);
    EXPECT_EQ(codesOf(encoded), expected);

    std::vector<int> ten = codesOf(std::string(1, '\x0a') + "Vega");
    ten.resize(21, ' ');
    EXPECT_EQ(plainCodes("10Vega"), ten);
}

TEST(EncodeStarArgumentTest, ZeroAndCustomSystems) {
    std::vector<int> zero = codesOf(std::string(1, '\0') + "Test");
    zero.resize(21, ' ');
    EXPECT_EQ(plainCodes("0Test"), zero);

    const std::string nova = EncodeStarArgument("Nova");
    EXPECT_EQ(static_cast<unsigned char>(nova[0]), 1);
    std::vector<int> custom = codesOf("\xfeNova");
    custom.resize(21, ' ');
    EXPECT_EQ(plainCodes("Nova"), custom);
    EXPECT_EQ(plainCodes("-3Neg")[0], 254);  // a negative number is no planet count
}

TEST(EncodeStarArgumentTest, LargeNumbersAndLongKeys) {
    // From 254 on, the first two characters are taken as one number.
    std::vector<int> big = codesOf(std::string(1, '\x19') + "4X");
    big.resize(21, ' ');
    EXPECT_EQ(plainCodes("254X"), big);
    EXPECT_EQ(plainCodes("253X")[0], 253);
    EXPECT_EQ(plainCodes("253X")[1], 'X');
    // The game takes 21 characters: a longer key is cut there.
    const std::string longKey = "Nova" + std::string(30, 'a');
    EXPECT_EQ(EncodeStarArgument(longKey).size(), 21u);
    EXPECT_EQ(EncodeStarArgument("").size(), 21u);
    EXPECT_EQ(plainCodes("")[0], 254);
}

}  // namespace
}  // namespace orr
