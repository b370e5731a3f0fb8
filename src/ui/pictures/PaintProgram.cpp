#include "pictures/PaintProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "external/CommandLine.h"
#include "external/ProgramSettings.h"
#include "pictures/QtPictureCodec.h"
#include "platform/ProcessLauncher.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "store/FileIo.h"

namespace orr::ui {

std::optional<QImage> paintInProgram(QWidget* parent, const QImage& picture,
                                     const QString& scratchName) {
    const QString program = Settings::paintProgram();
    const std::optional<std::string> found = findProgram(program.toStdString());
    if (!found) {
        prompts().inform(
            parent, QString::fromStdString(programs::missingProgramMessage(program.toStdString())));
        return std::nullopt;
    }
    // A folder of its own in the temporary folder: never the root of a drive, and no other
    // program's file of the same name is touched.
    const QTemporaryDir folder;
    const QString scratch = QDir::toNativeSeparators(folder.filePath(scratchName));
    const std::filesystem::path file(QFile::encodeName(scratch).toStdString());
    QtPictureCodec codec;
    std::string error;
    if (!folder.isValid() || !codec.savePicture(file, pictureOf(picture), &error)) {
        prompts().inform(
            parent, QStringLiteral("The picture could not be written for the paint "
                                   "program: ") +
                        (folder.isValid() ? QString::fromStdString(error) : folder.errorString()));
        return std::nullopt;
    }
    const auto timeBefore = modificationTime(file);
    const std::optional<std::string> bytesBefore = readWholeFile(file);

    QStringList arguments;
    for (const std::string& argument :
         expandOptions(Settings::paintOptions().toStdString(), scratch.toStdString()))
        arguments << QString::fromStdString(argument);
    const ProgramRun run =
        runProgram(QString::fromStdString(*found), arguments, WindowState::Normal);
    if (!run.started) {
        prompts().inform(
            parent,
            QStringLiteral("The program '%1' could not be started: %2").arg(program, run.error));
        return std::nullopt;
    }
    // Some file systems keep times coarsely: new contents count as a change too.
    if (modificationTime(file) == timeBefore && readWholeFile(file) == bytesBefore)
        return std::nullopt;
    const orr::PictureRef painted = codec.loadPicture(file, &error);
    if (!painted) {
        prompts().inform(parent, QString::fromStdString(error));
        return std::nullopt;
    }
    return imageOf(painted);
}

std::optional<QImage> choosePicture(QWidget* parent) {
    FilePrompt ask;
    ask.title = QStringLiteral("Choose Picture");
    ask.filter = QStringLiteral(
        "All Pictures|*.BMP;*.GIF;*.JPG|Bitmap (*.bmp)|*.BMP|JPEG Images (*.jpg)|*.JPG|"
        "CompuServe Bitmap (*.gif)|*.GIF|All Files (*.*)|*.*");
    const QString file = prompts().openFile(parent, ask);
    if (file.isEmpty()) return std::nullopt;
    std::string error;
    const orr::PictureRef picture =
        QtPictureCodec().loadPicture(std::filesystem::path(file.toStdString()), &error);
    if (!picture) {
        prompts().inform(parent, QString::fromStdString(error));
        return std::nullopt;
    }
    return imageOf(picture);
}

}  // namespace orr::ui
