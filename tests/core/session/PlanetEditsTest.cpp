// The planet and name commands: where orbits go, which planet's names, sections, switches and
// pictures follow it, and the rules of classes, names and the star. Undo of each is checked by
// EditSessionTest.
#include "session/PlanetEdits.h"

#include "session/SystemEdits.h"
#include "support/SessionFixture.h"

namespace orr::test {
namespace {

class PlanetEditsTest : public SessionTest {
  protected:
    std::vector<int> orbits() const {
        std::vector<int> out;
        for (int n = 1; n <= session.record().PlanetCount; ++n)
            out.push_back(session.record().planet(n).Position);
        return out;
    }
    // Names "P1".."Pn", a section with one key, moons n and a picture each; only planet 2 uses
    // custom messages.
    void markPlanets() {
        const int count = session.record().PlanetCount;
        for (int n = 1; n <= count; ++n) {
            const std::string tag = "P" + std::to_string(n);
            ASSERT_TRUE(setPlanetName(session, n, tag));
            ASSERT_TRUE(writeKey(session, std::to_string(n), "Hail", "H" + std::to_string(n)));
            ASSERT_TRUE(setPlanetPicture(session, n, textPicture(tag)));
            ASSERT_TRUE(setPlanetProperties(session, n, {{}, 2, n, {}, n == 2}));
        }
    }
    // Name, hail, moons, messages switch and picture of planet n, as one text.
    std::string planetAt(int n) const {
        const SystemStore& store = session.store();
        return store.GetName(n, "x") + "/" + store.GetPlanetKey(n, "Hail", true) + "/" +
               std::to_string(session.record().planet(n).Moons) + "/" +
               std::to_string(store.GetGeneralFlag(kMessagesFlag, n)) + "/" +
               textOf(session.pictures().planet(n));
    }
};

TEST_F(PlanetEditsTest, InsertDeleteAndSwapCarryEverythingOfAPlanetWithIt) {
    openSystem("Nova", 4);
    markPlanets();
    ASSERT_EQ(insertPlanet(session, 2), AddPlanetResult::Added);
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430, 460, 490, 520}));
    EXPECT_EQ(planetAt(1), "P1/H1/1/0/P1");
    EXPECT_EQ(planetAt(2), "x II/ERR/0/0/");  // the new planet takes planet 2's orbit
    EXPECT_EQ(planetAt(3), "P2/H2/2/1/P2");   // the later planets move out by one orbit
    EXPECT_EQ(planetAt(5), "P4/H4/4/0/P4");
    EXPECT_EQ(insertPlanet(session, 7), AddPlanetResult::Failed);

    ASSERT_TRUE(deletePlanet(session, 2));
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430, 460, 490}));
    EXPECT_EQ(planetAt(2), "P2/H2/2/1/P2");
    EXPECT_FALSE(session.store().SectionExists("5"));
    EXPECT_EQ(session.store().ReadKey("General", kMessagesFlag), "NYNN");

    ASSERT_TRUE(swapPlanets(session, 4, 2));
    EXPECT_EQ(planetAt(2), "P4/H4/4/0/P4");
    EXPECT_EQ(planetAt(4), "P2/H2/2/1/P2");
    EXPECT_EQ(orbits(), (std::vector<int>{400, 430, 460, 490})) << "orbits stay with their slots";
    EXPECT_FALSE(swapPlanets(session, 0, 1));
    EXPECT_FALSE(deletePlanet(session, 5));
}

TEST_F(PlanetEditsTest, ClassPropertiesAndOrbitRules) {
    openSystem("Nova", 2);
    ASSERT_TRUE(setPlanetProperties(session, 1, {{}, 4, 6, {}, {}}));
    ASSERT_TRUE(setPlanetClass(session, 1, 0));
    EXPECT_EQ(session.record().planet(1), (PlanetRecord{400, 0, 0, 0, 0, 0, 0}));
    ASSERT_TRUE(setPlanetClass(session, 1, 2));
    EXPECT_EQ(session.record().planet(1).Size, 2) << "a belt made a planet again gets size 2";
    EXPECT_FALSE(setPlanetClass(session, 1, 15));

    // Without animal life there is no attitude or technology; extinct life has no attitude.
    const std::pair<PlanetAttributes, PlanetAttributes> rules[] = {
        {{1, 3, 2, 1, 5}, {1, 0, 0, 1, 5}},
        {{3, 3, 2, 1, 5}, {3, 0, 2, 1, 5}},
        {{2, 3, 2, 1, 5}, {2, 3, 2, 1, 5}},
    };
    for (const auto& [chosen, stored] : rules) {
        ASSERT_TRUE(setPlanetProperties(session, 2, {chosen, 3, 1, {}, {}}));
        EXPECT_EQ(PlanetAttributes::unpack(session.record().planet(2).Attributes), stored);
    }
    ASSERT_TRUE(setPlanetAttribute(session, 2, AttributeGroup::Inhabited, 0));
    EXPECT_EQ(PlanetAttributes::unpack(session.record().planet(2).Attributes),
              (PlanetAttributes{0, 0, 0, 1, 5}));
    EXPECT_FALSE(setPlanetProperties(session, 2, {{}, 6, 0, {}, {}}));

    ASSERT_TRUE(setPlanetFlag(session, kPlanetPics, 2, true));
    EXPECT_EQ(session.store().ReadKey("General", kPlanetPics), "NY");
    EXPECT_FALSE(setPlanetFlag(session, "Pictures", 1, true));
}

TEST_F(PlanetEditsTest, NamesDescriptionAndDisplayName) {
    openSystem("Nova", 2);
    ASSERT_TRUE(setPlanetName(session, 2, "Ember"));
    EXPECT_EQ(planetLabel(session.store(), 2), "Ember");
    for (const char* answer : {"DEFAULT", "None", ""}) {
        ASSERT_TRUE(setPlanetName(session, 2, "Ember"));
        ASSERT_TRUE(setPlanetName(session, 2, answer)) << answer;
        EXPECT_EQ(planetName(session.store(), 2), "Nova II") << answer;
        EXPECT_EQ(planetLabel(session.store(), 2), "Planet 2") << answer;
    }
    EXPECT_FALSE(setPlanetName(session, 1, "Two\r\nlines"));
    EXPECT_FALSE(setPlanetName(session, 1, std::string(255, 'n')));
    EXPECT_TRUE(setPlanetName(session, 1, std::string(254, 'n')));

    EXPECT_EQ(planetName(session.store(), 0), "Yellow Sun");
    ASSERT_TRUE(setStarType(session, 2));
    ASSERT_TRUE(setPlanetName(session, 0, "Red Sun"));  // the type's own name stores nothing
    EXPECT_EQ(session.store().GetName(0, ""), kNotUsed);
    ASSERT_TRUE(setPlanetName(session, 0, "Yellow Sun"));  // another type's name is a description
    EXPECT_EQ(session.store().GetName(0, ""), "Yellow Sun");
    EXPECT_FALSE(setStarType(session, 8));

    ASSERT_TRUE(setDisplayName(session, "The Long Name Of A Far System"));
    EXPECT_EQ(session.record().DisplayName, "The Long Name Of A F");
    EXPECT_EQ(planetName(session.store(), 2), "The Long Name Of A F II");
    EXPECT_FALSE(setDisplayName(session, "Say \"hi\""));
}

TEST_F(PlanetEditsTest, ClearPlanetsKeepsTheStarAndTheSwitches) {
    openSystem("Nova", 3);
    markPlanets();
    ASSERT_TRUE(setPlanetName(session, 0, "Star"));
    const std::string flags = session.store().ReadKey("General", kMessagesFlag);
    ASSERT_TRUE(clearPlanets(session));
    EXPECT_EQ(session.record().PlanetCount, 0);
    for (int n = 1; n <= 3; ++n) {
        EXPECT_EQ(session.record().planet(n),
                  (PlanetRecord{static_cast<std::int16_t>(370 + 30 * n), 3, 0, 0, 1, 0, 0}));
        EXPECT_FALSE(session.store().SectionExists(std::to_string(n)));
        EXPECT_EQ(session.store().ReadKey("Names", std::to_string(n)), kNotUsed);
    }
    EXPECT_EQ(session.store().ReadKey("Names", "S"), "Star");
    EXPECT_EQ(session.store().ReadKey("General", kMessagesFlag), flags);
    EXPECT_FALSE(session.pictures().hasAnyPlanetPicture());
}

}  // namespace
}  // namespace orr::test
