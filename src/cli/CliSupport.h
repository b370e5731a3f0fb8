#pragma once
// Helpers shared by the command groups of orrerion-cli: the conversion between command-line
// arguments and the game's Windows-1252 bytes, argument checks, and the edit session that opens
// a system in its working copy and either commits it or leaves no trace.

#include <QString>
#include <string>
#include <string_view>

#include "session/EditSession.h"
#include "store/SystemStore.h"

namespace orr::cli {

// Arguments reach the commands as Unicode strings. main() decodes each raw argument as UTF-8
// when it is valid UTF-8, else as Windows-1252 bytes (what the tool itself prints), so both a
// name typed on a UTF-8 terminal and a name piped from `list` find the same system. bytesOf
// turns an argument back into the game's bytes.
QString argumentFromRaw(std::string_view raw);
std::string bytesOf(const QString& argument);
QString textOf(std::string_view cp1252);  // game bytes for JSON and Qt

// The bytes of a text that will be stored, refused (a CliError naming `what`) with the editor's
// sentence when Windows-1252 cannot hold a character of it, never replaced by "?".
std::string storableBytesOf(const QString& argument, const std::string& what);
std::string storableBytes(const std::string& utf8, const std::string& what);

// The argument as an integer in [min, max]; otherwise a CliError naming `what`.
int numberArgument(const QString& argument, int min, int max, const std::string& what);

// Refuses texts that would break the descriptor's line structure (CR, LF or NUL).
void requireSingleLine(const std::string& text, const std::string& what);

// `what` in single quotes, for messages.
std::string inQuotes(const std::string& what);

// The name of the existing system `argument` as its descriptor file spells it (the file is
// found ignoring case); a CliError when there is none.
std::string existingSystem(const SystemStore& store, const QString& argument);

// The saved system `argument`, opened for reading only: its descriptor is never written.
SystemStore openSavedSystem(const GameFolder& folder, const QString& argument);
// A planet number of that system; otherwise a CliError that says how many there are.
int savedPlanetArgument(const SystemStore& store, const QString& argument);

// Refuses when `name` has a working copy (name.edt): the editor has it open or a backup waits.
void requireNoWorkingCopy(const SystemStore& store, const std::string& name);

// One change of a saved system, as the editor makes it: the system opened by the core's edit
// session in a fresh working copy (refused when one exists: the editor has it open or a backup
// waits), changed through the session's commands, and saved by commit(). Whenever the change ends
// without a successful commit the working copy is discarded, so no stray .edt stays behind.
class SystemChange {
  public:
    // With a codec the system's picture files are read and saved with it.
    SystemChange(const GameFolder& folder, const QString& argument, PictureCodec* codec = nullptr);
    ~SystemChange();
    SystemChange(const SystemChange&) = delete;
    SystemChange& operator=(const SystemChange&) = delete;

    EditSession& session() { return session_; }
    const SystemRecord& record() const { return session_.record(); }

    // A planet number in [min, PlanetCount]; otherwise a CliError that says how many there are.
    int planetArgument(const QString& argument, int min) const;
    // Throws the session's reason when `ok` is false (or `fallback` when it gave none).
    void require(bool ok, const std::string& fallback) const;

    void commit();

  private:
    EditSession session_;
    bool committed_ = false;
};

}  // namespace orr::cli
