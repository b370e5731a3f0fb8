// The editor: orrerion [--game-dir DIR] [SYSTEM]
//
// The game folder is DIR, else the folder the program is installed in (the game's own folder).
// SYSTEM is the name of a custom system, or the path of its descriptor, in which case the game
// folder is the one that holds that descriptor's ORBDescriptor folder.

#include <QApplication>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <cstdio>
#include <string>

#include "editor/SystemCanvas.h"
#include "editor/frmAbout.h"
#include "editor/frmSSEdit.h"
#include "messages/MessageEditorLauncher.h"
#include "messages/frmMessages.h"
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

// Ends a picture run: the working copy goes without a question (pictures are taken of a copy of
// the demo folder, and a question would wait for nobody under a virtual display).
void closeWithoutSaving(orr::ui::frmSSEdit& window) {
    if (window.store().IsEditing()) window.store().EndEdit(false);
    window.close();
}

// Saves `widget` as `file` once the layout has settled, then ends the program.
void grabLater(orr::ui::frmSSEdit& window, QWidget& widget, const QString& file) {
    QTimer::singleShot(300, &window, [&window, &widget, file] {
        const bool saved = widget.grab().save(file);
        if (!saved) fail(QStringLiteral("cannot write '%1'.").arg(file));
        if (&widget != &window) widget.close();
        closeWithoutSaving(window);
        QCoreApplication::exit(saved ? 0 : 1);
    });
}

// The main window as if the mouse rested on the second planet, so the info panel shows.
void screenshotMainWindow(orr::ui::frmSSEdit& window, const QString& file) {
    if (window.store().record().PlanetCount >= 2) {
        window.picSolarSystem->setHighlightedPlanet(2);
        window.DrawSystem();
    }
    grabLater(window, window, file);
}

// The message editor on the second planet, opened as the planet menu opens it, showing the
// responses of group "Treaty" with the first one being edited. False when the open system has
// no such planet or group.
bool screenshotMessageEditor(orr::ui::frmSSEdit& window, const QString& file) {
    constexpr int kPlanet = 2;
    const QString group = QStringLiteral("Treaty");
    orr::SystemStore& store = window.store();
    if (store.record().PlanetCount < kPlanet || !window.messageEditorOpener()) {
        fail(QStringLiteral("the open system has no planet %1.").arg(kPlanet));
        return false;
    }
    orr::ui::frmMessages& editor = orr::ui::messageEditorFor(&window, store);
    // Shown without a modal loop of its own, so the picture can be taken while it is open.
    editor.setDialogRunner([](QDialog& dialog) { dialog.show(); });
    window.messageEditorOpener()(kPlanet, store.GetGeneralFlag(orr::kMessagesFlag, kPlanet) == 1);

    editor.optDir[2]->click();  // Response
    const int groupIndex = editor.cboGroup->findText(group);
    if (groupIndex < 0) {
        fail(QStringLiteral("planet %1 has no response group '%2'.").arg(kPlanet).arg(group));
        return false;
    }
    editor.cboGroup->setCurrentIndex(groupIndex);
    editor.lstMessages->setCurrentRow(0);
    editor.cmdEdit->click();
    grabLater(window, editor, file);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
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
        return orr::ui::openMessageEditor(&window, window.store(), planet, customMessages);
    });
    // The message editor reads a system's groups again after another system was opened.
    QObject::connect(&window, &orr::ui::frmSSEdit::systemOpened,
                     &orr::ui::messageEditorFor(&window, window.store()),
                     &orr::ui::frmMessages::markForReload);
    window.show();
    const bool screenshot = !request.screenshot.isEmpty() || !request.messagesScreenshot.isEmpty();
    if (!screenshot) window.showAboutIfWanted();
    if (!request.system.empty()) window.openSystemNamed(request.system);

    if (!request.screenshot.isEmpty()) screenshotMainWindow(window, request.screenshot);
    if (!request.messagesScreenshot.isEmpty() &&
        !screenshotMessageEditor(window, request.messagesScreenshot)) {
        closeWithoutSaving(window);
        return 1;
    }
    return app.exec();
}
