#pragma once
// The editor's own zip writer (libzip), for packages when no zip program is set or the one set
// cannot be found.

#include <filesystem>
#include <string>

namespace orr {

// Writes `archive` holding every file of `folder` under its own name (no folders inside the
// archive), replacing an archive of that name. The archive appears whole or not at all. False,
// with the reason in *error.
bool zipFolder(const std::filesystem::path& folder, const std::filesystem::path& archive,
               std::string* error);

}  // namespace orr
