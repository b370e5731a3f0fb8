#include "platform/ProcessLauncher.h"

#include <QEventLoop>
#include <QProcess>

#include "external/CommandLine.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace orr::ui {

namespace {

int waiting = 0;

void applyWindowState(QProcess& process, WindowState windowState) {
#ifdef Q_OS_WIN
    if (windowState == WindowState::None) return;
    const WORD show = windowState == WindowState::Minimised ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
    process.setCreateProcessArgumentsModifier([show](QProcess::CreateProcessArguments* arguments) {
        arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        arguments->startupInfo->wShowWindow = show;
    });
#else
    (void)process;
    (void)windowState;
#endif
}

}  // namespace

ProgramRun runProgram(const QString& program, const QStringList& arguments, WindowState windowState,
                      bool noWait) {
    ProgramRun run;
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    // The program shares the editor's console, environment and current folder.
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    applyWindowState(process, windowState);
    if (program.isEmpty()) {
        run.error = QStringLiteral("No program was given.");
        return run;
    }
    if (noWait) {
        run.started = process.startDetached();
        if (!run.started) run.error = process.errorString();
        return run;
    }

    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    process.start();
    if (!process.waitForStarted(-1)) {
        run.error = process.errorString();
        return run;
    }
    run.started = true;
    // The windows repaint while the program runs; clicks and keys wait until it has ended.
    ++waiting;
    if (process.state() != QProcess::NotRunning) loop.exec(QEventLoop::ExcludeUserInputEvents);
    --waiting;
    run.crashed = process.exitStatus() == QProcess::CrashExit;
    run.exitCode = process.exitCode();
    if (run.crashed) run.error = process.errorString();
    return run;
}

bool Execute(const QString& commandLine, WindowState windowState, bool noWait) {
    const CommandLine split = splitCommandLine(commandLine.toStdString());
    QStringList arguments;
    for (const std::string& argument : split.arguments)
        arguments << QString::fromStdString(argument);
    return runProgram(QString::fromStdString(split.program), arguments, windowState, noWait)
        .started;
}

bool isWaitingForProgram() {
    return waiting > 0;
}

}  // namespace orr::ui
