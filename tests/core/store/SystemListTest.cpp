#include "store/SystemList.h"

#include <gtest/gtest.h>

#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::TempGameFolder;
using test::writeBytes;

class SystemListTest : public ::testing::Test {
  protected:
    std::vector<std::string> keysOf(std::string_view bytes) {
        writeBytes(game.root() / "SOLARSYS.TXT", bytes);
        std::vector<std::string> keys;
        for (const ListedSystem& s : ReadSystemList(game.root() / "SOLARSYS.TXT")) {
            keys.push_back(s.key);
        }
        return keys;
    }

    TempGameFolder game;
};

using Keys = std::vector<std::string>;

TEST_F(SystemListTest, ReadsRecordsAndKeys) {
    const auto systems = ReadSystemList(game.root() / "SOLARSYS.TXT");
    ASSERT_EQ(systems.size(), 4u);
    EXPECT_EQ(systems[0].key, "9Sol");
    EXPECT_EQ(systems[1].key, "0Vega");
    EXPECT_EQ(systems[2].key, "1Hidden #1");
    EXPECT_EQ(systems[3].key, "3Sol");  // same name, other count: another key

    const SystemRecord& sol = systems[0].record;
    EXPECT_EQ(sol.Name, "9Sol");
    EXPECT_EQ(sol.DisplayName, "Sol" + std::string(17, ' '));
    EXPECT_EQ(sol.StarType, 0);
    EXPECT_EQ(sol.PlanetCount, 9);
    EXPECT_EQ(sol.planet(3), (PlanetRecord{560, 3, 1, 46087, 13, 5, 0}));
    EXPECT_EQ(sol.planet(9).Position, 1800);
    EXPECT_EQ(systems[1].record.StarType, 1);
}

TEST_F(SystemListTest, FieldRules) {
    // Quoted commas, blanks before fields, blanks after numbers, text after a closing quote.
    EXPECT_EQ(keysOf(crlf({"  \"Alpha, Beta\" ,  2 , 1 ", " 400 ,2,0,0,1,0"})),
              Keys{"1Alpha, Beta"});
    EXPECT_EQ(keysOf("\"  Padded  \",0,0\n\"Lf\",0,1\n400,2,0,0,1,0\n"), (Keys{"0Padded", "1Lf"}));
    EXPECT_EQ(keysOf("\"Cr\",0,0\r\"Next\",0,0"), (Keys{"0Cr", "0Next"}));
    EXPECT_EQ(keysOf(crlf({"\"Sol\"junk,0,0"})), Keys{"0Sol"});
    EXPECT_EQ(keysOf(crlf({"\"A\",0,0", "", "   ", "\"B\",0,0", ""})), (Keys{"0A", "0B"}));
    // An unquoted name is taken as it stands.
    EXPECT_EQ(keysOf(crlf({"Bare Name ,0,0"})), Keys{"0Bare Name"});
}

TEST_F(SystemListTest, LongNamesAreCutBeforeTheKeyIsFormed) {
    const std::string longName(100 * 1024, 'x');
    const auto keys = keysOf(crlf({"\"" + longName + "\",0,0", "\"After\",0,0"}));
    EXPECT_EQ(keys, (Keys{"0" + std::string(20, 'x'), "0After"}));
    // Bytes of the 8-bit character set and NUL are kept as they are.
    const std::string odd("\"K\xe4p\0t\",0,0\r\n", 14);
    EXPECT_EQ(keysOf(odd), Keys{std::string("0K\xe4p\0t", 6)});
}

TEST_F(SystemListTest, MalformedRecordEndsTheList) {
    const std::string good = crlf({"\"Good\",0,1", "400,2,0,0,1,0"});
    const Keys onlyGood{"1Good"};
    const char* const badTails[] = {
        "\"Bad\",x,0",                            // star type not a number
        "\"Bad\",8,0",                            // star type out of range
        "\"Bad\",0,11",                           // more than ten planets
        "\"Bad\",0,-1",                           // negative count
        "\"Bad\",0",                              // missing field
        "\"Bad\",0,0,0",                          // one field too many
        "\"Bad\",0,1\r\n400,2,0,0,1",             // planet line short of a field
        "\"Bad\",0,1\r\n40000,2,0,0,1,0",         // 16-bit field overflows
        "\"Bad\",0,1\r\n400,2,0,2147483648,1,0",  // 32-bit field overflows
        "\"Bad\",0,1\r\n400,2.5,0,0,1,0",         // not a plain integer
        "\"Bad\",0,1\r\n400,&H2,0,0,1,0",
        "\"Bad\",0,2\r\n400,2,0,0,1,0",   // fewer planet lines than the count
        "\"Bad\",0,1\r\n400,2,0,0,1,0,",  // trailing comma adds a field
    };
    for (const char* tail : badTails) {
        EXPECT_EQ(keysOf(good + tail + "\r\n\"Later\",0,0\r\n"), onlyGood) << tail;
    }
    const std::string hugeNumber(100 * 1024, '7');
    EXPECT_EQ(keysOf(good + crlf({"\"Bad\",0,1", hugeNumber + ",2,0,0,1,0"})), onlyGood);
    // The widest values that do fit are accepted.
    EXPECT_EQ(keysOf(crlf({"\"Edge\",7,1", "-32768,32767,0,-2147483648,0,2147483647"})),
              Keys{"1Edge"});
}

TEST_F(SystemListTest, MissingOrEmptyFileGivesNoSystems) {
    EXPECT_TRUE(keysOf("").empty());
    EXPECT_TRUE(keysOf("\r\n\r\n").empty());
    fs::remove(game.root() / "SOLARSYS.TXT");
    EXPECT_TRUE(ReadSystemList(game.root() / "SOLARSYS.TXT").empty());
    EXPECT_TRUE(OfferedSystems(game.folder()).empty());
    SystemRecord record;
    record.Name = "Mine";
    const SystemRecord before = record;
    EXPECT_FALSE(FindListedSystem(game.folder(), "9Sol", record));
    EXPECT_EQ(record, before);
}

TEST_F(SystemListTest, FindListedSystemCopiesTheRecord) {
    SystemRecord record;
    record.Name = "Old";
    record.planet(10).Moons = 7;
    record.planet(2).TestFlags = 0x80;
    ASSERT_TRUE(FindListedSystem(game.folder(), "9Sol", record));
    EXPECT_EQ(record.Name, "9Sol");
    EXPECT_EQ(record.PlanetCount, 9);
    EXPECT_EQ(record.planet(3).Attributes, 46087);
    EXPECT_EQ(record.planet(10).Moons, 7);         // slot beyond the count keeps its value
    EXPECT_EQ(record.planet(2).TestFlags, 0x80u);  // never part of a file

    // Slots beyond the count keep what earlier records of the list put there, as in the game.
    ASSERT_TRUE(FindListedSystem(game.folder(), "3Sol", record));
    EXPECT_EQ(record.PlanetCount, 3);
    EXPECT_EQ(record.planet(2).Position, 500);
    EXPECT_EQ(record.planet(4).Position, 700);  // from 9Sol
    EXPECT_EQ(record.StarType, 3);
}

TEST_F(SystemListTest, FindListedSystemMatchesExactKeysOnly) {
    SystemRecord record;
    record.Name = "Mine";
    record.setDisplayName("Mine");
    const SystemRecord before = record;
    EXPECT_FALSE(FindListedSystem(game.folder(), "", record));
    EXPECT_FALSE(FindListedSystem(game.folder(), "9sol", record));
    EXPECT_FALSE(FindListedSystem(game.folder(), "Sol", record));
    EXPECT_FALSE(FindListedSystem(game.folder(), "8Sol", record));
    EXPECT_EQ(record, before);
    // A "#" record is hidden from the offer but still found by its key.
    EXPECT_TRUE(FindListedSystem(game.folder(), "1Hidden #1", record));
    EXPECT_EQ(record.trimmedDisplayName(), "Hidden #1");
}

TEST_F(SystemListTest, OffersSystemsWithoutDescriptor) {
    EXPECT_EQ(OfferedSystems(game.folder()), (Keys{"9Sol", "0Vega", "3Sol"}));
    writeBytes(game.descriptor("9Sol.orb"), "");
    EXPECT_EQ(OfferedSystems(game.folder()), (Keys{"0Vega", "3Sol"}));
    writeBytes(game.descriptor("0VEGA.ORB"), "");  // the folder ignores case
    writeBytes(game.descriptor("3Sol.edt"), "");   // a working copy is no saved descriptor
    EXPECT_EQ(OfferedSystems(game.folder()), Keys{"3Sol"});
}

TEST_F(SystemListTest, OfferStopsAtAMalformedRecord) {
    writeBytes(game.root() / "SOLARSYS.TXT",
               crlf({"\"Sol\",0,0", "\"Broken\",0,1", "x", "\"Vega\",0,0"}));
    EXPECT_EQ(OfferedSystems(game.folder()), Keys{"0Sol"});
    fs::rename(game.root() / "SOLARSYS.TXT", game.root() / "solarsys.txt");
    EXPECT_EQ(OfferedSystems(game.folder()), Keys{"0Sol"});
}

}  // namespace
}  // namespace orr
