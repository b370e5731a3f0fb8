#pragma once
// Whole systems as files: creating a new system's descriptor, deleting a system with its
// pictures, and carrying a system's saved pictures over to a new name (Save As). These are not
// edits of the open system and are not undoable.

#include <optional>
#include <string>

#include "session/EditSession.h"

namespace orr {

// What the answer of New is. ListedKey: a key of the game's list replaces that system (its
// record is taken from the list), and any other answer is a custom system. CustomName: a name
// the user typed for a custom system, which stays custom even when it equals a listed key.
enum class NewSystemAnswer { ListedKey, CustomName };

// New: refused (with the reason) when the name is unusable or the system already exists.
std::optional<std::string> canCreateSystem(const GameFolder& folder, const std::string& answer,
                                           NewSystemAnswer kind = NewSystemAnswer::ListedKey);
// Writes the descriptor of the new system (a custom system starts without planets); the caller
// opens it. False, with the reason in *error, when it was refused or could not be written.
bool createSystem(const GameFolder& folder, const std::string& answer, NewSystemAnswer kind,
                  std::string* error);

// Deletes the saved descriptor of `name` first (when that fails the system stays whole), then
// only this system's pictures. An open working copy of it is discarded. False, with the reason
// in session.lastError(), when something was left; what was deleted stays deleted.
bool deleteSystem(EditSession& session, const std::string& name);

// Save As: the saved pictures of system `from` become those of system `to`. The strip, star
// picture and animations `to` had are deleted and those of `from` are copied under the new
// name; `from` keeps its own. When the names differ only in letter case they name one system
// on Windows, and its files are renamed to the new spelling instead. False, with the reason in
// *error, when a file could not be deleted, copied or renamed, or the folder not listed (the
// others are still done).
bool replaceSystemPictures(const GameFolder& folder, const std::string& from, const std::string& to,
                           std::string* error);

}  // namespace orr
