// The game folder as Windows leaves it, and the game's list of systems SOLARSYS.TXT: records,
// keys, the offer of replaceable systems and every kind of damage that ends the list.
#include "store/GameFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/SystemList.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::crlf;
using test::TempGameFolder;
using test::writeBytes;
using Keys = std::vector<std::string>;

class GameFolderTest : public ::testing::Test {
  protected:
    Keys keysOf(std::string_view bytes) {
        writeBytes(game.root() / "SOLARSYS.TXT", bytes);
        Keys keys;
        for (const ListedSystem& s : ReadSystemList(game.root() / "SOLARSYS.TXT"))
            keys.push_back(s.key);
        return keys;
    }

    TempGameFolder game;
};

TEST_F(GameFolderTest, FindsItemsWhateverTheirLetterCase) {
    fs::rename(game.root() / "SOLARSYS.TXT", game.root() / "SolarSys.txt");
    fs::rename(game.root() / "ORBDescriptor", game.root() / "orbdescriptor");
    fs::rename(game.root() / "voidrunner.exe", game.root() / "VOIDRUNNER.EXE");
    writeBytes(game.root() / "ALIENS.TXT", "upper");
    const GameFolder folder(game.root());
    EXPECT_EQ(folder.systemList(), game.root() / "SolarSys.txt");
    EXPECT_EQ(folder.descriptorFolder(), game.root() / "orbdescriptor");
    EXPECT_TRUE(folder.hasGameExecutable());
    EXPECT_EQ(folder.alienNames(), game.root() / "aliens.txt") << "the exact name wins";
    // Missing items get the names the game uses.
    fs::remove_all(game.root() / "PICTURES");
    EXPECT_EQ(folder.picturesFolder(), game.root() / "PICTURES");
    fs::remove(game.root() / "VOIDRUNNER.EXE");
    fs::create_directory(game.root() / "voidrunner.exe");
    EXPECT_FALSE(folder.hasGameExecutable()) << "a folder is no program";

    const fs::path dir = game.root() / "orbdescriptor";
    for (const char* name : {"Sol.orb", "Vega.ORB", "Nova.orb.bak", ".orb", "Rigel.edt"})
        writeBytes(dir / name, "");
    fs::create_directory(dir / "Folder.orb");
    Keys found = GameFolder::filesWithExtension(dir, ".orb");
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, (Keys{"Sol.orb", "Vega.ORB"}));
    EXPECT_TRUE(GameFolder::filesWithExtension(game.root() / "absent", ".orb").empty());
}

TEST_F(GameFolderTest, SystemListRecordsAreReadAsTheGameReadsThem) {
    const auto systems = ReadSystemList(game.root() / "SOLARSYS.TXT");
    ASSERT_EQ(systems.size(), 4u);
    EXPECT_EQ(systems[3].key, "3Sol");  // same name, other count: another key
    EXPECT_EQ(systems[0].record.DisplayName, "Sol" + std::string(17, ' '));
    EXPECT_EQ(systems[0].record.planet(3), (PlanetRecord{560, 3, 1, 46087, 13, 5, 0}));
    EXPECT_EQ(systems[1].record.StarType, 1);

    // Quoted commas, blanks before fields, blanks after numbers, text after a closing quote.
    EXPECT_EQ(keysOf(crlf({"  \"Alpha, Beta\" ,  2 , 1 ", " 400 ,2,0,0,1,0"})),
              Keys{"1Alpha, Beta"});
    // Blank lines, and a DOS end-of-file mark, between and after records.
    EXPECT_EQ(keysOf("\"  Padded  \",0,0\n\n   \r\"Lf\",0,1\n400,2,0,0,1,0\n\x1a"),
              (Keys{"0Padded", "1Lf"}));
    // Long names are cut before the key is formed; 8-bit bytes and NUL are kept.
    EXPECT_EQ(keysOf(crlf({"\"" + std::string(100 * 1024, 'x') + "\",0,0", "\"After\",0,0"})),
              (Keys{"0" + std::string(20, 'x'), "0After"}));
    EXPECT_EQ(keysOf(std::string("\"K\xe4p\0t\",0,0\r\n", 14)), Keys{std::string("0K\xe4p\0t", 6)});
    // The widest values that do fit are accepted.
    EXPECT_EQ(keysOf(crlf({"\"Edge\",7,1", "-32768,32767,0,-2147483648,0,2147483647"})),
              Keys{"1Edge"});
    EXPECT_TRUE(keysOf("\r\n\r\n").empty());
}

TEST_F(GameFolderTest, OnlyWhatTheGameCannotReadEndsTheSystemList) {
    const std::string good = crlf({"\"Good\",0,1", "400,2,0,0,1,0"});
    const Keys on{"1Good", "0Odd", "0Later"};
    const Keys stop{"1Good"};
    const std::pair<std::string, Keys> tails[] = {
        // Numbers by their leading value, out-of-range values kept, fields too many or too few.
        {"\"Odd\",x,0", on},
        {"\"Odd\",8,0,extra", on},
        {"\"Odd\",0,1\r\n400,2,0,0,1", {"1Good", "1Odd", "0Later"}},
        {"\"Odd\",0,-1", {"1Good", "-1Odd", "0Later"}},
        // More than ten planets, a value too large for its field.
        {"\"Bad\",0,11", stop},
        {"\"Bad\",0,1\r\n40000,2,0,0,1,0", stop},
        {"\"Bad\",0,1\r\n" + std::string(100 * 1024, '7') + ",2,0,0,1,0", stop},
    };
    for (const auto& [tail, keys] : tails)
        EXPECT_EQ(keysOf(good + tail + "\r\n\"Later\",0,0\r\n"), keys) << tail;
    // So does a file that ends before the record's last planet line.
    EXPECT_EQ(keysOf(good + crlf({"\"Bad\",0,2", "400,2,0,0,1,0"})), stop);
    // The offer stops there too, whatever the list's letter case.
    fs::rename(game.root() / "SOLARSYS.TXT", game.root() / "solarsys.txt");
    EXPECT_EQ(OfferedSystems(game.folder()), stop);
    fs::remove(game.root() / "solarsys.txt");
    EXPECT_TRUE(OfferedSystems(game.folder()).empty());
}

TEST_F(GameFolderTest, FindListedSystemCopiesTheRecordOfTheExactKey) {
    SystemRecord record;
    record.Name = "Mine";
    record.planet(10).Moons = 7;
    record.planet(2).TestFlags = 0x80;
    const SystemRecord before = record;
    for (const char* key : {"", "9sol", "Sol", "8Sol"})
        EXPECT_FALSE(FindListedSystem(game.folder(), key, record)) << key;
    EXPECT_EQ(record, before);

    ASSERT_TRUE(FindListedSystem(game.folder(), "9Sol", record));
    EXPECT_EQ(record.Name, "9Sol");
    EXPECT_EQ(record.planet(10).Moons, 7);         // slot beyond the count keeps its value
    EXPECT_EQ(record.planet(2).TestFlags, 0x80u);  // never part of a file
    // Slots beyond the count keep what earlier records of the list put there, as in the game.
    ASSERT_TRUE(FindListedSystem(game.folder(), "3Sol", record));
    EXPECT_EQ(record.PlanetCount, 3);
    EXPECT_EQ(record.planet(4).Position, 700);  // from 9Sol
    // A "#" record is hidden from the offer but still found by its key.
    ASSERT_TRUE(FindListedSystem(game.folder(), "1Hidden #1", record));

    // A saved descriptor, in any letter case, takes a system off the offer; a working copy not.
    EXPECT_EQ(OfferedSystems(game.folder()), (Keys{"9Sol", "0Vega", "3Sol"}));
    writeBytes(game.descriptor("0VEGA.ORB"), "");
    writeBytes(game.descriptor("3Sol.edt"), "");
    EXPECT_EQ(OfferedSystems(game.folder()), (Keys{"9Sol", "3Sol"}));
}

}  // namespace
}  // namespace orr
