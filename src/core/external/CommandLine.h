#pragma once
// Command lines as Windows splits them into a program and its arguments. Every external program
// (the paint and zip programs, the game) is started with a program and a list of arguments and
// never through a shell, so no file or system name can ever run a command; the settings that
// hold a program's options are split here by the rules the programs themselves would use on
// Windows, the platform the settings come from.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orr {

struct CommandLine {
    std::string program;
    std::vector<std::string> arguments;
};

// A whole command line: the program is the first word, taken as Windows takes it (a quoted
// program ends at the next quote, backslashes are plain characters), then the arguments.
CommandLine splitCommandLine(std::string_view line);

// Arguments by the rules of the Windows C runtime: blanks and tabs separate words; double quotes
// group blanks into a word and are removed; inside quotes "" is a quote; 2n backslashes before a
// quote are n backslashes and the quote counts, 2n+1 backslashes before a quote are n
// backslashes and a literal quote; other backslashes are plain characters.
std::vector<std::string> splitArguments(std::string_view text);

// A program's options setting made into its arguments, with every "%1" replaced by `value`. The
// options are split before the value goes in, so the value stays inside its word whatever it
// holds (blanks, quotes, a trailing backslash): "-a \"%1.zip\" %1" with "C:\Pkg\Sol" gives
// -a, C:\Pkg\Sol.zip and C:\Pkg\Sol.
std::vector<std::string> expandOptions(std::string_view options, std::string_view value);

// The program named by a setting: a name with a folder must be there as given; a bare name is
// looked up in the folders of `searchPath` (the PATH variable; the process's own when nullopt).
// nullopt when there is no such program.
std::optional<std::string> findProgram(std::string_view program,
                                       std::optional<std::string_view> searchPath = std::nullopt);

}  // namespace orr
