#include "store/SystemName.h"

#include <gtest/gtest.h>

namespace orr {
namespace {

TEST(SystemNameTest, UsableNames) {
    for (const char* name : {"Sol", "9Sol", "New Haven", "Sol.II", "K\xe4rnten", "a", "0Vega"}) {
        EXPECT_EQ(CheckSystemName(name), std::nullopt) << name;
    }
    EXPECT_EQ(CheckSystemName(std::string(200, 'x')), std::nullopt);
}

TEST(SystemNameTest, EachForbiddenCharacterIsNamed) {
    for (char c : std::string("/\\:*?\"<>|")) {
        const auto reason = CheckSystemName(std::string("Sol") + c + "x");
        ASSERT_TRUE(reason.has_value()) << c;
        EXPECT_EQ(*reason, std::string("A system name cannot contain the character '") + c + "'.");
    }
}

TEST(SystemNameTest, UnusableNamesGiveASentence) {
    EXPECT_EQ(CheckSystemName(""), "A system name cannot be empty.");
    EXPECT_EQ(CheckSystemName("."), "A system name cannot be \".\" or \"..\".");
    EXPECT_EQ(CheckSystemName(".."), "A system name cannot be \".\" or \"..\".");
    EXPECT_EQ(CheckSystemName(" Sol"), "A system name cannot begin or end with a blank.");
    EXPECT_EQ(CheckSystemName("Sol "), "A system name cannot begin or end with a blank.");
    EXPECT_EQ(CheckSystemName(".Sol"), "A system name cannot begin or end with a dot.");
    EXPECT_EQ(CheckSystemName("Sol."), "A system name cannot begin or end with a dot.");
    EXPECT_EQ(CheckSystemName(std::string(201, 'x')),
              "A system name can have at most 200 characters.");
    for (const std::string& name :
         std::vector<std::string>{"Sol\tII", "Sol\r\n", std::string("S\0l", 3), "S\x7fl"}) {
        EXPECT_EQ(CheckSystemName(name),
                  "A system name cannot contain control characters such as tabs or line breaks.");
    }
}

TEST(SystemNameTest, ReservedDeviceNames) {
    for (const char* name : {"CON", "con", "Prn", "AUX", "NUL", "COM1", "com9", "LPT1", "LPT9",
                             "NUL.txt", "con.orb"}) {
        const auto reason = CheckSystemName(name);
        ASSERT_TRUE(reason.has_value()) << name;
        EXPECT_NE(reason->find("reserved by Windows"), std::string::npos) << *reason;
    }
    EXPECT_EQ(*CheckSystemName("com1.x"),
              "\"COM1\" is a device name reserved by Windows and cannot be a system name.");
    for (const char* name : {"CONSOLE", "COM", "COM0", "LPT10", "Nullity", "AUXILIARY"}) {
        EXPECT_EQ(CheckSystemName(name), std::nullopt) << name;
    }
}

}  // namespace
}  // namespace orr
