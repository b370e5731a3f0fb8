#pragma once
// The store on a fresh game folder (tests/support), as the store tests share it.

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "store/GameFolder.h"
#include "store/SystemStore.h"
#include "support/GameFixture.h"

namespace orr::test {

namespace fs = std::filesystem;

// A store on a fresh game folder with the tables loaded.
class StoreTest : public ::testing::Test {
  protected:
    StoreTest();

    // Writes ORBDescriptor/<name>.orb.
    void writeDescriptor(const std::string& name, std::string_view bytes);
    std::string readDescriptor(const std::string& fileName) const;
    // Creates the descriptor of a custom system with `planets` planets (added the way the editor
    // adds them) and opens it in its working copy.
    void openNewSystem(const std::string& name, int planets);
    // Saves the block, loads the system into a fresh store and returns that store's record.
    SystemRecord saveAndReload();

    TempGameFolder game;
    SystemStore store;
};

}  // namespace orr::test
