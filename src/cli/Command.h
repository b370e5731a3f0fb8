#pragma once
// The commands of orrerion-cli. Each command group lives in its own source file and returns its
// table; main.cpp parses the common options and dispatches. A command reports a failure by
// throwing CliError, which main prints as one line "orrerion-cli: <reason>" on stderr (exit 1).

#include <QStringList>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "store/GameFolder.h"

namespace orr::cli {

struct CliError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct CliContext {
    GameFolder folder;  // from --game-dir, else the current folder; voidrunner.exe checked
    std::ostream& out;  // bytes as stored, LF line ends
    std::istream& in;   // for commands that read standard input
};

struct CommandSpec {
    std::string name;
    std::string usage;  // e.g. "get NAME SECTION KEY"
    int minArgs;
    int maxArgs;  // -1 for no limit
    std::function<void(CliContext&, const QStringList& args)> run;
};

std::vector<CommandSpec> storeCommands();    // StoreCommands.cpp
std::vector<CommandSpec> messageCommands();  // MessageCommands.cpp
std::vector<CommandSpec> roomCommands();     // RoomCommands.cpp
std::vector<CommandSpec> pictureCommands();  // PictureCommands.cpp
std::vector<CommandSpec> playCommands();     // PlayCommands.cpp

}  // namespace orr::cli
