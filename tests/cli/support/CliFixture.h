#pragma once
// Shared by the command-line tests: runs the built orrerion-cli in a fresh temporary game folder
// (tests/support's TempGameFolder, bare or a copy of the demo folder) and reads the folder's
// files back as bytes.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <initializer_list>
#include <map>
#include <memory>

#include "support/GameFixture.h"

namespace orr::clitest {

struct CliResult {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// Windows text: the lines joined with CR LF, each line ended by it.
QByteArray crlf(std::initializer_list<std::string_view> lines);

// Vega: star type 0, three planets at 400, 430, 460; PlanetPics YNN, Messages NYN; a star
// description; names for planets 1 and 3; sections [1] and [3].
QByteArray vegaDescriptor();

class CliFixture {
  public:
    CliFixture() { freshFolder(); }

    // A new bare game folder (voidrunner.exe, ORBDescriptor, PICTURES), replacing the last one.
    void freshFolder();
    // A new copy of the demo game folder.
    void demoCopy();

    const orr::test::TempGameFolder& folder() const { return *folder_; }
    QString game() const { return QString::fromStdString(folder_->root().string()); }
    QString path(const QString& relative) const { return game() + "/" + relative; }

    // Runs orrerion-cli --game-dir <game> args... (workDir: the current folder of the run, by
    // default one that is no game folder; withGameDir false leaves --game-dir out; input: the
    // bytes on standard input).
    CliResult run(const QStringList& args, bool withGameDir = true,
                  const QString& workDir = QString(), const QByteArray& input = {}) const;
    // Runs and requires exit code 0 and an empty stderr; returns stdout.
    QByteArray ok(const QStringList& args) const;
    // Runs and requires exit code 1, nothing on stdout and exactly one stderr line
    // "orrerion-cli: <reason>"; returns the reason.
    QString fails(const QStringList& args) const;

    QByteArray read(const QString& relative) const;
    void write(const QString& relative, const QByteArray& bytes) const;
    bool exists(const QString& relative) const { return folder_->exists(relative.toStdString()); }
    // Every file below the game folder with its bytes, for "nothing changed" checks.
    std::map<std::string, std::string> snapshot() const {
        return orr::test::snapshot(folder_->root());
    }

  private:
    std::unique_ptr<orr::test::TempGameFolder> folder_;
};

}  // namespace orr::clitest
