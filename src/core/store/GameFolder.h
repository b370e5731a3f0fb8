#pragma once
// The game folder and its items. Game folders are copied from Windows, so on a case-sensitive
// file system every item is found whatever its letter case; files the editor creates get the
// names the game uses.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orr {

namespace fs = std::filesystem;

class GameFolder {
  public:
    GameFolder() = default;
    explicit GameFolder(fs::path root);

    const fs::path& root() const { return root_; }

    // root / the existing entry whose name equals `name` ignoring ASCII case, else root / name.
    fs::path item(std::string_view name) const;
    fs::path executable() const;        // "voidrunner.exe"
    fs::path systemList() const;        // "SOLARSYS.TXT"
    fs::path alienNames() const;        // "aliens.txt"
    fs::path installer() const;         // "ORBInst.dat"
    fs::path specialCodes() const;      // "SPECIAL.LST"
    fs::path descriptorFolder() const;  // "ORBDescriptor"
    fs::path picturesFolder() const;    // "PICTURES"

    bool hasGameExecutable() const;

    // The systems saved in the descriptor folder: the base names of its files ending in
    // `extension` (".orb" for saved systems, ".edt" for working copies), in folder order.
    std::vector<std::string> systemNames(std::string_view extension = ".orb") const;

    // dir / the existing entry named `name` ignoring ASCII case, else dir / name.
    static fs::path findInFolder(const fs::path& dir, std::string_view name);

    // Names of the regular files of dir whose name ends in `extension` (ignoring case), in the
    // order the folder lists them.
    static std::vector<std::string> filesWithExtension(const fs::path& dir,
                                                       std::string_view extension);

  private:
    fs::path root_;
};

}  // namespace orr
