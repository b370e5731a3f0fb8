#include "editor/ExternalCommands.h"

#include <QDir>
#include <QGuiApplication>
#include <QScopeGuard>

#include "editor/SystemSaveCommands.h"
#include "external/GameLaunch.h"
#include "external/Package.h"
#include "external/ZipWriter.h"
#include "pictures/PaintProgram.h"
#include "pictures/QtPictureCodec.h"
#include "pictures/frmPictures.h"
#include "platform/Modal.h"
#include "platform/ProcessLauncher.h"
#include "platform/Prompts.h"
#include "platform/QtText.h"
#include "platform/Settings.h"
#include "session/SystemEdits.h"

namespace orr::ui {

namespace {

QStringList qtList(const std::vector<std::string>& words) {
    QStringList list;
    for (const std::string& word : words) list << QString::fromStdString(word);
    return list;
}

QString nativePath(const fs::path& path) {
    return QDir::toNativeSeparators(QString::fromStdString(path.string()));
}

}  // namespace

ExternalCommands::ExternalCommands(QWidget& window, EditSession& session,
                                   SystemSaveCommands& saving)
    : window_(window), session_(session), saving_(saving) {}

void ExternalCommands::starPicture(const QImage& shown) {
    if (!session_.isOpen()) return;
    const bool own = session_.pictures().star() != nullptr;
    const MessagePrompt ask = MessagePrompt::question(
        own ? QStringLiteral("Do you want to edit the star picture?\n"
                             "Choose 'No' to delete the current star picture.")
            : QStringLiteral("Do you want to make a new star picture?\n"
                             "Choose 'No' to browse to a saved star picture."),
        QStringLiteral("Orrerion"), PromptButtons::YesNoCancel, PromptIcon::Question);
    const PromptAnswer answer = prompts().message(&window_, ask);
    if (answer == PromptAnswer::Yes) {
        paintStar(shown);
    } else if (answer == PromptAnswer::No && own) {
        report(&window_, setStarPicture(session_, nullptr), session_.lastError());
    } else if (answer == PromptAnswer::No) {
        // A picture of the wrong size is refused by the session: the star stays as it was.
        if (const std::optional<QImage> chosen = choosePicture(&window_))
            report(&window_, setStarPicture(session_, pictureOf(*chosen)), session_.lastError());
    }
}

void ExternalCommands::paintStar(const QImage& shown) {
    if (const std::optional<QImage> painted =
            paintInProgram(&window_, shown, QStringLiteral("StarPic.bmp")))
        report(&window_, setStarPicture(session_, pictureOf(*painted)), session_.lastError());
}

void ExternalCommands::showPictures(int planet) {
    if (!session_.isOpen() || session_.record().PlanetCount < 1) return;
    frmPictures pictures(session_, &window_);
    pictures.ShowPictures(planet);
}

void ExternalCommands::makePackage() {
    if (!session_.isOpen()) return;
    if (session_.isModified()) {
        const MessagePrompt ask = MessagePrompt::question(
            QStringLiteral("This system will be saved before making a package."),
            QStringLiteral("Confirmation"), PromptButtons::OkCancel, PromptIcon::Information);
        if (prompts().message(&window_, ask) != PromptAnswer::Ok || !saving_.save()) return;
    }
    const QString parent = prompts().chooseFolder(
        &window_, QStringLiteral("Please choose a location to make the package.  The package "
                                 "will be named '%1'.")
                      .arg(toQString(session_.name())));
    if (parent.isEmpty()) return;

    QString problem;
    fs::path folder;
    {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        const auto normalCursor = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
        std::string error;
        if (!orr::makePackage(session_.folder(), session_.name(), fs::path(parent.toStdString()),
                              &folder, &error))
            problem = toQString(error);
        else
            problem = zipPackage(folder);
    }
    if (problem.isEmpty())
        emit statusMessage(QStringLiteral("Made the package %1.").arg(nativePath(folder)));
    else
        prompts().inform(&window_, problem);
}

QString ExternalCommands::zipPackage(const fs::path& folder) {
    QString problem;
    if (const std::optional<CommandLine> call = zipProgramCall(
            Settings::zipProgram().toStdString(), Settings::zipOptions().toStdString(), folder)) {
        const ProgramRun run = runProgram(QString::fromStdString(call->program),
                                          qtList(call->arguments), WindowState::Minimised);
        if (!run.succeeded())
            problem = QStringLiteral("The zip program '%1' %2.")
                          .arg(Settings::zipProgram(),
                               run.started && !run.crashed
                                   ? QStringLiteral("ended with the code %1").arg(run.exitCode)
                                   : QStringLiteral("failed: ") + run.error);
    } else if (std::string error; !zipFolder(folder, packageArchive(folder), &error)) {
        problem = QString::fromStdString(error);
    }
    if (problem.isEmpty()) return problem;
    return problem + QStringLiteral(" The package folder %1 is complete, but not zipped.")
                         .arg(nativePath(folder));
}

void ExternalCommands::testInVoidrunner() {
    if (!session_.isOpen()) return;
    const QString entry = toQString(session_.name());
    std::string problem;
    const std::optional<CommandLine> command = gameCommand(
        session_.folder(), session_.name(), Settings::gameLauncher().toStdString(), &problem);
    if (!command) {
        report(&window_, false, problem);
        return;
    }
    const MessagePrompt ask = MessagePrompt::question(
        QStringLiteral("Click OK to save this system and run Voidrunner. Any games you\n"
                       "create during this session will begin next to the %1 system.")
            .arg(entry),
        QStringLiteral("Orrerion"), PromptButtons::OkCancel, PromptIcon::None);
    if (prompts().message(&window_, ask) != PromptAnswer::Ok || !saving_.save()) return;
    const ProgramRun run = runProgram(QString::fromStdString(command->program),
                                      qtList(command->arguments), WindowState::Minimised, true);
    if (!run.started)
        report(&window_, false, "The game could not be started: " + run.error.toStdString());
    else
        emit statusMessage(QStringLiteral("Started Voidrunner at %1.").arg(entry));
}

}  // namespace orr::ui
