#pragma once
// Starting an external program (paint program, zip program, the game) and waiting for it. The
// editor must not go on while the program still works on the file it was given, so the wait has
// no time limit unless the caller asks not to wait at all.

#include <QString>

namespace orr::ui {

// How the program's main window should appear; honoured where the platform lets a starter
// choose (Windows), otherwise the program decides.
enum class WindowState { None, Normal, Minimised };

// Runs the command line (program and arguments in one text, split as the platform's shell
// would, so paths with blanks are quoted by the caller). Without noWait the call returns only
// after the program has ended. Returns whether the program could be started.
bool Execute(const QString& commandLine, WindowState windowState = WindowState::None,
             bool noWait = false);

}  // namespace orr::ui
