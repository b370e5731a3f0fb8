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

namespace {

QString cliPath() {
    return QStringLiteral(ORRERION_BINARY_DIR "/bin/orrerion-cli");
}

// Throws when the copy fails, which ends the test run loudly.
void copyFolder(const QString& from, const QString& to) {
    namespace fs = std::filesystem;
    const fs::path target = QFile::encodeName(to).toStdString();
    fs::copy(QFile::encodeName(from).toStdString(), target, fs::copy_options::recursive);
    // Copies keep the source's read-only bits; the tests change the files.
    for (const auto& entry : fs::recursive_directory_iterator(target))
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
}

}  // namespace

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
    removeFolder();
    dir_ = std::make_unique<QTemporaryDir>();
    game_ = dir_->path() + "/game";
    copyFolder(demoFolder(), game_);
    return game_;
}

QString CliFixture::path(const QString& relative) const {
    return game_ + "/" + relative;
}

CliResult CliFixture::run(const QStringList& args, bool withGameDir, const QString& workDir,
                          const QByteArray& input) const {
    CliResult result;
    if (!QFileInfo::exists(cliPath())) {
        QTest::qFail("orrerion-cli is not built; build the orrerion-cli target first", __FILE__,
                     __LINE__);
        return result;
    }
    QProcess process;
    process.setWorkingDirectory(workDir.isEmpty() ? dir_->path() : workDir);
    QStringList all;
    if (withGameDir) all << "--game-dir" << game_;
    process.start(cliPath(), all + args);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(30000)) {
        process.kill();
        QTest::qFail("orrerion-cli did not finish", __FILE__, __LINE__);
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
    if (!file.open(QIODevice::ReadOnly)) return QByteArray();
    return file.readAll();
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
        const QString file = it.next();
        QFile in(file);
        files.insert(QDir(game_).relativeFilePath(file),
                     in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("<unreadable>"));
    }
    return files;
}

bool permissionsEnforced(const QString& scratchFolder) {
    const QString probe = scratchFolder + "/permission-probe";
    QDir().mkpath(probe);
    QFile::setPermissions(probe, QFile::ReadOwner | QFile::ExeOwner);
    QFile file(probe + "/x");
    const bool writable = file.open(QIODevice::WriteOnly);
    file.close();
    QFile::remove(probe + "/x");
    QFile::setPermissions(probe, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QDir(probe).removeRecursively();
    return !writable;
}

}  // namespace orr::clitest
