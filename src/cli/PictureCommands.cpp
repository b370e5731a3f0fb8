// The picture, package and launch commands of orrerion-cli: a system's pictures and animations as
// the pictures window shows and changes them, the star picture, Make Package and Test in
// Voidrunner, each through the same core rules as the editor's windows.

#include <QFile>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSettings>
#include <functional>

#include "CliSupport.h"
#include "Command.h"
#include "external/GameLaunch.h"
#include "external/Package.h"
#include "external/ProgramSettings.h"
#include "external/ZipWriter.h"
#include "pictures/QtPictureCodec.h"
#include "session/PictureStrip.h"
#include "session/SystemEdits.h"
#include "store/PictureFiles.h"

namespace orr::cli {

namespace {

fs::path pathOf(const QString& argument) {
    return fs::path(QFile::encodeName(argument).toStdString());
}

QJsonValue fileName(const std::optional<fs::path>& file) {
    return file ? QJsonValue(textOf(file->filename().string())) : QJsonValue(QJsonValue::Null);
}

PictureRef loadPicture(ui::QtPictureCodec& codec, const QString& argument) {
    std::string error;
    PictureRef picture = codec.loadPicture(pathOf(argument), &error);
    if (!picture) throw CliError(error);
    return picture;
}

// The value of the option `name` among the arguments from `first` on; `fallback` without it.
QString option(const QStringList& args, int first, const QString& name, const QString& fallback) {
    for (int i = first; i < args.size(); ++i) {
        if (args[i] != name) continue;
        if (i + 1 >= args.size()) throw CliError(bytesOf(name) + " needs a value.");
        return args[i + 1];
    }
    return fallback;
}

void requireKnownOptions(const QStringList& args, int first, const QStringList& known,
                         bool withValues) {
    for (int i = first; i < args.size(); i += withValues ? 2 : 1)
        if (!known.contains(args[i])) throw CliError("unknown option " + bytesOf(args[i]) + ".");
}

void showPictures(CliContext& context, const QStringList& args) {
    SystemStore store(context.folder);
    const std::string name = existingSystem(store, args[0]);
    store.record().Name = name;
    store.LoadSystem(name);
    const int count = store.record().PlanetCount;
    const std::optional<fs::path> strip = findStripFile(context.folder, name);
    std::vector<PictureRef> cells(static_cast<std::size_t>(count));
    QJsonObject result;
    PixelRect cell{0, 0, kCellWidth, kCellHeight};
    if (strip && count > 0) {
        std::string error;
        cells = ui::QtPictureCodec().loadStrip(*strip, count, &error);
        const QSize size = QImageReader(QString::fromStdString(strip->string())).size();
        const std::vector<PixelRect> stripCells =
            orr::stripCells(size.width(), size.height(), count);
        if (!stripCells.empty()) cell = stripCells.front();
        if (cells.empty()) result["warning"] = textOf(error);
        cells.resize(static_cast<std::size_t>(count));
    }
    result["strip"] = fileName(strip);
    result["cellWidth"] = cell.width;
    result["cellHeight"] = cell.height;
    QJsonArray planets;
    for (int n = 1; n <= count; ++n) {
        QJsonObject planet;
        planet["planet"] = n;
        planet["picture"] = cells[static_cast<std::size_t>(n - 1)] != nullptr;
        planet["animation"] = fileName(findAnimation(context.folder, name, n));
        planet["customPicture"] = store.HasCustomPictures(n);
        planets.append(planet);
    }
    result["planets"] = planets;
    context.out << QJsonDocument(result).toJson(QJsonDocument::Indented).toStdString();
}

// Opens the system, applies `apply` to the planet args[1] and saves; `failure` is said when the
// session gives no reason of its own.
void changePlanet(CliContext& context, const QStringList& args, const char* failure,
                  const std::function<bool(EditSession&, int, ui::QtPictureCodec&)>& apply) {
    ui::QtPictureCodec codec;
    SystemChange change(context.folder, args[0], &codec);
    const int n = change.planetArgument(args[1], 1);
    change.require(apply(change.session(), n, codec), failure);
    change.commit();
}

void setPicture(CliContext& context, const QStringList& args) {
    changePlanet(context, args, "The picture could not be given to the planet.",
                 [&](EditSession& session, int n, ui::QtPictureCodec& codec) {
                     return assignPlanetPicture(session, n, loadPicture(codec, args[2]));
                 });
}

void removePicture(CliContext& context, const QStringList& args) {
    changePlanet(context, args, "The picture could not be removed.",
                 [](EditSession& session, int n, ui::QtPictureCodec&) {
                     return removePlanetPicture(session, n);
                 });
}

void removeAnimationCommand(CliContext& context, const QStringList& args) {
    changePlanet(context, args, "The animation could not be removed.",
                 [](EditSession& session, int n, ui::QtPictureCodec&) {
                     return removeAnimation(session, n);
                 });
}

void starPicture(CliContext& context, const QStringList& args) {
    ui::QtPictureCodec codec;
    SystemChange change(context.folder, args[0], &codec);
    const PictureRef picture =
        args[1] == QStringLiteral("--remove") ? nullptr : loadPicture(codec, args[1]);
    change.require(setStarPicture(change.session(), picture), "The star picture could not be set.");
    change.commit();
}

void package(CliContext& context, const QStringList& args) {
    requireKnownOptions(args, 2, {QStringLiteral("--zip-program"), QStringLiteral("--zip-options")},
                        true);
    SystemStore store(context.folder);
    const std::string name = existingSystem(store, args[0]);
    fs::path folder;
    std::string error;
    if (!makePackage(context.folder, name, pathOf(args[1]), &folder, &error)) throw CliError(error);
    const fs::path archive = packageArchive(folder);
    const QString program = option(args, 2, QStringLiteral("--zip-program"), QString());
    const QString options = option(args, 2, QStringLiteral("--zip-options"),
                                   QString::fromStdString(programs::defaultZipOptions()));
    const auto unzipped = [&folder](const std::string& why) {
        return CliError(why + " The package folder " + folder.string() +
                        " is complete, but not zipped.");
    };
    if (const std::optional<CommandLine> call =
            zipProgramCall(program.toStdString(), options.toStdString(), folder)) {
        QProcess zip;
        zip.setProgram(QString::fromStdString(call->program));
        for (const std::string& argument : call->arguments)
            zip.setArguments(zip.arguments() << QString::fromStdString(argument));
        // Its own output would mix with the two lines this command prints.
        zip.setStandardOutputFile(QProcess::nullDevice());
        zip.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        zip.start();
        if (!zip.waitForStarted(-1) || !zip.waitForFinished(-1) ||
            zip.exitStatus() != QProcess::NormalExit || zip.exitCode() != 0)
            throw unzipped("The zip program " + program.toStdString() + " failed (" +
                           zip.errorString().toStdString() + ", code " +
                           std::to_string(zip.exitCode()) + ").");
    } else if (!zipFolder(folder, archive, &error)) {
        throw unzipped(error);
    }
    context.out << folder.string() << '\n';
    std::error_code exists;
    if (fs::exists(archive, exists)) context.out << archive.string() << '\n';
}

void launch(CliContext& context, const QStringList& args) {
    requireKnownOptions(args, 1, {QStringLiteral("--print")}, false);
    SystemStore store(context.folder);
    const std::string name = existingSystem(store, args[0]);
    // The editor's setting, so the game starts as Test in Voidrunner starts it.
    const QSettings settings(QStringLiteral("Orrerion"), QStringLiteral("Orrerion"));
    const QString launcher =
        settings
            .value(QStringLiteral("Options/") + QString::fromLatin1(programs::kGameLauncher),
                   QString::fromStdString(programs::defaultGameLauncher()))
            .toString();
    std::string problem;
    const std::optional<CommandLine> command =
        gameCommand(context.folder, name, launcher.toStdString(), &problem);
    if (!command) throw CliError(problem);
    if (args.size() > 1) {
        context.out << command->program << '\n';
        for (const std::string& argument : command->arguments) context.out << argument << '\n';
        return;
    }
    QStringList arguments;
    for (const std::string& argument : command->arguments)
        arguments << QString::fromStdString(argument);
    if (!QProcess::startDetached(QString::fromStdString(command->program), arguments))
        throw CliError("The game could not be started: " + command->program + ".");
}

}  // namespace

std::vector<CommandSpec> pictureCommands() {
    return {
        {"pictures", "pictures NAME", 1, 1, showPictures},
        {"picture", "picture NAME N FILE", 3, 3, setPicture},
        {"picture-remove", "picture-remove NAME N", 2, 2, removePicture},
        {"animation-remove", "animation-remove NAME N", 2, 2, removeAnimationCommand},
        {"star-picture", "star-picture NAME FILE|--remove", 2, 2, starPicture},
        {"package", "package NAME FOLDER [--zip-program P] [--zip-options O]", 2, 6, package},
        {"launch", "launch NAME [--print]", 1, 2, launch},
    };
}

}  // namespace orr::cli
