#pragma once
// A fresh temporary game folder per test, laid out as the game ships it, and the helpers the
// store tests share.

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "store/GameFolder.h"
#include "store/SystemStore.h"

namespace orr::test {

namespace fs = std::filesystem;

// Lines joined with CR LF, each line ended.
std::string crlf(std::initializer_list<std::string_view> lines);

std::string readBytes(const fs::path& file);
void writeBytes(const fs::path& file, std::string_view bytes);
// The names of the folder's entries, sorted.
std::vector<std::string> entryNames(const fs::path& folder);

// Makes a folder read-only for its lifetime: no file can be created, renamed or deleted in it.
// Permissions do not bind root, so for root the folder is also made immutable where the file
// system allows it. enforced() tells whether it worked; tests skip their checks otherwise.
class ReadOnlyFolder {
  public:
    explicit ReadOnlyFolder(fs::path folder);
    ~ReadOnlyFolder();
    ReadOnlyFolder(const ReadOnlyFolder&) = delete;
    ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

    bool enforced() const { return enforced_; }
    // Undoes the immutable flag of a folder a test left behind.
    static void release(const fs::path& folder);

  private:
    fs::path folder_;
    bool enforced_ = false;
};

class TempGameFolder {
  public:
    TempGameFolder();
    ~TempGameFolder();
    TempGameFolder(const TempGameFolder&) = delete;
    TempGameFolder& operator=(const TempGameFolder&) = delete;

    const fs::path& root() const { return root_; }
    GameFolder folder() const { return GameFolder(root_); }
    fs::path descriptors() const { return root_ / "ORBDescriptor"; }
    fs::path pictures() const { return root_ / "PICTURES"; }
    fs::path descriptor(const std::string& fileName) const { return descriptors() / fileName; }

  private:
    fs::path root_;
};

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
