#pragma once
// Starting an external program (paint program, zip program, the game) and waiting for it. The
// editor must not go on while the program still works on the file it was given, so the wait has
// no time limit unless the caller asks not to wait at all. While it waits the windows keep
// painting, but take no input. A program is always started with its arguments as a list, never
// through a shell.

#include <QString>
#include <QStringList>

namespace orr::ui {

// How the program's main window should appear; honoured where the platform lets a starter
// choose (Windows), otherwise the program decides.
enum class WindowState { None, Normal, Minimised };

struct ProgramRun {
    bool started = false;
    bool crashed = false;
    int exitCode = 0;  // when it ended by itself (0 while it runs on, without waiting)
    QString error;     // why it could not start, or how it ended badly
    bool succeeded() const { return started && !crashed && exitCode == 0; }
};

// Runs `program` with `arguments`. Without noWait the call returns only after the program has
// ended. A program that cannot be started returns at once.
ProgramRun runProgram(const QString& program, const QStringList& arguments,
                      WindowState windowState = WindowState::None, bool noWait = false);

// The classic form: the command line is split into the program and its arguments by the Windows
// rules (see core/external/CommandLine.h), so paths with blanks are quoted by the caller. Returns
// whether the program could be started.
bool Execute(const QString& commandLine, WindowState windowState = WindowState::None,
             bool noWait = false);

// Whether the editor waits for a program now: its windows stay open meanwhile.
bool isWaitingForProgram();

}  // namespace orr::ui
