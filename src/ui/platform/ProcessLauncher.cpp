#include "platform/ProcessLauncher.h"

#include <QProcess>
#include <QStringList>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace orr::ui {

namespace {

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

bool Execute(const QString& commandLine, WindowState windowState, bool noWait) {
    QStringList arguments = QProcess::splitCommand(commandLine);
    if (arguments.isEmpty()) return false;
    const QString program = arguments.takeFirst();

    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    // The program shares the editor's console, environment and current folder.
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    applyWindowState(process, windowState);

    if (noWait) return process.startDetached();

    process.start();
    if (!process.waitForStarted(-1)) return false;
    process.waitForFinished(-1);
    return true;
}

}  // namespace orr::ui
