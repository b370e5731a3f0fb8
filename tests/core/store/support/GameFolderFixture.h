#pragma once
// The store on a fresh game folder (tests/support), as the store tests share it.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "store/SystemStore.h"
#include "support/GameFixture.h"

namespace orr::test {

namespace fs = std::filesystem;

// A store on a fresh game folder with the tables loaded.
class StoreTest : public ::testing::Test {
  protected:
    StoreTest() : store(game.folder()) { store.InitTables(); }

    // Writes ORBDescriptor/<name>.orb behind the store's back: the next read looks again.
    void writeDescriptor(const std::string& name, std::string_view bytes) {
        writeBytes(game.descriptor(name + ".orb"), bytes);
        store.recheck();
    }
    std::string readDescriptor(const std::string& fileName) const {
        return readBytes(game.descriptor(fileName));
    }

    TempGameFolder game;
    SystemStore store;
};

}  // namespace orr::test
