#pragma once
// Shared by the command-line tests: runs the built orrerion-cli in a fresh temporary game folder
// (a copy of the demo folder, or one made by hand) and reads the folder's files back as bytes.

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <initializer_list>
#include <memory>

namespace orr::clitest {

struct CliResult {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

// Windows text: the lines joined with CR LF, each line ended by it.
QByteArray crlf(std::initializer_list<const char*> lines);

// The repository's demo game folder.
QString demoFolder();

class CliFixture {
  public:
    CliFixture();
    ~CliFixture();
    CliFixture(const CliFixture&) = delete;
    CliFixture& operator=(const CliFixture&) = delete;

    // A new empty game folder (only voidrunner.exe and ORBDescriptor/), replacing the last one.
    QString freshFolder();
    // A new copy of the demo game folder.
    QString demoCopy();

    const QString& game() const { return game_; }
    QString path(const QString& relative) const;

    // Runs orrerion-cli --game-dir <game> args... (workDir: the current folder of the run;
    // withGameDir false leaves --game-dir out; input: the bytes on standard input).
    CliResult run(const QStringList& args, bool withGameDir = true,
                  const QString& workDir = QString(), const QByteArray& input = {}) const;
    // Runs and requires exit code 0 and an empty stderr; returns stdout.
    QByteArray ok(const QStringList& args) const;
    // Runs and requires exit code 1, nothing on stdout and exactly one stderr line
    // "orrerion-cli: <reason>"; returns the reason.
    QString fails(const QStringList& args) const;

    QByteArray read(const QString& relative) const;
    void write(const QString& relative, const QByteArray& bytes) const;
    bool exists(const QString& relative) const;

    // Every file below the game folder with its bytes, for "nothing changed" checks.
    QMap<QString, QByteArray> snapshot() const;

  private:
    std::unique_ptr<QTemporaryDir> dir_;
    QString game_;

    void removeFolder();
};

}  // namespace orr::clitest
