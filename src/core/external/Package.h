#pragma once
// Make Package: a folder named after the system that another player's installer unpacks into the
// game folder. It holds the system's picture files and its saved descriptor, the game's package
// installer as SETUP.EXE, and SETUP.LST, which tells the installer where each file goes. The
// folder is then zipped, by the user's zip program or by the editor itself (ZipWriter).

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "external/CommandLine.h"
#include "store/GameFolder.h"

namespace orr {

struct PackageFile {
    fs::path source;
    std::string name;       // the file's name in the package and in the game folder
    std::string subfolder;  // where the installer puts it: "\PICTURES\" or "\ORBDescriptor\"
};

// The files of the saved system `name` that go into its package: its pictures (only its own, in
// name order), then its descriptor name + ".orb". Empty, with the reason in *error, when the
// system has no saved descriptor or its pictures cannot be listed.
std::vector<PackageFile> packageFiles(const GameFolder& folder, const std::string& name,
                                      std::string* error);

// SETUP.LST: one line per file, its name and its subfolder, each in double quotes, separated by a
// comma, CR LF after each line.
std::string setupList(const std::vector<PackageFile>& files);

// Makes the package folder parent/name with the files, SETUP.EXE and SETUP.LST. Refused when
// that folder exists already, the installer ORBInst.dat is missing or `parent` is no folder; a
// package that cannot be completed is removed again. False, with the reason in *error.
bool makePackage(const GameFolder& folder, const std::string& name, const fs::path& parent,
                 fs::path* packageFolder, std::string* error);

// Where the package's archive goes: beside the folder, the folder's name + ".zip".
fs::path packageArchive(const fs::path& packageFolder);

// How the package folder is zipped: the zip program (found as findProgram finds it) with its
// options, every "%1" replaced by the folder. nullopt when no program is set or it cannot be
// found: then the editor's own writer makes packageArchive(folder) (zipFolder).
std::optional<CommandLine> zipProgramCall(std::string_view program, std::string_view options,
                                          const fs::path& packageFolder);

}  // namespace orr
