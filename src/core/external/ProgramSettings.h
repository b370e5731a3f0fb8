#pragma once
// The settings that name the external programs, with their defaults. The editor keeps them in the
// user's settings (group "Options"); the command-line tool reads the same ones. On Windows the
// defaults are those the game's modders know; elsewhere they are programs that work there: a
// paint program found in PATH and the game started under wine.

#include <string>

namespace orr::programs {

inline constexpr const char* kPaintProgram = "Paint Program";
inline constexpr const char* kPaintOptions = "Paint Options";
inline constexpr const char* kZipProgram = "Zip Program";
inline constexpr const char* kZipOptions = "Zip Options";
// Put in front of the game's path when the game is started ("wine"); empty: the game itself.
inline constexpr const char* kGameLauncher = "Game Launcher";

// Windows: C:\Program Files\Accessories\MsPaint.exe. Elsewhere the first of kolourpaint, gimp,
// pinta and mtpaint found in PATH (kolourpaint when none is).
std::string defaultPaintProgram();
std::string defaultPaintOptions();  // "%1" in double quotes
// Empty: packages are zipped by the editor itself.
std::string defaultZipProgram();
std::string defaultZipOptions();    // -min -a "%1.zip" "%1"
std::string defaultGameLauncher();  // empty on Windows, "wine" elsewhere

// What is said when a program named by a setting cannot be found.
std::string missingProgramMessage(const std::string& program);

}  // namespace orr::programs
