#pragma once
// A game folder of its own for each test: a fresh temporary folder with the game's executable
// and the descriptor and pictures folders, removed when the test ends.
//
//     orr::test::TempGameFolder game;
//     game.writeSystemList({"\"Sol\",0,1", "400,2,0,0,1,0"});
//     game.writeAliens({"Klingar", "Vossk"});
//     SystemRecord record = TempGameFolder::systemRecord("Nova", 3);
//     game.writeDescriptor(record);                // ORBDescriptor/Nova.orb as New writes it
//     SystemStore store(game.folder());
//     QVERIFY(game.open(store, "Nova"));           // working copy and load, as the main window
//     ... game.read("ORBDescriptor/Nova.edt") ...

#include <QTemporaryDir>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "store/GameFolder.h"
#include "store/SystemRecord.h"
#include "store/SystemStore.h"

namespace orr::test {

class TempGameFolder {
  public:
    // With "voidrunner.exe", "ORBDescriptor" and "PICTURES"; no system list, no alien names.
    TempGameFolder();

    std::filesystem::path root() const;
    GameFolder folder() const { return GameFolder(root()); }
    // root / relative, with "/" separating folders in `relative`.
    std::filesystem::path path(std::string_view relative) const;

    // Writes the bytes exactly (no line-end conversion); creates missing folders.
    void write(std::string_view relative, std::string_view bytes) const;
    std::string read(std::string_view relative) const;  // empty when missing
    bool exists(std::string_view relative) const;

    // "SOLARSYS.TXT" and "aliens.txt" from lines, each ended by CR LF.
    void writeSystemList(const std::vector<std::string>& lines) const;
    void writeAliens(const std::vector<std::string>& names) const;

    // A custom system as New creates it: display name = name, star type 0, planets of class A
    // and size 2 on the orbits 400, 430, 460 ...
    static SystemRecord systemRecord(const std::string& name, int planets);
    // ORBDescriptor/<record.Name>.orb as New writes it; `extra` (CR LF lines) is appended.
    void writeDescriptor(const SystemRecord& record, std::string_view extra = {}) const;

    // Opens the system in the store as the main window does: tables, working copy (an old
    // working copy is discarded), then the record. False when any step fails.
    bool open(SystemStore& store, const std::string& name) const;

    static std::string crlf(const std::vector<std::string>& lines);

  private:
    QTemporaryDir dir_;
};

}  // namespace orr::test
