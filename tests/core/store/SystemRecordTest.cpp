#include "store/SystemRecord.h"

#include <gtest/gtest.h>

namespace orr {
namespace {

TEST(SystemRecordTest, AttributesPackAndUnpack) {
    const PlanetAttributes a{2, 3, 1, 0, 7};
    EXPECT_EQ(a.pack(), 46087);
    EXPECT_EQ(PlanetAttributes::unpack(46087), a);

    const PlanetAttributes all{3, 3, 3, 3, 255};
    EXPECT_EQ(all.pack(), 65535);
    EXPECT_EQ(PlanetAttributes::unpack(65535), all);
    EXPECT_EQ(PlanetAttributes::unpack(0), PlanetAttributes{});
}

TEST(SystemRecordTest, AttributesStayWithinTheirBits) {
    // Out-of-range values must not spill into the neighbouring sub-field.
    const PlanetAttributes wild{4, 5, -1, 0, 300};
    const PlanetAttributes back = PlanetAttributes::unpack(wild.pack());
    EXPECT_EQ(back.Inhabited, 0);
    EXPECT_EQ(back.Attitude, 1);
    EXPECT_EQ(back.Advanced, 3);
    EXPECT_EQ(back.Alien, 300 % 256);

    // A damaged word from a file still yields option indexes 0..3.
    const PlanetAttributes negative = PlanetAttributes::unpack(-1);
    EXPECT_EQ(negative, (PlanetAttributes{3, 3, 3, 3, 255}));
}

TEST(SystemRecordTest, DisplayNameIsAlwaysTwentyCharacters) {
    SystemRecord record;
    EXPECT_EQ(record.DisplayName, std::string(20, ' '));
    record.setDisplayName("Sol");
    EXPECT_EQ(record.DisplayName, "Sol" + std::string(17, ' '));
    EXPECT_EQ(record.trimmedDisplayName(), "Sol");
    record.setDisplayName("ABCDEFGHIJKLMNOPQRSTUVWXY");
    EXPECT_EQ(record.DisplayName, "ABCDEFGHIJKLMNOPQRST");
    record.setDisplayName("  Sol  ");
    EXPECT_EQ(record.trimmedDisplayName(), "Sol");
}

}  // namespace
}  // namespace orr
