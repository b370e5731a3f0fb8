// The planet edits shared by the editor and the command-line tool: add with its orbit pass,
// insert, delete, swap, class, names, star and clear, each saved at once and told to the
// picture holder in step.
#include "store/SystemOperations.h"

#include <gtest/gtest.h>

#include "store/PictureSlots.h"
#include "support/GameFolderFixture.h"

namespace orr {
namespace {

using test::StoreTest;
using Calls = std::vector<std::string>;

// A picture holder that only notes what it is told, in order.
class RecordingPictures : public PictureSlots {
  public:
    void swapPictures(int a, int b) override {
        calls.push_back("swap " + std::to_string(a) + " " + std::to_string(b));
    }
    void addPictureSlot() override { calls.push_back("add"); }
    void dropLastPictureSlot() override { calls.push_back("drop"); }
    void resetPictures(int count) override { calls.push_back("reset " + std::to_string(count)); }

    Calls calls;
};

class SystemOperationsTest : public StoreTest {
  protected:
    void setOrbits(std::initializer_list<int> positions) {
        int n = 0;
        for (int p : positions) store.record().planet(++n).Position = static_cast<std::int16_t>(p);
        ASSERT_TRUE(store.SaveSystemBlock());
    }
    std::vector<int> orbits() const {
        std::vector<int> out;
        for (int n = 1; n <= store.record().PlanetCount; ++n) {
            out.push_back(store.record().planet(n).Position);
        }
        return out;
    }
    // Names 1..count "P1".."Pn", a section with one key each, flags set for planet 2 only.
    void markPlanets() {
        const int count = store.record().PlanetCount;
        for (int n = 1; n <= count; ++n) {
            ASSERT_TRUE(store.SetName(n, "P" + std::to_string(n)));
            ASSERT_TRUE(store.WriteKey(std::to_string(n), "Hail", "H" + std::to_string(n)));
            store.record().planet(n).Moons = static_cast<std::int16_t>(n);
        }
        ASSERT_TRUE(store.SetGeneralFlag(kMessagesFlag, 2, count, true));
    }
    // Name, hail, moons and messages flag of planet n, as one text.
    std::string planetAt(int n) {
        return store.GetName(n, "x") + "/" + store.GetPlanetKey(n, "Hail", true) + "/" +
               std::to_string(store.record().planet(n).Moons) + "/" +
               std::to_string(store.GetGeneralFlag(kMessagesFlag, n));
    }

    RecordingPictures pictures;
};

TEST_F(SystemOperationsTest, AddPlacesNewOrbitsOutsideOrPullsTheOuterPlanetsIn) {
    openNewSystem("Nova", 0);
    EXPECT_EQ(addPlanet(store, &pictures), AddPlanetResult::Added);
    EXPECT_EQ(pictures.calls, Calls{});  // the holder always has a slot for planet 1
    EXPECT_EQ(addPlanet(store, &pictures), AddPlanetResult::Added);
    EXPECT_EQ(pictures.calls, Calls{"add"});
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430}));
    EXPECT_EQ(store.ReadKey("General", kPlanetPics), "NN");
    EXPECT_TRUE(store.IsModified());

    openNewSystem("Outer", 3);
    setOrbits({400, 1985, 2000});
    EXPECT_TRUE(canAddPlanet(store));
    EXPECT_EQ(addPlanet(store), AddPlanetResult::Added);
    EXPECT_EQ(orbits(), (std::vector<int>{400, 1940, 1970, 2000}));
    EXPECT_EQ(saveAndReload().planet(2).Position, 1940);  // the block was saved
}

TEST_F(SystemOperationsTest, NoRoomOrAFullSystemChangesNothing) {
    openNewSystem("Nova", 3);
    setOrbits({1980, 1990, 2000});
    const std::string bytes = readDescriptor("Nova.edt");
    EXPECT_FALSE(canAddPlanet(store));
    EXPECT_EQ(addPlanet(store, &pictures), AddPlanetResult::NoRoom);
    EXPECT_EQ(insertPlanet(store, 1, &pictures), AddPlanetResult::NoRoom);
    EXPECT_EQ(readDescriptor("Nova.edt"), bytes);

    openNewSystem("Full", 10);
    const SystemRecord before = store.record();
    EXPECT_FALSE(canAddPlanet(store));
    EXPECT_EQ(addPlanet(store, &pictures), AddPlanetResult::Full);
    EXPECT_EQ(store.lastError(), kMaxPlanetsMessage);
    EXPECT_EQ(insertPlanet(store, 3, &pictures), AddPlanetResult::Full);
    EXPECT_EQ(store.record(), before);
    EXPECT_EQ(pictures.calls, Calls{});
}

TEST_F(SystemOperationsTest, InsertTakesTheOrbitOfThePlanetItPrecedes) {
    openNewSystem("Nova", 4);
    markPlanets();
    EXPECT_EQ(insertPlanet(store, 2, &pictures), AddPlanetResult::Added);
    EXPECT_EQ(pictures.calls, (Calls{"add", "swap 5 4", "swap 4 3", "swap 3 2"}));
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430, 460, 490, 520}));
    EXPECT_EQ(planetAt(1), "P1/H1/1/0");
    EXPECT_EQ(planetAt(2), "x II/ERR/0/0");  // the new planet
    EXPECT_EQ(planetAt(3), "P2/H2/2/1");     // the later planets move out by one orbit
    EXPECT_EQ(planetAt(5), "P4/H4/4/0");

    EXPECT_EQ(insertPlanet(store, 7, &pictures), AddPlanetResult::Failed);
    EXPECT_EQ(insertPlanet(store, 0, &pictures), AddPlanetResult::Failed);
    EXPECT_EQ(store.record().PlanetCount, 5);
}

TEST_F(SystemOperationsTest, DeleteMovesTheLaterPlanetsIn) {
    openNewSystem("Nova", 4);
    markPlanets();
    ASSERT_TRUE(store.SetGeneralFlag(kPlanetPics, 4, 4, true));
    EXPECT_TRUE(canDeletePlanet(store, 2));
    ASSERT_TRUE(deletePlanet(store, 2, &pictures));
    EXPECT_EQ(pictures.calls, (Calls{"swap 3 2", "swap 4 3", "drop"}));
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430, 460}));
    EXPECT_EQ(planetAt(2), "P3/H3/3/0");
    EXPECT_EQ(store.ReadKey("General", kPlanetPics), "NNY");
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), "NNN");
    EXPECT_FALSE(store.SectionExists("4"));
    EXPECT_FALSE(canDeletePlanet(store, 4));
    EXPECT_FALSE(deletePlanet(store, 0));
}

TEST_F(SystemOperationsTest, SwapExchangesPlanetsAndPictures) {
    openNewSystem("Nova", 3);
    markPlanets();
    EXPECT_TRUE(canSwapPlanets(store, 3, 2));
    ASSERT_TRUE(swapPlanets(store, 3, 2, &pictures));
    EXPECT_EQ(pictures.calls, Calls{"swap 3 2"});
    EXPECT_EQ(planetAt(2), "P3/H3/3/0");
    EXPECT_EQ(planetAt(3), "P2/H2/2/1");
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430, 460}));
    EXPECT_FALSE(canSwapPlanets(store, 3, 4));
    EXPECT_FALSE(swapPlanets(store, 0, 1, &pictures));
    EXPECT_EQ(pictures.calls.size(), 1u);
}

TEST_F(SystemOperationsTest, ClassDecidesSizeAndMoons) {
    openNewSystem("Nova", 1);
    PlanetRecord& p = store.record().planet(1);
    p.Size = 4;
    p.Moons = 6;
    ASSERT_TRUE(setPlanetClass(store, 1, 0));
    EXPECT_EQ(p.PlanetClass, 0);
    EXPECT_EQ(p.Size, 0);
    EXPECT_EQ(p.Moons, 0);
    p.Size = 5;
    ASSERT_TRUE(setPlanetClass(store, 1, 2));
    EXPECT_EQ(p.Size, 5);
    EXPECT_EQ(saveAndReload().planet(1).PlanetClass, 2);
    EXPECT_FALSE(setPlanetClass(store, 1, 15));
    EXPECT_EQ(p.PlanetClass, 2);
}

TEST_F(SystemOperationsTest, NameAnswers) {
    openNewSystem("Nova", 2);
    ASSERT_TRUE(setPlanetName(store, 2, "Ember"));
    EXPECT_EQ(planetLabel(store, 2), "Ember");
    for (const char* answer : {"DEFAULT", "None", ""}) {
        ASSERT_TRUE(setPlanetName(store, 2, "Ember"));
        ASSERT_TRUE(setPlanetName(store, 2, answer)) << answer;
        EXPECT_EQ(planetName(store, 2), "Nova II") << answer;
        EXPECT_EQ(planetLabel(store, 2), "Planet 2") << answer;
    }
    EXPECT_FALSE(setPlanetName(store, 1, "Two\r\nlines"));
    EXPECT_FALSE(setPlanetName(store, 1, std::string(255, 'n')));
    EXPECT_TRUE(setPlanetName(store, 1, std::string(254, 'n')));
}

TEST_F(SystemOperationsTest, StarDescriptionAndType) {
    openNewSystem("Nova", 0);
    EXPECT_EQ(planetName(store, 0), "Yellow Sun");
    ASSERT_TRUE(setStarType(store, 2));
    EXPECT_EQ(saveAndReload().StarType, 2);
    // Naming the star after its type stores nothing.
    ASSERT_TRUE(setPlanetName(store, 0, "Red Sun"));
    EXPECT_EQ(store.GetName(0, ""), kNotUsed);
    EXPECT_EQ(planetName(store, 0), "Red Sun");
    ASSERT_TRUE(setPlanetName(store, 0, "Yellow Sun"));  // another type's name is a description
    EXPECT_EQ(store.GetName(0, ""), "Yellow Sun");
    EXPECT_FALSE(setStarType(store, 8));
    EXPECT_EQ(store.record().StarType, 2);
}

TEST_F(SystemOperationsTest, DisplayNameAndFlags) {
    openNewSystem("Nova", 2);
    ASSERT_TRUE(setDisplayName(store, "The Long Name Of A Far System"));
    EXPECT_EQ(saveAndReload().DisplayName, "The Long Name Of A F");
    EXPECT_FALSE(setDisplayName(store, "Say \"hi\""));
    EXPECT_EQ(store.record().DisplayName, "The Long Name Of A F");

    ASSERT_TRUE(setPlanetFlag(store, kPlanetPics, 2, true));
    EXPECT_EQ(store.ReadKey("General", kPlanetPics), "NY");
    EXPECT_FALSE(setPlanetFlag(store, "Pictures", 1, true));
}

TEST_F(SystemOperationsTest, ClearPlanetsKeepsTheGeneralFlags) {
    openNewSystem("Nova", 3);
    markPlanets();
    ASSERT_TRUE(setPlanetName(store, 0, "Star"));
    store.record().planet(2).Attributes = 46087;
    const std::string flags = store.ReadKey("General", kMessagesFlag);
    ASSERT_TRUE(clearPlanets(store, &pictures));
    EXPECT_EQ(pictures.calls, Calls{"reset 0"});
    EXPECT_EQ(store.record().PlanetCount, 0);
    for (int n = 1; n <= 3; ++n) {
        EXPECT_EQ(store.record().planet(n),
                  (PlanetRecord{static_cast<std::int16_t>(370 + 30 * n), 3, 0, 0, 1, 0, 0}));
        EXPECT_FALSE(store.SectionExists(std::to_string(n)));
        EXPECT_EQ(store.ReadKey("Names", std::to_string(n)), kNotUsed);
    }
    EXPECT_EQ(store.ReadKey("Names", "S"), "Star");
    EXPECT_EQ(store.ReadKey("General", kMessagesFlag), flags);
    EXPECT_EQ(saveAndReload().PlanetCount, 0);
}

TEST_F(SystemOperationsTest, FailedWriteChangesNothing) {
    openNewSystem("Nova", 3);
    const SystemRecord before = store.record();
    const test::ReadOnlyFolder readOnly(game.descriptors());
    if (!readOnly.enforced()) GTEST_SKIP() << "the folder cannot be made read-only here";
    EXPECT_EQ(addPlanet(store, &pictures), AddPlanetResult::Failed);
    EXPECT_FALSE(deletePlanet(store, 1, &pictures));
    EXPECT_FALSE(swapPlanets(store, 1, 2, &pictures));
    EXPECT_FALSE(clearPlanets(store, &pictures));
    EXPECT_NE(store.lastError(), "");
    EXPECT_EQ(store.record(), before);
    EXPECT_EQ(pictures.calls, Calls{});
}

// The game's start argument: the key's characters before their final inversion, as codes.
std::vector<int> plainCodes(const std::string& key) {
    std::vector<int> codes;
    for (char c : EncodeStarArgument(key)) codes.push_back(255 - static_cast<unsigned char>(c));
    return codes;
}

std::vector<int> padded(std::vector<int> codes, int blank = ' ') {
    codes.resize(21, blank);
    return codes;
}

TEST(EncodeStarArgumentTest, ListedKeysPassTheirPlanetCountCustomKeysAMark) {
    EXPECT_EQ(plainCodes("9Sol"), padded({255 - 246, 255 - 172, 255 - 144, 255 - 147}));
    EXPECT_EQ(static_cast<unsigned char>(EncodeStarArgument("9Sol")[20]), 223);
    const std::pair<std::string, std::vector<int>> cases[] = {
        {"10Vega", {10, 'V', 'e', 'g', 'a'}},
        {"0Test", {0, 'T', 'e', 's', 't'}},
        {"Nova", {254, 'N', 'o', 'v', 'a'}},
        {"-3Neg", {254, '-', '3', 'N', 'e', 'g'}},  // a negative number is no planet count
        {"253X", {253, 'X'}},
        {"254X", {25, '4', 'X'}},  // from 254 on, the first two characters are one number
        {"", {254}},
    };
    for (const auto& [key, head] : cases) EXPECT_EQ(plainCodes(key), padded(head)) << key;
    // The game takes 21 characters: a longer key is cut there.
    EXPECT_EQ(EncodeStarArgument("Nova" + std::string(30, 'a')).size(), 21u);
}

}  // namespace
}  // namespace orr
