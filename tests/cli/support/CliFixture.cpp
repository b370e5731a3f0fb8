#include "cli/support/CliFixture.h"

#include <QProcess>
#include <QtTest>

namespace orr::clitest {

namespace fs = std::filesystem;

QByteArray crlf(std::initializer_list<std::string_view> lines) {
    return QByteArray::fromStdString(orr::test::crlf(lines));
}

QByteArray vegaDescriptor() {
    return crlf({"[General]", "PlanetPics=YNN", "Messages=NYN", "", ";SolarSystem",
                 ";\"Vega                \",0,3", ";400,2,0,0,1,0", ";430,3,1,5,13,7",
                 ";460,4,2,9,14,0", "[Names]", "S=Bright star", "1=First", "3=Third", "[1]",
                 "Info=one", "[3]", "Info=three"});
}

void CliFixture::freshFolder() {
    folder_ =
        std::make_unique<orr::test::TempGameFolder>(orr::test::TempGameFolder::Contents::Bare);
}

void CliFixture::demoCopy() {
    freshFolder();
    const fs::path target = folder_->root();
    fs::copy(ORRERION_SOURCE_DIR "/demo/game", target,
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    // Copies keep the source's read-only bits; the tests change the files.
    for (const auto& entry : fs::recursive_directory_iterator(target))
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
}

CliResult CliFixture::run(const QStringList& args, bool withGameDir, const QString& workDir,
                          const QByteArray& input) const {
    CliResult result;
    QProcess process;
    process.setWorkingDirectory(
        workDir.isEmpty() ? QString::fromStdString(fs::temp_directory_path().string()) : workDir);
    QStringList all;
    if (withGameDir) all << "--game-dir" << game();
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
    return QByteArray::fromStdString(folder_->read(relative.toStdString()));
}

void CliFixture::write(const QString& relative, const QByteArray& bytes) const {
    folder_->write(relative.toStdString(), bytes.toStdString());
}

}  // namespace orr::clitest
