#include "cli/support/CliFixture.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>
#include <filesystem>
#include <system_error>

namespace orr::clitest {

QByteArray crlf(std::initializer_list<const char*> lines) {
    QByteArray bytes;
    for (const char* line : lines) bytes += QByteArray(line) + "\r\n";
    return bytes;
}

QString demoFolder() {
    return QStringLiteral(ORRERION_SOURCE_DIR "/demo/game");
}

CliFixture::CliFixture() {
    freshFolder();
}

CliFixture::~CliFixture() {
    removeFolder();
}

// Qt cannot name files whose names are Windows-1252 bytes rather than UTF-8, so QTemporaryDir
// would leave them behind; the standard library removes them by their bytes.
void CliFixture::removeFolder() {
    if (!dir_) return;
    std::error_code error;
    std::filesystem::remove_all(QFile::encodeName(dir_->path()).toStdString(), error);
    dir_.reset();
}

QString CliFixture::freshFolder() {
    removeFolder();
    dir_ = std::make_unique<QTemporaryDir>();
    game_ = dir_->path() + "/game";
    QDir().mkpath(game_ + "/ORBDescriptor");
    write("voidrunner.exe", "stand-in\r\n");
    return game_;
}

QString CliFixture::demoCopy() {
    namespace fs = std::filesystem;
    freshFolder();
    const fs::path target = QFile::encodeName(game_).toStdString();
    fs::copy(QFile::encodeName(demoFolder()).toStdString(), target,
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    // Copies keep the source's read-only bits; the tests change the files.
    for (const auto& entry : fs::recursive_directory_iterator(target))
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
    return game_;
}

QString CliFixture::path(const QString& relative) const {
    return game_ + "/" + relative;
}

CliResult CliFixture::run(const QStringList& args, bool withGameDir, const QString& workDir,
                          const QByteArray& input) const {
    CliResult result;
    QProcess process;
    process.setWorkingDirectory(workDir.isEmpty() ? dir_->path() : workDir);
    QStringList all;
    if (withGameDir) all << "--game-dir" << game_;
    process.start(QStringLiteral(ORRERION_BINARY_DIR "/bin/orrerion-cli"), all + args);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(30000)) {
        process.kill();
        QTest::qFail("orrerion-cli did not start or finish (is it built?)", __FILE__, __LINE__);
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

QByteArray CliFixture::ok(const QStringList& args) const {
    const CliResult result = run(args);
    if (result.exitCode != 0 || !result.err.isEmpty()) {
        QTest::qFail(qPrintable(args.join(' ') + " failed (" + QString::number(result.exitCode) +
                                "): " + QString::fromUtf8(result.err)),
                     __FILE__, __LINE__);
    }
    return result.out;
}

QString CliFixture::fails(const QStringList& args) const {
    const CliResult result = run(args);
    const QByteArray prefix = "orrerion-cli: ";
    const bool oneLine = result.err.endsWith('\n') && result.err.count('\n') == 1 &&
                         !result.err.contains('\r') && result.err.startsWith(prefix);
    if (result.exitCode != 1 || !result.out.isEmpty() || !oneLine) {
        QTest::qFail(
            qPrintable(args.join(' ') + ": expected one error line and exit 1, got " +
                       QString::number(result.exitCode) + " [" + QString::fromUtf8(result.out) +
                       "] [" + QString::fromUtf8(result.err) + "]"),
            __FILE__, __LINE__);
        return QString();
    }
    return QString::fromUtf8(result.err.mid(prefix.size()).chopped(1));
}

QByteArray CliFixture::read(const QString& relative) const {
    QFile file(path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void CliFixture::write(const QString& relative, const QByteArray& bytes) const {
    QDir().mkpath(QFileInfo(path(relative)).path());
    QFile file(path(relative));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        QTest::qFail(qPrintable("cannot write " + relative), __FILE__, __LINE__);
}

bool CliFixture::exists(const QString& relative) const {
    return QFileInfo::exists(path(relative));
}

QMap<QString, QByteArray> CliFixture::snapshot() const {
    QMap<QString, QByteArray> files;
    QDirIterator it(game_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        files.insert(QDir(game_).relativeFilePath(file.fileName()),
                     file.open(QIODevice::ReadOnly) ? file.readAll() : "<unreadable>");
    }
    return files;
}

}  // namespace orr::clitest
