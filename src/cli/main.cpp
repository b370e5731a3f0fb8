// orrerion-cli: the headless front of Orrerion. Usage:
//   orrerion-cli [--game-dir DIR] COMMAND ARGS...
// The game folder is DIR, else the current folder. Output is the stored bytes, one item a line
// with LF line ends; a failure prints one line "orrerion-cli: <reason>" on stderr and exits 1.

#include <QCoreApplication>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "CliSupport.h"
#include "Command.h"
#include "store/GameFolder.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

using orr::cli::CliError;
using orr::cli::CommandSpec;

constexpr const char* kNotInGameFolder =
    "This software must be installed in the same folder as Voidrunner for Windows 9x.";

std::vector<CommandSpec> allCommands() {
    std::vector<CommandSpec> commands = orr::cli::storeCommands();
    for (CommandSpec& command : orr::cli::messageCommands()) commands.push_back(command);
    for (CommandSpec& command : orr::cli::roomCommands()) commands.push_back(command);
    for (CommandSpec& command : orr::cli::pictureCommands()) commands.push_back(command);
    for (CommandSpec& command : orr::cli::playCommands()) commands.push_back(command);
    return commands;
}

void printUsage(std::ostream& out, const std::vector<CommandSpec>& commands) {
    out << "usage: orrerion-cli [--game-dir DIR] COMMAND ARGS...\n"
           "The game folder is DIR, else the current folder.\n"
           "commands:\n";
    for (const CommandSpec& command : commands) out << "  " << command.usage << '\n';
}

// One line, whatever the reason holds.
void printError(const std::string& reason) {
    std::string line = reason;
    for (char& c : line) {
        if (c == '\r' || c == '\n') c = ' ';
    }
    std::cerr << "orrerion-cli: " << line << '\n';
    std::cerr.flush();
}

struct Invocation {
    std::optional<std::string> gameDir;  // raw bytes, as the file system spells them
    std::string command;
    std::vector<std::string> args;
    bool help = false;
};

Invocation parse(int argc, char** argv) {
    Invocation invocation;
    int i = 1;
    for (; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--game-dir") {
            if (i + 1 >= argc) throw CliError("--game-dir needs a folder.");
            invocation.gameDir = argv[++i];
        } else if (arg.rfind("--game-dir=", 0) == 0) {
            invocation.gameDir = arg.substr(11);
        } else if (arg == "-h" || arg == "--help" || arg == "help") {
            invocation.help = true;
            return invocation;
        } else if (arg == "--") {
            ++i;
            break;
        } else if (arg.size() > 1 && arg[0] == '-') {
            throw CliError("unknown option " + arg + ".");
        } else {
            break;
        }
    }
    if (i < argc) invocation.command = argv[i++];
    for (; i < argc; ++i) invocation.args.emplace_back(argv[i]);
    return invocation;
}

int run(int argc, char** argv) {
    const std::vector<CommandSpec> commands = allCommands();
    const Invocation invocation = parse(argc, argv);
    if (invocation.help) {
        printUsage(std::cout, commands);
        return 0;
    }
    if (invocation.command.empty()) {
        printUsage(std::cout, commands);
        throw CliError("no command given.");
    }
    const CommandSpec* spec = nullptr;
    for (const CommandSpec& command : commands) {
        if (command.name == invocation.command) spec = &command;
    }
    if (!spec) {
        throw CliError("unknown command " + invocation.command +
                       " (orrerion-cli --help lists the commands).");
    }
    const int count = static_cast<int>(invocation.args.size());
    if (count < spec->minArgs || (spec->maxArgs >= 0 && count > spec->maxArgs))
        throw CliError("usage: orrerion-cli " + spec->usage);

    std::error_code error;
    const std::filesystem::path root = invocation.gameDir
                                           ? std::filesystem::absolute(*invocation.gameDir, error)
                                           : std::filesystem::current_path(error);
    orr::GameFolder folder(root);
    if (!std::filesystem::is_directory(root, error) || !folder.hasGameExecutable())
        throw CliError(kNotInGameFolder);

    QStringList args;
    for (const std::string& arg : invocation.args) args << orr::cli::argumentFromRaw(arg);
    orr::cli::CliContext context{folder, std::cout, std::cin};
    spec->run(context, args);
    std::cout.flush();
    if (!std::cout) throw CliError("the output could not be written.");
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    // Bytes as stored: no CR LF translation on the way out.
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName("orrerion-cli");
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::cout.flush();
        printError(failure.what());
    } catch (...) {
        printError("an unexpected error ended the command.");
    }
    return 1;
}
