#pragma once
// Whole-file reads and atomic writes. Every write goes to a temporary file in the target's
// folder, is checked, and is renamed over the target: a failed write leaves the target as it was
// and never reports success.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orr {

namespace fs = std::filesystem;

// Reads the whole file; nullopt (and the reason in *error) when it cannot be read.
std::optional<std::string> readWholeFile(const fs::path& path, std::string* error = nullptr);

// Durable writes reach the disk, folder entry included, before they report success, so that a
// power loss right after cannot lose them; they cost a disk flush, so only saves use them.
enum class Durability { Quick, Durable };

bool writeFileAtomically(const fs::path& path, std::string_view bytes, std::string* error = nullptr,
                         Durability durability = Durability::Quick);

// Copies `from` over `to` atomically; the copy keeps the source's modification time.
bool copyFileKeepingTime(const fs::path& from, const fs::path& to, std::string* error = nullptr,
                         Durability durability = Durability::Quick);

// Deletes a file; a file that is not there counts as deleted.
bool removeFile(const fs::path& path, std::string* error = nullptr);

// Renames a file, replacing a file of the new name.
bool renameFile(const fs::path& from, const fs::path& to, std::string* error = nullptr);

// The file a hidden temporary file of an atomic write was meant to replace: "Sol.orb" for
// ".Sol.orb.0123abcd4567.tmp"; nullopt when the name is not of that form.
std::optional<std::string> temporaryTarget(std::string_view fileName);

// For tests: the n-th file operation from now (writing a file's new contents, putting them in
// place, renaming or deleting a file) fails as a full or failing disk would; 0 turns it off.
void injectFileFailure(int n);
// The file operations made since the last injectFileFailure.
int fileOperationsSince();

// The path in double quotes, as messages name files.
std::string quotedPath(const fs::path& path);

// Modification time with the file system's full precision; nullopt when the file is missing.
std::optional<fs::file_time_type> modificationTime(const fs::path& path);

}  // namespace orr
