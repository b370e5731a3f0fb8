#pragma once
// Shared by every test program: a game folder of its own for each test (a fresh temporary folder
// laid out as the game ships it, removed when the test ends), a folder made read-only for a
// while, and byte helpers. Qt-free, so the core tests use it as well as the window tests.
//
//     orr::test::TempGameFolder game;                     // voidrunner.exe, SOLARSYS.TXT, ...
//     game.writeDescriptor(TempGameFolder::systemRecord("Nova", 3));
//     orr::EditSession session(game.folder());
//     ... game.read("ORBDescriptor/Nova.edt") ...

#include <filesystem>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/GameFolder.h"
#include "store/SystemRecord.h"

namespace orr::test {

namespace fs = std::filesystem;

// Lines joined with CR LF, each line ended.
std::string crlf(std::initializer_list<std::string_view> lines);
std::string crlf(const std::vector<std::string>& lines);

std::string readBytes(const fs::path& file);                    // empty when missing
void writeBytes(const fs::path& file, std::string_view bytes);  // creates missing folders
// The names of the folder's entries, sorted.
std::vector<std::string> entryNames(const fs::path& folder);
// Every file below the folder (relative path, "/" between folders) with its bytes, for "as it
// was" checks.
std::map<std::string, std::string> snapshot(const fs::path& root);

// A stand-in for an external program: an executable shell script `file` running `body`.
void writeProgram(const fs::path& file, std::string_view body);

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
    // GameFiles: voidrunner.exe, a SOLARSYS.TXT (Sol with 9 planets, Vega with none, a hidden
    // "#" system, Sol again with 3 planets), aliens.txt with three races, ORBDescriptor and
    // PICTURES. Bare: only voidrunner.exe and the two folders.
    enum class Contents { GameFiles, Bare };
    explicit TempGameFolder(Contents contents = Contents::GameFiles);
    ~TempGameFolder();
    TempGameFolder(const TempGameFolder&) = delete;
    TempGameFolder& operator=(const TempGameFolder&) = delete;

    const fs::path& root() const { return root_; }
    GameFolder folder() const { return GameFolder(root_); }
    fs::path descriptors() const { return root_ / "ORBDescriptor"; }
    fs::path pictures() const { return root_ / "PICTURES"; }
    fs::path descriptor(const std::string& fileName) const { return descriptors() / fileName; }
    // root / relative, with "/" separating folders in `relative`.
    fs::path path(std::string_view relative) const;

    void write(std::string_view relative, std::string_view bytes) const;
    std::string read(std::string_view relative) const;  // empty when missing
    bool exists(std::string_view relative) const;

    // A custom system as New creates it and Add fills it: display name = name, star type 0,
    // planets of class A and size 2 on the orbits 400, 430, 460 ...
    static SystemRecord systemRecord(const std::string& name, int planets);
    // ORBDescriptor/<record.Name>.orb as New writes it, with one "N" per planet in both switches;
    // `extra` (CR LF lines) is appended.
    void writeDescriptor(const SystemRecord& record, std::string_view extra = {}) const;

  private:
    fs::path root_;
};

}  // namespace orr::test
