// The editor: orrerion [--game-dir DIR] [SYSTEM]
//
// The game folder is DIR, else the folder the program is installed in (the game's own folder).
// SYSTEM is the name of a custom system, or the path of its descriptor, in which case the game
// folder is the one that holds that descriptor's ORBDescriptor folder.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <string>

#include "Screenshots.h"
#include "editor/frmAbout.h"
#include "editor/frmSSEdit.h"
#include "messages/MessageEditorLauncher.h"
#include "messages/frmMessages.h"
#include "pictures/AnimationView.h"
#include "platform/QtText.h"

namespace {

struct StartRequest {
    QString gameFolder;
    std::string system;          // as the game folder's bytes; empty for none
    QString screenshot;          // where to save a picture of the window, then quit
    QString messagesScreenshot;  // where to save a picture of the message editor, then quit
};

void fail(const QString& message) {
    std::fprintf(stderr, "orrerion: %s\n", qPrintable(message));
}

// Reads the command line; false (after saying why) when it cannot be used.
bool parseCommandLine(const QApplication& app, StartRequest& request) {
    QCommandLineParser parser;
    parser.setApplicationDescription(orr::ui::frmAbout::kDescription);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption gameDir(
        QStringLiteral("game-dir"),
        QStringLiteral("The game folder (default: the folder of this program)."),
        QStringLiteral("DIR"));
    parser.addOption(gameDir);
    QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                  QStringLiteral("Save a picture of the window and quit."),
                                  QStringLiteral("FILE"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(screenshot);
    QCommandLineOption messagesScreenshot(
        QStringLiteral("screenshot-messages"),
        QStringLiteral("Save a picture of the message editor on the second planet and quit."),
        QStringLiteral("FILE"));
    messagesScreenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(messagesScreenshot);
    parser.addPositionalArgument(
        QStringLiteral("SYSTEM"),
        QStringLiteral("A system to open: its name, or the path of its descriptor."),
        QStringLiteral("[SYSTEM]"));
    parser.process(app);

    request.gameFolder =
        parser.isSet(gameDir) ? parser.value(gameDir) : QCoreApplication::applicationDirPath();
    request.screenshot = parser.value(screenshot);
    request.messagesScreenshot = parser.value(messagesScreenshot);
    if (!request.screenshot.isEmpty() && !request.messagesScreenshot.isEmpty()) {
        fail(QStringLiteral("only one picture can be taken at a time."));
        return false;
    }
    const QStringList positional = parser.positionalArguments();
    if (positional.size() > 1) {
        fail(QStringLiteral("only one system can be opened at a time."));
        return false;
    }
    if (positional.isEmpty()) return true;

    const QString system = positional.front();
    const QFileInfo file(system);
    if (file.isFile()) {
        // A descriptor: ORBDescriptor/<name>.orb inside the game folder.
        QDir descriptors = file.absoluteDir();
        descriptors.cdUp();
        request.gameFolder = descriptors.absolutePath();
        request.system = QFile::encodeName(file.completeBaseName()).toStdString();
        return true;
    }
    if (system.contains(QLatin1Char('/')) ||
        system.endsWith(QStringLiteral(".orb"), Qt::CaseInsensitive)) {
        fail(QStringLiteral("cannot find the descriptor '%1'.").arg(system));
        return false;
    }
    request.system = orr::ui::toBytes(system);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    orr::ui::chooseMediaBackend();
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orrerion"));
    QCoreApplication::setApplicationName(QStringLiteral("Orrerion"));
    QCoreApplication::setApplicationVersion(orr::ui::frmAbout::version());

    StartRequest request;
    if (!parseCommandLine(app, request)) return 2;

    const std::filesystem::path folder(QFile::encodeName(request.gameFolder).toStdString());
    orr::ui::frmSSEdit window{orr::GameFolder(folder)};
    if (!window.startUp()) return 1;
    window.setMessageEditorOpener([&window](int planet, bool customMessages) {
        return orr::ui::openMessageEditor(&window, window.session(), planet, customMessages);
    });
    window.show();
    const bool screenshot = !request.screenshot.isEmpty() || !request.messagesScreenshot.isEmpty();
    if (!screenshot) window.showAboutIfWanted();
    if (!request.system.empty()) window.openSystemNamed(request.system);

    if (!request.screenshot.isEmpty()) orr::app::screenshotMainWindow(window, request.screenshot);
    if (!request.messagesScreenshot.isEmpty() &&
        !orr::app::screenshotMessageEditor(window, request.messagesScreenshot)) {
        orr::app::closeWithoutSaving(window);
        return 1;
    }
    return app.exec();
}
