// The per-planet flags of [General], key reads with the game's limits, GetPlanetKey, and the
// planet count routines that keep the flags in step.
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;

class GeneralFlagsTest : public StoreTest {};

TEST_F(GeneralFlagsTest, NewSystemStartsWithNoFlagsSet) {
    SystemRecord record;
    record.Name = "Nova";
    record.PlanetCount = 3;
    writeDescriptor("Nova", newDescriptorText(record));
    store.record().Name = "Nova";
    for (int n = 1; n <= 3; ++n) {
        EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, n), 0) << n;
        EXPECT_EQ(store.GetGeneralFlag(kMessagesFlag, n), 0) << n;
    }
    // Beyond the text there is no character, which reads as yes.
    EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, 4), 1);
    EXPECT_TRUE(store.HasCustomPictures(4));
    EXPECT_FALSE(store.HasCustomPictures(2));
}

TEST_F(GeneralFlagsTest, SetGeneralFlagFitsTheTextToTheCount) {
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics = NNN", "Messages = NNN"}));
    store.record().Name = "Nova";
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 2, 4, true));
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NYNN");
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "PlanetPics = NNN", "Messages=NYNN"}));
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 0, 1, true));  // cuts, sets nothing
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "N");
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 5, 2, true));  // beyond the count
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NN");
    // A missing key starts from count times "N".
    ASSERT_TRUE(store.SetGeneralFlag("Other", 3, 3, true));
    EXPECT_EQ(store.ReadKey("General", "Other"), "NNY");
}

TEST_F(GeneralFlagsTest, FlagCharactersAndMissingThings) {
    store.record().Name = "Nova";
    EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, 1), -1);  // no descriptor
    writeDescriptor("Nova", crlf({"[General]", "PlanetPics=1YPVNy0 "}));
    EXPECT_EQ(store.GetGeneralFlag(kMessagesFlag, 1), -2);
    const int expected[] = {1, 1, 1, 1, 0, 0, 0, 1};
    for (int n = 1; n <= 8; ++n) EXPECT_EQ(store.GetGeneralFlag(kPlanetPics, n), expected[n - 1]);
}

TEST_F(GeneralFlagsTest, ReadKeyHasTheGameLimits) {
    const std::string longValue(300, 'a');
    writeDescriptor("Nova", std::string("[General]\r\nLong=") + longValue + "\r\nNul=ab" +
                                std::string(1, '\0') + "cd\r\nEmpty=\r\nSpaced =  v  \r\n");
    store.record().Name = "Nova";
    EXPECT_EQ(store.ReadKey("General", "Long"), std::string(254, 'a'));
    EXPECT_EQ(store.ReadKey("General", "Nul"), "ab");
    EXPECT_EQ(store.ReadKey("General", "Empty"), "");
    EXPECT_EQ(store.ReadKey("general", "SPACED"), "v");
    EXPECT_EQ(store.ReadKey("General", "Absent"), kNotUsed);
    EXPECT_EQ(store.ReadKey("Absent", "Long"), kNotUsed);
}

TEST_F(GeneralFlagsTest, GetPlanetKeyHonoursTheMessagesFlag) {
    writeDescriptor(
        "Nova", crlf({"[General]", "Messages=YN", "[1]", "Hail=Greetings", "[2]", "Hail=Go away"}));
    store.record().Name = "Nova";
    EXPECT_EQ(store.GetPlanetKey(1, "Hail"), "Greetings");
    EXPECT_EQ(store.GetPlanetKey(1, "Absent"), kErr);
    EXPECT_EQ(store.GetPlanetKey(2, "Hail"), "NO");
    EXPECT_EQ(store.GetPlanetKey(2, "Hail", true), "Go away");
    EXPECT_EQ(store.GetPlanetKey(2, "Absent", true), kErr);
    EXPECT_EQ(store.GetPlanetKey(3, "Hail"), kErr);  // beyond the flags: uses messages

    // Without the Messages key every planet uses its messages.
    writeDescriptor("Nova", crlf({"[General]", "[2]", "Hail=Hi"}));
    EXPECT_EQ(store.GetPlanetKey(2, "Hail"), "Hi");
}

TEST_F(GeneralFlagsTest, AddPlanetKeepsFlagsAndOrbits) {
    openNewSystem("Nova", 0);
    for (int n = 1; n <= 10; ++n) {
        ASSERT_TRUE(store.AddPlanet()) << n;
        EXPECT_EQ(store.record().PlanetCount, n);
        EXPECT_EQ(store.ReadKey("General", kPlanetPics), std::string(n, 'N'));
        EXPECT_EQ(store.ReadKey("General", kMessagesFlag), std::string(n, 'N'));
    }
    EXPECT_EQ(store.record().planet(1), (PlanetRecord{400, 2, 0, 0, 1, 0, 0}));
    EXPECT_EQ(store.record().planet(10).Position, 670);

    // An eleventh planet is refused and changes nothing.
    const SystemRecord before = store.record();
    EXPECT_FALSE(store.AddPlanet());
    EXPECT_EQ(store.lastError(), "This system has the maximum number of planets.");
    EXPECT_EQ(store.record(), before);
}

TEST_F(GeneralFlagsTest, FreedSlotGivesItsValuesToTheNextPlanet) {
    openNewSystem("Nova", 2);
    PlanetRecord& second = store.record().planet(2);
    second.Moons = 12;
    second.Attributes = 46087;
    second.LastVisit = 3;
    second.PlanetClass = 9;
    ASSERT_TRUE(store.RemoveLastPlanet());
    ASSERT_TRUE(store.AddPlanet());
    EXPECT_EQ(store.record().planet(2), (PlanetRecord{430, 2, 12, 46087, 1, 3, 0}));
}

TEST_F(GeneralFlagsTest, RemoveLastPlanetDropsItsSectionNameAndFlags) {
    openNewSystem("Nova", 3);
    ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 3, 3, true));
    ASSERT_TRUE(store.WriteKey("3", "Hail", "Hi"));
    ASSERT_TRUE(store.SetName(3, "Outer"));
    ASSERT_TRUE(store.SetName(2, "Inner"));
    ASSERT_TRUE(store.RemoveLastPlanet());
    EXPECT_EQ(store.record().PlanetCount, 2);
    EXPECT_FALSE(store.SectionExists("3"));
    EXPECT_EQ(store.ReadKey("Names", "3"), kNotUsed);
    EXPECT_EQ(store.ReadKey("Names", "2"), "Inner");
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NN");
    EXPECT_EQ(store.ReadKey("General", kPlanetPics), "NN");

    ASSERT_TRUE(store.RemoveLastPlanet());
    ASSERT_TRUE(store.RemoveLastPlanet());
    EXPECT_EQ(store.ReadKey("General", kPlanetPics), "");
    EXPECT_FALSE(store.RemoveLastPlanet());
    EXPECT_EQ(store.record().PlanetCount, 0);
}

TEST_F(GeneralFlagsTest, FailedWritesLeaveRecordAndFile) {
    openNewSystem("Nova", 2);
    const SystemRecord before = store.record();
    const std::string bytes = readDescriptor("Nova.edt");
    const test::ReadOnlyFolder readOnly(game.descriptors());
    if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
    EXPECT_FALSE(store.AddPlanet());
    EXPECT_FALSE(store.RemoveLastPlanet());
    EXPECT_FALSE(store.SetGeneralFlag(kPlanetPics, 1, 2, true));
    EXPECT_FALSE(store.WriteKey("1", "Hail", "Hi"));
    EXPECT_NE(store.lastError().find("Nova.edt"), std::string::npos) << store.lastError();
    EXPECT_EQ(store.record(), before);
    EXPECT_EQ(readDescriptor("Nova.edt"), bytes);
}

}  // namespace
}  // namespace orr
