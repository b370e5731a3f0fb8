// The descriptor's system block: its exact text, loading with the fallbacks for missing or
// damaged blocks (keeping what can be read, never the previous system's values), and the block
// save that must never eat lines outside the block.
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::readBytes;
using test::StoreTest;

class DescriptorBlockTest : public StoreTest {
  protected:
    // A descriptor of a 2-planet system "Nova" with names and a planet section after the block.
    static std::string novaText() {
        return crlf({"[General]", "PlanetPics=NN", "Messages=YN", "", ";SolarSystem",
                     ";\"Nova                \",5,2", ";400,2,0,46087,13,0", ";430,3,4,0,7,99",
                     "[Names]", "S=Bright", "1=Ember", "[1]", "Hail=Hello"});
    }
};

TEST_F(DescriptorBlockTest, NewDescriptorHasTheExactLines) {
    SystemRecord record;
    record.setDisplayName("Sol");
    record.PlanetCount = 3;
    for (int n = 1; n <= 3; ++n)
        record.planet(n) = {static_cast<std::int16_t>(370 + 30 * n), 2, 0, 0, 1, 0, 0};
    record.planet(2).Attributes = 46087;
    record.planet(3).LastVisit = -5;
    EXPECT_EQ(newDescriptorText(record),
              crlf({"[General]", "PlanetPics = NNN", "Messages = NNN", "", ";SolarSystem",
                    ";\"Sol                 \",0,3", ";400,2,0,0,1,0", ";430,2,0,46087,1,0",
                    ";460,2,0,0,1,-5"}));

    record.PlanetCount = 0;
    EXPECT_EQ(systemBlockText(record), crlf({";SolarSystem", ";\"Sol                 \",0,0"}));
    // Quotes and line breaks in the name would break the line for the game.
    record.DisplayName = "A\"B\r\nC";
    EXPECT_EQ(systemBlockText(record), crlf({";SolarSystem", ";\"A'B  C              \",0,0"}));
}

TEST_F(DescriptorBlockTest, ListedSystemWithoutBlockTakesTheListValues) {
    writeDescriptor("9Sol", crlf({"[General]", "PlanetPics=", "[Names]", "S=Home"}));
    const LoadResult result = store.LoadSystem("9Sol");
    EXPECT_FALSE(result.blockFound);
    EXPECT_EQ(result.warning, "");
    EXPECT_EQ(store.record().planet(3).Attributes, 46087);

    // A custom system without block keeps the values the record had.
    writeDescriptor("Plain", crlf({"[General]"}));
    const SystemRecord before = store.record();
    EXPECT_FALSE(store.LoadSystem("Plain").blockFound);
    EXPECT_EQ(store.record().PlanetCount, before.PlanetCount);
    EXPECT_EQ(store.record().Planets, before.Planets);

    // Saving keeps no block: the file stays as it was.
    const std::string bytes = readDescriptor("Plain.orb");
    EXPECT_TRUE(store.SaveSystemBlock());
    EXPECT_EQ(readDescriptor("Plain.orb"), bytes);

    // A block that was read and is gone by the save is no success.
    writeDescriptor("Nova", novaText());
    store.LoadSystem("Nova");
    writeDescriptor("Nova", crlf({"[General]", "[1]"}));
    EXPECT_FALSE(store.SaveSystemBlock());
    EXPECT_NE(store.lastError().find("missing from the descriptor"), std::string::npos)
        << store.lastError();
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "[1]"}));
}

TEST_F(DescriptorBlockTest, FieldsAreReadAsTheGameReadsThemAndWrittenBackUnchanged) {
    // Out-of-range values, text after numbers, a field too many and one too few, blanks.
    writeDescriptor("Odd", crlf({"[General]", ";SolarSystem", ";\"Odd\",8x,3,9",
                                 ";400,9,3x,abc,1,0,7", ";430,2,0,0,14", "; -5 ,2,0,0,1,0"}));
    const LoadResult result = store.LoadSystem("Odd");
    EXPECT_TRUE(result.blockFound);
    EXPECT_EQ(result.warning, "");
    EXPECT_EQ(store.record().StarType, 8);
    EXPECT_EQ(store.record().planet(1), (PlanetRecord{400, 9, 3, 0, 1, 0, 0}));
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
    EXPECT_EQ(readDescriptor("Odd.orb"),
              crlf({"[General]", ";SolarSystem", ";\"Odd                 \",8,3", ";400,9,3,0,1,0",
                    ";430,2,0,0,14,0", ";-5,2,0,0,1,0"}));
}

// A block that cannot be read whole is never saved over: the save says so and writes nothing.
void expectSaveRefused(SystemStore& store, const fs::path& file) {
    const std::string bytes = readBytes(file);
    EXPECT_FALSE(store.SaveSystemBlock());
    EXPECT_NE(store.lastError().find("was not saved because"), std::string::npos)
        << store.lastError();
    EXPECT_EQ(readBytes(file), bytes);
}

TEST_F(DescriptorBlockTest, DamagedHeaderKeepsNothingOfThePreviousSystem) {
    const std::string head = crlf({"[General]", ";SolarSystem"});
    const std::pair<std::string, std::string> cases[] = {
        {"", "header line is missing"},
        {crlf({";\"Bad\",99999,0"}), "star type \"99999\" is outside -32768 to 32767"},
    };
    for (const auto& [block, reason] : cases) {
        writeDescriptor("Damaged", head + block);
        writeDescriptor("Nova", novaText());
        store.LoadSystem("Nova");  // the system open before
        const LoadResult result = store.LoadSystem("Damaged");
        EXPECT_FALSE(result.blockFound) << block;
        EXPECT_NE(result.warning.find(reason), std::string::npos) << result.warning;
        EXPECT_NE(result.warning.find("without planets"), std::string::npos) << result.warning;
        SystemRecord expected;
        expected.Name = "Damaged";
        expected.setDisplayName("Damaged");
        EXPECT_EQ(store.record(), expected) << block;
        expectSaveRefused(store, game.descriptor("Damaged.orb"));
    }
    // The game's list does not stand in for a damaged block either.
    writeDescriptor("9Sol", head);
    store.LoadSystem("9Sol");
    EXPECT_EQ(store.record().PlanetCount, 0);
    EXPECT_EQ(store.record().trimmedDisplayName(), "9Sol");
}

TEST_F(DescriptorBlockTest, DamagedPlanetLinesKeepTheReadableOnes) {
    const std::string head = crlf({"[General]", ";SolarSystem"});
    const std::string header = crlf({";\"Bad\",4,3"});
    const std::string hundredKb(100 * 1024, '9');
    std::string eleven = crlf({";\"Bad\",4,11"});
    for (int n = 0; n < 11; ++n) eleven += ";" + std::to_string(400 + 30 * n) + ",2,0,0,1,0\r\n";
    struct Case {
        std::string lines;
        std::string reason;
        std::vector<std::int16_t> positions;  // of the planets kept
        bool savable;
    };
    const Case cases[] = {
        {header + crlf({";400,2,0,0,1,0"}), "only 1 of its 3 planet lines", {400}, true},
        {header + crlf({";400,2,0,0,1,0", ";" + hundredKb + ",2,0,0,1,0", ";600,2,0,0,1,0"}),
         "in planet line 2, the orbit position \"99999999999999999999...\" is outside",
         {400},
         false},
        {eleven, "claims 11 planets", {400, 430, 460, 490, 520, 550, 580, 610, 640, 670}, false},
    };
    for (const Case& c : cases) {
        writeDescriptor("Damaged", head + c.lines);
        writeDescriptor("Nova", novaText());
        store.LoadSystem("Nova");
        const LoadResult result = store.LoadSystem("Damaged");
        EXPECT_FALSE(result.blockFound) << c.lines;
        EXPECT_NE(result.warning.find(c.reason), std::string::npos) << result.warning;
        const std::string claimed = c.lines == eleven ? "11" : "3";
        EXPECT_NE(result.warning.find("The header and " + std::to_string(c.positions.size()) +
                                      " of its " + claimed + " planet lines are " +
                                      (c.savable ? "kept" : "shown")),
                  std::string::npos)
            << result.warning;
        const SystemRecord& r = store.record();
        EXPECT_EQ(r.trimmedDisplayName(), "Bad");
        EXPECT_EQ(r.StarType, 4);
        ASSERT_EQ(r.PlanetCount, static_cast<int>(c.positions.size())) << c.lines;
        for (int n = 1; n <= r.PlanetCount; ++n)
            EXPECT_EQ(r.planet(n).Position, c.positions[static_cast<std::size_t>(n - 1)]);
        // Nova's planets are nowhere in the record, not even in the unused slots.
        for (int n = r.PlanetCount + 1; n <= kMaxPlanets; ++n)
            EXPECT_EQ(r.planet(n), PlanetRecord()) << n;
        if (!c.savable) expectSaveRefused(store, game.descriptor("Damaged.orb"));
    }

    // Saving writes the block of what was kept: the planet lines up to the first line that is no
    // comment, so no section is taken for a planet.
    writeDescriptor("Damaged",
                    head + header + crlf({";400,two,0,0,1,0", ";500,2,0,0,1,0", "[1]", "A=1"}));
    store.LoadSystem("Damaged");
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
    EXPECT_EQ(readDescriptor("Damaged.orb"),
              crlf({"[General]", ";SolarSystem", ";\"Bad                 \",4,2", ";400,0,0,0,1,0",
                    ";500,2,0,0,1,0", "[1]", "A=1"}));
}

TEST_F(DescriptorBlockTest, OnlyACommentLineIsTheBlockMarker) {
    const std::string text =
        crlf({"[General]", "PlanetPics=N", "[Names]", "S=Heart of the SolarSystem", "1=Ember"});
    writeDescriptor("Plain", text);
    const SystemRecord before = store.record();
    const LoadResult result = store.LoadSystem("Plain");
    EXPECT_FALSE(result.blockFound);
    EXPECT_EQ(result.warning, "");
    EXPECT_EQ(store.record().Planets, before.Planets);
    store.record().PlanetCount = 2;
    EXPECT_TRUE(store.SaveSystemBlock());
    EXPECT_EQ(readDescriptor("Plain.orb"), text);
    EXPECT_EQ(store.GetName(0, ""), "Heart of the SolarSystem");

    // A block after such a line is found all the same.
    writeDescriptor("Nova", crlf({"[Notes]", "About=my SolarSystem"}) + novaText());
    EXPECT_TRUE(store.LoadSystem("Nova").blockFound);
    EXPECT_EQ(store.record().StarType, 5);
}

TEST_F(DescriptorBlockTest, LoadAndSaveReplaceOnlyTheBlock) {
    writeDescriptor("Nova", novaText());
    const LoadResult result = store.LoadSystem("Nova");
    EXPECT_TRUE(result.blockFound);
    EXPECT_EQ(result.warning, "");
    EXPECT_EQ(store.record().planet(2), (PlanetRecord{430, 3, 4, 0, 7, 99, 0}));
    store.record().StarType = 7;
    store.record().planet(2).Moons = 9;
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", "PlanetPics=NN", "Messages=YN", "", ";SolarSystem",
                    ";\"Nova                \",7,2", ";400,2,0,46087,13,0", ";430,3,9,0,7,99",
                    "[Names]", "S=Bright", "1=Ember", "[1]", "Hail=Hello"}));
}

TEST_F(DescriptorBlockTest, SaveNeverEatsLinesOutsideTheOldBlock) {
    // The header claims three planets but only one line follows; then a comment of the user's
    // own and a section. The old count claimed is also larger than the new one.
    writeDescriptor("Nova", crlf({"[General]", ";SolarSystem", ";\"Nova\",0,3", ";400,2,0,0,1,0",
                                  "keep=me", ";my note", "[1]", "Hail=Hi"}));
    store.LoadSystem("Nova");  // damaged: one of the three planets claimed is there
    store.record().Name = "Nova";
    store.record().setDisplayName("Nova");
    store.record().PlanetCount = 2;
    store.record().planet(1) = {400, 2, 0, 0, 1, 0, 0};
    store.record().planet(2) = {500, 2, 0, 0, 1, 0, 0};
    ASSERT_TRUE(store.SaveSystemBlock());
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", ";SolarSystem", ";\"Nova                \",0,2", ";400,2,0,0,1,0",
                    ";500,2,0,0,1,0", "keep=me", ";my note", "[1]", "Hail=Hi"}));

    // Comment lines after a complete block are not planet lines of it.
    store.record().PlanetCount = 1;
    ASSERT_TRUE(store.SaveSystemBlock());
    EXPECT_EQ(readDescriptor("Nova.orb"),
              crlf({"[General]", ";SolarSystem", ";\"Nova                \",0,1", ";400,2,0,0,1,0",
                    "keep=me", ";my note", "[1]", "Hail=Hi"}));
}

TEST_F(DescriptorBlockTest, SaveKeepsOtherBytesAndEndsEveryLineInCrLf) {
    // LF-only lines, a NUL byte, 8-bit characters, a 100 KB value and a last line without an end.
    const std::string longValue(100 * 1024, 'v');
    const std::string before = std::string("[General]\nNote=caf\xe9\0x\n", 22) + ";SolarSystem\n" +
                               ";\"Nova\",0,0\n[1]\nLong=" + longValue + "\nLast=no end";
    writeDescriptor("Nova", before);
    ASSERT_TRUE(store.LoadSystem("Nova").blockFound);
    ASSERT_TRUE(store.SaveSystemBlock());
    const std::string after = readDescriptor("Nova.orb");
    EXPECT_EQ(after, std::string("[General]\r\nNote=caf\xe9\0x\r\n", 24) +
                         crlf({";SolarSystem", ";\"Nova                \",0,0", "[1]",
                               "Long=" + longValue, "Last=no end"}));
    EXPECT_EQ(store.ReadKey("1", "Long").size(), kMaxValueLength);
}

TEST_F(DescriptorBlockTest, DescriptorListAndLookupIgnoreCase) {
    writeDescriptor("Nova", novaText());
    test::writeBytes(game.descriptor("vega.ORB"), crlf({"[General]"}));
    test::writeBytes(game.descriptor("Rigel.edt"), crlf({"[General]"}));
    store.ListDescriptors();
    ASSERT_EQ(store.DescriptorList().size(), 3u);
    EXPECT_EQ(store.DescriptorList()[0], "");
    EXPECT_EQ(store.FindDescriptor("Rigel"), 0);
    EXPECT_EQ(store.FindDescriptor("VEGA"), store.FindDescriptor("vega"));
    EXPECT_EQ(store.descriptorPath("Sirius", ".orb"), game.descriptor("Sirius.orb"));

    // The cached lookup notices a renamed file.
    fs::rename(game.descriptor("vega.ORB"), game.descriptor("VEGA.orb"));
    EXPECT_EQ(store.descriptorPath("Vega", ".orb"), game.descriptor("VEGA.orb"));
    store.record().Name = "Vega";
    EXPECT_EQ(store.openDescriptorPath(), game.descriptor("VEGA.orb"));
}

}  // namespace
}  // namespace orr
