// The descriptor's system block: loading it as leniently as the game reads it (keeping what can
// be read, never the previous system's values), and the block save that replaces only the lines
// the load read and never writes over a block it could not read whole.
#include <gtest/gtest.h>

#include "store/SystemStore.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::StoreTest;
using Lines = std::vector<std::string>;

class DescriptorBlockTest : public StoreTest {
  protected:
    // A 2-planet system "Nova" with star type 5, names and a planet section after the block.
    static Lines nova() {
        return {"[General]",       ";SolarSystem", ";\"Nova\",5,2", ";400,2,0,46087,13,0",
                ";430,3,4,0,7,99", "[Names]",      "S=Bright",      "[1]",
                "Hail=Hello"};
    }
    void writeNova() { writeDescriptor("Nova", crlf(nova())); }
};

TEST_F(DescriptorBlockTest, BlocksAreReadAsTheGameReadsThemAndSavedOnlyWhenNothingIsLost) {
    const std::string hundredKb(100 * 1024, '9');
    Lines eleven{";\"Bad\",4,11"};
    for (int n = 0; n < 11; ++n)
        eleven.push_back(";" + std::to_string(400 + 30 * n) + ",2,0,0,1,0");
    struct Case {
        Lines block;          // the lines after ";SolarSystem"
        std::string warning;  // a piece of the load's warning; empty: none
        std::string shown;    // display name, star type and the orbits of the planets kept
        Lines saved;  // the file's lines after ";SolarSystem" once saved; empty: the save is
                      // refused and the file stays as it was
    };
    const Case cases[] = {
        // Out-of-range values, text after numbers, a field too many and one too few, blanks;
        // a comment after the complete block is none of its planet lines.
        {{";\"Odd\",8x,3,9", ";400,9,3x,abc,1,0,7", ";430,2,0,0,14", "; -5 ,2,0,0,1,0", ";note"},
         "",
         "Odd 8: 400 430 -5",
         {";\"Odd                 \",8,3", ";400,9,3,0,1,0", ";430,2,0,0,14,0", ";-5,2,0,0,1,0",
          ";note"}},
        {{},
         "its header line is missing). The system is shown under its own name",
         "Damaged 0:",
         {}},
        {{";\"Bad\",99999,0"}, "star type \"99999\" is outside -32768 to 32767", "Damaged 0:", {}},
        // Too few planet lines: what was read is kept and saved; a line that is no comment ends
        // the block, so neither it nor a section is taken for a planet.
        {{";\"Bad\",4,3", ";400,two,0,0,1,0", ";500,2,0,0,1,0", "keep=me", ";my note"},
         "only 2 of its 3 planet lines are there). The header and 2 of its 3 planet lines are kept",
         "Bad 4: 400 500",
         {";\"Bad                 \",4,2", ";400,0,0,0,1,0", ";500,2,0,0,1,0", "keep=me",
          ";my note"}},
        {{";\"Bad\",4,3", ";400,2,0,0,1,0", ";" + hundredKb + ",2,0,0,1,0", ";600,2,0,0,1,0"},
         "in planet line 2, the orbit position \"99999999999999999999...\" is outside",
         "Bad 4: 400",
         {}},
        {eleven,
         "a system can have). The header and 10 of its 11 planet lines are shown",
         "Bad 4: 400 430 460 490 520 550 580 610 640 670",
         {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.block.empty() ? "no header" : c.block[0]);
        Lines lines{"[General]", ";SolarSystem"};
        lines.insert(lines.end(), c.block.begin(), c.block.end());
        lines.insert(lines.end(), {"[1]", "A=1"});
        writeDescriptor("Damaged", crlf(lines));
        writeNova();
        store.LoadSystem("Nova");  // the system open before
        const LoadResult result = store.LoadSystem("Damaged");
        EXPECT_EQ(result.blockFound, c.warning.empty());
        EXPECT_NE(result.warning.find(c.warning), std::string::npos) << result.warning;
        const SystemRecord& r = store.record();
        std::string shown = r.trimmedDisplayName() + " " + std::to_string(r.StarType) + ":";
        for (int n = 1; n <= r.PlanetCount; ++n)
            shown += " " + std::to_string(r.planet(n).Position);
        EXPECT_EQ(shown, c.shown);
        for (int n = r.PlanetCount + 1; n <= kMaxPlanets && !c.warning.empty(); ++n)
            EXPECT_EQ(r.planet(n), PlanetRecord()) << "Nova's planet " << n << " stayed";
        const std::string before = readDescriptor("Damaged.orb");
        EXPECT_EQ(store.SaveSystemBlock(), !c.saved.empty());
        if (c.saved.empty()) {
            EXPECT_NE(store.lastError().find("was not saved because"), std::string::npos)
                << store.lastError();
            EXPECT_EQ(readDescriptor("Damaged.orb"), before);
        } else {
            lines = {"[General]", ";SolarSystem"};
            lines.insert(lines.end(), c.saved.begin(), c.saved.end());
            lines.insert(lines.end(), {"[1]", "A=1"});
            EXPECT_EQ(readDescriptor("Damaged.orb"), crlf(lines));
        }
    }
    // The game's list does not stand in for a damaged block either.
    writeDescriptor("9Sol", crlf({"[General]", ";SolarSystem"}));
    store.LoadSystem("9Sol");
    EXPECT_EQ(store.record().PlanetCount, 0);
}

TEST_F(DescriptorBlockTest, WithoutABlockTheListOrTheRecordGivesThePlanetsAndNothingIsSaved) {
    writeDescriptor("9Sol", crlf({"[General]", "PlanetPics=", "[Names]", "S=Home"}));
    LoadResult result = store.LoadSystem("9Sol");
    EXPECT_FALSE(result.blockFound);
    EXPECT_EQ(result.warning, "");
    EXPECT_EQ(store.record().planet(3).Attributes, 46087);

    // A custom system keeps the values the record had; only a comment line is the marker, and
    // the save leaves such a file as it was.
    const std::string text = crlf({"[General]", "[Names]", "S=Heart of the SolarSystem"});
    writeDescriptor("Plain", text);
    const SystemRecord before = store.record();
    EXPECT_FALSE(store.LoadSystem("Plain").blockFound);
    EXPECT_EQ(store.record().PlanetCount, before.PlanetCount);
    EXPECT_EQ(store.record().Planets, before.Planets);
    EXPECT_TRUE(store.SaveSystemBlock());
    EXPECT_EQ(readDescriptor("Plain.orb"), text);

    // A block after such a line is found all the same, and is the only thing a save replaces:
    // 8-bit and NUL bytes stay, a line ended by LF alone ends in CR LF afterwards.
    Lines lines = nova();
    lines.insert(lines.begin(),
                 {"[Notes]", "About=my SolarSystem", std::string("Note=caf\xe9\0x", 11)});
    writeDescriptor("Nova", crlf(lines).erase(7, 1));
    EXPECT_TRUE(store.LoadSystem("Nova").blockFound);
    store.record().planet(2).Moons = 9;
    ASSERT_TRUE(store.SaveSystemBlock()) << store.lastError();
    lines[5] = ";\"Nova                \",5,2";
    lines[7] = ";430,3,9,0,7,99";
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf(lines));

    // A block that was read and is gone by the save is no success.
    writeDescriptor("Nova", crlf({"[General]", "[1]"}));
    EXPECT_FALSE(store.SaveSystemBlock());
    EXPECT_NE(store.lastError().find("missing from the descriptor"), std::string::npos)
        << store.lastError();
    EXPECT_EQ(readDescriptor("Nova.orb"), crlf({"[General]", "[1]"}));

    // Quotes and line breaks in the name would break the header line for the game.
    SystemRecord record;
    record.DisplayName = "A\"B\r\nC";
    EXPECT_EQ(systemBlockText(record), crlf({";SolarSystem", ";\"A'B  C              \",0,0"}));
}

TEST_F(DescriptorBlockTest, DescriptorLookupIgnoresCaseAndNoticesARenamedFile) {
    writeNova();
    test::writeBytes(game.descriptor("vega.ORB"), crlf({"[General]"}));
    test::writeBytes(game.descriptor("Rigel.edt"), crlf({"[General]"}));
    store.ListDescriptors();
    ASSERT_EQ(store.DescriptorList().size(), 3u);
    EXPECT_EQ(store.FindDescriptor("Rigel"), 0);
    EXPECT_EQ(store.FindDescriptor("VEGA"), store.FindDescriptor("vega"));
    EXPECT_NE(store.FindDescriptor("vega"), 0);

    EXPECT_EQ(store.descriptorPath("Vega", ".orb"), game.descriptor("vega.ORB"));
    // The lookup is remembered; in the next check round a renamed file is found again.
    fs::rename(game.descriptor("vega.ORB"), game.descriptor("VEGA.orb"));
    store.recheck();
    EXPECT_EQ(store.descriptorPath("Vega", ".orb"), game.descriptor("VEGA.orb"));
    EXPECT_EQ(store.descriptorPath("Sirius", ".orb"), game.descriptor("Sirius.orb"));
}

}  // namespace
}  // namespace orr
