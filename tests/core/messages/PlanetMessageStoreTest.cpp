// A planet's message keys in a real descriptor: reads ignore the custom-messages switch, empty
// values delete, and list changes reach the file in one write.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "messages/MessageList.h"
#include "messages/PlanetMessageStore.h"

namespace orr {
namespace {

namespace fs = std::filesystem;

class PlanetMessageStoreTest : public ::testing::Test {
  protected:
    fs::path root;
    fs::path descriptor;
    SystemStore system;

    void SetUp() override {
        std::random_device random;
        root = fs::temp_directory_path() / ("orr-planet-" + std::to_string(random()));
        fs::create_directories(root / "ORBDescriptor");
        std::ofstream(root / "voidrunner.exe") << "MZ";
        descriptor = root / "ORBDescriptor" / "Kestrel.orb";
        std::ofstream(descriptor, std::ios::binary)
            << "[General]\r\nPlanetPics=NN\r\nMessages=NN\r\n\r\n;SolarSystem\r\n"
               ";\"Kestrel             \",0,2\r\n;400,2,0,0,1,0\r\n;430,2,0,0,1,0\r\n"
               "[2]\r\nMessages=1\r\nMessage1=Welcome\r\n";
        system.setFolder(GameFolder(root));
        system.LoadSystem("Kestrel");
    }
    void TearDown() override { fs::remove_all(root); }

    std::string file() const {
        std::ifstream in(descriptor, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
};

TEST_F(PlanetMessageStoreTest, ReadsWhateverTheSwitchSays) {
    PlanetMessageStore planet(system, 2);
    EXPECT_EQ(system.GetPlanetKey(2, "Message1"), "NO");
    EXPECT_EQ(planet.GetMessage("Message1"), "Welcome");
    EXPECT_EQ(planet.GetMessage("Message2"), "ERR");
    EXPECT_EQ(PlanetMessageStore(system, 1).GetMessage("Message1"), "ERR");
}

TEST_F(PlanetMessageStoreTest, WritesIntoThePlanetSectionAndDeletesEmptyValues) {
    PlanetMessageStore planet(system, 2);
    EXPECT_TRUE(planet.PutMessage("FlagC", "Met the ambassador"));
    EXPECT_TRUE(planet.PutMessage("Message1", ""));
    EXPECT_TRUE(planet.PutMessage("Message9", ""));  // already absent
    EXPECT_EQ(file().find("Message1="), std::string::npos);
    EXPECT_NE(file().find("[2]\r\nMessages=1\r\nFlagC=Met the ambassador\r\n"), std::string::npos);
}

TEST_F(PlanetMessageStoreTest, ListChangesKeepTheDescriptorWhole) {
    PlanetMessageStore planet(system, 1);
    MessageList list(planet, "Hail", Direction::Response);
    ASSERT_TRUE(list.append("Who are you?*MWho"));
    ASSERT_TRUE(list.append("Goodbye*MBack"));
    ASSERT_TRUE(list.remove(1));
    EXPECT_EQ(list.lines(), std::vector<std::string>{"Goodbye*MBack"});
    EXPECT_NE(file().find("[1]\r\nResponseHail1=Goodbye*MBack\r\nResponsesHail=1\r\n"),
              std::string::npos);
    EXPECT_NE(file().find("Message1=Welcome"), std::string::npos);
}

}  // namespace
}  // namespace orr
